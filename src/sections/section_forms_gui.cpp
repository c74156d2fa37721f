#include "sections/section_forms_gui.h"

#include "sections/frmPersonal.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"

namespace quillon {

std::span<const FormRow> SectionForms() {
    static const FormRow forms[] = {
        ChildForm<frmPersonal>(),
        ChildForm<frmUser>(),
        DialogForm<frmSpouseList>(),
    };
    return forms;
}

}  // namespace quillon
