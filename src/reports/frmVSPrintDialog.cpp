#include "reports/frmVSPrintDialog.h"

#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/frmVSPrint.h"
#include "reports/key_filter_gui.h"
#include "reports/vsprint.h"
#include "reports/vsprinter_control.h"

#include <QEventLoop>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

constexpr int kAbandonAfterMs = 30000;
constexpr int kReadyPollMs = 100;

QRadioButton* MakeOption(const QString& name, const QString& caption, QWidget* parent) {
    auto* option = Named<QRadioButton>(name, caption, parent);
    return option;
}

}  // namespace

frmVSPrintDialog::frmVSPrintDialog(frmVSPrint& preview)
    : QDialog(&preview), preview_(preview), control_(preview.vp->control()) {
    setObjectName(QStringLiteral("frmVSPrintDialog"));
    setWindowTitle(control_.Device());
    tmrAbandon = Named<QTimer>(QStringLiteral("tmrAbandon"), this);
    tmrAbandon->setSingleShot(true);
    txtCopies = Named<QLineEdit>(QStringLiteral("txtCopies"), QStringLiteral("1"), this);
    CharacterFilter::Install(txtCopies, QStringLiteral("123456789"));
    txtCopies->installEventFilter(this);
    cmdPrint = Named<QPushButton>(QStringLiteral("cmdPrint"), QStringLiteral("&Print"), this);
    cmdPrint->setDefault(true);
    cmdCancel = Named<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"), this);

    auto* copies = new QFormLayout;
    copies->addRow(QStringLiteral("Copies"), txtCopies);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildRangeFrame());
    layout->addWidget(BuildDuplexFrame());
    layout->addLayout(copies);
    layout->addLayout(buttons);

    optRange[0]->setChecked(true);
    if (control_.PageCount() == 1) {
        optRange[1]->setChecked(true);
        optRange[0]->setEnabled(false);
        optRange[2]->setEnabled(false);
    }
    if (preview_.ReverseOrder()) {
        // Typed page numbers would no longer match the pages.
        ReversePages(control_);
        optRange[2]->setEnabled(false);
    }
    optRange_Click();
    for (QRadioButton* option : optRange) {
        connect(option, &QRadioButton::toggled, this, &frmVSPrintDialog::optRange_Click);
    }
    connect(cmdPrint, &QPushButton::clicked, this, &frmVSPrintDialog::cmdPrint_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(tmrAbandon, &QTimer::timeout, this, &frmVSPrintDialog::tmrAbandon_Timer);
}

QGroupBox* frmVSPrintDialog::BuildRangeFrame() {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraRange"), QStringLiteral("Print Range"), this);
    optRange[0] = MakeOption(QStringLiteral("optRange(0)"), QStringLiteral("All pages"), frame);
    optRange[1] = MakeOption(QStringLiteral("optRange(1)"), QStringLiteral("Current page"), frame);
    optRange[2] = MakeOption(QStringLiteral("optRange(2)"), QStringLiteral("Pages"), frame);
    txtPageNumbers = Named<QLineEdit>(QStringLiteral("txtPageNumbers"), frame);
    CharacterFilter::Install(txtPageNumbers, QStringLiteral("0123456789-,"));
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(optRange[0]);
    layout->addWidget(optRange[1]);
    auto* pages = new QHBoxLayout;
    pages->addWidget(optRange[2]);
    pages->addWidget(txtPageNumbers, 1);
    layout->addLayout(pages);
    return frame;
}

QGroupBox* frmVSPrintDialog::BuildDuplexFrame() {
    fraDuplex =
        Named<QGroupBox>(QStringLiteral("fraDuplex"), QStringLiteral("Manual Duplex"), this);
    optDuplex[0] =
        MakeOption(QStringLiteral("optDuplex(0)"), QStringLiteral("All pages"), fraDuplex);
    optDuplex[1] =
        MakeOption(QStringLiteral("optDuplex(1)"), QStringLiteral("Odd pages only"), fraDuplex);
    optDuplex[2] =
        MakeOption(QStringLiteral("optDuplex(2)"), QStringLiteral("Even pages only"), fraDuplex);
    optDuplex[0]->setChecked(true);
    auto* layout = new QVBoxLayout(fraDuplex);
    for (QRadioButton* option : optDuplex) {
        layout->addWidget(option);
    }
    return fraDuplex;
}

void frmVSPrintDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    move(preview_.geometry().center() - rect().center());
}

bool frmVSPrintDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtCopies && event->type() == QEvent::FocusOut &&
        txtCopies->text().toInt() < 1) {
        txtCopies->setText(QStringLiteral("1"));
    }
    return QDialog::eventFilter(watched, event);
}

void frmVSPrintDialog::optRange_Click() {
    const bool allPages = optRange[0]->isChecked();
    fraDuplex->setEnabled(allPages);
    if (!allPages) {
        optDuplex[0]->setChecked(true);
    }
    txtPageNumbers->setEnabled(optRange[2]->isChecked());
}

void frmVSPrintDialog::PageSpan(QString* first, QString* last) const {
    const int count = control_.PageCount();
    if (optRange[1]->isChecked()) {
        *first = *last = QString::number(control_.PreviewPage);
    } else if (optRange[2]->isChecked()) {
        *first = txtPageNumbers->text().trimmed();
        last->clear();
    } else if (optDuplex[1]->isChecked() || optDuplex[2]->isChecked()) {
        const PageSelection pass =
            ManualDuplexPages(count, optDuplex[1]->isChecked(), preview_.ReverseOrder());
        *first = pass.first;
        *last = pass.last;
    } else {
        *first = QStringLiteral("1");
        *last = QString::number(count);
    }
}

bool frmVSPrintDialog::PagesAreInTheDocument(const QString& first, const QString& last) {
    const int count = control_.PageCount();
    if (!ParsePageList(first, last, count).isEmpty()) {
        return true;
    }
    // A typed list that names no page of the document: say so and let it be corrected.
    MsgBox(QStringLiteral("There are no pages to print in \"%1\". The document has %2 pages.")
               .arg(first)
               .arg(count),
           vbExclamation, windowTitle());
    txtPageNumbers->setFocus();
    return false;
}

bool frmVSPrintDialog::WaitUntilReady() {
    tmrAbandon->start(kAbandonAfterMs);
    if (control_.ReadyState() != kReadyStateIdle) {
        QEventLoop wait;
        QTimer poll;
        connect(&poll, &QTimer::timeout, &wait, [this, &wait] {
            if (control_.ReadyState() == kReadyStateIdle) {
                wait.quit();
            }
        });
        poll.start(kReadyPollMs);
        waiting_ = &wait;
        wait.exec();
        waiting_ = nullptr;
    }
    tmrAbandon->stop();
    return !abandoned_;
}

void frmVSPrintDialog::cmdPrint_Click() {
    if (control_.PageCount() < 1) {
        done(Accepted);
        return;
    }
    QString first;
    QString last;
    PageSpan(&first, &last);
    if (!PagesAreInTheDocument(first, last)) {
        return;
    }
    const int copies = std::max(1, txtCopies->text().toInt());
    for (int copy = 1; copy <= copies; ++copy) {
        if (!WaitUntilReady()) {
            return;
        }
        control_.PrintDoc(false, first, last);
    }
    done(Accepted);
}

void frmVSPrintDialog::tmrAbandon_Timer() {
    tmrAbandon->stop();
    abandoned_ = true;
    if (waiting_ != nullptr) {
        waiting_->quit();
    }
    MsgBox(QStringLiteral("The printing system is not ready.") + QStringLiteral("\n\n") +
               QStringLiteral("The print job has been abandoned."),
           vbCritical, QStringLiteral("Printing Process"));
    done(Rejected);
}

void frmVSPrintDialog::done(int result) {
    if (!unloaded_) {
        unloaded_ = true;
        if (preview_.ReverseOrder()) {
            ReversePages(control_);  // back to the order on the screen
        }
    }
    QDialog::done(result);
}

}  // namespace quillon
