#pragma once
// Stand-ins for the desktop in the printing tests: message boxes answered from
// a queue, a fixed printer list, a printer backend that records its jobs, file
// dialogs and a document opener that record what they were asked.

#include "platform/services.h"
#include "reports/print_backend.h"

#include <QQueue>
#include <QSet>
#include <QStringList>

#include <vector>

namespace quillon::testing {

struct ShownMessage {
    QString prompt;
    int style = 0;
    QString title;
};

class QueuedMessages : public MessageService {
public:
    QQueue<int> answers;  // vbOK when empty
    std::vector<ShownMessage> shown;
    int beeps = 0;

    int MsgBox(const QString& prompt, int style, const QString& title) override {
        shown.push_back({prompt, style, title});
        return answers.isEmpty() ? vbOK : answers.dequeue();
    }
    void Beep() override { ++beeps; }
};

class FixedPrinters : public PrinterListService {
public:
    QStringList names;
    QString defaultName;

    QStringList PrinterNames() const override { return names; }
    QString DefaultPrinterName() const override { return defaultName; }
};

struct RecordedJob {
    PrintJob job;
    PageDocument document;
};

class RecordingPrintBackend : public PrintBackend {
public:
    QSet<QString> duplexPrinters;
    bool ready = true;
    QString failure;  // a job fails with this text when it isn't empty
    std::vector<RecordedJob> jobs;

    bool SupportsDuplex(const QString& device) const override {
        return duplexPrinters.contains(device);
    }
    bool IsReady(const QString& /*device*/) const override { return ready; }
    QRectF PrintableArea(const QString& /*device*/) const override {
        return QRectF(QPointF(0, 0), A4SizeTwips());
    }
    bool Print(const PageDocument& document, const PrintJob& job, QString* error) override {
        if (!failure.isEmpty()) {
            *error = failure;
            return false;
        }
        jobs.push_back({job, document});
        return true;
    }
};

class QueuedFileDialogs : public FileDialogService {
public:
    QQueue<QString> savePaths;  // a cancel when empty
    QStringList titles;

    QString OpenFileName(const QString& title, const QString&, const QString&) override {
        titles << title;
        return {};
    }
    QString SaveFileName(const QString& title, const QString&, const QString&) override {
        titles << title;
        return savePaths.isEmpty() ? QString() : savePaths.dequeue();
    }
    QString FolderName(const QString& title, const QString&) override {
        titles << title;
        return {};
    }
};

class RecordingPrograms : public ProgramService {
public:
    QStringList opened;

    bool StartProgram(const QString&, const QStringList&) override { return false; }
    bool OpenDocument(const QString& path) override {
        opened << path;
        return true;
    }
    QString FindProgram(const QString&) const override { return {}; }
};

// Installs the fakes above for the life of the object, with the printers
// "Office Laser" (the default, no duplex), "Duplex Laser" and the PDF printer.
class PrintDesktop {
public:
    QueuedMessages messages;
    FixedPrinters printers;
    RecordingPrintBackend backend;
    QueuedFileDialogs fileDialogs;
    RecordingPrograms programs;

    PrintDesktop() {
        printers.names = {QStringLiteral("Office Laser"), QStringLiteral("Duplex Laser"),
                          kPdfPrinterName};
        printers.defaultName = QStringLiteral("Office Laser");
        backend.duplexPrinters = {QStringLiteral("Duplex Laser")};
        Services services;
        services.messages = &messages;
        services.printers = &printers;
        services.fileDialogs = &fileDialogs;
        services.programs = &programs;
        previousServices_ = InstallServices(services);
        previousBackend_ = InstallPrintBackend(&backend);
    }
    ~PrintDesktop() {
        InstallPrintBackend(previousBackend_);
        InstallServices(previousServices_);
    }
    PrintDesktop(const PrintDesktop&) = delete;
    PrintDesktop& operator=(const PrintDesktop&) = delete;

private:
    Services previousServices_;
    PrintBackend* previousBackend_ = nullptr;
};

}  // namespace quillon::testing
