// Several users of one file: the lock that Edit and transactions hold, the
// errors another user meets meanwhile, and what a killed process leaves.

#include <QtTest>

#include "platform/dao.h"
#include "support/peer_process.h"
#include "support/temp_database.h"

using namespace quillon;
using quillon::testing::PeerProcess;

namespace {

const QString kClients = QStringLiteral("Clients");
const QString kLast = QStringLiteral("Last Name");
const QString kFirst = QStringLiteral("First Names");
const QString kTown = QStringLiteral("Town");
constexpr int kShortLockTimeout = 200;

dao::Recordset clientAt(dao::Database& db, const QString& last, const QString& first) {
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex(QStringLiteral("Name"));
    rs.Seek(QStringLiteral("="), {last, first});
    return rs;
}

long rowsIn(dao::Database& db, const QString& table) {
    return db.OpenRecordset(table).RecordCount();
}

}  // namespace

class DaoConcurrencyTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

    void makeDatabase(const std::vector<dao::TableDef>& tables) {
        path_ = folder_.FilePath(QStringLiteral("QUILL020.MDB"));
        QFile::remove(path_);
        dao::CreateDatabase(path_, tables);
    }

private Q_SLOTS:
    void init() { dao::SetLockTimeout(kShortLockTimeout); }
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
        makeDatabase(test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
        dao::Recordset ours = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        QVERIFY(!ours.NoMatch());
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("open"), path_}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("replace"), kClients, QStringLiteral("Smith"),
                           QStringLiteral("Ann"), QStringLiteral("Young"), QStringLiteral("Yan")}),
                 QStringLiteral("ok"));
        QVERIFY(peer.Quit());
        try {
            if (deleting) {
                ours.Delete();
            } else {
                ours.Edit();
                ours.Fields(kTown).SetValue(QStringLiteral("Wrong"));
                ours.Update();
            }
            QFAIL("the other client's row was taken for ours");
        } catch (const dao::DaoError& error) {
            QCOMPARE(error.Number(), int(dao::kErrRecordDeleted));
        }
        dao::Recordset theirs = clientAt(db, QStringLiteral("Young"), QStringLiteral("Yan"));
        QVERIFY(!theirs.NoMatch() && theirs.Fields(kTown).Value().isNull());
    }

    // While another user reads, our Update's commit can't finish: it fails,
    // leaves nothing written, and the file is free again at once.
    void aCommitThatCannotFinishLeavesNothingLocked() {
        makeDatabase(test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("read"), path_, kClients}), QStringLiteral("ok"));
        dao::Recordset ours = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        ours.Edit();
        ours.Fields(kTown).SetValue(QStringLiteral("Whitby"));
        QVERIFY_DAO_ERROR(ours.Update(), dao::kErrSaveLocked);
        QVERIFY(peer.Quit());
        dao::Database other = dao::OpenDatabase(path_);
        dao::Recordset theirs = clientAt(other, QStringLiteral("Smith"), QStringLiteral("Ann"));
        QVERIFY(theirs.Fields(kTown).IsNull());
        theirs.Edit();
        theirs.Fields(kTown).SetValue(QStringLiteral("Leeds"));
        theirs.Update();
    }

    void anEditInAnotherProcessLocksUsOutUntilItsUpdate() {
        makeDatabase(test::SmallTables());
        {
            dao::Database db = dao::OpenDatabase(path_);
            test::AddRow(db, kClients,
                         {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
            test::AddRow(db, kClients,
                         {{kLast, QStringLiteral("Jones")},
                          {kFirst, QStringLiteral("Bob")},
                          {kTown, QStringLiteral("Leeds")}});
            test::AddRow(db, QStringLiteral("Visits"), {{kTown, QStringLiteral("Bath")}});
        }
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("open"), path_}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("edit"), kClients, QStringLiteral("Smith"),
                           QStringLiteral("Ann")}),
                 QStringLiteral("ok"));

        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        QVERIFY(rs.Fields(kTown).IsNull());  // reading goes on meanwhile
        QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrUpdateLocked);
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditNone));
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrUpdateLocked);
        QVERIFY_DAO_ERROR(db.BeginTrans(), dao::kErrUpdateLocked);
        rs.AddNew();
        rs.Fields(kLast).SetValue(QStringLiteral("Late"));
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrSaveLocked);
        rs.CancelUpdate();

        QCOMPARE(peer.Ask({QStringLiteral("set"), kTown, QStringLiteral("Whitby")}),
                 QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("update")}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("close")}), QStringLiteral("ok"));
        QVERIFY(peer.Quit());

        rs.Edit();
        QCOMPARE(rs.Fields(kTown).Value().toString(), QStringLiteral("Whitby"));
        rs.Fields(QStringLiteral("Sex")).SetValue(2);
        rs.Update();
        db.Close();

        dao::Database after = dao::OpenDatabase(path_);
        QCOMPARE(test::WalkRows(after, kClients, QStringLiteral("Name"),
                                {kLast, kFirst, kTown, QStringLiteral("Sex")}),
                 (QStringList{QStringLiteral("Jones|Bob|Leeds|<null>"),
                              QStringLiteral("Smith|Ann|Whitby|2")}));
        QCOMPARE(test::WalkRows(after, QStringLiteral("Visits"), QString(), {kTown}),
                 QStringList{QStringLiteral("Bath")});
    }

    void theEditLockEndsWithCancelMoveCloseOrDestruction() {
        makeDatabase(test::SmallTables());
        dao::Database mine = dao::OpenDatabase(path_);
        test::AddRow(mine, kClients,
                     {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
        test::AddRow(mine, kClients,
                     {{kLast, QStringLiteral("Jones")}, {kFirst, QStringLiteral("Bob")}});
        dao::Database theirs = dao::OpenDatabase(path_);
        dao::Recordset other = clientAt(theirs, QStringLiteral("Jones"), QStringLiteral("Bob"));

        dao::Recordset rs = clientAt(mine, QStringLiteral("Smith"), QStringLiteral("Ann"));
        rs.Edit();
        QVERIFY_DAO_ERROR(other.Edit(), dao::kErrUpdateLocked);
        rs.CancelUpdate();
        other.Edit();
        other.CancelUpdate();

        rs.Edit();
        rs.MoveNext();
        other.Edit();
        other.CancelUpdate();

        rs.MoveFirst();
        rs.Edit();
        rs.Close();
        other.Edit();
        other.CancelUpdate();

        {
            dao::Recordset scoped = clientAt(mine, QStringLiteral("Smith"), QStringLiteral("Ann"));
            scoped.Edit();
        }
        other.Edit();
        other.Fields(kTown).SetValue(QStringLiteral("Ely"));
        other.Update();

        // Two pending Edits on one database share its lock until both end.
        dao::Recordset first = clientAt(mine, QStringLiteral("Smith"), QStringLiteral("Ann"));
        dao::Recordset second = clientAt(mine, QStringLiteral("Jones"), QStringLiteral("Bob"));
        first.Edit();
        second.Edit();
        first.Fields(kTown).SetValue(QStringLiteral("Hull"));
        first.Update();
        QVERIFY_DAO_ERROR(other.Edit(), dao::kErrUpdateLocked);
        second.CancelUpdate();
        other.Edit();
        other.CancelUpdate();
        QCOMPARE(test::WalkRows(theirs, kClients, QStringLiteral("Name"), {kTown}),
                 (QStringList{QStringLiteral("Ely"), QStringLiteral("Hull")}));
    }

    void aTransactionLocksOthersOutAndEndsWithRollback() {
        makeDatabase(test::SmallTables());
        dao::Database mine = dao::OpenDatabase(path_);
        test::AddRow(mine, kClients,
                     {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
        dao::Database theirs = dao::OpenDatabase(path_);
        mine.BeginTrans();
        dao::Recordset rs = clientAt(mine, QStringLiteral("Smith"), QStringLiteral("Ann"));
        rs.Edit();  // inside our transaction: no lock of its own
        rs.Fields(kTown).SetValue(QStringLiteral("Diss"));
        rs.Update();
        QVERIFY_DAO_ERROR(theirs.BeginTrans(), dao::kErrUpdateLocked);
        QVERIFY_DAO_ERROR(clientAt(theirs, QStringLiteral("Smith"), QStringLiteral("Ann")).Delete(),
                          dao::kErrUpdateLocked);
        QVERIFY(clientAt(theirs, QStringLiteral("Smith"), QStringLiteral("Ann"))
                    .Fields(kTown)
                    .IsNull());
        mine.Rollback();
        theirs.BeginTrans();
        theirs.CommitTrans();
        QVERIFY(clientAt(theirs, QStringLiteral("Smith"), QStringLiteral("Ann"))
                    .Fields(kTown)
                    .IsNull());
    }

    void anExclusiveOpenKeepsOthersOut() {
        makeDatabase(test::SmallTables());
        {
            dao::Database only = dao::OpenDatabase(path_, true);
            QVERIFY_DAO_ERROR(dao::OpenDatabase(path_), dao::kErrFileInUse);
            test::AddRow(only, kClients, {{kLast, QStringLiteral("Solo")}});
        }
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(rowsIn(db, kClients), 1L);
    }

    void aProcessKilledInsideATransactionLeavesNothingOfIt() {
        makeDatabase(test::ClientTables());
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("open"), path_}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("add"), QStringLiteral("Kept"), QStringLiteral("Kay")}),
                 QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("begin")}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("add"), QStringLiteral("Killed"), QStringLiteral("Kim")}),
                 QStringLiteral("ok"));
        QVERIFY(peer.Kill());
        QVERIFY(QFile::exists(path_ + QStringLiteral("-journal")));

        // Even a reader puts the file right before it reads.
        dao::Database reader = dao::OpenDatabase(path_, false, true);
        QCOMPARE(rowsIn(reader, QStringLiteral("Diary 4")), 1L);
        reader.Close();
        dao::Database db = dao::OpenDatabase(path_);
        for (const QString& table : test::ClientTableNames()) {
            QCOMPARE(test::WalkRows(db, table, QStringLiteral("Name"), {kLast}),
                     QStringList{QStringLiteral("Kept")});
        }
        db.BeginTrans();  // no lock left behind
        db.CommitTrans();
    }

    void aProcessKilledWhileCommittingLeavesWholeClientsOnly() {
        makeDatabase(test::ClientTables());
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("open"), path_}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("churn")}), QStringLiteral("committed 1"));
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
        dao::Recordset last = db.OpenRecordset(QStringLiteral("Diary 4"));
        last.MoveLast();
        QCOMPARE(last.Fields(kFirst).Value().toString(), QString::number(clients));
    }
};

QTEST_GUILESS_MAIN(DaoConcurrencyTest)
#include "test_dao_concurrency.moc"
