// Ground layout: section positions, composed pictures, hazards, floor
// rectangles, hidden sections and rebuilding.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct GroundTest : ::testing::Test {
    SceneWorkspace workspace;
    void SetUp() override
    {
        workspace.image(sceneObjectType::ground, "grass", 200, 50, QColor(40, 160, 40));
        workspace.image(sceneObjectType::ground, "dirt", 100, 30, QColor(120, 80, 40));
        workspace.image(sceneObjectType::ground, "crest_top_one", 64, 20, QColor(40, 40, 200));
    }
    static tessaro::Level withGround(std::vector<tessaro::GroundSection> sections)
    {
        tessaro::Level level = emptyLevel();
        level.ground = std::move(sections);
        return level;
    }
};

TEST_F(GroundTest, SectionsLayFromTheLeftEdge)
{
    LoadedLevel loaded(withGround({tileSection("grass", "{200,50}")}));
    const auto grounds = elements(loaded.scene->groundNodes());
    ASSERT_EQ(grounds.size(), 1u);
    // Left edge -437, so the centre is -437 + 100; the bottom of the view is -201.
    EXPECT_EQ(xOf(grounds[0]), -337);
    EXPECT_EQ(yOf(grounds[0]), -201 + 25);
    EXPECT_EQ(grounds[0]->zPosition(), 100);
    EXPECT_EQ(grounds[0]->sequenceId, 0);
    EXPECT_EQ(grounds[0]->imageOverride, "grass");
    EXPECT_EQ(loaded.scene->levelEndX(), 200);
    EXPECT_EQ(loaded.scene->groundBase(), -151);
    EXPECT_EQ(loaded.scene->backgroundY(), -176);
    ASSERT_TRUE(grounds[0]->childNodeWithName("nodeSizer"));
    EXPECT_EQ(grounds[0]->childNodeWithName("nodeSizer")->position(), QPointF(0, 25));
    ASSERT_TRUE(grounds[0]->physicsBody());
    EXPECT_EQ(grounds[0]->physicsBody()->categoryBitMask(), tessaro::collisionBit(tessaro::collisionTypes::floor));
    EXPECT_EQ(grounds[0]->physicsBody()->collisionBitMask(),
              tessaro::collisionBit(tessaro::collisionTypes::staticObjectBody));
    EXPECT_FALSE(grounds[0]->physicsBody()->isDynamic());
}

TEST_F(GroundTest, FloorRectanglesWidenAtEqualHeightAndOnSlopes)
{
    tessaro::GroundSection raised = tileSection("dirt", "{100,80}");
    tessaro::GroundSection sloped = tileSection("dirt", "{100,120}");
    sloped.groundPhysicsAngleType = "angle";
    tessaro::GroundSection offset = tileSection("grass", "{200,50}");
    offset.devices->front().offset = "{30,10}";
    LoadedLevel loaded(
        withGround({tileSection("grass", "{200,50}"), tileSection("grass", "{200,50}"), raised, sloped, offset}));
    const auto& floors = loaded.scene->groundBaseVariants();
    ASSERT_EQ(floors.size(), 3u);
    EXPECT_EQ(floors[0], QRectF(-437, -151, 400, 0));
    // The raised section starts a stretch; the sloped one widens it at its height.
    EXPECT_EQ(floors[1], QRectF(-37, -121, 200, 0));
    // The offset moves this section and every later one, but not levelEndX.
    EXPECT_EQ(floors[2], QRectF(193, -141, 200, 0));
    EXPECT_EQ(loaded.scene->levelEndX(), 800);
    EXPECT_EQ(xOf(elements(loaded.scene->groundNodes())[4]), 293);

    EXPECT_EQ(loaded.scene->groundHeight(-437), -151);
    EXPECT_EQ(loaded.scene->groundHeight(50), -121);
    // At a joint the later stretch answers; beyond all stretches the floor is 0.
    EXPECT_EQ(loaded.scene->groundHeight(-37), -121);
    EXPECT_EQ(loaded.scene->groundHeight(170), 0);
    EXPECT_EQ(loaded.scene->groundHeight(300), -141);
    EXPECT_EQ(loaded.scene->groundHeight(400), 0);
    EXPECT_EQ(loaded.scene->groundHeight(-500), 0);
}

TEST_F(GroundTest, CompositionOfRepeatedAndStackedSections)
{
    tessaro::GroundSection copies = tileSection("dirt", "{100,30}", 3);
    tessaro::GroundSection columns = tileSection("dirt", "{100,30}", 3);
    columns.stack = true;
    tessaro::GroundSection twoHigh = tileSection("grass,dirt", "{100,30}", 2);
    twoHigh.stack = true;
    tessaro::GroundSection once = tileSection("grass,dirt", "{0,0}");
    LoadedLevel loaded(withGround({copies, columns, twoHigh, once}));
    const auto grounds = elements(loaded.scene->groundNodes());
    ASSERT_EQ(grounds.size(), 4u);
    EXPECT_EQ(grounds[0]->size(), QSizeF(300, 30));
    EXPECT_EQ(grounds[1]->size(), QSizeF(400, 30));
    EXPECT_EQ(grounds[2]->size(), QSizeF(300, 60));
    // No size: the first name of the list at its natural size.
    EXPECT_EQ(grounds[3]->size(), QSizeF(200, 50));
    EXPECT_EQ(loaded.scene->levelEndX(), 1200);

    // Copies side by side collide with enemies too; stacked and single ones do not.
    const auto enemyTouch = tessaro::collisionBit(tessaro::collisionTypes::enemyTouch);
    EXPECT_TRUE(grounds[0]->physicsBody()->collisionBitMask() & enemyTouch);
    EXPECT_FALSE(grounds[1]->physicsBody()->collisionBitMask() & enemyTouch);
    EXPECT_FALSE(grounds[3]->physicsBody()->collisionBitMask() & enemyTouch);

    // The stacked picture: grass above dirt in every column.
    const QImage picture = grounds[2]->texture()->image();
    ASSERT_EQ(picture.size(), QSize(300, 60));
    EXPECT_EQ(QColor(picture.pixel(250, 5)), QColor(40, 160, 40));
    EXPECT_EQ(QColor(picture.pixel(250, 55)), QColor(120, 80, 40));
}

