// Fields and the writing of rows: Edit, AddNew, Update, CancelUpdate, Delete.

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/dao_internal.h"

namespace quillon::dao {

namespace {

QString fieldLabel(const TableInfo& table, int ordinal) {
    return QStringLiteral("field '%1' of table '%2'").arg(table.fields[ordinal].name, table.name);
}

[[noreturn]] void throwMismatch(const TableInfo& table, int ordinal, const QVariant& value) {
    throw DaoError(kErrTypeMismatch, QStringLiteral("The value \"%1\" does not suit %2.")
                                         .arg(value.toString(), fieldLabel(table, ordinal)));
}

QVariant toBoolean(const TableInfo& table, int ordinal, const QVariant& value) {
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString().trimmed().toLower();
        if (text == QLatin1String("true") || text == QLatin1String("yes")) {
            return true;
        }
        if (text == QLatin1String("false") || text == QLatin1String("no")) {
            return false;
        }
    }
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok) {
        throwMismatch(table, ordinal, value);
    }
    return number != 0;
}

QVariant toWholeNumber(const TableInfo& table, int ordinal, const QVariant& value) {
    bool ok = false;
    const double number =
        value.typeId() == QMetaType::Bool ? (value.toBool() ? -1 : 0) : value.toDouble(&ok);
    if (!ok && value.typeId() != QMetaType::Bool) {
        throwMismatch(table, ordinal, value);
    }
    const double rounded = std::nearbyint(number);
    double low = std::numeric_limits<qint32>::min();
    double high = std::numeric_limits<qint32>::max();
    if (table.fields[ordinal].type == dbByte) {
        low = 0, high = 255;
    } else if (table.fields[ordinal].type == dbInteger) {
        low = std::numeric_limits<qint16>::min(), high = std::numeric_limits<qint16>::max();
    }
    if (!(rounded >= low && rounded <= high)) {
        throw DaoError(kErrOverflow, QStringLiteral("The number %1 is too large for %2.")
                                         .arg(value.toString(), fieldLabel(table, ordinal)));
    }
    return int(rounded);
}

QVariant toDate(const TableInfo& table, int ordinal, const QVariant& value) {
    if (value.typeId() == QMetaType::QDateTime) {
        return value;
    }
    if (value.typeId() == QMetaType::QDate) {
        return value.toDate().startOfDay();
    }
    const QDateTime parsed = QDateTime::fromString(value.toString().trimmed(), Qt::ISODate);
    if (!parsed.isValid()) {
        throwMismatch(table, ordinal, value);
    }
    return parsed;
}

QVariant toText(const TableInfo& table, int ordinal, const QVariant& value) {
    const QString text = value.toString();
    const FieldDef& field = table.fields[ordinal];
    if (field.type == dbText && field.size > 0 && text.size() > field.size) {
        throw DaoError(kErrFieldTooSmall,
                       QStringLiteral("The text \"%1\" has %2 characters, but %3 holds at most %4.")
                           .arg(text)
                           .arg(text.size())
                           .arg(fieldLabel(table, ordinal))
                           .arg(field.size));
    }
    return text;
}

// The value as the field stores it, or the error that the field refuses it with.
QVariant convertForField(const TableInfo& table, int ordinal, const QVariant& value) {
    if (value.isNull()) {
        return QVariant();
    }
    switch (table.fields[ordinal].type) {
        case dbBoolean:
            return toBoolean(table, ordinal, value);
        case dbByte:
        case dbInteger:
        case dbLong:
            return toWholeNumber(table, ordinal, value);
        case dbCurrency:
        case dbSingle:
        case dbDouble: {
            bool ok = false;
            const double number = value.toDouble(&ok);
            if (!ok) {
                throwMismatch(table, ordinal, value);
            }
            return number;
        }
        case dbDate:
            return toDate(table, ordinal, value);
        case dbText:
        case dbMemo:
            break;
    }
    return toText(table, ordinal, value);
}

QString tableSubject(const TableInfo& table) {
    return QStringLiteral("the row of table '%1'").arg(table.name);
}

