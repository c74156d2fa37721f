#pragma once
// Asks the user to wait while the client database is compacted.

#include "maintenance/frmCompact.h"

namespace quillon {

class frmCompactWait : public UpkeepWait {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmCompactWait";
    explicit frmCompactWait(QWidget* parent = nullptr) : UpkeepWait(kCompactTexts, parent) {}
};

}  // namespace quillon
