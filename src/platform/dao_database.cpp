#include <QFileInfo>
#include <QMutex>

#include <algorithm>

#include "platform/dao_internal.h"

namespace quillon::dao {

namespace {

void checkPathBeforeOpen(const QString& path) {
    const QFileInfo file(path);
    if (!QFileInfo(file.absolutePath()).isDir()) {
        throw DaoError(kErrInvalidPath, QStringLiteral("The folder %1 of the database does not "
                                                       "exist.")
                                            .arg(NativePath(file.absolutePath())));
    }
    if (!file.exists()) {
        throw DaoError(
            kErrFileNotFound,
            QStringLiteral("The database file %1 could not be found.").arg(NativePath(path)));
    }
    if (file.isDir() || !file.isReadable()) {
        throw DaoError(kErrCannotOpen,
                       QStringLiteral("The database file %1 cannot be opened: it is "
                                      "a folder or you may not read it.")
                           .arg(NativePath(path)));
    }
}

void loadFields(Connection& connection, TableInfo& table) {
    Query query(connection,
                QStringLiteral("SELECT name, type FROM pragma_table_info(?1) ORDER BY cid"));
    query.Bind(1, table.name);
    while (query.Step()) {
        const QString name = QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(query.Statement(), 0)));
        const QString type = QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(query.Statement(), 1)));
        table.ordinalByName.insert(name.toCaseFolded(), int(table.fields.size()));
        table.fields.push_back(FieldFromDeclaredType(name, type));
        table.quotedFields.push_back(QuotedName(name));
    }
}

std::vector<int> indexColumns(Connection& connection, const QString& sqlName) {
    Query query(connection, QStringLiteral("SELECT cid FROM pragma_index_info(?1) ORDER BY seqno"));
    query.Bind(1, sqlName);
    std::vector<int> columns;
    while (query.Step()) {
        columns.push_back(sqlite3_column_int(query.Statement(), 0));
    }
    return columns;
}

void loadIndexes(Connection& connection, TableInfo& table) {
    Query query(connection,
                QStringLiteral("SELECT name, \"unique\" FROM pragma_index_list(?1) ORDER BY name"));
    query.Bind(1, table.name);
    const QString prefix = table.name + QLatin1Char('|');
    std::vector<std::pair<QString, bool>> found;
    while (query.Step()) {
        const QString name = QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(query.Statement(), 0)));
        if (name.startsWith(prefix, Qt::CaseInsensitive)) {
            found.emplace_back(name, sqlite3_column_int(query.Statement(), 1) != 0);
        }
    }
    for (const auto& [sqlName, unique] : found) {
        IndexInfo index{sqlName.mid(prefix.size()), indexColumns(connection, sqlName), unique};
        if (!index.columns.empty()) {
            table.indexes.push_back(std::move(index));
        }
    }
}

// Text compares without regard to case in every language, not in English
// alone: "Émile" and "émile" are one name. Texts in plain ASCII, nearly all,
// compare as the engine's own NOCASE does, without making a copy.
int CompareFolded(void*, int leftSize, const void* left, int rightSize, const void* right) {
    const auto* a = static_cast<const unsigned char*>(left);
    const auto* b = static_cast<const unsigned char*>(right);
    const int common = std::min(leftSize, rightSize);
    int i = 0;
    const auto fold = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c | 0x20 : c; };
    for (; i < common && a[i] < 0x80 && b[i] < 0x80; ++i) {
        const int ca = fold(a[i]);
        const int cb = fold(b[i]);
        if (ca != cb) {
            return ca - cb;
        }
    }
    if (i == common) {
        return leftSize - rightSize;
    }
    const QByteArray foldedA = QString::fromUtf8(reinterpret_cast<const char*>(a + i), leftSize - i)
                                   .toCaseFolded()
                                   .toUtf8();
    const QByteArray foldedB =
        QString::fromUtf8(reinterpret_cast<const char*>(b + i), rightSize - i)
            .toCaseFolded()
            .toUtf8();
    return foldedA.compare(foldedB);
}

}  // namespace

void UseProgramCollation(sqlite3* db) {
    sqlite3_create_collation_v2(db, "NOCASE", SQLITE_UTF8, nullptr, CompareFolded, nullptr);
}

