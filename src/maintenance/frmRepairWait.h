#pragma once
// Asks the user to wait while the client database is repaired.

#include "maintenance/frmRepair.h"

namespace quillon {

class frmRepairWait : public UpkeepWait {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmRepairWait";
    explicit frmRepairWait(QWidget* parent = nullptr) : UpkeepWait(kRepairTexts, parent) {}
};

}  // namespace quillon
