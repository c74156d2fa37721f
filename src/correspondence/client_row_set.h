#pragma once
// The rows of one client in a few tables, each found by name in one open
// database; a row that is not there reads as Null.

#include "data/client_rows.h"
#include "platform/dao.h"

#include <QStringList>
#include <QVariant>

#include <functional>
#include <vector>

namespace quillon {

class ClientRowSet {
public:
    // `tables` after "Clients", which decides whether a client is there.
    ClientRowSet(dao::Database& db, const QStringList& tables);
    // False when the client is not in `Clients`.
    bool Seek(const ClientName& client);
    // Whether the client has a row in `table`.
    bool Found(const QString& table) const;
    QVariant Value(const QString& table, const QString& field) const;
    // The field's text, empty for Null.
    QString Text(const QString& table, const QString& field) const;

private:
    // The row of `table` as last sought, or nullptr when it isn't one of them.
    const dao::Recordset* Row(const QString& table) const;

    std::vector<dao::Recordset> rows_;
};

// Calls `read` with each index below `count`, in read transactions of `db` of a
// few hundred each: a client is read whole, and no other workstation waits
// long to write. `progress`, if any, is told each number from 1 first.
void ReadInShortTransactions(dao::Database& db, qsizetype count,
                             const std::function<void(int)>& progress,
                             const std::function<void(qsizetype)>& read);

}  // namespace quillon
