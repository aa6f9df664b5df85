// Element nodes: where device values put each kind, the merge of override
// and catalogue, pictures that are missing or broken, physics bodies, stack
// children, the glow, the snap marker and the distance guide.
#include "SceneTestSupport.h"

#include <stagewright/state/Workspace.h>

#include <tessaro/kit/EffectNode.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>

#include <QFile>

#include <gtest/gtest.h>

#include <numbers>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct ElementTest : ::testing::Test {
    SceneWorkspace workspace;
    void SetUp() override
    {
        workspace.image(sceneObjectType::ground, "grass", 200, 50);
        workspace.image(sceneObjectType::obstacles, "crate", 40, 40);
        workspace.image(sceneObjectType::obstacles, "barrel", 30, 60);
        workspace.image(sceneObjectType::character, "walker", 30, 40);
        workspace.image(sceneObjectType::coin, "coin", 20, 20);
        workspace.image(sceneObjectType::artifact, "gem", 10, 12);
        workspace.image(sceneObjectType::shield, "shield", 24, 30);
        workspace.image(sceneObjectType::checkpoint, "flag", 16, 50);
        tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
        tessaro::characterCatalogue() = {characterTemplate("Walker", "walker", "{30,40}")};
        tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}"),
                                      objectTemplate("Flag", "flag", sceneObjectType::checkpoint, "{16,50}")};
    }

    /// A level with a floor at -151 from x -437 to 163.
    static tessaro::Level floored()
    {
        tessaro::Level level = emptyLevel();
        level.ground = std::vector<tessaro::GroundSection>{tileSection("grass", "{200,50}", 3)};
        return level;
    }
    static tessaro::ObstacleLevelItem crate(const std::string& position, const std::string& offset = {},
                                            std::optional<bool> gravity = {})
    {
        tessaro::ObstacleLevelItem item;
        item.elementName = "Crate";
        item.name = "crate at " + position;
        item.zPosition = 10;
        tessaro::Obstacle& properties = item.properties.emplace();
        properties.devices = at(position, {}, offset);
        properties.useGravity = gravity;
        return item;
    }
};

TEST_F(ElementTest, DevicesPlaceEachKind)
{
    tessaro::Level level = floored();
    level.obstacles =
        std::vector<tessaro::ObstacleLevelItem>{crate("{100,0}", "{10,0}"), crate("{100,20}", "{0,5}"),
                                                crate("{100,0}", {}, true), crate("{999999999,50}", "{2,0}")};
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    walker.properties.emplace().devices = at("{100,0}", {}, "{4,0}");
    walker.properties->useGravity = true;
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    tessaro::Coin onFloor, raised;
    onFloor.devices = at("{50,0}", {}, "{0,3}");
    raised.devices = at("{50,1}", {}, "{0,2}");
    level.coins.emplace().coins = std::vector<tessaro::Coin>{onFloor, raised};
    tessaro::Artifact gem;
    gem.image = "gem";
    gem.devices = at("{60,0}", {}, "{0,4}");
    level.artifacts.emplace().artifacts = std::vector<tessaro::Artifact>{gem};
    tessaro::Shield shield;
    shield.devices = at("{70,10}");
    level.shields.emplace().image = "shield";
    level.shields->shields = std::vector<tessaro::Shield>{shield};
    tessaro::CheckPointLocation flag;
    flag.devices = at("{80,90}", {}, "{0,6}");
    level.checkpoints.emplace().image = "Flag";
    level.checkpoints->locations = std::vector<tessaro::CheckPointLocation>{flag};
    LoadedLevel loaded(level);

    const auto obstacles = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(obstacles.size(), 4u);
    // The offset enters twice on the obstacle path.
    EXPECT_EQ(obstacles[0]->position(), QPointF(120, 0));
    EXPECT_EQ(obstacles[1]->position(), QPointF(100, 30));
    // With gravity the obstacle stands on the floor: -151 + h/2.
    EXPECT_EQ(obstacles[2]->position(), QPointF(100, -131));
    // A coordinate above 999999998 repeats the last random position, which
    // the canvas never has: (0,0).
    EXPECT_EQ(obstacles[3]->position(), QPointF(2, 50));

    const auto character = elements(loaded.scene->characterNodes()).front();
    EXPECT_EQ(character->position(), QPointF(108, -151 + 20));

    const auto coins = elements(loaded.scene->coinNodes());
    ASSERT_EQ(coins.size(), 2u);
    EXPECT_TRUE(coins[0]->property_useGravity);
    EXPECT_FALSE(coins[1]->property_useGravity);
    EXPECT_EQ(coins[0]->position(), QPointF(50, 3 - 151 + 10));
    EXPECT_EQ(coins[1]->position(), QPointF(50, 3));

    EXPECT_EQ(elements(loaded.scene->artifactNodes()).front()->position(), QPointF(60, 4 - 151 + 6));
    EXPECT_EQ(elements(loaded.scene->shieldsNodes()).front()->position(), QPointF(70, 10 + 15));
    // A checkpoint always stands on the floor, whatever its stored height.
    EXPECT_EQ(elements(loaded.scene->checkpointNodes()).front()->position(), QPointF(80, 6 - 151 + 25));
}

