#pragma once
// The parts of the database layer that its own files share: the open SQLite
// connection with its statement and table caches, table metadata, the state of
// a recordset, and the mapping of SQLite failures to numbered errors.

#include "platform/dao.h"
#include "platform/dao_schema.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace quillon::dao {

QString NativePath(const QString& path);
QString QuotedName(const QString& identifier);

struct IndexInfo {
    QString name;              // as callers know it, without the table prefix
    std::vector<int> columns;  // field ordinals, in key order
    bool unique = false;
};

struct TableInfo {
    QString name;
    std::vector<FieldDef> fields;
    std::vector<QString> quotedFields;
    QHash<QString, int> ordinalByName;  // case-folded name -> ordinal
    std::vector<IndexInfo> indexes;

    int FieldOrdinal(const QString& fieldName) const;  // -1 when there is none
    // Where the names last asked for stood, and their fields.
    struct NameHint {
        const QChar* place = nullptr;
        int ordinal = -1;
    };
    mutable std::array<NameHint, 8> nameHints{};
    const IndexInfo* FindIndex(const QString& indexName) const;
    // The unique index whose key fields are exactly `fieldNames` (any order).
    const IndexInfo* UniqueIndexOn(const QStringList& fieldNames) const;
};

// Raises the numbered error for the SQLite result `rc`. `lockError` is the
// number to report when another user holds the lock; `subject` names the table
// or operation concerned for the description.
[[noreturn]] void ThrowEngineError(sqlite3* db, int rc, int lockError, const QString& path,
                                   const QString& subject, const TableInfo* table = nullptr);

struct Connection {
    sqlite3* db = nullptr;
    QString path;
    bool readOnly = false;
    int userTransactionDepth = 0;
    // A transaction begun by Edit to hold the write lock until Update; it
    // commits when the last pending Edit ends.
    bool lockTransaction = false;
    int pendingEditLocks = 0;
    // Names the current Edit transaction; a share taken under an earlier one
    // (since committed or rolled back by the caller) releases nothing.
    int editLockTicket = 0;
    int lastTicket = 0;
    QHash<QString, sqlite3_stmt*> statements;
    QHash<QString, std::shared_ptr<const TableInfo>> tables;  // by case-folded name
    // Counts this connection's writes and rollbacks, so that rows read ahead
    // before one of them are known to be out of date.
    quint64 writeEpoch = 0;

    ~Connection();
    void Close();
    bool IsOpen() const { return db != nullptr; }
    void RequireOpen() const;
    bool InTransaction() const { return db && !sqlite3_get_autocommit(db); }

    sqlite3_stmt* Prepare(const QString& sql, int lockError = kErrUpdateLocked);
    // Runs a statement that returns no rows.
    void Exec(const QString& sql, int lockError);
    void ApplyLockTimeout();

    std::shared_ptr<const TableInfo> Table(const QString& tableName);
    void ForgetTables() { tables.clear(); }

    // The write lock taken by Edit: begins a transaction when none is open.
    // Returns the ticket of the share taken, or 0 when the caller's own
    // transaction already holds the lock.
    int AcquireEditLock();
    // Commits the Edit transaction when no Edit needs it any more.
    void ReleaseEditLock(int ticket);
    void ForgetEditLock() { lockTransaction = false, pendingEditLocks = 0, editLockTicket = 0; }
};

// Opens the file without creating it; the path's folder and file are checked
// first so that a missing one gets its own number.
std::shared_ptr<Connection> OpenConnection(const QString& path, bool readOnly);
// Reads the schema and checks the file's size against its header, so that a
// damaged file is refused at once with kErrDamaged.
void VerifyDatabaseFile(Connection& connection);

// One use of a cached statement: binds, steps, and is reset on destruction so
// that no read lock outlives the call.
class Query {
public:
    Query(Connection& connection, const QString& sql, int lockError = kErrUpdateLocked);
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    void Bind(int position, const QVariant& value);  // positions count from 1
    // True while a row is there. `subject` and `table` name what the statement
    // works on, for the error's description.
    bool Step(const QString& subject = QString(), const TableInfo* table = nullptr);
    void Run(const QString& subject = QString(), const TableInfo* table = nullptr);
    sqlite3_stmt* Statement() const { return statement_; }

private:
    Connection& connection_;
    sqlite3_stmt* statement_;
    int lockError_;
};

