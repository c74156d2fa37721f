#include "shell/program_folder.h"

#include <QCoreApplication>
#include <QDir>

namespace quillon {

namespace {
QString& overriddenFolder() {
    static QString folder;
    return folder;
}
}  // namespace

QString ProgramFolder() {
    const QString& folder = overriddenFolder();
    return QDir::toNativeSeparators(folder.isEmpty() ? QCoreApplication::applicationDirPath()
                                                     : folder);
}

void SetProgramFolder(const QString& folder) {
    overriddenFolder() = folder;
}

QString PathIn(const QString& folder, const QString& name) {
    return QDir::toNativeSeparators(folder + QLatin1Char('/') + name);
}

}  // namespace quillon
