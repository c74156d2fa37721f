// The print screens: the preview, its print dialog, the showing of finished
// reports and the Report Settings.

#include "reports/frmVSPrint.h"
#include "reports/frmVSPrintDialog.h"
#include "reports/frmVSPrintSettings.h"
#include "reports/vsprint.h"
#include "reports/vsprint_gui.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"
#include "support/program_folder_copy.h"
#include "support/shell_testing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
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

namespace {

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

class PrintScreens : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;
    testing::ProgramFolderCopy folder_{false};

private Q_SLOTS:
    void init() {
        SetDefaults();
        desktop_.services.messages.ClearRecord();
        desktop_.backend.jobs.clear();
        desktop_.backend.ready = true;
        VSPrinter = QStringLiteral("Office Laser");
        VSPreviewMaximised = false;
    }

    void loadSetsZoomAndPageOrder() {
        MakeDocument(2);
        for (const bool reverse : {true, false}) {
            ReportReverse = reverse;
            frmVSPrint preview;
            QCOMPARE(preview.cmbPrint->currentText(), reverse ? "Reverse" : "Normal");
        }
        frmVSPrint preview;
        QCOMPARE(preview.windowTitle(), QStringLiteral("Print Preview"));
        QCOMPARE(preview.cmbPercent->currentText(), QStringLiteral("75%"));
        QCOMPARE(preview.cmbZoomMode->currentText(), QStringLiteral("PageWidth"));
        QVERIFY(!preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().ZoomMode, int(zmPageWidth));
    }

    // Page 1 is tested first: a one-page document keeps Next and Last enabled.
    void navigationFollowsThePage() {
        MakeDocument(3);
        frmVSPrint preview;
        preview.UpdateNavigation();
        QCOMPARE(Navigation(preview), QStringLiteral("1 of 3 --++"));
        preview.cmdNext->click();
        QCOMPARE(Navigation(preview), QStringLiteral("2 of 3 ++++"));
        preview.cmdLast->click();
        QCOMPARE(Navigation(preview), QStringLiteral("3 of 3 ++--"));
        preview.cmdPrevious->click();
        QCOMPARE(Navigation(preview), QStringLiteral("2 of 3 ++++"));
        preview.cmdFirst->click();
        QCOMPARE(VSDocumentControl().PreviewPage, 1);
        MakeDocument(1);
        preview.UpdateNavigation();
        QCOMPARE(Navigation(preview), QStringLiteral("1 of 1 --++"));
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
        preview.cmdLast_Click();
        QCOMPARE(preview.vp->Slots().size(), size_t(1));  // no page beyond the last
        preview.cmbZoomMode->setCurrentIndex(zmWholePage);
        preview.cmbZoomMode_Click();
        QVERIFY(preview.vp->widget()->height() <= preview.vp->viewport()->height());
    }

