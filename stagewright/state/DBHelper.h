// The settings and recent-documents store of a workspace: the SQLite database
// "editor.xspace" in the workspace's root. A DBHelper is made for one task,
// opened, used and closed; no connection is kept between tasks. Every value
// that goes into a statement is a bound parameter.
#pragma once

#include "StateTypes.h"

#include <tessaro/model/AppConfig.h>
#include <tessaro/model/Enumerations.h>

#include <QString>
#include <QStringList>

#include <vector>

struct sqlite3;

namespace stagewright {

// clang-format off
#define STAGEWRIGHT_SETTINGS_NAMES(X) \
    X(defaultImageType) X(defaultSoundType) X(defaultImageScale) X(defaultSceneSize) \
    X(defaultSceneOrientation) X(defaultScaleMode) X(defaultAnchorPoint) X(debugOptions)
// clang-format on
/// The columns of the table Settings; a case's text is its column name.
enum class SettingsNames { STAGEWRIGHT_SETTINGS_NAMES(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::SettingsNames> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_SETTINGS_NAMES(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

/// The file name of the store in a workspace.
inline constexpr char storeFileName[] = "editor.xspace";
/// The schema version this program writes.
inline constexpr char storeVersion[] = "1.0.0";

class DBHelper {
public:
    explicit DBHelper(QString dbPath = QString::fromLatin1(storeFileName));
    ~DBHelper();
    DBHelper(const DBHelper&) = delete;
    DBHelper& operator=(const DBHelper&) = delete;

    QString dbPath;
    sqlite3* dbConnection = nullptr;

    /// Opens workspacePath + fileName; with `create` a missing file is made.
    /// Null and "error opening database" on failure.
    sqlite3* open(bool create, const QString& workspacePath, const QString& fileName);
    /// Closes the connection; "error closing database" on failure.
    bool close();

    /// Creates the schema and the first settings row unless the version row
    /// is there already.
    void setUp();
    bool createTable(const QString& sql, const QString& tableName);
    /// Runs one statement with the given values bound to its parameters.
    bool execute(const QString& sql, const QStringList& values = {});
    bool versionExists(const QString& version);
    /// "select count(*) from <table> <where>;" for one of the store's tables;
    /// the where text is the program's own, never a user's value.
    int rowCount(const QString& table, const QString& where = {});

    /// Records a file as the newest; keeps the ten newest.
    void addRecentDocument(const QString& folderPath, const QString& name);
    bool recentDocumentExists(const QString& folderPath, const QString& name);
    /// Newest first.
    std::vector<RecentDocumentItem> recentDocuments();
    bool clearRecentDocuments();

    bool updateSetting(SettingsNames name, const QString& value);
    /// The stored settings over the first-run values; a value that names no
    /// case keeps the first-run value.
    tessaro::appConfig settings();
    void insertDefaultSettings();
    /// Replaces the settings row with the first-run values and reads it back.
    tessaro::appConfig resetSettings();
};

/// What the store gives when a workspace becomes current.
struct StoreSnapshot {
    std::vector<RecentDocumentItem> recentDocuments;
    tessaro::appConfig settings;
};

// The flows that use the store, each on its own connection. `workspace` ends
// in "/". They are called with access to the workspace already granted.
StoreSnapshot readWorkspaceStore(const QString& workspace);
void createWorkspaceStore(const QString& workspace);
std::vector<RecentDocumentItem> recordRecentDocument(const QString& workspace, const QString& folderPath,
                                                     const QString& name);
bool clearRecentDocumentStore(const QString& workspace);
bool updateStoredSetting(const QString& workspace, SettingsNames name, const QString& value);
tessaro::appConfig resetStoredSettings(const QString& workspace);

} // namespace stagewright
