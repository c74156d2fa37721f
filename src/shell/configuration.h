#pragma once
// The ConfigFile quillon.ini beside the program: one KEY=value line per setting,
// in the Windows-1252 code page, read once at start over the defaults and always
// rewritten whole.

#include <QString>

class QAction;

namespace quillon {

// The ConfigFile's full path.
QString ConfigFilePath();

// Gives every setting its default.
void SetDefaults();
// Defaults first, then the file over them; a missing file is made from the defaults.
void ReadConfiguration();
// Writes every setting, in the fixed order, by replacing the file with a new one:
// the old file stands until the new one is complete (in a folder where no file
// may be made beside it, the file is rewritten in place). A failure to write is
// reported as a path/file access error.
void WriteConfiguration();
// WriteConfigLine(text): one line of the file being written by WriteConfiguration.
void WriteConfigLine(const QString& text);

// ToggleSetting(flag, menuItem): inverts `flag`, ticks `menuItem` to match and
// saves the file at once, so a view toggle is on disk straight away.
void ToggleSetting(bool& flag, QAction* menuItem);

}  // namespace quillon
