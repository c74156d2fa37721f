#pragma once
// A drawn document as pages of drawing operations in control units (twips,
// 1440 to the inch) measured from the top left corner of an A4 sheet. The
// same pages are painted to the preview, to a printer and to a PDF file.

#include <QColor>
#include <QFont>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <variant>
#include <vector>

class QPainter;

namespace quillon {

// A colour as the report routines pass it: red + green * 256 + blue * 65536.
using ReportColour = qint32;

constexpr ReportColour RgbColour(int red, int green, int blue) {
    return red + green * 256 + blue * 65536;
}
QColor ToQColor(ReportColour colour);

constexpr double kTwipsPerInch = 1440.0;
constexpr double kTwipsPerMm = kTwipsPerInch / 25.4;
constexpr double kTwipsPerPoint = 20.0;
constexpr double kA4WidthMm = 210.0;
constexpr double kA4HeightMm = 297.0;

// Font family for a report font name: the metric-compatible free fonts stand
// in for the Windows ones, so that widths and line breaks keep.
QString ResolveFontFamily(const QString& name);
// The font for text of `points` in a painter whose units are twips.
QFont MakeReportFont(const QString& name, double points, bool bold, bool italic,
                     bool underline = false);

// Keeps the last report font made: text comes mostly in runs of one font, and
// making a font is not free.
class ReportFontCache {
public:
    const QFont& Get(const QString& name, double points, bool bold, bool italic, bool underline);

private:
    QFont font_;
    QString key_;
};

// Pen width 0 is the thinnest line the device draws; style 0 is solid.
struct ReportPen {
    ReportColour colour = 0;
    double width = 0;
};

struct LineOp {
    QPointF from;
    QPointF to;
    ReportPen pen;
};
struct RectangleOp {
    QRectF rect;
    ReportPen pen;
    bool filled = false;
    ReportColour fill = 0;
};
struct CircleOp {
    QPointF centre;
    double radius = 0;
    ReportPen pen;
    ReportColour fill = 0;
};
// Text whose top left corner is `topLeft`.
struct TextOp {
    QPointF topLeft;
    QString text;
    QFont font;
    ReportColour colour = 0;
};
// Text wrapped at word boundaries inside `rect`.
struct TextBoxOp {
    QRectF rect;
    QString text;
    QFont font;
    ReportColour colour = 0;
};
using DrawOp = std::variant<LineOp, RectangleOp, CircleOp, TextOp, TextBoxOp>;

struct ReportPage {
    std::vector<DrawOp> ops;
};

class PageDocument {
public:
    QString name;
    std::vector<ReportPage> pages;

    int PageCount() const { return static_cast<int>(pages.size()); }
    void Clear();
    // The page drawing goes to; one is made when the document has none.
    ReportPage& CurrentPage();
    void AddPage();
    // Moves the page at index `from` to index `to` (both from 0).
    void MovePage(int from, int to);
};

QSizeF A4SizeTwips();
// Paints `page` on `painter`, whose user units must be twips.
void RenderPage(QPainter& painter, const ReportPage& page);
// Writes the pages at `pageIndexes` (from 0), in that order, as an A4 PDF file.
// Returns false when the file cannot be written.
bool WritePdf(const PageDocument& document, const QString& path, const QList<int>& pageIndexes);
bool WritePdf(const PageDocument& document, const QString& path);

}  // namespace quillon
