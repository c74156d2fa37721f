#include "clients/frmClients.h"

#include "clients/client_dialogs_gui.h"
#include "clients/client_list.h"
#include "data/data_access.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/vsprint_gui.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kModule = QStringLiteral("frmClients");
constexpr int kLetterRows = 2;
constexpr int kLetterButtonWidth = 30;

// The section screens, numbered as ActiveSection counts them.
const QStringList kSectionScreens = {
    QStringLiteral("frmPersonal"),      QStringLiteral("frmEmployment"),
    QStringLiteral("frmBusiness"),      QStringLiteral("frmAssets"),
    QStringLiteral("frmContributions"), QStringLiteral("frmAdministration"),
    QStringLiteral("frmUser"),          QStringLiteral("frmDiary"),
};

QPushButton* commandButton(QWidget* parent, const char* name, const QString& caption) {
    return Named<QPushButton>(QString::fromLatin1(name), caption, parent);
}

QMdiSubWindow* frameOf(QWidget* form) {
    return qobject_cast<QMdiSubWindow*>(form->parentWidget());
}

void bringToFront(QWidget* form) {
    QWidget* window = ChildWindow(form);
    window->raise();
    if (QMdiSubWindow* frame = frameOf(form); frame && frame->mdiArea()) {
        frame->mdiArea()->setActiveSubWindow(frame);
    }
    form->activateWindow();
}

}  // namespace

frmClients::frmClients(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("Clients"));
    buildLayout();
    connectControls();
    Form_Load();
}

void frmClients::buildLayout() {
    auto* layout = new QVBoxLayout(this);
    auto* letters = new QGridLayout;
    letters->setSpacing(2);
    layout->addLayout(letters);
    const int perRow = kLetters / kLetterRows;
    for (int i = 0; i < kLetters; ++i) {
        auto* button = Named<QPushButton>(QStringLiteral("cm3Seek(%1)").arg(i),
                                          QString(QChar(u'A' + i)), this);
        button->setFixedWidth(kLetterButtonWidth);
        letters->addWidget(button, i / perRow, i % perRow);
        cm3Seek[i] = button;
    }

    pnlStatus = Named<QFrame>(QStringLiteral("pnlStatus"), this);
    pnlStatus->setFrameShape(QFrame::StyledPanel);
    auto* statusLayout = new QVBoxLayout(pnlStatus);
    statusLayout->setContentsMargins(0, 0, 0, 0);
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), pnlStatus);
    lstClients->setSelectionMode(QAbstractItemView::SingleSelection);
    lstClients->setUniformItemSizes(true);
    statusLayout->addWidget(lstClients);
    layout->addWidget(pnlStatus, 1);

    auto* commands = new QHBoxLayout;
    layout->addLayout(commands);
    cm3Select = commandButton(this, "cm3Select", QStringLiteral("&Select"));
    cm3New = commandButton(this, "cm3New", QStringLiteral("&New..."));
    cm3Rename = commandButton(this, "cm3Rename", QStringLiteral("&Rename..."));
    cm3Delete = commandButton(this, "cm3Delete", QStringLiteral("&Delete..."));
    cm3Print = commandButton(this, "cm3Print", QStringLiteral("&Print..."));
    cm3Close = commandButton(this, "cm3Close", QStringLiteral("&Close"));
    for (QPushButton* button : {cm3Select, cm3New, cm3Rename, cm3Delete, cm3Print, cm3Close}) {
        commands->addWidget(button);
    }

    pnlCount = Named<QLabel>(QStringLiteral("pnlCount"), this);
    pnlCount->setFrameShape(QFrame::Panel);
    pnlCount->setFrameShadow(QFrame::Sunken);
    layout->addWidget(pnlCount);

    tmrRefresh = Named<QTimer>(QStringLiteral("tmrRefresh"), this);
    tmrUpdate = Named<QTimer>(QStringLiteral("tmrUpdate"), this);
}

