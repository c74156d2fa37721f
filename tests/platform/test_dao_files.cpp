// Whole files: what opening a missing or damaged file reports, compacting into
// a new file, and repairing in place.

#include <QRandomGenerator>
#include <QtTest>

#include "platform/dao.h"
#include "support/sqlite_probe.h"
#include "support/temp_database.h"

using namespace quillon;

namespace {

const QString kClients = "Clients";
const QStringList kNameFields{"Last Name", "First Names", "Town"};

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

// The file's own check of itself, beneath the layer: "ok" when healthy.
QString integrityOf(const QString& path) {
    return test::SqliteProbe(path).Value("PRAGMA integrity_check").toString();
}

// The first page of the index Name of Clients.
qint64 indexRoot(const QString& path) {
    return test::SqliteProbe(path)
        .Value("SELECT rootpage FROM sqlite_master WHERE name = 'Clients|Name'")
        .toLongLong();
}

bool seekFinds(const QString& path, const QString& last, const QString& first) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex("Name");
    rs.Seek("=", {last, first});
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
        path_ = freshPath("QUILL020.MDB");
        dao::CreateDatabase(path_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        db.BeginTrans();
        for (int i = 0; i < 40; ++i) {
            test::AddRow(db, kClients,
                         {{"Last Name", QStringLiteral("Client %1").arg(i % 7)},
                          {"First Names", QStringLiteral("No %1").arg(i)},
                          {"Town", i % 3 ? QVariant("Leeds") : QVariant()}});
        }
        db.CommitTrans();
        rows_ = test::WalkRows(db, kClients, "Name", kNameFields);
    }

    void missingFileAndFolderAreToldApart() {
        const QString missing = freshPath("NOFILE.MDB");
        QVERIFY_DAO_ERROR(dao::OpenDatabase(missing), dao::kErrFileNotFound);
        QVERIFY(!QFile::exists(missing));
        QVERIFY_DAO_ERROR(dao::OpenDatabase(folder_.FilePath("nofolder/QUILL020.MDB")),
                          dao::kErrInvalidPath);
        QVERIFY_DAO_ERROR(dao::OpenDatabase(folder_.Path()), dao::kErrCannotOpen);
    }

    // Random bytes, an empty file, the header only, the first page only, half.
    void damagedFilesAreRefusedAtOpen() {
        const QByteArray whole = contentsOf(path_);
        QVERIFY(whole.size() > 3 * 4096);
        for (const QByteArray& damaged : {randomBytes(16384), QByteArray(), whole.left(100),
                                          whole.left(4096), whole.left(whole.size() / 2)}) {
            writeFile(path_, damaged);
            QVERIFY_DAO_ERROR(dao::OpenDatabase(path_), dao::kErrDamaged);
            QVERIFY_DAO_ERROR(dao::OpenDatabase(path_, false, true), dao::kErrDamaged);
        }
    }

    void compactCopiesEveryRowIntoANewFileOnly() {
        const QString copy = freshPath("COMPACT.MDB");
        dao::CompactDatabase(path_, copy);
        {
            dao::Database db = dao::OpenDatabase(copy);
            QCOMPARE(test::WalkRows(db, kClients, "Name", kNameFields), rows_);
            QCOMPARE(db.TableNames(), dao::OpenDatabase(path_).TableNames());
        }
        QCOMPARE(integrityOf(copy), "ok");
        QVERIFY(seekFinds(copy, "Client 3", "No 10"));

        const QByteArray before = contentsOf(copy);
        QVERIFY_DAO_ERROR(dao::CompactDatabase(path_, copy), dao::kErrDatabaseExists);
        QCOMPARE(contentsOf(copy), before);
        QVERIFY_DAO_ERROR(dao::CompactDatabase(freshPath("NONE.MDB"), freshPath("OTHER.MDB")),
                          dao::kErrFileNotFound);
    }

    void repairLeavesAHealthyFileAsItWas() {
        const QByteArray before = contentsOf(path_);
        dao::RepairDatabase(path_);
        QCOMPARE(contentsOf(path_), before);
    }

    void repairRebuildsAnIndexThatMissesRows() {
        // Rows added while the index was hidden from the engine are missing from it.
        const qint64 root = indexRoot(path_);
        const QVariant index = test::SqliteProbe(path_).Value(
            "SELECT sql FROM sqlite_master WHERE name = 'Clients|Name'");
        // Each step on a connection of its own, which reads the schema afresh.
        for (const auto& [sql, parameters] :
             std::initializer_list<std::pair<QString, QVariantList>>{
                 {"DELETE FROM sqlite_master WHERE name = 'Clients|Name'", {}},
                 {"INSERT INTO Clients (\"Last Name\", \"First Names\") VALUES ('Added', 'Late')",
                  {}},
                 {"INSERT INTO sqlite_master VALUES ('index', 'Clients|Name', 'Clients', ?, ?)",
                  {root, index}}}) {
            test::SqliteProbe file(path_);
            QVERIFY(file.Exec("PRAGMA writable_schema = ON") && file.Exec(sql, parameters));
        }
        QVERIFY(integrityOf(path_) != "ok");
        QVERIFY(!seekFinds(path_, "Added", "Late"));

        dao::RepairDatabase(path_);
        QCOMPARE(integrityOf(path_), "ok");
        QVERIFY(seekFinds(path_, "added", "LATE"));
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(db, kClients, "Name", kNameFields).size(), rows_.size() + 1);
    }

    void repairReplacesAWreckedIndexPage() {
        const qint64 root = indexRoot(path_);
        const qint64 pageSize = test::SqliteProbe(path_).Value("PRAGMA page_size").toLongLong();
        QByteArray bytes = contentsOf(path_);
        bytes.replace((root - 1) * pageSize, pageSize, QByteArray(pageSize, char(0x5A)));
        writeFile(path_, bytes);
        QVERIFY(integrityOf(path_) != "ok");

        dao::RepairDatabase(path_);
        QCOMPARE(integrityOf(path_), "ok");
        QVERIFY(!QFile::exists(path_ + ".rebuild"));
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(db, kClients, "Name", kNameFields), rows_);
        QCOMPARE(test::WalkRows(db, kClients, QString(), {"First Names"}).first(), "No 0");
        dao::Recordset rs = db.OpenRecordset(kClients);
        rs.AddNew();
        rs.Fields("Last Name").SetValue("client 0");
        rs.Fields("First Names").SetValue("NO 0");
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
    }

    // A table's stored definition with statements after it: the repair makes
    // the table and runs nothing else.
    void repairRunsNothingAFileStores() {
        const QString elsewhere = freshPath("ELSEWHERE.MDB");
        {
            test::SqliteProbe file(path_);
            QVERIFY(file.Exec("PRAGMA writable_schema = ON"));
            QVERIFY(file.Exec("UPDATE sqlite_master SET sql = sql || ? WHERE name = 'Clients'",
                              {"; ATTACH DATABASE '" + elsewhere + "' AS e; CREATE TABLE e.t(a)"}));
        }
        repairReplacesAWreckedIndexPage();
        QVERIFY(!QFile::exists(elsewhere));
    }

    void repairRefusesWhatIsNoDatabase() {
        writeFile(path_, randomBytes(8192));
        QVERIFY_DAO_ERROR(dao::RepairDatabase(path_), dao::kErrDamaged);
        QCOMPARE(contentsOf(path_), randomBytes(8192));
        QVERIFY_DAO_ERROR(dao::RepairDatabase(freshPath("NONE.MDB")), dao::kErrFileNotFound);
    }
};

QTEST_GUILESS_MAIN(DaoFilesTest)
#include "test_dao_files.moc"
