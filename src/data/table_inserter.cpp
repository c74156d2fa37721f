#include "data/table_inserter.h"

#include <QDir>
#include <QStringList>

#include <sqlite3.h>

namespace quillon {

namespace {

QString quoted(const QString& identifier) {
    QString escaped = identifier;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

[[noreturn]] void fail(sqlite3* db, const QString& what) {
    throw dao::DaoError(dao::kErrIoFailure,
                        what + QStringLiteral(": ") + QString::fromUtf8(sqlite3_errmsg(db)));
}

void exec(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail(db, QString::fromUtf8(sql));
    }
}

}  // namespace

BulkWriteSession::BulkWriteSession(const QString& path) {
    if (sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK) {
        sqlite3_close(db_);
        throw dao::DaoError(
            dao::kErrCannotOpen,
            QStringLiteral("Could not open %1.").arg(QDir::toNativeSeparators(path)));
    }
    dao::UseProgramCollation(db_);
    try {
        // The file is new and is thrown away if the build fails, so there is no
        // need to wait for the disk.
        exec(db_, "PRAGMA synchronous=OFF");
        exec(db_, "BEGIN");
    } catch (...) {
        sqlite3_close(db_);
        throw;
    }
}

BulkWriteSession::~BulkWriteSession() {
    if (!committed_) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    sqlite3_close(db_);
}

void BulkWriteSession::Commit() {
    exec(db_, "COMMIT");
    committed_ = true;
}

TableInserter::TableInserter(const BulkWriteSession& session, const dao::TableDef& table)
    : db_(session.Handle()), table_(table) {
    QStringList columns;
    QStringList parameters;
    for (const dao::FieldDef& field : table_.fields) {
        ordinals_.insert(field.name, int(columns.size()));
        columns << quoted(field.name);
        parameters << QStringLiteral("?");
    }
    const QString sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                            .arg(quoted(table_.name), columns.join(QStringLiteral(", ")),
                                 parameters.join(QStringLiteral(", ")));
    if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &statement_, nullptr) != SQLITE_OK) {
        fail(db_, QStringLiteral("Could not prepare rows of %1").arg(table_.name));
    }
}

TableInserter::~TableInserter() {
    sqlite3_finalize(statement_);
}

int TableInserter::Ordinal(const QString& field) const {
    const auto found = ordinals_.constFind(field);
    if (found == ordinals_.constEnd()) {
        throw dao::DaoError(
            dao::kErrItemNotFound,
            QStringLiteral("Item not found in this collection: %1.%2").arg(table_.name, field));
    }
    return *found;
}

void TableInserter::Check(int result) const {
    if (result != SQLITE_OK) {
        fail(db_, QStringLiteral("Could not write a row of %1").arg(table_.name));
    }
}

TableInserter& TableInserter::Set(const QString& field, const QString& text) {
    const int ordinal = Ordinal(field);
    const dao::FieldDef& def = table_.fields[ordinal];
    if (def.type == dao::dbText && text.size() > def.size) {
        throw dao::DaoError(
            dao::kErrFieldTooSmall,
            QStringLiteral("The field %1.%2 is too small for '%3'.").arg(table_.name, field, text));
    }
    const QByteArray utf8 = text.toUtf8();
    Check(sqlite3_bind_text(statement_, ordinal + 1, utf8.constData(), int(utf8.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

TableInserter& TableInserter::Set(const QString& field, int number) {
    Check(sqlite3_bind_int(statement_, Ordinal(field) + 1, number));
    return *this;
}

TableInserter& TableInserter::SetBool(const QString& field, bool value) {
    return Set(field, value ? 1 : 0);
}

void TableInserter::Insert() {
    const int result = sqlite3_step(statement_);
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    if (result == SQLITE_CONSTRAINT) {
        throw dao::DaoError(dao::kErrDuplicateKey,
                            QStringLiteral("Duplicate value in index of %1.").arg(table_.name));
    }
    if (result != SQLITE_DONE) {
        fail(db_, QStringLiteral("Could not write a row of %1").arg(table_.name));
    }
}

}  // namespace quillon
