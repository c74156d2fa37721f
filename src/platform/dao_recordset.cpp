// Positioning of table recordsets. The recordset keeps only the current row's
// key values and rowid; every move is one or a few indexed queries for the
// nearest row beyond that key, so that nothing depends on the table's size.

#include <algorithm>
#include <optional>

#include "platform/dao_internal.h"

namespace quillon::dao {

namespace {

enum class Direction { Forward, Backward };

// How many rows a MoveNext reads at once, and how long those read ahead may
// stand for the file's contents before they are read again.
constexpr int kRowsReadAhead = 32;
constexpr int kMostRowsReadAhead = 1024;
constexpr std::chrono::milliseconds kReadAheadLifetime{500};

std::vector<int> keyColumns(const RecordsetState& state) {
    return state.index ? state.index->columns : std::vector<int>{};
}

QString orderBy(const RecordsetState& state, Direction direction) {
    const QString suffix = direction == Direction::Backward ? QStringLiteral(" DESC") : QString();
    QStringList parts;
    for (int column : keyColumns(state)) {
        parts << state.table->quotedFields[column] + suffix;
    }
    parts << QStringLiteral("rowid") + suffix;
    return parts.join(QStringLiteral(", "));
}

QString selectSql(const RecordsetState& state, const QStringList& where, Direction direction) {
    QString sql = QStringLiteral("SELECT rowid, * FROM ") + QuotedName(state.table->name);
    if (!where.isEmpty()) {
        sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    }
    return sql + QStringLiteral(" ORDER BY ") + orderBy(state, direction) +
           QStringLiteral(" LIMIT 1");
}

// Reads every row that `sql` selects into the rows ahead.
void readRows(RecordsetState& state, const QString& sql, const QVariantList& binds) {
    Query query(state.Conn(), sql);
    for (int i = 0; i < binds.size(); ++i) {
        query.Bind(i + 1, binds[i]);
    }
    while (query.Step(QString(), state.table.get())) {
        state.StoreRowAhead(query.Statement());
    }
}

// Stands on the first of the rows just read, the others staying ahead; false
// when there is none.
bool standOnFirstRowRead(RecordsetState& state) {
    if (state.ahead.empty()) {
        return false;
    }
    state.TakeNextRowAhead();
    state.aheadEpoch = state.connection->writeEpoch;
    state.aheadReadAt = std::chrono::steady_clock::now();
    state.aheadTakenSinceCheck = 0;
    return true;
}

// Reads the first row that `sql` selects; false when there is none. Further
// rows that it selects are kept as the rows ahead.
bool fetchWith(RecordsetState& state, const QString& sql, const QVariantList& binds) {
    state.ahead.clear();
    readRows(state, sql, binds);
    return standOnFirstRowRead(state);
}

bool fetchRow(RecordsetState& state, const QStringList& where, const QVariantList& binds,
              Direction direction) {
    return fetchWith(state, selectSql(state, where, direction), binds);
}

// Conditions that the first `count` key fields equal `keys`.
void equalPrefix(const RecordsetState& state, const QVariantList& keys, int count,
                 QStringList& where, QVariantList& binds) {
    const std::vector<int> columns = keyColumns(state);
    for (int i = 0; i < count; ++i) {
        const QString& field = state.table->quotedFields[columns[i]];
        if (keys[i].isNull()) {
            where << field + QStringLiteral(" IS NULL");
        } else {
            where << field + QStringLiteral(" = ?");
            binds << keys[i];
        }
    }
}

bool allPresent(const QVariantList& keys) {
    for (const QVariant& key : keys) {
        if (key.isNull()) {
            return false;
        }
    }
    return true;
}

QString keyCondition(const RecordsetState& state, int level, const QString& comparison) {
    return state.table->quotedFields[keyColumns(state)[level]] + comparison;
}

int growReadAhead(RecordsetState& state) {
    state.readAhead =
        state.readAhead == 0 ? kRowsReadAhead : std::min(state.readAhead * 2, kMostRowsReadAhead);
    return state.readAhead;
}

// A step of a walk in the table's stored order, reading rows ahead as below.
bool fetchStepInStoredOrder(RecordsetState& state, qint64 rowid) {
    constexpr int kStoredStepShape = -5;
    QString& sql = state.sqlByShape[kStoredStepShape];
    if (sql.isEmpty()) {
        sql = selectSql(state, {QStringLiteral("rowid > ?1")}, Direction::Forward);
        sql.replace(QStringLiteral(" LIMIT 1"), QStringLiteral(" LIMIT ?2"));
    }
    state.ahead.clear();
    readRows(state, sql, {rowid, growReadAhead(state)});
    return standOnFirstRowRead(state);
}

// A forward step of a walk from a row with all its keys, reading rows ahead:
// more at each step, up to a limit. The rows that share the row's first key
// come from a query of their own, and the rest from one that the index alone
// bounds, so that the engine compares no key of the many rows it passes on.
bool fetchStepForward(RecordsetState& state, const QVariantList& keys, qint64 rowid) {
    constexpr int kSameFirstKey = -3;
    constexpr int kBeyondFirstKey = -4;
    QString& sameFirst = state.sqlByShape[kSameFirstKey];
    QString& beyondFirst = state.sqlByShape[kBeyondFirstKey];
    const int count = int(keys.size());
    if (sameFirst.isEmpty()) {
        QStringList rest;
        for (int i = 1; i < count; ++i) {
            rest << state.table->quotedFields[keyColumns(state)[i]];
        }
        rest << QStringLiteral("rowid");
        QStringList marks;
        for (int i = 2; i <= count + 1; ++i) {
            marks << QStringLiteral("?%1").arg(i);
        }
        const QString tail = QLatin1Char('(') + rest.join(QStringLiteral(", ")) +
                             QStringLiteral(") > (") + marks.join(QStringLiteral(", ")) +
                             QLatin1Char(')');
        sameFirst = selectSql(state, {keyCondition(state, 0, QStringLiteral(" = ?1")), tail},
                              Direction::Forward);
        sameFirst.replace(QStringLiteral(" LIMIT 1"), QStringLiteral(" LIMIT ?%1").arg(count + 2));
        beyondFirst =
            selectSql(state, {keyCondition(state, 0, QStringLiteral(" > ?1"))}, Direction::Forward);
        beyondFirst.replace(QStringLiteral(" LIMIT 1"), QStringLiteral(" LIMIT ?2"));
    }
    growReadAhead(state);
    state.ahead.clear();
    readRows(state, sameFirst, keys + QVariantList{rowid, state.readAhead});
    const int wanted = state.readAhead - int(state.ahead.rowids.size());
    if (wanted > 0) {
        readRows(state, beyondFirst, {keys[0], wanted});
    }
    return standOnFirstRowRead(state);
}

// One query for a seek forward from non-Null keys: the row value comparison
// uses the index directly, and rows with Null keys, which sort first, are
// rightly left out.
bool fetchForwardByRowValue(RecordsetState& state, const QVariantList& keys, bool inclusive) {
    const int shape = int(keys.size()) * 4 + (inclusive ? 2 : 0);
    QString& sql = state.sqlByShape[shape];
    if (sql.isEmpty()) {
        QStringList left;
        for (int i = 0; i < keys.size(); ++i) {
            left << state.table->quotedFields[keyColumns(state)[i]];
        }
        const QString condition =
            QLatin1Char('(') + left.join(QStringLiteral(", ")) + QLatin1Char(')') +
            (inclusive ? QStringLiteral(" >= ") : QStringLiteral(" > ")) + QLatin1Char('(') +
            QStringList(left.size(), QStringLiteral("?")).join(QLatin1Char(',')) + QLatin1Char(')');
        sql = selectSql(state, {condition}, Direction::Forward);
    }
    state.readAhead = 0;
    return fetchWith(state, sql, keys);
}

// Finds the nearest row beyond the boundary `keys` (the first keys.size() key
// fields) in `direction`. With `rowid` the boundary is one row and the rowid
// breaks ties of equal keys; with `inclusive` rows whose keys equal `keys`
// count as beyond it. Null sorts before any value, as it does in the index.
bool fetchBeyond(RecordsetState& state, const QVariantList& keys, std::optional<qint64> rowid,
                 Direction direction, bool inclusive) {
    if (direction == Direction::Forward && allPresent(keys)) {
        if (rowid) {
            return keys.isEmpty() ? fetchStepInStoredOrder(state, *rowid)
                                  : fetchStepForward(state, keys, *rowid);
        }
        if (!keys.isEmpty()) {
            return fetchForwardByRowValue(state, keys, inclusive);
        }
    }
    const std::vector<int> columns = keyColumns(state);
    const bool forward = direction == Direction::Forward;
    if (rowid || inclusive) {
        QStringList where;
        QVariantList binds;
        equalPrefix(state, keys, int(keys.size()), where, binds);
        if (rowid) {
            where << (forward ? QStringLiteral("rowid > ?") : QStringLiteral("rowid < ?"));
            binds << *rowid;
        }
        if (fetchRow(state, where, binds, direction)) {
            return true;
        }
    }
    for (int level = int(keys.size()) - 1; level >= 0; --level) {
        QStringList where;
        QVariantList binds;
        equalPrefix(state, keys, level, where, binds);
        const QString& field = state.table->quotedFields[columns[level]];
        if (forward) {
            if (keys[level].isNull()) {
                where << field + QStringLiteral(" IS NOT NULL");
            } else {
                where << field + QStringLiteral(" > ?");
                binds << keys[level];
            }
            if (fetchRow(state, where, binds, direction)) {
                return true;
            }
            continue;
        }
        if (keys[level].isNull()) {
            continue;  // nothing sorts before Null
        }
        QStringList below = where;
        below << field + QStringLiteral(" < ?");
        if (fetchRow(state, below, binds + QVariantList{keys[level]}, direction)) {
            return true;
        }
        where << field + QStringLiteral(" IS NULL");
        if (fetchRow(state, where, binds, direction)) {
            return true;
        }
    }
    return false;
}

bool fetchEnd(RecordsetState& state, Direction direction) {
    QString& sql = state.sqlByShape[direction == Direction::Forward ? -1 : -2];
    if (sql.isEmpty()) {
        sql = selectSql(state, {}, direction);
    }
    return fetchWith(state, sql, {});
}

}  // namespace

Connection& RecordsetState::Conn() const {
    RequireOpen();
    return *connection;
}

void RecordsetState::ThrowClosed() const {
    throw DaoError(kErrObjectInvalid, QStringLiteral("The recordset of table '%1' is closed.")
                                          .arg(table ? table->name : QString()));
}

void RecordsetState::ThrowNoCurrentRow() const {
    throw DaoError(kErrNoCurrentRecord,
                   QStringLiteral("There is no current row in table '%1'.").arg(table->name));
}

QVariantList RecordsetState::RowValues(sqlite3_stmt* statement) const {
    const int available = sqlite3_column_count(statement) - 1;
    const int count = int(table->fields.size());
    QVariantList row;
    row.reserve(count);
    for (int i = 0; i < count; ++i) {
        row.emplaceBack(i < available ? ColumnValue(statement, i + 1, table->fields[i].type)
                                      : QVariant());
    }
    return row;
}

void RecordsetState::StoreRowAhead(sqlite3_stmt* statement) {
    ahead.rowids.push_back(sqlite3_column_int64(statement, 0));
    const int available = sqlite3_column_count(statement) - 1;
    const int count = int(table->fields.size());
    for (int i = 0; i < count; ++i) {
        ahead.cells.push_back(
            i < available ? StoreColumn(statement, i + 1, table->fields[i].type, ahead.texts)
                          : StoredCell());
    }
}

bool RecordsetState::TakeRowAhead() {
    // The clock is asked every few rows: a row taken a moment past the
    // lifetime is no staler than the one read just before it.
    constexpr int kTakesBetweenClockChecks = 16;
    bool stale = ahead.empty() || aheadEpoch != connection->writeEpoch;
    if (!stale && ++aheadTakenSinceCheck >= kTakesBetweenClockChecks) {
        aheadTakenSinceCheck = 0;
        stale = std::chrono::steady_clock::now() - aheadReadAt > kReadAheadLifetime;
    }
    if (stale) {
        ahead.clear();
        return false;
    }
    TakeNextRowAhead();
    return true;
}

void RecordsetState::TakeNextRowAhead() {
    const qsizetype width = qsizetype(table->fields.size());
    if (values.size() != width) {
        values.resize(width);
    }
    const StoredCell* cell = ahead.cells.data() + qsizetype(ahead.next) * width;
    const FieldDef* field = table->fields.data();
    for (QVariant& value : values) {
        value = StoredValue(*cell++, (field++)->type, ahead.texts);
    }
    rowid = ahead.rowids[ahead.next++];
    StandOnRow();
}

void RecordsetState::StandOnRow() {
    startPending = false;
    hasRow = true;
    cursorValid = true;
    bof = false;
    eof = false;
}

void RecordsetState::TakeRow(sqlite3_stmt* statement) {
    rowid = sqlite3_column_int64(statement, 0);
    values = RowValues(statement);
    StandOnRow();
}

void RecordsetState::SetBeforeFirst(bool emptyToo) {
    ahead.clear();
    startPending = false;
    hasRow = false;
    cursorValid = false;
    bof = true;
    eof = emptyToo;
}

void RecordsetState::SetAfterLast(bool emptyToo) {
    ahead.clear();
    startPending = false;
    hasRow = false;
    cursorValid = false;
    eof = true;
    bof = emptyToo;
}

void RecordsetState::SetNowhere() {
    ahead.clear();
    startPending = false;
    hasRow = false;
    cursorValid = false;
    bof = false;
    eof = false;
}

QVariantList RecordsetState::KeyValues() const {
    QVariantList keys;
    for (int column : keyColumns(*this)) {
        keys << values[column];
    }
    return keys;
}

void RecordsetState::Start() {
    startPending = false;
    noMatch = false;
    if (!fetchEnd(*this, Direction::Forward)) {
        SetBeforeFirst(true);
    }
}

bool RecordsetState::RereadCurrentRow() {
    Query query(Conn(), QStringLiteral("SELECT rowid, * FROM ") + QuotedName(table->name) +
                            QStringLiteral(" WHERE rowid = ?1"));
    query.Bind(1, rowid);
    if (!query.Step(QString(), table.get())) {
        hasRow = false;
        return false;
    }
    TakeRow(query.Statement());
    return true;
}

namespace {

// The open recordset; `settle` stands it on its first row if it was left for later.
RecordsetState& openState(const std::unique_ptr<RecordsetState>& state, bool settle = true) {
    if (!state) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The recordset is not open."));
    }
    state->RequireOpen();
    if (settle) {
        state->Settle();
    }
    return *state;
}

// A move abandons a pending Edit or AddNew, as it always has.
// `fromHere` tells a move that starts from the current position from one
// that sets a new position, which needs no start.
RecordsetState& stateForMove(const std::unique_ptr<RecordsetState>& state, bool fromHere) {
    RecordsetState& s = openState(state, fromHere);
    s.EndEdit();
    s.noMatch = false;
    return s;
}

[[noreturn]] void throwNoCurrentRow(const RecordsetState& state) {
    throw DaoError(kErrNoCurrentRecord,
                   QStringLiteral("There is no current row in table '%1' to move from.")
                       .arg(state.table->name));
}

void moveToEnd(RecordsetState& state, Direction direction) {
    if (fetchEnd(state, direction)) {
        return;
    }
    state.SetBeforeFirst(true);
    throw DaoError(kErrNoCurrentRecord,
                   QStringLiteral("Table '%1' has no rows to move to.").arg(state.table->name));
}

}  // namespace

