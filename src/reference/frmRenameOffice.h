#pragma once
// Renumbers or renames the current tax office. The clients that name the
// office keep the number they hold: one renamed is still found by it, one
// renumbered no longer.

#include "reference/reference_dialogs_gui.h"

namespace quillon {

class frmRenameOffice : public OfficeDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmRenameOffice";

    explicit frmRenameOffice(QWidget* parent = nullptr);

    void cm3OK_Click() override;

private:
    QString oldNumber_;
    QString oldName_;
};

}  // namespace quillon
