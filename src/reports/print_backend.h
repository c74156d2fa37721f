#pragma once
// Where finished pages go: the system's printers through a backend that the
// running program installs (print_backend_gui.h), and the program's own PDF
// printer, which writes a file the user names.

#include "platform/services.h"
#include "reports/page_document.h"

#include <QList>
#include <QRectF>
#include <QString>

namespace quillon {

struct PrintJob {
    QString device;
    QString documentName;
    QList<int> pages;  // indexes from 0, in printing order
    int duplex = 0;    // 0 the printer's default, 1 single-sided, 2 double-sided
};

class PrintBackend {
public:
    virtual ~PrintBackend() = default;
    virtual bool SupportsDuplex(const QString& device) const = 0;
    // Whether the device can take a job now.
    virtual bool IsReady(const QString& device) const = 0;
    // The part of an A4 sheet the device can print on, in twips from its corner.
    virtual QRectF PrintableArea(const QString& device) const = 0;
    // Prints the job's pages; on failure returns false and says why in `error`.
    virtual bool Print(const PageDocument& document, const PrintJob& job, QString* error) = 0;
};

// Installs `backend` (not owned) for the system's printers; returns the one before.
PrintBackend* InstallPrintBackend(PrintBackend* backend);

bool PrinterSupportsDuplex(const QString& device);
bool PrinterIsReady(const QString& device);
QRectF PrintableArea(const QString& device);
// Sends the job to its device. The PDF printer asks for a file name; a name
// refused by the user is no failure and prints nothing.
bool SendToPrinter(const PageDocument& document, const PrintJob& job, QString* error);

}  // namespace quillon
