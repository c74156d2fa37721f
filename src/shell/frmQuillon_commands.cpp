// What the main window's commands do, the database check's enabling of them,
// and the switch between database slots.
#include "data/client_rows.h"
#include "data/data_access.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "sections/section_screen_gui.h"
#include "shell/commands.h"
#include "shell/configuration.h"
#include "shell/database_check.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/frmTip.h"
#include "shell/help_gui.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QAction>
#include <QCoreApplication>
#include <QHash>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>

#include <exception>

namespace quillon {

namespace {

constexpr int kFirstDividendYear = 2012;
constexpr int kClientListWidth = 6765;        // twips
constexpr int kClientListHeightMargin = 900;  // twips
constexpr int kRefreshInterval = 100;         // ms

bool Found(Needs needs) {
    switch (needs) {
        case Needs::Nothing:
            return true;
        case Needs::ClientDatabase:
            return ClientDatabaseFound;
        case Needs::OfficeDatabase:
            return OfficeDatabaseFound;
        case Needs::AnyDividendDatabase:
            return DividendDatabaseFound;
        case Needs::Dividends2012:
            return Dividend2012Found;
        case Needs::Dividends2013:
            return Dividend2013Found;
        case Needs::Dividends2014:
            return Dividend2014Found;
        case Needs::Dividends2015:
            return Dividend2015Found;
        case Needs::Never:
            break;
    }
    return false;
}

void bringToFront(QWidget* form) {
    QWidget* window = ChildWindow(form);
    window->raise();
    if (auto* frame = qobject_cast<QMdiSubWindow*>(window)) {
        frame->mdiArea()->setActiveSubWindow(frame);
    }
    form->activateWindow();
    form->setFocus();
}

}  // namespace

void frmQuillon::connectCommands() {
    const QHash<QString, std::function<void()>> own = {
        {QStringLiteral("cm3Clients"), [this] { cm3Clients_Click(); }},
        {QStringLiteral("mnuClients"), [this] { mnuClients_Click(); }},
        {QStringLiteral("mnuDiv1"), [this] { mnuDiv_Click(kFirstDividendYear); }},
        {QStringLiteral("mnuDiv2"), [this] { mnuDiv_Click(kFirstDividendYear + 1); }},
        {QStringLiteral("mnuDiv3"), [this] { mnuDiv_Click(kFirstDividendYear + 2); }},
        {QStringLiteral("mnuDiv4"), [this] { mnuDiv_Click(kFirstDividendYear + 3); }},
        {QStringLiteral("mnuToolbar"), [this] { toggleView(ViewToolbar, "mnuToolbar"); }},
        {QStringLiteral("mnuStatusBar"), [this] { toggleView(ViewStatusBar, "mnuStatusBar"); }},
        {QStringLiteral("mnuTooltips"), [this] { toggleView(ViewTooltips, "mnuTooltips"); }},
        {QStringLiteral("mnuExit"), [this] { close(); }},
        {QStringLiteral("mnuHelpContents"), [] { ShowUserGuide(UserGuidePage::Contents); }},
        {QStringLiteral("mnuHelpSearch"), [] { ShowUserGuide(UserGuidePage::Search); }},
    };
    for (const CommandRow& row : Commands()) {
        const QString name = QString::fromLatin1(row.command);
        const QString form = QString::fromLatin1(row.form);
        std::function<void()> action;
        switch (row.opening) {
            case Opening::Section:
                action = [this, form] { openSection(form); };
                break;
            case Opening::Show:
                action = [this, form] { showTarget(form); };
                break;
            case Opening::Modal:
                action = [form] { ShowModal(form); };
                break;
            case Opening::Own:
                action = own.value(name);
                break;
            case Opening::Nothing:
                continue;
        }
        connect(Command(name), &QAction::triggered, this, [action] { action(); });
    }
    for (int n = 1; n < static_cast<int>(mnuAltFile.size()); ++n) {
        connect(mnuAltFile[n], &QAction::triggered, this, [this, n] { mnuAltFile_Click(n); });
    }
    connect(mnuView, &QMenu::aboutToShow, this, &frmQuillon::mnuView_Opening);
    connect(mnuFile, &QMenu::aboutToShow, this, [] { HideTip(); });
}

void frmQuillon::CheckDatabases() {
    for (const CommandRow& row : Commands()) {
        if (row.needs != Needs::Nothing) {
            Command(QString::fromLatin1(row.command))->setEnabled(false);
        }
    }
    Command(QStringLiteral("mnuTransfer"))->setVisible(false);
    FindDatabases();
    for (const CommandRow& row : Commands()) {
        if (row.needs != Needs::Nothing) {
            Command(QString::fromLatin1(row.command))->setEnabled(Found(row.needs));
        }
    }
    pnlVersion->setText(ProgramVersion());
}

void frmQuillon::BuildFileMenu() {
    // The tick goes by the count of filled slots, not by the slot number, so a
    // gap among the slots moves it onto a later item.
    int filled = 1;
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        QAction* item = mnuAltFile[n];
        if (DatabaseTitle[n].isEmpty()) {
            altFileTicked_[n] = false;
            item->setVisible(false);
            continue;
        }
        item->setText(DatabaseTitle[n]);
        item->setVisible(true);
        altFileTicked_[n] = SelectedFile == filled;
        item->setChecked(altFileTicked_[n]);
        ++filled;
    }
}

