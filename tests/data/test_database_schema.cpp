// The table layouts of the three kinds of database file, and their round trip
// through a new SQLite file.

#include "data/database_schema.h"
#include "support/sqlite_probe.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace quillon;
using quillon::test::Quoted;
using quillon::test::SqliteProbe;

namespace {

std::vector<dao::TableDef> AllTables() {
    std::vector<dao::TableDef> all = ClientDatabaseTables();
    for (const auto& more : {OfficeDatabaseTables(), DividendDatabaseTables()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

const dao::TableDef& Table(const QString& name) {
    static const std::vector<dao::TableDef> all = AllTables();
    const dao::TableDef* table = FindTable(all, name);
    if (!table) {
        qFatal("no table %s", qPrintable(name));
    }
    return *table;
}

}  // namespace

class TestDatabaseSchema : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clientTablesCarryTheClientName();
    void fieldFamiliesAreCompleteAndTyped_data();
    void fieldFamiliesAreCompleteAndTyped();
    void singleFieldsHaveTheirTypes_data();
    void singleFieldsHaveTheirTypes();
    void fieldNamesAndWidthsSuitTheEngine();
    void layoutsSurviveARoundTripThroughAFile_data();
    void layoutsSurviveARoundTripThroughAFile();
};

void TestDatabaseSchema::clientTablesCarryTheClientName() {
    const QStringList names = ClientTableNames();
    const std::vector<dao::TableDef> tables = ClientDatabaseTables();
    QCOMPARE(names.size(), 22);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 22);
    QCOMPARE(int(tables.size()), 23);
    QCOMPARE(tables.back().name, QStringLiteral("Common"));
    for (int i = 0; i < names.size(); ++i) {
        // The lifecycle order and the order of the file's tables are the same list.
        const dao::TableDef& table = tables[size_t(i)];
        QCOMPARE(table.name, names[i]);
        QVERIFY2(table.fields.size() >= 2, qPrintable(table.name));
        QCOMPARE(table.fields[0].name, QStringLiteral("First Names"));
        QCOMPARE(table.fields[1].name, QStringLiteral("Last Name"));
        for (const dao::FieldDef& key : {table.fields[0], table.fields[1]}) {
            QCOMPARE(key.type, dao::dbText);
            QCOMPARE(key.size, 30);
        }
        QCOMPARE(int(table.indexes.size()), 1);
        const dao::IndexDef& index = table.indexes.front();
        QCOMPARE(index.name, QStringLiteral("Name"));
        QCOMPARE(index.fields,
                 QStringList({QStringLiteral("Last Name"), QStringLiteral("First Names")}));
        QCOMPARE(index.unique, table.name == QLatin1String("Clients"));
    }
    QCOMPARE(tables.front().fields.size(), size_t(2));
}

void TestDatabaseSchema::fieldFamiliesAreCompleteAndTyped_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("width");
    const auto row = [](const char* table, const char* prefix, int first, int last, int type,
                        int width, const char* suffix = "") {
        QTest::addRow("%s: %s n %s", table, prefix, suffix)
            << QString::fromUtf8(table) << QString::fromUtf8(prefix) << QString::fromUtf8(suffix)
            << first << last << type << width;
    };
    row("Personal", "Address", 1, 6, dao::dbText, 40);
    row("Personal", "Child", 1, 4, dao::dbText, 40, "Name");
    row("Personal", "Child", 1, 4, dao::dbText, 8, "DOB");
    row("Personal", "Indicator", 1, 10, dao::dbBoolean, 0);
    for (const char* table : {"Employment 1", "Business 4"}) {
        row(table, "Address", 1, 5, dao::dbText, 60);
        row(table, "Tax Year", 1, 8, dao::dbText, 7);
        row(table, "NRE", 1, 8, dao::dbText, 8);
        row(table, "Indicator", 1, 10, dao::dbBoolean, 0);
    }
    row("Business 2", "Partner", 1, 6, dao::dbText, 30, "First");
    row("Business 2", "Partner", 1, 6, dao::dbText, 30, "Last");
    row("Business 3", "Partner", 1, 6, dao::dbText, 10, "Share");
    row("Assets", "Asset", 16, 19, dao::dbText, 30);
    row("Assets", "Date", 1, 20, dao::dbText, 8);
    row("Assets", "Value", 1, 19, dao::dbText, 9);
    row("Assets", "Note", 1, 19, dao::dbText, 40);
    for (const char* table : {"Asset 17"}) {
        row(table, "Asset", 1, 10, dao::dbText, 30);
        row(table, "Value", 1, 10, dao::dbText, 9);
    }
    row("Contributions", "Provider", 1, 20, dao::dbText, 30);
    row("Contributions", "Type", 1, 20, dao::dbText, 5);
    row("Contributions", "SR", 1, 20, dao::dbText, 1);
    row("Contributions", "NG", 1, 20, dao::dbText, 1);
    row("Contributions", "Amount", 1, 20, dao::dbText, 8);
    row("User", "Left", 1, 8, dao::dbText, 40);
    row("User", "Right", 1, 8, dao::dbText, 40);
    for (const char* table : {"Diary 3"}) {
        row(table, "Standard Date", 1, 20, dao::dbText, 8);
        row(table, "Client Event", 1, 20, dao::dbText, 40);
        row(table, "Client Date", 1, 20, dao::dbText, 8);
    }
    row("Common", "Text", 1, 20, dao::dbText, 40);
    row("Tax Offices", "Address", 1, 5, dao::dbText, 40);
    row("Dividends", "Number", 1, 4, dao::dbText, 12);
    row("Dividends", "Date", 1, 4, dao::dbText, 10);
    row("Dividends", "Dividend", 1, 4, dao::dbText, 12);
}

