#include "ShellTestSupport.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/ValueText.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>

namespace stagewright::test {

// ---- Dialogs ----------------------------------------------------------------------

namespace {
template <class T>
T take(std::deque<T>& queue, T otherwise)
{
    if (queue.empty())
        return otherwise;
    T value = queue.front();
    queue.pop_front();
    return value;
}
} // namespace

std::optional<QString> ScriptedDialogs::chooseFolder(const FolderPanel& panel)
{
    folderPanels.push_back(panel);
    return take(folders, std::optional<QString>());
}

std::optional<QString> ScriptedDialogs::chooseProjectToOpen(const QString& directory)
{
    openDirectories << directory;
    return take(projectsToOpen, std::optional<QString>());
}

std::optional<QString> ScriptedDialogs::chooseSaveLocation(const QString& directory, const QString& proposedName)
{
    saveRequests.push_back({directory, proposedName});
    return take(saveLocations, std::optional<QString>());
}

std::optional<QString> ScriptedDialogs::chooseMoveDestination(const QString&)
{
    return take(moveDestinations, std::optional<QString>());
}

bool ScriptedDialogs::confirmDiscardChanges()
{
    ++discardQuestions;
    return take(discardAnswers, false);
}

bool ScriptedDialogs::confirmReloadChangedProject(const QString& name)
{
    reloadQuestions << name;
    return take(reloadAnswers, false);
}

bool ScriptedDialogs::confirmDeleteScene()
{
    ++deleteQuestions;
    return take(deleteAnswers, false);
}

void ScriptedDialogs::reportFailure(const QString& message, const QString& detail)
{
    failures << message + QLatin1Char(' ') + detail;
}

// ---- Scene --------------------------------------------------------------------------

BlockScene::BlockScene(ProjectTab& tab, const SceneSetup& setup, std::shared_ptr<QStringList> log)
    : tessaro::kit::Scene(QSizeF(setup.size.width, setup.size.height)),
      m_tab(tab),
      m_log(std::move(log)),
      m_scaleMode(setup.scaleMode),
      m_orientation(setup.orientation)
{
    setAnchorPoint(setup.anchorPoint);
    setBackgroundColor(QColor(setup.backgroundColor.red, setup.backgroundColor.green, setup.backgroundColor.blue));
}

namespace {
int levelIndex(const ProjectTab& tab, const tessaro::Uuid& id)
{
    const auto& levels = tab.levelConfig();
    for (std::size_t i = 0; i < levels.size(); ++i)
        if (levels[i].id == id)
            return int(i);
    return -1;
}
} // namespace

void BlockScene::loadLevel(const tessaro::Uuid& levelId)
{
    loaded = levelId;
    removeAllChildren();
    const int index = levelIndex(m_tab, levelId);
    *m_log << QStringLiteral("load %1").arg(index);
    if (index < 0)
        return;
    const tessaro::Level& level = m_tab.levelConfig()[std::size_t(index)];
    if (level.settings.size)
        setSize(tessaro::sizeFromText(*level.settings.size));
    auto background = tessaro::kit::Node::create();
    background->setName(QStringLiteral("backgroundNodes"));
    background->addChild(tessaro::kit::SpriteNode::create(QColor(120, 170, 230), tessaro::kit::Scene::size()));
    addChild(background);
    auto obstacles = tessaro::kit::Node::create();
    obstacles->setName(QStringLiteral("obstacleNodes"));
    obstacles->setZPosition(1);
    for (const tessaro::ObstacleLevelItem& item : level.obstacles.value_or(std::vector<tessaro::ObstacleLevelItem>{})) {
        auto block = tessaro::kit::SpriteNode::create(QColor(90, 90, 90), QSizeF(40, 40));
        if (item.properties && item.properties->devices && !item.properties->devices->empty())
            if (const auto& position = item.properties->devices->front().position) {
                const tessaro::PointValue p = tessaro::pointFromText(*position);
                block->setPosition(p.x, p.y);
            }
        obstacles->addChild(block);
    }
    addChild(obstacles);
}

int BlockScene::blocks() const
{
    const auto layer = childNodeWithName(QStringLiteral("obstacleNodes"));
    return layer ? int(layer->children().size()) : 0;
}

void BlockScene::writeBack(const tessaro::Uuid& levelId)
{
    *m_log << QStringLiteral("write %1").arg(levelIndex(m_tab, levelId));
}

tessaro::SizeValue BlockScene::size() const
{
    const QSizeF size = tessaro::kit::Scene::size();
    return {size.width(), size.height()};
}

void BlockScene::setSize(tessaro::SizeValue size)
{
    tessaro::kit::Scene::setSize(QSizeF(size.width, size.height));
}

tessaro::PointValue BlockScene::anchorPoint() const
{
    const QPointF anchor = tessaro::kit::Scene::anchorPoint();
    return {anchor.x(), anchor.y()};
}

void BlockScene::setAnchorPoint(tessaro::PointValue anchor)
{
    tessaro::kit::Scene::setAnchorPoint(QPointF(anchor.x, anchor.y));
}

void BlockScene::releaseContent()
{
    removeAllChildren();
}

SceneFactory blockSceneFactory(std::shared_ptr<QStringList> log)
{
    return [log](ProjectTab& tab, const SceneSetup& setup) -> std::shared_ptr<LevelScene> {
        return std::make_shared<BlockScene>(tab, setup, log);
    };
}

// ---- Projects ---------------------------------------------------------------------------

std::vector<tessaro::Level> makeLevels(int count)
{
    std::vector<tessaro::Level> levels;
    for (int i = 0; i < count; ++i) {
        tessaro::Level level = tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults());
        level.settings.size = tessaro::textFromPair(1000 + 100 * i, 500);
        for (int crate = 0; crate <= i; ++crate) {
            tessaro::ObstacleLevelItem item;
            item.elementName = "Crate";
            item.name = "Crate " + std::to_string(crate + 1);
            item.zPosition = 10;
            tessaro::Obstacle& properties = item.properties.emplace();
            tessaro::DeviceProperties device;
            device.deviceName = "defaultDevice";
            device.position = tessaro::textFromPair(-200 + 60 * crate, 0);
            properties.devices = std::vector<tessaro::DeviceProperties>{device};
            level.obstacles->push_back(item);
        }
        levels.push_back(level);
    }
    return levels;
}

