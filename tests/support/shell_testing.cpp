#include "support/shell_testing.h"

#include "shell/forms_gui.h"
#include "shell/frmBanner6.h"
#include "shell/frmQuillon.h"
#include "shell/lifecycle.h"
#include "shell/main_gui.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QtTest>

namespace quillon::testing {

namespace {
int endCalls = 0;
}

void PrepareShellTests() {
    static bool registered = false;
    if (!registered) {
        RegisterProgramForms();
        registered = true;
    }
    SetEndProgramHandler([] { ++endCalls; });
}

int EndProgramCalls() {
    return endCalls;
}

void FlushUnloadedForms() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool RunStart() {
    if (!StartProgram()) {
        return false;
    }
    auto* banner = LoadedForm<frmBanner6>();
    if (!banner) {
        return false;
    }
    banner->tmrInit_Timer();
    banner->tmrGo_Timer();
    FlushUnloadedForms();
    return true;
}

void CloseMainWindow() {
    if (auto* main = LoadedForm<frmQuillon>()) {
        main->close();
    }
    FlushUnloadedForms();
}

QAbstractButton* Button(QWidget* form, const QString& name) {
    auto* button = form ? form->findChild<QAbstractButton*>(name) : nullptr;
    if (!button) {
        QTest::qFail(qPrintable(QStringLiteral("no button ") + name), __FILE__, __LINE__);
    }
    return button;
}

QStringList ReferenceLines(const QString& name, const QStringList& actual) {
    QFile file(QStringLiteral(QUILLON_TEST_DATA_DIR "/reference/") + name);
    if (qEnvironmentVariableIntValue("QUILLON_REWRITE_REFERENCES") == 1 &&
        file.open(QIODevice::WriteOnly)) {
        file.write((actual.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
        file.close();
    }
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : "";
    return text.isEmpty() ? QStringList() : text.chopped(1).split(QLatin1Char('\n'));
}

}  // namespace quillon::testing