std::shared_ptr<Connection> OpenConnection(const QString& path, bool readOnly) {
    checkPathBeforeOpen(path);
    auto connection = std::make_shared<Connection>();
    connection->path = path;
    // Opened for writing even when only reading is asked for, so that a
    // journal left by a crashed user can be rolled back; query_only below
    // keeps such a connection from writing.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &connection->db, flags, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3* failed = connection->db;
        connection->db = nullptr;
        const QString text =
            QString::fromUtf8(failed ? sqlite3_errmsg(failed) : sqlite3_errstr(rc));
        sqlite3_close_v2(failed);
        throw DaoError(kErrCannotOpen, QStringLiteral("The database file %1 cannot be opened (%2).")
                                           .arg(NativePath(path), text));
    }
    sqlite3_extended_result_codes(connection->db, 1);
    // A shared file is not trusted: it can't change the engine's own records,
    // and what it stores can't call functions with effects beyond the file.
    sqlite3_db_config(connection->db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection->db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    UseProgramCollation(connection->db);
    // A write-protected file opens for reading only; writes then fail plainly.
    connection->readOnly = readOnly || sqlite3_db_readonly(connection->db, "main") == 1;
    if (readOnly) {
        sqlite3_exec(connection->db, "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
    }
    connection->ApplyLockTimeout();
    // NORMAL still syncs the journal before the file is changed and the file
    // before the journal goes, so a commit survives a crash; FULL's extra
    // journal sync roughly doubles the cost of every commit on a slow disk.
    sqlite3_exec(connection->db, "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr);
    return connection;
}

void VerifyDatabaseFile(Connection& connection) {
    // Reading the schema finds a foreign or damaged header; comparing the
    // size the header claims with the file's finds a truncated file. While the
    // statement stands on its row it holds a read lock, so no commit of
    // another user can change either in between.
    Query query(connection,
                QStringLiteral("SELECT (SELECT count(*) FROM sqlite_master), page_count, page_size "
                               "FROM pragma_page_count(), pragma_page_size()"),
                kErrCannotOpen);
    const bool read = query.Step();
    const qint64 pages = read ? sqlite3_column_int64(query.Statement(), 1) : 0;
    const qint64 pageSize = read ? sqlite3_column_int64(query.Statement(), 2) : 0;
    if (pages == 0 || QFileInfo(connection.path).size() < pages * pageSize) {
        throw DaoError(kErrDamaged, QStringLiteral("The file %1 is damaged or is not a database.")
                                        .arg(NativePath(connection.path)));
    }
}

namespace {

// The statements that declare a table and its indexes, which fix its layout.
// Empty when there is no such table; `actualName` gets the name as declared.
QString declarationOf(Connection& connection, const QString& tableName, QString& actualName) {
    Query query(connection, QStringLiteral("SELECT type, name, sql FROM sqlite_master WHERE "
                                           "tbl_name = ?1 COLLATE NOCASE AND name NOT LIKE "
                                           "'sqlite%' ORDER BY type DESC, name"));
    query.Bind(1, tableName);
    QString declaration;
    while (query.Step()) {
        sqlite3_stmt* row = query.Statement();
        const QString type =
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)));
        const QString name =
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, 1)));
        if (type == QLatin1String("table")) {
            actualName = name;
        }
        declaration +=
            type + QChar(0x1F) + name + QChar(0x1F) +
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, 2))) +
            QChar(0x1E);
    }
    return actualName.isEmpty() ? QString() : declaration;
}

// Tables already read, by declaration: every file that declares a table the
// same way lays it out the same way, so the metadata is read once per process.
std::shared_ptr<const TableInfo> knownLayout(const QString& declaration,
                                             std::shared_ptr<const TableInfo> learnt = nullptr) {
    static QMutex mutex;
    static QHash<QString, std::shared_ptr<const TableInfo>> layouts;
    QMutexLocker lock(&mutex);
    if (learnt) {
        if (layouts.size() > 1000) {
            layouts.clear();
        }
        layouts.insert(declaration, learnt);
        return learnt;
    }
    return layouts.value(declaration);
}

}  // namespace

std::shared_ptr<const TableInfo> Connection::Table(const QString& tableName) {
    RequireOpen();
    const QString key = tableName.toCaseFolded();
    if (auto cached = tables.value(key)) {
        return cached;
    }
    QString actualName;
    const QString declaration = declarationOf(*this, tableName, actualName);
    if (declaration.isEmpty()) {
        throw DaoError(kErrTableNotFound,
                       QStringLiteral("The table '%1' does not exist in the database %2.")
                           .arg(tableName, NativePath(path)));
    }
    std::shared_ptr<const TableInfo> known = knownLayout(declaration);
    if (!known) {
        auto table = std::make_shared<TableInfo>();
        table->name = actualName;
        loadFields(*this, *table);
        loadIndexes(*this, *table);
        known = knownLayout(declaration, table);
    }
    tables.insert(key, known);
    return known;
}

Database::Database() = default;
Database::Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}
Database::Database(Database&&) noexcept = default;

Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        Close();
        connection_ = std::move(other.connection_);
    }
    return *this;
}

Database::~Database() {
    Close();
}

Database OpenDatabase(const QString& path, bool exclusive, bool readOnly) {
    auto connection = OpenConnection(path, readOnly);
    VerifyDatabaseFile(*connection);
    if (exclusive) {
        // Holds the file's lock from the first write to the close.
        connection->Exec(QStringLiteral("PRAGMA locking_mode = EXCLUSIVE"), kErrCannotOpen);
        connection->Exec(QStringLiteral("BEGIN EXCLUSIVE"), kErrCannotOpen);
        connection->Exec(QStringLiteral("COMMIT"), kErrCannotOpen);
    }
    return Database(std::move(connection));
}

