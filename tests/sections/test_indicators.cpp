// The indicator screens: ticks written at the click, filters over True, False
// and Null, descriptions saved together at closing after one question, and
// the screen of each section and page.
#include "platform/widgets_gui.h"
#include "sections/filter_label_gui.h"
#include "sections/frmIEmployment.h"
#include "sections/frmIPersonal.h"
#include "sections/frmPersonal.h"
#include "sections/section_state.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

template <typename Form>
Form* OpenIndicators() {
    auto* form = LoadForm<Form>();
    form->show();
    return form;
}

QStringList Listed(const IndicatorScreen* form) {
    QStringList entries;
    for (int row = 0; row < form->lstClients->count(); ++row) {
        entries << form->lstClients->item(row)->text();
    }
    return entries;
}

void ClickEntry(IndicatorScreen* form, const QString& entry) {
    QListWidgetItem* item = form->lstClients->findItems(entry, Qt::MatchExactly).value(0);
    QVERIFY(item);
    const QRect at = form->lstClients->visualItemRect(item);
    QTest::mouseClick(form->lstClients->viewport(), Qt::LeftButton, {}, at.center());
}

const QString kAdaEntry = QStringLiteral("Lovell, Ada");
const QString kBertEntry = QStringLiteral("Mason, Bert");

}  // namespace

