#pragma once
// A small database access layer in the shape the program's routines were written
// against: a database file opened per operation, table recordsets walked through
// an index, rows changed through Edit/AddNew/Update, and failures reported as the
// engine's numbered errors. The files are SQLite databases; see dao_schema.h for
// how tables, fields and indexes are laid out in them.

#include <QString>
#include <QStringList>
#include <QVariant>

#include <exception>
#include <memory>
#include <string>

struct sqlite3;

namespace quillon::dao {

// The engine's error numbers that callers tell apart. Any other failure carries
// its own number and text.
enum ErrorNumber : int {
    kErrIndexNotSet = 3019,        // Seek without a current index
    kErrUpdateWithoutEdit = 3020,  // Update or field write outside Edit/AddNew
    kErrNoCurrentRecord = 3021,    // read, Edit or Delete with no current row
    kErrDuplicateKey = 3022,       // a unique index would hold a value twice
    kErrFileNotFound = 3024,       // the database file does not exist
    kErrReadOnly = 3027,           // write through a read-only database or recordset
    kErrNoTransaction = 3034,      // CommitTrans without BeginTrans
    kErrInvalidPath = 3044,        // the folder does not exist
    kErrFileInUse = 3045,          // another user holds the file past the lock timeout
    kErrDamaged = 3049,            // not a database, or a damaged one
    kErrCannotOpen = 3051,         // no permission, or the file is in use exclusively
    kErrTableNotFound = 3078,      // no such table
    kErrSyntax = 3129,             // Execute with a statement the engine refuses
    kErrFieldTooSmall = 3163,      // a text longer than its field's width
    kErrSaveLocked = 3186,         // Update refused: another user holds the lock
    kErrDatabaseExists = 3204,     // CompactDatabase onto an existing file
    kErrUpdateLocked = 3260,       // Edit/Delete refused: another user holds the lock
    kErrItemNotFound = 3265,       // no such field or index
    kErrObjectInvalid = 3420,      // use of a closed database or recordset
    kErrIoFailure = 3043,          // disk or network error while working on the file
    kErrEngineFailure = 3000,      // any other failure of the engine; the text says which
    kErrInvalidArgument = 3001,    // a bad argument: recordset type, Seek comparison or keys
    kErrDiskFull = 3026,           // no space left to write the file
    kErrRecordDeleted = 3167,      // the current row was deleted by another user
    kErrOverflow = 3349,           // a number too large for its field
    kErrTypeMismatch = 3421,       // a value that the field's type cannot hold
};

class DaoError : public std::exception {
public:
    DaoError(int number, QString description);
    int Number() const noexcept { return number_; }
    const QString& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    QString description_;
    std::string what_;
};

// DAO constants, with their old values.
enum RecordsetType : int { dbOpenTable = 1 };
enum RecordsetOption : int { dbReadOnly = 4 };
enum EditMode : int { dbEditNone = 0, dbEditInProgress = 1, dbEditAdd = 2 };
enum DataType : int {
    dbBoolean = 1,
    dbByte = 2,
    dbInteger = 3,  // 16-bit
    dbLong = 4,     // 32-bit
    dbCurrency = 5,
    dbSingle = 6,
    dbDouble = 7,
    dbDate = 8,
    dbText = 10,
    dbMemo = 12,
};

class Recordset;
class Database;
struct Connection;
struct RecordsetState;

// One column of a recordset: its value in the current row, or in the edit buffer
// while Edit or AddNew is pending. A Null value is a null QVariant.
class Field {
public:
    QString Name() const;
    DataType Type() const;
    int Size() const;  // width of a text field, 0 for other types
    // The value as the recordset holds it, until it moves or the field is set.
    const QVariant& Value() const;
    bool IsNull() const { return Value().isNull(); }
    // Allowed only between Edit/AddNew and Update; a null QVariant stores Null.
    void SetValue(const QVariant& value);

private:
    friend class Recordset;
    Field(RecordsetState* state, int ordinal) : state_(state), ordinal_(ordinal) {}
    RecordsetState* state_;
    int ordinal_;
};

// A table-type recordset. It moves in the order of its current index, or in the
// table's stored order when no index is set, and holds no lock between calls
// except from Edit to Update.
//
// Edit takes the file's write lock (unless a transaction of this database holds
// it already) and reads the row afresh; Update writes the assigned fields and
// commits; CancelUpdate, a move, Close or destruction give the lock back.
// MoveNext reads a few rows ahead; those stand in for the file only while this
// database has written nothing since and for at most half a second, so another
// user's change to a row further on may show a moment late in a walk. Seek,
// MoveFirst, MoveLast, MovePrevious and Edit always read the file.
class Recordset {
public:
    Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();  // closes; a pending Edit or AddNew is cancelled

    QString Name() const;

    void SetIndex(const QString& indexName);
    QString Index() const;
    // comparison is "=", "<", "<=", ">" or ">="; keys follow the index's fields.
    void Seek(const QString& comparison, const QVariantList& keys);
    bool NoMatch() const;
    bool BOF() const;
    bool IsEOF() const;  // the EOF property; the plain name is a C macro

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    int FieldCount() const;
    Field Fields(const QString& name) const;
    Field Fields(int ordinal) const;

    void Edit();
    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();
    int GetEditMode() const;

    long RecordCount() const;
    void Close();
    bool IsOpen() const;

private:
    friend class Database;
    explicit Recordset(std::unique_ptr<RecordsetState> state);
    std::unique_ptr<RecordsetState> state_;
};

// An open database file. Its recordsets share its connection; Close ends it for
// all of them, and they then fail with kErrObjectInvalid.
class Database {
public:
    Database();
    ~Database();  // closes; an open transaction is rolled back
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;

    QString Name() const;  // the path it was opened with
    QStringList TableNames() const;
    Recordset OpenRecordset(const QString& tableName, int type = dbOpenTable, int options = 0);
    void Execute(const QString& sql);

    void BeginTrans();
    void CommitTrans();
    void Rollback();  // without an open transaction it does nothing

    void Close();
    bool IsOpen() const;

private:
    friend Database OpenDatabase(const QString&, bool, bool);
    friend class DatabaseBuilder;
    explicit Database(std::shared_ptr<Connection> connection);
    std::shared_ptr<Connection> connection_;
};

// Opens a database file, shared with other users and processes; never creates
// one. Fails with kErrInvalidPath, kErrFileNotFound, kErrCannotOpen, or
// kErrDamaged for a file that is not a database or is truncated. `exclusive`
// keeps other users out until Close; `readOnly` refuses every write with
// kErrReadOnly.
Database OpenDatabase(const QString& path, bool exclusive = false, bool readOnly = false);

// Makes the text of a connection opened outside this layer compare as the
// program's files do, without regard to case in any language: every file is
// written, and its indexes ordered, with this collation.
void UseProgramCollation(sqlite3* db);

// Rewrites the database `source` into the new file `destination`.
void CompactDatabase(const QString& source, const QString& destination);

// Checks the file and mends what it can, in place: a healthy file is left
// untouched, damaged indexes are rebuilt, and failing that the file is replaced
// by a fresh one holding every row that can still be read. A file that is not a
// database fails with kErrDamaged.
void RepairDatabase(const QString& path);

// How long an Edit, Update, Delete or transaction waits for another user's lock
// before it fails with kErrUpdateLocked or kErrSaveLocked.
void SetLockTimeout(int milliseconds);
int LockTimeout();

}  // namespace quillon::dao
