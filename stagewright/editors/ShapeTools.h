// The physics canvas's tools: one per kind of shape, each a thin subclass of
// one handle-based tool. A tool knows how its kind is drawn with the mouse,
// where its handles are, how a handle reshapes it and how it moves; the
// session and the canvas do the rest the same way for every kind.
//
// All points are shape coordinates: image-centred, y up, in image points.
// Stored edges and polygons may hold the markers -9999 and 9999 for "the
// edge of the sprite"; a tool shows them where the game puts them. A point
// moved by hand keeps a marker while it stays on the sprite's edge that the
// marker stands for, so the shape still follows every device's sprite size;
// a coordinate moved off that edge becomes a plain number.
#pragma once

#include "PhysicsElements.h"

#include <QPainterPath>
#include <QSizeF>

#include <cstddef>
#include <optional>
#include <vector>

namespace stagewright {

class ShapeTool {
public:
    virtual ~ShapeTool() = default;
    virtual PhysicsType kind() const = 0;

    // ---- Drawing with the mouse --------------------------------------------------------
    /// The element a press of the tool starts at `p`; none for a tool whose
    /// shape starts on the release (the polygon).
    virtual std::optional<PhysicsElement> begin(tessaro::PointValue p) const;
    /// A drag of the element being drawn to `p`.
    virtual void drawTo(PhysicsElement& element, tessaro::PointValue p) const;

    // ---- Editing by handles ------------------------------------------------------------
    /// The handles of `element`, markers resolved against `imageSize`.
    virtual std::vector<tessaro::PointValue> handles(const PhysicsElement& element, QSizeF imageSize) const = 0;
    /// Puts handle `index` at `p`.
    virtual void moveHandle(PhysicsElement& element, std::size_t index, tessaro::PointValue p,
                            QSizeF imageSize) const = 0;
    /// Moves the whole shape by `delta`.
    virtual void translate(PhysicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const = 0;
    /// The outline as the canvas draws it.
    virtual QPainterPath outline(const PhysicsElement& element, QSizeF imageSize) const = 0;
    /// Whether the shape encloses an area that a click inside selects.
    virtual bool isFilled(const PhysicsElement& element) const = 0;

    /// Whether `p` lies within `tolerance` of the outline, or inside a filled shape.
    bool hits(const PhysicsElement& element, tessaro::PointValue p, double tolerance, QSizeF imageSize) const;
    /// The handle within `tolerance` of `p` (the last one where several are).
    std::optional<std::size_t> handleAt(const PhysicsElement& element, tessaro::PointValue p, double tolerance,
                                        QSizeF imageSize) const;
};

/// Rectangles: drawn from the image's centre, four corner handles.
class RectangleTool final : public ShapeTool {
public:
    PhysicsType kind() const override { return PhysicsType::rect; }
    std::optional<PhysicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(PhysicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const PhysicsElement& element, QSizeF imageSize) const override;
    void moveHandle(PhysicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF) const override;
    void translate(PhysicsElement& element, tessaro::PointValue delta, QSizeF) const override;
    QPainterPath outline(const PhysicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const PhysicsElement&) const override { return true; }
};

/// Circles: always about the image's centre, one radius handle.
class CircleTool final : public ShapeTool {
public:
    PhysicsType kind() const override { return PhysicsType::radius; }
    std::optional<PhysicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(PhysicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const PhysicsElement& element, QSizeF imageSize) const override;
    void moveHandle(PhysicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF) const override;
    void translate(PhysicsElement&, tessaro::PointValue, QSizeF) const override {}
    QPainterPath outline(const PhysicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const PhysicsElement&) const override { return true; }
};

/// Edges: from the press to the release, a handle at each end.
class EdgeTool final : public ShapeTool {
public:
    PhysicsType kind() const override { return PhysicsType::edge; }
    std::optional<PhysicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(PhysicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const PhysicsElement& element, QSizeF imageSize) const override;
    void moveHandle(PhysicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF imageSize) const override;
    void translate(PhysicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const override;
    QPainterPath outline(const PhysicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const PhysicsElement&) const override { return false; }
};

/// Polygons: a vertex per release, closed on the first vertex; a handle per
/// vertex, the closing copy of the first moving with it.
class PolygonTool final : public ShapeTool {
public:
    PhysicsType kind() const override { return PhysicsType::polygon; }
    std::vector<tessaro::PointValue> handles(const PhysicsElement& element, QSizeF imageSize) const override;
    void moveHandle(PhysicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF imageSize) const override;
    void translate(PhysicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const override;
    QPainterPath outline(const PhysicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const PhysicsElement& element) const override { return element.points.size() >= 3; }

    /// The last vertex repeats the first, after at least three others.
    static bool isClosed(const PhysicsElement& element);
};

/// The tool of a kind of shape; null for `none`.
const ShapeTool* shapeToolFor(PhysicsType type);
/// The tool that draws with an insert tool; null for the selection.
const ShapeTool* shapeToolFor(InsertType tool);

/// The point as the game reads it: an edge's start and end markers and a
/// polygon's -9999 become the sprite's edges.
tessaro::PointValue resolvedEdgeStart(tessaro::PointValue p, QSizeF imageSize);
tessaro::PointValue resolvedEdgeEnd(tessaro::PointValue p, QSizeF imageSize);
/// The vertices of a polygon as the game outlines it (the first as stored).
std::vector<tessaro::PointValue> resolvedPolygon(const PhysicsElement& element, QSizeF imageSize);

} // namespace stagewright
