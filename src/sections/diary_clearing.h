#pragma once
// Clearing a diary page for every client: the dates and the client events of
// all rows of one `Diary n` table become empty texts, while the shared event
// descriptions and the tax year in `Common` stay, so that a new year's work
// starts with the same twenty events.
//
// The rows are cleared in short transactions of whole rows, one after the
// other, not in one transaction: a process stopped at any point leaves each
// client's row either cleared or as it was, and the rows committed before stay
// cleared. Between two transactions nothing is held, so other workstations and
// the window's own events get their turn.

#include "data/database_schema.h"

#include <QString>
#include <functional>

namespace quillon {

// Told the number of rows cleared so far, after each transaction's commit.
using ClearProgress = std::function<void(int)>;

// Clears every row of `Diary page` of the database at `path`. A failure rolls
// back the transaction it met, after which the error is thrown; the rows
// committed before it stay cleared. Returns the number of rows cleared.
int ClearDiaryPage(const QString& path, int page, const ClearProgress& progress = {});

}  // namespace quillon
