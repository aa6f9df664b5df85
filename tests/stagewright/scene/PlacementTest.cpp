// Placement: repeated obstacles, the records and masks of each kind, items
// whose catalogue entry is missing, and elements added from the picker.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::collisionBit;
using tessaro::collisionTypes;
using tessaro::sceneObjectType;

struct PlacementTest : ::testing::Test {
    SceneWorkspace workspace;
    void SetUp() override
    {
        workspace.image(sceneObjectType::ground, "grass", 200, 50);
        workspace.image(sceneObjectType::obstacles, "crate", 40, 40);
        workspace.image(sceneObjectType::obstacles, "wide", 300, 100);
        workspace.image(sceneObjectType::character, "walker", 30, 40);
        workspace.image(sceneObjectType::coin, "coin", 20, 20);
        workspace.image(sceneObjectType::checkpoint, "flag", 16, 50);
        tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}"),
                                        obstacleTemplate("Wide", "wide", "")};
        tessaro::characterCatalogue() = {characterTemplate("Walker", "walker", "{30,40}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}"),
                                      objectTemplate("Flag", "flag", sceneObjectType::checkpoint, "{16,50}"),
                                      objectTemplate("Grass", "grass", sceneObjectType::ground, "{200,50}")};
    }
};

TEST_F(PlacementTest, RepeatedObstaclesStandInARow)
{
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem row;
    row.elementName = "Crate";
    row.zPosition = 7;
    row.properties.emplace().devices = at("{100,0}");
    row.properties->repeatCount = 3;
    tessaro::ObstacleLevelItem once = row;
    once.properties->repeatCount = 1;
    tessaro::ObstacleLevelItem spread = row;
    spread.properties->devices->front().randomPositionRange = "{<5...5>,<2...2>}";
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{row, once, spread};
    LoadedLevel loaded(level);

    const auto nodes = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(nodes.size(), 7u);
    EXPECT_EQ(nodes[0]->position(), QPointF(100, 0));
    EXPECT_EQ(nodes[1]->position(), QPointF(140, 20));
    EXPECT_EQ(nodes[2]->position(), QPointF(180, 20));
    for (int copy : {1, 2}) {
        EXPECT_TRUE(nodes[copy]->repeatedNode);
        EXPECT_EQ(nodes[copy]->repeatParentNode, nodes[0]->name());
        EXPECT_EQ(nodes[copy]->zPosition(), 7);
        EXPECT_FALSE(nodes[copy]->physicsBody());
        EXPECT_FALSE(nodes[copy]->childNodeWithName("nodeSizer"));
        EXPECT_FALSE(nodes[copy]->devices);
    }
    EXPECT_FALSE(nodes[3]->repeatedNode);
    // A random step is added to each copy.
    EXPECT_EQ(nodes[5]->position(), QPointF(145, 22));
    EXPECT_EQ(nodes[6]->position(), QPointF(190, 22));

    // The row saves as the items it came from.
    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.obstacles->size(), 3u);
    EXPECT_EQ((*saved.obstacles)[0].properties->repeatCount, 3);
}

TEST_F(PlacementTest, RecordsAndMasksOfEachKind)
{
    tessaro::Level level = emptyLevel();
    tessaro::characterCatalogue().front().collisionMasks.emplace().category = "enemyTouch";
    tessaro::characterCatalogue().front().collisionMasks->collision = "floor";
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    walker.name = "Bob";
    walker.properties.emplace().devices = at("{0,0}");
    walker.properties->collisionMasks.emplace().collision = "floor,humanPlayer";
    walker.isVisible = false;
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    tessaro::Shield shield;
    shield.devices = at("{0,0}");
    level.shields.emplace().shields = std::vector<tessaro::Shield>{shield};
    level.shields->image = "shield";
    tessaro::Coin coin;
    coin.devices = at("{0,5}");
    level.coins.emplace().coins = std::vector<tessaro::Coin>{coin};

    testing_support::DiagnosticCapture capture;
    LoadedLevel loaded(level);
    EXPECT_TRUE(capture.contains("character name: Bob"));
    EXPECT_TRUE(capture.contains("  useGravity: false"));

    const auto character = elements(loaded.scene->characterNodes()).front();
    EXPECT_EQ(character->charClassType, tessaro::characterClassType::friendly);
    EXPECT_EQ(character->property_objectName, "Bob");
    ASSERT_TRUE(character->characterOverrides);
    EXPECT_EQ(character->characterOverrides->isVisible, false);
    ASSERT_TRUE(character->physicsBody());
    // Each mask from the override when it has it, else from the catalogue.
    EXPECT_EQ(character->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::enemyTouch));
    EXPECT_EQ(character->physicsBody()->collisionBitMask(),
              collisionBit(collisionTypes::floor) | collisionBit(collisionTypes::humanPlayer));
    EXPECT_EQ(character->physicsBody()->contactTestBitMask(), collisionBit(collisionTypes::none));
    EXPECT_TRUE(character->physicsBody()->isDynamic());

    const auto shieldNode = elements(loaded.scene->shieldsNodes()).front();
    ASSERT_TRUE(shieldNode->shieldOverrides);
    EXPECT_EQ(shieldNode->shieldOverrides->timed, 60.0);
    EXPECT_EQ(shieldNode->zPosition(), 1);

    const auto coinNode = elements(loaded.scene->coinNodes()).front();
    EXPECT_FALSE(coinNode->property_useGravity);
    EXPECT_EQ(coinNode->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::staticObjectBody));
    EXPECT_FALSE(coinNode->physicsBody()->affectedByGravity());
}

