// The level's own properties: one field of one sub-record per change, each
// change a step of the history that undo takes back exactly, and the canvas
// showing what it draws of them.
#include "EditingFixture.h"

#include <stagewright/inspector/LevelProperties.h>
#include <stagewright/state/LevelStatistics.h>

#include <tessaro/model/ConfigFiles.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;
using LevelPropertiesTest = EditingFixture;

tessaro::GameSound sound(const std::string& filename, double volume = 1)
{
    tessaro::GameSound value;
    value.type = "contact";
    value.filename = filename;
    value.fileExtension = "wav";
    value.volume = volume;
    return value;
}

std::optional<LevelPropertyValue> fieldOf(const tessaro::Level& level, sceneObjectType kind, int selector)
{
    return levelProperty(level, kind, selector).value_or(std::nullopt);
}

TEST(LevelPropertyFieldsTest, EachKindOfValueGoesIntoItsFieldAndNowhereElse)
{
    tessaro::Level level = EditingFixture::everyKind();
    const tessaro::Level before = level;

    // Image text, integer, point (stored as point text), sound list.
    EXPECT_TRUE(writeLevelProperty(level, sceneObjectType::coin, levelField::image, std::string("gold")));
    EXPECT_EQ(level.coins->image, "gold");
    EXPECT_TRUE(writeLevelProperty(level, sceneObjectType::checkpoint, levelField::animateFromImage, std::int64_t{-3}));
    EXPECT_EQ(level.checkpoints->animateFromImage, -3);
    EXPECT_TRUE(
        writeLevelProperty(level, sceneObjectType::coin, levelField::repeatDistance, tessaro::PointValue{30, 12.5}));
    EXPECT_EQ(level.coins->repeatDistance, "{30.0,12.5}");
    EXPECT_EQ(fieldOf(level, sceneObjectType::coin, levelField::repeatDistance),
              LevelPropertyValue(tessaro::PointValue{30, 12.5}));
    const std::vector<tessaro::GameSound> sounds{sound("wind"), sound("birds", 0.5)};
    EXPECT_TRUE(writeLevelProperty(level, sceneObjectType::background, levelField::soundEffects, sounds));
    EXPECT_EQ(level.background->soundEffects, sounds);
    EXPECT_EQ(level.background->backgrounds, before.background->backgrounds);
    EXPECT_EQ(level.coins->coins, before.coins->coins);

    // A value of another type, or a field the kind does not have, changes nothing.
    const tessaro::Level written = level;
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::coin, levelField::startCoinNumber, std::string("7")));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::coin, levelField::image, std::int64_t{7}));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::coin, levelField::repeatDistance, std::string("{1,1}")));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::checkpoint, levelField::soundEffects, std::int64_t{1}));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::shield, levelField::startCoinNumber, std::int64_t{1}));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::background, levelField::image, std::string("sky")));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::obstacles, levelField::soundEffects, sounds));
    EXPECT_EQ(level, written);

    // An absent sub-record stays absent.
    EXPECT_FALSE(level.levelEnd);
    EXPECT_FALSE(levelProperty(level, sceneObjectType::levelEnd, levelField::soundEffects));
    EXPECT_FALSE(writeLevelProperty(level, sceneObjectType::levelEnd, levelField::soundEffects, sounds));
    EXPECT_FALSE(level.levelEnd);

    // A present sub-record with an absent field reads as such, and an empty
    // value takes a field out again.
    const auto start = levelProperty(level, sceneObjectType::artifact, levelField::startArtifactNumber);
    ASSERT_TRUE(start);
    EXPECT_FALSE(*start);
    EXPECT_TRUE(writeLevelProperty(level, sceneObjectType::coin, levelField::image, std::nullopt));
    EXPECT_FALSE(level.coins->image);
}

