#include "support/scripted_services.h"

#include <QTest>

namespace quillon {

namespace {

// Fails the running test without leaving it, so that a dialog raised deep
// inside an event handler is reported and the handler carries on.
void FailUnexpected(const QString& what, const QString& text) {
    const QString message = QStringLiteral("Unexpected %1: \"%2\"").arg(what, text);
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

void FailUnused(const QString& what, qsizetype count, const char* file, int line) {
    // A test that failed already stopped early; its unused answers say nothing new.
    if (count == 0 || QTest::currentTestFailed()) {
        return;
    }
    const QString message = QStringLiteral("%1 queued %2 never used").arg(count).arg(what);
    QTest::qFail(qPrintable(message), file, line);
}

}  // namespace

int ScriptedMessages::MsgBox(const QString& prompt, int style, const QString& title) {
    shown_.append({prompt, style, title});
    if (whileShown) {
        whileShown();
    }
    if (answers_.isEmpty()) {
        FailUnexpected(QStringLiteral("message box"), prompt);
        return EscapeAnswer(style);
    }
    return answers_.dequeue();
}

void ScriptedMessages::ClearRecord() {
    shown_.clear();
    beeps_ = 0;
}

void ScriptedMessages::CheckAllAnswersUsed(const char* file, int line) {
    FailUnused(QStringLiteral("message box answer(s)"), answers_.size(), file, line);
    answers_.clear();
}

QString ScriptedFileDialogs::OpenFileName(const QString& title, const QString& folder,
                                          const QString& filter) {
    return Next({FileDialogKind::Open, title, folder, filter});
}

QString ScriptedFileDialogs::SaveFileName(const QString& title, const QString& suggestedPath,
                                          const QString& filter) {
    return Next({FileDialogKind::Save, title, suggestedPath, filter});
}

QString ScriptedFileDialogs::FolderName(const QString& title, const QString& folder) {
    return Next({FileDialogKind::Folder, title, folder, QString()});
}

QString ScriptedFileDialogs::Next(const ShownFileDialog& dialog) {
    shown_.append(dialog);
    if (answers_.isEmpty()) {
        FailUnexpected(QStringLiteral("file dialog"), dialog.title);
        return QString();
    }
    return answers_.dequeue();
}

void ScriptedFileDialogs::CheckAllAnswersUsed(const char* file, int line) {
    FailUnused(QStringLiteral("file dialog answer(s)"), answers_.size(), file, line);
    answers_.clear();
}

void ScriptedPrinters::Set(const QStringList& names, const QString& defaultName) {
    names_ = names;
    default_ = defaultName;
}

bool RecordingPrograms::StartProgram(const QString& program, const QStringList& arguments) {
    started_.append({program, arguments});
    return result_;
}

bool RecordingPrograms::OpenDocument(const QString& path) {
    opened_.append(path);
    return result_;
}

ScriptedServices::ScriptedServices()
    : previous_(
          InstallServices({&messages, &fileDialogs, &clipboard, &clock, &printers, &programs})) {}

ScriptedServices::~ScriptedServices() {
    InstallServices(previous_);
    messages.CheckAllAnswersUsed(__FILE__, __LINE__);
    fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
}

}  // namespace quillon
