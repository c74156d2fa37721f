// Printing: the report drawing routines (opening a report on the chosen
// printer, the page set-up of each destination, the operations they leave and
// the PDF file made of them), the plain printer with its list reports, the
// preview with its print dialog, the showing of finished reports, and the
// Report Settings.

#include "reports/frmVSPrint.h"
#include "reports/frmVSPrintDialog.h"
#include "reports/frmVSPrintSettings.h"
#include "reports/printer_object.h"
#include "reports/vsprint.h"
#include "reports/vsprint_gui.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/program_folder_copy.h"
#include "support/report_reading.h"
#include "support/shell_testing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using testing::Operations;
using testing::Rendered;
using testing::Words;

namespace {

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

// A preview document whose page n reads "Pn".
void MakeDocument(int pages) {
    ReportDestination = rdPreview;
    QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
    for (int page = 1; page <= pages; ++page) {
        ReportPageNumber = static_cast<qint16>(page);
        VSNextSheet();
        VSTextAt(10, 10, QStringLiteral("P%1").arg(page));
    }
    VSEndDocument();
}

// The text of each of the pages, all of them when none are named.
QStringList PageNames(const PageDocument& document, QList<int> indexes = {}) {
    for (int i = 0; indexes.isEmpty() && i < document.PageCount(); ++i) {
        indexes << i;
    }
    QStringList names;
    for (const int index : indexes) {
        const auto& ops = document.pages.at(index).ops;
        names << (ops.empty() ? QString() : std::get<TextOp>(ops.front()).text);
    }
    return names;
}

// The page label, then "+" or "-" for First, Previous, Next and Last enabled.
QString Navigation(const frmVSPrint& preview) {
    QString state = preview.lblPage->text() + QLatin1Char(' ');
    for (const QPushButton* button :
         {preview.cmdFirst, preview.cmdPrevious, preview.cmdNext, preview.cmdLast}) {
        state += QLatin1Char(button->isEnabled() ? '+' : '-');
    }
    return state;
}

void SetAwayFromDefaults(const testing::ProgramFolderCopy& folder) {
    folder.WriteConfig(
        "VS LEFT=1.5\r\nVS TOP=-2\r\nVS SCALE=105\r\nVS DUPLEX MODE=2\r\nVS PDF LEFT=-3\r\n"
        "VS PDF TOP=4\r\nVS PDF SCALE=95\r\nVS PDF FILE OPTION=1\r\nVS SECTION=1\r\n"
        "VS PDF FILE NAME=Practice\r\nREPORT FONT=Arial\r\nREPORT PREVIEW=1\r\nREPORT TICKS=2\r\n"
        "REPORT SHADING=False\r\nVS BLACK=10\r\nVS DARK=180\r\nVS LIGHT=190\r\nVS WHITE=250\r\n"
        "REPORT PADDING=True\r\nVS ALIGN TEXT METHOD=1\r\nVS ALIGN TEXT X=-1.5\r\n"
        "VS ALIGN TEXT Y=0.25\r\n");
    ReadConfiguration();
    VSPrinter = QStringLiteral("Duplex Laser");  // never read from the file
    DisableChildBenefitMessage = true;           // not in the file at all
}

// The settings as the configuration file holds them.
QStringList Written(const testing::ProgramFolderCopy& folder) {
    WriteConfiguration();
    return QString::fromLatin1(folder.ConfigText()).split(QStringLiteral("\r\n"));
}

void Close(frmVSPrintSettings& form) {
    form.show();
    form.cmdClose->click();
}

}  // namespace

class Printing : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;
    testing::ProgramFolderCopy folder_{false};

