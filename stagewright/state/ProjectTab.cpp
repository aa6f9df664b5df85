#include "ProjectTab.h"

#include "ElementHandles.h"
#include "LevelCommands.h"
#include "SceneSettings.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/LevelRecords.h>

#include <algorithm>

namespace stagewright {

SceneSetup sceneSetupFromConfig()
{
    const tessaro::BaseConfig& config = tessaro::globalAppConfig().base;
    SceneSetup setup;
    setup.anchorPoint = config.defaultAnchorPoint;
    setup.scaleMode = sceneScaleModeFromText(config.defaultScaleMode);
    setup.orientation = config.defaultSceneOrientation;
    setup.size = config.defaultSceneSize;
    return setup;
}

projectTab::projectTab(const tessaro::Uuid& id, const QString& name, SceneSettings* owner)
    : m_owner(owner),
      m_id(id),
      m_name(name)
{
    connect(&m_document, &LevelDocument::levelsChanged, this, &projectTab::levelConfigChanged);
    connect(&m_document, &LevelDocument::levelChanged, this, &projectTab::levelConfigChanged);
    takeSceneValuesFromConfig();
    m_currentScene = makeScene();
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &projectTab::refreshDirty);
}

projectTab::~projectTab()
{
    if (m_currentScene) {
        if (SceneHost* host = m_currentScene->host())
            host->presentScene(nullptr);
    }
}

std::shared_ptr<LevelScene> projectTab::makeScene()
{
    if (!m_owner || !m_owner->sceneFactory())
        return nullptr;
    return m_owner->sceneFactory()(*this, sceneSetupFromConfig());
}

void projectTab::takeSceneValuesFromConfig()
{
    const SceneSetup setup = sceneSetupFromConfig();
    setSelectedAnchorPoint(setup.anchorPoint);
    setSelectedScaleMode(setup.scaleMode);
    setSelectedSceneOrientation(setup.orientation);
    setSelectedSceneSize(setup.size);
}

void projectTab::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
}

void projectTab::setFilePath(const std::optional<QString>& path)
{
    if (path == m_filePath)
        return;
    m_filePath = path;
    emit filePathChanged();
}

void projectTab::setLevelConfig(std::vector<tessaro::Level> levels)
{
    m_document.replaceLevels(std::move(levels));
}

void projectTab::setLevelSelected(const tessaro::Uuid& id)
{
    if (id == m_levelSelected)
        return;
    m_levelSelected = id;
    emit levelSelectedChanged();
}

void projectTab::setSelectedObject(selectedObjectModel model)
{
    m_selectedObject = std::move(model);
    emit selectedObjectChanged();
}

void projectTab::setSelectedDeviceObject(selectedDeviceModel model)
{
    m_selectedDeviceObject = std::move(model);
    emit selectedDeviceObjectChanged();
}

void projectTab::setSelectedAnimationObject(selectedAnimationModel model)
{
    m_selectedAnimationObject = std::move(model);
    emit selectedAnimationObjectChanged();
}

void projectTab::setSelectedLevelExtendedProperties(selectedLevelExtendedPropertiesModel model)
{
    m_selectedLevelExtendedProperties = std::move(model);
    emit selectedLevelExtendedPropertiesChanged();
}

void projectTab::setSelectedSceneSize(tessaro::SizeValue size)
{
    if (size == m_selectedSceneSize)
        return;
    m_selectedSceneSize = size;
    emit selectedSceneSizeChanged();
}

void projectTab::setSelectedScaleMode(sceneScaleMode mode)
{
    if (mode == m_selectedScaleMode)
        return;
    m_selectedScaleMode = mode;
    emit selectedScaleModeChanged();
}

void projectTab::setSelectedSceneOrientation(tessaro::sceneOrientationType orientation)
{
    if (orientation == m_selectedSceneOrientation)
        return;
    m_selectedSceneOrientation = orientation;
    emit selectedSceneOrientationChanged();
}

void projectTab::setSelectedAnchorPoint(tessaro::PointValue anchor)
{
    if (anchor == m_selectedAnchorPoint)
        return;
    m_selectedAnchorPoint = anchor;
    emit selectedAnchorPointChanged();
}

void projectTab::setCurrentScene(std::shared_ptr<LevelScene> scene)
{
    if (scene == m_currentScene)
        return;
    m_currentScene = std::move(scene);
    emit currentSceneChanged();
}

void projectTab::setScenePosition(tessaro::PointValue position)
{
    if (position == m_scenePosition)
        return;
    m_scenePosition = position;
    emit scenePositionChanged();
}

void projectTab::setProjectDirty(bool dirty)
{
    m_changedOutsideHistory = dirty;
    if (!dirty)
        m_undoStack.setClean();
    refreshDirty();
}

void projectTab::refreshDirty()
{
    if (isProjectDirty() == m_isProjectDirty)
        return;
    m_isProjectDirty = isProjectDirty();
    emit isProjectDirtyChanged();
}

