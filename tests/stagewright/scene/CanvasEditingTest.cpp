// What the canvas does to elements by itself: taking one out and putting it
// back, pasting a copy, dragging and nudging, the size handle, and the
// handles that name elements from load to load.
#include "SceneTestSupport.h"

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

#include <set>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;
using Kind = tessaro::kit::Scene::MouseKind;

/// Notes what the canvas hands to the edit route.
struct RecordingRoute : CanvasEditRoute {
    struct Move {
        QString node;
        tessaro::PointValue position;
        bool nudge;
    };
    std::vector<Move> moves;
    std::vector<std::pair<QString, tessaro::SizeValue>> sizes;
    void moveElement(SceneEditor&, ElementNode& node, tessaro::PointValue position, bool nudge) override
    {
        moves.push_back({node.name(), position, nudge});
    }
    void resizeElement(SceneEditor&, ElementNode& node, tessaro::SizeValue size) override
    {
        sizes.emplace_back(node.name(), size);
    }
};

struct CanvasEditingTest : ::testing::Test {
    SceneWorkspace workspace;
    std::shared_ptr<RecordingRoute> route = std::make_shared<RecordingRoute>();

    void SetUp() override
    {
        workspace.image(sceneObjectType::obstacles, "crate", 40, 40);
        workspace.image(sceneObjectType::coin, "coin", 20, 20);
        tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}")};
    }

    CanvasHooks routed() const
    {
        CanvasHooks hooks;
        hooks.editRoute = route;
        return hooks;
    }
    static tessaro::Level level()
    {
        tessaro::Level level = emptyLevel();
        tessaro::ObstacleLevelItem first, row;
        first.elementName = row.elementName = "Crate";
        first.name = "first";
        first.properties.emplace().devices = at("{0,0}", "{40,40}");
        first.properties->damageDirection = "left"; // a field the canvas never reads
        row.name = "row";
        row.properties.emplace().devices = at("{200,50}");
        row.properties->repeatCount = 3;
        level.obstacles = std::vector<tessaro::ObstacleLevelItem>{first, row};
        tessaro::Coin coin;
        coin.devices = at("{-200,30}");
        level.coins.emplace().coins = std::vector<tessaro::Coin>{coin};
        return level;
    }
    static tessaro::kit::MouseEvent pointer(QPointF scenePoint, QPointF viewPoint, Qt::KeyboardModifiers mods = {})
    {
        tessaro::kit::MouseEvent event;
        event.sceneLocation = scenePoint;
        event.viewLocation = viewPoint;
        event.modifiers = mods;
        return event;
    }
};

TEST_F(CanvasEditingTest, TakenOutElementsComeBackWhole)
{
    LoadedLevel loaded(level());
    SceneEditor& scene = *loaded.scene;
    const auto obstacles = [&] { return elements(scene.obstacleNodes()); };
    ASSERT_EQ(obstacles().size(), 4u); // first, row and its two copies
    const ElementNodePtr row = obstacles()[1];
    const ElementRecords before = row->records();
    const ElementHandle handle = row->handle;
    ASSERT_NE(handle, 0u);

    scene.selectNode(row);
    const auto removed = scene.deleteSelectedNode();
    ASSERT_TRUE(removed);
    EXPECT_EQ(removed->handle, handle);
    EXPECT_EQ(removed->layerIndex, 1u);
    EXPECT_EQ(obstacles().size(), 1u); // the copies went with their obstacle
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::NotSelected);
    EXPECT_FALSE(scene.deleteSelectedNode());

    const ElementNodePtr back = scene.placeElement(removed->records, removed->layerIndex, handle);
    ASSERT_TRUE(back);
    EXPECT_EQ(obstacles().size(), 4u);
    EXPECT_EQ(obstacles()[1], back);
    EXPECT_TRUE(obstacles()[2]->repeatedNode);
    EXPECT_EQ(obstacles()[2]->repeatParentNode, back->name());
    EXPECT_EQ(back->records(), before);
    EXPECT_EQ(scene.elementWithHandle(handle), back);
    // The level saves as it was loaded.
    EXPECT_EQ(loaded.saved().obstacles, level().obstacles);
}

