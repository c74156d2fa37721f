#pragma once
// Creates a client: a row bearing the new name in each of the client tables,
// written together in one transaction.

#include "clients/client_dialogs_gui.h"

namespace quillon {

class frmNewClient : public ClientNameDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmNewClient";

    explicit frmNewClient(QWidget* parent = nullptr);

    void cm3OK_Click() override;
};

}  // namespace quillon
