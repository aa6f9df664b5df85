// Building the scene: layers, overlays, scene settings from the level, the
// two load passes, clearing, and a frame loop that moves nothing.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/ValueText.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

TEST(SceneConstruction, LayersAndOverlaysOfANewScene)
{
    SceneWorkspace workspace;
    auto scene = SceneEditor::create(nullptr, SceneSetup{});

    const QStringList expected{
        "backgroundNodes", "pinnedBackgroundNodes", "obstacleNodes",    "characterNodes",  "groundNodes",
        "coinsNodes",      "artifactsNodes",        "checkpointsNodes", "navigatindNodes", "shieldsNodes"};
    QStringList layers;
    for (const auto& child : scene->children())
        if (expected.contains(child->name())) {
            layers << child->name();
            EXPECT_EQ(child->zPosition(), 1);
            EXPECT_EQ(child->position(), QPointF(0, 0));
        }
    EXPECT_EQ(layers, expected);
    EXPECT_EQ(scene->coinNodes()->name(), "coinsNodes");

    // 874 by 402 with the anchor in the middle: the frame's minimum corner is (-437, -201).
    EXPECT_EQ(scene->childNodeWithName("navLeft")->position(), QPointF(-377, -121));
    EXPECT_EQ(scene->childNodeWithName("navRight")->position(), QPointF(-257, -121));
    EXPECT_EQ(scene->childNodeWithName("navTop")->position(), QPointF(-317, -91));
    EXPECT_EQ(scene->childNodeWithName("navBottom")->position(), QPointF(-317, -151));
    EXPECT_EQ(scene->childNodeWithName("navTop")->zPosition(), 1000000);
    ASSERT_TRUE(scene->positionXCount());
    EXPECT_EQ(scene->positionXCount()->text(), "X: 0.0  Y: 0.0");
    EXPECT_EQ(scene->positionXCount()->position(), QPointF(-217, -111));

    // A new size re-seats the buttons; the read-out stays where it was.
    scene->setSize({1000, 500});
    scene->layoutNavigationControls();
    EXPECT_EQ(scene->childNodeWithName("navLeft")->position(), QPointF(-440, -170));
    EXPECT_EQ(scene->positionXCount()->position(), QPointF(-217, -111));

    scene->clearScene(true);
    EXPECT_TRUE(scene->obstacleNodes());
    scene->clearScene(false);
    EXPECT_FALSE(scene->obstacleNodes());
    EXPECT_FALSE(scene->positionXCount());
    EXPECT_FALSE(scene->childNodeWithName("positionXCount"));
    EXPECT_FALSE(scene->childNodeWithName("groundNodes"));
}

TEST(SceneConstruction, SceneSettingsComeFromTheLevel)
{
    SceneWorkspace workspace;
    tessaro::Level level = emptyLevel();
    level.settings.size.reset();
    level.settings.anchorPoint.reset();
    level.settings.sceneOrientation = "sideways";
    level.settings.scaleMode = "aspectFit";
    LoadedLevel loaded(level, {1024, 768});

    EXPECT_EQ(loaded.scene->size(), (tessaro::SizeValue{874, 402}));
    EXPECT_EQ(loaded.scene->Scene::size(), QSizeF(874, 402));
    EXPECT_EQ(loaded.scene->anchorPoint(), (tessaro::PointValue{0.5, 0.5}));
    EXPECT_EQ(loaded.scene->orientation(), tessaro::sceneOrientationType::landscape);
    EXPECT_EQ(loaded.scene->scaleMode(), sceneScaleMode::aspectFit);
    EXPECT_EQ(loaded.scene->Scene::scaleMode(), tessaro::kit::SceneScaleMode::AspectFit);

    const tessaro::Level& saved = loaded.saved();
    EXPECT_EQ(saved.settings.size, "{874.0,402.0}");
    EXPECT_EQ(saved.settings.anchorPoint, "{0.5,0.5}");
    EXPECT_EQ(saved.settings.sceneOrientation, "landscape");
    EXPECT_EQ(saved.settings.scaleMode, "aspectFit");
}

TEST(SceneConstruction, ALevelWithoutGroundOrElements)
{
    SceneWorkspace workspace;
    tessaro::Level level = emptyLevel();
    tessaro::LevelEndData& end = level.levelEnd.emplace();
    end.windowOffset = "{0,40}";
    tessaro::WindowItem title;
    title.type = "title";
    title.text = "Well done";
    end.windowItems = std::vector<tessaro::WindowItem>{title};
    level.phaseEnd = end;
    const tessaro::Level original = level;
    LoadedLevel loaded(level);

    EXPECT_EQ(loaded.scene->levelEndX(), 0);
    EXPECT_TRUE(loaded.scene->groundBaseVariants().empty());
    for (double x : {-1000.0, 0.0, 5000.0})
        EXPECT_EQ(loaded.scene->groundHeight(x), 0);
    for (const auto& layer : {loaded.scene->obstacleNodes(), loaded.scene->groundNodes(), loaded.scene->coinNodes()})
        EXPECT_TRUE(layer->children().empty());

    const tessaro::Level& saved = loaded.saved();
    EXPECT_EQ(saved.levelEnd, original.levelEnd);
    EXPECT_EQ(saved.phaseEnd, original.phaseEnd);
    EXPECT_FALSE(saved.ground);
    EXPECT_FALSE(saved.background);
    // The collectible containers are made at the first write-back, empty.
    ASSERT_TRUE(saved.coins);
    EXPECT_EQ(saved.coins->coins, std::vector<tessaro::Coin>{});
    ASSERT_TRUE(saved.checkpoints);
    EXPECT_EQ(saved.checkpoints->locations, std::vector<tessaro::CheckPointLocation>{});
}

