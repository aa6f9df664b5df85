#include "LevelSheetIcons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <functional>
#include <map>

namespace stagewright {

namespace {

using Drawing = std::function<void(QPainter&, const QColor& ink)>;

/// Each symbol on a 24 by 24 grid.
const std::map<std::string_view, Drawing>& drawings()
{
    static const std::map<std::string_view, Drawing> table{
        {"app.background.dotted",
         [](QPainter& p, const QColor& ink) {
             QPen dotted = p.pen();
             dotted.setStyle(Qt::DotLine);
             p.setPen(dotted);
             p.drawRoundedRect(QRectF(3, 4, 18, 16), 3, 3);
             p.setPen(Qt::NoPen);
             p.setBrush(ink);
             p.drawEllipse(QRectF(8, 9, 8, 6));
         }},
        {"flag.pattern.checkered",
         [](QPainter& p, const QColor& ink) {
             p.drawLine(QPointF(5, 3), QPointF(5, 21));
             p.drawRect(QRectF(5, 4, 14, 9));
             p.setPen(Qt::NoPen);
             p.setBrush(ink);
             for (int row = 0; row < 3; ++row)
                 for (int column = 0; column < 5; ++column)
                     if ((row + column) % 2 == 0)
                         p.drawRect(QRectF(5 + column * 2.8, 4 + row * 3, 2.8, 3));
         }},
        {"bitcoinsign.circle",
         [](QPainter& p, const QColor&) {
             p.drawEllipse(QRectF(3, 3, 18, 18));
             QFont font = p.font();
             font.setPixelSize(12);
             font.setBold(true);
             p.setFont(font);
             p.drawText(QRectF(3, 3, 18, 18), Qt::AlignCenter, QStringLiteral("B"));
         }},
        {"shield",
         [](QPainter& p, const QColor&) {
             QPainterPath path(QPointF(12, 3));
             path.lineTo(20, 6);
             path.cubicTo(20, 14, 17, 18, 12, 21);
             path.cubicTo(7, 18, 4, 14, 4, 6);
             path.closeSubpath();
             p.drawPath(path);
         }},
        {"scroll",
         [](QPainter& p, const QColor&) {
             p.drawRoundedRect(QRectF(6, 4, 12, 16), 2, 2);
             p.drawEllipse(QRectF(3, 3, 5, 5));
             p.drawEllipse(QRectF(16, 16, 5, 5));
             for (int line = 0; line < 3; ++line)
                 p.drawLine(QPointF(9, 9 + line * 3), QPointF(15, 9 + line * 3));
         }},
        {"moonphase.waning.crescent",
         [](QPainter& p, const QColor& ink) {
             p.drawEllipse(QRectF(3, 3, 18, 18));
             QPainterPath disc;
             disc.addEllipse(QRectF(3, 3, 18, 18));
             QPainterPath shadow;
             shadow.addEllipse(QRectF(7, 3, 18, 18));
             p.setPen(Qt::NoPen);
             p.setBrush(ink);
             p.drawPath(disc.subtracted(shadow));
         }},
        {"moonphase.full.moon",
         [](QPainter& p, const QColor& ink) {
             p.setBrush(ink);
             p.drawEllipse(QRectF(3, 3, 18, 18));
         }},
        {"xmark.square",
         [](QPainter& p, const QColor&) {
             p.drawRoundedRect(QRectF(3, 3, 18, 18), 3, 3);
             p.drawLine(QPointF(8, 8), QPointF(16, 16));
             p.drawLine(QPointF(16, 8), QPointF(8, 16));
         }},
    };
    return table;
}

QPixmap drawn(const Drawing& drawing, int side, QIcon::Mode mode)
{
    QColor ink = QGuiApplication::palette().color(QPalette::WindowText);
    if (mode == QIcon::Disabled)
        ink.setAlphaF(0.35f);
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 24.0, side / 24.0);
    painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    drawing(painter, ink);
    return picture;
}

} // namespace

QIcon levelSheetIcon(std::string_view symbol)
{
    const auto found = drawings().find(symbol);
    if (found == drawings().end())
        return {};
    QIcon icon;
    for (int side : {16, 24, 32, 48})
        for (QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled})
            icon.addPixmap(drawn(found->second, side, mode), mode);
    return icon;
}

} // namespace stagewright
