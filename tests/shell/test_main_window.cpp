// The main window's load on the databases a folder holds: the enabling of its
// commands, the placing of the delivered databases, the check of the client
// database and the window's place.
#include "platform/dao.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QRandomGenerator>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>

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
const QStringList kAlwaysEnabled = {
    "cm3ClientRecord",    "cm3Form64_8",     "mnuPrintClientRecords",
    "mnuForm64_8",        "mnuImport",       "mnuManager",
    "mnuSettingsReports", "mnuHelpContents", "mnuHelpSearch",
    "mnuHelpAbout",       "mnuExit"};

QStringList enabledAmong(frmQuillon* main, const QStringList& names, bool enabled) {
    QStringList found;
    for (const QString& name : names) {
        if (main->Command(name)->isEnabled() == enabled) {
            found << name;
        }
    }
    return found;
}

frmQuillon* loadMainWindow() {
    return LoadForm<frmQuillon>();
}

QByteArray fileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

}  // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    void init() { UserTitle.clear(); }
    void cleanup() { CloseMainWindow(); }

    void deliveredDatabaseGivesEveryCommand() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        QVERIFY(!QFile::exists(folder.File("TAXOFF2.MDB")));
        auto* main = loadMainWindow();
        QVERIFY(main->isVisible());
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Default Database"));
        QCOMPARE(services.messages.Count(), 0);
        QCOMPARE(enabledAmong(main, kClientCommands, false), QStringList());
        QCOMPARE(enabledAmong(main, kOfficeCommands, false), QStringList());
        QCOMPARE(enabledAmong(main, kAlwaysEnabled, false), QStringList());
        QVERIFY(!main->Command("mnuTransfer")->isVisible());
        // The delivered reference databases are placed beside the client database.
        QVERIFY(QFile::exists(folder.File("TAXOFF2.MDB")));
        QVERIFY(QFile::exists(folder.File("DIV2015.MDB")));
        QVERIFY(main->Command("mnuDiv4")->isEnabled());
        QCOMPARE(enabledAmong(main, {"mnuDiv1", "mnuDiv2", "mnuDiv3"}, true), QStringList());
        QVERIFY(main->Command("mnuDividends")->isEnabled());
        QVERIFY(main->Command("cm3Dividends")->isEnabled());
        QCOMPARE(main->Command("mnuDiv3")->text(), QStringLiteral("&3 2013-14"));
        // The first check leaves a copy of the client database as it then was.
        QCOMPARE(fileBytes(folder.File("BACKUP15.MDB")), fileBytes(folder.File("QUILL020.MDB")));
        QVERIFY(!UserTitle.isEmpty());
        QCOMPARE(main->Command("cm3User")->text(), UserTitle);
        QCOMPARE(main->Command("mnuUser")->text(), QStringLiteral("&7 ") + UserTitle);
        QCOMPARE(main->pnlVersion->text(), QStringLiteral(QUILLON_VERSION));
        QCOMPARE(ActiveSection, qint16(0));
        QVERIFY(main->isMaximized());
    }

    void anExistingFirstCheckCopyIsNeverRefreshed() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        writeBytes(folder.File("BACKUP15.MDB"), "an old copy");
        loadMainWindow();
        QCOMPARE(fileBytes(folder.File("BACKUP15.MDB")), QByteArray("an old copy"));
    }

    void aMissingSlotFolderLeavesClientCommandsOffWithoutAWord() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        DatabaseFolder[1] = folder.Path() + QStringLiteral("/gone");
        auto* main = loadMainWindow();
        QVERIFY(main->isVisible());
        QCOMPARE(services.messages.Count(), 0);
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon"));
        QCOMPARE(enabledAmong(main, kClientCommands + kOfficeCommands, true), QStringList());
        QCOMPARE(enabledAmong(main, {"cm3Dividends", "mnuDividends", "mnuDiv4"}, true),
                 QStringList());
        QCOMPARE(enabledAmong(main, kAlwaysEnabled, false), QStringList());
        QVERIFY(!ClientDatabaseFound);
        QVERIFY(!QFile::exists(folder.File("BACKUP15.MDB")));
    }

    void aDamagedClientDatabaseIsReportedAndTheWindowStillRuns() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        QByteArray noise(64 * 1024, '\0');
        QRandomGenerator generator(20151);
        for (char& byte : noise) {
            byte = static_cast<char>(generator.bounded(256));
        }
        writeBytes(folder.File("QUILL020.MDB"), noise);
        services.messages.Answer(vbOK);
        auto* main = loadMainWindow();
        QCOMPARE(services.messages.Count(), 1);
        const ShownMessage shown = services.messages.Last();
        QCOMPARE(shown.prompt,
                 QStringLiteral("The database \"Default Database\" is corrupted.\n\n"
                                "Select 'Repair database' in the 'File' menu to repair the "
                                "database.\n\nAlternatively, restore your backup copy of ") +
                     folder.File("QUILL020.MDB"));
        QCOMPARE(shown.style & kMsgBoxIconMask, int(vbExclamation));
        QCOMPARE(shown.title, QStringLiteral("Quillon"));
        QCOMPARE(services.messages.Beeps(), 1);
        QVERIFY(main->isVisible());
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon"));
        QVERIFY(UserTitle.isEmpty());
        // The file is there, so the way to repair it stays open.
        QCOMPARE(enabledAmong(main, kClientCommands, false), QStringList());
    }

    void aDatabaseHeldExclusivelyIsNotAvailable() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        dao::Database holder = dao::OpenDatabase(folder.File("QUILL020.MDB"), true);
        services.messages.Answer(vbOK);
        auto* main = loadMainWindow();
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("The database \"Default Database\" is not available."));
        QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
        QCOMPARE(services.messages.Beeps(), 1);
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon"));
        QCOMPARE(enabledAmong(main, kClientCommands, false), QStringList());
        holder.Close();
    }

    void taxOfficesArePlacedFromTheDeliveredCopy() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        const QString slot = folder.Sibling("Practice");
        QFile::copy(folder.File("QUILL020.MDB"), slot + "/QUILL020.MDB");
        DatabaseFolder[1] = slot;
        QFile::remove(folder.File("DDIV2015.MDB"));
        auto* main = loadMainWindow();
        QCOMPARE(services.messages.Count(), 0);
        QCOMPARE(fileBytes(slot + "/TAXOFF2.MDB"), fileBytes(folder.File("DTAXOFF2.MDB")));
        QCOMPARE(enabledAmong(main, kOfficeCommands, false), QStringList());
        QVERIFY(!QFile::exists(slot + "/DIV2015.MDB"));
        QCOMPARE(enabledAmong(main, {"cm3Dividends", "mnuDividends"}, true), QStringList());
    }

    void dividendItemsFollowTheYearsPresent() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        const QString slot = folder.Sibling("Practice");
        QFile::copy(folder.File("QUILL020.MDB"), slot + "/QUILL020.MDB");
        QFile::copy(folder.File("DDIV2015.MDB"), slot + "/DIV2013.MDB");
        QFile::remove(folder.File("DDIV2015.MDB"));
        DatabaseFolder[1] = slot;
        auto* main = loadMainWindow();
        QCOMPARE(enabledAmong(main, {"mnuDiv1", "mnuDiv2", "mnuDiv3", "mnuDiv4"}, true),
                 QStringList{"mnuDiv2"});
        QVERIFY(Dividend2013Found && DividendDatabaseFound && !Dividend2015Found);
        QCOMPARE(enabledAmong(main, {"cm3Dividends", "mnuDividends"}, false), QStringList());
    }

    // The tick counts filled slots, so a gap moves it onto a later item.
    void fileMenuTickFallsByTheCountOfFilledSlots() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        for (int n : {3, 4, 5}) {
            DatabaseTitle[n] = QStringLiteral("Slot %1").arg(n);
            DatabaseFolder[n] = folder.Path();
        }
        SelectedFile = 4;
        auto* main = loadMainWindow();
        QStringList ticked;
        QStringList shown;
        for (int n = 1; n <= kDatabaseSlots; ++n) {
            if (main->mnuAltFile[n]->isChecked()) {
                ticked << main->mnuAltFile[n]->text();
            }
            if (main->mnuAltFile[n]->isVisible()) {
                shown << main->mnuAltFile[n]->text();
            }
        }
        QCOMPARE(ticked, QStringList{"Slot 5"});
        QCOMPARE(shown, (QStringList{"Default Database", "Slot 3", "Slot 4", "Slot 5"}));
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Slot 4"));
    }

    void anImpossibleSlotNumberIsReportedAndTheWindowStillOpens() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        SelectedFile = 99;
        services.messages.Answer(vbOK);
        auto* main = loadMainWindow();
        QVERIFY(main->isVisible());
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("Module: frmQuillon\nProcedure: Form_Load\n"
                                "Error 9: Subscript out of range"));
        SelectedFile = 1;
    }

    void windowPlaceIsKeptInTwips() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        ApplicationMaximised = false;
        ApplicationTop = 1500;
        ApplicationLeft = 3000;
        ApplicationWidth = 9000;
        ApplicationHeight = 6000;
        auto* main = loadMainWindow();
        QVERIFY(!main->isMaximized());
        QCOMPARE(main->size(), QSize(600, 400));
        QCOMPARE(main->pos(), QPoint(200, 100));
        main->resize(660, 420);
        CloseMainWindow();
        const QByteArray text = folder.ConfigText();
        QVERIFY(text.contains("\r\nAPPLICATION MAXIMISED=False\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION TOP=1500\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION LEFT=3000\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION HEIGHT=6300\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION WIDTH=9900\r\n"));
    }

    void exitWhileMinimisedKeepsTheLastRectangle() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        ApplicationMaximised = false;
        ApplicationTop = 150;
        ApplicationLeft = 300;
        ApplicationWidth = 9000;
        ApplicationHeight = 6000;
        auto* main = loadMainWindow();
        main->resize(300, 200);
        main->setWindowState(Qt::WindowMinimized);
        const int endsBefore = EndProgramCalls();
        main->Command("mnuExit")->trigger();
        FlushUnloadedForms();
        QCOMPARE(EndProgramCalls(), endsBefore + 1);
        const QByteArray text = folder.ConfigText();
        QVERIFY(text.contains("\r\nAPPLICATION MAXIMISED=False\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION HEIGHT=6000\r\n"));
        QVERIFY(text.contains("\r\nAPPLICATION WIDTH=9000\r\n"));
    }

    void toolbarButtonsWrapRatherThanHideInANarrowWindow() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        ApplicationMaximised = false;
        ApplicationWidth = 600 * 15;
        ApplicationHeight = 500 * 15;
        auto* main = loadMainWindow();
        QVERIFY(QTest::qWaitForWindowExposed(main));
        QCoreApplication::processEvents();
        const QList<QToolButton*> buttons = main->pnlToolBar->findChildren<QToolButton*>();
        QCOMPARE(buttons.size(), 19);
        int rows = 0;
        int lastTop = -1;
        for (const QToolButton* button : buttons) {
            QVERIFY2(main->pnlToolBar->rect().contains(button->geometry()),
                     qPrintable(button->objectName()));
            if (button->y() != lastTop) {
                ++rows;
                lastTop = button->y();
            }
        }
        QVERIFY(rows > 1);
        QVERIFY(main->mdiArea->geometry().top() >= main->pnlToolBar->geometry().bottom());
    }

    void viewItemsToggleAndSaveAtOnce() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = loadMainWindow();
        main->Command("mnuToolbar")->trigger();
        QVERIFY(!main->pnlToolBar->isVisible());
        QVERIFY(folder.ConfigText().contains("\r\nVIEW TOOLBAR=False\r\n"));
        main->Command("mnuStatusBar")->trigger();
        QVERIFY(!main->sbStatusBar->isVisible());
        QVERIFY(folder.ConfigText().contains("\r\nVIEW STATUS BAR=False\r\n"));
        ViewTooltips = false;
        Q_EMIT main->mnuView->aboutToShow();
        QVERIFY(!main->Command("mnuTooltips")->isChecked());
        QVERIFY(!main->Command("mnuToolbar")->isChecked());
        main->Command("mnuTooltips")->trigger();
        QVERIFY(ViewTooltips);
        QVERIFY(folder.ConfigText().contains("\r\nVIEW TOOLTIPS=True\r\n"));
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
