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

    // Another workstation in the middle of its work: nothing changes, and the
    // user is told why.
    void aFileInUseIsLeftAlone_data() {
        QTest::addColumn<bool>("compact");
        QTest::newRow("compact") << true;
        QTest::newRow("repair") << false;
    }
    void aFileInUseIsLeftAlone() {
        QFETCH(bool, compact);
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", Live()}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({"begin"}), QStringLiteral("ok"));
        const QByteArray live = Bytes(Live());
        const QByteArray safety = Bytes(Safety());
        services_.messages.Answer(vbOK);
        compact ? Run<frmCompact>("cmdContinue") : Run<frmRepair>("cmdContinue");
        QVERIFY(peer.Quit());
        QVERIFY(services_.messages.Last().prompt.startsWith(
            "The client database is in use by another user."));
        QCOMPARE(services_.messages.Last().title,
                 compact ? QStringLiteral("Compact database") : QStringLiteral("Repair database"));
        QCOMPARE(Bytes(Live()), live);
        QCOMPARE(Bytes(Safety()), safety);
    }

    // A file past mending is reported in the wait screen's name; the copy of
    // it as it was stays beside it.
    void aFailedRepairLeavesItsCopy() {
        QFile live(Live());
        QVERIFY(live.open(QIODevice::ReadWrite));
        live.write(QByteArray(100, 'x'));  // no longer a database's header
        live.close();
        const QByteArray damaged = Bytes(Live());
        services_.messages.Answer(vbOK);
        Run<frmRepair>("cmdContinue");
        const ShownMessage told = services_.messages.Last();
        QVERIFY(told.prompt.startsWith("Module: frmRepairWait\nProcedure: Timer1_Timer\nError "));
        QCOMPARE(told.title, QStringLiteral("Repair database"));
        QCOMPARE(Bytes(Safety()), damaged);
    }

    // A compact that fails, at a damaged file or at its safety copy, is told
    // and leaves the live file as it was.
    void aFailedCompactLeavesTheLiveFile_data() {
        QTest::addColumn<bool>("damaged");
        QTest::newRow("damaged file") << true;
        QTest::newRow("no room for the safety copy") << false;
    }
    void aFailedCompactLeavesTheLiveFile() {
        QFETCH(bool, damaged);
        if (damaged) {
            QFile live(Live());
            QVERIFY(live.open(QIODevice::ReadWrite) && live.resize(live.size() / 2));
        } else {
            QFile::remove(Safety());
            QVERIFY(QDir().mkpath(Safety()));  // a folder where the copy should go
        }
        const QByteArray live = Bytes(Live());
        services_.messages.Answer(vbOK);
        Run<frmCompact>("cmdContinue");
        QVERIFY(services_.messages.Last().prompt.startsWith("Module: frmCompactWait"));
        QCOMPARE(Bytes(Live()), live);
        QDir(Safety()).removeRecursively();
    }

    // Cancel touches nothing.
    void cancelTouchesNothing() {
        const QByteArray live = Bytes(Live());
        Run<frmCompact>("cmdCancel");
        QCOMPARE(Bytes(Live()), live);
        QCOMPARE(Bytes(Safety()), QByteArray("an older safety file"));
    }
};

QTEST_MAIN(Upkeep)
#include "test_upkeep.moc"
