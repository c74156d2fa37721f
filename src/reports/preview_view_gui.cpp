#include "reports/preview_view_gui.h"

#include <QPainter>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace quillon {

namespace {

constexpr int kPageGap = 12;
constexpr double kThumbnailsDown = 3.0;  // a thumbnail is a third of a whole page

}  // namespace

class PreviewPage : public QWidget {
public:
    explicit PreviewPage(PreviewView& view) : QWidget(&view), view_(view) {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Dark));
        const VSPrinterControl& control = view_.control();
        const double scale = view_.Scale();
        for (const PreviewView::Slot& slot : view_.Slots()) {
            painter.fillRect(slot.area, Qt::white);
            painter.save();
            painter.setClipRect(slot.area);
            painter.translate(slot.area.topLeft());
            painter.scale(scale, scale);
            RenderPage(painter, control.Document().pages[slot.pageIndex]);
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

int PreviewView::PagesAcross() const {
    return control_.ZoomMode == zmTwoPages ? 2 : 1;
}

double PreviewView::Scale() const {
    const QSizeF sheet = A4SizeTwips();
    const double width = std::max(1, viewport()->width() - 2 * kPageGap);
    const double height = std::max(1, viewport()->height() - 2 * kPageGap);
    const double fitWidth = width / (sheet.width() * PagesAcross());
    const double fitHeight = height / sheet.height();
    switch (control_.ZoomMode) {
        case zmPercentage: {
            const double dpi = screen() != nullptr ? screen()->logicalDotsPerInch() : 96.0;
            return control_.Zoom / 100.0 * dpi / kTwipsPerInch;
        }
        case zmThumbnail:
            return std::min(fitWidth, fitHeight) / kThumbnailsDown;
        case zmPageWidth:
            return fitWidth;
        case zmStretch:
            return std::max(fitWidth, fitHeight);
        default:  // whole page, two pages
            return std::min(fitWidth, fitHeight);
    }
}

std::vector<PreviewView::Slot> PreviewView::Slots() const {
    const QSizeF sheet = A4SizeTwips() * Scale();
    const double stepX = sheet.width() + kPageGap;
    const double stepY = sheet.height() + kPageGap;
    // Thumbnails show every page, as many to a row as the view holds.
    const bool thumbnails = control_.ZoomMode == zmThumbnail;
    const int first = thumbnails ? 0 : control_.PreviewPage - 1;
    const int count = thumbnails ? control_.PageCount() : PagesAcross();
    const int across = thumbnails
                           ? std::max(1, static_cast<int>((viewport()->width() - kPageGap) / stepX))
                           : PagesAcross();
    std::vector<Slot> slots;
    for (int i = 0; i < count; ++i) {
        const int index = first + i;
        if (index < 0 || index >= control_.PageCount()) {
            continue;
        }
        const QPointF corner(kPageGap + (i % across) * stepX, kPageGap + (i / across) * stepY);
        slots.push_back({index, QRectF(corner, sheet)});
    }
    return slots;
}

void PreviewView::Refresh() {
    QRectF bounds(0, 0, 1, 1);
    for (const Slot& slot : Slots()) {
        bounds = bounds.united(slot.area);
    }
    page_->resize(static_cast<int>(bounds.right() + kPageGap),
                  static_cast<int>(bounds.bottom() + kPageGap));
    page_->update();
}

void PreviewView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Refresh();
}

}  // namespace quillon
