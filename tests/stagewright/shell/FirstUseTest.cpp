// What the settings, the help menu and the first start do to the open
// windows: the appearance reaches every one, debugging overlays reach every
// canvas, F1 opens the help and "Github Pages" the source page, the welcome
// sheet comes once.
#include "ShellTestSupport.h"

#include <stagewright/shell/AboutWindow.h>
#include <stagewright/shell/Appearance.h>
#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/Downloader.h>
#include <stagewright/shell/HelpCommands.h>
#include <stagewright/shell/StageWrightApp.h>
#include <stagewright/shell/WelcomeSheet.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QTest>

namespace stagewright::test {

namespace {

struct FirstUseTest : ShellFixture {
    std::unique_ptr<Appearance> appearance;
    Downloader downloader;
    std::unique_ptr<HelpCommands> help;

    void SetUp() override
    {
        ShellFixture::SetUp();
        appearance = std::make_unique<Appearance>(*settings);
        help = std::make_unique<HelpCommands>(downloader, windows.get());
        help->setUrlOpener([this](const QUrl& url) {
            openedUrls.push_back(url);
            return true;
        });
        window->setHelpCommands(*help);
    }
    void TearDown() override
    {
        window.reset();
        help.reset();
        Appearance::apply(false);
        appearance.reset();
        ShellFixture::TearDown();
    }
};

QSettings defaults()
{
    return QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"));
}

} // namespace

TEST_F(FirstUseTest, DarkModeReachesEveryOpenWindowAtOnce)
{
    for (const QString& id : {WindowId::about, WindowId::help, WindowId::settings, WindowId::objectLibrary})
        commands->openWindow(id);
    QList<QWidget*> open{window.get()};
    for (const QString& id : {WindowId::about, WindowId::help, WindowId::settings, WindowId::objectLibrary})
        open << windows->window(id);

    const QColor dark = darkPalette().color(QPalette::Window);
    preferences->setDarkMode(true);
    settle();
    EXPECT_TRUE(settings->isDark());
    EXPECT_TRUE(defaults().value(QStringLiteral("isDark")).toBool());
    EXPECT_TRUE(tessaro::globalAppConfig().base.darkMode);
    for (QWidget* shown : open) {
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->palette().color(QPalette::Window), dark) << shown->objectName().toStdString();
        // The picture itself is dark, not only the palette.
        EXPECT_LT(shown->grab().toImage().pixelColor(2, shown->height() - 3).lightness(), 100)
            << shown->objectName().toStdString();
    }

    preferences->setDarkMode(false);
    settle();
    for (QWidget* shown : open)
        EXPECT_NE(shown->palette().color(QPalette::Window), dark) << shown->objectName().toStdString();
    EXPECT_FALSE(defaults().value(QStringLiteral("isDark")).toBool());
}

TEST_F(FirstUseTest, DebugOptionsReachEveryCanvasAndNewOnes)
{
    CanvasView* first = window->frontCanvas();
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(first->sceneView()->showsFPS());

    preferences->toggleDebugOption(tessaro::DebugOption::showsFPS);
    preferences->toggleDebugOption(tessaro::DebugOption::showsPhysics);
    EXPECT_TRUE(first->sceneView()->showsFPS());
    EXPECT_TRUE(first->sceneView()->showsPhysics());
    EXPECT_FALSE(first->sceneView()->showsNodeCount());

    // A canvas made afterwards starts with the chosen options.
    commands->newLevel();
    CanvasView* second = window->frontCanvas();
    ASSERT_NE(second, first);
    EXPECT_TRUE(second->sceneView()->showsFPS());
    EXPECT_TRUE(second->sceneView()->showsPhysics());

    preferences->toggleDebugOption(tessaro::DebugOption::showsFPS);
    EXPECT_FALSE(first->sceneView()->showsFPS());
    EXPECT_FALSE(second->sceneView()->showsFPS());
    EXPECT_TRUE(second->sceneView()->showsPhysics());

    // The other three options are drawn too.
    for (auto option : {tessaro::DebugOption::showsFields, tessaro::DebugOption::showsDrawCount,
                        tessaro::DebugOption::showsQuadCount})
        preferences->toggleDebugOption(option);
    for (CanvasView* canvas : {first, second}) {
        EXPECT_TRUE(canvas->sceneView()->showsFields());
        EXPECT_TRUE(canvas->sceneView()->showsDrawCount());
        EXPECT_TRUE(canvas->sceneView()->showsQuadCount());
    }
}

