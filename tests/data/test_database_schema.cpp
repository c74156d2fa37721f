// The table layouts of the three kinds of database file, and their round trip
// through a new SQLite file.

#include "data/database_schema.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QTemporaryDir>
#include <QTest>

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

}  // namespace

class TestDatabaseSchema : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Every table, field and index of the three kinds of file, one line each,
    // against the reference: a change of layout shows as a change of that file.
    void layoutsMatchTheirReference() {
        QStringList lines;
        for (const dao::TableDef& table : AllTables()) {
            lines << QStringLiteral("[%1]").arg(table.name);
            for (const dao::FieldDef& field : table.fields) {
                lines << QStringLiteral("%1 type %2 size %3")
                             .arg(field.name)
                             .arg(field.type)
                             .arg(field.size);
            }
            for (const dao::IndexDef& index : table.indexes) {
                lines << QStringLiteral("index %1 (%2)%3")
                             .arg(index.name, index.fields.join(", "),
                                  index.unique ? " unique" : QString());
            }
        }
        QCOMPARE(ClientTableNames().size(), 22);
        QCOMPARE(lines, testing::ReferenceLines("database-layouts.txt", lines));
    }

    // Each kind of file made from its layout reads back as that layout.
    void layoutsSurviveARoundTripThroughAFile() {
        for (const auto& tables :
             {ClientDatabaseTables(), OfficeDatabaseTables(), DividendDatabaseTables()}) {
            QTemporaryDir dir;
            const QString path = dir.filePath("layout.mdb");
            dao::CreateDatabase(path, tables);

            SqliteProbe file(path);
            QVERIFY(file.IsOpen());
            QCOMPARE(file.TableNames().size(), qsizetype(tables.size()));
            for (const dao::TableDef& table : tables) {
                const QList<QVariantList> columns =
                    file.Rows(QStringLiteral("PRAGMA table_info(%1)").arg(Quoted(table.name)));
                QCOMPARE(columns.size(), qsizetype(table.fields.size()));
                for (qsizetype i = 0; i < columns.size(); ++i) {
                    const dao::FieldDef read = dao::FieldFromDeclaredType(columns[i][1].toString(),
                                                                          columns[i][2].toString());
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
    }
};

QTEST_GUILESS_MAIN(TestDatabaseSchema)
#include "test_database_schema.moc"
