#include "pdf_printing.h"

namespace quillon::bench {

QStringList PdfPrinting::OnlyPdfPrinter::PrinterNames() const {
    return {QString::fromLatin1(kPdfPrinterName)};
}

QString PdfPrinting::OnlyPdfPrinter::DefaultPrinterName() const {
    return QString::fromLatin1(kPdfPrinterName);
}

QString PdfPrinting::FixedFile::OpenFileName(const QString&, const QString&, const QString&) {
    return *path_;
}

QString PdfPrinting::FixedFile::SaveFileName(const QString&, const QString&, const QString&) {
    return *path_;
}

PdfPrinting::PdfPrinting(const QString& fileName)
    : path_(folder_.filePath(fileName)), previous_(CurrentServices()) {
    Services services = previous_;
    services.printers = &printers_;
    services.fileDialogs = &file_;
    InstallServices(services);
}

PdfPrinting::~PdfPrinting() {
    InstallServices(previous_);
}

void PdfPrinting::UseClock(ClockService* clock) {
    Services services = CurrentServices();
    services.clock = clock;
    InstallServices(services);
}

}  // namespace quillon::bench
