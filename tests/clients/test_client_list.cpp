// The client list: its order and count, choosing a client by click, letter or
// refresh, the open section brought forward, printing, and its fixed width.

#include "clients/client_dialogs_gui.h"
#include "clients/frmClients.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/print_fakes.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

const Client kAnn{"Smith", "Ann"};
const Client kBob{"Jones", "Bob"};
const Client kVere{"de Vere", "Edward"};
const Client kNumbered{"3D Ltd", "Director"};
const Client kJunior{"Smith, Jr", "Al"};

QStringList listTexts(const frmClients* list) {
    QStringList texts;
    for (int i = 0; i < list->lstClients->count(); ++i) {
        texts << list->lstClients->item(i)->text();
    }
    return texts;
}

QString selectedText(const frmClients* list) {
    const auto selected = list->lstClients->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void clickEntry(frmClients* list, const QString& text) {
    const auto found = list->lstClients->findItems(text, Qt::MatchExactly);
    QVERIFY(!found.isEmpty());
    const QRect place = list->lstClients->visualItemRect(found.first());
    QTest::mouseClick(list->lstClients->viewport(), Qt::LeftButton, {}, place.center());
}

// "+" or "-" for Select, Rename, Delete and New enabled.
QString commands(const frmClients* list) {
    QString state;
    for (const QPushButton* button :
         {list->cm3Select, list->cm3Rename, list->cm3Delete, list->cm3New}) {
        state += button->isEnabled() ? '+' : '-';
    }
    return state;
}

Client current() {
    return {CurrentLast, CurrentFirst};
}

// Stands in for a section screen that is not part of this test.
class StandInSection : public QWidget {};

}  // namespace

class TestClientList : public QObject {
    Q_OBJECT

private:
    frmClients* openList() {
        auto* list = LoadForm<frmClients>();
        ShowForm(list);
        return list;
    }

private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    void cleanup() {
        UnloadAllForms();
        UnloadForm("frmPersonal");
        CloseMainWindow();
        SetDefaultPointer();
        ActiveSection = 0;
    }

