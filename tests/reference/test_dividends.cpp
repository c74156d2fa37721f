// The dividends screen: the years offered by the files of the folder, the
// dates held to the tax year, the share's three-part key through new, rename
// and rename, the change of year, and the year-end transfer. The screen is
// rendered into the documentation.
#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "platform/dao_schema.h"
#include "reference/frmDividends.h"
#include "reference/reference_dialogs_gui.h"
#include "reference/reference_files.h"
#include "shell/forms_gui.h"
#include "shell/program_folder.h"
#include "shell/variables.h"
#include "support/reference_testing.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include <optional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QStringList kPayment = {"Company", "Stock", "FID", "Number 1", "Date 1", "Issued"};

frmDividends* OpenDividends() {
    auto* dividends = qobject_cast<frmDividends*>(LoadForm(QStringLiteral("frmDividends")));
    ShowForm(dividends);
    return dividends;
}

void MakeYears(const QString& folder, const QString& years) {
    for (const QString& year : years.split(' ', Qt::SkipEmptyParts)) {
        MakeDividendDatabase(PathIn(folder, DividendFileName(year.toInt())));
    }
}

// Adds a share through the New dialog and shows it, as its timer does.
void AddShare(frmDividends* dividends, const QString& company, bool fid) {
    WithModal([&] { dividends->cm3New->click(); },
              [&](QWidget* dialog) {
                  auto* share = qobject_cast<ShareDialog*>(dialog);
                  // Pasted, and held to the keys the box takes.
                  QGuiApplication::clipboard()->setText(company);
                  QTest::keyClick(share->txtCompany, Qt::Key_V, Qt::ControlModifier);
                  QTest::keyClicks(share->txtStock, QStringLiteral("Ordinary 1p"));
                  share->chkFID->setChecked(fid);
                  share->cm3OK->click();
              });
    QVERIFY(dividends->tmrNew->isActive());
    dividends->tmrNew_Timer();
}

}  // namespace

class TestDividends : public QObject {
    Q_OBJECT

private:
    std::optional<ScriptedServices> services_;
    std::optional<SectionWorld> world_;

private Q_SLOTS:
    void init() {
        services_.emplace();
        world_.emplace(QList<ClientName>{kAda});
        DividendsUpdate = false;
        TaxYear = 2015;
    }
    void cleanup() {
        world_.reset();
        services_.reset();
    }

    // Only the years whose file the slot's folder holds are offered, the
    // program's folder furnishing those the slot lacks; the screen opens on
    // the chosen year if it can, else on the latest there is.
    void theYearsFollowTheFilesOfTheFolder_data() {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("slot");
        QTest::addColumn<int>("chosen");
        QTest::addColumn<QString>("offered");
        QTest::addColumn<int>("opened");
        QTest::newRow("only 2012-13") << QString() << "2013" << 2015 << "2012-13" << 2013;
        QTest::newRow("a year out of range") << QString() << "2012 2013 2014 2015" << 2011
                                             << "2011-12 2012-13 2013-14 2014-15" << 2015;
        QTest::newRow("furnished")
            << "2012 2014" << QStringLiteral("2015") << 2014 << "2011-12 2013-14 2014-15" << 2014;
    }
    void theYearsFollowTheFilesOfTheFolder() {
        QFETCH(QString, program);
        QFETCH(QString, slot);
        QFETCH(int, chosen);
        QFETCH(QString, offered);
        QFETCH(int, opened);
        QVERIFY(QFile::remove(PathIn(ProgramFolder(), "DIV2015.MDB")));
        const QString folder = QDir(ProgramFolder()).filePath("../Slot");
        QVERIFY(QDir().mkpath(folder));
        DatabaseFolder[1] = folder;
        MakeYears(ProgramFolder(), program);
        MakeYears(folder, slot);
        TaxYear = qint16(chosen);
        frmDividends* dividends = OpenDividends();
        QStringList enabled;
        for (QRadioButton* option : dividends->op3TaxYear) {
            if (option->isEnabled()) {
                enabled << option->text();
            }
        }
        QCOMPARE(enabled.join(' '), offered);
        QCOMPARE(int(TaxYear), opened);
        QVERIFY(dividends->op3TaxYear[opened - 2012]->isChecked());
        QCOMPARE(dividends->windowTitle(), u"Dividends (Version 2015.0)"_qs);
        QCOMPARE(dividends->lstShares->count(), 6);
    }

