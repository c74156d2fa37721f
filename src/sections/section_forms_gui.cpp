#include "sections/section_forms_gui.h"

#include "sections/frmAdministration.h"
#include "sections/frmAssets.h"
#include "sections/frmAssetsExt.h"
#include "sections/frmBusiness.h"
#include "sections/frmContributions.h"
#include "sections/frmDiary.h"
#include "sections/frmEmployment.h"
#include "sections/frmHelpContribs.h"
#include "sections/frmHelpDiary.h"
#include "sections/frmHelpIndics.h"
#include "sections/frmIBusiness.h"
#include "sections/frmIEmployment.h"
#include "sections/frmIPersonal.h"
#include "sections/frmNBusiness.h"
#include "sections/frmPersonal.h"
#include "sections/frmSelectOffice.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"
#include "sections/frmYearEnd.h"

namespace quillon {

std::span<const FormRow> SectionForms() {
    static const FormRow forms[] = {
        ChildForm<frmPersonal>(),      ChildForm<frmEmployment>(),
        ChildForm<frmBusiness>(),      ChildForm<frmAssets>(),
        ChildForm<frmContributions>(), ChildForm<frmAdministration>(),
        ChildForm<frmUser>(),          ChildForm<frmDiary>(),
        DialogForm<frmSpouseList>(),   DialogForm<frmNBusiness>(),
        DialogForm<frmAssetsExt>(),    DialogForm<frmHelpContribs>(),
        DialogForm<frmSelectOffice>(), DialogForm<frmHelpDiary>(),
        DialogForm<frmIPersonal>(),    DialogForm<frmIEmployment>(),
        DialogForm<frmIBusiness>(),    DialogForm<frmHelpIndics>(),
        DialogForm<frmYearEnd>(),
    };
    return forms;
}

}  // namespace quillon
