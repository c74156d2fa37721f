#pragma once
// The ConfigFile quillon.ini beside the program: one KEY=value line per setting,
// read once at start over the defaults and always rewritten whole.

#include <QString>

class QAction;

namespace quillon {

// The ConfigFile's full path.
QString ConfigFilePath();

// Gives every setting its default.
void SetDefaults();
// Defaults first, then the file over them; a missing file is made from the defaults.
void ReadConfiguration();
// Writes every setting, in the fixed order; a failure loses this write silently.
void WriteConfiguration();
// WriteConfigLine(text): one line of the file being written by WriteConfiguration.
void WriteConfigLine(const QString& text);

// ToggleSetting(flag, menuItem): inverts `flag`, ticks `menuItem` to match and
// saves the file at once, so a view toggle is on disk straight away.
void ToggleSetting(bool& flag, QAction* menuItem);

}  // namespace quillon
