// The toolbar: the "Scenes" popover, the zoom picker, "Hide Background?",
// the library button, and the footer's links.
#include "ShellTestSupport.h"

#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/FooterView.h>
#include <stagewright/shell/LevelPopover.h>
#include <stagewright/shell/NavigationToolbar.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/kit/Node.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {

namespace {
using ToolbarTest = ShellFixture;

std::vector<tessaro::Uuid> levelIds(const ProjectTab& tab)
{
    std::vector<tessaro::Uuid> ids;
    for (const tessaro::Level& level : tab.levelConfig())
        ids.push_back(*level.id);
    return ids;
}
} // namespace

TEST_F(ToolbarTest, ScenesPopoverAddsMovesAndDeletesLevels)
{
    settings->openProject(project(QStringLiteral("Three.plist"), 3));
    NavigationToolbar* toolbar = window->toolbar();
    LevelPopover* popover = toolbar->levelPopover();
    toolbar->scenesButton()->click();
    ASSERT_EQ(popover->rows().size(), 3u);
    const std::vector<tessaro::Uuid> start = levelIds(front());

    // Rows name the levels by id; the shown one carries the mark.
    EXPECT_EQ(popover->rows()[0].name->text(), QStringLiteral("Scene: ") + QString::fromStdString(start[0].text()));
    EXPECT_FALSE(popover->rows()[0].selectedMark->pixmap().isNull());
    EXPECT_TRUE(popover->rows()[1].selectedMark->pixmap().isNull());

    popover->addButton()->click();
    settle();
    EXPECT_EQ(front().levelConfig().size(), 4u);
    ASSERT_EQ(popover->rows().size(), 4u);
    EXPECT_TRUE(popover->isVisible());

    // Down on the first, up on the last: the order in the tab and the rows.
    popover->rows()[0].down->click();
    settle();
    EXPECT_EQ(levelIds(front())[0], start[1]);
    EXPECT_EQ(levelIds(front())[1], start[0]);
    EXPECT_EQ(popover->rows()[1].tag, start[0]);
    // The moved level is still the one shown.
    EXPECT_EQ(front().levelSelected(), start[0]);
    EXPECT_FALSE(popover->rows()[1].selectedMark->pixmap().isNull());
    popover->rows()[0].up->click(); // first stays first
    settle();
    EXPECT_EQ(levelIds(front())[0], start[1]);

    // Delete asks; "Cancel" keeps the level, "Close" deletes it and shows the first.
    dialogs.deleteAnswers = {false, true};
    popover->rows()[2].trash->click();
    settle();
    EXPECT_EQ(front().levelConfig().size(), 4u);
    toolbar->scenesButton()->click();
    popover->rows()[2].trash->click();
    settle();
    EXPECT_EQ(dialogs.deleteQuestions, 2);
    EXPECT_EQ(front().levelConfig().size(), 3u);
    const std::vector<tessaro::Uuid> remaining = levelIds(front());
    EXPECT_EQ(std::count(remaining.begin(), remaining.end(), start[2]), 0);
    EXPECT_EQ(front().levelSelected(), remaining[0]);
    EXPECT_TRUE(front().isProjectDirty());
}

TEST_F(ToolbarTest, ScalingPickerSizesTheCanvasFrame)
{
    settings->openProject(project(QStringLiteral("Wide.plist"), 2));
    settle();
    CanvasView* canvas = window->frontCanvas();
    QComboBox* picker = window->toolbar()->scalingPicker();
    QStringList titles;
    for (int i = 0; i < picker->count(); ++i)
        titles << picker->itemText(i);
    EXPECT_EQ(titles, QStringList({"50%", "75%", "100%", "125%", "150%", "175%", "200%"}));
    EXPECT_EQ(picker->currentText(), QStringLiteral("100%"));
    EXPECT_EQ(canvas->sceneView()->size(), QSize(1000, 500));

    picker->activated(picker->findText(QStringLiteral("200%")));
    EXPECT_EQ(front().scaledValue(), QStringLiteral("2.00"));
    EXPECT_EQ(settings->scrollerViewSize(), (tessaro::SizeValue{2000, 1000}));
    EXPECT_EQ(canvas->sceneView()->size(), QSize(2000, 1000));
    // Larger than the window: the scroll area scrolls.
    EXPECT_GT(canvas->horizontalScrollBar()->maximum(), 0);

    // Another level of the tab keeps the zoom and takes its own size.
    commands->showScene(*front().levelConfig()[1].id);
    settle();
    EXPECT_EQ(canvas->sceneView()->size(), QSize(2200, 1000));

    picker->activated(picker->findText(QStringLiteral("50%")));
    EXPECT_EQ(canvas->sceneView()->size(), QSize(550, 250));
    // The whole scene is drawn in the smaller frame.
    const QImage image = canvas->sceneView()->grab().toImage();
    EXPECT_EQ(image.size(), QSize(550, 250));

    // The view commands step through the picker's values and stop at its ends.
    action("Zoom Out")->trigger();
    EXPECT_EQ(front().scaledValue(), QStringLiteral("0.50"));
    action("Zoom In")->trigger();
    EXPECT_EQ(front().scaledValue(), QStringLiteral("0.75"));
    EXPECT_EQ(picker->currentText(), QStringLiteral("75%"));
    action("Actual Size")->trigger();
    EXPECT_EQ(canvas->frameSize(), QSize(1100, 500));
}

