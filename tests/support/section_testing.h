#pragma once
// A client database with a few clients, the main window over it, and the means
// to read and change rows behind the screens' backs, for the tests of the
// section screens.

#include "data/client_rows.h"
#include "support/program_folder_copy.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class QLineEdit;
class QWidget;

namespace quillon {
class frmPersonal;
class SectionScreen;
}  // namespace quillon

namespace quillon::testing {

// The clients the section tests work with, in name order.
inline const ClientName kAda{QStringLiteral("Ada"), QStringLiteral("Lovell")};
inline const ClientName kBert{QStringLiteral("Bert"), QStringLiteral("Mason")};
inline const ClientName kCora{QStringLiteral("Cora"), QStringLiteral("Nash")};

inline const QString kPersonal = QStringLiteral("Personal");
inline const QString kShortDateMessage =
    QStringLiteral("Invalid date - you must enter dates in the format dd/mm/yy");

// The program folder holds a client database with `clients` in every client
// table, the first of them current, and the main window is open on it.
class SectionWorld {
public:
    explicit SectionWorld(const QList<ClientName>& clients);
    ~SectionWorld();
    SectionWorld(const SectionWorld&) = delete;
    SectionWorld& operator=(const SectionWorld&) = delete;

    QString DatabasePath() const;
    QWidget* MainWindow() const;

private:
    ProgramFolderCopy folder_;
};

// A field of a client's row, read through a connection of its own.
QVariant FieldOf(const QString& table, const ClientName& client, const QString& field);
// Sets fields of a client's row through a connection of its own.
void SetFields(const QString& table, const ClientName& client,
               const QList<QPair<QString, QVariant>>& values);
// A field of the `Common` row `name`.
QVariant CommonField(const QString& name, const QString& field);

// Activates the child window that holds `form`, as a click on it would.
void ActivateChild(QWidget* form);
// A plain child window of the main window, standing for any other screen.
QWidget* OtherChildWindow();

// Runs a main window command, as a click on its button or menu item.
void Trigger(const QString& command);
// The section screen that `command` opens, opened from the main window.
SectionScreen* OpenSection(const QString& command);
// The personal section, opened from the main window as a user would.
frmPersonal* OpenPersonal();
// A click with the mouse, as a user makes it, at the middle of `widget`, or
// on the box of a tick or option.
void Click(QWidget* widget);

// Runs `open`, which shows a modal window, and hands it to `use`; then closes it.
void WithModal(const std::function<void()>& open, const std::function<void(QWidget*)>& use);

// Gives `box` the focus, replaces its text as typed, and leaves it with Tab.
void TypeInto(QLineEdit* box, const QString& text);
void Focus(QWidget* widget);
// Moves the focus out of `box` to the next control, as Tab does.
void Leave(QWidget* box);

}  // namespace quillon::testing
