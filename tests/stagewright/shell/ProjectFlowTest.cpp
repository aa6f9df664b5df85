// The project commands end to end: from the menu or a control of the window
// to the files on disk.
#include "ShellTestSupport.h"

#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/FooterView.h>
#include <stagewright/shell/LevelPopover.h>
#include <stagewright/shell/NavigationToolbar.h>
#include <stagewright/shell/TabStrip.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {

namespace {
using ProjectFlowTest = ShellFixture;

BlockScene* shownScene(CanvasView* canvas)
{
    return canvas ? dynamic_cast<BlockScene*>(canvas->shownScene().get()) : nullptr;
}
} // namespace

TEST_F(ProjectFlowTest, OpenSwitchLevelSwitchTabSaveClose)
{
    // Open from the menu: the start tab gives way to the project.
    const QString path = project(QStringLiteral("Forest.plist"), 3);
    dialogs.projectsToOpen.push_back(path);
    action("Open Level...")->trigger();
    settle();
    ASSERT_EQ(dialogs.openDirectories.size(), 1);
    EXPECT_EQ(dialogs.openDirectories.front(), levelsFolder(workingSpacePath()));
    EXPECT_EQ(tabNames(), QStringList({"Forest"}));
    const std::shared_ptr<ProjectTab> forest = settings->selectedProjectTab();
    CanvasView* forestCanvas = window->canvasFor(forest->id());
    ASSERT_NE(shownScene(forestCanvas), nullptr);
    EXPECT_EQ(shownScene(forestCanvas)->loaded, forest->levelConfig()[0].id);
    EXPECT_EQ(shownScene(forestCanvas)->blocks(), 1);
    EXPECT_EQ(forestCanvas->frameSize(), QSize(1000, 500));

    // Switch to the third level in the "Scenes" popover.
    LevelPopover* popover = window->toolbar()->levelPopover();
    window->toolbar()->scenesButton()->click();
    ASSERT_TRUE(popover->isVisible());
    ASSERT_EQ(popover->rows().size(), 3u);
    const tessaro::Uuid third = *forest->levelConfig()[2].id;
    popover->rows()[2].name->click();
    EXPECT_FALSE(popover->isVisible());
    EXPECT_EQ(forest->levelSelected(), third);
    EXPECT_TRUE(sceneLog->contains(QStringLiteral("write 0")));
    // Held here, so that what the canvas does with it stays observable.
    const std::shared_ptr<LevelScene> thirdShown = forestCanvas->shownScene();
    BlockScene* thirdScene = shownScene(forestCanvas);
    ASSERT_NE(thirdScene, nullptr);
    EXPECT_EQ(thirdScene->loaded, third);
    EXPECT_EQ(thirdScene->blocks(), 3);
    EXPECT_EQ(forestCanvas->frameSize(), QSize(1200, 500));
    EXPECT_EQ(thirdScene->host(), forestCanvas);

    // A second tab, then back by its button: each tab kept its own canvas
    // and scene.
    commands->newLevel();
    const std::shared_ptr<ProjectTab> untitled = settings->selectedProjectTab();
    EXPECT_EQ(untitled->name(), QStringLiteral("Untitled 1"));
    EXPECT_EQ(window->frontCanvas(), window->canvasFor(untitled->id()));
    TabButton* forestButton = window->tabStrip()->buttonFor(forest->id());
    ASSERT_NE(forestButton, nullptr);
    QTest::mouseClick(forestButton, Qt::LeftButton, {}, QPoint(5, forestButton->height() / 2));
    EXPECT_EQ(settings->selectedProjectTab(), forest);
    EXPECT_TRUE(forestButton->isSelected());
    EXPECT_FALSE(window->tabStrip()->buttonFor(untitled->id())->isSelected());
    EXPECT_EQ(window->frontCanvas(), forestCanvas);
    EXPECT_EQ(shownScene(forestCanvas), thirdScene);
    EXPECT_TRUE(forestCanvas->isVisible());
    EXPECT_FALSE(window->canvasFor(untitled->id())->isVisible());

    // An edit, then "Save" with Ctrl+S: the scene writes back and the file
    // holds the new level; no panel for a tab that has a file.
    commands->addScene();
    EXPECT_TRUE(forest->isProjectDirty());
    sceneLog->clear();
    QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(dialogs.saveRequests.empty());
    EXPECT_TRUE(sceneLog->contains(QStringLiteral("write 2")));
    EXPECT_FALSE(forest->isProjectDirty());
    const std::vector<tessaro::Level> saved = readProject(path);
    ASSERT_EQ(saved.size(), 4u);
    EXPECT_EQ(saved[2].obstacles->size(), 3u);

    // "Close Level" asks before unsaved changes go: "Cancel" keeps the tab,
    // "Discard" closes it.
    forest->setProjectDirty(true);
    action("Close Level")->trigger();
    EXPECT_EQ(dialogs.discardQuestions, 1);
    EXPECT_EQ(tabNames(), QStringList({"Forest", "Untitled 1"}));
    dialogs.discardAnswers.push_back(true);
    action("Close Level")->trigger();
    EXPECT_EQ(dialogs.discardQuestions, 2);
    EXPECT_EQ(tabNames(), QStringList({"Untitled 1"}));
    settle();
    EXPECT_EQ(window->canvasFor(forest->id()), nullptr);
    EXPECT_EQ(window->tabStrip()->buttons().size(), 1u);
    EXPECT_EQ(thirdShown->host(), nullptr);
}