TEST_F(CanvasEditingTest, PasteLandsBesideTheCopyAndKeepsEveryRecord)
{
    LoadedLevel loaded(level());
    SceneEditor& scene = *loaded.scene;
    const ElementNodePtr first = elements(scene.obstacleNodes()).front();
    const ElementRecords copy = first->records();

    // At the source's own x the copy moves 100 to the right; y is 0.
    const ElementNodePtr pasted = scene.pasteNode(copy, std::nullopt, 77);
    ASSERT_TRUE(pasted);
    EXPECT_EQ(pasted->handle, 77u);
    EXPECT_EQ(pasted->position(), QPointF(100, 0));
    EXPECT_EQ(pasted->devices->front().position, "{100.0,0.0}");
    EXPECT_EQ(pasted->obstacleOverrides->damageDirection, "left");
    EXPECT_NE(pasted->obstacleOverrides->id, first->obstacleOverrides->id);
    EXPECT_NE(pasted->name(), first->name());
    EXPECT_EQ(elements(scene.obstacleNodes()).back(), pasted);

    // Elsewhere it lands at the paste location plus the scroll offset.
    scene.moveScene(PublishedElementList::scenePosition, tessaro::PointValue{500, 0});
    const ElementNodePtr scrolled = scene.pasteNode(copy, tessaro::PointValue{10, 60}, 78);
    EXPECT_EQ(scrolled->position(), QPointF(510, 60));

    // A background is not an element of a layer and is not pasted.
    ElementRecords background = copy;
    background.kind = sceneObjectType::background;
    EXPECT_FALSE(scene.pasteNode(background, std::nullopt, 79));

    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.obstacles->size(), 4u);
    EXPECT_EQ((*saved.obstacles)[2].properties->damageDirection, "left");
    EXPECT_EQ((*saved.obstacles)[3].properties->devices->front().position, "{510.0,60.0}");
}

TEST_F(CanvasEditingTest, DragsAndNudgesGoToTheRoute)
{
    LoadedLevel loaded(level(), {874, 402}, routed());
    SceneEditor& scene = *loaded.scene;
    const ElementNodePtr first = elements(scene.obstacleNodes()).front();

    // A press and a move of 3 pixels is a click: the element stays, nothing is stored.
    scene.dispatchMouseEvent(Kind::Down, pointer({0, 0}, {100, 100}));
    scene.dispatchMouseEvent(Kind::Dragged, pointer({3, 0}, {103, 100}));
    scene.dispatchMouseEvent(Kind::Up, pointer({3, 0}, {103, 100}));
    EXPECT_EQ(first->position(), QPointF(0, 0));
    EXPECT_TRUE(route->moves.empty());
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::Selected);

    // Past the threshold it follows the pointer; Shift keeps the larger axis.
    const struct {
        QPointF to;
        Qt::KeyboardModifiers mods;
        QPointF shown;
        tessaro::PointValue stored;
    } drags[] = {
        {{30, 12.34}, {}, {30, 12.34}, {30, 12.3}},
        {{30, 12}, Qt::ShiftModifier, {30, 0}, {30, 0}},
        {{-5, -40}, Qt::ShiftModifier, {0, -40}, {0, -40}},
    };
    for (const auto& drag : drags) {
        route->moves.clear();
        scene.dispatchMouseEvent(Kind::Down, pointer({0, 0}, {100, 100}));
        scene.dispatchMouseEvent(Kind::Dragged, pointer(drag.to, QPointF(100, 100) + drag.to, drag.mods));
        EXPECT_EQ(first->position(), drag.shown);
        scene.dispatchMouseEvent(Kind::Up, pointer(drag.to, QPointF(100, 100) + drag.to, drag.mods));
        ASSERT_EQ(route->moves.size(), 1u);
        EXPECT_EQ(route->moves[0].node, first->name());
        EXPECT_EQ(route->moves[0].position, drag.stored);
        EXPECT_FALSE(route->moves[0].nudge);
        // The route stores the move; until then the element stands where it was.
        EXPECT_EQ(first->position(), QPointF(0, 0));
    }

    // Arrow keys nudge the selection by 1, with Shift by 10, y up.
    route->moves.clear();
    const std::pair<int, Qt::KeyboardModifiers> keys[] = {{Qt::Key_Left, {}},
                                                          {Qt::Key_Up, Qt::ShiftModifier},
                                                          {Qt::Key_Right, Qt::ShiftModifier},
                                                          {Qt::Key_Down, {}},
                                                          {Qt::Key_A, {}}};
    for (const auto& [key, mods] : keys)
        scene.dispatchKeyEvent(true, {key, QString(), mods, false});
    ASSERT_EQ(route->moves.size(), 4u);
    const tessaro::PointValue nudged[] = {{-1, 0}, {0, 10}, {10, 0}, {0, -1}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(route->moves[i].position, nudged[i]) << i;
        EXPECT_TRUE(route->moves[i].nudge);
    }

    // Nothing selected, nothing nudged.
    scene.deselect();
    scene.dispatchKeyEvent(true, {Qt::Key_Left, QString(), {}, false});
    EXPECT_EQ(route->moves.size(), 4u);
}

