// The ground order pane on a real canvas: rows made from the ground nodes, a
// drag that moves the last section to the front, "Update" as one step of the
// history that a save writes and undo takes back.
#include "../inspector/EditingFixture.h"

#include <stagewright/editors/GroundOrder.h>
#include <stagewright/editors/GroundReorderView.h>
#include <stagewright/scene/SceneEditor.h>

namespace stagewright::test {
namespace {

struct GroundOrderTest : EditingFixture {
    void SetUp() override
    {
        EditingFixture::SetUp();
        tessaro::Level level = everyKind();
        tessaro::GroundSection water = tileSection("grass", "{200,50}");
        water.groundType = "Water";
        water.distance = "{120,0}";
        tessaro::GroundSection dirt = tileSection("grass", "{200,50}");
        dirt.image = "grass,dirt";
        dirt.repeatCount = 2;
        level.ground->push_back(water);
        level.ground->push_back(dirt);
        show({level});
    }
    std::vector<std::string> savedOrder()
    {
        std::vector<std::string> order;
        const tessaro::Level level = saved();
        for (const tessaro::GroundSection& section : *level.ground)
            order.push_back(section.groundType.value_or("Ground") + ":" + section.image.value_or(""));
        return order;
    }
};

TEST_F(GroundOrderTest, RowsShowEachSectionAndUpdateLaysTheNewOrderAsOneStep)
{
    const std::vector<GroundOrderItem> items = groundOrderItemsOf(scene());
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].filename, "grass");
    EXPECT_EQ(items[1].groundType, tessaro::groundBaseType::Water);
    EXPECT_EQ(items[1].distance, (tessaro::SizeValue{120, 0}));
    EXPECT_EQ(items[2].filename, "grass"); // the first piece of a comma list
    EXPECT_EQ(items[2].repeatCount, 2);
    EXPECT_TRUE(groundOrderRowText(items[1]).contains("Ground Type: Water"));
    EXPECT_TRUE(groundOrderRowText(items[2]).contains("Repeat Times: 2"));

    const std::vector<std::string> before = savedOrder();
    settings->setGroundInspectorPresented(true);
    collectGroundOrderItems(*settings);
    GroundReorderView pane(*settings);
    pane.moveRows({2}, 0); // the last row to the top
    ASSERT_EQ(pane.sets().front().name, items[2].name);
    pane.update();
    EXPECT_FALSE(settings->isGroundInspectorPresented());

    const std::vector<std::string> after = savedOrder();
    EXPECT_EQ(after, (std::vector<std::string>{before[2], before[0], before[1]}));
    EXPECT_EQ(front().undoStack().count(), 1);
    EXPECT_TRUE(front().isProjectDirty());
    front().undoStack().undo();
    EXPECT_EQ(savedOrder(), before);
    front().undoStack().redo();
    EXPECT_EQ(savedOrder(), after);
}

TEST_F(GroundOrderTest, MovingRowsFollowsTheStandardMoveOfAList)
{
    std::vector<GroundOrderItem> items(4);
    for (int i = 0; i < 4; ++i)
        items[std::size_t(i)].name = QString::number(i);
    const auto names = [](const std::vector<GroundOrderItem>& list) {
        QString out;
        for (const GroundOrderItem& item : list)
            out += item.name;
        return out;
    };
    EXPECT_EQ(names(movedItems(items, {3}, 0)), "3012");
    EXPECT_EQ(names(movedItems(items, {0}, 4)), "1230");
    EXPECT_EQ(names(movedItems(items, {0, 1}, 3)), "2013");
    EXPECT_EQ(names(movedItems(items, {1}, 2)), "0123"); // before the row that already follows it: no move
}

TEST_F(GroundOrderTest, ALevelWithoutGroundHasNoRowsAndCancelChangesNothing)
{
    tessaro::Level bare = everyKind();
    bare.ground.reset();
    show({bare});
    EXPECT_TRUE(groundOrderItemsOf(scene()).empty());
    settings->setGroundInspectorPresented(true);
    collectGroundOrderItems(*settings);
    GroundReorderView pane(*settings);
    pane.cancel();
    EXPECT_FALSE(settings->isGroundInspectorPresented());
    EXPECT_EQ(front().undoStack().count(), 0);
}

} // namespace
} // namespace stagewright::test
