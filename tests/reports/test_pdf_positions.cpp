// Draws a page through the report routines into a PDF file and measures it with
// poppler: text by pdftotext's word boxes, rules and boxes by the pixels of a
// pdftoppm rendering at 254 dpi, where one pixel is 0.1 mm.

#include "reports/vsprint.h"
#include "shell/variables.h"
#include "support/print_fakes.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;

namespace {

constexpr double kToleranceMm = 0.3;
constexpr double kPixelsPerMm = 10.0;
constexpr double kPdfLeft = 5.0;
constexpr double kPdfTop = 3.0;

struct WordBox {
    double left = 0, top = 0, right = 0, bottom = 0;  // mm from the sheet's corner
    double Width() const { return right - left; }
    double Height() const { return bottom - top; }
};

struct Run {
    double centre = 0;  // mm
    double width = 0;
};

// Where a page position of the drawing lands on the sheet, in millimetres.
double SheetX(double x, double scale) {
    return (kPdfLeft * kUnitsPerMm + x * scale / 100.0 * kUnitsPerMm) / kTwipsPerMm;
}
double SheetY(double y, double scale) {
    return ((kPdfTop + 2.0) * kUnitsPerMm + y * scale / 100.0 * kUnitsPerMm) / kTwipsPerMm;
}

void DrawSamplePage() {
    VSSetFontName(QStringLiteral("Arial"));
    VSSetFont(20, false, false);
    VSTextAt(30, 50, QStringLiteral("Alpha"));
    VSTextRightAt(180, 100, QStringLiteral("Omega"));
    VSDrawHLine(0.6, 20, 120, 150);
    VSDrawVLine(0.6, 150, 160, 260);
    VSDrawBox(0.4, 40, 180, 100, 240);
    VSDrawFilledBox(RgbColour(0, 0, 0), RgbColour(128, 128, 128), 0.2, 20, 250, 60, 270);
}

QString WritePage(const QTemporaryDir& dir, double scale) {
    ReportDestination = rdPdfFile;
    VSPDFLeft = kPdfLeft;
    VSPDFTop = kPdfTop;
    VSPDFScale = scale;
    VSPrinter = kPdfPrinterName;
    VSAlignTextMethod = 0;
    VSDuplexMode = 0;
    if (!VSOpenReport(QStringLiteral("Positions"))) {
        return {};
    }
    ReportPageNumber = 1;
    VSNextSheet();
    DrawSamplePage();
    VSEndDocument();
    const QString path = dir.filePath(QStringLiteral("page%1.pdf").arg(scale));
    VSConvertToPDF(path);
    return VSPdfConverter().Error == 0 ? path : QString();
}

QString RunTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QMap<QString, WordBox> ReadWords(const QString& pdf) {
    const QString html = RunTool(QStringLiteral("pdftotext"), {"-bbox", pdf, "-"});
    static const QRegularExpression word(QStringLiteral(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)</word>)re"));
    QMap<QString, WordBox> words;
    constexpr double mmPerPoint = 25.4 / 72.0;
    for (auto it = word.globalMatch(html); it.hasNext();) {
        const auto m = it.next();
        words[m.captured(5)] = {
            m.captured(1).toDouble() * mmPerPoint, m.captured(2).toDouble() * mmPerPoint,
            m.captured(3).toDouble() * mmPerPoint, m.captured(4).toDouble() * mmPerPoint};
    }
    return words;
}

QImage RenderPixels(const QTemporaryDir& dir, const QString& pdf) {
    const QString prefix = dir.filePath(QFileInfo(pdf).baseName());
    RunTool(QStringLiteral("pdftoppm"), {"-r", "254", "-gray", "-singlefile", pdf, prefix});
    return QImage(prefix + QStringLiteral(".pgm"));
}

// Dark runs along a row (horizontal) or a column of the rendering.
QList<Run> DarkRuns(const QImage& image, bool horizontal, double atMm) {
    const int fixed = static_cast<int>(atMm * kPixelsPerMm);
    const int length = horizontal ? image.width() : image.height();
    QList<Run> runs;
    int start = -1;
    for (int i = 0; i <= length; ++i) {
        const bool dark =
            i < length && qGray(horizontal ? image.pixel(i, fixed) : image.pixel(fixed, i)) < 100;
        if (dark && start < 0) {
            start = i;
        } else if (!dark && start >= 0) {
            runs.append({(start + i) / 2.0 / kPixelsPerMm, (i - start) / kPixelsPerMm});
            start = -1;
        }
    }
    return runs;
}

}  // namespace

class PdfPositions : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;
    QTemporaryDir dir_;
    QMap<double, QMap<QString, WordBox>> words_;
    QMap<double, QImage> pixels_;

