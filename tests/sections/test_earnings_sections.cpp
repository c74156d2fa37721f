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

// A control of the screen under test: "txt%1Year(3)" is txtEYear(3) on the
// employment screen, txtBYear(3) on the business screen.
template <typename Widget = QLineEdit>
Widget* Own(QWidget* screen, const QString& name) {
    QFETCH(QString, letter);
    return Control<Widget>(screen, name.arg(letter));
}

QString Table(int page) {
    QFETCH(QString, section);
    return section + QStringLiteral(" %1").arg(page);
}

void Turn(QWidget* screen, Qt::Key arrow) {
    QTest::keyClick(Own<QSpinBox>(screen, u"spn%1Page"_qs), arrow);
}

// The eight lines as the screen shows them, "year=earnings" each.
QStringList Lines(QWidget* screen) {
    QFETCH(QString, letter);
    QStringList lines;
    for (int i = 1; i <= 8; ++i) {
        const auto text = [&](const char* column) {
            const QString name = QStringLiteral("txt%1%2(%3)").arg(letter).arg(column).arg(i);
            return Control<QLineEdit>(screen, name)->text();
        };
        lines << text("Year") + u'=' + text("NRE");
    }
    return lines;
}

// Clicks `button` of `screen`, which opens the form `name` modally: a stand-in
// for it, that tells what the user then sees on the screen's page.
void OpensStandIn(QWidget* screen, const QString& button, const QString& name) {
    RegisterForm(name, [] { return new QDialog(MainWindow()); });
    WithModal([&] { Click(Control<QPushButton>(screen, button)); },
              [&](QWidget* form) { QCOMPARE(form->objectName(), name); });
}

}  // namespace

class TestEarningsSections : public QObject {
    Q_OBJECT

private:
    static void screens() {
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("letter");
        QTest::addColumn<QString>("flag");
        QTest::addColumn<QString>("flagField");
        const char* rows[][4] = {{"Employment", "E", "chkDirector", "Director"},
                                 {"Business", "B", "chkMain", "Main Business"}};
        for (const auto& row : rows) {
            QTest::newRow(row[0]) << row[0] << row[1] << row[2] << row[3];
        }
    }

private Q_SLOTS:
    // Back from 1 is 4 and on from 4 is 1, each turn saving the page left; a
    // flag is written at its click to the page shown, each page keeping its
    // own; the section opened again from the main window starts at page 1.
    void pagesAreTablesOfTheirOwn_data() { screens(); }
    void pagesAreTablesOfTheirOwn() {
        QFETCH(QString, section);
        QFETCH(QString, flagField);
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(Table(2), kAda, {{u"Tax Year 1"_qs, u"on 2"_qs}});
        SectionScreen* screen = OpenSection(u"cm3"_qs + section);
        QLineEdit* year = Own(screen, u"txt%1Year(1)"_qs);
        QFETCH(QString, flag);
        auto* tick = Control<QCheckBox>(screen, flag);
        TypeInto(year, u"on 1"_qs);
        Click(tick);
        Turn(screen, Qt::Key_Down);
        QCOMPARE(FieldOf(Table(1), kAda, u"Tax Year 1"_qs).toString(), u"on 1"_qs);
        QCOMPARE(Own<QLabel>(screen, u"lbl%1Page"_qs)->text(), u"PAGE 4"_qs);
        QVERIFY(!tick->isChecked());
        Click(tick);
        QCOMPARE(FieldOf(Table(4), kAda, flagField).toBool(), true);
        QCOMPARE(FieldOf(Table(1), kAda, flagField).toBool(), true);
        Turn(screen, Qt::Key_Up);
        QCOMPARE(year->text(), u"on 1"_qs);
        Turn(screen, Qt::Key_Up);
        QCOMPARE(year->text(), u"on 2"_qs);
        OpensStandIn(screen, u"cm3Indicators"_qs, u"frmI"_qs + section);
        QCOMPARE(*SectionOfForm(screen->objectName())->page, 2);
        TypeInto(year, u"on 2!"_qs);
        OpenSection(u"cm3Assets"_qs);
        QCOMPARE(FieldOf(Table(2), kAda, u"Tax Year 1"_qs).toString(), u"on 2!"_qs);
        screen = OpenSection(u"cm3"_qs + section);
        QCOMPARE(Own<QLabel>(screen, u"lbl%1Page"_qs)->text(), u"PAGE 1"_qs);
        QCOMPARE(services.messages.Count(), 0);
    }

