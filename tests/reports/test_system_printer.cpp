// The system's printers as the started program reaches them: a print server of
// the test's own, run as this user where the machine has one, with a queue that
// prints both sides into a file and one that has a single side; and Qt's own
// file printer, through the same back end, on every machine.
#include "platform/services.h"
#include "reports/frmVSPrint.h"
#include "reports/frmVSPrintDialog.h"
#include "reports/print_backend_gui.h"
#include "reports/vsprint.h"
#include "shell/forms_gui.h"
#include "shell/main_gui.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace quillon;

namespace {

const QString kDuplexQueue = QStringLiteral("QuillonFile");
const QString kPlainQueue = QStringLiteral("QuillonPlain");

// A print server of the test's own, run as this user in a temporary folder.
class PrintServer {
public:
    ~PrintServer() {
        server_.terminate();
        server_.waitForFinished();
    }
    QString Output() const { return dir_.filePath(QStringLiteral("out.pdf")); }

    // Starts the server and points the printing library at it; false when the
    // machine has none. Must run before the first printer is looked up.
    bool Start() {
        const QStringList places{"/usr/sbin", "/usr/bin"};
        const QString cupsd = QStandardPaths::findExecutable(QStringLiteral("cupsd"), places);
        const QString lpadmin = QStandardPaths::findExecutable(QStringLiteral("lpadmin"), places);
        if (cupsd.isEmpty() || lpadmin.isEmpty()) {
            return false;
        }
        // The server's helpers may run as another user: they must reach the folder.
        QFile::setPermissions(dir_.path(),
                              QFile::permissions(dir_.path()) | QFile::ExeGroup | QFile::ExeOther);
        for (const char* folder : {"state", "cache", "spool", "temp"}) {
            QDir(dir_.path()).mkdir(QString::fromLatin1(folder));
        }
        Write("cupsd.conf",
              "Listen %1/cups.sock\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
              "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
        Write("cups-files.conf",
              "FileDevice Yes\nServerRoot %1\nStateDir %1/state\nCacheDir %1/cache\n"
              "RequestRoot %1/spool\nTempDir %1/temp\nErrorLog %1/log\nAccessLog %1/log\n"
              "PageLog %1/log\nPrintcap %1/printcap\n");
        server_.start(cupsd, {"-f", "-c", dir_.filePath("cupsd.conf"), "-s",
                              dir_.filePath("cups-files.conf")});
        const QString socket = dir_.filePath(QStringLiteral("cups.sock"));
        if (!QTest::qWaitFor([&socket] { return QFile::exists(socket); }, 10000)) {
            return false;
        }
        qputenv("CUPS_SERVER", socket.toLocal8Bit());
        return QProcess::execute(lpadmin,
                                 {"-p", kDuplexQueue, "-E", "-v", "file://" + Output(), "-m",
                                  "lsb/usr/cupsfilters/Generic-PDF_Printer-PDF.ppd"}) == 0 &&
               QProcess::execute(lpadmin, {"-p", kPlainQueue, "-E", "-v", "file:///dev/null"}) == 0;
    }

private:
    void Write(const char* name, const char* text) const {
        QFile file(dir_.filePath(QString::fromLatin1(name)));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(QString::fromLatin1(text).arg(dir_.path()).toLocal8Bit());
        }
    }

    QTemporaryDir dir_;
    QProcess server_;
};

// The text of each page of a printed file, as poppler reads it back.
QStringList PagesOf(const QString& file) {
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {file, QStringLiteral("-")});
    text.waitForFinished();
    QStringList pages = QString::fromUtf8(text.readAllStandardOutput()).split(QLatin1Char('\f'));
    pages.removeLast();
    for (QString& page : pages) {
        page = page.trimmed();
    }
    return pages;
}

