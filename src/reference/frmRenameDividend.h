#pragma once
// Renames the current share of the chosen year: its company, stock or FID.

#include "reference/reference_dialogs_gui.h"
#include "reference/reference_files.h"

namespace quillon {

class frmRenameDividend : public ShareDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmRenameDividend";

    explicit frmRenameDividend(QWidget* parent = nullptr);

    void cm3OK_Click() override;

private:
    ShareKey old_;
};

}  // namespace quillon
