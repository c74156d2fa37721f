// Moving through table recordsets: index order, stored order, BOF and EOF at
// both ends, Seek on one to three keys, and the position after a Delete.

#include <QtTest>

#include "platform/dao.h"
#include "support/error_number.h"
#include "support/shell_testing.h"
#include "support/temp_database.h"

using namespace quillon;

namespace {

const QStringList kName{"Last Name", "First Names"};

// The fields each table's rows are shown by.
QStringList FieldsOf(const QString& table) {
    return table == "Visits"      ? QStringList{"Town", "Note"}
           : table == "Dividends" ? QStringList{"Company", "Stock", "FID", "Rate"}
                                  : kName;
}

// The row the recordset stands on, its fields joined by "|".
QString Row(const dao::Recordset& rs) {
    QStringList values;
    for (const QString& field : FieldsOf(rs.Name())) {
        const QVariant value = rs.Fields(field).Value();
        values << (value.isNull() ? QStringLiteral("<null>") : value.toString());
    }
    return values.join('|');
}

void AddRows(dao::Database& db, const QString& table, const QStringList& rows) {
    for (const QString& row : rows) {
        test::FieldValues values;
        const QStringList parts = row.split('|');
        for (qsizetype i = 0; i < parts.size(); ++i) {
            if (parts[i] != "<null>") {
                values.emplace_back(FieldsOf(table)[i], parts[i]);
            }
        }
        test::AddRow(db, table, values);
    }
}

// The outcome of one seek, "<table> <op> <keys>": the row found, the one
// before it and those after it, or what a failed seek leaves.
QString Seek(dao::Recordset& rs, const QStringList& words) {
    QVariantList keys;
    for (const QString& key : words.mid(2)) {
        keys << (key == "true" || key == "false" ? QVariant(key == "true") : QVariant(key));
    }
    try {
        rs.Seek(words[1], keys);
    } catch (const dao::DaoError& error) {
        return QStringLiteral("error %1").arg(error.Number());
    }
    if (rs.NoMatch()) {
        return QStringLiteral("no match%1%2, reading error %3, next error %4")
            .arg(rs.BOF() ? " at BOF" : "", rs.IsEOF() ? " at EOF" : "")
            .arg(ErrorNumberOf([&rs] { rs.Fields(0).Value(); }))
            .arg(ErrorNumberOf([&rs] { rs.MoveNext(); }));
    }
    QString outcome = Row(rs) + ", after ";
    rs.MovePrevious();
    outcome += rs.BOF() ? "BOF" : Row(rs);
    rs.Seek(words[1], keys);
    for (rs.MoveNext(); !rs.IsEOF(); rs.MoveNext()) {
        outcome += ", then " + Row(rs);
    }
    return outcome;
}

}  // namespace

class DaoNavigationTest : public QObject {
    Q_OBJECT

private:
    test::TempFolder folder_;
    QString path_;

private Q_SLOTS:
    // Stored out of index order, with shared keys in mixed case and a Null key.
    void init() {
        QFile::remove(folder_.FilePath("QUILL020.MDB"));
        path_ = test::MakeDatabase(folder_, test::SmallTables());
        dao::Database db = dao::OpenDatabase(path_);
        AddRows(db, "Clients", {"Smith|Ann", "adams|Zoe", "Jones|Bob", "Smith|Aaron", "Brown|Cy"});
        AddRows(db, "Visits",
                {"Leeds|1", "York|2", "leeds|3", "Bath|4", "LEEDS|5", "York|6", "<null>|7"});
        AddRows(db, "Dividends",
                {"Acme|Ord|true|2.5", "Acme|Ord|false|1.5", "Acme|Pref|false|1.5",
                 "Bolt|Ord|false|1.5"});
    }

