#pragma once
// Looking into the tax offices and dividends files behind the screens' backs,
// the dialogs those screens open modally, and pictures of the screens.

#include <QString>
#include <QStringList>

#include <functional>

class QListWidget;
class QWidget;

namespace quillon::testing {

// Every row of `table` as its `fields` joined by "|", a Null as "~", in the
// order of index `index`, or in stored order without one.
QStringList Lines(const QString& path, const QString& table, const QStringList& fields,
                  const QString& index = QString());
// Makes the one row of the file's table `Version` hold `version`.
void SetVersion(const QString& path, const QString& version);

// Types `number` and `name` into the tax office dialog that `open` shows, and
// presses OK.
void OfficeDialogOK(const std::function<void()>& open, const QString& number, const QString& name);

QStringList Entries(const QListWidget* list);
// A click with the mouse on entry `row`.
void ClickEntry(QListWidget* list, int row);

// Renders the child window that frames `form` into docs/screenshots/`name`.
void SaveScreenshot(QWidget* form, const QString& name);

}  // namespace quillon::testing
