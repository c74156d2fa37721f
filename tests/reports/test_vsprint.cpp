// The report drawing routines: opening a report on the chosen printer, the page
// mapping, text placing and the drawing state they leave on the document.

#include "reports/vsprint.h"
#include "shell/variables.h"
#include "support/print_fakes.h"

#include <QtTest>

using namespace quillon;

namespace {

const std::vector<DrawOp>& PageOps(int page = 0) {
    return VSDocumentControl().Document().pages.at(page).ops;
}

template <typename Op>
std::vector<Op> OpsOfKind(int page = 0) {
    std::vector<Op> found;
    for (const DrawOp& op : PageOps(page)) {
        if (const auto* typed = std::get_if<Op>(&op)) {
            found.push_back(*typed);
        }
    }
    return found;
}

}  // namespace

class VSPrintRoutines : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;

    bool OpenOnPreview(double scale = 100) {
        VSScale = scale;
        return VSOpenReport(QStringLiteral("Diary Report"));
    }

private Q_SLOTS:
    void init() {
        desktop_.services.messages.ClearRecord();
        desktop_.backend.jobs.clear();
        desktop_.backend.failure.clear();
        VSPrinter = QStringLiteral("Office Laser");
        ReportDestination = rdPreview;
        ReportPreview = 0;
        VSLeft = VSTop = VSPDFLeft = VSPDFTop = 0;
        VSScale = VSPDFScale = 100;
        VSAlignTextMethod = 0;
        VSAlignTextX = VSAlignTextY = 0;
        VSDuplexMode = 0;
        VSBlack = 0;
        VSLight = 225;
    }

    void missingPrinterOffersTheDefault_data() {
        QTest::addColumn<int>("answer");
        QTest::newRow("yes") << int(vbYes);
        QTest::newRow("no") << int(vbNo);
    }
    void missingPrinterOffersTheDefault() {
        QFETCH(int, answer);
        VSPrinter = QStringLiteral("Removed Printer");
        desktop_.services.messages.Answer(answer);
        const bool opened = VSOpenReport(QStringLiteral("Form 64-8"));
        QCOMPARE(desktop_.services.messages.Count(), 1);
        const ShownMessage& asked = desktop_.services.messages.Shown().front();
        QCOMPARE(asked.prompt,
                 QStringLiteral("This printer is not available.\n\nDo you wish to use "
                                "the default printer 'Office Laser' instead?"));
        QCOMPARE(asked.title, QStringLiteral("Removed Printer"));
        QCOMPARE(asked.style, vbYesNo | vbQuestion);
        QCOMPARE(opened, answer == vbYes);
        // Accepting remembers the default for this and later reports.
        QCOMPARE(VSPrinter, answer == vbYes ? QStringLiteral("Office Laser")
                                            : QStringLiteral("Removed Printer"));
    }

    void emptyPrinterNameTakesTheDefaultSilently() {
        VSPrinter.clear();
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        QVERIFY(desktop_.services.messages.Count() == 0);
        QCOMPARE(VSPrinter, QStringLiteral("Office Laser"));
        QCOMPARE(VSDocumentControl().Device(), QStringLiteral("Office Laser"));
    }

    void printerNameMustMatchExactly() {
        VSPrinter = QStringLiteral("office laser");
        desktop_.services.messages.Answer(vbNo);
        QVERIFY(!VSOpenReport(QStringLiteral("Diary Report")));
    }

    void noDefaultPrinterToOffer_data() {
        QTest::addColumn<QString>("defaultName");
        QTest::newRow("none") << QString();
        QTest::newRow("no longer listed") << QStringLiteral("Ghost");
    }
    void noDefaultPrinterToOffer() {
        QFETCH(QString, defaultName);
        desktop_.SetDefaultPrinter(defaultName);
        VSPrinter = QStringLiteral("Removed Printer");
        desktop_.services.messages.Answer(vbOK);
        const bool opened = VSOpenReport(QStringLiteral("Diary Report"));
        desktop_.SetDefaultPrinter(QStringLiteral("Office Laser"));
        QVERIFY(!opened);
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QCOMPARE(desktop_.services.messages.Shown().front().prompt,
                 QStringLiteral("This printer is not available."));
        QCOMPARE(desktop_.services.messages.Shown().front().style, int(vbCritical));
        QCOMPARE(desktop_.services.messages.Shown().front().title,
                 QStringLiteral("Removed Printer"));
    }

    void doubleSidedOnASimplexPrinterWarnsAndGoesOn() {
        VSDuplexMode = 2;
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(OpenOnPreview());
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QCOMPARE(desktop_.services.messages.Shown().front().prompt,
                 QStringLiteral("The currently selected printer does not support double-sided "
                                "printing.\n\nGo to Report Settings and turn off 'Double-sided' in "
                                "the Print settings."));
        QCOMPARE(desktop_.services.messages.Shown().front().style, int(vbInformation));
        desktop_.services.messages.ClearRecord();
        VSPrinter = QStringLiteral("Duplex Laser");
        QVERIFY(OpenOnPreview());
        QVERIFY(desktop_.services.messages.Count() == 0);
        QCOMPARE(VSDocumentControl().Duplex(), 2);
    }

    void pageSetupFollowsTheDestination_data() {
        QTest::addColumn<int>("destination");
        QTest::addColumn<int>("preview");
        QTest::addColumn<bool>("pdfSettings");
        QTest::newRow("preview in the window") << int(rdPreview) << 0 << false;
        QTest::newRow("preview as a PDF file") << int(rdPreview) << 1 << true;
        QTest::newRow("printer") << int(rdPrinter) << 1 << false;
        QTest::newRow("PDF file") << int(rdPdfFile) << 0 << true;
    }
    void pageSetupFollowsTheDestination() {
        QFETCH(int, destination);
        QFETCH(int, preview);
        QFETCH(bool, pdfSettings);
        ReportDestination = static_cast<qint16>(destination);
        ReportPreview = static_cast<qint16>(preview);
        VSLeft = 4;
        VSTop = -3;
        VSScale = 110;
        VSPDFLeft = -2;
        VSPDFTop = 6;
        VSPDFScale = 90;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        const double left = pdfSettings ? -2 : 4;
        const double top = (pdfSettings ? 6 : -3) + 2.0;
        const double ratio = pdfSettings ? 0.9 : 1.1;
        QCOMPARE(VSMapX(10), left * 56.69 + 10 * ratio * 56.69);
        QCOMPARE(VSMapY(20), top * 56.69 + 20 * ratio * 56.69);
        QCOMPARE(VSDocumentControl().Preview, destination != rdPrinter);
    }

    void halfScaleHalvesFontsPensAndDiscs() {
        VSLeft = 3;
        QVERIFY(OpenOnPreview(50));
        VSSetFont(10, true, false);
        VSTextAt(10, 20, QStringLiteral("Half"));
        VSDrawHLine(0.4, 10, 20, 30);
        VSDrawDisc(ReportBlack, 50, 60, 2.0);
        const auto texts = OpsOfKind<TextOp>();
        QCOMPARE(texts.size(), size_t(1));
        QCOMPARE(texts[0].font.pixelSize(), 100);  // 5 points in twips
        QVERIFY(texts[0].font.bold());
        QCOMPARE(OpsOfKind<LineOp>().at(0).pen.width, 0.2 * 56.69);
        const CircleOp disc = OpsOfKind<CircleOp>().at(0);
        QCOMPARE(disc.radius, 1.0 * 56.69);
        QCOMPARE(disc.centre.x(), 3 * 56.69 + 25 * 56.69);
    }

    void textPlacingMethods_data() {
        QTest::addColumn<int>("method");
        QTest::addColumn<double>("alignX");
        QTest::addColumn<double>("alignY");
        QTest::addColumn<double>("expectedDx");
        QTest::addColumn<double>("heightFactor");  // of the text height, above the foot
        QTest::addColumn<double>("expectedDy");
        QTest::newRow("plain") << 0 << 15.0 << 12.0 << 0.0 << 1.0 << 28.0;
        QTest::newRow("units") << 1 << 15.0 << 12.0 << 15.0 << 1.0 << 40.0;
        QTest::newRow("fraction of height") << 2 << 15.0 << 0.25 << 0.0 << 0.75 << 28.0;
    }
    void textPlacingMethods() {
        QFETCH(int, method);
        QFETCH(double, alignX);
        QFETCH(double, alignY);
        QFETCH(double, expectedDx);
        QFETCH(double, heightFactor);
        QFETCH(double, expectedDy);
        VSAlignTextMethod = static_cast<qint16>(method);
        VSAlignTextX = alignX;
        VSAlignTextY = alignY;
        QVERIFY(OpenOnPreview());
        VSSetFont(12, false, false);
        VSTextAt(10, 30, QStringLiteral("Placed"));
        const double height = VSDocumentControl().TextHeight(QStringLiteral("Placed"));
        const TextOp text = OpsOfKind<TextOp>().at(0);
        QCOMPARE(text.topLeft.x(), VSMapX(10) + expectedDx);
        QVERIFY(qAbs(text.topLeft.y() - (VSMapY(30) - height * heightFactor + expectedDy)) < 1e-6);
    }

    void runOnTextContinuesFromTheEnd() {
        QVERIFY(OpenOnPreview());
        VSSetFont(9, false, false);
        VSTextRightAt(100, 40, QStringLiteral("Right"));
        VSTextNext(QStringLiteral(" next"));
        VSTextCentred(20, 80, 60, QStringLiteral("Middle"));
        VSTextNext(QStringLiteral("!"));
        const auto texts = OpsOfKind<TextOp>();
        QCOMPARE(texts.size(), size_t(4));
        QVERIFY(qAbs(texts[1].topLeft.x() - VSMapX(100)) < 1e-6);
        QCOMPARE(texts[1].topLeft.y(), texts[0].topLeft.y());
        const double middleWidth = VSDocumentControl().TextWidth(QStringLiteral("Middle"));
        QVERIFY(qAbs(texts[2].topLeft.x() - (VSMapX(50) - middleWidth / 2)) < 1e-6);
        QVERIFY(qAbs(texts[3].topLeft.x() - (VSMapX(50) + middleWidth / 2)) < 1e-6);
    }

    void underlineFlagDrawsUnderTheTextAndIsClearedByEachDocument() {
        QVERIFY(OpenOnPreview(50));
        UnderlineText = true;
        VSTextAt(10, 20, QStringLiteral("Underlined"));
        const double width = VSDocumentControl().TextWidth(QStringLiteral("Underlined"));
        const LineOp rule = OpsOfKind<LineOp>().at(0);
        QCOMPARE(rule.from, QPointF(VSMapX(10), VSMapY(20) + 28));
        QCOMPARE(rule.to, QPointF(VSMapX(10) + width, VSMapY(20) + 28));
        QCOMPARE(rule.pen.width, 0.2 * 0.5 * 56.69);
        QVERIFY(VSStartDocument(VSPrinter));
        QVERIFY(!UnderlineText);
    }

    void textBoxIsMappedAndScaled() {
        VSTop = 1;
        QVERIFY(OpenOnPreview(90));
        VSTextBox(50.5, 9, 19, 16, QStringLiteral("Return issued"));
        const TextBoxOp box = OpsOfKind<TextBoxOp>().at(0);
        QCOMPARE(box.text, QStringLiteral("Return issued"));
        QCOMPARE(box.rect.topLeft(), QPointF(VSMapX(50.5), VSMapY(9)));
        QVERIFY(qAbs(box.rect.width() - 19 * 0.9 * 56.69) < 1e-9);
        QVERIFY(qAbs(box.rect.height() - 16 * 0.9 * 56.69) < 1e-9);
    }

    void pageListsForPrinting_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QList<int>>("pages");
        QTest::newRow("range") << "2"
                               << "4" << QList<int>({2, 3, 4});
        QTest::newRow("one page") << "3"
                                  << "3" << QList<int>({3});
        QTest::newRow("list with a span") << "1,3,5-7"
                                          << "" << QList<int>({1, 3, 5, 6, 7});
        QTest::newRow("beyond the end") << "9-14,2"
                                        << "" << QList<int>({9, 10, 2});
        QTest::newRow("backward span") << "5-3"
                                       << "" << QList<int>();
        QTest::newRow("odd pass") << "1,3,5"
                                  << "5" << QList<int>({1, 3, 5});
        QTest::newRow("stray separators") << ",,4,-,6"
                                          << "" << QList<int>({4, 6});
    }
    void pageListsForPrinting() {
        QFETCH(QString, first);
        QFETCH(QString, last);
        QFETCH(QList<int>, pages);
        QCOMPARE(ParsePageList(first, last, 10), pages);
    }

    void manualDuplexPasses() {
        QCOMPARE(ManualDuplexPages(5, true, false).first, QStringLiteral("1,3,5"));
        QCOMPARE(ManualDuplexPages(5, true, false).last, QStringLiteral("5"));
        QCOMPARE(ManualDuplexPages(5, false, true).first, QStringLiteral("2,4"));
        QCOMPARE(ManualDuplexPages(4, true, true).first, QStringLiteral("2,4"));
        QCOMPARE(ManualDuplexPages(4, false, true).last, QStringLiteral("3"));
        QCOMPARE(ManualDuplexPages(1, false, false).first, QString());
    }

    void shapesAreBlackWhateverTheReportColours() {
        VSBlack = 40;
        QVERIFY(OpenOnPreview());
        QCOMPARE(ReportBlack, RgbColour(40, 40, 40));
        QCOMPARE(ReportLight, RgbColour(225, 225, 225));
        VSDrawFilledBox(ReportBlack, ReportLight, 0.2, 10, 10, 50, 20);
        VSDrawBox(0.1, 10, 30, 50, 40);
        VSDrawTick(100, 100);
        const auto boxes = OpsOfKind<RectangleOp>();
        QVERIFY(boxes[0].filled);
        QCOMPARE(boxes[0].fill, ReportLight);
        QCOMPARE(boxes[0].pen.colour, ReportBlack);
        QVERIFY(!boxes[1].filled);
        QCOMPARE(boxes[1].pen.colour, 0);
        const auto tick = OpsOfKind<LineOp>();
        QCOMPARE(tick.size(), size_t(2));
        QCOMPARE(tick[0].from, QPointF(VSMapX(99.5), VSMapY(99)));
        QCOMPARE(tick[0].to, QPointF(VSMapX(100), VSMapY(100)));
        QCOMPARE(tick[1].to, QPointF(VSMapX(102), VSMapY(97)));
        QCOMPARE(tick[1].pen.width, 0.4 * 56.69);
    }

    void nextSheetStartsPagesFromTheSecondOn() {
        QVERIFY(OpenOnPreview());
        ReportPageNumber = 1;
        VSNextSheet();
        QCOMPARE(VSDocumentControl().PageCount(), 1);
        ReportPageNumber = 2;
        VSNextSheet();
        VSTextAt(10, 10, QStringLiteral("second"));
        QCOMPARE(VSDocumentControl().PageCount(), 2);
        QCOMPARE(OpsOfKind<TextOp>(1).size(), size_t(1));
        QVERIFY(PageOps(0).empty());
    }

    void printerDestinationSendsThePagesAtTheEnd() {
        ReportDestination = rdPrinter;
        VSDuplexMode = 1;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        ReportPageNumber = 2;
        VSNextSheet();
        QVERIFY(desktop_.backend.jobs.empty());
        VSEndDocument();
        QCOMPARE(desktop_.backend.jobs.size(), size_t(1));
        const PrintJob& job = desktop_.backend.jobs.front().job;
        QCOMPARE(job.device, QStringLiteral("Office Laser"));
        QCOMPARE(job.documentName, QStringLiteral("Diary Report"));
        QCOMPARE(job.pages, QList<int>({0, 1}));
        QCOMPARE(job.duplex, 1);
    }

    void printerFailureIsToldWithTheDevice() {
        ReportDestination = rdPrinter;
        desktop_.backend.failure = QStringLiteral("Out of paper");
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        VSEndDocument();
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QCOMPARE(desktop_.services.messages.Shown().front().prompt,
                 QStringLiteral("Printer: Office Laser\n\nError 482: Out of paper\n\nMake sure "
                                "this printer is available and properly set up."));
        QCOMPARE(desktop_.services.messages.Shown().front().style, int(vbExclamation));
    }
};

QTEST_MAIN(VSPrintRoutines)
#include "test_vsprint.moc"
