#pragma once
// The employment section: up to four employments of a client, one a page and
// one table a page (`Employment 1` to `Employment 4`). A page holds the
// employer, the dates, three flags written at their click, and the earnings
// list of the years.

#include "sections/earnings_screen_gui.h"

class QCheckBox;

namespace quillon {

class frmEmployment : public EarningsScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmEmployment";

    explicit frmEmployment(QWidget* parent = nullptr);

    QCheckBox* chkDirector = nullptr;
    QCheckBox* chkClose = nullptr;
    QCheckBox* chkMain = nullptr;
};

}  // namespace quillon
