// Reaching an element on the canvas: clicks, the "Object Menu" for
// overlapping elements, and selection from the element lists.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct SelectionTest : ::testing::Test {
    SceneWorkspace workspace;
    std::vector<NodeMenu> menus;
    std::optional<std::size_t> pick;

    void SetUp() override
    {
        workspace.image(sceneObjectType::obstacles, "crate", 40, 40);
        workspace.image(sceneObjectType::background, "sky", 100, 50);
        workspace.image(sceneObjectType::coin, "coin", 20, 20);
        tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}")};
    }
    /// A test's presenter: it records the menus and picks `pick`.
    CanvasHooks presenting()
    {
        CanvasHooks hooks;
        hooks.presentMenu = [this](const NodeMenu& menu, const tessaro::kit::MouseEvent&) {
            menus.push_back(menu);
            return pick;
        };
        return hooks;
    }

    static tessaro::ObstacleLevelItem crate(const std::string& name, const std::string& position,
                                            std::int64_t repeat = 0)
    {
        tessaro::ObstacleLevelItem item;
        item.elementName = "Crate";
        item.name = name;
        item.properties.emplace().devices = at(position);
        if (repeat)
            item.properties->repeatCount = repeat;
        return item;
    }
    /// Crates "a" at (0,0) and "b" at (20,0) that overlap, a row of three at
    /// (200,0) and a lone one far to the right, a row of three coins at
    /// (500,100), over a background.
    static tessaro::Level level()
    {
        tessaro::Level level = emptyLevel();
        level.obstacles = std::vector<tessaro::ObstacleLevelItem>{crate("a", "{0,0}"), crate("b", "{20,0}"),
                                                                  crate("row", "{200,0}", 3), crate("far", "{3000,0}")};
        tessaro::BackgroundImage sky;
        sky.image = "sky";
        level.background.emplace().backgrounds = std::vector<tessaro::BackgroundImage>{sky};
        tessaro::Coin coins;
        coins.devices = at("{500,100}", "{20,20}");
        coins.repeatCount = 3;
        level.coins.emplace().coins = std::vector<tessaro::Coin>{coins};
        return level;
    }
    static void click(SceneEditor& scene, QPointF at)
    {
        tessaro::kit::MouseEvent event;
        event.sceneLocation = at;
        scene.dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Down, event);
        scene.dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Up, event);
    }
    static ElementNodePtr named(const SceneEditor& scene, const std::string& name)
    {
        for (const ElementNodePtr& node : elements(scene.obstacleNodes()))
            if (node->property_objectName == name)
                return node;
        return nullptr;
    }
    static std::string selectedName(const LoadedLevel& loaded)
    {
        const ElementNodePtr node = loaded.scene->selectedNode();
        return node ? node->property_objectName.value_or("") : std::string("(none)");
    }
};

TEST_F(SelectionTest, ClicksSelectOneElementOrNone)
{
    LoadedLevel loaded(level(), {874, 402}, presenting());
    SceneEditor& scene = *loaded.scene;
    const struct {
        QPointF at;
        std::string selected;
        sceneObjectType kind;
    } clicks[] = {
        {{-15, 10}, "a", sceneObjectType::obstacles}, // only a, over the background: the element wins
        {{245, 20}, "row", sceneObjectType::obstacles}, // a repeated copy selects its owner
        {{300, 180}, "", sceneObjectType::background}, // the background alone
        {{527, 100}, "", sceneObjectType::coin}, // the last coin of a row is its coin
        {{-15, 10}, "a", sceneObjectType::obstacles}, // the selected element again is published anew
    };
    for (const auto& c : clicks) {
        click(scene, c.at);
        EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::Selected);
        EXPECT_EQ(loaded.tab.selectedObject().type, c.kind);
        if (c.kind != sceneObjectType::coin) {
            EXPECT_EQ(selectedName(loaded), c.kind == sceneObjectType::obstacles ? c.selected : "sky");
        }
        // One glow, on the selected node.
        int glows = 0;
        scene.enumerateChildNodesWithName("//glow", [&](const tessaro::kit::NodePtr&, bool&) { ++glows; });
        EXPECT_EQ(glows, 1);
        EXPECT_TRUE(scene.selectedNode()->hasGlow());
    }
    EXPECT_TRUE(menus.empty());

    // No element and no background: nothing is selected and the name is gone.
    scene.backgroundNodes()->removeAllChildren();
    click(scene, {300, 180});
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::NotSelected);
    EXPECT_EQ(loaded.tab.selectedObject().name, "");
    EXPECT_FALSE(scene.nodeSelectedName());
    EXPECT_FALSE(named(scene, "a")->hasGlow());
}

