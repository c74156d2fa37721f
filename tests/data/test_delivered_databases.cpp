// The databases that the build puts in the program folder, and synthetic
// client databases.

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "support/sqlite_probe.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
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

const QString kByName = QStringLiteral("WHERE \"First Names\" = ? AND \"Last Name\" = ?");

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
    QCOMPARE(file.Value(CountSql(QStringLiteral("Clients"))).toInt(), clients);
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

QStringList DumpAll(SqliteProbe& file) {
    QStringList dump;
    for (const dao::TableDef& table : ClientDatabaseTables()) {
        for (const QVariantList& row :
             file.Rows(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(Quoted(table.name)))) {
            QStringList values;
            for (const QVariant& value : row) {
                values << (value.isNull() ? QStringLiteral("<null>") : value.toString());
            }
            dump << table.name + QLatin1Char(':') + values.join(QLatin1Char('|'));
        }
    }
    return dump;
}

}  // namespace

class TestDeliveredDatabases : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void programFolderHoldsTheDeliveredFiles();
    void sampleClientStandsInEveryClientTable();
    void commonRowsHoldTheirDescriptions_data();
    void commonRowsHoldTheirDescriptions();
    void diaryPagesNameConsecutiveTaxYears();
    void onlyClientsRefusesASecondClientOfTheSameName();
    void officeDatabaseHoldsThePublishedOffices();
    void dividendDatabaseHoldsThePublishedShares();
    void syntheticClientsAreDistinctAndComplete();
    void syntheticDatabaseIsTheSameEachTime();
    void toolReplacesTheFileItMakes();

private:
    QTemporaryDir scratch_;
};

