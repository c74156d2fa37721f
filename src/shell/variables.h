#pragma once
// basVariables: the application state shared by every form and module, here
// what the shell keeps and, through the headers below, each subsystem's own
// group. The program has one thread, so nothing guards these. The settings kept in the ConfigFile
// carry their key in a comment; configuration.cpp reads and writes them. Settings start empty:
// SetDefaults, which every start runs, is the one place that gives them their defaults.

#include <QString>

#include <array>

#include "correspondence/correspondence_state.h"
#include "reference/reference_state.h"
#include "reports/report_state.h"
#include "sections/section_state.h"

namespace quillon {

constexpr int kDatabaseSlots = 16;

// Environment, set once at start.
inline QString OSName;
inline QString WindowsFolder;  // no trailing separator
inline QString SystemFolder;   // no trailing separator
inline QString FamilyFolder;   // the program's folder less its own name

// Which databases the selected slot's folder holds, as found at the last check.
inline bool ClientDatabaseFound = false;
inline bool OfficeDatabaseFound = false;
inline bool DividendDatabaseFound = false;
inline bool Dividend2012Found = false;
inline bool Dividend2013Found = false;
inline bool Dividend2014Found = false;
inline bool Dividend2015Found = false;

// DatabaseSlots: title and folder of each, element 0 unused.
inline std::array<QString, kDatabaseSlots + 1> DatabaseTitle;   // FILE n
inline std::array<QString, kDatabaseSlots + 1> DatabaseFolder;  // PATH n
inline qint16 SelectedFile{};                                   // SELECTED FILE

// The current client; every section screen, report and letter works on it.
inline QString CurrentFirst;  // CURRENT FIRST
inline QString CurrentLast;   // CURRENT LAST

// Title of the user-defined section of the selected database.
inline QString UserTitle;

// View and main window.
inline bool ViewToolbar{};           // VIEW TOOLBAR
inline bool ViewStatusBar{};         // VIEW STATUS BAR
inline bool ViewTooltips{};          // VIEW TOOLTIPS
inline bool ApplicationMaximised{};  // APPLICATION MAXIMISED
inline qint32 ApplicationTop{};      // APPLICATION TOP, twips
inline qint32 ApplicationLeft{};     // APPLICATION LEFT
inline qint32 ApplicationHeight{};   // APPLICATION HEIGHT
inline qint32 ApplicationWidth{};    // APPLICATION WIDTH

// Starts until the backup reminder: 0 shows it, -1 never.
inline qint16 BackupWarning{};  // BACKUP WARNING

// The file of the client database of the selected slot: QUILL020.MDB in
// DatabaseFolder(SelectedFile).
QString ClientDatabasePath();
// The tax offices file TAXOFF2.MDB beside it.
QString OfficeDatabasePath();

}  // namespace quillon
