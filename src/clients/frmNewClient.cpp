#include "clients/frmNewClient.h"

#include "platform/files.h"
#include "shell/variables.h"

namespace quillon {

frmNewClient::frmNewClient(QWidget* parent)
    : ClientNameDialog(QStringLiteral("New Client"), parent) {}

void frmNewClient::cm3OK_Click() {
    ClientTables tables;
    try {
        SetHourglass();
        const ClientName name = EnteredName();
        tables.Open(PathOnDisk(ClientDatabasePath()));
        const ClientName created = AddClientRows(tables, name);
        CurrentFirst = created.first;
        CurrentLast = created.last;
        CloseClientTables(tables);
        RefreshClientList();
        // The pointer stays the hourglass: the list's refresh puts it back.
        close();
    } catch (const std::exception& error) {
        ReportLifecycleFailure(QStringLiteral("New Client"), tables, error);
    }
}

}  // namespace quillon