TEST_F(ElementTest, OverrideOverCatalogueOverDefault)
{
    tessaro::Obstacle& catalogue = tessaro::obstacleCatalogue().front();
    catalogue.useGravity = true;
    catalogue.isDynamic = true;
    catalogue.rotationProperties.emplace().rotation = 90;
    catalogue.rotationProperties->rotateDuration = 2;
    tessaro::Obstacle spinning = obstacleTemplate("Spinner", "crate", "{40,40}");
    spinning.rotationProperties.emplace().rotation = 45;
    spinning.rotationProperties->rotateForever = true;
    spinning.usePhysics = false;
    tessaro::obstacleCatalogue().push_back(spinning);

    tessaro::Level level = floored();
    tessaro::ObstacleLevelItem barrel = crate("{0,0}");
    barrel.properties->image = "barrel";
    barrel.properties->devices->front().size = "{0,0}"; // counts as absent
    barrel.properties->rotationProperties.emplace().rotateDuration = 5;
    tessaro::ObstacleLevelItem spinner = crate("{0,0}");
    spinner.elementName = "Spinner";
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{barrel, spinner};
    LoadedLevel loaded(level);

    const auto nodes = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0]->imageOverride, "barrel");
    EXPECT_EQ(nodes[0]->size(), QSizeF(40, 40));
    EXPECT_TRUE(nodes[0]->property_useGravity);
    ASSERT_TRUE(nodes[0]->physicsBody());
    EXPECT_TRUE(nodes[0]->physicsBody()->isDynamic());
    EXPECT_EQ(nodes[0]->physicsBody()->collisionBitMask(), tessaro::collisionBit(tessaro::collisionTypes::floor));
    ASSERT_TRUE(nodes[0]->rotationOverrides);
    EXPECT_EQ(nodes[0]->rotationOverrides->rotation, 90);
    EXPECT_EQ(nodes[0]->rotationOverrides->rotateDuration, 5);
    EXPECT_DOUBLE_EQ(nodes[0]->zRotation(), std::numbers::pi / 2);
    EXPECT_EQ(nodes[0]->catalogueElementName(), "Crate");

    // Turning for ever: the picture is not turned; no physics: no body.
    EXPECT_EQ(nodes[1]->zRotation(), 0);
    EXPECT_FALSE(nodes[1]->physicsBody());
    EXPECT_EQ(nodes[1]->imageOverride, "crate");
}