// Starts the program and does `work` once its event loop runs; the program then
// ends. Its messages are scripted; everything else is the desktop's.
void RunStartedProgram(const std::function<void(ScriptedMessages&)>& work) {
    testing::ProgramFolderCopy folder;
    ScriptedMessages messages;
    Services desktop;
    QTimer::singleShot(0, qApp, [&] {
        // The splash would read the settings over the test's in the middle.
        for (QTimer* timer : LoadedForm(QStringLiteral("frmBanner6"))->findChildren<QTimer*>()) {
            timer->stop();
        }
        desktop = CurrentServices();
        Services services = desktop;
        services.messages = &messages;
        InstallServices(services);
        work(messages);
        // Once the program's own event loop runs, however early the start ran this.
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    });
    QCOMPARE(Main(), 0);
    InstallServices(desktop);
    UnloadForm(QStringLiteral("frmBanner6"));
    messages.CheckAllAnswersUsed(__FILE__, __LINE__);
}

// A preview document of `pages` pages on the selected printer, page n reading "Pn".
bool DrawReport(int pages) {
    ReportDestination = rdPreview;
    if (!VSOpenReport(QStringLiteral("Diary Report"))) {
        return false;
    }
    for (int page = 1; page <= pages; ++page) {
        ReportPageNumber = static_cast<qint16>(page);
        VSNextSheet();
        VSTextAt(20, 20, QStringLiteral("P%1").arg(page));
    }
    VSEndDocument();
    return true;
}

}  // namespace

class SystemPrinter : public QObject {
    Q_OBJECT

private:
    PrintServer server_;
    bool serverRuns_ = false;

private Q_SLOTS:
    void initTestCase() { serverRuns_ = server_.Start(); }

    // Through the back end the started program installs, pages reach Qt's own
    // file printer on every machine; where the machine has a print server they
    // reach its queue from the preview's print dialog, which finds the queue
    // ready at once, and each queue's own duplex is honoured or refused.
    void pagesReachTheSystemsPrinters() {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("printed.pdf"));
        const bool serverRuns = serverRuns_;
        RunStartedProgram([&file, serverRuns](ScriptedMessages& messages) {
            PrintBackend* installed = InstallPrintBackend(nullptr);
            InstallPrintBackend(installed);
            auto* desktop = dynamic_cast<DesktopPrintBackend*>(installed);
            QVERIFY2(desktop, "the program runs without the system's printers");
            VSPrinter = QString::fromLatin1(kPdfPrinterName);
            QVERIFY(DrawReport(3));
            desktop->SetOutputFile(file);
            QString error;
            const bool printed = SendToPrinter(VSDocumentControl().Document(),
                                               {kDuplexQueue, "Diary Report", {2, 0}, 2}, &error);
            desktop->SetOutputFile(QString());
            QVERIFY2(printed, qPrintable(error));
            if (!serverRuns) {
                return;
            }
            VSDuplexMode = 2;
            VSPrinter = kDuplexQueue;
            QVERIFY(DrawReport(3));
            QVERIFY(PrintableArea(kDuplexQueue).top() > 0);  // the device's own margins
            frmVSPrint preview;
            frmVSPrintDialog dialog(preview);
            dialog.cmdPrint_Click();
            QCOMPARE(dialog.result(), int(QDialog::Accepted));
            messages.Answer(vbOK);
            VSPrinter = kPlainQueue;
            QVERIFY(DrawReport(1));
            QCOMPARE(messages.Count(), 1);
            QVERIFY(messages.Last().prompt.contains(QStringLiteral("double-sided")));
        });
        QCOMPARE(PagesOf(file), (QStringList{"P3", "P1"}));
        if (!serverRuns) {
            QSKIP("This machine has no print server to start; only Qt's file printer was used.");
        }
        QTRY_COMPARE_WITH_TIMEOUT(PagesOf(server_.Output()), (QStringList{"P1", "P2", "P3"}),
                                  30000);
        QFile output(server_.Output());
        QVERIFY(output.open(QIODevice::ReadOnly));
        QVERIFY(output.read(2000).contains("DUPLEX=ON"));  // the printer was told both sides
    }
};

QTEST_MAIN(SystemPrinter)
#include "test_system_printer.moc"
