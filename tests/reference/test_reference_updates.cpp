// Bringing the working reference files up to the delivered ones: the question
// and when it is asked, the tax offices replaced whole, the dividends merged
// keeping the user's own shares, and a file that another workstation holds or
// a merge that fails left exactly as it was.
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "reference/frmOffices.h"
#include "reference/reference_files.h"
#include "reference/reference_updates.h"
#include "shell/forms_gui.h"
#include "shell/program_folder.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/reference_testing.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <optional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QString kOfficeQuestion = QStringLiteral(
    "An updated version of the Tax Offices Database is available.\n\nIf you have modified the "
    "existing version of the Tax Offices Database you may want to retain that version.\nOtherwise, "
    "you should update to the new version.\n\nDo you want to update to the new version?");
const QStringList kShareFields = {"Company", "Stock", "FID", "Number 1", "Date 1", "Issued"};

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Working() {
    return DividendDatabasePath(2015);
}

// The user's file: the delivered shares, a payment typed over a published
// one, and a share of the user's own with its payment.
void PrepareUsersShares() {
    dao::OpenDatabase(Working()).Execute(
        "UPDATE Dividends SET [Number 1] = '10' WHERE Company = 'BP PLC'; INSERT INTO Dividends "
        "(Company, Stock, FID, [Number 1], [Date 1]) VALUES ('Own', 'Ord', 0, '250', '01/07/14')");
}

// A newer delivered file of `count` shares; with `clash` its 14th share is one
// the user has added as well.
void DeliverShares(int count, bool clash = false) {
    QVERIFY(QFile::remove(DefaultDividendPath()));
    MakeSyntheticDividendDatabase(DefaultDividendPath(), count);
    SetVersion(DefaultDividendPath(), "2016.0");
    if (clash) {
        dao::OpenDatabase(Working()).Execute(
            "INSERT INTO Dividends (Company, Stock, FID) VALUES "
            "('Oakhanger Sample Company 0013', 'Ordinary 25p', 0)");
    }
}

}  // namespace

class TestReferenceUpdates : public QObject {
    Q_OBJECT

private:
    std::optional<ScriptedServices> services_;
    std::optional<SectionWorld> world_;

private Q_SLOTS:
    void init() {
        services_.emplace();
        world_.emplace(QList<ClientName>{kAda});
        TaxOfficesUpdate = true;
        dao::SetLockTimeout(100);
    }
    void cleanup() {
        world_.reset();
        services_.reset();
        dao::SetLockTimeout(1000);
    }

    // Only a working file older than the delivered one is offered it; one
    // whose version can't be read counts as the oldest.
    void onlyAnOlderFileIsOfferedTheUpdate_data() {
        QTest::addColumn<QString>("version");
        QTest::addColumn<bool>("asked");
        QTest::newRow("no version table") << "" << true;
        QTest::newRow("older") << "2001.0" << true;
        QTest::newRow("equal") << "2015.0" << false;
    }
    void onlyAnOlderFileIsOfferedTheUpdate() {
        QFETCH(QString, version);
        QFETCH(bool, asked);
        if (version.isEmpty()) {
            dao::OpenDatabase(OfficeDatabasePath()).Execute("DROP TABLE Version");
        } else {
            SetVersion(OfficeDatabasePath(), version);
        }
        if (asked) {
            services_->messages.Answer(vbNo);
        }
        UpdateOfficeDatabase();
        QCOMPARE(services_->messages.Last().prompt, asked ? kOfficeQuestion : QString());
        QCOMPARE(services_->messages.Last().title, asked ? u"Update Tax Offices Database"_qs : "");
    }

