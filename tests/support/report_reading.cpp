#include "support/report_reading.h"

#include <QColor>
#include <QFont>
#include <QProcess>
#include <QRegularExpression>

namespace quillon::testing {

QStringList Operations(const ReportPage& page) {
    const auto at = [](QPointF p) { return QString::asprintf(" %.2f,%.2f", p.x(), p.y()); };
    const auto pen = [](const ReportPen& p) {
        return QString::asprintf(" pen %.2f ", p.width) + ToQColor(p.colour).name();
    };
    const auto fill = [](ReportColour colour) { return " fill " + ToQColor(colour).name(); };
    const auto font = [](const QFont& f) {
        return QStringLiteral(" %1 %2%3%4%5")
            .arg(f.family())
            .arg(f.pixelSize())
            .arg(f.bold() ? " bold" : "", f.italic() ? " italic" : "",
                 f.underline() ? " underlined" : "");
    };
    QStringList lines;
    for (const DrawOp& op : page.ops) {
        if (const auto* o = std::get_if<LineOp>(&op)) {
            lines << "line" + at(o->from) + at(o->to) + pen(o->pen);
        } else if (const auto* o = std::get_if<RectangleOp>(&op)) {
            lines << "box" + at(o->rect.topLeft()) + at(o->rect.bottomRight()) + pen(o->pen) +
                         (o->filled ? fill(o->fill) : QString());
        } else if (const auto* o = std::get_if<CircleOp>(&op)) {
            lines << "disc" + at(o->centre) + QString::asprintf(" r %.2f", o->radius) +
                         pen(o->pen) + fill(o->fill);
        } else if (const auto* o = std::get_if<TextOp>(&op)) {
            lines << "text" + at(o->topLeft) + " \"" + o->text + '"' + font(o->font) +
                         fill(o->colour);
        } else if (const auto* o = std::get_if<TextBoxOp>(&op)) {
            lines << "textbox" + at(o->rect.topLeft()) + at(o->rect.bottomRight()) + " \"" +
                         o->text + '"' + font(o->font) + fill(o->colour);
        }
    }
    return lines;
}

QStringList Operations(const PageDocument& document) {
    QStringList lines;
    for (int page = 0; page < document.PageCount(); ++page) {
        lines << QStringLiteral("page %1").arg(page + 1) << Operations(document.pages.at(page));
    }
    return lines;
}

QMultiMap<QString, QRectF> Words(const QString& pdf, int page) {
    QProcess text;
    const QString number = QString::number(page);
    text.start(QStringLiteral("pdftotext"),
               {QStringLiteral("-bbox"), QStringLiteral("-f"), number, QStringLiteral("-l"), number,
                pdf, QStringLiteral("-")});
    text.waitForFinished();
    static const QRegularExpression word(QStringLiteral(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)<)re"));
    QMultiMap<QString, QRectF> words;
    for (auto it = word.globalMatch(QString::fromUtf8(text.readAllStandardOutput()));
         it.hasNext();) {
        const auto m = it.next();
        const auto mm = [&m](int i) { return m.captured(i).toDouble() * 25.4 / 72; };
        words.insert(m.captured(5).replace(QStringLiteral("&amp;"), QStringLiteral("&")),
                     QRectF(QPointF(mm(1), mm(2)), QPointF(mm(3), mm(4))));
    }
    return words;
}

namespace {

QString ToolOutput(const QString& tool, const QString& pdf) {
    QProcess process;
    process.start(tool, {pdf});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

}  // namespace

QString PdfTitle(const QString& pdf) {
    static const QRegularExpression title(QStringLiteral("^Title: *(.*)$"),
                                          QRegularExpression::MultilineOption);
    return title.match(ToolOutput(QStringLiteral("pdfinfo"), pdf)).captured(1);
}

QMap<QString, bool> PdfFonts(const QString& pdf) {
    QMap<QString, bool> fonts;
    // Under two lines of headings, a line a font, whose last five columns are
    // emb, sub, uni and the object's number and generation.
    const QString listed = ToolOutput(QStringLiteral("pdffonts"), pdf);
    for (const QString& line : listed.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(2)) {
        const QStringList columns = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        fonts.insert(columns.first(), columns.value(columns.size() - 5) == QLatin1String("yes"));
    }
    return fonts;
}

QImage Rendered(const QString& pdf) {
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {"-r", "254", "-gray", "-singlefile", "-f", "1", "-l", "1", pdf, pdf});
    return QImage(pdf + QStringLiteral(".pgm"));
}

}  // namespace quillon::testing
