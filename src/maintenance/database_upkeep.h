#pragma once
// Compacting and repairing the client database in place. Each first keeps the
// file as it was in the safety file beside it (QUILL020.BAK), one generation
// only, and works only when no other workstation is using the file.

#include "platform/dao.h"

#include <QString>

namespace quillon {

enum class UpkeepResult { Done, InUse };

// True when `error` says that another workstation holds the file.
bool InUseElsewhere(const dao::DaoError& error);

// True when another workstation is using the file at this moment.
bool InUseByAnother(const QString& live);
// What the user is told then.
QString InUseText();

// The live file's name with its last three characters made "BAK".
QString SafetyPath(const QString& live);

// Holds the file for this workstation alone, copies it to the safety file and
// rewrites it smaller, all or nothing. InUse, with nothing changed, when
// another workstation is using it. Throws a dao::DaoError on a failure; the
// live file then stands as it was.
UpkeepResult CompactClientDatabase(const QString& live);

// Copies the file to the safety file and mends it in place. InUse, with
// nothing changed, when another workstation is using it. A failure leaves the
// safety copy beside the file.
UpkeepResult RepairClientDatabase(const QString& live);

}  // namespace quillon
