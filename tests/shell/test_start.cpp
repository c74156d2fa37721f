// The start as a person meets it: the refusal of a second copy, the splash and
// its timers, and the backup reminder every tenth start.
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmBackupWarning.h"
#include "shell/frmBanner6.h"
#include "shell/frmQuillon.h"
#include "shell/main_gui.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QTimer>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {

QByteArray warningLine(int value) {
    return "\r\nBACKUP WARNING=" + QByteArray::number(value) + "\r\n";
}

void setBackupWarningInFile(int value) {
    SetDefaults();
    BackupWarning = static_cast<qint16>(value);
    WriteConfiguration();
}

}  // namespace

class TestStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    void cleanup() {
        UnloadForm(QStringLiteral("frmBackupWarning"));
        CloseMainWindow();
    }

    void splashReadsTheFileOnlyWhenItsFirstTimerFires() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QVERIFY(StartProgram());
        QCOMPARE(FamilyFolder, QFileInfo(folder.Path()).path());
        auto* banner = LoadedForm<frmBanner6>();
        QVERIFY(banner && banner->isVisible());
        QVERIFY(banner->tmrInit->isActive());
        QCOMPARE(banner->tmrInit->interval(), 100);
        QVERIFY(!banner->tmrGo->isActive());
        QVERIFY(folder.ConfigText().isEmpty());

        banner->tmrInit_Timer();
        QVERIFY(!banner->tmrInit->isActive());
        QVERIFY(banner->tmrGo->isActive());
        QCOMPARE(banner->tmrGo->interval(), 3000);
        QVERIFY(folder.ConfigText().startsWith("FILE 1=Default Database\r\n"));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));

        banner->tmrGo_Timer();
        FlushUnloadedForms();
        QVERIFY(!LoadedForm(QStringLiteral("frmBanner6")));
        // A new installation starts with the reminder.
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning && warning->isVisible());
        QCOMPARE(warning->windowTitle(), QStringLiteral("Backup Warning"));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
    }

    void reminderTextNamesTheSelectedDatabaseFile() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        const QString expected =
            QStringLiteral("Your currently selected client database is in the file:\n\n") +
            folder.File(QStringLiteral("QUILL020.MDB")) +
            QStringLiteral(
                "\n\nYou must back up this file regularly; daily if possible.\n\n"
                "Now is a good time to make a backup copy of this file.\n\n"
                "You should retain several backup copies of this file (e.g. one for "
                "each day in the past week) so that you can recover a known 'good' "
                "version if this file ever becomes corrupt.\n\n"
                "Please select one of the following:");
        QCOMPARE(warning->lblWarning->text(), expected);
    }

    void reminderComesBackAtEveryTenthStart() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        Button(warning, QStringLiteral("cmdContinue"))->click();
        FlushUnloadedForms();
        QVERIFY(!LoadedForm(QStringLiteral("frmBackupWarning")));
        QVERIFY(LoadedForm<frmQuillon>() && LoadedForm<frmQuillon>()->isVisible());
        CloseMainWindow();
        QVERIFY(folder.ConfigText().contains(warningLine(9)));

        for (int expected = 8; expected >= 0; --expected) {
            QVERIFY(RunStart());
            QVERIFY2(LoadedForm<frmQuillon>(), qPrintable(QString::number(expected)));
            QVERIFY(!LoadedForm(QStringLiteral("frmBackupWarning")));
            CloseMainWindow();
            QVERIFY2(folder.ConfigText().contains(warningLine(expected)),
                     qPrintable(QString::number(expected)));
        }
        QVERIFY(RunStart());
        QVERIFY(LoadedForm<frmBackupWarning>());
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
    }

    void aSwitchedOffReminderNeverComesBack() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        setBackupWarningInFile(-1);
        for (int start = 0; start < 2; ++start) {
            QVERIFY(RunStart());
            QVERIFY(LoadedForm<frmQuillon>());
            CloseMainWindow();
            QVERIFY(folder.ConfigText().contains(warningLine(-1)));
        }
    }

    void tickAndContinueSwitchTheReminderOff() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        warning->chkDisable->setChecked(true);
        Button(warning, QStringLiteral("cmdContinue"))->click();
        QCOMPARE(BackupWarning, qint16(-1));
        CloseMainWindow();
        QVERIFY(folder.ConfigText().contains(warningLine(-1)));
    }

    void exitLeavesNineWhateverTheTickAndNoMainWindow() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        warning->chkDisable->setChecked(true);
        const int endsBefore = EndProgramCalls();
        Button(warning, QStringLiteral("cmdExit"))->click();
        FlushUnloadedForms();
        QCOMPARE(EndProgramCalls(), endsBefore + 1);
        QVERIFY(folder.ConfigText().contains(warningLine(9)));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
    }

    // The backup screen is reached through the form registry; it brings up the
    // main window itself when it ends.
    void backupOpensTheBackupScreenInsteadOfTheMainWindow() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        RegisterForm(QStringLiteral("frmBackup"), [] { return new QWidget; });
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        Button(warning, QStringLiteral("cmdBackup"))->click();
        FlushUnloadedForms();
        QCOMPARE(BackupWarning, qint16(9));
        QWidget* backup = LoadedForm(QStringLiteral("frmBackup"));
        QVERIFY(backup && backup->isVisible());
        QVERIFY(!LoadedForm(QStringLiteral("frmBackupWarning")));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
        UnloadForm(QStringLiteral("frmBackup"));
        UnregisterForm(QStringLiteral("frmBackup"));
    }

    void aSecondCopyIsRefusedAndTouchesNothing() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        QProcess holder;
        holder.start(QStringLiteral(QUILLON_TEST_BIN_DIR "/helper_instance_lock"), {folder.Path()});
        QVERIFY(holder.waitForStarted());
        QByteArray output;
        QTRY_VERIFY((output += holder.readAllStandardOutput()).contains("locked"));

        services.messages.Answer(vbOK);
        QVERIFY(!StartProgram());
        QCOMPARE(services.messages.Count(), 1);
        QCOMPARE(services.messages.Last().prompt, QStringLiteral("Quillon is already running"));
        QCOMPARE(services.messages.Last().title, QStringLiteral("Quillon"));
        QCOMPARE(services.messages.Last().style, int(vbOKOnly));
        QCOMPARE(services.messages.Beeps(), 1);
        QVERIFY(!LoadedForm(QStringLiteral("frmBanner6")));
        QVERIFY(folder.ConfigText().isEmpty());

        holder.kill();
        QVERIFY(holder.waitForFinished());
        QVERIFY(StartProgram());
        UnloadForm(QStringLiteral("frmBanner6"));
    }
};

QTEST_MAIN(TestStart)
#include "test_start.moc"