// The fields of the table's indexes: what names a row to the program, so that
// a row number that another user has given to another row is not taken for
// the row that was read.
std::vector<int> identityColumns(const TableInfo& table) {
    std::vector<int> columns;
    for (const IndexInfo& index : table.indexes) {
        for (const int column : index.columns) {
            if (std::find(columns.begin(), columns.end(), column) == columns.end()) {
                columns.push_back(column);
            }
        }
    }
    return columns;
}

bool sameIdentity(const TableInfo& table, const QVariantList& read, const QVariantList& now) {
    for (const int column : identityColumns(table)) {
        if (read.value(column) != now.value(column)) {
            return false;
        }
    }
    return true;
}

// " AND field IS ?n ..." for the identity of `values`, numbered from `first`.
QString identityCondition(const TableInfo& table, int first) {
    QString condition;
    for (const int column : identityColumns(table)) {
        condition += QStringLiteral(" AND %1 IS ?%2").arg(table.quotedFields[column]).arg(first++);
    }
    return condition;
}

void bindIdentity(Query& query, const TableInfo& table, const QVariantList& values, int first) {
    for (const int column : identityColumns(table)) {
        query.Bind(first++, values.value(column));
    }
}

}  // namespace

void RecordsetState::RequireWritable() const {
    RequireOpen();
    if (readOnly || connection->readOnly) {
        throw DaoError(kErrReadOnly, ReadOnlyMessage());
    }
}

QString RecordsetState::ReadOnlyMessage() const {
    if (connection->readOnly) {
        return QStringLiteral(
                   "The database %1 is open for reading only, so table '%2' cannot be "
                   "changed.")
            .arg(NativePath(connection->path), table->name);
    }
    return QStringLiteral("Table '%1' was opened for reading only and cannot be changed.")
        .arg(table->name);
}

void RecordsetState::EndEdit() {
    editMode = dbEditNone;
    buffer.clear();
    assigned.clear();
    if (editLockTicket != 0) {
        const int ticket = editLockTicket;
        editLockTicket = 0;
        if (connection && connection->IsOpen()) {
            connection->ReleaseEditLock(ticket);
        }
    }
}

void RecordsetState::EndEditQuietly() noexcept {
    try {
        EndEdit();
    } catch (...) {
        // Called on close and destruction, where there is no one left to tell;
        // the lock is released all the same.
    }
}

const QVariant& RecordsetState::FieldValue(int ordinal) {
    if (editMode != dbEditNone) {
        RequireOpen();
        return buffer[ordinal];
    }
    RequireOpen();
    Settle();
    RequireCurrentRow();
    return values[ordinal];
}

void RecordsetState::SetFieldValue(int ordinal, const QVariant& value) {
    RequireOpen();
    if (editMode == dbEditNone) {
        throw DaoError(kErrUpdateWithoutEdit,
                       QStringLiteral("%1 can be changed only after Edit or AddNew.")
                           .arg(fieldLabel(*table, ordinal)));
    }
    buffer[ordinal] = convertForField(*table, ordinal, value);
    assigned[ordinal] = true;
}

namespace {

RecordsetState& writableState(const std::unique_ptr<RecordsetState>& state) {
    if (!state) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The recordset is not open."));
    }
    state->RequireWritable();
    // A new row must not shift a position that was left to be read later.
    state->Settle();
    return *state;
}

void beginBuffer(RecordsetState& state, int mode, const QVariantList& start) {
    state.buffer = start;
    state.assigned.assign(state.table->fields.size(), false);
    state.editMode = mode;
}

// The engine gives a new row the number after the highest in its table, so the
// number of a row deleted from the end would come back. The highest number each
// table has given out is kept beside the tables, written with the delete, and a
// new row takes the number after it.
const char* const kRowNumbersTable = "\"Quillon|Row numbers\"";

