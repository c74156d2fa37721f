#pragma once
// Driving the program's start and its forms in a test, without waiting for
// timers or an event loop.

#include <QString>
#include <QStringList>

class QAbstractButton;
class QWidget;

namespace quillon::testing {

// Registers the program's forms once and makes ending the program a no-op that
// is counted instead.
void PrepareShellTests();
int EndProgramCalls();

// Runs a start as a person sees it: StartProgram, then the splash's two timers
// fired at once. False when the start was refused.
bool RunStart();

// Deletes the forms that were unloaded, as the event loop would.
void FlushUnloadedForms();

// Closes the main window if it is open, as the user would, and flushes.
void CloseMainWindow();

// The named child of `form`, or fails the test.
QAbstractButton* Button(QWidget* form, const QString& name);

// The lines of the reference file tests/data/reference/`name`, first rewritten
// from `actual` when QUILLON_REWRITE_REFERENCES=1 is in the environment.
QStringList ReferenceLines(const QString& name, const QStringList& actual);

}  // namespace quillon::testing
