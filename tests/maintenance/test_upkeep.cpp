// Compact and repair of the client database: the safety file they leave, the
// file they change in place, and a file in use by another workstation left
// exactly as it was.

#include "data/delivered_databases.h"
#include "maintenance/frmCompactWait.h"
#include "maintenance/frmRepairWait.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVariant ClientsIn(const QString& path) {
    return test::SqliteProbe(path, test::SqliteProbe::Access::ReadOnly)
        .Value("SELECT COUNT(*) FROM Clients");
}

// Clicks the confirm screen's button and, when the wait screen comes up, fires
// its timer as the event loop would.
template <typename Confirm>
void Run(const char* button) {
    QTimer::singleShot(0, [] {
        auto* wait = qobject_cast<UpkeepWait*>(QApplication::activeModalWidget());
        if (wait != nullptr) {
            wait->Timer1_Timer();
        }
    });
    Confirm confirm;
    confirm.template findChild<QPushButton*>(QLatin1String(button))->click();
}

}  // namespace

class Upkeep : public QObject {
    Q_OBJECT

private:
    ScriptedServices services_;
    std::unique_ptr<ClientSlot> slot_;

    QString Live() const { return slot_->DatabasePath(); }
    QString Safety() const { return SafetyPath(Live()); }

private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    // A database with room to spare: many clients made and most deleted.
    void init() {
        services_.messages.ClearRecord();
        slot_ = std::make_unique<ClientSlot>(QList<Client>{{"Lovell", "Ada"}});
        QFile::remove(Live());
        MakeSyntheticClientDatabase(Live(), 400);
        test::SqliteProbe file(Live());
        for (const QString& table : file.TableNames()) {
            file.Exec("DELETE FROM " + test::Quoted(table) + " WHERE rowid > 20");
        }
        QFile old(Safety());
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("an older safety file") > 0);
    }
    void cleanup() {
        slot_.reset();
        services_.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // The old file stands in the safety file; the live file is smaller and
    // holds the same clients.
    void compactLeavesTheOldFileBeside() {
        const QByteArray before = Bytes(Live());
        const QVariant clients = ClientsIn(Live());
        Run<frmCompact>("cmdContinue");
        QCOMPARE(services_.messages.Shown().size(), 0);
        QCOMPARE(QFileInfo(Safety()).size(), before.size());  // the old file, spare room and all
        QCOMPARE(ClientsIn(Safety()), clients);
        QVERIFY(QFileInfo(Live()).size() < before.size());
        QCOMPARE(ClientsIn(Live()), clients);
    }

    // For each way a compact or repair is stopped, the reference file holds
    // what is told and what the live and the safety file then hold: a file in
    // use by another workstation, a compact of a damaged file or with no room
    // for its safety copy, a repair of a file past mending (whose copy as it
    // was stays beside it), and a cancel.
    void stoppedUpkeepLeavesTheFiles() {
        const QStringList cases = QStringLiteral(
                                      "compact in use; repair in use; compact damaged; "
                                      "compact without room; repair past mending; compact cancel")
                                      .split("; ");
        QStringList outcomes;
        for (const QString& upkeep : cases) {
            init();
            PeerProcess peer;
            if (upkeep.endsWith("in use")) {
                QVERIFY(peer.Started());
                QCOMPARE(peer.Ask({"open", Live()}), QStringLiteral("ok"));
                QCOMPARE(peer.Ask({"begin"}), QStringLiteral("ok"));
            } else if (upkeep.endsWith("damaged")) {
                QFile live(Live());
                QVERIFY(live.open(QIODevice::ReadWrite) && live.resize(live.size() / 2));
            } else if (upkeep.endsWith("without room")) {
                QFile::remove(Safety());
                QVERIFY(QDir().mkpath(Safety()));  // a folder where the copy should go
            } else if (upkeep.endsWith("past mending")) {
                QFile live(Live());
                QVERIFY(live.open(QIODevice::ReadWrite));
                live.write(QByteArray(100, 'x'));  // no longer a database's header
            }
            const QByteArray live = Bytes(Live());
            const QByteArray safety = Bytes(Safety());
            if (!upkeep.endsWith("cancel")) {
                services_.messages.Answer(vbOK);
            }
            const char* button = upkeep.endsWith("cancel") ? "cmdCancel" : "cmdContinue";
            upkeep.startsWith("compact") ? Run<frmCompact>(button) : Run<frmRepair>(button);
            const ShownMessage told = services_.messages.Last();
            outcomes << QStringLiteral("%1: \"%2\" %3; live file %4; safety file %5")
                            .arg(upkeep, told.prompt.section(':', 0, 2).replace('\n', '|'),
                                 told.title, Bytes(Live()) == live ? "as it was" : "changed",
                                 Bytes(Safety()) == safety ? "as it was"
                                 : Bytes(Safety()) == live ? "the live file as it was"
                                                           : "changed");
            QDir(Safety()).removeRecursively();
            if (peer.Started()) {
                QVERIFY(peer.Quit());
            }
            cleanup();
        }
        QCOMPARE(outcomes, ReferenceLines("upkeep-stopped.txt", outcomes));
    }
};

QTEST_MAIN(Upkeep)
#include "test_upkeep.moc"
