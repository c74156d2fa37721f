// The employment and business screens: four pages, one table each; the
// earnings list that slides by a line; the flags written at their click; the
// business's year end and notes; the screens they open by name.
#include "platform/widgets_gui.h"
#include "sections/earnings_screen_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/scripted_services.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"
#include "support/sqlite_probe.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

struct Names {
    QString command, table, spin, label, years, earnings, buttons, flag, flagField, indicators;
};

Names Fetched() {
    QFETCH(QString, screen);
    if (screen == u"employment"_qs) {
        return {"cm3Employment", "Employment %1", "spnEPage",    "lblEPage", "txtEYear",
                "txtENRE",       "cm3ENRE",       "chkDirector", "Director", "frmIEmployment"};
    }
    return {"cm3Business", "Business %1", "spnBPage", "lblBPage",      "txtBYear",
            "txtBNRE",     "cm3BNRE",     "chkMain",  "Main Business", "frmIBusiness"};
}

QString Line(const QString& prefix, int line) {
    return prefix + QStringLiteral("(%1)").arg(line);
}

// The eight lines as the screen shows them, "year=earnings" each.
QStringList Lines(EarningsScreen* screen, const Names& n) {
    QStringList lines;
    for (int i = 1; i <= 8; ++i) {
        lines << screen->Box(Line(n.years, i))->text() + u'=' +
                     screen->Box(Line(n.earnings, i))->text();
    }
    return lines;
}

void Turn(EarningsScreen* screen, const Names& n, Qt::Key arrow) {
    QTest::keyClick(Control<QSpinBox>(screen, n.spin), arrow);
}

// Replaces the form `name` by one that notes its opening and closes at once.
void StandIn(const QString& name, QStringList& opened) {
    RegisterForm(name, [name, &opened] {
        auto* dialog = new QDialog(MainWindow());
        QTimer::singleShot(0, dialog, [=, &opened] {
            opened << name;
            dialog->close();
        });
        return dialog;
    });
}

}  // namespace

class TestEarningsSections : public QObject {
    Q_OBJECT

private:
    static void screens_data() {
        QTest::addColumn<QString>("screen");
        QTest::newRow("employment") << "employment";
        QTest::newRow("business") << "business";
    }

private Q_SLOTS:

