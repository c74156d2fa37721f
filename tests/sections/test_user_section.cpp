// The user-defined section: its client values, the descriptions shared by all
// clients with their question, and the title that renames the section.
#include "platform/widgets_gui.h"
#include "sections/frmUser.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QAction>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

frmUser* OpenUser() {
    Trigger(QStringLiteral("cm3User"));
    return LoadedForm<frmUser>();
}

}  // namespace

class TestUserSection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensOnTheCurrentClientAndSavesWhenLeft() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(QStringLiteral("User"), kAda,
                  {{QStringLiteral("Left 2"), QStringLiteral("Ref 7")}});
        frmUser* user = OpenUser();
        QVERIFY(user);
        QVERIFY(!user->Loading);
        QCOMPARE(ActiveSection, qint16(7));
        QCOMPARE(user->windowTitle(), u"Ada Lovell (User Defined)"_qs);
        QCOMPARE(user->Box(u"txtLeft(2)"_qs)->text(), u"Ref 7"_qs);
        TypeInto(user->Box(u"txtRight(2)"_qs), QStringLiteral("Due May"));
        QVERIFY(UnloadForm(QStringLiteral("frmUser")));
        QCOMPARE(FieldOf(QStringLiteral("User"), kAda, QStringLiteral("Right 2")).toString(),
                 u"Due May"_qs);
    }

    // The title is live on the main window at every key, and stored, without
    // a question, only when the box is left.
    void theTitleRenamesTheSectionAsItIsTyped() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmUser* user = OpenUser();
        auto* main = LoadedForm<frmQuillon>();
        Focus(user->txtUserFormTitle);
        user->txtUserFormTitle->selectAll();
        QTest::keyClicks(user->txtUserFormTitle, QStringLiteral("Fe"));
        QCOMPARE(main->Command(QStringLiteral("cm3User"))->text(), u"Fe"_qs);
        QCOMPARE(main->Command(QStringLiteral("mnuUser"))->text(), u"&7 Fe"_qs);
        QCOMPARE(user->windowTitle(), u"Ada Lovell (Fe)"_qs);
        QTest::keyClicks(user->txtUserFormTitle, QStringLiteral("es"));
        QCOMPARE(main->Command(QStringLiteral("cm3User"))->text(), u"Fees"_qs);
        QCOMPARE(UserTitle, u"Fees"_qs);
        QCOMPARE(CommonField(QStringLiteral("User"), QStringLiteral("Title")).toString(),
                 u"User Defined"_qs);
        Leave(user->txtUserFormTitle);
        QCOMPARE(CommonField(QStringLiteral("User"), QStringLiteral("Title")).toString(),
                 u"Fees"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // A description is shared by every client: a change is asked about and
    // written at once; the clients' own values stay on their line.
    void aChangedDescriptionIsAskedAboutAndSharedAtOnce() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SetFields(QStringLiteral("User"), kBert,
                  {{QStringLiteral("Left 3"), QStringLiteral("42")}});
        frmUser* user = OpenUser();
        const QString before = user->Box(u"txtCommon(3)"_qs)->text();
        services.messages.Answer(vbNo);
        TypeInto(user->Box(u"txtCommon(3)"_qs), QStringLiteral("Fee agreed"));
        QCOMPARE(services.messages.Count(), 1);
        const ShownMessage question = services.messages.Last();
        QCOMPARE(question.prompt,
                 u"You have changed a common description.\nThe change will apply to all records in "
                 "the database.\nAre you sure you wish to make this change?"_qs);
        QCOMPARE(question.title, u"User Defined"_qs);
        QCOMPARE(question.style, int(vbYesNo | vbQuestion | vbDefaultButton2));
        QCOMPARE(user->Box(u"txtCommon(3)"_qs)->text(), before);
        QCOMPARE(CommonField(QStringLiteral("User"), QStringLiteral("Text 3")).toString(), before);

        services.messages.Answer(vbYes);
        TypeInto(user->Box(u"txtCommon(3)"_qs), QStringLiteral("Fee agreed"));
        QCOMPARE(CommonField(QStringLiteral("User"), QStringLiteral("Text 3")).toString(),
                 u"Fee agreed"_qs);
        // Leaving it again unchanged asks nothing.
        Focus(user->Box(u"txtCommon(3)"_qs));
        Leave(user->Box(u"txtCommon(3)"_qs));
        QCOMPARE(services.messages.Count(), 2);
        user->cm3Next->click();
        QCOMPARE(user->Box(u"txtCommon(3)"_qs)->text(), u"Fee agreed"_qs);
        QCOMPARE(user->Box(u"txtLeft(3)"_qs)->text(), u"42"_qs);
        QCOMPARE(FieldOf(QStringLiteral("User"), kBert, QStringLiteral("Left 3")).toString(),
                 u"42"_qs);
    }

    // No date gate: the user section always saves and always closes.
    void notesAreSavedAndHeldToTheirWidth() {
        ScriptedServices services;
        SectionWorld world({kAda});
        frmUser* user = OpenUser();
        Control<QPlainTextEdit>(user, u"txtNoteLeft"_qs)
            ->setPlainText(QString(300, QLatin1Char('x')));
        QCOMPARE(Control<QPlainTextEdit>(user, u"txtNoteLeft"_qs)->toPlainText().size(), 255);
        Control<QPlainTextEdit>(user, u"txtNoteRight"_qs)
            ->setPlainText(QStringLiteral("line one\nline two"));
        world.MainWindow()->close();
        QCOMPARE(FieldOf(QStringLiteral("User"), kAda, QStringLiteral("Note Left")).toString(),
                 QString(255, QLatin1Char('x')));
        QCOMPARE(FieldOf(QStringLiteral("User"), kAda, QStringLiteral("Note Right")).toString(),
                 u"line one\nline two"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }
};

QTEST_MAIN(TestUserSection)
#include "test_user_section.moc"
