// Several users of one file: the lock that Edit and transactions hold, the
// errors another user meets meanwhile, and what a killed process leaves.

#include <QtTest>

#include "platform/dao.h"
#include "support/error_number.h"
#include "support/peer_process.h"
#include "support/temp_database.h"

using namespace quillon;
using quillon::testing::PeerProcess;

namespace {

const QString kClients = "Clients";
const QString kTown = "Town";

dao::Recordset clientAt(dao::Database& db, const QString& last, const QString& first) {
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex("Name");
    rs.Seek("=", {last, first});
    return rs;
}

long rowsIn(dao::Database& db, const QString& table) {
    return db.OpenRecordset(table).RecordCount();
}

void setTown(dao::Recordset& rs, const QString& town) {
    rs.Edit();
    rs.Fields(kTown).SetValue(town);
    rs.Update();
}

// The error an Edit meets, 0 when it may begin; the Edit is cancelled.
int editError(dao::Recordset& rs) {
    const int error = ErrorNumberOf([&rs] { rs.Edit(); });
    if (error == 0) {
        rs.CancelUpdate();
    }
    return error;
}

}  // namespace

class DaoConcurrencyTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

    void makeDatabase(const std::vector<dao::TableDef>& tables) {
        path_ = folder_.FilePath("QUILL020.MDB");
        QFile::remove(path_);
        dao::CreateDatabase(path_, tables);
    }

