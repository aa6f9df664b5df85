// Moving drawn edges and polygons by hand: a point that stays on the sprite
// edge its marker stands for keeps the marker, so the shape still follows
// the sprite's size on every device; one moved off it becomes a number.
#include <stagewright/editors/ShapeTools.h>

#include <gtest/gtest.h>

namespace stagewright {
namespace {

using tessaro::PointValue;

const QSizeF image(100, 40); // edges at x ±50, y ±20

PhysicsElement floorEdge()
{
    PhysicsElement edge = PhysicsElement::make(PhysicsType::edge);
    edge.startPoint = {-9999, -20};
    edge.endPoint = {9999, -20};
    return edge;
}

TEST(ShapeToolsTest, EdgeMarkersStayWhileTheirPointMovesAlongTheEdge)
{
    const ShapeTool& tool = *shapeToolFor(PhysicsType::edge);

    // Raised: both ends slide along the left and right edges.
    PhysicsElement edge = floorEdge();
    tool.translate(edge, {0, 6}, image);
    EXPECT_EQ(edge.startPoint, (PointValue{-9999, -14}));
    EXPECT_EQ(edge.endPoint, (PointValue{9999, -14}));

    // Moved sideways: the ends leave the edges and become numbers.
    tool.translate(edge, {5, 0}, image);
    EXPECT_EQ(edge.startPoint, (PointValue{-45, -14}));
    EXPECT_EQ(edge.endPoint, (PointValue{55, -14}));

    // A handle dragged up the right edge keeps its marker; one dragged in does not.
    edge = floorEdge();
    tool.moveHandle(edge, 1, {50, 10}, image);
    EXPECT_EQ(edge.endPoint, (PointValue{9999, 10}));
    tool.moveHandle(edge, 0, {-30, -20}, image);
    EXPECT_EQ(edge.startPoint, (PointValue{-30, -20}));
    // Shown where the game puts it.
    EXPECT_EQ(tool.handles(edge, image)[1], (PointValue{50, 10}));
}

TEST(ShapeToolsTest, PolygonMarkersStayWhileTheirVertexMovesAlongTheEdge)
{
    const ShapeTool& tool = *shapeToolFor(PhysicsType::polygon);
    PhysicsElement polygon = PhysicsElement::make(PhysicsType::polygon, {0, 0});
    for (PointValue p : {PointValue{-9999, 10}, PointValue{-9999, -9999}, PointValue{0, 0}})
        polygon.points.push_back({tessaro::Uuid::create(), p});

    tool.translate(polygon, {0, 3}, image);
    EXPECT_EQ(polygon.points[1].point, (PointValue{-9999, 13}));
    EXPECT_EQ(polygon.points[2].point, (PointValue{-9999, -17})); // off the bottom edge
    EXPECT_EQ(polygon.points[0].point, (PointValue{0, 3}));

    tool.moveHandle(polygon, 1, {-50, 18}, image);
    EXPECT_EQ(polygon.points[1].point, (PointValue{-9999, 18}));
    tool.moveHandle(polygon, 1, {-40, 18}, image);
    EXPECT_EQ(polygon.points[1].point, (PointValue{-40, 18}));
}

} // namespace
} // namespace stagewright
