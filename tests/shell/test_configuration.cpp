// The settings file: what a new installation gets, the reader's line rules, the
// code page, and a write that replaces the file whole.
#include "shell/configuration.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

#include <unistd.h>

using namespace quillon;
using namespace quillon::testing;

namespace {

// A line of a file read over the defaults, and the line the next write gives
// its key.
const std::pair<const char*, const char*> kReaderRules[] = {
    {"FIELD DELIMITER=", "FIELD DELIMITER="},
    {"CURRENT LAST=Smith=Jones", "CURRENT LAST=Smith=Jones"},
    {"CURRENT FIRST= Ann ", "CURRENT FIRST= Ann "},
    {"file 1=x", "FILE 1=Default Database"},
    {"FILE 2 =x", "FILE 2="},
    {"CURRENT OFFICE NAME Leeds", "CURRENT OFFICE NAME=Accounts Office Cumbernauld"},
    {"VIEW TOOLBAR=maybe", "VIEW TOOLBAR=True"},
    {"VIEW STATUS BAR=false", "VIEW STATUS BAR=False"},
    {"TAX OFFICES UPDATE=0", "TAX OFFICES UPDATE=False"},
    {"TAX YEAR=20x5", "TAX YEAR=2015"},
    {"PW DARK=", "PW DARK=200"},
    {"PW LIGHT=40000", "PW LIGHT=225"},
    {"DIARY PAGE=-1", "DIARY PAGE=1"},
    {"SELECTED FILE=99", "SELECTED FILE=99"},
    {"BACKUP WARNING=-1", "BACKUP WARNING=-1"},
    {"VS LEFT=-2.75", "VS LEFT=-2.75"},
    {"VS SCALE=big", "VS SCALE=100"},
    {"APPLICATION TOP=123456", "APPLICATION TOP=123456"},
    {"VS PRINTER=Office Laser", "VS PRINTER="},
    {"CURRENT COMPANY=Marks \x96 Spencer \xA3", "CURRENT COMPANY=Marks \x96 Spencer \xA3"},
};

// The lines of the file, with the program folder and the screen's size in twips
// (the defaults of the window sizes) named rather than given.
QStringList WrittenLines(const ProgramFolderCopy& folder) {
    const QSize screen = QGuiApplication::primaryScreen()->size() * 15;
    QStringList lines = QString::fromLatin1(folder.ConfigText()).split(QStringLiteral("\r\n"));
    for (QString& line : lines) {
        line.replace(folder.Path(), QStringLiteral("<PATH>"));
        if (line.endsWith(QStringLiteral(" HEIGHT=%1").arg(screen.height()))) {
            line = line.section(QLatin1Char('='), 0, 0) + QStringLiteral("=<SCREEN HEIGHT>");
        } else if (line.endsWith(QStringLiteral(" WIDTH=%1").arg(screen.width()))) {
            line = line.section(QLatin1Char('='), 0, 0) + QStringLiteral("=<SCREEN WIDTH>");
        }
    }
    return lines;
}

}  // namespace

class TestConfiguration : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { DividendsUpdate = false; }

    void aMissingFileIsMadeFromTheDefaults() {
        ProgramFolderCopy folder(false);
        ReadConfiguration();
        const QByteArray text = folder.ConfigText();
        QVERIFY(text.endsWith("\r\n"));
        QVERIFY(!QByteArray(text).replace("\r\n", "").contains('\n'));
        QStringList lines = WrittenLines(folder);
        lines.removeLast();
        QCOMPARE(lines, ReferenceLines(QStringLiteral("settings-defaults.ini"), lines));
        // The one setting the defaults leave as the run started it.
        DividendsUpdate = true;
        SetDefaults();
        QVERIFY(DividendsUpdate);
    }

    // The lines end in CR LF, LF and CR alone by turns: each is a line end.
    void eachLineIsReadByTheReadersRules() {
        ProgramFolderCopy folder(false);
        const char* const ends[] = {"\r\n", "\n", "\r"};
        QByteArray text;
        for (size_t i = 0; i < std::size(kReaderRules); ++i) {
            text += QByteArray(kReaderRules[i].first) + ends[i % 3];
        }
        folder.WriteConfig(text);
        ReadConfiguration();
        QCOMPARE(CurrentCompany, QStringLiteral("Marks – Spencer £"));
        WriteConfiguration();
        const QList<QByteArray> written = folder.ConfigText().replace("\r\n", "\n").split('\n');
        for (const auto& [line, expected] : kReaderRules) {
            QVERIFY2(written.contains(expected), expected);
        }
    }

    // Every setting read back from the file is the one written; the file
    // keeps the single-byte code page, and what it can't hold becomes "?".
    void settingsSurviveAWriteAndARead() {
        ProgramFolderCopy folder(false);
        SetDefaults();
        DatabaseTitle[16] = "Archive £ 2014 €";
        AgentName = "Zoë ✓";
        SelectedFile = 16;
        ViewStatusBar = false;
        ApplicationHeight = 9000;
        DiaryPage = 4;
        TaxOfficeLetterFile[9] = "/letters/o9.wri";
        VSAlignTextX = 0.123456789012;
        AgentAddress[4] = "Leeds";
        DividendsUpdate = true;
        WriteConfiguration();
        const QByteArray written = folder.ConfigText();
        QVERIFY(written.contains("\r\nFILE 16=Archive \xA3 2014 \x80\r\n"));
        QVERIFY(written.contains("\r\nAGENT NAME=Zo\xEB ?\r\n"));
        SetDefaults();
        DividendsUpdate = false;
        ReadConfiguration();
        QCOMPARE(DatabaseTitle[16], "Archive £ 2014 €");
        QCOMPARE(DividendsUpdate, true);
        folder.WriteConfig("");
        WriteConfiguration();
        QCOMPARE(folder.ConfigText(), written);
    }

    // A second name of the old file still holds the old settings: the file was
    // replaced, not emptied and rewritten, so a crash halfway loses nothing.
    void aWriteReplacesTheFileAndAFailureIsTold() {
        ProgramFolderCopy folder(false);
        ScriptedServices services;
        SetDefaults();
        WriteConfiguration();
        const QString path = ConfigFilePath();
        const QString old = folder.File(QStringLiteral("old.ini"));
        QCOMPARE(::link(qPrintable(path), qPrintable(old)), 0);
        CurrentLast = QStringLiteral("Replaced");
        WriteConfiguration();
        QVERIFY(folder.ConfigText().contains("\r\nCURRENT LAST=Replaced\r\n"));
        QFile oldFile(old);
        QVERIFY(oldFile.open(QIODevice::ReadOnly));
        QVERIFY(oldFile.readAll().contains("\r\nCURRENT LAST=Sample\r\n"));

        QFile::remove(path);
        QDir().mkpath(path);  // a folder in the file's place
        services.messages.Answer(vbOK);
        WriteConfiguration();
        QCOMPARE(services.messages.Last().prompt,
                 QStringLiteral("Module: basConfiguration\nProcedure: WriteConfiguration\n"
                                "Error 75: Path/File access error"));
        QCOMPARE(services.messages.Last().style, vbExclamation | vbOKOnly);
        QCOMPARE(QDir(folder.Path()).entryList(QDir::Files), QStringList{"old.ini"});
    }
};

QTEST_MAIN(TestConfiguration)
#include "test_configuration.moc"
