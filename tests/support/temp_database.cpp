#include "support/temp_database.h"

namespace quillon::test {

using dao::FieldDef;
using dao::IndexDef;
using dao::TableDef;

TempFolder::TempFolder() : dir_(QDir::tempPath() + QStringLiteral("/quillon-test-XXXXXX")) {}

std::vector<TableDef> SmallTables() {
    const IndexDef clientName{
        QStringLiteral("Name"), {QStringLiteral("Last Name"), QStringLiteral("First Names")}, true};
    TableDef clients{QStringLiteral("Clients"),
                     {{QStringLiteral("Last Name"), dao::dbText, 30},
                      {QStringLiteral("First Names"), dao::dbText, 30},
                      {QStringLiteral("Town"), dao::dbText, 20},
                      {QStringLiteral("Sex"), dao::dbInteger, 0},
                      {QStringLiteral("Active"), dao::dbBoolean, 0},
                      {QStringLiteral("Fee"), dao::dbDouble, 0},
                      {QStringLiteral("Notes"), dao::dbMemo, 0},
                      {QStringLiteral("Started"), dao::dbDate, 0}},
                     {clientName}};
    TableDef visits{
        QStringLiteral("Visits"),
        {{QStringLiteral("Town"), dao::dbText, 20}, {QStringLiteral("Note"), dao::dbText, 20}},
        {{QStringLiteral("Town"), {QStringLiteral("Town")}, false}}};
    TableDef jottings{QStringLiteral("Jottings"), {{QStringLiteral("Note"), dao::dbText, 20}}, {}};
    TableDef dividends{
        QStringLiteral("Dividends"),
        {{QStringLiteral("Company"), dao::dbText, 30},
         {QStringLiteral("Stock"), dao::dbText, 30},
         {QStringLiteral("FID"), dao::dbBoolean, 0},
         {QStringLiteral("Rate"), dao::dbDouble, 0}},
        {{QStringLiteral("Name"),
          {QStringLiteral("Company"), QStringLiteral("Stock"), QStringLiteral("FID")},
          true}}};
    return {clients, visits, jottings, dividends};
}

QStringList ClientTableNames() {
    QStringList names{QStringLiteral("Clients"), QStringLiteral("Personal")};
    for (int n = 1; n <= 4; ++n) {
        names << QStringLiteral("Employment %1").arg(n);
    }
    for (int n = 1; n <= 4; ++n) {
        names << QStringLiteral("Business %1").arg(n);
    }
    names << QStringLiteral("Assets");
    for (int n = 16; n <= 19; ++n) {
        names << QStringLiteral("Asset %1").arg(n);
    }
    names << QStringLiteral("Contributions") << QStringLiteral("Administration")
          << QStringLiteral("User");
    for (int n = 1; n <= 4; ++n) {
        names << QStringLiteral("Diary %1").arg(n);
    }
    return names;
}

std::vector<TableDef> ClientTables() {
    std::vector<TableDef> tables;
    for (const QString& name : ClientTableNames()) {
        tables.push_back({name,
                          {{QStringLiteral("Last Name"), dao::dbText, 30},
                           {QStringLiteral("First Names"), dao::dbText, 30},
                           {QStringLiteral("Note"), dao::dbText, 50}},
                          {{QStringLiteral("Name"),
                            {QStringLiteral("Last Name"), QStringLiteral("First Names")},
                            true}}});
    }
    return tables;
}

QString MakeDatabase(const TempFolder& folder, const std::vector<TableDef>& tables,
                     const QString& name) {
    const QString path = folder.FilePath(name);
    dao::CreateDatabase(path, tables);
    return path;
}

void AddRow(dao::Database& db, const QString& table, const FieldValues& values) {
    dao::Recordset rs = db.OpenRecordset(table);
    rs.AddNew();
    for (const auto& [field, value] : values) {
        rs.Fields(field).SetValue(value);
    }
    rs.Update();
}

QStringList WalkRows(dao::Database& db, const QString& table, const QString& index,
                     const QStringList& fields) {
    dao::Recordset rs = db.OpenRecordset(table);
    if (!index.isEmpty()) {
        rs.SetIndex(index);
    }
    QStringList rows;
    while (!rs.IsEOF()) {
        QStringList parts;
        for (const QString& field : fields) {
            const QVariant value = rs.Fields(field).Value();
            parts << (value.isNull() ? QStringLiteral("<null>") : value.toString());
        }
        rows << parts.join(QLatin1Char('|'));
        rs.MoveNext();
    }
    return rows;
}

}  // namespace quillon::test
