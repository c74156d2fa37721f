#include "correspondence/external_programs.h"

#include "correspondence/correspondence_state.h"
#include "platform/services.h"

#include <QDir>
#include <QFileInfo>

namespace quillon {

namespace {

// The value told when a document that exists has no program to open it.
constexpr int kNoAssociation = 31;
constexpr int kFileNotFound = 2;

struct ShellError {
    int value;
    const char* text;
};
const ShellError kShellErrors[] = {
    {0, "Insufficient system memory or corrupt program file"},
    {2, "File not found"},
    {3, "Invalid path"},
    {5, "Sharing or protection error"},
    {6, "Separate data segments are requires for each task"},
    {8, "Insufficient memory to run the program"},
    {10, "Incorrect Windows version"},
    {11, "Invalid program file"},
    {12, "Program file requires a different operating system"},
    {13, "Program requires MS-DOS 4.0"},
    {14, "Unknown program file type"},
    {15, "Windows program does not support protected memory mode"},
    {16, "Invalid use of data segments when loading a second instance of a program"},
    {19, "Attempt to run a compressed program file"},
    {20, "Invalid dynamic link library"},
    {21, "Program requires Windows 32-bit extensions"},
};

QString InFolder(const QString& folder, const QString& program) {
    return QDir::toNativeSeparators(folder + QLatin1Char('/') + program);
}

}  // namespace

QString ShellExecuteErrorText(int value) {
    for (const ShellError& error : kShellErrors) {
        if (error.value == value) {
            return QLatin1String(error.text);
        }
    }
    return QStringLiteral("Undefined error");
}

bool OpenDocumentOrTell(const QString& path) {
    ProgramService* programs = CurrentServices().programs;
    if (programs != nullptr && programs->OpenDocument(path)) {
        return true;
    }
    const int value = QFileInfo::exists(path) ? kNoAssociation : kFileNotFound;
    MsgBox(QStringLiteral("External program access error ") + QString::number(value) +
               QStringLiteral(": ") + ShellExecuteErrorText(value),
           vbCritical, QStringLiteral("Quillon"));
    return false;
}

#ifdef Q_OS_WIN
QString WordProgramName() {
    return QStringLiteral("winword.exe");
}
QString WordPadProgramName() {
    return QStringLiteral("wordpad.exe");
}
QList<ProgramAttempt> WordProcessorAttempts(const QString& file) {
    return {{InFolder(WordFolder, WordProgramName()), {file}},
            {InFolder(WPFolder, WordPadProgramName()), {file}},
            {QStringLiteral("write.exe"), {file}}};
}
#else
// LibreOffice Writer where the user has put it, the desktop's own opener, then
// Writer wherever the search path finds it.
QString WordProgramName() {
    return QStringLiteral("soffice");
}
QString WordPadProgramName() {
#ifdef Q_OS_MACOS
    return QStringLiteral("open");
#else
    return QStringLiteral("xdg-open");
#endif
}
QList<ProgramAttempt> WordProcessorAttempts(const QString& file) {
    const QString writer = QStringLiteral("--writer");
    return {{InFolder(WordFolder, WordProgramName()), {writer, file}},
            {InFolder(WPFolder, WordPadProgramName()), {file}},
            {WordProgramName(), {writer, file}}};
}
#endif

void OpenInWordProcessor(const QString& file) {
    ProgramService* programs = CurrentServices().programs;
    if (programs == nullptr) {
        return;
    }
    for (const ProgramAttempt& attempt : WordProcessorAttempts(file)) {
        if (programs->StartProgram(attempt.program, attempt.arguments)) {
            return;
        }
    }
}

}  // namespace quillon
