#include "correspondence/correspondence_forms_gui.h"

#include "correspondence/frmClientLabels.h"
#include "correspondence/frmClientMerge.h"
#include "correspondence/frmOfficeLabels.h"
#include "correspondence/frmOfficeMerge.h"

namespace quillon {

std::span<const FormRow> CorrespondenceForms() {
    static const FormRow forms[] = {
        ChildForm<frmClientMerge>(),
        ChildForm<frmOfficeMerge>(),
        ChildForm<frmClientLabels>(),
        ChildForm<frmOfficeLabels>(),
    };
    return forms;
}

}  // namespace quillon
