#include "sections/filter_label_gui.h"

#include "platform/widgets_gui.h"

#include <QMouseEvent>

namespace quillon {

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        Q_EMIT clicked();
    }
}

ClickLabel* FilterLabel(const QString& name, QWidget* parent) {
    auto* label = Named<ClickLabel>(name, parent);
    QFont font(QStringLiteral("Courier New"));
    font.setBold(true);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::Box);
    const int side = label->fontMetrics().height() + 4;
    label->setFixedSize(side, side);
    label->setCursor(Qt::PointingHandCursor);
    label->setToolTip(QObject::tr("Click for Y, again for N, again for no filter"));
    return label;
}

}  // namespace quillon
