#include "reference/reference_forms_gui.h"

#include "reference/frmDividends.h"
#include "reference/frmNewDividend.h"
#include "reference/frmNewOffice.h"
#include "reference/frmOffices.h"
#include "reference/frmRenameDividend.h"
#include "reference/frmRenameOffice.h"

namespace quillon {

std::span<const FormRow> ReferenceForms() {
    static const FormRow forms[] = {
        ChildForm<frmOffices>(),   DialogForm<frmNewOffice>(),   DialogForm<frmRenameOffice>(),
        ChildForm<frmDividends>(), DialogForm<frmNewDividend>(), DialogForm<frmRenameDividend>(),
    };
    return forms;
}

}  // namespace quillon
