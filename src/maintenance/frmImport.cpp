#include "maintenance/frmImport.h"

#include "data/data_access.h"
#include "maintenance/client_import.h"
#include "maintenance/maintenance_state.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

frmImport::frmImport(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(tr("Import Clients"));
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), this);
    lstClients->setSelectionMode(QAbstractItemView::ExtendedSelection);
    cmdAll = Named<QPushButton>(QStringLiteral("cmdAll"), tr("Select &All"), this);
    cmdImport = Named<QPushButton>(QStringLiteral("cmdImport"), tr("&Import"), this);
    cmdCancel = Named<QPushButton>(QStringLiteral("cmdCancel"), tr("&Cancel"), this);
    cmdAll->setEnabled(false);
    cmdImport->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstClients, 1);
    AddButtonRow(layout, {cmdAll, cmdImport, cmdCancel});
    connect(lstClients, &QListWidget::itemSelectionChanged, this,
            [this] { cmdImport->setEnabled(!lstClients->selectedItems().isEmpty()); });
    connect(cmdAll, &QPushButton::clicked, this, &frmImport::cmdAll_Click);
    connect(cmdImport, &QPushButton::clicked, this, &frmImport::cmdImport_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    LoadSourceClients();
}

void frmImport::LoadSourceClients() {
    const SourceClients source = quillon::LoadSourceClients(ImportSourcePath);
    lstClients->addItems(source.entries);
    cmdAll->setEnabled(lstClients->count() > 0);
    if (!source.failure.isEmpty()) {
        MsgBox(source.failure, vbExclamation, QStringLiteral("Import clients"));
    }
}

void frmImport::cmdAll_Click() {
    lstClients->selectAll();
}

bool frmImport::ImportEntries(const QStringList& entries) {
    std::optional<ErrorDetails> failure;
    {
        WaitPointer wait;
        try {
            dao::Database source = dao::OpenDatabase(ImportSourcePath, false, true);
            ClientTables target;
            target.Open(ClientDatabasePath());
            for (const QString& entry : entries) {
                SetProgressText(QStringLiteral("IMPORTING ") + entry);
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
                const std::optional<ClientBuffer> client = ReadSourceClient(source, entry);
                if (!client) {
                    continue;
                }
                try {
                    AddImportedClient(target, *client);
                } catch (const dao::DaoError& error) {
                    // Rolled back already: the message holds no lock.
                    MsgBox(LifecycleErrorText(error), vbExclamation, windowTitle());
                }
            }
            target.Close();
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
        }
        SetProgressText(QString());
    }
    if (failure) {
        MsgBox(ErrorReportText(QStringLiteral("frmImport"), QStringLiteral("cmdImport"), *failure),
               vbExclamation, QStringLiteral("Quillon"));
        return false;
    }
    return true;
}

void frmImport::cmdImport_Click() {
    QStringList entries;
    for (int row = 0; row < lstClients->count(); ++row) {
        if (lstClients->item(row)->isSelected()) {
            entries << lstClients->item(row)->text();
        }
    }
    if (ImportEntries(entries)) {
        MsgBox(QStringLiteral("Import complete"), vbInformation);
    }
    accept();
    UnloadForm(QString::fromLatin1(kFormName));
    if (QWidget* clients = LoadForm(QStringLiteral("frmClients")); clients && MainWindow()) {
        ShowForm(clients);
    }
}

}  // namespace quillon
