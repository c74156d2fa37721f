#include "maintenance/frmTransferWait.h"

#include "data/data_access.h"
#include "maintenance/database_backup.h"
#include "maintenance/database_upkeep.h"
#include "maintenance/version1_transfer.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/database_check.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {

const QString kTitle = QStringLiteral("Transfer Database");
constexpr int kTimerStartMs = 100;

void KillIfThere(const QString& path) {
    if (!Dir(path).isEmpty()) {
        Kill(PathOnDisk(path));
    }
}

}  // namespace

frmTransferWait::frmTransferWait(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(kTitle);
    lblSourceFile = Named<QLabel>(QStringLiteral("lblSourceFile"), this);
    lblDestFile = Named<QLabel>(QStringLiteral("lblDestFile"), this);
    lblTable = Named<QLabel>(QStringLiteral("lblTable"), this);
    lblRecord = Named<QLabel>(QStringLiteral("lblRecord"), this);
    gauProgress = Named<QProgressBar>(QStringLiteral("gauProgress"), this);
    cm3Cancel = Named<QPushButton>(QStringLiteral("cm3Cancel"), tr("&Cancel"), this);
    cm3Cancel->setEnabled(false);
    tmrGo = Named<QTimer>(QStringLiteral("tmrGo"), this);
    tmrGo->setSingleShot(true);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* widget : {static_cast<QWidget*>(lblSourceFile),
                            static_cast<QWidget*>(lblDestFile), static_cast<QWidget*>(lblTable),
                            static_cast<QWidget*>(lblRecord), static_cast<QWidget*>(gauProgress)}) {
        layout->addWidget(widget);
    }
    AddButtonRow(layout, {cm3Cancel});
    connect(tmrGo, &QTimer::timeout, this, &frmTransferWait::tmrGo_Timer);
    connect(cm3Cancel, &QPushButton::clicked, this, &frmTransferWait::cm3Cancel_Click);
}

void frmTransferWait::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    tmrGo->start(kTimerStartMs);
}

void frmTransferWait::cm3Cancel_Click() {
    if (MsgBox(QStringLiteral("Do you wish to cancel this operation?"), vbYesNo | vbQuestion,
               kTitle) == vbYes) {
        cancelled_ = true;
    }
}

bool frmTransferWait::ShowProgress(const QString& table, int row, int rows) {
    lblTable->setText(table);
    lblRecord->setText(QStringLiteral("%1 of %2").arg(row).arg(rows));
    gauProgress->setMaximum(rows);
    gauProgress->setValue(row);
    QCoreApplication::processEvents();
    return !cancelled_;
}

// All writing goes to the working copy; the target's contents are replaced
// from it only when everything has been copied.
bool frmTransferWait::Transfer(const TransferFiles& files) {
    lblSourceFile->setText(QStringLiteral("Copying file:") + QLatin1Char(' ') + files.source);
    lblDestFile->setText(QStringLiteral("to file:") + QLatin1Char(' ') + files.sourceCopy);
    KillIfThere(files.sourceCopy);
    KillIfThere(files.targetCopy);
    lblRecord->setText(QStringLiteral("PLEASE WAIT"));
    FileCopy(PathOnDisk(files.source), files.sourceCopy);
    BackupDatabaseFile(files.target, files.targetCopy);
    lblSourceFile->setText(QStringLiteral("Copying from file:") + QLatin1Char(' ') + files.source);
    lblDestFile->setText(QStringLiteral("to file:") + QLatin1Char(' ') + files.target);
    cm3Cancel->setEnabled(true);
    const TransferEnd end = TransferClients(
        files.sourceCopy, files.targetCopy, files.oldFolder,
        [this](const QString& table, int row, int rows) { return ShowProgress(table, row, rows); });
    if (end == TransferEnd::Cancelled) {
        return false;
    }
    KillIfThere(files.safety);
    BackupDatabaseFile(files.target, files.safety);
    CopyDatabaseInto(files.targetCopy, files.target);
    return true;
}

void frmTransferWait::tmrGo_Timer() {
    tmrGo->stop();
    const TransferFiles files = TransferFilesFor(DatabaseFolder.at(SelectedFile));
    if (!UnloadAllForms()) {
        Finish();
        return;
    }
    if (InUseByAnother(files.target)) {
        MsgBox(InUseText(), vbExclamation, kTitle);
        Finish();
        return;
    }
    try {
        {
            WaitPointer wait;
            Transfer(files);
        }
        KillIfThere(files.sourceCopy);
        KillIfThere(files.targetCopy);
    } catch (const std::exception& error) {
        MsgBox(ErrorReportText(QString::fromLatin1(kFormName), QStringLiteral("tmrGo_Timer"),
                               DetailsOf(error)),
               vbExclamation, kTitle);
    }
    if (VerifyClientDatabase()) {
        ReadUserTitle();
    }
    Finish();
}

void frmTransferWait::Finish() {
    accept();
    UnloadForm(QString::fromLatin1(kFormName));
}

}  // namespace quillon