Recordset::Recordset() = default;
Recordset::Recordset(std::unique_ptr<RecordsetState> state) : state_(std::move(state)) {}
Recordset::Recordset(Recordset&&) noexcept = default;

Recordset& Recordset::operator=(Recordset&& other) noexcept {
    if (this != &other) {
        if (state_) {
            state_->EndEditQuietly();
        }
        state_ = std::move(other.state_);
    }
    return *this;
}

Recordset::~Recordset() {
    if (state_) {
        state_->EndEditQuietly();
    }
}

QString Recordset::Name() const {
    return state_ && state_->table ? state_->table->name : QString();
}

bool Recordset::IsOpen() const {
    return state_ && !state_->closed && state_->connection && state_->connection->IsOpen();
}

void Recordset::Close() {
    if (!state_ || state_->closed) {
        return;
    }
    state_->EndEditQuietly();
    state_->closed = true;
}

void Recordset::SetIndex(const QString& indexName) {
    RecordsetState& state = stateForMove(state_, false);
    if (indexName.isEmpty()) {
        state.index = nullptr;
    } else {
        const IndexInfo* index = state.table->FindIndex(indexName);
        if (index == nullptr) {
            throw DaoError(
                kErrItemNotFound,
                QStringLiteral("Table '%1' has no index '%2'.").arg(state.table->name, indexName));
        }
        state.index = index;
    }
    state.sqlByShape.clear();
    state.ahead.clear();
    state.hasRow = false;
    state.startPending = true;
}

