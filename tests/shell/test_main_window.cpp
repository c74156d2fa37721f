// The main window: its load on the databases a folder holds (the enabling of its
// commands, the placing of the delivered databases, the check of the client
// database), its place, toolbar and view items, and its commands (forms reached
// through the registry as child windows, the switch of database slot, the
// Folder Manager, the About box and the user guide). It is also rendered into
// the documentation's screenshot.
#include "platform/dao.h"
#include "shell/commands.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmAbout.h"
#include "shell/frmFolderManager.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <optional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QStringList kClientCommands = {
    "cm3Administration", "cm3Assets",      "cm3Business",      "cm3ClientLabels",
    "cm3ClientLetter",   "cm3ClientMerge", "cm3Clients",       "cm3Contributions",
    "cm3Diary",          "cm3Employment",  "cm3Personal",      "cm3User",
    "mnuAdministration", "mnuAssets",      "mnuBusiness",      "mnuClients",
    "mnuCompact",        "mnuRepair",      "mnuBackup",        "mnuContributions",
    "mnuDiary",          "mnuEmployment",  "mnuLabelsClients", "mnuLetterClient",
    "mnuMergeClients",   "mnuPersonal",    "mnuUser"};
const QStringList kOfficeCommands = {"cm3OfficeLabels", "cm3OfficeLetter",  "cm3OfficeMerge",
                                     "cm3Offices",      "mnuLabelsOffices", "mnuLetterOffice",
                                     "mnuMergeOffices", "mnuOffices"};
const QStringList kDividendCommands = {"cm3Dividends", "mnuDividends", "mnuDiv1",
                                       "mnuDiv2",      "mnuDiv3",      "mnuDiv4"};
const QStringList kAlwaysEnabled = {
    "cm3ClientRecord",    "cm3Form64_8",     "mnuPrintClientRecords",
    "mnuForm64_8",        "mnuImport",       "mnuManager",
    "mnuSettingsReports", "mnuHelpContents", "mnuHelpSearch",
    "mnuHelpAbout",       "mnuExit"};

// "all", "none", or the names of the commands enabled.
QString Enabled(const frmQuillon* main, const QStringList& names) {
    QStringList on;
    for (const QString& name : names) {
        if (main->Command(name)->isEnabled()) {
            on << name;
        }
    }
    return on.size() == names.size() ? "all" : on.isEmpty() ? "none" : on.join(' ');
}

// The file menu's database items shown, the ticked one in brackets.
QString FileMenu(const frmQuillon* main) {
    QStringList items;
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        const QAction* item = main->mnuAltFile[n];
        const QString text = item->isVisible() ? item->text() : "hidden " + item->text();
        if (item->isVisible() || item->isChecked()) {
            items << (item->isChecked() ? "[" + text + "]" : text);
        }
    }
    return items.join(", ");
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

// The databases in the slot's folder, each copy of a delivered one marked so,
// and whether the first-check copy is a copy of the client database.
QString Databases(const QString& programFolder) {
    const QDir slot(DatabaseFolder[1]);
    QStringList names;
    for (const QString& name : slot.entryList({"*.MDB"}, QDir::Files)) {
        const QByteArray bytes = FileBytes(slot.filePath(name));
        names << name;
        for (const char* delivered : {"DTAXOFF2.MDB", "DDIV2015.MDB"}) {
            if (slot.path() != programFolder &&
                bytes == FileBytes(programFolder + "/" + delivered)) {
                names.last() += QLatin1Char('=') + delivered;
            }
        }
        if (name == "BACKUP15.MDB") {
            names.last() += bytes == FileBytes(slot.filePath("QUILL020.MDB")) ? "=copy" : "=older";
        }
    }
    return names.join(' ');
}

// What the window shows after its load, the databases in the slot's folder,
// and what was said, the folder standing as <SLOT>.
QString Outcome(const frmQuillon* main, const ScriptedServices& services,
                const QString& programFolder) {
    QStringList said;
    for (ShownMessage shown : services.messages.Shown()) {
        said << shown.prompt.replace(DatabaseFolder[1], "<SLOT>").replace('\n', '|') + " " +
                    QString::number(shown.style);
    }
    return QStringLiteral(
               "\"%1\", user title \"%2\"; client %3; offices %4; dividends %5; "
               "always %6; files %7; %8 beeps: %9")
        .arg(main->windowTitle(), UserTitle, Enabled(main, kClientCommands),
             Enabled(main, kOfficeCommands), Enabled(main, kDividendCommands),
             Enabled(main, kAlwaysEnabled), Databases(programFolder))
        .arg(services.messages.Beeps())
        .arg(said.join(" / "));
}

