#pragma once
// What the program asks of the desktop: message boxes and the beep, file
// dialogs, the clipboard, today's date, the printer list and starting other
// programs. Each is a small interface; the running program installs the real
// ones (services_gui.h), tests install scripted ones that answer from a queue.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace quillon {

// Message box styles and answers, with the values the program's routines use.
enum MsgBoxStyle : int {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbAbortRetryIgnore = 2,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbRetryCancel = 5,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton1 = 0,
    vbDefaultButton2 = 256,
    vbDefaultButton3 = 512,
};
enum MsgBoxResult : int {
    vbOK = 1,
    vbCancel = 2,
    vbAbort = 3,
    vbRetry = 4,
    vbIgnore = 5,
    vbYes = 6,
    vbNo = 7,
};
constexpr int kMsgBoxButtonsMask = 0x0F;
constexpr int kMsgBoxIconMask = 0x70;
constexpr int kMsgBoxDefaultMask = 0xF00;

// The answer of a message box closed with Escape: Cancel or No where the box
// has one, Abort for Abort/Retry/Ignore, OK for a box with OK alone.
int EscapeAnswer(int style);

// The program's own printer, which writes a PDF file. The printer list always
// holds it, so that every print route works without a printer installed.
inline constexpr char kPdfPrinterName[] = "Quillon PDF";

class MessageService {
public:
    virtual ~MessageService() = default;
    // Shows `prompt` under `title` and returns the button chosen (MsgBoxResult).
    virtual int MsgBox(const QString& prompt, int style, const QString& title) = 0;
    virtual void Beep() = 0;
};

class FileDialogService {
public:
    virtual ~FileDialogService() = default;
    // Each returns the chosen path, or an empty string when the user cancels.
    // `filter` is in the form "Databases (*.mdb);;All files (*)".
    virtual QString OpenFileName(const QString& title, const QString& folder,
                                 const QString& filter) = 0;
    virtual QString SaveFileName(const QString& title, const QString& suggestedPath,
                                 const QString& filter) = 0;
    virtual QString FolderName(const QString& title, const QString& folder) = 0;
};

// A filter written as the program's screens have always written them,
// "PDF files (*.pdf)|*.pdf": pairs of description and patterns, in the form the
// file dialogs take.
QString DialogFilter(const QString& pairs);

class ClipboardService {
public:
    virtual ~ClipboardService() = default;
    virtual void Clear() = 0;
    virtual void SetText(const QString& text) = 0;
    virtual QString Text() const = 0;
};

class ClockService {
public:
    virtual ~ClockService() = default;
    virtual QDate Today() const = 0;
    virtual QDateTime Now() const = 0;
};

class PrinterListService {
public:
    virtual ~PrinterListService() = default;
    virtual QStringList PrinterNames() const = 0;
    virtual QString DefaultPrinterName() const = 0;
};

class ProgramService {
public:
    virtual ~ProgramService() = default;
    // Starts `program` with `arguments` without waiting; false when it can't start.
    virtual bool StartProgram(const QString& program, const QStringList& arguments) = 0;
    // Opens a document with the program the desktop associates with it.
    virtual bool OpenDocument(const QString& path) = 0;
    // Full path of an installed program, or empty.
    virtual QString FindProgram(const QString& name) const = 0;
};

// The services in force. Every member is set once the program or a test has
// installed its services; the routines below use them.
struct Services {
    MessageService* messages = nullptr;
    FileDialogService* fileDialogs = nullptr;
    ClipboardService* clipboard = nullptr;
    ClockService* clock = nullptr;
    PrinterListService* printers = nullptr;
    ProgramService* programs = nullptr;
};

Services& CurrentServices();
// Installs `services` and returns those that were in force before.
Services InstallServices(const Services& services);

// The calls the routines make, each through the service in force. MsgBox with no
// title uses the program's name.
int MsgBox(const QString& prompt, int style = vbOKOnly, const QString& title = QString());
void Beep();
// The path chosen in a file dialog for opening, or empty when cancelled.
QString OpenFileName(const QString& title, const QString& folder, const QString& filter);
// The path chosen in a file dialog for saving, or empty when cancelled.
QString SaveFileName(const QString& title, const QString& suggestedPath, const QString& filter);
QDate Today();
QDateTime Now();

}  // namespace quillon
