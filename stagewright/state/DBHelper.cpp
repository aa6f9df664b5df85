#include "DBHelper.h"

#include "StateDiagnostics.h"

#include <tessaro/model/ValueText.h>

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace stagewright {

namespace {

constexpr char createDbVersion[] = "CREATE TABLE IF NOT EXISTS DbVersion (Id INTEGER PRIMARY KEY, version STRING);";
constexpr char createDocuments[] = "CREATE TABLE IF NOT EXISTS Documents (Id INTEGER PRIMARY KEY, folderPath TEXT, "
                                   "name TEXT, createdDate TEXT DEFAULT CURRENT_TIMESTAMP);";
constexpr char createSettings[] =
    "CREATE TABLE IF NOT EXISTS Settings (Id INTEGER PRIMARY KEY, defaultImageType STRING, defaultSoundType STRING, "
    "defaultImageScale STRING, defaultSceneOrientation STRING, defaultScaleMode STRING, defaultAnchorPoint STRING, "
    "defaultSceneSize STRING, debugOptions STRING);";

constexpr std::array storeTables = {"DbVersion", "Documents", "Settings"};

/// One prepared statement, finalized when it goes out of scope.
class Statement {
public:
    Statement(sqlite3* db, const QString& sql)
    {
        if (!db)
            return;
        const QByteArray text = sql.toUtf8();
        if (sqlite3_prepare_v2(db, text.constData(), int(text.size()), &m_stmt, nullptr) != SQLITE_OK) {
            sqlite3_finalize(m_stmt);
            m_stmt = nullptr;
        }
    }
    ~Statement() { sqlite3_finalize(m_stmt); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    bool prepared() const { return m_stmt != nullptr; }
    bool bind(const QStringList& values)
    {
        for (int i = 0; i < values.size(); ++i) {
            const QByteArray value = values[i].toUtf8();
            if (sqlite3_bind_text(m_stmt, i + 1, value.constData(), int(value.size()), SQLITE_TRANSIENT) != SQLITE_OK)
                return false;
        }
        return true;
    }
    int step() { return sqlite3_step(m_stmt); }
    QString text(int column) const
    {
        const unsigned char* value = sqlite3_column_text(m_stmt, column);
        return value ? QString::fromUtf8(reinterpret_cast<const char*>(value)) : QString();
    }
    bool isNull(int column) const { return sqlite3_column_type(m_stmt, column) == SQLITE_NULL; }
    int integer(int column) const { return sqlite3_column_int(m_stmt, column); }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

template <tessaro::Enumeration E>
E storedCase(const Statement& row, int column, E firstRun)
{
    if (row.isNull(column))
        return firstRun;
    return tessaro::caseFromText<E>(row.text(column).toStdString()).value_or(firstRun);
}

QString joinPath(const QString& folder, const QString& file)
{
    if (folder.isEmpty() || folder.endsWith(QLatin1Char('/')))
        return folder + file;
    return folder + QLatin1Char('/') + file;
}

} // namespace

DBHelper::DBHelper(QString path) : dbPath(std::move(path)) {}

DBHelper::~DBHelper()
{
    if (dbConnection)
        close();
}

sqlite3* DBHelper::open(bool create, const QString& workspacePath, const QString& fileName)
{
    if (dbConnection)
        close();
    dbPath = fileName;
    const QByteArray path = joinPath(workspacePath, fileName).toUtf8();
    sqlite3* db = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
    if (workspacePath.isEmpty() || sqlite3_open_v2(path.constData(), &db, flags, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        diagnosticLine(QStringLiteral("error opening database"));
        return nullptr;
    }
    sqlite3_busy_timeout(db, 2000);
    dbConnection = db;
    if (create)
        diagnosticLine(QStringLiteral("Successfully opened connection to database at ") + workspacePath +
                       QLatin1Char(' ') + fileName);
    return db;
}

bool DBHelper::close()
{
    if (!dbConnection)
        return true;
    const bool ok = sqlite3_close(dbConnection) == SQLITE_OK;
    if (!ok) {
        diagnosticLine(QStringLiteral("error closing database"));
        sqlite3_close_v2(dbConnection); // let SQLite finish the close when it can
    }
    dbConnection = nullptr;
    return ok;
}

void DBHelper::setUp()
{
    if (versionExists(QString::fromLatin1(storeVersion)))
        return;
    createTable(QString::fromLatin1(createDbVersion), QStringLiteral("DbVersion"));
    createTable(QString::fromLatin1(createDocuments), QStringLiteral("Documents"));
    createTable(QString::fromLatin1(createSettings), QStringLiteral("Settings"));
    if (!versionExists(QString::fromLatin1(storeVersion)))
        execute(QStringLiteral("INSERT INTO DbVersion (version) VALUES ( ? );"), {QString::fromLatin1(storeVersion)});
    insertDefaultSettings();
}

bool DBHelper::createTable(const QString& sql, const QString& tableName)
{
    Statement statement(dbConnection, sql);
    if (!statement.prepared()) {
        diagnosticLine(QStringLiteral("CREATE TABLE statement could not be prepared."));
        return false;
    }
    if (statement.step() != SQLITE_DONE) {
        diagnosticLine(tableName + QStringLiteral(" table could not be created."));
        return false;
    }
    return true;
}

bool DBHelper::execute(const QString& sql, const QStringList& values)
{
    diagnosticLine(QStringLiteral("ExecuteStatement: ") + sql);
    Statement statement(dbConnection, sql);
    if (!statement.prepared() || !statement.bind(values) || statement.step() != SQLITE_DONE) {
        diagnosticLine(QStringLiteral("Data is not updated in table"));
        return false;
    }
    return true;
}

bool DBHelper::versionExists(const QString& version)
{
    Statement statement(dbConnection, QStringLiteral("SELECT count(version) FROM DbVersion WHERE version = ?;"));
    if (!statement.prepared() || !statement.bind({version}) || statement.step() != SQLITE_ROW)
        return false;
    return statement.integer(0) > 0;
}

int DBHelper::rowCount(const QString& table, const QString& where)
{
    if (std::find(storeTables.begin(), storeTables.end(), table) == storeTables.end())
        return 0;
    const QString sql = QStringLiteral("select count(*) from ") + table + QLatin1Char(' ') + where + QLatin1Char(';');
    Statement statement(dbConnection, sql);
    int count = 0;
    if (statement.prepared() && statement.step() == SQLITE_ROW)
        count = statement.integer(0);
    diagnosticLine(QStringLiteral("Query: ") + sql + QStringLiteral(" - Count: ") + QString::number(count));
    return count;
}

bool DBHelper::recentDocumentExists(const QString& folderPath, const QString& name)
{
    Statement statement(dbConnection,
                        QStringLiteral("select count(*) from Documents WHERE name = ? AND folderPath = ?;"));
    if (!statement.prepared() || !statement.bind({name, folderPath}) || statement.step() != SQLITE_ROW)
        return false;
    return statement.integer(0) > 0;
}

void DBHelper::addRecentDocument(const QString& folderPath, const QString& name)
{
    if (recentDocumentExists(folderPath, name))
        execute(QStringLiteral("DELETE FROM Documents WHERE (folderPath = ? AND name = ?);"), {folderPath, name});
    execute(QStringLiteral("INSERT INTO Documents (folderPath, name) VALUES (?, ? );"), {folderPath, name});
    execute(QStringLiteral("DELETE FROM Documents WHERE Id NOT IN "
                           "(SELECT Id FROM Documents ORDER BY createdDate DESC, Id DESC LIMIT 10);"));
}

std::vector<RecentDocumentItem> DBHelper::recentDocuments()
{
    std::vector<RecentDocumentItem> items;
    Statement statement(dbConnection,
                        QStringLiteral("SELECT folderPath, name FROM Documents ORDER BY createdDate DESC, Id DESC;"));
    if (!statement.prepared())
        return items;
    while (statement.step() == SQLITE_ROW) {
        RecentDocumentItem item;
        item.folderPath = statement.text(0);
        item.name = statement.text(1);
        items.push_back(std::move(item));
    }
    return items;
}

bool DBHelper::clearRecentDocuments()
{
    return execute(QStringLiteral("DELETE FROM Documents;"));
}

bool DBHelper::updateSetting(SettingsNames name, const QString& value)
{
    const QString column = QString::fromLatin1(tessaro::caseText(name));
    return execute(QStringLiteral("UPDATE Settings SET ") + column + QStringLiteral(" = ? ;"), {value});
}

tessaro::appConfig DBHelper::settings()
{
    tessaro::appConfig config; // the first-run values
    Statement row(dbConnection,
                  QStringLiteral("SELECT defaultImageType, defaultSoundType, defaultImageScale, "
                                 "defaultSceneOrientation, defaultScaleMode, defaultAnchorPoint, defaultSceneSize, "
                                 "debugOptions FROM Settings;"));
    if (!row.prepared()) {
        diagnosticLine(QStringLiteral("SELECT statement could not be prepared"));
        return config;
    }
    if (row.step() != SQLITE_ROW)
        return config;
    tessaro::BaseConfig& base = config.base;
    base.defaultImageType = storedCase(row, 0, base.defaultImageType);
    base.defaultSoundType = storedCase(row, 1, base.defaultSoundType);
    base.defaultImageScale = storedCase(row, 2, base.defaultImageScale);
    base.defaultSceneOrientation = storedCase(row, 3, base.defaultSceneOrientation);
    if (!row.isNull(4))
        base.defaultScaleMode = row.text(4).toStdString();
    if (!row.isNull(5))
        base.defaultAnchorPoint = tessaro::pointFromText(row.text(5).toStdString());
    if (!row.isNull(6))
        base.defaultSceneSize = tessaro::sizeFromText(row.text(6).toStdString());
    config.debugOptions = tessaro::listFromText<tessaro::DebugOption>(row.text(7).toStdString());
    return config;
}

void DBHelper::insertDefaultSettings()
{
    if (rowCount(QStringLiteral("Settings")) != 0)
        return;
    const tessaro::BaseConfig firstRun = tessaro::BaseConfig::editorDefaults();
    execute(QStringLiteral("INSERT INTO Settings (defaultImageType, defaultSoundType, defaultImageScale, "
                           "defaultSceneOrientation, defaultScaleMode, defaultAnchorPoint, defaultSceneSize, "
                           "debugOptions) VALUES (?, ?, ?, ?, ?, ?, ?, ? );"),
            {QString::fromLatin1(tessaro::caseText(firstRun.defaultImageType)),
             QString::fromLatin1(tessaro::caseText(firstRun.defaultSoundType)),
             QString::fromLatin1(tessaro::caseText(firstRun.defaultImageScale)),
             QString::fromLatin1(tessaro::caseText(firstRun.defaultSceneOrientation)),
             QString::fromStdString(firstRun.defaultScaleMode),
             QString::fromStdString(tessaro::textFromPoint(firstRun.defaultAnchorPoint)),
             QString::fromStdString(tessaro::textFromSize(firstRun.defaultSceneSize)), QString()});
}

tessaro::appConfig DBHelper::resetSettings()
{
    execute(QStringLiteral("DELETE FROM Settings;"));
    insertDefaultSettings();
    return settings();
}

StoreSnapshot readWorkspaceStore(const QString& workspace)
{
    StoreSnapshot snapshot;
    DBHelper db;
    if (db.open(true, workspace, QString::fromLatin1(storeFileName))) {
        db.setUp();
        snapshot.recentDocuments = db.recentDocuments();
        snapshot.settings = db.settings();
        db.close();
    }
    return snapshot;
}

void createWorkspaceStore(const QString& workspace)
{
    DBHelper db;
    if (db.open(true, workspace, QString::fromLatin1(storeFileName))) {
        db.setUp();
        db.close();
    }
}

std::vector<RecentDocumentItem> recordRecentDocument(const QString& workspace, const QString& folderPath,
                                                     const QString& name)
{
    DBHelper db;
    if (!db.open(true, workspace, QString::fromLatin1(storeFileName)))
        return {};
    db.addRecentDocument(folderPath, name);
    std::vector<RecentDocumentItem> items = db.recentDocuments();
    db.close();
    return items;
}

bool clearRecentDocumentStore(const QString& workspace)
{
    DBHelper db;
    if (!db.open(true, workspace, QString::fromLatin1(storeFileName)))
        return false;
    const bool ok = db.clearRecentDocuments();
    db.close();
    return ok;
}

bool updateStoredSetting(const QString& workspace, SettingsNames name, const QString& value)
{
    DBHelper db;
    if (!db.open(false, workspace, QString::fromLatin1(storeFileName)))
        return false;
    const bool ok = db.updateSetting(name, value);
    db.close();
    return ok;
}

tessaro::appConfig resetStoredSettings(const QString& workspace)
{
    DBHelper db;
    if (!db.open(true, workspace, QString::fromLatin1(storeFileName)))
        return {};
    tessaro::appConfig config = db.resetSettings();
    db.close();
    return config;
}

} // namespace stagewright
