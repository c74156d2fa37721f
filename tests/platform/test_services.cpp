#include "platform/services_gui.h"
#include "support/scripted_services.h"

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace quillon;

// Test cases that must fail: run in a second process of this program, so that
// their failures don't count against this one, and checked from the outside.
class ProbeTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unqueuedMessage() {
        ScriptedServices services;
        const int answer = MsgBox("Delete all clients?", vbYesNoCancel | vbQuestion);
        qDebug("returned %d", answer);
    }
    void unqueuedMessageInEventHandler() {
        ScriptedServices services;
        bool handled = false;
        QTimer::singleShot(0, [&] {
            MsgBox("Raised from a timer", vbYesNo);
            handled = true;
        });
        QTRY_VERIFY(handled);
        qDebug("handler finished");
    }
    void unusedAnswer() {
        ScriptedServices services;
        services.messages.Answer(vbYes);
    }
    void unqueuedFileDialog() {
        ScriptedServices services;
        const QString path = CurrentServices().fileDialogs->OpenFileName("Pick a backup", "", "");
        qDebug("returned \"%s\"", qPrintable(path));
    }
    void unusedFileDialogAnswer() {
        ScriptedServices services;
        services.fileDialogs.Answer("/tmp/x.mdb");
    }
    void everyAnswerUsed() {
        ScriptedServices services;
        services.messages.Answer(vbOK);
        services.fileDialogs.Answer("/tmp/x.mdb");
        MsgBox("Fine");
        CurrentServices().fileDialogs->SaveFileName("Save", "", "");
    }
};

namespace {

struct SeenBox {
    bool seen = false;
    QString title;
    QString text;
    QList<QMessageBox::StandardButton> buttons;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

// Waits for the next message box, notes what it shows, then presses `press`,
// or Escape when `press` is NoButton.
void AnswerNextBox(SeenBox* seen, QMessageBox::StandardButton press, int triesLeft = 200) {
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            if (triesLeft > 0) {
                AnswerNextBox(seen, press, triesLeft - 1);
            }
            return;
        }
        seen->seen = true;
        seen->title = box->windowTitle();
        seen->text = box->text();
        for (QAbstractButton* button : box->buttons()) {
            seen->buttons.append(box->standardButton(button));
        }
        std::sort(seen->buttons.begin(), seen->buttons.end());
        seen->icon = box->icon();
        seen->defaultButton = box->standardButton(box->defaultButton());
        if (press == QMessageBox::NoButton) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            box->button(press)->click();
        }
    });
}

using ButtonList = QList<QMessageBox::StandardButton>;

// The outcome of each probe, read from the probe run's log.
bool Failed(const QString& log, const char* probe) {
    return log.contains(QStringLiteral("FAIL!  : ProbeTests::%1()").arg(probe));
}

}  // namespace

class TestServices : public QObject {
    Q_OBJECT

private:
    QString probeLog_;
    int probeExitCode_ = -1;

private Q_SLOTS:
    void initTestCase() {
        QProcess probe;
        probe.setProcessChannelMode(QProcess::MergedChannels);
        probe.start(QCoreApplication::applicationFilePath(), {"--probe"});
        QVERIFY(probe.waitForFinished(60000));
        probeLog_ = QString::fromLocal8Bit(probe.readAll());
        probeExitCode_ = probe.exitCode();
    }

    void unexpectedMessageFailsTheTestAndReturnsTheEscapeAnswer() {
        QVERIFY2(Failed(probeLog_, "unqueuedMessage"), qPrintable(probeLog_));
        QVERIFY(probeLog_.contains("Unexpected message box: \"Delete all clients?\""));
        QVERIFY(probeLog_.contains(QStringLiteral("returned %1").arg(vbCancel)));
    }

    void unexpectedMessageInAnEventHandlerFailsWithoutHanging() {
        QVERIFY2(Failed(probeLog_, "unqueuedMessageInEventHandler"), qPrintable(probeLog_));
        QVERIFY(probeLog_.contains("Raised from a timer"));
        QVERIFY(probeLog_.contains("handler finished"));
    }

    void unusedAnswersFailTheTest() {
        QVERIFY2(Failed(probeLog_, "unusedAnswer"), qPrintable(probeLog_));
        QVERIFY2(Failed(probeLog_, "unusedFileDialogAnswer"), qPrintable(probeLog_));
    }

