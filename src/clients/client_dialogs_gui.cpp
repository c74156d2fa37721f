#include "clients/client_dialogs_gui.h"

#include "platform/services.h"
#include "platform/wait_pointer.h"
#include "shell/forms_gui.h"
#include "shell/twips.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <QVBoxLayout>
#include <optional>

namespace quillon {

namespace {

constexpr int kRefreshInterval = 100;   // ms
constexpr int kDialogTopOffset = 2000;  // twips below the main window's top
constexpr char16_t kApostrophe = u'\'';
constexpr char16_t kBackquote = u'`';
constexpr char16_t kLastTyped = u'z';

// The hourglass a dialog leaves up until the client list has been refreshed.
std::optional<WaitPointer>& heldHourglass() {
    static std::optional<WaitPointer> held;
    return held;
}

}  // namespace

void SetHourglass() {
    if (!heldHourglass()) {
        heldHourglass().emplace();
    }
}

void SetDefaultPointer() {
    heldHourglass().reset();
}

bool HourglassShown() {
    return heldHourglass().has_value();
}

void RefreshClientList() {
    if (QWidget* list = LoadedForm(QStringLiteral("frmClients"))) {
        if (auto* refresh = list->findChild<QTimer*>(QStringLiteral("tmrRefresh"))) {
            refresh->start(kRefreshInterval);
        }
    }
}

void PlaceOverMainWindow(QWidget* dialog) {
    QWidget* main = LoadedForm(QStringLiteral("frmQuillon"));
    if (!main) {
        return;
    }
    const QRect mainFrame = main->frameGeometry();
    const int left = mainFrame.x() + (mainFrame.width() - dialog->frameGeometry().width()) / 2;
    dialog->move(left, mainFrame.y() + TwipsToPixels(kDialogTopOffset));
}

void ReportLifecycleFailure(const QString& title, ClientTables& tables,
                            const std::exception& error) {
    // Rolled back and closed first: no other workstation waits on this one's
    // lock while the message is read.
    tables.RollbackIfOpen();
    tables.Close();
    SetDefaultPointer();
    MsgBox(LifecycleErrorText(error), vbExclamation | vbOKOnly, title);
}

void CloseClientTables(ClientTables& tables) {
    tables.Close();
    QCoreApplication::processEvents();
}

void ClientNameFilter::Install(QLineEdit* box, Part part) {
    new ClientNameFilter(box, part);
}

ClientNameFilter::ClientNameFilter(QLineEdit* box, Part part)
    : QObject(box), box_(box), part_(part) {
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, &ClientNameFilter::CleanEditedText);
}

bool ClientNameFilter::Refuses(QChar c, Part part) {
    return c.unicode() < u' ' || c.unicode() > kLastTyped ||
           (part == Part::Last && c == QLatin1Char(','));
}

QString ClientNameFilter::Cleaned(const QString& text, Part part) {
    QString cleaned;
    for (QChar c : text) {
        if (c == kApostrophe) {
            c = kBackquote;
        }
        if (!Refuses(c, part)) {
            cleaned.append(c);
        }
    }
    return cleaned;
}

void ClientNameFilter::Refused() {
    if (part_ != Part::First) {
        Beep();
    }
}

bool ClientNameFilter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != box_ || event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const QString text = key->text();
    const bool shortcut = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    // Backspace, tab, Enter and Escape carry control characters: they edit or
    // move on, and pass as the dialog expects.
    if (shortcut || text.size() != 1 || !text.at(0).isPrint()) {
        return QObject::eventFilter(watched, event);
    }
    if (text.at(0) == kApostrophe) {
        box_->insert(QString(QChar(kBackquote)));
        return true;
    }
    if (Refuses(text.at(0), part_)) {
        Refused();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void ClientNameFilter::CleanEditedText() {
    const QString text = box_->text();
    const QString cleaned = Cleaned(text, part_);
    if (cleaned == text) {
        return;
    }
    const int cursor = box_->cursorPosition() - int(text.size() - cleaned.size());
    box_->setText(cleaned);
    box_->setCursorPosition(qMax(0, cursor));
    if (cleaned.size() < text.size()) {
        Refused();
    }
}

ClientNameDialog::ClientNameDialog(const QString& caption, QWidget* parent) : QDialog(parent) {
    setWindowTitle(caption);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    lblFirst = new QLabel(QStringLiteral("First Name"), this);
    lblLast = new QLabel(QStringLiteral("Last Name"), this);
    txtFirst = new QLineEdit(this);
    txtFirst->setObjectName(QStringLiteral("txtFirst"));
    txtLast = new QLineEdit(this);
    txtLast->setObjectName(QStringLiteral("txtLast"));
    for (QLineEdit* box : {txtFirst, txtLast}) {
        box->setMaxLength(kNameLength);
        box->setMinimumWidth(box->fontMetrics().averageCharWidth() * kNameLength);
        connect(box, &QLineEdit::textChanged, this, &ClientNameDialog::UpdateOK);
    }
    lblFirst->setBuddy(txtFirst);
    lblLast->setBuddy(txtLast);
    ClientNameFilter::Install(txtFirst, ClientNameFilter::Part::First);
    ClientNameFilter::Install(txtLast, ClientNameFilter::Part::Last);
    grid->addWidget(lblFirst, 0, 0);
    grid->addWidget(txtFirst, 0, 1);
    grid->addWidget(lblLast, 1, 0);
    grid->addWidget(txtLast, 1, 1);

    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addStretch();
    cm3OK = new QPushButton(QStringLiteral("&OK"), this);
    cm3OK->setObjectName(QStringLiteral("cm3OK"));
    cm3OK->setDefault(true);
    cm3OK->setEnabled(false);
    cm3Cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cm3Cancel->setObjectName(QStringLiteral("cm3Cancel"));
    buttons->addWidget(cm3OK);
    buttons->addWidget(cm3Cancel);
    connect(cm3OK, &QPushButton::clicked, this, [this] { cm3OK_Click(); });
    connect(cm3Cancel, &QPushButton::clicked, this, &QDialog::close);
}

ClientName ClientNameDialog::EnteredName() const {
    return {txtFirst->text(), txtLast->text()};
}

bool ClientNameDialog::NamesAcceptable() const {
    return !txtFirst->text().isEmpty() && !txtLast->text().isEmpty();
}

void ClientNameDialog::UpdateOK() {
    cm3OK->setEnabled(NamesAcceptable());
}

void ClientNameDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_) {
        placed_ = true;
        PlaceOverMainWindow(this);
    }
}

}  // namespace quillon
