#include "sections/section_forms_gui.h"

#include "sections/frmAdministration.h"
#include "sections/frmPersonal.h"
#include "sections/frmSelectOffice.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"

namespace quillon {

std::span<const FormRow> SectionForms() {
    static const FormRow forms[] = {
        ChildForm<frmPersonal>(),       ChildForm<frmUser>(),          DialogForm<frmSpouseList>(),
        ChildForm<frmAdministration>(), DialogForm<frmSelectOffice>(),
    };
    return forms;
}

}  // namespace quillon
