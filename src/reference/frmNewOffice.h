#pragma once
// Adds a tax office by its number and name; its other fields are filled in on
// the tax offices screen, where it then stands at the end of the list.

#include "reference/reference_dialogs_gui.h"

namespace quillon {

class frmNewOffice : public OfficeDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmNewOffice";

    explicit frmNewOffice(QWidget* parent = nullptr);

    void cm3OK_Click() override;
};

}  // namespace quillon
