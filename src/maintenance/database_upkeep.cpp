#include "maintenance/database_upkeep.h"

#include "maintenance/database_backup.h"
#include "platform/dao.h"
#include "platform/files.h"

namespace quillon {

namespace {

// True when, for a moment, this workstation alone could hold the file. A file
// too damaged to open can't be held; `damaged` then tells so.
bool NobodyElseUsing(const QString& live, bool* damaged = nullptr) {
    try {
        dao::OpenDatabase(live, true).Close();
        return true;
    } catch (const dao::DaoError& error) {
        if (InUseElsewhere(error)) {
            return false;
        }
        if (damaged != nullptr && error.Number() == dao::kErrDamaged) {
            *damaged = true;
            return true;
        }
        throw;
    }
}

void RemoveSafetyFile(const QString& live) {
    const QString safety = SafetyPath(live);
    if (!Dir(safety).isEmpty()) {
        Kill(PathOnDisk(safety));
    }
}

}  // namespace

bool InUseElsewhere(const dao::DaoError& error) {
    return error.Number() == dao::kErrFileInUse || error.Number() == dao::kErrCannotOpen ||
           error.Number() == dao::kErrUpdateLocked || error.Number() == dao::kErrSaveLocked;
}

bool InUseByAnother(const QString& live) {
    bool damaged = false;
    return !NobodyElseUsing(PathOnDisk(live), &damaged);
}

QString InUseText() {
    return QStringLiteral(
        "The client database is in use by another user. Nothing has been changed.\n\nMake "
        "sure that nobody else is using it, then try again.");
}

QString SafetyPath(const QString& live) {
    return live.left(live.size() - 3) + QStringLiteral("BAK");
}

UpkeepResult CompactClientDatabase(const QString& live) {
    const QString path = PathOnDisk(live);
    if (!NobodyElseUsing(path)) {
        return UpkeepResult::InUse;
    }
    RemoveSafetyFile(path);
    BackupDatabaseFile(path, SafetyPath(path));
    // Rewritten in place within one transaction: a failure leaves the file as
    // it was, and no workstation ever finds it missing or renamed.
    try {
        dao::Database db = dao::OpenDatabase(path);
        db.Execute(QStringLiteral("VACUUM"));
        db.Close();
    } catch (const dao::DaoError& error) {
        if (InUseElsewhere(error)) {
            return UpkeepResult::InUse;
        }
        throw;
    }
    return UpkeepResult::Done;
}

UpkeepResult RepairClientDatabase(const QString& live) {
    const QString path = PathOnDisk(live);
    bool damaged = false;
    if (!NobodyElseUsing(path, &damaged)) {
        return UpkeepResult::InUse;
    }
    RemoveSafetyFile(path);
    // A damaged file is copied as it stands, bytes and all.
    FileCopy(path, SafetyPath(path));
    dao::RepairDatabase(path);
    return UpkeepResult::Done;
}

}  // namespace quillon
