#pragma once
// Moving and finding the current client in the table a section screen shows.

#include "platform/dao.h"

#include <QString>

namespace quillon {

// Moves the current client (CurrentFirst, CurrentLast) through `tableName` in
// name order. `direction` is "First", "Previous", "Next" or "Last"; any other
// value leaves the client as it is. Stepping past either end stays on the end
// row. A failure is reported and leaves the current client unchanged.
void MoveClientRecord(const QString& tableName, const QString& direction);

// Seeks `first`, `last` in `recordset` by the index `Name`. When the client is
// not there the user is told and the answer is false.
bool SeekClientRecord(dao::Recordset& recordset, const QString& first, const QString& last);

}  // namespace quillon
