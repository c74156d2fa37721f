// The Report Settings screen: what it shows, what it lets be typed, the ranges
// it forces, the defaults, and what it stores on closing.

#include "reports/frmVSPrintSettings.h"
#include "shell/variables.h"
#include "support/print_fakes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QtTest>

using namespace quillon;

namespace {

void LeaveBox(QLineEdit* box) {
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(box, &out);
}

void TypeAndLeave(QLineEdit* box, const QString& keys) {
    box->clear();
    QTest::keyClicks(box, keys);
    LeaveBox(box);
}

void Close(frmVSPrintSettings& form) {
    form.show();
    form.cmdClose->click();
}

}  // namespace

class ReportSettings : public QObject {
    Q_OBJECT

private:
    testing::PrintDesktop desktop_;

private Q_SLOTS:
    void init() {
        desktop_.services.messages.ClearRecord();
        VSPrinter = QStringLiteral("Duplex Laser");
        VSLeft = 1.5;
        VSTop = -2;
        VSScale = 105;
        VSPDFScale = 95;
        VSDuplexMode = 2;
        ReportFont = QStringLiteral("Arial");
        ReportTicks = 2;
        ReportPreview = 1;
        ReportShading = false;
        VSDark = 180;
        VSAlignTextMethod = 1;
        VSAlignTextY = 0.25;
        VSPDFFileOption = 1;
        VSPDFFileName = QStringLiteral("Practice");
    }

    void loadShowsTheSettings() {
        frmVSPrintSettings form;
        QCOMPARE(form.windowTitle(), QStringLiteral("Report Settings"));
        QCOMPARE(form.cmbPrinter->count(), 3);
        QCOMPARE(form.cmbPrinter->currentText(), QStringLiteral("Duplex Laser"));
        QCOMPARE(form.txtVSLeft->text(), QStringLiteral("1.5"));
        QCOMPARE(form.txtVSTop->text(), QStringLiteral("-2"));
        QCOMPARE(form.txtVSScale->text(), QStringLiteral("105"));
        QVERIFY(form.optDuplexMode[2]->isChecked());
        QVERIFY(form.optFont[1]->isChecked());
        QCOMPARE(form.optFont[1]->text(), QStringLiteral("Arial"));
        QVERIFY(form.optTicks[2]->isChecked());
        QVERIFY(form.optPreview[1]->isChecked());
        QVERIFY(!form.chkShading->isChecked());
        QCOMPARE(form.txtDark->text(), QStringLiteral("180"));
        QCOMPARE(form.txtAlignV->text(), QStringLiteral("0.25"));
        QVERIFY(form.optFile[1]->isChecked());
        QCOMPARE(form.txtFile->text(), QStringLiteral("Practice"));
    }

