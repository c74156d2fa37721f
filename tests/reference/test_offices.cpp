// The tax offices screen: the office shown and saved as the selection moves,
// an older file without the second number, finding an office by its number
// and by its letter, new, renamed and deleted offices. The screen is rendered
// into the documentation.
#include "data/database_schema.h"
#include "platform/dao_schema.h"
#include "reference/frmNewOffice.h"
#include "reference/frmOffices.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/reference_testing.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include <optional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QStringList kDelivered = {"Accounts Office Cumbernauld (902)", "Sample Tax Office A (991)",
                                "Sample Tax Office B (992)", "Sample Tax Office C (993)"};

frmOffices* OpenOffices() {
    Trigger(QStringLiteral("cm3Offices"));
    return LoadedForm<frmOffices>();
}

}  // namespace

class TestOffices : public QObject {
    Q_OBJECT

private:
    std::optional<ScriptedServices> services_;
    std::optional<SectionWorld> world_;

private Q_SLOTS:
    void init() {
        services_.emplace();
        world_.emplace(QList<ClientName>{kAda});
        TaxOfficesUpdate = false;
    }
    void cleanup() {
        world_.reset();
        services_.reset();
    }

    // The current office comes up; a field that is Null shows empty; the boxes
    // are written, changed or not, when another office is selected and when
    // the screen goes.
    void showsTheCurrentOfficeAndSavesOnLeaving() {
        CurrentOfficeName = QStringLiteral("Sample Tax Office A");
        CurrentOfficeNumber = QStringLiteral("991");
        frmOffices* offices = OpenOffices();
        QCOMPARE(offices->windowTitle(), u"Tax Offices (Version 2015.0)"_qs);
        QCOMPARE(Entries(offices->lstOffices), kDelivered);
        QCOMPARE(offices->pnlCount->text(), u"4 offices"_qs);
        QCOMPARE(offices->SelectedEntry(), kDelivered[1]);
        ClickEntry(offices->lstOffices, 0);
        QCOMPARE(offices->txtTAddress[2]->text(), u"Accounts Office"_qs);
        TypeInto(offices->txtTPhone, QStringLiteral("01632 960001"));
        ClickEntry(offices->lstOffices, 2);
        QCOMPARE(offices->txtTAddress[2]->text(), QString());
        QCOMPARE(CurrentOfficeNumber, u"992"_qs);
        TypeInto(offices->txtTPhone, QStringLiteral("01632 960002"));
        QVERIFY(UnloadForm(QStringLiteral("frmOffices")));
        QCOMPARE(
            Lines(OfficeDatabasePath(), "Tax Offices", {"Number", "Name", "Telephone"}).mid(0, 3),
            QStringList({"902|Accounts Office Cumbernauld|01632 960001", "991|Sample Tax Office A|",
                         "992|Sample Tax Office B|01632 960002"}));
        QCOMPARE(services_->messages.Count(), 0);
    }

    // A file of the layout before 2001 has neither the second number nor the
    // e-mail address: the screen shows neither and writes neither.
    void anOlderFileShowsNoSecondNumber() {
        QVERIFY(QFile::remove(OfficeDatabasePath()));
        std::vector<dao::TableDef> tables = OfficeDatabaseTables();
        tables[0].fields.resize(tables[0].fields.size() - 2);
        dao::CreateDatabase(OfficeDatabasePath(), tables);
        dao::OpenDatabase(OfficeDatabasePath())
            .Execute(
                "INSERT INTO Version VALUES ('2000.0'); INSERT INTO [Tax Offices] (Number, "
                "Name) VALUES ('101', 'Old Office'), ('102', 'Other')");
        frmOffices* offices = OpenOffices();
        QCOMPARE(offices->windowTitle(), u"Tax Offices (Version 2000.0)"_qs);
        for (QWidget* later : QList<QWidget*>{offices->lblOffNo, offices->txtTOfficeNo,
                                              offices->lblOffEmail, offices->txtTEmail}) {
            QVERIFY(later->isHidden());
        }
        TypeInto(offices->txtTAddress[1], QStringLiteral("1 Old Street"));
        ClickEntry(offices->lstOffices, 1);
        QCOMPARE(Lines(OfficeDatabasePath(), "Tax Offices", {"Name", "Address 1"}, "Office Name"),
                 QStringList({"Old Office|1 Old Street", "Other|~"}));
        QCOMPARE(services_->messages.Count(), 0);
    }

