// The sheets of the toolbar that show the level's own settings: statistics,
// level properties and the scene settings.
#include "ShellTestSupport.h"

#include <stagewright/inspector/SoundEditors.h>
#include <stagewright/inspector/SoundRows.h>
#include <stagewright/inspector/controls/ImagePicker.h>
#include <stagewright/inspector/controls/SectionHeader.h>
#include <stagewright/inspector/controls/StepperParts.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/shell/LevelPropertiesTabView.h>
#include <stagewright/shell/LevelPropertiesView.h>
#include <stagewright/shell/NavigationToolbar.h>
#include <stagewright/shell/SceneSizeSelectionView.h>
#include <stagewright/shell/StatisticsView.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {
namespace {

using detail::NumberGroup;
using tessaro::sceneObjectType;

struct LevelSheetsTest : ShellFixture {
    /// The front tab shows one new level (which has coins, checkpoints,
    /// shields, artifacts and background records, and no level end), with a
    /// clean history.
    tessaro::Level& showNewLevel(std::function<void(tessaro::Level&)> change = {})
    {
        tessaro::Level level = tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults());
        if (change)
            change(level);
        const tessaro::Uuid id = *level.id;
        front().setLevelConfig({level});
        front().refreshLevelList();
        front().switchLevel(id);
        front().undoStack().clear();
        front().setProjectDirty(false);
        return *front().findLevel(id);
    }
    LevelPropertiesView* openProperties(int tab)
    {
        window->toolbar()->propertiesButton()->click();
        auto* sheet = window->findChild<LevelPropertiesView*>();
        if (sheet)
            sheet->tabButtons().at(std::size_t(tab))->click();
        return sheet;
    }
};

NumberGroup* numbers(QWidget* stepper, const char* name)
{
    return stepper ? stepper->findChild<NumberGroup*>(QLatin1String(name)) : nullptr;
}

void type(NumberGroup* group, const QString& text)
{
    group->field()->selectAll();
    QTest::keyClicks(group->field(), text);
    QTest::keyClick(group->field(), Qt::Key_Return);
}

void writeImage(sceneObjectType kind, const QString& name)
{
    QImage picture(30, 40, QImage::Format_ARGB32);
    picture.fill(Qt::darkGreen);
    picture.save(kindImageFolder(workingSpacePath(), kind) + name + QStringLiteral(".png"), "PNG");
}

TEST_F(LevelSheetsTest, StatisticsCountTheShownSceneAndAllScenes)
{
    settings->openProject(project(QStringLiteral("Three.plist"), 3));
    QToolButton* button = window->toolbar()->statisticsButton();
    ASSERT_TRUE(button->isEnabled());
    button->click();
    auto* sheet = window->findChild<StatisticsView*>();
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->scenesText(), QStringLiteral("3"));
    // Level i of the project holds i + 1 crates.
    EXPECT_EQ(sheet->countText(false, QStringLiteral("Obstacles")), QStringLiteral("1"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Obstacles")), QStringLiteral("6"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Coins")), QStringLiteral("0"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Friendlies")), QStringLiteral("0"));

    sheet->findChild<QPushButton*>(QStringLiteral("closeButton"))->click();
    settle();
    EXPECT_FALSE(window->findChild<StatisticsView*>());
}

TEST_F(LevelSheetsTest, PropertiesSheetShowsSevenTabsWithTheShownLevelsValues)
{
    showNewLevel([](tessaro::Level& level) { level.coins->startCoinNumber = 40; });
    LevelPropertiesView* sheet = openProperties(2);
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->size(), QSize(780, 600));
    QStringList titles;
    for (QToolButton* button : sheet->tabButtons()) {
        titles << button->text();
        EXPECT_FALSE(button->icon().isNull());
    }
    EXPECT_EQ(titles,
              QStringList({"Background", "Checkpoints", "Coins", "Shields", "Artifacts", "Level end", "Phase end"}));
    EXPECT_EQ(sheet->selection(), 2);

    LevelPropertiesTabView* coins = sheet->tabView(2);
    EXPECT_EQ(coins->numberStepper()->value(), 40);
    EXPECT_EQ(coins->repeatDistanceStepper()->value(), (tessaro::PointValue{10, 10}));
    EXPECT_EQ(coins->imagePicker()->value(), QStringLiteral("placeholder"));
    // "Hide" folds the rows away; the sound list stays.
    coins->propertiesHeader()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(coins->propertiesRows()->isVisible());
    EXPECT_TRUE(coins->soundEditor()->isVisible());
    // The tabs of sounds alone have no "Properties" section.
    EXPECT_FALSE(sheet->tabView(5)->propertiesHeader());

    sheet->closeButton()->click();
    settle();
    EXPECT_FALSE(window->findChild<LevelPropertiesView*>());
}

