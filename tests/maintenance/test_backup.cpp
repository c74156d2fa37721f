// The backup screen: the name it offers, what each answer to its questions
// leaves, and a copy taken while another workstation writes that opens,
// passes the integrity check and holds whole clients only.

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "maintenance/frmBackup.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class Backup : public QObject {
    Q_OBJECT

private:
    ScriptedServices services_;
    QTemporaryDir targets_;

private Q_SLOTS:
    // The main window that the screen brings up when it ends stands in plain.
    void initTestCase() {
        PrepareShellTests();
        RegisterForm("frmQuillon", [] { return new QWidget; });
    }
    void init() { services_.messages.ClearRecord(); }
    void cleanup() {
        services_.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        services_.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // For each answer: the message told and whether the file holds the copy.
    void eachAnswerEndsAsTold_data() {
        QTest::addColumn<QString>("chosen");  // "" cancels; "<source>" the database
        QTest::addColumn<int>("replace");     // the answer to the replace question
        QTest::addColumn<QString>("told");
        QTest::addColumn<bool>("copied");
        const QString saved =
            "A backup copy of your client database has been saved in the "
            "following file:\n\n";
        const QString notSaved = "The client database backup file was not saved";
        QTest::newRow("new file") << "copy.mdb" << 0 << saved << true;
        QTest::newRow("no extension") << "copy" << 0 << saved << true;
        QTest::newRow("existing, kept") << "old.mdb" << int(vbNo) << notSaved << false;
        QTest::newRow("existing, replaced") << "old.mdb" << int(vbYes) << saved << true;
        QTest::newRow("cancelled") << "" << 0 << notSaved << false;
        QTest::newRow("folder missing") << "none/copy.mdb" << 0 << notSaved << false;
        QTest::newRow("the database itself") << "<source>" << 0 << "" << false;
    }
    void eachAnswerEndsAsTold() {
        QFETCH(QString, chosen);
        QFETCH(int, replace);
        QFETCH(QString, told);
        QFETCH(bool, copied);
        ClientSlot slot(QList<Client>{{"Lovell", "Ada"}});
        QFile::remove(targets_.filePath("copy.mdb"));
        QFile old(targets_.filePath("old.mdb"));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
        old.close();
        const QString path = chosen == "<source>" ? slot.DatabasePath()
                             : chosen.isEmpty()   ? QString()
                                                  : targets_.filePath(chosen);
        services_.fileDialogs.Answer(path);
        for (const int answer : {replace, told.isEmpty() ? 0 : int(vbOK)}) {
            if (answer != 0) {
                services_.messages.Answer(answer);
            }
        }
        const QByteArray source = Bytes(slot.DatabasePath());
        frmBackup form;
        QCOMPARE(form.lblSource->text(), ClientDatabasePath());
        form.cmdSave->click();
        QCOMPARE(services_.fileDialogs.Shown().last().folder,
                 slot.DatabasePath().chopped(4) + "-2015-06-15");
        const QList<ShownMessage>& shown = services_.messages.Shown();
        QVERIFY(told.isEmpty() ? shown.isEmpty() : shown.last().prompt.startsWith(told));
        const QString written = path.endsWith("copy") ? path + ".mdb" : path;
        QCOMPARE(test::SqliteProbe(written, test::SqliteProbe::Access::ReadOnly)
                         .Value("SELECT [Last Name] FROM Clients") == "Lovell",
                 copied || chosen == "<source>");
        QCOMPARE(Bytes(slot.DatabasePath()), source);
        QVERIFY(LoadedForm("frmQuillon")->isVisible());
        UnloadForm("frmQuillon");
        QVERIFY(!QFileInfo::exists(written + ".partial"));
    }

    // While a second workstation commits client after client, the copy is of
    // one moment: it opens, passes the check, and every table has as many
    // rows as the client list.
    void aCopyTakenWhileAnotherWorkstationWrites() {
        ClientSlot slot(QList<Client>{{"Lovell", "Ada"}});
        // Large enough that a plain copy of the file takes longer than a commit.
        QFile::remove(slot.DatabasePath());
        MakeSyntheticClientDatabase(slot.DatabasePath(), 3000);
        {  // the peer adds a client to every table it finds
            test::SqliteProbe file(slot.DatabasePath());
            QVERIFY2(file.Exec("DROP TABLE Common") && file.Exec("DROP TABLE IF EXISTS Version"),
                     qPrintable(file.LastError()));
        }
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", slot.DatabasePath()}), QStringLiteral("ok"));
        QCOMPARE(peer.Ask({"churn"}), QStringLiteral("committed 1"));
        const QString target = targets_.filePath("busy.mdb");
        services_.fileDialogs.Answer(target);
        services_.messages.Answer(vbOK);
        frmBackup form;
        form.cmdSave->click();
        QVERIFY(peer.Kill());
        QVERIFY(services_.messages.Last().prompt.endsWith(target));
        test::SqliteProbe copy(target, test::SqliteProbe::Access::ReadOnly);
        QCOMPARE(copy.Value("PRAGMA integrity_check"), QVariant("ok"));
        const QVariant clients = copy.Value("SELECT COUNT(*) FROM Clients");
        QVERIFY(clients.toInt() > 3000);
        for (const QString& table : ClientTableNames()) {
            QCOMPARE(copy.Value("SELECT COUNT(*) FROM " + test::Quoted(table)), clients);
        }
    }
};

QTEST_MAIN(Backup)
#include "test_backup.moc"
