// What the main window's commands do, the database check's enabling of them,
// and the switch between database slots.
#include "data/data_access.h"
#include "platform/dao.h"
#include "platform/files.h"
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
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>

#include <exception>

namespace quillon {

namespace {

// The section screens, numbered as ActiveSection counts them.
const QStringList kSectionScreens = {
    QStringLiteral("frmPersonal"),      QStringLiteral("frmEmployment"),
    QStringLiteral("frmBusiness"),      QStringLiteral("frmAssets"),
    QStringLiteral("frmContributions"), QStringLiteral("frmAdministration"),
    QStringLiteral("frmUser"),          QStringLiteral("frmDiary"),
};

const QStringList kCheckedCommands = {
    QStringLiteral("cm3Administration"), QStringLiteral("cm3Assets"),
    QStringLiteral("cm3Business"),       QStringLiteral("cm3ClientLabels"),
    QStringLiteral("cm3ClientLetter"),   QStringLiteral("cm3ClientMerge"),
    QStringLiteral("cm3Clients"),        QStringLiteral("cm3Contributions"),
    QStringLiteral("cm3Diary"),          QStringLiteral("cm3Dividends"),
    QStringLiteral("cm3Employment"),     QStringLiteral("cm3OfficeLabels"),
    QStringLiteral("cm3OfficeLetter"),   QStringLiteral("cm3OfficeMerge"),
    QStringLiteral("cm3Offices"),        QStringLiteral("cm3Personal"),
    QStringLiteral("cm3User"),           QStringLiteral("mnuAdministration"),
    QStringLiteral("mnuAssets"),         QStringLiteral("mnuBusiness"),
    QStringLiteral("mnuClients"),        QStringLiteral("mnuCompact"),
    QStringLiteral("mnuRepair"),         QStringLiteral("mnuBackup"),
    QStringLiteral("mnuTransfer"),       QStringLiteral("mnuContributions"),
    QStringLiteral("mnuDiary"),          QStringLiteral("mnuDiv1"),
    QStringLiteral("mnuDiv2"),           QStringLiteral("mnuDiv3"),
    QStringLiteral("mnuDiv4"),           QStringLiteral("mnuDividends"),
    QStringLiteral("mnuEmployment"),     QStringLiteral("mnuLabelsClients"),
    QStringLiteral("mnuLabelsOffices"),  QStringLiteral("mnuLetterClient"),
    QStringLiteral("mnuLetterOffice"),   QStringLiteral("mnuMergeClients"),
    QStringLiteral("mnuMergeOffices"),   QStringLiteral("mnuOffices"),
    QStringLiteral("mnuPersonal"),       QStringLiteral("mnuUser"),
};

const QStringList kClientCommands = {
    QStringLiteral("cm3Administration"), QStringLiteral("cm3Assets"),
    QStringLiteral("cm3Business"),       QStringLiteral("cm3ClientLabels"),
    QStringLiteral("cm3ClientLetter"),   QStringLiteral("cm3ClientMerge"),
    QStringLiteral("cm3Clients"),        QStringLiteral("cm3Contributions"),
    QStringLiteral("cm3Diary"),          QStringLiteral("cm3Employment"),
    QStringLiteral("cm3Personal"),       QStringLiteral("cm3User"),
    QStringLiteral("mnuAdministration"), QStringLiteral("mnuAssets"),
    QStringLiteral("mnuBusiness"),       QStringLiteral("mnuClients"),
    QStringLiteral("mnuCompact"),        QStringLiteral("mnuRepair"),
    QStringLiteral("mnuBackup"),         QStringLiteral("mnuContributions"),
    QStringLiteral("mnuDiary"),          QStringLiteral("mnuEmployment"),
    QStringLiteral("mnuLabelsClients"),  QStringLiteral("mnuLetterClient"),
    QStringLiteral("mnuMergeClients"),   QStringLiteral("mnuPersonal"),
    QStringLiteral("mnuUser"),
};

const QStringList kOfficeCommands = {
    QStringLiteral("cm3OfficeLabels"),  QStringLiteral("cm3OfficeLetter"),
    QStringLiteral("cm3OfficeMerge"),   QStringLiteral("cm3Offices"),
    QStringLiteral("mnuLabelsOffices"), QStringLiteral("mnuLetterOffice"),
    QStringLiteral("mnuMergeOffices"),  QStringLiteral("mnuOffices"),
};

constexpr int kFirstDividendYear = 2012;
constexpr int kClientListWidth = 6765;        // twips
constexpr int kClientListHeightMargin = 900;  // twips
constexpr int kRefreshInterval = 100;         // ms

// The commands that open a form, with what they do to it.
struct Target {
    const char* command;
    const char* form;
};
const Target kSectionTargets[] = {
    {"cm3Personal", "frmPersonal"},
    {"mnuPersonal", "frmPersonal"},
    {"cm3Assets", "frmAssets"},
    {"mnuAssets", "frmAssets"},
    {"cm3Contributions", "frmContributions"},
    {"mnuContributions", "frmContributions"},
    {"cm3Administration", "frmAdministration"},
    {"mnuAdministration", "frmAdministration"},
    {"cm3User", "frmUser"},
    {"mnuUser", "frmUser"},
    {"cm3Diary", "frmDiary"},
    {"mnuDiary", "frmDiary"},
};
const Target kShowTargets[] = {
    {"cm3Offices", "frmOffices"},
    {"mnuOffices", "frmOffices"},
    {"cm3Dividends", "frmDividends"},
    {"cm3ClientLabels", "frmClientLabels"},
    {"mnuLabelsClients", "frmClientLabels"},
    {"cm3OfficeLabels", "frmOfficeLabels"},
    {"mnuLabelsOffices", "frmOfficeLabels"},
    {"cm3ClientLetter", "frmClientLetter"},
    {"mnuLetterClient", "frmClientLetter"},
    {"cm3OfficeLetter", "frmOfficeLetter"},
    {"mnuLetterOffice", "frmOfficeLetter"},
    {"cm3ClientMerge", "frmClientMerge"},
    {"mnuMergeClients", "frmClientMerge"},
    {"cm3OfficeMerge", "frmOfficeMerge"},
    {"mnuMergeOffices", "frmOfficeMerge"},
    {"cm3ClientRecord", "frmClientRecords"},
    {"mnuPrintClientRecords", "frmClientRecords"},
};
const Target kModalTargets[] = {
    {"cm3Form64_8", "frmForm64_8"},     {"mnuForm64_8", "frmForm64_8"},
    {"mnuManager", "frmFolderManager"}, {"mnuImport", "frmImportWarning"},
    {"mnuCompact", "frmCompact"},       {"mnuRepair", "frmRepair"},
    {"mnuBackup", "frmBackup"},         {"mnuSettingsReports", "frmVSPrintSettings"},
    {"mnuHelpAbout", "frmAbout"},
};

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

void frmQuillon::onCommand(const char* name, const std::function<void()>& handler) {
    QAction* command = Command(QString::fromLatin1(name));
    connect(command, &QAction::triggered, this, [handler] { handler(); });
}

void frmQuillon::onCommand(const char* name, void (frmQuillon::*handler)()) {
    connect(Command(QString::fromLatin1(name)), &QAction::triggered, this, handler);
}

void frmQuillon::connectCommands() {
    for (const Target& target : kSectionTargets) {
        onCommand(target.command,
                  [this, target] { openSection(QString::fromLatin1(target.form)); });
    }
    for (const char* name : {"cm3Employment", "mnuEmployment"}) {
        onCommand(name, [this] {
            EmploymentPage = 1;
            openSection(QStringLiteral("frmEmployment"));
        });
    }
    for (const char* name : {"cm3Business", "mnuBusiness"}) {
        onCommand(name, [this] {
            BusinessPage = 1;
            openSection(QStringLiteral("frmBusiness"));
        });
    }
    for (const Target& target : kShowTargets) {
        onCommand(target.command, [this, target] { showTarget(QString::fromLatin1(target.form)); });
    }
    for (const Target& target : kModalTargets) {
        onCommand(target.command, [target] { ShowModal(QString::fromLatin1(target.form)); });
    }
    onCommand("cm3Clients", &frmQuillon::cm3Clients_Click);
    onCommand("mnuClients", &frmQuillon::mnuClients_Click);
    for (int i = 0; i < 4; ++i) {
        onCommand(QStringLiteral("mnuDiv%1").arg(i + 1).toLatin1().constData(),
                  [this, i] { mnuDiv_Click(kFirstDividendYear + i); });
    }
    onCommand("mnuToolbar", [this] { toggleView(ViewToolbar, "mnuToolbar"); });
    onCommand("mnuStatusBar", [this] { toggleView(ViewStatusBar, "mnuStatusBar"); });
    onCommand("mnuTooltips", [this] { toggleView(ViewTooltips, "mnuTooltips"); });
    onCommand("mnuExit", [this] { close(); });
    onCommand("mnuHelpContents", [] { ShowUserGuide(UserGuidePage::Contents); });
    onCommand("mnuHelpSearch", [] { ShowUserGuide(UserGuidePage::Search); });
    for (int n = 1; n < static_cast<int>(mnuAltFile.size()); ++n) {
        connect(mnuAltFile[n], &QAction::triggered, this, [this, n] { mnuAltFile_Click(n); });
    }
    connect(mnuView, &QMenu::aboutToShow, this, &frmQuillon::mnuView_Opening);
    connect(mnuFile, &QMenu::aboutToShow, this, [] { HideTip(); });
}

void frmQuillon::setCommandsEnabled(const QStringList& names, bool enabled) {
    for (const QString& name : names) {
        Command(name)->setEnabled(enabled);
    }
}

void frmQuillon::CheckDatabases() {
    setCommandsEnabled(kCheckedCommands, false);
    Command(QStringLiteral("mnuTransfer"))->setVisible(false);
    FindDatabases();
    setCommandsEnabled(kClientCommands, ClientDatabaseFound);
    setCommandsEnabled(kOfficeCommands, OfficeDatabaseFound);
    const bool yearFound[] = {Dividend2012Found, Dividend2013Found, Dividend2014Found,
                              Dividend2015Found};
    for (int i = 0; i < 4; ++i) {
        Command(QStringLiteral("mnuDiv%1").arg(i + 1))->setEnabled(yearFound[i]);
    }
    setCommandsEnabled({QStringLiteral("cm3Dividends"), QStringLiteral("mnuDividends")},
                       DividendDatabaseFound);
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
    dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
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
    for (const QString& section : kSectionScreens) {
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
    UnloadForm(QStringLiteral("frmDividends"));
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
    if (ActiveSection < 1 || ActiveSection > kSectionScreens.size()) {
        return;
    }
    QWidget* open = LoadedForm(kSectionScreens.at(ActiveSection - 1));
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
