#include "shell/variables.h"

#include <QDir>

namespace quillon {

QString ClientDatabasePath() {
    return QDir::toNativeSeparators(DatabaseFolder.at(SelectedFile) +
                                    QStringLiteral("/QUILL020.MDB"));
}

QString OfficeDatabasePath() {
    return QDir::toNativeSeparators(DatabaseFolder.at(SelectedFile) +
                                    QStringLiteral("/TAXOFF2.MDB"));
}

}  // namespace quillon
