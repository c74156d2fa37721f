// The start as a person meets it: the refusal of a second copy and the lock
// behind it, what the program learns of its surroundings, the splash and its
// timers, and the backup reminder every tenth start.
#include "platform/dao.h"
#include "shell/configuration.h"
#include "shell/database_check.h"
#include "shell/environment.h"
#include "shell/forms_gui.h"
#include "shell/frmBackupWarning.h"
#include "shell/frmBanner6.h"
#include "shell/frmQuillon.h"
#include "shell/main_gui.h"
#include "shell/variables.h"
#include "support/peer_process.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <optional>

#include <unistd.h>

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

private:
    std::optional<ProgramFolderCopy> folder_;
    std::optional<ScriptedServices> services_;

private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }
    void init() {
        folder_.emplace();
        services_.emplace();
    }
    void cleanup() {
        UnloadForm(QStringLiteral("frmBackupWarning"));
        CloseMainWindow();
        services_.reset();
        folder_.reset();
    }

    void splashReadsTheFileOnlyWhenItsFirstTimerFires() {
        QVERIFY(StartProgram());
        QCOMPARE(FamilyFolder, QFileInfo(folder_->Path()).path());
        auto* banner = LoadedForm<frmBanner6>();
        QVERIFY(banner && banner->isVisible());
        QVERIFY(banner->tmrInit->isActive());
        QCOMPARE(banner->tmrInit->interval(), 100);
        QVERIFY(!banner->tmrGo->isActive());
        QVERIFY(folder_->ConfigText().isEmpty());

        banner->tmrInit_Timer();
        QVERIFY(!banner->tmrInit->isActive());
        QVERIFY(banner->tmrGo->isActive());
        QCOMPARE(banner->tmrGo->interval(), 3000);
        QVERIFY(folder_->ConfigText().startsWith("FILE 1=Default Database\r\n"));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));

        banner->tmrGo_Timer();
        FlushUnloadedForms();
        QVERIFY(!LoadedForm(QStringLiteral("frmBanner6")));
        // A new installation starts with the reminder, which names the file.
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning && warning->isVisible());
        QCOMPARE(warning->windowTitle(), QStringLiteral("Backup Warning"));
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
        const QStringList text = warning->lblWarning->text()
                                     .replace(folder_->File("QUILL020.MDB"), "<FILE>")
                                     .split('\n');
        QCOMPARE(text, ReferenceLines("backup-warning.txt", text));
    }

    // Each start counts down and the count is saved at exit; at 0 the reminder
    // shows in place of the main window. Switched off, it never comes back.
    void reminderComesBackAtEveryTenthStart() {
        for (const int first : {-1, 9}) {
            setBackupWarningInFile(first);
            for (int start = 1; start <= qMax(first, 2); ++start) {
                QVERIFY(RunStart());
                QVERIFY(LoadedForm<frmQuillon>() && !LoadedForm("frmBackupWarning"));
                CloseMainWindow();
                QVERIFY2(folder_->ConfigText().contains(warningLine(qMax(first - start, -1))),
                         qPrintable(QString::number(start)));
            }
        }
        QVERIFY(RunStart());
        QVERIFY(LoadedForm<frmBackupWarning>());
        QVERIFY(!LoadedForm(QStringLiteral("frmQuillon")));
    }

    // A client database that another workstation holds past the lock timeout
    // is told as busy, not as missing.
    void aBusyDatabaseIsToldAsBusy() {
        DatabaseFolder[SelectedFile] = folder_->Path();
        PeerProcess peer;
        QVERIFY(peer.Started());
        QCOMPARE(peer.Ask({"hold", ClientDatabasePath()}), QStringLiteral("ok"));
        const int timeout = dao::LockTimeout();
        dao::SetLockTimeout(100);
        services_->messages.Answer(vbOK);
        QVERIFY(!VerifyClientDatabase());
        QCOMPARE(services_->messages.Last().prompt,
                 "The database \"" + DatabaseTitle.at(SelectedFile) +
                     "\" is in use by another user and could not be opened. Please try again in "
                     "a moment.");
        QVERIFY(peer.Quit());
        QVERIFY(VerifyClientDatabase());
        dao::SetLockTimeout(timeout);
    }

    // The reminder's buttons, with the tick or without: the countdown they leave
    // in the file, and the screen that follows (none for exit, which ends the
    // program). The backup screen brings up the main window itself when it ends.
    void reminderButtons_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("ticked");
        QTest::addColumn<int>("countdown");
        QTest::addColumn<QString>("next");
        QTest::newRow("continue") << "cmdContinue" << false << 9 << "frmQuillon";
        QTest::newRow("continue, ticked") << "cmdContinue" << true << -1 << "frmQuillon";
        QTest::newRow("backup") << "cmdBackup" << false << 9 << "frmBackup";
        QTest::newRow("exit, ticked") << "cmdExit" << true << 9 << "";
    }
    void reminderButtons() {
        QFETCH(QString, button);
        QFETCH(bool, ticked);
        QFETCH(int, countdown);
        QFETCH(QString, next);
        RegisterForm(QStringLiteral("frmBackup"), [] { return new QWidget; });
        QVERIFY(RunStart());
        auto* warning = LoadedForm<frmBackupWarning>();
        QVERIFY(warning);
        warning->chkDisable->setChecked(ticked);
        const int endsBefore = EndProgramCalls();
        Button(warning, button)->click();
        FlushUnloadedForms();
        QVERIFY(!LoadedForm(QStringLiteral("frmBackupWarning")));
        QCOMPARE(EndProgramCalls(), endsBefore + (next.isEmpty() ? 1 : 0));
        for (const QString& form : {QStringLiteral("frmQuillon"), QStringLiteral("frmBackup")}) {
            QCOMPARE(LoadedForm(form) != nullptr && LoadedForm(form)->isVisible(), form == next);
        }
        QCOMPARE(BackupWarning, qint16(countdown));
        if (next.isEmpty()) {  // exit saves the count itself
            QVERIFY(folder_->ConfigText().contains(warningLine(countdown)));
        }
        UnloadForm(QStringLiteral("frmBackup"));
        UnregisterForm(QStringLiteral("frmBackup"));
    }

    void aSecondCopyIsRefusedAndTouchesNothing() {
        QProcess holder;
        holder.start(QStringLiteral(QUILLON_TEST_BIN_DIR "/helper_instance_lock"),
                     {folder_->Path()});
        QVERIFY(holder.waitForStarted());
        QByteArray output;
        QTRY_VERIFY((output += holder.readAllStandardOutput()).contains("locked"));

        services_->messages.Answer(vbOK);
        QVERIFY(!StartProgram());
        QCOMPARE(services_->messages.Count(), 1);
        QCOMPARE(services_->messages.Last().prompt, QStringLiteral("Quillon is already running"));
        QCOMPARE(services_->messages.Last().title, QStringLiteral("Quillon"));
        QCOMPARE(services_->messages.Last().style, int(vbOKOnly));
        QCOMPARE(services_->messages.Beeps(), 1);
        QVERIFY(!LoadedForm(QStringLiteral("frmBanner6")));
        QVERIFY(folder_->ConfigText().isEmpty());

        holder.kill();
        QVERIFY(holder.waitForFinished());
        QVERIFY(StartProgram());
        UnloadForm(QStringLiteral("frmBanner6"));
    }

    // The names of Windows versions the system knows by their platform ids and
    // version numbers; any other system, this one too unless it is such a
    // Windows, has no name.
    void systemNames() {
        const int versions[][3] = {{1, 4, 0},  {1, 4, 10}, {1, 4, 90}, {1, 4, 3},
                                   {2, 3, 51}, {2, 4, 0},  {2, 5, 0},  {2, 5, 1},
                                   {2, 5, 2},  {2, 6, 0},  {2, 10, 0}, {3, 5, 0}};
        QStringList names;
        for (const auto& [platform, major, minor] : versions) {
            names << QStringLiteral("%1 %2.%3: \"%4\"")
                         .arg(platform)
                         .arg(major)
                         .arg(minor)
                         .arg(WindowsVersionName(platform, major, minor));
        }
        QCOMPARE(names, ReferenceLines(QStringLiteral("windows-versions.txt"), names));
#ifndef Q_OS_WIN
        QCOMPARE(GetOSName(), QString());
#endif
    }

    // A plain count: another folder name is cut just as wrongly, without an error.
    void familyFolderIsTheProgramFolderLessNineCharacters() {
        QCOMPARE(FamilyFolderOf(QStringLiteral("/opt/Corvane/Quillon2")),
                 QStringLiteral("/opt/Corvane"));
        QCOMPARE(FamilyFolderOf(QStringLiteral("/opt/Corvane/Client")),
                 QStringLiteral("/opt/Corva"));
        QCOMPARE(FamilyFolderOf(QStringLiteral("Q2")), QString());
    }

    // In a folder of this user's own, where no other local user can take it
    // first; one lock for each program folder.
    void oneLockPerProgramFolderInAFolderOfTheUsersOwn() {
        QTemporaryDir first;
        QTemporaryDir second;
        InstanceLock running(first.path());
        QVERIFY(running.TryLock());
        QVERIFY(running.TryLock());  // asking again keeps it
        InstanceLock again(first.path());
        QVERIFY(!again.TryLock());
        InstanceLock other(second.path());
        QVERIFY(other.TryLock());
        QVERIFY(running.FilePath() != other.FilePath());
        const QFileInfo folder(QFileInfo(running.FilePath()).path());
        QCOMPARE(folder.ownerId(), uint(geteuid()));
        QCOMPARE(folder.permissions() & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
                 QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

QTEST_MAIN(TestStart)
#include "test_start.moc"
