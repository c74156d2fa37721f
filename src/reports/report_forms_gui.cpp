#include "reports/report_forms_gui.h"

#include "reports/frmVSPrintSettings.h"

namespace quillon {

std::span<const FormRow> ReportForms() {
    static const FormRow forms[] = {
        DialogForm<frmVSPrintSettings>(),
    };
    return forms;
}

}  // namespace quillon
