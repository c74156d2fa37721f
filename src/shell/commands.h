#pragma once
// The main window's commands, as one table: the form each opens, how, and what
// the selected database folder must hold for it to be enabled. The menus and
// the toolbar, the enabling at the database check, the order in which forms go
// before the database changes, and the test that every command reaches its
// form all follow from it.

#include <QString>
#include <QStringList>

#include <span>

namespace quillon {

enum class Opening {
    Section,  // saves and closes the other sections, then shows the form
    Show,     // shows the form as a child window
    Modal,    // shows the form modally
    Own,      // the main window's own routine
    Nothing,  // does nothing
};

// What must be found for the command to be enabled.
enum class Needs {
    Nothing,  // always enabled
    ClientDatabase,
    OfficeDatabase,
    AnyDividendDatabase,
    Dividends2012,
    Dividends2013,
    Dividends2014,
    Dividends2015,
    Never,  // never enabled
};

struct CommandRow {
    const char* command;
    const char* form;  // nullptr when it opens none
    Opening opening;
    Needs needs;
    // The form is unloaded before the database changes, in the table's order.
    bool unloadedFirst;
};

std::span<const CommandRow> Commands();
const CommandRow* FindCommand(const QString& command);

// The forms unloaded before the selected database changes or its file is replaced.
const QStringList& UnloadOrder();

}  // namespace quillon
