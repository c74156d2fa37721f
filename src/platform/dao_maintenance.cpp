// Whole-file operations: compacting a database into a new file, and checking
// and mending a damaged one in place.

#include <QFile>
#include <QFileInfo>

#include "platform/dao_internal.h"

namespace quillon::dao {

namespace {

void requireFreeDestination(const QString& destination) {
    const QFileInfo file(destination);
    if (file.exists()) {
        throw DaoError(kErrDatabaseExists, QStringLiteral("The file %1 already exists; a database "
                                                          "can only be written to a new file.")
                                               .arg(NativePath(destination)));
    }
    if (!QFileInfo(file.absolutePath()).isDir()) {
        throw DaoError(
            kErrInvalidPath,
            QStringLiteral("The folder %1 does not exist.").arg(NativePath(file.absolutePath())));
    }
}

}  // namespace

void CompactDatabase(const QString& source, const QString& destination) {
    auto connection = OpenConnection(source, true);
    VerifyDatabaseFile(*connection);
    requireFreeDestination(destination);
    try {
        Query query(*connection, QStringLiteral("VACUUM INTO ?1"), kErrCannotOpen);
        query.Bind(1, destination);
        query.Run(QStringLiteral("the copy to %1").arg(NativePath(destination)));
    } catch (...) {
        connection->Close();
        QFile::remove(destination);
        throw;
    }
}

void RepairDatabase(const QString& path) {
    auto connection = OpenConnection(path, false);
    VerifyDatabaseFile(*connection);
}

}  // namespace quillon::dao