    void anyOtherFontShowsAsTimes() {
        ReportFont = QStringLiteral("Courier New");
        frmVSPrintSettings form;
        QVERIFY(form.optFont[0]->isChecked());
        Close(form);
        QCOMPARE(ReportFont, QStringLiteral("Times New Roman"));
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

    void leavingABoxForcesItsRange_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");
        QTest::newRow("scale too high") << "txtVSScale"
                                        << "300"
                                        << "110";
        QTest::newRow("scale too low") << "txtVSScale"
                                       << "50"
                                       << "90";
        QTest::newRow("PDF scale empty") << "txtPDFScale"
                                         << ""
                                         << "90";
        QTest::newRow("offset too far left") << "txtVSLeft"
                                             << "-12"
                                             << "-9";
        QTest::newRow("PDF offset too low") << "txtPDFTop"
                                            << "15"
                                            << "9";
        QTest::newRow("lone minus") << "txtVSTop"
                                    << "-"
                                    << "0";
        QTest::newRow("grey above white") << "txtWhite"
                                          << "256"
                                          << "255";
        QTest::newRow("alignment not clamped") << "txtAlignH"
                                               << "-150.5"
                                               << "-150.5";
    }
    void leavingABoxForcesItsRange() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, kept);
        frmVSPrintSettings form;
        auto* edit = form.findChild<QLineEdit*>(box);
        QVERIFY(edit != nullptr);
        TypeAndLeave(edit, typed);
        QCOMPARE(edit->text(), kept);
    }

    void keysEachBoxRefuses_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no point in an offset") << "txtVSLeft"
                                               << "1.5"
                                               << "15";
        QTest::newRow("point in an alignment") << "txtAlignH"
                                               << "1.5"
                                               << "1.5";
        QTest::newRow("no sign in a grey") << "txtBlack"
                                           << "-3a"
                                           << "3";
        QTest::newRow("no sign in the method") << "txtAlignMethod"
                                               << "-2."
                                               << "2";
        QTest::newRow("file name") << "txtFile"
                                   << "a/b\\c:d*e?f<g>h"
                                   << "abcdefgh";
    }
    void keysEachBoxRefuses() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        frmVSPrintSettings form;
        auto* edit = form.findChild<QLineEdit*>(box);
        QVERIFY(edit != nullptr);
        edit->clear();
        QTest::keyClicks(edit, typed);
        QCOMPARE(edit->text(), shown);
    }

    void defaultsRefusedChangeNothing() {
        desktop_.services.messages.Answer(vbNo);
        frmVSPrintSettings form;
        form.cmdDefaults->click();
        QCOMPARE(desktop_.services.messages.Count(), 1);
        const ShownMessage asked = desktop_.services.messages.Last();
        QCOMPARE(asked.prompt, QStringLiteral("All current Report Settings will be replaced with "
                                              "their defaults.\n\nDo you wish to proceed?"));
        QCOMPARE(asked.title, QStringLiteral("Report Settings"));
        QCOMPARE(asked.style, vbYesNo | vbQuestion | vbDefaultButton2);
        QCOMPARE(form.txtVSScale->text(), QStringLiteral("105"));
        Close(form);
        QCOMPARE(VSScale, 105.0);
        QCOMPARE(VSPrinter, QStringLiteral("Duplex Laser"));
    }

    void defaultsAcceptedAreStoredOnClosing() {
        desktop_.services.messages.Answer(vbYes);
        frmVSPrintSettings form;
        form.Chkdefaultchildbenefit->setChecked(true);
        form.chkDuplexPadding->setChecked(true);
        form.cmdDefaults->click();
        QCOMPARE(VSScale, 105.0);  // only the controls change until the form closes
        Close(form);
        QCOMPARE(VSPrinter, QStringLiteral("Office Laser"));
        QCOMPARE(VSLeft, 0.0);
        QCOMPARE(VSTop, 0.0);
        QCOMPARE(VSScale, 100.0);
        QCOMPARE(VSPDFScale, 100.0);
        QCOMPARE(VSDuplexMode, qint16(0));
        QCOMPARE(VSPDFFileOption, qint16(0));
        QCOMPARE(VSPDFFileName, QStringLiteral("Quillon"));
        QCOMPARE(ReportFont, QStringLiteral("Times New Roman"));
        QCOMPARE(ReportTicks, qint16(0));
        QCOMPARE(ReportPreview, qint16(0));
        QVERIFY(ReportShading);
        QVERIFY(!ReportPadding);
        QVERIFY(!DisableChildBenefitMessage);
        QCOMPARE(VSDark, qint16(200));
        QCOMPARE(VSLight, qint16(225));
        QCOMPARE(VSWhite, qint16(255));
        QCOMPARE(VSAlignTextMethod, qint16(0));
        QCOMPARE(VSAlignTextY, 0.0);
    }

    void closingStoresWhatStandsOnTheScreen() {
        frmVSPrintSettings form;
        form.cmbPrinter->setCurrentIndex(2);
        form.txtVSLeft->setText(QStringLiteral("-4"));
        form.txtPDFTop->setText(QStringLiteral("7"));
        form.optDuplexMode[1]->setChecked(true);
        form.optSection[1]->setChecked(true);
        form.optTicks[0]->setChecked(true);
        form.optFile[0]->setChecked(true);
        form.txtFile->setText(QStringLiteral("  Letters  "));
        form.txtBlack->setText(QStringLiteral("30"));
        form.txtAlignH->setText(QStringLiteral("-1.5"));
        form.txtAlignMethod->setText(QStringLiteral("2"));
        form.chkShading->setChecked(true);
        Close(form);
        QCOMPARE(VSPrinter, QString::fromLatin1(kPdfPrinterName));
        QCOMPARE(VSLeft, -4.0);
        QCOMPARE(VSPDFTop, 7.0);
        QCOMPARE(VSDuplexMode, qint16(1));
        QCOMPARE(VSSection, qint16(1));
        QCOMPARE(ReportTicks, qint16(0));
        QCOMPARE(VSPDFFileOption, qint16(0));
        QCOMPARE(VSPDFFileName, QStringLiteral("Letters"));
        QCOMPARE(VSBlack, qint16(30));
        QCOMPARE(VSAlignTextX, -1.5);
        QCOMPARE(VSAlignTextMethod, qint16(2));
        QVERIFY(ReportShading);
    }

    void removedPrinterFallsBackToTheFirst() {
        VSPrinter = QStringLiteral("Removed Printer");
        frmVSPrintSettings form;
        QCOMPARE(form.cmbPrinter->currentIndex(), 0);
        Close(form);
        QCOMPARE(VSPrinter, QStringLiteral("Office Laser"));
    }
};

QTEST_MAIN(ReportSettings)
#include "test_report_settings.moc"