void keepRowNumber(Connection& connection, const TableInfo& table, qint64 rowid) {
    connection.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (name TEXT PRIMARY KEY, "
                                   "highest INTEGER)")
                        .arg(QLatin1String(kRowNumbersTable)),
                    kErrUpdateLocked);
    Query query(connection,
                QStringLiteral("INSERT INTO %1 (name, highest) VALUES (?1, ?2) ON CONFLICT(name) "
                               "DO UPDATE SET highest = max(highest, excluded.highest)")
                    .arg(QLatin1String(kRowNumbersTable)),
                kErrUpdateLocked);
    query.Bind(1, table.name);
    query.Bind(2, rowid);
    query.Run(tableSubject(table), &table);
}

// The number for a new row when the table has given out higher ones before;
// 0 to let the engine choose.
qint64 nextRowNumber(Connection& connection, const TableInfo& table) {
    const QByteArray sql = QStringLiteral(
                               "SELECT max(highest, (SELECT ifnull(max(rowid), 0) FROM "
                               "%1)) + 1 FROM %2 WHERE name = ?1")
                               .arg(QuotedName(table.name), QLatin1String(kRowNumbersTable))
                               .toUtf8();
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection.db, sql.constData(), -1, &statement, nullptr) != SQLITE_OK) {
        return 0;  // no row was ever deleted from the end of any table
    }
    const QByteArray name = table.name.toUtf8();
    sqlite3_bind_text(statement, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
    const qint64 next =
        sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
    sqlite3_finalize(statement);
    return next;
}

void insertRow(RecordsetState& state) {
    const TableInfo& table = *state.table;
    QStringList names;
    QStringList marks;
    QVariantList binds;
    for (size_t i = 0; i < table.fields.size(); ++i) {
        if (state.assigned[i]) {
            names << table.quotedFields[i];
            marks << QStringLiteral("?");
            binds << state.buffer[int(i)];
        }
    }
    Connection& connection = state.Conn();
    connection.ApplyLockTimeout();
    if (const qint64 rowid = nextRowNumber(connection, table); rowid > 0) {
        names << QStringLiteral("rowid");
        marks << QStringLiteral("?");
        binds << rowid;
    }
    QString sql = QStringLiteral("INSERT INTO ") + QuotedName(table.name);
    sql += names.isEmpty()
               ? QStringLiteral(" DEFAULT VALUES")
               : QStringLiteral(" (%1) VALUES (%2)")
                     .arg(names.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
    Query query(connection, sql, kErrSaveLocked);
    for (int i = 0; i < binds.size(); ++i) {
        query.Bind(i + 1, binds[i]);
    }
    ++connection.writeEpoch;
    query.Run(QStringLiteral("a new row of table '%1'").arg(table.name), &table);
}

// Writes the assigned fields of the edit buffer; false when the row is gone.
bool updateRow(RecordsetState& state) {
    const TableInfo& table = *state.table;
    QStringList sets;
    QVariantList binds;
    for (size_t i = 0; i < table.fields.size(); ++i) {
        if (state.assigned[i]) {
            sets << table.quotedFields[i] + QStringLiteral(" = ?");
            binds << state.buffer[int(i)];
        }
    }
    if (sets.isEmpty()) {
        return true;
    }
    Connection& connection = state.Conn();
    connection.ApplyLockTimeout();
    const int rowidParameter = int(binds.size()) + 1;
    Query query(connection,
                QStringLiteral("UPDATE ") + QuotedName(table.name) + QStringLiteral(" SET ") +
                    sets.join(QStringLiteral(", ")) +
                    QStringLiteral(" WHERE rowid = ?%1").arg(rowidParameter) +
                    identityCondition(table, rowidParameter + 1),
                kErrSaveLocked);
    for (int i = 0; i < binds.size(); ++i) {
        query.Bind(i + 1, binds[i]);
    }
    query.Bind(rowidParameter, state.rowid);
    bindIdentity(query, table, state.values, rowidParameter + 1);
    ++connection.writeEpoch;
    query.Run(tableSubject(table), &table);
    return sqlite3_changes(connection.db) > 0;
}

[[noreturn]] void throwRowGone(const RecordsetState& state) {
    throw DaoError(kErrRecordDeleted,
                   QStringLiteral("The current row of table '%1' has been deleted by another user.")
                       .arg(state.table->name));
}

}  // namespace

