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

const Client kAnn{QStringLiteral("Smith"), QStringLiteral("Ann")};
const Client kBob{QStringLiteral("Jones"), QStringLiteral("Bob")};
const Client kCyd{QStringLiteral("Young"), QStringLiteral("Cyd")};
const QString kAdministration = QStringLiteral("Administration");
const QString kFileIdentifier = QStringLiteral("File Identifier");
constexpr int kShortLockTimeout = 200;

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
    void init() { dao::SetLockTimeout(kShortLockTimeout); }
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
        typeName(dialog, QStringLiteral("Mary Jane"), QStringLiteral("O'Brien"));
        QCOMPARE(dialog->txtLast->text(), QStringLiteral("O`Brien"));
        dialog->cm3OK->click();

        const Client created{QStringLiteral("O`Brien"), QStringLiteral("Mary Jane")};
        QCOMPARE(slot.TablesHolding(created), ClientTableNames());
        QCOMPARE(slot.FieldOf(kAdministration, created, kFileIdentifier),
                 QStringLiteral("O`Brien, Mary Jane"));
        // Only the name is written; the rest is left to the section screens.
        QCOMPARE(slot.FieldOf(QStringLiteral("Personal"), created, QStringLiteral("Address 1")),
                 slot.FieldOf(QStringLiteral("Personal"), kAnn, QStringLiteral("Address 1")));
        QCOMPARE(current(), created);
        QCOMPARE(services.messages.Count(), 0);
        QVERIFY(!stillOpen<frmNewClient>());
        QVERIFY(HourglassShown());  // until the list's refresh puts it back

        QVERIFY(list->tmrRefresh->isActive());
        QCOMPARE(list->tmrRefresh->interval(), 100);
        list->tmrRefresh_Timer();
        QVERIFY(!list->tmrRefresh->isActive());
        QVERIFY(!HourglassShown());
        QCOMPARE(list->lstClients->currentItem()->text(), QStringLiteral("O`Brien, Mary Jane"));
        QVERIFY(list->lstClients->currentItem()->isSelected());
        QCOMPARE(list->pnlCount->text(), QStringLiteral("2 clients"));
    }

    void duplicateNameIsRefusedButTheSameLastNameIsNot() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        const QList<long> before = slot.RowCounts();
        auto* dialog = openDialog<frmNewClient>();
        // The name index takes no account of case.
        typeName(dialog, QStringLiteral("ann"), QStringLiteral("SMITH"));
        services.messages.Answer(vbOK);
        // While the message waits, another workstation saves at once.
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", slot.DatabasePath()}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({"timeout", "0"}), QStringLiteral("ok"));
        QString peerSaved;
        services.messages.whileShown = [&] {
            for (const QStringList& command :
                 {QStringList{"edit", "Personal", "Smith", "Ann"},
                  QStringList{"set", "Called", "Annie"}, QStringList{"update"}}) {
                peerSaved += peer.Ask(command) + "|";
            }
        };
        dialog->cm3OK->click();
        QCOMPARE(peerSaved, QStringLiteral("ok|ok|ok|"));
        QCOMPARE(services.messages.Last().prompt, QStringLiteral("Duplicate client name."));
        QCOMPARE(services.messages.Last().title, QStringLiteral("New Client"));
        QCOMPARE(services.messages.Last().style, vbExclamation | vbOKOnly);
        QCOMPARE(slot.RowCounts(), before);
        QVERIFY(stillOpen<frmNewClient>());
        QCOMPARE(dialog->txtFirst->text(), QStringLiteral("ann"));
        QVERIFY(!HourglassShown());

        typeName(dialog, QStringLiteral("Bert"), QStringLiteral("Smith"));
        dialog->cm3OK->click();
        QCOMPARE(slot.TablesHolding({QStringLiteral("Smith"), QStringLiteral("Bert")}).size(), 22);
        QCOMPARE(services.messages.Count(), 1);
    }

    void nameBoxesFilterTheirKeys() {
        ScriptedServices services;
        ClientSlot slot({});
        auto* dialog = openDialog<frmNewClient>();
        QTest::keyClicks(dialog->txtFirst, QStringLiteral("Ann, {Jo}'s~"));
        QCOMPARE(dialog->txtFirst->text(), QStringLiteral("Ann, Jo`s"));
        QCOMPARE(services.messages.Beeps(), 0);
        QTest::keyClicks(dialog->txtLast, QStringLiteral("Smith, Jr|'"));
        QCOMPARE(dialog->txtLast->text(), QStringLiteral("Smith Jr`"));
        QCOMPARE(services.messages.Beeps(), 2);  // the comma and the bar

        // Thirty characters go in, the thirty-first doesn't.
        dialog->txtLast->clear();
        QTest::keyClicks(dialog->txtLast, QString(31, QLatin1Char('x')));
        QCOMPARE(dialog->txtLast->text(), QString(30, QLatin1Char('x')));

        // Pasted text is held to the same keys.
        dialog->txtLast->clear();
        QGuiApplication::clipboard()->setText(QStringLiteral("O'Hara, Kate"));
        QTest::keyClick(dialog->txtLast, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(dialog->txtLast->text(), QStringLiteral("O`Hara Kate"));
        QCOMPARE(services.messages.Beeps(), 3);
    }

    void okWantsBothNamesAndBlanksAreAName() {
        ScriptedServices services;
        ClientSlot slot({});
        auto* dialog = openDialog<frmNewClient>();
        QVERIFY(!dialog->cm3OK->isEnabled());
        QTest::keyClicks(dialog->txtLast, QStringLiteral("Smith"));
        QVERIFY(!dialog->cm3OK->isEnabled());
        QTest::keyClicks(dialog->txtFirst, QStringLiteral("  "));
        QVERIFY(dialog->cm3OK->isEnabled());
        dialog->txtLast->clear();
        QVERIFY(!dialog->cm3OK->isEnabled());
        QTest::keyClicks(dialog->txtLast, QStringLiteral("Smith"));
        dialog->cm3OK->click();
        QCOMPARE(slot.TablesHolding({QStringLiteral("Smith"), QStringLiteral("  ")}).size(), 22);
    }

    // A damaged twentieth table fails each operation after nineteen tables
    // have been written: the transaction takes all of them back.
    void failureAtTheTwentiethTableIsRolledBack() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        const QString twentieth = ClientTableNames().at(19);
        slot.DamageTable(twentieth);
        const QList<long> before = slot.RowCounts();

        auto* create = openDialog<frmNewClient>();
        typeName(create, QStringLiteral("Cyd"), QStringLiteral("Young"));
        services.messages.Answer(vbOK);
        create->cm3OK->click();
        QVERIFY(services.messages.Last().prompt.startsWith(QStringLiteral("Error 3000 - ")));
        QVERIFY(services.messages.Last().prompt.contains(QStringLiteral("damaged page")));
        QCOMPARE(slot.TablesHolding(kCyd), QStringList());
        QVERIFY(stillOpen<frmNewClient>());
        UnloadForm(QStringLiteral("frmNewClient"));

        makeCurrent(kAnn);
        auto* rename = openDialog<frmRenameClient>();
        typeName(rename, QStringLiteral("Cyd"), QStringLiteral("Young"));
        services.messages.Answer(vbOK);
        rename->cm3OK->click();
        QCOMPARE(services.messages.Last().title, QStringLiteral("Rename Client"));
        QVERIFY(services.messages.Last().prompt.startsWith(QStringLiteral("Error 3000 - ")));
        QCOMPARE(slot.TablesHolding(kAnn), ClientTableNames());
        QCOMPARE(slot.TablesHolding(kCyd), QStringList());
        QCOMPARE(current(), kAnn);
        UnloadForm(QStringLiteral("frmRenameClient"));

        auto* remove = openDialog<frmDeleteClient>();
        services.messages.Answer(vbOK);
        remove->cm3Yes->click();
        QCOMPARE(services.messages.Last().title, QStringLiteral("Delete Client"));
        QVERIFY(services.messages.Last().prompt.startsWith(QStringLiteral("Error 3000 - ")));
        QCOMPARE(slot.RowCounts(), before);
        QVERIFY(stillOpen<frmDeleteClient>());
        QCOMPARE(current(), kAnn);
        QVERIFY(!HourglassShown());
    }

    void renameRekeysEveryTableAndLeavesSpouseLinks() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        slot.SetField(QStringLiteral("Personal"), kBob, QStringLiteral("Spouse First"),
                      kAnn.second);
        slot.SetField(QStringLiteral("Personal"), kBob, QStringLiteral("Spouse Last"), kAnn.first);
        slot.SetField(kAdministration, kAnn, kFileIdentifier, QStringLiteral("typed by hand"));
        auto* list = LoadForm<frmClients>();
        makeCurrent(kAnn);
        auto* dialog = openDialog<frmRenameClient>();
        QCOMPARE(dialog->txtFirst->text(), kAnn.second);
        QCOMPARE(dialog->txtLast->text(), kAnn.first);
        typeName(dialog, QStringLiteral("Ann"), QStringLiteral("Smith-Brown"));
        dialog->cm3OK->click();

        const Client renamed{QStringLiteral("Smith-Brown"), QStringLiteral("Ann")};
        QCOMPARE(slot.TablesHolding(renamed), ClientTableNames());
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
        QCOMPARE(slot.FieldOf(kAdministration, renamed, kFileIdentifier),
                 QStringLiteral("Smith-Brown, Ann"));
        QCOMPARE(slot.FieldOf(QStringLiteral("Personal"), kBob, QStringLiteral("Spouse Last")),
                 QStringLiteral("Smith"));
        QCOMPARE(current(), renamed);
        QVERIFY(!stillOpen<frmRenameClient>());
        QVERIFY(!HourglassShown());
        list->tmrRefresh_Timer();
        QCOMPARE(list->lstClients->currentItem()->text(), QStringLiteral("Smith-Brown, Ann"));
    }

    void renameOkWantsAChangedName() {
        ScriptedServices services;
        ClientSlot slot({kAnn});
        makeCurrent(kAnn);
        auto* dialog = openDialog<frmRenameClient>();
        QVERIFY(!dialog->cm3OK->isEnabled());
        typeName(dialog, QStringLiteral("ANN"), QStringLiteral("Smith"));
        QVERIFY(dialog->cm3OK->isEnabled());  // a change of case is a change
        typeName(dialog, QStringLiteral("Ann"), QStringLiteral(""));
        QVERIFY(!dialog->cm3OK->isEnabled());
        typeName(dialog, QStringLiteral("Ann"), QStringLiteral("Smith"));
        QVERIFY(!dialog->cm3OK->isEnabled());
        typeName(dialog, QStringLiteral("ANN"), QStringLiteral("Smith"));
        dialog->cm3OK->click();
        QCOMPARE(slot.FieldOf(QStringLiteral("Diary 4"), kAnn, QStringLiteral("First Names")),
                 QStringLiteral("ANN"));
    }

    void renameToAnExistingNameChangesNothing() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        makeCurrent(kAnn);
        auto* dialog = openDialog<frmRenameClient>();
        typeName(dialog, kBob.second, kBob.first);
        services.messages.Answer(vbOK);
        dialog->cm3OK->click();
        QCOMPARE(services.messages.Last().prompt, QStringLiteral("Duplicate client name."));
        QCOMPARE(slot.TablesHolding(kAnn), ClientTableNames());
        QCOMPARE(slot.FieldOf(kAdministration, kBob, kFileIdentifier), QString());
        QVERIFY(stillOpen<frmRenameClient>());
        QCOMPARE(dialog->txtFirst->text(), kBob.second);
    }

    void aClientWithARowMissingCannotBeRenamedButCanBeDeleted() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        slot.RemoveRow(QStringLiteral("Asset 17"), kAnn);
        makeCurrent(kAnn);
        auto* rename = openDialog<frmRenameClient>();
        typeName(rename, QStringLiteral("Ann"), QStringLiteral("Brown"));
        services.messages.Answer(vbOK);
        rename->cm3OK->click();
        QCOMPARE(
            services.messages.Last().prompt,
            QStringLiteral("Unable to rename client - part of the client record not available"));
        QCOMPARE(services.messages.Last().title, QStringLiteral("Ann Smith"));
        QCOMPARE(services.messages.Beeps(), 1);
        QCOMPARE(slot.TablesHolding(kAnn).size(), 21);
        QCOMPARE(slot.TablesHolding({QStringLiteral("Brown"), QStringLiteral("Ann")}),
                 QStringList());
        QVERIFY(stillOpen<frmRenameClient>());
        UnloadForm(QStringLiteral("frmRenameClient"));

        auto* remove = openDialog<frmDeleteClient>();
        QCOMPARE(remove->lblName->text(), QStringLiteral("Ann Smith"));
        remove->cm3Yes->click();
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
        QCOMPARE(slot.TablesHolding(kBob), ClientTableNames());
        QCOMPARE(services.messages.Count(), 1);
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
        QCOMPARE(list->pnlCount->text(), QStringLiteral("2 clients"));
    }

    void deleteToleratesMissingRows() {
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        slot.RemoveRow(QStringLiteral("Diary 3"), kAnn);
        makeCurrent(kAnn);
        openDialog<frmDeleteClient>()->cm3Yes->click();
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
        QCOMPARE(slot.RowCounts(), QList<long>(22, 1));
        QCOMPARE(services.messages.Count(), 0);

        // A client with no row anywhere is a deletion of nothing.
        makeCurrent({QStringLiteral("Nobody"), QStringLiteral("Nemo")});
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
        QVERIFY(services.messages.Last().prompt.contains(QStringLiteral("Error 3021")));
        QCOMPARE(list->lstClients->count(), 0);
        QCOMPARE(list->pnlCount->text(), QStringLiteral("0 clients"));
    }

    // Another user in the middle of an edit of one of the client's rows.
    void aRowHeldByAnotherUserStopsRenameAndDelete_data() {
        QTest::addColumn<QString>("table");
        QTest::newRow("Clients") << QStringLiteral("Clients");
        QTest::newRow("tenth") << ClientTableNames().at(9);
        QTest::newRow("last") << QStringLiteral("Diary 4");
    }
    void aRowHeldByAnotherUserStopsRenameAndDelete() {
        QFETCH(QString, table);
        ScriptedServices services;
        ClientSlot slot({kAnn, kBob});
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({QStringLiteral("open"), slot.DatabasePath()}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({QStringLiteral("edit"), table, kAnn.first, kAnn.second}),
                 QStringLiteral("ok"));

        makeCurrent(kAnn);
        auto* rename = openDialog<frmRenameClient>();
        typeName(rename, QStringLiteral("Ann"), QStringLiteral("Brown"));
        services.messages.Answer(vbOK);
        rename->cm3OK->click();
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("Data update locked by another user."));
        QCOMPARE(services.messages.Last().title, QStringLiteral("Rename Client"));
        QVERIFY(stillOpen<frmRenameClient>());
        UnloadForm(QStringLiteral("frmRenameClient"));

        auto* remove = openDialog<frmDeleteClient>();
        services.messages.Answer(vbOK);
        remove->cm3Yes->click();
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("Data update locked by another user."));
        QCOMPARE(services.messages.Last().title, QStringLiteral("Delete Client"));
        QVERIFY(stillOpen<frmDeleteClient>());
        QCOMPARE(current(), kAnn);

        QCOMPARE(peer.Ask({QStringLiteral("close")}), QStringLiteral("ok"));
        QVERIFY(peer.Quit());
        QCOMPARE(slot.TablesHolding(kAnn), ClientTableNames());
        QCOMPARE(slot.TablesHolding({QStringLiteral("Brown"), QStringLiteral("Ann")}),
                 QStringList());
        QCOMPARE(slot.RowCounts(), QList<long>(22, 2));

        // With the other user gone the same press goes through.
        remove->cm3Yes->click();
        QCOMPARE(slot.TablesHolding(kAnn), QStringList());
    }
};

QTEST_MAIN(TestClientLifecycle)
#include "test_client_lifecycle.moc"
