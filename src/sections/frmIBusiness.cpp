#include "sections/frmIBusiness.h"

#include "sections/section_state.h"

namespace quillon {

namespace {
const IndicatorRow kIBusinessRow{
    frmIBusiness::kFormName, "Business Indicators", "Business %1", &BusinessPage,
    &BusinessFirst,          &BusinessLast,         nullptr,       false};
}  // namespace

frmIBusiness::frmIBusiness(QWidget* parent) : IndicatorScreen(kIBusinessRow, parent) {}

}  // namespace quillon