QStringList closedForms;
QStringList refusingForms;

// Stands in for a form of a later part: records its unloading, and can refuse it
// as a section with a bad date does.
class StandInForm : public QWidget {
public:
    explicit StandInForm(const QString& name) : name_(name) {
        auto* refresh = new QTimer(this);
        refresh->setObjectName(QStringLiteral("tmrRefresh"));
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        if (refusingForms.contains(name_)) {
            event->ignore();
            return;
        }
        closedForms << name_;
        event->accept();
    }

private:
    QString name_;
};

// The forms that commands name but nobody registered, noted before the stand-ins
// take their places.
QStringList unregisteredForms;

void registerStandIn(const QString& name) {
    RegisterForm(name, [name] { return new StandInForm(name); });
}

// Clicks `button` of the modal dialog that `trigger` opens, once it is up.
void clickInModal(const QString& button, const std::function<void()>& trigger) {
    QTimer::singleShot(0, [button] {
        QWidget* modal = QApplication::activeModalWidget();
        QVERIFY(modal);
        Button(modal, button)->click();
    });
    trigger();
}

}  // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private:
    std::optional<ProgramFolderCopy> folder_;
    std::optional<ScriptedServices> services_;

private Q_SLOTS:
    void initTestCase() {
        PrepareShellTests();
        for (const CommandRow& row : Commands()) {
            const QString form = QString::fromLatin1(row.form);
            if (row.form && !IsFormRegistered(form) && !unregisteredForms.contains(form)) {
                unregisteredForms << form;
            }
        }
        for (const QString& name : UnloadOrder()) {
            registerStandIn(name);
        }
        registerStandIn(QStringLiteral("frmClientRecords"));
    }
    void everyCommandReachesARegisteredForm() { QCOMPARE(unregisteredForms, QStringList()); }
    void init() {
        closedForms.clear();
        refusingForms.clear();
        folder_.emplace();
        services_.emplace();
        SetDefaults();
        UserTitle.clear();
    }
    void cleanup() {
        refusingForms.clear();
        CloseMainWindow();
        services_.reset();
        folder_.reset();
    }

    // For each state of the folders, the reference file holds what the load
    // leaves: the caption, which commands are enabled, the databases then in the
    // slot's folder, and what was said. The delivered reference databases are
    // placed beside the client database; the first check leaves a copy of it,
    // never refreshed; a missing folder disables the client commands in silence.
    void loadFollowsTheDatabasesTheFolderHolds() {
        const char* const situations[] = {
            "delivered",           "an older first-check copy",
            "slot folder missing", "damaged",
            "held exclusively",    "slot elsewhere, no delivered dividends",
            "2013-14 only",        "slot number 99"};
        QStringList outcomes;
        for (const char* situation : situations) {
            init();
            const QString name = QString::fromLatin1(situation);
            const QString elsewhere = folder_->Sibling("Practice");
            std::optional<dao::Database> holder;
            if (name == "an older first-check copy") {
                WriteBytes(folder_->File("BACKUP15.MDB"), "an old copy");
            } else if (name == "slot folder missing") {
                DatabaseFolder[1] = folder_->Path() + QStringLiteral("/gone");
            } else if (name == "damaged") {
                QByteArray noise(64 * 1024, '\0');
                QRandomGenerator generator(20151);
                std::generate(noise.begin(), noise.end(),
                              [&] { return char(generator.bounded(256)); });
                WriteBytes(folder_->File("QUILL020.MDB"), noise);
            } else if (name == "held exclusively") {
                holder = dao::OpenDatabase(folder_->File("QUILL020.MDB"), true);
            } else if (name.startsWith("slot elsewhere") || name == "2013-14 only") {
                QFile::copy(folder_->File("QUILL020.MDB"), elsewhere + "/QUILL020.MDB");
                QFile::copy(folder_->File("DDIV2015.MDB"), elsewhere + "/DIV2013.MDB");
                QFile::remove(folder_->File("DDIV2015.MDB"));
                DatabaseFolder[1] = elsewhere;
                if (!name.startsWith("2013")) {
                    QFile::remove(elsewhere + "/DIV2013.MDB");
                }
            } else if (name == "slot number 99") {
                SelectedFile = 99;
            }
            if (name == "damaged" || name == "held exclusively" || name == "slot number 99") {
                services_->messages.Answer(vbOK);
            }
            auto* main = LoadForm<frmQuillon>();
            QVERIFY(main->isVisible());
            outcomes << name + ": " + Outcome(main, *services_, folder_->Path());
            if (holder) {
                holder->Close();
            }
            cleanup();
        }
        QCOMPARE(outcomes, ReferenceLines(QStringLiteral("main-window-load.txt"), outcomes));
    }

    // The tick counts filled slots, so a gap moves it onto a later item.
    void fileMenuTickFallsByTheCountOfFilledSlots() {
        for (int n : {3, 4, 5}) {
            DatabaseTitle[n] = QStringLiteral("Slot %1").arg(n);
            DatabaseFolder[n] = folder_->Path();
        }
        SelectedFile = 4;
        auto* main = LoadForm<frmQuillon>();
        QCOMPARE(FileMenu(main), "Default Database, Slot 3, Slot 4, [Slot 5]");
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Slot 4"));
    }

    // The place is kept in twips; an exit while minimised keeps the last
    // normal rectangle.
    void windowPlaceIsKeptInTwips() {
        ApplicationMaximised = false;
        ApplicationTop = 1500;
        ApplicationLeft = 3000;
        ApplicationWidth = 9000;
        ApplicationHeight = 6000;
        auto* main = LoadForm<frmQuillon>();
        QVERIFY(!main->isMaximized());
        QCOMPARE(main->size(), QSize(600, 400));
        QCOMPARE(main->pos(), QPoint(200, 100));
        main->resize(660, 420);
        CloseMainWindow();
        const QByteArray text = folder_->ConfigText();
        QVERIFY(text.contains("\r\nAPPLICATION MAXIMISED=False\r\n"));
        QVERIFY(
            text.contains("\r\nAPPLICATION TOP=1500\r\nAPPLICATION LEFT=3000\r\n"
                          "APPLICATION HEIGHT=6300\r\nAPPLICATION WIDTH=9900\r\n"));
        main = LoadForm<frmQuillon>();
        main->resize(300, 200);
        main->setWindowState(Qt::WindowMinimized);
        const int endsBefore = EndProgramCalls();
        main->Command("mnuExit")->trigger();
        FlushUnloadedForms();
        QCOMPARE(EndProgramCalls(), endsBefore + 1);
        QVERIFY(folder_->ConfigText().contains("\r\nAPPLICATION HEIGHT=6300\r\n"));
    }

    void toolbarButtonsWrapRatherThanHideInANarrowWindow() {
        ApplicationMaximised = false;
        ApplicationWidth = 600 * 15;
        ApplicationHeight = 500 * 15;
        auto* main = LoadForm<frmQuillon>();
        QVERIFY(QTest::qWaitForWindowExposed(main));
        QCoreApplication::processEvents();
        const QList<QToolButton*> buttons = main->pnlToolBar->findChildren<QToolButton*>();
        QCOMPARE(buttons.size(), 19);
        QSet<int> rows;
        for (const QToolButton* button : buttons) {
            QVERIFY2(main->pnlToolBar->rect().contains(button->geometry()),
                     qPrintable(button->objectName()));
            rows.insert(button->y());
        }
        QVERIFY(rows.size() > 1);
        QVERIFY(main->mdiArea->geometry().top() >= main->pnlToolBar->geometry().bottom());
    }

    // The loaded window shows its captions and version; the view items
    // toggle and are saved at once.
    void viewItemsToggleAndSaveAtOnce() {
        auto* main = LoadForm<frmQuillon>();
        QVERIFY(!main->Command("mnuTransfer")->isVisible());
        QCOMPARE(main->Command("mnuDiv3")->text(), QStringLiteral("&3 2013-14"));
        QCOMPARE(main->Command("cm3User")->text(), UserTitle);
        QCOMPARE(main->Command("mnuUser")->text(), QStringLiteral("&7 ") + UserTitle);
        QCOMPARE(main->pnlVersion->text(), QStringLiteral(QUILLON_VERSION));
        QCOMPARE(ActiveSection, qint16(0));
        QVERIFY(main->isMaximized());
        main->Command("mnuToolbar")->trigger();
        QVERIFY(!main->pnlToolBar->isVisible());
        QVERIFY(folder_->ConfigText().contains("\r\nVIEW TOOLBAR=False\r\n"));
        main->Command("mnuStatusBar")->trigger();
        QVERIFY(!main->sbStatusBar->isVisible());
        QVERIFY(folder_->ConfigText().contains("\r\nVIEW STATUS BAR=False\r\n"));
        ViewTooltips = false;
        Q_EMIT main->mnuView->aboutToShow();
        QVERIFY(!main->Command("mnuTooltips")->isChecked());
        QVERIFY(!main->Command("mnuToolbar")->isChecked());
        main->Command("mnuTooltips")->trigger();
        QVERIFY(ViewTooltips);
        QVERIFY(folder_->ConfigText().contains("\r\nVIEW TOOLTIPS=True\r\n"));
    }

    void unloadAllFormsGoesInItsFixedOrder() {
        LoadForm<frmQuillon>();
        QStringList reversed = UnloadOrder();
        std::reverse(reversed.begin(), reversed.end());
        for (const QString& name : reversed) {
            ShowForm(LoadForm(name));
        }
        QVERIFY(UnloadAllForms());
        QCOMPARE(closedForms, UnloadOrder());
        QCOMPARE(UnloadOrder().size(), 17);
        for (const QString& name : UnloadOrder()) {
            QVERIFY(!LoadedForm(name));
        }
    }

    // A run of commands; after each the reference file holds the child windows
    // shown (the active one first), the forms unloaded, the pages and the year.
    // A form has one window; a section replaces the one open before unless that
    // one refuses, and the next opens where the last one stood; a dividend year
    // reopens the dividends on that year.
    void commandsOpenTheirFormsAsChildWindows() {
        QFile::copy(folder_->File("DDIV2015.MDB"), folder_->File("DIV2014.MDB"));
        auto* main = LoadForm<frmQuillon>();
        QStringList outcomes;
        for (const QString command : {"cm3Offices", "mnuOffices", "cm3ClientRecord", "cm3Personal",
                                      "mnuEmployment", "cm3Business", "cm3Dividends", "mnuDiv3"}) {
            if (command == "mnuEmployment") {
                ChildWindow(LoadedForm("frmPersonal"))->move(30, 20);
                ActiveSection = 1;
                EmploymentPage = 3;
            } else if (command == "cm3Business") {
                refusingForms << "frmEmployment";
                BusinessPage = 2;
            }
            closedForms.clear();
            main->Command(command)->trigger();
            QStringList shown{main->mdiArea->currentSubWindow()->widget()->objectName()};
            for (const QMdiSubWindow* child : main->mdiArea->subWindowList()) {
                if (child->isVisible() && !shown.contains(child->widget()->objectName())) {
                    shown << child->widget()->objectName();
                }
            }
            outcomes << QStringLiteral(
                            "%1: shows %2; unloads %3; pages %4 %5; section at %6,%7; "
                            "year %8")
                            .arg(command, shown.join(' '), closedForms.join(' '))
                            .arg(EmploymentPage)
                            .arg(BusinessPage)
                            .arg(SectionLeft)
                            .arg(SectionTop)
                            .arg(TaxYear);
        }
        QCOMPARE(outcomes, ReferenceLines(QStringLiteral("main-window-commands.txt"), outcomes));
        refusingForms.clear();
        CloseMainWindow();
        QVERIFY(folder_->ConfigText().contains("\r\nTAX YEAR=2014\r\n"));
    }

    void switchingSlotsTakesTheFirstClientAndSaves() {
        const QString second = folder_->Sibling("Second");
        QFile::copy(folder_->File("QUILL020.MDB"), second + "/QUILL020.MDB");
        DatabaseTitle[2] = QStringLiteral("Second Practice");
        DatabaseFolder[2] = second;
        auto* main = LoadForm<frmQuillon>();
        main->Command("cm3Offices")->trigger();
        CurrentFirst = QStringLiteral("Someone");
        CurrentLast = QStringLiteral("Else");

        main->mnuAltFile[2]->trigger();
        QCOMPARE(SelectedFile, qint16(2));
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Second Practice"));
        QVERIFY(!LoadedForm("frmOffices"));
        QVERIFY(CurrentLast != QStringLiteral("Else"));
        QCOMPARE(FileMenu(main), "Default Database, [Second Practice]");
        QVERIFY(folder_->ConfigText().contains("\r\nSELECTED FILE=2\r\n"));
        QVERIFY(QFile::exists(second + "/BACKUP15.MDB"));
        QCOMPARE(services_->messages.Count(), 0);

        // The ticked slot again: nothing at all happens.
        folder_->WriteConfig("untouched");
        CurrentFirst = QStringLiteral("Kept");
        main->mnuAltFile[2]->trigger();
        QCOMPARE(FileMenu(main), "Default Database, [Second Practice]");
        QCOMPARE(CurrentFirst, QStringLiteral("Kept"));
        QCOMPARE(folder_->ConfigText(), QByteArray("untouched"));
    }

    // The Folder Manager and the Report Settings open modally from the menu,
    // and Cancel changes nothing; OK keeps the selected folder and cleans paths.
    void folderManagerKeepsTheSelectedFolderAndCleansPaths() {
        auto* main = LoadForm<frmQuillon>();
        folder_->WriteConfig("untouched");
        clickInModal("cmdCancel", [main] { main->Command("mnuManager")->trigger(); });
        FlushUnloadedForms();
        QVERIFY(!LoadedForm("frmFolderManager"));
        QCOMPARE(folder_->ConfigText(), QByteArray("untouched"));
        clickInModal("cmdClose", [main] { main->Command("mnuSettingsReports")->trigger(); });
        auto* manager = LoadForm<frmFolderManager>();
        QCOMPARE(manager->windowTitle(), QStringLiteral("Folder Manager"));
        QCOMPARE(manager->txtPath[1]->text(), folder_->Path());
        QVERIFY(manager->txtPath[1]->isReadOnly());
        QCOMPARE(manager->txtPath[1]->focusPolicy(), Qt::NoFocus);
        QCOMPARE(manager->txtPath[1]->palette().color(QPalette::Base), QColor(0, 255, 255));
        QVERIFY(!manager->txtPath[2]->isReadOnly());
        manager->txtName[1]->setText(QStringLiteral("  Main Office "));
        manager->txtName[2]->setText(QStringLiteral("Archive"));
        manager->txtPath[2]->setText(QStringLiteral(" /srv/archive\\\\// "));
        Button(manager, "cmdOK")->click();
        FlushUnloadedForms();
        QVERIFY(!LoadedForm("frmFolderManager"));
        QCOMPARE(DatabaseTitle[1], QStringLiteral("Main Office"));
        QCOMPARE(DatabaseFolder[1], folder_->Path());
        QCOMPARE(DatabaseFolder[2], QStringLiteral("/srv/archive"));
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Main Office"));
        QCOMPARE(FileMenu(main), "[Main Office], Archive");
        QVERIFY(folder_->ConfigText().contains("\r\nPATH 2=/srv/archive\r\n"));
    }

    void aboutBoxTellsTheVersionAndFindsNoSystemInformation() {
        LoadForm<frmQuillon>();
        auto* about = LoadForm<frmAbout>();
        QCOMPARE(about->windowTitle(), QStringLiteral("About Quillon"));
        QCOMPARE(about->lblVersion->text(), QStringLiteral("Version " QUILLON_VERSION));
        services_->messages.Answer(vbOK);
        about->cmdSysInfo->click();
        QCOMPARE(services_->messages.Last().prompt,
                 QStringLiteral("System Information Is Unavailable At This Time"));
        services_->programs.SetInstalled("hardinfo", "/usr/bin/hardinfo");
        about->cmdSysInfo->click();
        QCOMPARE(services_->programs.Started().size(), 1);
        QCOMPARE(services_->programs.Started().first().program,
                 QStringLiteral("/usr/bin/hardinfo"));
        clickInModal("cmdOK", [] { ShowModal("frmAbout"); });
    }

    void helpOpensTheUserGuide() {
        auto* main = LoadForm<frmQuillon>();
        main->Command("mnuHelpContents")->trigger();
        QWidget* guide = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "UserGuide" && window->isVisible()) {
                guide = window;
            }
        }
        QVERIFY(guide);
        auto* text = guide->findChild<QTextBrowser*>("txtGuide");
        QVERIFY(text->toPlainText().contains("Folder Manager"));
        main->Command("mnuHelpSearch")->trigger();
        auto* find = guide->findChild<QLineEdit*>("txtFind");
        find->setText("backup");
        Button(guide, "cmdFindNext")->click();
        QVERIFY(text->textCursor().hasSelection());
        QCOMPARE(text->textCursor().selectedText().toLower(), QStringLiteral("backup"));
        guide->close();
    }

    void mainWindowIsRenderedIntoTheDocumentation() {
        ApplicationMaximised = false;
        ApplicationWidth = 1280 * 15;
        ApplicationHeight = 720 * 15;
        auto* main = LoadForm<frmQuillon>();
        QVERIFY(QTest::qWaitForWindowExposed(main));
        const QImage picture = main->grab().toImage();
        QCOMPARE(picture.size(), QSize(1280, 720));
        const QString folder = QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots");
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(picture.save(folder + QStringLiteral("/main-window.png")));
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
