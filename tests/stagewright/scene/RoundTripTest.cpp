// The application drives the real scene: open a project, visit every level,
// save, and read the file back. An unchanged project comes back with the same
// records, apart from the ids that opening and saving make anew; hidden ground
// sections, hidden collectibles and items whose catalogue entry is missing
// survive in their places.
#include "SceneTestSupport.h"

#include <bench/common/SyntheticProject.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>

#include <QDir>
#include <QSettings>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

void forgetSoundIds(std::optional<std::vector<tessaro::GameSound>>& sounds)
{
    if (sounds)
        for (tessaro::GameSound& sound : *sounds)
            sound.id.reset();
}

/// What opening and saving change on purpose: level ids and sound ids are
/// made at every open, ground sections without an id get one at write-back.
tessaro::Level withoutRenewedIds(tessaro::Level level)
{
    level.id.reset();
    if (level.ground)
        for (tessaro::GroundSection& section : *level.ground)
            section.id.reset();
    if (level.background)
        forgetSoundIds(level.background->soundEffects);
    if (level.coins)
        forgetSoundIds(level.coins->soundEffects);
    if (level.shields)
        forgetSoundIds(level.shields->soundEffects);
    if (level.artifacts)
        forgetSoundIds(level.artifacts->soundEffects);
    if (level.checkpoints)
        forgetSoundIds(level.checkpoints->soundEffects);
    return level;
}

void expectSameLevel(const tessaro::Level& savedLevel, const tessaro::Level& originalLevel, std::size_t index)
{
    const tessaro::Level saved = withoutRenewedIds(savedLevel);
    const tessaro::Level original = withoutRenewedIds(originalLevel);
    SCOPED_TRACE("level " + std::to_string(index + 1));
    EXPECT_TRUE(saved.settings == original.settings);
    EXPECT_TRUE(saved.background == original.background);
    EXPECT_TRUE(saved.ground == original.ground);
    EXPECT_TRUE(saved.obstacles == original.obstacles);
    EXPECT_TRUE(saved.characters == original.characters);
    EXPECT_TRUE(saved.coins == original.coins);
    EXPECT_TRUE(saved.shields == original.shields);
    EXPECT_TRUE(saved.artifacts == original.artifacts);
    EXPECT_TRUE(saved.checkpoints == original.checkpoints);
    EXPECT_TRUE(saved.levelEnd == original.levelEnd);
    EXPECT_TRUE(saved.phaseEnd == original.phaseEnd);
    EXPECT_TRUE(saved == original);
}

struct RoundTripTest : ::testing::Test {
    SceneWorkspace workspace;
    std::unique_ptr<SceneSettings> settings;

    void SetUp() override
    {
        for (const char* name : {"ground_grass", "ground_dirt", "crest_top_one"})
            workspace.image(sceneObjectType::ground, name, 128, 48);
        for (const char* name : {"sky", "hills_far"})
            workspace.image(sceneObjectType::background, name, 400, 200);
        workspace.image(sceneObjectType::obstacles, "crate", 64, 64);
        workspace.image(sceneObjectType::obstacles, "spikes", 64, 32);
        workspace.image(sceneObjectType::character, "walker", 48, 64);
        workspace.image(sceneObjectType::coin, "coin", 32, 32);
        workspace.image(sceneObjectType::shield, "shield", 40, 48);
        workspace.image(sceneObjectType::artifact, "key", 48, 24);
        workspace.image(sceneObjectType::checkpoint, "flag", 32, 64);
        // The catalogues go into the workspace's files, as a user's would.
        tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{32,32}"),
                                        obstacleTemplate("Spikes", "spikes", "{32,16}")};
        tessaro::obstacleCatalogue().back().useGravity = true;
        tessaro::characterCatalogue() = {characterTemplate("Walker", "walker", "{24,32}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{16,16}"),
                                      objectTemplate("checkpoint_flag", "flag", sceneObjectType::checkpoint)};
        QDir().mkpath(levelsFolder(workspace.path()));
        const std::string assets = assetsFolder(workspace.path()).toStdString();
        ASSERT_TRUE(tessaro::saveConfig("ObstacleList", "plist", assets, tessaro::configType::obstacles));
        ASSERT_TRUE(tessaro::saveConfig("CharacterList", "plist", assets, tessaro::configType::characters));
        ASSERT_TRUE(tessaro::saveConfig("ObjectList", "plist", assets, tessaro::configType::objects));
        tessaro::obstacleCatalogue().clear();
        tessaro::characterCatalogue().clear();
        tessaro::objectCatalogue().clear();

        QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"))
            .setValue(QStringLiteral("workingSpacePath"), workspace.path());
        PermissionManager::shared().setChooser(
            [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
        settings = std::make_unique<SceneSettings>(PermissionManager::shared());
        settings->setSceneFactory(makeSceneEditorFactory());
        settings->mainWindowAppeared();
    }
    void TearDown() override
    {
        settings.reset();
        QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright")).clear();
    }

    std::vector<tessaro::Level> project()
    {
        tessaro::bench::SyntheticShape shape;
        shape.levels = 3;
        shape.obstaclesPerLevel = 40;
        shape.charactersPerLevel = 8;
        shape.coinsPerLevel = 20;
        shape.groundSectionsPerLevel = 8;
        shape.checkpointsPerLevel = 3;
        shape.seed = 7;
        shape.obstacleNames = {"Crate", "Spikes", "Vanished"};
        shape.characterNames = {"Walker", "Ghost"};
        std::vector<tessaro::Level> levels = tessaro::bench::makeSyntheticProject(shape);
        // What a designer has hidden, and a checkpoint the catalogue lost.
        for (tessaro::Level& level : levels) {
            (*level.ground)[1].isVisible = false;
            (*level.coins->coins)[0].isVisible = false;
            (*level.shields->shields)[0].isVisible = false;
            (*level.artifacts->artifacts)[0].isVisible = false;
            (*level.checkpoints->locations)[0].isVisible = false;
        }
        levels[2].checkpoints->image = "gone_flag";
        return levels;
    }
};

TEST_F(RoundTripTest, TheApplicationSavesAnUnchangedProjectAsItWasRead)
{
    ASSERT_TRUE(settings->selectedProjectTab());
    EXPECT_TRUE(sceneEditorOf(settings->selectedProjectTab()->currentScene()));

    const std::vector<tessaro::Level> original = project();
    const QString input = workspace.path() + "Levels/synthetic.plist";
    const QString output = workspace.path() + "Levels/synthetic-saved.plist";
    ASSERT_TRUE(tessaro::saveLevels(original, input.toStdString()));

    settings->openProject(input);
    const std::shared_ptr<ProjectTab> tab = settings->selectedProjectTab();
    ASSERT_EQ(tab->levelConfig().size(), 3u);
    SceneEditorPtr scene = sceneEditorOf(tab->currentScene());
    ASSERT_TRUE(scene);
    // The first level stands on the canvas, every obstacle on its node.
    std::size_t firstObstacles = 0;
    for (const auto& node : elements(scene->obstacleNodes()))
        firstObstacles += node->repeatedNode ? 0 : 1;
    EXPECT_EQ(firstObstacles, original[0].obstacles->size());
    EXPECT_EQ(elements(scene->groundNodes()).size(), original[0].ground->size());
    EXPECT_GT(scene->levelEndX(), 0);

    for (std::size_t i = 1; i < tab->levelConfig().size(); ++i) {
        tab->switchLevel(*tab->levelConfig()[i].id);
        const SceneEditorPtr next = sceneEditorOf(tab->currentScene());
        ASSERT_TRUE(next);
        EXPECT_NE(next, scene);
        EXPECT_EQ(elements(next->characterNodes()).size(), original[i].characters->size());
        scene = next;
    }
    // The last level has the lost checkpoint: kept, not shown.
    const auto checkpoints = elements(scene->checkpointNodes());
    ASSERT_FALSE(checkpoints.empty());
    EXPECT_TRUE(checkpoints.front()->keptOnly);

    ASSERT_TRUE(settings->saveProject(output));
    const std::vector<tessaro::Level> saved = tessaro::loadLevels(output.toStdString());
    ASSERT_EQ(saved.size(), original.size());
    for (std::size_t i = 0; i < saved.size(); ++i)
        expectSameLevel(saved[i], original[i], i);
}

TEST_F(RoundTripTest, LevelChangesBuildAFreshSceneAndTheTabTakesItsSettings)
{
    std::vector<tessaro::Level> levels = project();
    levels[1].settings.size = "{1000,500}";
    levels[1].settings.scaleMode = "aspectFit";
    const QString input = workspace.path() + "Levels/two.plist";
    ASSERT_TRUE(tessaro::saveLevels(levels, input.toStdString()));
    settings->openProject(input);
    const std::shared_ptr<ProjectTab> tab = settings->selectedProjectTab();
    const SceneEditorPtr first = sceneEditorOf(tab->currentScene());

    // An edit on the canvas reaches the level when the tab leaves it.
    std::size_t item = 0;
    for (const auto& node : elements(first->obstacleNodes())) {
        if (node->repeatedNode)
            continue;
        if (!node->keptOnly) {
            node->setZPosition(77);
            break;
        }
        ++item;
    }
    tab->switchLevel(*tab->levelConfig()[1].id);
    EXPECT_EQ((*tab->levelConfig()[0].obstacles)[item].zPosition, 77);
    EXPECT_EQ(first->obstacleNodes(), nullptr);

    const SceneEditorPtr second = sceneEditorOf(tab->currentScene());
    EXPECT_EQ(tab->selectedSceneSize(), (tessaro::SizeValue{1000, 500}));
    EXPECT_EQ(tab->selectedScaleMode(), sceneScaleMode::aspectFit);
    EXPECT_EQ(second->Scene::size(), QSizeF(1000, 500));
    // Ground was laid with the size the scene was made with, before the
    // level's own size applied: the left edge of the default 874 wide view.
    EXPECT_EQ(elements(second->groundNodes()).front()->frame().left(), -437);
    // The buttons sit at the corner of the new frame.
    EXPECT_EQ(second->childNodeWithName("navLeft")->position(), QPointF(-500 + 60, -250 + 80));

    tab->setBackgroundElementsHidden(true);
    EXPECT_TRUE(second->backgroundNodes()->isHidden());
    EXPECT_TRUE(second->pinnedBackgroundNodes()->isHidden());
}

} // namespace
} // namespace stagewright::test
