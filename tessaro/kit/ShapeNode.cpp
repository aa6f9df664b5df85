#include "ShapeNode.h"

#include "Renderer.h"

#include <QPainter>

namespace tessaro::kit {

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithPath(const QPainterPath& path, bool centered)
{
    QPainterPath p = path;
    if (centered)
        p.translate(-path.boundingRect().center());
    return std::make_shared<ShapeNode>(p);
}

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithRect(const QRectF& rect, qreal cornerRadius)
{
    QPainterPath p;
    if (cornerRadius > 0)
        p.addRoundedRect(rect, cornerRadius, cornerRadius);
    else
        p.addRect(rect);
    return std::make_shared<ShapeNode>(p);
}

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithRectOfSize(const QSizeF& size, qreal cornerRadius)
{
    return shapeNodeWithRect(QRectF(-size.width() / 2, -size.height() / 2, size.width(), size.height()), cornerRadius);
}

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithCircleOfRadius(qreal radius)
{
    QPainterPath p;
    p.addEllipse(QPointF(0, 0), radius, radius);
    return std::make_shared<ShapeNode>(p);
}

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithEllipseInRect(const QRectF& rect)
{
    QPainterPath p;
    p.addEllipse(rect);
    return std::make_shared<ShapeNode>(p);
}

std::shared_ptr<ShapeNode> ShapeNode::shapeNodeWithPoints(const std::vector<QPointF>& points)
{
    QPainterPath p;
    if (!points.empty()) {
        p.moveTo(points.front());
        for (size_t i = 1; i < points.size(); ++i)
            p.lineTo(points[i]);
    }
    return std::make_shared<ShapeNode>(p);
}

void ShapeNode::setPath(const QPainterPath& path)
{
    m_path = path;
    m_pathEmpty = path.isEmpty();
    m_pathBounds = path.boundingRect();
    touch();
}

void ShapeNode::setStrokeColor(const QColor& c)
{
    m_strokeColor = c;
    touch();
}

void ShapeNode::setFillColor(const QColor& c)
{
    m_fillColor = c;
    touch();
}

void ShapeNode::setLineWidth(qreal w)
{
    m_lineWidth = w;
    touch();
}

void ShapeNode::setLineCap(Qt::PenCapStyle cap)
{
    m_lineCap = cap;
    touch();
}

void ShapeNode::setLineJoin(Qt::PenJoinStyle join)
{
    m_lineJoin = join;
    touch();
}

void ShapeNode::setAntialiased(bool on)
{
    m_antialiased = on;
    touch();
}

QRectF ShapeNode::contentRect() const
{
    if (m_pathEmpty)
        return {};
    const qreal half = m_lineWidth > 0 && m_strokeColor.alpha() > 0 ? m_lineWidth / 2 : 0;
    return m_pathBounds.adjusted(-half, -half, half, half);
}

void ShapeNode::draw(DrawContext& ctx) const
{
    if (m_path.isEmpty())
        return;
    QPainter& p = ctx.painter;
    p.setTransform(ctx.transform);
    p.setRenderHint(QPainter::Antialiasing, m_antialiased);
    if (m_lineWidth > 0 && m_strokeColor.alpha() > 0)
        p.setPen(QPen(m_strokeColor, m_lineWidth, Qt::SolidLine, m_lineCap, m_lineJoin));
    else
        p.setPen(Qt::NoPen);
    p.setBrush(m_fillColor.alpha() > 0 ? QBrush(m_fillColor) : QBrush(Qt::NoBrush));
    p.drawPath(m_path);
}

} // namespace tessaro::kit
