#pragma once
// A client database of the delivered kind in a temporary folder that is the
// selected database slot for as long as the object lives, holding exactly the
// clients a test names, and the means to look into its 22 client tables.

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace quillon::testing {

// A client as (last name, first names).
using Client = QPair<QString, QString>;

class ClientSlot {
public:
    // The clients are given a row in every client table; the delivered sample
    // client is taken out.
    explicit ClientSlot(const QList<Client>& clients);
    ~ClientSlot();
    ClientSlot(const ClientSlot&) = delete;
    ClientSlot& operator=(const ClientSlot&) = delete;

    QString DatabasePath() const;

    // The client tables that hold a row of the client.
    QStringList TablesHolding(const Client& client) const;
    // Rows in each client table, in the lifecycle order.
    QList<long> RowCounts() const;
    // One text field of the client's row in `table`; "<none>" when no row.
    QString FieldOf(const QString& table, const Client& client, const QString& field) const;
    void SetField(const QString& table, const Client& client, const QString& field,
                  const QString& value) const;
    // Deletes the client's row from `table` alone.
    void RemoveRow(const QString& table, const Client& client) const;
    // Makes `table` fail at every insert, update or delete of a row, as a
    // damaged table would, once the earlier tables are written.
    void DamageTable(const QString& table) const;

private:
    QTemporaryDir dir_;
};

}  // namespace quillon::testing
