#pragma once
// Documents and programs of the desktop: opening a document with the program
// the desktop gives it, telling the user in one table's words when that fails,
// and handing a standard letter to a word processor.

#include <QString>
#include <QStringList>

namespace quillon {

// The text for a failure `value` of opening a document, from the table the
// program has always used.
QString ShellExecuteErrorText(int value);

// Opens `path` with the desktop's program for it; on a failure tells the user
// "External program access error ..." and returns false.
bool OpenDocumentOrTell(const QString& path);

// The names the find dialogs ask for: the word processor in WORD FOLDER and
// the second program in WP FOLDER, as this platform has them.
QString WordProgramName();
QString WordPadProgramName();

struct ProgramAttempt {
    QString program;
    QStringList arguments;
};
// The programs tried in turn for a letter file: the word processor in WORD
// FOLDER, the program in WP FOLDER, then a program found on the search path.
QList<ProgramAttempt> WordProcessorAttempts(const QString& file);

// Starts the first of the attempts that starts; when none does, nothing is
// said.
void OpenInWordProcessor(const QString& file);

}  // namespace quillon
