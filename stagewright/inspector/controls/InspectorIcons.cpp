#include "InspectorIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace stagewright {

namespace {

QPainterPath squareOutline()
{
    QPainterPath square;
    square.addRoundedRect(QRectF(4, 4, 16, 16), 3, 3);
    return square;
}

/// Draws a symbol in a 24 by 24 box, in the colours of the palette in force
/// when it is painted.
class InspectorSymbolEngine : public QIconEngine {
public:
    explicit InspectorSymbolEngine(InspectorSymbol symbol) : m_symbol(symbol) {}

    QIconEngine* clone() const override { return new InspectorSymbolEngine(*this); }
    QString key() const override { return QStringLiteral("stagewright-inspector-symbol"); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap picture(size * scale);
        picture.fill(Qt::transparent);
        {
            QPainter painter(&picture);
            paint(&painter, QRect(QPoint(0, 0), picture.size()), mode, state);
        }
        picture.setDevicePixelRatio(scale);
        return picture;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QColor ink = QGuiApplication::palette().color(mode == QIcon::Selected ? QPalette::HighlightedText
                                                                              : QPalette::WindowText);
        if (mode == QIcon::Disabled)
            ink.setAlphaF(0.35f);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal side = std::min(rect.width(), rect.height());
        painter->translate(rect.x() + (rect.width() - side) / 2.0, rect.y() + (rect.height() - side) / 2.0);
        painter->scale(side / 24.0, side / 24.0);
        painter->setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        draw(*painter);
        painter->restore();
    }

private:
    void draw(QPainter& p) const
    {
        switch (m_symbol) {
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
            p.drawEllipse(QPointF(7, 17), 3, 3);
            p.drawEllipse(QPointF(17, 17), 3, 3);
            p.drawLine(QPointF(9, 15), QPointF(17, 4));
            p.drawLine(QPointF(15, 15), QPointF(7, 4));
            break;
        case InspectorSymbol::copy:
            p.drawRoundedRect(QRectF(8, 8, 12, 13), 2, 2);
            p.drawPolyline(QPolygonF({QPointF(5, 16), QPointF(4, 16), QPointF(4, 3), QPointF(15, 3), QPointF(15, 5)}));
            break;
        case InspectorSymbol::paste:
            p.drawRoundedRect(QRectF(5, 5, 14, 16), 2, 2);
            p.drawRoundedRect(QRectF(9, 3, 6, 4), 1, 1);
            p.drawLine(QPointF(8, 12), QPointF(16, 12));
            p.drawLine(QPointF(8, 16), QPointF(14, 16));
            break;
        case InspectorSymbol::trash:
            p.drawLine(QPointF(4, 6), QPointF(20, 6));
            p.drawLine(QPointF(10, 3), QPointF(14, 3));
            p.drawPolyline(QPolygonF({QPointF(6, 6), QPointF(7, 21), QPointF(17, 21), QPointF(18, 6)}));
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

    InspectorSymbol m_symbol;
};

} // namespace

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
    return QIcon(new InspectorSymbolEngine(symbol));
}

QIcon inspectorIcon(InspectorSymbol symbol)
{
    return QIcon::fromTheme(inspectorThemeIconName(symbol), drawnInspectorIcon(symbol));
}

} // namespace stagewright