void frmClients::connectControls() {
    for (int i = 0; i < kLetters; ++i) {
        connect(cm3Seek[i], &QPushButton::clicked, this, [this, i] { cm3Seek_Click(i); });
    }
    connect(cm3Select, &QPushButton::clicked, this, &frmClients::cm3Select_Click);
    connect(cm3New, &QPushButton::clicked, this, &frmClients::cm3New_Click);
    connect(cm3Rename, &QPushButton::clicked, this, &frmClients::cm3Rename_Click);
    connect(cm3Delete, &QPushButton::clicked, this, &frmClients::cm3Delete_Click);
    connect(cm3Print, &QPushButton::clicked, this, &frmClients::cm3Print_Click);
    connect(cm3Close, &QPushButton::clicked, this, &frmClients::cm3Close_Click);
    connect(tmrRefresh, &QTimer::timeout, this, &frmClients::tmrRefresh_Timer);
    connect(tmrUpdate, &QTimer::timeout, this, &frmClients::tmrUpdate_Timer);
    // A selection made by the user or by the program counts as a click.
    connect(lstClients, &QListWidget::itemSelectionChanged, this, [this] {
        if (!lstClients->selectedItems().isEmpty()) {
            lstClients_Click();
        }
    });
    connect(lstClients, &QListWidget::itemDoubleClicked, this, &frmClients::lstClients_DblClick);
}

void frmClients::Form_Load() {
    SetHourglass();
    cm3Select->setEnabled(false);
    cm3Rename->setEnabled(false);
    cm3Delete->setEnabled(false);
    try {
        fillList(ReadClientListTexts(PathOnDisk(ClientDatabasePath())));
        showCount();
        SetDefaultPointer();
    } catch (const std::exception& error) {
        clearList();
        ReportError(kModule, QStringLiteral("Form_Load"), error);
    }
}

// A list that could not be read shows no client rather than ones that may be gone.
void frmClients::clearList() {
    lstClients->clear();
    showCount();
}

void frmClients::fillList(const QStringList& texts) {
    QStringList sorted = texts;
    SortListTexts(sorted);
    lstClients->clear();
    lstClients->addItems(sorted);
}

void frmClients::showCount() {
    pnlCount->setText(QString::number(lstClients->count()) + QStringLiteral(" clients"));
}

void frmClients::setListIndex(int index) {
    lstClients->setCurrentRow(index);
}

QString frmClients::selectedText() const {
    const QList<QListWidgetItem*> selected = lstClients->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void frmClients::Form_Activate() {
    try {
        lstClients->setCurrentRow(-1);
        lstClients->clearSelection();
        SetDefaultPointer();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("Form_Activate"), error);
    }
}

void frmClients::tmrRefresh_Timer() {
    tmrRefresh->stop();
    SetHourglass();
    ShowForm(this);
    try {
        fillList(ReadClientListTexts(PathOnDisk(ClientDatabasePath())));
        const QString current = ListTextOf({CurrentFirst, CurrentLast});
        for (int i = 0; i < lstClients->count(); ++i) {
            if (lstClients->item(i)->text() == current) {
                setListIndex(i);
                break;
            }
        }
        showCount();
        SetDefaultPointer();
    } catch (const std::exception& error) {
        clearList();
        ReportError(kModule, QStringLiteral("tmrRefresh_Timer"), error);
    }
}

void frmClients::tmrUpdate_Timer() {
    tmrUpdate->stop();
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
        dao::Recordset clients =
            db.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable, dao::dbReadOnly);
        clients.MoveFirst();
        CurrentFirst = NullToEmpty(clients.Fields(QStringLiteral("First Names")));
        CurrentLast = NullToEmpty(clients.Fields(QStringLiteral("Last Name")));
        clients.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("tmrUpdate_Timer"), error);
    }
}

void frmClients::lstClients_Click() {
    cm3Select->setEnabled(true);
    cm3Rename->setEnabled(true);
    cm3Delete->setEnabled(true);
    SelectClient();
}

