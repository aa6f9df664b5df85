// Write-back: each kind's row, sparse records staying sparse, the ground
// order, coins on the floor, and edits on nodes reaching the level.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct WriteBackTest : ::testing::Test {
    SceneWorkspace workspace;
    void SetUp() override
    {
        workspace.image(sceneObjectType::ground, "grass", 100, 50);
        workspace.image(sceneObjectType::obstacles, "crate", 40, 40);
        workspace.image(sceneObjectType::character, "walker", 30, 40);
        workspace.image(sceneObjectType::coin, "coin", 20, 20);
        tessaro::Obstacle crate = obstacleTemplate("Crate", "crate", "{40,40}");
        crate.rotationProperties.emplace().rotateDuration = 3;
        crate.useGravity = true;
        tessaro::obstacleCatalogue() = {crate};
        tessaro::characterCatalogue() = {characterTemplate("Walker", "walker", "{30,40}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}")};
    }
};

TEST_F(WriteBackTest, UnchangedElementsSaveAsTheyWereRead)
{
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem crate;
    crate.elementName = "Crate";
    crate.name = "first";
    crate.zPosition = 12;
    crate.properties.emplace().id = tessaro::Uuid::create();
    crate.properties->devices = at("{100,0}", {}, "{2,0}");
    crate.properties->rotationProperties.emplace().rotation = 30;
    crate.properties->animation.emplace().frequency = "once";
    tessaro::ObstacleLevelItem shown = crate;
    shown.isVisible = false;
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    walker.name = "w";
    walker.sceneObjectType = "character";
    walker.zPosition = 3;
    walker.properties.emplace().devices = at("{10,10}");
    tessaro::Coin floorCoin, airCoin, forcedCoin;
    floorCoin.devices = at("{100,0}");
    floorCoin.image = "gold";
    floorCoin.isVisible = false;
    airCoin.devices = at("{100,35}");
    airCoin.zPosition = 4;
    forcedCoin.devices = at("{100,35}");
    forcedCoin.useGravity = true;
    tessaro::Shield shield;
    shield.devices = at("{0,0}");
    shield.isVisible = false;
    tessaro::Artifact artifact;
    artifact.image = "crate";
    artifact.alpha = 0.5;
    artifact.objectClassType = "artifact2";
    artifact.devices = at("{0,0}");
    tessaro::CheckPointLocation location;
    location.devices = at("{0,0}");

    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{crate, shown};
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    tessaro::Coins& coins = level.coins.emplace();
    coins.image = "gold";
    coins.repeatDistance = "{10, 10}";
    coins.coins = std::vector<tessaro::Coin>{floorCoin, airCoin, forcedCoin};
    tessaro::Shields& shields = level.shields.emplace();
    shields.image = "shield";
    shields.shields = std::vector<tessaro::Shield>{shield};
    tessaro::Artifacts& artifacts = level.artifacts.emplace();
    artifacts.image = "key";
    artifacts.artifacts = std::vector<tessaro::Artifact>{artifact};
    level.checkpoints.emplace().image = "missing";
    level.checkpoints->locations = std::vector<tessaro::CheckPointLocation>{location};
    const tessaro::Level original = level;
    LoadedLevel loaded(level);

    // What loading adds to the nodes for display does not reach the file:
    // the merged rotation, the shield's default time, a coin's derived flag.
    EXPECT_EQ(elements(loaded.scene->obstacleNodes())[0]->rotationOverrides->rotateDuration, 3);
    const tessaro::Level& saved = loaded.saved();
    EXPECT_EQ((*saved.obstacles)[0], crate);
    // The item's own visibility travels in its override record.
    EXPECT_FALSE((*saved.obstacles)[1].isVisible);
    EXPECT_EQ((*saved.obstacles)[1].properties->isVisible, false);
    EXPECT_EQ(saved.characters, original.characters);
    EXPECT_EQ(saved.shields, original.shields);
    EXPECT_EQ(saved.artifacts, original.artifacts);
    EXPECT_EQ(saved.checkpoints, original.checkpoints);

    const auto& savedCoins = *saved.coins->coins;
    EXPECT_EQ(savedCoins[0], floorCoin);
    EXPECT_EQ(savedCoins[1], airCoin);
    // A coin with gravity keeps no height of its own.
    EXPECT_EQ(savedCoins[2].devices->front().position, "{100.0,0.0}");
    EXPECT_EQ(savedCoins[2].useGravity, true);
    EXPECT_EQ(saved.coins->image, "gold");

    // Writing back again gives the same level.
    const tessaro::Level once = saved;
    EXPECT_EQ(loaded.saved().obstacles, once.obstacles);
    EXPECT_EQ(loaded.saved().coins, once.coins);
}

