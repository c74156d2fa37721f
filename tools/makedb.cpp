// quillon-makedb: makes the database files that an installation delivers, or
// synthetic client, tax offices and dividends databases for tests and
// benchmarks.
//
//   quillon-makedb delivered <folder>
//   quillon-makedb synthetic <path> <count>
//   quillon-makedb version1 <path> <count>
//   quillon-makedb offices <path> <count>
//   quillon-makedb dividends <path> <count>
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
#include <utility>

namespace {

using quillon::dao::DaoError;

int Usage() {
    std::fputs(
        "usage: quillon-makedb delivered <folder>\n"
        "       quillon-makedb synthetic <path> <count>\n"
        "       quillon-makedb version1 <path> <count>\n"
        "       quillon-makedb offices <path> <count>\n"
        "       quillon-makedb dividends <path> <count>\n",
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

using SyntheticMakerFunction = void (*)(const QString&, int);

SyntheticMakerFunction SyntheticMaker(const QString& command) {
    const std::pair<const char*, SyntheticMakerFunction> makers[] = {
        {"synthetic", quillon::MakeSyntheticClientDatabase},
        {"version1", quillon::MakeVersion1Database},
        {"offices", quillon::MakeSyntheticOfficeDatabase},
        {"dividends", quillon::MakeSyntheticDividendDatabase},
    };
    for (const auto& [name, make] : makers) {
        if (command == QLatin1String(name)) {
            return make;
        }
    }
    return nullptr;
}

}  // namespace

int main(int argc, char* argv[]) {
    const QString command = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    try {
        if (command == QLatin1String("delivered") && argc == 3) {
            MakeDelivered(QString::fromLocal8Bit(argv[2]));
            return 0;
        }
        // A file of `count` synthetic rows of one of the kinds.
        const auto make = SyntheticMaker(command);
        if (make && argc == 4) {
            bool isNumber = false;
            const int count = QString::fromLocal8Bit(argv[3]).toInt(&isNumber);
            if (!isNumber || count < 0) {
                return Usage();
            }
            Replace(QString::fromLocal8Bit(argv[2]),
                    [count, make](const QString& path) { make(path, count); });
            return 0;
        }
    } catch (const DaoError& error) {
        std::fprintf(stderr, "quillon-makedb: %s\n", error.what());
        return 1;
    }
    return Usage();
}
