// The main window's commands: forms reached through the registry as child
// windows, sections replacing each other, the switch of database slot, the
// Folder Manager, the About box and the user guide.
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
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QStringList closedForms;
QStringList refusingForms;
QStringList unregisteredForms;

// The forms of screens still to be built: their commands do nothing yet.
const QStringList kFormsToCome = {
    "frmAdministration", "frmAssets",       "frmBackup",        "frmBusiness", "frmClientLabels",
    "frmClientLetter",   "frmClientMerge",  "frmClientRecords", "frmCompact",  "frmContributions",
    "frmDiary",          "frmDividends",    "frmEmployment",    "frmForm64_8", "frmImportWarning",
    "frmOfficeLabels",   "frmOfficeLetter", "frmOfficeMerge",   "frmOffices",  "frmRepair",
};

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

void registerStandIn(const QString& name) {
    RegisterForm(name, [name] { return new StandInForm(name); });
}

bool isChildWindow(QWidget* form) {
    auto* main = LoadedForm<frmQuillon>();
    for (QMdiSubWindow* child : main->mdiArea->subWindowList()) {
        if (child->widget() == form) {
            return child->isVisible();
        }
    }
    return false;
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

class TestCommands : public QObject {
    Q_OBJECT
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
    void init() {
        closedForms.clear();
        refusingForms.clear();
    }
    void cleanup() {
        refusingForms.clear();
        CloseMainWindow();
    }

    void everyCommandReachesARegisteredForm() {
        unregisteredForms.sort();
        QCOMPARE(unregisteredForms, kFormsToCome);
    }

    void unloadAllFormsGoesInItsFixedOrder() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
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

    void showCommandsOpenTheirFormAsAChildWindow() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        main->Command("cm3Offices")->trigger();
        QWidget* offices = LoadedForm("frmOffices");
        QVERIFY(offices && isChildWindow(offices));
        QCOMPARE(main->mdiArea->currentSubWindow()->widget(), offices);
        main->Command("mnuOffices")->trigger();
        QCOMPARE(LoadedForm("frmOffices"), offices);  // one window per form
        main->Command("cm3ClientRecord")->trigger();
        QVERIFY(isChildWindow(LoadedForm("frmClientRecords")));
    }

    void aSectionReplacesTheOneOpenBefore() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        main->Command("cm3Personal")->trigger();
        QWidget* personal = LoadedForm("frmPersonal");
        QVERIFY(personal && isChildWindow(personal));
        ChildWindow(personal)->move(30, 20);
        ActiveSection = 1;
        EmploymentPage = 3;
        main->Command("mnuEmployment")->trigger();
        QCOMPARE(closedForms, QStringList{"frmPersonal"});
        QVERIFY(!LoadedForm("frmPersonal"));
        QVERIFY(isChildWindow(LoadedForm("frmEmployment")));
        QCOMPARE(EmploymentPage, quint8(1));
        // The next section opens where the last one stood.
        QCOMPARE(SectionTop, qint16(20 * 15));
        QCOMPARE(SectionLeft, qint16(30 * 15));
    }

    void aSectionThatCannotBeLeftKeepsTheOtherShut() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        main->Command("cm3Diary")->trigger();
        refusingForms << "frmDiary";
        BusinessPage = 2;
        main->Command("cm3Business")->trigger();
        QVERIFY(LoadedForm("frmDiary"));
        QVERIFY(!LoadedForm("frmBusiness"));
        QCOMPARE(BusinessPage, quint8(1));
    }

    void dividendYearItemReopensTheDividendsOnThatYear() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        QFile::copy(folder.File("DDIV2015.MDB"), folder.File("DIV2014.MDB"));
        auto* main = LoadForm<frmQuillon>();
        main->Command("cm3Dividends")->trigger();
        QCOMPARE(TaxYear, qint16(2015));
        QVERIFY(LoadedForm("frmDividends"));
        main->Command("mnuDiv3")->trigger();
        QCOMPARE(closedForms, QStringList{"frmDividends"});
        QCOMPARE(TaxYear, qint16(2014));
        QVERIFY(isChildWindow(LoadedForm("frmDividends")));
        CloseMainWindow();
        QVERIFY(folder.ConfigText().contains("\r\nTAX YEAR=2014\r\n"));
    }

    void clientListIsPlacedAtTheLeftAndRefreshedWhenShownAgain() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        ApplicationMaximised = false;
        ApplicationWidth = 9000;
        ApplicationHeight = 7500;
        auto* main = LoadForm<frmQuillon>();
        main->Command("mnuClients")->trigger();
        QWidget* clients = LoadedForm("frmClients");
        QVERIFY(clients && isChildWindow(clients));
        const QRect place = ChildWindow(clients)->geometry();
        QCOMPARE(place.topLeft(), QPoint(0, 0));
        QCOMPARE(place.width(), 451);  // 6765 twips
        const int expectedHeight =
            500 - 60 - main->pnlToolBar->height() - main->sbStatusBar->height();
        QCOMPARE(place.height(), expectedHeight);
        auto* refresh = clients->findChild<QTimer*>("tmrRefresh");
        QVERIFY(!refresh->isActive());
        main->Command("cm3Clients")->trigger();
        QVERIFY(refresh->isActive());
        QCOMPARE(refresh->interval(), 100);
    }

    void switchingSlotsTakesTheFirstClientAndSaves() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        const QString second = folder.Sibling("Second");
        QFile::copy(folder.File("QUILL020.MDB"), second + "/QUILL020.MDB");
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
        QVERIFY(main->mnuAltFile[2]->isChecked());
        QVERIFY(!main->mnuAltFile[1]->isChecked());
        QVERIFY(folder.ConfigText().contains("\r\nSELECTED FILE=2\r\n"));
        QVERIFY(QFile::exists(second + "/BACKUP15.MDB"));
        QCOMPARE(services.messages.Count(), 0);

        // The ticked slot again: nothing at all happens.
        folder.WriteConfig("untouched");
        CurrentFirst = QStringLiteral("Kept");
        main->mnuAltFile[2]->trigger();
        QVERIFY(main->mnuAltFile[2]->isChecked());
        QCOMPARE(CurrentFirst, QStringLiteral("Kept"));
        QCOMPARE(folder.ConfigText(), QByteArray("untouched"));
    }

    void folderManagerKeepsTheSelectedFolderAndCleansPaths() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        auto* manager = LoadForm<frmFolderManager>();
        QCOMPARE(manager->windowTitle(), QStringLiteral("Folder Manager"));
        QCOMPARE(manager->txtPath[1]->text(), folder.Path());
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
        QCOMPARE(DatabaseFolder[1], folder.Path());
        QCOMPARE(DatabaseFolder[2], QStringLiteral("/srv/archive"));
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Main Office"));
        QVERIFY(main->mnuAltFile[2]->isVisible());
        QCOMPARE(main->mnuAltFile[2]->text(), QStringLiteral("Archive"));
        QVERIFY(folder.ConfigText().contains("\r\nPATH 2=/srv/archive\r\n"));
    }

    void folderManagerOpensModallyFromTheMenuAndCancelChangesNothing() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        folder.WriteConfig("untouched");
        clickInModal("cmdCancel", [main] { main->Command("mnuManager")->trigger(); });
        FlushUnloadedForms();
        QVERIFY(!LoadedForm("frmFolderManager"));
        QCOMPARE(folder.ConfigText(), QByteArray("untouched"));
    }

    void reportSettingsOpenModallyOverTheMainWindow() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        auto* main = LoadForm<frmQuillon>();
        QString shown;
        QTimer::singleShot(0, [&shown] {
            QWidget* modal = QApplication::activeModalWidget();
            QVERIFY(modal);
            shown = modal->objectName();
            modal->close();
        });
        main->Command("mnuSettingsReports")->trigger();
        QCOMPARE(shown, QStringLiteral("frmVSPrintSettings"));
    }

    void aboutBoxTellsTheVersionAndFindsNoSystemInformation() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        LoadForm<frmQuillon>();
        auto* about = LoadForm<frmAbout>();
        QCOMPARE(about->windowTitle(), QStringLiteral("About Quillon"));
        QCOMPARE(about->lblVersion->text(), QStringLiteral("Version " QUILLON_VERSION));
        services.messages.Answer(vbOK);
        about->cmdSysInfo->click();
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("System Information Is Unavailable At This Time"));
        services.programs.SetInstalled("hardinfo", "/usr/bin/hardinfo");
        about->cmdSysInfo->click();
        QCOMPARE(services.programs.Started().size(), 1);
        QCOMPARE(services.programs.Started().first().program, QStringLiteral("/usr/bin/hardinfo"));
        clickInModal("cmdOK", [] { ShowModal("frmAbout"); });
    }

    void helpOpensTheUserGuide() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
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
};

QTEST_MAIN(TestCommands)
#include "test_commands.moc"
