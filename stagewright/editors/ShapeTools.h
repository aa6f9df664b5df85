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

class shapeTool {
public:
    virtual ~shapeTool() = default;
    virtual physicsType kind() const = 0;

    // ---- Drawing with the mouse --------------------------------------------------------
    /// The element a press of the tool starts at `p`; none for a tool whose
    /// shape starts on the release (the polygon).
    virtual std::optional<physicsElement> begin(tessaro::PointValue p) const;
    /// A drag of the element being drawn to `p`.
    virtual void drawTo(physicsElement& element, tessaro::PointValue p) const;

    // ---- Editing by handles ------------------------------------------------------------
    /// The handles of `element`, markers resolved against `imageSize`.
    virtual std::vector<tessaro::PointValue> handles(const physicsElement& element, QSizeF imageSize) const = 0;
    /// Puts handle `index` at `p`.
    virtual void moveHandle(physicsElement& element, std::size_t index, tessaro::PointValue p,
                            QSizeF imageSize) const = 0;
    /// Moves the whole shape by `delta`.
    virtual void translate(physicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const = 0;
    /// The outline as the canvas draws it.
    virtual QPainterPath outline(const physicsElement& element, QSizeF imageSize) const = 0;
    /// Whether the shape encloses an area that a click inside selects.
    virtual bool isFilled(const physicsElement& element) const = 0;

    /// Whether `p` lies within `tolerance` of the outline, or inside a filled shape.
    bool hits(const physicsElement& element, tessaro::PointValue p, double tolerance, QSizeF imageSize) const;
    /// The handle within `tolerance` of `p` (the last one where several are).
    std::optional<std::size_t> handleAt(const physicsElement& element, tessaro::PointValue p, double tolerance,
                                        QSizeF imageSize) const;
};

/// Rectangles: drawn from the image's centre, four corner handles.
class rectangleTool final : public shapeTool {
public:
    physicsType kind() const override { return physicsType::rect; }
    std::optional<physicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(physicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const physicsElement& element, QSizeF imageSize) const override;
    void moveHandle(physicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF) const override;
    void translate(physicsElement& element, tessaro::PointValue delta, QSizeF) const override;
    QPainterPath outline(const physicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const physicsElement&) const override { return true; }
};

/// Circles: always about the image's centre, one radius handle.
class circleTool final : public shapeTool {
public:
    physicsType kind() const override { return physicsType::radius; }
    std::optional<physicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(physicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const physicsElement& element, QSizeF imageSize) const override;
    void moveHandle(physicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF) const override;
    void translate(physicsElement&, tessaro::PointValue, QSizeF) const override {}
    QPainterPath outline(const physicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const physicsElement&) const override { return true; }
};

/// Edges: from the press to the release, a handle at each end.
class edgeTool final : public shapeTool {
public:
    physicsType kind() const override { return physicsType::edge; }
    std::optional<physicsElement> begin(tessaro::PointValue p) const override;
    void drawTo(physicsElement& element, tessaro::PointValue p) const override;
    std::vector<tessaro::PointValue> handles(const physicsElement& element, QSizeF imageSize) const override;
    void moveHandle(physicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF imageSize) const override;
    void translate(physicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const override;
    QPainterPath outline(const physicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const physicsElement&) const override { return false; }
};

/// Polygons: a vertex per release, closed on the first vertex; a handle per
/// vertex, the closing copy of the first moving with it.
class polygonTool final : public shapeTool {
public:
    physicsType kind() const override { return physicsType::polygon; }
    std::vector<tessaro::PointValue> handles(const physicsElement& element, QSizeF imageSize) const override;
    void moveHandle(physicsElement& element, std::size_t index, tessaro::PointValue p, QSizeF imageSize) const override;
    void translate(physicsElement& element, tessaro::PointValue delta, QSizeF imageSize) const override;
    QPainterPath outline(const physicsElement& element, QSizeF imageSize) const override;
    bool isFilled(const physicsElement& element) const override { return element.points.size() >= 3; }

    /// The last vertex repeats the first, after at least three others.
    static bool isClosed(const physicsElement& element);
};

/// The tool of a kind of shape; null for `none`.
const shapeTool* shapeToolFor(physicsType type);
/// The tool that draws with an insert tool; null for the selection.
const shapeTool* shapeToolFor(insertType tool);

/// The point as the game reads it: an edge's start and end markers and a
/// polygon's -9999 become the sprite's edges.
tessaro::PointValue resolvedEdgeStart(tessaro::PointValue p, QSizeF imageSize);
tessaro::PointValue resolvedEdgeEnd(tessaro::PointValue p, QSizeF imageSize);
/// The vertices of a polygon as the game outlines it (the first as stored).
std::vector<tessaro::PointValue> resolvedPolygon(const physicsElement& element, QSizeF imageSize);

} // namespace stagewright
