#pragma once
// Adds a share to the chosen year's dividends file. A share added here is the
// user's own: an update of the file keeps it, with its payments.

#include "reference/reference_dialogs_gui.h"

namespace quillon {

class frmNewDividend : public ShareDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmNewDividend";

    explicit frmNewDividend(QWidget* parent = nullptr);

    void cm3OK_Click() override;
};

}  // namespace quillon
