#include "reports/printer_object.h"

#include "platform/services.h"
#include "platform/wait_pointer.h"
#include "reports/print_backend.h"
#include "reports/vsprint.h"

#include <QCursor>
#include <QFontMetricsF>
#include <QGuiApplication>

namespace quillon {

namespace {

constexpr double kTwipsPerPrinterDot = kTwipsPerInch / 600.0;

QString DefaultPrinter() {
    const PrinterListService* printers = CurrentServices().printers;
    return printers != nullptr ? printers->DefaultPrinterName() : QString();
}

}  // namespace

double PrinterObject::TwipsPerUnit() const {
    switch (scaleMode_) {
        case vbPoints:
            return kTwipsPerPoint;
        case vbInches:
            return kTwipsPerInch;
        case vbMillimeters:
            return kTwipsPerMm;
        case vbCentimeters:
            return kTwipsPerMm * 10.0;
        default:
            return 1.0;
    }
}

void PrinterObject::setScaleMode(int mode) {
    scaleMode_ = mode;
}

double PrinterObject::CurrentX() const {
    return x_ / TwipsPerUnit();
}

double PrinterObject::CurrentY() const {
    return y_ / TwipsPerUnit();
}

void PrinterObject::setCurrentX(double x) {
    x_ = x * TwipsPerUnit();
}

void PrinterObject::setCurrentY(double y) {
    y_ = y * TwipsPerUnit();
}

void PrinterObject::BeginPage() {
    if (!document_.pages.empty()) {
        return;
    }
    activeDevice_ = deviceName_.isEmpty() ? DefaultPrinter() : deviceName_;
    area_ = PrintableArea(activeDevice_);
    document_.name = QStringLiteral("Quillon");
    document_.AddPage();
}

double PrinterObject::ScaleWidth() {
    BeginPage();
    return area_.width() / TwipsPerUnit();
}

double PrinterObject::ScaleHeight() {
    BeginPage();
    return area_.height() / TwipsPerUnit();
}

const QFont& PrinterObject::CurrentFont() {
    return fonts_.Get(FontName, FontSize, FontBold, FontItalic, FontUnderline);
}

double PrinterObject::TextWidth(const QString& text) {
    return QFontMetricsF(CurrentFont()).horizontalAdvance(text) / TwipsPerUnit();
}

double PrinterObject::TextHeight(const QString& text) {
    const QFontMetricsF metrics(CurrentFont());
    const auto extraLines = text.count(QLatin1Char('\n'));
    return (metrics.height() + static_cast<double>(extraLines) * metrics.lineSpacing()) /
           TwipsPerUnit();
}

void PrinterObject::DrawText(const QString& text) {
    BeginPage();
    const double lineHeight = QFontMetricsF(CurrentFont()).height();
    if (y_ + lineHeight > area_.height() && y_ > 0) {
        NewPage();
    }
    if (!text.isEmpty()) {
        document_.CurrentPage().ops.emplace_back(
            TextOp{area_.topLeft() + QPointF(x_, y_), text, CurrentFont(), 0});
    }
}

void PrinterObject::Print(const QString& text) {
    DrawText(text);
    x_ = 0;
    y_ += QFontMetricsF(CurrentFont()).height();
}

void PrinterObject::PrintRunOn(const QString& text) {
    DrawText(text);
    x_ += QFontMetricsF(CurrentFont()).horizontalAdvance(text);
}

void PrinterObject::Line(double x1, double y1, double x2, double y2) {
    BeginPage();
    const double unit = TwipsPerUnit();
    const double width = DrawWidth <= 1 ? 0.0 : DrawWidth * kTwipsPerPrinterDot;
    document_.CurrentPage().ops.emplace_back(LineOp{area_.topLeft() + QPointF(x1, y1) * unit,
                                                    area_.topLeft() + QPointF(x2, y2) * unit,
                                                    ReportPen{0, width}});
    x_ = x2 * unit;
    y_ = y2 * unit;
}

void PrinterObject::NewPage() {
    BeginPage();
    document_.AddPage();
    x_ = 0;
    y_ = 0;
}

bool PrinterObject::EndDoc() {
    LastError.clear();
    bool sent = true;
    if (!document_.pages.empty()) {
        QList<int> all;
        for (int i = 0; i < document_.PageCount(); ++i) {
            all.append(i);
        }
        sent =
            SendToPrinter(document_, PrintJob{activeDevice_, document_.name, all, 0}, &LastError);
    }
    document_.Clear();
    x_ = 0;
    y_ = 0;
    return sent;
}

void PrinterObject::KillDoc() {
    document_.Clear();
    x_ = 0;
    y_ = 0;
}

namespace {

constexpr double kTitleY = 20;
constexpr double kFirstLineY = 30;
constexpr double kLastLineY = 265;
constexpr double kFooterY = 275;
constexpr double kColumnWidth = 90;
constexpr double kColumnLeft = 20;

void PrintTitle(const QString& title) {
    Printer.FontBold = true;
    Printer.setCurrentY(kTitleY);
    PrintCentred(title);
    Printer.setCurrentY(kFirstLineY);
    Printer.FontBold = false;
}

void PrintFooter(int page) {
    Printer.setCurrentY(kFooterY);
    PrintCentred(QStringLiteral("Page ") + QString::number(page));
}

}  // namespace

void PrintCentred(const QString& text) {
    Printer.setCurrentX((Printer.ScaleWidth() - Printer.TextWidth(text)) / 2.0);
    Printer.Print(text);
}

bool SendPrinterPages() {
    const QString device = Printer.DeviceName().isEmpty() ? DefaultPrinter() : Printer.DeviceName();
    if (!Printer.EndDoc()) {
        ReportPrinterFailure(device, vsErrPrinter, Printer.LastError);
        return false;
    }
    return true;
}

bool PrintListReport(const QStringList& items, const QString& title, int mode, bool footerAlways) {
    const WaitPointer busy;
    Printer.setScaleMode(vbMillimeters);
    Printer.FontName = QStringLiteral("Times New Roman");
    Printer.FontSize = 12;
    PrintTitle(title);
    int page = 1;
    int column = 0;
    for (const QString& item : items) {
        if (Printer.CurrentY() >= kLastLineY) {
            if (mode == 2 && column == 0) {
                column = 1;
                Printer.setCurrentY(kFirstLineY);
            } else {
                // The column stays: a two-column list fills only the right-hand
                // column from its second page on.
                PrintFooter(page);
                Printer.NewPage();
                ++page;
                PrintTitle(title);
            }
        }
        Printer.setCurrentX(column * kColumnWidth + kColumnLeft);
        Printer.Print(item);
    }
    if (page > 1 || footerAlways) {
        PrintFooter(page);
    }
    return SendPrinterPages();
}

}  // namespace quillon
