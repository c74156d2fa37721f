#include "platform/files.h"
#include "support/error_number.h"

#include <QDir>
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

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class TestFiles : public QObject {
    Q_OBJECT

private:
    QTemporaryDir root_;
    QString At(const QString& name) const { return root_.filePath(name); }

private Q_SLOTS:
    void init() {
        QVERIFY(root_.isValid());
        QDir(root_.path()).removeRecursively();
        QDir().mkpath(root_.path());
        WriteFile(At("quill020.mdb"), "lower");
        WriteFile(At("TAXOFF2.MDB"), "upper");
        QDir(root_.path()).mkdir("Docs");
        QDir(root_.path()).mkdir("backup15.mdb");
    }

    void dirFindsNamesInAnyCase_data() {
        QTest::addColumn<QString>("asked");
        QTest::addColumn<QString>("found");
        QTest::newRow("upper asked, lower on disk") << "QUILL020.MDB"
                                                    << "quill020.mdb";
        QTest::newRow("lower asked, upper on disk") << "taxoff2.mdb"
                                                    << "TAXOFF2.MDB";
        QTest::newRow("mixed case") << "Quill020.Mdb"
                                    << "quill020.mdb";
        QTest::newRow("exact") << "quill020.mdb"
                               << "quill020.mdb";
        QTest::newRow("no such file") << "QUILL001.MDB"
                                      << "";
        QTest::newRow("folder of that name is no file") << "BACKUP15.MDB"
                                                        << "";
        QTest::newRow("folder itself") << "docs"
                                       << "";
        QTest::newRow("prefix of a name") << "quill020"
                                          << "";
    }
    void dirFindsNamesInAnyCase() {
        QFETCH(QString, asked);
        QFETCH(QString, found);
        QCOMPARE(Dir(At(asked)), found);
    }

    void dirAcceptsEitherSeparatorAndAnyCaseOfTheFolder() {
        WriteFile(At("Docs/Preview.pdf"), "pdf");
        QString backslashed = At("DOCS/PREVIEW.PDF");
        backslashed.replace('/', '\\');
        QCOMPARE(Dir(backslashed), QString("Preview.pdf"));
    }

    void dirSkipsAFolderSpeltLikeTheFile() {
        // Where names differ in case only, a folder must not hide the file.
        QDir(root_.path()).mkdir("merge.txt");
        WriteFile(At("MERGE.TXT"), "data");
        QCOMPARE(Dir(At("Merge.txt")), QString("MERGE.TXT"));
    }

    void dirInAMissingFolderIsEmpty() {
        QCOMPARE(Dir(At("Nowhere/QUILL020.MDB")), QString());
        QCOMPARE(Dir(QString()), QString());
        QCOMPARE(Dir(At("Docs/")), QString());
    }

    void pathOnDiskSpellsEachComponentAsOnDisk() {
        WriteFile(At("Docs/Preview.pdf"), "pdf");
        QCOMPARE(PathOnDisk(At("DOCS/preview.PDF")),
                 QDir::toNativeSeparators(At("Docs/Preview.pdf")));
        // A file still to be made keeps its given name inside the folder found.
        QCOMPARE(PathOnDisk(At("docs/NEW.PDF")), QDir::toNativeSeparators(At("Docs/NEW.PDF")));
    }

    void fileCopyOverwritesAndFindsTheSourceInAnyCase() {
        FileCopy(At("QUILL020.MDB"), At("TAXOFF2.MDB"));
        QCOMPARE(ReadFile(At("TAXOFF2.MDB")), QByteArray("lower"));
        FileCopy(At("quill020.mdb"), At("Docs/copy.mdb"));
        QCOMPARE(ReadFile(At("Docs/copy.mdb")), QByteArray("lower"));
    }

    void fileCopyErrors() {
        QCOMPARE(ErrorNumberOf([&] { FileCopy(At("missing.mdb"), At("x.mdb")); }), 53);
        QCOMPARE(ErrorNumberOf([&] { FileCopy(At("quill020.mdb"), At("Nowhere/x.mdb")); }), 76);
        // Copying a file onto itself must not destroy it.
        QCOMPARE(ErrorNumberOf([&] { FileCopy(At("quill020.mdb"), At("QUILL020.MDB")); }), 75);
        QCOMPARE(ReadFile(At("quill020.mdb")), QByteArray("lower"));
        QCOMPARE(ErrorNumberOf([&] { FileCopy(At("quill020.mdb"), At("Docs")); }), 75);
    }

    void killDeletesInAnyCase() {
        Kill(At("QUILL020.MDB"));
        QVERIFY(!QFile::exists(At("quill020.mdb")));
        QCOMPARE(ErrorNumberOf([&] { Kill(At("QUILL020.MDB")); }), 53);
        QCOMPARE(ErrorNumberOf([&] { Kill(At("Docs")); }), 53);
    }

    void nameRenames() {
        Name(At("QUILL020.MDB"), At("QUILL020.BAK"));
        QCOMPARE(Dir(At("quill020.bak")), QString("QUILL020.BAK"));
        QVERIFY(Dir(At("quill020.mdb")).isEmpty());
        // A change of case alone is a rename, not a clash with itself.
        Name(At("quill020.bak"), At("quill020.bak"));
        QCOMPARE(Dir(At("QUILL020.BAK")), QString("quill020.bak"));
    }

    void nameErrors() {
        QCOMPARE(ErrorNumberOf([&] { Name(At("missing.mdb"), At("x.mdb")); }), 53);
        QCOMPARE(ErrorNumberOf([&] { Name(At("quill020.mdb"), At("taxoff2.mdb")); }), 58);
        QCOMPARE(ErrorNumberOf([&] { Name(At("quill020.mdb"), At("Nowhere/x.mdb")); }), 76);
        QCOMPARE(ReadFile(At("TAXOFF2.MDB")), QByteArray("upper"));
    }

    void mkDirMakesOneFolder() {
        MkDir(At("Backups"));
        QVERIFY(QFileInfo(At("Backups")).isDir());
        QCOMPARE(ErrorNumberOf([&] { MkDir(At("BACKUPS")); }), 75);
        QCOMPARE(ErrorNumberOf([&] { MkDir(At("Nowhere/Backups")); }), 76);
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