private Q_SLOTS:
    void initTestCase() {
        QVERIFY(dir_.isValid());
        for (const double scale : {100.0, 50.0}) {
            const QString pdf = WritePage(dir_, scale);
            QVERIFY2(!pdf.isEmpty(), "the PDF file was not written");
            words_[scale] = ReadWords(pdf);
            pixels_[scale] = RenderPixels(dir_, pdf);
            QVERIFY2(words_[scale].contains("Alpha"), "pdftotext found no text");
            QVERIFY(!pixels_[scale].isNull());
        }
    }

    void textStandsOnItsFoot_data() {
        QTest::addColumn<double>("scale");
        QTest::newRow("scale 100") << 100.0;
        QTest::newRow("scale 50") << 50.0;
    }
    // The bottom of the text's line box lies the fixed allowance below its foot.
    void textStandsOnItsFoot() {
        QFETCH(double, scale);
        const double allowanceMm = kTextFootAllowance / kTwipsPerMm;
        const WordBox alpha = words_[scale]["Alpha"];
        QVERIFY(qAbs(alpha.left - SheetX(30, scale)) < kToleranceMm);
        QVERIFY(qAbs(alpha.bottom - (SheetY(50, scale) + allowanceMm)) < kToleranceMm);
        const WordBox omega = words_[scale]["Omega"];
        QVERIFY(qAbs(omega.right - SheetX(180, scale)) < kToleranceMm);
        QVERIFY(qAbs(omega.bottom - (SheetY(100, scale) + allowanceMm)) < kToleranceMm);
    }

    void rulesAndBoxesStandOnTheirMillimetres_data() { textStandsOnItsFoot_data(); }
    void rulesAndBoxesStandOnTheirMillimetres() {
        QFETCH(double, scale);
        const QImage& image = pixels_[scale];
        const double ratio = scale / 100.0;
        // The horizontal rule, crossed at its middle: centre and pen width.
        const QList<Run> across = DarkRuns(image, false, SheetX(70, scale));
        QVERIFY(std::any_of(across.begin(), across.end(), [&](const Run& r) {
            return qAbs(r.centre - SheetY(150, scale)) < kToleranceMm &&
                   qAbs(r.width - 0.6 * ratio) < 0.15;
        }));
        // Its ends: square caps reach half the pen past each end point.
        const QList<Run> along = DarkRuns(image, true, SheetY(150, scale));
        QVERIFY(!along.isEmpty());
        const double halfPen = 0.3 * ratio;
        QVERIFY(qAbs(along.first().centre - along.first().width / 2 -
                     (SheetX(20, scale) - halfPen)) < kToleranceMm);
        QVERIFY(qAbs(along.first().centre + along.first().width / 2 -
                     (SheetX(120, scale) + halfPen)) < kToleranceMm);
        // The vertical rule.
        const QList<Run> vertical = DarkRuns(image, true, SheetY(200, scale));
        QVERIFY(std::any_of(vertical.begin(), vertical.end(), [&](const Run& r) {
            return qAbs(r.centre - SheetX(150, scale)) < kToleranceMm;
        }));
        // The outline box: two sides crossed at its middle, hollow inside.
        const QList<Run> sides = DarkRuns(image, true, SheetY(210, scale));
        QVERIFY(sides.size() >= 2);
        QVERIFY(qAbs(sides[0].centre - SheetX(40, scale)) < kToleranceMm);
        QVERIFY(qAbs(sides[1].centre - SheetX(100, scale)) < kToleranceMm);
        const QList<Run> topBottom = DarkRuns(image, false, SheetX(70, scale));
        QVERIFY(std::any_of(topBottom.begin(), topBottom.end(), [&](const Run& r) {
            return qAbs(r.centre - SheetY(180, scale)) < kToleranceMm;
        }));
        QVERIFY(std::any_of(topBottom.begin(), topBottom.end(), [&](const Run& r) {
            return qAbs(r.centre - SheetY(240, scale)) < kToleranceMm;
        }));
    }

    void filledBoxIsFilledWithItsBrush() {
        const QImage& image = pixels_[100.0];
        const QPoint inside(static_cast<int>(SheetX(40, 100) * kPixelsPerMm),
                            static_cast<int>(SheetY(260, 100) * kPixelsPerMm));
        QVERIFY(qAbs(qGray(image.pixel(inside)) - 128) < 8);
    }

    void halfScaleHalvesSizesAndKeepsOffsets() {
        const WordBox full = words_[100.0]["Alpha"];
        const WordBox half = words_[50.0]["Alpha"];
        QVERIFY(qAbs(half.Width() / full.Width() - 0.5) < 0.02);
        QVERIFY(qAbs(half.Height() / full.Height() - 0.5) < 0.02);
        // At scale 50 the page still starts at the offsets: x 0 would stand at
        // the left offset, which lies outside the scaled drawing.
        const double originMm = kPdfLeft * kUnitsPerMm / kTwipsPerMm;
        QVERIFY(qAbs((half.left - originMm) / (full.left - originMm) - 0.5) < 0.01);
    }
};

QTEST_MAIN(PdfPositions)
#include "test_pdf_positions.moc"
