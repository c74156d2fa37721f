#include "reports/vsprinter_control.h"

#include "platform/services.h"
#include "reports/print_backend.h"

#include <QFontMetricsF>
#include <QStringList>

namespace quillon {

namespace {

QStringList SystemPrinters() {
    const PrinterListService* printers = CurrentServices().printers;
    return printers != nullptr ? printers->PrinterNames() : QStringList();
}

QString SystemDefaultPrinter() {
    const PrinterListService* printers = CurrentServices().printers;
    return printers != nullptr ? printers->DefaultPrinterName() : QString();
}

bool ParsePageNumber(const QString& text, int* number) {
    bool ok = false;
    *number = text.trimmed().toInt(&ok);
    return ok;
}

void AppendPages(int from, int to, int pageCount, QList<int>* pages) {
    for (int page = from; page <= to; ++page) {
        if (page >= 1 && page <= pageCount) {
            pages->append(page);
        }
    }
}

}  // namespace

QList<int> ParsePageList(const QString& first, const QString& last, int pageCount) {
    QList<int> pages;
    int from = 0;
    int to = 0;
    if (ParsePageNumber(first, &from) && ParsePageNumber(last, &to)) {
        AppendPages(from, to, pageCount, &pages);
        return pages;
    }
    for (const QString& part : first.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList ends = part.split(QLatin1Char('-'));
        if (ends.size() == 1 && ParsePageNumber(ends[0], &from)) {
            AppendPages(from, from, pageCount, &pages);
        } else if (ends.size() == 2 && ParsePageNumber(ends[0], &from) &&
                   ParsePageNumber(ends[1], &to)) {
            AppendPages(from, to, pageCount, &pages);
        }
    }
    return pages;
}

void VSPrinterControl::setDevice(const QString& name) {
    Error = vsErrNone;
    if (name.isEmpty()) {
        // A default that the system no longer lists is no printer at all.
        const QString fallback = SystemDefaultPrinter();
        device_ = SystemPrinters().contains(fallback) ? fallback : QString();
        return;
    }
    if (SystemPrinters().contains(name)) {
        device_ = name;
    } else {
        Error = vsErrUnknownDevice;
    }
}

int VSPrinterControl::NDevices() const {
    return static_cast<int>(SystemPrinters().size());
}

QString VSPrinterControl::Devices(int index) const {
    return SystemPrinters().value(index);
}

void VSPrinterControl::setDuplex(int duplex) {
    Error = vsErrNone;
    if (duplex == 2 && !PrinterSupportsDuplex(device_)) {
        Error = vsErrDuplexRefused;
        return;
    }
    duplex_ = duplex;
}

void VSPrinterControl::StartDoc() {
    document_.Clear();
    document_.name = DocName;
    document_.AddPage();
    inDocument_ = true;
    PreviewPage = 1;
    CurrentX = 0;
    CurrentY = 0;
}

void VSPrinterControl::EndDoc() {
    if (!inDocument_) {
        return;
    }
    inDocument_ = false;
    if (!Preview) {
        QList<int> all;
        for (int i = 0; i < PageCount(); ++i) {
            all.append(i);
        }
        SendPages(all);
    }
}

void VSPrinterControl::NewPage() {
    if (Drawable()) {
        document_.AddPage();
        CurrentX = 0;
        CurrentY = 0;
    }
}

bool VSPrinterControl::Drawable() {
    if (!inDocument_) {
        Error = vsErrNoDocument;
        return false;
    }
    return true;
}

ReportPen VSPrinterControl::CurrentPen() const {
    return ReportPen{PenColor, PenWidth};
}

void VSPrinterControl::DrawLine(double x1, double y1, double x2, double y2) {
    if (Drawable()) {
        document_.CurrentPage().ops.emplace_back(LineOp{{x1, y1}, {x2, y2}, CurrentPen()});
    }
}

void VSPrinterControl::DrawRectangle(double x1, double y1, double x2, double y2) {
    if (Drawable()) {
        const bool filled = BrushStyle != 1;
        document_.CurrentPage().ops.emplace_back(RectangleOp{
            QRectF(QPointF(x1, y1), QPointF(x2, y2)), CurrentPen(), filled, BrushColor});
    }
}

void VSPrinterControl::DrawCircle(double x, double y, double radius) {
    if (Drawable()) {
        document_.CurrentPage().ops.emplace_back(
            CircleOp{{x, y}, radius, CurrentPen(), BrushColor});
    }
}

const QFont& VSPrinterControl::CurrentFont() {
    return fonts_.Get(FontName, FontSize, FontBold, FontItalic, FontUnderline);
}

double VSPrinterControl::TextWidth(const QString& text) {
    return QFontMetricsF(CurrentFont()).horizontalAdvance(text);
}

double VSPrinterControl::TextHeight(const QString& text) {
    const QFontMetricsF metrics(CurrentFont());
    const auto extraLines = text.count(QLatin1Char('\n'));
    return metrics.height() + static_cast<double>(extraLines) * metrics.lineSpacing();
}

void VSPrinterControl::setText(const QString& text) {
    if (Drawable()) {
        document_.CurrentPage().ops.emplace_back(
            TextOp{{CurrentX, CurrentY}, text, CurrentFont(), TextColor});
    }
}

void VSPrinterControl::TextBox(const QString& text, double x, double y, double width,
                               double height) {
    if (Drawable()) {
        document_.CurrentPage().ops.emplace_back(
            TextBoxOp{QRectF(x, y, width, height), text, CurrentFont(), TextColor});
    }
}

int VSPrinterControl::ReadyState() const {
    return !printing_ && PrinterIsReady(device_) ? kReadyStateIdle : kReadyStateBusy;
}

bool VSPrinterControl::PrintDoc(bool /*showDialog*/, const QString& first, const QString& last) {
    QList<int> indexes;
    for (const int page : ParsePageList(first, last, PageCount())) {
        indexes.append(page - 1);
    }
    if (indexes.isEmpty()) {
        RaiseError(vsErrPrinter, QStringLiteral("There are no pages to print in %1.")
                                     .arg(last.isEmpty() ? first : first + "-" + last));
        return false;
    }
    return SendPages(indexes);
}

void VSPrinterControl::MovePage(int from, int to) {
    document_.MovePage(from - 1, to - 1);
}

bool VSPrinterControl::SendPages(const QList<int>& pageIndexes) {
    PrintJob job{device_, DocName, pageIndexes, duplex_};
    QString failure;
    printing_ = true;
    const bool sent = SendToPrinter(document_, job, &failure);
    printing_ = false;
    if (!sent) {
        RaiseError(vsErrPrinter, failure);
    }
    return sent;
}

void VSPrinterControl::RaiseError(int number, const QString& description) {
    Error = number;
    ErrorDescription = description;
    if (OnError) {
        OnError(number, description);
    }
}

void VSPdfControl::ConvertDocument(const VSPrinterControl& source, const QString& fileName) {
    Error = WritePdf(source.Document(), fileName) ? vsErrNone : vsErrPrinter;
}

}  // namespace quillon
