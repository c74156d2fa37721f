#pragma once
// How a table of the database layer is laid out in an SQLite file, and the means
// to make a new database file from table definitions.
//
// - A table is an SQLite table of the same name with an implicit rowid; the rowid
//   is the table's stored order.
// - A field is a column of the same name. Its declared type tells the field's
//   type: TEXT(n) text of width n, LONGTEXT memo, BOOLEAN, TINYINT byte,
//   SMALLINT 16-bit integer, INTEGER 32-bit integer, REAL single, DOUBLE double,
//   CURRENCY currency, DATETIME date. Text columns compare without regard to case
//   (COLLATE NOCASE), as the engine always has.
// - An index `I` of table `T` is the SQLite index named "T|I".

#include "platform/dao.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quillon::dao {

struct FieldDef {
    QString name;
    DataType type = dbText;
    int size = 0;  // width of a text field
};

struct IndexDef {
    QString name;
    QStringList fields;
    bool unique = false;
};

struct TableDef {
    QString name;
    std::vector<FieldDef> fields;
    std::vector<IndexDef> indexes;
};

// The SQL statements that make `table`, in order.
QStringList CreateTableStatements(const TableDef& table);

// The declared SQL type for a field, and back. Unknown declared types read as text.
QString DeclaredType(const FieldDef& field);
FieldDef FieldFromDeclaredType(const QString& name, const QString& declaredType);

// Makes a new, empty database file at `path` holding `tables`. Fails with
// kErrDatabaseExists when the file exists.
void CreateDatabase(const QString& path, const std::vector<TableDef>& tables);

}  // namespace quillon::dao
