#include "maintenance/frmTransfer.h"

#include "maintenance/version1_transfer.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

frmTransfer::frmTransfer(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(tr("Transfer Client Database"));
    const TransferFiles files = TransferFilesFor(DatabaseFolder.at(SelectedFile));
    txtInfo = Named<QPlainTextEdit>(QStringLiteral("txtInfo"), this);
    txtInfo->setReadOnly(true);
    txtInfo->setPlainText(QStringList{
        QStringLiteral("Transfer Quillon Version 1 file: ") + files.source,
        QStringLiteral("       to Quillon Version 2 file: ") + files.target, QString(),
        QStringLiteral("WARNING: MAKE A BACKUP OF BOTH THESE FILES BEFORE PROCEEDING."),
        QStringLiteral("All records in the Version 1 file will be added to the Version 2 file."),
        // clang-format off
        QStringLiteral(" Before performing the transfer you must ensure that no other users are accessing either database file."),
        // clang-format on
        QStringLiteral("The time required to transfer the database depends on its size.")}
                              .join(QLatin1Char('\n')));
    cm3Transfer = Named<QPushButton>(QStringLiteral("cm3Transfer"), tr("&Transfer Now"), this);
    cm3Cancel = Named<QPushButton>(QStringLiteral("cm3Cancel"), tr("&Cancel"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtInfo, 1);
    AddButtonRow(layout, {cm3Transfer, cm3Cancel});
    connect(cm3Transfer, &QPushButton::clicked, this, &frmTransfer::cm3Transfer_Click);
    connect(cm3Cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmTransfer::cm3Transfer_Click() {
    accept();
    UnloadForm(QString::fromLatin1(kFormName));
    ShowModal(QStringLiteral("frmTransferWait"));
}

}  // namespace quillon