TEST_F(WriteBackTest, NodeEditsReachTheLevel)
{
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem crate;
    crate.elementName = "Crate";
    crate.properties.emplace().devices = at("{0,0}");
    tessaro::Coin coin;
    coin.devices = at("{50,30}");
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{crate};
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    level.coins.emplace().coins = std::vector<tessaro::Coin>{coin};
    LoadedLevel loaded(level);

    const auto obstacle = elements(loaded.scene->obstacleNodes()).front();
    obstacle->setZPosition(42);
    obstacle->property_objectName = "renamed";
    obstacle->obstacleOverrides->darken = true;
    obstacle->devices->front().position = "{70,0}";
    obstacle->soundEffects = std::vector<tessaro::GameSound>{tessaro::GameSound{}};
    const auto coinNode = elements(loaded.scene->coinNodes()).front();
    coinNode->property_useGravity = true;
    const auto character = elements(loaded.scene->characterNodes()).front();
    character->charClassType = tessaro::characterClassType::enemy;
    character->property_hidesBehindObject = "tree";

    const tessaro::Level& saved = loaded.saved();
    const tessaro::ObstacleLevelItem& item = saved.obstacles->front();
    EXPECT_EQ(item.zPosition, 42);
    EXPECT_EQ(item.name, "renamed");
    EXPECT_EQ(item.properties->darken, true);
    EXPECT_EQ(item.properties->devices->front().position, "{70,0}");
    EXPECT_EQ(item.properties->soundEffects->size(), 1u);
    // An item without properties gets a record of its own, with an id.
    EXPECT_TRUE(saved.characters->front().properties);
    EXPECT_TRUE(saved.characters->front().properties->id);
    EXPECT_EQ(saved.characters->front().charClassType, "enemy");
    EXPECT_EQ(saved.characters->front().hidesBehindObject, "tree");
    // A coin put on the floor stores y 0, where no flag already means gravity.
    EXPECT_EQ(saved.coins->coins->front().devices->front().position, "{50.0,0.0}");
    EXPECT_FALSE(saved.coins->coins->front().useGravity);
}

TEST_F(WriteBackTest, GroundComesBackInSequenceOrder)
{
    tessaro::Level level = emptyLevel();
    std::vector<tessaro::GroundSection> sections;
    for (const char* name : {"a", "b", "c", "d"}) {
        tessaro::GroundSection section = tileSection("grass", "{100,50}");
        section.imageBottomLayer = name;
        section.devices->front().position = "{1,2}";
        sections.push_back(section);
    }
    level.ground = sections;
    LoadedLevel loaded(level);
    auto grounds = elements(loaded.scene->groundNodes());
    grounds[0]->sequenceId = 2; // a after c, ties keep child order
    grounds[3]->sequenceId.reset(); // d counts as 0

    const tessaro::Level& saved = loaded.saved();
    std::string order;
    for (const auto& section : *saved.ground) {
        order += *section.imageBottomLayer;
        // Each section keeps the id it was read with.
        EXPECT_EQ(section.id, sections[std::size_t(section.imageBottomLayer->front() - 'a')].id);
    }
    EXPECT_EQ(order, "dbac");
    // Positions stay in memory; the file writer leaves them out.
    EXPECT_EQ(saved.ground->front().devices->front().position, "{1,2}");
}

} // namespace
} // namespace stagewright::test
