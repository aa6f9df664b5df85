// The device pane: a value in the entry of the device shown, with what each
// field moves on the canvas; choosing another device; adding and removing a
// field of an entry.
#include "EditingFixture.h"

#include <stagewright/inspector/PropertyRules.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/DeviceLookup.h>

#include <functional>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using ApplyDeviceTest = EditingFixture;

const tessaro::DeviceProperties& defaultOf(const std::optional<std::vector<tessaro::DeviceProperties>>& devices)
{
    return *tessaro::deviceEntryFor(*devices, tessaro::deviceName::defaultDevice);
}

TEST_F(ApplyDeviceTest, EachFieldIsStoredAndShown)
{
    const auto crate = [](const tessaro::Level& level) {
        return defaultOf(level.obstacles->front().properties->devices);
    };
    const struct {
        const char* what;
        sceneObjectType kind;
        P element;
        PropertyValue value;
        std::function<void(const ElementNode&, const tessaro::Level&)> expect;
        bool changes = true;
    } rows[] = {
        {"position moves the element", sceneObjectType::obstacles, P::position, tessaro::PointValue{150.25, 10},
         [&](const ElementNode& node, const tessaro::Level& level) {
             // Stored as given; placed at the tenth the canvas reads.
             EXPECT_EQ(crate(level).position, "{150.25,10.0}");
             EXPECT_EQ(node.position(), QPointF(150.3, 10));
         }},
        {"a point of the wrong type is the origin", sceneObjectType::obstacles, P::position, 5.0,
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(crate(level).position, "{0.0,0.0}");
             EXPECT_EQ(node.position(), QPointF(0, 0));
         }},
        {"size: body, handle and place follow", sceneObjectType::obstacles, P::size, tessaro::SizeValue{80, 20},
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(crate(level).size, "{80.0,20.0}");
             EXPECT_EQ(node.size(), QSizeF(80, 20));
             EXPECT_EQ(node.childNodeWithName("nodeSizer")->position(), QPointF(0, 10));
             ASSERT_TRUE(node.physicsBody());
             EXPECT_EQ(node.physicsBody()->categoryBitMask(),
                       tessaro::collisionBit(tessaro::collisionTypes::staticObjectBody));
             EXPECT_TRUE(node.hasGlow());
         }},
        {"a ground section's size is not the pane's", sceneObjectType::ground, P::size, tessaro::SizeValue{80, 20},
         [&](const ElementNode& node, const tessaro::Level&) { EXPECT_EQ(node.size(), QSizeF(200, 50)); }, false},
        {"a ground section's position neither", sceneObjectType::ground, P::position, tessaro::PointValue{1, 1},
         [&](const ElementNode&, const tessaro::Level&) {}, false},
        {"offset enters twice for obstacles", sceneObjectType::obstacles, P::offset, tessaro::PointValue{5, 0},
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(crate(level).offset, "{5.0,0.0}");
             EXPECT_EQ(node.position().x(), 110);
         }},
        {"distance redraws the guide", sceneObjectType::character, P::distance, tessaro::PointValue{200, 0},
         [&](const ElementNode& node, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.characters->front().properties->devices).distance, "{200.0,0.0}");
             ASSERT_TRUE(node.distanceGuideNode);
             EXPECT_EQ(node.distanceGuideNode->parent(), &node);
         }},
        {"font size, rounded", sceneObjectType::coin, P::fontSize, 12.345,
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.coins->coins->front().devices).fontSize, 12.35);
         }},
        {"offset edge", sceneObjectType::ground, P::offsetEdge, tessaro::PointValue{1, 2},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.ground->front().devices).offsetEdge, "{1.0,2.0}");
         }},
        {"digit size", sceneObjectType::shield, P::digitSize, tessaro::SizeValue{3, 4},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.shields->shields->front().devices).digitSize, "{3.0,4.0}");
         }},
        {"selector size", sceneObjectType::artifact, P::selectorSize, tessaro::SizeValue{5, 6},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.artifacts->artifacts->front().devices).selectorSize, "{5.0,6.0}");
         }},
        {"carousel position", sceneObjectType::checkpoint, P::altPosition, tessaro::PointValue{7, 8},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.checkpoints->locations->front().devices).altPosition, "{7.0,8.0}");
         }},
        {"health bar", sceneObjectType::character, P::offsetHealthBar, tessaro::PointValue{0, 30},
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(defaultOf(level.characters->front().properties->devices).offsetHealthBar, "{0.0,30.0}");
         }},
        {"random range", sceneObjectType::obstacles, P::randomPositionRange, std::string("{<0...5>,<1...2>}"),
         [&](const ElementNode&, const tessaro::Level& level) {
             EXPECT_EQ(crate(level).randomPositionRange, "{<0...5>,<1...2>}");
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        show({everyKind()});
        const tessaro::Level before = comparable(saved());
        ASSERT_TRUE(select(row.kind));
        edits().applyDeviceProperty(row.element, row.value);
        row.expect(*selected(), saved());
        EXPECT_EQ(front().undoStack().count(), row.changes ? 1 : 0);
        // Device edits are changes of the project like any other.
        EXPECT_EQ(front().isProjectDirty(), row.changes);
        front().undoStack().undo();
        EXPECT_EQ(comparable(saved()), before);
    }
}

