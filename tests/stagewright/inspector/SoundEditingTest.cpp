// Sound lists: the list operations, the sounds tab's steps written to their
// receivers and taken back, and the two editors clicked as a user clicks them.
#include "EditingFixture.h"

#include <stagewright/inspector/SoundEditCommand.h>
#include <stagewright/inspector/SoundEditors.h>
#include <stagewright/inspector/SoundList.h>
#include <stagewright/inspector/SoundPreview.h>
#include <stagewright/inspector/SoundRows.h>
#include <stagewright/inspector/controls/StepperParts.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/state/Workspace.h>

#include "support/DiagnosticCapture.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {
namespace {

using tessaro::GameSound;
using tessaro::sceneObjectType;

GameSound sound(const std::string& filename, double volume)
{
    GameSound made = newGameSound();
    made.filename = filename;
    made.volume = volume;
    return made;
}

TEST(SoundList, NewSoundsAndFieldEdits)
{
    const GameSound fresh = newGameSound();
    EXPECT_TRUE(fresh.id && !fresh.id->isNull());
    EXPECT_EQ(fresh.type, "none");
    EXPECT_EQ(fresh.filename, "[NEW]");
    EXPECT_EQ(fresh.fileExtension, "wav");
    EXPECT_EQ(fresh.volume, 0.5);
    EXPECT_EQ(fresh.waitForCompletion, true);
    EXPECT_NE(newGameSound().id, fresh.id);

    std::vector<GameSound> sounds{sound("a", 1), sound("b", 1)};
    appendNewSound(sounds);
    ASSERT_EQ(sounds.size(), 3u);
    EXPECT_EQ(sounds.back().filename, "[NEW]");
    EXPECT_TRUE(removeSound(sounds, 0));
    EXPECT_FALSE(removeSound(sounds, 2));
    EXPECT_EQ(sounds.front().filename, "b");

    EXPECT_TRUE(setSoundField(sounds, 1, SoundField::type, std::string("attack")));
    EXPECT_TRUE(setSoundField(sounds, 1, SoundField::volume, 0.2));
    EXPECT_TRUE(setSoundField(sounds, 1, SoundField::waitForCompletion, false));
    EXPECT_EQ(sounds[1].type, "attack");
    EXPECT_EQ(sounds[1].volume, 0.2);
    EXPECT_EQ(sounds[1].waitForCompletion, false);
    // A value of the wrong kind, or a row that is not there, changes nothing.
    const std::vector<GameSound> before = sounds;
    EXPECT_FALSE(setSoundField(sounds, 1, SoundField::volume, std::string("loud")));
    EXPECT_FALSE(setSoundField(sounds, 5, SoundField::filename, std::string("x")));
    EXPECT_EQ(sounds, before);

    GameSound bare;
    EXPECT_EQ(shownVolume(bare), 1.0);
    EXPECT_TRUE(shownWaitForCompletion(bare));

    FileItem jump;
    jump.name = QStringLiteral("jump");
    FileItem jumpMp3 = jump;
    jumpMp3.type = QStringLiteral("mp3");
    EXPECT_EQ(soundFilenameChoices({jump, jumpMp3}, QStringLiteral("[NEW]")), (QStringList{"[NEW]", "jump"}));
    EXPECT_EQ(soundFilenameChoices({jump}, QStringLiteral("jump")), QStringList{"jump"});
    EXPECT_EQ(soundExtensionChoices().size(), 14);
    EXPECT_EQ(soundTypeChoices().front(), QStringLiteral("constant"));
}

TEST(SoundList, ReceiversOfTheLevel)
{
    tessaro::Level level;
    EXPECT_FALSE(levelSoundList(level, SoundPropertyType::coin));
    level.coins.emplace().soundEffects = std::vector<GameSound>(2);
    level.phaseEnd.emplace();
    EXPECT_EQ(levelSoundList(level, SoundPropertyType::coin), level.coins->soundEffects);
    EXPECT_EQ(levelSoundList(level, SoundPropertyType::phaseEnd), std::vector<GameSound>{});
    EXPECT_FALSE(levelSoundList(level, SoundPropertyType::levelEnd));
    EXPECT_FALSE(levelSoundList(level, SoundPropertyType::object));
    EXPECT_EQ(levelSoundsPath(SoundPropertyType::shield)->text(), "shields.soundEffects");

    EXPECT_EQ(soundPropertyTypeOf(sceneObjectType::obstacles), SoundPropertyType::object);
    EXPECT_EQ(soundPropertyTypeOf(sceneObjectType::character), SoundPropertyType::object);
    EXPECT_EQ(soundPropertyTypeOf(sceneObjectType::coin), SoundPropertyType::coin);
    EXPECT_EQ(soundPropertyTypeOf(sceneObjectType::checkpoint), SoundPropertyType::checkpoint);
    EXPECT_EQ(soundPropertyTypeOf(sceneObjectType::background), SoundPropertyType::background);
}

using SoundEditing = EditingFixture;

TEST_F(SoundEditing, ObstacleSoundsAreStepsOfTheHistory)
{
    show({everyKind()});
    const ElementNodePtr crate = select(sceneObjectType::obstacles);
    ASSERT_TRUE(crate);
    QUndoStack& history = front().undoStack();
    SoundEditRouting sounds(front(), SoundPropertyType::object);
    ASSERT_TRUE(sounds.canWrite());

    ASSERT_TRUE(sounds.add());
    ASSERT_TRUE(crate->soundEffects);
    ASSERT_EQ(crate->soundEffects->size(), 1u);
    const GameSound added = crate->soundEffects->front();
    EXPECT_EQ(front().selectedObject().soundEffects, *crate->soundEffects);
    EXPECT_TRUE(front().isProjectDirty());

    ASSERT_TRUE(sounds.change(0, SoundField::filename, std::string("jump")));
    // A held volume stepper is one step.
    for (double volume : {0.6, 0.7, 0.8})
        sounds.change(0, SoundField::volume, volume);
    EXPECT_EQ(history.count(), 3);
    EXPECT_EQ(selected()->soundEffects->front().volume, 0.8);

    history.undo();
    EXPECT_EQ(selected()->soundEffects->front().volume, 0.5);
    history.undo();
    EXPECT_EQ(selected()->soundEffects->front(), added);
    EXPECT_EQ(front().selectedObject().soundEffects, std::vector<GameSound>{added});
    history.undo();
    EXPECT_FALSE(selected()->soundEffects && !selected()->soundEffects->empty());
    EXPECT_TRUE(front().selectedObject().soundEffects.empty());
    EXPECT_FALSE(front().isProjectDirty());

    history.redo();
    history.redo();
    history.redo();
    const tessaro::Level level = saved();
    const auto& stored = level.obstacles->front().properties->soundEffects;
    ASSERT_TRUE(stored && stored->size() == 1);
    EXPECT_EQ(stored->front().filename, "jump");
    EXPECT_EQ(stored->front().volume, 0.8);
    EXPECT_EQ(front().selectedObject().soundEffects, *stored);

    ASSERT_TRUE(sounds.remove(0));
    EXPECT_TRUE(selected()->soundEffects->empty());
    history.undo();
    EXPECT_EQ(selected()->soundEffects->front().filename, "jump");
}

TEST_F(SoundEditing, CoinSoundsGoToTheLevelsCoinsRecord)
{
    tessaro::Level level = everyKind();
    const GameSound ding = sound("ding", 0.3);
    level.coins->soundEffects = std::vector<GameSound>{ding};
    show({level});
    const ElementNodePtr coin = select(sceneObjectType::coin);
    ASSERT_TRUE(coin);
    const auto coinOwn = coin->soundEffects;
    SoundEditRouting sounds(front(), soundPropertyTypeOf(sceneObjectType::coin));
    EXPECT_EQ(sounds.sounds(), std::vector<GameSound>{ding});

    ASSERT_TRUE(sounds.change(0, SoundField::fileExtension, std::string("mp3")));
    ASSERT_TRUE(sounds.add());
    const tessaro::Level* shown = front().findLevel(front().levelSelected());
    ASSERT_EQ(shown->coins->soundEffects->size(), 2u);
    EXPECT_EQ(shown->coins->soundEffects->front().fileExtension, "mp3");
    EXPECT_EQ(front().selectedObject().soundEffects, *shown->coins->soundEffects);
    // The coin keeps no sounds of its own; the level's record is shared by all coins.
    EXPECT_EQ(selected()->soundEffects, coinOwn);
    const tessaro::Level written = saved();
    EXPECT_EQ(written.coins->soundEffects, shown->coins->soundEffects);

    front().undoStack().undo();
    front().undoStack().undo();
    EXPECT_EQ(front().findLevel(front().levelSelected())->coins->soundEffects, std::vector<GameSound>{ding});
    EXPECT_EQ(front().selectedObject().soundEffects, std::vector<GameSound>{ding});
    EXPECT_FALSE(front().isProjectDirty());
    front().undoStack().redo();
    EXPECT_EQ(front().findLevel(front().levelSelected())->coins->soundEffects->front().fileExtension, "mp3");
}

TEST_F(SoundEditing, ReceiversThatTakeNothingKeepTheirSounds)
{
    tessaro::Level level = everyKind();
    level.coins->soundEffects = std::vector<GameSound>{sound("ding", 0.3)};
    show({level});
    select(sceneObjectType::coin);
    const tessaro::Level before = saved();

    // A coin's own list is not stored; nor is a record the level lacks.
    for (SoundPropertyType type : {SoundPropertyType::object, SoundPropertyType::levelEnd}) {
        SoundEditRouting sounds(front(), type);
        EXPECT_FALSE(sounds.canWrite());
        EXPECT_FALSE(sounds.add());
        EXPECT_FALSE(sounds.change(0, SoundField::volume, 1.0));
    }
    EXPECT_EQ(front().undoStack().count(), 0);
    EXPECT_EQ(comparable(saved()), comparable(before));

    // Choosing the value a sound has already is no step.
    SoundEditRouting coins(front(), SoundPropertyType::coin);
    coins.change(0, SoundField::volume, 0.3);
    EXPECT_EQ(front().undoStack().count(), 0);
}

TEST_F(SoundEditing, ObjectEditorShowsTheSelectionAndUndoes)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    GameSoundObjectEditorView editor(*settings);
    editor.show();
    SoundListView& list = editor.listView();
    EXPECT_EQ(list.rowCount(), 0u);

