#include "ShellIcons.h"

#include <stagewright/inspector/controls/InspectorIcons.h>

#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <cmath>

namespace stagewright {

namespace {

QPainterPath folderOutline()
{
    QPainterPath folder;
    folder.moveTo(3, 7);
    folder.lineTo(3, 19);
    folder.lineTo(21, 19);
    folder.lineTo(21, 8);
    folder.lineTo(12, 8);
    folder.lineTo(10, 5);
    folder.lineTo(4, 5);
    folder.closeSubpath();
    return folder;
}

/// A gear of eight teeth round `centre`, `radius` to the tips of the teeth.
void drawGear(QPainter& p, QPointF centre, qreal radius)
{
    QPainterPath wheel;
    constexpr int teeth = 8;
    for (int i = 0; i < teeth * 4; ++i) {
        const qreal angle = (i - 0.5) * M_PI / (teeth * 2);
        const qreal reach = (i % 4 < 2) ? radius : radius * 0.72;
        const QPointF point = centre + QPointF(std::cos(angle), std::sin(angle)) * reach;
        if (i == 0)
            wheel.moveTo(point);
        else
            wheel.lineTo(point);
    }
    wheel.closeSubpath();
    p.drawPath(wheel);
    p.drawEllipse(centre, radius * 0.3, radius * 0.3);
}

/// Draws `symbol` into a 24 by 24 box with the pen set to the ink.
void drawSymbol(QPainter& p, const QColor& ink, const QPalette& palette, Symbol symbol)
{
    const auto fillWith = [&](const QColor& colour) {
        p.setBrush(colour);
        p.setPen(Qt::NoPen);
    };
    switch (symbol) {
    case Symbol::info:
        p.drawEllipse(QRectF(3, 3, 18, 18));
        p.drawLine(QPointF(12, 11), QPointF(12, 17));
        p.drawPoint(QPointF(12, 7.5));
        break;
    case Symbol::plus:
        p.drawLine(QPointF(12, 4), QPointF(12, 20));
        p.drawLine(QPointF(4, 12), QPointF(20, 12));
        break;
    case Symbol::minus: p.drawLine(QPointF(4, 12), QPointF(20, 12)); break;
    case Symbol::gear: drawGear(p, QPointF(12, 12), 9); break;
    case Symbol::folderGear:
        p.drawPath(folderOutline());
        drawGear(p, QPointF(16.5, 16.5), 5);
        break;
    case Symbol::lock:
        p.drawRoundedRect(QRectF(5, 11, 14, 10), 2, 2);
        p.drawArc(QRectF(8, 4, 8, 10), 0, 180 * 16);
        p.drawLine(QPointF(8, 9), QPointF(8, 11));
        p.drawLine(QPointF(16, 9), QPointF(16, 11));
        p.drawLine(QPointF(12, 14.5), QPointF(12, 17.5));
        break;
    case Symbol::clear:
        p.drawEllipse(QRectF(3, 3, 18, 18));
        p.drawLine(QPointF(9, 9), QPointF(15, 15));
        p.drawLine(QPointF(15, 9), QPointF(9, 15));
        break;
    case Symbol::sidebarRight:
        p.drawRoundedRect(QRectF(3, 5, 18, 14), 2, 2);
        p.drawLine(QPointF(14, 5), QPointF(14, 19));
        fillWith(ink);
        for (int row = 0; row < 3; ++row)
            p.drawRect(QRectF(16, 7.5 + row * 3.5, 3, 2));
        break;
    case Symbol::xmark:
        p.drawLine(QPointF(6, 6), QPointF(18, 18));
        p.drawLine(QPointF(18, 6), QPointF(6, 18));
        break;
    case Symbol::scenes:
    case Symbol::level: {
        QPainterPath page;
        page.moveTo(5, 3);
        page.lineTo(14, 3);
        page.lineTo(19, 8);
        page.lineTo(19, 21);
        page.lineTo(5, 21);
        page.closeSubpath();
        p.drawPath(page);
        p.drawLine(QPointF(14, 3), QPointF(14, 8));
        p.drawLine(QPointF(14, 8), QPointF(19, 8));
        if (symbol == Symbol::scenes) {
            fillWith(ink);
            p.drawEllipse(QRectF(13, 13, 8, 8));
            fillWith(palette.color(QPalette::Window));
            p.drawEllipse(QRectF(15.5, 15.5, 3, 3));
        } else {
            p.drawLine(QPointF(8, 12), QPointF(16, 12));
            p.drawLine(QPointF(8, 16), QPointF(16, 16));
        }
        break;
    }
    case Symbol::sceneSize:
        p.drawRoundedRect(QRectF(7, 3, 14, 11), 1.5, 1.5);
        p.drawRoundedRect(QRectF(3, 9, 14, 12), 1.5, 1.5);
        p.drawLine(QPointF(10, 12), QPointF(10, 18));
        p.drawLine(QPointF(7, 15), QPointF(13, 15));
        break;
    case Symbol::properties:
        for (int row = 0; row < 3; ++row) {
            const qreal y = 6 + row * 6;
            p.drawLine(QPointF(4, y), QPointF(20, y));
            const qreal knob = row == 1 ? 15 : (row == 0 ? 8 : 11);
            fillWith(ink);
            p.drawEllipse(QPointF(knob, y), 2.4, 2.4);
            p.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.setBrush(Qt::NoBrush);
        }
        break;
    case Symbol::library:
    case Symbol::libraryOpen: {
        p.drawLine(QPointF(6, 4), QPointF(18, 4));
        p.drawLine(QPointF(4.5, 6.5), QPointF(19.5, 6.5));
        const QRectF frame(3, 9, 18, 12);
        if (symbol == Symbol::libraryOpen) {
            fillWith(ink);
            p.drawRoundedRect(frame, 2, 2);
            p.setPen(QPen(palette.color(QPalette::Window), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        } else {
            p.drawRoundedRect(frame, 2, 2);
        }
        QPainterPath hills;
        hills.moveTo(5, 19);
        hills.lineTo(10, 13.5);
        hills.lineTo(13.5, 17);
        hills.lineTo(16, 15);
        hills.lineTo(19, 19);
        p.setBrush(Qt::NoBrush);
        p.drawPath(hills);
        break;
    }
    case Symbol::nodeList:
        for (int row = 0; row < 3; ++row) {
            const qreal y = 6 + row * 6;
            p.drawLine(QPointF(9, y), QPointF(20, y));
            p.drawPoint(QPointF(5, y));
        }
        break;
    case Symbol::statistics:
        p.drawRoundedRect(QRectF(4, 4, 16, 17), 2, 2);
        p.drawLine(QPointF(9, 3), QPointF(15, 3));
        p.drawPolyline(QPolygonF({QPointF(7, 17), QPointF(10, 12), QPointF(13, 14), QPointF(17, 8)}));
        break;
    case Symbol::checkmark: {
        QColor disc = palette.currentColorGroup() == QPalette::Disabled ? ink : palette.color(QPalette::Highlight);
        fillWith(disc);
        p.drawEllipse(QRectF(3, 3, 18, 18));
        p.setPen(QPen(palette.color(QPalette::HighlightedText), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawPolyline(QPolygonF({QPointF(7.5, 12.5), QPointF(10.5, 15.5), QPointF(16.5, 8.5)}));
        break;
    }
    case Symbol::moveDown:
    case Symbol::moveUp: {
        p.drawPolyline(QPolygonF(
            {QPointF(8, 10), QPointF(4, 10), QPointF(4, 21), QPointF(20, 21), QPointF(20, 10), QPointF(16, 10)}));
        p.drawLine(QPointF(12, 3), QPointF(12, 16));
        if (symbol == Symbol::moveDown)
            p.drawPolyline(QPolygonF({QPointF(8.5, 12.5), QPointF(12, 16), QPointF(15.5, 12.5)}));
        else
            p.drawPolyline(QPolygonF({QPointF(8.5, 6.5), QPointF(12, 3), QPointF(15.5, 6.5)}));
        break;
    }
    case Symbol::trash: drawInspectorSymbol(p, InspectorSymbol::trash); break;
    case Symbol::cut: drawInspectorSymbol(p, InspectorSymbol::cut); break;
    case Symbol::copy: drawInspectorSymbol(p, InspectorSymbol::copy); break;
    case Symbol::paste: drawInspectorSymbol(p, InspectorSymbol::paste); break;
    case Symbol::workspace:
        p.drawPath(folderOutline());
        p.drawLine(QPointF(3, 10.5), QPointF(21, 10.5));
        break;
    }
}

} // namespace

QString themeIconName(Symbol symbol)
{
    switch (symbol) {
    case Symbol::info: return QStringLiteral("help-about");
    case Symbol::plus: return QStringLiteral("list-add");
    case Symbol::minus: return QStringLiteral("list-remove");
    case Symbol::gear: return QStringLiteral("preferences-system");
    case Symbol::clear: return QStringLiteral("edit-clear");
    case Symbol::xmark: return QStringLiteral("window-close");
    case Symbol::moveDown: return QStringLiteral("go-down");
    case Symbol::moveUp: return QStringLiteral("go-up");
    case Symbol::trash: return QStringLiteral("edit-delete");
    case Symbol::cut: return QStringLiteral("edit-cut");
    case Symbol::copy: return QStringLiteral("edit-copy");
    case Symbol::paste: return QStringLiteral("edit-paste");
    case Symbol::level: return QStringLiteral("text-x-generic");
    case Symbol::workspace: return QStringLiteral("folder");
    case Symbol::properties: return QStringLiteral("document-properties");
    default: return QString();
    }
}

QIcon drawnIcon(Symbol symbol)
{
    return drawnIcon(
        [symbol](QPainter& p, const QColor& ink, const QPalette& palette) { drawSymbol(p, ink, palette, symbol); });
}

QIcon shellIcon(Symbol symbol)
{
    const QString name = themeIconName(symbol);
    return name.isEmpty() ? drawnIcon(symbol) : QIcon::fromTheme(name, drawnIcon(symbol));
}

} // namespace stagewright
