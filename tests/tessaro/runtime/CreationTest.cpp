// The factories: every kind of element of a level the editor wrote becomes
// a sprite, with the defaults, names, places, masks and rotations the
// records ask for.
#include "RuntimeTestSupport.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/runtime/GameResources.h>
#include <tessaro/runtime/LevelItems.h>
#include <tessaro/runtime/ObstacleCreationHelper.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro;
using namespace runtime_test;

namespace {

QString sourceDir()
{
    return qEnvironmentVariable("STAGEWRIGHT_SOURCE_DIR", QStringLiteral(".")) + QLatin1Char('/');
}

DeviceProperties device(const char* position, const char* size = nullptr)
{
    DeviceProperties entry;
    entry.deviceName = "defaultDevice";
    entry.position = position;
    if (size)
        entry.size = size;
    return entry;
}

/// A scene whose floor lies at y -150 everywhere, with a world node in it.
struct Ground {
    std::shared_ptr<AppSharedSceneBase> scene = std::make_shared<AppSharedSceneBase>(QSizeF(874, 402));
    kit::NodePtr world = kit::Node::create();
    Ground()
    {
        scene->addChild(world);
        scene->setGroundBaseVariants({QRectF(-1e6, -150, 2e6, 0)});
    }
};

} // namespace

TEST(Creation, EveryObstacleAndCharacterOfTheSampleLevelBecomesASprite)
{
    ASSERT_TRUE(loadWorkspace(sourceDir() + "resources/seed/"));
    const LevelsReadResult project = readLevels((sourceDir() + "resources/sample/Levels/Sample.plist").toStdString());
    ASSERT_TRUE(project.ok);
    const tessaro::Level& sample = project.levels.front();
    Ground level;

    int made = 0;
    for (const ObstacleLevelItem& item : *sample.obstacles) {
        const Obstacle* catalogue = findObstacle(obstacleCatalogue(), item.elementName);
        ASSERT_NE(catalogue, nullptr) << item.elementName;
        auto node =
            ObstacleCreationHelper::createObstacle(mergedObstacle(item, *catalogue), *level.world, *level.scene);
        ASSERT_TRUE(node);
        level.world->addChild(node);
        ++made;
        EXPECT_TRUE(node->name().startsWith(QString::fromStdString("OBJECT_" + item.name + "_")))
            << node->name().toStdString();
        EXPECT_EQ(node->zPosition(), item.zPosition);
        ASSERT_NE(node->physicsBody(), nullptr);
        const PointValue stored = deviceValue<fieldList::position>(*item.properties->devices);
        EXPECT_EQ(node->position().x(), stored.x);
        if (item.elementName == "Crate") {
            EXPECT_EQ(node->position().y(), -150 + 32) << "with gravity it stands on the floor";
            EXPECT_EQ(node->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::staticObjectMovable));
            EXPECT_TRUE(node->physicsBody()->isDynamic());
        }
        if (item.elementName == "Spikes") {
            EXPECT_EQ(node->position().y(), stored.y) << "without gravity it stays where it was put";
            EXPECT_EQ(node->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::objectCausesDeath));
            EXPECT_EQ(node->physicsBody()->contactTestBitMask(), collisionBit(collisionTypes::humanPlayer));
            EXPECT_FALSE(node->physicsBody()->isDynamic());
        }
    }
    EXPECT_EQ(made, int(sample.obstacles->size()));
    EXPECT_EQ(level.world->nodesWithName("OBJECT_Crate 2_80.0").size(), 1u) << "a whole x keeps its .0";

    SKSpriteNodeEnemy2dBasePtr hero;
    for (const CharacterLevelItem& item : *sample.characters) {
        const Character* catalogue = findCharacter(characterCatalogue(), item.elementName);
        ASSERT_NE(catalogue, nullptr);
        auto node = ObstacleCreationHelper::createCharacter(item, *catalogue, hero, *level.world, *level.scene);
        ASSERT_TRUE(node);
        level.world->addChild(node);
        if (!hero)
            hero = node;
    }
    ASSERT_TRUE(hero);
    EXPECT_EQ(hero->name(), "ENEMY_HUMAN_Hero 1");
    EXPECT_EQ(hero->size(), QSizeF(48, 64));
    EXPECT_EQ(hero->position(), QPointF(-190, -150 + 32));
    EXPECT_EQ(hero->executeState(), enemyStateType::Initial);
    EXPECT_EQ(hero->allowedTimesToHit(), 3);
    EXPECT_TRUE(hero->childNodeWithName("healthBox"));
    EXPECT_EQ(hero->imageBase(), "hero");
    EXPECT_EQ(hero->texture()->size(), level.scene->cachedTexture("hero_Idle")->size()) << "first frame of its start";
    auto slime =
        std::dynamic_pointer_cast<SKSpriteNodeEnemy2dBase>(level.world->childNodeWithName("ENEMY_ANIMAL_Slime 6"));
    ASSERT_TRUE(slime);
    EXPECT_EQ(slime->target(), hero);
    EXPECT_EQ(slime->objectClassTypes(), std::vector<objectClassType>{objectClassType::none});
    EXPECT_EQ(slime->direction(), pathDirection::right);
}