TEST_F(GroundTest, HazardsAdvanceByTheirDistance)
{
    tessaro::GroundSection water = hazardSection("Water", "{300,0}", "{64,20}");
    tessaro::GroundSection empty = hazardSection("Lava", "");
    LoadedLevel loaded(withGround({tileSection("grass", "{200,50}"), water, empty, tileSection("grass", "{200,50}")}));
    const auto grounds = elements(loaded.scene->groundNodes());
    ASSERT_EQ(grounds.size(), 4u);
    // Five tiles of 64 reach 300; the strip stands centred on the bottom edge.
    EXPECT_EQ(grounds[1]->size(), QSizeF(320, 20));
    EXPECT_EQ(xOf(grounds[1]), -237 + 160);
    EXPECT_EQ(yOf(grounds[1]), -201);
    EXPECT_EQ(grounds[1]->zPosition(), 97);
    EXPECT_FALSE(grounds[1]->physicsBody());
    EXPECT_FALSE(grounds[1]->childNodeWithName("nodeSizer"));
    EXPECT_EQ(grounds[2]->size(), QSizeF(0, 0));
    EXPECT_EQ(grounds[2]->sequenceId, 2);
    // The second tile section starts 300 further on.
    EXPECT_EQ(xOf(grounds[3]), -237 + 300 + 100);
    EXPECT_EQ(loaded.scene->levelEndX(), 700);
    // No floor over the hazard, even at the height of the sections beside it.
    EXPECT_EQ(loaded.scene->groundHeight(-100), 0);
    EXPECT_EQ(loaded.scene->groundHeight(0), 0);
    EXPECT_EQ(loaded.scene->groundHeight(200), -151);
    // Laying a section is no change of the project.
    EXPECT_FALSE(loaded.tab.isProjectDirty());
}

TEST_F(GroundTest, HiddenSectionsTakeNoRoomAndStayInTheirPlace)
{
    tessaro::GroundSection hidden = tileSection("dirt", "{100,30}");
    hidden.isVisible = false;
    hidden.anchorPoint = "{0.5,0}";
    hidden.extraProperties = std::vector<tessaro::ExtraProperties>{{"speed", "3"}};
    LoadedLevel loaded(withGround({tileSection("grass", "{200,50}"), hidden, tileSection("dirt", "{100,30}")}));
    const auto grounds = elements(loaded.scene->groundNodes());
    ASSERT_EQ(grounds.size(), 3u);
    EXPECT_TRUE(grounds[1]->isHidden());
    EXPECT_EQ(grounds[1]->sequenceId, 1);
    EXPECT_EQ(grounds[2]->sequenceId, 1);
    EXPECT_EQ(xOf(grounds[2]), -237 + 50);
    EXPECT_EQ(loaded.scene->levelEndX(), 300);
    // A click can never land on it.
    EXPECT_TRUE(loaded.scene->nodesAtPoint(QPointF(-237, -190)).size() >= 1);
    for (const auto& hit : loaded.scene->nodesAtPoint(QPointF(-237, -190)))
        EXPECT_NE(hit.get(), grounds[1].get());

    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.ground->size(), 3u);
    EXPECT_EQ((*saved.ground)[1].isVisible, false);
    EXPECT_EQ((*saved.ground)[1].image, "dirt");
    EXPECT_EQ((*saved.ground)[1].anchorPoint, "{0.5,0}");
    EXPECT_EQ((*saved.ground)[1].extraProperties, hidden.extraProperties);
    EXPECT_EQ((*saved.ground)[2].image, "dirt");
}

TEST_F(GroundTest, RebuildLaysTheNewOrderAndReselects)
{
    LoadedLevel loaded(withGround({tileSection("grass", "{200,50}"), tileSection("dirt", "{100,30}")}));
    auto grounds = elements(loaded.scene->groundNodes());
    grounds[1]->selectFromList();
    EXPECT_EQ(loaded.tab.elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(loaded.tab.selectedObject().name, grounds[1]->name().toStdString());

    // Swap the order through the sequence ids, as the ground order pane does.
    grounds[0]->sequenceId = 5;
    loaded.scene->rebuildGround(loaded.id);
    grounds = elements(loaded.scene->groundNodes());
    ASSERT_EQ(grounds.size(), 2u);
    EXPECT_EQ(grounds[0]->groundSection->image, "dirt");
    EXPECT_EQ(xOf(grounds[0]), -437 + 50);
    EXPECT_EQ(xOf(grounds[1]), -337 + 100);
    EXPECT_EQ((*loaded.level().ground)[0].image, "dirt");
    // The section at the remembered index is selected again.
    EXPECT_EQ(loaded.tab.selectedObject().name, grounds[1]->name().toStdString());
    EXPECT_TRUE(grounds[1]->activelySelected);
    // Old floor rectangles stay; the new ones answer where they reach.
    EXPECT_EQ(loaded.scene->groundHeight(-400), -171);
}

} // namespace
} // namespace stagewright::test
