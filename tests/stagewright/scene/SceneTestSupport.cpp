#include "SceneTestSupport.h"

#include <stagewright/scene/ScenePictures.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QDir>
#include <QImage>

namespace stagewright::test {

SceneWorkspace::SceneWorkspace() : m_path(m_dir.path() + QLatin1Char('/'))
{
    for (tessaro::sceneObjectType kind : tessaro::allCases<tessaro::sceneObjectType>())
        if (kind != tessaro::sceneObjectType::none)
            QDir().mkpath(kindImageFolder(m_path, kind));
    QDir().mkpath(extrasFolder(m_path));
    tessaro::globalAppConfig() = {};
    tessaro::globalAppConfig().base.defaultImageScale = tessaro::imageScaling::x1;
    tessaro::obstacleCatalogue().clear();
    tessaro::characterCatalogue().clear();
    tessaro::objectCatalogue().clear();
    setWorkingSpacePathValue(m_path);
    SceneImageCache::shared().clear();
    ComposedPictureCache::shared().clear();
    placeholder(16, 16);
}

SceneWorkspace::~SceneWorkspace()
{
    SceneImageCache::shared().clear();
    ComposedPictureCache::shared().clear();
    setWorkingSpacePathValue(QString());
    tessaro::obstacleCatalogue().clear();
    tessaro::characterCatalogue().clear();
    tessaro::objectCatalogue().clear();
    tessaro::globalAppConfig() = {};
}

void SceneWorkspace::image(tessaro::sceneObjectType kind, const QString& name, int width, int height, QColor color)
{
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(color);
    picture.save(kindImageFolder(m_path, kind) + name + QStringLiteral(".png"), "PNG");
}

void SceneWorkspace::placeholder(int width, int height)
{
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(QColor(255, 0, 255));
    picture.save(extrasFolder(m_path) + QStringLiteral("placeholder.png"), "PNG");
}

tessaro::DeviceProperties defaultEntry(const std::string& position, const std::string& size, const std::string& offset)
{
    tessaro::DeviceProperties entry;
    entry.deviceName = "defaultDevice";
    if (!position.empty())
        entry.position = position;
    if (!size.empty())
        entry.size = size;
    if (!offset.empty())
        entry.offset = offset;
    return entry;
}

std::vector<tessaro::DeviceProperties> at(const std::string& position, const std::string& size,
                                          const std::string& offset)
{
    return {defaultEntry(position, size, offset)};
}

tessaro::Obstacle obstacleTemplate(const std::string& name, const std::string& image, const std::string& size)
{
    tessaro::Obstacle record;
    record.id = tessaro::Uuid::create();
    record.elementName = name;
    record.sceneObjectType = "obstacles";
    record.image = image;
    record.devices = at({}, size);
    return record;
}

tessaro::Character characterTemplate(const std::string& name, const std::string& image, const std::string& size)
{
    tessaro::Character record;
    record.id = tessaro::Uuid::create();
    record.elementName = name;
    record.sceneObjectType = "character";
    record.image = image;
    record.devices = at({}, size);
    return record;
}

tessaro::GenericObject objectTemplate(const std::string& name, const std::string& image, tessaro::sceneObjectType type,
                                      const std::string& size)
{
    tessaro::GenericObject record;
    record.id = tessaro::Uuid::create();
    record.elementName = name;
    record.image = image;
    record.sceneObjectType = std::string(tessaro::caseText(type));
    if (!size.empty())
        record.devices = at({}, size);
    return record;
}

tessaro::GroundSection tileSection(const std::string& image, const std::string& size, std::int64_t repeatCount)
{
    tessaro::GroundSection section;
    section.id = tessaro::Uuid::create();
    section.image = image;
    section.groundType = "Ground";
    if (repeatCount)
        section.repeatCount = repeatCount;
    section.zPosition = 50;
    section.devices = at({}, size);
    return section;
}

tessaro::GroundSection hazardSection(const std::string& type, const std::string& distance, const std::string& size)
{
    tessaro::GroundSection section;
    section.id = tessaro::Uuid::create();
    section.groundType = type;
    if (!distance.empty())
        section.distance = distance;
    section.zPosition = 50;
    section.devices = at({}, size);
    return section;
}

tessaro::Level emptyLevel()
{
    tessaro::Level level;
    level.id = tessaro::Uuid::create();
    level.settings.scaleMode = "aspectFill";
    level.settings.sceneOrientation = "landscape";
    level.settings.size = "{874.0,402.0}";
    level.settings.anchorPoint = "{0.5,0.5}";
    return level;
}

LoadedLevel::LoadedLevel(tessaro::Level level, tessaro::SizeValue sceneSize, CanvasHooks hooks)
    : tab(tessaro::Uuid::create(), QStringLiteral("Test")),
      id(*level.id)
{
    tab.setLevelConfig({std::move(level)});
    tab.setLevelSelected(id);
    SceneSetup setup;
    setup.size = sceneSize;
    scene = SceneEditor::create(&tab, setup, std::move(hooks));
    scene->loadLevel(id);
}

LoadedLevel::~LoadedLevel()
{
    scene->clearScene(false);
}

const tessaro::Level& LoadedLevel::saved()
{
    scene->writeBack(id);
    return level();
}

std::vector<ElementNodePtr> elements(const tessaro::kit::NodePtr& layer)
{
    return SceneEditor::elementsOf(layer);
}

} // namespace stagewright::test