void TestDatabaseSchema::fieldFamiliesAreCompleteAndTyped() {
    QFETCH(QString, table);
    QFETCH(QString, prefix);
    QFETCH(QString, suffix);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, type);
    QFETCH(int, width);
    const auto name = [&](int n) {
        return prefix + QLatin1Char(' ') + QString::number(n) +
               (suffix.isEmpty() ? QString() : QLatin1Char(' ') + suffix);
    };
    const dao::TableDef& def = Table(table);
    for (int n = first; n <= last; ++n) {
        const dao::FieldDef* field = FindField(def, name(n));
        QVERIFY2(field, qPrintable(name(n)));
        QCOMPARE(int(field->type), type);
        QCOMPARE(field->size, width);
    }
    // The family stops where it should, on both sides.
    QVERIFY2(!FindField(def, name(first - 1)), qPrintable(name(first - 1)));
    QVERIFY2(!FindField(def, name(last + 1)), qPrintable(name(last + 1)));
}

void TestDatabaseSchema::singleFieldsHaveTheirTypes_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("width");
    const auto row = [](const char* table, const char* field, int type, int width) {
        QTest::addRow("%s.%s", table, field)
            << QString::fromUtf8(table) << QString::fromUtf8(field) << type << width;
    };
    row("Personal", "Sex", dao::dbInteger, 0);
    row("Personal", "Marital Status", dao::dbInteger, 0);
    row("Personal", "Blind", dao::dbBoolean, 0);
    row("Personal", "Date of Birth", dao::dbText, 10);
    row("Personal", "Spouse Last", dao::dbText, 30);
    row("Employment 2", "PAYE Reference", dao::dbText, 17);
    row("Employment 3", "Director", dao::dbBoolean, 0);
    row("Employment 3", "Main Employment", dao::dbBoolean, 0);
    row("Employment 4", "Email", dao::dbText, 40);
    row("Business 2", "Type", dao::dbInteger, 0);
    row("Business 2", "Main Business", dao::dbBoolean, 0);
    row("Business 2", "Notes", dao::dbText, 255);
    row("Administration", "File Identifier", dao::dbText, 65);
    row("Administration", "Office Number", dao::dbText, 3);
    row("Administration", "Notes", dao::dbText, 255);
    row("Common", "Name", dao::dbText, 20);
    row("Common", "Tax Year", dao::dbText, 7);
    row("Tax Offices", "Number", dao::dbText, 3);
    row("Tax Offices", "Name", dao::dbText, 40);
    row("Dividends", "Company", dao::dbText, 40);
    row("Dividends", "FID", dao::dbBoolean, 0);
    row("Dividends", "Issued", dao::dbInteger, 0);
    row("Version", "Version", dao::dbText, 10);
}

