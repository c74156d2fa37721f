// The personal section's own rules: dates of birth shown with their century,
// the two option groups, which date rule and message goes with which box, and
// linking a spouse, which writes the partner's row at once.
#include "platform/dao.h"
#include "platform/widgets_gui.h"
#include "sections/frmPersonal.h"
#include "sections/frmSpouseList.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

#include <functional>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QString kLongDateMessage =
    QStringLiteral("Invalid date - you must enter dates in the format dd/mm/yyyy");

QRadioButton* Option(QWidget* form, const QString& name) {
    return Control<QRadioButton>(form, name);
}

QVariant PersonalField(const ClientName& client, const QString& field) {
    return FieldOf(kPersonal, client, field);
}

// Clicks "Select" and hands the spouse list to `use` once it is up.
void WithSpouseList(frmPersonal* personal, const std::function<void(frmSpouseList*)>& use) {
    bool reached = false;
    QTimer::singleShot(0, [&] {
        auto* list = qobject_cast<frmSpouseList*>(QApplication::activeModalWidget());
        QVERIFY(list);
        reached = true;
        use(list);
        if (list->isVisible()) {
            list->cm3Cancel->click();
        }
    });
    personal->cm3Spouse->click();
    QVERIFY(reached);
}

void ClickEntry(QListWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

QStringList ListEntries(const QListWidget* list) {
    QStringList entries;
    for (int row = 0; row < list->count(); ++row) {
        entries << list->item(row)->text();
    }
    return entries;
}

}  // namespace

