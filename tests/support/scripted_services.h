#pragma once
// Test doubles for the desktop services. A test declares
//
//     ScriptedServices services;
//     services.messages.Answer(vbYes);
//
// and every MsgBox, beep, file dialog, clipboard use, clock read, printer list
// and program start goes to the doubles until `services` goes out of scope,
// when the services that were in force before are put back.
//
// Dialogs never block: a message box or file dialog with no queued answer fails
// the running test at once, with the dialog's text, and returns the answer a
// user pressing Escape would give. Queued answers still unused at the end of
// the scope also fail the test.

#include "platform/services.h"

#include <QHash>
#include <QList>
#include <QQueue>

#include <functional>

namespace quillon {

struct ShownMessage {
    QString prompt;
    int style = 0;
    QString title;
};

class ScriptedMessages : public MessageService {
public:
    // Queues the button the next message box returns (a MsgBoxResult).
    void Answer(int result) { answers_.enqueue(result); }

    int MsgBox(const QString& prompt, int style, const QString& title) override;
    void Beep() override { ++beeps_; }

    // Every message box shown, in order, expected or not.
    const QList<ShownMessage>& Shown() const { return shown_; }
    int Count() const { return shown_.size(); }
    // The last message shown; an empty one when none was.
    ShownMessage Last() const { return shown_.isEmpty() ? ShownMessage{} : shown_.last(); }
    int Beeps() const { return beeps_; }
    // Forgets what was shown and the beeps; queued answers stay.
    void ClearRecord();

    // Fails the running test if answers are left; called at the end of the scope.
    void CheckAllAnswersUsed(const char* file, int line);

    // Runs while each message box is up, as another user at work meanwhile.
    std::function<void()> whileShown;

private:
    QQueue<int> answers_;
    QList<ShownMessage> shown_;
    int beeps_ = 0;
};

enum class FileDialogKind { Open, Save, Folder };

struct ShownFileDialog {
    FileDialogKind kind = FileDialogKind::Open;
    QString title;
    QString folder;  // the starting folder, or the suggested path of a save dialog
    QString filter;
};

class ScriptedFileDialogs : public FileDialogService {
public:
    // Queues the path the next file dialog of any kind returns; an empty path
    // is the user cancelling.
    void Answer(const QString& path) { answers_.enqueue(path); }

    QString OpenFileName(const QString& title, const QString& folder,
                         const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& suggestedPath,
                         const QString& filter) override;
    QString FolderName(const QString& title, const QString& folder) override;

    const QList<ShownFileDialog>& Shown() const { return shown_; }
    void CheckAllAnswersUsed(const char* file, int line);

private:
    QString Next(const ShownFileDialog& dialog);

    QQueue<QString> answers_;
    QList<ShownFileDialog> shown_;
};

class MemoryClipboard : public ClipboardService {
public:
    void Clear() override { text_.clear(); }
    void SetText(const QString& text) override { text_ = text; }
    QString Text() const override { return text_; }

private:
    QString text_;
};

// Stands still at the time set; 15 June 2015, 10:30 until a test sets another.
class FixedClock : public ClockService {
public:
    void Set(const QDateTime& now) { now_ = now; }
    void SetToday(const QDate& today) { now_ = QDateTime(today, now_.time()); }
    QDate Today() const override { return now_.date(); }
    QDateTime Now() const override { return now_; }

private:
    QDateTime now_{QDate(2015, 6, 15), QTime(10, 30)};
};

// Lists only the program's own PDF printer until a test sets another list.
class ScriptedPrinters : public PrinterListService {
public:
    void Set(const QStringList& names, const QString& defaultName);
    QStringList PrinterNames() const override { return names_; }
    QString DefaultPrinterName() const override { return default_; }

private:
    QStringList names_{kPdfPrinterName};
    QString default_{kPdfPrinterName};
};

struct StartedProgram {
    QString program;
    QStringList arguments;
};

// Starts nothing: records what would have been started or opened and answers
// with the result set (true until a test sets false).
class RecordingPrograms : public ProgramService {
public:
    void SetResult(bool started) { result_ = started; }
    // FindProgram answers `path` for `name`; names never set are not installed.
    void SetInstalled(const QString& name, const QString& path) { installed_[name] = path; }

    bool StartProgram(const QString& program, const QStringList& arguments) override;
    bool OpenDocument(const QString& path) override;
    QString FindProgram(const QString& name) const override { return installed_.value(name); }

    const QList<StartedProgram>& Started() const { return started_; }
    const QStringList& Opened() const { return opened_; }

private:
    bool result_ = true;
    QHash<QString, QString> installed_;
    QList<StartedProgram> started_;
    QStringList opened_;
};

class ScriptedServices {
public:
    ScriptedServices();
    ~ScriptedServices();
    ScriptedServices(const ScriptedServices&) = delete;
    ScriptedServices& operator=(const ScriptedServices&) = delete;

    ScriptedMessages messages;
    ScriptedFileDialogs fileDialogs;
    MemoryClipboard clipboard;
    FixedClock clock;
    ScriptedPrinters printers;
    RecordingPrograms programs;

private:
    Services previous_;
};

}  // namespace quillon
