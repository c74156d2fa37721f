#include "reports/preview_view_gui.h"

#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QWidget>

#include <algorithm>

namespace quillon {

namespace {

constexpr int kPageGap = 12;

bool ShowsTwoPages(int mode) {
    return mode == zmTwoPages;
}

}  // namespace

class PreviewPage : public QWidget {
public:
    explicit PreviewPage(PreviewView& view) : QWidget(&view), view_(view) {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Dark));
        VSPrinterControl& control = view_.control();
        const int pages = ShowsTwoPages(control.ZoomMode) ? 2 : 1;
        const double scale = view_.Scale();
        const QSizeF sheet = A4SizeTwips() * scale;
        for (int i = 0; i < pages; ++i) {
            const int index = control.PreviewPage - 1 + i;
            if (index < 0 || index >= control.PageCount()) {
                continue;
            }
            const QRectF area(kPageGap + i * (sheet.width() + kPageGap), kPageGap, sheet.width(),
                              sheet.height());
            painter.fillRect(area, Qt::white);
            painter.save();
            painter.setClipRect(area);
            painter.translate(area.topLeft());
            painter.scale(scale, scale);
            RenderPage(painter, control.Document().pages[index]);
            painter.restore();
        }
    }

private:
    PreviewView& view_;
};

PreviewView::PreviewView(VSPrinterControl& control, QWidget* parent)
    : QScrollArea(parent), control_(control), page_(new PreviewPage(*this)) {
    setWidget(page_);
    setWidgetResizable(false);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

double PreviewView::Scale() const {
    const QSizeF sheet = A4SizeTwips();
    const double pages = ShowsTwoPages(control_.ZoomMode) ? 2.0 : 1.0;
    const double width = std::max(1, viewport()->width() - 2 * kPageGap);
    const double height = std::max(1, viewport()->height() - 2 * kPageGap);
    const double fitWidth = width / (sheet.width() * pages);
    const double fitHeight = height / sheet.height();
    switch (control_.ZoomMode) {
        case zmPercentage: {
            const double dpi = screen() != nullptr ? screen()->logicalDotsPerInch() : 96.0;
            return control_.Zoom / 100.0 * dpi / kTwipsPerInch;
        }
        case zmThumbnail:
            return std::min(fitWidth, fitHeight) / 3.0;
        case zmPageWidth:
            return fitWidth;
        case zmStretch:
            return std::max(fitWidth, fitHeight);
        default:  // whole page, two pages
            return std::min(fitWidth, fitHeight);
    }
}

void PreviewView::Refresh() {
    const double scale = Scale();
    const double pages = ShowsTwoPages(control_.ZoomMode) ? 2.0 : 1.0;
    const QSizeF sheet = A4SizeTwips() * scale;
    page_->resize(static_cast<int>(sheet.width() * pages + (pages + 1) * kPageGap),
                  static_cast<int>(sheet.height() + 2 * kPageGap));
    page_->update();
}

void PreviewView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Refresh();
}

}  // namespace quillon
