#include "sections/frmIEmployment.h"

#include "sections/section_state.h"

namespace quillon {

namespace {
const IndicatorRow kIEmploymentRow{
    frmIEmployment::kFormName, "Employment Indicators", "Employment %1", &EmploymentPage,
    &EmploymentFirst,          &EmploymentLast,         nullptr,         false};
}  // namespace

frmIEmployment::frmIEmployment(QWidget* parent) : IndicatorScreen(kIEmploymentRow, parent) {}

}  // namespace quillon
