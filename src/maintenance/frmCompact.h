#pragma once
// Asks before the client database is compacted: back it up first, go on, or
// cancel.

#include "maintenance/upkeep_screens_gui.h"

namespace quillon {

// The texts and the work of the compact screens.
extern const UpkeepTexts kCompactTexts;

class frmCompact : public UpkeepConfirm {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmCompact";
    explicit frmCompact(QWidget* parent = nullptr) : UpkeepConfirm(kCompactTexts, parent) {}
};

}  // namespace quillon
