// The print preview, its print dialog and the showing of finished reports.

#include "reports/frmVSPrint.h"
#include "reports/frmVSPrintDialog.h"
#include "reports/vsprint.h"
#include "reports/vsprint_gui.h"
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/print_fakes.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
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

QString PageName(const PageDocument& document, int index) {
    for (const DrawOp& op : document.pages.at(index).ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            return text->text;
        }
    }
    return {};
}

QStringList PageNames(const PageDocument& document, const QList<int>& indexes) {
    QStringList names;
    for (const int index : indexes) {
        names << PageName(document, index);
    }
    return names;
}

QStringList DocumentOrder() {
    const PageDocument& document = VSDocumentControl().Document();
    QList<int> all;
    for (int i = 0; i < document.PageCount(); ++i) {
        all << i;
    }
    return PageNames(document, all);
}

void LeaveBox(QWidget* box) {
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(box, &out);
}

}  // namespace

class Preview : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;

private Q_SLOTS:
    void init() {
        SetDefaults();
        desktop_.services.messages.ClearRecord();
        desktop_.backend.jobs.clear();
        desktop_.backend.ready = true;
        VSPrinter = QStringLiteral("Office Laser");
        ReportReverse = false;
        ReportPreview = 0;
        VSPreviewMaximised = false;
        VSDuplexMode = 0;
    }

    void loadSetsZoomAndPageOrder_data() {
        QTest::addColumn<bool>("reverse");
        QTest::newRow("normal") << false;
        QTest::newRow("reverse") << true;
    }
    void loadSetsZoomAndPageOrder() {
        QFETCH(bool, reverse);
        ReportReverse = reverse;
        MakeDocument(2);
        frmVSPrint preview;
        QCOMPARE(preview.windowTitle(), QStringLiteral("Print Preview"));
        QCOMPARE(preview.cmbPercent->currentText(), QStringLiteral("75%"));
        QCOMPARE(preview.cmbZoomMode->currentText(), QStringLiteral("PageWidth"));
        QVERIFY(!preview.cmbPercent->isEnabled());
        QCOMPARE(preview.cmbPrint->currentText(),
                 reverse ? QStringLiteral("Reverse") : QStringLiteral("Normal"));
        QCOMPARE(VSDocumentControl().ZoomMode, int(zmPageWidth));
    }

    void navigationFollowsThePage() {
        MakeDocument(3);
        frmVSPrint preview;
        preview.UpdateNavigation();
        QCOMPARE(preview.lblPage->text(), QStringLiteral("1 of 3"));
        QVERIFY(!preview.cmdFirst->isEnabled() && !preview.cmdPrevious->isEnabled());
        QVERIFY(preview.cmdNext->isEnabled() && preview.cmdLast->isEnabled());
        preview.cmdNext->click();
        QCOMPARE(preview.lblPage->text(), QStringLiteral("2 of 3"));
        QVERIFY(preview.cmdFirst->isEnabled() && preview.cmdLast->isEnabled());
        preview.cmdLast->click();
        QCOMPARE(preview.lblPage->text(), QStringLiteral("3 of 3"));
        QVERIFY(!preview.cmdNext->isEnabled() && !preview.cmdLast->isEnabled());
        QVERIFY(preview.cmdPrevious->isEnabled());
        preview.cmdPrevious->click();
        QCOMPARE(VSDocumentControl().PreviewPage, 2);
        preview.cmdFirst->click();
        QCOMPARE(VSDocumentControl().PreviewPage, 1);
    }

    // Page 1 is tested first: a one-page document keeps Next and Last enabled.
    void onePageKeepsNextAndLastEnabled() {
        MakeDocument(1);
        frmVSPrint preview;
        preview.UpdateNavigation();
        QVERIFY(!preview.cmdFirst->isEnabled());
        QVERIFY(preview.cmdNext->isEnabled() && preview.cmdLast->isEnabled());
        preview.tmrLastPage->start(1000);
        preview.tmrLastPage_Timer();
        QVERIFY(!preview.tmrLastPage->isActive());
        QCOMPARE(VSDocumentControl().PreviewPage, 1);
    }

    void zoomModeAndPercent() {
        MakeDocument(3);
        frmVSPrint preview;
        preview.resize(900, 700);
        QCOMPARE(preview.vp->Slots().size(), size_t(1));
        preview.cmbZoomMode->setCurrentIndex(zmPercentage);
        preview.cmbZoomMode_Click();
        QVERIFY(preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().Zoom, 75.0);
        preview.cmbPercent->setCurrentIndex(6);
        preview.cmbPercent_Click();
        QCOMPARE(VSDocumentControl().Zoom, 400.0);
        preview.cmbZoomMode->setCurrentIndex(zmTwoPages);
        preview.cmbZoomMode_Click();
        QVERIFY(!preview.cmbPercent->isEnabled());
        QCOMPARE(VSDocumentControl().ZoomMode, int(zmTwoPages));
        QCOMPARE(preview.vp->Slots().size(), size_t(2));
        preview.cmdLast_Click();
        QCOMPARE(preview.vp->Slots().size(), size_t(1));  // no page beyond the last
        preview.cmbZoomMode->setCurrentIndex(zmThumbnail);
        preview.cmbZoomMode_Click();
        QCOMPARE(preview.vp->Slots().size(), size_t(3));
    }

    // The page is painted at the zoom: a black square lands where its
    // millimetres say on a sheet of the screen's size for the zoom.
    void pageIsPaintedAtTheZoom() {
        ReportDestination = rdPreview;
        QVERIFY(VSOpenReport(QStringLiteral("Diary Report")));
        VSDrawFilledBox(ReportBlack, ReportBlack, 0, 100, 100, 120, 120);
        VSEndDocument();
        frmVSPrint preview;
        preview.resize(900, 700);
        preview.show();
        preview.cmbZoomMode->setCurrentIndex(zmPercentage);
        preview.cmbZoomMode_Click();
        preview.cmbPercent->setCurrentIndex(3);  // 100%
        preview.cmbPercent_Click();
        const double pixelsPerTwip = preview.vp->Scale();
        QVERIFY(qAbs(pixelsPerTwip - preview.vp->screen()->logicalDotsPerInch() / 1440.0) < 1e-9);
        const QImage page = preview.vp->widget()->grab().toImage();
        QVERIFY(page.width() > A4SizeTwips().width() * pixelsPerTwip);
        const QPointF inside = QPointF(VSMapX(110), VSMapY(110)) * pixelsPerTwip;
        const QPointF outside = QPointF(VSMapX(90), VSMapY(110)) * pixelsPerTwip;
        // The sheet stands a gap of 12 pixels from the corner of the page area.
        const QPointF gap(12, 12);
        QVERIFY(qGray(page.pixel((inside + gap).toPoint())) < 60);
        QVERIFY(qGray(page.pixel((outside + gap).toPoint())) > 200);
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

    void onePageOffersTheCurrentPageOnly() {
        MakeDocument(1);
        frmVSPrint preview;
        frmVSPrintDialog dialog(preview);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Office Laser"));
        QVERIFY(dialog.optRange[1]->isChecked());
        QVERIFY(!dialog.optRange[0]->isEnabled());
        QVERIFY(!dialog.optRange[2]->isEnabled());
        QVERIFY(!dialog.fraDuplex->isEnabled());
        dialog.cmdPrint_Click();
        QCOMPARE(desktop_.backend.jobs.size(), size_t(1));
        QCOMPARE(desktop_.backend.jobs.front().job.pages, QList<int>({0}));
    }

    void manualDuplexPassInReverseOrder_data() {
        QTest::addColumn<int>("pages");
        QTest::addColumn<int>("pass");  // 1 odd, 2 even
        QTest::addColumn<QStringList>("printed");
        QTest::newRow("4 pages, odd pass") << 4 << 1 << QStringList({"P3", "P1"});
        QTest::newRow("4 pages, even pass") << 4 << 2 << QStringList({"P4", "P2"});
        QTest::newRow("5 pages, odd pass") << 5 << 1 << QStringList({"P5", "P3", "P1"});
    }
    // The user sees the pages last first; with an even count the passes swap
    // so the sheets come out right.
    void manualDuplexPassInReverseOrder() {
        QFETCH(int, pages);
        QFETCH(int, pass);
        QFETCH(QStringList, printed);
        MakeDocument(pages);
        frmVSPrint preview;
        preview.cmbPrint->setCurrentIndex(1);
        {
            frmVSPrintDialog dialog(preview);
            QVERIFY(!dialog.optRange[2]->isEnabled());
            QCOMPARE(DocumentOrder().first(), QStringLiteral("P%1").arg(pages));
            dialog.optDuplex[pass]->setChecked(true);
            dialog.cmdPrint_Click();
        }
        QCOMPARE(desktop_.backend.jobs.size(), size_t(1));
        const testing::RecordedJob& job = desktop_.backend.jobs.front();
        QCOMPARE(PageNames(job.document, job.job.pages), printed);
        QCOMPARE(DocumentOrder().first(), QStringLiteral("P1"));  // put back on unload
    }

    void rangesAndCopies() {
        MakeDocument(6);
        frmVSPrint preview;
        preview.cmdNext_Click();
        frmVSPrintDialog dialog(preview);
        QVERIFY(dialog.optRange[0]->isChecked());
        dialog.optDuplex[2]->setChecked(true);
        dialog.optRange[1]->setChecked(true);
        QVERIFY(!dialog.fraDuplex->isEnabled());
        QVERIFY(dialog.optDuplex[0]->isChecked());  // falls back with the frame
        dialog.optRange[2]->setChecked(true);
        QTest::keyClicks(dialog.txtPageNumbers, QStringLiteral("1,x3-4 "));
        QCOMPARE(dialog.txtPageNumbers->text(), QStringLiteral("1,3-4"));
        QTest::keyClicks(dialog.txtCopies, QStringLiteral("0"));
        QCOMPARE(dialog.txtCopies->text(), QStringLiteral("1"));
        dialog.txtCopies->setText(QStringLiteral("2"));
        dialog.cmdPrint_Click();
        QCOMPARE(desktop_.backend.jobs.size(), size_t(2));
        for (const testing::RecordedJob& job : desktop_.backend.jobs) {
            QCOMPARE(job.job.pages, QList<int>({0, 2, 3}));
        }
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

    void copiesBelowOneBecomeOne() {
        MakeDocument(2);
        frmVSPrint preview;
        frmVSPrintDialog dialog(preview);
        dialog.txtCopies->clear();
        LeaveBox(dialog.txtCopies);
        QCOMPARE(dialog.txtCopies->text(), QStringLiteral("1"));
    }

    void printerNeverReadyAbandonsTheJob() {
        MakeDocument(2);
        desktop_.backend.ready = false;
        desktop_.services.messages.Answer(vbOK);
        frmVSPrint preview;
        frmVSPrintDialog dialog(preview);
        QTimer::singleShot(0, &dialog, [&dialog] {
            QVERIFY(dialog.tmrAbandon->isActive());
            QCOMPARE(dialog.tmrAbandon->interval(), 30000);
            dialog.tmrAbandon_Timer();
        });
        dialog.cmdPrint_Click();
        QVERIFY(desktop_.backend.jobs.empty());
        QCOMPARE(desktop_.services.messages.Count(), 1);
        QCOMPARE(desktop_.services.messages.Shown().front().prompt,
                 QStringLiteral("The printing system is not ready.\n\nThe print job has been "
                                "abandoned."));
        QCOMPARE(desktop_.services.messages.Shown().front().title,
                 QStringLiteral("Printing Process"));
        QCOMPARE(desktop_.services.messages.Shown().front().style, int(vbCritical));
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void pdfPreviewOpensInTheViewer() {
        ReportPreview = 1;
        MakeDocument(1);
        QFile::remove(PreviewPdfPath());
        ShowReportDocument();
        QCOMPARE(desktop_.services.programs.Opened().last(), PreviewPdfPath());
        QVERIFY(PreviewPdfPath().endsWith(QStringLiteral("/Docs/Preview.pdf")));
        QVERIFY(QFileInfo(PreviewPdfPath()).size() > 0);
    }

    void pdfDestinationWritesTheChosenFile() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Form.pdf"));
        ReportDestination = rdPdfFile;
        QVERIFY(VSOpenReport(QStringLiteral("Form 64-8")));
        VSTextAt(10, 10, QStringLiteral("Form"));
        VSEndDocument();
        ShowReportDocument(path);
        QVERIFY(QFileInfo(path).size() > 0);
        QVERIFY(desktop_.services.messages.Count() == 0);
    }
};

QTEST_MAIN(Preview)
#include "test_preview.moc"