TEST(SceneConstruction, UnknownLevelIdsAndTablessScenesDoNothing)
{
    SceneWorkspace workspace;
    tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem item;
    item.elementName = "Crate";
    item.properties.emplace().devices = at("{0,0}");
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{item};
    LoadedLevel loaded(level);
    ASSERT_EQ(elements(loaded.scene->obstacleNodes()).size(), 1u);

    auto other = SceneEditor::create(&loaded.tab, SceneSetup{});
    other->loadLevel(tessaro::Uuid::create());
    EXPECT_TRUE(other->obstacleNodes()->children().empty());

    const tessaro::Level before = loaded.level();
    loaded.scene->writeBack(tessaro::Uuid::create());
    EXPECT_EQ(loaded.level(), before);

    auto alone = SceneEditor::create(nullptr, SceneSetup{});
    alone->loadLevel(loaded.id);
    alone->writeBack(loaded.id);
    EXPECT_TRUE(alone->obstacleNodes()->children().empty());
}

TEST(SceneConstruction, FramesMoveNoElement)
{
    SceneWorkspace workspace;
    workspace.image(tessaro::sceneObjectType::character, "walker", 30, 40);
    workspace.image(tessaro::sceneObjectType::ground, "grass", 200, 50);
    tessaro::Character walker = characterTemplate("Walker", "walker", "{30,40}");
    walker.useGravity = true;
    walker.collisionMasks.emplace().collision = "floor";
    tessaro::characterCatalogue() = {walker};
    tessaro::Level level = emptyLevel();
    level.ground = std::vector<tessaro::GroundSection>{tileSection("grass", "{200,50}")};
    tessaro::CharacterLevelItem item;
    item.elementName = "Walker";
    item.name = "w";
    item.properties.emplace().devices = at("{-400,300}");
    level.characters = std::vector<tessaro::CharacterLevelItem>{item};
    LoadedLevel loaded(level);

    const auto node = elements(loaded.scene->characterNodes()).front();
    ASSERT_TRUE(node->physicsBody());
    EXPECT_TRUE(node->physicsBody()->isDynamic());
    const QPointF before = node->position();
    for (int frame = 0; frame < 30; ++frame)
        loaded.scene->processFrame(frame / 30.0);
    EXPECT_EQ(node->position(), before);
}

} // namespace
} // namespace stagewright::test

namespace stagewright::test {
namespace {

TEST(SceneConstruction, NumbersThatCannotBeDrawnAreShownSafelyAndKept)
{
    SceneWorkspace workspace;
    workspace.image(tessaro::sceneObjectType::obstacles, "crate", 40, 40);
    workspace.image(tessaro::sceneObjectType::ground, "grass", 100, 50);
    tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
    tessaro::Level level = emptyLevel();
    level.settings.size = "{0,0}";
    level.settings.anchorPoint = "{inf,0.5}";
    tessaro::ObstacleLevelItem far, huge;
    far.elementName = huge.elementName = "Crate";
    far.properties.emplace().devices = at("{5,inf}");
    huge.properties.emplace().devices = at("{10,0}", "{1e12,40}");
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{far, huge};
    level.ground =
        std::vector<tessaro::GroundSection>{hazardSection("Water", "{inf,0}"), tileSection("grass", "{inf,50}")};
    const tessaro::Level original = level;

    testing_support::DiagnosticCapture capture;
    LoadedLevel loaded(level);
    EXPECT_EQ(loaded.scene->size(), (tessaro::SizeValue{874, 402}));
    EXPECT_EQ(loaded.scene->anchorPoint(), (tessaro::PointValue{0.5, 0.5}));
    const auto obstacles = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(obstacles.size(), 2u);
    EXPECT_EQ(obstacles[0]->position(), QPointF(5, 0));
    EXPECT_EQ(obstacles[1]->size(), QSizeF(100000, 40));
    // The tile section shows its picture's own size; the hazard takes no room.
    EXPECT_EQ(elements(loaded.scene->groundNodes())[1]->size(), QSizeF(100, 50));
    EXPECT_EQ(loaded.scene->levelEndX(), 100);
    EXPECT_TRUE(capture.contains("cannot be shown"));
    EXPECT_TRUE(capture.contains("has no area"));

    // The texts stay as the file had them.
    const tessaro::Level& saved = loaded.saved();
    EXPECT_EQ(saved.obstacles, original.obstacles);
    EXPECT_EQ((*saved.ground)[0].distance, "{inf,0}");
    EXPECT_EQ((*saved.ground)[1].devices, (*original.ground)[1].devices);
    EXPECT_EQ(saved.settings.size, "{0,0}");
    EXPECT_EQ(saved.settings.anchorPoint, "{inf,0.5}");

    // A size the designer then chooses is written as chosen.
    loaded.scene->setSize({1000, 500});
    loaded.scene->setAnchorPoint({0, 0});
    EXPECT_EQ(loaded.saved().settings.size, tessaro::textFromSize({1000, 500}));
    EXPECT_EQ(loaded.saved().settings.anchorPoint, tessaro::textFromPoint({0, 0}));
}

TEST(SceneConstruction, AnOversizedSceneIsDrawnSmallerAndSavedAsTyped)
{
    SceneWorkspace workspace;
    tessaro::Level level = emptyLevel();
    level.settings.size = "{250000,400}";
    testing_support::DiagnosticCapture capture;
    LoadedLevel loaded(level);
    EXPECT_LE(loaded.scene->size().width, 100000);
    EXPECT_EQ(loaded.saved().settings.size, "{250000,400}");
}

} // namespace
} // namespace stagewright::test
