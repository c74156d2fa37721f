#pragma once
// Forms are singletons: each has one instance, made on first use, which may be
// unloaded and made again any number of times. Every form is registered here by
// its name with a factory; the main window's commands reach forms by name, so a
// form's command works as soon as its form is registered.

#include <QString>
#include <QStringList>

#include <functional>
#include <span>

class QMdiArea;
class QWidget;

namespace quillon {

using FormFactory = std::function<QWidget*()>;

// Registers the form `name`; a second registration replaces the first.
void RegisterForm(const QString& name, FormFactory factory);

// A row of a subsystem's table of forms: its name and how it is made.
struct FormRow {
    const char* name;
    FormFactory make;
};
void RegisterForms(std::span<const FormRow> forms);

// The main window, once it is made; dialogs open over it.
QWidget* MainWindow();

// A form that lives as a child window of the main window, or on its own before
// the main window is there.
template <typename Form>
FormRow ChildForm() {
    return {Form::kFormName, [] { return new Form; }};
}
// A dialog over the main window.
template <typename Form>
FormRow DialogForm() {
    return {Form::kFormName, [] { return new Form(MainWindow()); }};
}
bool IsFormRegistered(const QString& name);
// Forgets the form's factory; a loaded instance stays until it is unloaded.
void UnregisterForm(const QString& name);

// The loaded instance of `name`, made now if there is none; nullptr when no
// such form is registered.
QWidget* LoadForm(const QString& name);
// The loaded instance, or nullptr.
QWidget* LoadedForm(const QString& name);
template <typename Form>
Form* LoadForm() {
    return qobject_cast<Form*>(LoadForm(QString::fromLatin1(Form::kFormName)));
}
template <typename Form>
Form* LoadedForm() {
    return qobject_cast<Form*>(LoadedForm(QString::fromLatin1(Form::kFormName)));
}

// Closes the form, which saves what it holds, and discards it. False when the
// form refuses to close; it then stays loaded.
bool UnloadForm(const QString& name);

// Unloads the forms that go before a change of database (UnloadOrder() of
// commands.h), in turn; false when one of them refused.
bool UnloadAllForms();

// The area of the main window in which child windows open.
void SetChildArea(QMdiArea* area);
// The window that frames `form`: its child window in the main window, made now
// if need be, or the form itself when the main window is not open. Move and
// size this one.
QWidget* ChildWindow(QWidget* form);
// Shows `form` as a child window of the main window, in normal state.
void ShowForm(QWidget* form);
// Loads `name` and shows it modally; returns when it has closed.
void ShowModal(const QString& name);
// Centres `dialog` over the window of the loaded form `name`, or over the main
// window when that form isn't loaded.
void CentreOverForm(QWidget* dialog, const QString& name);

}  // namespace quillon
