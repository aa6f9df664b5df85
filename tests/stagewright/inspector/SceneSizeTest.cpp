// The scene settings sheet's changes: steps of the history on the shown
// level's scene, stored into the level's settings at write-back.
#include "EditingFixture.h"

#include <stagewright/inspector/SceneSizeSelection.h>

namespace stagewright::test {
namespace {

using tessaro::deviceName;
using tessaro::sceneOrientationType;
using SceneSizeTest = EditingFixture;

TEST(PredefinedSizesTest, ItemsNameEveryDeviceAtItsSizeInTheOrientation)
{
    const std::vector<PredefinedSizeItem> landscape = predefinedSizeItems(sceneOrientationType::landscape);
    ASSERT_EQ(landscape.size(), tessaro::caseCount<deviceName>);
    EXPECT_EQ(landscape[0].device, deviceName::none);
    EXPECT_EQ(landscape[0].title, "Select...");
    EXPECT_EQ(landscape[1].device, deviceName::defaultDevice);
    EXPECT_EQ(landscape[1].title, "Default Device {w: 874, h: 402 }");
    EXPECT_EQ(landscape[2].title, "iPhone 15 {w: 852, h: 393 }");

    const std::vector<PredefinedSizeItem> portrait = predefinedSizeItems(sceneOrientationType::portrait);
    EXPECT_EQ(portrait[2].title, "iPhone 15 {w: 393, h: 852 }");
    EXPECT_EQ(predefinedSceneSize(deviceName::iPhone15, sceneOrientationType::portrait),
              (tessaro::SizeValue{393, 852}));
}

TEST_F(SceneSizeTest, EachChangeIsAStepStoredAtWriteBack)
{
    show({everyKind()});
    ProjectTab& tab = front();
    QUndoStack& history = tab.undoStack();
    const tessaro::LevelSettings before = saved().settings;

    // "Select..." does nothing.
    choosePredefinedSize(tab, deviceName::none);
    EXPECT_EQ(history.count(), 0);
    EXPECT_FALSE(tab.isProjectDirty());

    // The orientation alone leaves the size as it is ...
    setSceneOrientation(tab, sceneOrientationType::portrait);
    EXPECT_EQ(history.count(), 1);
    EXPECT_TRUE(tab.isProjectDirty());
    EXPECT_EQ(tab.selectedSceneOrientation(), sceneOrientationType::portrait);
    EXPECT_EQ(scene().orientation(), sceneOrientationType::portrait);
    EXPECT_EQ(tab.selectedSceneSize(), (tessaro::SizeValue{874, 402}));
    // ... a predefined size chosen afterwards is swapped.
    choosePredefinedSize(tab, deviceName::iPhone15);
    EXPECT_EQ(tab.selectedSceneSize(), (tessaro::SizeValue{393, 852}));
    EXPECT_EQ(scene().size(), (tessaro::SizeValue{393, 852}));
    choosePredefinedSize(tab, deviceName::none);
    EXPECT_EQ(scene().size(), (tessaro::SizeValue{393, 852}));
    EXPECT_EQ(history.count(), 2);

    // Stepping the size or the anchor point is one step each.
    setSceneSize(tab, {400, 852});
    setSceneSize(tab, {400, 800});
    setSceneAnchorPoint(tab, {1, 0.5});
    setSceneAnchorPoint(tab, {1, 0});
    setSceneScaleMode(tab, sceneScaleMode::fill);
    EXPECT_EQ(history.count(), 5);
    EXPECT_EQ(tab.selectedAnchorPoint(), (tessaro::PointValue{1, 0}));
    EXPECT_EQ(tab.selectedScaleMode(), sceneScaleMode::fill);

    const tessaro::LevelSettings changed = saved().settings;
    EXPECT_EQ(changed.size, "{400.0,800.0}");
    EXPECT_EQ(changed.anchorPoint, "{1.0,0.0}");
    EXPECT_EQ(changed.scaleMode, "fill");
    EXPECT_EQ(changed.sceneOrientation, "portrait");

    while (history.canUndo())
        history.undo();
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_EQ(tab.selectedSceneSize(), (tessaro::SizeValue{874, 402}));
    EXPECT_EQ(tab.selectedSceneOrientation(), sceneOrientationType::landscape);
    EXPECT_EQ(saved().settings, before);
    while (history.canRedo())
        history.redo();
    EXPECT_EQ(saved().settings, changed);
}

} // namespace
} // namespace stagewright::test