void TestDeliveredDatabases::programFolderHoldsTheDeliveredFiles() {
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

void TestDeliveredDatabases::sampleClientStandsInEveryClientTable() {
    SqliteProbe file(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
    VerifyClientsInEveryTable(file, 1);
    const QVariantList sample{QString::fromLatin1(kSampleClientFirst),
                              QString::fromLatin1(kSampleClientLast)};
    QCOMPARE(file.Value(CountSql(QStringLiteral("Clients"), kByName), sample).toInt(), 1);
    QCOMPARE(file.Value(QStringLiteral("SELECT \"File Identifier\" FROM Administration ") + kByName,
                        sample),
             QVariant(QStringLiteral("Sample, A.")));
}

void TestDeliveredDatabases::commonRowsHoldTheirDescriptions_data() {
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("texts");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("titled");
    QTest::addColumn<bool>("yeared");
    QTest::newRow("Personal") << QStringLiteral("Personal") << 10 << 40 << false << false;
    for (int page = 1; page <= 4; ++page) {
        const QString employment = QStringLiteral("Employment %1").arg(page);
        const QString business = QStringLiteral("Business %1").arg(page);
        QTest::newRow(qPrintable(employment)) << employment << 10 << 40 << false << false;
        QTest::newRow(qPrintable(business)) << business << 10 << 40 << false << false;
    }
    QTest::newRow("Assets") << QStringLiteral("Assets") << 15 << 30 << false << false;
    QTest::newRow("User") << QStringLiteral("User") << 8 << 40 << true << false;
    for (int page = 1; page <= 4; ++page) {
        const QString diary = QStringLiteral("Diary %1").arg(page);
        QTest::newRow(qPrintable(diary)) << diary << 20 << 40 << false << true;
    }
}

void TestDeliveredDatabases::commonRowsHoldTheirDescriptions() {
    QFETCH(QString, row);
    QFETCH(int, texts);
    QFETCH(int, width);
    QFETCH(bool, titled);
    QFETCH(bool, yeared);
    SqliteProbe file(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
    QCOMPARE(file.Value(CountSql(QStringLiteral("Common"))).toInt(), 15);
    const QList<QVariantList> rows = file.Rows(
        QStringLiteral("SELECT Title, \"Tax Year\", %1 FROM Common WHERE Name = ?").arg([] {
            QStringList columns;
            for (int n = 1; n <= 20; ++n) {
                columns << QStringLiteral("\"Text %1\"").arg(n);
            }
            return columns.join(QStringLiteral(", "));
        }()),
        {row});
    QCOMPARE(rows.size(), qsizetype(1));
    const QVariantList& values = rows.first();
    QCOMPARE(!values[0].isNull(), titled);
    QCOMPARE(!values[1].isNull(), yeared);
    QSet<QString> distinct;
    for (int n = 1; n <= 20; ++n) {
        const QVariant& text = values[n + 1];
        if (n <= texts) {
            QVERIFY2(!text.toString().trimmed().isEmpty(), qPrintable(QString::number(n)));
            QVERIFY2(text.toString().size() <= width, qPrintable(text.toString()));
            distinct.insert(text.toString());
        } else {
            QVERIFY2(text.isNull(), qPrintable(QString::number(n)));
        }
    }
    QCOMPARE(distinct.size(), texts);
    if (yeared) {
        // Some events, never more than the report's six columns, are marked
        // for the progress report.
        int marked = 0;
        for (int n = 1; n <= 20; ++n) {
            const QString text = values[n + 1].toString();
            marked += text.size() > 1 && text.startsWith(QLatin1Char('*')) ? 1 : 0;
        }
        QVERIFY(marked >= 1 && marked <= 6);
    }
}

void TestDeliveredDatabases::diaryPagesNameConsecutiveTaxYears() {
    SqliteProbe file(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
    static const QRegularExpression taxYear(QStringLiteral("^(\\d{4})-(\\d{2})$"));
    int previous = 0;
    for (int page = 1; page <= 4; ++page) {
        const QString year =
            file.Value(QStringLiteral("SELECT \"Tax Year\" FROM Common WHERE Name = ?"),
                       {QStringLiteral("Diary %1").arg(page)})
                .toString();
        const QRegularExpressionMatch match = taxYear.match(year);
        QVERIFY2(match.hasMatch(), qPrintable(year));
        const int start = match.captured(1).toInt();
        QCOMPARE(match.captured(2).toInt(), (start + 1) % 100);
        if (page > 1) {
            QCOMPARE(start, previous + 1);
        }
        previous = start;
    }
}

void TestDeliveredDatabases::onlyClientsRefusesASecondClientOfTheSameName() {
    const QString path = scratch_.filePath(QStringLiteral("unique.mdb"));
    MakeClientDatabase(path);
    SqliteProbe file(path);
    const QString insert =
        QStringLiteral("INSERT INTO %1 (\"First Names\", \"Last Name\") VALUES (?, ?)");
    const QVariantList otherCase{QStringLiteral("a."), QStringLiteral("SAMPLE")};
    for (const QString& table : ClientTableNames()) {
        const bool accepted = file.Exec(insert.arg(Quoted(table)), otherCase);
        QVERIFY2(accepted == (table != QLatin1String("Clients")), qPrintable(table));
    }
    // Another first name under the same last name is another client.
    QVERIFY(file.Exec(insert.arg(Quoted(QStringLiteral("Clients"))),
                      {QStringLiteral("B."), QStringLiteral("Sample")}));
    QVERIFY(!file.Exec(QStringLiteral("INSERT INTO Common (Name) VALUES ('PERSONAL')")));
}

void TestDeliveredDatabases::officeDatabaseHoldsThePublishedOffices() {
    SqliteProbe file(Delivered(kDefaultOfficeDatabaseFile), SqliteProbe::Access::ReadOnly);
    QCOMPARE(file.Value(CountSql(QStringLiteral("Tax Offices"),
                                 QStringLiteral("WHERE Name = ? AND Number = ?")),
                        {QStringLiteral("Accounts Office Cumbernauld"), QStringLiteral("902")})
                 .toInt(),
             1);
    QCOMPARE(file
                 .Value(CountSql(
                     QStringLiteral("Tax Offices"),
                     QStringLiteral("WHERE length(Number) <> 3 OR Number IS NULL OR Name IS NULL")))
                 .toInt(),
             0);
    QCOMPARE(file.Value(CountSql(QStringLiteral("Version"))).toInt(), 1);
    bool isNumber = false;
    const double version =
        file.Value(QStringLiteral("SELECT Version FROM Version")).toString().toDouble(&isNumber);
    QVERIFY(isNumber);
    QVERIFY(version >= 2001.0);
}

void TestDeliveredDatabases::dividendDatabaseHoldsThePublishedShares() {
    SqliteProbe delivered(Delivered(kDefaultDividendDatabaseFile), SqliteProbe::Access::ReadOnly);
    QCOMPARE(delivered
                 .Value(CountSql(QStringLiteral("Dividends"),
                                 QStringLiteral(
                                     "WHERE Company = ? AND Stock = ? AND FID = 0 AND Issued = 1")),
                        {QStringLiteral("3i Group PLC"), QStringLiteral("Ordinary 50p")})
                 .toInt(),
             1);
    QCOMPARE(
        delivered
            .Value(CountSql(QStringLiteral("Dividends"), QStringLiteral("WHERE Issued IS NOT 1")))
            .toInt(),
        0);
    QCOMPARE(delivered.Value(CountSql(QStringLiteral("Version"))).toInt(), 1);
    QVERIFY(delivered.Value(QStringLiteral("SELECT Version FROM Version")).toString().toDouble() >=
            2001.0);

    // The key has three parts: the same share as an FID is another row, the
    // same share in other case is not.
    const QString path = scratch_.filePath(QStringLiteral("dividends.mdb"));
    MakeDividendDatabase(path);
    SqliteProbe file(path);
    const QString insert =
        QStringLiteral("INSERT INTO Dividends (Company, Stock, FID) VALUES (?, ?, ?)");
    QVERIFY(file.Exec(insert, {QStringLiteral("3i Group PLC"), QStringLiteral("Ordinary 50p"), 1}));
    QVERIFY(
        !file.Exec(insert, {QStringLiteral("3I GROUP PLC"), QStringLiteral("ordinary 50P"), 0}));
}

void TestDeliveredDatabases::syntheticClientsAreDistinctAndComplete() {
    constexpr int kCount = 400;
    const QString path = scratch_.filePath(QStringLiteral("synthetic.mdb"));
    MakeSyntheticClientDatabase(path, kCount);
    SqliteProbe file(path);
    VerifyClientsInEveryTable(file, kCount + 1);
    VerifyValuesFitTheirFields(file, ClientDatabaseTables());

    // The descriptions are those of a delivered database.
    SqliteProbe delivered(Delivered(kClientDatabaseFile), SqliteProbe::Access::ReadOnly);
    const QString common = QStringLiteral("SELECT * FROM Common ORDER BY Name");
    QCOMPARE(file.Rows(common), delivered.Rows(common));

    // Enough is filled for lists, filters and reports to have work to do, and
    // dates are in the forms the screens leave.
    const auto filled = [&](const QString& table, const QString& field) {
        return file.Value(CountSql(table, QStringLiteral("WHERE %1 <> ''").arg(Quoted(field))))
            .toInt();
    };
    QCOMPARE(filled(QStringLiteral("Personal"), QStringLiteral("Address 1")), kCount);
    QCOMPARE(filled(QStringLiteral("Administration"), QStringLiteral("File Identifier")),
             kCount + 1);
    for (const auto& [table, field] : {std::pair{"Employment 1", "Employer"},
                                       {"Business 1", "Business Name"},
                                       {"Contributions", "Provider 1"},
                                       {"Diary 4", "Standard Date 20"}}) {
        const int count = filled(QString::fromLatin1(table), QString::fromLatin1(field));
        QVERIFY2(count > kCount / 20 && count < kCount, field);
    }
    QVERIFY(file.Value(CountSql(QStringLiteral("Personal"),
                                QStringLiteral("WHERE \"Indicator 2\" = 1")))
                .toInt() > 0);
    QCOMPARE(
        file
            .Value(CountSql(
                QStringLiteral("Personal"),
                QStringLiteral(
                    "WHERE \"Date of Birth\" NOT GLOB '[0-3][0-9]/[01][0-9]/[12][0-9][0-9][0-9]'")))
            .toInt(),
        0);
    QCOMPARE(
        file.Value(CountSql(QStringLiteral("Diary 1"),
                            QStringLiteral("WHERE \"Standard Date 1\" <> '' AND \"Standard Date "
                                           "1\" NOT GLOB '[0-3][0-9]/[01][0-9]/[0-9][0-9]'")))
            .toInt(),
        0);
}

void TestDeliveredDatabases::syntheticDatabaseIsTheSameEachTime() {
    const QString first = scratch_.filePath(QStringLiteral("first.mdb"));
    const QString second = scratch_.filePath(QStringLiteral("second.mdb"));
    MakeSyntheticClientDatabase(first, 60);
    MakeSyntheticClientDatabase(second, 60);
    SqliteProbe one(first);
    SqliteProbe other(second);
    const QStringList dump = DumpAll(one);
    QCOMPARE(dump.size(), 22 * 61 + 15);
    QCOMPARE(DumpAll(other), dump);
}

void TestDeliveredDatabases::toolReplacesTheFileItMakes() {
    // The build puts the tool beside the program folder, in its own folder.
    const QString tool = QDir(QStringLiteral(QUILLON_PROGRAM_DIR))
                             .filePath(QStringLiteral("../tools/quillon-makedb"));
    const QString path = scratch_.filePath(QStringLiteral("tool.mdb"));
    const auto run = [&](const QStringList& arguments) {
        return QProcess::execute(tool, arguments);
    };
    QCOMPARE(run({QStringLiteral("synthetic"), path, QStringLiteral("7")}), 0);
    QCOMPARE(run({QStringLiteral("synthetic"), path, QStringLiteral("3")}), 0);
    {
        SqliteProbe file(path, SqliteProbe::Access::ReadOnly);
        QCOMPARE(file.Value(CountSql(QStringLiteral("Clients"))).toInt(), 4);
    }
    QFile::remove(path);
    QVERIFY(run({QStringLiteral("synthetic"), path, QStringLiteral("many")}) != 0);
    QVERIFY(run({QStringLiteral("delivered")}) != 0);
    QVERIFY(!QFile::exists(path));
}

QTEST_GUILESS_MAIN(TestDeliveredDatabases)
#include "test_delivered_databases.moc"