void frmQuillon::openDatabaseOfSlot() {
    dao::Database db = OpenClientDatabase();
    dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"));
    clients.MoveFirst();
    CurrentFirst = NullToEmpty(clients.Fields(QStringLiteral("First Names")));
    CurrentLast = NullToEmpty(clients.Fields(QStringLiteral("Last Name")));
    clients.Close();
    db.Close();
}

void frmQuillon::mnuAltFile_Click(int index) {
    if (altFileTicked_[index]) {
        mnuAltFile[index]->setChecked(true);
        return;
    }
    if (!UnloadAllForms()) {
        BuildFileMenu();
        return;
    }
    SelectedFile = static_cast<qint16>(index);
    try {
        CheckDatabases();
        BuildFileMenu();
        if (ClientDatabaseFound && VerifyClientDatabase()) {
            setWindowTitle(DatabaseCaption());
            ReadUserTitle();
        }
        ShowUserTitle();
        if (ClientDatabaseFound) {
            openDatabaseOfSlot();
        }
        WriteConfiguration();
    } catch (const std::exception& error) {
        ReportError(QString::fromLatin1(kFormName), QStringLiteral("mnuAltFile_Click"), error);
    }
}

void frmQuillon::openSection(const QString& target) {
    PlaceSection();
    openAtFirstPage(target);
    for (const QString& section : SectionFormNames()) {
        // Leaving a section saves it; one that can't be left keeps the focus.
        if (section != target && !UnloadForm(section)) {
            return;
        }
    }
    QCoreApplication::processEvents();  // DoEvents: the unloads finish first
    if (QWidget* form = LoadForm(target)) {
        ShowForm(form);
        bringToFront(form);
    }
}

// Employment and business open at their first page; one already open turns to
// it, which saves the page it stood on.
void frmQuillon::openAtFirstPage(const QString& target) {
    const SectionRow* section = SectionOfForm(target);
    if (!section || !section->opensAtFirstPage) {
        return;
    }
    if (auto* open = qobject_cast<SectionScreen*>(LoadedForm(target))) {
        open->ChangePage(1 - open->Page());
    } else {
        *section->page = 1;
    }
}

void frmQuillon::showTarget(const QString& target) {
    if (QWidget* form = LoadForm(target)) {
        ShowForm(form);
        bringToFront(form);
    }
}

void frmQuillon::cm3Clients_Click() {
    QWidget* clients = LoadedForm(QStringLiteral("frmClients"));
    if (clients && ChildWindow(clients)->isVisible()) {
        PlaceClientList();
        if (auto* refresh = clients->findChild<QTimer*>(QStringLiteral("tmrRefresh"))) {
            refresh->start(kRefreshInterval);
        }
    } else {
        clients = LoadForm(QStringLiteral("frmClients"));
        if (!clients) {
            return;
        }
        ShowForm(clients);
    }
    bringToFront(clients);
}

void frmQuillon::mnuClients_Click() {
    if (!LoadForm(QStringLiteral("frmClients"))) {
        return;
    }
    PlaceClientList();
    showTarget(QStringLiteral("frmClients"));
}

void frmQuillon::mnuDiv_Click(int year) {
    // A screen that keeps a date outside its year stays on that year's file.
    if (!UnloadForm(QStringLiteral("frmDividends"))) {
        return;
    }
    QCoreApplication::processEvents();
    TaxYear = static_cast<qint16>(year);
    showTarget(QStringLiteral("frmDividends"));
}

void frmQuillon::toggleView(bool& flag, const char* itemName) {
    ToggleSetting(flag, Command(QString::fromLatin1(itemName)));
    pnlToolBar->setVisible(ViewToolbar);
    sbStatusBar->setVisible(ViewStatusBar);
}

void frmQuillon::mnuView_Opening() {
    Command(QStringLiteral("mnuToolbar"))->setChecked(ViewToolbar);
    Command(QStringLiteral("mnuStatusBar"))->setChecked(ViewStatusBar);
    Command(QStringLiteral("mnuTooltips"))->setChecked(ViewTooltips);
}

void frmQuillon::PlaceSection() {
    SectionTop = 0;
    SectionLeft = 0;
    const SectionRow* active = Section(ActiveSection);
    QWidget* open = active ? LoadedForm(QString::fromLatin1(active->form)) : nullptr;
    if (!open) {
        return;
    }
    QWidget* window = ChildWindow(open);
    if (!(window->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized))) {
        SectionTop = static_cast<qint16>(PixelsToTwips(window->y()));
        SectionLeft = static_cast<qint16>(PixelsToTwips(window->x()));
    }
}

void frmQuillon::PlaceClientList() {
    QWidget* clients = LoadForm(QStringLiteral("frmClients"));
    if (!clients) {
        return;
    }
    QWidget* window = ChildWindow(clients);
    window->setWindowState(Qt::WindowNoState);
    int height = PixelsToTwips(this->height()) - kClientListHeightMargin;
    if (pnlToolBar->isVisible()) {
        height -= PixelsToTwips(pnlToolBar->height());
    }
    if (sbStatusBar->isVisible()) {
        height -= PixelsToTwips(sbStatusBar->height());
    }
    window->setGeometry(0, 0, TwipsToPixels(kClientListWidth), TwipsToPixels(height));
}

}  // namespace quillon
