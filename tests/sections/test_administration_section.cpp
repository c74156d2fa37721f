// The administration section: the client's tax office shown live from the tax offices file by the
// number the client holds, whether typed, picked from the list, or renamed or renumbered meanwhile.
// The section with an office is rendered into the documentation.
#include "reference/frmOffices.h"
#include "sections/frmAdministration.h"
#include "sections/frmSelectOffice.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/reference_testing.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include <optional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QString kAdministration = QStringLiteral("Administration");

frmAdministration* OpenAdministration() {
    return qobject_cast<frmAdministration*>(OpenSection(QStringLiteral("cm3Administration")));
}

// The office boxes: name, first address line, postcode and IR office.
QString Shown(const frmAdministration* screen) {
    return QStringList({screen->txtTOfficeName->text(), screen->txtTAddress[1]->text(),
                        screen->txtTAddress[6]->text(), screen->txtIROffice->text()})
        .join('|');
}

}  // namespace

class TestAdministrationSection : public QObject {
    Q_OBJECT

private:
    std::optional<ScriptedServices> services_;
    std::optional<SectionWorld> world_;

private Q_SLOTS:
    void init() {
        services_.emplace();
        world_.emplace(QList<ClientName>{kAda, kBert});
        SetFields(kAdministration, kAda, {{"Office Number", "991"}});
        SetFields(kAdministration, kBert, {{"Office Number", "992"}});
        dao::OpenDatabase(OfficeDatabasePath())
            .Execute("UPDATE [Tax Offices] SET Postcode = 'ZZ1 1ZZ', [Office No] = 'IR9'");
    }
    void cleanup() {
        world_.reset();
        services_.reset();
    }

    // The office follows the number as it is typed, as the client moves, and
    // as the file's layout allows; a number of no office is stored all the same.
    void theOfficeFollowsTheNumber_data() {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QString>("secondNumber");
        QTest::newRow("later layout") << "2015.0"
                                      << "IR9";
        QTest::newRow("layout of 2000") << "2000.0"
                                        << "";
    }
    void theOfficeFollowsTheNumber() {
        QFETCH(QString, version);
        QFETCH(QString, secondNumber);
        SetVersion(OfficeDatabasePath(), version);
        frmAdministration* screen = OpenAdministration();
        QCOMPARE(screen->txtIROffice->isHidden(), secondNumber.isEmpty());
        const QString officeA =
            "Sample Tax Office A|Sample data - not a real office|ZZ1 1ZZ|" + secondNumber;
        QCOMPARE(Shown(screen), officeA);
        screen->cm3Next->click();
        QCOMPARE(screen->txtTOfficeName->text(), u"Sample Tax Office B"_qs);
        Focus(screen->txtTOfficeNo);
        screen->txtTOfficeNo->selectAll();
        QTest::keyClicks(screen->txtTOfficeNo, "99");
        QCOMPARE(Shown(screen), u"|||"_qs);
        QTest::keyClicks(screen->txtTOfficeNo, "1");
        QCOMPARE(Shown(screen), officeA);
        TypeInto(screen->txtTOfficeNo, "123");
        QCOMPARE(Shown(screen), u"|||"_qs);
        QVERIFY(UnloadForm("frmAdministration"));
        QCOMPARE(FieldOf(kAdministration, kBert, "Office Number").toString(), u"123"_qs);
        QCOMPARE(services_->messages.Count(), 0);
    }

    // The client keeps the number: an office renamed is found again under its
    // new name, one renumbered is no longer found.
    void aRenamedOfficeIsFoundARenumberedOneNot() {
        frmAdministration* screen = OpenAdministration();
        Trigger("cm3Offices");
        auto* offices = LoadedForm<frmOffices>();
        ClickEntry(offices->lstOffices, 1);
        OfficeDialogOK([&] { offices->cm3Rename->click(); }, "991", "Ashford Sample Office");
        QVERIFY(offices->tmrRename->isActive());
        offices->tmrRename_Timer();
        ActivateChild(screen);
        QCOMPARE(screen->txtTOfficeName->text(), u"Ashford Sample Office"_qs);
        ActivateChild(offices);
        OfficeDialogOK([&] { offices->cm3Rename->click(); }, "981", "Ashford Sample Office");
        QVERIFY(offices->tmrRename->isActive());
        offices->tmrRename_Timer();
        ActivateChild(screen);
        QCOMPARE(Shown(screen), u"|||"_qs);
        QCOMPARE(screen->txtTOfficeNo->text(), u"991"_qs);
        QVERIFY(UnloadForm("frmAdministration"));
        QCOMPARE(FieldOf(kAdministration, kAda, "Office Number").toString(), u"991"_qs);
    }

    // Picked from the list of offices, only the number is taken; it shows the
    // office at once and is stored with the section.
    void anOfficeIsPickedFromTheList() {
        frmAdministration* screen = OpenAdministration();
        WithModal([&] { screen->cm3Select->click(); },
                  [&](QWidget* dialog) {
                      auto* select = qobject_cast<frmSelectOffice*>(dialog);
                      QCOMPARE(select->windowTitle(), u"Select Tax Office"_qs);
                      QVERIFY(!select->cm3OK->isEnabled());
                      services_->messages.Answer(vbOK);
                      select->cm3Seek[25]->click();
                      QCOMPARE(services_->messages.Last().prompt,
                               u"No tax office name beginning with Z"_qs);
                      ClickEntry(select->lstOffices, 3);
                      select->cm3OK->click();
                  });
        QCOMPARE(screen->txtTOfficeNo->text(), u"993"_qs);
        QCOMPARE(screen->txtTOfficeName->text(), u"Sample Tax Office C"_qs);
        SaveScreenshot(screen, QStringLiteral("administration.png"));
        QVERIFY(UnloadForm("frmAdministration"));
        QCOMPARE(FieldOf(kAdministration, kAda, "Office Number").toString(), u"993"_qs);
        QVERIFY(FieldOf(kAdministration, kAda, "Office Name").isNull());  // only shown
    }
};

QTEST_MAIN(TestAdministrationSection)
#include "test_administration_section.moc"
