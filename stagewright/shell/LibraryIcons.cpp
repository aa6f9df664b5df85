#include "LibraryIcons.h"

#include "ShellIcons.h"

#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <tuple>

namespace stagewright {

namespace {

void fillWith(QPainter& p, const QColor& colour)
{
    p.setBrush(colour);
    p.setPen(Qt::NoPen);
}

void person(QPainter& p, QPointF head, qreal scale)
{
    p.drawEllipse(head, 2.6 * scale, 2.6 * scale);
    QPainterPath body;
    body.moveTo(head.x() - 5 * scale, head.y() + 9 * scale);
    body.cubicTo(head.x() - 5 * scale, head.y() + 4 * scale, head.x() + 5 * scale, head.y() + 4 * scale,
                 head.x() + 5 * scale, head.y() + 9 * scale);
    p.drawPath(body);
}

QPainterPath shield()
{
    QPainterPath path;
    path.moveTo(12, 2.5);
    path.lineTo(20, 5.5);
    path.cubicTo(20, 13, 17, 18.5, 12, 21.5);
    path.cubicTo(7, 18.5, 4, 13, 4, 5.5);
    path.closeSubpath();
    return path;
}

void layers(QPainter& p, const QColor& ink, bool topFilled)
{
    const auto diamond = [](qreal y) {
        return QPolygonF({QPointF(12, y), QPointF(21, y + 4.5), QPointF(12, y + 9), QPointF(3, y + 4.5)});
    };
    const QPolygonF top = diamond(3), bottom = diamond(11);
    const QPen outline = p.pen();
    if (topFilled) {
        p.drawPolygon(bottom);
        fillWith(p, ink);
        p.drawPolygon(top);
    } else {
        fillWith(p, ink);
        p.drawPolygon(bottom);
        p.setPen(outline);
        p.setBrush(QGuiApplication::palette().color(QPalette::Window));
        p.drawPolygon(top);
    }
}

/// The drawings, by symbol name.
const QHash<QString, SymbolDrawing>& drawings()
{
    static const QHash<QString, SymbolDrawing> table{
        {QStringLiteral("person.and.background.dotted"),
         [](QPainter& p, const QColor&, const QPalette&) {
             QPen dotted = p.pen();
             dotted.setStyle(Qt::DotLine);
             p.setPen(dotted);
             p.drawRoundedRect(QRectF(2.5, 3, 19, 16), 2, 2);
             p.setPen(QPen(dotted.color(), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
             person(p, QPointF(12, 9.5), 1.1);
         }},
        {QStringLiteral("globe.americas"),
         [](QPainter& p, const QColor&, const QPalette&) {
             p.drawEllipse(QRectF(3, 3, 18, 18));
             p.drawEllipse(QRectF(8, 3, 8, 18));
             p.drawLine(QPointF(3, 12), QPointF(21, 12));
         }},
        {QStringLiteral("square.and.arrow.up.on.square.fill"),
         [](QPainter& p, const QColor& ink, const QPalette& palette) {
             p.drawRoundedRect(QRectF(7, 2.5, 14, 14), 2, 2);
             fillWith(p, ink);
             p.drawRoundedRect(QRectF(3, 7.5, 14, 14), 2, 2);
             p.setPen(QPen(palette.color(QPalette::Window), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
             p.setBrush(Qt::NoBrush);
             p.drawLine(QPointF(10, 18.5), QPointF(10, 11));
             p.drawPolyline(QPolygonF({QPointF(7, 14), QPointF(10, 11), QPointF(13, 14)}));
         }},
        {QStringLiteral("person.circle"),
         [](QPainter& p, const QColor&, const QPalette&) {
             p.drawEllipse(QRectF(3, 3, 18, 18));
             person(p, QPointF(12, 9.5), 0.9);
         }},
        {QStringLiteral("bitcoinsign.arrow.trianglehead.counterclockwise.rotate.90"),
         [](QPainter& p, const QColor& ink, const QPalette&) {
             p.drawArc(QRectF(3, 3, 18, 18), 100 * 16, 300 * 16);
             fillWith(p, ink);
             p.drawPolygon(QPolygonF({QPointF(9, 1.2), QPointF(13.2, 3.3), QPointF(9.4, 5.8)}));
             QFont font = p.font();
             font.setPixelSize(11);
             font.setBold(true);
             p.setFont(font);
             p.setPen(ink);
             p.drawText(QRectF(3, 3, 18, 18), Qt::AlignCenter, QStringLiteral("B"));
         }},
        {QStringLiteral("checkmark.shield"),
         [](QPainter& p, const QColor&, const QPalette&) {
             p.drawPath(shield());
             p.drawPolyline(QPolygonF({QPointF(8.5, 12), QPointF(11, 14.5), QPointF(15.5, 9)}));
         }},
        {QStringLiteral("key.viewfinder"),
         [](QPainter& p, const QColor&, const QPalette&) {
             for (const auto& [x, y, dx, dy] :
                  {std::tuple{3, 3, 1, 1}, {21, 3, -1, 1}, {3, 21, 1, -1}, {21, 21, -1, -1}})
                 p.drawPolyline(QPolygonF({QPointF(x, y + 5 * dy), QPointF(x, y), QPointF(x + 5 * dx, y)}));
             p.drawEllipse(QPointF(9.5, 12), 2.8, 2.8);
             p.drawLine(QPointF(12.3, 12), QPointF(17.5, 12));
             p.drawLine(QPointF(16, 12), QPointF(16, 14.5));
         }},
        {QStringLiteral("flag.circle"),
         [](QPainter& p, const QColor&, const QPalette&) {
             p.drawEllipse(QRectF(3, 3, 18, 18));
             p.drawLine(QPointF(9, 7), QPointF(9, 17.5));
             p.drawPolygon(QPolygonF({QPointF(9, 7), QPointF(16, 9), QPointF(9, 12)}));
         }},
        {QStringLiteral("shield.pattern.checkered"),
         [](QPainter& p, const QColor& ink, const QPalette&) {
             const QPainterPath outline = shield();
             p.drawPath(outline);
             p.save();
             p.setClipPath(outline);
             fillWith(p, ink);
             p.drawRect(QRectF(4, 4, 8, 8));
             p.drawRect(QRectF(12, 12, 8, 10));
             p.restore();
         }},
        {QStringLiteral("square.2.layers.3d.top.filled"),
         [](QPainter& p, const QColor& ink, const QPalette&) { layers(p, ink, true); }},
        {QStringLiteral("square.2.layers.3d.bottom.filled"),
         [](QPainter& p, const QColor& ink, const QPalette&) { layers(p, ink, false); }},
    };
    return table;
}

} // namespace

QIcon librarySymbol(const QString& name)
{
    const auto found = drawings().constFind(name);
    if (found != drawings().cend())
        return drawnIcon(*found);
    return drawnIcon(
        [](QPainter& p, const QColor&, const QPalette&) { p.drawRoundedRect(QRectF(4, 4, 16, 16), 2, 2); });
}

} // namespace stagewright