TEST(Creation, ObstacleDefaultsNamesAndPlaces)
{
    Pictures pictures;
    pictures.image("rock", 40, 20);
    Ground level;
    struct Case {
        const char* classes;
        const char* maximumDistance;
        std::uint32_t category;
    };
    for (const Case& c :
         {Case{"barrier,floorSubstitute", nullptr, 0x20}, Case{"floorSubstitute,barrier", nullptr, 0x4000},
          Case{"hideOnTouch", nullptr, 0x4}, Case{"floorAboveGround", nullptr, 0x20000}, Case{"coin", nullptr, 0x2},
          Case{"barrier", "{-100,0}", 0x8}}) {
        Obstacle record;
        record.name = "rock";
        record.image = "rock,spare";
        record.objectClassType = c.classes;
        if (c.maximumDistance)
            record.maximumDistance = c.maximumDistance;
        record.devices = std::vector<DeviceProperties>{device("{128,40}")};
        auto node = ObstacleCreationHelper::createObstacle(record, *level.world, *level.scene);
        EXPECT_EQ(node->physicsBody()->categoryBitMask(), c.category) << c.classes;
        EXPECT_EQ(node->size(), QSizeF(40, 20)) << "the first image of the list, at its own size";
        EXPECT_EQ(node->position(), QPointF(128, -150 + 10)) << "gravity is on when the record says nothing";
        EXPECT_EQ(node->name(), "OBJECT_rock_128.0");
        if (c.maximumDistance) {
            EXPECT_EQ(node->distanceXRange(), (RangeValue{28, 128}));
            EXPECT_EQ(node->distanceYRange(), (RangeValue{-140, -140}));
        }
    }

    // A mirage, off the floor, turned by 90 degrees, placed where the last
    // random position was.
    level.scene->setDeviceChoice({deviceName::none, deviceName::none, {500, 77}});
    Obstacle record;
    record.name = "ghost";
    record.image = "rock";
    record.objectClassType = "mirage";
    record.useGravity = false;
    record.rotationProperties.emplace().rotation = 90;
    record.devices = std::vector<DeviceProperties>{device("{999999999,999999999}")};
    auto mirage = ObstacleCreationHelper::createObstacle(record, *level.world, *level.scene);
    EXPECT_EQ(mirage->name(), "MIRAGE_ghost_500.0");
    EXPECT_EQ(mirage->position(), QPointF(500, 77));
    EXPECT_NEAR(mirage->zRotation(), M_PI / 2, 1e-12);
    record.useGravity = true;
    EXPECT_EQ(ObstacleCreationHelper::createObstacle(record, *level.world, *level.scene)->position(),
              QPointF(500, -140))
        << "with gravity the ground at the repeated x decides";
    level.scene->setDeviceChoice({});

    // The place is in the parent's space.
    auto shifted = kit::Node::create();
    shifted->setPosition(100, 0);
    level.scene->addChild(shifted);
    EXPECT_EQ(ObstacleCreationHelper::scenePosition({150, 30}, {10, 10}, {0, 1}, {5, 0}, true, *shifted, *level.scene),
              QPointF(55, -140))
        << "anchor (0,1) lifts by the whole height";
}

TEST(Creation, APinnedRotationHangsTheObstacleInsideItsCarrier)
{
    Pictures pictures;
    pictures.image("blade", 60, 10);
    pictures.image("post", 20, 80);
    Ground level;
    Obstacle record;
    record.name = "blade";
    record.image = "blade";
    record.useGravity = false;
    record.devices = std::vector<DeviceProperties>{device("{300,50}")};
    RotationProperties& rotation = record.rotationProperties.emplace();
    rotation.rotateForever = true;
    rotation.rotationPin = true;
    rotation.rotation = 90;
    rotation.rotateDuration = 1;
    rotation.rotateType = "pendulum";
    SiblingProperties post;
    post.siblingType = "parent";
    post.image = "post";
    post.devices = std::vector<DeviceProperties>{device("{280,60}", "{20,80}")};
    record.siblings = std::vector<SiblingProperties>{post};

    auto carrier = ObstacleCreationHelper::createObstacle(record, *level.world, *level.scene);
    ASSERT_TRUE(carrier);
    EXPECT_EQ(carrier->name(), "OBJECT_rotate_blade_280.0");
    EXPECT_EQ(carrier->size(), QSizeF(20, 80));
    ASSERT_EQ(carrier->children().size(), 1u);
    const kit::NodePtr pivot = carrier->children().front();
    ASSERT_EQ(pivot->children().size(), 1u);
    auto blade = std::dynamic_pointer_cast<SKSpriteNode2dBase>(pivot->children().front());
    ASSERT_TRUE(blade);
    EXPECT_EQ(blade->name(), "OBJECT_blade_300.0");
    EXPECT_EQ(blade->zPosition(), -1);
    level.world->addChild(carrier);
    EXPECT_EQ(blade->convertPointToNode({0, 0}, *level.world), QPointF(300, 50)) << "it stays where it was put";
    Clock clock(*level.scene);
    clock.to(1.0);
    EXPECT_NEAR(pivot->zRotation(), M_PI / 2, 1e-9);
    clock.to(2.0);
    EXPECT_NEAR(pivot->zRotation(), 0, 1e-9);
}

