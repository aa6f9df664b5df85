// The settings and recent-documents store of a workspace.
#include "StateTestSupport.h"

#include <stagewright/state/DBHelper.h>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <QTemporaryDir>

using namespace stagewright;
using stagewright::test::DiagnosticCapture;

namespace {

QString workspaceIn(const QTemporaryDir& dir)
{
    return dir.path() + QLatin1Char('/');
}

/// Runs one query on the store file directly and gives the first column of
/// every row.
QStringList query(const QString& workspace, const char* sql)
{
    QStringList rows;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2((workspace + QLatin1String(storeFileName)).toUtf8().constData(), &db, SQLITE_OPEN_READWRITE,
                        nullptr) == SQLITE_OK) {
        sqlite3_stmt* stmt = nullptr;
        if (sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) == SQLITE_OK)
            while (sqlite3_step(stmt) == SQLITE_ROW) {
                const auto* text = sqlite3_column_text(stmt, 0);
                rows << (text ? QString::fromUtf8(reinterpret_cast<const char*>(text)) : QStringLiteral("<null>"));
            }
        sqlite3_finalize(stmt);
    }
    sqlite3_close(db);
    return rows;
}

} // namespace

TEST(Store, NewDatabaseHasSchemaVersionAndFirstRunSettings)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    DiagnosticCapture capture;
    const StoreSnapshot snapshot = readWorkspaceStore(workspace);

    EXPECT_TRUE(capture.contains("Successfully opened connection to database at " + workspace.toStdString() +
                                 " editor.xspace"));
    EXPECT_EQ(query(workspace, "SELECT version FROM DbVersion"), QStringList{"1.0.0"});
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM Documents"), QStringList{"0"});
    EXPECT_EQ(query(workspace,
                    "SELECT defaultImageType || '|' || defaultSoundType || '|' || defaultImageScale || '|' "
                    "|| defaultSceneOrientation || '|' || defaultScaleMode || '|' || defaultAnchorPoint "
                    "|| '|' || defaultSceneSize || '|' || debugOptions FROM Settings"),
              QStringList{"png|wav|x2|landscape|aspectFill|{0.5,0.5}|{874.0,402.0}|"});
    EXPECT_TRUE(snapshot.recentDocuments.empty());
    EXPECT_EQ(snapshot.settings, tessaro::appConfig{});

    // Setting up again finds the version and adds nothing.
    capture.clear();
    readWorkspaceStore(workspace);
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM Settings"), QStringList{"1"});
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM DbVersion"), QStringList{"1"});
    EXPECT_FALSE(capture.containsPrefix("ExecuteStatement:"));
}

TEST(Store, RecentDocumentsKeepTheTenNewestAndMoveAReopenedFileToTheFront)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    createWorkspaceStore(workspace);

    std::vector<RecentDocumentItem> items;
    for (int i = 1; i <= 11; ++i)
        items = recordRecentDocument(workspace, QStringLiteral("/levels/"), QStringLiteral("level%1.plist").arg(i));
    ASSERT_EQ(items.size(), 10u);
    EXPECT_EQ(items.front().name, "level11.plist");
    EXPECT_EQ(items.back().name, "level2.plist"); // the oldest went
    EXPECT_EQ(items.front().folderPath, "/levels/");

    items = recordRecentDocument(workspace, QStringLiteral("/levels/"), QStringLiteral("level5.plist"));
    ASSERT_EQ(items.size(), 10u);
    EXPECT_EQ(items.front().name, "level5.plist");
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM Documents WHERE name = 'level5.plist'"), QStringList{"1"});

    // The same name in another folder is another document.
    items = recordRecentDocument(workspace, QStringLiteral("/other/"), QStringLiteral("level5.plist"));
    EXPECT_EQ(items[0].folderPath, "/other/");
    EXPECT_EQ(items[1].folderPath, "/levels/");

    EXPECT_TRUE(clearRecentDocumentStore(workspace));
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM Documents"), QStringList{"0"});
}

TEST(Store, NamesWithQuotesAreStoredAsTheyStand)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    createWorkspaceStore(workspace);
    const QString folder = QStringLiteral("/Users/o'brien/it's \"here\"/");
    const QString name = QStringLiteral("boss'); DROP TABLE Documents;--.plist");

    recordRecentDocument(workspace, folder, name);
    const auto items = recordRecentDocument(workspace, folder, name);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].folderPath, folder);
    EXPECT_EQ(items[0].name, name);

    EXPECT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultScaleMode, QStringLiteral("it's")));
    DBHelper db;
    ASSERT_TRUE(db.open(false, workspace, QString::fromLatin1(storeFileName)));
    EXPECT_TRUE(db.recentDocumentExists(folder, name));
    EXPECT_EQ(db.settings().base.defaultScaleMode, "it's");
}

