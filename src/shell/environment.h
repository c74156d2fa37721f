#pragma once
// What the program learns about its surroundings at start, and the lock that
// keeps a second copy from running from the same folder.

#include <QString>

#include <memory>

class QLockFile;

namespace quillon {

// The operating system's folder and its system folder, no trailing separator.
// Where the platform has no such folders, the nearest equivalents.
QString GetWindowsDir();
QString GetSystemDir();
// The operating system's name as shown in the About box: the name of a Windows
// version the table knows, else empty (as on every other platform).
QString GetOSName();
// The name of a Windows version from its platform id and version numbers;
// empty for one the program does not know.
QString WindowsVersionName(int platformId, int majorVersion, int minorVersion);

// The product family's folder: the program folder less the length of the name
// "Quillon2" and its separator. A plain count, so another folder name gives a
// wrongly cut string.
QString FamilyFolderOf(const QString& programFolder);

// Holds the lock of one program folder for this user on this machine for as
// long as it lives, in a folder of the user's own. A lock left by a process
// that has died is taken over.
class InstanceLock {
public:
    explicit InstanceLock(const QString& programFolder);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // False only when another running process holds it.
    bool TryLock();
    QString FilePath() const;

private:
    std::unique_ptr<QLockFile> lock_;
    QString path_;
};

}  // namespace quillon