void TestDatabaseSchema::singleFieldsHaveTheirTypes() {
    QFETCH(QString, table);
    QFETCH(QString, field);
    QFETCH(int, type);
    QFETCH(int, width);
    const dao::FieldDef* def = FindField(Table(table), field);
    QVERIFY(def);
    QCOMPARE(int(def->type), type);
    QCOMPARE(def->size, width);
}

void TestDatabaseSchema::fieldNamesAndWidthsSuitTheEngine() {
    // Field names are matched without regard to case by the engine, and a text
    // field holds at most 255 characters.
    for (const dao::TableDef& table : AllTables()) {
        QSet<QString> seen;
        for (const dao::FieldDef& field : table.fields) {
            const QString where = table.name + QLatin1Char('.') + field.name;
            QVERIFY2(!seen.contains(field.name.toLower()), qPrintable(where));
            seen.insert(field.name.toLower());
            QVERIFY2(field.name == field.name.simplified(), qPrintable(where));
            if (field.type == dao::dbText) {
                QVERIFY2(field.size >= 1 && field.size <= 255, qPrintable(where));
            }
        }
        for (const dao::IndexDef& index : table.indexes) {
            for (const QString& key : index.fields) {
                QVERIFY2(FindField(table, key), qPrintable(table.name + QLatin1Char('|') + key));
            }
        }
    }
}

void TestDatabaseSchema::layoutsSurviveARoundTripThroughAFile_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("client") << 0;
    QTest::newRow("offices") << 1;
    QTest::newRow("dividends") << 2;
}

void TestDatabaseSchema::layoutsSurviveARoundTripThroughAFile() {
    QFETCH(int, kind);
    const std::function<std::vector<dao::TableDef>()> layouts[] = {
        ClientDatabaseTables, OfficeDatabaseTables, DividendDatabaseTables};
    const std::vector<dao::TableDef> tables = layouts[kind]();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("layout.mdb"));
    dao::CreateDatabase(path, tables);

    SqliteProbe file(path);
    QVERIFY(file.IsOpen());
    QCOMPARE(file.TableNames().size(), qsizetype(tables.size()));
    for (const dao::TableDef& table : tables) {
        const QList<QVariantList> columns =
            file.Rows(QStringLiteral("PRAGMA table_info(%1)").arg(Quoted(table.name)));
        QCOMPARE(columns.size(), qsizetype(table.fields.size()));
        for (qsizetype i = 0; i < columns.size(); ++i) {
            const dao::FieldDef read =
                dao::FieldFromDeclaredType(columns[i][1].toString(), columns[i][2].toString());
            const dao::FieldDef& written = table.fields[size_t(i)];
            QCOMPARE(read.name, written.name);
            QCOMPARE(read.type, written.type);
            QCOMPARE(read.size, written.size);
        }
        for (const dao::IndexDef& index : table.indexes) {
            const QString name = table.name + QLatin1Char('|') + index.name;
            QStringList keys;
            for (const QVariantList& info :
                 file.Rows(QStringLiteral("PRAGMA index_info(%1)").arg(Quoted(name)))) {
                keys << info[2].toString();
            }
            QCOMPARE(keys, index.fields);
        }
    }
}

QTEST_GUILESS_MAIN(TestDatabaseSchema)
#include "test_database_schema.moc"
