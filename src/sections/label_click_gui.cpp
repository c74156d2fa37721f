#include "sections/label_click_gui.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>

namespace quillon {

namespace {

class LabelClick : public QObject {
public:
    LabelClick(QLabel* label, std::function<void()> click)
        : QObject(label), click_(std::move(click)) {
        label->setCursor(Qt::PointingHandCursor);
        label->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* label = static_cast<QLabel*>(watched);
        if (event->type() == QEvent::MouseButtonPress) {
            pressed_ = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        } else if (event->type() == QEvent::MouseButtonRelease && pressed_) {
            pressed_ = false;
            // As with a button, letting go outside the label is no click.
            const auto* release = static_cast<QMouseEvent*>(event);
            if (release->button() == Qt::LeftButton &&
                label->rect().contains(release->position().toPoint())) {
                click_();
            }
        }
        return false;
    }

private:
    std::function<void()> click_;
    bool pressed_ = false;
};

}  // namespace

void ConnectClick(QLabel* label, std::function<void()> click) {
    new LabelClick(label, std::move(click));
}

}  // namespace quillon
