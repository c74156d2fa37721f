#pragma once
// The row of letter buttons beside a list of names: a click finds the first
// name that begins with the letter.

#include <QString>

#include <array>
#include <functional>

class QGridLayout;
class QListWidget;
class QPushButton;
class QWidget;

namespace quillon {

constexpr int kAlphabetLetters = 26;
using LetterButtons = std::array<QPushButton*, kAlphabetLetters>;

// Makes the buttons "A" to "Z" of `form`, named `name` with their index,
// "cmdSeek(0)" to "cmdSeek(25)", in rows of 13; a click calls `clicked` with
// the index.
QGridLayout* MakeLetterButtons(QWidget* form, const QString& name, LetterButtons& buttons,
                               const std::function<void(int)>& clicked);

// The first row of `list` whose text begins with `letter`, whatever its case,
// or -1.
int FirstEntryBeginningWith(const QListWidget* list, QChar letter);

// What a letter button finds: the row of the first entry that begins with
// letter `index` ("A" being 0), or, when there is none, -1 after telling
// `noMatch` and the letter under `title`.
int RowForLetter(const QListWidget* list, int index, const QString& noMatch,
                 const QString& title = QString());

// A dialog that picks a name: its list with the letter bar "cm3Seek" above it,
// and OK (the default, off until a name is chosen) and Cancel below.
struct NamePick {
    QListWidget* list;
    QPushButton* ok;
    QPushButton* cancel;
};
NamePick MakeNamePick(QWidget* dialog, const QString& listName, LetterButtons& letters,
                      const std::function<void(int)>& letterClicked);

}  // namespace quillon