QString Recordset::Index() const {
    return state_ && state_->index ? state_->index->name : QString();
}

void Recordset::Seek(const QString& comparison, const QVariantList& keys) {
    RecordsetState& state = stateForMove(state_, false);
    if (state.index == nullptr) {
        throw DaoError(kErrIndexNotSet,
                       QStringLiteral("Seek on table '%1' needs an index to be set first.")
                           .arg(state.table->name));
    }
    if (keys.isEmpty() || keys.size() > qsizetype(state.index->columns.size())) {
        throw DaoError(
            kErrInvalidArgument,
            QStringLiteral("Seek on index '%1' of table '%2' takes 1 to %3 keys, not %4.")
                .arg(state.index->name, state.table->name)
                .arg(state.index->columns.size())
                .arg(keys.size()));
    }
    const QString op = comparison.trimmed();
    bool found = false;
    if (op == QLatin1String("=")) {
        QStringList where;
        QVariantList binds;
        equalPrefix(state, keys, int(keys.size()), where, binds);
        found = fetchRow(state, where, binds, Direction::Forward);
    } else if (op == QLatin1String(">=") || op == QLatin1String(">")) {
        found =
            fetchBeyond(state, keys, std::nullopt, Direction::Forward, op == QLatin1String(">="));
    } else if (op == QLatin1String("<=") || op == QLatin1String("<")) {
        found =
            fetchBeyond(state, keys, std::nullopt, Direction::Backward, op == QLatin1String("<="));
    } else {
        throw DaoError(kErrInvalidArgument,
                       QStringLiteral("Seek does not know the comparison \"%1\".").arg(comparison));
    }
    state.noMatch = !found;
    if (!found) {
        state.SetNowhere();
    }
}