TEST_F(ToolbarTest, WithoutASceneTheFrameIs500By400)
{
    settings->setSceneFactory({});
    commands->newLevel();
    EXPECT_EQ(front().currentScene(), nullptr);
    EXPECT_EQ(window->frontCanvas()->frameSize(), QSize(500, 400));
    commands->setZoom(QStringLiteral("1.50"));
    EXPECT_EQ(window->frontCanvas()->frameSize(), QSize(750, 600));
}

TEST_F(ToolbarTest, HideBackgroundIsTheTabsFlagAndLeavesTheLevelClean)
{
    const QString path = project(QStringLiteral("Sky.plist"), 1);
    settings->openProject(path);
    QCheckBox* toggle = window->toolbar()->hideBackgroundSwitch();
    EXPECT_EQ(toggle->toolTip(), NavigationToolbar::hideBackgroundHelp());

    toggle->click();
    EXPECT_TRUE(front().backgroundElementsHidden());
    EXPECT_FALSE(front().isProjectDirty());

    // The flag stays with the tab when another level is shown.
    front().addLevel();
    commands->showScene(*front().levelConfig()[1].id);
    settle();
    EXPECT_TRUE(front().backgroundElementsHidden());
    EXPECT_TRUE(toggle->isChecked());

    // A new tab starts with its backgrounds shown.
    commands->newLevel();
    EXPECT_FALSE(toggle->isChecked());
}

TEST_F(ToolbarTest, LibraryOpensOnceAndCloseLevelDismissesIt)
{
    QToolButton* library = window->toolbar()->libraryButton();
    library->click();
    EXPECT_TRUE(windows->isWindowOpen(WindowId::objectLibrary));
    QWidget* libraryWindow = windows->window(WindowId::objectLibrary);
    EXPECT_EQ(libraryWindow->windowTitle(), QStringLiteral("Object Library"));
    EXPECT_GE(libraryWindow->minimumWidth(), 700);
    library->click();
    EXPECT_EQ(windows->window(WindowId::objectLibrary), libraryWindow);

    action("Close Level")->trigger();
    EXPECT_FALSE(windows->isWindowOpen(WindowId::objectLibrary));
    // With a tab, no item of the toolbar stays disabled.
    for (QToolButton* item : {window->toolbar()->sceneSizeButton(), window->toolbar()->propertiesButton(),
                              window->toolbar()->statisticsButton(), window->toolbar()->nodeListButton()})
        EXPECT_TRUE(item->isEnabled()) << item->text().toStdString();
    EXPECT_EQ(window->toolbar()->sceneSizeButton()->text(), QStringLiteral("Scene Size: {874.0,402.0}"));
}

TEST_F(ToolbarTest, FooterLinksOpenTheLevelAndWorkspaceFolders)
{
    FooterView* footer = window->footer();
    EXPECT_EQ(footer->levelLink()->text(), QStringLiteral("Level: Untitled 1"));
    EXPECT_EQ(footer->workspaceLink()->text(), QStringLiteral("Workspace: ") + workingSpacePath());

    // A tab without a file: its level link opens the workspace.
    footer->levelLink()->click();
    ASSERT_EQ(openedUrls.size(), 1u);
    EXPECT_EQ(openedUrls[0], QUrl::fromLocalFile(workingSpacePath()));

    const QString path = project(QStringLiteral("Deep.plist"), 1);
    settings->openProject(path);
    EXPECT_EQ(footer->levelLink()->text(), QStringLiteral("Level: Deep"));
    footer->levelLink()->click();
    EXPECT_EQ(openedUrls.back(), QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
    footer->workspaceLink()->click();
    EXPECT_EQ(openedUrls.back(), QUrl::fromLocalFile(workingSpacePath()));

    // A folder that cannot be opened is reported, not shown.
    commands->setUrlOpener([](const QUrl&) { return false; });
    EXPECT_FALSE(commands->openLevelFolder());
}

} // namespace stagewright::test
