// basMain: the start of the program.
#include "shell/main_gui.h"

#include "clients/client_forms_gui.h"
#include "correspondence/correspondence_forms_gui.h"
#include "maintenance/maintenance_forms_gui.h"
#include "platform/services.h"
#include "platform/services_gui.h"
#include "reference/reference_forms_gui.h"
#include "reports/print_backend_gui.h"
#include "reports/report_forms_gui.h"
#include "sections/section_forms_gui.h"
#include "shell/environment.h"
#include "shell/forms_gui.h"
#include "shell/frmAbout.h"
#include "shell/frmBackupWarning.h"
#include "shell/frmBanner6.h"
#include "shell/frmFolderManager.h"
#include "shell/frmQuillon.h"
#include "shell/frmTip.h"
#include "shell/lifecycle.h"
#include "shell/program_folder.h"
#include "shell/variables.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <QWidget>

#include <algorithm>

#include <memory>

// Resources of a static library must be brought in by name, outside any namespace.
static void initShellResources() {
    Q_INIT_RESOURCE(shell);
}

namespace quillon {

namespace {

std::span<const FormRow> ShellForms() {
    static const FormRow forms[] = {
        ChildForm<frmBanner6>(), ChildForm<frmBackupWarning>(), ChildForm<frmQuillon>(),
        ChildForm<frmTip>(),     DialogForm<frmAbout>(),        DialogForm<frmFolderManager>(),
    };
    return forms;
}

// The lock lives as long as the process: a crashed or killed run leaves a lock
// whose dead holder frees it for the next start.
struct HeldLock {
    QString folder;
    std::unique_ptr<InstanceLock> lock;
};

bool acquireInstanceLock() {
    static HeldLock held;
    if (!held.lock || held.folder != ProgramFolder()) {
        held.lock.reset();
        held.folder = ProgramFolder();
        held.lock = std::make_unique<InstanceLock>(held.folder);
    }
    return held.lock->TryLock();
}

// How long the program waits, once its last window has closed, for another to
// appear: a screen that unloads itself and then shows the main window leaves a
// moment with no window at all.
constexpr int kLastWindowGraceMs = 1000;

bool anyWindowVisible() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(),
                       [](const QWidget* window) { return window->isVisible(); });
}

void endWhenNoWindowReturns() {
    QTimer::singleShot(kLastWindowGraceMs, qApp, [] {
        if (!anyWindowVisible()) {
            EndProgram();
        }
    });
}

void noteEnvironment() {
    WindowsFolder = GetWindowsDir();
    SystemFolder = GetSystemDir();
    OSName = GetOSName();
    FamilyFolder = FamilyFolderOf(ProgramFolder());
}

}  // namespace

void RegisterProgramForms() {
    initShellResources();
    for (const auto forms : {ShellForms(), ClientForms(), SectionForms(), ReportForms(),
                             CorrespondenceForms(), MaintenanceForms(), ReferenceForms()}) {
        RegisterForms(forms);
    }
}

bool StartProgram() {
    // Another instance running from this folder (App.PrevInstance) holds the lock.
    if (!acquireInstanceLock()) {
        Beep();
        MsgBox(QStringLiteral("Quillon is already running"), vbOKOnly, QStringLiteral("Quillon"));
        return false;
    }
    noteEnvironment();
    QDir(WindowsFolder).mkpath(QStringLiteral("TEMP"));
    LoadForm(QString::fromLatin1(frmBanner6::kFormName))->show();
    return true;
}

int Main() {
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp, &endWhenNoWindowReturns);
    InstallDesktopServices();
    InstallDesktopPrintBackend();
    RegisterProgramForms();
    if (!StartProgram()) {
        return 0;
    }
    return QApplication::exec();
}

}  // namespace quillon
