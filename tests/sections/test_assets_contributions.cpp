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
    void moneyBoxes_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("total");  // with 1000 on another line
        const char* rows[][4] = {
            {"whole", "250", "     250", "    1250"},
            {"minus: bracketed, so adds nothing", "-500", "    (500)", "    1000"},
            {"half rounds up", "12.5", "      13", "    1013"},
            {"bracket reads nothing", "(500)", "", "    1000"},
            {"ninth digit refused", "123456789", "12345678", "12346678"},
            {"total too large", "99999999", "99999999", "********"},
            {"just a sign", "-", "", "    1000"},
        };
        for (const auto& row : rows) {
            QTest::newRow(row[0]) << row[1] << row[2] << row[3];
        }
    }
    // A value is rewritten when left, the net total follows at once, and the
    // save stores the text as shown.
    void moneyBoxes() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(QString, total);
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kAssets, kAda, {{u"Value 1"_qs, u"    1000"_qs}});
        frmAssets* assets = OpenAssets();
        QCOMPARE(assets->txtATotal->text(), u"    1000"_qs);
        QLineEdit* value = assets->Box(u"txtAValue(7)"_qs);
        TypeInto(value, typed);
        QCOMPARE(value->text(), shown);
        QCOMPARE(assets->txtATotal->text(), total);
        QCOMPARE(services.messages.Beeps(), 0);
        QVERIFY(UnloadForm(u"frmAssets"_qs));
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 7"_qs).toString(), shown);
    }

    // Brackets read as nothing: leaving a bracketed value again empties it. A
    // value typed and saved by a move button, which takes no focus, is
    // rewritten all the same.
    void aBracketedValueLeftAgainReadsAsNothing() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmAssets* assets = OpenAssets();
        QLineEdit* value = assets->Box(u"txtAValue(16)"_qs);
        TypeInto(value, u"-20"_qs);
        Focus(value);
        Leave(value);
        QCOMPARE(value->text(), QString());
        Focus(value);
        QTest::keyClicks(value, u"-30"_qs);
        Click(assets->cm3Next);
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 16"_qs).toString(), u"     (30)"_qs);
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

    void cycles_data() {
        QTest::addColumn<QString>("clicks");  // T type, S single/regular, N net/gross
        QTest::addColumn<QString>("shown");   // type/SR/NG
        QTest::newRow("blank to RAP, gross") << "T"
                                             << "RAP//G";
        QTest::newRow("RAP to PPC keeps gross") << "TT"
                                                << "PPC//G";
        QTest::newRow("PPC to FSAVC, net") << "TTT"
                                           << "FSAVC//N";
        QTest::newRow("cleared through the type") << "STTTT"
                                                  << "//";
        QTest::newRow("PPC chooses: G to blank") << "TTN"
                                                 << "PPC//";
        QTest::newRow("PPC chooses: blank to N") << "TTNN"
                                                 << "PPC//N";
        QTest::newRow("PPC chooses: N to G") << "TTNNN"
                                             << "PPC//G";
        QTest::newRow("no choice on RAP") << "TN"
                                          << "RAP//G";
        QTest::newRow("no choice on FSAVC") << "TTTN"
                                            << "FSAVC//N";
        QTest::newRow("no choice on blank") << "N"
                                            << "//";
        QTest::newRow("single") << "S"
                                << "/S/";
        QTest::newRow("regular") << "SS"
                                 << "/R/";
        QTest::newRow("S/R round") << "SSS"
                                   << "//";
    }
    // Clicks go round as the rules say, and the save stores the captions.
    void cycles() {
        QFETCH(QString, clicks);
        QFETCH(QString, shown);
        ScriptedServices services;
        SectionWorld world({kAda});
        auto* screen =
            qobject_cast<frmContributions*>(OpenSection(QStringLiteral("cm3Contributions")));
        const char* columns[] = {"lblCType", "lblCSR", "lblCNG"};
        for (QChar click : clicks) {
            Click(screen->Cell(columns[QStringLiteral("TSN").indexOf(click)], 20));
        }
        QStringList captions;
        for (const char* column : columns) {
            captions << screen->Cell(column, 20)->text();
        }
        QCOMPARE(captions.join(u'/'), shown);
        QVERIFY(UnloadForm(u"frmContributions"_qs));
        QStringList stored;
        for (const char* field : {"Type 20", "SR 20", "NG 20"}) {
            stored << FieldOf(u"Contributions"_qs, kAda, QString::fromLatin1(field)).toString();
        }
        QCOMPARE(stored.join(u'/'), shown);
    }

    void helpOnContributions() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SectionScreen* screen = OpenSection(QStringLiteral("cm3Contributions"));
        WithModal(
            [screen] { Click(screen->cm3Help); },
            [](QWidget* help) { QCOMPARE(help->windowTitle(), u"Pension Contributions Help"_qs); });
    }
};

QTEST_MAIN(TestAssetsContributions)
#include "test_assets_contributions.moc"
