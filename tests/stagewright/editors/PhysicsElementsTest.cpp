// The physics editor's shape list against the stored record: what a load and
// an apply keep, what they drop, and where a pointer lands.
#include <stagewright/editors/PhysicsElements.h>

#include <gtest/gtest.h>

namespace stagewright {
namespace {

tessaro::PhysicsProperty stored()
{
    tessaro::PhysicsProperty record;
    record.id = tessaro::Uuid::create();
    tessaro::RectanglePhysics rect;
    rect.action = "idle,attack";
    rect.size = "{40.0,20.0}";
    rect.framesAffected = "1,2";
    tessaro::RadiusPhysics circle;
    circle.radius = 12.5;
    circle.center = "{5.0,5.0}";
    circle.action = "nonsense";
    tessaro::PolyPhysics polygon;
    polygon.direction = "sideways";
    polygon.points = {{{}, {}, "{0.0,0.0}"}, {{}, {}, "{10.0,0.0}"}, {{}, {}, "{5.0,8.0}"}};
    tessaro::EdgePhysics edge;
    edge.startPoint = "{-9999.0,-20.0}";
    edge.endPoint = "{9999.0,-20.0}";
    record.rectangles = std::vector{rect};
    record.radiuses = std::vector{circle};
    record.polygons = std::vector{polygon};
    record.edges = std::vector{edge};
    return record;
}

TEST(PhysicsElementsTest, LoadingListsEachKindInTypeOrderWithTheStoredValues)
{
    EXPECT_TRUE(loadPhysicsElements(std::nullopt).empty());

    const std::vector<PhysicsElement> elements = loadPhysicsElements(stored());
    ASSERT_EQ(elements.size(), 4u);
    EXPECT_EQ(elements[0].type, PhysicsType::edge);
    EXPECT_EQ(elements[1].type, PhysicsType::polygon);
    EXPECT_EQ(elements[2].type, PhysicsType::radius);
    EXPECT_EQ(elements[3].type, PhysicsType::rect);

    EXPECT_EQ(elements[0].startPoint, (tessaro::PointValue{-9999, -20}));
    EXPECT_TRUE(elements[0].action.empty()); // no action text
    EXPECT_EQ(elements[1].direction, tessaro::pathDirection::none); // unknown direction text
    ASSERT_EQ(elements[1].points.size(), 3u);
    EXPECT_EQ(elements[1].points[2].point, (tessaro::PointValue{5, 8}));
    EXPECT_TRUE(elements[2].action.empty()); // no known action
    EXPECT_EQ(elements[2].radius, 12.5);
    EXPECT_EQ(elements[3].action, (std::vector{tessaro::actionType::idle, tessaro::actionType::attack}));
    EXPECT_EQ(elements[3].size, (tessaro::SizeValue{40, 20}));
    EXPECT_EQ(elements[3].center, (tessaro::PointValue{}));
    EXPECT_EQ(elements[3].framesAffected, "1,2");
}

TEST(PhysicsElementsTest, ActionListsAreReadTrimmedAndWrittenBackWhole)
{
    tessaro::PhysicsProperty record;
    tessaro::EdgePhysics edge;
    edge.action = "idle, move,idle";
    record.edges = std::vector{edge};
    const std::vector<PhysicsElement> elements = loadPhysicsElements(record);
    ASSERT_EQ(elements.size(), 1u);
    EXPECT_EQ(elements[0].action, (std::vector{tessaro::actionType::idle, tessaro::actionType::move}));
    EXPECT_EQ(buildPhysicsProperty(elements).edges->front().action, "idle,move");
}

TEST(PhysicsElementsTest, ApplyingWritesOnlyTheKindsThatHaveShapes)
{
    const tessaro::PhysicsProperty applied = buildPhysicsProperty(loadPhysicsElements(stored()));
    ASSERT_TRUE(applied.id && applied.rectangles && applied.radiuses && applied.polygons && applied.edges);
    const tessaro::RectanglePhysics& rect = applied.rectangles->front();
    EXPECT_EQ(rect.size, "{40.0,20.0}");
    EXPECT_EQ(rect.center, "{0.0,0.0}"); // a rectangle always carries its centre
    EXPECT_EQ(rect.action, "idle,attack");
    EXPECT_EQ(rect.framesAffected, "1,2");
    EXPECT_FALSE(applied.radiuses->front().center); // a circle's centre is not kept
    EXPECT_FALSE(applied.radiuses->front().framesAffected); // "" is stored as absent
    EXPECT_EQ(applied.polygons->front().points[1].point, "{10.0,0.0}");
    EXPECT_EQ(applied.edges->front().endPoint, "{9999.0,-20.0}");
    // Every record is stored with a new id.
    EXPECT_TRUE(rect.id);
    EXPECT_NE(applied.id, stored().id);

    // Only rectangles: the other lists are absent, not empty.
    tessaro::PhysicsProperty onlyRects;
    onlyRects.rectangles = stored().rectangles;
    const tessaro::PhysicsProperty rects = buildPhysicsProperty(loadPhysicsElements(onlyRects));
    EXPECT_TRUE(rects.rectangles);
    EXPECT_FALSE(rects.edges || rects.radiuses || rects.polygons);

    // No shapes at all: a property with an id and nothing else.
    const tessaro::PhysicsProperty empty = buildPhysicsProperty({});
    EXPECT_TRUE(empty.id);
    EXPECT_FALSE(empty.edges || empty.radiuses || empty.rectangles || empty.polygons);

    // A new polygon starts with both directions and its first vertex.
    const PhysicsElement polygon = PhysicsElement::make(PhysicsType::polygon, {3, 4});
    EXPECT_EQ(polygon.direction, tessaro::pathDirection::both);
    ASSERT_EQ(polygon.points.size(), 1u);
    EXPECT_EQ(polygon.points[0].point, (tessaro::PointValue{3, 4}));
    EXPECT_EQ(PhysicsElement::make(PhysicsType::rect).action, std::vector{tessaro::actionType::all});
}

TEST(PhysicsElementsTest, APointerLandsOnTheImageCentredFrameRoundedHalfAwayFromZero)
{
    // An image area of 200 by 100 at x 3.4, in a content 600 high.
    const QRectF outer(0, 0, 1100, 600);
    const QRectF image(3.4, 0, 200, 100);
    // x: 11 - 3 - 100; y: 300 - (600 - 100) - 50.
    EXPECT_EQ(physicsPointFromEvent({10.5, 300}, outer, image), (tessaro::PointValue{-92, -250}));
    EXPECT_EQ(physicsPointFromEvent({-2.5, 550.5}, outer, image), (tessaro::PointValue{-106, 1}));
}

} // namespace
} // namespace stagewright
