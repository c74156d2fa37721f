// The user-defined section: its client values, the descriptions shared by all
// clients with their question, and the title that renames the section.
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
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

const ClientName kAda{QStringLiteral("Ada"), QStringLiteral("Lovell")};
const ClientName kBert{QStringLiteral("Bert"), QStringLiteral("Mason")};

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
        QCOMPARE(user->txtLeft[2]->text(), u"Ref 7"_qs);
        TypeInto(user->txtRight[2], QStringLiteral("Due May"));
        QVERIFY(UnloadForm(QStringLiteral("frmUser")));
        QCOMPARE(FieldOf(QStringLiteral("User"), kAda, QStringLiteral("Right 2")).toString(),
                 u"Due May"_qs);
    }
};

QTEST_MAIN(TestUserSection)
#include "test_user_section.moc"