TEST(Creation, CharacterItemsOverrideTheirCatalogueRecord)
{
    Pictures pictures;
    pictures.image("bat", 30, 30);
    Ground level;
    Character bat;
    bat.image = "bat";
    bat.characterType = "mystic";
    bat.devices = std::vector<DeviceProperties>{device("{0,0}")};
    CharacterLevelItem item;
    item.name = "Bat 1";
    item.zPosition = 7;
    Character& overrides = item.properties.emplace();
    DeviceProperties first = device("{200,0}");
    first.offset = "{0,5}";
    overrides.devices = std::vector<DeviceProperties>{first, device("{900,900}"), device("{1,1}")};
    overrides.devices->at(2).deviceName = "iPad";

    auto node = ObstacleCreationHelper::createCharacter(item, bat, nullptr, *level.world, *level.scene);
    ASSERT_TRUE(node);
    EXPECT_EQ(node->name(), "ENEMY_MYSTIC_Bat 1");
    EXPECT_EQ(node->size(), QSizeF(96, 96)) << "no size anywhere";
    EXPECT_TRUE(node->useGravity()) << "no gravity given and a position at y 0";
    EXPECT_EQ(node->position(), QPointF(200, -150 + 48 + 5)) << "the first default entry of the item counts";
    EXPECT_EQ(node->executeState(), enemyStateType::Idle);
    EXPECT_EQ(node->objectClassTypes(), std::vector<objectClassType>{objectClassType::enemyOneSlash});
    EXPECT_EQ(node->characterProperties()->devices->size(), 2u) << "the iPad entry is added";
    EXPECT_EQ(node->zPosition(), 7);

    overrides.objectClassType = "mirage";
    overrides.useGravity = false;
    overrides.devices = std::vector<DeviceProperties>{device("{10,20}")};
    bat.image.reset();
    EXPECT_FALSE(ObstacleCreationHelper::createCharacter(item, bat, nullptr, *level.world, *level.scene))
        << "a character needs a picture";
    bat.image = "bat";
    node = ObstacleCreationHelper::createCharacter(item, bat, nullptr, *level.world, *level.scene);
    EXPECT_EQ(node->name(), "MIRAGE_MYSTIC_Bat 1");
    EXPECT_EQ(node->position(), QPointF(10, 20));

    // A catalogue record without device entries takes the item's, so a
    // placed character stands where the designer put it.
    bat.devices.reset();
    node = ObstacleCreationHelper::createCharacter(item, bat, nullptr, *level.world, *level.scene);
    EXPECT_EQ(node->position(), QPointF(10, 20));
    EXPECT_EQ(node->characterProperties()->devices, overrides.devices);
}

TEST(Creation, LevelItemsMergeOverTheirTemplate)
{
    Obstacle crate;
    crate.elementName = "Crate";
    crate.name = "crate";
    crate.image = "crate";
    crate.useGravity = true;
    crate.alpha = 0.5;
    crate.devices = std::vector<DeviceProperties>{device("{1,1}", "{64,64}")};
    ObstacleLevelItem item;
    item.elementName = "Crate";
    item.name = "Crate 7";
    item.zPosition = 12;
    Obstacle& overrides = item.properties.emplace();
    overrides.useGravity = false;
    overrides.devices = std::vector<DeviceProperties>{device("{300,40}", "{0,0}"), device("{5,5}")};
    overrides.devices->back().deviceName = "iPad";

    const Obstacle merged = mergedObstacle(item, crate);
    EXPECT_EQ(merged.name, "Crate 7");
    EXPECT_EQ(merged.zPosition, 12);
    EXPECT_EQ(merged.useGravity, false);
    EXPECT_EQ(merged.alpha, 0.5);
    EXPECT_EQ(merged.image, "crate");
    ASSERT_EQ(merged.devices->size(), 2u);
    EXPECT_EQ(deviceValue<fieldList::position>(*merged.devices), (PointValue{300, 40}));
    EXPECT_EQ(deviceValue<fieldList::size>(*merged.devices), (SizeValue{64, 64})) << "a size of (0,0) is not set";
}
