#include "DrawnIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace stagewright {

namespace {

class DrawnIconEngine : public QIconEngine {
public:
    explicit DrawnIconEngine(SymbolDrawing drawing) : m_drawing(std::move(drawing)) {}

    QIconEngine* clone() const override { return new DrawnIconEngine(*this); }
    QString key() const override { return QStringLiteral("stagewright-drawn-icon"); }

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
        QPalette palette = QGuiApplication::palette();
        QColor ink = palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
        if (mode == QIcon::Disabled) {
            ink.setAlphaF(0.35f);
            palette.setCurrentColorGroup(QPalette::Disabled);
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal side = std::min(rect.width(), rect.height());
        painter->translate(rect.x() + (rect.width() - side) / 2.0, rect.y() + (rect.height() - side) / 2.0);
        painter->scale(side / 24.0, side / 24.0);
        painter->setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        m_drawing(*painter, ink, palette);
        painter->restore();
    }

private:
    SymbolDrawing m_drawing;
};

} // namespace

QIcon drawnIcon(SymbolDrawing drawing)
{
    return QIcon(new DrawnIconEngine(std::move(drawing)));
}

} // namespace stagewright
