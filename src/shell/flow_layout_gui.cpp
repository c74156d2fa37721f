#include "shell/flow_layout_gui.h"

#include <QWidget>

#include <algorithm>

namespace quillon {

FlowLayout::FlowLayout(QWidget* parent, int spacing) : QLayout(parent) {
    setSpacing(spacing);
}

FlowLayout::~FlowLayout() {
    while (QLayoutItem* item = takeAt(0)) {
        delete item;
    }
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.append(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < items_.size() ? items_.at(index) : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return placeItems(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_) {
        size = size.expandedTo(item->minimumSize());
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize FlowLayout::sizeHint() const {
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    placeItems(rect, true);
}

int FlowLayout::placeItems(const QRect& rect, bool place) const {
    const QRect area = rect.marginsRemoved(contentsMargins());
    int x = area.x();
    int y = area.y();
    int rowHeight = 0;
    for (QLayoutItem* item : items_) {
        if (item->isEmpty()) {
            continue;
        }
        const QSize size = item->sizeHint();
        if (x + size.width() > area.right() + 1 && rowHeight > 0) {
            x = area.x();
            y += rowHeight + spacing();
            rowHeight = 0;
        }
        if (place) {
            item->setGeometry(QRect(QPoint(x, y), size));
        }
        x += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    const QMargins margins = contentsMargins();
    return y + rowHeight - rect.y() + margins.bottom();
}

}  // namespace quillon
