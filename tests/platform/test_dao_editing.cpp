// Writing rows: values and Nulls, the checks a field makes, the unique index,
// read-only access, and transactions.

#include <QtTest>

#include "platform/dao.h"
#include "support/sqlite_probe.h"
#include "support/temp_database.h"

using namespace quillon;

namespace {

const QString kClients = QStringLiteral("Clients");
const QString kLast = QStringLiteral("Last Name");
const QString kFirst = QStringLiteral("First Names");
const QString kTown = QStringLiteral("Town");

dao::Recordset clientAt(dao::Database& db, const QString& last, const QString& first) {
    dao::Recordset rs = db.OpenRecordset(kClients);
    rs.SetIndex(QStringLiteral("Name"));
    rs.Seek(QStringLiteral("="), {last, first});
    return rs;
}

QStringList clientNames(dao::Database& db) {
    return test::WalkRows(db, kClients, QStringLiteral("Name"), {kLast, kFirst});
}

}  // namespace

class DaoEditingTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

private Q_SLOTS:
    void init() {
        QFile::remove(folder_.FilePath(QStringLiteral("QUILL020.MDB")));
        path_ = test::MakeDatabase(folder_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Smith")}, {kFirst, QStringLiteral("Ann")}});
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Jones")},
                      {kFirst, QStringLiteral("Bob")},
                      {kTown, QStringLiteral("Leeds")}});
    }

    void valuesComeBackWithTheirTypesAndNulls() {
        const QDateTime started(QDate(2024, 4, 6), QTime(9, 30));
        {
            dao::Database db = dao::OpenDatabase(path_);
            dao::Recordset rs = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
            rs.Edit();
            rs.Fields(QStringLiteral("Sex")).SetValue(2);
            rs.Fields(QStringLiteral("Active")).SetValue(true);
            rs.Fields(QStringLiteral("Fee")).SetValue(12.5);
            rs.Fields(QStringLiteral("Notes")).SetValue(QString(300, QLatin1Char('n')));
            rs.Fields(QStringLiteral("Started")).SetValue(started);
            rs.Update();
            db.Execute(
                QStringLiteral("UPDATE Clients SET Active = 7 WHERE \"First Names\" = 'Bob'"));
        }
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        QCOMPARE(rs.Fields(QStringLiteral("Sex")).Value(), QVariant(2));
        QCOMPARE(rs.Fields(QStringLiteral("Active")).Value(), QVariant(true));
        QCOMPARE(rs.Fields(QStringLiteral("Fee")).Value().toDouble(), 12.5);
        QCOMPARE(rs.Fields(QStringLiteral("Notes")).Value().toString().size(), 300);
        QCOMPARE(rs.Fields(QStringLiteral("Started")).Value().toDateTime(), started);
        QVERIFY(rs.Fields(kTown).IsNull());
        QCOMPARE(rs.Fields(kTown).Size(), 20);
        QCOMPARE(rs.Fields(QStringLiteral("Sex")).Type(), dao::dbInteger);

        rs = clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob"));
        QCOMPARE(rs.Fields(QStringLiteral("Active")).Value(), QVariant(true));
        QVERIFY(rs.Fields(QStringLiteral("Sex")).IsNull());
        QVERIFY(rs.Fields(QStringLiteral("Started")).IsNull());

        rs.Edit();
        rs.Fields(kTown).SetValue(QVariant());
        rs.Update();
        QVERIFY(rs.Fields(kTown).IsNull());
    }

    void fieldsRefuseValuesThatDoNotFit() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        QVERIFY_DAO_ERROR(rs.Fields(kTown).SetValue(QStringLiteral("x")),
                          dao::kErrUpdateWithoutEdit);
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrUpdateWithoutEdit);
        rs.Edit();
        rs.Fields(kTown).SetValue(QString(20, QLatin1Char('t')));
        QVERIFY_DAO_ERROR(rs.Fields(kTown).SetValue(QString(21, QLatin1Char('t'))),
                          dao::kErrFieldTooSmall);
        QVERIFY_DAO_ERROR(rs.Fields(QStringLiteral("Sex")).SetValue(40000), dao::kErrOverflow);
        QVERIFY_DAO_ERROR(rs.Fields(QStringLiteral("Fee")).SetValue(QStringLiteral("lots")),
                          dao::kErrTypeMismatch);
        rs.Update();
        QCOMPARE(rs.Fields(kTown).Value().toString(), QString(20, QLatin1Char('t')));
        QVERIFY(rs.Fields(QStringLiteral("Sex")).IsNull());
    }

    void updateWritesOnlyAssignedFieldsOfTheFreshRow() {
        dao::Database mine = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(mine, QStringLiteral("Jones"), QStringLiteral("Bob"));
        {
            // Another user changes the town after this recordset read the row.
            dao::Database theirs = dao::OpenDatabase(path_);
            dao::Recordset other = clientAt(theirs, QStringLiteral("Jones"), QStringLiteral("Bob"));
            other.Edit();
            other.Fields(kTown).SetValue(QStringLiteral("York"));
            other.Update();
        }
        rs.Edit();
        QCOMPARE(rs.Fields(kTown).Value().toString(), QStringLiteral("York"));
        rs.Fields(QStringLiteral("Sex")).SetValue(1);
        rs.Update();
        mine.Close();
        dao::Database db = dao::OpenDatabase(path_);
        rs = clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob"));
        QCOMPARE(rs.Fields(kTown).Value().toString(), QStringLiteral("York"));
        QCOMPARE(rs.Fields(QStringLiteral("Sex")).Value(), QVariant(1));
    }

    void addNewLeavesThePositionAndCancelDropsTheRow() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob"));
        rs.AddNew();
        QVERIFY(rs.Fields(kLast).IsNull());
        rs.Fields(kLast).SetValue(QStringLiteral("Adams"));
        rs.Fields(kFirst).SetValue(QStringLiteral("Cy"));
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditAdd));
        rs.Update();
        QCOMPARE(rs.GetEditMode(), int(dao::dbEditNone));
        QCOMPARE(rs.Fields(kLast).Value().toString(), QStringLiteral("Jones"));
        rs.MovePrevious();
        QCOMPARE(rs.Fields(kLast).Value().toString(), QStringLiteral("Adams"));

        rs.AddNew();
        rs.Fields(kLast).SetValue(QStringLiteral("Dropped"));
        rs.CancelUpdate();
        rs.Edit();
        rs.Fields(kTown).SetValue(QStringLiteral("Hull"));
        rs.MoveNext();  // a move abandons the pending Edit
        QCOMPARE(clientNames(db),
                 (QStringList{QStringLiteral("Adams|Cy"), QStringLiteral("Jones|Bob"),
                              QStringLiteral("Smith|Ann")}));
        QVERIFY(clientAt(db, QStringLiteral("Adams"), QStringLiteral("Cy")).Fields(kTown).IsNull());
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
        clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob")).Delete();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Young")}, {kFirst, QStringLiteral("Yan")}});
        QVERIFY(numberOf("Young").toLongLong() > jones.toLongLong());
        db.BeginTrans();
        clientAt(db, QStringLiteral("Young"), QStringLiteral("Yan")).Delete();
        db.CommitTrans();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Zeal")}, {kFirst, QStringLiteral("Zed")}});
        QVERIFY(numberOf("Zeal").toLongLong() > jones.toLongLong() + 1);
        QVERIFY(!db.TableNames().join(QLatin1Char(',')).contains(QLatin1Char('|')));
    }

    void duplicateNameInOtherCaseIsRefused() {
        dao::Database db = dao::OpenDatabase(path_);
        const QStringList before = clientNames(db);
        dao::Recordset rs = db.OpenRecordset(kClients);
        rs.AddNew();
        rs.Fields(kLast).SetValue(QStringLiteral("SMITH"));
        rs.Fields(kFirst).SetValue(QStringLiteral("ann"));
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
        rs.CancelUpdate();

        rs = clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob"));
        rs.Edit();
        rs.Fields(kLast).SetValue(QStringLiteral("smith"));
        rs.Fields(kFirst).SetValue(QStringLiteral("ANN"));
        try {
            rs.Update();
            QFAIL("a renamed duplicate was accepted");
        } catch (const dao::DaoError& error) {
            QCOMPARE(error.Number(), int(dao::kErrDuplicateKey));
            QVERIFY2(error.Description().contains(QStringLiteral("'Name'")),
                     qPrintable(error.Description()));
        }
        rs.CancelUpdate();
        QCOMPARE(clientNames(db), before);

        // Case is case in every language: an accented name differing only so
        // is the same name, and is found by a seek in either case.
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Émile")}, {kFirst, QStringLiteral("Zoë")}});
        rs.AddNew();
        rs.Fields(kLast).SetValue(QStringLiteral("émile"));
        rs.Fields(kFirst).SetValue(QStringLiteral("ZOË"));
        QVERIFY_DAO_ERROR(rs.Update(), dao::kErrDuplicateKey);
        rs.CancelUpdate();
        QVERIFY(!clientAt(db, QStringLiteral("ÉMILE"), QStringLiteral("zoë")).NoMatch());
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
        QVERIFY_DAO_ERROR(db.Execute(QStringLiteral("DELETE FROM Clients")), dao::kErrReadOnly);
        QCOMPARE(rs.RecordCount(), 2L);
    }

    void transactionsKeepAllOrNothing() {
        dao::Database db = dao::OpenDatabase(path_);
        db.Rollback();  // nothing open: nothing happens
        QVERIFY_DAO_ERROR(db.CommitTrans(), dao::kErrNoTransaction);

        db.BeginTrans();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Gone")}, {kFirst, QStringLiteral("A")}});
        dao::Recordset rs = clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann"));
        rs.Edit();
        rs.Fields(kTown).SetValue(QStringLiteral("Ripon"));
        rs.Update();
        clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob")).Delete();
        db.Rollback();
        QCOMPARE(clientNames(db),
                 (QStringList{QStringLiteral("Jones|Bob"), QStringLiteral("Smith|Ann")}));
        QVERIFY(
            clientAt(db, QStringLiteral("Smith"), QStringLiteral("Ann")).Fields(kTown).IsNull());

        db.BeginTrans();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Kept")}, {kFirst, QStringLiteral("B")}});
        clientAt(db, QStringLiteral("Jones"), QStringLiteral("Bob")).Delete();
        db.CommitTrans();
        db.Close();

        dao::Database again = dao::OpenDatabase(path_);
        QCOMPARE(clientNames(again),
                 (QStringList{QStringLiteral("Kept|B"), QStringLiteral("Smith|Ann")}));
    }

    void closingWithAnOpenTransactionRollsItBack() {
        {
            dao::Database db = dao::OpenDatabase(path_);
            db.BeginTrans();
            test::AddRow(db, kClients,
                         {{kLast, QStringLiteral("Lost")}, {kFirst, QStringLiteral("C")}});
        }
        dao::Database db = dao::OpenDatabase(path_);
        QCOMPARE(clientNames(db).size(), 2);
        // The lock went with the closed transaction.
        dao::SetLockTimeout(50);
        db.BeginTrans();
        db.CommitTrans();
        dao::SetLockTimeout(1000);
    }

    void nestedTransactionsUndoOnlyTheirOwnPart() {
        dao::Database db = dao::OpenDatabase(path_);
        db.BeginTrans();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Outer")}, {kFirst, QStringLiteral("D")}});
        db.BeginTrans();
        test::AddRow(db, kClients,
                     {{kLast, QStringLiteral("Inner")}, {kFirst, QStringLiteral("E")}});
        db.Rollback();
        db.CommitTrans();
        QCOMPARE(clientNames(db),
                 (QStringList{QStringLiteral("Jones|Bob"), QStringLiteral("Outer|D"),
                              QStringLiteral("Smith|Ann")}));
    }

    void executeReportsBadStatements() {
        dao::Database db = dao::OpenDatabase(path_);
        QVERIFY_DAO_ERROR(db.Execute(QStringLiteral("DELETE FRM Clients")), dao::kErrSyntax);
        db.Execute(QStringLiteral("DELETE FROM Clients WHERE \"Last Name\" = 'JONES'"));
        QCOMPARE(clientNames(db), QStringList{QStringLiteral("Smith|Ann")});
    }
};

QTEST_GUILESS_MAIN(DaoEditingTest)
#include "test_dao_editing.moc"
