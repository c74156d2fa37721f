#include "reports/print_backend.h"

#include "platform/services.h"
#include "shell/variables.h"

#include <QDir>

namespace quillon {

namespace {

PrintBackend*& installedBackend() {
    static PrintBackend* backend = nullptr;
    return backend;
}

bool IsPdfPrinter(const QString& device) {
    return device == kPdfPrinterName;
}

QString SuggestedPdfPath(const QString& documentName) {
    QString folder = VSPDFFolder;
    if (folder.isEmpty()) {
        folder = QDir::homePath();
    }
    QString name = documentName.trimmed();
    if (name.isEmpty()) {
        name = QStringLiteral("Quillon");
    }
    return QDir(folder).filePath(name + QStringLiteral(".pdf"));
}

bool PrintToPdfFile(const PageDocument& document, const PrintJob& job, QString* error) {
    FileDialogService* dialogs = CurrentServices().fileDialogs;
    if (dialogs == nullptr) {
        *error = QStringLiteral("No file can be chosen for the PDF printer.");
        return false;
    }
    const QString path = dialogs->SaveFileName(QStringLiteral("Print to PDF File"),
                                               SuggestedPdfPath(job.documentName),
                                               QStringLiteral("PDF files (*.pdf)"));
    if (path.isEmpty()) {
        return true;
    }
    if (!WritePdf(document, path, job.pages)) {
        *error = QStringLiteral("The file %1 cannot be written.").arg(path);
        return false;
    }
    return true;
}

}  // namespace

PrintBackend* InstallPrintBackend(PrintBackend* backend) {
    PrintBackend* previous = installedBackend();
    installedBackend() = backend;
    return previous;
}

bool PrinterSupportsDuplex(const QString& device) {
    // A file has no sides: the PDF printer takes a double-sided job as it is.
    if (IsPdfPrinter(device)) {
        return true;
    }
    return installedBackend() != nullptr && installedBackend()->SupportsDuplex(device);
}

bool PrinterIsReady(const QString& device) {
    if (IsPdfPrinter(device)) {
        return true;
    }
    return installedBackend() != nullptr && installedBackend()->IsReady(device);
}

QRectF PrintableArea(const QString& device) {
    if (IsPdfPrinter(device) || installedBackend() == nullptr) {
        return QRectF(QPointF(0, 0), A4SizeTwips());
    }
    return installedBackend()->PrintableArea(device);
}

bool SendToPrinter(const PageDocument& document, const PrintJob& job, QString* error) {
    if (IsPdfPrinter(job.device)) {
        return PrintToPdfFile(document, job, error);
    }
    if (installedBackend() == nullptr) {
        *error = QStringLiteral("The printing system is not set up.");
        return false;
    }
    return installedBackend()->Print(document, job, error);
}

}  // namespace quillon
