#pragma once
// File operations on paths as the program writes them: either separator is
// accepted, and names are matched without regard to case, as on the file
// systems the program's databases were first kept on. Paths handed back are in
// the platform's native separators.
//
// Failures throw dao::DaoError with the numbers the routines' handlers report.

#include "platform/dao.h"

#include <QString>

namespace quillon {

enum FileErrorNumber : int {
    kErrFileNotFound = 53,
    kErrFileAlreadyExists = 58,
    kErrPathFileAccess = 75,
    kErrPathNotFound = 76,
};

// The name, as it stands on disk, of the file in `path`'s folder whose name
// matches the last component of `path` without regard to case; empty when
// there is no such file (folders do not count). Never throws.
QString Dir(const QString& path);

// `path` with each component that exists on disk spelt as it stands there, so
// that "QUILL020.MDB" opens a file named quill020.mdb. Components that exist in
// no spelling are kept as given. Never throws.
QString PathOnDisk(const QString& path);

// Copies `source` over `destination`, replacing a file already there.
// 53 when the source is missing, 76 when the destination's folder is, 75 when
// the copy fails or the two are the same file.
void FileCopy(const QString& source, const QString& destination);

// Deletes the file. 53 when there is no such file, 75 when it can't be deleted.
void Kill(const QString& path);

// Renames or moves a file or folder. 53 when `oldPath` is missing, 58 when
// `newPath` exists already, 76 when its folder is missing, 75 otherwise.
void Name(const QString& oldPath, const QString& newPath);

// Makes one folder. 75 when it exists already or can't be made, 76 when its
// parent folder is missing.
void MkDir(const QString& path);

}  // namespace quillon
