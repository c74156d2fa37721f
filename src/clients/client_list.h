#pragma once
// The names of the client list, as read from `Clients` of the selected client
// database.

#include "clients/client_lifecycle.h"

#include <QString>
#include <QStringList>

namespace quillon {

// How the list shows a client: last name, ", ", first names.
QString ListTextOf(const ClientName& name);

// Every row of `Clients` as the list shows it, in the table's stored order.
// A database without clients fails with the engine's error for a missing
// current row.
QStringList ReadClientListTexts(const QString& databasePath);

// Puts list texts in the order in which the list shows them: the platform's
// collation, without regard to case.
void SortListTexts(QStringList& texts);

}  // namespace quillon