    void unloadStoresPlaceSizeAndOrder() {
        MakeDocument(1);
        VSPreviewWidth = 100;  // below the floor
        VSPreviewHeight = 100;
        VSPreviewLeft = -3000;
        VSPreviewTop = 150;
        frmVSPrint preview;
        preview.show();
        preview.cmbPrint->setCurrentIndex(1);
        preview.cmdClose->click();
        QVERIFY(!preview.isVisible());
        QVERIFY(!VSPreviewMaximised);
        QVERIFY(qAbs(VSPreviewWidth - 9600) < 30);
        QVERIFY(qAbs(VSPreviewHeight - 4800) < 30);
        QCOMPARE(VSPreviewLeft, 0);
        QVERIFY(qAbs(VSPreviewTop - 150) < 30);
        QVERIFY(ReportReverse);
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

    void copiesAreDigitsAndAtLeastOne() {
        MakeDocument(2);
        frmVSPrint preview;
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

    void pagesOutsideTheDocumentAreRefused() {
        MakeDocument(3);
        frmVSPrint preview;
        frmVSPrintDialog dialog(preview);
        dialog.optRange[2]->setChecked(true);
        dialog.txtPageNumbers->setText(QStringLiteral("7-9"));
        desktop_.services.messages.Answer(vbOK);
        dialog.cmdPrint_Click();
        QVERIFY(desktop_.backend.jobs.empty());
        QCOMPARE(desktop_.services.messages.Last().prompt,
                 QStringLiteral("There are no pages to print in \"7-9\". The document has 3 "
                                "pages."));
        QCOMPARE(dialog.txtPageNumbers->text(), QStringLiteral("7-9"));
    }

    void printerNeverReadyAbandonsTheJob() {
        MakeDocument(2);
        desktop_.backend.ready = false;
        desktop_.services.messages.Answer(vbOK);
        frmVSPrint preview;
        frmVSPrintDialog dialog(preview);
        QTimer::singleShot(0, &dialog, [&dialog] {
            QCOMPARE(dialog.tmrAbandon->interval(), 30000);
            dialog.tmrAbandon_Timer();
        });
        dialog.cmdPrint_Click();
        QVERIFY(desktop_.backend.jobs.empty());
        const ShownMessage told = desktop_.services.messages.Last();
        QCOMPARE(told.prompt, QStringLiteral("The printing system is not ready.\n\nThe print "
                                             "job has been abandoned."));
        QCOMPARE(told.title, QStringLiteral("Printing Process"));
        QCOMPARE(told.style, int(vbCritical));
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
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

    void closingStoresWhatStandsOnTheScreen() {
        SetAwayFromDefaults(folder_);
        frmVSPrintSettings form;
        form.cmbPrinter->setCurrentIndex(2);
        form.optDuplexMode[1]->setChecked(true);
        form.txtFile->setText(QStringLiteral("  Letters  "));
        form.txtAlignH->setText(QStringLiteral("-1.25"));
        Close(form);
        QCOMPARE(VSPrinter, QString::fromLatin1(kPdfPrinterName));
        QCOMPARE(VSDuplexMode, qint16(1));
        QCOMPARE(VSPDFFileName, QStringLiteral("Letters"));
        QCOMPARE(VSAlignTextX, -1.25);
    }

    void tabsShowTheirPanel() {
        frmVSPrintSettings form;
        QCOMPARE(form.tbsSettings->tabText(1), QStringLiteral("Print"));
        form.tbsSettings->setCurrentIndex(2);
        QCOMPARE(form.panels->currentWidget(), form.picSettings[2]);
        QVERIFY(form.picSettings[2]->isAncestorOf(form.txtPDFScale));
        form.tbsSettings->setCurrentIndex(1);
        QVERIFY(form.picSettings[1]->isAncestorOf(form.cmbPrinter));
        QCOMPARE(form.panels->currentWidget(), form.picSettings[1]);
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

    // Closing keeps every setting as the screen showed it; Defaults refused
    // change nothing.
    void closingAfterDefaultsRefusedKeepsEverySetting() {
        desktop_.services.messages.Answer(vbNo);
        SetAwayFromDefaults(folder_);
        const QStringList before = Written(folder_);
        frmVSPrintSettings form;
        QCOMPARE(form.windowTitle(), QStringLiteral("Report Settings"));
        form.cmdDefaults->click();
        const ShownMessage asked = desktop_.services.messages.Last();
        QCOMPARE(asked.prompt, QStringLiteral("All current Report Settings will be replaced with "
                                              "their defaults.\n\nDo you wish to proceed?"));
        QCOMPARE(asked.title, QStringLiteral("Report Settings"));
        QCOMPARE(asked.style, vbYesNo | vbQuestion | vbDefaultButton2);
        Close(form);
        QCOMPARE(Written(folder_), before);
        QVERIFY(DisableChildBenefitMessage);
    }

    // The controls take the defaults; the settings get them when the form closes.
    void defaultsAcceptedAreStoredOnClosing() {
        SetDefaults();
        // Where the screen's defaults are not the file's.
        VSPrinter = QStringLiteral("Office Laser");
        ReportFont = QStringLiteral("Times New Roman");
        const QStringList defaults = Written(folder_);
        SetAwayFromDefaults(folder_);
        desktop_.services.messages.Answer(vbYes);
        frmVSPrintSettings form;
        form.cmdDefaults->click();
        QCOMPARE(VSScale, 105.0);
        Close(form);
        QCOMPARE(Written(folder_), defaults);
        QVERIFY(!DisableChildBenefitMessage);
    }

    // A removed printer shows as the first; any other font as Times New Roman.
    void unknownSettingsShowAsTheFirstChoice() {
        VSPrinter = QStringLiteral("Removed Printer");
        ReportFont = QStringLiteral("Courier New");
        frmVSPrintSettings form;
        QCOMPARE(form.cmbPrinter->currentIndex(), 0);
        QVERIFY(form.optFont[0]->isChecked());
        Close(form);
        QCOMPARE(VSPrinter, QStringLiteral("Office Laser"));
    }
};

QTEST_MAIN(PrintScreens)
#include "test_print_screens.moc"