TEST_F(ProjectFlowTest, SaveOfANewTabAsksWhereAndTheTabFollowsTheFile)
{
    // Cancelling the panel writes nothing.
    action("Save")->trigger();
    ASSERT_EQ(dialogs.saveRequests.size(), 1u);
    EXPECT_EQ(dialogs.saveRequests[0].proposedName, QString());
    EXPECT_EQ(dialogs.saveRequests[0].directory, levelsFolder(workingSpacePath()));
    EXPECT_FALSE(front().filePath());

    const QString target = home->folder(QStringLiteral("out")) + QStringLiteral("/Meadow.plist");
    dialogs.saveLocations.push_back(target);
    action("Save")->trigger();
    EXPECT_EQ(front().filePath(), target);
    EXPECT_EQ(front().name(), QStringLiteral("Meadow"));
    EXPECT_EQ(readProject(target).size(), 1u);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Level: ") + target + QStringLiteral("[*]"));
    EXPECT_EQ(window->tabStrip()->buttonFor(front().id())->toolTip(), target);

    // Now it has a file: the next save goes there without a panel.
    commands->addScene();
    action("Save")->trigger();
    EXPECT_EQ(dialogs.saveRequests.size(), 2u);
    EXPECT_EQ(readProject(target).size(), 2u);
}

TEST_F(ProjectFlowTest, SaveOfAnUnreadableFileAsksInsteadOfWritingOverIt)
{
    const QString broken = home->folder(QStringLiteral("projects")) + QStringLiteral("/Broken.plist");
    {
        QFile file(broken);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<plist><array><dict><key>settings</key>");
    }
    settings->openProject(broken);
    EXPECT_TRUE(front().levelConfig().empty());
    commands->addScene();

    action("Save")->trigger();
    ASSERT_EQ(dialogs.saveRequests.size(), 1u);
    EXPECT_EQ(dialogs.saveRequests[0].proposedName, QStringLiteral("Broken"));
    QFile original(broken);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), QByteArray("<plist><array><dict><key>settings</key>"));

    // Named again in the panel, it is written.
    dialogs.saveLocations.push_back(broken);
    action("Save")->trigger();
    EXPECT_EQ(readProject(broken).size(), 1u);
    EXPECT_FALSE(front().isProjectDirty());
}

TEST_F(ProjectFlowTest, DuplicateWritesACopyThatTheTabThenEdits)
{
    const QString original = project(QStringLiteral("Level1.plist"), 2);
    settings->openProject(original);
    dialogs.saveLocations.push_back(QFileInfo(original).absolutePath() + QStringLiteral("/Level1_copy.plist"));
    action("Duplicate...")->trigger();
    ASSERT_EQ(dialogs.saveRequests.size(), 1u);
    EXPECT_EQ(dialogs.saveRequests[0].proposedName, QStringLiteral("Level1_copy"));
    EXPECT_EQ(dialogs.saveRequests[0].directory, QFileInfo(original).absolutePath());
    const QString copy = QFileInfo(original).absolutePath() + QStringLiteral("/Level1_copy.plist");
    EXPECT_EQ(front().filePath(), copy);
    EXPECT_EQ(readProject(copy).size(), 2u);

    // Later saves go to the copy; the original stays as it was.
    commands->addScene();
    action("Save")->trigger();
    EXPECT_EQ(readProject(copy).size(), 3u);
    EXPECT_EQ(readProject(original).size(), 2u);
}

