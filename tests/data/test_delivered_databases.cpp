// The databases that the build puts in the program folder, and synthetic
// client databases.

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"
#include "support/temp_database.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace quillon;
using quillon::test::Quoted;
using quillon::test::SqliteProbe;

namespace {

QString Delivered(const char* file) {
    return QDir(QStringLiteral(QUILLON_PROGRAM_DIR)).filePath(QString::fromLatin1(file));
}

QString CountSql(const QString& table, const QString& where = {}) {
    return QStringLiteral("SELECT count(*) FROM %1 %2").arg(Quoted(table), where);
}

const QString kByName = "WHERE \"First Names\" = ? AND \"Last Name\" = ?";

// Every value the file holds fits its field: texts within their width,
// Yes/No fields 0 or 1, integers whole. Unset fields are Null.
void VerifyValuesFitTheirFields(SqliteProbe& file, const std::vector<dao::TableDef>& tables) {
    for (const dao::TableDef& table : tables) {
        for (const dao::FieldDef& field : table.fields) {
            const QString where = table.name + QLatin1Char('.') + field.name;
            const QString column = Quoted(field.name);
            QString misfit;
            switch (field.type) {
                case dao::dbText:
                    misfit = QStringLiteral("typeof(%1) <> 'text' OR length(%1) > %2")
                                 .arg(column)
                                 .arg(field.size);
                    break;
                case dao::dbBoolean:
                    misfit = QStringLiteral("%1 NOT IN (0, 1)").arg(column);
                    break;
                default:
                    misfit = QStringLiteral("typeof(%1) <> 'integer'").arg(column);
                    break;
            }
            const QVariant count = file.Value(CountSql(
                table.name, QStringLiteral("WHERE %1 IS NOT NULL AND (%2)").arg(column, misfit)));
            QVERIFY2(file.LastError().isEmpty(), qPrintable(file.LastError()));
            QVERIFY2(count.toInt() == 0, qPrintable(where));
        }
    }
}

// Every client table holds exactly the names of `Clients`.
void VerifyClientsInEveryTable(SqliteProbe& file, int clients) {
    QCOMPARE(file.Value(CountSql("Clients")).toInt(), clients);
    for (const QString& table : ClientTableNames()) {
        QVERIFY2(file.Value(CountSql(table)).toInt() == clients, qPrintable(table));
        const QString matched =
            QStringLiteral(
                "SELECT count(*) FROM %1 t JOIN Clients c ON c.\"First Names\" = t.\"First Names\" "
                "AND c.\"Last Name\" = t.\"Last Name\"")
                .arg(Quoted(table));
        QVERIFY2(file.Value(matched).toInt() == clients, qPrintable(table));
    }
}

// Each row of `table`, in stored order, its values joined by "|".
QStringList RowsOf(SqliteProbe& file, const QString& table) {
    QStringList rows;
    for (const QVariantList& row :
         file.Rows("SELECT * FROM " + Quoted(table) + " ORDER BY rowid")) {
        QStringList values;
        for (const QVariant& value : row) {
            values << (value.isNull() ? "<null>" : value.toString());
        }
        rows << values.join('|');
    }
    return rows;
}

QStringList DumpAll(SqliteProbe& file) {
    QStringList dump;
    for (const dao::TableDef& table : ClientDatabaseTables()) {
        for (const QString& row : RowsOf(file, table.name)) {
            dump << table.name + ':' + row;
        }
    }
    return dump;
}

// One version row, a number of the layout that holds Office No and Email.
void VerifyDeliveredVersion(dao::Database& db) {
    dao::Recordset version = db.OpenRecordset("Version");
    QCOMPARE(version.RecordCount(), 1L);
    version.MoveFirst();
    bool isNumber = false;
    const double number = version.Fields("Version").Value().toString().toDouble(&isNumber);
    QVERIFY(isNumber);
    QVERIFY(number >= 2001.0);
}

}  // namespace

class TestDeliveredDatabases : public QObject {
    Q_OBJECT

private:
    QTemporaryDir scratch_;

private Q_SLOTS:
    void programFolderHoldsTheDeliveredFiles() {
        const std::pair<const char*, std::vector<dao::TableDef>> files[] = {
            {kClientDatabaseFile, ClientDatabaseTables()},
            {kDefaultOfficeDatabaseFile, OfficeDatabaseTables()},
            {kDefaultDividendDatabaseFile, DividendDatabaseTables()},
        };
        for (const auto& [name, tables] : files) {
            SqliteProbe file(Delivered(name), SqliteProbe::Access::ReadOnly);
            QVERIFY2(file.IsOpen(), name);
            QStringList expected;
            for (const dao::TableDef& table : tables) {
                expected << table.name;
            }
            QStringList present = file.TableNames();
            present.sort();
            expected.sort();
            QCOMPARE(present, expected);
            VerifyValuesFitTheirFields(file, tables);
        }
    }