    // A number finds the first office of that number; an unknown one the first
    // office. A letter with no office leaves the selection where it was.
    void findsAnOfficeByItsNumberOrItsLetter() {
        frmOffices* offices = OpenOffices();
        QTest::keyClicks(offices->txtGoto, QStringLiteral("99"));
        QVERIFY(!offices->cm3Goto->isEnabled());
        QTest::keyClicks(offices->txtGoto, QStringLiteral("2"));
        QVERIFY(offices->cm3Goto->isEnabled());
        offices->cm3Goto->click();
        QCOMPARE(offices->SelectedEntry(), kDelivered[2]);
        QTest::keyClicks(offices->txtGoto, QStringLiteral("123"));
        services_->messages.Answer(vbOK);
        offices->cm3Goto->click();
        QCOMPARE(services_->messages.Last().prompt, u"Tax office not found"_qs);
        QCOMPARE(offices->SelectedEntry(), kDelivered[0]);

        offices->cm3Seek[18]->click();  // S
        QCOMPARE(offices->SelectedEntry(), kDelivered[1]);
        services_->messages.Answer(vbOK);
        offices->cm3Seek[25]->click();  // Z
        QCOMPARE(services_->messages.Last().prompt, u"No tax office name beginning with Z"_qs);
        QCOMPARE(offices->SelectedEntry(), kDelivered[1]);
    }

    // A new office stands at the end of the list until the screen is opened
    // again; a renamed one takes its place in the order at once. Only digits
    // can be typed as a new number.
    void newOfficesComeLastRenamedOnesTakeTheirPlace() {
        frmOffices* offices = OpenOffices();
        OfficeDialogOK([&] { offices->cm3New->click(); }, "9Q1", "Abbey's Office");
        QVERIFY(offices->tmrNew->isActive());
        offices->tmrNew_Timer();
        QCOMPARE(Entries(offices->lstOffices).last(), u"Abbey`s Office (9Q1)"_qs);
        QCOMPARE(offices->SelectedEntry(), u"Abbey`s Office (9Q1)"_qs);
        QCOMPARE(offices->pnlCount->text(), u"5 offices"_qs);
        QVERIFY(UnloadForm(QStringLiteral("frmOffices")));
        offices = OpenOffices();
        QCOMPARE(Entries(offices->lstOffices).first(), u"Abbey`s Office (9Q1)"_qs);

        OfficeDialogOK([&] { offices->cm3Rename->click(); }, "X12Y7", "Zeta Office");
        QVERIFY(offices->tmrRename->isActive());
        offices->tmrRename_Timer();
        QCOMPARE(Entries(offices->lstOffices).last(), u"Zeta Office (127)"_qs);
        QCOMPARE(offices->lblTOfficeName->text(), u"Zeta Office"_qs);
        QVERIFY(services_->messages.Beeps() >= 2);  // X and Y refused
    }

    // Deleting asks first, No being the default; the last entry gone, the new
    // last is selected.
    void deletingTheLastSelectsTheNewLast() {
        frmOffices* offices = OpenOffices();
        ClickEntry(offices->lstOffices, 3);
        services_->messages.Answer(vbYes);
        offices->cm3Delete->click();
        QCOMPARE(services_->messages.Last().prompt,
                 u"Delete tax office:\n\nSample Tax Office C (993)"_qs);
        QCOMPARE(services_->messages.Last().style, int(vbYesNo | vbQuestion | vbDefaultButton2));
        QCOMPARE(Entries(offices->lstOffices), kDelivered.mid(0, 3));
        QCOMPARE(offices->lblTOfficeNo->text(), u"992"_qs);
        QCOMPARE(offices->pnlCount->text(), u"3 offices"_qs);
        QCOMPARE(Lines(OfficeDatabasePath(), "Tax Offices", {"Number"}).size(), 3);
        SaveScreenshot(offices, QStringLiteral("tax-offices.png"));
    }
};

QTEST_MAIN(TestOffices)
#include "test_offices.moc"
