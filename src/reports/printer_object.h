#pragma once
// The plain printer: a page with a current point and a font, in the units of
// its scale mode, measured from the corner of the printable area. `Print`
// writes a line and moves to the start of the next; a line that would run off
// the foot of the page starts a new one. `EndDoc` sends the pages to the
// printer, which is the system's default printer unless one is named.

#include "reports/page_document.h"

#include <QRectF>
#include <QString>

namespace quillon {

enum ScaleModeKind : int {
    vbTwips = 1,
    vbPoints = 2,
    vbInches = 5,
    vbMillimeters = 6,
    vbCentimeters = 7,
};

class PrinterObject {
public:
    QString FontName = QStringLiteral("Arial");
    double FontSize = 10;
    bool FontBold = false;
    bool FontItalic = false;
    bool FontUnderline = false;
    // Line width in printer dots (600 to the inch); 1 is the thinnest line.
    int DrawWidth = 1;

    int ScaleMode() const { return scaleMode_; }
    void setScaleMode(int mode);
    double CurrentX() const;
    double CurrentY() const;
    void setCurrentX(double x);
    void setCurrentY(double y);
    // Size of the printable area.
    double ScaleWidth();
    double ScaleHeight();
    double TextWidth(const QString& text);
    double TextHeight(const QString& text);

    // The printer the next page goes to; empty for the system's default.
    QString DeviceName() const { return deviceName_; }
    void setDeviceName(const QString& name) { deviceName_ = name; }
    int Page() const { return static_cast<int>(document_.pages.size()); }

    // Prints `text` at the current point and moves to the start of the next line.
    void Print(const QString& text = QString());
    // Prints `text` and stays behind it on the same line.
    void PrintRunOn(const QString& text);
    void Line(double x1, double y1, double x2, double y2);
    void NewPage();
    // Sends the pages to the printer and starts afresh. False when the printer
    // refused them; `LastError` says why.
    bool EndDoc();
    // Drops the pages not yet sent, as when a report is abandoned.
    void KillDoc();
    QString LastError;
    // The pages not yet sent.
    const PageDocument& Document() const { return document_; }

private:
    double TwipsPerUnit() const;
    void BeginPage();
    const QFont& CurrentFont();
    void DrawText(const QString& text);

    int scaleMode_ = vbTwips;
    double x_ = 0;  // twips from the printable area's corner
    double y_ = 0;
    QString deviceName_;
    QString activeDevice_;
    QRectF area_;
    PageDocument document_;
    ReportFontCache fonts_;
};

// The system `Printer` object of the program.
inline PrinterObject Printer;

// Prints `items` under `title` on `Printer`, in one column or, with `mode` 2,
// two, with a page footer from the second page on, or, with `footerAlways`, on
// every page. Returns false after telling the user when the printer refused
// the job.
bool PrintListReport(const QStringList& items, const QString& title, int mode,
                     bool footerAlways = false);

// Prints `text` on `Printer` centred across the page, at its current line.
void PrintCentred(const QString& text);
// Ends `Printer`'s document, which sends it; false after telling the user when
// the printer refused it.
bool SendPrinterPages();

}  // namespace quillon
