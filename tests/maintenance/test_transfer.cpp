// The transfer from a first-version database: every client but the list
// filter's row arrives whole in its new tables, the descriptions come from
// the old installation's files, and a cancel or a file in use elsewhere
// leaves the client database byte for byte as it was.

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "maintenance/frmTransferWait.h"
#include "maintenance/version1_transfer.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVariant Value(const QString& path, const QString& sql) {
    return test::SqliteProbe(path, test::SqliteProbe::Access::ReadOnly).Value(sql);
}

}  // namespace

class Transfer : public QObject {
    Q_OBJECT

private:
    ScriptedServices services_;
    QTemporaryDir root_;
    TransferFiles files_;

private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    // The slot folder QUILLON2 and, beside it, the old installation QUILLON
    // with three clients, the list filter's row and the description files.
    void init() {
        services_.messages.ClearRecord();
        const QString slot = root_.filePath("QUILLON2");
        const QString old = root_.filePath("QUILLON");
        QDir(slot).removeRecursively();
        QDir(old).removeRecursively();
        QVERIFY(QDir().mkpath(slot) && QDir().mkpath(old));
        DatabaseFolder[1] = slot;
        SelectedFile = 1;
        files_ = TransferFilesFor(slot);
        QCOMPARE(files_.oldFolder, QDir::toNativeSeparators(old));
        MakeClientDatabase(files_.target);
        MakeVersion1Database(files_.source, 3);
        for (const char* name :
             {"ASSETS.TXT", "ACCOUNTS.TXT", "EVENTS.TXT", "BENEFITS.TXT", "PERSONAL.TXT"}) {
            QFile file(QDir(old).filePath(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            for (int line = 1; line <= 24; ++line) {
                file.write(
                    QStringLiteral("%1 line %2\r\n").arg(QLatin1String(name)).arg(line).toLatin1());
            }
        }
    }
    void cleanup() { services_.messages.CheckAllAnswersUsed(__FILE__, __LINE__); }

    void everyClientArrivesInItsNewPlaces() {
        const QByteArray before = Bytes(files_.target);
        frmTransferWait wait;
        wait.tmrGo_Timer();
        QCOMPARE(services_.messages.Count(), 0);
        for (const QString& table : ClientTableNames()) {
            QCOMPARE(Value(files_.target, "SELECT count(*) FROM [" + table + "]").toInt(), 4);
            QCOMPARE(Value(files_.target,
                           "SELECT count(*) FROM [" + table + "] WHERE [First Names] = 'Filter'")
                         .toInt(),
                     0);
        }
        const auto field = [this](const char* table, const char* name) {
            return Value(files_.target, QStringLiteral("SELECT [%2] FROM [%1] WHERE [First Names] "
                                                       "= 'First 1'")
                                            .arg(QLatin1String(table), QLatin1String(name)))
                .toString();
        };
        QCOMPARE(field("Employment 1", "Employer"), QStringLiteral("1 Employer"));
        QCOMPARE(field("Employment 2", "Indicator 1"), QStringLiteral("1"));  // Benefit 10
        QCOMPARE(field("Administration", "Assistant"), QStringLiteral("1 Clerk"));
        QCOMPARE(field("Contributions", "NG 1"), QStringLiteral("1"));  // the one "SR"
        QCOMPARE(field("Contributions", "Provider 1"), QStringLiteral("1 Provider 0"));
        QCOMPARE(field("Diary 1", "Client Date 20"), QStringLiteral("1 CDate1"));
        QCOMPARE(field("Administration", "File Identifier"),
                 QStringLiteral("Client 00001, First 1"));
        QVERIFY(field("Employment 4", "Employer").isEmpty() && field("User", "Left 1").isEmpty());
        QCOMPARE(Value(files_.target, "SELECT [Text 2] FROM Common WHERE Name = 'Personal'"),
                 QVariant("PERSONAL.TXT line 1"));
        QCOMPARE(Value(files_.target, "SELECT [Text 6] FROM Common WHERE Name = 'Business 2'"),
                 QVariant("ACCOUNTS.TXT line 16"));
        QCOMPARE(Value(files_.safety, "SELECT count(*) FROM Clients").toInt(), 1);
        QCOMPARE(QFileInfo(files_.safety).size(), before.size());
        QVERIFY(!QFile::exists(files_.sourceCopy) && !QFile::exists(files_.targetCopy));
    }

    // A cancel at the first record, or another workstation at work on the
    // file: nothing of the client database changes and no working copy stays.
    void aStoppedTransferChangesNothing_data() {
        QTest::addColumn<bool>("cancelled");
        QTest::newRow("cancelled") << true;
        QTest::newRow("file in use") << false;
    }
    void aStoppedTransferChangesNothing() {
        QFETCH(bool, cancelled);
        const QByteArray before = Bytes(files_.target);
        PeerProcess peer;
        frmTransferWait wait;
        if (cancelled) {
            services_.messages.Answer(vbYes);
            QTimer::singleShot(0, &wait, [&wait] { wait.cm3Cancel->click(); });
        } else {
            QVERIFY(peer.Started());
            QCOMPARE(peer.Ask({"hold", files_.target}), QStringLiteral("ok"));
            services_.messages.Answer(vbOK);
        }
        wait.tmrGo_Timer();
        if (!cancelled) {
            QVERIFY(services_.messages.Last().prompt.startsWith("The client database is in use"));
            QVERIFY(peer.Quit());
        } else {
            QCOMPARE(services_.messages.Last().prompt,
                     QStringLiteral("Do you wish to cancel this operation?"));
        }
        QCOMPARE(Bytes(files_.target), before);
        QVERIFY(!QFile::exists(files_.sourceCopy) && !QFile::exists(files_.targetCopy));
        QVERIFY(!QFile::exists(files_.safety));
    }
};

QTEST_MAIN(Transfer)
#include "test_transfer.moc"