QVariant ColumnValue(sqlite3_stmt* statement, int column, DataType type);

// A column's value as the engine gave it, kept until it is wanted: the rows read
// ahead hold their texts as the file stores them, in one buffer, and become
// values one row at a time as a walk reaches them.
struct StoredCell {
    enum Kind : quint8 { Null, Integer, Real, Text };
    Kind kind = Null;
    int size = 0;  // of a text
    union {
        qint64 integer = 0;
        double real;
        qsizetype offset;  // of a text in the buffer
    };
};
StoredCell StoreColumn(sqlite3_stmt* statement, int column, DataType type, std::string& texts);
QVariant StoredValue(const StoredCell& cell, DataType type, const std::string& texts);
void BindValue(sqlite3_stmt* statement, int position, const QVariant& value);

struct RecordsetState {
    std::shared_ptr<Connection> connection;
    std::shared_ptr<const TableInfo> table;
    bool readOnly = false;
    const IndexInfo* index = nullptr;  // points into `table`, which it keeps alive
    bool closed = false;
    // The recordset stands on its first row, which is read when first needed.
    bool startPending = false;

    // Position. `cursorValid` means `rowid` and `values` describe a reference
    // row: the current one, or the one just deleted.
    bool hasRow = false;
    bool bof = false;
    bool eof = false;
    bool noMatch = false;
    bool cursorValid = false;
    qint64 rowid = 0;
    QVariantList values;
    // Positioning statements already composed for the current index.
    QHash<int, QString> sqlByShape;

    // Rows that follow the current one, read with it so that a walk with
    // MoveNext does not pay for a query per row. They serve only a MoveNext
    // that comes soon after and with no write of ours in between.
    // They stand in one buffer, a row's fields one after the other, so that
    // reading them costs no allocation of their own.
    struct RowsAhead {
        std::vector<qint64> rowids;
        std::vector<StoredCell> cells;
        std::string texts;
        size_t next = 0;
        bool empty() const { return next >= rowids.size(); }
        void clear() {
            rowids.clear();
            cells.clear();
            texts.clear();  // keeps its room for the next rows
            next = 0;
        }
    };
    RowsAhead ahead;
    int aheadTakenSinceCheck = 0;
    // How many rows the next step from a row reads: more each time a walk
    // goes on, back to a few at any other positioning.
    int readAhead = 0;
    quint64 aheadEpoch = 0;
    std::chrono::steady_clock::time_point aheadReadAt;

    // Edit buffer.
    int editMode = dbEditNone;
    int editLockTicket = 0;
    QVariantList buffer;
    std::vector<bool> assigned;

    Connection& Conn() const;  // the open connection, or 3420
    // The checks run at every move and field of a walk: inline, with the
    // failures out of line.
    void RequireOpen() const {
        if (closed || !connection || !connection->IsOpen()) [[unlikely]] {
            ThrowClosed();
        }
    }
    void RequireWritable() const;
    void RequireCurrentRow() const {
        RequireOpen();
        if (!hasRow) [[unlikely]] {
            ThrowNoCurrentRow();
        }
    }
    [[noreturn]] void ThrowClosed() const;
    [[noreturn]] void ThrowNoCurrentRow() const;
    QString ReadOnlyMessage() const;

    // Reads the row at `statement`'s current step (rowid first, then the fields).
    void TakeRow(sqlite3_stmt* statement);
    QVariantList RowValues(sqlite3_stmt* statement) const;
    void StoreRowAhead(sqlite3_stmt* statement);
    bool TakeRowAhead();  // false when no fresh row ahead is there
    void TakeNextRowAhead();
    void StandOnRow();  // the position's flags of a row just taken
    void SetBeforeFirst(bool emptyToo);
    void SetAfterLast(bool emptyToo);
    void SetNowhere();
    QVariantList KeyValues() const;  // the reference row's index key values

    void Start();    // stands on the first row, or at BOF and EOF when there is none
    void Settle() {  // runs a pending Start
        if (startPending) [[unlikely]] {
            Start();
        }
    }
    void EndEdit();  // drops the edit buffer and any Edit lock
    void EndEditQuietly() noexcept;
    bool RereadCurrentRow();
    const QVariant& FieldValue(int ordinal);
    void SetFieldValue(int ordinal, const QVariant& value);
};

}  // namespace quillon::dao
