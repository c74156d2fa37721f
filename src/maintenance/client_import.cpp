#include "maintenance/client_import.h"

#include "data/database_schema.h"
#include "platform/dao_schema.h"

#include <exception>

namespace quillon {

namespace {

const QString kSeparator = QStringLiteral(", ");
const QString kFirstNames = QStringLiteral("First Names");
const QString kLastName = QStringLiteral("Last Name");

const std::vector<dao::TableDef>& ClientTableDefs() {
    static const std::vector<dao::TableDef> tables = ClientDatabaseTables();
    return tables;
}

const dao::TableDef* TableDefOf(const QString& name) {
    for (const dao::TableDef& table : ClientTableDefs()) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0) {
            return &table;
        }
    }
    return nullptr;
}

QVariant EmptyOf(dao::DataType type) {
    switch (type) {
        case dao::dbBoolean:
            return false;
        case dao::dbText:
        case dao::dbMemo:
            return QString();
        default:
            return 0;
    }
}

bool IsKey(const QString& field) {
    return field == kFirstNames || field == kLastName;
}

// Each field of the table: the row's value, or the empty value of its type.
QVariantMap ReadRow(dao::Database& source, const dao::TableDef& table, const ClientName& name) {
    dao::Recordset row = source.OpenRecordset(table.name, dao::dbOpenTable);
    row.SetIndex(QStringLiteral("Name"));
    row.Seek(QStringLiteral("="), {name.last, name.first});
    QVariantMap values;
    for (const dao::FieldDef& field : table.fields) {
        if (IsKey(field.name)) {
            continue;
        }
        const QVariant value = row.NoMatch() ? QVariant() : row.Fields(field.name).Value();
        values.insert(field.name, value.isNull() ? EmptyOf(field.type) : value);
    }
    return values;
}

// Each ", " of the entry in turn splits it into last name and first names.
std::optional<ClientName> SeekListName(dao::Recordset& clients, const QString& entry) {
    for (qsizetype split = entry.indexOf(kSeparator); split >= 0;
         split = entry.indexOf(kSeparator, split + kSeparator.size())) {
        const ClientName name{entry.mid(split + kSeparator.size()), entry.left(split)};
        clients.Seek(QStringLiteral("="), {name.last, name.first});
        if (!clients.NoMatch()) {
            return ClientName{clients.Fields(kFirstNames).Value().toString(),
                              clients.Fields(kLastName).Value().toString()};
        }
    }
    return std::nullopt;
}

}  // namespace

SourceClients LoadSourceClients(const QString& source) {
    const QString path = QStringLiteral("\n") + source;
    QString failure = QStringLiteral("Unable to open file:") + path;
    try {
        dao::Database db = dao::OpenDatabase(source, false, true);
        failure = QStringLiteral("Unable to open the 'Clients' table in file:") + path;
        dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable);
        failure = QStringLiteral("Unable to build the clients list from file:") + path;
        SourceClients loaded;
        for (clients.MoveFirst(); !clients.IsEOF(); clients.MoveNext()) {
            loaded.entries << clients.Fields(kLastName).Value().toString() + kSeparator +
                                  clients.Fields(kFirstNames).Value().toString();
        }
        return loaded;
    } catch (const std::exception&) {
        return {{}, failure};
    }
}

std::optional<ClientBuffer> ReadSourceClient(dao::Database& source, const QString& entry) {
    dao::Recordset clients = source.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable);
    clients.SetIndex(QStringLiteral("Name"));
    const std::optional<ClientName> name = SeekListName(clients, entry);
    if (!name) {
        return std::nullopt;
    }
    ClientBuffer client{*name, {}};
    for (const QString& table : ClientTableNames()) {
        client.rows.insert(table, ReadRow(source, *TableDefOf(table), *name));
    }
    return client;
}

void AddImportedClient(ClientTables& target, const ClientBuffer& client) {
    target.BeginTrans();
    try {
        for (dao::Recordset& table : target.Tables()) {
            table.AddNew();
            table.Fields(kFirstNames).SetValue(client.name.first);
            table.Fields(kLastName).SetValue(client.name.last);
            const QVariantMap row = client.rows.value(table.Name());
            for (auto field = row.begin(); field != row.end(); ++field) {
                table.Fields(field.key()).SetValue(field.value());
            }
            if (table.Name() == QLatin1String("Administration")) {
                // The identifier follows the client's own name.
                table.Fields(QStringLiteral("File Identifier"))
                    .SetValue(FileIdentifierOf(client.name));
            }
            table.Update();
        }
        target.CommitTrans();
    } catch (...) {
        // The table that failed is still adding its row: that goes first.
        for (dao::Recordset& table : target.Tables()) {
            if (table.GetEditMode() != dao::dbEditNone) {
                table.CancelUpdate();
            }
        }
        target.RollbackIfOpen();
        throw;
    }
}

}  // namespace quillon
