#include "reports/page_document.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

namespace quillon {

QColor ToQColor(ReportColour colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QString ResolveFontFamily(const QString& name) {
    const QString key = name.trimmed();
    if (key.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0) {
        return QStringLiteral("Liberation Sans");
    }
    if (key.compare(QLatin1String("Times New Roman"), Qt::CaseInsensitive) == 0) {
        return QStringLiteral("Liberation Serif");
    }
    if (key.compare(QLatin1String("Courier New"), Qt::CaseInsensitive) == 0) {
        return QStringLiteral("Liberation Mono");
    }
    return key;
}

QFont MakeReportFont(const QString& name, double points, bool bold, bool italic, bool underline) {
    QFont font(ResolveFontFamily(name));
    // Twips are the painter's units, so the size in pixels is the size in twips.
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(points * kTwipsPerPoint))));
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    // Unhinted outlines keep measured widths equal on screen, paper and PDF.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::ForceOutline);
    return font;
}

const QFont& ReportFontCache::Get(const QString& name, double points, bool bold, bool italic,
                                  bool underline) {
    const QString key =
        QStringLiteral("%1|%2|%3%4%5").arg(name).arg(points).arg(bold).arg(italic).arg(underline);
    if (key != key_) {
        font_ = MakeReportFont(name, points, bold, italic, underline);
        key_ = key;
    }
    return font_;
}

void PageDocument::Clear() {
    pages.clear();
}

ReportPage& PageDocument::CurrentPage() {
    if (pages.empty()) {
        AddPage();
    }
    return pages.back();
}

void PageDocument::AddPage() {
    pages.emplace_back();
}

void PageDocument::MovePage(int from, int to) {
    const int count = PageCount();
    if (from < 0 || from >= count || to < 0 || to >= count || from == to) {
        return;
    }
    ReportPage moved = std::move(pages[from]);
    pages.erase(pages.begin() + from);
    pages.insert(pages.begin() + to, std::move(moved));
}

QSizeF A4SizeTwips() {
    return {kA4WidthMm * kTwipsPerMm, kA4HeightMm * kTwipsPerMm};
}

namespace {

QPen MakePen(const ReportPen& pen) {
    QPen result(ToQColor(pen.colour));
    result.setWidthF(pen.width);  // 0 is Qt's cosmetic hairline, the thinnest
    result.setCapStyle(Qt::SquareCap);
    result.setJoinStyle(Qt::MiterJoin);
    return result;
}

struct OpPainter {
    QPainter& painter;

    void operator()(const LineOp& op) const {
        painter.setPen(MakePen(op.pen));
        painter.drawLine(op.from, op.to);
    }
    void operator()(const RectangleOp& op) const {
        painter.setPen(MakePen(op.pen));
        painter.setBrush(op.filled ? QBrush(ToQColor(op.fill)) : QBrush(Qt::NoBrush));
        painter.drawRect(op.rect.normalized());
    }
    void operator()(const CircleOp& op) const {
        painter.setPen(MakePen(op.pen));
        painter.setBrush(QBrush(ToQColor(op.fill)));
        painter.drawEllipse(op.centre, op.radius, op.radius);
    }
    void operator()(const TextOp& op) const {
        painter.setFont(op.font);
        painter.setPen(ToQColor(op.colour));
        const QFontMetricsF metrics(op.font);
        painter.drawText(QPointF(op.topLeft.x(), op.topLeft.y() + metrics.ascent()), op.text);
    }
    void operator()(const TextBoxOp& op) const {
        painter.setFont(op.font);
        painter.setPen(ToQColor(op.colour));
        painter.drawText(op.rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, op.text);
    }
};

}  // namespace

void RenderPage(QPainter& painter, const ReportPage& page) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const OpPainter draw{painter};
    for (const DrawOp& op : page.ops) {
        std::visit(draw, op);
    }
    painter.restore();
}

bool WritePdf(const PageDocument& document, const QString& path, const QList<int>& pageIndexes) {
    QPdfWriter writer(path);
    writer.setResolution(static_cast<int>(kTwipsPerInch));
    writer.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    writer.setTitle(document.name);
    writer.setCreator(QStringLiteral("Quillon"));
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    bool first = true;
    for (const int index : pageIndexes) {
        if (index < 0 || index >= document.PageCount()) {
            continue;
        }
        if (!first) {
            writer.newPage();
        }
        first = false;
        RenderPage(painter, document.pages[index]);
    }
    return painter.end();
}

bool WritePdf(const PageDocument& document, const QString& path) {
    QList<int> all;
    for (int i = 0; i < document.PageCount(); ++i) {
        all.append(i);
    }
    return WritePdf(document, path, all);
}

}  // namespace quillon
