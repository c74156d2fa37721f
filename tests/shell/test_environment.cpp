// What the program learns at start, and the lock that keeps a second copy out
// (a killed holder is in test_start).
#include "shell/environment.h"

#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

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

QTEST_GUILESS_MAIN(TestEnvironment)
#include "test_environment.moc"
