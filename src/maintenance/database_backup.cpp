#include "maintenance/database_backup.h"

#include "platform/dao.h"
#include "platform/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <system_error>

namespace quillon {

namespace {

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;

[[noreturn]] void Fail(int number, const QString& text) {
    throw dao::DaoError(number, text);
}

Handle Open(const QString& path, int flags) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    Handle handle(db);
    if (rc != SQLITE_OK) {
        Fail(dao::kErrCannotOpen,
             QStringLiteral("The file %1 cannot be opened (%2).")
                 .arg(QDir::toNativeSeparators(path), QString::fromUtf8(sqlite3_errstr(rc))));
    }
    sqlite3_busy_timeout(db, dao::LockTimeout());
    return handle;
}

// The whole source in one step: the read lock is held throughout, so other
// workstations' commits wait rather than restart the copy.
void CopyAll(sqlite3* from, sqlite3* into) {
    sqlite3_backup* backup = sqlite3_backup_init(into, "main", from, "main");
    if (backup == nullptr) {
        Fail(kErrPathFileAccess, QString::fromUtf8(sqlite3_errmsg(into)));
    }
    const int step = sqlite3_backup_step(backup, -1);
    const int finish = sqlite3_backup_finish(backup);
    if (step == SQLITE_BUSY || step == SQLITE_LOCKED) {
        Fail(dao::kErrUpdateLocked, QStringLiteral("The database is locked by another user."));
    }
    if (step != SQLITE_DONE || finish != SQLITE_OK) {
        Fail(kErrPathFileAccess,
             QString::fromUtf8(sqlite3_errstr(step != SQLITE_DONE ? step : finish)));
    }
}

}  // namespace

void BackupDatabaseFile(const QString& source, const QString& target) {
    const QString from = PathOnDisk(source);
    if (!QFileInfo::exists(from)) {
        Fail(kErrFileNotFound, QStringLiteral("File not found"));
    }
    const QString partial = target + QStringLiteral(".partial");
    QFile::remove(partial);
    {
        // Opened for writing, though only read, so that a journal left by a
        // crashed user is rolled back before the copy is taken.
        Handle reader = Open(from, SQLITE_OPEN_READWRITE);
        Handle writer = Open(partial, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        CopyAll(reader.get(), writer.get());
    }
    // The rename replaces a file already there in one step.
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(partial).toStdString(),
                            QFile::encodeName(target).toStdString(), error);
    if (error) {
        QFile::remove(partial);
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

void CopyDatabaseInto(const QString& source, const QString& target) {
    const QString into = PathOnDisk(target);
    if (!QFileInfo::exists(into)) {
        Fail(kErrFileNotFound, QStringLiteral("File not found"));
    }
    Handle reader = Open(PathOnDisk(source), SQLITE_OPEN_READWRITE);
    Handle writer = Open(into, SQLITE_OPEN_READWRITE);
    dao::UseProgramCollation(writer.get());
    CopyAll(reader.get(), writer.get());
}

}  // namespace quillon
