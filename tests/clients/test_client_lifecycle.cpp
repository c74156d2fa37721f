// New, rename and delete through their dialogs: the 22 rows of a client made,
// rekeyed and removed together, the key filters of the name boxes, and what a
// failure anywhere in the tables leaves behind.

#include "clients/client_dialogs_gui.h"
#include "clients/frmClients.h"
#include "clients/frmDeleteClient.h"
#include "clients/frmNewClient.h"
#include "clients/frmRenameClient.h"
#include "data/database_schema.h"
#include "platform/dao.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

const Client kAnn{"Smith", "Ann"};
const Client kBob{"Jones", "Bob"};
const Client kCyd{"Young", "Cyd"};

void makeCurrent(const Client& client) {
    CurrentLast = client.first;
    CurrentFirst = client.second;
}

Client current() {
    return {CurrentLast, CurrentFirst};
}

template <typename Dialog>
Dialog* openDialog() {
    FlushUnloadedForms();  // a dialog closed earlier is gone, as after its modal run
    auto* dialog = LoadForm<Dialog>();
    dialog->show();
    return dialog;
}

void typeName(ClientNameDialog* dialog, const QString& first, const QString& last) {
    dialog->txtFirst->clear();
    dialog->txtLast->clear();
    QTest::keyClicks(dialog->txtFirst, first);
    QTest::keyClicks(dialog->txtLast, last);
}

// The dialog, if it is still loaded once closed forms are gone.
template <typename Dialog>
bool stillOpen() {
    FlushUnloadedForms();
    return LoadedForm<Dialog>() != nullptr;
}

}  // namespace