    void sampleClientStandsInEveryClientTable() {
        SqliteProbe file(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
        VerifyClientsInEveryTable(file, 1);
        const QVariantList sample{QString::fromLatin1(kSampleClientFirst),
                                  QString::fromLatin1(kSampleClientLast)};
        QCOMPARE(file.Value(CountSql("Clients", kByName), sample).toInt(), 1);
        QCOMPARE(file.Value("SELECT \"File Identifier\" FROM Administration " + kByName, sample),
                 QVariant("Sample, A."));
    }

    // The shared descriptions, titles and diary tax years, row by row, against
    // the reference: what a new installation shows on every screen.
    void commonRowsMatchTheirReference() {
        SqliteProbe file(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
        const QStringList rows = RowsOf(file, "Common");
        QCOMPARE(rows, testing::ReferenceLines("delivered-common.txt", rows));
    }

    void officeDatabaseHoldsThePublishedOffices() {
        dao::Database db = dao::OpenDatabase(Delivered(kDefaultOfficeDatabaseFile), false, true);
        dao::Recordset offices = db.OpenRecordset("Tax Offices");
        offices.SetIndex("Office Name");
        offices.Seek("=", {"Accounts Office Cumbernauld", "902"});
        QVERIFY(!offices.NoMatch());
        offices.SetIndex("District Code");
        offices.Seek("=", {"902"});
        QVERIFY(!offices.NoMatch());
        QCOMPARE(offices.Fields("Name").Value(), QVariant("Accounts Office Cumbernauld"));
        // Every office can be reached by its three-character number.
        for (offices.MoveFirst(); !offices.IsEOF(); offices.MoveNext()) {
            QCOMPARE(offices.Fields("Number").Value().toString().size(), 3);
            QVERIFY(!offices.Fields("Name").IsNull());
        }
        VerifyDeliveredVersion(db);
    }

    void dividendDatabaseHoldsThePublishedShares() {
        dao::Database db = dao::OpenDatabase(Delivered(kDefaultDividendDatabaseFile), false, true);
        dao::Recordset shares = db.OpenRecordset("Dividends");
        shares.SetIndex("Name");
        shares.Seek("=", {"3i Group PLC", "Ordinary 50p", false});
        QVERIFY(!shares.NoMatch());
        // Every row came with the published file, so an update replaces them all.
        for (shares.MoveFirst(); !shares.IsEOF(); shares.MoveNext()) {
            QCOMPARE(shares.Fields("Issued").Value(), QVariant(1));
        }
        VerifyDeliveredVersion(db);
    }

    void syntheticClientsAreDistinctAndComplete() {
        constexpr int kCount = 400;
        const QString path = scratch_.filePath("synthetic.mdb");
        MakeSyntheticClientDatabase(path, kCount);
        SqliteProbe file(path);
        VerifyClientsInEveryTable(file, kCount + 1);
        VerifyValuesFitTheirFields(file, ClientDatabaseTables());

        // The descriptions are those of a delivered database.
        SqliteProbe delivered(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
        const QString common = "SELECT * FROM Common ORDER BY Name";
        QCOMPARE(file.Rows(common), delivered.Rows(common));

        // Enough is filled for lists, filters and reports to have work to do, and
        // dates are in the forms the screens leave.
        const auto filled = [&](const QString& table, const QString& field) {
            return file.Value(CountSql(table, QStringLiteral("WHERE %1 <> ''").arg(Quoted(field))))
                .toInt();
        };
        QCOMPARE(filled("Personal", "Address 1"), kCount);
        QCOMPARE(filled("Administration", "File Identifier"), kCount + 1);
        for (const auto& [table, field] : {std::pair{"Employment 1", "Employer"},
                                           {"Business 1", "Business Name"},
                                           {"Contributions", "Provider 1"},
                                           {"Diary 4", "Standard Date 20"}}) {
            const int count = filled(QString::fromLatin1(table), QString::fromLatin1(field));
            QVERIFY2(count > kCount / 20 && count < kCount, field);
        }
        const auto count = [&file](const char* table, const char* where) {
            return file.Value(CountSql(table, where)).toInt();
        };
        QVERIFY(count("Personal", "WHERE \"Indicator 2\" = 1") > 0);
        QCOMPARE(count("Personal",
                       "WHERE \"Date of Birth\" NOT GLOB "
                       "'[0-3][0-9]/[01][0-9]/[12][0-9][0-9][0-9]'"),
                 0);
        QCOMPARE(count("Diary 1",
                       "WHERE \"Standard Date 1\" <> '' AND \"Standard Date 1\" "
                       "NOT GLOB '[0-3][0-9]/[01][0-9]/[0-9][0-9]'"),
                 0);
    }

    void syntheticDatabaseIsTheSameEachTime() {
        const QString first = scratch_.filePath("first.mdb");
        const QString second = scratch_.filePath("second.mdb");
        MakeSyntheticClientDatabase(first, 60);
        MakeSyntheticClientDatabase(second, 60);
        SqliteProbe one(first);
        SqliteProbe other(second);
        const QStringList dump = DumpAll(one);
        QCOMPARE(dump.size(), 22 * 61 + 15);
        QCOMPARE(DumpAll(other), dump);
    }

    void toolReplacesTheFileItMakes() {
        // The build puts the tool beside the program folder, in its own folder.
        const QString tool =
            QDir(QStringLiteral(QUILLON_PROGRAM_DIR)).filePath("../tools/quillon-makedb");
        const QString path = scratch_.filePath("tool.mdb");
        const auto run = [&](const QStringList& arguments) {
            return QProcess::execute(tool, arguments);
        };
        QCOMPARE(run({"synthetic", path, "7"}), 0);
        QCOMPARE(run({"synthetic", path, "3"}), 0);
        {
            SqliteProbe file(path, SqliteProbe::Access::ReadOnly);
            QCOMPARE(file.Value(CountSql("Clients")).toInt(), 4);
        }
        QFile::remove(path);
        QVERIFY(run({"synthetic", path, "many"}) != 0);
        QVERIFY(run({"delivered"}) != 0);
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(TestDeliveredDatabases)
#include "test_delivered_databases.moc"
