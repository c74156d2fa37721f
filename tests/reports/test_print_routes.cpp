// The two print routes: the report drawing routines (opening a report on the
// chosen printer, the page set-up of each destination, the operations they leave
// and the PDF file made of them) and the plain printer with its list reports.

#include "reports/printer_object.h"
#include "reports/vsprint.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/shell_testing.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;

namespace {

// One line for each operation on the page: its kind, points in twips, then its
// text, pen, fill or font.
QStringList Operations(const ReportPage& page) {
    const auto at = [](QPointF p) { return QString::asprintf(" %.2f,%.2f", p.x(), p.y()); };
    const auto pen = [](const ReportPen& p) {
        return QString::asprintf(" pen %.2f ", p.width) + ToQColor(p.colour).name();
    };
    const auto fill = [](ReportColour colour) { return " fill " + ToQColor(colour).name(); };
    const auto font = [](const QFont& f) {
        return QStringLiteral(" %1 %2%3%4")
            .arg(f.family())
            .arg(f.pixelSize())
            .arg(f.bold() ? " bold" : "", f.italic() ? " italic" : "");
    };
    QStringList lines;
    for (const DrawOp& op : page.ops) {
        if (const auto* o = std::get_if<LineOp>(&op)) {
            lines << "line" + at(o->from) + at(o->to) + pen(o->pen);
        } else if (const auto* o = std::get_if<RectangleOp>(&op)) {
            lines << "box" + at(o->rect.topLeft()) + at(o->rect.bottomRight()) + pen(o->pen) +
                         (o->filled ? fill(o->fill) : QString());
        } else if (const auto* o = std::get_if<CircleOp>(&op)) {
            lines << "disc" + at(o->centre) + QString::asprintf(" r %.2f", o->radius) +
                         pen(o->pen) + fill(o->fill);
        } else if (const auto* o = std::get_if<TextOp>(&op)) {
            lines << "text" + at(o->topLeft) + " \"" + o->text + '"' + font(o->font) +
                         fill(o->colour);
        } else if (const auto* o = std::get_if<TextBoxOp>(&op)) {
            lines << "textbox" + at(o->rect.topLeft()) + at(o->rect.bottomRight()) + " \"" +
                         o->text + '"' + font(o->font) + fill(o->colour);
        }
    }
    return lines;
}

// Every drawing routine once.
void DrawSample() {
    VSSetFontName(QStringLiteral("Arial"));
    VSSetTextColour(ReportBlack);
    VSSetFont(10, true, false);
    VSTextAt(10, 20, QStringLiteral("At"));
    VSTextNext(QStringLiteral(" next"));
    VSSetFontName(QStringLiteral("Times New Roman"));
    VSSetFont(9, false, true);
    VSSetTextColour(ReportDark);
    VSTextRightAt(100, 40, QStringLiteral("Right"));
    VSTextNext(QStringLiteral(" !"));
    VSTextCentred(20, 80, 60, QStringLiteral("Middle"));
    VSTextBox(50.5, 9, 19, 16, QStringLiteral("Return issued"));
    VSDrawLine(0.3, 1, 2, 3, 4);
    VSDrawHLine(0.6, 60, 90, 30);
    VSDrawVLine(0.5, 40, 50, 60);
    VSDrawBox(0.4, 10, 30, 50, 40);
    VSDrawFilledBox(ReportBlack, ReportLight, 0.3, 10, 10, 50, 20);
    VSDrawDisc(ReportDark, 50, 60, 2.0);
    VSDrawTick(100, 100);
    UnderlineText = true;
    VSTextAt(10, 80, QStringLiteral("Underlined"));
}

// The words of a PDF file as poppler reads them, boxes in mm from the corner.
QMultiMap<QString, QRectF> Words(const QString& pdf) {
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    text.waitForFinished();
    static const QRegularExpression word(QStringLiteral(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)<)re"));
    QMultiMap<QString, QRectF> words;
    for (auto it = word.globalMatch(QString::fromUtf8(text.readAllStandardOutput()));
         it.hasNext();) {
        const auto m = it.next();
        const auto mm = [&m](int i) { return m.captured(i).toDouble() * 25.4 / 72; };
        words.insert(m.captured(5), QRectF(QPointF(mm(1), mm(2)), QPointF(mm(3), mm(4))));
    }
    return words;
}

// The grey of the rendering at 254 dpi, where a pixel is 0.1 mm, `at` in twips.
class Sheet {
public:
    explicit Sheet(const QString& pdf) {
        QProcess::execute(QStringLiteral("pdftoppm"),
                          {"-r", "254", "-gray", "-singlefile", pdf, pdf});
        image_ = QImage(pdf + QStringLiteral(".pgm"));
    }
    int Grey(QPointF at) const { return qGray(image_.pixel((at / kTwipsPerMm * 10).toPoint())); }
    bool Dark(QPointF at) const { return Grey(at) < 128; }

private:
    QImage image_;
};

struct PrintedText {
    QString text;
    QPointF at;  // mm from the corner of the printable area
    bool bold = false;
};

std::vector<PrintedText> TextsOf(const ReportPage& page) {
    std::vector<PrintedText> texts;
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            texts.push_back({text->text, text->topLeft / kTwipsPerMm, text->font.bold()});
        }
    }
    return texts;
}

