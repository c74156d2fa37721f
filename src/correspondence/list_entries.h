#pragma once
// The texts of the name lists that the correspondence screens hand on: a
// client as last name, ", ", first names; a tax office as name, " (", number,
// ")".

#include "data/client_rows.h"

#include <QString>
#include <QStringList>

namespace quillon {

// The client of an entry, cut at its first ", ".
ClientName ClientOfEntry(const QString& entry);

struct OfficeKey {
    QString name;
    QString number;
};
QString OfficeEntry(const QString& name, const QString& number);
// The office of an entry: the name is all but the last six characters, the
// number the three before the closing bracket.
OfficeKey OfficeOfEntry(const QString& entry);

// Every client of the client database's table `table` in name order.
QStringList ClientEntries(const QString& table = QStringLiteral("Clients"));
// Every tax office in name order.
QStringList OfficeEntries();

}  // namespace quillon
