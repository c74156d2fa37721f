#include "maintenance/upkeep_screens_gui.h"

#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {

constexpr int kWaitBelowMiddleTwips = 1000;
constexpr int kTimerStartMs = 100;
constexpr int kTextWidth = 460;

QString ConfirmText(const UpkeepTexts& texts) {
    const QString gap = QStringLiteral("\n\n");
    return QStringLiteral("Your currently selected client database is in the file:") + gap +
           ClientDatabasePath() + gap + QLatin1String(texts.about) + gap +
           QLatin1String(texts.backupFirst) + gap +
           QStringLiteral("Please select one of the following:");
}

}  // namespace

UpkeepConfirm::UpkeepConfirm(const UpkeepTexts& texts, QWidget* parent)
    : QDialog(parent), texts_(texts) {
    setObjectName(QLatin1String(texts.confirmForm));
    setWindowTitle(QLatin1String(texts.confirmCaption));
    lblWarning = Named<QLabel>(QStringLiteral("lblWarning"), tr("Warning"), this);
    QFont bold = lblWarning->font();
    bold.setBold(true);
    lblWarning->setFont(bold);
    lblText = Named<QLabel>(QStringLiteral("lblText"), ConfirmText(texts), this);
    lblText->setWordWrap(true);
    lblText->setFixedWidth(kTextWidth);
    auto* choices = new QGridLayout;
    choices->setColumnStretch(1, 1);
    cmdBackup = AddChoiceRow(choices, this, "cmdBackup", tr("Backup"),
                             QLatin1String(texts.backupExplanation));
    cmdContinue = AddChoiceRow(choices, this, "cmdContinue", QLatin1String(texts.goCaption),
                               QLatin1String(texts.goExplanation));
    cmdCancel = AddChoiceRow(choices, this, "cmdCancel", tr("Cancel"),
                             QLatin1String(texts.cancelExplanation));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblWarning);
    layout->addWidget(lblText);
    layout->addLayout(choices);
    cmdCancel->setDefault(true);
    connect(cmdBackup, &QPushButton::clicked, this, &UpkeepConfirm::cmdBackup_Click);
    connect(cmdContinue, &QPushButton::clicked, this, &UpkeepConfirm::cmdContinue_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &UpkeepConfirm::cmdCancel_Click);
}

// The operation is not taken up again after a backup: the user starts it anew.
void UpkeepConfirm::cmdBackup_Click() {
    CloseThenShow("frmBackup");
}

void UpkeepConfirm::cmdContinue_Click() {
    Continue();
}

void UpkeepConfirm::Continue() {
    CloseThenShow(texts_.waitForm);
}

void UpkeepConfirm::cmdCancel_Click() {
    reject();
    UnloadForm(QLatin1String(texts_.confirmForm));
}

void UpkeepConfirm::CloseThenShow(const char* form) {
    reject();
    UnloadForm(QLatin1String(texts_.confirmForm));
    QCoreApplication::processEvents();
    ShowModal(QLatin1String(form));
}

UpkeepWait::UpkeepWait(const UpkeepTexts& texts, QWidget* parent) : QDialog(parent), texts_(texts) {
    setObjectName(QLatin1String(texts.waitForm));
    setWindowTitle(QLatin1String(texts.confirmCaption));
    lblFile = Named<QLabel>(QStringLiteral("lblFile"), ClientDatabasePath(), this);
    Timer1 = Named<QTimer>(QStringLiteral("Timer1"), this);
    Timer1->setSingleShot(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("PLEASE WAIT"), this));
    layout->addWidget(new QLabel(QLatin1String(texts.waitText), this));
    layout->addWidget(lblFile);
    connect(Timer1, &QTimer::timeout, this, &UpkeepWait::Timer1_Timer);
}

// Placed over the main window and painted before the work begins.
void UpkeepWait::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (const QWidget* main = MainWindow()) {
        move(main->geometry().center() - rect().center() +
             QPoint(0, TwipsToPixels(kWaitBelowMiddleTwips)));
    }
    Timer1->start(kTimerStartMs);
}

void UpkeepWait::Timer1_Timer() {
    Timer1->stop();
    std::optional<ErrorDetails> failure;
    UpkeepResult result = UpkeepResult::Done;
    {
        WaitPointer wait;
        try {
            // Every open table of this workstation closes with its form.
            UnloadAllForms();
            result = texts_.work(ClientDatabasePath());
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
        }
    }
    if (failure) {
        MsgBox(ErrorReportText(QLatin1String(texts_.waitForm), QStringLiteral("Timer1_Timer"),
                               *failure),
               vbExclamation, QLatin1String(texts_.errorTitle));
    } else if (result == UpkeepResult::InUse) {
        MsgBox(InUseText(), vbExclamation, QLatin1String(texts_.errorTitle));
    }
    accept();
    UnloadForm(QLatin1String(texts_.waitForm));
}

}  // namespace quillon
