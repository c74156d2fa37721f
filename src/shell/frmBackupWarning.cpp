#include "shell/frmBackupWarning.h"

#include "data/data_access.h"
#include "platform/widgets_gui.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/lifecycle.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QFont>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {
constexpr qint16 kStartsBetweenReminders = 9;
constexpr qint16 kNeverRemind = -1;
constexpr int kTextWidth = 460;
}  // namespace

frmBackupWarning::frmBackupWarning(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Backup Warning"));
    auto* layout = new QVBoxLayout(this);
    auto* heading = Named<QLabel>(QStringLiteral("lblHeading"), QStringLiteral("Warning"), this);
    QFont bold = heading->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    heading->setFont(bold);
    layout->addWidget(heading);
    lblWarning = Named<QLabel>(QStringLiteral("lblWarning"), this);
    lblWarning->setWordWrap(true);
    lblWarning->setFixedWidth(kTextWidth);
    layout->addWidget(lblWarning);

    auto* choices = new QGridLayout;
    choices->setColumnStretch(1, 1);
    layout->addLayout(choices);
    cmdBackup = AddChoiceRow(choices, this, "cmdBackup", QStringLiteral("Backup"),
                             QStringLiteral("Make a backup copy of your client database now."));
    cmdContinue = AddChoiceRow(choices, this, "cmdContinue", QStringLiteral("Continue"),
                               QStringLiteral("Start Quillon without making a backup."));
    cmdExit = AddChoiceRow(
        choices, this, "cmdExit", QStringLiteral("Exit"),
        QStringLiteral("Exit from Quillon and use your backup software to make a backup."));
    chkDisable = Named<QCheckBox>(QStringLiteral("chkDisable"),
                                  QStringLiteral("Don't show this warning again"), this);
    layout->addWidget(chkDisable);

    connect(cmdBackup, &QPushButton::clicked, this, &frmBackupWarning::cmdBackup_Click);
    connect(cmdContinue, &QPushButton::clicked, this, &frmBackupWarning::cmdContinue_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmBackupWarning::cmdExit_Click);
    cmdContinue->setDefault(true);
    Form_Load();
}

// clang-format off
// Kept whole so that each sentence can be found as the user reads it.
const char* const kRetainText = "You should retain several backup copies of this file (e.g. one for each day in the past week) so that you can recover a known 'good' version if this file ever becomes corrupt.";
// clang-format on

QString frmBackupWarning::WarningText() {
    const QString gap = QStringLiteral("\n\n");
    return QStringLiteral("Your currently selected client database is in the file:") + gap +
           ClientDatabasePath() + gap +
           QStringLiteral("You must back up this file regularly; daily if possible.") + gap +
           QStringLiteral("Now is a good time to make a backup copy of this file.") + gap +
           QString::fromLatin1(kRetainText) + gap +
           QStringLiteral("Please select one of the following:");
}

void frmBackupWarning::Form_Load() {
    try {
        lblWarning->setText(WarningText());
    } catch (const std::exception& error) {
        ReportError(QString::fromLatin1(kFormName), QStringLiteral("Form_Load"), error);
    }
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - rect().center());
    }
}

void frmBackupWarning::storeChoice() {
    BackupWarning = chkDisable->isChecked() ? kNeverRemind : kStartsBetweenReminders;
}

void frmBackupWarning::unloadMe() {
    UnloadForm(QString::fromLatin1(kFormName));
}

void frmBackupWarning::cmdBackup_Click() {
    storeChoice();
    // The backup screen brings up the main window when it ends; until there is
    // one, the main window opens straight away.
    if (QWidget* backup = LoadForm(QStringLiteral("frmBackup"))) {
        backup->show();
    } else {
        LoadForm(QStringLiteral("frmQuillon"));
    }
    unloadMe();
}

void frmBackupWarning::cmdContinue_Click() {
    storeChoice();
    LoadForm(QStringLiteral("frmQuillon"));
    unloadMe();
}

void frmBackupWarning::cmdExit_Click() {
    BackupWarning = kStartsBetweenReminders;
    WriteConfiguration();
    unloadMe();
    EndProgram();
}

}  // namespace quillon
