#include "sections/section_forms_gui.h"

#include "sections/frmAssets.h"
#include "sections/frmAssetsExt.h"
#include "sections/frmBusiness.h"
#include "sections/frmContributions.h"
#include "sections/frmEmployment.h"
#include "sections/frmHelpContribs.h"
#include "sections/frmNBusiness.h"
#include "sections/frmPersonal.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"

namespace quillon {

std::span<const FormRow> SectionForms() {
    static const FormRow forms[] = {
        ChildForm<frmPersonal>(),      ChildForm<frmEmployment>(),    ChildForm<frmBusiness>(),
        ChildForm<frmAssets>(),        ChildForm<frmContributions>(), ChildForm<frmUser>(),
        DialogForm<frmSpouseList>(),   DialogForm<frmNBusiness>(),    DialogForm<frmAssetsExt>(),
        DialogForm<frmHelpContribs>(),
    };
    return forms;
}

}  // namespace quillon
