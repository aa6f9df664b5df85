// The real start on a fresh home: the one application state, the sample in
// the new default workspace, the main window that replaces "Initialization",
// the appearance, and the end of the run with the main window. The cases share
// one start and run in any order; one of them leaves pictures of the main
// window, light and dark, beside the test program.
#include "ShellTestSupport.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/ClosePrompt.h>
#include <stagewright/shell/StageWrightApp.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

namespace stagewright::test {

namespace {

QString sampleInDefaultWorkspace()
{
    return defaultWorkspacePath() + QStringLiteral("Levels/Sample.plist");
}

StageWrightApp* started = nullptr;
bool workspaceExistedAtStart = false;

/// The application of this test program, started once by whichever test
/// runs first.
StageWrightApp& app()
{
    if (!started) {
        workspaceExistedAtStart = QFileInfo::exists(defaultWorkspacePath());
        started = new StageWrightApp({sampleInDefaultWorkspace()}, makeSceneEditorFactory);
        started->show();
    }
    return *started;
}

/// Ends the application before the Qt application object goes.
struct AppEnvironment : ::testing::Environment {
    void TearDown() override
    {
        delete started;
        started = nullptr;
    }
};
[[maybe_unused]] ::testing::Environment* const environment = ::testing::AddGlobalTestEnvironment(new AppEnvironment);

QString picturePath(const QString& name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

} // namespace

TEST(StartTest, FirstStartShowsTheSampleInTheNewDefaultWorkspace)
{
    StageWrightApp& started = app();
    ASSERT_FALSE(workspaceExistedAtStart);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&started.mainWindow()));

    EXPECT_EQ(started.installedSamples(), QStringList({sampleInDefaultWorkspace()}));
    EXPECT_EQ(workingSpacePath(), defaultWorkspacePath());
    EXPECT_EQ(QCoreApplication::organizationName(), QStringLiteral("StageWright"));
    EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("StageWright"));

    // "Initialization" went, "Untitled 1" gave way to the sample.
    SceneSettings& settings = started.settings();
    ASSERT_EQ(settings.projectTabs().size(), 1u);
    const ProjectTab& sample = *settings.selectedProjectTab();
    EXPECT_EQ(sample.name(), QStringLiteral("Sample"));
    EXPECT_EQ(sample.levelConfig().size(), 3u);
    EXPECT_EQ(started.mainWindow().windowTitle(),
              QStringLiteral("Level: ") + sampleInDefaultWorkspace() + QStringLiteral("[*]"));
    EXPECT_FALSE(settings.imageList().empty());
    EXPECT_EQ(settings.recentDocumentItemsList().size(), 1u);
    EXPECT_GE(started.mainWindow().width(), 1300);
    EXPECT_GE(started.mainWindow().height(), 700);
    EXPECT_NE(started.mainWindow().frontCanvas()->shownScene(), nullptr);
    // A project just opened has nothing to save, even once its canvas is shown.
    QCoreApplication::processEvents();
    EXPECT_FALSE(sample.isProjectDirty());
}

TEST(StartTest, TheSampleGoesThroughTheCanvasAndBackToItsFile)
{
    StageWrightApp& started = app();
    const std::shared_ptr<ProjectTab> tab = started.settings().selectedProjectTab();
    const std::vector<tessaro::Level> before = tab->levelConfig();
    CanvasView* canvas = started.mainWindow().frontCanvas();
    const SceneEditorPtr first = sceneEditorOf(canvas->shownScene());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->groundNodes()->children().size(), before[0].ground->size());
    EXPECT_GE(first->obstacleNodes()->children().size(), before[0].obstacles->size());
    EXPECT_EQ(canvas->frameSize(), QSize(874, 402));

    // The second level in the same canvas, from the level list.
    started.commands().showScene(*before[1].id);
    QCoreApplication::processEvents();
    const SceneEditorPtr second = sceneEditorOf(canvas->shownScene());
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->groundNodes()->children().size(), before[1].ground->size());
    EXPECT_EQ(canvas->sceneView()->scene().get(), static_cast<tessaro::kit::Scene*>(second.get()));

    // "Save" writes what the canvas holds back to the sample's file.
    started.mainWindow().action(QStringLiteral("Save"))->trigger();
    const std::vector<tessaro::Level> saved = readProject(sampleInDefaultWorkspace());
    ASSERT_EQ(saved.size(), before.size());
    for (std::size_t i = 0; i < saved.size(); ++i) {
        EXPECT_EQ(saved[i].ground->size(), before[i].ground->size()) << i;
        EXPECT_EQ(saved[i].obstacles->size(), before[i].obstacles->size()) << i;
        EXPECT_EQ(saved[i].characters->size(), before[i].characters->size()) << i;
        EXPECT_EQ(saved[i].coins->coins->size(), before[i].coins->coins->size()) << i;
        EXPECT_EQ(saved[i].background->backgrounds->size(), before[i].background->backgrounds->size()) << i;
    }
    started.commands().showScene(*tab->levelConfig()[0].id);
    QCoreApplication::processEvents();
}

