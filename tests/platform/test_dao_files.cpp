// Whole files: what opening a missing or damaged file reports, compacting into
// a new file, and repairing in place.

#include <QRandomGenerator>
#include <QtTest>

#include <sqlite3.h>

#include "platform/dao.h"
#include "support/temp_database.h"

using namespace quillon;

namespace {

const QString kClients = QStringLiteral("Clients");
const QStringList kNameFields{QStringLiteral("Last Name"), QStringLiteral("First Names"),
                              QStringLiteral("Town")};

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray randomBytes(int size) {
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator generator(20240406);
    for (char& byte : bytes) {
        byte = char(generator.bounded(256));
    }
    return bytes;
}

// Runs `sql` on the file directly, beneath the layer, to damage it on purpose.
void rawExec(const QString& path, const QString& sql) {
    sqlite3* db = nullptr;
    QCOMPARE(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    char* message = nullptr;
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &message);
    const QString text = QString::fromUtf8(message ? message : "");
    sqlite3_free(message);
    sqlite3_close(db);
    QVERIFY2(rc == SQLITE_OK, qPrintable(text));
}

qint64 rawNumber(const QString& path, const QString& sql) {
    sqlite3* db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr);
    const qint64 value =
        sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return value;
}

QString integrityOf(const QString& path) {
    sqlite3* db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &statement, nullptr);
    QStringList lines;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        lines << QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return lines.join(QLatin1Char('\n'));
}

bool seekFinds(const QString& path, const QString& last, const QString& first) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex(QStringLiteral("Name"));
    rs.Seek(QStringLiteral("="), {last, first});
    return !rs.NoMatch();
}

}  // namespace

class DaoFilesTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;
    QStringList rows_;

    QString freshPath(const QString& name) {
        QFile::remove(folder_.FilePath(name));
        return folder_.FilePath(name);
    }

