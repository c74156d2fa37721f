#pragma once
// The transfer of a first-version client database into the present one: each
// old table's fields mapped to the new tables, the rows of the old list
// filter passed over, and the shared descriptions refilled from the old
// installation's text files. All writing goes to a working copy, which
// replaces the target's contents only when the whole transfer has succeeded.

#include "platform/dao.h"
#include "platform/dao_schema.h"

#include <QString>

#include <functional>
#include <vector>

namespace quillon {

struct TransferFiles {
    QString oldFolder;   // the first version's installation
    QString source;      // QUILL001.MDB there
    QString sourceCopy;  // TEMPSRC.MDB beside the target
    QString target;      // QUILL020.MDB
    QString targetCopy;  // TEMPDST.MDB
    QString safety;      // QUILL020.BAK
};
// The files for the slot folder `slot`: the old installation is the folder
// "QUILLON" beside it.
TransferFiles TransferFilesFor(const QString& slot);

// The layout of the first version's file, as far as the transfer reads it.
std::vector<dao::TableDef> Version1Tables();
// A first-version file of `clients` synthetic clients and one list filter row.
void MakeVersion1Database(const QString& path, int clients);

// Called with the table, the row counted from 1 and the rows of the table;
// answers true to go on, false when the user has cancelled.
using TransferProgress = std::function<bool(const QString& table, int row, int rows)>;

enum class TransferEnd { Done, Cancelled };

// Copies every client of `source` into `target` (both working copies) and,
// unless cancelled, refills the descriptions from `oldFolder`. Throws what
// the database or a file throws.
TransferEnd TransferClients(const QString& source, const QString& target, const QString& oldFolder,
                            const TransferProgress& progress);

}  // namespace quillon