TEST_F(ApplyDeviceTest, AnEntryOfSeveralDevicesIsSplitForTheOneEdited)
{
    tessaro::Level level = everyKind();
    tessaro::DeviceProperties shared;
    shared.deviceName = "iPad,iPhone17";
    shared.offset = "{1,1}";
    level.obstacles->front().properties->devices->push_back(shared);
    show({level});
    const auto crateDevices = [&] { return saved().obstacles->front().properties->devices.value(); };

    select(sceneObjectType::obstacles);
    edits().editRow(ModelType::Devices, P::deviceName, std::string("iPad"));
    edits().editRow(ModelType::Devices, P::offset, tessaro::PointValue{5, 5});
    ASSERT_EQ(crateDevices().size(), 3u);
    EXPECT_EQ(crateDevices()[1].deviceName, "iPhone17");
    EXPECT_EQ(crateDevices()[1].offset, "{1,1}");
    EXPECT_EQ(crateDevices()[2].deviceName, "iPad");
    EXPECT_EQ(crateDevices()[2].offset, "{5.0,5.0}");

    // The other device still shows its own value, and an edit of it is a
    // step of its own; undo takes each back and joins the entry again.
    edits().editRow(ModelType::Devices, P::deviceName, std::string("iPhone17"));
    EXPECT_EQ(front().selectedDeviceObject().offset, (tessaro::PointValue{1, 1}));
    edits().editRow(ModelType::Devices, P::offset, tessaro::PointValue{7, 7});
    EXPECT_EQ(front().undoStack().count(), 2);
    front().undoStack().undo();
    EXPECT_EQ(crateDevices()[1].offset, "{1,1}");
    EXPECT_EQ(crateDevices()[2].offset, "{5.0,5.0}");
    front().undoStack().undo();
    EXPECT_EQ(crateDevices(), level.obstacles->front().properties->devices.value());
}

TEST_F(ApplyDeviceTest, RepeatedCopiesFollowTheirObstacle)
{
    show({everyKind()});
    const ElementNodePtr crate = select(sceneObjectType::obstacles);
    edits().applyPrimaryProperty(P::repeatCount, std::int64_t(3));
    const auto copiesX = [&] {
        std::vector<double> xs;
        for (const ElementNodePtr& node : SceneEditor::elementsOf(scene().obstacleNodes()))
            if (node->repeatedNode)
                xs.push_back(node->position().x());
        return xs;
    };
    const auto row = [&](double x, double width) { return std::vector<double>{x + width, x + 2 * width}; };
    const double width = crate->size().width();
    ASSERT_EQ(copiesX(), row(crate->position().x(), width));

    // A typed position, a nudge and a resize move the row at once.
    edits().editRow(ModelType::Devices, P::position, tessaro::PointValue{300, 0});
    EXPECT_EQ(copiesX(), row(300, width));
    scene().dispatchKeyEvent(true, {Qt::Key_Right, QString(), Qt::ShiftModifier, false});
    EXPECT_EQ(copiesX(), row(310, width));
    edits().resizeElement(*crate, tessaro::SizeValue{width * 2, crate->size().height() * 2});
    EXPECT_EQ(copiesX(), row(310, width * 2));
    front().undoStack().undo();
    EXPECT_EQ(copiesX(), row(310, width));

    // While the obstacle is dragged, its row moves with it.
    const auto pointer = [](QPointF at) {
        tessaro::kit::MouseEvent event;
        event.sceneLocation = at;
        event.viewLocation = at;
        return event;
    };
    const QPointF at = crate->position();
    scene().dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Down, pointer(at));
    scene().dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Dragged, pointer(at + QPointF(50, 0)));
    EXPECT_EQ(copiesX(), row(at.x() + 50, width));
    scene().dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Up, pointer(at + QPointF(50, 0)));
    EXPECT_EQ(copiesX(), row(360, width));
}