    // Both ends of the tax year count as inside it. A date outside it is told
    // as the box is left, and the screen can't be closed while it stands.
    void theDatesFallInTheTaxYear_data() {
        QTest::addColumn<QString>("date");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("last day") << "05/04/12" << true;
        QTest::newRow("first day") << "06/04/11" << true;
        QTest::newRow("day before") << "05/04/11" << false;
        QTest::newRow("day after") << "06/04/12" << false;
        QTest::newRow("no such day") << "31/02/12" << false;
    }
    void theDatesFallInTheTaxYear() {
        QFETCH(QString, date);
        QFETCH(bool, accepted);
        MakeYears(ProgramFolder(), "2012");
        TaxYear = 2012;
        frmDividends* dividends = OpenDividends();
        if (!accepted) {
            services_->messages.Answer(vbOK);
            services_->messages.Answer(vbOK);
        }
        TypeInto(dividends->txtDate[2], date);
        QCoreApplication::processEvents();
        QCOMPARE(UnloadForm(QStringLiteral("frmDividends")), accepted);
        QCOMPARE(Lines(DividendDatabasePath(2012), "Dividends", {"Date 2"}, "Name").first(),
                 accepted ? date : QStringLiteral("~"));
        if (accepted) {
            QCOMPARE(services_->messages.Count(), 0);
            return;
        }
        QCOMPARE(services_->messages.Count(), 2);
        QCOMPARE(services_->messages.Last().prompt, u"Date must be within the tax year"_qs);
        QCOMPARE(services_->messages.Last().title, u"Dividends"_qs);
        QVERIFY(dividends->txtDate[2]->hasFocus());
        QCOMPARE(dividends->txtDate[2]->selectedText(), date);
        // Nor does another year's menu item take it away from its year.
        QCoreApplication::processEvents();
        services_->messages.Answer(vbOK);
        Trigger("mnuDiv4");
        QCOMPARE(int(TaxYear), 2012);
        QCOMPARE(LoadedForm<frmDividends>(), dividends);
        TypeInto(dividends->txtDate[2], QString());
        QVERIFY(UnloadForm(QStringLiteral("frmDividends")));
    }

    // Company, stock and FID make the key: a share with and one without FID
    // stand side by side, and each keeps its own payments through a rename.
    void theKeyHasThreeParts() {
        frmDividends* dividends = OpenDividends();
        AddShare(dividends, QStringLiteral("Ac,me"), true);
        QCOMPARE(services_->messages.Beeps(), 1);  // the comma
        AddShare(dividends, QStringLiteral("Acme"), false);
        QCOMPARE(Entries(dividends->lstShares).mid(6),
                 QStringList({"Acme, Ordinary 1p (FID)", "Acme, Ordinary 1p"}));
        TypeInto(dividends->txtNumber[1], QStringLiteral("500"));
        ClickEntry(dividends->lstShares, 6);
        QCOMPARE(dividends->lblFID->text(), u"Foreign Income Dividend (FID)"_qs);
        WithModal([&] { dividends->cm3Rename->click(); },
                  [](QWidget* dialog) {
                      auto* share = qobject_cast<ShareDialog*>(dialog);
                      QTest::keyClicks(share->txtStock, QStringLiteral(" new"));
                      share->cm3OK->click();
                  });
        QVERIFY(dividends->tmrRename->isActive());
        dividends->tmrRename_Timer();
        QCOMPARE(dividends->SelectedEntry(), u"Acme, Ordinary 1p new (FID)"_qs);
        QVERIFY(UnloadForm(QStringLiteral("frmDividends")));
        QCOMPARE(Lines(DividendDatabasePath(2015), "Dividends", kPayment, "Name").mid(1, 2),
                 QStringList({"Acme|Ordinary 1p|false|500||~", "Acme|Ordinary 1p new|true|||~"}));
        QCOMPARE(ShareOfEntry(" (FID)").company, u" (FID)"_qs);
        QVERIFY(ShareOfEntry(" (FID)").fid == false && ShareOfEntry("A, B (FID)").fid);
    }

    // Another year reads the other file; what was typed since the last save
    // is dropped.
    void anotherYearDropsWhatWasTyped() {
        MakeYears(ProgramFolder(), "2014");
        frmDividends* dividends = OpenDividends();
        TypeInto(dividends->txtNumber[1], QStringLiteral("700"));
        Click(dividends->op3TaxYear[2]);
        QCOMPARE(int(TaxYear), 2014);
        QCOMPARE(dividends->txtNumber[1]->text(), QString());
        QCOMPARE(Lines(DividendDatabasePath(2015), "Dividends", {"Number 1"}, "Name").first(),
                 u"~"_qs);
    }

    // The year-end transfer starts next year's file from a year's shares,
    // without their payments.
    void theTransferTakesTheSharesOnly() {
        frmDividends* dividends = OpenDividends();
        QVERIFY(QDir(ProgramFolder()).mkpath("Transfer"));
        const QString from = TransferSourcePath(), into = TransferDestinationPath();
        MakeSyntheticDividendDatabase(from, 10);
        dao::CreateDatabase(into, DividendDatabaseTables());
        services_->messages.Answer(vbOK);
        dividends->cm3Transfer->click();
        QCOMPARE(services_->messages.Last().prompt, u"Transfer OK"_qs);
        QStringList expected = Lines(from, "Dividends", {"Company", "Stock", "FID"});
        expected.replaceInStrings(QRegularExpression("$"), "|~|~");
        QCOMPARE(Lines(into, "Dividends", {"Company", "Stock", "FID", "Number 1", "Issued"}),
                 expected);
        SaveScreenshot(dividends, QStringLiteral("dividends.png"));
    }
};

QTEST_MAIN(TestDividends)
#include "test_dividends.moc"
