#include "platform/letter_buttons_gui.h"

#include "platform/services.h"
#include "platform/widgets_gui.h"

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {
constexpr int kLettersPerRow = 13;
}

QGridLayout* MakeLetterButtons(QWidget* form, const QString& name, LetterButtons& buttons,
                               const std::function<void(int)>& clicked) {
    auto* letters = new QGridLayout;
    letters->setSpacing(1);
    for (int i = 0; i < kAlphabetLetters; ++i) {
        QPushButton* button = Named<QPushButton>(QStringLiteral("%1(%2)").arg(name).arg(i),
                                                 QString(QChar(u'A' + i)), form);
        button->setFixedWidth(button->fontMetrics().horizontalAdvance(QStringLiteral("WW")) + 8);
        letters->addWidget(button, i / kLettersPerRow, i % kLettersPerRow);
        QObject::connect(button, &QPushButton::clicked, form, [clicked, i] { clicked(i); });
        buttons[i] = button;
    }
    return letters;
}

int RowForLetter(const QListWidget* list, int index, const QString& noMatch, const QString& title) {
    const QChar letter(u'A' + index);
    const int row = FirstEntryBeginningWith(list, letter);
    if (row < 0) {
        MsgBox(noMatch + letter, vbExclamation, title);
    }
    return row;
}

int FirstEntryBeginningWith(const QListWidget* list, QChar letter) {
    for (int row = 0; row < list->count(); ++row) {
        const QString text = list->item(row)->text();
        if (!text.isEmpty() && text.at(0).toUpper() == letter.toUpper()) {
            return row;
        }
    }
    return -1;
}

NamePick MakeNamePick(QWidget* dialog, const QString& listName, LetterButtons& letters,
                      const std::function<void(int)>& letterClicked) {
    NamePick pick{Named<QListWidget>(listName, dialog),
                  Named<QPushButton>(QStringLiteral("cm3OK"), QObject::tr("OK"), dialog),
                  Named<QPushButton>(QStringLiteral("cm3Cancel"), QObject::tr("Cancel"), dialog)};
    pick.ok->setEnabled(false);
    pick.ok->setDefault(true);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(MakeLetterButtons(dialog, QStringLiteral("cm3Seek"), letters, letterClicked));
    layout->addWidget(pick.list, 1);
    AddButtonRow(layout, {pick.ok, pick.cancel});
    return pick;
}

}  // namespace quillon