    void listIsSortedWithoutRegardToCaseAndCounted() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kVere, kBob, kNumbered, kJunior});
        auto* list = openList();
        QCOMPARE(listTexts(list), (QStringList{"3D Ltd, Director", "de Vere, Edward", "Jones, Bob",
                                               "Smith, Ann", "Smith, Jr, Al"}));
        QCOMPARE(list->pnlCount->text(), "5 clients");
        QCOMPARE(commands(list), "---+");
        QVERIFY(!HourglassShown());
    }

    void countSaysClientsForAnyNumber() {
        for (const int count : {1, 300}) {
            QList<Client> clients;
            for (int i = 0; i < count; ++i) {
                clients << Client{QStringLiteral("Client %1").arg(i), "Test"};
            }
            ScriptedServices services;
            ClientSlot slot(clients);
            QCOMPARE(openList()->pnlCount->text(), QString::number(count) + " clients");
            UnloadAllForms();
        }
    }

    void anEmptyDatabaseIsReportedByTheLoad() {
        ScriptedServices services;
        ClientSlot slot({});
        CurrentFirst = "Ann";
        CurrentLast = "Smith";
        services.messages.Answer(vbOK);
        auto* list = openList();
        const ShownMessage shown = services.messages.Last();
        QVERIFY(shown.prompt.startsWith("Module: frmClients\nProcedure: Form_Load\nError 3021: "));
        QCOMPARE(shown.title, "Ann Smith");
        QCOMPARE(list->lstClients->count(), 0);
        // A letter on the empty list tells that nothing begins with it.
        services.messages.Answer(vbOK);
        Button(list, "cm3Seek(0)")->click();
        QCOMPARE(services.messages.Last().prompt, "No client name beginning with A");
    }

    void aClickMakesTheClientCurrent() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob, kJunior});
        auto* list = openList();
        EmploymentPage = 3;
        BusinessPage = 2;
        clickEntry(list, "Smith, Jr, Al");
        QCOMPARE(current(), kJunior);
        QCOMPARE(EmploymentPage, quint8(1));
        QCOMPARE(BusinessPage, quint8(1));
        QCOMPARE(commands(list), "++++");
        QVERIFY(!HourglassShown());

        // Activation clears the highlight and keeps the client.
        list->Form_Activate();
        QCOMPARE(selectedText(list), QString());
        QCOMPARE(current(), kJunior);
    }

    void lettersFindTheFirstNameWithThatInitial() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob, kVere, kNumbered});
        auto* list = openList();
        // A name in small letters is found by its capital.
        Button(list, "cm3Seek(3)")->click();
        QCOMPARE(selectedText(list), "de Vere, Edward");
        QCOMPARE(current(), kVere);
        QVERIFY(list->cm3Delete->isEnabled());
        Button(list, "cm3Seek(9)")->click();
        QCOMPARE(current(), kBob);

        // A failed seek leaves the last client current.
        services.messages.Answer(vbOK);
        Button(list, "cm3Seek(16)")->click();
        QCOMPARE(services.messages.Last().prompt, "No client name beginning with Q");
        QCOMPARE(services.messages.Last().style, int(vbExclamation));
        QCOMPARE(selectedText(list), "Smith, Ann");
        QCOMPARE(current(), kAnn);
        // Names beginning with a digit have no letter: only the list finds them.
        QCOMPARE(list->findChildren<QPushButton*>(QRegularExpression(u"^cm3Seek"_qs)).size(), 26);
        QCOMPARE(list->cm3Seek[25]->text(), "Z");
    }

    void refreshSelectsTheCurrentClientIfItIsStillThere() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        auto* list = openList();
        clickEntry(list, "Smith, Ann");
        slot.RemoveRow("Clients", kAnn);
        list->tmrRefresh->start(100);
        list->tmrRefresh_Timer();
        QVERIFY(!list->tmrRefresh->isActive());
        QCOMPARE(listTexts(list), QStringList{"Jones, Bob"});
        QCOMPARE(selectedText(list), QString());
        QVERIFY(list->cm3Select->isEnabled());
        QCOMPARE(list->pnlCount->text(), "1 clients");

        // The refresh matches the name exactly, case and all.
        CurrentLast = "JONES";
        CurrentFirst = "Bob";
        list->tmrRefresh_Timer();
        QCOMPARE(selectedText(list), QString());
        CurrentLast = "Jones";
        list->tmrRefresh_Timer();
        QCOMPARE(selectedText(list), "Jones, Bob");
    }

    void aStaleEntryGivesTheFirstClient() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        auto* list = openList();
        slot.RemoveRow("Clients", kAnn);
        services.messages.Answer(vbOK);
        clickEntry(list, "Smith, Ann");
        QCOMPARE(services.messages.Last().prompt, "Client record not found");
        QCOMPARE(current(), kBob);
    }

    void selectBringsTheActiveSectionForward() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        RegisterForm("frmPersonal", [] { return new StandInSection; });
        auto* list = openList();
        ActiveSection = 0;
        clickEntry(list, "Jones, Bob");
        list->cm3Select->click();
        QVERIFY(!LoadedForm("frmPersonal"));

        ActiveSection = 1;
        clickEntry(list, "Smith, Ann");
        // The second click of a double click, as the list reports it.
        Q_EMIT list->lstClients->itemDoubleClicked(list->lstClients->currentItem());
        QCOMPARE(current(), kAnn);
        QWidget* section = LoadedForm("frmPersonal");
        QVERIFY(section && section->isVisible());
        UnregisterForm("frmPersonal");
    }

    void printAsksFirstAndPrintsUnderTheSlotTitle() {
        PrintDesktop desktop;
        ClientSlot slot({kAnn, kBob});
        auto* list = openList();
        desktop.services.messages.Answer(vbNo);
        list->cm3Print->click();
        QVERIFY(desktop.backend.jobs.empty());
        const ShownMessage asked = desktop.services.messages.Last();
        QCOMPARE(asked.prompt, "Are you sure you want to print a list of all client names?");
        QCOMPARE(asked.style, vbYesNo | vbQuestion | vbDefaultButton2);
        QCOMPARE(asked.title, list->windowTitle());

        desktop.services.messages.Answer(vbYes);
        list->cm3Print->click();
        QCOMPARE(desktop.backend.jobs.size(), size_t(1));
        QStringList printed;
        for (const DrawOp& op : desktop.backend.jobs.front().document.pages.at(0).ops) {
            if (const auto* text = std::get_if<TextOp>(&op)) {
                printed << text->text;
            }
        }
        QCOMPARE(printed, (QStringList{"Test Practice", "Jones, Bob", "Smith, Ann"}));
    }

    void theMainWindowPlacesTheListAtItsFixedWidth() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        SetDefaults();
        ApplicationMaximised = false;
        ApplicationWidth = 9000;
        ApplicationHeight = 7500;
        ClientSlot slot({kAnn, kBob});
        auto* main = LoadForm<frmQuillon>();
        main->show();
        main->Command("mnuClients")->setEnabled(true);
        main->Command("mnuClients")->trigger();
        auto* list = LoadedForm<frmClients>();
        QVERIFY(list);
        auto* frame = qobject_cast<QMdiSubWindow*>(list->parentWidget());
        QVERIFY(frame && frame->isVisible());
        const int width = 451;  // 6765 twips
        QCOMPARE(frame->geometry(),
                 QRect(0, 0, width,
                       500 - 60 - main->pnlToolBar->height() - main->sbStatusBar->height()));
        frame->resize(width + 120, frame->height() + 40);
        QCOMPARE(frame->width(), width);

        // The toolbar button on a list already shown sets its refresh going.
        main->Command("cm3Clients")->setEnabled(true);
        CurrentLast = kBob.first;
        CurrentFirst = kBob.second;
        main->Command("cm3Clients")->trigger();
        QCoreApplication::processEvents();  // the list's activation goes first
        QVERIFY(list->tmrRefresh->isActive());
        QCOMPARE(list->tmrRefresh->interval(), 100);
        list->tmrRefresh_Timer();
        QCoreApplication::processEvents();
        QCOMPARE(list->pnlCount->text(), "2 clients");
        QCOMPARE(selectedText(list), "Jones, Bob");

        // Coming back to the list from another window clears its highlight.
        QMdiSubWindow* other = main->mdiArea->addSubWindow(new QWidget);
        other->show();
        main->mdiArea->setActiveSubWindow(other);
        main->mdiArea->setActiveSubWindow(frame);
        QCOMPARE(selectedText(list), QString());
        QCOMPARE(current(), kBob);
        other->close();
    }

    void theNewCommandOpensItsDialogAndTheListFollows() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        auto* list = openList();
        QTimer::singleShot(0, [] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QTest::keyClicks(dialog->findChild<QLineEdit*>("txtFirst"), "Bob");
            QTest::keyClicks(dialog->findChild<QLineEdit*>("txtLast"), "Jones");
            Button(dialog, "cm3OK")->click();
        });
        list->cm3New->click();
        QVERIFY(list->tmrRefresh->isActive());
        list->tmrRefresh_Timer();
        QCOMPARE(selectedText(list), "Jones, Bob");
        QCOMPARE(current(), kBob);
    }
};

QTEST_MAIN(TestClientList)
#include "test_client_list.moc"