TEST_F(ElementTest, MissingAndBrokenPicturesShowThePlaceholder)
{
    QFile broken(kindImageFolder(workspace.path(), sceneObjectType::obstacles) + "broken.png");
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a picture");
    broken.close();
    tessaro::obstacleCatalogue().push_back(obstacleTemplate("Ghost", "ghost", ""));
    tessaro::obstacleCatalogue().push_back(obstacleTemplate("Broken", "broken", "{50,50}"));
    tessaro::obstacleCatalogue().push_back(obstacleTemplate("Odd", "../crate", ""));

    testing_support::DiagnosticCapture capture;
    tessaro::Level level = floored();
    std::vector<tessaro::ObstacleLevelItem> items;
    for (const char* name : {"Ghost", "Ghost", "Broken", "Odd"}) {
        tessaro::ObstacleLevelItem item = crate("{0,0}");
        item.elementName = name;
        items.push_back(item);
    }
    level.obstacles = items;
    LoadedLevel loaded(level);

    const auto nodes = elements(loaded.scene->obstacleNodes());
    ASSERT_EQ(nodes.size(), 4u);
    // No size in the record: the placeholder's own size (16 by 16).
    EXPECT_EQ(nodes[0]->size(), QSizeF(16, 16));
    EXPECT_EQ(nodes[2]->size(), QSizeF(50, 50));
    EXPECT_EQ(QColor(nodes[2]->texture()->image().pixel(0, 0)), QColor(255, 0, 255));
    EXPECT_EQ(nodes[3]->size(), QSizeF(16, 16));
    const auto count = [&](const std::string& prefix) {
        return std::count_if(capture.lines().begin(), capture.lines().end(),
                             [&](const std::string& line) { return line.rfind(prefix, 0) == 0; });
    };
    // Each problem is told once, however many elements share it.
    EXPECT_EQ(count("Image not found: \"ghost\""), 1);
    EXPECT_EQ(count("Loading image error: "), 1);
    EXPECT_EQ(count("Image name is not a plain file name: \"../crate\""), 1);
}

TEST_F(ElementTest, PhysicsBodiesFromThePicture)
{
    auto empty = ElementNode::create(tessaro::kit::Texture::fromImage(QImage()), QSizeF());
    empty->property_sceneObjectType = sceneObjectType::artifact;
    empty->artifactOverrides.emplace().image = "gem";
    {
        testing_support::DiagnosticCapture capture;
        empty->applyPhysicsBody(1, 2, 4, false, false);
        ASSERT_EQ(capture.lines().size(), 1u);
        EXPECT_EQ(capture.lines()[0],
                  "Physics size zero for " + empty->name().toStdString() + ", type: artifact, image: gem");
    }
    EXPECT_FALSE(empty->physicsBody());
    empty->devices = at("{5,6}");
    empty->placeFromDevices();
    EXPECT_EQ(empty->position(), QPointF(5, 6));

    auto ground = ElementNode::create(nullptr, QSizeF());
    ground->property_sceneObjectType = sceneObjectType::ground;
    testing_support::DiagnosticCapture capture;
    ground->applyPhysicsBody(1, 2, 4, false, false);
    EXPECT_TRUE(capture.contains(", type: ground, image: no ground image"));

    LoadedLevel loaded(floored());
    loaded.scene->processFrame(0);
    loaded.scene->processFrame(0.02);
    const auto floor = elements(loaded.scene->groundNodes()).front();
    ASSERT_TRUE(floor->physicsBody());
    EXPECT_FALSE(floor->physicsBody()->allowsRotation());
    // The outline of an opaque picture covers the picture.
    const QRectF bounds = floor->calculateAccumulatedFrame();
    EXPECT_TRUE(loaded.scene->physicsWorld().bodyAtPoint(QPointF(bounds.center().x(), bounds.center().y())));
}

TEST_F(ElementTest, StackChildrenStandHalfASizeApart)
{
    tessaro::Level level = floored();
    tessaro::Coin row, column, single;
    row.devices = at("{0,40}");
    row.repeatCount = 3;
    column.devices = at("{100,40}");
    column.repeatCount = 3;
    column.stack = true;
    single.devices = at("{200,40}");
    single.repeatCount = 1;
    tessaro::Coins& coins = level.coins.emplace();
    coins.repeatDistance = "{10, 20}";
    coins.coins = std::vector<tessaro::Coin>{row, column, single};
    LoadedLevel loaded(level);

    const auto nodes = elements(loaded.scene->coinNodes());
    ASSERT_EQ(nodes.size(), 3u);
    const auto stack = [](const ElementNodePtr& node) {
        std::vector<QPointF> points;
        for (const auto& child : node->nodesWithName("stack_*"))
            points.push_back(child->position());
        return points;
    };
    EXPECT_EQ(stack(nodes[0]), (std::vector<QPointF>{{20, 0}, {40, 0}}));
    EXPECT_EQ(stack(nodes[1]), (std::vector<QPointF>{{0, 30}, {0, 60}}));
    EXPECT_TRUE(stack(nodes[2]).empty());
    EXPECT_EQ(nodes[0]->childNodeWithName("stack_2")->zPosition(), nodes[0]->zPosition());

    // Placing again rebuilds the stack rather than adding to it.
    nodes[0]->placeFromDevices();
    EXPECT_EQ(stack(nodes[0]).size(), 2u);
    nodes[0]->removeStackChildren();
    EXPECT_TRUE(stack(nodes[0]).empty());
}

