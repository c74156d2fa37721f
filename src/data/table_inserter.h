#pragma once
// Fast row writing for files that the program makes in bulk (the delivered
// databases and synthetic client databases): straight SQLite statements inside
// one transaction, bypassing the record-at-a-time database layer.

#include "platform/dao_schema.h"

#include <QHash>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace quillon {

// An open database file with a transaction in progress. Without Commit, the
// work is rolled back when the object goes.
class BulkWriteSession {
public:
    explicit BulkWriteSession(const QString& path);
    ~BulkWriteSession();
    BulkWriteSession(const BulkWriteSession&) = delete;
    BulkWriteSession& operator=(const BulkWriteSession&) = delete;

    void Commit();
    sqlite3* Handle() const { return db_; }

private:
    sqlite3* db_ = nullptr;
    bool committed_ = false;
};

// Adds rows to one table. Fields not set for a row are stored as Null. A text
// longer than its field's width is refused with kErrFieldTooSmall.
class TableInserter {
public:
    TableInserter(const BulkWriteSession& session, const dao::TableDef& table);
    ~TableInserter();
    TableInserter(const TableInserter&) = delete;
    TableInserter& operator=(const TableInserter&) = delete;

    TableInserter& Set(const QString& field, const QString& text);
    TableInserter& Set(const QString& field, const char* text) {
        return Set(field, QString::fromUtf8(text));
    }
    TableInserter& Set(const QString& field, int number);
    TableInserter& SetBool(const QString& field, bool value);

    // Writes the row and starts a new, empty one.
    void Insert();

private:
    int Ordinal(const QString& field) const;
    void Check(int result) const;

    sqlite3* db_;
    sqlite3_stmt* statement_ = nullptr;
    dao::TableDef table_;
    QHash<QString, int> ordinals_;
};

}  // namespace quillon
