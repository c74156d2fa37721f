// The desktop's own message box and printer list, as the running program
// meets them.
#include "platform/services_gui.h"
#include "support/shell_testing.h"

#include <QApplication>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace quillon;

namespace {

// The name of a button or icon, as QMessageBox knows it.
QString KeyOf(int value, const char* enumeration = "StandardButtons") {
    const QMetaObject& meta = QMessageBox::staticMetaObject;
    return QString::fromLatin1(
        meta.enumerator(meta.indexOfEnumerator(enumeration)).valueToKey(value));
}

// Once the next message box is up: what it shows, then a press of `press`,
// or of Escape when `press` is NoButton.
void AnswerNextBox(QString* seen, QMessageBox::StandardButton press, int triesLeft = 200) {
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            if (triesLeft > 0) {
                AnswerNextBox(seen, press, triesLeft - 1);
            }
            return;
        }
        QStringList buttons;
        for (QAbstractButton* button : box->buttons()) {
            buttons << KeyOf(box->standardButton(button));
        }
        buttons.sort();
        *seen =
            QStringLiteral("\"%1\" \"%2\": %3, icon %4, default %5")
                .arg(box->windowTitle(), box->text().replace('\n', '|'), buttons.join('+'),
                     KeyOf(box->icon(), "Icon"), KeyOf(box->standardButton(box->defaultButton())));
        if (press == QMessageBox::NoButton) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            box->button(press)->click();
        }
    });
}

}  // namespace

class TestServices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // For each style and the button pressed (Escape when none), the reference
    // file holds the box shown, its text as plain text, and the answer.
    void desktopMessageBoxFollowsTheStyle() {
        using B = QMessageBox;
        const std::pair<int, B::StandardButton> cases[] = {
            {vbOKOnly | vbInformation, B::Ok},
            {vbOKOnly, B::NoButton},
            {vbOKCancel | vbCritical | vbDefaultButton2, B::NoButton},
            {vbAbortRetryIgnore | vbExclamation | vbDefaultButton3, B::Retry},
            {vbAbortRetryIgnore, B::NoButton},
            {vbYesNoCancel | vbQuestion | vbDefaultButton2, B::Yes},
            {vbYesNoCancel, B::NoButton},
            {vbYesNo | vbQuestion, B::NoButton},
            {vbYesNo | vbDefaultButton3, B::No},
            {vbRetryCancel, B::Cancel}};
        QStringList outcomes;
        for (const auto& [style, press] : cases) {
            QString seen = QStringLiteral("no box");
            AnswerNextBox(&seen, press);
            const int answer =
                DesktopMessages().MsgBox("Line one\n<b>not bold</b>", style, "Client list");
            outcomes << QStringLiteral("style %1, %2 pressed: %3; answers %4")
                            .arg(style)
                            .arg(press == B::NoButton ? "Escape" : KeyOf(press), seen)
                            .arg(answer);
        }
        QCOMPARE(outcomes, testing::ReferenceLines("message-boxes.txt", outcomes));
    }

    void desktopPrinterListAlwaysHoldsThePdfPrinter() {
        DesktopPrinters printers;
        QCOMPARE(printers.PrinterNames().count("Quillon PDF"), 1);
        QVERIFY(printers.PrinterNames().contains(printers.DefaultPrinterName()));
    }
};

QTEST_MAIN(TestServices)
#include "test_services.moc"