TEST_F(PlacementTest, ItemsWithoutCatalogueEntriesAreKeptUnshown)
{
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem known, unknown;
    known.elementName = "Crate";
    known.properties.emplace().devices = at("{0,0}");
    unknown.elementName = "Vanished";
    unknown.name = "lost one";
    unknown.isVisible = true;
    unknown.properties.emplace().devices = at("{50,0}");
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{unknown, known, unknown};
    tessaro::CharacterLevelItem stranger;
    stranger.elementName = "Stranger";
    level.characters = std::vector<tessaro::CharacterLevelItem>{stranger};
    tessaro::CheckPointLocation location;
    location.devices = at("{10,0}");
    level.checkpoints.emplace().image = ""; // no checkpoint has an empty name
    level.checkpoints->locations = std::vector<tessaro::CheckPointLocation>{location};

    testing_support::DiagnosticCapture capture;
    LoadedLevel loaded(level);
    EXPECT_TRUE(capture.contains("Obstacle \"Vanished\" is not in the obstacle catalogue"));
    EXPECT_TRUE(capture.contains("Character \"Stranger\" is not in the character catalogue"));
    EXPECT_TRUE(capture.contains("No checkpoint named \"\" in the object catalogue"));

    const auto nodes = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(nodes.size(), 3u);
    EXPECT_TRUE(nodes[0]->keptOnly);
    EXPECT_TRUE(nodes[0]->isHidden());
    EXPECT_FALSE(nodes[1]->keptOnly);
    EXPECT_TRUE(loaded.scene->nodesAtPoint(QPointF(50, 0)).empty());

    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.obstacles->size(), 3u);
    EXPECT_EQ((*saved.obstacles)[0], unknown);
    EXPECT_EQ((*saved.obstacles)[1].elementName, "Crate");
    EXPECT_EQ((*saved.obstacles)[2], unknown);
    EXPECT_EQ(saved.characters, std::vector<tessaro::CharacterLevelItem>{stranger});
    EXPECT_EQ(saved.checkpoints->locations, std::vector<tessaro::CheckPointLocation>{location});
}

TEST_F(PlacementTest, CoinsShowTheCatalogueCoinUnderAnotherName)
{
    tessaro::objectCatalogue().front().elementName = "Coin";
    tessaro::Level level = emptyLevel();
    tessaro::Coin coin;
    coin.devices = at("{0,30}");
    level.coins.emplace().coins = std::vector<tessaro::Coin>{coin};
    testing_support::DiagnosticCapture capture;
    LoadedLevel loaded(level);
    EXPECT_TRUE(capture.contains("coins show \"Coin\""));
    const auto nodes = elements(loaded.scene->coinNodes());
    ASSERT_EQ(nodes.size(), 1u);
    EXPECT_FALSE(nodes[0]->keptOnly);
    EXPECT_EQ(nodes[0]->size(), QSizeF(20, 20));

    tessaro::objectCatalogue().erase(tessaro::objectCatalogue().begin());
    LoadedLevel without(level);
    ASSERT_EQ(elements(without.scene->coinNodes()).size(), 1u);
    EXPECT_TRUE(elements(without.scene->coinNodes()).front()->keptOnly);
    EXPECT_EQ(without.saved().coins->coins, std::vector<tessaro::Coin>{coin});
}