    void unexpectedFileDialogFailsTheTestAndCancels() {
        QVERIFY2(Failed(probeLog_, "unqueuedFileDialog"), qPrintable(probeLog_));
        QVERIFY(probeLog_.contains("Unexpected file dialog: \"Pick a backup\""));
        QVERIFY(probeLog_.contains("returned \"\""));
    }

    void usedAnswersPass() {
        QVERIFY2(probeLog_.contains("PASS   : ProbeTests::everyAnswerUsed()"),
                 qPrintable(probeLog_));
        QCOMPARE(probeExitCode_, 5);  // the five failing probes
    }

    void messagesAnswerInOrderAndAreRecorded() {
        ScriptedServices services;
        services.messages.Answer(vbYes);
        services.messages.Answer(vbCancel);
        QCOMPARE(MsgBox("First?", vbYesNo | vbQuestion, "Delete"), int(vbYes));
        QCOMPARE(MsgBox("Second?", vbOKCancel), int(vbCancel));
        Beep();
        Beep();
        QCOMPARE(services.messages.Count(), 2);
        const ShownMessage first = services.messages.Shown().first();
        QCOMPARE(first.prompt, QString("First?"));
        QCOMPARE(first.style, vbYesNo | vbQuestion);
        QCOMPARE(first.title, QString("Delete"));
        QCOMPARE(services.messages.Last().title, QString("Quillon"));
        QCOMPARE(services.messages.Beeps(), 2);
    }

    void scopesRestoreWhatWasInstalled() {
        ScriptedServices outer;
        {
            ScriptedServices inner;
            Beep();
            QCOMPARE(inner.messages.Beeps(), 1);
        }
        Beep();
        QCOMPARE(outer.messages.Beeps(), 1);
        QCOMPARE(CurrentServices().messages, &outer.messages);
    }

    void fileDialogsAnswerInOrderAndRecordTheirKind() {
        ScriptedServices services;
        services.fileDialogs.Answer("/data/QUILL020.MDB");
        services.fileDialogs.Answer("");
        FileDialogService& dialogs = *CurrentServices().fileDialogs;
        QCOMPARE(dialogs.OpenFileName("Open", "/data", "Databases (*.mdb)"),
                 QString("/data/QUILL020.MDB"));
        QCOMPARE(dialogs.FolderName("Folder", "/data"), QString());
        QCOMPARE(services.fileDialogs.Shown().size(), 2);
        QCOMPARE(services.fileDialogs.Shown().at(0).kind, FileDialogKind::Open);
        QCOMPARE(services.fileDialogs.Shown().at(0).filter, QString("Databases (*.mdb)"));
        QCOMPARE(services.fileDialogs.Shown().at(1).kind, FileDialogKind::Folder);
    }

    void clipboardClockPrintersAndProgramsAreScripted() {
        ScriptedServices services;
        CurrentServices().clipboard->SetText("Smith, John");
        QCOMPARE(services.clipboard.Text(), QString("Smith, John"));
        CurrentServices().clipboard->Clear();
        QCOMPARE(services.clipboard.Text(), QString());

        QCOMPARE(Today(), QDate(2015, 6, 15));
        services.clock.SetToday(QDate(2016, 4, 5));
        QCOMPARE(Today(), QDate(2016, 4, 5));
        QCOMPARE(Now(), QDateTime(QDate(2016, 4, 5), QTime(10, 30)));

        QCOMPARE(CurrentServices().printers->PrinterNames(), QStringList{"Quillon PDF"});
        services.printers.Set({"Laser", "Quillon PDF"}, "Laser");
        QCOMPARE(CurrentServices().printers->DefaultPrinterName(), QString("Laser"));

        services.programs.SetInstalled("wordpad.exe", "/apps/wordpad.exe");
        ProgramService& programs = *CurrentServices().programs;
        QCOMPARE(programs.FindProgram("wordpad.exe"), QString("/apps/wordpad.exe"));
        QCOMPARE(programs.FindProgram("winword.exe"), QString());
        QVERIFY(programs.StartProgram("/apps/wordpad.exe", {"CLetter1.wri"}));
        services.programs.SetResult(false);
        QVERIFY(!programs.OpenDocument("/docs/Preview.pdf"));
        QCOMPARE(services.programs.Started().size(), 1);
        QCOMPARE(services.programs.Started().first().arguments, QStringList{"CLetter1.wri"});
        QCOMPARE(services.programs.Opened(), QStringList{"/docs/Preview.pdf"});
    }

