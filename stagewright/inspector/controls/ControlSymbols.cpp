#include "ControlSymbols.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

namespace stagewright::detail {

namespace {

QPixmap blank(int side)
{
    const qreal ratio = qApp ? qApp->devicePixelRatio() : 1.0;
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

QPixmap circledNumber(int n, const QColor& colour, int side)
{
    QPixmap pixmap = blank(side);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.2));
    painter.drawEllipse(QRectF(0.6, 0.6, side - 1.2, side - 1.2));
    QFont font = painter.font();
    font.setPixelSize(n > 9 ? side * 5 / 12 : side * 7 / 12);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRectF(0, 0, side, side), Qt::AlignCenter, QString::number(n));
    return pixmap;
}

QPixmap upDownChevrons(const QColor& colour, int side)
{
    QPixmap pixmap = blank(side);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(0, 0, side, side), side / 5.0, side / 5.0);
    // The chevrons are cut out of the square in the background's colour.
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(QPen(Qt::black, side / 9.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const qreal s = side;
    QPainterPath up;
    up.moveTo(s * 0.32, s * 0.42);
    up.lineTo(s * 0.5, s * 0.25);
    up.lineTo(s * 0.68, s * 0.42);
    QPainterPath down;
    down.moveTo(s * 0.32, s * 0.58);
    down.lineTo(s * 0.5, s * 0.75);
    down.lineTo(s * 0.68, s * 0.58);
    painter.drawPath(up);
    painter.drawPath(down);
    return pixmap;
}

QPixmap checkMark(const QColor& colour, double opacity, int side)
{
    QPixmap pixmap = blank(side);
    if (opacity <= 0)
        return pixmap;
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity);
    painter.setPen(QPen(colour, side / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const qreal s = side;
    QPainterPath tick;
    tick.moveTo(s * 0.18, s * 0.52);
    tick.lineTo(s * 0.42, s * 0.76);
    tick.lineTo(s * 0.84, s * 0.26);
    painter.drawPath(tick);
    return pixmap;
}

} // namespace stagewright::detail
