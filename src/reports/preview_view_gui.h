#pragma once
// The page area of the preview: paints the document control's current page at
// its zoom, two pages side by side, or every page as a thumbnail.

#include "reports/vsprinter_control.h"

#include <QScrollArea>

#include <vector>

namespace quillon {

class PreviewPage;

class PreviewView : public QScrollArea {
    Q_OBJECT

public:
    explicit PreviewView(VSPrinterControl& control, QWidget* parent = nullptr);
    VSPrinterControl& control() { return control_; }
    // Lays the page out again after the control's page, zoom or mode changed.
    void Refresh();
    // Screen pixels per twip at the control's zoom and the view's size.
    double Scale() const;

    // A page to paint and where, in the page area's pixels.
    struct Slot {
        int pageIndex;
        QRectF area;
    };
    std::vector<Slot> Slots() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int PagesAcross() const;

    VSPrinterControl& control_;
    PreviewPage* page_;
};

}  // namespace quillon
