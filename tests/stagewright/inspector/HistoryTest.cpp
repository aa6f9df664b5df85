// The edit history of a project: steps and their names, merging, the dirty
// state, steps made on other levels, the clipboard across levels and tabs,
// the level list, and a saved file that undo brings back to what it was.
#include "EditingFixture.h"

#include <stagewright/inspector/EditCommands.h>

#include <tessaro/model/LevelFiles.h>

#include <QFile>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using Kind = tessaro::kit::Scene::MouseKind;
using HistoryTest = EditingFixture;

tessaro::kit::MouseEvent pointer(QPointF scenePoint)
{
    tessaro::kit::MouseEvent event;
    event.sceneLocation = scenePoint;
    event.viewLocation = scenePoint; // one pixel a point
    return event;
}

tessaro::kit::KeyEvent key(int code, Qt::KeyboardModifiers modifiers = {})
{
    return {code, QString(), modifiers, false};
}

std::string cratePosition(const tessaro::Level& level)
{
    return level.obstacles->front().properties->devices->front().position.value_or("");
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(HistoryTest, GesturesAndTypingAreStepsThatJoin)
{
    show({everyKind()});
    QUndoStack& history = front().undoStack();
    const ElementNodePtr crate = scene().storedOrder(sceneObjectType::obstacles).front();

    // A drag on the canvas is one step "Move", stored as the position field stores it.
    scene().dispatchMouseEvent(Kind::Down, pointer({100, 0}));
    scene().dispatchMouseEvent(Kind::Dragged, pointer({120, 0}));
    scene().dispatchMouseEvent(Kind::Dragged, pointer({150, 30}));
    scene().dispatchMouseEvent(Kind::Up, pointer({150, 30}));
    EXPECT_EQ(history.count(), 1);
    EXPECT_EQ(history.undoText(), "Move");
    EXPECT_EQ(cratePosition(saved()), "{150.0,30.0}");
    EXPECT_EQ(crate->position(), QPointF(150, 30));
    EXPECT_EQ(front().selectedDeviceObject().position, (tessaro::PointValue{150, 30}));

    // Held arrow keys: every press moves, the presses are one step.
    for (int i = 0; i < 5; ++i)
        scene().dispatchKeyEvent(true, key(Qt::Key_Right, Qt::ShiftModifier));
    scene().dispatchKeyEvent(true, key(Qt::Key_Down));
    EXPECT_EQ(history.count(), 2);
    EXPECT_EQ(cratePosition(saved()), "{200.0,29.0}");

    // Typing a number into one field is one step; another field is another.
    edits().applyPrimaryProperty(P::zPosition, 1.0);
    edits().applyPrimaryProperty(P::zPosition, 12.0);
    edits().applyPrimaryProperty(P::zPosition, 123.0);
    edits().applyPrimaryProperty(P::alpha, 0.5);
    EXPECT_EQ(history.count(), 4);
    EXPECT_EQ(history.undoText(), "Change alpha");

    // Nudging back to where the nudges started leaves no step.
    scene().dispatchKeyEvent(true, key(Qt::Key_Left));
    scene().dispatchKeyEvent(true, key(Qt::Key_Right));
    EXPECT_EQ(history.count(), 4);

    // Undo goes back step by step, and the inspector shows each state.
    history.undo();
    EXPECT_EQ(crate->alpha(), 1);
    history.undo();
    EXPECT_EQ(crate->zPosition(), 10);
    EXPECT_EQ(front().selectedObject().zPosition, 10);
    history.undo();
    EXPECT_EQ(cratePosition(saved()), "{150.0,30.0}");
    EXPECT_EQ(history.redoText(), "Move");
    history.undo();
    EXPECT_EQ(cratePosition(saved()), "{100,0}");
    EXPECT_EQ(crate->position(), QPointF(100, 0));
    EXPECT_EQ(front().selectedObject().name, crate->name().toStdString());
    history.redo();
    EXPECT_EQ(cratePosition(saved()), "{150.0,30.0}");
}

TEST_F(HistoryTest, LookingIsNoStepAndStepsKeepWhatIsShown)
{
    show({everyKind()});
    QUndoStack& history = front().undoStack();
    select(sceneObjectType::obstacles);
    edits().applyCycleEndProperty(P::End_list_add, true);
    edits().applyCycleEndProperty(P::End_list_add, true);
    const std::string second = front().selectedAnimationObject().End_SelectedId;
    edits().editRow(ModelType::Devices, P::deviceName, std::string("iPad"));
    edits().applyPrimaryProperty(P::zPosition, 7.0);
    ASSERT_EQ(history.count(), 3);

    // Undo and redo change values, not the device or the cycle-end entry shown.
    history.undo();
    EXPECT_EQ(front().selectedDeviceObject().nameSelected, tessaro::deviceName::iPad);
    EXPECT_EQ(front().selectedAnimationObject().End_SelectedId, second);
    history.redo();
    history.undo();
    EXPECT_EQ(selected()->zPosition(), everyKind().obstacles->front().zPosition);
    EXPECT_EQ(front().selectedDeviceObject().nameSelected, tessaro::deviceName::iPad);

    // Looking at another device or cycle-end entry, or at a background, and
    // commands that find nothing to do, leave the redo step and the clean point.
    history.setClean();
    edits().editRow(ModelType::Devices, P::deviceName, std::string("defaultDevice"));
    edits().applyCycleEndProperty(P::End_SelectedId, front().selectedAnimationObject().End_SelectedId);
    select(sceneObjectType::background);
    const std::size_t backgrounds = scene().backgroundList()->backgrounds->size();
    edits().applyBackgroundProperty(P::background, front().selectedObject().backgroundSelectedId);
    EXPECT_FALSE(edits().hasSelection());
    edits().deleteSelection();
    edits().cut();
    edits().paste();
    EXPECT_EQ(history.count(), 3);
    EXPECT_TRUE(history.canRedo());
    EXPECT_TRUE(history.isClean());
    EXPECT_EQ(scene().backgroundList()->backgrounds->size(), backgrounds);
}

TEST_F(HistoryTest, IsDynamicShowsWhatIsStored)
{
    show({everyKind()});
    QUndoStack& history = front().undoStack();
    select(sceneObjectType::obstacles);
    ASSERT_FALSE(front().selectedObject().isDynamic);
    edits().editRow(ModelType::Primary, P::isDynamic, true);
    select(sceneObjectType::character);
    select(sceneObjectType::obstacles);
    EXPECT_TRUE(front().selectedObject().isDynamic);
    history.undo();
    EXPECT_FALSE(front().selectedObject().isDynamic);
    history.redo();
    EXPECT_TRUE(front().selectedObject().isDynamic);
    EXPECT_EQ(saved().obstacles->front().properties->isDynamic, true);
}

TEST_F(HistoryTest, TheSizeHandleIsAStep)
{
    show({everyKind()});
    const ElementNodePtr crate = select(sceneObjectType::obstacles);
    // The handle stands on the middle of the top edge of the 40 by 40 crate.
    scene().dispatchMouseEvent(Kind::Down, pointer({105, 25}));
    scene().dispatchMouseEvent(Kind::Dragged, pointer({105, 40}));
    scene().dispatchMouseEvent(Kind::Up, pointer({105, 40}));
    EXPECT_EQ(front().undoStack().undoText(), "Resize");
    EXPECT_EQ(crate->size(), QSizeF(60, 60));
    EXPECT_EQ(saved().obstacles->front().properties->devices->front().size, "{60.0,60.0}");
    front().undoStack().undo();
    EXPECT_EQ(crate->size(), QSizeF(40, 40));
    EXPECT_FALSE(saved().obstacles->front().properties->devices->front().size);
}

TEST_F(HistoryTest, DirtyFollowsTheSavedPoint)
{
    show({everyKind()});
    QUndoStack& history = front().undoStack();
    int announced = 0;
    QObject::connect(&front(), &ProjectTab::isProjectDirtyChanged, [&] { ++announced; });
    select(sceneObjectType::obstacles);
    EXPECT_FALSE(front().isProjectDirty());
    edits().applyPrimaryProperty(P::darken, true);
    EXPECT_TRUE(front().isProjectDirty());
    history.undo();
    EXPECT_FALSE(front().isProjectDirty());
    history.redo();
    front().setProjectDirty(false); // what a save does
    EXPECT_FALSE(front().isProjectDirty());
    history.undo();
    EXPECT_TRUE(front().isProjectDirty());
    history.redo();
    EXPECT_FALSE(front().isProjectDirty());
    EXPECT_EQ(announced, 6);
    // A change outside the history keeps the project dirty at the saved point.
    front().setProjectDirty(true);
    history.undo();
    history.redo();
    EXPECT_TRUE(front().isProjectDirty());
}

TEST_F(HistoryTest, StepsOfAnotherLevelAreUndoneThere)
{
    tessaro::Level second = everyKind();
    second.id = tessaro::Uuid::create();
    show({everyKind(), second});
    const tessaro::Uuid first = front().levelSelected();
    select(sceneObjectType::character);
    edits().applyPrimaryProperty(P::observedname, std::string("on the first"));

    front().switchLevel(*second.id);
    select(sceneObjectType::character);
    edits().applyPrimaryProperty(P::observedname, std::string("on the second"));
    front().switchLevel(first);
    EXPECT_EQ(saved().characters->front().name, "on the first");

    // The second level's step: the canvas shows that level and undoes it there.
    front().undoStack().undo();
    EXPECT_EQ(front().levelSelected(), *second.id);
    EXPECT_EQ(saved().characters->front().name, "walker");
    EXPECT_EQ(front().selectedObject().property_objectName, "walker");
    // And back on the first level, which kept its edit meanwhile.
    front().undoStack().undo();
    EXPECT_EQ(front().levelSelected(), first);
    EXPECT_EQ(saved().characters->front().name, "walker");
    front().undoStack().redo();
    front().undoStack().redo();
    EXPECT_EQ(saved().characters->front().name, "on the second");
    front().switchLevel(first);
    EXPECT_EQ(saved().characters->front().name, "on the first");

    // A background's step is undone on its level too, and its pictures follow.
    select(sceneObjectType::background);
    edits().applyBackgroundProperty(P::zPosition, 9.0);
    front().switchLevel(*second.id);
    front().undoStack().undo();
    EXPECT_EQ(front().levelSelected(), first);
    EXPECT_EQ(saved().background->backgrounds->front().zPosition,
              everyKind().background->backgrounds->front().zPosition);
    EXPECT_EQ(SceneEditor::elementsOf(scene().backgroundNodes()).front()->zPosition(),
              everyKind().background->backgrounds->front().zPosition.value_or(1));
}

TEST_F(HistoryTest, PasteAfterCutBringsTheWholeElementAnywhere)
{
    tessaro::Level level = everyKind();
    tessaro::Obstacle& properties = *level.obstacles->front().properties;
    properties.damageDirection = "left";
    properties.soundEffects =
        std::vector<tessaro::GameSound>{{tessaro::Uuid::create(), "touch", "crash", "wav", {}, {}}};
    properties.devices->push_back(defaultEntry({}, "{50,50}"));
    properties.devices->back().deviceName = "iPad";
    tessaro::Level empty = emptyLevel();
    show({level, empty});
    ProjectTab& first = front();

    select(sceneObjectType::obstacles);
    edits().cut();
    EXPECT_EQ(first.undoStack().undoText(), "Cut");
    EXPECT_TRUE(saved().obstacles->empty());
    EXPECT_EQ(first.elementPhase(), SelectionPhase::NotSelected);
    ASSERT_FALSE(settings->clipboard().isEmpty());

    // Into another level of the project.
    first.switchLevel(*empty.id);
    edits().paste();
    EXPECT_EQ(first.undoStack().undoText(), "Paste");
    const tessaro::Level pasted = saved();
    ASSERT_EQ(pasted.obstacles->size(), 1u);
    const tessaro::Obstacle& copy = *pasted.obstacles->front().properties;
    EXPECT_EQ(copy.damageDirection, "left");
    EXPECT_EQ(copy.soundEffects, properties.soundEffects);
    ASSERT_EQ(copy.devices->size(), 2u);
    EXPECT_EQ(copy.devices->at(1).size, "{50,50}");
    EXPECT_EQ(pasted.obstacles->front().elementName, "Crate");
    EXPECT_EQ(pasted.obstacles->front().name, "crate");

    // Into another project.
    settings->newProject();
    ASSERT_NE(&front(), &first);
    edits().paste();
    EXPECT_EQ(saved().obstacles->front().properties->damageDirection, "left");
    EXPECT_EQ(front().undoStack().count(), 1);

    // Each tab takes back its own steps: the paste, then the cut.
    settings->selectProject(first.id());
    first.undoStack().undo();
    EXPECT_TRUE(saved().obstacles->empty());
    first.undoStack().undo();
    EXPECT_EQ(first.levelSelected(), *level.id);
    EXPECT_EQ(comparable(saved()).obstacles, level.obstacles);
    EXPECT_EQ(first.elementPhase(), SelectionPhase::Selected);
    first.undoStack().redo();
    EXPECT_TRUE(saved().obstacles->empty());
}

TEST_F(HistoryTest, DeleteAndPasteStepsComeBackInPlace)
{
    show({everyKind()});
    const std::vector<tessaro::ObstacleLevelItem> before = *saved().obstacles;
    select(sceneObjectType::obstacles);
    edits().copy();
    edits().paste();
    edits().paste();
    EXPECT_EQ(saved().obstacles->size(), 3u);
    EXPECT_EQ(front().undoStack().count(), 2);
    select(sceneObjectType::obstacles);
    edits().deleteSelection();
    EXPECT_EQ(front().undoStack().undoText(), "Delete");
    EXPECT_EQ(saved().obstacles->size(), 2u);
    front().undoStack().undo();
    EXPECT_EQ(saved().obstacles->front(), before.front());
    front().undoStack().undo();
    front().undoStack().undo();
    EXPECT_EQ(*saved().obstacles, before);
    front().undoStack().redo();
    front().undoStack().redo();
    EXPECT_EQ(saved().obstacles->size(), 3u);
}

TEST_F(HistoryTest, LevelListChangesAreSteps)
{
    show({everyKind()});
    ProjectTab& tab = front();
    const tessaro::Uuid first = tab.levelSelected();
    tab.addLevel();
    tab.addLevel();
    const tessaro::Uuid second = *tab.levelConfig()[1].id;
    const tessaro::Uuid third = *tab.levelConfig()[2].id;
    tab.moveLevel(third, -1);
    EXPECT_EQ(tab.undoStack().undoText(), "Move Level");
    tab.switchLevel(second);
    tab.deleteLevel(second);
    EXPECT_EQ(tab.undoStack().undoText(), "Delete Level");
    EXPECT_EQ(tab.levelConfig().size(), 2u);

    tab.undoStack().undo();
    ASSERT_EQ(tab.levelConfig().size(), 3u);
    EXPECT_EQ(*tab.levelConfig()[2].id, second);
    EXPECT_EQ(tab.levelSelected(), second);
    tab.undoStack().undo();
    EXPECT_EQ(*tab.levelConfig()[1].id, second);
    tab.undoStack().undo();
    tab.undoStack().undo();
    ASSERT_EQ(tab.levelConfig().size(), 1u);
    EXPECT_EQ(tab.levelSelected(), first);
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_EQ(tab.levelListDropdownValues().size(), 1u);
}

TEST_F(HistoryTest, UndoToTheSavedPointSavesTheFileAsItWas)
{
    show({everyKind()});
    const QString path = home->folder(QStringLiteral("levels")) + QStringLiteral("/Forest.plist");
    ASSERT_TRUE(settings->saveProject(path));
    const QByteArray original = fileBytes(path);

    select(sceneObjectType::obstacles);
    scene().dispatchKeyEvent(true, key(Qt::Key_Up, Qt::ShiftModifier));
    edits().applyPrimaryProperty(P::observedname, std::string("moved crate"));
    select(sceneObjectType::ground);
    edits().applyPrimaryProperty(P::repeatCount, std::int64_t(2));
    ASSERT_TRUE(settings->saveProject());
    EXPECT_FALSE(front().isProjectDirty());

    // The saved edits are there when the file is read again.
    const tessaro::Level reopened = tessaro::readLevels(path.toStdString()).levels.front();
    EXPECT_EQ(reopened.obstacles->front().name, "moved crate");
    EXPECT_EQ(cratePosition(reopened), "{100.0,10.0}");
    EXPECT_EQ(reopened.ground->front().repeatCount, 2);

    // Undone to the start and saved: the first file again.
    while (front().undoStack().canUndo())
        front().undoStack().undo();
    EXPECT_TRUE(front().isProjectDirty());
    ASSERT_TRUE(settings->saveProject());
    EXPECT_EQ(fileBytes(path), original);
}

} // namespace
} // namespace stagewright::test
