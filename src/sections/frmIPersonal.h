#pragma once
// The indicators of the personal section: Blind as the first, fixed, and nine of the practice's
// own; the list can also be printed as address labels.

#include "sections/indicator_screen_gui.h"

namespace quillon {

class frmIPersonal : public IndicatorScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmIPersonal";
    explicit frmIPersonal(QWidget* parent = nullptr);
};

}  // namespace quillon
