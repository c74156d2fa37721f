#pragma once
// Scratch folders and small databases for the tests of anything that reads or
// writes database files.

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

#include <utility>
#include <vector>

#include "platform/dao.h"
#include "platform/dao_schema.h"

// Fails the test unless `statement` throws a DaoError numbered `number`.
#define QVERIFY_DAO_ERROR(statement, number)                       \
    do {                                                           \
        try {                                                      \
            statement;                                             \
            QFAIL("expected error " #number " from: " #statement); \
        } catch (const ::quillon::dao::DaoError& daoError) {       \
            QCOMPARE(daoError.Number(), int(number));              \
        }                                                          \
    } while (false)

namespace quillon::test {

// A folder removed with everything in it when the test is done.
class TempFolder {
public:
    TempFolder();
    bool IsValid() const { return dir_.isValid(); }
    QString Path() const { return dir_.path(); }
    QString FilePath(const QString& name) const { return dir_.filePath(name); }

private:
    QTemporaryDir dir_;
};

using FieldValues = std::vector<std::pair<QString, QVariant>>;

// A few tables that cover the layer's cases:
//   Clients    Last Name, First Names TEXT(30), Town TEXT(20), Sex SMALLINT,
//              Active BOOLEAN, Fee DOUBLE, Notes LONGTEXT, Started DATETIME;
//              unique index Name (Last Name, First Names)
//   Visits     Town TEXT(20), Note TEXT(20); index Town (not unique)
//   Jottings   Note TEXT(20); no index
//   Dividends  Company, Stock TEXT(30), FID BOOLEAN, Rate DOUBLE;
//              unique index Name (Company, Stock, FID)
std::vector<dao::TableDef> SmallTables();

// The 22 client tables in their lifecycle order, each with Last Name,
// First Names, a Note and the unique index Name.
QStringList ClientTableNames();
std::vector<dao::TableDef> ClientTables();

// Makes `name` in `folder` holding `tables` and returns its path.
QString MakeDatabase(const TempFolder& folder, const std::vector<dao::TableDef>& tables,
                     const QString& name = QStringLiteral("QUILL020.MDB"));

// Adds one row through AddNew/Update.
void AddRow(dao::Database& db, const QString& table, const FieldValues& values);

// The rows of `table` walked with MoveNext in the order of `index` (stored
// order when empty), each as its `fields` joined by "|", Null shown as "<null>".
QStringList WalkRows(dao::Database& db, const QString& table, const QString& index,
                     const QStringList& fields);

}  // namespace quillon::test