private Q_SLOTS:
    void init() {
        path_ = freshPath(QStringLiteral("QUILL020.MDB"));
        dao::CreateDatabase(path_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        db.BeginTrans();
        for (int i = 0; i < 40; ++i) {
            test::AddRow(
                db, kClients,
                {{QStringLiteral("Last Name"), QStringLiteral("Client %1").arg(i % 7)},
                 {QStringLiteral("First Names"), QStringLiteral("No %1").arg(i)},
                 {QStringLiteral("Town"), i % 3 ? QVariant(QStringLiteral("Leeds")) : QVariant()}});
        }
        db.CommitTrans();
        rows_ = test::WalkRows(db, kClients, QStringLiteral("Name"), kNameFields);
    }

    void missingFileAndFolderAreToldApart() {
        const QString missing = freshPath(QStringLiteral("NOFILE.MDB"));
        QVERIFY_DAO_ERROR(dao::OpenDatabase(missing), dao::kErrFileNotFound);
        QVERIFY(!QFile::exists(missing));
        QVERIFY_DAO_ERROR(
            dao::OpenDatabase(folder_.FilePath(QStringLiteral("nofolder/QUILL020.MDB"))),
            dao::kErrInvalidPath);
        QVERIFY_DAO_ERROR(dao::OpenDatabase(folder_.Path()), dao::kErrCannotOpen);
    }

    void damagedFilesAreRefusedAtOpen_data() {
        QTest::addColumn<int>("keep");  // bytes of the real file kept; -1: random bytes
        QTest::newRow("random bytes") << -1;
        QTest::newRow("empty") << 0;
        QTest::newRow("header only") << 100;
        QTest::newRow("first page only") << 4096;
        QTest::newRow("half") << -2;
    }

    void damagedFilesAreRefusedAtOpen() {
        QFETCH(int, keep);
        const QByteArray whole = contentsOf(path_);
        QVERIFY(whole.size() > 3 * 4096);
        const QByteArray damaged = keep == -1   ? randomBytes(16384)
                                   : keep == -2 ? whole.left(whole.size() / 2)
                                                : whole.left(keep);
        writeFile(path_, damaged);
        QVERIFY_DAO_ERROR(dao::OpenDatabase(path_), dao::kErrDamaged);
        QVERIFY_DAO_ERROR(dao::OpenDatabase(path_, false, true), dao::kErrDamaged);
    }

    void compactCopiesEveryRowIntoANewFileOnly() {
        const QString copy = freshPath(QStringLiteral("COMPACT.MDB"));
        dao::CompactDatabase(path_, copy);
        {
            dao::Database db = dao::OpenDatabase(copy);
            QCOMPARE(test::WalkRows(db, kClients, QStringLiteral("Name"), kNameFields), rows_);
            QCOMPARE(db.TableNames(), dao::OpenDatabase(path_).TableNames());
        }
        QCOMPARE(integrityOf(copy), QStringLiteral("ok"));
        QVERIFY(seekFinds(copy, QStringLiteral("Client 3"), QStringLiteral("No 10")));

        const QByteArray before = contentsOf(copy);
        QVERIFY_DAO_ERROR(dao::CompactDatabase(path_, copy), dao::kErrDatabaseExists);
        QCOMPARE(contentsOf(copy), before);
        QVERIFY_DAO_ERROR(dao::CompactDatabase(freshPath(QStringLiteral("NONE.MDB")),
                                               freshPath(QStringLiteral("OTHER.MDB"))),
                          dao::kErrFileNotFound);
    }

    void repairLeavesAHealthyFileAsItWas() {
        const QByteArray before = contentsOf(path_);
        dao::RepairDatabase(path_);
        QCOMPARE(contentsOf(path_), before);
    }

    void repairRebuildsAnIndexThatMissesRows() {
        // Rows added while the index was hidden from the engine are missing from it.
        const QString indexSql = QStringLiteral(
            "CREATE UNIQUE INDEX \"Clients|Name\" ON \"Clients\" (\"Last Name\", \"First Names\")");
        const qint64 root = rawNumber(
            path_,
            QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'Clients|Name'"));
        rawExec(path_, QStringLiteral("PRAGMA writable_schema = ON; DELETE FROM sqlite_master "
                                      "WHERE name = 'Clients|Name'"));
        rawExec(path_, QStringLiteral("INSERT INTO Clients (\"Last Name\", \"First Names\") VALUES "
                                      "('Added', 'Late')"));
        rawExec(path_,
                QStringLiteral("PRAGMA writable_schema = ON; INSERT INTO sqlite_master "
                               "VALUES ('index', 'Clients|Name', 'Clients', %1, '%2')")
                    .arg(root)
                    .arg(QString(indexSql).replace(QLatin1Char('\''), QStringLiteral("''"))));
        QVERIFY(integrityOf(path_) != QStringLiteral("ok"));
        QVERIFY(!seekFinds(path_, QStringLiteral("Added"), QStringLiteral("Late")));

        dao::RepairDatabase(path_);
        QCOMPARE(integrityOf(path_), QStringLiteral("ok"));
        QVERIFY(seekFinds(path_, QStringLiteral("added"), QStringLiteral("LATE")));
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(db, kClients, QStringLiteral("Name"), kNameFields).size(),
                 rows_.size() + 1);
    }

    void repairReplacesAWreckedIndexPage() {
        const qint64 root = rawNumber(
            path_,
            QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'Clients|Name'"));
        const qint64 pageSize = rawNumber(path_, QStringLiteral("PRAGMA page_size"));
        QByteArray bytes = contentsOf(path_);
        bytes.replace((root - 1) * pageSize, pageSize, QByteArray(pageSize, char(0x5A)));
        writeFile(path_, bytes);
        QVERIFY(integrityOf(path_) != QStringLiteral("ok"));

        dao::RepairDatabase(path_);
        QCOMPARE(integrityOf(path_), QStringLiteral("ok"));
        QVERIFY(!QFile::exists(path_ + QStringLiteral(".rebuild")));
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(db, kClients, QStringLiteral("Name"), kNameFields), rows_);
        QCOMPARE(test::WalkRows(db, kClients, QString(), {QStringLiteral("First Names")}).first(),
                 QStringLiteral("No 0"));
        dao::Recordset rs = db.OpenRecordset(kClients);
        rs.AddNew();
        rs.Fields(QStringLiteral("Last Name")).SetValue(QStringLiteral("client 0"));
        rs.Fields(QStringLiteral("First Names")).SetValue(QStringLiteral("NO 0"));
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
    }

    // A table's stored definition with statements after it: the repair makes
    // the table and runs nothing else.
    void repairRunsNothingAFileStores() {
        const QString elsewhere = freshPath(QStringLiteral("ELSEWHERE.MDB"));
        rawExec(path_, QStringLiteral("PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = "
                                      "sql || '; ATTACH DATABASE ''%1'' AS e; CREATE TABLE e.t(a)' "
                                      "WHERE name = 'Clients'")
                           .arg(elsewhere));
        repairReplacesAWreckedIndexPage();
        QVERIFY(!QFile::exists(elsewhere));
    }

    void repairRefusesWhatIsNoDatabase() {
        writeFile(path_, randomBytes(8192));
        QVERIFY_DAO_ERROR(dao::RepairDatabase(path_), dao::kErrDamaged);
        QCOMPARE(contentsOf(path_), randomBytes(8192));
        QVERIFY_DAO_ERROR(dao::RepairDatabase(freshPath(QStringLiteral("NONE.MDB"))),
                          dao::kErrFileNotFound);
    }
};

QTEST_GUILESS_MAIN(DaoFilesTest)
#include "test_dao_files.moc"