TEST_F(CanvasEditingTest, SizeHandleResizesKeepingTheRatio)
{
    LoadedLevel loaded(level());
    SceneEditor& scene = *loaded.scene;
    const ElementNodePtr first = elements(scene.obstacleNodes()).front();
    first->setSize(QSizeF(100, 50));
    auto handle = std::dynamic_pointer_cast<SizerNode>(first->childNodeWithName("nodeSizer"));
    ASSERT_TRUE(handle);
    handle->setPosition(0, 25);
    scene.selectNode(first);

    // The element stands at the origin, so its points are the scene's. A
    // drag of the handle 20 points up: height 70, width 140.
    scene.dispatchMouseEvent(Kind::Down, pointer({5, 30}, {}));
    scene.dispatchMouseEvent(Kind::Dragged, pointer({5, 45}, {}));
    EXPECT_EQ(first->size(), QSizeF(140, 70));
    EXPECT_EQ(handle->position(), QPointF(0, 35));
    EXPECT_EQ(loaded.tab.selectedObject().real_Position, "{0, 0 }");
    // Without a route the size shows; the body takes the new size and
    // collides with nothing.
    scene.dispatchMouseEvent(Kind::Up, pointer({5, 45}, {}));
    EXPECT_EQ(first->size(), QSizeF(140, 70));
    ASSERT_TRUE(first->physicsBody());
    EXPECT_EQ(first->physicsBody()->collisionBitMask(), tessaro::collisionBit(tessaro::collisionTypes::none));
    EXPECT_TRUE(route->sizes.empty());

    // With a route the new size is handed on and the element waits at its size.
    scene.hooks().editRoute = route;
    scene.dispatchMouseEvent(Kind::Down, pointer({5, 40}, {}));
    scene.dispatchMouseEvent(Kind::Dragged, pointer({5, 0}, {}));
    EXPECT_EQ(first->size(), QSizeF(70, 35));
    scene.dispatchMouseEvent(Kind::Up, pointer({5, 0}, {}));
    ASSERT_EQ(route->sizes.size(), 1u);
    EXPECT_EQ(route->sizes[0].second, (tessaro::SizeValue{70, 35}));
    EXPECT_EQ(first->size(), QSizeF(140, 70));
    EXPECT_EQ(handle->position(), QPointF(0, 35));
}

TEST_F(CanvasEditingTest, HandlesFollowElementsFromLoadToLoad)
{
    LoadedLevel loaded(level());
    const auto handles = [&](const SceneEditor& scene) {
        std::vector<ElementHandle> all;
        for (sceneObjectType kind : {sceneObjectType::obstacles, sceneObjectType::coin})
            for (const ElementNodePtr& node : scene.storedOrder(kind))
                all.push_back(node->handle);
        return all;
    };
    const std::vector<ElementHandle> first = handles(*loaded.scene);
    ASSERT_EQ(first.size(), 3u);
    EXPECT_EQ(std::set<ElementHandle>(first.begin(), first.end()).size(), 3u);
    for (const ElementNodePtr& node : elements(loaded.scene->obstacleNodes()))
        EXPECT_EQ(node->handle == 0, node->repeatedNode);

    // The level is left and loaded again into a new scene: new names, the same handles.
    const QString name = elements(loaded.scene->obstacleNodes()).front()->name();
    loaded.scene->writeBack(loaded.id);
    auto again = SceneEditor::create(&loaded.tab, SceneSetup{});
    again->loadLevel(loaded.id);
    EXPECT_EQ(handles(*again), first);
    EXPECT_NE(elements(again->obstacleNodes()).front()->name(), name);

    // After an element is taken out, the next ones keep theirs.
    again->selectNode(again->elementWithHandle(first[0]));
    again->deleteSelectedNode();
    again->writeBack(loaded.id);
    auto third = SceneEditor::create(&loaded.tab, SceneSetup{});
    third->loadLevel(loaded.id);
    EXPECT_EQ(handles(*third), (std::vector<ElementHandle>{first[1], first[2]}));
    again->clearScene(false);
    third->clearScene(false);
}

} // namespace
} // namespace stagewright::test