TEST(StartTest, TheCanvasButtonsScrollTheLevel)
{
    StageWrightApp& started = app();
    CanvasView* canvas = started.mainWindow().frontCanvas();
    const SceneEditorPtr scene = sceneEditorOf(canvas->shownScene());
    ASSERT_NE(scene, nullptr);
    const tessaro::kit::NodePtr right = scene->childNodeWithName(QStringLiteral("navRight"));
    ASSERT_NE(right, nullptr);
    // A short click where the button is drawn, through the widgets.
    const QPoint at = canvas->sceneView()->convertPointFromScene(right->position()).toPoint();
    QTest::mousePress(canvas->sceneView(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(canvas->sceneView(), Qt::LeftButton, {}, at);
    EXPECT_EQ(started.settings().selectedProjectTab()->scenePosition().x, 50);
    EXPECT_EQ(scene->obstacleNodes()->position().x(), -50);
    // And back.
    const tessaro::kit::NodePtr left = scene->childNodeWithName(QStringLiteral("navLeft"));
    ASSERT_NE(left, nullptr);
    const QPoint back = canvas->sceneView()->convertPointFromScene(left->position()).toPoint();
    QTest::mousePress(canvas->sceneView(), Qt::LeftButton, {}, back);
    QTest::mouseRelease(canvas->sceneView(), Qt::LeftButton, {}, back);
    EXPECT_EQ(started.settings().selectedProjectTab()->scenePosition().x, 0);
}

TEST(StartTest, WindowsFollowTheAppearance)
{
    StageWrightApp& started = app();
    const auto lightness = [] { return QApplication::palette().color(QPalette::Window).lightness(); };
    EXPECT_GT(lightness(), 128);
    started.settings().setIsDark(true);
    EXPECT_LT(lightness(), 128);
    started.commands().openWindow(WindowId::about);
    EXPECT_LT(started.windows().window(WindowId::about)->palette().color(QPalette::Window).lightness(), 128);
    started.settings().setIsDark(false);
    EXPECT_GT(lightness(), 128);
    started.windows().dismissWindow(WindowId::about);
}

TEST(StartTest, PicturesOfTheMainWindow)
{
    StageWrightApp& started = app();
    MainWindow& window = started.mainWindow();
    // Let the canvas run a few frames first.
    QTest::qWait(200);
    const QImage light = window.grab().toImage();
    EXPECT_EQ(light.size(), window.size() * window.devicePixelRatio());
    EXPECT_TRUE(light.save(picturePath(QStringLiteral("stagewright-main-window.png"))));

    started.settings().setIsDark(true);
    started.settings().setInspectorPresented(true);
    QTest::qWait(100);
    EXPECT_TRUE(window.grab().toImage().save(picturePath(QStringLiteral("stagewright-main-window-dark.png"))));
    started.settings().setIsDark(false);
    started.settings().setInspectorPresented(false);
}

TEST(StartTest, ClosingTheMainWindowEndsTheRunWithTheOtherWindows)
{
    StageWrightApp& started = app();
    started.settings().selectedProjectTab()->setProjectDirty(true);
    started.commands().openWindow(WindowId::help);
    ASSERT_TRUE(started.windows().isWindowOpen(WindowId::help));
    QSignalSpy closing(&started.mainWindow(), &MainWindow::closing);
    // Unsaved work is asked about first: "Cancel" keeps the window, "Discard"
    // lets it close.
    QStringList asked;
    whenShown<ClosePrompt>([&](ClosePrompt& prompt) {
        asked << prompt.text();
        prompt.button(CloseAnswer::Cancel)->click();
    });
    EXPECT_FALSE(started.mainWindow().close());
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(closing.count(), 0);
    EXPECT_TRUE(started.windows().isWindowOpen(WindowId::help));
    whenShown<ClosePrompt>([&](ClosePrompt& prompt) { prompt.button(CloseAnswer::Discard)->click(); });
    EXPECT_TRUE(started.mainWindow().close());
    EXPECT_EQ(closing.count(), 1);
    EXPECT_FALSE(started.windows().isWindowOpen(WindowId::help));

    // The other cases may run after this one.
    started.settings().selectedProjectTab()->setProjectDirty(false);
    started.mainWindow().show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&started.mainWindow()));
}

} // namespace stagewright::test
