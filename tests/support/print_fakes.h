#pragma once
// The desktop of the printing tests: the scripted services with the printers
// "Office Laser" (the default, single-sided), "Duplex Laser" and the PDF
// printer, and a printer backend that records the jobs it is given.

#include "reports/print_backend.h"
#include "support/scripted_services.h"

#include <vector>

namespace quillon::testing {

struct RecordedJob {
    PrintJob job;
    PageDocument document;
};

class RecordingPrintBackend : public PrintBackend {
public:
    bool ready = true;
    QString failure;  // a job fails with this text when it isn't empty
    QRectF printableArea{QPointF(0, 0), A4SizeTwips()};
    std::vector<RecordedJob> jobs;

    bool SupportsDuplex(const QString& device) const override {
        return device == QStringLiteral("Duplex Laser");
    }
    bool IsReady(const QString& /*device*/) const override { return ready; }
    QRectF PrintableArea(const QString& /*device*/) const override { return printableArea; }
    bool Print(const PageDocument& document, const PrintJob& job, QString* error) override {
        if (!failure.isEmpty()) {
            *error = failure;
            return false;
        }
        jobs.push_back({job, document});
        return true;
    }
};

class PrintDesktop {
public:
    ScriptedServices services;
    RecordingPrintBackend backend;

    PrintDesktop() {
        services.printers.Set({QStringLiteral("Office Laser"), QStringLiteral("Duplex Laser"),
                               QString::fromLatin1(kPdfPrinterName)},
                              QStringLiteral("Office Laser"));
        previousBackend_ = InstallPrintBackend(&backend);
    }
    ~PrintDesktop() { InstallPrintBackend(previousBackend_); }
    PrintDesktop(const PrintDesktop&) = delete;
    PrintDesktop& operator=(const PrintDesktop&) = delete;

    // Sets the default printer, keeping the list.
    void SetDefaultPrinter(const QString& name) {
        services.printers.Set(services.printers.PrinterNames(), name);
    }

private:
    PrintBackend* previousBackend_ = nullptr;
};

}  // namespace quillon::testing