TEST(LevelPropertyFieldsTest, TabsShowTheirDefaultsWhereTheLevelHasNothing)
{
    const tessaro::Level bare = emptyLevel();
    for (const LevelPropertiesTab& tab : levelPropertiesTabs()) {
        const LevelTabValues values = levelTabValuesOf(bare, tab.kind);
        EXPECT_EQ(values.imageName, "placeholder") << tab.title;
        EXPECT_EQ(values.animateFromImage, 0);
        EXPECT_EQ(values.startCoinNumber, 0);
        EXPECT_EQ(values.startArtifactNumber, 0);
        EXPECT_EQ(values.repeatDistance, (tessaro::PointValue{0, 0}));
        EXPECT_TRUE(values.sounds.empty());
    }

    tessaro::Level level = EditingFixture::everyKind();
    level.coins->repeatDistance = "{25,5}";
    level.coins->startCoinNumber = 12;
    level.coins->soundEffects = std::vector<tessaro::GameSound>{sound("ping")};
    level.checkpoints->image = "";
    const LevelTabValues coins = levelTabValuesOf(level, sceneObjectType::coin);
    EXPECT_EQ(coins.imageName, "placeholder"); // the coins record has no image
    EXPECT_EQ(coins.repeatDistance, (tessaro::PointValue{25, 5}));
    EXPECT_EQ(coins.startCoinNumber, 12);
    EXPECT_EQ(coins.sounds.size(), 1u);
    // A checkpoints record always has its image, empty or not.
    EXPECT_EQ(levelTabValuesOf(level, sceneObjectType::checkpoint).imageName, "");
    EXPECT_EQ(levelTabValuesOf(level, sceneObjectType::shield).imageName, "shield");

    // The tabs and their rows, in the sheet's order.
    std::vector<std::string> titles;
    for (const LevelPropertiesTab& tab : levelPropertiesTabs())
        titles.push_back(tab.title);
    EXPECT_EQ(titles,
              (std::vector<std::string>{"Background", "Checkpoints", "Coins", "Shields", "Artifacts", "Level end",
                                        "Phase end"}));
    const std::vector<LevelPropertyRow> coinRows = levelPropertyRows(sceneObjectType::coin);
    ASSERT_EQ(coinRows.size(), 3u);
    EXPECT_EQ(coinRows[2].selector, levelField::startCoinNumber);
    EXPECT_EQ(coinRows[2].upper, 1000);
    EXPECT_EQ(levelPropertyRows(sceneObjectType::checkpoint)[1].lower, -200);
    EXPECT_TRUE(levelPropertyRows(sceneObjectType::levelEnd).empty());
}

TEST_F(LevelPropertiesTest, EachChangeIsAStepThatUndoTakesBackExactly)
{
    tessaro::Level level = everyKind();
    level.coins->repeatDistance = "{10, 10}"; // undo gives back the text as written
    show({level});
    ProjectTab& tab = front();
    QUndoStack& history = tab.undoStack();
    const tessaro::Coins coinsBefore = *saved().coins;
    const tessaro::boxed<tessaro::Background> backgroundBefore = saved().background;

    // Typing a number is one step.
    for (std::int64_t value : {1, 12, 120})
        updateLevelProperty(tab, sceneObjectType::coin, levelField::startCoinNumber, value);
    EXPECT_EQ(history.count(), 1);
    EXPECT_TRUE(tab.isProjectDirty());
    EXPECT_EQ(tab.findLevel(tab.levelSelected())->coins->startCoinNumber, 120);

    // Each chosen image is a step of its own.
    updateLevelProperty(tab, sceneObjectType::coin, levelField::image, std::string("gold"));
    updateLevelProperty(tab, sceneObjectType::coin, levelField::image, std::string("silver"));
    EXPECT_EQ(history.count(), 3);

    // Holding a point stepper is one step.
    for (double x : {1.0, 2.0, 3.0})
        updateLevelProperty(tab, sceneObjectType::coin, levelField::repeatDistance, tessaro::PointValue{x, 0});
    EXPECT_EQ(history.count(), 4);
    EXPECT_EQ(tab.findLevel(tab.levelSelected())->coins->repeatDistance, "{3.0,0.0}");

    // A sound added is a step; editing it in place is one more, however many
    // changes it takes; another sound added is a step again.
    using Sounds = std::vector<tessaro::GameSound>;
    updateLevelProperty(tab, sceneObjectType::background, levelField::soundEffects, Sounds{sound("wind")});
    updateLevelProperty(tab, sceneObjectType::background, levelField::soundEffects, Sounds{sound("wind", 0.4)});
    updateLevelProperty(tab, sceneObjectType::background, levelField::soundEffects, Sounds{sound("wind", 0.3)});
    updateLevelProperty(tab, sceneObjectType::background, levelField::soundEffects,
                        Sounds{sound("wind", 0.3), sound("rain")});
    EXPECT_EQ(history.count(), 7);

    // The values survive a write-back: the scene keeps them and writes its lists.
    const tessaro::Level changed = saved();
    EXPECT_EQ(changed.coins->image, "silver");
    EXPECT_EQ(changed.coins->startCoinNumber, 120);
    EXPECT_EQ(changed.coins->coins, coinsBefore.coins);
    EXPECT_EQ(changed.background->soundEffects, (Sounds{sound("wind", 0.3), sound("rain")}));
    EXPECT_EQ(changed.background->backgrounds, backgroundBefore->backgrounds);

    while (history.canUndo())
        history.undo();
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_EQ(*saved().coins, coinsBefore);
    EXPECT_EQ(saved().background, backgroundBefore);
    // Fields that were absent are absent again.
    EXPECT_FALSE(saved().coins->image);
    EXPECT_FALSE(saved().background->soundEffects);

    while (history.canRedo())
        history.redo();
    EXPECT_EQ(comparable(saved()), comparable(changed));
}

