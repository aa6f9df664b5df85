#include "ShapeTools.h"

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::PointValue;

namespace {

constexpr double edgeMarker = 9999.0;

PointValue plus(PointValue a, PointValue b)
{
    return {a.x + b.x, a.y + b.y};
}

/// A stored point after a move to `moved`, `resolved` being where it stood:
/// a marker coordinate stays a marker while the point stays on its edge.
PointValue keptMarkers(PointValue stored, PointValue resolved, PointValue moved)
{
    const auto coordinate = [](double before, double at, double after) {
        const bool marker = before == edgeMarker || before == -edgeMarker;
        return marker && std::abs(after - at) < 0.5 ? before : after;
    };
    return {coordinate(stored.x, resolved.x, moved.x), coordinate(stored.y, resolved.y, moved.y)};
}

double distanceToSegment(QPointF p, QPointF a, QPointF b)
{
    const QPointF ab = b - a;
    const double length2 = QPointF::dotProduct(ab, ab);
    const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(p - a, ab) / length2, 0.0, 1.0) : 0.0;
    const QPointF nearest = a + t * ab;
    return std::hypot(p.x() - nearest.x(), p.y() - nearest.y());
}

QPointF qt(PointValue p)
{
    return {p.x, p.y};
}

} // namespace

// ---- The shared tool -------------------------------------------------------------------

std::optional<PhysicsElement> ShapeTool::begin(PointValue) const
{
    return std::nullopt;
}

void ShapeTool::drawTo(PhysicsElement&, PointValue) const {}

bool ShapeTool::hits(const PhysicsElement& element, PointValue p, double tolerance, QSizeF imageSize) const
{
    const QPainterPath path = outline(element, imageSize);
    const QPointF point = qt(p);
    if (isFilled(element) && path.contains(point))
        return true;
    for (const QPolygonF& piece : path.toSubpathPolygons()) {
        if (piece.size() == 1 && std::hypot(piece[0].x() - p.x, piece[0].y() - p.y) <= tolerance)
            return true;
        for (qsizetype i = 1; i < piece.size(); ++i)
            if (distanceToSegment(point, piece[i - 1], piece[i]) <= tolerance)
                return true;
    }
    return false;
}

std::optional<std::size_t> ShapeTool::handleAt(const PhysicsElement& element, PointValue p, double tolerance,
                                               QSizeF imageSize) const
{
    const std::vector<PointValue> points = handles(element, imageSize);
    for (std::size_t i = points.size(); i-- > 0;)
        if (std::abs(points[i].x - p.x) <= tolerance && std::abs(points[i].y - p.y) <= tolerance)
            return i;
    return std::nullopt;
}

// ---- Rectangles ------------------------------------------------------------------------

std::optional<PhysicsElement> RectangleTool::begin(PointValue) const
{
    return PhysicsElement::make(PhysicsType::rect);
}

void RectangleTool::drawTo(PhysicsElement& element, PointValue p) const
{
    // A rectangle's start is the image's centre, so the size is measured from there.
    element.size = {std::abs(element.startPoint.x - p.x), std::abs(element.startPoint.y - p.y)};
}

std::vector<PointValue> RectangleTool::handles(const PhysicsElement& element, QSizeF) const
{
    const double hw = element.size.width / 2, hh = element.size.height / 2;
    const PointValue c = element.center;
    return {{c.x - hw, c.y - hh}, {c.x + hw, c.y - hh}, {c.x + hw, c.y + hh}, {c.x - hw, c.y + hh}};
}

void RectangleTool::moveHandle(PhysicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    // The opposite corner stays where it is.
    const PointValue fixed = handles(element, imageSize)[(index + 2) % 4];
    element.center = {(fixed.x + p.x) / 2, (fixed.y + p.y) / 2};
    element.size = {std::abs(p.x - fixed.x), std::abs(p.y - fixed.y)};
}

void RectangleTool::translate(PhysicsElement& element, PointValue delta, QSizeF) const
{
    element.center = plus(element.center, delta);
}

QPainterPath RectangleTool::outline(const PhysicsElement& element, QSizeF) const
{
    QPainterPath path;
    path.addRect(QRectF(element.center.x - element.size.width / 2, element.center.y - element.size.height / 2,
                        element.size.width, element.size.height));
    return path;
}

// ---- Circles ---------------------------------------------------------------------------

std::optional<PhysicsElement> CircleTool::begin(PointValue) const
{
    return PhysicsElement::make(PhysicsType::radius);
}

void CircleTool::drawTo(PhysicsElement& element, PointValue p) const
{
    element.radius = std::round(std::abs(element.startPoint.x - p.x));
}

std::vector<PointValue> CircleTool::handles(const PhysicsElement& element, QSizeF) const
{
    return {{element.radius, 0}};
}

void CircleTool::moveHandle(PhysicsElement& element, std::size_t, PointValue p, QSizeF) const
{
    element.radius = std::round(std::hypot(p.x, p.y));
}

QPainterPath CircleTool::outline(const PhysicsElement& element, QSizeF) const
{
    QPainterPath path;
    path.addEllipse(QPointF(0, 0), element.radius, element.radius);
    return path;
}

// ---- Edges -----------------------------------------------------------------------------

std::optional<PhysicsElement> EdgeTool::begin(PointValue p) const
{
    PhysicsElement element = PhysicsElement::make(PhysicsType::edge);
    element.startPoint = p;
    element.endPoint = p;
    return element;
}

