#pragma once
// Lays its items out in rows, left to right, starting a new row where the next
// item would not fit: a toolbar that wraps instead of hiding buttons.

#include <QLayout>
#include <QList>

namespace quillon {

class FlowLayout : public QLayout {
public:
    explicit FlowLayout(QWidget* parent, int spacing);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    // Places the items in `rect` (only measures when `place` is false) and
    // returns the height used.
    int placeItems(const QRect& rect, bool place) const;

    QList<QLayoutItem*> items_;
};

}  // namespace quillon
