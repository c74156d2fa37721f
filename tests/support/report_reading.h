#pragma once
// Reading a report back: the operations of a page as lines of text, and the
// words and greys of a PDF file as poppler sees them.

#include "reports/page_document.h"

#include <QImage>
#include <QMap>
#include <QMultiMap>
#include <QRectF>
#include <QStringList>

namespace quillon::testing {

// One line for each operation on the page: its kind, points in twips, then its
// text, pen, fill or font.
QStringList Operations(const ReportPage& page);
// The operations of every page of `document`, each page under "page" and its number.
QStringList Operations(const PageDocument& document);

// The words of page `page` of a PDF file, boxes in mm from the sheet's corner.
QMultiMap<QString, QRectF> Words(const QString& pdf, int page = 1);

// The document title a PDF file carries.
QString PdfTitle(const QString& pdf);
// Each font a PDF file uses, and whether the file embeds it.
QMap<QString, bool> PdfFonts(const QString& pdf);

// The greys of a PDF file's first page rendered at 254 dpi, where a pixel is
// 0.1 mm.
QImage Rendered(const QString& pdf);

}  // namespace quillon::testing
