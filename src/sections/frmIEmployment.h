#pragma once
// The indicators of the employment page shown: ten of the practice's own for each of the four
// pages.

#include "sections/indicator_screen_gui.h"

namespace quillon {

class frmIEmployment : public IndicatorScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmIEmployment";
    explicit frmIEmployment(QWidget* parent = nullptr);
};

}  // namespace quillon
