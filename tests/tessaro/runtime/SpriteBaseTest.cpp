// Sprites get their bodies and masks from the records: the settings applied
// to every body, the mask texts, and the shapes read from physics records.
#include "RuntimeTestSupport.h"

#include <tessaro/runtime/PhysicsRecords.h>
#include <tessaro/runtime/SKSpriteNodeSharedBase.h>

#include <gtest/gtest.h>

using namespace tessaro;
using kit::PhysicsShape;

namespace {

std::shared_ptr<SKSpriteNodeSharedBase> sprite(QSizeF size = {40, 20})
{
    return std::make_shared<SKSpriteNodeSharedBase>(nullptr, Qt::transparent, size);
}

} // namespace

TEST(SpriteBase, SettingsApplyToEveryBodyWithNoContactsUnlessAsked)
{
    auto node = sprite();
    PhysicsSettings settings;
    settings.category = 0x20;
    settings.isDynamic = true;
    settings.useGravity = true;
    node->usePhysicsRectangle(QSizeF(40, 20), settings);
    kit::PhysicsBody* body = node->physicsBody();
    ASSERT_NE(body, nullptr);
    EXPECT_EQ(body->categoryBitMask(), 0x20u);
    EXPECT_EQ(body->contactTestBitMask(), 0u) << "absent masks are 0, not every bit";
    EXPECT_EQ(body->collisionBitMask(), 0u);
    EXPECT_EQ(body->restitution(), 0);
    EXPECT_TRUE(body->isDynamic());
    EXPECT_TRUE(body->affectedByGravity());
    EXPECT_FALSE(body->allowsRotation());
    EXPECT_FALSE(body->isPinned());

    settings.collision = 0x3;
    settings.contact = 0x400;
    settings.isDynamic = false;
    settings.allowsRotation = true;
    settings.usePrecision = true;
    settings.isPinned = true;
    node->usePhysicsCircle(8, QPointF(2, 3), settings);
    body = node->physicsBody();
    ASSERT_EQ(body->shapes().size(), 1u);
    EXPECT_EQ(body->shapes()[0].kind, PhysicsShape::Kind::Circle);
    EXPECT_EQ(body->shapes()[0].center, QPointF(2, 3));
    EXPECT_EQ(body->collisionBitMask(), 0x3u);
    EXPECT_EQ(body->contactTestBitMask(), 0x400u);
    EXPECT_FALSE(body->isDynamic());
    EXPECT_TRUE(body->allowsRotation());
    EXPECT_TRUE(body->usesPreciseCollisionDetection());
    EXPECT_TRUE(body->isPinned());

    // Shapes that make no body leave the node without one, quietly.
    node->usePhysicsBodies({}, settings);
    EXPECT_EQ(node->physicsBody(), nullptr);
    node->applyPhysicsSettings(settings);
}

TEST(SpriteBase, MaskTextsReadAsTheUnionOfTheirNames)
{
    struct Case {
        const char* text;
        std::uint32_t mask;
    };
    for (Case c : {Case{"none,floor", 0x60}, Case{" humanPlayer , floor ", 0x21}, Case{"floor,,bogus", 0x20},
                   Case{"", 0}, Case{"objectCausesDamageAllSidesIgnoreCollision", 0x40000}}) {
        CollisionDetection masks;
        masks.category = c.text;
        EXPECT_EQ(collisionMaskBits(masks).category, c.mask) << c.text;
    }
    CollisionDetection partial;
    partial.contact = "enemyTouch";
    const CollisionMaskBits bits = collisionMaskBits(partial);
    EXPECT_EQ(bits.category, 0u);
    EXPECT_EQ(bits.contact, 0x400u);
    EXPECT_EQ(bits.collision, 0u);
    EXPECT_EQ(collisionMaskBits(boxed<CollisionDetection>{}).contact, 0u);
}

TEST(SpriteBase, StoredShapesUseTheSpriteEdgeMarkers)
{
    const QSizeF size(40, 20);
    struct EdgeCase {
        const char *start, *end;
        QPointF from, to;
    };
    for (EdgeCase c : {EdgeCase{"{-9999,-9999}", "{9999,9999}", {-20, -10}, {20, 10}},
                       EdgeCase{"{9999,5}", "{-9999,5}", {9999, 5}, {-9999, 5}}, // markers of the wrong sign stay
                       EdgeCase{"{-9999,0}", "{3,9999}", {-20, 0}, {3, 10}}}) {
        EdgePhysics edge;
        edge.startPoint = c.start;
        edge.endPoint = c.end;
        const auto body = edgeBody(edge, size);
        ASSERT_TRUE(body);
        EXPECT_EQ(body->shapes()[0].points, (std::vector<QPointF>{c.from, c.to})) << c.start << " " << c.end;
    }

    RectanglePhysics rectangle;
    rectangle.size = "{10,6}";
    rectangle.center = "{5,1}";
    EXPECT_EQ(rectangleBody(rectangle)->shapes()[0].points.size(), 4u);
    EXPECT_TRUE(rectangleBody(rectangle)->shapes()[0].points[0].x() >= 0) << "about its centre";
    RadiusPhysics circle;
    circle.radius = 7;
    circle.center = "{4,4}";
    EXPECT_EQ(circleBody(circle)->shapes()[0].center, QPointF()) << "a stored circle sits on the centre";

    // A polygon: the first move as stored, the lines with -9999 replaced.
    PolyPhysics polygon;
    polygon.direction = "both";
    for (const char* p : {"{-9999,-9999}", "{10.04,-9999}", "{0,8}"})
        polygon.points.push_back(Point{{}, {}, p});
    const QPainterPath path = polygonPath(polygon, size);
    ASSERT_EQ(path.elementCount(), 5);
    EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(-9999, -9999));
    EXPECT_EQ(QPointF(path.elementAt(1)), QPointF(-20, -10));
    EXPECT_EQ(QPointF(path.elementAt(2)), QPointF(10, -10));
    EXPECT_EQ(QPointF(path.elementAt(3)), QPointF(0, 8));

    auto node = sprite(size);
    node->usePhysicsPolygons({polygon, polygon}, PhysicsSettings{});
    ASSERT_NE(node->physicsBody(), nullptr);
    EXPECT_GE(node->physicsBody()->shapes().size(), 2u) << "one body of all polygons";
}

TEST(SpriteBase, ShapesBelongToTheFramesTheyName)
{
    struct Case {
        std::optional<std::string> frames;
        int frame;
        bool applies;
    };
    for (const Case& c : {Case{"0,2", 2, true}, Case{"0,2", 1, false}, Case{"12", 1, false}, Case{" 1", 1, true},
                          Case{"0, 2", 2, true}, Case{std::nullopt, 0, false}, Case{"", 0, false}, Case{"3", 3, true}})
        EXPECT_EQ(shapeAppliesToFrame(c.frames, c.frame), c.applies) << c.frames.value_or("(absent)") << " " << c.frame;
}
