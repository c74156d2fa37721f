// The settings file: its defaults, the reader's line rules and the writer's form.
#include "shell/configuration.h"
#include "shell/program_folder.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"

#include <QAction>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

using namespace quillon;
using quillon::testing::ProgramFolderCopy;

namespace {

// The file a new installation gets, with PATH and the screen's size in twips
// standing for the values of the moment.
const char* const kDefaultFile[] = {
    "FILE 1=Default Database",
    "FILE 2=",
    "FILE 3=",
    "FILE 4=",
    "FILE 5=",
    "FILE 6=",
    "FILE 7=",
    "FILE 8=",
    "FILE 9=",
    "FILE 10=",
    "FILE 11=",
    "FILE 12=",
    "FILE 13=",
    "FILE 14=",
    "FILE 15=",
    "FILE 16=",
    "PATH 1=<PATH>",
    "PATH 2=",
    "PATH 3=",
    "PATH 4=",
    "PATH 5=",
    "PATH 6=",
    "PATH 7=",
    "PATH 8=",
    "PATH 9=",
    "PATH 10=",
    "PATH 11=",
    "PATH 12=",
    "PATH 13=",
    "PATH 14=",
    "PATH 15=",
    "PATH 16=",
    "SELECTED FILE=1",
    "VIEW TOOLBAR=True",
    "VIEW STATUS BAR=True",
    "VIEW TOOLTIPS=True",
    "APPLICATION MAXIMISED=True",
    "APPLICATION TOP=0",
    "APPLICATION LEFT=0",
    "APPLICATION HEIGHT=<HEIGHT>",
    "APPLICATION WIDTH=<WIDTH>",
    "USE QUOTES=True",
    "FIELD DELIMITER=,",
    "CURRENT FIRST=A.",
    "CURRENT LAST=Sample",
    "DIARY PAGE=1",
    "CURRENT OFFICE NAME=Accounts Office Cumbernauld",
    "CURRENT OFFICE NUMBER=902",
    "CLIENT LETTER 0=",
    "CLIENT LETTER FILE 0=",
    "CLIENT LETTER 1=Client Letter 1",
    "CLIENT LETTER FILE 1=<PATH>/CLetter1.wri",
    "CLIENT LETTER 2=Client Letter 2",
    "CLIENT LETTER FILE 2=<PATH>/CLetter2.wri",
    "CLIENT LETTER 3=Client Letter 3",
    "CLIENT LETTER FILE 3=<PATH>/CLetter3.wri",
    "CLIENT LETTER 4=Client Letter 4",
    "CLIENT LETTER FILE 4=<PATH>/CLetter4.wri",
    "CLIENT LETTER 5=Client Letter 5",
    "CLIENT LETTER FILE 5=<PATH>/CLetter5.wri",
    "CLIENT LETTER 6=Client Letter 6",
    "CLIENT LETTER FILE 6=<PATH>/CLetter6.wri",
    "CLIENT LETTER 7=Client Letter 7",
    "CLIENT LETTER FILE 7=<PATH>/CLetter7.wri",
    "CLIENT LETTER 8=Client Letter 8",
    "CLIENT LETTER FILE 8=<PATH>/CLetter8.wri",
    "CLIENT LETTER 9=Client Letter 9",
    "CLIENT LETTER FILE 9=<PATH>/CLetter9.wri",
    "TAX OFFICE LETTER 0=",
    "TAX OFFICE LETTER FILE 0=",
    "TAX OFFICE LETTER 1=Tax Office Letter 1",
    "TAX OFFICE LETTER FILE 1=<PATH>/OLetter1.wri",
    "TAX OFFICE LETTER 2=Tax Office Letter 2",
    "TAX OFFICE LETTER FILE 2=<PATH>/OLetter2.wri",
    "TAX OFFICE LETTER 3=Tax Office Letter 3",
    "TAX OFFICE LETTER FILE 3=<PATH>/OLetter3.wri",
    "TAX OFFICE LETTER 4=Tax Office Letter 4",
    "TAX OFFICE LETTER FILE 4=<PATH>/OLetter4.wri",
    "TAX OFFICE LETTER 5=Tax Office Letter 5",
    "TAX OFFICE LETTER FILE 5=<PATH>/OLetter5.wri",
    "TAX OFFICE LETTER 6=Tax Office Letter 6",
    "TAX OFFICE LETTER FILE 6=<PATH>/OLetter6.wri",
    "TAX OFFICE LETTER 7=Tax Office Letter 7",
    "TAX OFFICE LETTER FILE 7=<PATH>/OLetter7.wri",
    "TAX OFFICE LETTER 8=Tax Office Letter 8",
    "TAX OFFICE LETTER FILE 8=<PATH>/OLetter8.wri",
    "TAX OFFICE LETTER 9=Tax Office Letter 9",
    "TAX OFFICE LETTER FILE 9=<PATH>/OLetter9.wri",
    "WORD FOLDER=",
    "WP FOLDER=C:\\Program Files\\Accessories",
    "TAX YEAR=2015",
    "CURRENT COMPANY=3i Group PLC",
    "CURRENT STOCK=Ordinary 50p",
    "CURRENT FID=False",
    "DIARY REPORT PARTNER=",
    "DIARY REPORT MANAGER=",
    "DIARY REPORT ASSISTANT=",
    "DIARY REPORT OFFICE=",
    "DIARY REPORT REFERENCE=0",
    "DIARY REPORT TITLE=Title",
    "CLIENT RECORD PERSONAL=1",
    "CLIENT RECORD ADMINISTRATION=1",
    "CLIENT RECORD EMPLOYMENT=1",
    "CLIENT RECORD BUSINESS=1",
    "CLIENT RECORD ASSETS=1",
    "CLIENT RECORD CONTRIBUTIONS=1",
    "CLIENT RECORD USER=1",
    "CLIENT RECORD DIARY=1",
    "ADDRESS FOR LABELS=0",
    "ADDRESS FOR LETTER=0",
    "ADDRESS FOR MERGE=0",
    "REPORT SHADING=True",
    "REPORT SCALE=100",
    "REPORT FONT=Arial",
    "REPORT REVERSE=False",
    "REPORT TICKS=0",
    "REPORT PREVIEW=0",
    "REPORT PADDING=False",
    "PW TEMPLATE=",
    "PW LEFT=0",
    "PW TOP=0",
    "PW WIDTH=196",
    "PW HEIGHT=279",
    "PW RESOLUTION=100",
    "PW SPACING=0",
    "PW ZOOM=30",
    "PW BLACK=0",
    "PW DARK=200",
    "PW LIGHT=225",
    "PW WHITE=255",
    "PW SECTION=0",
    "VS PRINTER=",
    "VS LEFT=0",
    "VS TOP=0",
    "VS SCALE=100",
    "VS PDF FOLDER=",
    "VS PDF FILE OPTION=0",
    "VS PDF FILE NAME=Quillon",
    "VS PDF LEFT=0",
    "VS PDF TOP=0",
    "VS PDF SCALE=100",
    "VS BLACK=0",
    "VS DARK=200",
    "VS LIGHT=225",
    "VS WHITE=255",
    "VS SECTION=0",
    "VS PREVIEW MAXIMISED=True",
    "VS PREVIEW TOP=0",
    "VS PREVIEW LEFT=0",
    "VS PREVIEW HEIGHT=<HEIGHT>",
    "VS PREVIEW WIDTH=<WIDTH>",
    "VS ALIGN TEXT METHOD=0",
    "VS ALIGN TEXT X=0",
    "VS ALIGN TEXT Y=0",
    "VS DUPLEX MODE=0",
    "AGENT NAME=",
    "AGENT ADDRESS 1=",
    "AGENT ADDRESS 2=",
    "AGENT ADDRESS 3=",
    "AGENT ADDRESS 4=",
    "AGENT POSTCODE=",
    "AGENT TELEPHONE=",
    "AGENT FAX=",
    "AGENT EMAIL=",
    "AGENT CODES=",
    "AGENT STATEMENTS=0",
    "BACKUP WARNING=0",
    "TAX OFFICES UPDATE=True",
    "DIVIDENDS UPDATE=False",
};

QStringList expectedDefaultLines(const QString& programFolder) {
    const QSize screen = QGuiApplication::primaryScreen()->size() * 15;  // 96 dpi
    QStringList lines;
    for (const char* line : kDefaultFile) {
        lines << QString::fromLatin1(line)
                     .replace(QStringLiteral("<PATH>"), programFolder)
                     .replace(QStringLiteral("<HEIGHT>"), QString::number(screen.height()))
                     .replace(QStringLiteral("<WIDTH>"), QString::number(screen.width()));
    }
    return lines;
}

// Reads a file made of `lines` (CR LF) over the defaults.
void readFileOf(const ProgramFolderCopy& folder, const QStringList& lines) {
    folder.WriteConfig((lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8());
    ReadConfiguration();
}

}  // namespace

class TestConfiguration : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { DividendsUpdate = false; }

