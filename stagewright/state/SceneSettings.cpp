#include "SceneSettings.h"

#include "BookmarksManager.h"
#include "DBHelper.h"
#include "PermissionManager.h"
#include "StateDiagnostics.h"
#include "TabOfFile.h"
#include "Workspace.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/ValueText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <charconv>

namespace stagewright {

namespace {

const QString untitledPrefix = QStringLiteral("Untitled ");
const QString initializationName = QStringLiteral("Initialization");

/// The user defaults of the application.
QSettings userDefaults()
{
    return QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"));
}

/// A whole number, or 0 when the text is not one.
int wholeNumber(const QString& text)
{
    const std::string digits = text.toStdString();
    const char* begin = digits.data();
    const char* end = begin + digits.size();
    if (begin != end && *begin == '+')
        ++begin;
    int value = 0;
    const auto [ptr, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || ptr != end || begin == end)
        return 0;
    return value;
}

} // namespace

int nextUntitledNumber(const std::vector<QString>& tabNames)
{
    int largest = 0;
    for (const QString& name : tabNames) {
        if (!name.startsWith(QLatin1String("Untitled")))
            continue;
        QString rest = name;
        rest.remove(untitledPrefix);
        largest = std::max(largest, wholeNumber(rest));
    }
    return std::max(largest + 1, 1);
}

SceneSettings::SceneSettings(PermissionManager& gate, QObject* parent)
    : QObject(parent),
      m_gate(gate),
      m_catalogues(gate),
      m_revealer(revealInFileManager)
{
    start();
}

// Tabs that a view still holds outlive this object and lose their owner.
SceneSettings::~SceneSettings() = default;

SceneSettings& SceneSettings::shared()
{
    static SceneSettings* instance = new SceneSettings(PermissionManager::shared(), QCoreApplication::instance());
    return *instance;
}

void SceneSettings::start()
{
    m_gate.bookmarks().loadAllBookmarks();

    const QString home = defaultWorkspacePath();
    diagnosticLine(QStringLiteral("User folder: ") + home);
    if (!QFileInfo::exists(home))
        createWorkspace(home, m_gate);

    QSettings defaults = userDefaults();
    QString workspace = defaults.value(QStringLiteral("workingSpacePath")).toString();
    bool remember = true;
    if (workspace.isEmpty()) {
        workspace = home;
    } else if (!QFileInfo(workspace).isDir()) {
        // A stored workspace that has gone (an unplugged drive, a deleted
        // folder) is not recreated and stays remembered for the next start;
        // this run uses the default workspace.
        diagnosticLine(QStringLiteral("Workspace not found: ") + workspace + QStringLiteral(", using ") + home);
        workspace = home;
        remember = false;
    }
    firstTimeViewDisplayed() = defaults.value(QStringLiteral("firstTimeViewDisplayed"), false).toBool();
    makeWorkspaceCurrent(workspace, remember);

    m_isDark = defaults.value(QStringLiteral("isDark"), false).toBool();

    auto tab = std::make_shared<ProjectTab>(tessaro::Uuid::create(), initializationName, this);
    m_projectTabs.push_back(tab);
    m_selectedProjectTab = m_projectTabs.front();
    m_tabSelected = m_selectedProjectTab ? m_selectedProjectTab->id() : tessaro::Uuid::create();
    m_scrollerViewSize = tab->currentScene() ? tab->currentScene()->size() : tessaro::SizeValue{874, 402};
}

void SceneSettings::setSceneFactory(SceneFactory factory)
{
    m_sceneFactory = std::move(factory);
}

void SceneSettings::setFileRevealer(FileRevealer revealer)
{
    m_revealer = revealer ? std::move(revealer) : FileRevealer(revealInFileManager);
}

std::shared_ptr<ProjectTab> SceneSettings::findTab(const tessaro::Uuid& id) const
{
    for (const auto& tab : m_projectTabs)
        if (tab->id() == id)
            return tab;
    return nullptr;
}

// ---- Fields -------------------------------------------------------------------

void SceneSettings::setSelectedProjectTab(std::shared_ptr<ProjectTab> tab)
{
    if (tab == m_selectedProjectTab)
        return;
    m_selectedProjectTab = std::move(tab);
    emit selectedProjectTabChanged();
}

void SceneSettings::setScrollerViewSize(tessaro::SizeValue size)
{
    if (size == m_scrollerViewSize)
        return;
    m_scrollerViewSize = size;
    emit scrollerViewSizeChanged();
}

void SceneSettings::setIsDark(bool dark)
{
    userDefaults().setValue(QStringLiteral("isDark"), dark);
    if (dark == m_isDark)
        return;
    m_isDark = dark;
    emit isDarkChanged();
}

void SceneSettings::setFirstTimeViewDisplayed(bool shown)
{
    firstTimeViewDisplayed() = shown;
    userDefaults().setValue(QStringLiteral("firstTimeViewDisplayed"), shown);
}

void SceneSettings::setRecentDocuments(std::vector<RecentDocumentItem> items)
{
    m_recentDocumentItemsList = std::move(items);
    emit recentDocumentItemsListChanged();
}

void SceneSettings::setSceneSizesList(std::vector<SceneSizes> sizes)
{
    m_sceneSizesList = std::move(sizes);
    emit sceneSizesListChanged();
}

void SceneSettings::setInspectorPresented(bool presented)
{
    if (presented == m_isInspectorPresented)
        return;
    m_isInspectorPresented = presented;
    emit isInspectorPresentedChanged();
}

void SceneSettings::setGroundInspectorPresented(bool presented)
{
    if (presented == m_isGroundInspectorPresented)
        return;
    m_isGroundInspectorPresented = presented;
    emit isGroundInspectorPresentedChanged();
}

void SceneSettings::setNodeListItemSelected(const QString& name)
{
    if (name == m_nodeListItemSelected)
        return;
    m_nodeListItemSelected = name;
    emit nodeListItemSelectedChanged();
}

void SceneSettings::toggleRefreshWidth()
{
    m_refreshWidth = !m_refreshWidth;
    emit refreshWidthChanged();
}

void SceneSettings::setTabSelected(const tessaro::Uuid& id)
{
    if (id == m_tabSelected)
        return;
    m_tabSelected = id;
    emit tabSelectedChanged();
}

void SceneSettings::setGroundOrderItems(std::vector<GroundOrderItem> items)
{
    m_groundOrderItems = std::move(items);
    emit groundOrderItemsChanged();
}

// ---- Projects -----------------------------------------------------------------

void SceneSettings::newProject()
{
    std::vector<QString> names;
    for (const auto& tab : m_projectTabs)
        names.push_back(tab->name());
    const QString name = untitledPrefix + QString::number(nextUntitledNumber(names));

    auto tab = std::make_shared<ProjectTab>(tessaro::Uuid::create(), name, this);
    m_projectTabs.push_back(tab);
    emit projectTabsChanged();
    setSelectedProjectTab(tab);
    setTabSelected(tab->id());

    tab->setLevelConfig({tessaro::newLevel(tessaro::Uuid::create(), tessaro::globalAppConfig().base)});
    tab->refreshLevelList();
    tab->switchLevel(*tab->levelConfig().front().id);
}

void SceneSettings::removeTabAt(std::size_t index)
{
    m_projectTabs.erase(m_projectTabs.begin() + std::ptrdiff_t(index));
    emit projectTabsChanged();
}

void SceneSettings::openProject(const QString& location)
{
    // A file that is open already is shown, not opened a second time.
    if (const std::shared_ptr<ProjectTab> open = tabOfFile(m_projectTabs, location)) {
        diagnosticLine(QStringLiteral("Already open: ") + location);
        selectProject(open->id());
        return;
    }
    // Only a start tab with no changes gives way to the opened project.
    const bool replacesStartTab = m_projectTabs.size() == 1 &&
        m_projectTabs.front()->name().startsWith(untitledPrefix) && !m_projectTabs.front()->isProjectDirty();
    const std::shared_ptr<ProjectTab> startTab = replacesStartTab ? m_projectTabs.front() : nullptr;

    newProject();
    const std::shared_ptr<ProjectTab> tab = m_selectedProjectTab;
    const QFileInfo file(location);

    const QString workspace = workingSpacePath();
    m_gate.withAccess(workspace, [&] {
        setRecentDocuments(recordRecentDocument(workspace, withTrailingSlash(file.absolutePath()), file.fileName()));
    });

    tab->setName(file.completeBaseName());
    tab->setLevelConfig({});
    tessaro::LevelsReadResult read;
    m_gate.withAccess(location, [&] { read = tessaro::readLevels(location.toStdString()); });
    tessaro::normaliseOpenedLevels(read.levels);
    tab->setLevelConfig(std::move(read.levels));
    if (!tab->levelConfig().empty())
        tab->setLevelSelected(tab->levelConfig().front().id.value_or(tessaro::Uuid::create()));
    const bool opened = !tab->levelConfig().empty();
    diagnosticLine((opened ? QStringLiteral("Success: ") : QStringLiteral("Failed to open: ")) + location);

    if (const auto& scene = tab->currentScene())
        scene->loadLevel(tab->levelSelected());
    setTabSelected(m_selectedProjectTab ? m_selectedProjectTab->id() : tab->id());

    tab->setProjectDirty(false);
    tab->refreshLevelList();
    tab->setFilePath(location);
    tab->setUnreadableFile(read.ok ? std::nullopt : std::optional<QString>(location));

    if (startTab && !m_projectTabs.empty() && m_projectTabs.front() == startTab) {
        startTab->reset();
        removeTabAt(0);
    }
}

bool SceneSettings::saveProject(const std::optional<QString>& location)
{
    const std::shared_ptr<ProjectTab> tab = m_selectedProjectTab;
    if (!tab)
        return false;
    if (location)
        tab->setFilePath(*location);
    if (!tab->filePath()) {
        diagnosticLine(QStringLiteral("Save project result: false"));
        return false;
    }
    const QString path = *tab->filePath();
    if (!location && tab->unreadableFile() == path) {
        // The file could not be read when it was opened: whatever it holds
        // stays, until the user names it again in the save panel.
        diagnosticLine(QStringLiteral("Not saved: ") + path +
                       QStringLiteral(" could not be read when it was opened and is kept as it is."));
        diagnosticLine(QStringLiteral("Save project result: false"));
        return false;
    }

    bool result = false;
    const AccessResult access = m_gate.withAccess(QFileInfo(path).absolutePath(), [&] {
        if (const auto& scene = tab->currentScene())
            scene->writeBack(tab->levelSelected());
        result = tessaro::saveLevels(tab->levelConfig(), path.toStdString());
        diagnosticLine(QStringLiteral("Save project result: ") + boolText(result));
    });
    if (!access && !result)
        diagnosticLine(QStringLiteral("Save project result: false"));
    if (result) {
        tab->setProjectDirty(false);
        tab->setUnreadableFile(std::nullopt);
        emit projectWritten(path);
    }
    return result;
}

std::optional<bool> SceneSettings::saveCommand()
{
    if (!m_selectedProjectTab || !m_selectedProjectTab->filePath())
        return std::nullopt;
    const bool saved = saveProject();
    diagnosticLine(saved ? QStringLiteral("Success save") : QStringLiteral("Failed to save"));
    return saved;
}

QString SceneSettings::duplicateProposedName() const
{
    if (!m_selectedProjectTab)
        return QString();
    const QString base = m_selectedProjectTab->filePath()
        ? QFileInfo(*m_selectedProjectTab->filePath()).completeBaseName()
        : m_selectedProjectTab->name();
    return base + QStringLiteral("_copy");
}

void SceneSettings::closeProject(const tessaro::Uuid& tabId)
{
    const auto it =
        std::find_if(m_projectTabs.begin(), m_projectTabs.end(), [&](const auto& tab) { return tab->id() == tabId; });
    if (it == m_projectTabs.end())
        return;
    const std::shared_ptr<ProjectTab> tab = *it;
    tab->reset();
    removeTabAt(std::size_t(std::distance(m_projectTabs.begin(), it)));
    if (m_projectTabs.empty())
        newProject();
    setSelectedProjectTab(m_projectTabs.front());
    setTabSelected(m_projectTabs.front()->id());
}

void SceneSettings::selectProject(const tessaro::Uuid& tabId)
{
    if (std::shared_ptr<ProjectTab> tab = findTab(tabId)) {
        setSelectedProjectTab(std::move(tab));
        setTabSelected(tabId);
    }
    setNodeListItemSelected(QString());
}

void SceneSettings::addLevel()
{
    if (m_selectedProjectTab)
        m_selectedProjectTab->addLevel();
}

void SceneSettings::moveLevelUp(const tessaro::Uuid& levelId)
{
    if (m_selectedProjectTab && !m_selectedProjectTab->moveLevel(levelId, -1))
        m_selectedProjectTab->refreshLevelList();
}

void SceneSettings::moveLevelDown(const tessaro::Uuid& levelId)
{
    if (m_selectedProjectTab && !m_selectedProjectTab->moveLevel(levelId, +1))
        m_selectedProjectTab->refreshLevelList();
}

// ---- Workspace ----------------------------------------------------------------

void SceneSettings::makeWorkspaceCurrent(const QString& rawPath, bool remember)
{
    if (rawPath.isEmpty())
        return;
    const QString path = withTrailingSlash(rawPath);
    StoreSnapshot snapshot;
    m_gate.withAccess(path, [&] { snapshot = readWorkspaceStore(path); });
    setRecentDocuments(std::move(snapshot.recentDocuments));
    tessaro::globalAppConfig() = snapshot.settings;

    setWorkingSpacePathValue(path);
    if (remember)
        userDefaults().setValue(QStringLiteral("workingSpacePath"), path);
    m_catalogues.load(path);
    if (m_windowAppeared)
        loadFileLists();
    emit workingSpacePathChanged();
    // Open levels are laid again, so they show the new workspace's elements;
    // items it has no catalogue entry for stay in the level, unshown.
    layOpenLevelsAgain();
}

void SceneSettings::layOpenLevelsAgain()
{
    for (const auto& tab : m_projectTabs)
        if (tab->currentScene())
            tab->switchLevel(tab->levelSelected());
}

void SceneSettings::reloadCatalogues()
{
    m_catalogues.load(workingSpacePath());
    emit cataloguesReloaded();
    layOpenLevelsAgain();
}

void SceneSettings::setWorkingSpace(const QString& path)
{
    makeWorkspaceCurrent(path, true);
}

void SceneSettings::loadFileLists()
{
    const QString workspace = workingSpacePath();
    WorkspaceFileLists lists;
    m_gate.withAccess(workspace, [&] { lists = scanWorkspaceFiles(workspace); });
    m_audioList = std::move(lists.audio);
    emit audioListChanged();
    m_imageList = std::move(lists.images);
    emit imageListChanged();
}

void SceneSettings::mainWindowAppeared()
{
    m_windowAppeared = true;
    loadFileLists();
    for (std::size_t i = m_projectTabs.size(); i-- > 0;) {
        if (m_projectTabs[i]->name() == initializationName) {
            m_projectTabs[i]->reset();
            removeTabAt(i);
        }
    }
    newProject();
}

bool SceneSettings::updateSetting(SettingsNames name, const QString& value)
{
    const QString workspace = workingSpacePath();
    bool ok = false;
    m_gate.withAccess(workspace, [&] { ok = updateStoredSetting(workspace, name, value); });
    return ok;
}

void SceneSettings::resetSettings()
{
    const QString workspace = workingSpacePath();
    m_gate.withAccess(workspace, [&] { tessaro::globalAppConfig() = resetStoredSettings(workspace); });
}

// ---- View -----------------------------------------------------------------------

void SceneSettings::setZoom(const QString& zoom)
{
    const double factor = tessaro::parseNumber(zoom.toStdString()).value_or(1.0);
    tessaro::SizeValue base{800, 400};
    if (m_selectedProjectTab && m_selectedProjectTab->currentScene())
        base = m_selectedProjectTab->currentScene()->size();
    setScrollerViewSize({base.width * factor, base.height * factor});
    diagnosticLine(QStringLiteral("new value: ") + zoom + QStringLiteral("  scrollerViewSize: ") +
                   sizeDescription(m_scrollerViewSize));
}

void SceneSettings::setDeviceSize(tessaro::deviceName device, tessaro::SizeValue size)
{
    for (SceneSizes& entry : m_sceneSizesList) {
        if (tessaro::deviceRawText(entry.name) == tessaro::deviceRawText(device)) {
            entry.size = size;
            emit sceneSizesListChanged();
            return;
        }
    }
}

void SceneSettings::showInFinder()
{
    QString path;
    if (m_selectedProjectTab && m_selectedProjectTab->filePath())
        path = *m_selectedProjectTab->filePath();
    // Without a file, the empty path stands for the current folder.
    m_revealer(path.isEmpty() ? QDir::currentPath() : path);
}

void SceneSettings::clearRecentDocuments()
{
    const QString workspace = workingSpacePath();
    m_gate.withAccess(workspace, [&] { clearRecentDocumentStore(workspace); });
    setRecentDocuments({});
}

} // namespace stagewright
