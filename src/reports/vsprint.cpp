#include "reports/vsprint.h"

#include "platform/services.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

namespace quillon {

namespace {

struct BoundControls {
    VSPrinterControl* vp = nullptr;
    VSPdfControl* pdf = nullptr;
};

BoundControls& bound() {
    // Until the start-up binds the preview's controls, a document of our own.
    static VSPrinterControl ownDocument;
    static VSPdfControl ownConverter;
    static BoundControls controls = [] {
        ownDocument.OnError = VSReportControlError;
        return BoundControls{&ownDocument, &ownConverter};
    }();
    return controls;
}

VSPrinterControl& vp() {
    return *bound().vp;
}

const char* const kNoDuplex =
    "The currently selected printer does not support double-sided printing.";
const char* const kTurnOffDuplex =
    "Go to Report Settings and turn off 'Double-sided' in the Print settings.";

ReportColour Grey(qint16 level) {
    return RgbColour(level, level, level);
}

void BuildReportColours() {
    ReportBlack = Grey(VSBlack);
    ReportDark = Grey(VSDark);
    ReportLight = Grey(VSLight);
    ReportWhite = Grey(VSWhite);
}

void SetBlackPen(double width) {
    vp().PenColor = 0;
    vp().PenStyle = 0;
    vp().PenWidth = PageMap.unit * width;
}

void AskDuplex() {
    if (VSDuplexMode == 1) {
        vp().setDuplex(1);
    } else if (VSDuplexMode == 2) {
        vp().setDuplex(2);
        if (VSGetError() == vsErrDuplexRefused) {
            MsgBox(QString::fromLatin1(kNoDuplex) + QStringLiteral("\n\n") +
                       QString::fromLatin1(kTurnOffDuplex),
                   vbInformation);
        }
    }
}

bool StartWithDefaultPrinter(const QString& defaultName) {
    const QString prompt = QStringLiteral("This printer is not available.") +
                           QStringLiteral("\n\n") +
                           QStringLiteral("Do you wish to use the default printer '") +
                           defaultName + QStringLiteral("' instead?");
    if (MsgBox(prompt, vbYesNo | vbQuestion, VSPrinter) == vbNo) {
        return false;
    }
    VSPrinter = defaultName;
    if (VSStartDocument(VSPrinter)) {
        VSApplyPageSetup();
        return true;
    }
    MsgBox(QStringLiteral("This printer is not available"), vbCritical, VSPrinter);
    return false;
}

}  // namespace

void VSBindControls(VSPrinterControl& vpControl, VSPdfControl& pdf) {
    bound().vp = &vpControl;
    bound().pdf = &pdf;
    vpControl.OnError = VSReportControlError;
}

VSPrinterControl& VSDocumentControl() {
    return vp();
}

VSPdfControl& VSPdfConverter() {
    return *bound().pdf;
}

int VSGetError() {
    return vp().Error;
}

QString VSGetDefaultPrinter() {
    vp().setDevice(QString());
    QCoreApplication::processEvents();
    return vp().Device();
}

void VSSetDocName(const QString& name) {
    vp().DocName = name;
}

bool VSOpenReport(const QString& documentName) {
    VSSetDocName(documentName);
    vp().Preview = ReportDestination != rdPrinter;
    BuildReportColours();
    const QString defaultName = VSGetDefaultPrinter();
    if (VSPrinter.isEmpty()) {
        VSPrinter = defaultName;
    }
    if (VSStartDocument(VSPrinter)) {
        VSApplyPageSetup();
        return true;
    }
    if (!defaultName.isEmpty()) {
        return StartWithDefaultPrinter(defaultName);
    }
    MsgBox(QStringLiteral("This printer is not available."), vbCritical, VSPrinter);
    return false;
}

bool VSStartDocument(const QString& printerName) {
    UnderlineText = false;
    vp().setDevice(QString());
    for (int i = 0; i < vp().NDevices(); ++i) {
        if (vp().Devices(i) == printerName) {
            vp().setDevice(printerName);
            break;
        }
    }
    if (vp().Device() != printerName) {
        return false;
    }
    vp().PaperSize = kPaperSizeA4;
    vp().Orientation = kOrientationPortrait;
    AskDuplex();
    vp().MarginTop = 0;
    vp().MarginBottom = 0;
    vp().MarginLeft = 0;
    vp().MarginRight = 0;
    vp().IndentLeft = 0;
    vp().IndentRight = 0;
    vp().IndentFirst = 0;
    vp().StartDoc();
    return true;
}

bool DocumentBecomesPdf() {
    return ReportDestination == rdPdfFile || (ReportDestination == rdPreview && ReportPreview == 1);
}

void VSApplyPageSetup() {
    // Every page sits 2 mm below the top offset: the layouts were drawn so.
    if (DocumentBecomesPdf()) {
        VSSetOrigin(VSPDFLeft, VSPDFTop + 2.0, VSPDFScale);
    } else {
        VSSetOrigin(VSLeft, VSTop + 2.0, VSScale);
    }
}

void VSSetOrigin(double left, double top, double scalePercent) {
    PageMap.originX = left * kUnitsPerMm;
    PageMap.originY = top * kUnitsPerMm;
    PageMap.scaleRatio = scalePercent / 100.0;
    PageMap.unit = PageMap.scaleRatio * kUnitsPerMm;
}

void VSNextSheet() {
    if (ReportPageNumber > 1) {
        vp().Orientation = kOrientationPortrait;
        VSNewPage();
        VSApplyPageSetup();
    }
}

void VSEndDocument() {
    vp().EndDoc();
}

void VSConvertToPDF(const QString& fileName) {
    QCoreApplication::processEvents();
    VSPdfConverter().ConvertDocument(vp(), fileName);
    QCoreApplication::processEvents();
}

void VSNewPage() {
    vp().NewPage();
}

void VSSetOrientation(qint16 orientation) {
    vp().Orientation = orientation;
}

double VSMapX(double x) {
    return PageMap.unit * x + PageMap.originX;
}

double VSMapY(double y) {
    return PageMap.unit * y + PageMap.originY;
}

void VSDrawLine(double width, double x1, double y1, double x2, double y2) {
    SetBlackPen(width);
    vp().DrawLine(VSMapX(x1), VSMapY(y1), VSMapX(x2), VSMapY(y2));
}

void VSDrawHLine(double width, double x1, double x2, double y) {
    VSDrawLine(width, x1, y, x2, y);
}

void VSDrawVLine(double width, double x, double y1, double y2) {
    VSDrawLine(width, x, y1, x, y2);
}

void VSDrawBox(double width, double x1, double y1, double x2, double y2) {
    SetBlackPen(width);
    vp().BrushStyle = 1;
    vp().DrawRectangle(VSMapX(x1), VSMapY(y1), VSMapX(x2), VSMapY(y2));
}

void VSDrawFilledBox(ReportColour pen, ReportColour brush, double width, double x1, double y1,
                     double x2, double y2) {
    vp().PenColor = pen;
    vp().PenStyle = 0;
    vp().PenWidth = PageMap.unit * width;
    vp().BrushColor = brush;
    vp().BrushStyle = 0;
    vp().DrawRectangle(VSMapX(x1), VSMapY(y1), VSMapX(x2), VSMapY(y2));
}

void VSDrawDisc(ReportColour colour, double x, double y, double radius) {
    vp().PenColor = colour;
    vp().BrushColor = colour;
    vp().PenWidth = 0;
    vp().PenStyle = 0;
    vp().BrushStyle = 0;
    vp().DrawCircle(VSMapX(x), VSMapY(y), PageMap.unit * radius);
}

void VSDrawTick(double x, double y) {
    VSDrawLine(0.4, x - 0.5, y - 1.0, x, y);
    VSDrawLine(0.4, x, y, x + 2.0, y - 3.0);
}

void VSSetFontName(const QString& name) {
    vp().FontName = name;
}

void VSSetTextColour(ReportColour colour) {
    vp().TextColor = colour;
}

void VSSetFont(double points, bool bold, bool italic) {
    vp().FontSize = PageMap.scaleRatio * points;
    vp().FontBold = bold;
    vp().FontItalic = italic;
}

void VSBoldOn() {
    vp().FontBold = true;
}

void VSBoldOff() {
    vp().FontBold = false;
}

void VSItalicOn() {
    vp().FontItalic = true;
}

void VSItalicOff() {
    vp().FontItalic = false;
}

void VSTextAt(double x, double y, const QString& text) {
    PagePen = {VSMapX(x), VSMapY(y)};
    VSTextNext(text);
}

void VSTextRightAt(double x, double y, const QString& text) {
    PagePen = {VSMapX(x) - vp().TextWidth(text), VSMapY(y)};
    VSTextNext(text);
}

void VSTextCentred(double x1, double x2, double y, const QString& text) {
    PagePen = {VSMapX((x1 + x2) / 2.0) - vp().TextWidth(text) / 2.0, VSMapY(y)};
    VSTextNext(text);
}

void VSTextNext(const QString& text) {
    const double height = vp().TextHeight(text);
    const double width = vp().TextWidth(text);
    switch (VSAlignTextMethod) {
        case 1:
            vp().CurrentX = PagePen.x + VSAlignTextX;
            vp().CurrentY = PagePen.y - height + VSAlignTextY + kTextFootAllowance;
            break;
        case 2:
            vp().CurrentX = PagePen.x;
            vp().CurrentY = PagePen.y - height * (1.0 - VSAlignTextY) + kTextFootAllowance;
            break;
        default:
            vp().CurrentX = PagePen.x;
            vp().CurrentY = PagePen.y - height + kTextFootAllowance;
            break;
    }
    vp().setText(text);
    if (UnderlineText) {
        SetBlackPen(0.2);
        vp().DrawLine(PagePen.x, PagePen.y + kTextFootAllowance, PagePen.x + width,
                      PagePen.y + kTextFootAllowance);
    }
    PagePen.x += width;
}

void VSTextBox(double x, double y, double width, double height, const QString& text) {
    vp().TextBox(text, VSMapX(x), VSMapY(y), PageMap.unit * width, PageMap.unit * height);
}

void ReversePages(VSPrinterControl& control) {
    const int count = control.PageCount();
    if (count < 2) {
        return;
    }
    for (int page = 2; page <= count; ++page) {
        control.MovePage(page, 1);
    }
    control.PreviewPage = count + 1 - control.PreviewPage;
}

PageSelection ManualDuplexPages(int pageCount, bool oddPages, bool reversed) {
    if (reversed && pageCount % 2 == 0) {
        oddPages = !oddPages;
    }
    QStringList numbers;
    for (int page = oddPages ? 1 : 2; page <= pageCount; page += 2) {
        numbers << QString::number(page);
    }
    return {numbers.join(QLatin1Char(',')), numbers.isEmpty() ? QString() : numbers.last()};
}

QString PreviewPdfPath() {
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral("Docs/Preview.pdf"));
}

void VSReportControlError(int number, const QString& description) {
    ReportPrinterFailure(vp().Device(), number, description);
}

void ReportPrinterFailure(const QString& device, int number, const QString& description) {
    if (device.isEmpty()) {
        MsgBox(QStringLiteral("There is no printer available"), vbExclamation);
        return;
    }
    MsgBox(QStringLiteral("Printer: ") + device + QStringLiteral("\n\n") +
               QStringLiteral("Error ") + QString::number(number) + QStringLiteral(": ") +
               description + QStringLiteral("\n\n") +
               QStringLiteral("Make sure this printer is available and properly set up."),
           vbExclamation);
}

}  // namespace quillon
