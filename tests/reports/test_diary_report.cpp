// The diary progress report: whole sheets against their references, the page of
// the totals, the conditions kept in the settings, and failures told.

#include "reports/frmDiaryReport.h"
#include "reports/frmVSPrint.h"
#include "reports/report_state.h"
#include "reports/vsprint.h"
#include "sections/frmDiary.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/report_reading.h"
#include "support/section_testing.h"
#include "support/shell_testing.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

void FillClients() {
    using F = QList<QPair<QString, QVariant>>;
    const F partner{{"Partner", "Jones"}, {"Manager", "Smith"}};
    SetFields("Administration", kAda,
              partner + F{{"Office Number", "12A"},
                          {"Client Reference", "LOV 1"},
                          {"NI Number", "AB 12 34 56 C"},
                          {"Tax Reference", "123"}});
    SetFields("Administration", kBert, F{{"Partner", "Jones"}, {"Manager", "smith"}});
    SetFields("Administration", kCora,
              partner + F{{"Office Number", "12a"}, {"Tax Reference", " 4 5"}});
    SetFields("Diary 1", kAda, F{{"Standard Date 1", "06/04/12"}, {"Standard Date 3", "   "}});
    SetFields(
        "Diary 1", kCora,
        F{{"Standard Date 2", "ask"}, {"Standard Date 6", "01/02/13"}, {"Standard Date 8", "9"}});
}

// Event descriptions 1 to 20 of the first diary page, the first `marked`
// with an asterisk, and description 2 a lone "*".
void SetEvents(int marked) {
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    for (int i = 1; i <= 20; ++i) {
        const QString text =
            QStringLiteral("%1Return %2 received and checked").arg(i <= marked ? "*" : "").arg(i);
        db.Execute(QStringLiteral("UPDATE [Common] SET [Text %1] = '%2' WHERE [Name] = 'Diary 1'")
                       .arg(i)
                       .arg(i == 2 ? "*" : text));
    }
}

}  // namespace

class DiaryReportTest : public QObject {
    Q_OBJECT

private:
    PrintDesktop desktop_;
    std::unique_ptr<SectionWorld> world_;
    QTemporaryDir dir_;

