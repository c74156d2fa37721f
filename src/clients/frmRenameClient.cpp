#include "clients/frmRenameClient.h"

#include "platform/files.h"
#include "platform/services.h"
#include "shell/variables.h"

#include <QLineEdit>

namespace quillon {

frmRenameClient::frmRenameClient(QWidget* parent)
    : ClientNameDialog(QStringLiteral("Rename Client"), parent),
      current_{CurrentFirst, CurrentLast} {
    txtFirst->setText(current_.first);
    txtLast->setText(current_.last);
}

bool frmRenameClient::NamesAcceptable() const {
    return ClientNameDialog::NamesAcceptable() && EnteredName() != current_;
}

void frmRenameClient::cm3OK_Click() {
    ClientTables tables;
    try {
        SetHourglass();
        const ClientName to = EnteredName();
        tables.Open(PathOnDisk(ClientDatabasePath()));
        const std::optional<ClientName> renamed = RenameClientRows(tables, current_, to);
        if (!renamed) {
            tables.Close();
            SetDefaultPointer();
            Beep();
            MsgBox(
                QStringLiteral("Unable to rename client - part of the client record not available"),
                vbExclamation | vbOKOnly, current_.first + QLatin1Char(' ') + current_.last);
            return;
        }
        CurrentFirst = renamed->first;
        CurrentLast = renamed->last;
        CloseClientTables(tables);
        RefreshClientList();
        SetDefaultPointer();
        close();
    } catch (const std::exception& error) {
        ReportLifecycleFailure(QStringLiteral("Rename Client"), tables, error);
    }
}

}  // namespace quillon
