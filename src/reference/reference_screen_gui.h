#pragma once
// What the tax offices and dividends screens share: a list of names with its
// letter buttons beside the details of the entry selected, the buttons New,
// Rename, Delete, Save and Close, the tick that asks for updates, and the two
// timers by which the New and Rename dialogs hand back. The details are saved
// whenever the screen is left: another entry selected, the screen
// deactivated or unloaded; a screen may refuse to be left, and then stays.
//
// A screen is described by a ReferenceTexts row and adds its own details.

#include "platform/letter_buttons_gui.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <exception>
#include <initializer_list>

class QCheckBox;
class QListWidget;
class QMdiSubWindow;
class QPushButton;
class QTimer;

namespace quillon {

struct ReferenceTexts {
    const char* form;
    const char* title;     // of its messages
    const char* list;      // the list's name
    const char* noLetter;  // the message when no entry begins with a letter
    const char* updateTip;
    bool* updateSetting;  // what the tick sets
};

class ReferenceScreen : public QWidget {
    Q_OBJECT

public:
    // True from loading until the first activation; the tick then sets nothing.
    bool Loading = true;

    // cm3Seek(0) to cm3Seek(25): "A" to "Z".
    LetterButtons cm3Seek{};
    QPushButton* cm3New = nullptr;
    QPushButton* cm3Rename = nullptr;
    QPushButton* cm3Delete = nullptr;
    QPushButton* cm3Save = nullptr;
    QPushButton* cm3Close = nullptr;
    QCheckBox* chkUpdate = nullptr;
    // At rest until a dialog starts one; each runs once.
    QTimer* tmrNew = nullptr;
    QTimer* tmrRename = nullptr;

    // Selects the first entry beginning with the letter of button `index` and
    // brings it to the top of the list.
    void cm3Seek_Click(int index);

    // The text of the entry selected, or empty; its row, or -1.
    QString SelectedEntry() const;
    int SelectedRow() const;

protected:
    ReferenceScreen(const ReferenceTexts& texts, QWidget* parent);

    QListWidget* List() const { return list_; }
    QString Title() const;

    // Places the parts: `top` above the letters, `belowList` under the list,
    // `details` beside it and `extraButtons` at the left of the buttons' row.
    void Arrange(QWidget* top, QWidget* belowList, QWidget* details,
                 std::initializer_list<QWidget*> extraButtons);

    // Selects entry `row` as a click does: the screen shows it.
    void SelectEntry(int row);
    // Selects the first entry whose text is `entry`; false when there is none.
    bool SelectEntryText(const QString& entry);
    // The row of the first entry whose text is `entry`, or -1.
    int RowOf(const QString& entry) const;
    // Takes the selected entry out of the list, clears the details and selects
    // the entry now at its place, or the new last.
    void RemoveSelectedEntry();

    // Shows the failure under the screen's title, from `procedure` of `module`.
    void Report(const QString& module, const QString& procedure, const std::exception& error) const;

    // The click on an entry: save what is shown, then show the entry.
    virtual void ListClick() = 0;
    // Empties the details, when what they showed is gone.
    virtual void ClearShown() = 0;
    virtual void Form_Activate();
    // False when the screen refuses to be left; it is then brought back.
    virtual bool Form_Deactivate() = 0;
    // True when the unload is cancelled.
    virtual bool Form_Unload() = 0;

    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void SubWindowActivated(QMdiSubWindow* window);

    const ReferenceTexts& texts_;
    QListWidget* list_ = nullptr;
    QPointer<QMdiSubWindow> frame_;
    bool active_ = false;
    bool bringingBack_ = false;
    bool unloaded_ = false;
};

}  // namespace quillon