QString Field::Name() const {
    return state_->table->fields[ordinal_].name;
}

DataType Field::Type() const {
    return state_->table->fields[ordinal_].type;
}

int Field::Size() const {
    const FieldDef& field = state_->table->fields[ordinal_];
    return field.type == dbText ? field.size : 0;
}

const QVariant& Field::Value() const {
    return state_->FieldValue(ordinal_);
}

void Field::SetValue(const QVariant& value) {
    state_->SetFieldValue(ordinal_, value);
}

void Recordset::Edit() {
    RecordsetState& state = writableState(state_);
    state.RequireCurrentRow();
    state.EndEdit();
    state.editLockTicket = state.Conn().AcquireEditLock();
    const QVariantList read = state.values;
    bool present = false;
    try {
        // The row may have changed while we waited for the lock, or been
        // deleted and its number given to another row.
        present = state.RereadCurrentRow() && sameIdentity(*state.table, read, state.values);
    } catch (...) {
        state.EndEditQuietly();
        throw;
    }
    if (!present) {
        state.values = read;
        state.hasRow = false;
        state.EndEdit();
        throwRowGone(state);
    }
    beginBuffer(state, dbEditInProgress, state.values);
}

void Recordset::AddNew() {
    RecordsetState& state = writableState(state_);
    state.EndEdit();
    QVariantList empty;
    for (size_t i = 0; i < state.table->fields.size(); ++i) {
        empty << QVariant();
    }
    beginBuffer(state, dbEditAdd, empty);
}

void Recordset::Update() {
    RecordsetState& state = writableState(state_);
    if (state.editMode == dbEditNone) {
        throw DaoError(kErrUpdateWithoutEdit,
                       QStringLiteral("Update on table '%1' needs Edit or AddNew first.")
                           .arg(state.table->name));
    }
    if (state.editMode == dbEditAdd) {
        insertRow(state);  // on failure the new row stays pending, to be fixed or cancelled
        state.EndEdit();
        return;
    }
    if (!updateRow(state)) {
        state.EndEdit();
        throwRowGone(state);
    }
    // The row now holds what was read at Edit with the assignments: nothing is
    // read back after the commit, where a failure would call a saved change
    // unsaved.
    state.values = state.buffer;
    state.EndEdit();  // commits the Edit's own transaction
}

void Recordset::CancelUpdate() {
    if (state_ && !state_->closed) {
        state_->EndEdit();
    }
}

int Recordset::GetEditMode() const {
    return state_ ? state_->editMode : int(dbEditNone);
}

void Recordset::Delete() {
    RecordsetState& state = writableState(state_);
    state.RequireCurrentRow();
    state.EndEdit();
    const TableInfo& table = *state.table;
    Connection& connection = state.Conn();
    connection.ApplyLockTimeout();
    // The row and the note of its number go together, or neither does.
    connection.Exec(QStringLiteral("SAVEPOINT row_delete"), kErrUpdateLocked);
    try {
        Query query(connection,
                    QStringLiteral("DELETE FROM ") + QuotedName(table.name) +
                        QStringLiteral(" WHERE rowid = ?1") + identityCondition(table, 2),
                    kErrUpdateLocked);
        query.Bind(1, state.rowid);
        bindIdentity(query, table, state.values, 2);
        ++connection.writeEpoch;
        query.Run(tableSubject(table), &table);
        // The deleted row's keys stay as the cursor, so that a move goes on from there.
        state.hasRow = false;
        if (sqlite3_changes(connection.db) == 0) {
            throwRowGone(state);
        }
        keepRowNumber(connection, table, state.rowid);
        connection.Exec(QStringLiteral("RELEASE row_delete"), kErrUpdateLocked);
    } catch (...) {
        sqlite3_exec(connection.db, "ROLLBACK TO row_delete; RELEASE row_delete", nullptr, nullptr,
                     nullptr);
        throw;
    }
}

}  // namespace quillon::dao