TEST_F(PlacementTest, ThePickerAddsAtTheLeftEdgeOfTheView)
{
    tessaro::Level level = emptyLevel();
    LoadedLevel loaded(level);

    // The first ground section of an empty level: sequence 0 at the view's left edge...
    const auto first = loaded.scene->placement().addElement(sceneObjectType::ground, "Grass");
    ASSERT_TRUE(first);
    ASSERT_EQ(loaded.level().ground->size(), 1u);
    EXPECT_EQ(first->sequenceId, 0);
    EXPECT_EQ(xOf(first), -437 + 100);
    const auto second = loaded.scene->placement().addElement(sceneObjectType::ground, "Grass");
    EXPECT_EQ(second->sequenceId, 1);
    EXPECT_EQ(xOf(second), -237 + 100);
    EXPECT_EQ(loaded.scene->levelEndX(), 400);

    // ...and other elements at the x the view has scrolled to.
    loaded.scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{300, 0});
    const auto crate = loaded.scene->placement().addElement(sceneObjectType::obstacles, "Crate");
    ASSERT_TRUE(crate);
    EXPECT_EQ(crate->position(), QPointF(300, 0));
    EXPECT_EQ(crate->zPosition(), 100);
    ASSERT_TRUE(crate->devices);
    EXPECT_EQ(crate->devices->front().position, "{300.0,0.0}");
    EXPECT_EQ(crate->devices->front().size, "{40.0,40.0}");
    EXPECT_EQ(crate->devices->front().offset, "{0,0}");
    EXPECT_FALSE(crate->activelySelected);
    // Without a catalogue size, the picture fits 100 by 100.
    const auto wide = loaded.scene->placement().addElement(sceneObjectType::obstacles, "Wide");
    EXPECT_EQ(wide->size(), QSizeF(100, 100.0 / 3));
    const auto walker = loaded.scene->placement().addElement(sceneObjectType::character, "Walker");
    EXPECT_EQ(walker->charClassType, tessaro::characterClassType::friendly);
    const auto coin = loaded.scene->placement().addElement(sceneObjectType::coin, "coin");
    EXPECT_EQ(coin->zPosition(), 50);

    testing_support::DiagnosticCapture capture;
    EXPECT_FALSE(loaded.scene->placement().addElement(sceneObjectType::obstacles, "Nothing"));
    EXPECT_TRUE(capture.contains("No obstacles named \"Nothing\""));

    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.obstacles->size(), 2u);
    EXPECT_EQ((*saved.obstacles)[0].elementName, "Crate");
    EXPECT_EQ((*saved.obstacles)[0].zPosition, 100);
    EXPECT_EQ(saved.characters->front().charClassType, "friendly");
    EXPECT_EQ(saved.coins->coins->front().zPosition, 50);
}

TEST_F(PlacementTest, ThePickerKeepsEveryDeviceEntryOfTheCatalogue)
{
    const std::string defaultName(tessaro::caseText(tessaro::deviceName::defaultDevice));
    const auto entry = [](const std::string& devices, const std::string& size, const std::string& position) {
        tessaro::DeviceProperties properties;
        properties.deviceName = devices;
        properties.size = size;
        if (!position.empty())
            properties.position = position;
        return properties;
    };
    tessaro::Obstacle withDefault = obstacleTemplate("Tall", "crate", "");
    withDefault.devices = {entry("iPad", "{80,80}", "{1,2}"), entry(defaultName + ",iPhone15", "{40,40}", ""),
                           entry("iPhone16", "{30,30}", "{3,4}")};
    tessaro::Obstacle withoutDefault = obstacleTemplate("Small", "crate", "");
    withoutDefault.devices = {entry("iPad", "{80,80}", "{1,2}")};
    tessaro::obstacleCatalogue().push_back(withDefault);
    tessaro::obstacleCatalogue().push_back(withoutDefault);
    LoadedLevel loaded(emptyLevel());
    loaded.scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{300, 0});

    // The catalogue's default entry takes the placed values; the others stay as they were.
    const auto tall = loaded.scene->placement().addElement(sceneObjectType::obstacles, "Tall");
    ASSERT_TRUE(tall && tall->devices);
    ASSERT_EQ(tall->devices->size(), 3u);
    EXPECT_EQ((*tall->devices)[0], withDefault.devices->at(0));
    EXPECT_EQ((*tall->devices)[1].deviceName, defaultName + ",iPhone15");
    EXPECT_EQ((*tall->devices)[1].position, "{300.0,0.0}");
    EXPECT_EQ((*tall->devices)[2], withDefault.devices->at(2));
    EXPECT_EQ(tall->position(), QPointF(300, 0));

    // Without one, the new entry follows the catalogue's.
    const auto small = loaded.scene->placement().addElement(sceneObjectType::obstacles, "Small");
    ASSERT_TRUE(small && small->devices);
    ASSERT_EQ(small->devices->size(), 2u);
    EXPECT_EQ((*small->devices)[0], withoutDefault.devices->at(0));
    EXPECT_EQ((*small->devices)[1].deviceName, defaultName);
    EXPECT_EQ(small->position(), QPointF(300, 0));

    // The catalogue itself is untouched.
    EXPECT_EQ(tessaro::obstacleCatalogue()[2].devices, withDefault.devices);
}

} // namespace
} // namespace stagewright::test
