#include "platform/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quillon {

namespace {

// Accepts "\" as a separator on every platform, since paths come from settings
// files written on either kind of system.
QString InternalPath(const QString& path) {
    QString result = path;
    result.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return result;
}

QString NativePath(const QString& path) {
    return QDir::toNativeSeparators(path);
}

QString JoinPath(const QString& folder, const QString& name) {
    if (folder.isEmpty() || folder.endsWith(QLatin1Char('/'))) {
        return folder + name;
    }
    return folder + QLatin1Char('/') + name;
}

bool IsSpecialPart(const QString& part) {
    return part == QLatin1String(".") || part == QLatin1String("..");
}

// The entry of `folder` named `name` in any case, the exact spelling first;
// empty when there is none. With `filesOnly`, folders do not count.
QString EntryOnDisk(const QString& folder, const QString& name, bool filesOnly) {
    const QFileInfo exact(JoinPath(folder, name));
    if (filesOnly ? exact.isFile() : exact.exists()) {
        return name;
    }
    const QDir::Filters filters = (filesOnly ? QDir::Files : QDir::AllEntries) |
                                  QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    for (const QString& entry : dir.entryList(filters)) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            return entry;
        }
    }
    return QString();
}

// The root a path starts from: "/", a drive as "C:/", or nothing when relative.
QString TakeRoot(QStringList& parts, const QString& internalPath) {
    if (internalPath.startsWith(QLatin1Char('/'))) {
        return QStringLiteral("/");
    }
    if (!parts.isEmpty() && parts.first().endsWith(QLatin1Char(':'))) {
        return parts.takeFirst() + QLatin1Char('/');
    }
    return QString();
}

QString ResolveInternal(const QString& path) {
    const QString internal = InternalPath(path);
    QStringList parts = internal.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString resolved = TakeRoot(parts, internal);
    bool onDisk = true;  // once a part is missing, those below it are too
    for (const QString& part : parts) {
        QString spelt = onDisk && !IsSpecialPart(part) ? EntryOnDisk(resolved, part, false) : part;
        if (spelt.isEmpty()) {
            onDisk = false;
            spelt = part;
        }
        resolved = JoinPath(resolved, spelt);
    }
    return resolved;
}

[[noreturn]] void Fail(int number, const QString& description) {
    throw dao::DaoError(number, description);
}

QString ExistingFileOrFail(const QString& path) {
    const QString resolved = ResolveInternal(path);
    if (!QFileInfo(resolved).isFile()) {
        Fail(kErrFileNotFound, QStringLiteral("File not found"));
    }
    return resolved;
}

void RequireFolderOf(const QString& resolvedPath) {
    if (!QFileInfo(resolvedPath).absoluteDir().exists()) {
        Fail(kErrPathNotFound, QStringLiteral("Path not found"));
    }
}

}  // namespace

QString Dir(const QString& path) {
    const QFileInfo asked(InternalPath(path));
    if (asked.fileName().isEmpty() || IsSpecialPart(asked.fileName())) {
        return QString();
    }
    return EntryOnDisk(ResolveInternal(asked.path()), asked.fileName(), true);
}

QString PathOnDisk(const QString& path) {
    return NativePath(ResolveInternal(path));
}

void FileCopy(const QString& source, const QString& destination) {
    const QString from = ExistingFileOrFail(source);
    const QString to = ResolveInternal(destination);
    RequireFolderOf(to);
    const QFileInfo toInfo(to);
    if (toInfo.exists() && toInfo.canonicalFilePath() == QFileInfo(from).canonicalFilePath()) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
    if (toInfo.exists() && !QFile::remove(to)) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
    if (!QFile::copy(from, to)) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

void Kill(const QString& path) {
    if (!QFile::remove(ExistingFileOrFail(path))) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

void Name(const QString& oldPath, const QString& newPath) {
    const QString from = ResolveInternal(oldPath);
    if (!QFileInfo::exists(from)) {
        Fail(kErrFileNotFound, QStringLiteral("File not found"));
    }
    const QString to = ResolveInternal(newPath);
    RequireFolderOf(to);
    // A change of case alone renames the entry onto itself, which is allowed.
    const bool sameEntry = QFileInfo(to).canonicalFilePath() == QFileInfo(from).canonicalFilePath();
    if (QFileInfo::exists(to) && !sameEntry) {
        Fail(kErrFileAlreadyExists, QStringLiteral("File already exists"));
    }
    const QString target = QFileInfo(to).absolutePath() + QLatin1Char('/') +
                           QFileInfo(InternalPath(newPath)).fileName();
    if (!QDir().rename(from, target)) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

void MkDir(const QString& path) {
    const QString resolved = ResolveInternal(path);
    RequireFolderOf(resolved);
    if (QFileInfo::exists(resolved) || !QDir().mkdir(resolved)) {
        Fail(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

}  // namespace quillon
