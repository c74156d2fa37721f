#pragma once
// The layout of the three kinds of database file: the client database, the tax
// offices database and the dividends database. Everything that makes or checks
// such a file takes its tables from here.

#include "platform/dao_schema.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quillon {

// The twenty standard dates, client dates and client events of a diary row
// (`Standard Date i`, `Client Date i`, `Client Event i`, i from 1), and the
// twenty lines of pension contributions.
constexpr int kDiaryEvents = 20;
constexpr int kContributionLines = 20;

// The 22 tables that hold one row per client, in the order in which a client is
// created, renamed and deleted.
QStringList ClientTableNames();

// The 22 client tables followed by `Common`.
std::vector<dao::TableDef> ClientDatabaseTables();

// `Tax Offices` and `Version`.
std::vector<dao::TableDef> OfficeDatabaseTables();

// `Dividends` and `Version`.
std::vector<dao::TableDef> DividendDatabaseTables();

// The table named `name` among `tables`, or nullptr.
const dao::TableDef* FindTable(const std::vector<dao::TableDef>& tables, const QString& name);

// The field named `name` of `table`, or nullptr.
const dao::FieldDef* FindField(const dao::TableDef& table, const QString& name);

// The width of the text field `field` of `table` among `tables`; 0 for a field
// of another type or one that isn't there.
int FieldWidth(const std::vector<dao::TableDef>& tables, const QString& table,
               const QString& field);
// The same in the client database.
int ClientFieldWidth(const QString& table, const QString& field);

}  // namespace quillon