TEST_F(ElementTest, GlowSnapMarkerAndDistanceGuide)
{
    tessaro::obstacleCatalogue().front().devices->front().distance = "{150,0}";
    tessaro::Level level = floored();
    tessaro::ObstacleLevelItem near = crate("{0,0}");
    near.properties->devices->front().distance = "{200,0}";
    tessaro::ObstacleLevelItem inherited = crate("{100,0}");
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    walker.properties.emplace().devices = at("{0,0}");
    walker.properties->devices->front().distance = "{200,0}";
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{near, inherited};
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    LoadedLevel loaded(level);
    const auto obstacles = elements(loaded.scene->obstacleNodes());
    const auto character = elements(loaded.scene->characterNodes()).front();

    const auto spanEnd = [](const ElementNodePtr& node) {
        EXPECT_TRUE(node->distanceGuideNode);
        if (!node->distanceGuideNode)
            return 0.0;
        EXPECT_EQ(node->distanceGuideNode->children().size(), 3u);
        const auto* span = dynamic_cast<const tessaro::kit::ShapeNode*>(node->distanceGuideNode->children()[0].get());
        EXPECT_EQ(span->zPosition(), -10);
        EXPECT_EQ(span->strokeColor(), QColor(Qt::red));
        return span->path().boundingRect().left() < 0 ? span->path().boundingRect().left()
                                                      : span->path().boundingRect().right();
    };
    EXPECT_EQ(spanEnd(obstacles[0]), 200);
    EXPECT_EQ(spanEnd(obstacles[1]), 150);
    EXPECT_EQ(spanEnd(character), -200);
    obstacles[0]->refreshDistanceGuide();
    EXPECT_EQ(std::count_if(obstacles[0]->children().begin(), obstacles[0]->children().end(),
                            [](const auto& child) { return dynamic_cast<const DistanceGuideNode*>(child.get()); }),
              1);

    // One glow at a time, on a red blurred copy of the picture.
    obstacles[0]->addGlow();
    obstacles[0]->addGlow();
    EXPECT_EQ(obstacles[0]->nodesWithName("glow").size(), 1u);
    const auto glow = obstacles[0]->childNodeWithName("glow");
    EXPECT_EQ(glow->zPosition(), -1);
    const auto* effect = dynamic_cast<const tessaro::kit::EffectNode*>(glow->children().front().get());
    ASSERT_TRUE(effect);
    EXPECT_EQ(effect->filter(), tessaro::kit::EffectFilter::gaussianBlur(30));
    const auto* copy = dynamic_cast<const tessaro::kit::SpriteNode*>(effect->children().front().get());
    EXPECT_EQ(copy->color(), QColor(Qt::red));
    EXPECT_EQ(copy->colorBlendFactor(), 1);
    obstacles[1]->addGlow();
    loaded.scene->clearGlow(obstacles[0].get());
    EXPECT_TRUE(obstacles[0]->hasGlow());
    EXPECT_FALSE(obstacles[1]->hasGlow());
    loaded.scene->clearGlow();
    EXPECT_FALSE(obstacles[0]->hasGlow());

    // The snap marker stands on the named side and replaces the one before.
    obstacles[1]->snaptoLocation = tessaro::pathDirection::top;
    obstacles[1]->showSnapMarker();
    obstacles[1]->snaptoLocation = tessaro::pathDirection::right;
    obstacles[1]->showSnapMarker();
    const auto markers = obstacles[1]->nodesWithName("snapToImage");
    ASSERT_EQ(markers.size(), 1u);
    EXPECT_EQ(markers[0]->position(), QPointF(20, 0));
    EXPECT_EQ(markers[0]->zPosition(), 100000);
}

} // namespace
} // namespace stagewright::test