TEST_F(ApplyDeviceTest, OverridesOfOtherDevicesComeAndGo)
{
    tessaro::Level level = everyKind();
    tessaro::DeviceProperties iPad;
    iPad.deviceName = "iPad";
    iPad.offset = "{1,1}";
    level.obstacles->front().properties->devices->push_back(iPad);
    level.characters->front().properties->devices.reset();
    show({level});
    const auto crateDevices = [&] { return saved().obstacles->front().properties->devices.value(); };

    select(sceneObjectType::obstacles);
    const SelectedDeviceModel& model = front().selectedDeviceObject();
    // Showing another device changes no record and is no step.
    edits().applyDeviceProperty(P::deviceName, std::string("iPhone17"));
    EXPECT_EQ(model.nameSelected, tessaro::deviceName::iPhone17);
    EXPECT_TRUE(model.inherited.empty());
    EXPECT_EQ(model.position, (tessaro::PointValue{}));
    EXPECT_EQ(front().undoStack().count(), 0);

    // A size on iPhone 17 starts at {0,0}, not at the default size.
    edits().toggleDeviceOverride(P::size, true);
    ASSERT_EQ(crateDevices().size(), 3u);
    EXPECT_EQ(crateDevices()[2].deviceName, "iPhone17");
    EXPECT_EQ(crateDevices()[2].size, "{0,0}");
    EXPECT_EQ(model.inherited, std::vector{P::size});
    EXPECT_EQ(front().undoStack().undoText(), "Add Override");
    // A field with no place in the record is not added.
    edits().toggleDeviceOverride(P::numberOfParts, true);
    EXPECT_EQ(model.inherited, std::vector{P::size});
    // Deleting the last field of iPhone 17 removes its entry.
    edits().toggleDeviceOverride(P::size, false);
    EXPECT_EQ(crateDevices().size(), 2u);
    EXPECT_TRUE(model.inherited.empty());

    // The iPad entry goes with its only field; the default entry stays empty.
    edits().applyDeviceProperty(P::deviceName, std::string("iPad"));
    EXPECT_EQ(model.offset, (tessaro::PointValue{1, 1}));
    EXPECT_EQ(model.inherited, std::vector{P::offset});
    edits().toggleDeviceOverride(P::offset, false);
    EXPECT_EQ(crateDevices().size(), 1u);
    edits().applyDeviceProperty(P::deviceName, std::string("defaultDevice"));
    edits().toggleDeviceOverride(P::position, false);
    ASSERT_EQ(crateDevices().size(), 1u);
    EXPECT_FALSE(crateDevices()[0].position);
    EXPECT_EQ(model.position, (tessaro::PointValue{}));

    // Every step goes back.
    while (front().undoStack().canUndo())
        front().undoStack().undo();
    EXPECT_EQ(crateDevices(), level.obstacles->front().properties->devices.value());

    // An element without devices gets a list of one entry for the device shown.
    select(sceneObjectType::character);
    edits().toggleDeviceOverride(P::position, true);
    const tessaro::Level withEntry = saved();
    const auto& walker = withEntry.characters->front().properties->devices;
    ASSERT_TRUE(walker);
    ASSERT_EQ(walker->size(), 1u);
    EXPECT_EQ(walker->front().deviceName, "defaultDevice");
    EXPECT_EQ(walker->front().position, "{0,0}");
}

} // namespace
} // namespace stagewright::test