class TestIndicators : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // All set filters must hold; a Null indicator satisfies neither "Y" nor "N".
    void theFiltersOverTrueFalseAndNull() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert, kCora});
        SetFields(kPersonal, kAda, {{u"Blind"_qs, true}, {u"Indicator 2"_qs, true}});
        SetFields(kPersonal, kBert, {{u"Blind"_qs, true}, {u"Indicator 2"_qs, false}});
        auto* form = OpenIndicators<frmIPersonal>();
        QCOMPARE(form->lblCount->text(), u"3"_qs);
        const QList<QPair<int, QStringList>> clicks = {
            {1, {kAdaEntry, kBertEntry}},  // Blind "Y"
            {2, {kAdaEntry}},              // and 2 "Y"
            {2, {kBertEntry}},             // and 2 "N"
            {1, {}},                       // Blind "N"
            {1, {kBertEntry}},             // Blind off, 2 "N": Cora's Null is not False
        };
        for (const auto& [box, expected] : clicks) {
            Click(form->lblFilter[size_t(box - 1)]);
            QCOMPARE(Listed(form), expected);
        }
        QCOMPARE(form->lblCount->text(), u"1"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // The screen opens on the section's client; a tick is written at once and
    // the list catches up at the next filter click.
    void ticksAreWrittenAtTheClick() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        for (const ClientName& client : {kAda, kBert}) {
            SetFields(kPersonal, client, {{u"Indicator 3"_qs, false}});
        }
        OpenPersonal()->cm3Next->click();
        QTimer::singleShot(0, [] {
            auto* form = qobject_cast<frmIPersonal*>(QApplication::activeModalWidget());
            QVERIFY(form);
            QCOMPARE(form->windowTitle(), u"Bert Mason"_qs);
            Click(form->lblFilter[2]);  // 3 "Y": nobody
            Click(form->lblFilter[2]);  // 3 "N": both
            ClickEntry(form, kAdaEntry);
            QCOMPARE(form->Selected(), kAda);
            Click(form->chkTick[2]);
            QCOMPARE(FieldOf(kPersonal, kAda, u"Indicator 3"_qs), QVariant(true));
            QCOMPARE(Listed(form), (QStringList{kAdaEntry, kBertEntry}));
            Click(form->lblFilter[2]);  // off
            Click(form->lblFilter[2]);  // 3 "Y"
            QCOMPARE(Listed(form), QStringList{kAdaEntry});
            Click(form->chkTick[0]);
            QCOMPARE(FieldOf(kPersonal, kAda, u"Blind"_qs), QVariant(true));
            Click(form->cm3Close);
        });
        Click(LoadedForm<frmPersonal>()->cm3Indicators);
        FlushUnloadedForms();
        QVERIFY(!LoadedForm<frmIPersonal>());
        QCOMPARE(services.messages.Count(), 0);
    }

    // One question for all the changed descriptions; No stores nothing and the
    // next opening shows the old texts; Yes stores them all.
    void descriptionsAreSavedAtClosing() {
        ScriptedServices services;
        SectionWorld world({kAda});
        EmploymentPage = 2;
        auto* form = OpenIndicators<frmIEmployment>();
        QVERIFY(!Control<QWidget>(form, u"cm3Labels"_qs) && !form->lblIndicator);
        const QString before = form->txtIndicator[0]->text();
        QCOMPARE(before, CommonField(u"Employment 2"_qs, u"Text 1"_qs).toString());
        TypeInto(form->txtIndicator[0], u"Pool car"_qs);
        TypeInto(form->txtIndicator[9], u"Bonus"_qs);
        services.messages.Answer(vbNo);
        QTest::keyClick(form, Qt::Key_Escape);
        QCOMPARE(services.messages.Last().prompt,
                 u"You have changed Indicator descriptions.\nThe changes will apply to all "
                 "records in the database.\nAre you sure you wish to make these changes?"_qs);
        QCOMPARE(services.messages.Last().style, int(vbYesNo | vbQuestion | vbDefaultButton2));
        FlushUnloadedForms();
        form = OpenIndicators<frmIEmployment>();
        QCOMPARE(form->txtIndicator[0]->text(), before);
        TypeInto(form->txtIndicator[0], u"Pool car"_qs);
        services.messages.Answer(vbYes);
        QVERIFY(UnloadForm(u"frmIEmployment"_qs));
        QCOMPARE(CommonField(u"Employment 2"_qs, u"Text 1"_qs).toString(), u"Pool car"_qs);
        QCOMPARE(CommonField(u"Employment 1"_qs, u"Text 1"_qs).toString(), before);
        QCOMPARE(services.messages.Count(), 2);
    }

    // With the client database gone, each routine of the screen tells its
    // failure under the screen's name and its own.
    void failuresAreToldUnderTheScreensName() {
        ScriptedServices services;
        SectionWorld world({kAda});
        const QString away = world.DatabasePath() + u".away"_qs;
        const auto told = [&services](int from) {
            QStringList lines;
            for (int i = from; i < services.messages.Count(); ++i) {
                lines << services.messages.Shown()
                             .at(i)
                             .prompt.section(u'\n', 0, 1)
                             .replace(u'\n', u" / "_qs);
            }
            return lines;
        };
        auto* form = OpenIndicators<frmIPersonal>();
        ClickEntry(form, kAdaEntry);
        TypeInto(form->txtIndicator[1], u"Pension"_qs);
        QVERIFY(QFile::rename(world.DatabasePath(), away));
        for (const int answer : {vbOK, vbOK, vbYes, vbOK, vbOK, vbOK}) {
            services.messages.Answer(answer);
        }
        Click(form->chkTick[1]);
        Click(form->lblFilter[1]);
        QVERIFY(UnloadForm(u"frmIPersonal"_qs));
        FlushUnloadedForms();
        const int opened = services.messages.Count();
        OpenIndicators<frmIPersonal>();
        QVERIFY(QFile::rename(away, world.DatabasePath()));
        const QStringList lines = told(0);
        QCOMPARE(lines, ReferenceLines(u"indicator-failures.txt"_qs, lines));
        QCOMPARE(opened, 4);
    }

    void anIndicatorScreenIsRenderedIntoTheDocumentation() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert, kCora});
        SetFields(kPersonal, kBert, {{u"Indicator 3"_qs, true}});
        auto* form = OpenIndicators<frmIPersonal>();
        Click(form->lblFilter[2]);
        ClickEntry(form, kBertEntry);
        QVERIFY(QTest::qWaitForWindowExposed(form));
        const QString folder = QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots");
        QVERIFY(form->grab().save(folder + QStringLiteral("/personal-indicators.png")));
    }
};

QTEST_MAIN(TestIndicators)
#include "test_indicators.moc"