    // Back from 1 is 4 and on from 4 is 1, each turn saving the page left;
    // the section opened again from the main window starts at page 1.
    void everyTurnOfThePageSavesThePageLeft_data() { screens_data(); }
    void everyTurnOfThePageSavesThePageLeft() {
        const Names n = Fetched();
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(n.table.arg(2), kAda, {{QStringLiteral("Tax Year 1"), QStringLiteral("on 2")}});
        auto* screen = qobject_cast<EarningsScreen*>(OpenSection(n.command));
        QLineEdit* year = screen->Box(Line(n.years, 1));
        TypeInto(year, QStringLiteral("on 1"));
        Turn(screen, n, Qt::Key_Down);
        QCOMPARE(FieldOf(n.table.arg(1), kAda, u"Tax Year 1"_qs).toString(), u"on 1"_qs);
        QCOMPARE(Control<QLabel>(screen, n.label)->text(), u"PAGE 4"_qs);
        QVERIFY(screen->windowTitle().endsWith(u" 4)"_qs));
        TypeInto(year, QStringLiteral("on 4"));
        Turn(screen, n, Qt::Key_Up);
        QCOMPARE(FieldOf(n.table.arg(4), kAda, u"Tax Year 1"_qs).toString(), u"on 4"_qs);
        QCOMPARE(year->text(), u"on 1"_qs);
        Turn(screen, n, Qt::Key_Up);
        QCOMPARE(year->text(), u"on 2"_qs);
        Turn(screen, n, Qt::Key_Up);
        TypeInto(year, QStringLiteral("on 3"));
        OpenSection(QStringLiteral("cm3Assets"));
        QCOMPARE(FieldOf(n.table.arg(3), kAda, u"Tax Year 1"_qs).toString(), u"on 3"_qs);
        screen = qobject_cast<EarningsScreen*>(OpenSection(n.command));
        QCOMPARE(Control<QLabel>(screen, n.label)->text(), u"PAGE 1"_qs);
        QCOMPARE(screen->Box(Line(n.years, 1))->text(), u"on 1"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // A line that would be lost is asked about; No changes nothing. Only the
    // boxes move: the next save writes all that moved in one update.
    void theEarningsListSlidesOnScreenAndIsSavedInOneUpdate_data() { screens_data(); }
    void theEarningsListSlidesOnScreenAndIsSavedInOneUpdate() {
        const Names n = Fetched();
        ScriptedServices services;
        SectionWorld world({kAda});
        QList<QPair<QString, QVariant>> lines;
        QStringList full;
        for (int i = 1; i <= 8; ++i) {
            lines << qMakePair(u"Tax Year %1"_qs.arg(i), u"Y%1"_qs.arg(i))
                  << qMakePair(u"NRE %1"_qs.arg(i), QString::number(i));
            full << u"Y%1=%1"_qs.arg(i);
        }
        SetFields(n.table.arg(1), kAda, lines);
        test::SqliteProbe probe(world.DatabasePath());
        QVERIFY(probe.Exec(u"CREATE TABLE Updates (n)"_qs));
        QVERIFY(probe.Exec(u"CREATE TRIGGER Counted AFTER UPDATE ON "_qs +
                           test::Quoted(n.table.arg(1)) +
                           u" BEGIN INSERT INTO Updates VALUES (1); END"_qs));
        auto* screen = qobject_cast<EarningsScreen*>(OpenSection(n.command));
        services.messages.Answer(vbNo);
        Click(Control<QPushButton>(screen, Line(n.buttons, 1)));
        QCOMPARE(
            services.messages.Last().prompt,
            u"If you scroll down, the last entry in the list will be lost.\n\nDo you wish to continue?"_qs);
        QCOMPARE(services.messages.Last().title, u"Net Relevant Earnings"_qs);
        QCOMPARE(services.messages.Last().style, int(vbYesNo | vbQuestion | vbDefaultButton2));
        QCOMPARE(Lines(screen, n), full);
        services.messages.Answer(vbYes);
        Click(Control<QPushButton>(screen, Line(n.buttons, 0)));
        QVERIFY(
            services.messages.Last().prompt.startsWith(u"If you scroll up, the first entry"_qs));
        QCOMPARE(services.messages.Beeps(), 2);
        Click(Control<QPushButton>(screen, Line(n.buttons, 1)));  // the last line is empty
        Click(Control<QPushButton>(screen, Line(n.buttons, 0)));  // and now the first
        QCOMPARE(services.messages.Count(), 2);
        const QStringList moved = full.mid(1) << u"="_qs;
        QCOMPARE(Lines(screen, n), moved);
        QCOMPARE(probe.Value(u"SELECT count(*) FROM Updates"_qs).toInt(), 0);
        Turn(screen, n, Qt::Key_Up);
        QCOMPARE(probe.Value(u"SELECT count(*) FROM Updates"_qs).toInt(), 1);
        QCOMPARE(FieldOf(n.table.arg(1), kAda, u"Tax Year 1"_qs).toString(), u"Y2"_qs);
        QCOMPARE(FieldOf(n.table.arg(1), kAda, u"NRE 7"_qs).toString(), u"8"_qs);
        QCOMPARE(FieldOf(n.table.arg(1), kAda, u"Tax Year 8"_qs).toString(), QString());
    }

    // A flag is written at its click, to the page shown, and each page keeps
    // its own; the indicators open by name for the page.
    void flagsAreWrittenAtTheirClickToThePageShown_data() { screens_data(); }
    void flagsAreWrittenAtTheirClickToThePageShown() {
        const Names n = Fetched();
        ScriptedServices services;
        SectionWorld world({kAda});
        auto* screen = qobject_cast<EarningsScreen*>(OpenSection(n.command));
        auto* flag = Control<QCheckBox>(screen, n.flag);
        Click(flag);
        Turn(screen, n, Qt::Key_Up);
        QVERIFY(!flag->isChecked());
        Click(flag);
        QCOMPARE(FieldOf(n.table.arg(1), kAda, n.flagField).toBool(), true);
        QCOMPARE(FieldOf(n.table.arg(2), kAda, n.flagField).toBool(), true);
        Click(flag);
        QCOMPARE(FieldOf(n.table.arg(2), kAda, n.flagField).toBool(), false);
        QStringList opened;
        StandIn(n.indicators, opened);
        Click(screen->cm3Indicators);
        QCOMPARE(opened, QStringList{n.indicators});
        QCOMPARE(*SectionOfForm(screen->objectName())->page, 2);
    }

    void yearEnds_data() {
        QTest::addColumn<QString>("day");
        QTest::addColumn<QString>("month");
        QTest::addColumn<bool>("valid");
        QTest::newRow("29 February") << "29"
                                     << "2" << false;
        QTest::newRow("28 February") << "28"
                                     << "02" << true;
        QTest::newRow("31 April") << "31"
                                  << "4" << false;
        QTest::newRow("30 April") << "30"
                                  << "4" << true;
        QTest::newRow("day 0") << "0"
                               << "1" << false;
        QTest::newRow("month 13") << "1"
                                  << "13" << false;
        QTest::newRow("month 0") << "1"
                                 << "0" << false;
        QTest::newRow("31 December") << "31"
                                     << "12" << true;
        QTest::newRow("no month") << "31"
                                  << "" << true;
        QTest::newRow("no day") << ""
                                << "13" << true;
    }
    // A bad year end is told when either box is left, and stops a move with
    // the focus in the day, whichever of the two was wrong.
    void yearEnds() {
        QFETCH(QString, day);
        QFETCH(QString, month);
        QFETCH(bool, valid);
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        SectionScreen* screen = OpenSection(u"cm3Business"_qs);
        for (int told = valid ? 0 : 2; told > 0; --told) {
            services.messages.Answer(vbOK);
        }
        TypeInto(screen->Box(u"txtEndDay"_qs), day);
        TypeInto(screen->Box(u"txtEndMonth"_qs), month);
        Click(screen->cm3Next);
        QCOMPARE(services.messages.Count(), valid ? 0 : 2);
        QCOMPARE(CurrentLast, valid ? kBert.last : kAda.last);
        if (!valid) {
            QCOMPARE(services.messages.Last().prompt, u"Invalid Year-end date"_qs);
            QCOMPARE(services.messages.Last().title, u"Business"_qs);
            QCOMPARE(services.messages.Last().style, int(vbOKOnly));
            QVERIFY(screen->Box(u"txtEndDay"_qs)->hasFocus());
            QVERIFY(FieldOf(u"Business 1"_qs, kAda, u"Year end month"_qs).isNull());
            TypeInto(screen->Box(u"txtEndDay"_qs), QString());  // mended, it may close
        }
    }

    // The notes of the page are read and written by a window of their own; the
    // year-end list opens after the page is saved.
    void notesAndTheYearEndListGoWithThePage() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(u"Business 2"_qs, kAda, {{u"Notes"_qs, u"old"_qs}});
        SectionScreen* screen = OpenSection(u"cm3Business"_qs);
        QTest::keyClick(Control<QSpinBox>(screen, u"spnBPage"_qs), Qt::Key_Up);
        WithModal([screen] { Click(Control<QPushButton>(screen, u"cm3Notes"_qs)); },
                  [](QWidget* notes) {
                      QCOMPARE(notes->windowTitle(), u"Ada Lovell (Business 2)"_qs);
                      auto* text = Control<QPlainTextEdit>(notes, u"txtNotes"_qs);
                      QCOMPARE(text->toPlainText(), u"old"_qs);
                      text->setPlainText(u"new"_qs);
                      Click(Control<QPushButton>(notes, u"cm3Close"_qs));
                  });
        QCOMPARE(FieldOf(u"Business 2"_qs, kAda, u"Notes"_qs).toString(), u"new"_qs);
        QStringList opened;
        StandIn(u"frmYearEnd"_qs, opened);
        TypeInto(screen->Box(u"txtBName"_qs), u"Listed"_qs);
        Click(Control<QPushButton>(screen, u"cm3List"_qs));
        QCOMPARE(opened.size(), 1);
        QCOMPARE(FieldOf(u"Business 2"_qs, kAda, u"Business Name"_qs).toString(), u"Listed"_qs);
    }
};

QTEST_MAIN(TestEarningsSections)
#include "test_earnings_sections.moc"
