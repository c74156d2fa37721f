#include "maintenance/frmCompact.h"

namespace quillon {

// clang-format off
const UpkeepTexts kCompactTexts{
    "frmCompact",
    "Compact Client Database",
    "Use the Compact operation to reduce the size of the client database file. This can also help to reduce access times. Before compacting the database you must ensure that no other users are accessing it.",
    "Before proceeding with the Compact operation, you should make a backup copy of your current client database.",
    "Postpone the Compact operation and make a backup of your client database now.",
    "Compact",
    "Compact the client database now.",
    "Cancel the Compact operation and continue using Quillon.",
    "frmCompactWait",
    "Compacting database file:",
    "Compact database",
    CompactClientDatabase,
};
// clang-format on

}  // namespace quillon