class TestPersonalSection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { dao::SetLockTimeout(200); }

    // Two-digit years of birth are shown as 19yy and so saved at the next save;
    // children's dates stay as stored.
    void birthDatesAreShownWithTheCenturyAndSavedSo() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kPersonal, kAda,
                  {{QStringLiteral("Date of Birth"), QStringLiteral("3/4/58")},
                   {QStringLiteral("Spouse DOB"), QStringLiteral("01/02/05")},
                   {QStringLiteral("Child 1 DOB"), QStringLiteral("3/4/05")}});
        frmPersonal* personal = OpenPersonal();
        QCOMPARE(personal->Box(u"txtDOB"_qs)->text(), u"03/04/1958"_qs);
        QCOMPARE(personal->Box(u"txtSpouseDOB"_qs)->text(), u"01/02/1905"_qs);
        QCOMPARE(personal->Box(u"txtChildDOB(0)"_qs)->text(), u"3/4/05"_qs);
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));
        QCOMPARE(PersonalField(kAda, QStringLiteral("Date of Birth")).toString(), u"03/04/1958"_qs);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Spouse DOB")).toString(), u"01/02/1905"_qs);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Child 1 DOB")).toString(), u"3/4/05"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    void optionGroupsReadSelectClearAndSave() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(kPersonal, kAda,
                  {{QStringLiteral("Sex"), 2},
                   {QStringLiteral("Marital Status"), 6},
                   {QStringLiteral("Blind"), true},
                   {QStringLiteral("Indicator 2"), true}});
        SetFields(kPersonal, kBert, {{QStringLiteral("Marital Status"), 5}});
        frmPersonal* personal = OpenPersonal();
        QVERIFY(Option(personal, u"op3Sex(2)"_qs)->isChecked());
        QVERIFY(!Option(personal, u"op3Sex(1)"_qs)->isChecked());
        for (int i = 1; i <= 5; ++i) {
            QVERIFY(!Option(personal, QStringLiteral("op3Marital(%1)").arg(i))->isChecked());
        }
        Control<QPushButton>(personal, u"cmdClearSex"_qs)->click();
        QVERIFY(!Option(personal, u"op3Sex(1)"_qs)->isChecked() &&
                !Option(personal, u"op3Sex(2)"_qs)->isChecked());
        personal->cm3Next->click();
        QCOMPARE(PersonalField(kAda, QStringLiteral("Sex")).toInt(), 0);
        // An out-of-range status reads as none; left alone it is not rewritten.
        QCOMPARE(PersonalField(kAda, QStringLiteral("Marital Status")).toInt(), 6);
        // The indicators' fields belong to another screen.
        QCOMPARE(PersonalField(kAda, QStringLiteral("Blind")).toBool(), true);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Indicator 2")).toBool(), true);

        QVERIFY(Option(personal, u"op3Marital(5)"_qs)->isChecked());
        Option(personal, u"op3Marital(3)"_qs)->click();
        QVERIFY(!Option(personal, u"op3Marital(5)"_qs)->isChecked());
        Option(personal, u"op3Sex(1)"_qs)->click();
        personal->cm3Previous->click();
        QCOMPARE(PersonalField(kBert, QStringLiteral("Marital Status")).toInt(), 3);
        QCOMPARE(PersonalField(kBert, QStringLiteral("Sex")).toInt(), 1);
        Control<QPushButton>(personal, u"cmdClearMarital"_qs)->click();
        QCOMPARE(services.messages.Count(), 0);
    }

    // Which rule and which message go with each date box.
    void dateBoxesEachHaveTheirRule_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        const struct {
            const char* name;
            const char* box;
            const char* text;
            QString message;
        } cases[] = {
            {"leap day of 2000", "txtDOB", "29/02/00", {}},
            {"four-digit year, short day", "txtDOB", "1/1/1985", {}},
            {"one-digit year", "txtDOB", "1/1/1", kLongDateMessage},
            {"leading slash", "txtSpouseDOB", "/1/1985", kLongDateMessage},
            {"ten characters, short month", "txtSpouseDOB", "1/012/1985", kLongDateMessage},
            {"child, four-digit year", "txtChildDOB(2)", "1/1/1985", kShortDateMessage},
            {"child, leap day of 2000", "txtChildDOB(3)", "29/2/00", {}},
            {"child, no such day", "txtChildDOB(0)", "30/02/99", kShortDateMessage},
        };
        for (const auto& c : cases) {
            QTest::newRow(c.name) << QString::fromLatin1(c.box) << QString::fromLatin1(c.text)
                                  << c.message;
        }
    }
    void dateBoxesEachHaveTheirRule() {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, message);
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        auto* dateBox = personal->findChild<QLineEdit*>(box);
        QVERIFY(dateBox);
        if (!message.isEmpty()) {
            services.messages.Answer(vbOK);
        }
        TypeInto(dateBox, text);
        QCOMPARE(services.messages.Last().prompt, message);
        QCOMPARE(dateBox->hasFocus(), !message.isEmpty());
        dateBox->clear();
    }

    // The first bad box in the fixed order is the one the user is sent to.
    void theCheckStopsAtTheFirstBadBox() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        personal->Box(u"txtChildDOB(0)"_qs)->setText(QStringLiteral("1/1/1"));
        personal->Box(u"txtSpouseDOB"_qs)->setText(QStringLiteral("1/1/1"));
        services.messages.Answer(vbOK);
        QVERIFY(personal->CheckDates());
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt, kLongDateMessage);
        QVERIFY(personal->Box(u"txtSpouseDOB"_qs)->hasFocus());
        personal->Box(u"txtSpouseDOB"_qs)->clear();
        personal->Box(u"txtChildDOB(0)"_qs)->clear();
    }

    void dateBoxesTakeOnlyDateKeys() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        Focus(personal->Box(u"txtDOB"_qs));
        QTest::keyClicks(personal->Box(u"txtDOB"_qs), QStringLiteral("12.03.x1985"));
        QCOMPARE(personal->Box(u"txtDOB"_qs)->text(), u"12/03/1985"_qs);
        QCOMPARE(services.messages.Beeps(), 1);
        QTest::keyClick(personal->Box(u"txtDOB"_qs), Qt::Key_Backspace);
        QCOMPARE(personal->Box(u"txtDOB"_qs)->text(), u"12/03/198"_qs);
        personal->Box(u"txtDOB"_qs)->clear();
    }

    void linkingASpouseFillsTheBoxesAndWritesThePartner() {
        ScriptedServices services;
        SectionWorld world({kCora, kAda, kBert});
        CurrentFirst = kAda.first;
        CurrentLast = kAda.last;
        SetFields(kPersonal, kBert, {{QStringLiteral("Date of Birth"), QStringLiteral("3/4/58")}});
        frmPersonal* personal = OpenPersonal();
        personal->Box(u"txtDOB"_qs)->setText(QStringLiteral("01/01/1960"));  // not saved yet
        WithSpouseList(personal, [](frmSpouseList* list) {
            QCOMPARE(list->windowTitle(), u"Select Spouse"_qs);
            QCOMPARE(ListEntries(list->lstClients), QStringList({"Mason, Bert", "Nash, Cora"}));
            QVERIFY(!list->cm3OK->isEnabled());
            list->cm3Seek[12]->click();  // M
            QCOMPARE(list->lstClients->currentItem()->text(), u"Mason, Bert"_qs);
            QVERIFY(list->cm3OK->isEnabled());
            list->cm3OK->click();
        });
        QCOMPARE(personal->Box(u"txtSpouse(0)"_qs)->text(), kBert.first);
        QCOMPARE(personal->Box(u"txtSpouse(1)"_qs)->text(), kBert.last);
        QCOMPARE(personal->Box(u"txtSpouseDOB"_qs)->text(), u"3/4/58"_qs);
        QCOMPARE(PersonalField(kBert, QStringLiteral("Spouse First")).toString(), kAda.first);
        QCOMPARE(PersonalField(kBert, QStringLiteral("Spouse Last")).toString(), kAda.last);
        QCOMPARE(PersonalField(kBert, QStringLiteral("Spouse DOB")).toString(), u"01/01/1960"_qs);
        // The client's own row has the spouse only from the next save.
        QVERIFY(PersonalField(kAda, QStringLiteral("Spouse Last")).isNull());
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));
        QCOMPARE(PersonalField(kAda, QStringLiteral("Spouse Last")).toString(), kBert.last);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Spouse DOB")).toString(), u"3/4/58"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    void aSpouseWithoutADateOfBirthEmptiesTheDateBox() {
        ScriptedServices services;
        SectionWorld world({kAda, kCora});
        frmPersonal* personal = OpenPersonal();
        personal->Box(u"txtSpouseDOB"_qs)->setText(QStringLiteral("02/02/1962"));
        WithSpouseList(personal, [](frmSpouseList* list) {
            QListWidget* clients = list->lstClients;
            ClickEntry(clients, 0);
            QTest::mouseDClick(clients->viewport(), Qt::LeftButton, {},
                               clients->visualItemRect(clients->item(0)).center());
        });
        QCOMPARE(personal->Box(u"txtSpouse(1)"_qs)->text(), kCora.last);
        QCOMPARE(personal->Box(u"txtSpouseDOB"_qs)->text(), QString());
    }

    void aMissingLetterIsToldAndCancelChangesNothing() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        services.messages.Answer(vbOK);
        WithSpouseList(personal, [&services](frmSpouseList* list) {
            list->cm3Seek[25]->click();
            QCOMPARE(services.messages.Last().prompt, u"No client name beginning with Z"_qs);
            QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
            list->cm3Seek[12]->click();
            list->cm3Cancel->click();
        });
        QCOMPARE(personal->Box(u"txtSpouse(1)"_qs)->text(), QString());
        QVERIFY(PersonalField(kBert, QStringLiteral("Spouse Last")).isNull());
        // The list is made afresh at each opening, so it lists today's clients.
        FlushUnloadedForms();
        QVERIFY(!LoadedForm(QStringLiteral("frmSpouseList")));
    }

    // Only a click on a name chooses it: Enter in a list that has merely taken
    // the focus links nobody.
    void enterAloneLinksNobody() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        WithSpouseList(personal, [](frmSpouseList* list) {
            list->lstClients->setFocus(Qt::TabFocusReason);
            QTest::keyClick(list->lstClients, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Return);
            QVERIFY(list->isVisible());
            QVERIFY(!list->cm3OK->isEnabled());
        });
        QCOMPARE(personal->Box(u"txtSpouse(1)"_qs)->text(), QString());
        QVERIFY(PersonalField(kBert, QStringLiteral("Spouse Last")).isNull());
    }

    // A partner's row held by another user: the error report, and the boxes
    // are filled all the same.
    void aLockedPartnerIsReportedAfterTheBoxesAreFilled() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", kPersonal, kBert.last, kBert.first}), u"ok"_qs);
        services.messages.Answer(vbOK);
        WithSpouseList(personal, [](frmSpouseList* list) {
            ClickEntry(list->lstClients, 0);
            list->cm3OK->click();
        });
        QVERIFY2(services.messages.Last().prompt.startsWith(
                     u"Module:    frmSpouseList\nProcedure: SelectClient\nError 3260: "_qs),
                 qPrintable(services.messages.Last().prompt));
        QCOMPARE(personal->Box(u"txtSpouse(1)"_qs)->text(), kBert.last);
        QCOMPARE(userB.Ask({"update"}), u"ok"_qs);
        QVERIFY(PersonalField(kBert, QStringLiteral("Spouse Last")).isNull());
    }
};

QTEST_MAIN(TestPersonalSection)
#include "test_personal_section.moc"
