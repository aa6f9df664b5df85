// The primary list's edits, row by row: a value goes in through the history,
// and the override record, the node and the level item a save writes come
// out; undoing the step gives the level back as it was.
#include "EditingFixture.h"

#include <stagewright/scene/ScenePictures.h>

#include <tessaro/kit/PhysicsBody.h>

#include <functional>
#include <numbers>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using ApplyPrimaryTest = EditingFixture;

PropertyValue text(const char* value)
{
    return std::string(value);
}

PropertyValue list(std::vector<std::string> values)
{
    return values;
}

struct Row {
    const char* what;
    sceneObjectType kind;
    P element;
    PropertyValue value;
    /// The selected node after the edit, and the level a save writes.
    std::function<void(const ElementNode&, const tessaro::Level&)> expect;
    bool changes = true;
};

TEST_F(ApplyPrimaryTest, EachRowStoresItsValue)
{
    tessaro::PhysicsProperty box;
    box.rectangles = std::vector<tessaro::RectanglePhysics>{{std::nullopt, std::string("all"), "{10,10}", {}, {}}};
    const auto obstacle = [](const tessaro::Level& level) { return *level.obstacles->front().properties; };
    const auto character = [](const tessaro::Level& level) { return level.characters->front(); };

    const Row rows[] = {
        {"depth of an obstacle, rounded", sceneObjectType::obstacles, P::zPosition, 12.345,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(node.zPosition(), 12.35);
             EXPECT_EQ(level.obstacles->front().zPosition, 12.35);
             EXPECT_EQ(obstacle(level).zPosition, 12.35);
         }},
        {"depth of the wrong type", sceneObjectType::obstacles, P::zPosition, text("deep"),
         [&](const ElementNode& node, const tessaro::Level&) { EXPECT_EQ(node.zPosition(), 1); }},
        {"depth of a character: the node only", sceneObjectType::character, P::zPosition, 7.0,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(node.zPosition(), 7);
             EXPECT_EQ(character(level).zPosition, 7);
         }},
        {"depth of a ground section", sceneObjectType::ground, P::zPosition, 20.0,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(level.ground->front().zPosition, 20); }},
        {"observed name", sceneObjectType::character, P::observedname, text("Boss"),
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(character(level).name, "Boss"); }},
        {"use physics", sceneObjectType::obstacles, P::usePhysics, false,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).usePhysics, false); }},
        {"gravity of an obstacle", sceneObjectType::obstacles, P::useGravity, true,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).useGravity, true);
             EXPECT_TRUE(node.property_useGravity);
             EXPECT_TRUE(node.physicsBody()->affectedByGravity());
         }},
        {"gravity of a character moves its body", sceneObjectType::character, P::useGravity, true,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(character(level).properties->useGravity, true);
             EXPECT_TRUE(node.physicsBody()->isDynamic());
             EXPECT_TRUE(node.physicsBody()->affectedByGravity());
         }},
        {"gravity of a coin puts it on the floor", sceneObjectType::coin, P::useGravity, true,
         [&](const ElementNode&, const tessaro::Level& level) {
             // A coin at height 0 without the flag is a coin with gravity.
             const tessaro::Coin& coin = level.coins->coins->front();
             EXPECT_FALSE(coin.useGravity);
             EXPECT_EQ(coin.devices->front().position, "{0.0,0.0}");
         }},
        {"dynamic", sceneObjectType::obstacles, P::isDynamic, true,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).isDynamic, true); }},
        {"alpha of an artifact, rounded", sceneObjectType::artifact, P::alpha, 0.456,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(node.alpha(), 0.46);
             EXPECT_EQ(level.artifacts->artifacts->front().alpha, 0.46);
         }},
        {"darken", sceneObjectType::obstacles, P::darken, true,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).darken, true); }},
        {"classes of an obstacle", sceneObjectType::obstacles, P::objectClassType, list({"barrel", "lever"}),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).objectClassType, "barrel,lever");
         }},
        {"classes of an artifact", sceneObjectType::artifact, P::objectClassType, list({"artifact2"}),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(level.artifacts->artifacts->front().objectClassType, "artifact2");
         }},
        {"acts on", sceneObjectType::obstacles, P::objectActsOn, text("hero"),
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).objectActsOn, "hero"); }},
        {"callback", sceneObjectType::obstacles, P::callbackFunction, text("boom"),
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).callbackFunction, "boom"); }},
        {"category makes the masks record", sceneObjectType::character, P::category, list({"floor", "enemyTouch"}),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(character(level).properties->collisionMasks->category, "floor,enemyTouch");
             EXPECT_FALSE(character(level).properties->collisionMasks->contact);
         }},
        {"an image of its own", sceneObjectType::obstacles, P::image, text("barrel"),
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).image, "barrel");
             EXPECT_EQ(node.imageOverride, "barrel");
             EXPECT_EQ(node.size(), QSizeF(30, 60));
             EXPECT_EQ(obstacle(level).devices->front().size, "{30.0,60.0}");
         }},
        {"the catalogue's image is no override", sceneObjectType::obstacles, P::image, text("crate"),
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_FALSE(obstacle(level).image); }, false},
        {"repeated coins", sceneObjectType::coin, P::repeatCount, std::int64_t(3),
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(level.coins->coins->front().repeatCount, 3);
             EXPECT_EQ(node.nodesWithName("stack_*").size(), 2u);
         }},
        {"repeated ground is laid again", sceneObjectType::ground, P::repeatCount, std::int64_t(2),
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(level.ground->front().repeatCount, 2);
             EXPECT_EQ(node.size(), QSizeF(400, 50));
         }},
        {"repeated obstacles get their copies", sceneObjectType::obstacles, P::repeatCount, 3.7,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).repeatCount, 3);
             EXPECT_EQ(scene().nodesWithName("//" + node.name()).size(), 1u);
             EXPECT_EQ(elements(scene().obstacleNodes()).size(), 3u);
         }},
        {"stacked coins", sceneObjectType::coin, P::stack, true,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(level.coins->coins->front().stack, true); }},
        {"shield time, rounded", sceneObjectType::shield, P::timed, 33.33,
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(level.shields->shields->front().timed, 33.3);
         }},
        {"ground type lays the ground again", sceneObjectType::ground, P::groundType, text("Lava"),
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(level.ground->front().groundType, "Lava");
             EXPECT_EQ(node.zPosition(), 50 + 47);
         }},
        {"ground distance", sceneObjectType::ground, P::distance, tessaro::SizeValue{300, 0},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(level.ground->front().distance, "{300.0,0.0}");
         }},
        {"ground angles", sceneObjectType::ground, P::groundPhysicsAngleType, list({"angle"}),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(level.ground->front().groundPhysicsAngleType, "angle");
         }},
        {"rotation, rounded, turns the picture", sceneObjectType::obstacles, P::rotation, 30.04,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).rotationProperties->rotation, 30.0);
             EXPECT_NEAR(node.zRotation(), std::numbers::pi / 6, 1e-9);
         }},
        {"rotation of the wrong type", sceneObjectType::obstacles, P::rotation, text("x"),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).rotationProperties->rotation, 1.0);
         }},
        {"rotation type", sceneObjectType::obstacles, P::rotateType, text("pendulum"),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).rotationProperties->rotateType, "pendulum");
         }},
        {"precision", sceneObjectType::obstacles, P::usePrecision, true,
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(obstacle(level).usePrecision, true); }},
        {"a hidden coin", sceneObjectType::coin, P::isVisible, false,
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(level.coins->coins->front().isVisible, false);
         }},
        {"physics shapes", sceneObjectType::obstacles, P::physics, box,
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(obstacle(level).physics->rectangles, box.rectangles);
             EXPECT_FALSE(obstacle(level).physics->edges);
         }},
        {"times to hit of the wrong type", sceneObjectType::character, P::allowedTimesToHit, text("many"),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(character(level).properties->allowedTimesToHit, 1);
         }},
        {"class of a character", sceneObjectType::character, P::charClassType, text("ghost"),
         [&](const ElementNode&, const tessaro::Level& level) { EXPECT_EQ(character(level).charClassType, "ghost"); }},
        {"a device field: nothing stored here", sceneObjectType::obstacles, P::position, tessaro::PointValue{5, 5},
         [&](const ElementNode&, const tessaro::Level&) {}, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        show({everyKind()});
        const tessaro::Level before = comparable(saved());
        ASSERT_TRUE(select(row.kind));
        edits().applyPrimaryProperty(row.element, row.value);
        const ElementNodePtr node = selected();
        ASSERT_TRUE(node);
        const tessaro::Level after = saved();
        row.expect(*node, after);
        EXPECT_EQ(front().undoStack().count(), row.changes ? 1 : 0);
        EXPECT_EQ(front().isProjectDirty(), row.changes);
        front().undoStack().undo();
        EXPECT_EQ(comparable(saved()), before);
        EXPECT_FALSE(front().isProjectDirty());
    }
}

TEST_F(ApplyPrimaryTest, SoundsAndPhaseGuard)
{
    show({everyKind()});
    select(sceneObjectType::character);
    tessaro::GameSound roar;
    roar.id = tessaro::Uuid::create();
    roar.filename = "roar";
    tessaro::GameSound unchosen = roar;
    unchosen.filename = "Select a sound";
    front().selectedObject().soundEffects = {unchosen, roar};
    edits().applyPrimaryProperty(P::sound, {});
    EXPECT_EQ(saved().characters->front().properties->soundEffects, std::vector{roar});

    // Without a selection no edit applies and nothing is marked.
    front().setProjectDirty(false);
    scene().deselect();
    edits().applyPrimaryProperty(P::observedname, text("nobody"));
    front().setElementPhase(SelectionPhase::BeingSelected);
    edits().applyPrimaryProperty(P::observedname, text("nobody"));
    EXPECT_EQ(saved().characters->front().name, "walker");
    EXPECT_FALSE(front().isProjectDirty());
}

} // namespace
} // namespace stagewright::test
