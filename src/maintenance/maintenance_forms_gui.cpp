#include "maintenance/maintenance_forms_gui.h"

#include "maintenance/frmBackup.h"

namespace quillon {

std::span<const FormRow> MaintenanceForms() {
    static const FormRow forms[] = {
        DialogForm<frmBackup>(),
    };
    return forms;
}

}  // namespace quillon
