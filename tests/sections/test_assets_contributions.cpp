// The assets screen: money boxes and their net total, the shared descriptions,
// the details behind lines 16 to 19. The contributions screen: the columns
// that go round at a click, and the rules between them.
#include "platform/widgets_gui.h"
#include "sections/frmAssets.h"
#include "sections/frmContributions.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QLabel>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

const QString kAssets = QStringLiteral("Assets");

frmAssets* OpenAssets() {
    return qobject_cast<frmAssets*>(OpenSection(QStringLiteral("cm3Assets")));
}

}  // namespace

class TestAssetsContributions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Each text typed into a value and left (a blank: left again untouched):
    // what the box then shows, the net total with 1000 on another line, and
    // the beeps. A bracketed value reads as nothing. A value typed and saved
    // by a move button, which takes no focus, is rewritten all the same.
    void moneyBoxesRewriteTheirFiguresAndTheTotalFollows() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kAssets, kAda, {{u"Value 1"_qs, u"    1000"_qs}});
        frmAssets* assets = OpenAssets();
        QLineEdit* value = assets->Box(u"txtAValue(7)"_qs);
        QStringList outcomes;
        for (const char* typed :
             {"250", "-500", "", "12.5", "(500)", "123456789", "99999999", "-"}) {
            if (*typed) {
                TypeInto(value, QString::fromLatin1(typed));
            } else {
                Focus(value);
                Leave(value);
            }
            outcomes << u"%1: [%2] total [%3], %4 beeps"_qs
                            .arg(typed, value->text(), assets->txtATotal->text())
                            .arg(services.messages.Beeps());
        }
        QCOMPARE(outcomes, ReferenceLines(u"assets-money-boxes.txt"_qs, outcomes));
        Focus(value);
        QTest::keyClicks(value, u"-5"_qs);
        Click(assets->cm3Next);
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 7"_qs).toString(), u"      (5)"_qs);
        QCOMPARE(assets->txtATotal->text(), u"    1000"_qs);
    }

    // Lines 1 to 15 share their description with every client, asked about
    // when changed, even when a move button saves; lines 16 to 19 have the
    // client's own.
    void descriptionsSharedAndOwn() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmAssets* assets = OpenAssets();
        QLineEdit* shared = assets->Box(u"txtAsset(3)"_qs);
        const QString before = shared->text();
        services.messages.Answer(vbNo);
        TypeInto(shared, u"Yachts"_qs);
        QCOMPARE(services.messages.Last().prompt,
                 u"You have changed an asset description.\nThe change will apply to all records "
                 "in the database.\nAre you sure you wish to make this change?"_qs);
        QCOMPARE(services.messages.Last().title, kAssets);
        QCOMPARE(shared->text(), before);
        QCOMPARE(CommonField(kAssets, u"Text 3"_qs).toString(), before);
        TypeInto(assets->Box(u"txtAsset(17)"_qs), u"Own shares"_qs);
        Focus(shared);
        QTest::keyClicks(shared, u"!"_qs);
        services.messages.Answer(vbYes);
        Click(assets->cm3Next);
        QCOMPARE(services.messages.Count(), 2);
        QCOMPARE(CommonField(kAssets, u"Text 3"_qs).toString(), before + u'!');
        QCOMPARE(shared->text(), before + u'!');
        QCOMPARE(FieldOf(kAssets, kAda, u"Asset 17"_qs).toString(), u"Own shares"_qs);
        QCOMPARE(assets->Box(u"txtAsset(17)"_qs)->text(), QString());
    }

    // The details' total becomes the line's value, stored with the screen's
    // next save, and the net total follows; empty details empty the line.
    void detailsTotalBecomesTheLineValue() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kAssets, kAda,
                  {{u"Value 1"_qs, u"    1000"_qs}, {u"Value 18"_qs, u"     999"_qs}});
        SetFields(u"Asset 17"_qs, kAda, {{u"Value 1"_qs, u"     100"_qs}});
        frmAssets* assets = OpenAssets();
        WithModal([assets] { Click(Control<QLabel>(assets, u"lblADetails(17)"_qs)); },
                  [&services](QWidget* details) {
                      QCOMPARE(details->windowTitle(), u"Ada Lovell (Assets)"_qs);
                      QLineEdit* date = Control<QLineEdit>(details, u"txtADate(4)"_qs);
                      TypeInto(Control<QLineEdit>(details, u"txtAValue(2)"_qs), u"250.4"_qs);
                      TypeInto(Control<QLineEdit>(details, u"txtAValue(3)"_qs), u"-50"_qs);
                      date->setText(u"1/13/99"_qs);
                      services.messages.Answer(vbOK);
                      Click(Control<QPushButton>(details, u"cm3Close"_qs));
                      QVERIFY(details->isVisible());
                      QVERIFY(date->hasFocus());
                      date->clear();
                      Click(Control<QPushButton>(details, u"cm3Close"_qs));
                  });
        QCOMPARE(FieldOf(u"Asset 17"_qs, kAda, u"Value 2"_qs).toString(), u"     250"_qs);
        QCOMPARE(assets->Box(u"txtAValue(17)"_qs)->text(), u"     350"_qs);
        QVERIFY(assets->tmrTotal->isActive());
        assets->tmrTotal_Timer();
        QCOMPARE(assets->txtATotal->text(), u"    2349"_qs);
        WithModal([assets] { Click(Control<QLabel>(assets, u"lblADetails(18)"_qs)); },
                  [](QWidget*) {});
        QCOMPARE(assets->Box(u"txtAValue(18)"_qs)->text(), QString());
        QVERIFY(UnloadForm(u"frmAssets"_qs));
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 17"_qs).toString(), u"     350"_qs);
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 18"_qs).toString(), QString());
    }

    // Each run of clicks on a line of its own (T type, S single or regular, N
    // net or gross): the three boxes as shown, and as saved.
    void theColumnsGoRoundByTheirRules() {
        ScriptedServices services;
        SectionWorld world({kAda});
        auto* screen =
            qobject_cast<frmContributions*>(OpenSection(QStringLiteral("cm3Contributions")));
        const char* columns[] = {"lblCType", "lblCSR", "lblCNG"};
        const char* runs[] = {"T",  "TT",   "TTT", "STTTT", "TTN", "TTNN", "TTNNN",
                              "TN", "TTTN", "N",   "S",     "SS",  "SSS"};
        QStringList shown;
        for (int line = 1; line <= int(std::size(runs)); ++line) {
            QStringList boxes;
            for (QChar click : QString::fromLatin1(runs[line - 1])) {
                Click(screen->Cell(columns[u"TSN"_qs.indexOf(click)], line));
            }
            for (const char* column : columns) {
                boxes << screen->Cell(column, line)->text();
            }
            shown << QString::fromLatin1(runs[line - 1]) + u": "_qs + boxes.join(u'/');
        }
        QCOMPARE(shown, ReferenceLines(u"contributions-cycles.txt"_qs, shown));
        QVERIFY(UnloadForm(u"frmContributions"_qs));
        for (int line = 1; line <= int(std::size(runs)); ++line) {
            QStringList stored;
            for (const char* field : {"Type %1", "SR %1", "NG %1"}) {
                stored << FieldOf(u"Contributions"_qs, kAda, QString::fromLatin1(field).arg(line))
                              .toString();
            }
            QVERIFY(shown[line - 1].endsWith(u": "_qs + stored.join(u'/')));
        }
    }
};

QTEST_MAIN(TestAssetsContributions)
#include "test_assets_contributions.moc"