TEST_F(LevelSheetsTest, AnImageChosenInTheSheetIsTheLevelsOneStep)
{
    // The checkpoints show a checkpoint of the object catalogue, by name.
    writeImage(sceneObjectType::checkpoint, QStringLiteral("banner"));
    writeImage(sceneObjectType::checkpoint, QStringLiteral("loose"));
    writeImage(sceneObjectType::coin, QStringLiteral("gold"));
    settings->loadFileLists();
    tessaro::GenericObject banner;
    banner.elementName = "Banner";
    banner.image = "banner";
    banner.sceneObjectType = "checkpoint";
    tessaro::objectCatalogue().push_back(banner);
    const tessaro::Level& level = showNewLevel([](tessaro::Level& made) { made.checkpoints->image = "Flag"; });
    LevelPropertiesTabView* checkpoints = openProperties(1)->tabView(1);
    CustomImagePickerView* picker = checkpoints->imagePicker();
    EXPECT_EQ(picker->value(), QStringLiteral("Flag"));
    EXPECT_TRUE(checkpoints->imagePreview()->path().endsWith(QStringLiteral("/Checkpoints/flag.png")));

    // The catalogue's checkpoints are offered, with their pictures; a file
    // that no entry shows is not.
    picker->showPopover();
    QStringList offered;
    QAbstractButton* bannerCell = nullptr;
    for (QAbstractButton* cell : picker->findChildren<QAbstractButton*>(QStringLiteral("imageCell"))) {
        offered << cell->toolTip();
        if (cell->toolTip() == QStringLiteral("Banner"))
            bannerCell = cell;
    }
    EXPECT_EQ(offered, (QStringList{"Banner", "Flag"}));
    ASSERT_TRUE(bannerCell);
    bannerCell->click();
    EXPECT_EQ(level.checkpoints->image, "Banner");
    EXPECT_TRUE(checkpoints->imagePreview()->path().endsWith(QStringLiteral("/banner.png")));
    EXPECT_EQ(front().undoStack().count(), 1);
    EXPECT_TRUE(front().isProjectDirty());
    front().undoStack().undo();
    EXPECT_EQ(level.checkpoints->image, "Flag");

    // The coins' tab offers the image files of its folder.
    CustomImagePickerView* coins = openProperties(2)->tabView(2)->imagePicker();
    QStringList coinNames;
    for (const ImagePickerChoice& choice : coins->choices())
        coinNames << choice.name;
    EXPECT_TRUE(coinNames.contains(QStringLiteral("gold")));
    EXPECT_FALSE(coinNames.contains(QStringLiteral("loose")));
    std::erase_if(tessaro::objectCatalogue(), [](const auto& record) { return record.elementName == "Banner"; });
}

TEST_F(LevelSheetsTest, NumbersSteppedOrTypedInTheSheetAreOneStep)
{
    const tessaro::Level& level = showNewLevel();
    LevelPropertiesView* sheet = openProperties(2);
    LevelPropertiesTabView* coins = sheet->tabView(2);

    NumberGroup* start = numbers(coins->numberStepper(), "value");
    ASSERT_TRUE(start);
    start->plusButton()->click();
    start->plusButton()->click();
    EXPECT_EQ(level.coins->startCoinNumber, 2);
    type(start, QStringLiteral("250"));
    EXPECT_EQ(level.coins->startCoinNumber, 250);
    EXPECT_EQ(front().undoStack().count(), 1);

    // The repeat distance is stored as point text.
    NumberGroup* x = numbers(coins->repeatDistanceStepper(), "x");
    NumberGroup* y = numbers(coins->repeatDistanceStepper(), "y");
    ASSERT_TRUE(x && y);
    x->plusButton()->click();
    type(y, QStringLiteral("7"));
    EXPECT_EQ(level.coins->repeatDistance, "{11.0,7.0}");
    EXPECT_EQ(front().undoStack().count(), 2);

    front().undoStack().undo();
    front().undoStack().undo();
    EXPECT_EQ(level.coins->repeatDistance, "{10, 10}");
    EXPECT_EQ(level.coins->startCoinNumber, 0);
    EXPECT_FALSE(front().isProjectDirty());

    // Shown again, a tab reads the level anew.
    sheet->tabButtons()[4]->click();
    sheet->tabButtons()[2]->click();
    EXPECT_EQ(coins->numberStepper()->value(), 0);
    EXPECT_EQ(coins->repeatDistanceStepper()->value(), (tessaro::PointValue{10, 10}));
}