QString Database::Name() const {
    return connection_ ? connection_->path : QString();
}

bool Database::IsOpen() const {
    return connection_ && connection_->IsOpen();
}

void Database::Close() {
    if (connection_) {
        connection_->Close();
    }
}

QStringList Database::TableNames() const {
    if (!connection_) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The database is not open."));
    }
    Query query(*connection_,
                QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                               "LIKE 'sqlite%' AND name NOT LIKE '%|%' ORDER BY name"));
    QStringList names;
    while (query.Step()) {
        names << QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(query.Statement(), 0)));
    }
    return names;
}

Recordset Database::OpenRecordset(const QString& tableName, int type, int options) {
    if (!connection_) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The database is not open."));
    }
    connection_->RequireOpen();
    if (type != dbOpenTable) {
        throw DaoError(
            kErrInvalidArgument,
            QStringLiteral("Only table recordsets can be opened (type %1 was asked for).")
                .arg(type));
    }
    auto state = std::make_unique<RecordsetState>();
    state->connection = connection_;
    state->table = connection_->Table(tableName);
    state->readOnly = (options & dbReadOnly) != 0;
    state->startPending = true;
    return Recordset(std::move(state));
}

void Database::Execute(const QString& sql) {
    if (!connection_) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The database is not open."));
    }
    connection_->RequireOpen();
    connection_->ApplyLockTimeout();
    ++connection_->writeEpoch;
    sqlite3* db = connection_->db;
    const QByteArray text = sql.toUtf8();
    const char* next = text.constData();
    while (next && *next) {
        sqlite3_stmt* statement = nullptr;
        int rc = sqlite3_prepare_v2(db, next, -1, &statement, &next);
        if (rc != SQLITE_OK) {
            const QString reason = QString::fromUtf8(sqlite3_errmsg(db));
            throw DaoError(kErrSyntax,
                           QStringLiteral("The statement \"%1\" cannot be run on %2: %3.")
                               .arg(sql, NativePath(connection_->path), reason));
        }
        while (statement && (rc = sqlite3_step(statement)) == SQLITE_ROW) {
        }
        sqlite3_finalize(statement);
        if (statement && rc != SQLITE_DONE) {
            connection_->ForgetTables();
            ThrowEngineError(db, rc, kErrUpdateLocked, connection_->path,
                             QStringLiteral("the statement \"%1\"").arg(sql));
        }
    }
    // The statement may have changed a table's layout.
    connection_->ForgetTables();
}

void Database::BeginTrans() {
    if (!connection_) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The database is not open."));
    }
    Connection& connection = *connection_;
    connection.RequireOpen();
    if (connection.userTransactionDepth > 0) {
        connection.Exec(QStringLiteral("SAVEPOINT level%1").arg(connection.userTransactionDepth),
                        kErrUpdateLocked);
    } else if (connection.lockTransaction) {
        // The pending Edit's transaction becomes the caller's.
        connection.ForgetEditLock();
    } else {
        connection.ApplyLockTimeout();
        connection.Exec(
            connection.readOnly ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"),
            kErrUpdateLocked);
    }
    ++connection.userTransactionDepth;
}

void Database::CommitTrans() {
    if (!connection_) {
        throw DaoError(kErrObjectInvalid, QStringLiteral("The database is not open."));
    }
    Connection& connection = *connection_;
    connection.RequireOpen();
    if (connection.userTransactionDepth == 0) {
        throw DaoError(kErrNoTransaction, QStringLiteral("There is no transaction to commit on %1.")
                                              .arg(NativePath(connection.path)));
    }
    if (connection.userTransactionDepth > 1) {
        connection.Exec(QStringLiteral("RELEASE level%1").arg(connection.userTransactionDepth - 1),
                        kErrSaveLocked);
    } else {
        connection.ApplyLockTimeout();
        connection.Exec(QStringLiteral("COMMIT"), kErrSaveLocked);
    }
    --connection.userTransactionDepth;
}

void Database::Rollback() {
    if (!connection_ || !connection_->IsOpen() || connection_->userTransactionDepth == 0) {
        return;
    }
    Connection& connection = *connection_;
    if (connection.userTransactionDepth > 1) {
        const QString name = QStringLiteral("level%1").arg(connection.userTransactionDepth - 1);
        connection.Exec(QStringLiteral("ROLLBACK TO ") + name, kErrUpdateLocked);
        connection.Exec(QStringLiteral("RELEASE ") + name, kErrUpdateLocked);
    } else if (connection.InTransaction()) {
        connection.Exec(QStringLiteral("ROLLBACK"), kErrUpdateLocked);
    }
    --connection.userTransactionDepth;
    connection.ForgetTables();
    ++connection.writeEpoch;
}

}  // namespace quillon::dao