void EdgeTool::drawTo(PhysicsElement& element, PointValue p) const
{
    element.endPoint = p;
}

std::vector<PointValue> EdgeTool::handles(const PhysicsElement& element, QSizeF imageSize) const
{
    return {resolvedEdgeStart(element.startPoint, imageSize), resolvedEdgeEnd(element.endPoint, imageSize)};
}

void EdgeTool::moveHandle(PhysicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    if (index == 0)
        element.startPoint = keptMarkers(element.startPoint, resolvedEdgeStart(element.startPoint, imageSize), p);
    else
        element.endPoint = keptMarkers(element.endPoint, resolvedEdgeEnd(element.endPoint, imageSize), p);
}

void EdgeTool::translate(PhysicsElement& element, PointValue delta, QSizeF imageSize) const
{
    const PointValue start = resolvedEdgeStart(element.startPoint, imageSize);
    const PointValue end = resolvedEdgeEnd(element.endPoint, imageSize);
    element.startPoint = keptMarkers(element.startPoint, start, plus(start, delta));
    element.endPoint = keptMarkers(element.endPoint, end, plus(end, delta));
}

QPainterPath EdgeTool::outline(const PhysicsElement& element, QSizeF imageSize) const
{
    QPainterPath path(qt(resolvedEdgeStart(element.startPoint, imageSize)));
    path.lineTo(qt(resolvedEdgeEnd(element.endPoint, imageSize)));
    return path;
}

// ---- Polygons --------------------------------------------------------------------------

bool PolygonTool::isClosed(const PhysicsElement& element)
{
    return element.points.size() >= 4 && element.points.back().point == element.points.front().point;
}

std::vector<PointValue> PolygonTool::handles(const PhysicsElement& element, QSizeF imageSize) const
{
    std::vector<PointValue> points = resolvedPolygon(element, imageSize);
    if (isClosed(element))
        points.pop_back();
    return points;
}

void PolygonTool::moveHandle(PhysicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    if (index >= element.points.size())
        return;
    const std::vector<PointValue> resolved = resolvedPolygon(element, imageSize);
    const bool closed = isClosed(element);
    element.points[index].point = keptMarkers(element.points[index].point, resolved[index], p);
    if (index == 0 && closed)
        element.points.back().point = keptMarkers(element.points.back().point, resolved.back(), p);
}

void PolygonTool::translate(PhysicsElement& element, PointValue delta, QSizeF imageSize) const
{
    const std::vector<PointValue> resolved = resolvedPolygon(element, imageSize);
    for (std::size_t i = 0; i < element.points.size(); ++i)
        element.points[i].point = keptMarkers(element.points[i].point, resolved[i], plus(resolved[i], delta));
}

QPainterPath PolygonTool::outline(const PhysicsElement& element, QSizeF imageSize) const
{
    QPainterPath path;
    const std::vector<PointValue> points = resolvedPolygon(element, imageSize);
    if (points.empty())
        return path;
    path.moveTo(qt(points.front()));
    for (std::size_t i = 1; i < points.size(); ++i)
        path.lineTo(qt(points[i]));
    return path;
}

// ---- Look-ups and markers ---------------------------------------------------------------

const ShapeTool* shapeToolFor(PhysicsType type)
{
    static const RectangleTool rectangle;
    static const CircleTool circle;
    static const EdgeTool edge;
    static const PolygonTool polygon;
    switch (type) {
    case PhysicsType::rect: return &rectangle;
    case PhysicsType::radius: return &circle;
    case PhysicsType::edge: return &edge;
    case PhysicsType::polygon: return &polygon;
    case PhysicsType::none: break;
    }
    return nullptr;
}

const ShapeTool* shapeToolFor(InsertType tool)
{
    switch (tool) {
    case InsertType::rectangle: return shapeToolFor(PhysicsType::rect);
    case InsertType::radius: return shapeToolFor(PhysicsType::radius);
    case InsertType::edge: return shapeToolFor(PhysicsType::edge);
    case InsertType::polygon: return shapeToolFor(PhysicsType::polygon);
    case InsertType::none: break;
    }
    return nullptr;
}

PointValue resolvedEdgeStart(PointValue p, QSizeF imageSize)
{
    return {p.x == -edgeMarker ? imageSize.width() * -0.5 : p.x, p.y == -edgeMarker ? imageSize.height() * -0.5 : p.y};
}

PointValue resolvedEdgeEnd(PointValue p, QSizeF imageSize)
{
    return {p.x == edgeMarker ? imageSize.width() * 0.5 : p.x, p.y == edgeMarker ? imageSize.height() * 0.5 : p.y};
}

std::vector<PointValue> resolvedPolygon(const PhysicsElement& element, QSizeF imageSize)
{
    std::vector<PointValue> points;
    points.reserve(element.points.size());
    for (std::size_t i = 0; i < element.points.size(); ++i) {
        PointValue p = element.points[i].point;
        // The game moves to the first vertex as stored and replaces the marker in the lines.
        if (i > 0) {
            if (p.x == -edgeMarker)
                p.x = imageSize.width() * -0.5;
            if (p.y == -edgeMarker)
                p.y = imageSize.height() * -0.5;
        }
        points.push_back(p);
    }
    return points;
}

} // namespace stagewright
