#include "PhysicsRecords.h"

#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

namespace tessaro {

namespace {

constexpr double kEdgeMarker = 9999.0;

QPointF toPoint(PointValue p)
{
    return {p.x, p.y};
}

} // namespace

CollisionMaskBits collisionMaskBits(const boxed<CollisionDetection>& masks)
{
    CollisionMaskBits bits;
    if (!masks)
        return bits;
    bits.category = masks->category ? maskFromText(*masks->category) : 0;
    bits.contact = masks->contact ? maskFromText(*masks->contact) : 0;
    bits.collision = masks->collision ? maskFromText(*masks->collision) : 0;
    return bits;
}

kit::PhysicsBodyPtr edgeBody(const EdgePhysics& edge, const QSizeF& spriteSize)
{
    QPointF from = toPoint(pointFromText(edge.startPoint));
    QPointF to = toPoint(pointFromText(edge.endPoint));
    if (from.x() == -kEdgeMarker)
        from.setX(spriteSize.width() * -0.5);
    if (from.y() == -kEdgeMarker)
        from.setY(spriteSize.height() * -0.5);
    if (to.x() == kEdgeMarker)
        to.setX(spriteSize.width() * 0.5);
    if (to.y() == kEdgeMarker)
        to.setY(spriteSize.height() * 0.5);
    return kit::PhysicsBody::bodyWithEdgeFromPoint(from, to);
}

kit::PhysicsBodyPtr rectangleBody(const RectanglePhysics& rectangle)
{
    const SizeValue size = sizeFromText(rectangle.size);
    const PointValue center = rectangle.center ? pointFromText(*rectangle.center) : PointValue{};
    return kit::PhysicsBody::bodyWithRectangleOfSize(QSizeF(size.width, size.height), toPoint(center));
}

kit::PhysicsBodyPtr circleBody(const RadiusPhysics& circle)
{
    return kit::PhysicsBody::bodyWithCircleOfRadius(circle.radius);
}

QPainterPath polygonPath(const PolyPhysics& polygon, const QSizeF& textureSize)
{
    QPainterPath path;
    if (polygon.points.empty())
        return path;
    path.moveTo(toPoint(roundedPointFromText(1, polygon.points.front().point)));
    for (const Point& vertex : polygon.points) {
        QPointF p = toPoint(roundedPointFromText(1, vertex.point));
        if (p.x() == -kEdgeMarker)
            p.setX(textureSize.width() * -0.5);
        if (p.y() == -kEdgeMarker)
            p.setY(textureSize.height() * -0.5);
        path.lineTo(p);
    }
    path.closeSubpath();
    return path;
}

bool shapeAppliesToFrame(const std::optional<std::string>& framesAffected, int frame)
{
    if (!framesAffected)
        return false;
    const std::string wanted = std::to_string(frame);
    for (const std::string& token : trimmedNamesFromText(*framesAffected))
        if (token == wanted)
            return true;
    return false;
}

} // namespace tessaro
