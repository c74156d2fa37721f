#pragma once
// The desktop's own services, for the running program.

#include "platform/services.h"

namespace quillon {

// Installs the real message boxes, dialogs, clipboard, clock, printer list and
// program starter. The services live until the process ends.
void InstallDesktopServices();

// Each service on its own, for tests of the real thing.
class DesktopMessages : public MessageService {
public:
    int MsgBox(const QString& prompt, int style, const QString& title) override;
    void Beep() override;
};

class DesktopFileDialogs : public FileDialogService {
public:
    QString OpenFileName(const QString& title, const QString& folder,
                         const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& suggestedPath,
                         const QString& filter) override;
    QString FolderName(const QString& title, const QString& folder) override;
};

class DesktopClipboard : public ClipboardService {
public:
    void Clear() override;
    void SetText(const QString& text) override;
    QString Text() const override;
};

class DesktopClock : public ClockService {
public:
    QDate Today() const override;
    QDateTime Now() const override;
};

// The system's printers, and the program's PDF printer after them.
class DesktopPrinters : public PrinterListService {
public:
    QStringList PrinterNames() const override;
    // The system's default printer, or the PDF printer when there is none.
    QString DefaultPrinterName() const override;
};

class DesktopPrograms : public ProgramService {
public:
    bool StartProgram(const QString& program, const QStringList& arguments) override;
    bool OpenDocument(const QString& path) override;
    QString FindProgram(const QString& name) const override;
};

}  // namespace quillon
