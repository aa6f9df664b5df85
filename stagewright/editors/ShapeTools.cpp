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

std::optional<physicsElement> shapeTool::begin(PointValue) const
{
    return std::nullopt;
}

void shapeTool::drawTo(physicsElement&, PointValue) const {}

bool shapeTool::hits(const physicsElement& element, PointValue p, double tolerance, QSizeF imageSize) const
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

std::optional<std::size_t> shapeTool::handleAt(const physicsElement& element, PointValue p, double tolerance,
                                               QSizeF imageSize) const
{
    const std::vector<PointValue> points = handles(element, imageSize);
    for (std::size_t i = points.size(); i-- > 0;)
        if (std::abs(points[i].x - p.x) <= tolerance && std::abs(points[i].y - p.y) <= tolerance)
            return i;
    return std::nullopt;
}

// ---- Rectangles ------------------------------------------------------------------------

std::optional<physicsElement> rectangleTool::begin(PointValue) const
{
    return physicsElement::make(physicsType::rect);
}

void rectangleTool::drawTo(physicsElement& element, PointValue p) const
{
    // A rectangle's start is the image's centre, so the size is measured from there.
    element.size = {std::abs(element.startPoint.x - p.x), std::abs(element.startPoint.y - p.y)};
}

std::vector<PointValue> rectangleTool::handles(const physicsElement& element, QSizeF) const
{
    const double hw = element.size.width / 2, hh = element.size.height / 2;
    const PointValue c = element.center;
    return {{c.x - hw, c.y - hh}, {c.x + hw, c.y - hh}, {c.x + hw, c.y + hh}, {c.x - hw, c.y + hh}};
}

void rectangleTool::moveHandle(physicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    // The opposite corner stays where it is.
    const PointValue fixed = handles(element, imageSize)[(index + 2) % 4];
    element.center = {(fixed.x + p.x) / 2, (fixed.y + p.y) / 2};
    element.size = {std::abs(p.x - fixed.x), std::abs(p.y - fixed.y)};
}

void rectangleTool::translate(physicsElement& element, PointValue delta, QSizeF) const
{
    element.center = plus(element.center, delta);
}

QPainterPath rectangleTool::outline(const physicsElement& element, QSizeF) const
{
    QPainterPath path;
    path.addRect(QRectF(element.center.x - element.size.width / 2, element.center.y - element.size.height / 2,
                        element.size.width, element.size.height));
    return path;
}

// ---- Circles ---------------------------------------------------------------------------

std::optional<physicsElement> circleTool::begin(PointValue) const
{
    return physicsElement::make(physicsType::radius);
}

void circleTool::drawTo(physicsElement& element, PointValue p) const
{
    element.radius = std::round(std::abs(element.startPoint.x - p.x));
}

std::vector<PointValue> circleTool::handles(const physicsElement& element, QSizeF) const
{
    return {{element.radius, 0}};
}

void circleTool::moveHandle(physicsElement& element, std::size_t, PointValue p, QSizeF) const
{
    element.radius = std::round(std::hypot(p.x, p.y));
}

QPainterPath circleTool::outline(const physicsElement& element, QSizeF) const
{
    QPainterPath path;
    path.addEllipse(QPointF(0, 0), element.radius, element.radius);
    return path;
}

// ---- Edges -----------------------------------------------------------------------------

std::optional<physicsElement> edgeTool::begin(PointValue p) const
{
    physicsElement element = physicsElement::make(physicsType::edge);
    element.startPoint = p;
    element.endPoint = p;
    return element;
}

void edgeTool::drawTo(physicsElement& element, PointValue p) const
{
    element.endPoint = p;
}

std::vector<PointValue> edgeTool::handles(const physicsElement& element, QSizeF imageSize) const
{
    return {resolvedEdgeStart(element.startPoint, imageSize), resolvedEdgeEnd(element.endPoint, imageSize)};
}

void edgeTool::moveHandle(physicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    if (index == 0)
        element.startPoint = keptMarkers(element.startPoint, resolvedEdgeStart(element.startPoint, imageSize), p);
    else
        element.endPoint = keptMarkers(element.endPoint, resolvedEdgeEnd(element.endPoint, imageSize), p);
}

void edgeTool::translate(physicsElement& element, PointValue delta, QSizeF imageSize) const
{
    const PointValue start = resolvedEdgeStart(element.startPoint, imageSize);
    const PointValue end = resolvedEdgeEnd(element.endPoint, imageSize);
    element.startPoint = keptMarkers(element.startPoint, start, plus(start, delta));
    element.endPoint = keptMarkers(element.endPoint, end, plus(end, delta));
}

QPainterPath edgeTool::outline(const physicsElement& element, QSizeF imageSize) const
{
    QPainterPath path(qt(resolvedEdgeStart(element.startPoint, imageSize)));
    path.lineTo(qt(resolvedEdgeEnd(element.endPoint, imageSize)));
    return path;
}

// ---- Polygons --------------------------------------------------------------------------

bool polygonTool::isClosed(const physicsElement& element)
{
    return element.points.size() >= 4 && element.points.back().point == element.points.front().point;
}

std::vector<PointValue> polygonTool::handles(const physicsElement& element, QSizeF imageSize) const
{
    std::vector<PointValue> points = resolvedPolygon(element, imageSize);
    if (isClosed(element))
        points.pop_back();
    return points;
}

void polygonTool::moveHandle(physicsElement& element, std::size_t index, PointValue p, QSizeF imageSize) const
{
    if (index >= element.points.size())
        return;
    const std::vector<PointValue> resolved = resolvedPolygon(element, imageSize);
    const bool closed = isClosed(element);
    element.points[index].point = keptMarkers(element.points[index].point, resolved[index], p);
    if (index == 0 && closed)
        element.points.back().point = keptMarkers(element.points.back().point, resolved.back(), p);
}

void polygonTool::translate(physicsElement& element, PointValue delta, QSizeF imageSize) const
{
    const std::vector<PointValue> resolved = resolvedPolygon(element, imageSize);
    for (std::size_t i = 0; i < element.points.size(); ++i)
        element.points[i].point = keptMarkers(element.points[i].point, resolved[i], plus(resolved[i], delta));
}

QPainterPath polygonTool::outline(const physicsElement& element, QSizeF imageSize) const
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

const shapeTool* shapeToolFor(physicsType type)
{
    static const rectangleTool rectangle;
    static const circleTool circle;
    static const edgeTool edge;
    static const polygonTool polygon;
    switch (type) {
    case physicsType::rect: return &rectangle;
    case physicsType::radius: return &circle;
    case physicsType::edge: return &edge;
    case physicsType::polygon: return &polygon;
    case physicsType::none: break;
    }
    return nullptr;
}

const shapeTool* shapeToolFor(insertType tool)
{
    switch (tool) {
    case insertType::rectangle: return shapeToolFor(physicsType::rect);
    case insertType::radius: return shapeToolFor(physicsType::radius);
    case insertType::edge: return shapeToolFor(physicsType::edge);
    case insertType::polygon: return shapeToolFor(physicsType::polygon);
    case insertType::none: break;
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

std::vector<PointValue> resolvedPolygon(const physicsElement& element, QSizeF imageSize)
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
