#include "reports/print_backend_gui.h"

#include <QApplication>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>

namespace quillon {

namespace {

void SetUpPrinter(QPrinter& printer, const PrintJob& job) {
    printer.setPrinterName(job.device);
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setDocName(job.documentName);
    if (job.duplex == 1) {
        printer.setDuplex(QPrinter::DuplexNone);
    } else if (job.duplex == 2) {
        printer.setDuplex(QPrinter::DuplexLongSide);
    }
}

QString JobCaption(const PrintJob& job) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(job.device);
    const QString place =
        info.location().isEmpty() ? QStringLiteral("this computer") : info.location();
    return QStringLiteral("Printing...") + QLatin1Char('\n') + job.documentName +
           QLatin1Char('\n') +
           QString::asprintf("on the %s on %s.", qUtf8Printable(job.device), qUtf8Printable(place));
}

}  // namespace

bool DesktopPrintBackend::SupportsDuplex(const QString& device) const {
    const QList<QPrinter::DuplexMode> modes =
        QPrinterInfo::printerInfo(device).supportedDuplexModes();
    return modes.contains(QPrinter::DuplexLongSide) || modes.contains(QPrinter::DuplexAuto);
}

bool DesktopPrintBackend::IsReady(const QString& device) const {
    if (!outputFile_.isEmpty()) {
        return true;
    }
    const QPrinterInfo info = QPrinterInfo::printerInfo(device);
    return !info.isNull() && info.state() != QPrinter::Error;
}

QRectF DesktopPrintBackend::PrintableArea(const QString& device) const {
    QPrinter printer(QPrinterInfo::printerInfo(device), QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    const QRectF area = printer.pageLayout().paintRect(QPageLayout::Millimeter);
    return {area.topLeft() * kTwipsPerMm, area.size() * kTwipsPerMm};
}

bool DesktopPrintBackend::Print(const PageDocument& document, const PrintJob& job, QString* error) {
    // Qt would send the pages to the default printer in place of one it no
    // longer knows.
    if (outputFile_.isEmpty() && QPrinterInfo::printerInfo(job.device).isNull()) {
        *error = QStringLiteral("The printer is not known to the printing system.");
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    SetUpPrinter(printer, job);
    if (!outputFile_.isEmpty()) {
        printer.setOutputFileName(outputFile_);
    }
    QProgressDialog progress(JobCaption(job), QStringLiteral("Cancel"), 0,
                             static_cast<int>(job.pages.size()));
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(500);
    QPainter painter;
    if (!painter.begin(&printer)) {
        *error = QStringLiteral("The printer did not accept the document.");
        return false;
    }
    const double scale = printer.resolution() / kTwipsPerInch;
    painter.scale(scale, scale);
    for (int i = 0; i < job.pages.size(); ++i) {
        if (progress.wasCanceled()) {
            printer.abort();
            return true;
        }
        progress.setValue(i);
        progress.setLabelText(JobCaption(job) + QLatin1Char('\n') +
                              QString::asprintf("Now printing Page %d of", i + 1) +
                              QLatin1Char(' ') + QString::number(job.pages.size()));
        if (i > 0) {
            printer.newPage();
        }
        RenderPage(painter, document.pages.at(job.pages[i]));
    }
    return painter.end();
}

void InstallDesktopPrintBackend() {
    static DesktopPrintBackend backend;
    InstallPrintBackend(&backend);
}

}  // namespace quillon