TEST_F(FirstUseTest, HelpMenuOpensTheHelpAndTheSourcePageOfTheSettings)
{
    QAction* helpCommand = action(QStringLiteral("Tessaro - StageWright Help"));
    EXPECT_EQ(helpCommand->shortcut(), QKeySequence(Qt::Key_F1));
    QTest::keyClick(window.get(), Qt::Key_F1);
    EXPECT_TRUE(windows->isWindowOpen(WindowId::help));
    EXPECT_EQ(windows->window(WindowId::help)->windowTitle(), QStringLiteral("StageWright Help"));

    preferences->setSourcePageAddress(QStringLiteral("https://example.org/our/source"));
    action(QStringLiteral("Github Pages"))->trigger();
    ASSERT_FALSE(openedUrls.empty());
    EXPECT_EQ(openedUrls.back(), QUrl(QStringLiteral("https://example.org/our/source")));
    // An empty address puts the default back.
    preferences->setSourcePageAddress(QString());
    action(QStringLiteral("Github Pages"))->trigger();
    EXPECT_EQ(openedUrls.back(), QUrl(AppPreferences::defaultSourcePageAddress()));
}

TEST_F(FirstUseTest, WelcomeSheetComesOnTheFirstStartOnly)
{
    firstTimeViewDisplayed() = false;
    WelcomeSheet* sheet = showWelcomeOnFirstStart(window.get(), *settings);
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->windowTitle(), QStringLiteral("Welcome to StageWright"));
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(defaults().value(QStringLiteral("firstTimeViewDisplayed")).toBool());
    auto* greeting = sheet->findChild<QLabel*>(QStringLiteral("welcomeGreeting"));
    ASSERT_NE(greeting, nullptr);
    EXPECT_TRUE(greeting->text().startsWith(QStringLiteral("Welcome to Tessaro - StageWright")));
    sheet->accept();
    settle();

    EXPECT_EQ(showWelcomeOnFirstStart(window.get(), *settings), nullptr);

    // The about window carries the application image.
    commands->openWindow(WindowId::about);
    auto* logo = windows->window(WindowId::about)->findChild<QLabel*>(QStringLiteral("productLogo"));
    ASSERT_NE(logo, nullptr);
    EXPECT_FALSE(logo->pixmap().isNull());
    EXPECT_EQ(logo->pixmap().width(), 128);
}

TEST_F(FirstUseTest, AboutWindowShowsBothVersionsTheLicenceAndLinksOfTheServerInForce)
{
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.0"));
    setApplicationBuildVersion(QStringLiteral("345"));
    commands->openWindow(WindowId::about);
    QWidget* about = windows->window(WindowId::about);
    ASSERT_NE(about, nullptr);
    auto* version = about->findChild<QLabel*>(QStringLiteral("versionLine"));
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->text(), QStringLiteral("Version 1.2.0 (345)"));
    setApplicationBuildVersion(QString());
    EXPECT_EQ(AboutWindow::versionLine(), QStringLiteral("Version 1.2.0 (N/A)"));
    QCoreApplication::setApplicationVersion(QString());

    auto* licence = about->findChild<QLabel*>(QStringLiteral("licenceLine"));
    ASSERT_NE(licence, nullptr);
    EXPECT_TRUE(licence->text().contains(QStringLiteral("MIT licence"))) << licence->text().toStdString();

    // The links follow a server address set while the window is open.
    auto* developer = about->findChild<QLabel*>(QStringLiteral("developerLink"));
    auto* documentation = about->findChild<QLabel*>(QStringLiteral("documentationLink"));
    ASSERT_NE(developer, nullptr);
    ASSERT_NE(documentation, nullptr);
    preferences->setServerAddress(QStringLiteral("https://games.example.org"));
    EXPECT_TRUE(developer->text().contains(QStringLiteral("href=\"https://games.example.org/\"")))
        << developer->text().toStdString();
    EXPECT_TRUE(documentation->text().contains(QStringLiteral("href=\"https://games.example.org/doc\"")))
        << documentation->text().toStdString();
    EXPECT_EQ(documentation->toolTip(), QStringLiteral("https://games.example.org/doc"));
    preferences->setServerAddress(QString());
    EXPECT_EQ(developer->toolTip(), AppPreferences::defaultServerAddress() + QLatin1Char('/'));
}

} // namespace stagewright::test
