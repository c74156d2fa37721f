#pragma once
// The system's printers, through Qt's printing support.

#include "reports/print_backend.h"

namespace quillon {

class DesktopPrintBackend : public PrintBackend {
public:
    bool SupportsDuplex(const QString& device) const override;
    bool IsReady(const QString& device) const override;
    QRectF PrintableArea(const QString& device) const override;
    bool Print(const PageDocument& document, const PrintJob& job, QString* error) override;
};

// Installs the system's printers for the rest of the run; called at start-up.
void InstallDesktopPrintBackend();

}  // namespace quillon