bool Recordset::NoMatch() const {
    return openState(state_).noMatch;
}

bool Recordset::BOF() const {
    return openState(state_).bof;
}

bool Recordset::IsEOF() const {
    return openState(state_).eof;
}

void Recordset::MoveFirst() {
    moveToEnd(stateForMove(state_, false), Direction::Forward);
}

void Recordset::MoveLast() {
    moveToEnd(stateForMove(state_, false), Direction::Backward);
}

void Recordset::MoveNext() {
    RecordsetState& state = stateForMove(state_, true);
    if (state.eof) {
        throwNoCurrentRow(state);
    }
    if (state.hasRow && state.TakeRowAhead()) {
        return;
    }
    if (state.cursorValid) {
        if (!fetchBeyond(state, state.KeyValues(), state.rowid, Direction::Forward, false)) {
            state.SetAfterLast(false);
        }
    } else if (state.bof) {
        if (!fetchEnd(state, Direction::Forward)) {
            state.SetAfterLast(true);
        }
    } else {
        throwNoCurrentRow(state);
    }
}

void Recordset::MovePrevious() {
    RecordsetState& state = stateForMove(state_, true);
    if (state.bof) {
        throwNoCurrentRow(state);
    }
    if (state.cursorValid) {
        if (!fetchBeyond(state, state.KeyValues(), state.rowid, Direction::Backward, false)) {
            state.SetBeforeFirst(false);
        }
    } else if (state.eof) {
        if (!fetchEnd(state, Direction::Backward)) {
            state.SetBeforeFirst(true);
        }
    } else {
        throwNoCurrentRow(state);
    }
}

int Recordset::FieldCount() const {
    return int(openState(state_, false).table->fields.size());
}

Field Recordset::Fields(const QString& name) const {
    RecordsetState& state = openState(state_);
    const int ordinal = state.table->FieldOrdinal(name);
    if (ordinal < 0) {
        throw DaoError(
            kErrItemNotFound,
            QStringLiteral("Table '%1' has no field '%2'.").arg(state.table->name, name));
    }
    return Field(&state, ordinal);
}

Field Recordset::Fields(int ordinal) const {
    RecordsetState& state = openState(state_);
    if (ordinal < 0 || ordinal >= int(state.table->fields.size())) {
        throw DaoError(kErrItemNotFound, QStringLiteral("Table '%1' has no field number %2.")
                                             .arg(state.table->name)
                                             .arg(ordinal));
    }
    return Field(&state, ordinal);
}

long Recordset::RecordCount() const {
    RecordsetState& state = openState(state_, false);
    Query query(state.Conn(),
                QStringLiteral("SELECT count(*) FROM ") + QuotedName(state.table->name));
    return query.Step() ? long(sqlite3_column_int64(query.Statement(), 0)) : 0;
}

}  // namespace quillon::dao