TEST_F(LevelPropertiesTest, AChangeToTheValueAlreadyThereNeverJoinsTheStepBeforeIt)
{
    show({everyKind()});
    ProjectTab& tab = front();
    QUndoStack& history = tab.undoStack();
    // The second change writes nothing; redo must still bring the first back.
    updateLevelProperty(tab, sceneObjectType::coin, levelField::startCoinNumber, std::int64_t{7});
    updateLevelProperty(tab, sceneObjectType::coin, levelField::startCoinNumber, std::int64_t{7});
    EXPECT_EQ(history.count(), 1);
    history.undo();
    EXPECT_FALSE(tab.findLevel(tab.levelSelected())->coins->startCoinNumber);
    history.redo();
    EXPECT_EQ(tab.findLevel(tab.levelSelected())->coins->startCoinNumber, 7);

    // The same for a typed run that comes back to where the step stands.
    updateLevelProperty(tab, sceneObjectType::coin, levelField::repeatDistance, tessaro::PointValue{4, 0});
    updateLevelProperty(tab, sceneObjectType::coin, levelField::repeatDistance, tessaro::PointValue{4, 0});
    history.undo();
    history.redo();
    EXPECT_EQ(tab.findLevel(tab.levelSelected())->coins->repeatDistance, "{4.0,0.0}");
}

TEST_F(LevelPropertiesTest, CheckpointsArePickedByCatalogueNameAndStayDrawnAndSaved)
{
    // The tab offers the catalogue's checkpoints by name, each with its picture.
    const std::vector<LevelImageChoice> choices = levelImageChoices(sceneObjectType::checkpoint, settings->imageList());
    ASSERT_EQ(choices.size(), 1u);
    EXPECT_EQ(choices[0].name, QStringLiteral("Flag"));
    EXPECT_TRUE(choices[0].picturePath.endsWith(QStringLiteral("/Checkpoints/flag.png")));
    const std::vector<LevelImageChoice> shields = levelImageChoices(sceneObjectType::shield, settings->imageList());
    ASSERT_EQ(shields.size(), 1u);
    EXPECT_EQ(shields[0].name, QStringLiteral("shield"));

    // Picked, the name keeps the checkpoints on the canvas, through a save and a reload.
    const auto drawnCheckpoints = [&] {
        std::size_t drawn = 0;
        for (const ElementNodePtr& node : scene().storedOrder(sceneObjectType::checkpoint))
            drawn += !node->isHidden() && !node->keptOnly;
        return drawn;
    };
    tessaro::Level level = everyKind();
    level.checkpoints->image = "flag"; // the file's name, which names no checkpoint
    show({level});
    EXPECT_EQ(drawnCheckpoints(), 0u);
    updateLevelProperty(front(), sceneObjectType::checkpoint, levelField::image, choices[0].name.toStdString());
    EXPECT_EQ(drawnCheckpoints(), 1u);
    const tessaro::Level stored = saved();
    EXPECT_EQ(stored.checkpoints->image, "Flag");
    EXPECT_EQ(stored.checkpoints->locations->size(), 1u);
    show({stored});
    EXPECT_EQ(drawnCheckpoints(), 1u);
}

TEST_F(LevelPropertiesTest, StatisticsCountTheShownLevelAsItStandsNow)
{
    show({everyKind(), everyKind()});
    ProjectTab& tab = front();
    EXPECT_EQ(countElements(tab, elementCount::obstacles, false), 1);
    // Two placements not yet saved, and a coin taken out.
    scene().placement().addElement(sceneObjectType::obstacles, "Crate");
    scene().placement().addElement(sceneObjectType::obstacles, "Crate");
    select(sceneObjectType::coin);
    edits().deleteSelection();
    writeBackShownLevel(tab);
    EXPECT_EQ(countElements(tab, elementCount::obstacles, false), 3);
    EXPECT_EQ(countElements(tab, elementCount::obstacles, true), 4);
    EXPECT_EQ(countElements(tab, elementCount::coins, false), 0);
    EXPECT_EQ(countElements(tab, elementCount::coins, true), 1);
}