void projectTab::setBackgroundElementsHidden(bool hidden)
{
    if (hidden == m_backgroundElementsHidden)
        return;
    m_backgroundElementsHidden = hidden;
    emit backgroundElementsHiddenChanged();
}

void projectTab::setElementPhase(selectionPhase phase)
{
    if (phase == m_elementPhase)
        return;
    m_elementPhase = phase;
    emit elementPhaseChanged();
}

void projectTab::setScaledValue(const QString& value)
{
    if (value == m_scaledValue)
        return;
    m_scaledValue = value;
    emit scaledValueChanged();
}

void projectTab::resetSelectionModels()
{
    setSelectedObject({});
    setSelectedDeviceObject({});
    setSelectedAnimationObject({});
    setSelectedLevelExtendedProperties({});
}

void projectTab::switchLevel(const tessaro::Uuid& id)
{
    resetSelectionModels();
    setElementPhase(selectionPhase::NotSelected);

    const std::shared_ptr<LevelScene> old = m_currentScene;
    SceneHost* host = old ? old->host() : nullptr;
    if (old) {
        old->writeBack(m_levelSelected);
        old->releaseContent();
    }
    presentLevel(id, host);
}

bool projectTab::showLevel(const tessaro::Uuid& id)
{
    if (m_levelSelected == id)
        return true;
    if (!findLevel(id))
        return false;
    switchLevel(id);
    return true;
}

void projectTab::replaceLevels(std::vector<tessaro::Level> levels)
{
    resetSelectionModels();
    setElementPhase(selectionPhase::NotSelected);

    // The canvas's copy of the old level goes without being written back,
    // and the history speaks of records that are no longer there.
    const std::shared_ptr<LevelScene> old = m_currentScene;
    SceneHost* host = old ? old->host() : nullptr;
    if (old)
        old->releaseContent();
    m_undoStack.clear();
    const tessaro::Uuid shown = m_levelSelected;
    setLevelConfig(std::move(levels));
    tessaro::Uuid next = shown;
    if (!findLevel(shown) && !levelConfig().empty())
        next = levelConfig().front().id.value_or(shown);
    presentLevel(next, host);
    refreshLevelList();
    setProjectDirty(false);
}

void projectTab::presentLevel(const tessaro::Uuid& id, SceneHost* host)
{
    setLevelSelected(id);
    setCurrentScene(nullptr);

    if (host)
        host->presentScene(nullptr);
    std::shared_ptr<LevelScene> scene = makeScene();
    setCurrentScene(scene);
    if (scene && host)
        host->presentScene(scene);
    if (!scene) {
        takeSceneValuesFromConfig();
        return;
    }
    scene->loadLevel(id);
    setSelectedAnchorPoint(scene->anchorPoint());
    setSelectedScaleMode(scene->scaleMode());
    setSelectedSceneOrientation(scene->orientation());
    setSelectedSceneSize(scene->size());
    scene->setSize(m_selectedSceneSize);
    scene->setAnchorPoint(m_selectedAnchorPoint);
    scene->setScaleMode(m_selectedScaleMode);
    scene->updateOverlays();
}

void projectTab::deleteLevel(const tessaro::Uuid& id)
{
    pushStep(m_undoStack, new DeleteLevelCommand(*this, id));
}

void projectTab::addLevel()
{
    pushStep(m_undoStack, new AddLevelCommand(*this));
}

bool projectTab::moveLevel(const tessaro::Uuid& id, int direction)
{
    const std::optional<std::size_t> index = levelIndex(id);
    if (!index)
        return false;
    const auto neighbour = std::ptrdiff_t(*index) + (direction < 0 ? -1 : 1);
    if (neighbour < 0 || neighbour >= std::ssize(levelConfig()))
        return false;
    pushStep(m_undoStack, new MoveLevelCommand(*this, id, direction < 0 ? -1 : 1));
    return true;
}

void projectTab::refreshLevelList()
{
    m_levelListDropdownValues.clear();
    m_levelListDropdownValues.reserve(levelConfig().size());
    for (const tessaro::Level& level : levelConfig()) {
        const tessaro::Uuid tag = level.id.value_or(tessaro::Uuid::create());
        m_levelListDropdownValues.push_back({QStringLiteral("Scene: ") + QString::fromStdString(tag.text()), tag});
    }
    emit levelListDropdownValuesChanged();
}

void projectTab::dropScene()
{
    if (!m_currentScene)
        return;
    const std::shared_ptr<LevelScene> scene = m_currentScene;
    setCurrentScene(nullptr);
    if (SceneHost* host = scene->host())
        host->presentScene(nullptr);
    scene->releaseContent();
}

void projectTab::reset()
{
    takeSceneValuesFromConfig();
    dropScene();
    m_levelListDropdownValues.clear();
    emit levelListDropdownValuesChanged();
    m_document.replaceLevels({});
    resetSelectionModels();
    setElementPhase(selectionPhase::None);
}

} // namespace stagewright
