#include "clients/client_forms_gui.h"

#include "clients/frmClients.h"
#include "clients/frmDeleteClient.h"
#include "clients/frmNewClient.h"
#include "clients/frmRenameClient.h"

namespace quillon {

std::span<const FormRow> ClientForms() {
    static const FormRow forms[] = {
        ChildForm<frmClients>(),
        DialogForm<frmNewClient>(),
        DialogForm<frmRenameClient>(),
        DialogForm<frmDeleteClient>(),
    };
    return forms;
}

}  // namespace quillon
