#include "reports/vsprint_gui.h"

#include "correspondence/external_programs.h"
#include "platform/services.h"
#include "reports/frmVSPrint.h"
#include "reports/printer_object.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QListWidget>

namespace quillon {

namespace {

void OpenPreviewPdf() {
    const QString path = PreviewPdfPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    VSConvertToPDF(path);
    QCoreApplication::processEvents();
    OpenDocumentOrTell(QDir::toNativeSeparators(path));
}

}  // namespace

void ShowReportDocument(const QString& pdfFileName) {
    if (ReportDestination == rdPdfFile) {
        VSConvertToPDF(pdfFileName);
    } else if (ReportDestination == rdPreview && ReportPreview == 1) {
        OpenPreviewPdf();
    } else if (ReportDestination == rdPreview) {
        frmVSPrint preview(QApplication::activeWindow());
        preview.exec();
    }
}

bool PrintListReport(const QListWidget& list, const QString& title, int mode) {
    QStringList items;
    for (int i = 0; i < list.count(); ++i) {
        items << list.item(i)->text();
    }
    return PrintListReport(items, title, mode);
}

}  // namespace quillon