TEST(Store, SettingsReadWithTheirFallbacks)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    createWorkspaceStore(workspace);
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultImageType, QStringLiteral("heic")));
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultSoundType, QStringLiteral("mp3")));
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultImageScale, QStringLiteral("x3")));
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultSceneOrientation, QStringLiteral("portrait")));
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultSceneSize, QStringLiteral("{800.0,600.0}")));
    ASSERT_TRUE(updateStoredSetting(workspace, SettingsNames::defaultAnchorPoint, QStringLiteral("{0,1}")));
    ASSERT_TRUE(
        updateStoredSetting(workspace, SettingsNames::debugOptions, QStringLiteral("showsFPS, showsPhysics,,bogus")));

    const tessaro::appConfig config = readWorkspaceStore(workspace).settings;
    EXPECT_EQ(config.base.defaultImageType, tessaro::imageType::png); // "heic" names no case
    EXPECT_EQ(config.base.defaultSoundType, tessaro::soundType::mp3);
    EXPECT_EQ(config.base.defaultImageScale, tessaro::imageScaling::x3);
    EXPECT_EQ(config.base.defaultSceneOrientation, tessaro::sceneOrientationType::portrait);
    EXPECT_EQ(config.base.defaultSceneSize, (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(config.base.defaultAnchorPoint, (tessaro::PointValue{0, 1}));
    EXPECT_EQ(config.debugOptions, (std::vector{tessaro::DebugOption::showsFPS, tessaro::DebugOption::showsPhysics}));
    // Reading does not repair the row.
    EXPECT_EQ(query(workspace, "SELECT defaultImageType FROM Settings"), QStringList{"heic"});

    const tessaro::appConfig reset = resetStoredSettings(workspace);
    EXPECT_EQ(reset, tessaro::appConfig{});
    EXPECT_EQ(query(workspace, "SELECT count(*) FROM Settings"), QStringList{"1"});
    EXPECT_EQ(query(workspace, "SELECT debugOptions FROM Settings"), QStringList{""});
}

TEST(Store, StatementsReportTheirLines)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    DBHelper db;
    DiagnosticCapture capture;
    ASSERT_TRUE(db.open(true, workspace, QString::fromLatin1(storeFileName)));
    db.setUp();
    EXPECT_TRUE(capture.contains("Query: select count(*) from Settings ; - Count: 0"));
    EXPECT_TRUE(capture.containsPrefix("ExecuteStatement: INSERT INTO Settings"));

    capture.clear();
    EXPECT_FALSE(db.execute(QStringLiteral("INSERT INTO Nowhere (x) VALUES (?);"), {QStringLiteral("1")}));
    EXPECT_EQ(capture.lines(),
              (std::vector<std::string>{"ExecuteStatement: INSERT INTO Nowhere (x) VALUES (?);",
                                        "Data is not updated in table"}));
    capture.clear();
    EXPECT_FALSE(db.createTable(QStringLiteral("CREATE TABLE Settings (x);"), QStringLiteral("Settings")));
    EXPECT_EQ(capture.lines(), std::vector<std::string>{"CREATE TABLE statement could not be prepared."});
    EXPECT_EQ(db.rowCount(QStringLiteral("Settings; DROP TABLE Settings")), 0); // not a table of the store
    EXPECT_EQ(db.rowCount(QStringLiteral("Settings")), 1);
    EXPECT_TRUE(db.close());
}

TEST(Store, ADamagedStoreGivesFirstRunSettingsAndIsNotOverwritten)
{
    QTemporaryDir dir;
    const QString workspace = workspaceIn(dir);
    const QByteArray garbage("this is not a database, but the user's file\n");
    test::writeFile(workspace + QLatin1String(storeFileName), garbage);

    DiagnosticCapture capture;
    const StoreSnapshot snapshot = readWorkspaceStore(workspace);
    EXPECT_EQ(snapshot.settings, tessaro::appConfig{});
    EXPECT_TRUE(snapshot.recentDocuments.empty());
    EXPECT_TRUE(capture.contains("CREATE TABLE statement could not be prepared."));
    EXPECT_TRUE(capture.contains("SELECT statement could not be prepared"));
    EXPECT_TRUE(recordRecentDocument(workspace, QStringLiteral("/a/"), QStringLiteral("b.plist")).empty());
    EXPECT_EQ(test::readFile(workspace + QLatin1String(storeFileName)), garbage);
}

TEST(Store, AMissingWorkspaceFolderIsNotCreated)
{
    QTemporaryDir dir;
    const QString workspace = dir.path() + QStringLiteral("/gone/");
    DiagnosticCapture capture;
    const StoreSnapshot snapshot = readWorkspaceStore(workspace);
    EXPECT_TRUE(capture.contains("error opening database"));
    EXPECT_EQ(snapshot.settings, tessaro::appConfig{});
    EXPECT_FALSE(QFileInfo::exists(workspace));
    EXPECT_FALSE(updateStoredSetting(workspace, SettingsNames::defaultImageType, QStringLiteral("jpg")));
}
