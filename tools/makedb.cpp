// quillon-makedb: makes the database files that an installation delivers, or a
// synthetic client database for tests and benchmarks.
//
//   quillon-makedb delivered <folder>
//   quillon-makedb synthetic <path> <count>
//
// Existing files of the same names are replaced.

#include "data/delivered_databases.h"
#include "maintenance/version1_transfer.h"
#include "platform/dao.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <cstdio>
#include <functional>

namespace {

using quillon::dao::DaoError;

int Usage() {
    std::fputs(
        "usage: quillon-makedb delivered <folder>\n"
        "       quillon-makedb synthetic <path> <count>\n"
        "       quillon-makedb version1 <path> <count>\n",
        stderr);
    return 2;
}

// Makes the file beside its final place first, so that an interrupted run
// never leaves a half-made file under the real name.
void Replace(const QString& path, const std::function<void(const QString&)>& make) {
    const QString scratch = path + QStringLiteral(".new");
    QFile::remove(scratch);
    make(scratch);
    if (QFile::exists(path) && !QFile::remove(path)) {
        QFile::remove(scratch);
        throw DaoError(quillon::dao::kErrCannotOpen,
                       QStringLiteral("Could not replace %1.").arg(QDir::toNativeSeparators(path)));
    }
    if (!QFile::rename(scratch, path)) {
        throw DaoError(quillon::dao::kErrIoFailure,
                       QStringLiteral("Could not write %1.").arg(QDir::toNativeSeparators(path)));
    }
}

void MakeDelivered(const QString& folder) {
    if (!QDir().mkpath(folder)) {
        throw DaoError(quillon::dao::kErrInvalidPath,
                       QStringLiteral("'%1' is not a valid path.").arg(folder));
    }
    const QDir dir(folder);
    Replace(dir.filePath(QString::fromLatin1(quillon::kClientDatabaseFile)),
            quillon::MakeClientDatabase);
    Replace(dir.filePath(QString::fromLatin1(quillon::kDefaultOfficeDatabaseFile)),
            quillon::MakeOfficeDatabase);
    Replace(dir.filePath(QString::fromLatin1(quillon::kDefaultDividendDatabaseFile)),
            quillon::MakeDividendDatabase);
}

}  // namespace

int main(int argc, char* argv[]) {
    const QString command = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    try {
        if (command == QLatin1String("delivered") && argc == 3) {
            MakeDelivered(QString::fromLocal8Bit(argv[2]));
            return 0;
        }
        // A client database of synthetic clients, or a first-version one.
        const bool version1 = command == QLatin1String("version1");
        if ((command == QLatin1String("synthetic") || version1) && argc == 4) {
            bool isNumber = false;
            const int count = QString::fromLocal8Bit(argv[3]).toInt(&isNumber);
            if (!isNumber || count < 0) {
                return Usage();
            }
            Replace(QString::fromLocal8Bit(argv[2]), [count, version1](const QString& path) {
                version1 ? quillon::MakeVersion1Database(path, count)
                         : quillon::MakeSyntheticClientDatabase(path, count);
            });
            return 0;
        }
    } catch (const DaoError& error) {
        std::fprintf(stderr, "quillon-makedb: %s\n", error.what());
        return 1;
    }
    return Usage();
}
