#pragma once
// The screens that pick names from a list to merge or print: the list with its
// count and the count selected, the letter buttons, a help box, and room for a
// screen's own options and command. A screen says what differs in a
// PickerTexts and lists its names in LoadEntries.

#include "data/data_access.h"
#include "platform/letter_buttons_gui.h"

#include <QStringList>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;

namespace quillon {

struct PickerTexts {
    const char* formName;
    const char* caption;
    const char* listName;     // "lstClients" or "lstOffices"
    const char* countSuffix;  // " clients" or " offices"
    const char* noMatch;      // told with the letter after it
    const char* noMatchTitle;
    const char* helpTitle;
    QStringList helpLines;
    const char* errorTitle;  // of the list load's error report
};

class NamePicker : public QWidget {
    Q_OBJECT

public:
    QListWidget* List() const { return list_; }
    QLabel* pnlCount = nullptr;
    QLabel* pnlSelected = nullptr;
    LetterButtons cm3Seek{};
    QPushButton* cm3Help = nullptr;
    QPushButton* cm3Close = nullptr;

    // The texts of the selected entries in list order.
    QStringList SelectedEntries() const;
    void cm3Seek_Click(int index);
    void cm3Help_Click();

protected:
    NamePicker(const PickerTexts& texts, QWidget* parent);
    // Fills the list; call at the end of the screen's constructor.
    void Form_Load();
    // The entries of the list, in order; throws what the database throws.
    virtual QStringList LoadEntries() = 0;
    // Where a screen adds its options above its command buttons.
    QBoxLayout* OptionsArea() const { return options_; }
    // Adds the screen's command between Help and Close.
    void AddCommand(QPushButton* command);
    // The frame "Address" with `optAddress` "Personal" and "Business", kept
    // in `setting` at each click.
    void AddAddressChoice(qint16& setting);
    // Tells a failure of `procedure` in the picker's way, under `title`.
    void ReportFailure(const QString& procedure, const ErrorDetails& error, const char* title);

private:
    void ShowSelectedCount();

    const PickerTexts& texts_;
    QListWidget* list_ = nullptr;
    QBoxLayout* options_ = nullptr;
    QBoxLayout* buttons_ = nullptr;
};

// Shows "PROCESSING DATABASE RECORD " and `number` in the main window's status
// bar and lets the window paint.
void ShowRecordProgress(int number);

// The help lines of the pickers, each told for "a client" or "an office".
QStringList PickerHelp(bool offices, const QString& lastLine);

}  // namespace quillon
