#include "InspectorIcons.h"

#include "DrawnIcon.h"

#include <QPainter>
#include <QPainterPath>

namespace stagewright {

namespace {

QPainterPath squareOutline()
{
    QPainterPath square;
    square.addRoundedRect(QRectF(4, 4, 16, 16), 3, 3);
    return square;
}

} // namespace

void drawInspectorSymbol(QPainter& p, InspectorSymbol symbol)
{
    switch (symbol) {
    case InspectorSymbol::physics: // a compass drawing an arc
        p.drawLine(QPointF(12, 4), QPointF(6, 19));
        p.drawLine(QPointF(12, 4), QPointF(18, 19));
        p.drawEllipse(QPointF(12, 5), 1.5, 1.5);
        p.drawArc(QRectF(4, 10, 16, 14), 200 * 16, 140 * 16);
        break;
    case InspectorSymbol::baseProperties: // a sheet with an arrow into it
        p.drawRoundedRect(QRectF(4, 9, 16, 11), 2, 2);
        p.drawLine(QPointF(12, 3), QPointF(12, 13));
        p.drawPolyline(QPolygonF({QPointF(9, 10), QPointF(12, 13), QPointF(15, 10)}));
        break;
    case InspectorSymbol::groundOrder: // an arrow down to a line
        p.drawLine(QPointF(12, 4), QPointF(12, 15));
        p.drawPolyline(QPolygonF({QPointF(8, 11), QPointF(12, 15), QPointF(16, 11)}));
        p.drawLine(QPointF(5, 19), QPointF(19, 19));
        break;
    case InspectorSymbol::actions: // a form with a pencil
        p.drawRoundedRect(QRectF(3, 6, 13, 12), 2, 2);
        p.drawLine(QPointF(14, 16), QPointF(21, 9));
        p.drawPoint(QPointF(7, 12));
        p.drawPoint(QPointF(10, 12));
        break;
    case InspectorSymbol::cut:
        p.drawEllipse(QPointF(7, 18), 3, 3);
        p.drawEllipse(QPointF(17, 18), 3, 3);
        p.drawLine(QPointF(9, 15.5), QPointF(17, 3));
        p.drawLine(QPointF(15, 15.5), QPointF(7, 3));
        break;
    case InspectorSymbol::copy:
        p.drawRoundedRect(QRectF(4, 3, 11, 14), 1.5, 1.5);
        p.drawRoundedRect(QRectF(9, 7, 11, 14), 1.5, 1.5);
        break;
    case InspectorSymbol::paste:
        p.drawRoundedRect(QRectF(5, 4, 14, 17), 2, 2);
        p.drawRoundedRect(QRectF(9, 2.5, 6, 3.5), 1, 1);
        p.drawLine(QPointF(9, 12), QPointF(15, 12));
        p.drawLine(QPointF(9, 16), QPointF(15, 16));
        break;
    case InspectorSymbol::trash:
        p.drawLine(QPointF(4, 6), QPointF(20, 6));
        p.drawPolyline(QPolygonF({QPointF(9, 6), QPointF(9.5, 3.5), QPointF(14.5, 3.5), QPointF(15, 6)}));
        p.drawPolyline(QPolygonF({QPointF(6, 6), QPointF(7, 21), QPointF(17, 21), QPointF(18, 6)}));
        p.drawLine(QPointF(10, 10), QPointF(10, 17));
        p.drawLine(QPointF(14, 10), QPointF(14, 17));
        break;
    case InspectorSymbol::cycleEnd: // a circle of arrows round a stop
        p.drawArc(QRectF(3, 3, 18, 18), 30 * 16, 300 * 16);
        p.drawPolyline(QPolygonF({QPointF(20, 4), QPointF(20, 8), QPointF(16, 8)}));
        p.drawRect(QRectF(9.5, 9.5, 5, 5));
        break;
    case InspectorSymbol::add:
        p.drawPath(squareOutline());
        p.drawLine(QPointF(12, 8), QPointF(12, 16));
        p.drawLine(QPointF(8, 12), QPointF(16, 12));
        break;
    case InspectorSymbol::remove:
        p.drawPath(squareOutline());
        p.drawLine(QPointF(8, 12), QPointF(16, 12));
        break;
    case InspectorSymbol::close:
        p.drawPath(squareOutline());
        p.drawLine(QPointF(9, 9), QPointF(15, 15));
        p.drawLine(QPointF(15, 9), QPointF(9, 15));
        break;
    }
}

QString inspectorThemeIconName(InspectorSymbol symbol)
{
    switch (symbol) {
    case InspectorSymbol::physics: return QStringLiteral("draw-polygon");
    case InspectorSymbol::baseProperties: return QStringLiteral("document-properties");
    case InspectorSymbol::groundOrder: return QStringLiteral("view-sort-ascending");
    case InspectorSymbol::actions: return QStringLiteral("document-edit");
    case InspectorSymbol::cut: return QStringLiteral("edit-cut");
    case InspectorSymbol::copy: return QStringLiteral("edit-copy");
    case InspectorSymbol::paste: return QStringLiteral("edit-paste");
    case InspectorSymbol::trash: return QStringLiteral("edit-delete");
    case InspectorSymbol::cycleEnd: return QStringLiteral("media-playlist-repeat");
    case InspectorSymbol::add: return QStringLiteral("list-add");
    case InspectorSymbol::remove: return QStringLiteral("list-remove");
    case InspectorSymbol::close: return QStringLiteral("window-close");
    }
    return {};
}

QIcon drawnInspectorIcon(InspectorSymbol symbol)
{
    return drawnIcon([symbol](QPainter& p, const QColor&, const QPalette&) { drawInspectorSymbol(p, symbol); });
}

QIcon inspectorIcon(InspectorSymbol symbol)
{
    return QIcon::fromTheme(inspectorThemeIconName(symbol), drawnInspectorIcon(symbol));
}

} // namespace stagewright
