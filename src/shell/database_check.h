#pragma once
// Which databases the selected slot's folder holds, and whether its client
// database opens.

#include <QString>

namespace quillon {

// Sets the availability flags from the files in the selected slot's folder,
// first placing the delivered tax offices and dividends databases from the
// program's folder where the slot lacks them. Shows nothing.
void FindDatabases();

// Makes the one-time safety copy BACKUP15.MDB and opens the client database.
// Tells the user when it is unavailable or damaged; true when it opened.
bool VerifyClientDatabase();

// The title of the user-defined section: the `Title` of the `Common` row
// "User", or "User Defined" without one. Sets UserTitle.
void ReadUserTitle();

// The main window's caption for the selected slot.
QString DatabaseCaption();

// The program's version as major.minor.revision.
QString ProgramVersion();

}  // namespace quillon
