#include "shell/forms_gui.h"

#include "shell/commands.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace quillon {

namespace {

struct Registry {
    QHash<QString, FormFactory> factories;
    QHash<QString, QPointer<QWidget>> loaded;
    QPointer<QMdiArea> childArea;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

QMdiSubWindow* subWindowOf(QWidget* form) {
    return form ? qobject_cast<QMdiSubWindow*>(form->parentWidget()) : nullptr;
}

void restoreCursorSoon() {
    // A new form is painted and activated first, as the user sees it: the
    // pointer comes back after its Form_Activate, whether or not it clears it.
    QTimer::singleShot(0, qApp, [] { QApplication::restoreOverrideCursor(); });
}

}  // namespace

void RegisterForm(const QString& name, FormFactory factory) {
    registry().factories.insert(name, std::move(factory));
}

void RegisterForms(std::span<const FormRow> forms) {
    for (const FormRow& form : forms) {
        RegisterForm(QString::fromLatin1(form.name), form.make);
    }
}

QWidget* MainWindow() {
    return LoadedForm(QStringLiteral("frmQuillon"));
}

bool IsFormRegistered(const QString& name) {
    return registry().factories.contains(name);
}

void UnregisterForm(const QString& name) {
    registry().factories.remove(name);
}

QWidget* LoadedForm(const QString& name) {
    return registry().loaded.value(name).data();
}

QWidget* LoadForm(const QString& name) {
    if (QWidget* form = LoadedForm(name)) {
        return form;
    }
    const auto factory = registry().factories.constFind(name);
    if (factory == registry().factories.constEnd()) {
        return nullptr;
    }
    QWidget* form = (*factory)();
    if (!form) {
        return nullptr;
    }
    form->setObjectName(name);
    // Closing a form by its window's own close button unloads it as well.
    form->setAttribute(Qt::WA_DeleteOnClose);
    registry().loaded.insert(name, form);
    return form;
}

bool UnloadForm(const QString& name) {
    QWidget* form = LoadedForm(name);
    if (!form) {
        return true;
    }
    QMdiSubWindow* frame = subWindowOf(form);
    const bool closed = frame ? frame->close() : form->close();
    if (!closed) {
        return false;
    }
    registry().loaded.remove(name);
    return true;
}

bool UnloadAllForms() {
    // A form that is not loaded needs no unloading: making it first to unload it
    // would come to the same.
    bool allUnloaded = true;
    for (const QString& name : UnloadOrder()) {
        allUnloaded = UnloadForm(name) && allUnloaded;
    }
    return allUnloaded;
}

void SetChildArea(QMdiArea* area) {
    registry().childArea = area;
}

QWidget* ChildWindow(QWidget* form) {
    if (QMdiSubWindow* frame = subWindowOf(form)) {
        return frame;
    }
    QMdiArea* area = registry().childArea.data();
    if (!area) {
        return form;
    }
    QMdiSubWindow* frame = area->addSubWindow(form);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    return frame;
}

void ShowForm(QWidget* form) {
    if (!form) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QWidget* window = ChildWindow(form);
    const bool wasVisible = window->isVisible();
    if (wasVisible) {
        form->show();
        window->setWindowState(window->windowState() &
                               ~(Qt::WindowMinimized | Qt::WindowMaximized));
    } else {
        // One step, so that the window is activated once: a screen that takes
        // the activation back, keeping a bad date, must not meet it twice.
        window->show();
        form->show();
    }
    if (wasVisible) {
        QApplication::restoreOverrideCursor();
    } else {
        restoreCursorSoon();
    }
}

void ShowModal(const QString& name) {
    QPointer<QWidget> form = LoadForm(name);
    if (!form) {
        return;
    }
    if (auto* dialog = qobject_cast<QDialog*>(form.data())) {
        dialog->exec();
        return;
    }
    form->setWindowModality(Qt::ApplicationModal);
    form->show();
    QEventLoop loop;
    QObject::connect(form.data(), &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

void CentreOverForm(QWidget* dialog, const QString& name) {
    QWidget* form = LoadedForm(name);
    QWidget* over = form ? ChildWindow(form) : MainWindow();
    if (over && over->isVisible()) {
        dialog->move(over->mapToGlobal(over->rect().center()) - dialog->rect().center());
    }
}

}  // namespace quillon
