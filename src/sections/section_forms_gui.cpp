#include "sections/section_forms_gui.h"

#include "sections/frmAdministration.h"
#include "sections/frmDiary.h"
#include "sections/frmHelpDiary.h"
#include "sections/frmHelpIndics.h"
#include "sections/frmIBusiness.h"
#include "sections/frmIEmployment.h"
#include "sections/frmIPersonal.h"
#include "sections/frmPersonal.h"
#include "sections/frmSelectOffice.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"
#include "sections/frmYearEnd.h"

namespace quillon {

std::span<const FormRow> SectionForms() {
    static const FormRow forms[] = {
        ChildForm<frmPersonal>(),     ChildForm<frmUser>(),           DialogForm<frmSpouseList>(),
        ChildForm<frmDiary>(),        DialogForm<frmHelpDiary>(),     DialogForm<frmIPersonal>(),
        DialogForm<frmIEmployment>(), DialogForm<frmIBusiness>(),     DialogForm<frmHelpIndics>(),
        DialogForm<frmYearEnd>(),     ChildForm<frmAdministration>(), DialogForm<frmSelectOffice>(),
    };
    return forms;
}

}  // namespace quillon
