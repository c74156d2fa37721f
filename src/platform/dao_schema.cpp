#include "platform/dao_schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

namespace quillon::dao {

namespace {

QString quoted(const QString& identifier) {
    QString escaped = identifier;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

bool isText(DataType type) {
    return type == dbText || type == dbMemo;
}

void execOrThrow(sqlite3* db, const QString& sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        QString text = QString::fromUtf8(message ? message : "unknown failure");
        sqlite3_free(message);
        throw DaoError(kErrSyntax, QStringLiteral("Could not make the table: %1").arg(text));
    }
}

}  // namespace

QString DeclaredType(const FieldDef& field) {
    switch (field.type) {
        case dbBoolean:
            return QStringLiteral("BOOLEAN");
        case dbByte:
            return QStringLiteral("TINYINT");
        case dbInteger:
            return QStringLiteral("SMALLINT");
        case dbLong:
            return QStringLiteral("INTEGER");
        case dbCurrency:
            return QStringLiteral("CURRENCY");
        case dbSingle:
            return QStringLiteral("REAL");
        case dbDouble:
            return QStringLiteral("DOUBLE");
        case dbDate:
            return QStringLiteral("DATETIME");
        case dbMemo:
            return QStringLiteral("LONGTEXT");
        case dbText:
            break;
    }
    return QStringLiteral("TEXT(%1)").arg(field.size > 0 ? field.size : 255);
}

FieldDef FieldFromDeclaredType(const QString& name, const QString& declaredType) {
    static const QRegularExpression textWidth(QStringLiteral("^TEXT\\((\\d+)\\)$"),
                                              QRegularExpression::CaseInsensitiveOption);
    const QString type = declaredType.trimmed().toUpper();
    FieldDef field{name, dbText, 255};
    if (auto match = textWidth.match(type); match.hasMatch()) {
        field.size = match.captured(1).toInt();
        return field;
    }
    static const std::pair<const char*, DataType> kTypes[] = {
        {"BOOLEAN", dbBoolean}, {"TINYINT", dbByte},      {"SMALLINT", dbInteger},
        {"INTEGER", dbLong},    {"CURRENCY", dbCurrency}, {"REAL", dbSingle},
        {"DOUBLE", dbDouble},   {"DATETIME", dbDate},     {"LONGTEXT", dbMemo},
    };
    for (const auto& [declared, dataType] : kTypes) {
        if (type == QLatin1String(declared)) {
            field.type = dataType;
            field.size = 0;
            return field;
        }
    }
    return field;
}

QStringList CreateTableStatements(const TableDef& table) {
    QStringList columns;
    for (const FieldDef& field : table.fields) {
        QString column = quoted(field.name) + QLatin1Char(' ') + DeclaredType(field);
        if (isText(field.type)) {
            column += QStringLiteral(" COLLATE NOCASE");
        }
        columns << column;
    }
    QStringList statements;
    statements << QStringLiteral("CREATE TABLE %1 (%2)")
                      .arg(quoted(table.name), columns.join(QStringLiteral(", ")));
    for (const IndexDef& index : table.indexes) {
        QStringList keys;
        for (const QString& key : index.fields) {
            keys << quoted(key);
        }
        statements << QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                          .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(),
                               quoted(table.name + QLatin1Char('|') + index.name),
                               quoted(table.name), keys.join(QStringLiteral(", ")));
    }
    return statements;
}

void CreateDatabase(const QString& path, const std::vector<TableDef>& tables) {
    if (QFileInfo::exists(path)) {
        throw DaoError(
            kErrDatabaseExists,
            QStringLiteral("Database already exists: %1").arg(QDir::toNativeSeparators(path)));
    }
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir()) {
        throw DaoError(
            kErrInvalidPath,
            QStringLiteral("'%1' is not a valid path.").arg(QDir::toNativeSeparators(path)));
    }
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        throw DaoError(
            kErrCannotOpen,
            QStringLiteral("Could not create the file %1.").arg(QDir::toNativeSeparators(path)));
    }
    UseProgramCollation(db);
    try {
        execOrThrow(db, QStringLiteral("BEGIN"));
        for (const TableDef& table : tables) {
            for (const QString& statement : CreateTableStatements(table)) {
                execOrThrow(db, statement);
            }
        }
        execOrThrow(db, QStringLiteral("COMMIT"));
    } catch (...) {
        sqlite3_close(db);
        QFile::remove(path);
        throw;
    }
    sqlite3_close(db);
}

}  // namespace quillon::dao
