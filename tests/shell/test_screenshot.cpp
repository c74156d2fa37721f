// Renders the main window on the delivered database into the documentation's
// screenshot.
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/program_folder_copy.h"
#include "support/scripted_services.h"
#include "support/shell_testing.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QtTest>

using namespace quillon;
using namespace quillon::testing;

namespace {
// docs/screenshots in the source tree, found from this file's own place.
QString screenshotFolder() {
    return QFileInfo(QStringLiteral(__FILE__))
        .absoluteDir()
        .filePath(QStringLiteral("../../docs/screenshots"));
}
}  // namespace

class TestScreenshot : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { PrepareShellTests(); }

    void mainWindowIsRenderedIntoTheDocumentation() {
        ProgramFolderCopy folder;
        ScriptedServices services;
        ReadConfiguration();
        ApplicationMaximised = false;
        ApplicationWidth = 1280 * 15;
        ApplicationHeight = 720 * 15;
        auto* main = LoadForm<frmQuillon>();
        QCOMPARE(main->windowTitle(), QStringLiteral("Quillon - Default Database"));
        QVERIFY(QTest::qWaitForWindowExposed(main));
        const QImage picture = main->grab().toImage();
        QCOMPARE(picture.size(), QSize(1280, 720));
        QDir().mkpath(screenshotFolder());
        const QString path = QDir(screenshotFolder()).filePath(QStringLiteral("main-window.png"));
        QVERIFY(picture.save(path));
        QVERIFY(QFileInfo(path).size() > 0);
        CloseMainWindow();
    }
};

QTEST_MAIN(TestScreenshot)
#include "test_screenshot.moc"
