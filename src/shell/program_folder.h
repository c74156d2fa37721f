#pragma once
// Where the program stands, and the paths of files in a folder.

#include <QString>

namespace quillon {

// The folder of the running program, which holds the ConfigFile and the
// delivered databases; no trailing separator.
QString ProgramFolder();
// Points the program at another folder; an empty path returns to the real one.
void SetProgramFolder(const QString& folder);

// `name` in `folder`, in the platform's own separators.
QString PathIn(const QString& folder, const QString& name);

}  // namespace quillon
