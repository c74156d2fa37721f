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

    // For each file chosen ("" cancels; "<source>" is the database itself)
    // and answer to the replace question, the reference file holds the
    // message told and whether the file chosen holds the copy. The database
    // is never touched and no partial copy stays.
    void eachAnswerEndsAsTold() {
        const std::pair<const char*, int> cases[] = {
            {"copy.mdb", 0}, {"copy", 0},          {"old.mdb", vbNo}, {"old.mdb", vbYes},
            {"", 0},         {"none/copy.mdb", 0}, {"<source>", 0}};
        QStringList outcomes;
        for (const auto& [chosen, replace] : cases) {
            ClientSlot slot(QList<Client>{{"Lovell", "Ada"}});
            QFile::remove(targets_.filePath("copy.mdb"));
            QFile old(targets_.filePath("old.mdb"));
            QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
            old.close();
            const QString name = QString::fromLatin1(chosen);
            const QString path = name == "<source>" ? slot.DatabasePath()
                                 : name.isEmpty()   ? QString()
                                                    : targets_.filePath(name);
            services_.fileDialogs.Answer(path);
            if (replace != 0) {
                services_.messages.Answer(replace);
            }
            if (name != "<source>") {
                services_.messages.Answer(vbOK);
            }
            const QByteArray source = Bytes(slot.DatabasePath());
            frmBackup form;
            QCOMPARE(form.lblSource->text(), ClientDatabasePath());
            form.cmdSave->click();
            QCOMPARE(services_.fileDialogs.Shown().last().folder,
                     slot.DatabasePath().chopped(4) + "-2015-06-15");
            const QString written = path.endsWith("copy") ? path + ".mdb" : path;
            const bool copied = test::SqliteProbe(written, test::SqliteProbe::Access::ReadOnly)
                                    .Value("SELECT [Last Name] FROM Clients") == "Lovell";
            outcomes << QStringLiteral("\"%1\", answer %2: \"%3\"; %4")
                            .arg(name)
                            .arg(replace)
                            .arg(services_.messages.Count()
                                     ? services_.messages.Last().prompt.section('\n', 0, 0)
                                     : "",
                                 copied ? "copied" : "not copied");
            services_.messages.ClearRecord();
            QCOMPARE(Bytes(slot.DatabasePath()), source);
            QVERIFY(LoadedForm("frmQuillon")->isVisible());
            UnloadForm("frmQuillon");
            QVERIFY(!QFileInfo::exists(written + ".partial"));
        }
        QCOMPARE(outcomes, ReferenceLines("backup-answers.txt", outcomes));
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
