// The file routines on a disk whose names differ in case from the names asked.
#include "platform/files.h"
#include "support/error_number.h"
#include "support/shell_testing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quillon;

namespace {

void WriteFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// Every file with its content and every folder under `root`.
QStringList Listing(const QString& root) {
    QStringList entries;
    for (QDirIterator it(root, QDir::AllEntries | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
         it.hasNext();) {
        const QFileInfo entry(it.next());
        QFile file(entry.filePath());
        entries << QDir(root).relativeFilePath(entry.filePath()) +
                       (entry.isDir() ? QStringLiteral("/")
                        : file.open(QIODevice::ReadOnly)
                            ? QLatin1Char('=') + QString::fromLatin1(file.readAll())
                            : QString());
    }
    entries.sort();
    return entries;
}

}  // namespace

class TestFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Each case runs on a fresh folder; the reference file holds what the
    // routine answers (a name, a path or an error number) and what it changed
    // on the disk. A folder never passes for a file, nor a file for itself.
    void routinesFindNamesInAnyCase() {
        const QStringList cases =
            QStringLiteral(
                "dir QUILL020.MDB; dir taxoff2.mdb; dir Quill020.Mdb; dir quill020.mdb; "
                "dir QUILL001.MDB; dir BACKUP15.MDB; dir docs; dir quill020; dir Merge.txt; "
                "dir\\ DOCS/PREVIEW.PDF; dir Nowhere/QUILL020.MDB; dir; dir Docs/; "
                "path DOCS/preview.PDF; path docs/NEW.PDF; copy QUILL020.MDB TAXOFF2.MDB; "
                "copy quill020.mdb Docs/copy.mdb; copy missing.mdb x.mdb; "
                "copy quill020.mdb Nowhere/x.mdb; copy quill020.mdb QUILL020.MDB; "
                "copy quill020.mdb Docs; kill QUILL020.MDB; kill QUILL001.MDB; kill Docs; "
                "name QUILL020.MDB QUILL020.BAK; name quill020.mdb QUILL020.mdb; "
                "name missing.mdb x.mdb; name quill020.mdb taxoff2.mdb; "
                "name quill020.mdb Nowhere/x.mdb; mkdir Backups; mkdir DOCS; "
                "mkdir Nowhere/Backups")
                .split(QStringLiteral("; "));
        QStringList outcomes;
        for (const QString& asked : cases) {
            const QStringList words = asked.split(' ');
            QTemporaryDir root;
            const auto at = [&root](const QString& name) { return root.filePath(name); };
            WriteFile(at("quill020.mdb"), "lower");
            WriteFile(at("TAXOFF2.MDB"), "upper");
            WriteFile(at("MERGE.TXT"), "data");
            for (const char* folder : {"Docs", "backup15.mdb", "merge.txt"}) {
                QDir(root.path()).mkdir(folder);
            }
            WriteFile(at("Docs/Preview.pdf"), "pdf");
            const QStringList before = Listing(root.path());
            const QString& name = words[0];
            const QString first = words.value(1);
            const QString second = words.value(2);
            QString answer;
            const int error = ErrorNumberOf([&] {
                if (name == "dir") {
                    answer = Dir(first.isEmpty() ? QString() : at(first));
                } else if (name == "dir\\") {
                    answer = Dir(at(first).replace('/', '\\'));
                } else if (name == "path") {
                    answer = PathOnDisk(at(first)).replace(QDir::toNativeSeparators(root.path()),
                                                           "<root>");
                } else if (name == "copy") {
                    FileCopy(at(first), at(second));
                } else if (name == "kill") {
                    Kill(at(first));
                } else if (name == "name") {
                    Name(at(first), at(second));
                } else {
                    MkDir(at(first));
                }
            });
            QStringList changes;
            const QStringList after = Listing(root.path());
            for (const QString& entry : before) {
                changes << (after.contains(entry) ? QString() : "-" + entry);
            }
            for (const QString& entry : after) {
                changes << (before.contains(entry) ? QString() : "+" + entry);
            }
            changes.removeAll(QString());
            outcomes << QStringLiteral("%1: \"%2\", error %3").arg(asked, answer).arg(error) +
                            (changes.isEmpty() ? "" : "; " + changes.join(' '));
        }
        QCOMPARE(outcomes, testing::ReferenceLines("file-routines.txt", outcomes));
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
