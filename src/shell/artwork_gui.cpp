#include "shell/artwork_gui.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace quillon {

namespace {

constexpr int kSplashWidth = 480;
constexpr int kSplashHeight = 280;
const QColor kInk(0x1f, 0x3a, 0x5f);

void drawQuill(QPainter& painter, const QRectF& box) {
    QPainterPath feather;
    feather.moveTo(box.left(), box.bottom());
    feather.cubicTo(box.left() + box.width() * 0.2, box.top() + box.height() * 0.4,
                    box.left() + box.width() * 0.6, box.top(), box.right(), box.top());
    feather.cubicTo(box.right() - box.width() * 0.1, box.top() + box.height() * 0.5,
                    box.left() + box.width() * 0.5, box.bottom() - box.height() * 0.2, box.left(),
                    box.bottom());
    painter.setPen(QPen(QColor(255, 255, 255, 200), 2));
    painter.setBrush(QColor(255, 255, 255, 90));
    painter.drawPath(feather);
    painter.drawLine(QPointF(box.left(), box.bottom()),
                     QPointF(box.left() + box.width() * 0.75, box.top() + box.height() * 0.2));
}

}  // namespace

QPixmap SplashPicture() {
    QPixmap picture(kSplashWidth, kSplashHeight);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, kSplashHeight);
    sky.setColorAt(0, kInk);
    sky.setColorAt(1, QColor(0x3d, 0x6f, 0xa8));
    painter.fillRect(picture.rect(), sky);
    drawQuill(painter, QRectF(330, 40, 110, 190));

    painter.setPen(Qt::white);
    QFont title(QStringLiteral("Liberation Serif"), 40, QFont::Bold);
    painter.setFont(title);
    painter.drawText(QRect(36, 70, 300, 70), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Quillon"));
    QFont subtitle(QStringLiteral("Liberation Sans"), 14);
    painter.setFont(subtitle);
    painter.drawText(QRect(40, 140, 300, 30), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Client Database"));
    QFont small(QStringLiteral("Liberation Sans"), 9);
    painter.setFont(small);
    painter.drawText(QRect(40, 230, 300, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Version %1").arg(QStringLiteral(QUILLON_VERSION)));
    painter.setPen(QPen(QColor(255, 255, 255, 120), 1));
    painter.drawLine(40, 180, 300, 180);
    return picture;
}

QIcon ButtonPicture(const QString& mark, const QColor& colour) {
    QIcon icon;
    for (const int size : {16, 24, 32}) {
        QPixmap tile(size, size);
        tile.fill(Qt::transparent);
        QPainter painter(&tile);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(colour.darker(140));
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 5.0, size / 5.0);
        QFont font(QStringLiteral("Liberation Sans"));
        font.setBold(true);
        font.setPixelSize(mark.size() > 1 ? size * 9 / 20 : size * 3 / 5);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(tile.rect(), Qt::AlignCenter, mark);
        icon.addPixmap(tile);
    }
    return icon;
}

QIcon ProgramIcon() {
    return ButtonPicture(QStringLiteral("Q"), kInk);
}

}  // namespace quillon
