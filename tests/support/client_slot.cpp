#include "support/client_slot.h"

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "shell/variables.h"
#include "support/sqlite_probe.h"

#include <QtTest>

namespace quillon::testing {

namespace {

const QString kLast = QStringLiteral("Last Name");
const QString kFirst = QStringLiteral("First Names");

bool seek(dao::Recordset& table, const Client& client) {
    table.SetIndex(QStringLiteral("Name"));
    table.Seek(QStringLiteral("="), {client.first, client.second});
    return !table.NoMatch();
}

}  // namespace

ClientSlot::ClientSlot(const QList<Client>& clients) {
    DatabaseFolder[1] = dir_.path();
    DatabaseTitle[1] = QStringLiteral("Test Practice");
    SelectedFile = 1;
    MakeClientDatabase(DatabasePath());
    dao::Database db = dao::OpenDatabase(DatabasePath());
    db.BeginTrans();
    for (const QString& name : ClientTableNames()) {
        dao::Recordset table = db.OpenRecordset(name);
        if (seek(table, {QString::fromLatin1(kSampleClientLast),
                         QString::fromLatin1(kSampleClientFirst)})) {
            table.Delete();
        }
        for (const Client& client : clients) {
            table.AddNew();
            table.Fields(kLast).SetValue(client.first);
            table.Fields(kFirst).SetValue(client.second);
            table.Update();
        }
    }
    db.CommitTrans();
}

ClientSlot::~ClientSlot() {
    DatabaseFolder[1].clear();
}

QString ClientSlot::DatabasePath() const {
    return ClientDatabasePath();
}

QStringList ClientSlot::TablesHolding(const Client& client) const {
    dao::Database db = dao::OpenDatabase(DatabasePath());
    QStringList holding;
    for (const QString& name : ClientTableNames()) {
        dao::Recordset table = db.OpenRecordset(name);
        if (seek(table, client)) {
            holding << name;
        }
    }
    return holding;
}

QList<long> ClientSlot::RowCounts() const {
    dao::Database db = dao::OpenDatabase(DatabasePath());
    QList<long> counts;
    for (const QString& name : ClientTableNames()) {
        counts << db.OpenRecordset(name).RecordCount();
    }
    return counts;
}

QString ClientSlot::FieldOf(const QString& table, const Client& client,
                            const QString& field) const {
    dao::Database db = dao::OpenDatabase(DatabasePath());
    dao::Recordset rows = db.OpenRecordset(table);
    if (!seek(rows, client)) {
        return QStringLiteral("<none>");
    }
    return rows.Fields(field).Value().toString();
}

void ClientSlot::SetField(const QString& table, const Client& client, const QString& field,
                          const QString& value) const {
    dao::Database db = dao::OpenDatabase(DatabasePath());
    dao::Recordset rows = db.OpenRecordset(table);
    QVERIFY(seek(rows, client));
    rows.Edit();
    rows.Fields(field).SetValue(value);
    rows.Update();
}

void ClientSlot::RemoveRow(const QString& table, const Client& client) const {
    dao::Database db = dao::OpenDatabase(DatabasePath());
    dao::Recordset rows = db.OpenRecordset(table);
    QVERIFY(seek(rows, client));
    rows.Delete();
}

void ClientSlot::DamageTable(const QString& table) const {
    test::SqliteProbe probe(DatabasePath());
    for (const char* event : {"INSERT", "UPDATE", "DELETE"}) {
        const QString sql =
            QStringLiteral(
                "CREATE TRIGGER %1 BEFORE %2 ON %3 BEGIN SELECT RAISE(ABORT, "
                "'damaged page'); END")
                .arg(test::Quoted(QStringLiteral("damaged %1").arg(QLatin1String(event))),
                     QLatin1String(event), test::Quoted(table));
        QVERIFY2(probe.Exec(sql), qPrintable(probe.LastError()));
    }
}

}  // namespace quillon::testing