bool Near(QPointF at, double x, double y) {
    return qAbs(at.x() - x) < 0.01 && qAbs(at.y() - y) < 0.01;
}

}  // namespace

class PrintRoutes : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;

private Q_SLOTS:
    void init() {
        SetDefaults();
        desktop_.services.messages.ClearRecord();
        desktop_.backend.jobs.clear();
        desktop_.backend.failure.clear();
        VSPrinter = QStringLiteral("Office Laser");
        ReportDestination = rdPreview;
    }

    // For each printer selected and default printer, with the answer to the
    // offer of the default, the reference file holds whether the report opens,
    // on which printer, and the message shown. Names match exactly.
    void openReportOnTheSelectedPrinter() {
        const std::tuple<const char*, const char*, int> cases[] = {
            {"Removed Printer", "Office Laser", vbYes},
            {"Removed Printer", "Office Laser", vbNo},
            {"office laser", "Office Laser", vbNo},
            {"", "Office Laser", 0},
            {"Removed Printer", "", vbOK},
            {"Removed Printer", "Ghost", vbOK}};
        QStringList outcomes;
        for (const auto& [selected, fallback, answer] : cases) {
            VSPrinter = QString::fromLatin1(selected);
            desktop_.SetDefaultPrinter(QString::fromLatin1(fallback));
            desktop_.services.messages.ClearRecord();
            if (answer != 0) {
                desktop_.services.messages.Answer(answer);
            }
            const bool opened = VSOpenReport(QStringLiteral("Form 64-8"));
            ShownMessage told = desktop_.services.messages.Last();
            outcomes << QStringLiteral(
                            "\"%1\", default \"%2\": %3, \"%4\" selected; \"%5\" %6 under \"%7\"")
                            .arg(selected, fallback,
                                 opened ? "opens on " + VSDocumentControl().Device()
                                        : "stays closed",
                                 VSPrinter, told.prompt.replace('\n', '|'))
                            .arg(told.style)
                            .arg(told.title);
        }
        desktop_.SetDefaultPrinter(QStringLiteral("Office Laser"));
        QCOMPARE(outcomes, testing::ReferenceLines("open-report.txt", outcomes));
    }

    void doubleSidedOnASimplexPrinterWarnsAndGoesOn() {
        VSDuplexMode = 2;
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("The currently selected printer does not support double-sided "
                                "printing.\n\nGo to Report Settings and turn off 'Double-sided' in "
                                "the Print settings."));
        QCOMPARE(desktop_.services.messages.Last().style, int(vbInformation));
        VSPrinter = QStringLiteral("Duplex Laser");
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QCOMPARE(VSDocumentControl().Duplex(), 2);
    }

    // Against the reference file: the page mapping and preview of each set-up,
    // and every routine under four of them. A document that becomes a PDF file
    // takes the PDF set-up; pages stand 2 mm lower than the top offset says; the
    // scale shrinks lengths, fonts and pens but not offsets; the alignment
    // methods move text by control units or by a part of its height.
    void drawingRoutinesLeaveTheirOperations() {
        VSPDFLeft = -2;
        VSPDFTop = 6;
        VSPDFScale = 90;
        // Name; destination, REPORT PREVIEW; left, top, scale; alignment method, x, y; black.
        const std::tuple<const char*, qint16, qint16, double, double, double, qint16, double,
                         double, qint16>
            setUps[] = {{"plain", rdPreview, 0, 0, 0, 100, 0, 15, 12, 0},
                        {"offsets, half scale, grey black", rdPreview, 0, 3, 1, 50, 0, 0, 0, 40},
                        {"alignment in control units", rdPreview, 0, 0, 0, 100, 1, 15, 12, 0},
                        {"alignment by text height", rdPreview, 0, 0, 0, 100, 2, 15, 0.25, 0},
                        {"printer", rdPrinter, 1, 4, -3, 110, 0, 0, 0, 0},
                        {"preview as a PDF file", rdPreview, 1, 4, -3, 110, 0, 0, 0, 0},
                        {"PDF file", rdPdfFile, 0, 4, -3, 110, 0, 0, 0, 0}};
        QStringList operations;
        for (const auto& [name, destination, preview, left, top, scale, method, x, y, black] :
             setUps) {
            ReportDestination = destination;
            ReportPreview = preview;
            std::tie(VSLeft, VSTop, VSScale) = std::tie(left, top, scale);
            std::tie(VSAlignTextMethod, VSAlignTextX, VSAlignTextY) = std::tie(method, x, y);
            VSBlack = black;
            QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
            operations << QString::asprintf("[%s] origin %.2f,%.2f unit %.3f%s", name,
                                            PageMap.originX, PageMap.originY, PageMap.unit,
                                            VSDocumentControl().Preview ? " kept" : " printed");
            if (destination == rdPreview && preview == 0) {
                DrawSample();
                operations << Operations(VSDocumentControl().Document().pages.at(0));
            }
        }
        QCOMPARE(operations, testing::ReferenceLines("report-drawing.txt", operations));
        QVERIFY(VSStartDocument(VSPrinter));
        QVERIFY(!UnderlineText);  // cleared by each document
    }

    // The PDF file shows each operation of the sample where its control units
    // say: text by the boxes of its words, shapes by the greys of a rendering;
    // lines have their width and square ends.
    void pdfFileShowsEachOperationInItsPlace() {
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("sample.pdf"));
        ReportDestination = rdPdfFile;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        DrawSample();
        VSEndDocument();
        VSConvertToPDF(pdf);
        const QMultiMap<QString, QRectF> words = Words(pdf);
        const Sheet sheet(pdf);
        const double mm = kTwipsPerMm;
        for (const DrawOp& op : VSDocumentControl().Document().pages.at(0).ops) {
            if (const auto* text = std::get_if<TextOp>(&op)) {
                const QFontMetricsF metrics(text->font);
                const QString first = text->text.split(' ', Qt::SkipEmptyParts).first();
                const double left =
                    text->topLeft.x() +
                    metrics.horizontalAdvance(text->text.left(text->text.indexOf(first)));
                const double foot = text->topLeft.y() + metrics.height();
                const QRectF word = words.value(first);
                QVERIFY2(
                    qAbs(word.left() - left / mm) < 0.3 && qAbs(word.bottom() - foot / mm) < 0.3,
                    qPrintable(text->text));
            } else if (const auto* box = std::get_if<TextBoxOp>(&op)) {
                QVERIFY(qAbs(words.value("Return").left() - box->rect.left() / mm) < 0.3);
            } else if (const auto* line = std::get_if<LineOp>(&op)) {
                const QPointF middle = (line->from + line->to) / 2;
                QVERIFY(sheet.Dark(middle));
                if (line->pen.width >= 0.5 * mm) {
                    const QPointF along =
                        (line->to - line->from) / QLineF(line->from, line->to).length();
                    const QPointF across(-along.y(), along.x());
                    const double inside = line->pen.width / 2 - 0.1 * mm;
                    const double outside = line->pen.width / 2 + 0.2 * mm;
                    QVERIFY(sheet.Dark(middle + across * inside) &&
                            !sheet.Dark(middle + across * outside));
                    QVERIFY(sheet.Dark(line->to + along * inside) &&
                            !sheet.Dark(line->to + along * outside));
                }
            } else if (const auto* rect = std::get_if<RectangleOp>(&op)) {
                const QRectF r = rect->rect;
                QVERIFY(sheet.Dark(QPointF(r.left(), r.center().y())));
                QVERIFY(sheet.Dark(QPointF(r.right(), r.center().y())));
                const int inside = rect->filled ? qGray(ToQColor(rect->fill).rgb()) : 255;
                QVERIFY(qAbs(sheet.Grey(r.center()) - inside) < 8);
            } else if (const auto* disc = std::get_if<CircleOp>(&op)) {
                QVERIFY(qAbs(sheet.Grey(disc->centre) - qGray(ToQColor(disc->fill).rgb())) < 8);
            }
        }
    }

    void pageListsForPrinting() {
        const std::tuple<const char*, const char*, QList<int>> lists[] = {
            {"2", "4", {2, 3, 4}},      {"3", "3", {3}}, {"1,3,5-7", "", {1, 3, 5, 6, 7}},
            {"9-14,2", "", {9, 10, 2}}, {"5-3", "", {}}, {"1,3,5", "5", {1, 3, 5}},
            {",,4,-,6", "", {4, 6}}};
        for (const auto& [first, last, pages] : lists) {
            QCOMPARE(ParsePageList(QString::fromLatin1(first), QString::fromLatin1(last), 10),
                     pages);
        }
    }

    // Pages start from the second sheet on and go to the printer at the end; a
    // refusal is told with the printer's name.
    void printerDestinationSendsThePagesAtTheEnd() {
        ReportDestination = rdPrinter;
        VSDuplexMode = 1;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        for (ReportPageNumber = 1; ReportPageNumber <= 2; ++ReportPageNumber) {
            VSNextSheet();
            VSTextAt(10, 10, QStringLiteral("P%1").arg(ReportPageNumber));
        }
        QVERIFY(desktop_.backend.jobs.empty());
        VSEndDocument();
        QCOMPARE(desktop_.backend.jobs.size(), size_t(1));
        const PrintJob& job = desktop_.backend.jobs.front().job;
        QCOMPARE(job.device, QStringLiteral("Office Laser"));
        QCOMPARE(job.documentName, QStringLiteral("Diary Report"));
        QCOMPARE(job.pages, QList<int>({0, 1}));
        QCOMPARE(job.duplex, 1);
        QCOMPARE(desktop_.backend.jobs.front().document.pages.at(1).ops.size(), size_t(1));
        desktop_.backend.failure = QStringLiteral("Out of paper");
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        VSEndDocument();
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("Printer: Office Laser\n\nError 482: Out of paper\n\nMake sure "
                                "this printer is available and properly set up."));
        QCOMPARE(desktop_.services.messages.Last().style, int(vbExclamation));
    }

    // Items, mode; the pages printed, and the columns (mm from the left) each
    // page's items stand in. Once a two-column list has reached its second
    // column it stays there; a list of one page has no page number.
    void listsAreLaidOutOnPages_data() {
        QTest::addColumn<int>("items");
        QTest::addColumn<int>("mode");
        QTest::addColumn<QList<QList<int>>>("columns");
        QTest::newRow("one page") << 10 << 1 << QList<QList<int>>{{20}};
        QTest::newRow("three pages") << 130 << 1 << QList<QList<int>>{{20}, {20}, {20}};
        QTest::newRow("two columns")
            << 250 << 2 << QList<QList<int>>{{20, 110}, {110}, {110}, {110}};
    }
    void listsAreLaidOutOnPages() {
        QFETCH(int, items);
        QFETCH(int, mode);
        QFETCH(QList<QList<int>>, columns);
        QStringList clients;
        for (int i = 1; i <= items; ++i) {
            clients << QStringLiteral("Client %1, Name").arg(i, 3, 10, QLatin1Char('0'));
        }
        QVERIFY(PrintListReport(clients, QStringLiteral("Year End"), mode));
        const PageDocument& document = desktop_.backend.jobs.back().document;
        QCOMPARE(desktop_.backend.jobs.back().job.device, QStringLiteral("Office Laser"));
        QCOMPARE(document.PageCount(), columns.size());
        Printer.FontBold = true;
        const double titleX = (210 - Printer.TextWidth(QStringLiteral("Year End"))) / 2;
        QStringList printed;
        for (int p = 0; p < document.PageCount(); ++p) {
            auto texts = TextsOf(document.pages[p]);
            QCOMPARE(texts.front().text, QStringLiteral("Year End"));
            QVERIFY(texts.front().bold && Near(texts.front().at, titleX, 20));
            if (columns.size() > 1) {
                QCOMPARE(texts.back().text, QStringLiteral("Page %1").arg(p + 1));
                QVERIFY(qAbs(texts.back().at.y() - 275) < 0.01);
                texts.pop_back();
            }
            QList<int> used;
            for (auto text = texts.begin() + 1; text != texts.end(); ++text) {
                QVERIFY(!text->bold && text->at.y() >= 30 - 0.01 && text->at.y() < 265);
                printed << text->text;
                if (!used.contains(qRound(text->at.x()))) {
                    used << qRound(text->at.x());
                }
            }
            QVERIFY(Near(texts[1].at, used.first(), 30));
            QCOMPARE(used, columns[p]);
        }
        QCOMPARE(printed, clients);
    }

    void printMovesDownALineAndOverflowsToANewPage() {
        Printer.setScaleMode(vbMillimeters);
        Printer.FontName = QStringLiteral("Courier New");
        Printer.FontSize = 10;
        Printer.setCurrentX(15);
        Printer.setCurrentY(100);
        const double line = Printer.TextHeight(QStringLiteral("x"));
        Printer.Print(QStringLiteral("first"));
        QCOMPARE(Printer.CurrentX(), 0.0);
        QVERIFY(qAbs(Printer.CurrentY() - (100 + line)) < 1e-9);
        Printer.PrintRunOn(QStringLiteral("run"));
        QVERIFY(qAbs(Printer.CurrentX() - Printer.TextWidth(QStringLiteral("run"))) < 1e-9);
        Printer.setCurrentY(Printer.ScaleHeight() - line / 2);
        Printer.Print(QStringLiteral("overflow"));
        QCOMPARE(Printer.Page(), 2);
        QVERIFY(Near(TextsOf(Printer.Document().pages[1]).front().at, 0, 0));
        QVERIFY(Printer.EndDoc());
        QCOMPARE(Printer.Page(), 0);
        // Positions are measured from the corner of what the device can print.
        desktop_.backend.printableArea =
            QRectF(5 * kTwipsPerMm, 4 * kTwipsPerMm, 200 * kTwipsPerMm, 289 * kTwipsPerMm);
        QVERIFY(qAbs(Printer.ScaleWidth() - 200) < 1e-9 &&
                qAbs(Printer.ScaleHeight() - 289) < 1e-9);
        Printer.setCurrentX(10);
        Printer.setCurrentY(20);
        Printer.Print(QStringLiteral("placed"));
        Printer.Line(0, 30, 50, 30);
        const auto& ops = Printer.Document().pages.at(0).ops;
        QCOMPARE(std::get<TextOp>(ops.at(0)).topLeft, QPointF(15, 24) * kTwipsPerMm);
        QCOMPARE(std::get<LineOp>(ops.at(1)).to, QPointF(55, 34) * kTwipsPerMm);
        QVERIFY(Printer.EndDoc());
        desktop_.backend.printableArea = QRectF(QPointF(0, 0), A4SizeTwips());
    }

    // The PDF printer writes the file the user names; a cancelled file dialog
    // prints nothing and is no failure. A file that can't be written and a job
    // the printer refuses are told.
    void listsReachThePdfPrinterAndFailuresAreTold() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("list.pdf"));
        for (const QString& answer :
             {path, QString(), QStringLiteral("/no/such/folder/list.pdf")}) {
            desktop_.services.fileDialogs.Answer(answer);
        }
        desktop_.services.messages.Answer(vbOK);
        Printer.setDeviceName(kPdfPrinterName);
        const QStringList clients{QStringLiteral("Smith, Ann")};
        QVERIFY(PrintListReport(clients, QStringLiteral("Clients"), 1));
        QVERIFY(PrintListReport(clients, QStringLiteral("Clients"), 1));
        QCOMPARE(desktop_.services.messages.Count(), 0);
        QVERIFY(!PrintListReport(clients, QStringLiteral("Clients"), 1));
        Printer.setDeviceName(QString());
        QVERIFY(Words(path).contains(QStringLiteral("Ann")));
        QVERIFY(desktop_.services.messages.Last().prompt.contains(
            QStringLiteral("/no/such/folder/list.pdf cannot be written")));
        desktop_.backend.failure = QStringLiteral("Paper jam");
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(!PrintListReport(clients, QStringLiteral("Clients"), 1));
        QVERIFY(desktop_.services.messages.Last().prompt.startsWith(
            QStringLiteral("Printer: Office Laser\n\nError 482: Paper jam")));
    }
};

QTEST_MAIN(PrintRoutes)
#include "test_print_routes.moc"