    list.findChild<QToolButton*>(QStringLiteral("addSound"))->click();
    ASSERT_EQ(list.rowCount(), 1u);
    auto* volume = list.row(0)->findChild<detail::NumberGroup*>(QStringLiteral("value"));
    ASSERT_NE(volume, nullptr);
    EXPECT_EQ(volume->field()->text(), stepper::floatText(0.5, 1));
    volume->plusButton()->click();
    volume->plusButton()->click();
    EXPECT_EQ(selected()->soundEffects->front().volume, 0.7);
    EXPECT_EQ(front().undoStack().count(), 2);

    // Undo shows the element anew, and its rows with it.
    front().undoStack().undo();
    ASSERT_EQ(list.rowCount(), 1u);
    volume = list.row(0)->findChild<detail::NumberGroup*>(QStringLiteral("value"));
    EXPECT_EQ(volume->field()->text(), stepper::floatText(0.5, 1));
    front().undoStack().undo();
    EXPECT_EQ(list.rowCount(), 0u);

    // A coin shows its level's list.
    tessaro::Level* level = front().findLevel(front().levelSelected());
    level->coins->soundEffects = std::vector<GameSound>{sound("ding", 0.3), sound("dong", 1)};
    select(sceneObjectType::coin);
    EXPECT_EQ(editor.type(), SoundPropertyType::coin);
    EXPECT_EQ(list.rowCount(), 2u);
    EXPECT_EQ(list.row(1)->findChild<QComboBox*>(QStringLiteral("filename"))->currentText(), QStringLiteral("dong"));
}

