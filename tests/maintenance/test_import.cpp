// Importing clients from another client database: whole clients copied, the
// source untouched, a duplicate or a failure half way leaving no part of its
// client behind, and the files that are refused.

#include "clients/client_lifecycle.h"
#include "data/delivered_databases.h"
#include "maintenance/frmImport.h"
#include "maintenance/frmImportWarning.h"
#include "maintenance/maintenance_state.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/client_slot.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QFile>
#include <QListWidget>
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

class Import : public QObject {
    Q_OBJECT

private:
    ScriptedServices services_;
    QTemporaryDir sources_;
    QString source_;

    // A source database holding the delivered sample and these clients.
    void MakeSource(const QList<ClientName>& clients) {
        source_ = sources_.filePath("QUILL020.MDB");
        QFile::remove(source_);
        MakeClientDatabase(source_);
        ClientTables tables;
        tables.Open(source_);
        for (const ClientName& client : clients) {
            AddClientRows(tables, client);
        }
        tables.Close();
        ImportSourcePath = source_;
    }

    void ImportAll(frmImport& form) {
        form.cmdAll->click();
        form.cmdImport->click();
    }

private Q_SLOTS:
    void initTestCase() {
        PrepareShellTests();
        RegisterForm("frmClients", [] { return new QWidget; });
    }
    void init() { services_.messages.ClearRecord(); }
    void cleanup() {
        services_.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        services_.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // A name holding ", " is found; the fields come across, Null as empty;
    // the file identifier follows the name; a name already there is refused
    // whole, and a client that fails at its last table leaves none of its
    // rows; the source is only read.
    void wholeClientsComeAcross() {
        ClientSlot target(QList<Client>{{"Lovell", "Ada"}});
        MakeSource({{"Ann", "Smith, Jr"}, {"Ada", "Lovell"}, {"Bea", "Long"}});
        test::SqliteProbe source(source_);
        QVERIFY(
            source.Exec("UPDATE Personal SET [Full Name] = 'Ann Smith', Sex = 2 "
                        "WHERE [First Names] = 'Ann'"));
        QVERIFY(source.Exec("UPDATE [Business 1] SET Notes = NULL"));
        QVERIFY(source.Exec("UPDATE [Diary 4] SET [Client Event 1] = '" + QString(60, 'x') +
                            "' WHERE [Last Name] = 'Long'"));
        const QByteArray before = Bytes(source_);
        frmImport form;
        QCOMPARE(form.lstClients->count(), 4);
        for (int told = 0; told < 3; ++told) {  // the duplicate, the failure, done
            services_.messages.Answer(vbOK);
        }
        ImportAll(form);
        QCOMPARE(services_.messages.Count(), 3);
        QStringList told{services_.messages.Shown().at(0).prompt,
                         services_.messages.Shown().at(1).prompt};
        told.sort();
        QCOMPARE(told.first(), QStringLiteral("Duplicate client name."));
        QVERIFY(told.last().startsWith("Error "));
        QCOMPARE(services_.messages.Last().prompt, QStringLiteral("Import complete"));
        const Client ann{"Smith, Jr", "Ann"};
        QCOMPARE(target.TablesHolding(ann).size(), 22);
        QCOMPARE(target.TablesHolding({"Lovell", "Ada"}).size(), 22);  // not a row more
        QVERIFY(target.TablesHolding({"Long", "Bea"}).isEmpty());
        QCOMPARE(target.TablesHolding({"Sample", "A."}).size(), 22);
        QCOMPARE(target.FieldOf("Personal", ann, "Full Name"), QStringLiteral("Ann Smith"));
        QCOMPARE(target.FieldOf("Business 1", ann, "Notes"), QString());
        QCOMPARE(target.FieldOf("Administration", ann, "File Identifier"),
                 QStringLiteral("Smith, Jr, Ann"));
        QCOMPARE(Bytes(source_), before);

        // A target that is gone ends the import, told as the screen's failure.
        QVERIFY(QFile::rename(target.DatabasePath(), target.DatabasePath() + ".away"));
        frmImport again;
        services_.messages.Answer(vbOK);
        ImportAll(again);
        QVERIFY(QFile::rename(target.DatabasePath() + ".away", target.DatabasePath()));
        QVERIFY(services_.messages.Last().prompt.startsWith(
            "Module: frmImport\nProcedure: cmdImport\nError 3024: "));
        QCOMPARE(services_.messages.Last().title, QStringLiteral("Quillon"));
    }

    // A process killed while it imports leaves whole clients only.
    void aKilledImportLeavesWholeClientsOnly() {
        ClientSlot target(QList<Client>{{"Lovell", "Ada"}});
        source_ = sources_.filePath("QUILL020.MDB");
        QFile::remove(source_);
        MakeSyntheticClientDatabase(source_, 300);
        PeerProcess peer;
        QVERIFY(peer.Started());
        QVERIFY(peer.Ask({"import", target.DatabasePath(), source_}).startsWith("imported"));
        for (int n = 2; n <= 5; ++n) {
            QVERIFY(peer.Answer().startsWith("imported"));
        }
        QVERIFY(peer.Kill());
        const QList<long> counts = target.RowCounts();
        QVERIFY(counts.first() > 5 && counts.first() < 302);
        QCOMPARE(counts, QList<long>(22, counts.first()));
    }

    // Only a file named as a client database is taken; a file that is not a
    // database says so, and an empty one offers nothing to select.
    void sourcesThatAreRefused() {
        ClientSlot target(QList<Client>{{"Lovell", "Ada"}});
        frmImportWarning warning;
        services_.fileDialogs.Answer(sources_.filePath("clients.mdb"));
        services_.messages.Answer(vbOK);
        warning.cmdContinue->click();
        QCOMPARE(services_.messages.Last().prompt,
                 QStringLiteral("You must select a Quillon database file QUILL020.MDB"));
        QFile junk(sources_.filePath("QUILL020.MDB"));
        QVERIFY(junk.open(QIODevice::WriteOnly) && junk.write("not a database") > 0);
        junk.close();
        ImportSourcePath = junk.fileName();
        services_.messages.Answer(vbOK);
        frmImport form;
        QCOMPARE(services_.messages.Last().prompt, "Unable to open file:\n" + ImportSourcePath);
        QVERIFY(!form.cmdAll->isEnabled() && !form.cmdImport->isEnabled());
    }
};

QTEST_MAIN(Import)
#include "test_import.moc"
