// What the program learns at start, and the lock that keeps a second copy out.
#include "shell/environment.h"
#include "support/program_folder_copy.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillon;

class TestEnvironment : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void windowsVersionNames_data() {
        QTest::addColumn<int>("platform");
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<QString>("name");
        QTest::newRow("95") << 1 << 4 << 0 << "Windows 95";
        QTest::newRow("98") << 1 << 4 << 10 << "Windows 98";
        QTest::newRow("Me") << 1 << 4 << 90 << "Windows Millenium";
        QTest::newRow("9x other") << 1 << 4 << 3 << "";
        QTest::newRow("NT 3") << 2 << 3 << 51 << "Windows NT 3.51";
        QTest::newRow("NT 4") << 2 << 4 << 0 << "Windows NT 4.0";
        QTest::newRow("2000") << 2 << 5 << 0 << "Windows 2000";
        QTest::newRow("XP") << 2 << 5 << 1 << "Windows XP";
        QTest::newRow("XP 64") << 2 << 5 << 2 << "Windows XP";
        QTest::newRow("Vista") << 2 << 6 << 0 << "Windows Vista";
        QTest::newRow("later") << 2 << 10 << 0 << "";
        QTest::newRow("other platform") << 3 << 5 << 0 << "";
    }
    void windowsVersionNames() {
        QFETCH(int, platform);
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(QString, name);
        QCOMPARE(WindowsVersionName(platform, major, minor), name);
    }

    // A plain count: another folder name is cut just as wrongly, without an error.
    void familyFolderIsTheProgramFolderLessNineCharacters() {
        QCOMPARE(FamilyFolderOf(QStringLiteral("/opt/Corvane/Quillon2")),
                 QStringLiteral("/opt/Corvane"));
        QCOMPARE(FamilyFolderOf(QStringLiteral("/opt/Corvane/Client")),
                 QStringLiteral("/opt/Corva"));
        QCOMPARE(FamilyFolderOf(QStringLiteral("Q2")), QString());
    }

    void otherSystemsHaveNoName() {
#ifndef Q_OS_WIN
        QCOMPARE(GetOSName(), QString());
#endif
    }

    void oneLockPerProgramFolder() {
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
    }

    void aKilledHolderNeverBlocksTheNextStart() {
        QTemporaryDir folder;
        QProcess holder;
        holder.start(QStringLiteral(QUILLON_TEST_BIN_DIR "/helper_instance_lock"), {folder.path()});
        QVERIFY(holder.waitForStarted());
        QByteArray output;
        QTRY_VERIFY((output += holder.readAllStandardOutput()).contains("locked"));
        {
            InstanceLock blocked(folder.path());
            QVERIFY(!blocked.TryLock());
        }
        holder.kill();
        QVERIFY(holder.waitForFinished());
        InstanceLock next(folder.path());
        QVERIFY(next.TryLock());
    }
};

QTEST_GUILESS_MAIN(TestEnvironment)
#include "test_environment.moc"
