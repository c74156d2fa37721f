// Writing rows: values and Nulls, the checks a field makes, the unique index,
// read-only access, and transactions.

#include <QtTest>

#include "platform/dao.h"
#include "support/sqlite_probe.h"
#include "support/temp_database.h"

using namespace quillon;

namespace {

const QString kClients = "Clients";
const QString kLast = "Last Name";
const QString kFirst = "First Names";
const QString kTown = "Town";

dao::Recordset clientAt(dao::Database& db, const QString& last, const QString& first) {
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex("Name");
    rs.Seek("=", {last, first});
    return rs;
}

void addClient(dao::Database& db, const QString& last, const QString& first) {
    test::AddRow(db, kClients, {{kLast, last}, {kFirst, first}});
}

void setTown(dao::Recordset& rs, const QString& town) {
    rs.Edit();
    rs.Fields(kTown).SetValue(town);
    rs.Update();
}

QStringList clientNames(dao::Database& db) {
    return test::WalkRows(db, kClients, "Name", {kLast, kFirst});
}

}  // namespace

class DaoEditingTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

private Q_SLOTS:
    void init() {
        QFile::remove(folder_.FilePath("QUILL020.MDB"));
        path_ = test::MakeDatabase(folder_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        addClient(db, "Smith", "Ann");
        test::AddRow(db, kClients, {{kLast, "Jones"}, {kFirst, "Bob"}, {kTown, "Leeds"}});
    }

    void valuesComeBackWithTheirTypesAndNulls() {
        const QDateTime started(QDate(2024, 4, 6), QTime(9, 30));
        {
            dao::Database db = dao::OpenDatabase(path_);
            dao::Recordset rs = clientAt(db, "Smith", "Ann");
            rs.Edit();
            rs.Fields("Sex").SetValue(2);
            rs.Fields("Active").SetValue(true);
            rs.Fields("Fee").SetValue(12.5);
            rs.Fields("Notes").SetValue(QString(300, QLatin1Char('n')));
            rs.Fields("Started").SetValue(started);
            rs.Update();
            db.Execute("UPDATE Clients SET Active = 7 WHERE \"First Names\" = 'Bob'");
        }
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, "Smith", "Ann");
        QCOMPARE(rs.Fields("Sex").Value(), QVariant(2));
        QCOMPARE(rs.Fields("Active").Value(), QVariant(true));
        QCOMPARE(rs.Fields("Fee").Value().toDouble(), 12.5);
        QCOMPARE(rs.Fields("Notes").Value().toString().size(), 300);
        QCOMPARE(rs.Fields("Started").Value().toDateTime(), started);
        QVERIFY(rs.Fields(kTown).IsNull());
        QCOMPARE(rs.Fields(kTown).Size(), 20);
        QCOMPARE(rs.Fields("Sex").Type(), dao::dbInteger);

        rs = clientAt(db, "Jones", "Bob");
        QCOMPARE(rs.Fields("Active").Value(), QVariant(true));
        QVERIFY(rs.Fields("Sex").IsNull());
        QVERIFY(rs.Fields("Started").IsNull());

        rs.Edit();
        rs.Fields(kTown).SetValue(QVariant());
        rs.Update();
        QVERIFY(rs.Fields(kTown).IsNull());
    }

    void fieldsRefuseValuesThatDoNotFit() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, "Smith", "Ann");
        QVERIFY_DAO_ERROR(rs.Fields(kTown).SetValue("x"), dao::kErrUpdateWithoutEdit);
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrUpdateWithoutEdit);
        rs.Edit();
        rs.Fields(kTown).SetValue(QString(20, QLatin1Char('t')));
        QVERIFY_DAO_ERROR(rs.Fields(kTown).SetValue(QString(21, QLatin1Char('t'))),
                          dao::kErrFieldTooSmall);
        QVERIFY_DAO_ERROR(rs.Fields("Sex").SetValue(40000), dao::kErrOverflow);
        QVERIFY_DAO_ERROR(rs.Fields("Fee").SetValue("lots"), dao::kErrTypeMismatch);
        rs.Update();
        QCOMPARE(rs.Fields(kTown).Value().toString(), QString(20, QLatin1Char('t')));
        QVERIFY(rs.Fields("Sex").IsNull());
    }

    void updateWritesOnlyAssignedFieldsOfTheFreshRow() {
        dao::Database mine = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(mine, "Jones", "Bob");
        {
            // Another user changes the town after this recordset read the row.
            dao::Database theirs = dao::OpenDatabase(path_);
            dao::Recordset other = clientAt(theirs, "Jones", "Bob");
            setTown(other, "York");
        }
        rs.Edit();
        QCOMPARE(rs.Fields(kTown).Value().toString(), "York");
        rs.Fields("Sex").SetValue(1);
        rs.Update();
        mine.Close();
        dao::Database db = dao::OpenDatabase(path_);
        rs = clientAt(db, "Jones", "Bob");
        QCOMPARE(rs.Fields(kTown).Value().toString(), "York");
        QCOMPARE(rs.Fields("Sex").Value(), QVariant(1));
    }

    void addNewLeavesThePositionAndCancelDropsTheRow() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, "Jones", "Bob");
        rs.AddNew();
        QVERIFY(rs.Fields(kLast).IsNull());
        rs.Fields(kLast).SetValue("Adams");
        rs.Fields(kFirst).SetValue("Cy");
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditAdd));
        rs.Update();
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditNone));
        QCOMPARE(rs.Fields(kLast).Value().toString(), "Jones");
        rs.MovePrevious();
        QCOMPARE(rs.Fields(kLast).Value().toString(), "Adams");

        rs.AddNew();
        rs.Fields(kLast).SetValue("Dropped");
        rs.CancelUpdate();
        rs.Edit();
        rs.Fields(kTown).SetValue("Hull");
        rs.MoveNext();  // a move abandons the pending Edit
        QCOMPARE(clientNames(db), (QStringList{"Adams|Cy", "Jones|Bob", "Smith|Ann"}));
        QVERIFY(clientAt(db, "Adams", "Cy").Fields(kTown).IsNull());
    }

    // The number of a row deleted from the end of its table is never given to a
    // new row, in a transaction or not, and the table list stays the tables'.
    void aDeletedRowsNumberIsNotGivenOut() {
        dao::Database db = dao::OpenDatabase(path_);
        const auto numberOf = [this](const char* last) {
            return test::SqliteProbe(path_).Value(
                QStringLiteral("SELECT rowid FROM Clients WHERE \"Last Name\" = '%1'")
                    .arg(QLatin1String(last)));
        };
        const QVariant jones = numberOf("Jones");
        clientAt(db, "Jones", "Bob").Delete();
        addClient(db, "Young", "Yan");
        QVERIFY(numberOf("Young").toLongLong() > jones.toLongLong());
        db.BeginTrans();
        clientAt(db, "Young", "Yan").Delete();
        db.CommitTrans();
        addClient(db, "Zeal", "Zed");
        QVERIFY(numberOf("Zeal").toLongLong() > jones.toLongLong() + 1);
        QVERIFY(!db.TableNames().join(QLatin1Char(',')).contains(QLatin1Char('|')));
    }

    void duplicateNameInOtherCaseIsRefused() {
        dao::Database db = dao::OpenDatabase(path_);
        const QStringList before = clientNames(db);
        dao::Recordset rs = db.OpenRecordset(kClients);
        rs.AddNew();
        rs.Fields(kLast).SetValue("SMITH");
        rs.Fields(kFirst).SetValue("ann");
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
        rs.CancelUpdate();

        rs = clientAt(db, "Jones", "Bob");
        rs.Edit();
        rs.Fields(kLast).SetValue("smith");
        rs.Fields(kFirst).SetValue("ANN");
        try {
            rs.Update();
            QFAIL("a renamed duplicate was accepted");
        } catch (const dao::DaoError& error) {
            QCOMPARE(error.Number(), int(dao::kErrDuplicateKey));
            QVERIFY2(error.Description().contains("'Name'"), qPrintable(error.Description()));
        }
        rs.CancelUpdate();
        QCOMPARE(clientNames(db), before);

        // Case is case in every language: an accented name differing only so
        // is the same name, and is found by a seek in either case.
        addClient(db, "Émile", "Zoë");
        rs.AddNew();
        rs.Fields(kLast).SetValue("émile");
        rs.Fields(kFirst).SetValue("ZOË");
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
        rs.CancelUpdate();
        QVERIFY(!clientAt(db, "ÉMILE", "zoë").NoMatch());
    }

    void readOnlyAccessRefusesWrites() {
        {
            dao::Database db = dao::OpenDatabase(path_);
            dao::Recordset rs = db.OpenRecordset(kClients, dao::dbOpenTable, dao::dbReadOnly);
            QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrReadOnly);
            QVERIFY_DAO_ERROR(rs.AddNew(), dao::kErrReadOnly);
            QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrReadOnly);
        }
        dao::Database db = dao::OpenDatabase(path_, false, true);
        dao::Recordset rs = db.OpenRecordset(kClients);
        QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrReadOnly);
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrReadOnly);
        QVERIFY_DAO_ERROR(db.Execute("DELETE FROM Clients"), dao::kErrReadOnly);
        QCOMPARE(rs.RecordCount(), 2L);
    }

    // A rollback takes back adds, edits and deletes, an inner one only its own
    // part; a commit keeps them; a connection closed in a transaction rolls it
    // back and leaves no lock.
    void transactionsKeepAllOrNothing() {
        dao::Database db = dao::OpenDatabase(path_);
        db.Rollback();  // nothing open: nothing happens
        QVERIFY_DAO_ERROR(db.CommitTrans(), dao::kErrNoTransaction);
        db.BeginTrans();
        addClient(db, "Gone", "A");
        dao::Recordset rs = clientAt(db, "Smith", "Ann");
        setTown(rs, "Ripon");
        clientAt(db, "Jones", "Bob").Delete();
        db.Rollback();
        QCOMPARE(clientNames(db), (QStringList{"Jones|Bob", "Smith|Ann"}));
        QVERIFY(clientAt(db, "Smith", "Ann").Fields(kTown).IsNull());
        db.BeginTrans();
        addClient(db, "Kept", "B");
        clientAt(db, "Jones", "Bob").Delete();
        db.BeginTrans();
        addClient(db, "Inner", "E");
        db.Rollback();
        db.CommitTrans();
        {
            dao::Database closed = dao::OpenDatabase(path_);
            closed.BeginTrans();
            addClient(closed, "Lost", "C");
        }
        QCOMPARE(clientNames(db), (QStringList{"Kept|B", "Smith|Ann"}));
        dao::SetLockTimeout(50);
        db.BeginTrans();
        db.CommitTrans();
        dao::SetLockTimeout(1000);
    }

    void executeReportsBadStatements() {
        dao::Database db = dao::OpenDatabase(path_);
        QVERIFY_DAO_ERROR(db.Execute("DELETE FRM Clients"), dao::kErrSyntax);
        db.Execute("DELETE FROM Clients WHERE \"Last Name\" = 'JONES'");
        QCOMPARE(clientNames(db), QStringList{"Smith|Ann"});
    }
};

QTEST_GUILESS_MAIN(DaoEditingTest)
#include "test_dao_editing.moc"