    // No keeps the user's file, and the question comes at every opening of
    // the tax offices until Yes replaces the file with the delivered one.
    void theQuestionComesAgainAfterNo() {
        SetVersion(OfficeDatabasePath(), "2000.0");
        dao::OpenDatabase(OfficeDatabasePath())
            .Execute("INSERT INTO [Tax Offices] (Number, Name) VALUES ('555', 'Mine')");
        for (int opening = 1; opening <= 2; ++opening) {
            services_->messages.Answer(vbNo);
            Trigger("cm3Offices");
            QCOMPARE(services_->messages.Count(), opening);
            QVERIFY(Entries(LoadedForm<frmOffices>()->lstOffices).contains("Mine (555)"));
            QVERIFY(UnloadForm("frmOffices"));
        }
        services_->messages.Answer(vbYes);
        services_->messages.Answer(vbOK);
        Trigger("cm3Offices");
        QCOMPARE(services_->messages.Last().prompt,
                 u"The Tax Offices Database has been updated"_qs);
        QCOMPARE(services_->messages.Last().style, int(vbInformation));
        for (const auto& [table, fields] :
             {std::pair{u"Tax Offices"_qs, QStringList{"Number", "Name", "Address 1", "Postcode"}},
              std::pair{u"Version"_qs, QStringList{"Version"}}}) {
            QCOMPARE(Lines(OfficeDatabasePath(), table, fields),
                     Lines(DefaultOfficePath(), table, fields));
        }
        QVERIFY(UnloadForm("frmOffices"));
        Trigger("cm3Offices");
        QCOMPARE(services_->messages.Count(), 4);
    }

    // A merge takes every published share from the new file and keeps the
    // user's own with its payments; what the user typed over a published
    // share goes with it. The earlier years are never touched.
    void theMergeKeepsTheUsersOwnShares() {
        MakeDividendDatabase(DividendDatabasePath(2014));
        const QByteArray earlier = Bytes(DividendDatabasePath(2014));
        PrepareUsersShares();
        DeliverShares(2000);
        services_->messages.Answer(vbYes);
        services_->messages.Answer(vbOK);
        CheckDividendUpdate();
        QCOMPARE(services_->messages.Last().prompt, u"The Dividends Database has been updated"_qs);
        QCOMPARE(Lines(Working(), "Dividends", kShareFields),
                 QStringList{"Own|Ord|false|250|01/07/14|~"} +
                     Lines(DefaultDividendPath(), "Dividends", kShareFields));
        QCOMPARE(ReadDividendVersion(2015), u"2016.0"_qs);
        QCOMPARE(Bytes(DividendDatabasePath(2014)), earlier);
    }

    // A share of the user's that the new file publishes too stops the merge
    // part way: the file stays as it was, and the update is offered again.
    void aMergeThatFailsLeavesTheFileAsItWas() {
        PrepareUsersShares();
        DeliverShares(40, true);
        const QStringList before = Lines(Working(), "Dividends", PublishedShareFields());
        services_->messages.Answer(vbYes);
        services_->messages.Answer(vbOK);
        CheckDividendUpdate();
        QVERIFY(services_->messages.Last().prompt.startsWith(
            "Module: DataAccess\nProcedure: UpdateDividendDatabase\nError 3022: "));
        QCOMPARE(services_->messages.Last().title, u"Dividends"_qs);
        QCOMPARE(Lines(Working(), "Dividends", PublishedShareFields()), before);
        services_->messages.Answer(vbNo);
        CheckDividendUpdate();
        QCOMPARE(services_->messages.Count(), 3);
    }

    // A file that another workstation is working in is left alone, and the
    // user is told why.
    void aFileInUseIsLeftAlone_data() {
        QTest::addColumn<bool>("offices");
        QTest::newRow("tax offices replaced") << true;
        QTest::newRow("dividends merged") << false;
    }
    void aFileInUseIsLeftAlone() {
        QFETCH(bool, offices);
        const QString path = offices ? OfficeDatabasePath() : Working();
        if (offices) {
            SetVersion(path, "2000.0");
        } else {
            DeliverShares(10);
        }
        const QByteArray before = Bytes(path);
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"open", path}), u"ok"_qs);
        QCOMPARE(peer.Ask({"begin"}), u"ok"_qs);
        services_->messages.Answer(vbYes);
        services_->messages.Answer(vbOK);
        offices ? UpdateOfficeDatabase() : CheckDividendUpdate();
        QVERIFY(peer.Quit());
        QVERIFY(services_->messages.Last().prompt.contains(
            "is in use by another user. Nothing has been changed."));
        QCOMPARE(Bytes(path), before);
        QCOMPARE(QDir(ProgramFolder()).entryList({"*.new", "*.partial"}), QStringList());
    }
};

QTEST_MAIN(TestReferenceUpdates)
#include "test_reference_updates.moc"
