#include "clients/client_lifecycle.h"

#include "data/data_access.h"
#include "data/database_schema.h"

namespace quillon {

namespace {

const QString kFirstNames = QStringLiteral("First Names");
const QString kLastName = QStringLiteral("Last Name");
const QString kFileIdentifier = QStringLiteral("File Identifier");
const QString kAdministration = QStringLiteral("Administration");
const QString kNameIndex = QStringLiteral("Name");

bool seekClient(dao::Recordset& table, const ClientName& client) {
    table.SetIndex(kNameIndex);
    table.Seek(QStringLiteral("="), {client.last, client.first});
    return !table.NoMatch();
}

void assignName(dao::Recordset& table, const ClientName& name) {
    table.Fields(kFirstNames).SetValue(name.first);
    table.Fields(kLastName).SetValue(name.last);
    if (table.Name() == kAdministration) {
        table.Fields(kFileIdentifier).SetValue(FileIdentifierOf(name));
    }
}

ClientName nameOfCurrentRow(dao::Recordset& table) {
    return {NullToEmpty(table.Fields(kFirstNames)), NullToEmpty(table.Fields(kLastName))};
}

// The client just written should be there; should it not be, the last one is
// the nearest thing to it.
ClientName seekWrittenClient(dao::Recordset& clients, const ClientName& name) {
    if (!seekClient(clients, name)) {
        clients.MoveLast();
    }
    return nameOfCurrentRow(clients);
}

}  // namespace

void ClientTables::Open(const QString& path) {
    db_ = dao::OpenDatabase(path);
    tables_.clear();
    for (const QString& name : ClientTableNames()) {
        tables_.push_back(db_.OpenRecordset(name, dao::dbOpenTable));
    }
}

void ClientTables::BeginTrans() {
    db_.BeginTrans();
    inTransaction_ = true;
}

void ClientTables::CommitTrans() {
    // Noted first: should the commit itself fail, the engine has already ended
    // the transaction and there is nothing to roll back.
    inTransaction_ = false;
    db_.CommitTrans();
}

void ClientTables::RollbackIfOpen() {
    if (!inTransaction_) {
        return;
    }
    inTransaction_ = false;
    try {
        db_.Rollback();
    } catch (const dao::DaoError&) {
        // Closing the database below ends the transaction all the same.
    }
}

void ClientTables::Close() {
    for (dao::Recordset& table : tables_) {
        try {
            table.Close();
        } catch (const dao::DaoError&) {
        }
    }
    tables_.clear();
    try {
        db_.Close();
    } catch (const dao::DaoError&) {
    }
}

QString FileIdentifierOf(const ClientName& name) {
    return name.last + QStringLiteral(", ") + name.first;
}

ClientName AddClientRows(ClientTables& tables, const ClientName& name) {
    tables.BeginTrans();
    // `Clients` goes first: its unique index refuses a duplicate name before
    // anything else is written.
    for (dao::Recordset& table : tables.Tables()) {
        table.AddNew();
        assignName(table, name);
        table.Update();
    }
    // Found again before the commit: afterwards another workstation may hold
    // the file, and a saved client must not be reported as failed.
    const ClientName written = seekWrittenClient(tables.Clients(), name);
    tables.CommitTrans();
    return written;
}

// Every client operation finds its rows under the write lock: found before it,
// a row could be deleted, and its number given to another client, meanwhile.
std::optional<ClientName> RenameClientRows(ClientTables& tables, const ClientName& from,
                                           const ClientName& to) {
    tables.BeginTrans();
    bool allFound = true;
    for (dao::Recordset& table : tables.Tables()) {
        allFound = seekClient(table, from) && allFound;
    }
    if (!allFound) {
        tables.RollbackIfOpen();
        return std::nullopt;
    }
    for (dao::Recordset& table : tables.Tables()) {
        table.Edit();
        assignName(table, to);
        table.Update();
    }
    const ClientName renamed = seekWrittenClient(tables.Clients(), to);
    tables.CommitTrans();
    return renamed;
}

ClientName DeleteClientRows(ClientTables& tables, const ClientName& client) {
    tables.BeginTrans();
    std::vector<bool> found;
    for (dao::Recordset& table : tables.Tables()) {
        found.push_back(seekClient(table, client));
    }
    for (size_t i = 0; i < found.size(); ++i) {
        if (found[i]) {
            tables.Tables()[i].Delete();
        }
    }
    dao::Recordset& clients = tables.Clients();
    if (found.front()) {
        clients.MoveNext();
    } else {
        // No row of the client in `Clients`: go on from where it would stand.
        clients.Seek(QStringLiteral(">"), {client.last, client.first});
    }
    ClientName next;  // none when the last client has gone
    if (clients.IsEOF() || clients.NoMatch()) {
        try {
            clients.MoveLast();
        } catch (const dao::DaoError& error) {
            if (error.Number() != dao::kErrNoCurrentRecord) {
                throw;
            }
        }
    }
    if (!clients.IsEOF() && !clients.BOF()) {
        next = nameOfCurrentRow(clients);
    }
    tables.CommitTrans();
    return next;
}

QString LifecycleErrorText(const std::exception& error) {
    const ErrorDetails details = DetailsOf(error);
    switch (details.number) {
        case dao::kErrDuplicateKey:
            return QStringLiteral("Duplicate client name.");
        case dao::kErrSaveLocked:
            return QStringLiteral("Data save locked by another user.");
        case dao::kErrUpdateLocked:
            return QStringLiteral("Data update locked by another user.");
        default:
            return QStringLiteral("Error ") + QString::number(details.number) +
                   QStringLiteral(" - ") + details.description;
    }
}

}  // namespace quillon
