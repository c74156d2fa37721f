#include "reports/key_filter_gui.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace quillon {

void CharacterFilter::Install(QLineEdit* box, const QString& allowed) {
    new CharacterFilter(box, allowed, false);
}

void CharacterFilter::InstallRefusing(QLineEdit* box, const QString& refused) {
    new CharacterFilter(box, refused, true);
}

CharacterFilter::CharacterFilter(QLineEdit* box, const QString& characters, bool refusing)
    : QObject(box), box_(box), characters_(characters), refusing_(refusing) {
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, &CharacterFilter::DropRefusedCharacters);
}

bool CharacterFilter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        const bool printable = !text.isEmpty() && text.at(0).isPrint();
        const bool shortcut = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
        if (printable && !shortcut && !Accepts(text.at(0))) {
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool CharacterFilter::Accepts(QChar c) const {
    return characters_.contains(c) != refusing_;
}

void CharacterFilter::DropRefusedCharacters() {
    QString kept;
    for (const QChar c : box_->text()) {
        if (Accepts(c)) {
            kept.append(c);
        }
    }
    if (kept != box_->text()) {
        box_->setText(kept);
    }
}

}  // namespace quillon
