// The start of the application state and the first window.
#include "StateFixture.h"

#include <stagewright/state/BookmarksManager.h>
#include <stagewright/state/Workspace.h>

#include <QDir>
#include <QSettings>

using namespace stagewright;
using namespace stagewright::test;

namespace {
QSettings defaults()
{
    return QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"));
}
} // namespace

TEST_F(StateFixture, FirstStartCreatesTheDefaultWorkspaceAndEndsWithUntitled1)
{
    defaults().setValue(QStringLiteral("isDark"), true);
    defaults().setValue(QStringLiteral("firstTimeViewDisplayed"), true);
    const QString expected = home->path() + QStringLiteral("/StageWrightSpace/");
    ASSERT_FALSE(QFileInfo::exists(expected));

    DiagnosticCapture capture;
    settings = std::make_unique<SceneSettings>(PermissionManager::shared());
    EXPECT_TRUE(capture.containsPrefix("loadAllBookmarks: "));
    EXPECT_TRUE(capture.contains("User folder: " + expected.toStdString()));
    EXPECT_TRUE(QFileInfo::exists(expected + QStringLiteral("Assets/ObstacleList.plist")));
    EXPECT_EQ(workingSpacePath(), expected);
    EXPECT_EQ(defaults().value(QStringLiteral("workingSpacePath")).toString(), expected);
    EXPECT_TRUE(settings->isDark());
    EXPECT_TRUE(firstTimeViewDisplayed());
    EXPECT_FALSE(tessaro::obstacleCatalogue().empty());
    EXPECT_FALSE(tessaro::characterCatalogue().empty());
    EXPECT_FALSE(tessaro::objectCatalogue().empty());
    EXPECT_EQ(tabNames(), QStringList{"Initialization"});
    EXPECT_EQ(settings->tabSelected(), front().id());
    EXPECT_EQ(settings->scrollerViewSize(), (tessaro::SizeValue{874, 402}));
    EXPECT_TRUE(settings->imageList().empty()); // scanned when the window appears

    settings->mainWindowAppeared();
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    EXPECT_EQ(settings->tabSelected(), front().id());
    EXPECT_EQ(front().levelConfig().size(), 1u);
    EXPECT_EQ(front().levelListDropdownValues().size(), 1u);
    const auto& images = settings->imageList();
    EXPECT_TRUE(std::any_of(images.begin(), images.end(), [](const FileItem& item) {
        return item.name == "crate" && item.sceneObjectType == tessaro::sceneObjectType::obstacles;
    }));
}

TEST_F(StateFixture, StartUsesTheStoredWorkspaceOrFallsBackWithoutForgettingIt)
{
    const QString other = home->folder(QStringLiteral("elsewhere/game")) + QLatin1Char('/');
    ASSERT_TRUE(createWorkspace(other, PermissionManager::shared()));
    defaults().setValue(QStringLiteral("workingSpacePath"), other);
    settings = std::make_unique<SceneSettings>(PermissionManager::shared());
    EXPECT_EQ(workingSpacePath(), other);
    EXPECT_TRUE(QFileInfo::exists(home->path() + QStringLiteral("/StageWrightSpace/editor.xspace")));
    settings.reset();

    const QString gone = home->path() + QStringLiteral("/unplugged/drive/");
    defaults().setValue(QStringLiteral("workingSpacePath"), gone);
    DiagnosticCapture capture;
    settings = std::make_unique<SceneSettings>(PermissionManager::shared());
    EXPECT_EQ(workingSpacePath(), defaultWorkspacePath());
    EXPECT_TRUE(capture.containsPrefix("Workspace not found: " + gone.toStdString()));
    EXPECT_FALSE(QFileInfo::exists(gone));
    EXPECT_EQ(defaults().value(QStringLiteral("workingSpacePath")).toString(), gone);
    EXPECT_FALSE(tessaro::obstacleCatalogue().empty());
}

TEST_F(StateFixture, ADamagedStoreStillLetsTheWorkspaceOpen)
{
    const QString workspace = defaultWorkspacePath();
    ASSERT_TRUE(createWorkspace(workspace, PermissionManager::shared()));
    const QByteArray damaged("SQLite format 3\0 but then nothing useful", 40);
    test::writeFile(workspace + QStringLiteral("editor.xspace"), damaged);

    start();
    EXPECT_EQ(tessaro::globalAppConfig(), tessaro::appConfig{});
    EXPECT_TRUE(settings->recentDocumentItemsList().empty());
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    const QString project = writeProject(QStringLiteral("a.plist"), 1);
    settings->openProject(project);
    EXPECT_EQ(front().levelConfig().size(), 1u);
    EXPECT_EQ(test::readFile(workspace + QStringLiteral("editor.xspace")), damaged);
}

TEST_F(StateFixture, SetWorkingSpaceReadsTheStoreAndRemembersThePath)
{
    start(false);
    const QString other = home->folder(QStringLiteral("second"));
    ASSERT_TRUE(createWorkspace(other, PermissionManager::shared()));
    ASSERT_TRUE(updateStoredSetting(other + QLatin1Char('/'), SettingsNames::defaultImageScale, QStringLiteral("x3")));
    recordRecentDocument(other + QLatin1Char('/'), QStringLiteral("/p/"), QStringLiteral("q.plist"));

    int changes = 0;
    QObject::connect(settings.get(), &SceneSettings::recentDocumentItemsListChanged, [&] { ++changes; });
    settings->setWorkingSpace(other); // no final "/"
    EXPECT_EQ(workingSpacePath(), other + QLatin1Char('/'));
    EXPECT_EQ(defaults().value(QStringLiteral("workingSpacePath")).toString(), other + QLatin1Char('/'));
    EXPECT_EQ(tessaro::globalAppConfig().base.defaultImageScale, tessaro::imageScaling::x3);
    ASSERT_EQ(settings->recentDocumentItemsList().size(), 1u);
    EXPECT_EQ(settings->recentDocumentItemsList()[0].path(), "/p/q.plist");
    EXPECT_EQ(changes, 1);

    settings->setWorkingSpace(QString()); // an empty path changes nothing
    EXPECT_EQ(workingSpacePath(), other + QLatin1Char('/'));

    EXPECT_TRUE(settings->updateSetting(SettingsNames::defaultImageType, QStringLiteral("jpg")));
    settings->resetSettings();
    EXPECT_EQ(tessaro::globalAppConfig(), tessaro::appConfig{});

    settings->setIsDark(true);
    settings->setFirstTimeViewDisplayed(true);
    EXPECT_TRUE(defaults().value(QStringLiteral("isDark")).toBool());
    EXPECT_TRUE(defaults().value(QStringLiteral("firstTimeViewDisplayed")).toBool());
}
