#pragma once
// A backup of a client database: a copy of the file as it stood at one moment,
// taken while other workstations may be writing to it.

#include <QString>

namespace quillon {

// Copies the database `source` into `target` through the engine's own backup,
// holding the file's read lock for the copy, so that the copy opens and holds
// whole transactions only. The copy is written beside `target` and moved into
// place, so a failure leaves `target` as it was. Throws a dao::DaoError.
void BackupDatabaseFile(const QString& source, const QString& target);

// Replaces the contents of the database `target`, which must exist, with those
// of `source`, in one transaction on the target under its own locks: the file
// keeps its name and place throughout. Throws a dao::DaoError.
void CopyDatabaseInto(const QString& source, const QString& target);

}  // namespace quillon