    void desktopMessageBoxFollowsTheStyle_data() {
        QTest::addColumn<int>("style");
        QTest::addColumn<ButtonList>("buttons");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("defaultButton");
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("answer");
        using B = QMessageBox;
        QTest::newRow("ok, information")
            << int(vbOKOnly | vbInformation) << ButtonList{B::Ok} << int(B::Information)
            << int(B::Ok) << int(B::Ok) << int(vbOK);
        QTest::newRow("ok, escape") << int(vbOKOnly) << ButtonList{B::Ok} << int(B::NoIcon)
                                    << int(B::Ok) << int(B::NoButton) << int(vbOK);
        QTest::newRow("ok/cancel, second default, escape")
            << int(vbOKCancel | vbCritical | vbDefaultButton2) << ButtonList{B::Ok, B::Cancel}
            << int(B::Critical) << int(B::Cancel) << int(B::NoButton) << int(vbCancel);
        QTest::newRow("abort/retry/ignore, third default")
            << int(vbAbortRetryIgnore | vbExclamation | vbDefaultButton3)
            << ButtonList{B::Abort, B::Retry, B::Ignore} << int(B::Warning) << int(B::Ignore)
            << int(B::Retry) << int(vbRetry);
        QTest::newRow("abort/retry/ignore, escape")
            << int(vbAbortRetryIgnore) << ButtonList{B::Abort, B::Retry, B::Ignore}
            << int(B::NoIcon) << int(B::Abort) << int(B::NoButton) << int(vbAbort);
        QTest::newRow("yes/no/cancel, second default")
            << int(vbYesNoCancel | vbQuestion | vbDefaultButton2)
            << ButtonList{B::Yes, B::No, B::Cancel} << int(B::Question) << int(B::No) << int(B::Yes)
            << int(vbYes);
        QTest::newRow("yes/no/cancel, escape")
            << int(vbYesNoCancel) << ButtonList{B::Yes, B::No, B::Cancel} << int(B::NoIcon)
            << int(B::Yes) << int(B::NoButton) << int(vbCancel);
        QTest::newRow("yes/no, escape")
            << int(vbYesNo | vbQuestion) << ButtonList{B::Yes, B::No} << int(B::Question)
            << int(B::Yes) << int(B::NoButton) << int(vbNo);
        QTest::newRow("yes/no, third default falls back to first")
            << int(vbYesNo | vbDefaultButton3) << ButtonList{B::Yes, B::No} << int(B::NoIcon)
            << int(B::Yes) << int(B::No) << int(vbNo);
        QTest::newRow("retry/cancel")
            << int(vbRetryCancel) << ButtonList{B::Retry, B::Cancel} << int(B::NoIcon)
            << int(B::Retry) << int(B::Cancel) << int(vbCancel);
    }
    void desktopMessageBoxFollowsTheStyle() {
        QFETCH(int, style);
        QFETCH(ButtonList, buttons);
        QFETCH(int, icon);
        QFETCH(int, defaultButton);
        QFETCH(int, press);
        QFETCH(int, answer);
        DesktopMessages messages;
        SeenBox seen;
        AnswerNextBox(&seen, QMessageBox::StandardButton(press));
        const int result = messages.MsgBox("Line one\n<b>not bold</b>", style, "Client list");
        QVERIFY(seen.seen);
        QCOMPARE(result, answer);
        std::sort(buttons.begin(), buttons.end());
        QCOMPARE(seen.buttons, buttons);
        QCOMPARE(int(seen.icon), icon);
        QCOMPARE(int(seen.defaultButton), defaultButton);
        QCOMPARE(seen.title, QString("Client list"));
        QCOMPARE(seen.text, QString("Line one\n<b>not bold</b>"));
    }

    void desktopPrinterListAlwaysHoldsThePdfPrinter() {
        DesktopPrinters printers;
        QCOMPARE(printers.PrinterNames().count("Quillon PDF"), 1);
        QVERIFY(printers.PrinterNames().contains(printers.DefaultPrinterName()));
    }
};

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], "--probe") == 0) {
        ProbeTests probe;
        return QTest::qExec(&probe, QStringList{QString::fromLocal8Bit(argv[0])});
    }
    TestServices test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_services.moc"
