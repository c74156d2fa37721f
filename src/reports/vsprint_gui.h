#pragma once
// Showing a finished report: in the preview window, as a PDF file opened in
// the desktop's viewer, or saved as the PDF file the user named.

#include <QString>

class QListWidget;

namespace quillon {

// After `VSEndDocument`: by `ReportDestination` and `REPORT PREVIEW`.
// `pdfFileName` is the file the user chose for destination 3.
void ShowReportDocument(const QString& pdfFileName = QString());

// Prints the entries of `list` as a list report.
bool PrintListReport(const QListWidget& list, const QString& title, int mode);

}  // namespace quillon
