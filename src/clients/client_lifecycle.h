#pragma once
// Creating, renaming and deleting a client. A client is one row in each of the
// 22 client tables, all keyed by the same name, so each of these is a change
// to all 22 tables in one transaction. The dialogs hold the tables open for
// one press of their button and report failures in their own words.

#include "data/client_rows.h"
#include "platform/dao.h"

#include <QString>

#include <exception>
#include <optional>
#include <vector>

namespace quillon {

// The client tables of one database, open together in the lifecycle order,
// with a note of whether their transaction is open.
class ClientTables {
public:
    // Opens the database at `path` and every client table; all are open before
    // any row is written.
    void Open(const QString& path);
    dao::Recordset& Clients() { return tables_.front(); }
    std::vector<dao::Recordset>& Tables() { return tables_; }

    void BeginTrans();
    void CommitTrans();
    // Rolls back the transaction if one is open; otherwise does nothing.
    void RollbackIfOpen();
    bool InTransaction() const { return inTransaction_; }

    // Closes the tables and the database, ignoring failures: by now there is
    // nothing left to save.
    void Close();

private:
    dao::Database db_;
    std::vector<dao::Recordset> tables_;
    bool inTransaction_ = false;
};

// What `File Identifier` of `Administration` holds for a client named so.
QString FileIdentifierOf(const ClientName& name);

// Adds a row bearing `name` to every table and commits. Answers the client on
// whose `Clients` row the tables then stand: the new client.
ClientName AddClientRows(ClientTables& tables, const ClientName& name);

// Gives the rows of `from` the name `to` and commits. Every table must hold a
// row of `from`: when one does not, nothing is written and the answer is empty.
// Otherwise it answers the renamed client.
std::optional<ClientName> RenameClientRows(ClientTables& tables, const ClientName& from,
                                           const ClientName& to);

// Deletes whichever rows of `client` there are and commits. Answers the client
// that follows in name order, or the last one when the deleted client was last.
ClientName DeleteClientRows(ClientTables& tables, const ClientName& client);

// The message of the lifecycle dialogs for a failure: the duplicate name and
// the locks in words, any other error by its number and description.
QString LifecycleErrorText(const std::exception& error);

}  // namespace quillon
