// The designer sees what the game plays: the sample level and a generated
// big level, laid out once on the editor's canvas and once in the game's
// scene, put every floor, obstacle, character and collectible at the same
// place and size.
#include "PlayScene.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <bench/common/SyntheticProject.h>
#include <tessaro/kit/AudioNode.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/runtime/GameResources.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace {

using namespace tessaro;

using Box = std::tuple<double, double, double, double>; // centre x, y, width, height
using Boxes = std::map<std::string, std::vector<Box>>; // by kind

Box boxOf(QPointF at, QSizeF size)
{
    const auto rounded = [](double v) { return std::round(v * 1000) / 1000; };
    return {rounded(at.x()), rounded(at.y()), rounded(size.width()), rounded(size.height())};
}

QString seed()
{
    return qEnvironmentVariable("STAGEWRIGHT_SOURCE_DIR", QStringLiteral(".")) + QStringLiteral("/resources/seed/");
}

/// Every element the canvas shows, by kind; a coin's row or stack counts
/// coin by coin.
Boxes canvasBoxes(const Level& level)
{
    stagewright::ProjectTab tab(Uuid::create(), QStringLiteral("Layout"));
    tab.setLevelConfig({level});
    tab.setLevelSelected(*level.id);
    auto scene = stagewright::SceneEditor::create(&tab);
    scene->loadLevel(*level.id);
    Boxes boxes;
    const std::pair<const char*, kit::NodePtr> layers[] = {
        {"obstacles", scene->obstacleNodes()}, {"characters", scene->characterNodes()},
        {"coins", scene->coinNodes()},         {"checkpoints", scene->checkpointNodes()},
        {"shields", scene->shieldsNodes()},    {"artifacts", scene->artifactNodes()}};
    for (const auto& [kind, layer] : layers)
        for (const stagewright::ElementNodePtr& node : stagewright::SceneEditor::elementsOf(layer)) {
            if (node->isHidden())
                continue;
            boxes[kind].push_back(boxOf(node->position(), node->size()));
            for (const kit::NodePtr& child : node->children())
                if (child->name().startsWith(QLatin1String("stack_")))
                    boxes[kind].push_back(boxOf(node->position() + child->position(), node->size()));
        }
    for (const QRectF& floor : scene->groundBaseVariants())
        boxes["floors"].push_back(boxOf(floor.topLeft(), floor.size()));
    scene->clearScene(false);
    return boxes;
}

/// Every sprite the game makes of the level's items, by kind, before play starts.
Boxes gameBoxes(const Level& level)
{
    auto scene = std::make_shared<play::PlayScene>(level);
    Boxes boxes;
    const kit::NodePtr world = scene->childNodeWithName(QStringLiteral("world"));
    for (const kit::NodePtr& node : world->children()) {
        const auto* sprite = dynamic_cast<const kit::SpriteNode*>(node.get());
        if (!sprite)
            continue;
        const QString name = sprite->name();
        const QString collectible = sprite->userData().value(play::kCollectibleKey).toString();
        std::string kind;
        if (!collectible.isEmpty())
            kind = collectible.toStdString() + "s";
        else if (name.startsWith(QLatin1String("ENEMY_")) || name.startsWith(QLatin1String("MIRAGE_ENEMY")))
            kind = "characters";
        else if (name.startsWith(QLatin1String("OBJECT_")) || name.startsWith(QLatin1String("MIRAGE_")))
            kind = "obstacles";
        else
            continue;
        boxes[kind].push_back(boxOf(sprite->position(), sprite->size()));
    }
    for (const QRectF& floor : scene->groundBaseVariants())
        boxes["floors"].push_back(boxOf(floor.topLeft(), floor.size()));
    return boxes;
}

void expectSameLayout(const Level& level)
{
    Boxes canvas = canvasBoxes(level);
    Boxes game = gameBoxes(level);
    ASSERT_FALSE(canvas["floors"].empty());
    for (const char* kind : {"floors", "obstacles", "characters", "coins", "checkpoints", "shields", "artifacts"}) {
        // The game makes the player first; everything else comes in the level's order.
        if (std::string(kind) == "characters") {
            std::sort(canvas[kind].begin(), canvas[kind].end());
            std::sort(game[kind].begin(), game[kind].end());
        }
        EXPECT_EQ(canvas[kind], game[kind]) << kind;
    }
}

class LayoutAgreementTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        kit::AudioNode::setAudioEnabled(false);
        ASSERT_TRUE(loadWorkspace(seed()));
        stagewright::setWorkingSpacePathValue(seed());
    }
    static void TearDownTestSuite() { stagewright::setWorkingSpacePathValue(QString()); }
};

TEST_F(LayoutAgreementTest, TheSampleAndAGeneratedLevelLieAlikeOnTheCanvasAndInTheGame)
{
    const std::string sample = qEnvironmentVariable("STAGEWRIGHT_SOURCE_DIR", QStringLiteral(".")).toStdString() +
        "/resources/sample/Levels/Sample.plist";
    const std::vector<Level> levels = loadLevels(sample);
    ASSERT_FALSE(levels.empty());
    for (const Level& level : levels)
        expectSameLayout(level);

    bench::SyntheticShape shape;
    shape.levels = 1;
    shape.obstaclesPerLevel = 60;
    shape.obstacleNames = {"Crate", "Spikes", "Barrel", "Platform"};
    shape.characterNames = {"Slime"};
    shape.groundImages = {"ground_grass", "ground_dirt"};
    shape.backgroundImages = {"sky", "hills_far"};
    const std::vector<Level> generated = bench::makeSyntheticProject(shape);
    expectSameLayout(generated.front());
}

} // namespace
