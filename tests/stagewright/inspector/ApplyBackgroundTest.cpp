// The background pane: edits of the background record it shows, and the
// pictures laid again from it.
#include "EditingFixture.h"

#include <functional>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using ApplyBackgroundTest = EditingFixture;

TEST_F(ApplyBackgroundTest, EachRowStoresItsValue)
{
    using Image = tessaro::BackgroundImage;
    const struct {
        const char* what;
        P element;
        PropertyValue value;
        std::function<void(const Image&, const ElementNode&)> expect;
        bool ranged = false;
    } rows[] = {
        {"image", P::image, std::string("hills"),
         [](const Image& sky, const ElementNode& node) {
             EXPECT_EQ(sky.image, "hills");
             EXPECT_EQ(node.backgroundImagename, "hills");
         }},
        {"depth, rounded", P::zPosition, 3.456,
         [](const Image& sky, const ElementNode& node) {
             EXPECT_EQ(sky.zPosition, 3.46);
             EXPECT_EQ(node.zPosition(), 3.46);
         }},
        {"hidden", P::isVisible, false,
         [](const Image& sky, const ElementNode& node) {
             EXPECT_EQ(sky.isVisible, false);
             EXPECT_TRUE(node.isHidden());
         }},
        {"speed of the wrong type", P::speed, std::string("fast"),
         [](const Image& sky, const ElementNode&) { EXPECT_EQ(sky.speed, 1); }},
        {"pinned", P::pinned, true, [](const Image& sky, const ElementNode&) { EXPECT_EQ(sky.pinned, true); }},
        {"scroll orientation", P::backgroundScrollOrientation, std::string("vertical"),
         [](const Image& sky, const ElementNode&) { EXPECT_EQ(sky.scrollOrientation, "vertical"); }},
        {"a range added",
         P::addRange,
         {},
         [](const Image& sky, const ElementNode&) {
             ASSERT_EQ(sky.pinnedRanges->size(), 2u);
             EXPECT_EQ(sky.pinnedRanges->back().range, "0...0");
             EXPECT_TRUE(sky.pinnedRanges->back().id);
         },
         true},
        {"a lower bound", P::lowerBound, RangeBoundValue{0, 100, 999},
         [](const Image& sky, const ElementNode&) { EXPECT_EQ(sky.pinnedRanges->front().range, "100.0...500.0"); },
         true},
        {"a range deleted", P::deleteRange, std::int64_t(0),
         [](const Image& sky, const ElementNode&) { EXPECT_TRUE(sky.pinnedRanges->empty()); }, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        tessaro::Level level = everyKind();
        if (row.ranged)
            level.background->backgrounds->front().pinnedRanges =
                std::vector<tessaro::PinnedRange>{{tessaro::Uuid::create(), std::string("0...500")}};
        show({level});
        const tessaro::Level before = comparable(saved());
        select(sceneObjectType::background);
        edits().applyBackgroundProperty(row.element, row.value);
        const tessaro::Level after = saved();
        row.expect(after.background->backgrounds->front(), *SceneEditor::elementsOf(scene().backgroundNodes()).front());
        EXPECT_EQ(front().undoStack().count(), 1);
        front().undoStack().undo();
        EXPECT_EQ(comparable(saved()), before);
        // The background shown is selected again.
        EXPECT_EQ(front().selectedObject().type, sceneObjectType::background);
    }
}

TEST_F(ApplyBackgroundTest, ChoosingAnotherBackgroundShowsItAndIsNoStep)
{
    show({everyKind()});
    select(sceneObjectType::background);
    const tessaro::Uuid hills = *scene().backgroundList()->backgrounds->at(1).id;
    edits().applyBackgroundProperty(P::background, hills);
    EXPECT_EQ(front().selectedObject().image, "hills");
    EXPECT_EQ(front().selectedObject().zPosition, 2);
    EXPECT_EQ(front().undoStack().count(), 0);
    for (const ElementNodePtr& node : SceneEditor::elementsOf(scene().backgroundNodes()))
        EXPECT_EQ(node->alpha(), node->backgroundAssociatedId == hills ? 1.0 : 0.2);
}

} // namespace
} // namespace stagewright::test
