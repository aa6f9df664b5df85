// A node that draws a path: lines, rectangles, circles.
#pragma once

#include "Node.h"

#include <QColor>
#include <QPainterPath>

namespace tessaro::kit {

class ShapeNode : public Node {
public:
    ShapeNode() = default;
    explicit ShapeNode(const QPainterPath& path) { setPath(path); }

    /// A shape of `path`, in the node's y-up space; with `centered` the path is
    /// moved so that the centre of its bounding box is at the origin.
    static std::shared_ptr<ShapeNode> shapeNodeWithPath(const QPainterPath& path, bool centered = false);
    /// A rectangle with its corner at `rect`'s origin (local space).
    static std::shared_ptr<ShapeNode> shapeNodeWithRect(const QRectF& rect, qreal cornerRadius = 0);
    /// A rectangle of `size` centred at the origin.
    static std::shared_ptr<ShapeNode> shapeNodeWithRectOfSize(const QSizeF& size, qreal cornerRadius = 0);
    /// A circle centred at the origin.
    static std::shared_ptr<ShapeNode> shapeNodeWithCircleOfRadius(qreal radius);
    /// An ellipse filling `rect`.
    static std::shared_ptr<ShapeNode> shapeNodeWithEllipseInRect(const QRectF& rect);
    /// An open polyline through `points`.
    static std::shared_ptr<ShapeNode> shapeNodeWithPoints(const std::vector<QPointF>& points);

    const QPainterPath& path() const { return m_path; }
    void setPath(const QPainterPath& path);

    QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor& c);
    QColor fillColor() const { return m_fillColor; }
    void setFillColor(const QColor& c);
    /// In the node's units; 0 draws no outline.
    qreal lineWidth() const { return m_lineWidth; }
    void setLineWidth(qreal w);
    Qt::PenCapStyle lineCap() const { return m_lineCap; }
    void setLineCap(Qt::PenCapStyle cap);
    Qt::PenJoinStyle lineJoin() const { return m_lineJoin; }
    void setLineJoin(Qt::PenJoinStyle join);
    bool isAntialiased() const { return m_antialiased; }
    void setAntialiased(bool on);

    /// The path's bounds grown by half the line width.
    QRectF contentRect() const override;
    bool hasContent() const override { return !m_pathEmpty; }
    void draw(DrawContext& context) const override;

private:
    QPainterPath m_path;
    // Read on every hit test of the scene: kept beside the node, not behind the path's data.
    QRectF m_pathBounds;
    bool m_pathEmpty = true;
    QColor m_strokeColor{Qt::white};
    QColor m_fillColor{Qt::transparent};
    qreal m_lineWidth = 1;
    Qt::PenCapStyle m_lineCap = Qt::FlatCap;
    Qt::PenJoinStyle m_lineJoin = Qt::MiterJoin;
    bool m_antialiased = true;
};

using ShapeNodePtr = std::shared_ptr<ShapeNode>;

} // namespace tessaro::kit