    // Prints from the form and closes the preview it shows.
    static void Print(frmDiaryReport* form) {
        bool previewed = false;
        QTimer closer;
        connect(&closer, &QTimer::timeout, [&previewed] {
            if (auto* preview = qobject_cast<frmVSPrint*>(QApplication::activeModalWidget())) {
                previewed = preview->close();
            }
        });
        closer.start(0);
        Click(form->cm3Print);
        QVERIFY(previewed);
    }

private Q_SLOTS:
    void initTestCase() {
        world_ = std::make_unique<SectionWorld>(QList<ClientName>{kAda, kBert, kCora});
        FillClients();
        Trigger(QStringLiteral("cm3Diary"));
        Click(LoadedForm<frmDiary>()->cm3DList);
        // A client that another workstation has deleted since the list was made.
        LoadedForm<frmDiary>()->lstClients->addItem(QStringLiteral("Gone, Gus"));
    }
    void init() { SetDefaults(); }
    void cleanup() {
        UnloadForm(QString::fromLatin1(frmDiaryReport::kFormName));
        desktop_.services.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // No, one and seven marked events, each with its conditions and reference.
    void sheetsMatchTheirReferences_data() {
        QTest::addColumn<int>("marked");
        QTest::addColumn<QStringList>("conditions");  // partner, manager, assistant, office
        QTest::addColumn<int>("reference");
        QTest::newRow("none") << 0 << QStringList{"", "", "", ""} << 2;
        QTest::newRow("one") << 1 << QStringList{"", "", "", "12A"} << 1;
        QTest::newRow("seven") << 8 << QStringList{" Jones", "Smith ", "", ""} << 3;
    }
    void sheetsMatchTheirReferences() {
        QFETCH(int, marked);
        QFETCH(QStringList, conditions);
        QFETCH(int, reference);
        SetEvents(marked);
        LoadedForm<frmDiary>()->ReadEvents();
        auto* form = LoadForm<frmDiaryReport>();
        form->show();
        for (QLineEdit* box :
             {form->txtPartner, form->txtManager, form->txtAssistant, form->txtOffice}) {
            TypeInto(box, conditions.takeFirst());
        }
        Click(form->op3Reference[size_t(reference)]);
        Print(form);
        const QStringList operations = Operations(VSDocumentControl().Document());
        const QString name = QStringLiteral("diary-report-%1").arg(QTest::currentDataTag());
        QCOMPARE(operations, ReferenceLines(name + ".txt", operations));
        // The file names its document and carries its fonts, to print alike anywhere.
        const QString pdf = dir_.filePath(name + ".pdf");
        VSConvertToPDF(pdf);
        QVERIFY(PdfTitle(pdf) == "Diary Report" && !PdfFonts(pdf).values().contains(false));
        QVERIFY(!PdfFonts(pdf).isEmpty());
        const char* picture = QUILLON_TEST_DATA_DIR "/../../docs/screenshots/diary-report-page1";
        QVERIFY(marked < 8 ||
                QProcess::execute("pdftoppm", {"-png", "-r", "90", "-singlefile", "-f", "1", "-l",
                                               "1", pdf, picture}) == 0);
    }

    // Sixty lines fill a page; the totals keep an empty line above them, on
    // the next page when the first has no room.
    void totalsKeepALineAboveThem_data() {
        QTest::addColumn<int>("clients");
        QTest::addColumn<int>("totalsPage");
        QTest::newRow("58") << 58 << 1;
        QTest::newRow("59") << 59 << 2;
        QTest::newRow("60") << 60 << 2;
    }
    void totalsKeepALineAboveThem() {
        QFETCH(int, clients);
        QFETCH(int, totalsPage);
        DiaryReport report;
        report.entries = QStringList(clients, QStringLiteral("Lovell, Ada"));
        ErrorDetails failure;
        QVERIFY(PrintDiaryReport(report, failure) == DiaryReportOutcome::Drawn);
        const PageDocument& document = VSDocumentControl().Document();
        QCOMPARE(document.PageCount(), totalsPage);
        QCOMPARE(Operations(document.pages.at(0)).filter("\"Lovell, Ada\"").size(),
                 qMin(clients, 60));
        const QString last = Operations(document.pages.at(totalsPage - 1)).join('\n');
        QVERIFY(last.contains("\"TOTALS\"") &&
                last.contains(QStringLiteral("\"%1\"").arg(clients)));
    }

    // The conditions open as they were left and are kept trimmed in the
    // settings; the help panel hides at a click; a database that can't be
    // opened is told in the report's own words.
    void conditionsStayAndFailuresAreTold() {
        DiaryReportOffice = QStringLiteral("12A");
        DiaryReportReference = 2;
        QTimer::singleShot(0, [this] {
            auto* form = qobject_cast<frmDiaryReport*>(QApplication::activeModalWidget());
            QVERIFY(form);
            QCOMPARE(form->txtOffice->text(), QStringLiteral("12A"));
            QVERIFY(form->op3Reference[2]->isChecked());
            TypeInto(form->txtPartner, QStringLiteral("  Jones "));
            QCOMPARE(form->txtPartner->text(), QStringLiteral("Jones"));
            Click(form->op3Reference[3]);
            Click(form->cm3Help);
            QVERIFY(form->picHelp->isVisible());
            Click(form->picHelp->findChildren<QLabel*>().last());
            QVERIFY(!form->picHelp->isVisible());
            QVERIFY(QFile::rename(ClientDatabasePath(), ClientDatabasePath() + ".away"));
            desktop_.services.messages.Answer(vbOK);
            Click(form->cm3Print);
            QVERIFY(QFile::rename(ClientDatabasePath() + ".away", ClientDatabasePath()));
            Click(form->cm3Close);
        });
        Click(LoadedForm<frmDiary>()->cm3Report);
        const ShownMessage told = desktop_.services.messages.Last();
        QVERIFY(
            told.title == "Diary Report" &&
            told.prompt.startsWith("Module: frmDiaryReport\nProcedure: cm3Print_Click\nError "));
        SetDefaults();
        ReadConfiguration();
        QCOMPARE(DiaryReportPartner, QStringLiteral("Jones"));
        QCOMPARE(DiaryReportReference, qint16(3));
    }
};

QTEST_MAIN(DiaryReportTest)
#include "test_diary_report.moc"
