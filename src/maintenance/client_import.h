#pragma once
// Importing whole clients from another client database into the selected one.
// The source is only read; each client is written in one transaction, so an
// import stopped at any point leaves whole clients only.

#include "clients/client_lifecycle.h"
#include "data/client_rows.h"

#include <QHash>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace quillon {

// The clients of the source as the list shows them, or the reason they could
// not be read ("Unable to open file:" and the path, and the like).
struct SourceClients {
    QStringList entries;
    QString failure;
};
SourceClients LoadSourceClients(const QString& source);

// A client's rows as read from the source, by table; a table without a row
// holds empty values. Null fields read as empty text, 0 or False.
struct ClientBuffer {
    ClientName name;
    QHash<QString, QVariantMap> rows;
};

// Finds the client of a list entry in the open source (each ", " of the entry
// tried as the split in turn) and reads its rows; nothing when it is gone.
std::optional<ClientBuffer> ReadSourceClient(dao::Database& source, const QString& entry);

// Adds the client to the target's tables in one transaction; on a failure the
// transaction is rolled back and the error thrown.
void AddImportedClient(ClientTables& target, const ClientBuffer& client);

}  // namespace quillon
