#include <QDateTime>
#include <QDir>

#include <atomic>

#include "platform/dao_internal.h"

namespace quillon::dao {

namespace {
std::atomic<int> lockTimeoutMs{1000};
}

void SetLockTimeout(int milliseconds) {
    lockTimeoutMs = milliseconds < 0 ? 0 : milliseconds;
}

int LockTimeout() {
    return lockTimeoutMs;
}

}  // namespace quillon::dao

namespace quillon::dao {

QString NativePath(const QString& path) {
    return QDir::toNativeSeparators(path);
}

QString QuotedName(const QString& identifier) {
    QString escaped = identifier;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

int TableInfo::FieldOrdinal(const QString& fieldName) const {
    // A walk asks for the same few names row after row, each from one place;
    // the place is only a hint, the name itself decides.
    NameHint& hint = nameHints[size_t(quintptr(fieldName.constData()) >> 4) % nameHints.size()];
    if (hint.place == fieldName.constData() && hint.ordinal >= 0 &&
        fields[size_t(hint.ordinal)].name == fieldName) {
        return hint.ordinal;
    }
    // Callers nearly always spell a field as it was made; only the others pay
    // for folding the case.
    for (size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name == fieldName) {
            hint = {fieldName.constData(), int(i)};
            return int(i);
        }
    }
    return ordinalByName.value(fieldName.toCaseFolded(), -1);
}

const IndexInfo* TableInfo::FindIndex(const QString& indexName) const {
    for (const IndexInfo& index : indexes) {
        if (index.name.compare(indexName, Qt::CaseInsensitive) == 0) {
            return &index;
        }
    }
    return nullptr;
}

const IndexInfo* TableInfo::UniqueIndexOn(const QStringList& fieldNames) const {
    for (const IndexInfo& index : indexes) {
        if (!index.unique || index.columns.size() != size_t(fieldNames.size())) {
            continue;
        }
        bool same = true;
        for (int column : index.columns) {
            same = same && fieldNames.contains(fields[column].name, Qt::CaseInsensitive);
        }
        if (same) {
            return &index;
        }
    }
    return nullptr;
}

namespace {

// "UNIQUE constraint failed: T.a, T.b" -> the field names a, b.
QStringList fieldsOfUniqueFailure(const QString& message, const TableInfo& table) {
    QStringList names;
    const qsizetype colon = message.indexOf(QLatin1Char(':'));
    const QString prefix = table.name + QLatin1Char('.');
    for (QString part : message.mid(colon + 1).split(QLatin1Char(','))) {
        part = part.trimmed();
        if (part.startsWith(prefix, Qt::CaseInsensitive)) {
            part = part.mid(prefix.size());
        }
        names << part;
    }
    return names;
}

QString duplicateKeyText(const QString& message, const TableInfo* table) {
    if (table == nullptr) {
        return QStringLiteral("The change would give two rows the same key in a unique index (%1).")
            .arg(message);
    }
    const QStringList fields = fieldsOfUniqueFailure(message, *table);
    const IndexInfo* index = table->UniqueIndexOn(fields);
    return QStringLiteral(
               "Table '%1' already holds a row with the same %2; its index '%3' allows each "
               "value only once.")
        .arg(table->name, fields.join(QStringLiteral(" and ")),
             index ? index->name : QStringLiteral("(primary key)"));
}

}  // namespace

void ThrowEngineError(sqlite3* db, int rc, int lockError, const QString& path,
                      const QString& subject, const TableInfo* table) {
    const QString file = NativePath(path);
    const QString engineText = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(rc));
    const QString what = !subject.isEmpty() ? subject
                         : table            ? QStringLiteral("table '%1'").arg(table->name)
                                            : QStringLiteral("the data");
    switch (rc & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            if (lockError == kErrCannotOpen) {
                throw DaoError(kErrFileInUse, QStringLiteral("The database %1 is in use by "
                                                             "another user and cannot be opened "
                                                             "now.")
                                                  .arg(file));
            }
            if (lockError == kErrSaveLocked) {
                throw DaoError(lockError, QStringLiteral("Could not save %1: another user has the "
                                                         "database %2 locked.")
                                              .arg(what, file));
            }
            throw DaoError(lockError, QStringLiteral("Could not update %1: another user has the "
                                                     "database %2 locked.")
                                          .arg(what, file));
        case SQLITE_CONSTRAINT:
            if (rc == SQLITE_CONSTRAINT_UNIQUE || rc == SQLITE_CONSTRAINT_PRIMARYKEY) {
                throw DaoError(kErrDuplicateKey, duplicateKeyText(engineText, table));
            }
            break;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            throw DaoError(
                kErrDamaged,
                QStringLiteral("The file %1 is damaged or is not a database.").arg(file));
        case SQLITE_IOERR:
            throw DaoError(kErrIoFailure, QStringLiteral("A disk or network error stopped the work "
                                                         "on %1 (%2).")
                                              .arg(file, engineText));
        case SQLITE_FULL:
            throw DaoError(
                kErrDiskFull,
                QStringLiteral("There is not enough disk space to write to %1.").arg(file));
        case SQLITE_READONLY:
            throw DaoError(kErrReadOnly, QStringLiteral("The database %1 can only be read, so %2 "
                                                        "cannot be changed.")
                                             .arg(file, what));
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            throw DaoError(
                kErrCannotOpen,
                QStringLiteral("The file %1 cannot be opened (%2).").arg(file, engineText));
        default:
            break;
    }
    throw DaoError(kErrEngineFailure, QStringLiteral("The database engine failed on %1 while "
                                                     "working on %2: %3 (code %4).")
                                          .arg(file, what, engineText)
                                          .arg(rc));
}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    if (db == nullptr) {
        return;
    }
    for (sqlite3_stmt* statement : std::as_const(statements)) {
        sqlite3_finalize(statement);
    }
    statements.clear();
    tables.clear();
    if (!sqlite3_get_autocommit(db)) {
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    sqlite3_close_v2(db);
    db = nullptr;
    userTransactionDepth = 0;
    lockTransaction = false;
    pendingEditLocks = 0;
}

