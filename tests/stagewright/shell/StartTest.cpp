// The real start on a fresh home: the one application state, the sample in
// the new default workspace, the main window that replaces "Initialization",
// the appearance, and the end of the run with the main window. The run ends
// with pictures of the main window, light and dark, beside the test program.
#include "ShellTestSupport.h"

#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/StageWrightApp.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

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

SceneFactory testSceneFactory()
{
    return blockSceneFactory(std::make_shared<QStringList>());
}

StageWrightApp* started = nullptr;

/// The application of this test program, started once.
StageWrightApp& app()
{
    if (!started) {
        started = new StageWrightApp({sampleInDefaultWorkspace()}, testSceneFactory());
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
    ASSERT_FALSE(QFileInfo::exists(defaultWorkspacePath()));
    StageWrightApp& started = app();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&started.mainWindow()));

    EXPECT_EQ(started.installedSamples(), QStringList({sampleInDefaultWorkspace()}));
    EXPECT_EQ(workingSpacePath(), defaultWorkspacePath());
    EXPECT_EQ(QCoreApplication::organizationName(), QStringLiteral("StageWright"));
    EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("StageWright"));

    // "Initialization" went, "Untitled 1" gave way to the sample.
    SceneSettings& settings = started.settings();
    ASSERT_EQ(settings.projectTabs().size(), 1u);
    const projectTab& sample = *settings.selectedProjectTab();
    EXPECT_EQ(sample.name(), QStringLiteral("Sample"));
    EXPECT_EQ(sample.levelConfig().size(), 3u);
    EXPECT_EQ(started.mainWindow().windowTitle(),
              QStringLiteral("Level: ") + sampleInDefaultWorkspace() + QStringLiteral("[*]"));
    EXPECT_FALSE(settings.imageList().empty());
    EXPECT_EQ(settings.recentDocumentItemsList().size(), 1u);
    EXPECT_GE(started.mainWindow().width(), 1300);
    EXPECT_GE(started.mainWindow().height(), 700);
    EXPECT_NE(started.mainWindow().frontCanvas()->shownScene(), nullptr);
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
    // No question about unsaved tabs at this point.
    EXPECT_TRUE(started.mainWindow().close());
    EXPECT_EQ(closing.count(), 1);
    EXPECT_FALSE(started.windows().isWindowOpen(WindowId::help));
}

} // namespace stagewright::test
