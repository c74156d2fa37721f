// The employment and business screens with their pages, earnings lists, flags,
// year ends and notes; the assets screen with its money, descriptions and
// details; the contributions screen with its columns that go round at a click.
#include "platform/widgets_gui.h"
#include "sections/frmAssets.h"
#include "sections/frmContributions.h"
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

// "txt%1Year(3)": txtEYear(3) on the employment screen, txtBYear(3) on business.
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
    QStringList lines;
    for (const QString line : {"(1)", "(2)", "(3)", "(4)", "(5)", "(6)", "(7)", "(8)"}) {
        lines << Own(screen, "txt%1Year" + line)->text() + '=' +
                     Own(screen, "txt%1NRE" + line)->text();
    }
    return lines;
}

// Clicks `button`, which opens the form `name` modally, here a stand-in.
void OpensStandIn(QWidget* screen, const QString& button, const QString& name) {
    RegisterForm(name, [] { return new QDialog(MainWindow()); });
    WithModal([&] { Click(Control<QPushButton>(screen, button)); },
              [&](QWidget* form) { QCOMPARE(form->objectName(), name); });
}

const QString kAssets = QStringLiteral("Assets");

frmAssets* OpenAssets() {
    return qobject_cast<frmAssets*>(OpenSection(QStringLiteral("cm3Assets")));
}

}  // namespace