TEST_F(SelectionTest, OverlappingElementsAskTheObjectMenu)
{
    LoadedLevel loaded(level(), {874, 402}, presenting());
    SceneEditor& scene = *loaded.scene;

    pick.reset(); // dismissed
    click(scene, {10, 10});
    ASSERT_EQ(menus.size(), 1u);
    const NodeMenu& menu = menus.front();
    EXPECT_EQ(menu.title, "Object Menu");
    EXPECT_EQ(menu.header, "Element");
    ASSERT_EQ(menu.items.size(), 2u);
    QStringList titles;
    for (const NodeMenuItem& item : menu.items) {
        titles << item.title;
        EXPECT_EQ(item.nodeType, sceneObjectType::obstacles);
    }
    titles.sort();
    EXPECT_EQ(titles, QStringList({"Name: a (obstacles)", "Name: b (obstacles)"}));
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::NotSelected);

    pick = 1;
    click(scene, {10, 10});
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(loaded.tab.selectedObject().name, menus.back().items[1].nodeId->toStdString());
    EXPECT_EQ(scene.nodeSelectedName(), menus.back().items[1].nodeId);

    // An entry whose node has gone selects nothing.
    scene.deselect();
    scene.tools().handleMenuItem(
        {QStringLiteral("Name: gone (obstacles)"), QStringLiteral("no-such-node"), sceneObjectType::obstacles});
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::NotSelected);
}

TEST_F(SelectionTest, GuidesAndKeptElementsAreNotClicked)
{
    tessaro::Level with = emptyLevel();
    tessaro::ObstacleLevelItem guard = crate("guard", "{-200,0}");
    guard.properties->devices->front().distance = "{300,0}";
    tessaro::ObstacleLevelItem vanished = crate("vanished", "{0,0}");
    vanished.elementName = "Vanished";
    with.obstacles = std::vector<tessaro::ObstacleLevelItem>{guard, crate("lone", "{0,0}"), vanished};
    LoadedLevel loaded(with, {874, 402}, presenting());
    SceneEditor& scene = *loaded.scene;
    ASSERT_TRUE(named(scene, "guard")->distanceGuideNode);

    // The guard's guide crosses "lone": a click selects "lone", no menu.
    click(scene, {0, 0});
    EXPECT_TRUE(menus.empty());
    EXPECT_EQ(selectedName(loaded), "lone");

    // An element kept only as read is selected neither from a list nor directly.
    scene.deselect();
    const ElementNodePtr kept = elements(scene.obstacleNodes()).back();
    ASSERT_TRUE(kept->keptOnly);
    scene.selectNodeNamed(QStringLiteral("obstacles:") + kept->name());
    scene.selectNode(kept);
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::NotSelected);
}

TEST_F(SelectionTest, ListsSelectByNameAndScrollToFarElements)
{
    LoadedLevel loaded(level(), {874, 402}, presenting());
    SceneEditor& scene = *loaded.scene;

    scene.selectNodeNamed(QStringLiteral("obstacles:") + named(scene, "a")->name());
    EXPECT_EQ(selectedName(loaded), "a");
    EXPECT_TRUE(named(scene, "a")->activelySelected);
    EXPECT_EQ(loaded.tab.scenePosition(), (tessaro::PointValue{0, 0})); // in view: no scroll

    const ElementNodePtr far = named(scene, "far");
    scene.selectNodeNamed(QStringLiteral("obstacles:") + far->name());
    EXPECT_EQ(selectedName(loaded), "far");
    EXPECT_FALSE(named(scene, "a")->activelySelected);
    EXPECT_EQ(loaded.tab.scenePosition(), (tessaro::PointValue{3000, 0}));
    EXPECT_EQ(scene.obstacleNodes()->position(), QPointF(-3000, 0));
    EXPECT_TRUE(far->activelySelected);

    // A background by its record's id.
    const ElementNodePtr sky = elements(scene.backgroundNodes()).front();
    scene.selectNodeNamed(QStringLiteral("background:") + QString::fromStdString(sky->backgroundAssociatedId->text()));
    EXPECT_EQ(loaded.tab.selectedObject().type, sceneObjectType::background);

    // Texts of the wrong form change nothing.
    for (const char* text : {"obstacles", "obstacles:x:y", "background:not-a-uuid", "obstacles:nobody"}) {
        scene.selectNodeNamed(QString::fromLatin1(text));
        EXPECT_EQ(loaded.tab.selectedObject().type, sceneObjectType::background) << text;
    }

    // A click on the element chosen from the list ends the list's mark when
    // the button is lifted; "far" is now in the middle of the view.
    scene.selectNodeNamed(QStringLiteral("obstacles:") + far->name());
    click(scene, {0, 0});
    EXPECT_EQ(selectedName(loaded), "far");
    EXPECT_FALSE(far->activelySelected);
}

} // namespace
} // namespace stagewright::test