TEST_F(LevelSheetsTest, ASoundListEditedInTheSheetGoesToItsRecord)
{
    const tessaro::Level& level = showNewLevel([](tessaro::Level& made) { made.artifacts.reset(); });
    LevelPropertiesView* sheet = openProperties(3);
    GameSoundStageWrightView* sounds = sheet->tabView(3)->soundEditor();
    sounds->listView().findChild<QToolButton*>(QStringLiteral("addSound"))->click();
    ASSERT_TRUE(level.shields->soundEffects);
    ASSERT_EQ(level.shields->soundEffects->size(), 1u);
    EXPECT_EQ(level.shields->soundEffects->front().filename, "[NEW]");
    EXPECT_EQ(front().undoStack().count(), 1);
    sounds->listView().row(0)->findChild<QPushButton*>(QStringLiteral("deleteSound"))->click();
    EXPECT_TRUE(level.shields->soundEffects->empty());
    front().undoStack().undo();
    EXPECT_EQ(level.shields->soundEffects->size(), 1u);

    // A level without artifacts shows the tab's start values and keeps no change.
    sheet->tabButtons()[4]->click();
    LevelPropertiesTabView* artifacts = sheet->tabView(4);
    EXPECT_EQ(artifacts->imagePicker()->value(), QStringLiteral("placeholder"));
    EXPECT_EQ(artifacts->numberStepper()->value(), 0);
    numbers(artifacts->numberStepper(), "value")->plusButton()->click();
    EXPECT_EQ(artifacts->numberStepper()->value(), 1);
    EXPECT_FALSE(level.artifacts);
    // The change that kept nothing is no step, and the undone delete can
    // still be redone.
    EXPECT_EQ(front().undoStack().index(), 1);
    EXPECT_EQ(front().undoStack().count(), 2);
}

TEST_F(LevelSheetsTest, SceneSizeSheetSetsTheShownScene)
{
    window->toolbar()->sceneSizeButton()->click();
    auto* sheet = window->findChild<SceneSizeSelectionView*>();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->orientationPicker()->width(), 300);
    QComboBox* sizes = sheet->predefinedSizePicker();
    EXPECT_EQ(sizes->currentText(), QStringLiteral("Select..."));
    EXPECT_EQ(sizes->itemText(1), QStringLiteral("Default Device {w: 874, h: 402 }"));

    // Portrait names the sizes swapped, and leaves the size as it is.
    sheet->orientationPicker()->setCurrentIndex(sheet->orientationPicker()->findText(QStringLiteral("Landscape")));
    QTest::keyClick(sheet->orientationPicker(), Qt::Key_Up);
    EXPECT_EQ(front().selectedSceneOrientation(), tessaro::sceneOrientationType::portrait);
    EXPECT_EQ(sizes->itemText(1), QStringLiteral("Default Device {w: 402, h: 874 }"));
    EXPECT_EQ(front().selectedSceneSize(), (tessaro::SizeValue{874, 402}));

    sizes->setCurrentIndex(1);
    QTest::keyClick(sizes, Qt::Key_Down); // iPhone 15
    EXPECT_EQ(front().selectedSceneSize(), (tessaro::SizeValue{393, 852}));
    EXPECT_EQ(front().currentScene()->size(), (tessaro::SizeValue{393, 852}));
    EXPECT_EQ(sheet->sizeStepper()->value(), (tessaro::SizeValue{393, 852}));
    EXPECT_EQ(window->toolbar()->sceneSizeButton()->text(), QStringLiteral("Scene Size: {393.0,852.0}"));

    type(numbers(sheet->anchorStepper(), "x"), QStringLiteral("1"));
    EXPECT_EQ(front().currentScene()->anchorPoint(), (tessaro::PointValue{1, 0.5}));
    EXPECT_EQ(front().undoStack().count(), 3);
    // An undo shows in the sheet.
    front().undoStack().undo();
    front().undoStack().undo();
    EXPECT_EQ(sheet->sizeStepper()->value(), (tessaro::SizeValue{874, 402}));
    EXPECT_EQ(sheet->anchorStepper()->value(), (tessaro::PointValue{0.5, 0.5}));
}

} // namespace
} // namespace stagewright::test
