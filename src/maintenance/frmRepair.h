#pragma once
// Asks before the client database is repaired: back it up first, go on, or
// cancel.

#include "maintenance/upkeep_screens_gui.h"

namespace quillon {

// The texts and the work of the repair screens.
extern const UpkeepTexts kRepairTexts;

class frmRepair : public UpkeepConfirm {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmRepair";
    explicit frmRepair(QWidget* parent = nullptr) : UpkeepConfirm(kRepairTexts, parent) {}
};

}  // namespace quillon
