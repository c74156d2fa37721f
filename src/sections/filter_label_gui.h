#pragma once
// A label that answers a click, as the filter boxes of the query screens and
// the month boxes of the year-end list do. A disabled label takes no click.

#include <QLabel>

namespace quillon {

class ClickLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

Q_SIGNALS:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

// A filter box named `name`: a small framed square whose caption is "", "Y"
// or "N", in a fixed-pitch font.
ClickLabel* FilterLabel(const QString& name, QWidget* parent);

}  // namespace quillon
