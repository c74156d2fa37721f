// The plain printer and the list reports printed on it.

#include "reports/printer_object.h"
#include "support/print_fakes.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;

namespace {

struct PrintedText {
    QString text;
    double x = 0;  // mm from the corner of the printable area
    double y = 0;
    bool bold = false;
};

std::vector<PrintedText> TextsOf(const ReportPage& page) {
    std::vector<PrintedText> texts;
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            texts.push_back({text->text, text->topLeft.x() / kTwipsPerMm,
                             text->topLeft.y() / kTwipsPerMm, text->font.bold()});
        }
    }
    return texts;
}

QStringList Clients(int count) {
    QStringList names;
    for (int i = 1; i <= count; ++i) {
        names << QStringLiteral("Client %1, Name").arg(i, 3, 10, QLatin1Char('0'));
    }
    return names;
}

bool IsFooter(const PrintedText& text) {
    return text.text.startsWith(QStringLiteral("Page "));
}

}  // namespace

class ListReport : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;

    const PageDocument& PrintList(int count, int mode) {
        desktop_.backend.jobs.clear();
        if (!PrintListReport(Clients(count), QStringLiteral("Year End"), mode)) {
            static const PageDocument none;
            return none;
        }
        return desktop_.backend.jobs.back().document;
    }

private Q_SLOTS:
    void onePageListHasNoPageNumber() {
        const PageDocument& document = PrintList(10, 1);
        QCOMPARE(document.PageCount(), 1);
        const auto texts = TextsOf(document.pages[0]);
        QCOMPARE(texts.size(), size_t(11));
        QVERIFY(std::none_of(texts.begin(), texts.end(), IsFooter));
        // The title is bold and centred on the printable width; items are not bold.
        Printer.FontBold = true;
        const double titleWidth = Printer.TextWidth(QStringLiteral("Year End"));
        QVERIFY(texts[0].bold);
        QVERIFY(qAbs(texts[0].x - (210 - titleWidth) / 2) < 0.01);
        QVERIFY(qAbs(texts[0].y - 20) < 0.01);
        QVERIFY(!texts[1].bold);
        QVERIFY(qAbs(texts[1].y - 30) < 0.01);
        QVERIFY(qAbs(texts[1].x - 20) < 0.01);
        QCOMPARE(desktop_.backend.jobs.back().job.device, QStringLiteral("Office Laser"));
    }

    void longListNumbersEveryPage() {
        const QStringList items = Clients(130);
        const PageDocument& document = PrintList(130, 1);
        QVERIFY(document.PageCount() >= 3);
        QStringList printed;
        for (int p = 0; p < document.PageCount(); ++p) {
            const auto texts = TextsOf(document.pages[p]);
            QCOMPARE(texts.front().text, QStringLiteral("Year End"));
            QCOMPARE(texts.back().text, QStringLiteral("Page %1").arg(p + 1));
            QVERIFY(qAbs(texts.back().y - 275) < 0.01);
            QVERIFY(std::count_if(texts.begin(), texts.end(), IsFooter) == 1);
            for (size_t i = 1; i + 1 < texts.size(); ++i) {
                QVERIFY(texts[i].y < 265);
                printed << texts[i].text;
            }
        }
        QCOMPARE(printed, items);
    }

    // Once a two-column list has reached its second column it stays there.
    void twoColumnListKeepsToItsRightColumn() {
        const PageDocument& document = PrintList(250, 2);
        QVERIFY(document.PageCount() >= 3);
        auto columnsOf = [](const ReportPage& page) {
            QSet<int> columns;
            for (const PrintedText& text : TextsOf(page)) {
                if (text.text.startsWith(QStringLiteral("Client"))) {
                    columns.insert(qRound(text.x));
                }
            }
            return columns;
        };
        QCOMPARE(columnsOf(document.pages[0]), QSet<int>({20, 110}));
        QCOMPARE(columnsOf(document.pages[1]), QSet<int>({110}));
        QCOMPARE(columnsOf(document.pages[2]), QSet<int>({110}));
        QCOMPARE(TextsOf(document.pages[1]).back().text, QStringLiteral("Page 2"));
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
        const auto texts = TextsOf(Printer.Document().pages[1]);
        QCOMPARE(texts.front().text, QStringLiteral("overflow"));
        QCOMPARE(texts.front().y, 0.0);
        QVERIFY(Printer.EndDoc());
        QCOMPARE(Printer.Page(), 0);
    }

    // The plain printer measures from the corner of what the device can print.
    void positionsStartAtThePrintableArea() {
        desktop_.backend.printableArea =
            QRectF(5 * kTwipsPerMm, 4 * kTwipsPerMm, 200 * kTwipsPerMm, 289 * kTwipsPerMm);
        Printer.setScaleMode(vbMillimeters);
        QVERIFY(qAbs(Printer.ScaleWidth() - 200) < 1e-9);
        QVERIFY(qAbs(Printer.ScaleHeight() - 289) < 1e-9);
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

    void pdfPrinterWritesTheFileTheUserNames() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("list.pdf"));
        desktop_.services.fileDialogs.Answer(path);
        Printer.setDeviceName(kPdfPrinterName);
        QVERIFY(PrintListReport({QStringLiteral("Smith, Ann")}, QStringLiteral("Clients"), 1));
        QProcess text;
        text.start(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
        QVERIFY(text.waitForFinished());
        QVERIFY(QString::fromUtf8(text.readAllStandardOutput()).contains("Smith, Ann"));
        // A cancelled file dialog prints nothing and is no failure.
        desktop_.services.fileDialogs.Answer(QString());
        QVERIFY(PrintListReport({QStringLiteral("Jones, Bo")}, QStringLiteral("Clients"), 1));
        Printer.setDeviceName(QString());
        QVERIFY(desktop_.services.messages.Count() == 0);
    }

    void unwritablePdfFileIsTold() {
        Printer.setDeviceName(QString::fromLatin1(kPdfPrinterName));
        desktop_.services.fileDialogs.Answer(QStringLiteral("/no/such/folder/list.pdf"));
        desktop_.services.messages.Answer(vbOK);
        const bool printed =
            PrintListReport({QStringLiteral("Smith, Ann")}, QStringLiteral("Clients"), 1);
        Printer.setDeviceName(QString());
        QVERIFY(!printed);
        QVERIFY(desktop_.services.messages.Last().prompt.contains(
            QStringLiteral("/no/such/folder/list.pdf cannot be written")));
        desktop_.services.messages.ClearRecord();
    }

    void refusedJobIsTold() {
        desktop_.backend.failure = QStringLiteral("Paper jam");
        desktop_.services.messages.Answer(vbOK);
        QVERIFY(!PrintListReport({QStringLiteral("Smith, Ann")}, QStringLiteral("Clients"), 1));
        desktop_.backend.failure.clear();
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QVERIFY(desktop_.services.messages.Shown().front().prompt.startsWith(
            QStringLiteral("Printer: Office Laser\n\nError 482: Paper jam")));
    }
};

QTEST_MAIN(ListReport)
#include "test_list_report.moc"
