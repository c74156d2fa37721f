#include "sections/key_routine_filter_gui.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QObject>

namespace quillon {

namespace {

class KeyRoutineFilter : public QObject {
public:
    KeyRoutineFilter(QLineEdit* box, KeyRoutine routine)
        : QObject(box), routine_(std::move(routine)) {
        box->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) {
            return false;
        }
        const auto* press = static_cast<QKeyEvent*>(event);
        const QString text = press->text();
        const bool shortcut = press->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
        if (text.size() != 1 || !text.at(0).isPrint() || shortcut) {
            return false;  // editing keys and shortcuts pass untouched
        }
        int key = text.at(0).unicode();
        routine_(key);
        if (key == text.at(0).unicode()) {
            return false;
        }
        if (key != 0) {
            static_cast<QLineEdit*>(watched)->insert(QString(QChar(key)));
        }
        return true;
    }

private:
    KeyRoutine routine_;
};

}  // namespace

void InstallKeyRoutine(QLineEdit* box, KeyRoutine routine) {
    new KeyRoutineFilter(box, std::move(routine));
}

}  // namespace quillon