    void missingFileIsMadeFromTheDefaultsLineForLine() {
        ProgramFolderCopy folder(false);
        QVERIFY(folder.ConfigText().isEmpty());
        ReadConfiguration();
        const QByteArray text = folder.ConfigText();
        QVERIFY(text.endsWith("\r\n"));
        // Every line ends in CR LF: no bare line feed is left once they are removed.
        QVERIFY(!QByteArray(text).replace("\r\n", "").contains('\n'));
        QStringList lines = QString::fromUtf8(text).split(QStringLiteral("\r\n"));
        lines.removeLast();
        const QStringList expected = expectedDefaultLines(folder.Path());
        QCOMPARE(lines.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            QCOMPARE(lines.at(i), expected.at(i));
        }
        QCOMPARE(DatabaseTitle[1], QStringLiteral("Default Database"));
        QCOMPARE(DatabaseFolder[1], folder.Path());
    }

    void readerLineRules_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty value") << "FIELD DELIMITER="
                                     << "FIELD DELIMITER"
                                     << "";
        QTest::newRow("value holds =") << "CURRENT LAST=Smith=Jones"
                                       << "CURRENT LAST"
                                       << "Smith=Jones";
        QTest::newRow("value untrimmed") << "CURRENT FIRST= Ann "
                                         << "CURRENT FIRST"
                                         << " Ann ";
        QTest::newRow("small letters ignored") << "file 1=x"
                                               << "FILE 1"
                                               << "Default Database";
        QTest::newRow("key with blank ignored") << "FILE 1 =x"
                                                << "FILE 1"
                                                << "Default Database";
        QTest::newRow("= first") << "=value"
                                 << "FILE 1"
                                 << "Default Database";
        QTest::newRow("no =") << "CURRENT LAST Smith"
                              << "CURRENT LAST"
                              << "Sample";
        QTest::newRow("bad boolean") << "VIEW TOOLBAR=maybe"
                                     << "VIEW TOOLBAR"
                                     << "True";
        QTest::newRow("boolean small letters") << "VIEW TOOLBAR=false"
                                               << "VIEW TOOLBAR"
                                               << "False";
        QTest::newRow("bad integer") << "TAX YEAR=20x5"
                                     << "TAX YEAR"
                                     << "2015";
        QTest::newRow("empty integer") << "TAX YEAR="
                                       << "TAX YEAR"
                                       << "2015";
        QTest::newRow("16-bit overflow") << "TAX YEAR=40000"
                                         << "TAX YEAR"
                                         << "2015";
        QTest::newRow("byte below 0") << "DIARY PAGE=-1"
                                      << "DIARY PAGE"
                                      << "1";
        QTest::newRow("byte in range") << "DIARY PAGE=4"
                                       << "DIARY PAGE"
                                       << "4";
        QTest::newRow("slot not validated") << "SELECTED FILE=99"
                                            << "SELECTED FILE"
                                            << "99";
        QTest::newRow("negative countdown") << "BACKUP WARNING=-1"
                                            << "BACKUP WARNING"
                                            << "-1";
        QTest::newRow("real") << "VS LEFT=-2.75"
                              << "VS LEFT"
                              << "-2.75";
        QTest::newRow("bad real") << "VS SCALE=big"
                                  << "VS SCALE"
                                  << "100";
        QTest::newRow("32-bit") << "APPLICATION TOP=123456"
                                << "APPLICATION TOP"
                                << "123456";
        QTest::newRow("printer never read back") << "VS PRINTER=Office Laser"
                                                 << "VS PRINTER"
                                                 << "";
    }

    // Each rule is checked on the line the next write gives the key.
    void readerLineRules() {
        QFETCH(QString, line);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        ProgramFolderCopy folder(false);
        readFileOf(folder, {line});
        WriteConfiguration();
        const QStringList written =
            QString::fromUtf8(folder.ConfigText()).split(QStringLiteral("\r\n"));
        QVERIFY2(written.contains(key + QLatin1Char('=') + expected),
                 qPrintable(written.filter(key).join(QLatin1Char('|'))));
    }

    void shortLinesAreSkippedAndOneBadLineCostsOnlyItsSetting() {
        ProgramFolderCopy folder(false);
        readFileOf(folder, {QStringLiteral("A="), QStringLiteral("TAX YEAR=oops"),
                            QStringLiteral("CURRENT LAST=Jones"), QStringLiteral("TAX YEAR=2013x"),
                            QStringLiteral("DIARY PAGE=3")});
        QCOMPARE(TaxYear, qint16(2015));
        QCOMPARE(CurrentLast, QStringLiteral("Jones"));
        QCOMPARE(DiaryPage, quint8(3));
    }

    void linesEndingInLineFeedAloneAreReadToo() {
        ProgramFolderCopy folder(false);
        folder.WriteConfig("CURRENT FIRST=Ann\nCURRENT LAST=Lee\nTAX YEAR=2013");
        ReadConfiguration();
        QCOMPARE(CurrentFirst, QStringLiteral("Ann"));
        QCOMPARE(CurrentLast, QStringLiteral("Lee"));
        QCOMPARE(TaxYear, qint16(2013));
    }

    void everySettingSurvivesAWriteAndARead() {
        ProgramFolderCopy folder(false);
        SetDefaults();
        DatabaseTitle[16] = QStringLiteral("Archive £ 2014");
        DatabaseFolder[16] = QStringLiteral("/srv/archive");
        SelectedFile = 16;
        ViewStatusBar = false;
        ApplicationHeight = 9000;
        FieldDelimiter = QStringLiteral(";");
        DiaryPage = 4;
        ClientLetter[0] = QStringLiteral("Engagement");
        TaxOfficeLetterFile[9] = QStringLiteral("/letters/o9.wri");
        CurrentFID = true;
        VSPDFScale = 87.5;
        VSAlignTextX = 0.1;
        AgentAddress[4] = QStringLiteral("Leeds");
        BackupWarning = 7;
        TaxOfficesUpdate = false;
        DividendsUpdate = true;
        WriteConfiguration();
        DividendsUpdate = false;
        ReadConfiguration();
        QCOMPARE(DatabaseTitle[16], QStringLiteral("Archive £ 2014"));
        QCOMPARE(DatabaseFolder[16], QStringLiteral("/srv/archive"));
        QCOMPARE(SelectedFile, qint16(16));
        QCOMPARE(ViewStatusBar, false);
        QCOMPARE(ApplicationHeight, 9000);
        QCOMPARE(FieldDelimiter, QStringLiteral(";"));
        QCOMPARE(DiaryPage, quint8(4));
        QCOMPARE(ClientLetter[0], QStringLiteral("Engagement"));
        QCOMPARE(TaxOfficeLetterFile[9], QStringLiteral("/letters/o9.wri"));
        QCOMPARE(CurrentFID, true);
        QCOMPARE(VSPDFScale, 87.5);
        QCOMPARE(VSAlignTextX, 0.1);
        QCOMPARE(AgentAddress[4], QStringLiteral("Leeds"));
        QCOMPARE(BackupWarning, qint16(7));
        QCOMPARE(TaxOfficesUpdate, false);
        QCOMPARE(DividendsUpdate, true);
    }

    void defaultsLeaveTheDividendsUpdateAlone() {
        DividendsUpdate = true;
        TaxOfficesUpdate = false;
        SetDefaults();
        QCOMPARE(DividendsUpdate, true);
        QCOMPARE(TaxOfficesUpdate, true);
    }

    void aFailedWriteLosesTheSettingsSilently() {
        ProgramFolderCopy folder(false);
        QDir().mkpath(folder.File(QStringLiteral("quillon.ini")));  // a folder in its place
        SetDefaults();
        CurrentLast = QStringLiteral("Unsaved");
        WriteConfiguration();
        ReadConfiguration();
        QCOMPARE(CurrentLast, QStringLiteral("Sample"));
    }

    void toggleSettingTicksTheItemAndSavesAtOnce() {
        ProgramFolderCopy folder(false);
        SetDefaults();
        QAction item;
        item.setCheckable(true);
        ToggleSetting(ViewToolbar, &item);
        QCOMPARE(ViewToolbar, false);
        QVERIFY(!item.isChecked());
        QVERIFY(folder.ConfigText().contains("\r\nVIEW TOOLBAR=False\r\n"));
        ToggleSetting(ViewToolbar, &item);
        QVERIFY(item.isChecked());
        QVERIFY(folder.ConfigText().contains("\r\nVIEW TOOLBAR=True\r\n"));
    }
};

QTEST_MAIN(TestConfiguration)
#include "test_configuration.moc"