void frmClients::SelectClient() {
    SetHourglass();
    // Nothing selected, or too short a text to be a name and its separator.
    const QString text = selectedText();
    if (text.size() <= 3) {
        SetDefaultPointer();
        return;
    }
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
        dao::Recordset clients =
            db.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable, dao::dbReadOnly);
        clients.SetIndex(QStringLiteral("Name"));
        // When the client has gone meanwhile, the table's first row is taken.
        SeekClientByListText(text, clients);
        CurrentFirst = NullToEmpty(clients.Fields(QStringLiteral("First Names")));
        CurrentLast = NullToEmpty(clients.Fields(QStringLiteral("Last Name")));
        clients.Close();
        db.Close();
        EmploymentPage = 1;
        BusinessPage = 1;
        SetDefaultPointer();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("SelectClient"), error);
    }
}

void frmClients::ShowActiveSection() {
    if (ActiveSection < 1 || ActiveSection > kSectionScreens.size()) {
        return;
    }
    if (QWidget* section = LoadForm(kSectionScreens.at(ActiveSection - 1))) {
        ShowForm(section);
        bringToFront(section);
    }
}

void frmClients::FindInitial(QChar letter) {
    int found = -1;
    if (lstClients->count() > 0) {
        // From the bottom, the found entry comes to the top of the list.
        setListIndex(lstClients->count() - 1);
        lstClients->scrollToBottom();
        for (int i = 0; i < lstClients->count(); ++i) {
            const QString text = lstClients->item(i)->text();
            if (!text.isEmpty() && text.at(0).toUpper() == letter) {
                found = i;
                break;
            }
        }
    }
    if (found < 0) {
        MsgBox(QStringLiteral("No client name beginning with ") + letter, vbExclamation);
        return;
    }
    setListIndex(found);
    lstClients->scrollToItem(lstClients->item(found), QAbstractItemView::PositionAtTop);
}

void frmClients::cm3Seek_Click(int index) {
    FindInitial(QChar(u'A' + index));
}

void frmClients::lstClients_DblClick() {
    SelectClient();
    ShowActiveSection();
}

void frmClients::cm3Select_Click() {
    SelectClient();
    ShowActiveSection();
}

void frmClients::cm3New_Click() {
    ShowModal(QStringLiteral("frmNewClient"));
}

void frmClients::cm3Rename_Click() {
    ShowModal(QStringLiteral("frmRenameClient"));
}

void frmClients::cm3Delete_Click() {
    ShowModal(QStringLiteral("frmDeleteClient"));
}

void frmClients::cm3Print_Click() {
    const int answer =
        MsgBox(QStringLiteral("Are you sure you want to print a list of all client names?"),
               vbYesNo | vbQuestion | vbDefaultButton2, windowTitle());
    if (answer == vbYes) {
        PrintListReport(*lstClients, DatabaseTitle.at(SelectedFile), 1);
    }
}

void frmClients::cm3Close_Click() {
    UnloadForm(QString::fromLatin1(kFormName));
}

void frmClients::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // A child window of the main window is activated through its frame.
    if (event->type() == QEvent::ActivationChange && isWindow() && isActiveWindow()) {
        Form_Activate();
    }
}

void frmClients::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QMdiSubWindow* frame = frameOf(this);
    if (frame && !activationHooked_) {
        activationHooked_ = true;
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &frmClients::Form_Activate);
        // Placed once it is the registry's form, so that placing finds this one.
        if (auto* main = LoadedForm<frmQuillon>()) {
            main->PlaceClientList();
        }
    }
}

void frmClients::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void frmClients::Form_Resize() {
    // The list fills its panel through the layout; only the width needs keeping.
    QWidget* window = frameOf(this);
    if (!window) {
        if (!isWindow()) {
            return;
        }
        window = this;
    }
    const int width = TwipsToPixels(kWidthTwips);
    if (!(window->windowState() & Qt::WindowMinimized) && window->width() != width) {
        window->resize(width, window->height());
    }
}

}  // namespace quillon