class TestClientLifecycle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    void init() { dao::SetLockTimeout(200); }
    void cleanup() {
        for (const char* name :
             {"frmNewClient", "frmRenameClient", "frmDeleteClient", "frmClients"}) {
            UnloadForm(QString::fromLatin1(name));
        }
        FlushUnloadedForms();
        SetDefaultPointer();
        dao::SetLockTimeout(1000);
    }

    void newClientIsWrittenToEveryTableAndListedAsCurrent() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        auto* list = LoadForm<frmClients>();
        auto* dialog = openDialog<frmNewClient>();
        typeName(dialog, "Mary Jane", "O'Brien");
        QCOMPARE(dialog->txtLast->text(), "O`Brien");
        dialog->cm3OK->click();
        const Client created{"O`Brien", "Mary Jane"};
        QCOMPARE(slot.TablesHolding(created), ClientTableNames());
        QCOMPARE(slot.FieldOf("Administration", created, "File Identifier"), "O`Brien, Mary Jane");
        // Only the name is written; the rest is left to the section screens.
        QCOMPARE(slot.FieldOf("Personal", created, "Address 1"),
                 slot.FieldOf("Personal", kAnn, "Address 1"));
        QCOMPARE(current(), created);
        QCOMPARE(services.messages.Count(), 0);
        QVERIFY(!stillOpen<frmNewClient>());
        QVERIFY(HourglassShown());  // until the list's refresh puts it back
        QVERIFY(list->tmrRefresh->isActive());
        QCOMPARE(list->tmrRefresh->interval(), 100);
        list->tmrRefresh_Timer();
        QVERIFY(!list->tmrRefresh->isActive());
        QVERIFY(!HourglassShown());
        QCOMPARE(list->lstClients->currentItem()->text(), "O`Brien, Mary Jane");
        QVERIFY(list->lstClients->currentItem()->isSelected());
        QCOMPARE(list->pnlCount->text(), "2 clients");
    }

    // Refused keys beep; thirty characters go in, the thirty-first doesn't;
    // pasted text is held to the same keys.
    void nameBoxesFilterTheirKeys() {
        ScriptedServices services;
        ClientSlot slot({});
        auto* dialog = openDialog<frmNewClient>();
        QTest::keyClicks(dialog->txtFirst, "Ann, {Jo}'s~");
        QCOMPARE(dialog->txtFirst->text(), "Ann, Jo`s");
        QCOMPARE(services.messages.Beeps(), 0);
        QTest::keyClicks(dialog->txtLast, "Smith, Jr|'");
        QCOMPARE(dialog->txtLast->text(), "Smith Jr`");
        QCOMPARE(services.messages.Beeps(), 2);  // the comma and the bar
        dialog->txtLast->clear();
        QTest::keyClicks(dialog->txtLast, QString(31, 'x'));
        QCOMPARE(dialog->txtLast->text(), QString(30, 'x'));
        dialog->txtLast->clear();
        QGuiApplication::clipboard()->setText("O'Hara, Kate");
        QTest::keyClick(dialog->txtLast, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(dialog->txtLast->text(), "O`Hara Kate");
        QCOMPARE(services.messages.Beeps(), 3);
    }

    // OK wants both names, blanks being a name, and for a rename a name that
    // differs, if only in case.
    void okWantsTwoNamesAndAChange() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        makeCurrent(kAnn);
        auto* create = openDialog<frmNewClient>();
        auto* rename = openDialog<frmRenameClient>();
        QVERIFY(!create->cm3OK->isEnabled() && !rename->cm3OK->isEnabled());
        for (const auto& [first, last, createOK, renameOK] : {std::tuple{"", "Smith", false, false},
                                                              {"  ", "Smith", true, true},
                                                              {"ANN", "Smith", true, true},
                                                              {"Ann", "", false, false},
                                                              {"Ann", "Smith", true, false}}) {
            typeName(create, first, last);
            typeName(rename, first, last);
            QCOMPARE(create->cm3OK->isEnabled(), createOK);
            QCOMPARE(rename->cm3OK->isEnabled(), renameOK);
        }
        typeName(rename, "ANN", "Smith");
        rename->cm3OK->click();
        QCOMPARE(slot.FieldOf("Diary 4", {"Smith", "ANN"}, "First Names"), "ANN");
        typeName(create, "  ", "Smith");
        create->cm3OK->click();
        QCOMPARE(slot.TablesHolding({"Smith", "  "}).size(), 22);
    }

    void renameRekeysEveryTableAndLeavesSpouseLinks() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        slot.SetField("Personal", kBob, "Spouse First", kAnn.second);
        slot.SetField("Personal", kBob, "Spouse Last", kAnn.first);
        slot.SetField("Administration", kAnn, "File Identifier", "typed by hand");
        auto* list = LoadForm<frmClients>();
        makeCurrent(kAnn);
        auto* dialog = openDialog<frmRenameClient>();
        QCOMPARE(dialog->txtFirst->text() + "|" + dialog->txtLast->text(), "Ann|Smith");
        typeName(dialog, "Ann", "Smith-Brown");
        dialog->cm3OK->click();
        const Client renamed{"Smith-Brown", "Ann"};
        QCOMPARE(slot.TablesHolding(renamed), ClientTableNames());
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
        QCOMPARE(slot.FieldOf("Administration", renamed, "File Identifier"), "Smith-Brown, Ann");
        QCOMPARE(slot.FieldOf("Personal", kBob, "Spouse Last"), "Smith");
        QCOMPARE(current(), renamed);
        QVERIFY(!stillOpen<frmRenameClient>());
        QVERIFY(!HourglassShown());
        list->tmrRefresh_Timer();
        QCOMPARE(list->lstClients->currentItem()->text(), "Smith-Brown, Ann");
    }

    // For each operation on Smith, Ann (with Jones, Bob beside her), in a
    // database where something stands in its way, the reference file holds
    // what is told, what the tables then hold, and what the same press does
    // once the other user has saved. The message is up while nothing is
    // locked: the other user saves meanwhile. A duplicate takes no account of
    // case; a failure at the twentieth of the 22 tables is rolled back whole;
    // a client with a row missing can't be renamed but can be deleted.
    void refusalsLeaveEveryTableAsItWas() {
        const QStringList cases =
            QStringLiteral(
                "new ann SMITH; rename Bob Jones; new Cyd Young damaged; rename Cyd Young damaged; "
                "delete damaged; rename Ann Brown missing; delete missing; "
                "rename Ann Brown held Clients; rename Ann Brown held Business 3; "
                "rename Ann Brown held Diary 4; delete held Clients; delete held Business 3; "
                "delete held Diary 4")
                .split("; ");
        QStringList outcomes;
        for (const QString& operation : cases) {
            ScriptedServices services;
            ClientSlot slot({kAnn, kBob});
            const QStringList words = operation.split(' ');
            const QString situation = words.value(words[0] == "delete" ? 1 : 3);
            if (situation == "damaged") {
                slot.DamageTable(ClientTableNames().at(19));
            } else if (situation == "missing") {
                slot.RemoveRow("Asset 17", kAnn);
            }
            PeerProcess peer;
            QVERIFY(peer.Started());
            QCOMPARE(peer.Ask({"open", slot.DatabasePath()}), "ok");
            QCOMPARE(peer.Ask({"timeout", "0"}), "ok");
            QList<QStringList> steps{{"edit", "Personal", "Jones", "Bob"}, {"update"}};
            if (situation == "held") {
                const QString table = operation.section(" held ", 1);
                QCOMPARE(peer.Ask({"edit", table, kAnn.first, kAnn.second}), "ok");
                steps = {{"update"}, {"close"}};
            }
            QString saved;
            services.messages.whileShown = [&] {
                for (const QStringList& step : std::as_const(steps)) {
                    saved += peer.Ask(step) + ";";
                }
            };
            makeCurrent(kAnn);
            QDialog* dialog = openDialog<frmDeleteClient>();
            if (words[0] != "delete") {
                UnloadForm(dialog->objectName());
                dialog = words[0] == "new" ? static_cast<QDialog*>(openDialog<frmNewClient>())
                                           : openDialog<frmRenameClient>();
            }
            if (auto* named = qobject_cast<ClientNameDialog*>(dialog)) {
                typeName(named, words[1], words[2]);
            }
            const Client typed = words[0] == "delete" ? kCyd : Client{words[2], words[1]};
            QString outcome = operation + ":";
            for (int press = 0; press < 2; ++press) {
                const bool refused = press == 0 && operation != "delete missing";
                if (refused) {
                    services.messages.Answer(vbOK);
                }
                Button(dialog, words[0] == "delete" ? "cm3Yes" : "cm3OK")->click();
                const auto* named = qobject_cast<ClientNameDialog*>(dialog);
                outcome +=
                    QStringLiteral(
                        " \"%1\" %2 %3, %4 beeps; saved meanwhile %5 %6 open%7; "
                        "current %8, %9; Ann %10, Bob %11 (\"%12\"), typed %13;")
                        .arg(services.messages.Last().prompt.replace(slot.DatabasePath(), "<file>"),
                             services.messages.Last().title)
                        .arg(services.messages.Last().style)
                        .arg(services.messages.Beeps())
                        .arg(saved, dialog->isVisible() ? "still" : "not",
                             named
                                 ? " with " + named->txtFirst->text() + " " + named->txtLast->text()
                                 : "")
                        .arg(CurrentLast, CurrentFirst)
                        .arg(slot.TablesHolding(kAnn).size())
                        .arg(slot.TablesHolding(kBob).size())
                        .arg(slot.FieldOf("Administration", kBob, "File Identifier"))
                        .arg(slot.TablesHolding(typed).size());
                QVERIFY(!HourglassShown());
                if (!refused || situation != "held") {
                    break;
                }
                outcome += " again:";
                services.messages.ClearRecord();
                saved.clear();
            }
            outcomes << outcome;
            UnloadForm(dialog->objectName());
            QVERIFY(peer.Quit());
        }
        QCOMPARE(outcomes, ReferenceLines("client-refusals.txt", outcomes));
    }

    void deleteMakesTheFollowingClientCurrent_data() {
        QTest::addColumn<Client>("deleted");
        QTest::addColumn<Client>("following");
        QTest::newRow("middle") << kAnn << kCyd;
        QTest::newRow("last") << kCyd << kAnn;
        QTest::newRow("first") << kBob << kAnn;
    }
    void deleteMakesTheFollowingClientCurrent() {
        QFETCH(Client, deleted);
        QFETCH(Client, following);
        ScriptedServices services;
        ClientSlot slot({kCyd, kAnn, kBob});
        auto* list = LoadForm<frmClients>();
        makeCurrent(deleted);
        auto* dialog = openDialog<frmDeleteClient>();
        dialog->cm3Yes->click();
        QCOMPARE(slot.TablesHolding(deleted), QStringList());
        QCOMPARE(slot.RowCounts(), QList<long>(22, 2));
        QCOMPARE(current(), following);
        QVERIFY(!stillOpen<frmDeleteClient>());
        QVERIFY(list->tmrRefresh->isActive());
        list->tmrRefresh_Timer();
        QCOMPARE(list->pnlCount->text(), "2 clients");
    }

    // A client with no row anywhere is a deletion of nothing.
    void deleteToleratesMissingRows() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        slot.RemoveRow("Diary 3", kAnn);
        makeCurrent(kAnn);
        openDialog<frmDeleteClient>()->cm3Yes->click();
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
        QCOMPARE(slot.RowCounts(), QList<long>(22, 1));
        makeCurrent({"Nobody", "Nemo"});
        openDialog<frmDeleteClient>()->cm3Yes->click();
        QCOMPARE(slot.RowCounts(), QList<long>(22, 1));
        QCOMPARE(services.messages.Count(), 0);
    }

    // The deletion is saved, so no failure is told; the list, which can't read
    // an empty table, then shows no client rather than the one gone.
    void deletingTheOnlyClientEmptiesTheTables() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        auto* list = LoadForm<frmClients>();
        QCOMPARE(list->lstClients->count(), 1);
        makeCurrent(kAnn);
        openDialog<frmDeleteClient>()->cm3Yes->click();
        QCOMPARE(slot.RowCounts(), QList<long>(22, 0));
        QCOMPARE(services.messages.Count(), 0);
        QVERIFY(!stillOpen<frmDeleteClient>());
        QVERIFY(CurrentFirst.isEmpty() && CurrentLast.isEmpty());
        services.messages.Answer(vbOK);
        list->tmrRefresh_Timer();
        QVERIFY(services.messages.Last().prompt.contains("Error 3021"));
        QCOMPARE(list->lstClients->count(), 0);
        QCOMPARE(list->pnlCount->text(), "0 clients");
    }
};

QTEST_MAIN(TestClientLifecycle)
#include "test_client_lifecycle.moc"
