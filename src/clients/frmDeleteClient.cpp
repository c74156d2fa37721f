#include "clients/frmDeleteClient.h"

#include "clients/client_dialogs_gui.h"
#include "platform/files.h"
#include "platform/widgets_gui.h"
#include "shell/variables.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

frmDeleteClient::frmDeleteClient(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Delete Client"));
    auto* layout = new QVBoxLayout(this);
    lblName = Named<QLabel>(QStringLiteral("lblName"),
                            CurrentFirst + QLatin1Char(' ') + CurrentLast, this);
    lblName->setAlignment(Qt::AlignCenter);
    QFont bold = lblName->font();
    bold.setBold(true);
    lblName->setFont(bold);
    lbl = Named<QLabel>(QStringLiteral("lbl"), QStringLiteral("Do you wish to delete this client?"),
                        this);
    lbl->setAlignment(Qt::AlignCenter);
    layout->addWidget(lblName);
    layout->addWidget(lbl);

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    cm3Yes = Named<QPushButton>(QStringLiteral("cm3Yes"), QStringLiteral("&Yes"), this);
    cm3No = Named<QPushButton>(QStringLiteral("cm3No"), QStringLiteral("&No"), this);
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
