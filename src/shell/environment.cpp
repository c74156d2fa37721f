// Part of basMain: what the program learns about its surroundings at start.
#include "shell/environment.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace quillon {

namespace {
const QString kProgramFolderName = QStringLiteral("Quillon2");

QString withoutTrailingSeparator(QString folder) {
    while (folder.size() > 1 &&
           (folder.endsWith(QLatin1Char('/')) || folder.endsWith(QLatin1Char('\\')))) {
        folder.chop(1);
    }
    return QDir::toNativeSeparators(folder);
}

// A folder of this user's own, where no other local user can take the lock
// first: the session's runtime folder, else a folder in the user's cache.
QString privateLockFolder() {
#ifdef Q_OS_UNIX
    // Without a session's folder Qt would name one in the shared temporary folder.
    const bool sessionFolder = !qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR");
#else
    const bool sessionFolder = true;
#endif
    const QString runtime = sessionFolder
                                ? QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
                                : QString();
    if (!runtime.isEmpty()) {
        return runtime;
    }
    const QString folder =
        QDir(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation))
            .filePath(QStringLiteral("quillon"));
    QDir().mkpath(folder);
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return folder;
}

#ifdef Q_OS_WIN
constexpr UINT kFolderBufferSize = 256;

// The API's buffer, cut to the length it returns.
QString folderFrom(UINT (*query)(LPSTR, UINT)) {
    char buffer[kFolderBufferSize] = {};
    const UINT length = query(buffer, kFolderBufferSize);
    return withoutTrailingSeparator(
        QString::fromLocal8Bit(buffer, length < kFolderBufferSize ? length : 0));
}
#endif
}  // namespace

QString GetWindowsDir() {
#ifdef Q_OS_WIN
    return folderFrom(GetWindowsDirectoryA);
#else
    // No Windows folder here: the system's scratch area stands in for it, so that
    // the TEMP folder made at start lands somewhere harmless.
    return withoutTrailingSeparator(QDir::tempPath());
#endif
}

QString GetSystemDir() {
#ifdef Q_OS_WIN
    return folderFrom(GetSystemDirectoryA);
#else
    return QStringLiteral("/usr/lib");
#endif
}

QString WindowsVersionName(int platformId, int majorVersion, int minorVersion) {
    if (platformId == 1) {
        switch (minorVersion) {
            case 0:
                return QStringLiteral("Windows 95");
            case 10:
                return QStringLiteral("Windows 98");
            case 90:
                return QStringLiteral("Windows Millenium");
            default:
                return {};
        }
    }
    if (platformId == 2) {
        switch (majorVersion) {
            case 3:
                return QStringLiteral("Windows NT 3.51");
            case 4:
                return QStringLiteral("Windows NT 4.0");
            case 5:
                return minorVersion == 0 ? QStringLiteral("Windows 2000")
                                         : QStringLiteral("Windows XP");
            case 6:
                return QStringLiteral("Windows Vista");
            default:
                return {};
        }
    }
    return {};
}

QString GetOSName() {
#ifdef Q_OS_WIN
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof(version);
    if (GetVersionExA(&version)) {
        return WindowsVersionName(static_cast<int>(version.dwPlatformId),
                                  static_cast<int>(version.dwMajorVersion),
                                  static_cast<int>(version.dwMinorVersion));
    }
#endif
    // Systems the table does not name, other platforms among them, have no name.
    return {};
}

// Len("Quillon2") + 1 characters come off, whatever the folder is called.
QString FamilyFolderOf(const QString& programFolder) {
    const qsizetype kept = programFolder.size() - (kProgramFolderName.size() + 1);
    return kept > 0 ? programFolder.left(kept) : QString();
}

InstanceLock::InstanceLock(const QString& programFolder) {
    // One lock per machine and program folder: the name is a hash of the folder.
    const QString canonical = QFileInfo(programFolder).absoluteFilePath();
    const QByteArray key =
        QCryptographicHash::hash(canonical.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    path_ = QDir(privateLockFolder())
                .filePath(QStringLiteral("quillon-%1.lock").arg(QString::fromLatin1(key)));
    lock_ = std::make_unique<QLockFile>(path_);
    // Only a dead holder frees the lock, however long a live one has run.
    lock_->setStaleLockTime(0);
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::TryLock() {
    if (lock_->isLocked() || lock_->tryLock(0)) {
        return true;
    }
    // Only a live holder means another copy: a lock that can't be made at all
    // does not keep the program from starting.
    return lock_->error() != QLockFile::LockFailedError;
}

QString InstanceLock::FilePath() const {
    return path_;
}

}  // namespace quillon
