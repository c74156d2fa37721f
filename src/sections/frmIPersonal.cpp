#include "sections/frmIPersonal.h"

#include "sections/section_state.h"

namespace quillon {

namespace {
const IndicatorRow kIPersonalRow{
    frmIPersonal::kFormName, "Personal Indicators", "Personal", nullptr,
    &PersonalFirst,          &PersonalLast,         "Blind",    true};
}  // namespace

frmIPersonal::frmIPersonal(QWidget* parent) : IndicatorScreen(kIPersonalRow, parent) {}

}  // namespace quillon