    // For each table and index the reference file holds the rows in order; a
    // fresh recordset stands on the first, and the walk back from EOF to BOF
    // meets the same rows. Moving past either end is refused. Equal keys keep
    // their stored order and Null keys sort first.
    void walksBothWaysInTheSameOrder() {
        dao::Database db = dao::OpenDatabase(path_);
        QStringList orders;
        for (const QString walk : {"Clients Name", "Clients", "Visits Town", "Clients Name Null"}) {
            const QStringList words = walk.split(' ');
            if (words.size() == 3) {
                AddRows(db, "Clients", {"<null>|Nemo", "Smith|<null>"});
            }
            dao::Recordset rs = db.OpenRecordset(words[0]);
            if (words.size() > 1) {
                rs.SetIndex(words[1]);
            }
            const QString first = Row(rs);
            QStringList forward;
            for (; !rs.IsEOF(); rs.MoveNext()) {
                QVERIFY(!rs.BOF());
                forward << Row(rs);
            }
            QVERIFY(!rs.BOF());
            QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrNoCurrentRecord);
            QVERIFY_DAO_ERROR(rs.Fields(0).Value(), dao::kErrNoCurrentRecord);
            QStringList backward;
            for (rs.MovePrevious(); !rs.BOF(); rs.MovePrevious()) {
                QVERIFY(!rs.IsEOF());
                backward.prepend(Row(rs));
            }
            QVERIFY_DAO_ERROR(rs.MovePrevious(), dao::kErrNoCurrentRecord);
            rs.MoveNext();
            QCOMPARE(Row(rs), first);
            rs.MoveLast();
            rs.MovePrevious();
            QCOMPARE(Row(rs), forward.at(forward.size() - 2));
            rs.MoveFirst();
            QCOMPARE(Row(rs), first);
            QCOMPARE(backward, forward);
            orders << walk + ": " + forward.join(", ");
        }
        QCOMPARE(orders, testing::ReferenceLines("walks.txt", orders));
    }

    void emptyTableIsAtBothEnds() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset("Jottings");
        QVERIFY(rs.BOF() && rs.IsEOF());
        QCOMPARE(rs.RecordCount(), 0L);
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.MovePrevious(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.MoveFirst(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Fields("Note").Value(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Edit(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrNoCurrentRecord);
        QVERIFY(rs.BOF() && rs.IsEOF());
    }

    // Seeks one after another on one recordset of each table, against the
    // reference file: keys compare without regard to case, fewer keys than
    // the index has match the first of their rows, and a walk on from a seek
    // takes the rest of the same key first. A failed seek leaves no current
    // row, which a move to the first row puts right.
    void seeksFindTheirRows() {
        const QStringList seeks = QStringLiteral(
                                      "Clients = SMITH ann; Clients = Smith Anne; "
                                      "Clients >= Jones C; Clients >= jones BOB; "
                                      "Clients > Smith Ann; Clients < Smith; Clients = smith; "
                                      "Visits = LEEDS; Visits <= leeds; Visits < Bath; "
                                      "Visits > Leeds; Dividends = acme ORD true; "
                                      "Dividends = Bolt Ord true; Dividends > Acme Ord true; "
                                      "Dividends = 1 2 3 4; Dividends ~ 1")
                                      .split("; ");
        dao::Database db = dao::OpenDatabase(path_);
        std::map<QString, dao::Recordset> recordsets;
        QStringList outcomes;
        for (const QString& seek : seeks) {
            const QStringList words = seek.split(' ');
            if (!recordsets.count(words[0])) {
                recordsets[words[0]] = db.OpenRecordset(words[0]);
                recordsets[words[0]].SetIndex(words[0] == "Visits" ? "Town" : "Name");
            }
            dao::Recordset& rs = recordsets[words[0]];
            outcomes << seek + ": " + Seek(rs, words);
            rs.MoveFirst();
            QVERIFY(!rs.NoMatch());
        }
        QCOMPARE(outcomes, testing::ReferenceLines("seeks.txt", outcomes));
    }

    void deleteLeavesNoCurrentRowThenMovesOn() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset("Clients");
        rs.SetIndex("Name");
        rs.Seek("=", {"Jones", "Bob"});
        rs.Delete();
        QVERIFY(!rs.BOF() && !rs.IsEOF());
        QVERIFY_DAO_ERROR(rs.Fields(0).Value(), dao::kErrNoCurrentRecord);
        QVERIFY_DAO_ERROR(rs.Delete(), dao::kErrNoCurrentRecord);
        rs.MoveNext();
        QCOMPARE(Row(rs), "Smith|Aaron");
        rs.Delete();
        rs.MovePrevious();
        QCOMPARE(Row(rs), "Brown|Cy");
        QCOMPARE(rs.RecordCount(), 3L);
        rs.MoveLast();
        rs.Delete();
        rs.MoveNext();
        QVERIFY(rs.IsEOF());
    }

    // A new row leaves a fresh recordset where it stood; a walk sees the
    // rows its own connection adds or deletes ahead of it, and no row whose
    // transaction was rolled back.
    void walkSeesOwnChangesAheadAtOnce() {
        dao::Database db = dao::OpenDatabase(path_);
        dao::Recordset rs = db.OpenRecordset("Clients");
        rs.SetIndex("Name");
        rs.AddNew();
        rs.Fields("Last Name").SetValue("Aardvark");
        rs.Update();
        QCOMPARE(Row(rs), "adams|Zoe");
        rs.MovePrevious();
        QCOMPARE(Row(rs), "Aardvark|<null>");
        rs.MoveNext();
        rs.MoveNext();
        QCOMPARE(Row(rs), "Brown|Cy");
        AddRows(db, "Clients", {"Brown|Dee"});
        rs.MoveNext();
        QCOMPARE(Row(rs), "Brown|Dee");
        dao::Recordset other = db.OpenRecordset("Clients");
        other.SetIndex("Name");
        other.Seek("=", {"Smith", "Aaron"});
        other.Delete();
        rs.MoveNext();
        QCOMPARE(Row(rs), "Jones|Bob");
        rs.MoveNext();
        QCOMPARE(Row(rs), "Smith|Ann");
        db.BeginTrans();
        AddRows(db, "Clients", {"Young|Al"});
        rs.MoveFirst();
        rs.MoveNext();  // reads ahead, up to the new row
        db.Rollback();
        QStringList rest;
        for (rs.MoveNext(); !rs.IsEOF(); rs.MoveNext()) {
            rest << Row(rs);
        }
        QCOMPARE(rest, (QStringList{"Brown|Cy", "Brown|Dee", "Jones|Bob", "Smith|Ann"}));
    }

    void unknownNamesAndClosedObjectsAreRefused() {
        dao::Database db = dao::OpenDatabase(path_);
        QVERIFY_DAO_ERROR(db.OpenRecordset("Nobody"), dao::kErrTableNotFound);
        dao::Recordset rs = db.OpenRecordset("clients");
        QCOMPARE(rs.Name(), "Clients");
        QVERIFY_DAO_ERROR(rs.SetIndex("Town"), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Fields("Postcode"), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Fields(8), dao::kErrItemNotFound);
        QVERIFY_DAO_ERROR(rs.Seek("=", {"Smith"}), dao::kErrIndexNotSet);
        QCOMPARE(rs.Fields("last name").Name(), "Last Name");
        db.Close();
        QVERIFY(!rs.IsOpen());
        QVERIFY_DAO_ERROR(rs.MoveNext(), dao::kErrObjectInvalid);
        QVERIFY_DAO_ERROR(db.OpenRecordset("Clients"), dao::kErrObjectInvalid);
    }
};

QTEST_GUILESS_MAIN(DaoNavigationTest)
#include "test_dao_navigation.moc"