private Q_SLOTS:
    // Smith, Ann and Jones, Bob of Leeds in the small tables.
    void init() {
        dao::SetLockTimeout(200);
        makeDatabase(test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        test::AddRow(db, kClients, {{"Last Name", "Smith"}, {"First Names", "Ann"}});
        test::AddRow(db, kClients,
                     {{"Last Name", "Jones"}, {"First Names", "Bob"}, {kTown, "Leeds"}});
    }
    void cleanup() { dao::SetLockTimeout(1000); }

    // Another user deletes the client we stand on and adds another, which
    // takes the deleted row's number: our Edit or Delete fails as for a
    // deleted record and the other client keeps its row.
    void aRowNumberGivenToAnotherClientIsNotTakenForOurs_data() {
        QTest::addColumn<bool>("deleting");
        QTest::newRow("edit") << false;
        QTest::newRow("delete") << true;
    }
    void aRowNumberGivenToAnotherClientIsNotTakenForOurs() {
        QFETCH(bool, deleting);
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset ours = clientAt(db, "Jones", "Bob");
        QVERIFY(!ours.NoMatch());
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", path_}), "ok");
        QCOMPARE(peer.Ask({"replace", kClients, "Jones", "Bob", "Young", "Yan"}), "ok");
        QVERIFY(peer.Quit());
        QCOMPARE(ErrorNumberOf([&] { deleting ? ours.Delete() : setTown(ours, "Wrong"); }),
                 int(dao::kErrRecordDeleted));
        dao::Recordset theirs = clientAt(db, "Young", "Yan");
        QVERIFY(!theirs.NoMatch() && theirs.Fields(kTown).Value().isNull());
    }

    // While another user reads, our Update's commit can't finish: it fails,
    // leaves nothing written, and the file is free again at once.
    void aCommitThatCannotFinishLeavesNothingLocked() {
        dao::Database db = dao::OpenDatabase(path_);
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"read", path_, kClients}), "ok");
        dao::Recordset ours = clientAt(db, "Smith", "Ann");
        QVERIFY_DAO_ERROR(setTown(ours, "Whitby"), dao::kErrSaveLocked);
        QVERIFY(peer.Quit());
        dao::Database other = dao::OpenDatabase(path_);
        dao::Recordset theirs = clientAt(other, "Smith", "Ann");
        QVERIFY(theirs.Fields(kTown).IsNull());
        setTown(theirs, "Leeds");
    }

    // Reading goes on meanwhile; every write waits for the other's Update.
    void anEditInAnotherProcessLocksUsOutUntilItsUpdate() {
        {
            dao::Database db = dao::OpenDatabase(path_);
            test::AddRow(db, "Visits", {{kTown, "Bath"}});
        }
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", path_}), "ok");
        QCOMPARE(peer.Ask({"edit", kClients, "Smith", "Ann"}), "ok");
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, "Smith", "Ann");
        QVERIFY(rs.Fields(kTown).IsNull());
        QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrUpdateLocked);
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditNone));
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrUpdateLocked);
        QVERIFY_DAO_ERROR(db.BeginTrans(), dao::kErrUpdateLocked);
        rs.AddNew();
        rs.Fields("Last Name").SetValue("Late");
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrSaveLocked);
        rs.CancelUpdate();
        for (const QStringList& step :
             {QStringList{"set", kTown, "Whitby"}, {"update"}, {"close"}}) {
            QCOMPARE(peer.Ask(step), "ok");
        }
        QVERIFY(peer.Quit());
        rs.Edit();
        QCOMPARE(rs.Fields(kTown).Value().toString(), "Whitby");
        rs.Fields("Sex").SetValue(2);
        rs.Update();
        db.Close();
        dao::Database after = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(after, kClients, "Name", {"Last Name", kTown, "Sex"}),
                 (QStringList{"Jones|Leeds|<null>", "Smith|Whitby|2"}));
        QCOMPARE(test::WalkRows(after, "Visits", QString(), {kTown}), QStringList{"Bath"});
    }

    // Two pending Edits on one database share its lock until both end.
    void theEditLockEndsWithCancelMoveCloseOrDestruction() {
        dao::Database mine = dao::OpenDatabase(path_);
        dao::Database theirs = dao::OpenDatabase(path_);
        dao::Recordset other = clientAt(theirs, "Jones", "Bob");
        dao::Recordset rs = clientAt(mine, "Smith", "Ann");
        rs.Edit();
        QCOMPARE(editError(other), int(dao::kErrUpdateLocked));
        rs.CancelUpdate();
        QCOMPARE(editError(other), 0);
        rs.Edit();
        rs.MoveNext();
        QCOMPARE(editError(other), 0);
        rs.MoveFirst();
        rs.Edit();
        rs.Close();
        QCOMPARE(editError(other), 0);
        clientAt(mine, "Smith", "Ann").Edit();
        setTown(other, "Ely");
        dao::Recordset first = clientAt(mine, "Smith", "Ann");
        dao::Recordset second = clientAt(mine, "Jones", "Bob");
        first.Edit();
        second.Edit();
        first.Fields(kTown).SetValue("Hull");
        first.Update();
        QCOMPARE(editError(other), int(dao::kErrUpdateLocked));
        second.CancelUpdate();
        QCOMPARE(editError(other), 0);
        QCOMPARE(test::WalkRows(theirs, kClients, "Name", {kTown}), (QStringList{"Ely", "Hull"}));
    }

    // An Edit inside our transaction takes no lock of its own.
    void aTransactionLocksOthersOutAndEndsWithRollback() {
        dao::Database mine = dao::OpenDatabase(path_);
        dao::Database theirs = dao::OpenDatabase(path_);
        mine.BeginTrans();
        dao::Recordset rs = clientAt(mine, "Smith", "Ann");
        setTown(rs, "Diss");
        QVERIFY_DAO_ERROR(theirs.BeginTrans(), dao::kErrUpdateLocked);
        QVERIFY_DAO_ERROR(clientAt(theirs, "Smith", "Ann").Delete(), dao::kErrUpdateLocked);
        QVERIFY(clientAt(theirs, "Smith", "Ann").Fields(kTown).IsNull());
        mine.Rollback();
        theirs.BeginTrans();
        theirs.CommitTrans();
        QVERIFY(clientAt(theirs, "Smith", "Ann").Fields(kTown).IsNull());
    }

    void anExclusiveOpenKeepsOthersOut() {
        {
            dao::Database only = dao::OpenDatabase(path_, true);
            QVERIFY_DAO_ERROR(dao::OpenDatabase(path_), dao::kErrFileInUse);
            test::AddRow(only, kClients, {{"Last Name", "Solo"}});
        }
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(rowsIn(db, kClients), 3L);
    }

    // A reader too puts the file right before it reads.
    void aProcessKilledInsideATransactionLeavesNothingOfIt() {
        makeDatabase(test::ClientTables());
        PeerProcess peer;
        QVERIFY(peer.Started());
        for (const QStringList& step : {QStringList{"open", path_},
                                        {"add", "Kept", "Kay"},
                                        {"begin"},
                                        {"add", "Killed", "Kim"}}) {
            QCOMPARE(peer.Ask(step), "ok");
        }
        QVERIFY(peer.Kill());
        QVERIFY(QFile::exists(path_ + "-journal"));
        dao::Database reader = dao::OpenDatabase(path_, false, true);
        QCOMPARE(rowsIn(reader, "Diary 4"), 1L);
        reader.Close();
        dao::Database db = dao::OpenDatabase(path_);
        for (const QString& table : test::ClientTableNames()) {
            QCOMPARE(test::WalkRows(db, table, "Name", {"Last Name"}), QStringList{"Kept"});
        }
        db.BeginTrans();  // no lock left behind
        db.CommitTrans();
    }

    void aProcessKilledWhileCommittingLeavesWholeClientsOnly() {
        makeDatabase(test::ClientTables());
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", path_}), "ok");
        QCOMPARE(peer.Ask({"churn"}), "committed 1");
        for (int n = 2; n <= 5; ++n) {
            QCOMPARE(peer.Answer(), QStringLiteral("committed %1").arg(n));
        }
        QVERIFY(peer.Kill());  // somewhere in a later transaction or its commit
        dao::Database db = dao::OpenDatabase(path_);
        const long clients = rowsIn(db, kClients);
        QVERIFY(clients >= 5);
        for (const QString& table : test::ClientTableNames()) {
            QCOMPARE(rowsIn(db, table), clients);
        }
        dao::Recordset last = db.OpenRecordset("Diary 4");
        last.MoveLast();
        QCOMPARE(last.Fields("First Names").Value().toString(), QString::number(clients));
    }
};

QTEST_GUILESS_MAIN(DaoConcurrencyTest)
#include "test_dao_concurrency.moc"
