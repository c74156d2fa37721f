#include "sections/money_box_gui.h"

#include "sections/key_routine_filter_gui.h"
#include "sections/section_screen_gui.h"

#include <QEvent>
#include <QFont>
#include <QLineEdit>

namespace quillon {

MoneyBox::MoneyBox(QLineEdit* box, std::function<void()> left)
    : QObject(box), box_(box), left_(std::move(left)) {
    UseMoneyFont(box);
    // A full box takes no key, a selection notwithstanding, as it always has:
    // a figure is emptied before it is typed anew.
    InstallKeyRoutine(box, [box](int& key) { MoneyKeyFilter(box->text(), key); });
    box->installEventFilter(this);
}

Currency MoneyBox::Value() const {
    return Currency::FromText(box_->text());
}

void MoneyBox::FinishTyping() {
    if (box_->hasFocus() && box_->isModified()) {
        Left();
    }
}

// Every leaving rewrites the text, typed in or not: a bracketed figure reads
// as nothing, so leaving it a second time empties the box.
void MoneyBox::Left() {
    box_->setText(MoneyText(Value()));
    if (left_) {
        left_();
    }
}

bool MoneyBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_ && event->type() == QEvent::FocusOut && FocusMovedByUser(event)) {
        Left();
    }
    return QObject::eventFilter(watched, event);
}

void UseMoneyFont(QLineEdit* box) {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSizeF(box->font().pointSizeF());
    box->setFont(font);
}

}  // namespace quillon
