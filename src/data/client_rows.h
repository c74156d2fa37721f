#pragma once
// The few ways a screen reaches one row of the client database: read it, or
// change it between Edit and Update. Each opens the file, works, closes it, and
// only then reports a failure in the routine's own name, so that no message is
// ever on screen while this workstation holds the file's lock.

#include "platform/dao.h"

#include <QString>

#include <functional>

namespace quillon {

// The key of every client table: `First Names` and `Last Name`.
struct ClientName {
    QString first;
    QString last;
    bool operator==(const ClientName&) const = default;
};

// Where a failure is reported from: the form or module, and the routine.
struct Routine {
    QString module;
    QString procedure;
};

using RowReader = std::function<void(const dao::Recordset&)>;
using RowChange = std::function<void(dao::Recordset&)>;

// The client database of the selected slot, its path matched on disk.
dao::Database OpenClientDatabase();
// The tax offices file beside it.
dao::Database OpenOfficeDatabase();

// A row of table `Common` read with a client's row, through the same opening
// of the file; none when `name` is empty.
struct CommonAlongside {
    QString name;
    RowReader read;
};

// Finds the client's row of `table` and hands it to `read`, then, found or
// not, the row `common` names to its reader. False when the client's row is
// missing (the user has been told) or the read failed (reported).
bool ReadClientRow(const Routine& routine, const QString& table, const ClientName& client,
                   const RowReader& read, const CommonAlongside& common = {});

// Finds the client's row of `table`, runs Edit, lets `change` assign fields,
// and runs Update. False when the row is missing (told) or nothing could be
// saved (reported).
bool ChangeClientRow(const Routine& routine, const QString& table, const ClientName& client,
                     const RowChange& change);

// The same for the row `name` of table `Common`; a missing row is passed over
// in silence, as the shared descriptions always have been.
bool ReadCommonRow(const Routine& routine, const QString& name, const RowReader& read);
bool ChangeCommonRow(const Routine& routine, const QString& name, const RowChange& change);

}  // namespace quillon
