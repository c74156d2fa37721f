#pragma once
// basVSPrint: the drawing routines of the reports. Reports lay out in page
// millimetres from the page origin; the routines map them to control units on
// the one shared document control, with the offsets and scale of the report
// settings.

#include "reports/page_document.h"
#include "reports/vsprinter_control.h"

#include <QString>

namespace quillon {

// ReportDestination values.
enum ReportDestinationKind : qint16 {
    rdPreview = 1,
    rdPrinter = 2,
    rdPdfFile = 3,
};

// Control units to the page millimetre at scale 100. The report layouts were
// measured with this factor, so it stays rather than 1440 / 25.4.
constexpr double kUnitsPerMm = 56.69;
// Control units from the foot of a text to the bottom of its line box.
constexpr double kTextFootAllowance = 28.0;

inline qint16 ReportDestination = rdPreview;
inline qint16 ReportPageNumber = 1;

struct PageMapping {
    double originX = 0;  // control units
    double originY = 0;
    double scaleRatio = 1;
    double unit = kUnitsPerMm;  // control units per page millimetre
};
inline PageMapping PageMap;

// Where the last text ended, in control units: run-on text starts here.
struct PenPosition {
    double x = 0;
    double y = 0;
};
inline PenPosition PagePen;

// The four report colours, greys built from VS BLACK ... VS WHITE.
inline ReportColour ReportBlack = RgbColour(0, 0, 0);
inline ReportColour ReportDark = RgbColour(200, 200, 200);
inline ReportColour ReportLight = RgbColour(225, 225, 225);
inline ReportColour ReportWhite = RgbColour(255, 255, 255);
// Underlines every text; cleared with each document and set by nothing yet.
inline bool UnderlineText = false;

// The shared controls: `vp` holds the document, `pdf` converts it.
void VSBindControls(VSPrinterControl& vp, VSPdfControl& pdf);
VSPrinterControl& VSDocumentControl();
VSPdfControl& VSPdfConverter();

int VSGetError();
QString VSGetDefaultPrinter();
void VSSetDocName(const QString& name);
bool VSOpenReport(const QString& documentName);
bool VSStartDocument(const QString& printerName);
void VSApplyPageSetup();
void VSSetOrigin(double left, double top, double scalePercent);
void VSNextSheet();
void VSEndDocument();
void VSConvertToPDF(const QString& fileName);
void VSNewPage();
void VSSetOrientation(qint16 orientation);

double VSMapX(double x);
double VSMapY(double y);

void VSDrawLine(double width, double x1, double y1, double x2, double y2);
void VSDrawHLine(double width, double x1, double x2, double y);
void VSDrawVLine(double width, double x, double y1, double y2);
void VSDrawBox(double width, double x1, double y1, double x2, double y2);
void VSDrawFilledBox(ReportColour pen, ReportColour brush, double width, double x1, double y1,
                     double x2, double y2);
void VSDrawDisc(ReportColour colour, double x, double y, double radius);
void VSDrawTick(double x, double y);

void VSSetFontName(const QString& name);
void VSSetTextColour(ReportColour colour);
void VSSetFont(double points, bool bold, bool italic);
void VSBoldOn();
void VSBoldOff();
void VSItalicOn();
void VSItalicOff();

void VSTextAt(double x, double y, const QString& text);
void VSTextRightAt(double x, double y, const QString& text);
void VSTextCentred(double x1, double x2, double y, const QString& text);
void VSTextNext(const QString& text);
void VSTextBox(double x, double y, double width, double height, const QString& text);

// Turns the page order of the document round, keeping the shown page on the
// screen; a second call puts the pages back.
void ReversePages(VSPrinterControl& control);

// The page list of a manual duplex pass: the odd or the even pages from the
// first. In reverse order with an even page count page p stands at place
// N + 1 - p, so the two lists change places.
struct PageSelection {
    QString first;
    QString last;
};
PageSelection ManualDuplexPages(int pageCount, bool oddPages, bool reversed);

// True when the document being built will be turned into a PDF file.
bool DocumentBecomesPdf();
// Docs/Preview.pdf below the program's folder.
QString PreviewPdfPath();
// The document control's error event: tells the user what the printer said.
void VSReportControlError(int number, const QString& description);
// Tells the user that `device` failed with error `number`.
void ReportPrinterFailure(const QString& device, int number, const QString& description);

}  // namespace quillon
