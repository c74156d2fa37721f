#include "platform/letter_buttons_gui.h"

#include "platform/widgets_gui.h"

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

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

int FirstEntryBeginningWith(const QListWidget* list, QChar letter) {
    for (int row = 0; row < list->count(); ++row) {
        const QString text = list->item(row)->text();
        if (!text.isEmpty() && text.at(0).toUpper() == letter.toUpper()) {
            return row;
        }
    }
    return -1;
}

}  // namespace quillon
