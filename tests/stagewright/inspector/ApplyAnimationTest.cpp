// The animation and cycle-end panes of obstacles and characters.
#include "EditingFixture.h"

#include <stagewright/inspector/PropertyRules.h>
#include <stagewright/state/ProjectTab.h>

#include <functional>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using ApplyAnimationTest = EditingFixture;

TEST_F(ApplyAnimationTest, EachRowStoresItsValue)
{
    using Animation = tessaro::AnimationProperty;
    const struct {
        const char* what;
        sceneObjectType kind;
        P element;
        PropertyValue value;
        std::function<void(const tessaro::boxed<Animation>&)> expect;
    } rows[] = {
        {"frequency", sceneObjectType::obstacles, P::animationFrequency, std::string("once"),
         [](const auto& animation) { EXPECT_EQ(animation->frequency, "once"); }},
        {"move direction of the wrong type", sceneObjectType::character, P::moveDirection, 3.0,
         [](const auto& animation) { EXPECT_EQ(animation->moveDirection, "none"); }},
        {"a flag", sceneObjectType::obstacles, P::horizontalFlip, true,
         [](const auto& animation) { EXPECT_EQ(animation->horizontalFlip, true); }},
        {"first frame, whole", sceneObjectType::obstacles, P::animationFrameStart, 3.9,
         [](const auto& animation) { EXPECT_EQ(animation->animationFrameStart, 3); }},
        {"velocity", sceneObjectType::obstacles, P::velocity, tessaro::PointValue{2, -1},
         [](const auto& animation) { EXPECT_EQ(animation->velocity, "{2.0,-1.0}"); }},
        {"a wait per frame makes its record", sceneObjectType::obstacles, P::waitPerFrame_idle, 0.25,
         [](const auto& animation) { EXPECT_EQ(animation->waitPerAnimationFrame->idle, 0.25); }},
        {"a delay", sceneObjectType::character, P::delay_fade, 1.5,
         [](const auto& animation) { EXPECT_EQ(animation->delays->fade, 1.5); }},
        {"one bound of a range", sceneObjectType::obstacles, P::delay_idleRange_upper, 2.0,
         [](const auto& animation) { EXPECT_EQ(animation->delays->idleRange, "0.0...2.0"); }},
        {"an obstacle has no target distances", sceneObjectType::obstacles, P::target_near, tessaro::PointValue{5, 5},
         [](const auto& animation) { EXPECT_FALSE(animation); }},
        {"the animation record has no callback", sceneObjectType::character, P::animationCallbackFunction,
         std::string("onEnd"), [](const auto& animation) { EXPECT_FALSE(animation); }},
        {"a coin has no animation pane", sceneObjectType::coin, P::animationFrequency, std::string("once"),
         [](const auto&) {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        show({everyKind()});
        const tessaro::Level before = comparable(saved());
        select(row.kind);
        edits().applyAnimationProperty(row.element, row.value);
        const tessaro::Level after = saved();
        if (row.kind == sceneObjectType::obstacles)
            row.expect(after.obstacles->front().properties->animation);
        else if (row.kind == sceneObjectType::character)
            row.expect(after.characters->front().properties->animation);
        else
            EXPECT_EQ(comparable(after), before);
        front().undoStack().undo();
        EXPECT_EQ(comparable(saved()), before);
    }
}

TEST_F(ApplyAnimationTest, TargetDistancesAreTheCharactersOwnAndSurviveReselectionAndReload)
{
    show({everyKind()});
    select(sceneObjectType::character);
    edits().applyAnimationProperty(P::target_near, tessaro::PointValue{5, 6});
    edits().applyAnimationProperty(P::target_moveSpeed, 3.5);
    const tessaro::Level level = saved();
    const tessaro::Character& walker = *level.characters->front().properties;
    ASSERT_TRUE(walker.targetDistances);
    EXPECT_EQ(walker.targetDistances->near, "{5.0,6.0}");
    EXPECT_EQ(walker.targetDistances->moveSpeed, 3.5);
    EXPECT_FALSE(walker.targetDistances->attack);
    EXPECT_FALSE(walker.animation); // no empty animation record for them

    const auto shownNear = [&] { return front().selectedAnimationObject().target_near; };
    select(sceneObjectType::obstacles);
    EXPECT_EQ(shownNear(), (tessaro::PointValue{}));
    select(sceneObjectType::character);
    EXPECT_EQ(shownNear(), (tessaro::PointValue{5, 6}));
    EXPECT_EQ(front().selectedAnimationObject().target_moveSpeed, 3.5);

    show({level});
    select(sceneObjectType::character);
    EXPECT_EQ(shownNear(), (tessaro::PointValue{5, 6}));

    // An obstacle's target rows and every callback row have no field: read-only, and no step.
    EXPECT_TRUE(animationRowStores(P::target_near, sceneObjectType::character));
    EXPECT_FALSE(animationRowStores(P::target_near, sceneObjectType::obstacles));
    EXPECT_FALSE(animationRowStores(P::animationCallbackFunction, sceneObjectType::character));
    EXPECT_TRUE(animationRowStores(P::delay_idle, sceneObjectType::obstacles));
    select(sceneObjectType::obstacles);
    const int steps = front().undoStack().count();
    edits().applyAnimationProperty(P::target_toss, tessaro::PointValue{1, 1});
    EXPECT_EQ(front().undoStack().count(), steps);
}

TEST_F(ApplyAnimationTest, CycleEndEntriesAreAddedEditedAndDeleted)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    const SelectedAnimationModel& model = front().selectedAnimationObject();
    const auto entries = [&] { return saved().obstacles->front().properties->animation->cycleEndProperties.value(); };

    edits().applyCycleEndProperty(P::End_list_add, {});
    ASSERT_EQ(entries().size(), 1u);
    EXPECT_EQ(entries()[0].atlasName, "");
    EXPECT_EQ(entries()[0].devices->front().size, "{0,0}");
    EXPECT_EQ(model.End_List, std::vector{entries()[0].id->text()});
    EXPECT_EQ(model.End_SelectedId, entries()[0].id->text());

    edits().applyCycleEndProperty(P::End_atlasName, std::string("burst"));
    edits().applyCycleEndProperty(P::End_category, std::vector<std::string>{"floor", "enemyTouch"});
    edits().applyCycleEndProperty(P::End_size, tessaro::SizeValue{30, 60});
    edits().applyCycleEndProperty(P::End_removeFromParentAtEnd, true);
    edits().applyCycleEndProperty(P::End_animationDuration, 2.5);
    const tessaro::CycleEndProperties first = entries()[0];
    EXPECT_EQ(first.atlasName, "burst");
    EXPECT_EQ(first.collisionMasks->category, "floor,enemyTouch");
    EXPECT_FALSE(first.collisionMasks->contact);
    EXPECT_EQ(first.devices->front().size, "{30.0,60.0}");
    EXPECT_EQ(first.removeFromParentAtEnd, true);
    EXPECT_EQ(first.animationDuration, 2.5);

    // A second entry; choosing the first shows it again.
    edits().applyCycleEndProperty(P::End_list_add, {});
    EXPECT_EQ(model.End_List.size(), 2u);
    edits().applyCycleEndProperty(P::End_SelectedId, first.id->text());
    EXPECT_EQ(model.End_atlasName, "burst");
    EXPECT_EQ(model.End_size, (tessaro::SizeValue{30, 60}));
    EXPECT_EQ(model.End_aspectRatio, 0.5);

    // Deleting the shown entry shows the first left; the last leaves an empty list.
    edits().applyCycleEndProperty(P::End_list_delete, {});
    EXPECT_EQ(model.End_List.size(), 1u);
    EXPECT_NE(model.End_SelectedId, first.id->text());
    edits().applyCycleEndProperty(P::End_list_delete, {});
    EXPECT_TRUE(model.End_List.empty());
    EXPECT_EQ(model.End_SelectedId, "");
    EXPECT_TRUE(entries().empty());

    while (front().undoStack().canUndo())
        front().undoStack().undo();
    EXPECT_FALSE(saved().obstacles->front().properties->animation);
}

TEST_F(ApplyAnimationTest, CycleEndListsAreReadTrimmedAndNeverWriteANameTwice)
{
    tessaro::Level level = everyKind();
    tessaro::CycleEndProperties stored;
    stored.id = tessaro::Uuid::create();
    stored.objectClassType = "coin , coin";
    tessaro::CollisionDetection masks;
    masks.category = "floor, enemyTouch";
    stored.collisionMasks = masks;
    tessaro::AnimationProperty animation;
    animation.cycleEndProperties = std::vector{stored};
    level.obstacles->front().properties->animation = animation;
    show({level});
    select(sceneObjectType::obstacles);
    const SelectedAnimationModel& model = front().selectedAnimationObject();
    EXPECT_EQ(model.End_category, (std::vector<std::string>{"floor", "enemyTouch"}));
    EXPECT_EQ(model.End_objectClassType, std::vector<std::string>{"coin"});

    const auto entry = [&] { return saved().obstacles->front().properties->animation->cycleEndProperties->front(); };
    // Unticking the second name leaves the first; a list that names one twice writes it once.
    edits().applyCycleEndProperty(P::End_category, std::vector<std::string>{"floor"});
    EXPECT_EQ(entry().collisionMasks->category, "floor");
    edits().applyCycleEndProperty(P::End_contact, std::vector<std::string>{"floor", " enemyTouch", "floor"});
    EXPECT_EQ(entry().collisionMasks->contact, "floor,enemyTouch");
    // The primary list's masks likewise.
    edits().applyPrimaryProperty(P::category, std::vector<std::string>{"floor", "floor"});
    EXPECT_EQ(saved().obstacles->front().properties->collisionMasks->category, "floor");
}

} // namespace
} // namespace stagewright::test