private Q_SLOTS:
    void init() {
        SetDefaults();
        desktop_.services.messages.ClearRecord();
        desktop_.backend.jobs.clear();
        desktop_.backend.failure.clear();
        desktop_.backend.ready = true;
        VSPrinter = QStringLiteral("Office Laser");
        VSPreviewMaximised = false;
        ReportDestination = rdPreview;
    }
    void cleanup() {
        desktop_.services.messages.CheckAllAnswersUsed(__FILE__, __LINE__);
        desktop_.services.fileDialogs.CheckAllAnswersUsed(__FILE__, __LINE__);
    }

    // For each printer selected and default printer, double-sided printing asked
    // or not, and the answer to the offer of the default, the reference file holds
    // whether the report opens, on which printer, sides, and the message shown.
    // Names match exactly; a printer without duplex is told of and still used.
    void openReportOnTheSelectedPrinter() {
        const std::tuple<const char*, const char*, qint16, int> cases[] = {
            {"Removed Printer", "Office Laser", 0, vbYes},
            {"Removed Printer", "Office Laser", 0, vbNo},
            {"office laser", "Office Laser", 0, vbNo},
            {"", "Office Laser", 0, 0},
            {"Removed Printer", "", 0, vbOK},
            {"Removed Printer", "Ghost", 0, vbOK},
            {"Office Laser", "Office Laser", 2, vbOK},
            {"Duplex Laser", "Office Laser", 2, 0}};
        QStringList outcomes;
        for (const auto& [selected, fallback, duplex, answer] : cases) {
            VSPrinter = QString::fromLatin1(selected);
            desktop_.SetDefaultPrinter(QString::fromLatin1(fallback));
            VSDuplexMode = duplex;
            desktop_.services.messages.ClearRecord();
            if (answer != 0) {
                desktop_.services.messages.Answer(answer);
            }
            const bool opened = VSOpenReport(QStringLiteral("Form 64-8"));
            ShownMessage told = desktop_.services.messages.Last();
            outcomes << QStringLiteral(
                            "\"%1\", default \"%2\", sides %3: %4, \"%5\" selected; "
                            "\"%6\" %7 under \"%8\"")
                            .arg(selected, fallback)
                            .arg(duplex)
                            .arg(opened ? QStringLiteral("opens on %1 with sides %2")
                                              .arg(VSDocumentControl().Device())
                                              .arg(VSDocumentControl().Duplex())
                                        : "stays closed",
                                 VSPrinter, told.prompt.replace('\n', '|'))
                            .arg(told.style)
                            .arg(told.title);
        }
        desktop_.SetDefaultPrinter(QStringLiteral("Office Laser"));
        QCOMPARE(outcomes, testing::ReferenceLines("open-report.txt", outcomes));
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
        const QImage sheet = Rendered(pdf);
        const double mm = kTwipsPerMm;
        const auto grey = [&sheet, mm](QPointF at) {
            return qGray(sheet.pixel((at / mm * 10).toPoint()));
        };
        const auto dark = [&grey](QPointF at) { return grey(at) < 128; };
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
                QVERIFY(dark(middle));
                if (line->pen.width >= 0.5 * mm) {
                    const QPointF along =
                        (line->to - line->from) / QLineF(line->from, line->to).length();
                    const QPointF across(-along.y(), along.x());
                    const double inside = line->pen.width / 2 - 0.1 * mm;
                    const double outside = line->pen.width / 2 + 0.2 * mm;
                    QVERIFY(dark(middle + across * inside) && !dark(middle + across * outside));
                    QVERIFY(dark(line->to + along * inside) && !dark(line->to + along * outside));
                }
            } else if (const auto* rect = std::get_if<RectangleOp>(&op)) {
                const QRectF r = rect->rect;
                QVERIFY(dark(QPointF(r.left(), r.center().y())));
                QVERIFY(dark(QPointF(r.right(), r.center().y())));
                const int inside = rect->filled ? qGray(ToQColor(rect->fill).rgb()) : 255;
                QVERIFY(qAbs(grey(r.center()) - inside) < 8);
            } else if (const auto* disc = std::get_if<CircleOp>(&op)) {
                QVERIFY(qAbs(grey(disc->centre) - qGray(ToQColor(disc->fill).rgb())) < 8);
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
        QCOMPARE(
            QStringLiteral("%1, %2, sides %3").arg(job.device, job.documentName).arg(job.duplex),
            "Office Laser, Diary Report, sides 1");
        QCOMPARE(job.pages, QList<int>({0, 1}));
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

    // For lists of 10, 130 and 250 names in one column or two, the reference
    // file holds each page's texts: the title (bold, centred on the printable
    // width), the first and the last name in each column, and the page number,
    // which a list of one page has not. Once a two-column list has reached its
    // second column it stays there.
    void listsAreLaidOutOnPages() {
        QStringList outcomes;
        for (const auto& [count, mode] : {std::pair{10, 1}, {130, 1}, {250, 2}}) {
            QStringList names;
            for (int i = 1; i <= count; ++i) {
                names << QStringLiteral("Name %1").arg(i, 3, 10, QLatin1Char('0'));
            }
            QVERIFY(PrintListReport(names, QStringLiteral("Year End"), mode));
            QStringList printed;
            for (const ReportPage& page : desktop_.backend.jobs.back().document.pages) {
                const auto texts = TextsOf(page);
                QString line = QStringLiteral("%1 in mode %2:").arg(count).arg(mode);
                for (size_t i = 0; i < texts.size(); ++i) {
                    const PrintedText& text = texts[i];
                    const bool name = text.text.startsWith(QStringLiteral("Name"));
                    printed << (name ? QStringList{text.text} : QStringList());
                    const bool columnEnds =
                        i + 1 == texts.size() || texts[i + 1].at.x() != text.at.x();
                    const bool columnStarts = i == 0 || texts[i - 1].at.x() != text.at.x();
                    if (!name || columnEnds || columnStarts) {
                        line +=
                            QString::asprintf(" \"%s\"%s at %.2f,%.2f;", qPrintable(text.text),
                                              text.bold ? " bold" : "", text.at.x(), text.at.y());
                    }
                }
                outcomes << line;
            }
            QCOMPARE(printed, names);
        }
        QCOMPARE(outcomes, testing::ReferenceLines("list-reports.txt", outcomes));
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
        QCOMPARE(TextsOf(Printer.Document().pages[1]).front().at, QPointF(0, 0));
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

    // The page is painted at the zoom: at 100 % a black square lands where its
    // millimetres say on a sheet of the screen's size.
    void pagesArePaintedAtTheZoom() {
        ReportDestination = rdPreview;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        VSDrawFilledBox(ReportBlack, ReportBlack, 0, 100, 100, 120, 120);
        for (ReportPageNumber = 2; ReportPageNumber <= 3; ++ReportPageNumber) {
            VSNextSheet();
        }
        VSEndDocument();
        frmVSPrint preview;
        preview.resize(900, 700);
        preview.show();
        preview.cmbZoomMode->setCurrentIndex(zmPercentage);
        preview.cmbZoomMode_Click();
        QVERIFY(preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().Zoom, 75.0);
        preview.cmbPercent->setCurrentIndex(3);
        preview.cmbPercent_Click();
        QCOMPARE(VSDocumentControl().Zoom, 100.0);
        const double pixelsPerTwip = preview.vp->Scale();
        QVERIFY(qAbs(pixelsPerTwip - preview.vp->screen()->logicalDotsPerInch() / 1440.0) < 1e-9);
        const QImage page = preview.vp->widget()->grab().toImage();
        const QPointF gap(12, 12);  // from the corner of the page area to the sheet
        const QPointF inside = QPointF(VSMapX(110), VSMapY(110)) * pixelsPerTwip + gap;
        const QPointF outside = QPointF(VSMapX(90), VSMapY(110)) * pixelsPerTwip + gap;
        QVERIFY(qGray(page.pixel(inside.toPoint())) < 60);
        QVERIFY(qGray(page.pixel(outside.toPoint())) > 200);
        preview.cmbZoomMode->setCurrentIndex(zmTwoPages);
        preview.cmbZoomMode_Click();
        QVERIFY(!preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().ZoomMode, int(zmTwoPages));
        QCOMPARE(preview.vp->Slots().size(), size_t(2));
        preview.cmbZoomMode->setCurrentIndex(zmWholePage);
        preview.cmbZoomMode_Click();
        QVERIFY(preview.vp->widget()->height() <= preview.vp->viewport()->height());
    }

    // The preview opens at 75 % of the page width, in the page order last used,
    // no smaller than its floor and within the screen; its buttons follow the
    // page, page 1 being tested first, so that a one-page document keeps Next
    // and Last enabled; it keeps its place, size and order when it closes.
    void previewOpensNavigatesAndCloses() {
        MakeDocument(3);
        std::tie(VSPreviewWidth, VSPreviewHeight, VSPreviewLeft, VSPreviewTop) =
            std::tuple(100, 100, -3000, 150);
        ReportReverse = true;
        frmVSPrint preview;
        QCOMPARE(preview.windowTitle(), "Print Preview");
        QCOMPARE(preview.cmbPercent->currentText() + preview.cmbZoomMode->currentText() +
                     preview.cmbPrint->currentText(),
                 "75%PageWidthReverse");
        QVERIFY(!preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().ZoomMode, int(zmPageWidth));
        preview.UpdateNavigation();
        QCOMPARE(Navigation(preview), "1 of 3 --++");
        preview.cmdNext->click();
        QCOMPARE(Navigation(preview), "2 of 3 ++++");
        preview.cmdLast->click();
        QCOMPARE(Navigation(preview), "3 of 3 ++--");
        preview.cmdPrevious->click();
        QCOMPARE(Navigation(preview), "2 of 3 ++++");
        preview.cmdFirst->click();
        QCOMPARE(VSDocumentControl().PreviewPage, 1);
        MakeDocument(1);
        preview.UpdateNavigation();
        QCOMPARE(Navigation(preview), "1 of 1 --++");
        preview.show();
        preview.cmbPrint->setCurrentIndex(0);
        preview.cmdClose->click();
        QVERIFY(!preview.isVisible() && !VSPreviewMaximised && !ReportReverse);
        QVERIFY(qAbs(VSPreviewWidth - 9600) < 30 && qAbs(VSPreviewHeight - 4800) < 30);
        QVERIFY(VSPreviewLeft == 0 && qAbs(VSPreviewTop - 150) < 30);
    }

    // For each case (pages, page order, the preview's page, the choice: "all",
    // "current", "odd", "even" or typed page numbers) the reference file holds
    // the ranges offered and the pages printed, named as the user sees them
    // numbered. Reversed, page p stands at place N + 1 - p: with an even count
    // the manual duplex passes swap, so that the sheets come out right.
    void printDialogSendsThePagesChosen() {
        const std::tuple<int, bool, int, QString> cases[] = {
            {1, false, 1, "current"}, {3, false, 1, "all"},    {3, false, 2, "current"},
            {6, false, 1, "1,x3-4 "}, {5, false, 1, "even"},   {3, true, 1, "all"},
            {4, true, 1, "current"},  {4, true, 3, "current"}, {4, true, 1, "odd"},
            {4, true, 1, "even"},     {5, true, 1, "odd"},     {5, true, 1, "even"}};
        QStringList outcomes;
        for (const auto& [pages, reverse, shown, choice] : cases) {
            MakeDocument(pages);
            desktop_.backend.jobs.clear();
            frmVSPrint preview;
            preview.cmbPrint->setCurrentIndex(reverse ? 1 : 0);
            VSDocumentControl().PreviewPage = shown;
            QString offered;
            {
                frmVSPrintDialog dialog(preview);
                for (int i = 0; i < 3; ++i) {
                    offered +=
                        dialog.optRange[i]->isEnabled() ? dialog.optRange[i]->text() + "; " : "";
                }
                const int range = choice == "current" ? 1 : choice.front().isDigit() ? 2 : 0;
                if (dialog.fraDuplex->isEnabled()) {
                    dialog.optDuplex[2]->setChecked(true);  // a pass chosen before the range
                }
                dialog.optRange[range]->setChecked(true);
                if (range == 0) {
                    dialog.optDuplex[choice == "odd"    ? 1
                                     : choice == "even" ? 2
                                                        : 0]
                        ->setChecked(true);
                } else {  // the pass falls back with its frame
                    QVERIFY(!dialog.fraDuplex->isEnabled() && dialog.optDuplex[0]->isChecked());
                }
                QTest::keyClicks(dialog.txtPageNumbers, choice);  // taken only under "Pages"
                dialog.cmdPrint_Click();
            }
            const testing::RecordedJob& job = desktop_.backend.jobs.at(0);
            outcomes << QStringLiteral("%1 pages%2, page %3 shown, %4: offers %5prints %6")
                            .arg(pages)
                            .arg(reverse ? " reversed" : "")
                            .arg(shown)
                            .arg(choice, offered, PageNames(job.document, job.job.pages).join(' '));
            QCOMPARE(PageNames(VSDocumentControl().Document()).first(), "P1");  // put back
        }
        QCOMPARE(outcomes, testing::ReferenceLines("print-dialog.txt", outcomes));
    }

    // Copies are typed as digits and at least one; typed pages outside the
    // document are refused with the text kept; a printer never ready abandons
    // the job after 30 s.
    void printDialogCopiesAndRefusals() {
        MakeDocument(3);
        frmVSPrint preview;
        {
            frmVSPrintDialog dialog(preview);
            dialog.txtCopies->clear();
            QFocusEvent out(QEvent::FocusOut);
            QApplication::sendEvent(dialog.txtCopies, &out);
            QCOMPARE(dialog.txtCopies->text(), QStringLiteral("1"));
            dialog.txtCopies->clear();
            QTest::keyClicks(dialog.txtCopies, QStringLiteral("0x2"));
            dialog.cmdPrint_Click();
            QCOMPARE(desktop_.backend.jobs.size(), size_t(2));
        }
        frmVSPrintDialog refused(preview);
        refused.optRange[2]->setChecked(true);
        refused.txtPageNumbers->setText(QStringLiteral("7-9"));
        desktop_.services.messages.Answer(vbOK);
        refused.cmdPrint_Click();
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("There are no pages to print in \"7-9\". The document has 3 "
                                "pages."));
        QCOMPARE(refused.txtPageNumbers->text(), QStringLiteral("7-9"));
        desktop_.backend.ready = false;
        desktop_.services.messages.Answer(vbOK);
        QTimer::singleShot(0, &refused, [&refused] {
            QCOMPARE(refused.tmrAbandon->interval(), 30000);
            refused.tmrAbandon_Timer();
        });
        refused.optRange[0]->setChecked(true);
        refused.cmdPrint_Click();
        QCOMPARE(desktop_.backend.jobs.size(), size_t(2));
        const ShownMessage told = desktop_.services.messages.Last();
        QCOMPARE(told.prompt, QStringLiteral("The printing system is not ready.\n\nThe print "
                                             "job has been abandoned."));
        QCOMPARE(told.title, QStringLiteral("Printing Process"));
        QCOMPARE(told.style, int(vbCritical));
        QCOMPARE(refused.result(), int(QDialog::Rejected));
    }

    void finishedReportsGoToTheViewerOrTheFileChosen() {
        ReportPreview = 1;
        MakeDocument(1);
        QFile::remove(PreviewPdfPath());
        ShowReportDocument();
        QCOMPARE(desktop_.services.programs.Opened().last(), PreviewPdfPath());
        QVERIFY(PreviewPdfPath().endsWith(QStringLiteral("/Docs/Preview.pdf")));
        QVERIFY(QFileInfo(PreviewPdfPath()).size() > 0);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Form.pdf"));
        ReportDestination = rdPdfFile;
        QVERIFY(VSOpenReport(QStringLiteral("Form 64-8")));
        VSEndDocument();
        ShowReportDocument(path);
        QVERIFY(QFileInfo(path).size() > 0);
    }

    // Closing stores what stands on the screen; each tab shows its panel; a
    // removed printer shows as the first, any other font as Times New Roman.
    void closingStoresWhatStandsOnTheScreen() {
        SetAwayFromDefaults(folder_);
        frmVSPrintSettings form;
        QCOMPARE(form.tbsSettings->tabText(1), "Print");
        for (const auto& [tab, control] :
             {std::pair<int, QWidget*>{2, form.txtPDFScale}, {1, form.cmbPrinter}}) {
            form.tbsSettings->setCurrentIndex(tab);
            QVERIFY(form.panels->currentWidget() == form.picSettings[tab] &&
                    form.picSettings[tab]->isAncestorOf(control));
        }
        form.cmbPrinter->setCurrentIndex(2);
        form.optDuplexMode[1]->setChecked(true);
        form.txtFile->setText("  Letters  ");
        form.txtAlignH->setText("-1.25");
        Close(form);
        QCOMPARE(VSPrinter, QString::fromLatin1(kPdfPrinterName));
        QCOMPARE(VSDuplexMode, qint16(1));
        QCOMPARE(VSPDFFileName, "Letters");
        QCOMPARE(VSAlignTextX, -1.25);
        VSPrinter = "Removed Printer";
        ReportFont = "Courier New";
        frmVSPrintSettings again;
        QCOMPARE(again.cmbPrinter->currentIndex(), 0);
        QVERIFY(again.optFont[0]->isChecked());
        Close(again);
        QCOMPARE(VSPrinter, "Office Laser");
    }

    // What each box takes of the keys typed, and what leaving it leaves: the
    // reference file holds both for each case.
    void boxesTakeTheirKeysAndForceTheirRanges() {
        const std::pair<const char*, const char*> cases[] = {
            {"txtVSScale", "300"},          {"txtVSScale", "50"},    {"txtPDFScale", ""},
            {"txtVSLeft", "-12"},           {"txtPDFTop", "15"},     {"txtVSTop", "-"},
            {"txtVSLeft", "1.5"},           {"txtWhite", "256"},     {"txtBlack", "-3a"},
            {"txtAlignMethod", "-2."},      {"txtAlignH", "-150.5"}, {"txtAlignV", "1.5"},
            {"txtFile", "a/b\\c:d*e?f<g>h"}};
        QStringList outcomes;
        for (const auto& [name, typed] : cases) {
            frmVSPrintSettings form;
            auto* box = form.findChild<QLineEdit*>(name);
            box->clear();
            QTest::keyClicks(box, typed);
            const QString taken = box->text();
            QFocusEvent out(QEvent::FocusOut);
            QApplication::sendEvent(box, &out);
            outcomes << QStringLiteral("%1 typed \"%2\": takes \"%3\", leaves \"%4\"")
                            .arg(name, typed, taken, box->text());
        }
        QCOMPARE(outcomes, testing::ReferenceLines("report-settings-boxes.txt", outcomes));
    }

    // Defaults refused change nothing: closing keeps every setting as the
    // screen showed it. Accepted, the controls take the defaults and the
    // settings get them when the form closes.
    void defaultsAreAskedForAndStoredOnClosing() {
        SetDefaults();
        // Where the screen's defaults are not the file's.
        VSPrinter = "Office Laser";
        ReportFont = "Times New Roman";
        const QStringList defaults = Written(folder_);
        SetAwayFromDefaults(folder_);
        const QStringList before = Written(folder_);
        for (const int answer : {vbNo, vbYes}) {
            desktop_.services.messages.Answer(answer);
            frmVSPrintSettings form;
            QCOMPARE(form.windowTitle(), "Report Settings");
            form.cmdDefaults->click();
            const ShownMessage asked = desktop_.services.messages.Last();
            QCOMPARE(asked.prompt,
                     "All current Report Settings will be replaced with their "
                     "defaults.\n\nDo you wish to proceed?");
            QCOMPARE(asked.title, "Report Settings");
            QCOMPARE(asked.style, vbYesNo | vbQuestion | vbDefaultButton2);
            QCOMPARE(VSScale, 105.0);  // the settings change only on closing
            Close(form);
            QCOMPARE(Written(folder_), answer == vbNo ? before : defaults);
            QCOMPARE(DisableChildBenefitMessage, answer == vbNo);
        }
    }
};

QTEST_MAIN(Printing)
#include "test_printing.moc"
