#include "reports/report_forms_gui.h"

#include "reports/frmClientRecords.h"
#include "reports/frmDiaryReport.h"
#include "reports/frmForm64_8.h"
#include "reports/frmVSPrintSettings.h"

namespace quillon {

std::span<const FormRow> ReportForms() {
    static const FormRow forms[] = {
        DialogForm<frmVSPrintSettings>(),
        DialogForm<frmForm64_8>(),
        ChildForm<frmClientRecords>(),
        DialogForm<frmDiaryReport>(),
    };
    return forms;
}

}  // namespace quillon