QString writeProject(const QString& path, int levels)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    EXPECT_TRUE(tessaro::saveLevels(makeLevels(levels), path.toStdString()));
    return path;
}

std::vector<tessaro::Level> readProject(const QString& path)
{
    return tessaro::loadLevels(path.toStdString());
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// ---- Fixture ------------------------------------------------------------------------------

void ShellFixture::SetUp()
{
    home = std::make_unique<ScratchHome>();
    tessaro::globalAppConfig() = {};
    PermissionManager::shared().setChooser(
        [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    settings = std::make_unique<SceneSettings>(PermissionManager::shared());
    settings->setSceneFactory(blockSceneFactory(sceneLog));
    preferences = std::make_unique<AppPreferences>(*settings);
    windows = std::make_unique<WindowManager>(*settings, *preferences);
    commands = std::make_unique<Commands>(*settings, dialogs, windows.get());
    commands->setUrlOpener([this](const QUrl& url) {
        openedUrls.push_back(url);
        return true;
    });
    settings->setFileRevealer([this](const QString& path) { openedUrls.push_back(QUrl::fromLocalFile(path)); });
    commands->setFilesToOpen(startFiles);
    window = std::make_unique<MainWindow>(*settings, *commands, windows.get());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
}

void ShellFixture::TearDown()
{
    window.reset();
    commands.reset();
    windows.reset();
    preferences.reset();
    settings.reset();
    settle();
    home.reset();
}

QStringList ShellFixture::tabNames() const
{
    QStringList names;
    for (const auto& tab : settings->projectTabs())
        names << tab->name();
    return names;
}

QString ShellFixture::project(const QString& name, int levels)
{
    return writeProject(home->folder(QStringLiteral("projects")) + QLatin1Char('/') + name, levels);
}

QAction* ShellFixture::action(const QString& title) const
{
    QAction* found = window->action(title);
    EXPECT_NE(found, nullptr) << title.toStdString();
    return found;
}

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace stagewright::test