TEST_F(LevelPropertiesTest, WritesThatCannotBeMadeLeaveNoStep)
{
    tessaro::Level bare = emptyLevel();
    show({bare, everyKind()});
    ProjectTab& tab = front();

    // The shown level has no coins record: the change is lost without a message.
    updateLevelProperty(tab, sceneObjectType::coin, levelField::startCoinNumber, std::int64_t{5});
    updateLevelProperty(tab, sceneObjectType::levelEnd, levelField::soundEffects,
                        std::vector<tessaro::GameSound>{sound("fanfare")});
    EXPECT_FALSE(tab.findLevel(*bare.id)->coins);
    EXPECT_FALSE(tab.findLevel(*bare.id)->levelEnd);
    // A value of another type, and a value the field already holds.
    tab.switchLevel(*tab.levelConfig()[1].id);
    updateLevelProperty(tab, sceneObjectType::checkpoint, levelField::animateFromImage, std::string("2"));
    updateLevelProperty(tab, sceneObjectType::shield, levelField::image, std::string("shield"));
    EXPECT_EQ(tab.undoStack().count(), 0);
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_FALSE(tab.levelConfig()[1].checkpoints->animateFromImage);
}

TEST_F(LevelPropertiesTest, AStepOfALevelNotShownIsUndoneInItsRecord)
{
    tessaro::Level second = everyKind();
    second.id = tessaro::Uuid::create();
    show({everyKind(), second});
    ProjectTab& tab = front();
    const tessaro::Uuid first = tab.levelSelected();

    edits().moveElement(*select(sceneObjectType::coin), {50, 0}, false);
    updateLevelProperty(tab, sceneObjectType::artifact, levelField::startArtifactNumber, std::int64_t{4});
    tab.switchLevel(*second.id);
    const tessaro::Level left = *tab.findLevel(first);
    EXPECT_EQ(left.artifacts->startArtifactNumber, 4);

    // Undone where it was made, in the record; the level shown stays.
    tab.undoStack().undo();
    EXPECT_EQ(tab.levelSelected(), *second.id);
    EXPECT_FALSE(tab.findLevel(first)->artifacts->startArtifactNumber);
    // What the scene wrote back of the level before is untouched.
    EXPECT_EQ(tab.findLevel(first)->artifacts->artifacts, left.artifacts->artifacts);
    EXPECT_EQ(tab.findLevel(first)->coins->coins, left.coins->coins);
    tab.undoStack().redo();
    EXPECT_EQ(*tab.findLevel(first), left);
}

TEST_F(LevelPropertiesTest, TheCanvasShowsWhatItDrawsOfTheLevelsValues)
{
    workspace->image(sceneObjectType::checkpoint, "pole", 16, 80);
    workspace->image(sceneObjectType::shield, "badge", 40, 40);
    tessaro::objectCatalogue().push_back(objectTemplate("Pole", "pole", sceneObjectType::checkpoint, "{16,80}"));
    tessaro::Level level = everyKind();
    level.coins->coins->front().repeatCount = 3;
    show({level});
    ProjectTab& tab = front();

    // The coins' row follows the repeat distance.
    const ElementNodePtr coin = scene().storedOrder(sceneObjectType::coin).front();
    const double firstStep = coin->childNodeWithName(QStringLiteral("stack_1"))->position().x();
    updateLevelProperty(tab, sceneObjectType::coin, levelField::repeatDistance, tessaro::PointValue{30, 0});
    EXPECT_DOUBLE_EQ(coin->childNodeWithName(QStringLiteral("stack_1"))->position().x(), firstStep + 30);
    tab.undoStack().undo();
    EXPECT_DOUBLE_EQ(coin->childNodeWithName(QStringLiteral("stack_1"))->position().x(), firstStep);

    // A checkpoint takes the new picture and stays the selected element.
    const ElementNodePtr flag = select(sceneObjectType::checkpoint);
    const ElementHandle handle = flag->handle;
    EXPECT_DOUBLE_EQ(flag->size().height(), 50);
    updateLevelProperty(tab, sceneObjectType::checkpoint, levelField::image, std::string("Pole"));
    const ElementNodePtr pole = scene().elementWithHandle(handle);
    ASSERT_TRUE(pole);
    EXPECT_DOUBLE_EQ(pole->size().height(), 80);
    EXPECT_EQ(selected(), pole);
    EXPECT_EQ(tab.elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(saved().checkpoints->locations->size(), 1u);
    tab.undoStack().undo();
    EXPECT_DOUBLE_EQ(scene().elementWithHandle(handle)->size().height(), 50);

    // So does a shield.
    updateLevelProperty(tab, sceneObjectType::shield, levelField::image, std::string("badge"));
    EXPECT_DOUBLE_EQ(scene().storedOrder(sceneObjectType::shield).front()->size().width(), 40);
    EXPECT_EQ(saved().shields->image, "badge");
    EXPECT_EQ(saved().shields->shields->size(), 1u);
}

} // namespace
} // namespace stagewright::test
