#pragma once
// The document control the report routines draw on: one document at a time,
// built page by page in control units (twips) with a current pen, brush, font
// and point, then kept for the preview or sent to the printer. Properties keep
// the names the report routines use.

#include "reports/page_document.h"

#include <QList>
#include <QString>

#include <functional>

namespace quillon {

// Error numbers the control leaves in `Error`.
enum VSPrinterError : int {
    vsErrNone = 0,
    vsErrDuplexRefused = 7,
    vsErrNoDocument = 20,
    vsErrUnknownDevice = 28,
    vsErrPrinter = 482,
};

constexpr int kPaperSizeA4 = 9;
constexpr int kOrientationPortrait = 0;
constexpr int kReadyStateIdle = 2;
constexpr int kReadyStateBusy = 0;

// Zoom modes, in the order of the preview's zoom list.
enum VSZoomMode : int {
    zmPercentage = 0,
    zmThumbnail = 1,
    zmTwoPages = 2,
    zmWholePage = 3,
    zmPageWidth = 4,
    zmStretch = 5,
};

// Pages named by a list such as "1,3,5-12", or from `first` to `last` when both
// are plain numbers; numbers from 1, kept only when within 1 to `pageCount`.
QList<int> ParsePageList(const QString& first, const QString& last, int pageCount);

class VSPrinterControl {
public:
    // Document properties.
    QString DocName;
    bool Preview = true;
    int PaperSize = kPaperSizeA4;
    int Orientation = kOrientationPortrait;
    double MarginTop = 0;
    double MarginBottom = 0;
    double MarginLeft = 0;
    double MarginRight = 0;
    double IndentLeft = 0;
    double IndentRight = 0;
    double IndentFirst = 0;
    int Error = vsErrNone;
    QString ErrorDescription;

    // Drawing state. Style 0 is solid; brush style 1 is transparent.
    ReportColour PenColor = 0;
    int PenStyle = 0;
    double PenWidth = 0;
    ReportColour BrushColor = 0;
    int BrushStyle = 0;
    QString FontName = QStringLiteral("Arial");
    double FontSize = 10;
    bool FontBold = false;
    bool FontItalic = false;
    bool FontUnderline = false;
    ReportColour TextColor = 0;
    double CurrentX = 0;
    double CurrentY = 0;

    // Preview state.
    int PreviewPage = 1;
    double Zoom = 100;
    int ZoomMode = zmPageWidth;

    // Called with the error number and description when printing fails.
    std::function<void(int, const QString&)> OnError;

    QString Device() const { return device_; }
    // An empty name selects the default printer; a name the system doesn't know
    // leaves the device as it was and sets `Error`.
    void setDevice(const QString& name);
    int NDevices() const;
    QString Devices(int index) const;
    int Duplex() const { return duplex_; }
    // Double-sided on a printer without it is refused with `Error` 7.
    void setDuplex(int duplex);

    void StartDoc();
    void EndDoc();
    void NewPage();
    bool InDocument() const { return inDocument_; }

    void DrawLine(double x1, double y1, double x2, double y2);
    void DrawRectangle(double x1, double y1, double x2, double y2);
    void DrawCircle(double x, double y, double radius);

    double TextWidth(const QString& text);
    double TextHeight(const QString& text);
    // Draws `text` with its top left corner at the current point.
    void setText(const QString& text);
    void TextBox(const QString& text, double x, double y, double width, double height);

    int PageCount() const { return document_.PageCount(); }
    int ReadyState() const;
    // Prints pages `first` to `last` (or the list in `first`) with the current
    // device. There is no set-up dialog here: the preview has its own.
    bool PrintDoc(bool showDialog, const QString& first, const QString& last);
    // Moves page `from` to place `to`, both from 1.
    void MovePage(int from, int to);

    const PageDocument& Document() const { return document_; }

private:
    const QFont& CurrentFont();
    ReportPen CurrentPen() const;
    bool Drawable();
    void RaiseError(int number, const QString& description);
    bool SendPages(const QList<int>& pageIndexes);

    PageDocument document_;
    QString device_;
    int duplex_ = 0;
    bool inDocument_ = false;
    bool printing_ = false;
    ReportFontCache fonts_;
};

// Turns the pages of a document control into a PDF file.
class VSPdfControl {
public:
    int Error = vsErrNone;
    // Writes every page of `source` to `fileName`; sets `Error` when it can't.
    void ConvertDocument(const VSPrinterControl& source, const QString& fileName);
};

}  // namespace quillon
