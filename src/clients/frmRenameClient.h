#pragma once
// Renames the current client: the change of key on every client table, in one
// transaction, once every one of the client's rows has been found.

#include "clients/client_dialogs_gui.h"

namespace quillon {

class frmRenameClient : public ClientNameDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmRenameClient";

    explicit frmRenameClient(QWidget* parent = nullptr);

    void cm3OK_Click() override;

protected:
    // A change of case alone is a change of name.
    bool NamesAcceptable() const override;

private:
    ClientName current_;
};

}  // namespace quillon