    // A line that would be lost is asked about; No changes nothing. Only the
    // boxes move: the next save writes all that moved in one update.
    void theEarningsListSlidesOnScreenAndIsSavedInOneUpdate_data() { screens(); }
    void theEarningsListSlidesOnScreenAndIsSavedInOneUpdate() {
        ScriptedServices services;
        SectionWorld world({kAda});
        QList<QPair<QString, QVariant>> lines;
        QStringList full;
        for (int i = 1; i <= 8; ++i) {
            lines << qMakePair(u"Tax Year %1"_qs.arg(i), u"Y%1"_qs.arg(i))
                  << qMakePair(u"NRE %1"_qs.arg(i), QString::number(i));
            full << u"Y%1=%1"_qs.arg(i);
        }
        SetFields(Table(1), kAda, lines);
        test::SqliteProbe probe(world.DatabasePath());
        QVERIFY(probe.Exec(u"CREATE TABLE Updates (n)"_qs));
        QVERIFY(probe.Exec(u"CREATE TRIGGER Counted AFTER UPDATE ON "_qs + test::Quoted(Table(1)) +
                           u" BEGIN INSERT INTO Updates VALUES (1); END"_qs));
        QFETCH(QString, section);
        SectionScreen* screen = OpenSection(u"cm3"_qs + section);
        services.messages.Answer(vbNo);
        Click(Own<QPushButton>(screen, u"cm3%1NRE(1)"_qs));
        const ShownMessage question = services.messages.Last();
        QCOMPARE(question.prompt,
                 u"If you scroll down, the last entry in the list will be "
                 "lost.\n\nDo you wish to continue?"_qs);
        QCOMPARE(question.title, u"Net Relevant Earnings"_qs);
        QCOMPARE(question.style, int(vbYesNo | vbQuestion | vbDefaultButton2));
        QCOMPARE(Lines(screen), full);
        services.messages.Answer(vbYes);
        Click(Own<QPushButton>(screen, u"cm3%1NRE(0)"_qs));
        QVERIFY(
            services.messages.Last().prompt.startsWith(u"If you scroll up, the first entry"_qs));
        QCOMPARE(services.messages.Beeps(), 2);
        Click(Own<QPushButton>(screen, u"cm3%1NRE(1)"_qs));  // the last line is empty
        Click(Own<QPushButton>(screen, u"cm3%1NRE(0)"_qs));  // and now the first
        QCOMPARE(services.messages.Count(), 2);
        QCOMPARE(Lines(screen), full.mid(1) << u"="_qs);
        QCOMPARE(probe.Value(u"SELECT count(*) FROM Updates"_qs).toInt(), 0);
        Turn(screen, Qt::Key_Up);
        QCOMPARE(probe.Value(u"SELECT count(*) FROM Updates"_qs).toInt(), 1);
        QCOMPARE(FieldOf(Table(1), kAda, u"Tax Year 1"_qs).toString(), u"Y2"_qs);
        QCOMPARE(FieldOf(Table(1), kAda, u"NRE 7"_qs).toString(), u"8"_qs);
        QCOMPARE(FieldOf(Table(1), kAda, u"Tax Year 8"_qs).toString(), QString());
    }

    // Each year end typed, day then month, and Next: a bad one is told when
    // the month is left and again by the move, which saves nothing, with the
    // focus in the day whichever of the two was wrong.
    void aBadYearEndIsToldWhenLeftAndStopsAMove() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SectionScreen* screen = OpenSection(u"cm3Business"_qs);
        QLineEdit* day = screen->Box(u"txtEndDay"_qs);
        QLineEdit* month = screen->Box(u"txtEndMonth"_qs);
        const struct {
            const char *day, *month;
            bool valid;
        } ends[] = {{"29", "2", false}, {"28", "02", true}, {"31", "4", false}, {"30", "4", true},
                    {"0", "1", false},  {"1", "13", false}, {"1", "0", false},  {"31", "12", true},
                    {"31", "", true},   {"", "13", true}};
        for (const auto& end : ends) {
            for (int told = end.valid ? 0 : 2; told > 0; --told) {
                services.messages.Answer(vbOK);
            }
            TypeInto(day, QString::fromLatin1(end.day));
            TypeInto(month, QString::fromLatin1(end.month));
            Click(screen->cm3Next);
            const QString stored = FieldOf(u"Business 1"_qs, kAda, u"Year end month"_qs).toString();
            QVERIFY2(services.messages.Count() == (end.valid ? 0 : 2), end.month);
            QVERIFY2((stored == QLatin1String(end.month)) == end.valid, end.month);
            if (!end.valid) {
                QCOMPARE(services.messages.Last().prompt, u"Invalid Year-end date"_qs);
                QCOMPARE(services.messages.Last().title, u"Business"_qs);
                QVERIFY(day->hasFocus());
            }
            TypeInto(day, QString());  // mended, both boxes empty for the next
            TypeInto(month, QString());
            services.messages.ClearRecord();
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
        TypeInto(screen->Box(u"txtBName"_qs), u"Listed"_qs);
        OpensStandIn(screen, u"cm3List"_qs, u"frmYearEnd"_qs);
        QCOMPARE(FieldOf(u"Business 2"_qs, kAda, u"Business Name"_qs).toString(), u"Listed"_qs);
    }
};

QTEST_MAIN(TestEarningsSections)
#include "test_earnings_sections.moc"
