#include "support/program_folder_copy.h"

#include "shell/program_folder.h"

#include <QDir>
#include <QFile>

namespace quillon::testing {

void CopyDeliveredDatabases(const QString& folder) {
    const QDir delivered(QStringLiteral(QUILLON_PROGRAM_DIR));
    const QStringList files =
        delivered.entryList({QStringLiteral("*.MDB"), QStringLiteral("*.mdb")}, QDir::Files);
    for (const QString& name : files) {
        QFile::copy(delivered.filePath(name), QDir(folder).filePath(name));
    }
}

ProgramFolderCopy::ProgramFolderCopy(bool withDatabases) {
    path_ = QDir(root_.path()).filePath(QStringLiteral("Quillon2"));
    QDir().mkpath(path_);
    if (withDatabases) {
        CopyDeliveredDatabases(path_);
    }
    SetProgramFolder(path_);
}

ProgramFolderCopy::~ProgramFolderCopy() {
    SetProgramFolder(QString());
}

QString ProgramFolderCopy::File(const QString& name) const {
    return QDir(path_).filePath(name);
}

QString ProgramFolderCopy::Sibling(const QString& name) const {
    const QString folder = QDir(root_.path()).filePath(name);
    QDir().mkpath(folder);
    return folder;
}

QByteArray ProgramFolderCopy::ConfigText() const {
    QFile file(File(QStringLiteral("quillon.ini")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ProgramFolderCopy::WriteConfig(const QByteArray& text) const {
    QFile file(File(QStringLiteral("quillon.ini")));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(text);
    }
}

}  // namespace quillon::testing
