#include "support/shell_testing.h"

#include "shell/forms_gui.h"
#include "shell/frmBanner6.h"
#include "shell/frmQuillon.h"
#include "shell/lifecycle.h"
#include "shell/main_gui.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QEvent>
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

QAction* MenuItem(QWidget* form, const QString& name) {
    auto* item = form ? form->findChild<QAction*>(name) : nullptr;
    if (!item) {
        QTest::qFail(qPrintable(QStringLiteral("no menu item ") + name), __FILE__, __LINE__);
    }
    return item;
}

}  // namespace quillon::testing
