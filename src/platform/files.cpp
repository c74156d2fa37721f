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

// The entry of `folder` named `name` in any case, exact spelling first.
QString EntryOnDisk(const QString& folder, const QString& name, QDir::Filters filters) {
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList entries = dir.entryList(filters | QDir::Hidden | QDir::System);
    if (entries.contains(name)) {
        return name;
    }
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            return entry;
        }
    }
    return QString();
}

QString ResolveInternal(const QString& path) {
    const QString internal = InternalPath(path);
    const bool absolute = internal.startsWith(QLatin1Char('/'));
    const QStringList parts = internal.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString resolved = absolute ? QStringLiteral("/") : QString();
    bool onDisk = true;
    for (const QString& part : parts) {
        QString spelt = part;
        const bool drive = resolved.isEmpty() && part.endsWith(QLatin1Char(':'));
        if (drive) {
            spelt += QLatin1Char('/');
        } else if (onDisk && part != QLatin1String(".") && part != QLatin1String("..")) {
            spelt = EntryOnDisk(resolved, part, QDir::AllEntries | QDir::NoDotAndDotDot);
            onDisk = !spelt.isEmpty();
            if (!onDisk) {
                spelt = part;
            }
        }
        if (!resolved.isEmpty() && !resolved.endsWith(QLatin1Char('/'))) {
            resolved += QLatin1Char('/');
        }
        resolved += spelt;
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
    const QFileInfo info(ResolveInternal(path));
    if (info.fileName().isEmpty() || !info.isFile()) {
        return QString();
    }
    return info.fileName();
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
