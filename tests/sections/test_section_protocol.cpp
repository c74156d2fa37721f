// What every section screen does, shown on the personal and user sections:
// reading when activated, saving only what differs when left, the date gate on
// every way out, moves, the shown client, and other users of the same file.
#include "platform/dao.h"
#include "sections/frmPersonal.h"
#include "sections/frmUser.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QString PersonalField(const ClientName& client, const QString& field) {
    return FieldOf(kPersonal, client, field).toString();
}

QMdiSubWindow* FrameOf(QWidget* form) {
    return qobject_cast<QMdiSubWindow*>(ChildWindow(form));
}

}  // namespace

class TestSectionProtocol : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { dao::SetLockTimeout(200); }

    void savesOnlyTheFieldsThatDifferFromWhatWasRead() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(kPersonal, kAda,
                  {{QStringLiteral("Title"), QStringLiteral("Mrs")},
                   {QStringLiteral("Called"), QStringLiteral("Ada")},
                   {QStringLiteral("Fax"), QVariant()}});
        frmPersonal* personal = OpenPersonal();
        QVERIFY(personal);
        QCOMPARE(personal->windowTitle(), u"Ada Lovell (Personal)"_qs);
        QCOMPARE(personal->txtTitle->text(), u"Mrs"_qs);
        QCOMPARE(ActiveSection, qint16(1));
        // Behind the screen's back, as another workstation would.
        SetFields(kPersonal, kAda, {{QStringLiteral("Title"), QStringLiteral("Dr")}});
        TypeInto(personal->txtCalled, QStringLiteral("Addie"));
        TypeInto(personal->txtFullName, QString());
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));
        QCOMPARE(PersonalField(kAda, QStringLiteral("Called")), u"Addie"_qs);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Title")), u"Dr"_qs);
        // Untouched Null stays Null; a box the user emptied is not a Null.
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Fax")).isNull());
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Full Name")).isNull());
        QCOMPARE(services.messages.Count(), 0);
    }

    // A: reads; B, another process, changes the title and saves; A changes the
    // called name and saves. The row ends with both, and A sees B's title when
    // it comes back to the screen.
    void twoUsersOnOneRowKeepEachOthersChanges() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", kPersonal, kAda.last, kAda.first}), u"ok"_qs);
        QCOMPARE(userB.Ask({"set", "Title", "Prof"}), u"ok"_qs);
        QCOMPARE(userB.Ask({"update"}), u"ok"_qs);
        QCOMPARE(userB.Ask({"close"}), u"ok"_qs);

        TypeInto(personal->txtCalled, QStringLiteral("Addie"));
        QWidget* other = OtherChildWindow();
        ActivateChild(other);  // leaving the screen saves it
        QCOMPARE(PersonalField(kAda, QStringLiteral("Title")), u"Prof"_qs);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Called")), u"Addie"_qs);
        QCOMPARE(personal->txtTitle->text(), QString());
        ActivateChild(personal);
        QCOMPARE(personal->txtTitle->text(), u"Prof"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // The save runs Edit and Update even with nothing to assign, so a row that
    // another user holds is reported, in the screen's and the routine's name.
    void aSaveWithoutChangesStillEditsTheRow() {
        ScriptedServices services;
        SectionWorld world({kAda});
        OpenPersonal();
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", kPersonal, kAda.last, kAda.first}), u"ok"_qs);
        services.messages.Answer(vbOK);
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));  // the unload goes ahead
        QCOMPARE(services.messages.Count(), 1);
        const QString report = services.messages.Last().prompt;
        QVERIFY2(
            report.startsWith(u"Module: frmPersonal\nProcedure: WriteCRecord\nError 3260: "_qs),
            qPrintable(report));
        QCOMPARE(services.messages.Last().style & kMsgBoxIconMask, int(vbExclamation));
    }

    // A screen that has been made but not yet read has nothing to save.
    void aScreenNeverActivatedWritesNothing() {
        ScriptedServices services;
        SectionWorld world({kAda});
        PeerProcess userB;
        QVERIFY(userB.Started());
        QCOMPARE(userB.Ask({"open", world.DatabasePath()}), u"ok"_qs);
        QCOMPARE(userB.Ask({"edit", kPersonal, kAda.last, kAda.first}), u"ok"_qs);
        auto* personal = LoadForm<frmPersonal>();
        QVERIFY(personal->Loading);
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));
        QCOMPARE(services.messages.Count(), 0);
    }

    void anotherSectionWaitsUntilABadDateIsMended() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        personal->txtCalled->setText(QStringLiteral("Addie"));
        personal->txtChildDOB[1]->setText(QStringLiteral("31/02/99"));
        services.messages.Answer(vbOK);
        Trigger(QStringLiteral("cm3User"));
        QCOMPARE(services.messages.Last().prompt, kShortDateMessage);
        QCOMPARE(services.messages.Last().title, u"Invalid Date"_qs);
        QCOMPARE(services.messages.Beeps(), 1);
        QVERIFY(!LoadedForm(QStringLiteral("frmUser")));
        QCOMPARE(LoadedForm<frmPersonal>(), personal);
        QVERIFY(FrameOf(personal)->isVisible());
        QVERIFY(personal->txtChildDOB[1]->hasFocus());
        QCOMPARE(personal->txtChildDOB[1]->text(), u"31/02/99"_qs);
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Called")).isNull());

        personal->txtChildDOB[1]->setText(QStringLiteral("28/02/99"));
        Trigger(QStringLiteral("mnuUser"));
        QVERIFY(LoadedForm(QStringLiteral("frmUser")));
        QVERIFY(!LoadedForm(QStringLiteral("frmPersonal")));
        QCOMPARE(PersonalField(kAda, QStringLiteral("Called")), u"Addie"_qs);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Child 2 DOB")), u"28/02/99"_qs);
    }

    // Clicking another window with a bad date on the screen: the screen takes
    // itself back, with the bad text still in its box and nothing saved.
    void anotherWindowCannotTakeOverFromABadDate() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        QWidget* other = OtherChildWindow();
        ActivateChild(personal);
        personal->txtCalled->setText(QStringLiteral("Addie"));
        personal->txtChildDOB[2]->setText(QStringLiteral("32/01/99"));
        services.messages.Answer(vbOK);
        ActivateChild(other);
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(FrameOf(personal)->mdiArea()->activeSubWindow(), FrameOf(personal));
        QCOMPARE(personal->txtChildDOB[2]->text(), u"32/01/99"_qs);
        QCOMPARE(personal->txtCalled->text(), u"Addie"_qs);
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Called")).isNull());
        personal->txtChildDOB[2]->setText(QStringLiteral("31/01/99"));
        ActivateChild(other);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Called")), u"Addie"_qs);
    }

    void closingTheProgramIsRefusedByAScreenWithABadDate() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        personal->txtSpouseDOB->setText(QStringLiteral("1/1/1"));
        services.messages.Answer(vbOK);
        world.MainWindow()->close();
        FlushUnloadedForms();
        QCOMPARE(services.messages.Last().prompt,
                 u"Invalid date - you must enter dates in the format dd/mm/yyyy"_qs);
        QVERIFY(world.MainWindow() && world.MainWindow()->isVisible());
        QCOMPARE(LoadedForm<frmPersonal>(), personal);
        QVERIFY(personal->txtSpouseDOB->hasFocus());
        const int endsBefore = EndProgramCalls();
        personal->txtSpouseDOB->setText(QStringLiteral("01/01/1961"));
        world.MainWindow()->close();
        QCOMPARE(EndProgramCalls(), endsBefore + 1);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Spouse DOB")), u"01/01/1961"_qs);
    }

    // Leaving a date box with a bad date brings the focus straight back.
    void leavingABadDateBoxKeepsTheUserInIt() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        services.messages.Answer(vbOK);
        TypeInto(personal->txtChildDOB[0], QStringLiteral("1/13/05"));
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt, kShortDateMessage);
        QVERIFY(personal->txtChildDOB[0]->hasFocus());
        // An emptied box is a good date.
        TypeInto(personal->txtChildDOB[0], QString());
        QCOMPARE(services.messages.Count(), 1);
        QVERIFY(!personal->txtChildDOB[0]->hasFocus());
    }

    void minimisingWithABadDateTellsAndComesBack() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        personal->txtChildDOB[3]->setText(QStringLiteral("99/99/99"));
        services.messages.Answer(vbOK);
        FrameOf(personal)->showMinimized();
        QCOMPARE(services.messages.Count(), 1);
        QVERIFY(!FrameOf(personal)->isMinimized());
        QVERIFY(personal->txtChildDOB[3]->hasFocus());
        // A good screen minimises without a word and saves nothing.
        personal->txtChildDOB[3]->clear();
        personal->txtCalled->setText(QStringLiteral("Addie"));
        FrameOf(personal)->showMinimized();
        QVERIFY(FrameOf(personal)->isMinimized());
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Called")).isNull());
        QCOMPARE(services.messages.Count(), 1);
    }

    void movesSaveThenFollowTheNameOrderAndStopAtTheEnd() {
        ScriptedServices services;
        SectionWorld world({kBert, kAda, kCora});
        CurrentFirst = kBert.first;
        CurrentLast = kBert.last;
        frmPersonal* personal = OpenPersonal();
        TypeInto(personal->txtCalled, QStringLiteral("B"));
        personal->cm3Next->click();
        QCOMPARE(PersonalField(kBert, QStringLiteral("Called")), u"B"_qs);
        QCOMPARE(CurrentLast, kCora.last);
        QCOMPARE(personal->windowTitle(), u"Cora Nash (Personal)"_qs);
        QCOMPARE(personal->txtCalled->text(), QString());
        // On the last client, Next stays there and reads the row afresh.
        SetFields(kPersonal, kCora, {{QStringLiteral("Called"), QStringLiteral("C")}});
        personal->cm3Next->click();
        QCOMPARE(CurrentLast, kCora.last);
        QCOMPARE(personal->txtCalled->text(), u"C"_qs);
        personal->cm3First->click();
        QCOMPARE(CurrentLast, kAda.last);
        QCOMPARE(PersonalFirst, kAda.first);
        personal->cm3Last->click();
        personal->cm3Previous->click();
        QCOMPARE(CurrentLast, kBert.last);
        QCOMPARE(personal->txtCalled->text(), u"B"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    void aBadDateStopsAMoveAndItsSave() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        personal->txtCalled->setText(QStringLiteral("Addie"));
        personal->txtDOB->setText(QStringLiteral("/1/1985"));
        services.messages.Answer(vbOK);
        personal->cm3Next->click();
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(CurrentLast, kAda.last);
        QVERIFY(FieldOf(kPersonal, kAda, QStringLiteral("Called")).isNull());
        QVERIFY(personal->txtDOB->hasFocus());
        // The user section has no dates to check: its moves always go.
        personal->txtDOB->setText(QStringLiteral("1/1/1985"));
        Trigger(QStringLiteral("cm3User"));
        auto* user = LoadedForm<frmUser>();
        user->cm3Next->click();
        QCOMPARE(CurrentLast, kBert.last);
        QCOMPARE(user->windowTitle(), u"Bert Mason (User Defined)"_qs);
    }

    // A screen writes to the client it has read, even when the current client
    // has moved on meanwhile, and reads the new one when it comes back.
    void aSaveGoesToTheShownClientNotTheCurrentOne() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        personal->txtCalled->setText(QStringLiteral("Addie"));
        QWidget* other = OtherChildWindow();
        CurrentFirst = kBert.first;  // as the client list does
        CurrentLast = kBert.last;
        ActivateChild(other);
        QCOMPARE(PersonalField(kAda, QStringLiteral("Called")), u"Addie"_qs);
        QVERIFY(FieldOf(kPersonal, kBert, QStringLiteral("Called")).isNull());
        ActivateChild(personal);
        QCOMPARE(personal->windowTitle(), u"Bert Mason (Personal)"_qs);
        QCOMPARE(personal->txtCalled->text(), QString());
    }

    // A client without a row in the section's table: told, nothing shown
    // changes, nothing is written.
    void aMissingRowIsToldAndNothingIsWritten() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmPersonal* personal = OpenPersonal();
        personal->txtCalled->setText(QStringLiteral("kept"));
        {
            dao::Database db = dao::OpenDatabase(world.DatabasePath());
            dao::Recordset rows = db.OpenRecordset(kPersonal);
            rows.SetIndex(QStringLiteral("Name"));
            rows.Seek(QStringLiteral("="), {kBert.last, kBert.first});
            rows.Delete();
        }
        QWidget* other = OtherChildWindow();
        ActivateChild(other);
        CurrentFirst = kBert.first;
        CurrentLast = kBert.last;
        services.messages.Answer(vbOK);
        ActivateChild(personal);
        QCOMPARE(services.messages.Last().prompt, u"Bert Mason could not be found."_qs);
        QCOMPARE(personal->windowTitle(), u"Ada Lovell (Personal)"_qs);
        QCOMPARE(personal->txtCalled->text(), u"kept"_qs);
        services.messages.Answer(vbOK);
        QVERIFY(UnloadForm(QStringLiteral("frmPersonal")));
        QCOMPARE(services.messages.Count(), 2);
    }

    void sectionScreensOpenWhereTheLastOneStood() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmPersonal* personal = OpenPersonal();
        FrameOf(personal)->move(45, 30);
        Trigger(QStringLiteral("cm3User"));
        auto* user = LoadedForm<frmUser>();
        QCOMPARE(FrameOf(user)->pos(), QPoint(45, 30));
        Trigger(QStringLiteral("mnuPersonal"));
        QCOMPARE(FrameOf(LoadedForm<frmPersonal>())->pos(), QPoint(45, 30));
    }
};

QTEST_MAIN(TestSectionProtocol)
#include "test_section_protocol.moc"
