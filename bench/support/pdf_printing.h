#pragma once
// For a benchmark that prints: the printer list holds the PDF printer alone,
// whose file dialog answers a file of its own temporary folder, until the end
// of the scope puts the services back as they were.

#include "platform/services.h"

#include <QTemporaryDir>

namespace quillon::bench {

class PdfPrinting {
public:
    explicit PdfPrinting(const QString& fileName = QStringLiteral("bench.pdf"));
    ~PdfPrinting();
    PdfPrinting(const PdfPrinting&) = delete;
    PdfPrinting& operator=(const PdfPrinting&) = delete;

    // The file the PDF printer writes.
    QString FilePath() const { return path_; }
    // Installs `clock` too, for drawings that show today's date.
    void UseClock(ClockService* clock);

private:
    class OnlyPdfPrinter : public PrinterListService {
    public:
        QStringList PrinterNames() const override;
        QString DefaultPrinterName() const override;
    };
    class FixedFile : public FileDialogService {
    public:
        explicit FixedFile(const QString* path) : path_(path) {}
        QString OpenFileName(const QString&, const QString&, const QString&) override;
        QString SaveFileName(const QString&, const QString&, const QString&) override;
        QString FolderName(const QString&, const QString&) override { return {}; }

    private:
        const QString* path_;
    };

    QTemporaryDir folder_;
    QString path_;
    OnlyPdfPrinter printers_;
    FixedFile file_{&path_};
    Services previous_;
};

}  // namespace quillon::bench