void Connection::RequireOpen() const {
    if (db == nullptr) {
        throw DaoError(kErrObjectInvalid,
                       QStringLiteral("The database %1 has been closed.").arg(NativePath(path)));
    }
}

void Connection::ApplyLockTimeout() {
    sqlite3_busy_timeout(db, LockTimeout());
}

sqlite3_stmt* Connection::Prepare(const QString& sql, int lockError) {
    RequireOpen();
    if (sqlite3_stmt* cached = statements.value(sql)) {
        return cached;
    }
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = sql.toUtf8();
    const int rc = sqlite3_prepare_v3(db, text.constData(), int(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(statement);
        ThrowEngineError(db, rc, lockError, path, QString());
    }
    statements.insert(sql, statement);
    return statement;
}

void Connection::Exec(const QString& sql, int lockError) {
    Query query(*this, sql, lockError);
    query.Run();
}

int Connection::AcquireEditLock() {
    RequireOpen();
    if (InTransaction()) {
        if (!lockTransaction) {
            return 0;  // the caller's own transaction already holds the lock
        }
        ++pendingEditLocks;
        return editLockTicket;
    }
    ApplyLockTimeout();
    Exec(QStringLiteral("BEGIN IMMEDIATE"), kErrUpdateLocked);
    lockTransaction = true;
    pendingEditLocks = 1;
    editLockTicket = ++lastTicket;
    return editLockTicket;
}

void Connection::ReleaseEditLock(int ticket) {
    if (ticket == 0 || ticket != editLockTicket || db == nullptr) {
        return;
    }
    if (--pendingEditLocks > 0) {
        return;
    }
    ForgetEditLock();
    if (!InTransaction()) {
        return;
    }
    ApplyLockTimeout();
    try {
        Exec(QStringLiteral("COMMIT"), kErrSaveLocked);
    } catch (...) {
        // A commit that cannot finish must not leave the file locked; the
        // caller hears that the change was not saved.
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        ++writeEpoch;
        throw;
    }
}

Query::Query(Connection& connection, const QString& sql, int lockError)
    : connection_(connection),
      statement_(connection.Prepare(sql, lockError)),
      lockError_(lockError) {}

Query::~Query() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

void Query::Bind(int position, const QVariant& value) {
    BindValue(statement_, position, value);
}

bool Query::Step(const QString& subject, const TableInfo* table) {
    const int rc = sqlite3_step(statement_);
    if (rc == SQLITE_ROW) {
        return true;
    }
    if (rc == SQLITE_DONE) {
        return false;
    }
    sqlite3_reset(statement_);
    ThrowEngineError(connection_.db, rc, lockError_, connection_.path, subject, table);
}

void Query::Run(const QString& subject, const TableInfo* table) {
    while (Step(subject, table)) {
    }
}

namespace {

// A text as a value of its field, from the UTF-8 the file stores: dates are
// kept in ISO form.
QVariant TextValue(const char* text, int size, DataType type) {
    // Moved in: the variant's own copy would cost a count up and one down.
    QVariant value{QString()};
    QString& string = *static_cast<QString*>(value.data());
    string = QString::fromUtf8(text, size);
    if (type == dbDate) {
        const QDateTime when = QDateTime::fromString(string, Qt::ISODate);
        if (when.isValid()) {
            return QVariant(when);
        }
    }
    return value;
}

}  // namespace

StoredCell StoreColumn(sqlite3_stmt* statement, int column, DataType type, std::string& texts) {
    StoredCell cell;
    const bool textual = type == dbText || type == dbMemo || type == dbDate;
    if (!textual && sqlite3_column_type(statement, column) == SQLITE_NULL) {
        return cell;
    }
    switch (type) {
        case dbBoolean:
        case dbByte:
        case dbInteger:
        case dbLong:
            cell.kind = StoredCell::Integer;
            cell.integer = sqlite3_column_int64(statement, column);
            return cell;
        case dbCurrency:
        case dbSingle:
        case dbDouble:
            cell.kind = StoredCell::Real;
            cell.real = sqlite3_column_double(statement, column);
            return cell;
        case dbDate:
        case dbText:
        case dbMemo:
            break;
    }
    const char* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (text == nullptr) {
        return cell;  // Null
    }
    cell.kind = StoredCell::Text;
    cell.size = sqlite3_column_bytes(statement, column);
    cell.offset = qsizetype(texts.size());
    texts.append(text, size_t(cell.size));
    return cell;
}

QVariant StoredValue(const StoredCell& cell, DataType type, const std::string& texts) {
    switch (cell.kind) {
        case StoredCell::Null:
            return QVariant();
        case StoredCell::Integer:
            return type == dbBoolean ? QVariant(cell.integer != 0) : QVariant(int(cell.integer));
        case StoredCell::Real:
            return QVariant(cell.real);
        case StoredCell::Text:
            break;
    }
    return TextValue(texts.data() + cell.offset, cell.size, type);
}

QVariant ColumnValue(sqlite3_stmt* statement, int column, DataType type) {
    std::string text;
    return StoredValue(StoreColumn(statement, column, type, text), type, text);
}

void BindValue(sqlite3_stmt* statement, int position, const QVariant& value) {
    if (value.isNull()) {
        sqlite3_bind_null(statement, position);
        return;
    }
    switch (value.typeId()) {
        case QMetaType::Bool:
            sqlite3_bind_int(statement, position, value.toBool() ? 1 : 0);
            return;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
        case QMetaType::Long:
        case QMetaType::LongLong:
        case QMetaType::ULong:
        case QMetaType::ULongLong:
            sqlite3_bind_int64(statement, position, value.toLongLong());
            return;
        case QMetaType::Double:
        case QMetaType::Float:
            sqlite3_bind_double(statement, position, value.toDouble());
            return;
        default:
            break;
    }
    const QString text =
        value.typeId() == QMetaType::QDateTime ? value.toDateTime().toString(Qt::ISODate)
        : value.typeId() == QMetaType::QDate   ? value.toDate().startOfDay().toString(Qt::ISODate)
                                               : value.toString();
    sqlite3_bind_text16(statement, position, text.utf16(), int(text.size() * 2), SQLITE_TRANSIENT);
}

}  // namespace quillon::dao
