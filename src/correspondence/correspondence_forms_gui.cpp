#include "correspondence/correspondence_forms_gui.h"

#include "correspondence/frmClientLabels.h"
#include "correspondence/frmClientLetter.h"
#include "correspondence/frmClientMerge.h"
#include "correspondence/frmOfficeLabels.h"
#include "correspondence/frmOfficeLetter.h"
#include "correspondence/frmOfficeMerge.h"
#include "correspondence/frmStandardLetter.h"

namespace quillon {

std::span<const FormRow> CorrespondenceForms() {
    static const FormRow forms[] = {
        ChildForm<frmClientMerge>(),     ChildForm<frmOfficeMerge>(),  ChildForm<frmClientLabels>(),
        ChildForm<frmOfficeLabels>(),    ChildForm<frmClientLetter>(), ChildForm<frmOfficeLetter>(),
        DialogForm<frmStandardLetter>(),
    };
    return forms;
}

}  // namespace quillon
