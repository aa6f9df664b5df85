// The settings below the settings window: every workspace default goes into
// the configuration in force and into the workspace's store, a new level
// takes the defaults, a reset brings the first-run values back, and grants
// can be withdrawn.
#include "StateFixture.h"
#include "support/StoredSettings.h"

#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/BookmarksManager.h>
#include <stagewright/state/DBHelper.h>
#include <stagewright/state/Workspace.h>

#include <QSettings>

namespace stagewright::test {

namespace {

using testing_support::storedSettingsRow;

QSettings defaults()
{
    return QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"));
}

} // namespace

TEST_F(StateFixture, WorkspaceDefaultsGoToTheStoreAndIntoNewLevels)
{
    start();
    AppPreferences preferences(*settings);
    settings->setSceneSizesList({{tessaro::deviceName::defaultDevice, {874, 402}}});
    const QStringList firstRun{"png", "wav", "x2", "landscape", "aspectFill", "{0.5,0.5}", "{874.0,402.0}", ""};
    EXPECT_EQ(storedSettingsRow(), firstRun);

    preferences.setDefaultSceneSize({800, 600});
    preferences.setDefaultSceneOrientation(tessaro::sceneOrientationType::portrait);
    preferences.setDefaultScaleMode(QStringLiteral("resizeFill"));
    preferences.setDefaultScaleMode(QStringLiteral("stretchy")); // no scale mode: nothing changes
    preferences.setDefaultAnchorPoint({0.0, 1.5});
    preferences.setDefaultImageScale(tessaro::imageScaling::x3);
    preferences.setDefaultImageType(tessaro::imageType::jpg);
    preferences.setDefaultSoundType(tessaro::soundType::mp3);
    preferences.toggleDebugOption(tessaro::DebugOption::showsFPS);
    preferences.toggleDebugOption(tessaro::DebugOption::showsPhysics);
    preferences.toggleDebugOption(tessaro::DebugOption::none);

    const QStringList changed{
        "jpg", "mp3", "x3", "portrait", "resizeFill", "{0.0,1.0}", "{800.0,600.0}", "showsFPS,showsPhysics"};
    EXPECT_EQ(storedSettingsRow(), changed);
    const tessaro::appConfig& inForce = tessaro::globalAppConfig();
    EXPECT_EQ(inForce.base.defaultSceneSize, (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(inForce.base.defaultAnchorPoint, (tessaro::PointValue{0, 1}));
    EXPECT_EQ(inForce.base.defaultImageType, tessaro::imageType::jpg);
    EXPECT_EQ(inForce.base.defaultSoundType, tessaro::soundType::mp3);
    EXPECT_EQ(AppPreferences::debugOptionsSymbol(inForce.debugOptions), QStringLiteral("2.circle"));
    EXPECT_EQ(settings->sceneSizesList().front().size, (tessaro::SizeValue{800, 600}));

    // A new level and its scene take the defaults.
    settings->newProject();
    const tessaro::LevelSettings& level = front().levelConfig().front().settings;
    EXPECT_EQ(level.size, "{800.0,600.0}");
    EXPECT_EQ(level.sceneOrientation, "portrait");
    EXPECT_EQ(level.scaleMode, "resizeFill");
    EXPECT_EQ(level.anchorPoint, "{0.0,1.0}");
    ASSERT_NE(frontScene(), nullptr);
    EXPECT_EQ(frontScene()->size(), (tessaro::SizeValue{800, 600}));

    // The next start of the workspace reads them back.
    settings.reset();
    tessaro::globalAppConfig() = {};
    start();
    EXPECT_EQ(tessaro::globalAppConfig().base.defaultSceneSize, (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(tessaro::globalAppConfig().debugOptions,
              (std::vector{tessaro::DebugOption::showsFPS, tessaro::DebugOption::showsPhysics}));

    // Taking both options away again stores the empty list.
    AppPreferences again(*settings);
    again.toggleDebugOption(tessaro::DebugOption::showsPhysics);
    again.toggleDebugOption(tessaro::DebugOption::showsFPS);
    EXPECT_EQ(storedSettingsRow().last(), QString());
    EXPECT_EQ(AppPreferences::debugOptionsSymbol(again.debugOptions()), QStringLiteral("0.circle"));
}

TEST_F(StateFixture, ResetBringsTheFirstRunValuesBackAndKeepsTheStoredAppearance)
{
    start();
    AppPreferences preferences(*settings);
    preferences.setDarkMode(true);
    preferences.setDefaultImageScale(tessaro::imageScaling::x1);
    preferences.toggleDebugOption(tessaro::DebugOption::showsNodeCount);

    preferences.resetWorkspaceDefaults();
    EXPECT_EQ(storedSettingsRow(),
              QStringList({"png", "wav", "x2", "landscape", "aspectFill", "{0.5,0.5}", "{874.0,402.0}", ""}));
    EXPECT_EQ(tessaro::globalAppConfig(), tessaro::appConfig{});
    DBHelper db;
    db.open(false, workingSpacePath(), QString::fromLatin1(storeFileName));
    EXPECT_EQ(db.rowCount(QStringLiteral("Settings")), 1);
    db.close();
    // Light for this run; the next start is dark as the user chose.
    EXPECT_FALSE(settings->isDark());
    EXPECT_TRUE(defaults().value(QStringLiteral("isDark")).toBool());
}

TEST_F(StateFixture, AddressesAndGrantsAreTheUsers)
{
    start();
    AppPreferences preferences(*settings);
    EXPECT_EQ(AppPreferences::serverAddress(), AppPreferences::defaultServerAddress());
    preferences.setServerAddress(QStringLiteral("  http://127.0.0.1:8080// "));
    EXPECT_EQ(AppPreferences::serverAddress(), QStringLiteral("http://127.0.0.1:8080"));
    preferences.setSourcePageAddress(QStringLiteral("https://example.org/source"));
    EXPECT_EQ(AppPreferences::sourcePageAddress(), QStringLiteral("https://example.org/source"));
    preferences.setServerAddress(QString());
    EXPECT_EQ(AppPreferences::serverAddress(), AppPreferences::defaultServerAddress());

    BookmarksManager& bookmarks = settings->gate().bookmarks();
    const QString kept = home->folder(QStringLiteral("kept"));
    const QString dropped = home->folder(QStringLiteral("dropped"));
    bookmarks.add(kept);
    bookmarks.add(dropped);
    ASSERT_TRUE(preferences.grantedFolders().contains(dropped));
    preferences.removeGrant(dropped);
    EXPECT_FALSE(preferences.grantedFolders().contains(dropped));
    EXPECT_TRUE(preferences.grantedFolders().contains(kept));
    // The grant is gone for the next start too.
    bookmarks.loadAllBookmarks();
    EXPECT_FALSE(bookmarks.secureUrls().contains(dropped));
    preferences.removeGrant(kept);
    EXPECT_FALSE(preferences.grantFolder()); // the panel is cancelled in these tests
}

} // namespace stagewright::test
