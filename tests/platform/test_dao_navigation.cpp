// Moving through table recordsets: index order, stored order, BOF and EOF at
// both ends, Seek on one to three keys, and the position after a Delete.

#include <QtTest>

#include "platform/dao.h"
#include "support/temp_database.h"

using namespace quillon;
using dao::DaoError;

namespace {

QString nameOf(const dao::Recordset& rs) {
    return rs.Fields(QStringLiteral("Last Name")).Value().toString() + QStringLiteral(", ") +
           rs.Fields(QStringLiteral("First Names")).Value().toString();
}

}  // namespace

class DaoNavigationTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

private Q_SLOTS:
    void init() {
        QFile::remove(folder_.FilePath(QStringLiteral("QUILL020.MDB")));
        path_ = test::MakeDatabase(folder_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        // Stored out of index order, with a shared last name and a mixed-case one.
        for (const auto& [last, first] : std::vector<std::pair<QString, QString>>{
                 {QStringLiteral("Smith"), QStringLiteral("Ann")},
                 {QStringLiteral("adams"), QStringLiteral("Zoe")},
                 {QStringLiteral("Jones"), QStringLiteral("Bob")},
                 {QStringLiteral("Smith"), QStringLiteral("Aaron")},
                 {QStringLiteral("Brown"), QStringLiteral("Cy")}}) {
            test::AddRow(
                db, QStringLiteral("Clients"),
                {{QStringLiteral("Last Name"), last}, {QStringLiteral("First Names"), first}});
        }
    }

    void walksForwardAndBackInIndexOrder() {
        dao::Database db = dao::OpenDatabase(path_);
        const QStringList expected{QStringLiteral("adams, Zoe"), QStringLiteral("Brown, Cy"),
                                   QStringLiteral("Jones, Bob"), QStringLiteral("Smith, Aaron"),
                                   QStringLiteral("Smith, Ann")};
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        QStringList forward;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            QVERIFY(!rs.BOF());
            forward << nameOf(rs);
        }
        QCOMPARE(forward, expected);
        QVERIFY(!rs.BOF());
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Fields(0).Value(), dao::kErrNoCurrentRecord);

        QStringList backward;
        for (rs.MovePrevious(); !rs.BOF(); rs.MovePrevious()) {
            QVERIFY(!rs.IsEOF());
            backward.prepend(nameOf(rs));
        }
        QCOMPARE(backward, expected);
        QVERIFY_DAO_ERROR(rs.MovePrevious(), dao::kErrNoCurrentRecord);
        rs.MoveNext();
        QCOMPARE(nameOf(rs), expected.first());

        rs.MoveLast();
        QCOMPARE(nameOf(rs), expected.last());
        rs.MoveFirst();
        QCOMPARE(nameOf(rs), expected.first());
    }

    void walksInStoredOrderWithoutIndex() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Ann"));
        rs.MoveLast();
        QCOMPARE(nameOf(rs), QStringLiteral("Brown, Cy"));
        rs.MovePrevious();
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Aaron"));
        QCOMPARE(test::WalkRows(db, QStringLiteral("Clients"), QString(),
                                {QStringLiteral("First Names")}),
                 (QStringList{QStringLiteral("Ann"), QStringLiteral("Zoe"), QStringLiteral("Bob"),
                              QStringLiteral("Aaron"), QStringLiteral("Cy")}));
    }

    void emptyTableIsAtBothEnds() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Jottings"));
        QVERIFY(rs.BOF());
        QVERIFY(rs.IsEOF());
        QCOMPARE(rs.RecordCount(), 0L);
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.MovePrevious(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.MoveFirst(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Fields(QStringLiteral("Note")).Value(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrNoCurrentRecord);
        QVERIFY(rs.BOF() && rs.IsEOF());
    }

    void equalKeysOfPlainIndexKeepStoredOrderBothWays() {
        dao::Database db = dao::OpenDatabase(path_);
        const QStringList rows{QStringLiteral("Leeds|1"), QStringLiteral("York|2"),
                               QStringLiteral("leeds|3"), QStringLiteral("Bath|4"),
                               QStringLiteral("LEEDS|5"), QStringLiteral("York|6")};
        for (const QString& row : rows) {
            const QStringList parts = row.split(QLatin1Char('|'));
            test::AddRow(db, QStringLiteral("Visits"),
                         {{QStringLiteral("Town"), parts[0]}, {QStringLiteral("Note"), parts[1]}});
        }
        test::AddRow(db, QStringLiteral("Visits"), {{QStringLiteral("Note"), QStringLiteral("7")}});
        const QStringList expected{QStringLiteral("7"), QStringLiteral("4"), QStringLiteral("1"),
                                   QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("2"),
                                   QStringLiteral("6")};
        QCOMPARE(test::WalkRows(db, QStringLiteral("Visits"), QStringLiteral("Town"),
                                {QStringLiteral("Note")}),
                 expected);

        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Visits"));
        rs.SetIndex(QStringLiteral("Town"));
        rs.MoveLast();
        QStringList backward;
        for (; !rs.BOF(); rs.MovePrevious()) {
            backward.prepend(rs.Fields(QStringLiteral("Note")).Value().toString());
        }
        QCOMPARE(backward, expected);

        rs.Seek(QStringLiteral("="), {QStringLiteral("LEEDS")});
        QVERIFY(!rs.NoMatch());
        QCOMPARE(rs.Fields(QStringLiteral("Note")).Value().toString(), QStringLiteral("1"));
        // A walk on from a seek: first the rows of the same key, then those beyond.
        QStringList onward;
        for (rs.MoveNext(); !rs.IsEOF(); rs.MoveNext()) {
            onward << rs.Fields(QStringLiteral("Note")).Value().toString();
        }
        QCOMPARE(onward, expected.mid(3));
        rs.Seek(QStringLiteral("="), {QStringLiteral("LEEDS")});
        rs.Seek(QStringLiteral("<="), {QStringLiteral("leeds")});
        QCOMPARE(rs.Fields(QStringLiteral("Note")).Value().toString(), QStringLiteral("5"));
        rs.Seek(QStringLiteral("<"), {QStringLiteral("Bath")});
        QCOMPARE(rs.Fields(QStringLiteral("Note")).Value().toString(), QStringLiteral("7"));
        rs.Seek(QStringLiteral(">"), {QStringLiteral("Leeds")});
        QCOMPARE(rs.Fields(QStringLiteral("Note")).Value().toString(), QStringLiteral("2"));
    }

    void seeksOnTwoKeysIgnoringCase() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.Seek(QStringLiteral("="), {QStringLiteral("SMITH"), QStringLiteral("ann")});
        QVERIFY(!rs.NoMatch());
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Ann"));
        rs.MovePrevious();
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Aaron"));

        rs.Seek(QStringLiteral("="), {QStringLiteral("Smith"), QStringLiteral("Anne")});
        QVERIFY(rs.NoMatch());
        QVERIFY(!rs.BOF() && !rs.IsEOF());
        QVERIFY_DAO_ERROR(rs.Fields(0).Value(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrNoCurrentRecord);
        rs.MoveFirst();
        QVERIFY(!rs.NoMatch());
        QCOMPARE(nameOf(rs), QStringLiteral("adams, Zoe"));

        rs.Seek(QStringLiteral(">="), {QStringLiteral("Jones"), QStringLiteral("C")});
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Aaron"));
        rs.Seek(QStringLiteral(">="), {QStringLiteral("jones"), QStringLiteral("BOB")});
        QCOMPARE(nameOf(rs), QStringLiteral("Jones, Bob"));  // a key that is there
        rs.Seek(QStringLiteral(">"), {QStringLiteral("Smith"), QStringLiteral("Ann")});
        QVERIFY(rs.NoMatch());
        rs.Seek(QStringLiteral("<"), {QStringLiteral("Smith")});
        QCOMPARE(nameOf(rs), QStringLiteral("Jones, Bob"));
        rs.Seek(QStringLiteral("="), {QStringLiteral("smith")});
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Aaron"));
    }

    void seeksOnThreeKeys() {
        dao::Database db = dao::OpenDatabase(path_);
        for (const auto& [company, stock, fid] : std::vector<std::tuple<QString, QString, bool>>{
                 {QStringLiteral("Acme"), QStringLiteral("Ord"), true},
                 {QStringLiteral("Acme"), QStringLiteral("Ord"), false},
                 {QStringLiteral("Acme"), QStringLiteral("Pref"), false},
                 {QStringLiteral("Bolt"), QStringLiteral("Ord"), false}}) {
            test::AddRow(db, QStringLiteral("Dividends"),
                         {{QStringLiteral("Company"), company},
                          {QStringLiteral("Stock"), stock},
                          {QStringLiteral("FID"), fid},
                          {QStringLiteral("Rate"), fid ? 2.5 : 1.5}});
        }
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Dividends"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.Seek(QStringLiteral("="), {QStringLiteral("acme"), QStringLiteral("ORD"), true});
        QVERIFY(!rs.NoMatch());
        QCOMPARE(rs.Fields(QStringLiteral("Rate")).Value().toDouble(), 2.5);
        QCOMPARE(rs.Fields(QStringLiteral("FID")).Value(), QVariant(true));
        rs.MovePrevious();
        QCOMPARE(rs.Fields(QStringLiteral("FID")).Value(), QVariant(false));
        QCOMPARE(rs.Fields(QStringLiteral("Stock")).Value().toString(), QStringLiteral("Ord"));
        rs.Seek(QStringLiteral("="), {QStringLiteral("Bolt"), QStringLiteral("Ord"), true});
        QVERIFY(rs.NoMatch());
        rs.Seek(QStringLiteral(">"), {QStringLiteral("Acme"), QStringLiteral("Ord"), true});
        QCOMPARE(rs.Fields(QStringLiteral("Stock")).Value().toString(), QStringLiteral("Pref"));
        QVERIFY_DAO_ERROR(rs.Seek(QStringLiteral("="), {1, 2, 3, 4}), dao::kErrInvalidArgument);
        QVERIFY_DAO_ERROR(rs.Seek(QStringLiteral("~"), {1}), dao::kErrInvalidArgument);
    }

    void nullKeysSortFirstBothWays() {
        dao::Database db = dao::OpenDatabase(path_);
        test::AddRow(db, QStringLiteral("Clients"),
                     {{QStringLiteral("First Names"), QStringLiteral("Nemo")}});
        test::AddRow(db, QStringLiteral("Clients"),
                     {{QStringLiteral("Last Name"), QStringLiteral("Smith")}});
        const QStringList forward =
            test::WalkRows(db, QStringLiteral("Clients"), QStringLiteral("Name"),
                           {QStringLiteral("Last Name"), QStringLiteral("First Names")});
        QCOMPARE(forward,
                 (QStringList{QStringLiteral("<null>|Nemo"), QStringLiteral("adams|Zoe"),
                              QStringLiteral("Brown|Cy"), QStringLiteral("Jones|Bob"),
                              QStringLiteral("Smith|<null>"), QStringLiteral("Smith|Aaron"),
                              QStringLiteral("Smith|Ann")}));
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.MoveLast();
        QStringList backward;
        for (; !rs.BOF(); rs.MovePrevious()) {
            const QVariant first = rs.Fields(QStringLiteral("First Names")).Value();
            backward.prepend(first.isNull() ? QStringLiteral("<null>") : first.toString());
        }
        QCOMPARE(backward,
                 (QStringList{QStringLiteral("Nemo"), QStringLiteral("Zoe"), QStringLiteral("Cy"),
                              QStringLiteral("Bob"), QStringLiteral("<null>"),
                              QStringLiteral("Aaron"), QStringLiteral("Ann")}));
    }

    void deleteLeavesNoCurrentRowThenMovesOn() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.Seek(QStringLiteral("="), {QStringLiteral("Jones"), QStringLiteral("Bob")});
        rs.Delete();
        QVERIFY(!rs.BOF() && !rs.IsEOF());
        QVERIFY_DAO_ERROR(rs.Fields(0).Value(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrNoCurrentRecord);
        rs.MoveNext();
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Aaron"));

        rs.Delete();
        rs.MovePrevious();
        QCOMPARE(nameOf(rs), QStringLiteral("Brown, Cy"));
        QCOMPARE(rs.RecordCount(), 3L);

        rs.MoveLast();
        rs.Delete();
        rs.MoveNext();
        QVERIFY(rs.IsEOF());
    }

    void aNewRowDoesNotMoveAFreshRecordset() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.AddNew();
        rs.Fields(QStringLiteral("Last Name")).SetValue(QStringLiteral("Aardvark"));
        rs.Update();
        QCOMPARE(nameOf(rs), QStringLiteral("adams, Zoe"));
        rs.MovePrevious();
        QCOMPARE(rs.Fields(QStringLiteral("Last Name")).Value().toString(),
                 QStringLiteral("Aardvark"));
    }

    void walkSeesOwnChangesAheadAtOnce() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        rs.SetIndex(QStringLiteral("Name"));
        rs.MoveNext();
        QCOMPARE(nameOf(rs), QStringLiteral("Brown, Cy"));
        test::AddRow(db, QStringLiteral("Clients"),
                     {{QStringLiteral("Last Name"), QStringLiteral("Brown")},
                      {QStringLiteral("First Names"), QStringLiteral("Dee")}});
        rs.MoveNext();
        QCOMPARE(nameOf(rs), QStringLiteral("Brown, Dee"));

        dao::Recordset other = db.OpenRecordset(QStringLiteral("Clients"));
        other.SetIndex(QStringLiteral("Name"));
        other.Seek(QStringLiteral("="), {QStringLiteral("Smith"), QStringLiteral("Aaron")});
        other.Delete();
        rs.MoveNext();
        QCOMPARE(nameOf(rs), QStringLiteral("Jones, Bob"));
        rs.MoveNext();
        QCOMPARE(nameOf(rs), QStringLiteral("Smith, Ann"));

        db.BeginTrans();
        test::AddRow(db, QStringLiteral("Clients"),
                     {{QStringLiteral("Last Name"), QStringLiteral("Young")},
                      {QStringLiteral("First Names"), QStringLiteral("Al")}});
        rs.MoveFirst();
        rs.MoveNext();  // reads ahead, up to the new row
        db.Rollback();
        QStringList rest;
        for (rs.MoveNext(); !rs.IsEOF(); rs.MoveNext()) {
            rest << nameOf(rs);
        }
        QCOMPARE(rest, (QStringList{QStringLiteral("Brown, Dee"), QStringLiteral("Jones, Bob"),
                                    QStringLiteral("Smith, Ann")}));
    }

    void unknownNamesAreRefused() {
        dao::Database db = dao::OpenDatabase(path_);
        QVERIFY_DAO_ERROR(db.OpenRecordset(QStringLiteral("Nobody")), dao::kErrTableNotFound);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("clients"));
        QCOMPARE(rs.Name(), QStringLiteral("Clients"));
        QVERIFY_DAO_ERROR(rs.SetIndex(QStringLiteral("Town")), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Fields(QStringLiteral("Postcode")), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Fields(8), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Seek(QStringLiteral("="), {QStringLiteral("Smith")}),
                          dao::kErrIndexNotSet);
        QCOMPARE(rs.Fields(QStringLiteral("last name")).Name(), QStringLiteral("Last Name"));
    }

    void closedObjectsRefuseWork() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset(QStringLiteral("Clients"));
        db.Close();
        QVERIFY(!rs.IsOpen());
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrObjectInvalid);
        QVERIFY_DAO_ERROR(db.OpenRecordset(QStringLiteral("Clients")), dao::kErrObjectInvalid);
    }
};

QTEST_GUILESS_MAIN(DaoNavigationTest)
#include "test_dao_navigation.moc"
