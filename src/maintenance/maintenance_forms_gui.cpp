#include "maintenance/maintenance_forms_gui.h"

#include "maintenance/frmBackup.h"
#include "maintenance/frmCompactWait.h"
#include "maintenance/frmImport.h"
#include "maintenance/frmImportWarning.h"
#include "maintenance/frmRepairWait.h"
#include "maintenance/frmTransfer.h"
#include "maintenance/frmTransferWait.h"

namespace quillon {

std::span<const FormRow> MaintenanceForms() {
    static const FormRow forms[] = {
        DialogForm<frmBackup>(), DialogForm<frmCompact>(),    DialogForm<frmCompactWait>(),
        DialogForm<frmRepair>(), DialogForm<frmRepairWait>(), DialogForm<frmImportWarning>(),
        DialogForm<frmImport>(), DialogForm<frmTransfer>(),   DialogForm<frmTransferWait>(),
    };
    return forms;
}

}  // namespace quillon
