#pragma once
// The indicators of the business page shown: ten of the practice's own for each of the four pages.

#include "sections/indicator_screen_gui.h"

namespace quillon {

class frmIBusiness : public IndicatorScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmIBusiness";
    explicit frmIBusiness(QWidget* parent = nullptr);
};

}  // namespace quillon
