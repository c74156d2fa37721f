#include "clients/frmDeleteClient.h"

#include "clients/client_dialogs_gui.h"
#include "platform/files.h"
#include "shell/variables.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

frmDeleteClient::frmDeleteClient(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Delete Client"));
    auto* layout = new QVBoxLayout(this);
    lblName = new QLabel(CurrentFirst + QLatin1Char(' ') + CurrentLast, this);
    lblName->setObjectName(QStringLiteral("lblName"));
    lblName->setAlignment(Qt::AlignCenter);
    QFont bold = lblName->font();
    bold.setBold(true);
    lblName->setFont(bold);
    lbl = new QLabel(QStringLiteral("Do you wish to delete this client?"), this);
    lbl->setObjectName(QStringLiteral("lbl"));
    lbl->setAlignment(Qt::AlignCenter);
    layout->addWidget(lblName);
    layout->addWidget(lbl);

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    cm3Yes = new QPushButton(QStringLiteral("&Yes"), this);
    cm3Yes->setObjectName(QStringLiteral("cm3Yes"));
    cm3No = new QPushButton(QStringLiteral("&No"), this);
    cm3No->setObjectName(QStringLiteral("cm3No"));
    // A slip of the Enter key must not delete a client.
    cm3No->setDefault(true);
    buttons->addWidget(cm3Yes);
    buttons->addWidget(cm3No);
    buttons->addStretch();
    connect(cm3Yes, &QPushButton::clicked, this, &frmDeleteClient::cm3Yes_Click);
    connect(cm3No, &QPushButton::clicked, this, &QDialog::close);
}

void frmDeleteClient::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_) {
        placed_ = true;
        PlaceOverMainWindow(this);
    }
}

void frmDeleteClient::cm3Yes_Click() {
    ClientTables tables;
    try {
        SetHourglass();
        tables.Open(PathOnDisk(ClientDatabasePath()));
        const ClientName next = DeleteClientRows(tables, {CurrentFirst, CurrentLast});
        CurrentFirst = next.first;
        CurrentLast = next.last;
        CloseClientTables(tables);
        RefreshClientList();
        SetDefaultPointer();
        close();
    } catch (const std::exception& error) {
        ReportLifecycleFailure(QStringLiteral("Delete Client"), tables, error);
    }
}

}  // namespace quillon
