// Whole-file operations: compacting a database into a new file, and checking
// and mending a damaged one in place.

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <filesystem>

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

qint64 singleNumber(Connection& connection, const QString& sql) {
    Query query(connection, sql, kErrUpdateLocked);
    return query.Step() ? sqlite3_column_int64(query.Statement(), 0) : 0;
}

bool tryStatement(Connection& connection, const char* sql) {
    return sqlite3_exec(connection.db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool isIntact(Connection& connection) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection.db, "PRAGMA integrity_check(1)", -1, &statement, nullptr) !=
        SQLITE_OK) {
        sqlite3_finalize(statement);
        return false;
    }
    const bool intact =
        sqlite3_step(statement) == SQLITE_ROW &&
        qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), "ok") == 0;
    sqlite3_finalize(statement);
    return intact;
}

struct SchemaEntry {
    QString type;
    QString name;
    QString sql;
};

std::vector<SchemaEntry> schemaOf(Connection& connection) {
    // Tables and indexes only: a view or trigger that a file carries is left
    // behind.
    Query query(connection, QStringLiteral("SELECT type, name, sql FROM sqlite_master WHERE sql IS "
                                           "NOT NULL AND name NOT LIKE 'sqlite%' AND type IN "
                                           "('table', 'index') ORDER BY type = 'index', rowid"));
    std::vector<SchemaEntry> entries;
    while (query.Step()) {
        sqlite3_stmt* row = query.Statement();
        auto text = [row](int column) {
            return QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(row, column)));
        };
        entries.push_back({text(0), text(1), text(2)});
    }
    return entries;
}

QString quotedColumns(Connection& connection, const QString& table) {
    Query query(connection, QStringLiteral("SELECT name FROM pragma_table_info(?1) ORDER BY cid"));
    query.Bind(1, table);
    QStringList names;
    while (query.Step()) {
        names << QuotedName(QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(query.Statement(), 0))));
    }
    return names.join(QLatin1Char(','));
}

// Copies the rows of `table` that can still be read, rowids and all, in rowid
// order; a damaged page ends the copy of that table. Rows that a unique index
// refuses are left out.
void copyRows(Connection& from, sqlite3* to, const QString& table) {
    const QString quoted = QuotedName(table);
    const QString columns = quotedColumns(from, table);
    const QByteArray select =
        QStringLiteral("SELECT rowid, %1 FROM %2 ORDER BY rowid").arg(columns, quoted).toUtf8();
    const int count = int(columns.count(QLatin1Char(',')) + 2);
    const QByteArray insert =
        QStringLiteral("INSERT OR IGNORE INTO %1 (rowid, %2) VALUES (%3)")
            .arg(quoted, columns, QStringList(count, QStringLiteral("?")).join(QLatin1Char(',')))
            .toUtf8();
    sqlite3_stmt* reader = nullptr;
    sqlite3_stmt* writer = nullptr;
    if (sqlite3_prepare_v2(from.db, select.constData(), -1, &reader, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(to, insert.constData(), -1, &writer, nullptr) == SQLITE_OK) {
        while (sqlite3_step(reader) == SQLITE_ROW) {
            for (int i = 0; i < count; ++i) {
                sqlite3_bind_value(writer, i + 1, sqlite3_column_value(reader, i));
            }
            sqlite3_step(writer);
            sqlite3_reset(writer);
        }
    }
    sqlite3_finalize(reader);
    sqlite3_finalize(writer);
}

// Runs one schema entry of the damaged file in the copy: its first statement
// only, and only when that makes a table or an index, so that text stored in a
// file can never make the repair do anything else.
void createFromEntry(sqlite3* db, const QString& sql, const QString& path) {
    static const QRegularExpression kCreate(
        QStringLiteral(R"(^\s*CREATE\s+(UNIQUE\s+)?(TABLE|INDEX)\s)"),
        QRegularExpression::CaseInsensitiveOption);
    if (!kCreate.match(sql).hasMatch()) {
        return;
    }
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    int rc = sqlite3_prepare_v2(db, text.constData(), int(text.size()), &statement, nullptr);
    if (rc == SQLITE_OK) {
        rc = sqlite3_step(statement);
    }
    sqlite3_finalize(statement);
    if (rc != SQLITE_DONE && rc != SQLITE_OK) {
        ThrowEngineError(db, rc, kErrUpdateLocked, path, QStringLiteral("the repaired copy"));
    }
}

void execOn(sqlite3* db, const QString& sql, const QString& path) {
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        ThrowEngineError(db, rc, kErrUpdateLocked, path, QStringLiteral("the repaired copy"));
    }
}

