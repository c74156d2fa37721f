#include "maintenance/frmRepair.h"

namespace quillon {

// clang-format off
const UpkeepTexts kRepairTexts{
    "frmRepair",
    "Repair Client Database",
    "If error messages occur when you access this database, use the Repair operation to attempt to repair the database.Before repairing the database you must ensure that no other users are accessing it.",
    " Before proceeding with the Repair operation, you should make a backup copy of your current client database.",
    "Postpone the Repair operation and make a backup of your client database now.",
    "Repair",
    "Repair the client database now.",
    "Cancel the Repair operation and continue using Quillon.",
    "frmRepairWait",
    "Repairing database file:",
    "Repair database",
    RepairClientDatabase,
};
// clang-format on

}  // namespace quillon