class TestRecordSections : public QObject {
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
    // Each turn saves the page left, a flag goes to the page shown, and the
    // section opened again starts at page 1.
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
        QVERIFY(FieldOf(Table(4), kAda, flagField).toBool() &&
                FieldOf(Table(1), kAda, flagField).toBool());
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
    }

    // A line that would be lost is asked about; the next save writes all in one update.
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
        QCOMPARE(question.title + u'|' + question.prompt,
                 u"Net Relevant Earnings|If you scroll down, the last entry in the list will be "
                 "lost.\n\nDo you wish to continue?"_qs);
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
        Turn(screen, Qt::Key_Down);
        QCOMPARE(Lines(screen), full.mid(1) << u"="_qs);
    }

    // A bad year end is told when left and by the move, which saves nothing,
    // with the focus in the day whichever of the two was wrong.
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
            QVERIFY2(services.messages.Count() == (end.valid ? 0 : 2), end.month);
            QVERIFY2(
                (FieldOf(u"Business 1"_qs, kAda, u"Year end month"_qs) == end.month) == end.valid,
                end.month);
            if (!end.valid) {
                QCOMPARE(services.messages.Last().prompt, u"Invalid Year-end date"_qs);
                QVERIFY(day->hasFocus());
            }
            TypeInto(day, QString());  // mended, both boxes empty for the next
            TypeInto(month, QString());
            services.messages.ClearRecord();
        }
    }

    // The page's notes have a window of their own; the year-end list opens after a save.
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
    // Each text typed into a value and left (a blank: left again), with 1000 on
    // another line; a value saved by a move button is rewritten all the same.
    void moneyBoxesRewriteTheirFiguresAndTheTotalFollows() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kAssets, kAda, {{u"Value 1"_qs, u"    1000"_qs}});
        frmAssets* assets = OpenAssets();
        QLineEdit* value = assets->Box(u"txtAValue(7)"_qs);
        QStringList outcomes;
        for (const char* typed :
             {"250", "-500", "", "12.5", "(500)", "123456789", "99999999", "-"}) {
            Focus(value);
            if (*typed) {
                value->selectAll();
                QTest::keyClick(value, Qt::Key_Delete);
                QTest::keyClicks(value, QString::fromLatin1(typed));
            }
            Leave(value);
            outcomes << u"%1: [%2] total [%3], %4 beeps"_qs
                            .arg(typed, value->text(), assets->txtATotal->text())
                            .arg(services.messages.Beeps());
        }
        QCOMPARE(outcomes, ReferenceLines(u"assets-money-boxes.txt"_qs, outcomes));
        // A full box refuses a key even over a selection: it is emptied first.
        TypeInto(value, u"12345678"_qs);
        Focus(value);
        value->selectAll();
        QTest::keyClicks(value, u"7"_qs);
        QCOMPARE(value->text(), u"12345678"_qs);
        QTest::keyClick(value, Qt::Key_Delete);
        // A closing bracket still goes into a full box.
        QTest::keyClicks(value, u"(1234567)"_qs);
        QCOMPARE(value->text(), u"(1234567)"_qs);
        value->selectAll();
        QTest::keyClick(value, Qt::Key_Delete);
        QTest::keyClicks(value, u"-5"_qs);
        Click(assets->cm3Next);
        QCOMPARE(FieldOf(kAssets, kAda, u"Value 7"_qs).toString(), u"      (5)"_qs);
    }

    // Shared descriptions are asked about, even at a move; 16 to 19 are the client's own.
    void descriptionsSharedAndOwn() {
        ScriptedServices services;
        SectionWorld world({kAda, kBert});
        frmAssets* assets = OpenAssets();
        QLineEdit* shared = assets->Box(u"txtAsset(3)"_qs);
        const QString before = shared->text();
        services.messages.Answer(vbNo);
        TypeInto(shared, u"Yachts"_qs);
        QCOMPARE(shared->text(), before);
        TypeInto(assets->Box(u"txtAsset(17)"_qs), u"Own shares"_qs);
        Focus(shared);
        QTest::keyClicks(shared, u"!"_qs);
        services.messages.Answer(vbYes);
        Click(assets->cm3Next);
        QCOMPARE(services.messages.Last().prompt,
                 u"You have changed an asset description.\nThe change will apply to all records "
                 "in the database.\nAre you sure you wish to make this change?"_qs);
        QCOMPARE(services.messages.Last().title, kAssets);
        QCOMPARE(CommonField(kAssets, u"Text 3"_qs).toString(), before + u'!');
        QCOMPARE(FieldOf(kAssets, kAda, u"Asset 17"_qs).toString(), u"Own shares"_qs);
    }

    // The details' total becomes the line's value, and the net total follows.
    void detailsTotalBecomesTheLineValue() {
        ScriptedServices services;
        SectionWorld world({kAda});
        SetFields(kAssets, kAda,
                  {{u"Value 1"_qs, u"    1000"_qs}, {u"Value 18"_qs, u"     999"_qs}});
        SetFields(u"Asset 17"_qs, kAda, {{u"Value 1"_qs, u"     100"_qs}});
        frmAssets* assets = OpenAssets();
        WithModal([assets] { Click(Control<QLabel>(assets, u"lblADetails(17)"_qs)); },
                  [&services](QWidget* details) {
                      QLineEdit* date = Control<QLineEdit>(details, u"txtADate(4)"_qs);
                      TypeInto(Control<QLineEdit>(details, u"txtAValue(2)"_qs), u"250.4"_qs);
                      TypeInto(Control<QLineEdit>(details, u"txtAValue(3)"_qs), u"-50"_qs);
                      date->setText(u"1/13/99"_qs);
                      services.messages.Answer(vbOK);
                      Click(Control<QPushButton>(details, u"cm3Close"_qs));
                      QVERIFY(details->isVisible() && date->hasFocus());
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

    // Runs of clicks (Type, S/R, N/G), a line each: the boxes shown, and saved.
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
            const auto stored = [line](const char* field) {
                return FieldOf(u"Contributions"_qs, kAda, u"%1 %2"_qs.arg(field).arg(line))
                    .toString();
            };
            QVERIFY(shown[line - 1].endsWith(stored("Type") + u'/' + stored("SR") + u'/' +
                                             stored("NG")));
        }
    }
};

QTEST_MAIN(TestRecordSections)
#include "test_record_sections.moc"