// Makes `target` with the schema of `source` and every row that can be read.
void copyReadableContent(Connection& source, const QString& target) {
    const std::vector<SchemaEntry> schema = schemaOf(source);
    sqlite3* copy = nullptr;
    int rc = sqlite3_open_v2(target.toUtf8().constData(), &copy,
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    try {
        if (rc != SQLITE_OK) {
            ThrowEngineError(copy, rc, kErrCannotOpen, target, QStringLiteral("the repaired copy"));
        }
        UseProgramCollation(copy);
        execOn(copy,
               QStringLiteral("PRAGMA user_version = %1; PRAGMA application_id = %2")
                   .arg(singleNumber(source, QStringLiteral("PRAGMA user_version")))
                   .arg(singleNumber(source, QStringLiteral("PRAGMA application_id"))),
               target);
        execOn(copy, QStringLiteral("BEGIN"), target);
        // Indexes first, so that the unique ones keep out rows that damage duplicated.
        for (const SchemaEntry& entry : schema) {
            createFromEntry(copy, entry.sql, target);
        }
        for (const SchemaEntry& entry : schema) {
            if (entry.type == QLatin1String("table")) {
                copyRows(source, copy, entry.name);
            }
        }
        execOn(copy, QStringLiteral("COMMIT"), target);
    } catch (...) {
        sqlite3_close_v2(copy);
        throw;
    }
    sqlite3_close_v2(copy);
}

void replaceFile(const QString& replacement, const QString& path) {
    std::error_code failure;
    std::filesystem::rename(QFile::encodeName(replacement).toStdString(),
                            QFile::encodeName(path).toStdString(), failure);
    if (failure) {
        QFile::remove(replacement);
        throw DaoError(kErrIoFailure,
                       QStringLiteral("The repaired database could not replace %1 "
                                      "(%2).")
                           .arg(NativePath(path), QString::fromStdString(failure.message())));
    }
}

}  // namespace

void CompactDatabase(const QString& source, const QString& destination) {
    // Opened for writing so that a journal left by a crashed user is rolled
    // back before the copy is taken.
    auto connection = OpenConnection(source, false);
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
    if (connection->readOnly) {
        throw DaoError(kErrCannotOpen, QStringLiteral("The database %1 cannot be repaired: it may "
                                                      "only be read.")
                                           .arg(NativePath(path)));
    }
    // Without a readable schema there is nothing to mend from.
    singleNumber(*connection, QStringLiteral("SELECT count(*) FROM sqlite_master"));
    connection->Exec(QStringLiteral("BEGIN IMMEDIATE"), kErrUpdateLocked);
    if (isIntact(*connection)) {
        connection->Exec(QStringLiteral("COMMIT"), kErrSaveLocked);
        return;
    }
    if (tryStatement(*connection, "REINDEX") && isIntact(*connection)) {
        connection->Exec(QStringLiteral("COMMIT"), kErrSaveLocked);
        return;
    }
    sqlite3_exec(connection->db, "ROLLBACK", nullptr, nullptr, nullptr);
    const QString rebuilt = path + QStringLiteral(".rebuild");
    QFile::remove(rebuilt);
    try {
        copyReadableContent(*connection, rebuilt);
    } catch (...) {
        QFile::remove(rebuilt);
        throw;
    }
    connection->Close();
    replaceFile(rebuilt, path);
}

}  // namespace quillon::dao