TEST_F(SoundEditing, LevelEditorReportsEachChangeOfItsList)
{
    GameSoundStageWrightView editor(*settings, SoundPropertyType::shield);
    editor.show();
    QSignalSpy changed(&editor, &GameSoundStageWrightView::soundsChanged);
    editor.setSounds({sound("ding", 0.3)});
    EXPECT_EQ(changed.count(), 0);
    SoundListView& list = editor.listView();
    ASSERT_EQ(list.rowCount(), 1u);

    auto* type = list.row(0)->findChild<QComboBox*>(QStringLiteral("type"));
    ASSERT_EQ(type->currentText(), QStringLiteral("none"));
    EXPECT_EQ(type->count(), 11);
    type->setCurrentIndex(0);
    QTest::keyClick(type, Qt::Key_Down);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(editor.sounds().front().type, "attack");

    list.findChild<QToolButton*>(QStringLiteral("addSound"))->click();
    ASSERT_EQ(editor.sounds().size(), 2u);
    EXPECT_EQ(list.rowCount(), 2u);
    auto* remove = list.row(0)->findChild<QPushButton*>(QStringLiteral("deleteSound"));
    ASSERT_NE(remove, nullptr);
    EXPECT_EQ(remove->size(), QSize(120, 20));
    remove->click();
    ASSERT_EQ(changed.count(), 3);
    const auto last = changed.last().at(0).value<std::vector<GameSound>>();
    ASSERT_EQ(last.size(), 1u);
    EXPECT_EQ(last.front().filename, "[NEW]");
    EXPECT_EQ(list.rowCount(), 1u);

    // The section folds away.
    list.findChild<QPushButton*>(QStringLiteral("sectionHeaderButton"))->click();
    EXPECT_FALSE(list.showsSounds());
    EXPECT_FALSE(list.row(0)->isVisible());
}

TEST_F(SoundEditing, PreviewReportsFilesItCannotPlay)
{
    testing_support::DiagnosticCapture lines;
    SoundPreview preview;
    GameSound missing = sound("nothing-here", 1);
    EXPECT_FALSE(preview.play(missing));
    EXPECT_TRUE(lines.anyStartsWith("Sound not played: " + SoundPreview::soundPath(missing).toStdString()));

    const QString folder = soundsFolder(workingSpacePath());
    QDir().mkpath(folder);
    QFile broken(folder + QStringLiteral("broken.wav"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("this is no sound");
    broken.close();
    GameSound noise = sound("broken", 1);
    EXPECT_TRUE(preview.play(noise));
    QTRY_VERIFY_WITH_TIMEOUT(lines.contains("broken.wav (the file is not a sound it can play)"), 5000);
}

} // namespace
} // namespace stagewright::test
