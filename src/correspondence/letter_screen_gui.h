#pragma once
// The screens that compose a letter heading: a list to pick the receiver from,
// the heading to edit, Copy to put it on the clipboard, and Standard Letter to
// open a letter in the word processor, where the user pastes it.

#include "platform/letter_buttons_gui.h"

#include <QWidget>

class QBoxLayout;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace quillon {

struct LetterTexts {
    const char* formName;
    const char* caption;
    const char* listName;
    const char* seekName;  // the letter buttons' name
    const char* noMatch;
    const char* noMatchTitle;
    qint16 letterKind;
};

class LetterScreen : public QWidget {
    Q_OBJECT

public:
    QPlainTextEdit* txtHeading = nullptr;
    LetterButtons seekButtons{};
    QPushButton* cm3Copy = nullptr;
    QPushButton* cm3Letter = nullptr;
    QPushButton* cm3Close = nullptr;

    void cm3Copy_Click();
    void cm3Letter_Click();

protected:
    LetterScreen(const LetterTexts& texts, QWidget* parent);
    QListWidget* List() const { return list_; }
    // Where a screen puts its choices beside the list.
    QBoxLayout* ChoicesArea() const { return choices_; }
    // Shows a heading for the entry clicked.
    virtual void ListClicked() = 0;
    void ShowHeading(const QString& heading);
    // Fills the list, telling a failure as `procedure` under `title`.
    void FillList(const QString& procedure, const char* title,
                  const std::function<QStringList()>& entries);
    // Tells a failure as `procedure` under `title`, in this screen's name.
    void Report(const QString& procedure, const std::exception& error, const char* title);

private:
    void SeekLetter(int index);

    const LetterTexts& texts_;
    QListWidget* list_ = nullptr;
    QBoxLayout* choices_ = nullptr;
};

}  // namespace quillon
