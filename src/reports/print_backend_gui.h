#pragma once
// The system's printers, through Qt's printing support.

#include "reports/print_backend.h"

namespace quillon {

class DesktopPrintBackend : public PrintBackend {
public:
    // Sends the jobs into `path` through Qt's own file printer, in place of the
    // device's queue, so that what a printer would get can be read back; an
    // empty path sends them to the devices again.
    void SetOutputFile(const QString& path) { outputFile_ = path; }

    bool SupportsDuplex(const QString& device) const override;
    bool IsReady(const QString& device) const override;
    QRectF PrintableArea(const QString& device) const override;
    bool Print(const PageDocument& document, const PrintJob& job, QString* error) override;

private:
    QString outputFile_;
};

// Installs the system's printers for the rest of the run; called at start-up.
// Until then every system printer is refused.
void InstallDesktopPrintBackend();

}  // namespace quillon