TEST_F(ProjectFlowTest, MoveToMovesTheFile)
{
    const QString original = project(QStringLiteral("Swamp.plist"), 1);
    settings->openProject(original);
    const QString destination = home->folder(QStringLiteral("moved")) + QStringLiteral("/Swamp.plist");

    dialogs.moveDestinations.push_back(std::nullopt);
    action("Move To...")->trigger();
    EXPECT_TRUE(QFileInfo::exists(original));

    dialogs.moveDestinations.push_back(destination);
    action("Move To...")->trigger();
    EXPECT_FALSE(QFileInfo::exists(original));
    EXPECT_EQ(readProject(destination).size(), 1u);
    EXPECT_TRUE(dialogs.failures.isEmpty());

    // The tab follows the file: saving again writes the moved file only.
    EXPECT_EQ(settings->selectedProjectTab()->filePath(), destination);
    action("Save")->trigger();
    EXPECT_FALSE(QFileInfo::exists(original));
    EXPECT_EQ(readProject(destination).size(), 1u);

    // A move that cannot happen leaves the file and tells the user.
    const QString other = project(QStringLiteral("Other.plist"), 1);
    settings->openProject(other);
    dialogs.moveDestinations.push_back(home->path() + QStringLiteral("/no/such/folder/Other.plist"));
    action("Move To...")->trigger();
    EXPECT_TRUE(QFileInfo::exists(other));
    EXPECT_EQ(dialogs.failures.size(), 1);
}

namespace {
struct StartWithFilesTest : ShellFixture {
    QTemporaryDir files;
    QString first, second;
    void SetUp() override
    {
        first = writeProject(files.path() + QStringLiteral("/A.plist"), 1);
        second = writeProject(files.path() + QStringLiteral("/B.plist"), 2);
        startFiles = {first, QStringLiteral("no/such/file.plist"), second};
        ShellFixture::SetUp();
    }
};
} // namespace

TEST_F(StartWithFilesTest, FilesGivenAtStartOpenWhenTheWindowAppears)
{
    // "Untitled 1" gave way to the first file; the others opened beside it,
    // a missing one as an empty tab that keeps its path.
    EXPECT_EQ(tabNames(), QStringList({"A", "file", "B"}));
    EXPECT_EQ(settings->projectTabs()[0]->filePath(), first);
    EXPECT_TRUE(settings->projectTabs()[1]->levelConfig().empty());
    EXPECT_EQ(front().filePath(), second);
    EXPECT_EQ(front().levelConfig().size(), 2u);
}

TEST_F(ProjectFlowTest, WorkspaceCommandsCreateAndUseFolders)
{
    const QString fresh = home->path() + QStringLiteral("/Games/NewSpace");
    dialogs.folders.push_back(fresh);
    action("New Workspace...")->trigger();
    ASSERT_EQ(dialogs.folderPanels.size(), 1u);
    EXPECT_EQ(dialogs.folderPanels[0].title, QStringLiteral("New Workspace"));
    EXPECT_EQ(dialogs.folderPanels[0].message, QStringLiteral("Choose a folder"));
    EXPECT_TRUE(dialogs.folderPanels[0].canCreateDirectories);
    EXPECT_TRUE(QFileInfo(fresh + QStringLiteral("/Levels")).isDir());
    EXPECT_TRUE(QFileInfo::exists(fresh + QStringLiteral("/Assets/ObstacleList.plist")));
    EXPECT_EQ(workingSpacePath(), fresh + QLatin1Char('/'));
    EXPECT_TRUE(window->footer()
                    ->findChild<QToolButton*>(QStringLiteral("workspaceLink"))
                    ->text()
                    .endsWith(fresh + QLatin1Char('/')));

    const QString previous = defaultWorkspacePath();
    dialogs.folders.push_back(previous);
    action("Open Workspace...")->trigger();
    EXPECT_EQ(dialogs.folderPanels[1].title, QStringLiteral("Open Workspace"));
    EXPECT_EQ(workingSpacePath(), previous);

    // A cancelled panel changes nothing.
    action("Open Workspace...")->trigger();
    EXPECT_EQ(workingSpacePath(), previous);
}

} // namespace stagewright::test
