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

ProjectTab::ProjectTab(const tessaro::Uuid& id, const QString& name, SceneSettings* owner)
    : m_owner(owner),
      m_id(id),
      m_name(name)
{
    connect(&m_document, &LevelDocument::levelsChanged, this, &ProjectTab::levelConfigChanged);
    connect(&m_document, &LevelDocument::levelChanged, this, &ProjectTab::levelConfigChanged);
    takeSceneValuesFromConfig();
    m_currentScene = makeScene();
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &ProjectTab::refreshDirty);
}

ProjectTab::~ProjectTab()
{
    if (m_currentScene) {
        if (SceneHost* host = m_currentScene->host())
            host->presentScene(nullptr);
    }
}

std::shared_ptr<LevelScene> ProjectTab::makeScene()
{
    if (!m_owner || !m_owner->sceneFactory())
        return nullptr;
    return m_owner->sceneFactory()(*this, sceneSetupFromConfig());
}

void ProjectTab::takeSceneValuesFromConfig()
{
    const SceneSetup setup = sceneSetupFromConfig();
    setSelectedAnchorPoint(setup.anchorPoint);
    setSelectedScaleMode(setup.scaleMode);
    setSelectedSceneOrientation(setup.orientation);
    setSelectedSceneSize(setup.size);
}

void ProjectTab::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
}

void ProjectTab::setFilePath(const std::optional<QString>& path)
{
    if (path == m_filePath)
        return;
    m_filePath = path;
    emit filePathChanged();
}

void ProjectTab::setLevelConfig(std::vector<tessaro::Level> levels)
{
    m_document.replaceLevels(std::move(levels));
}

void ProjectTab::setLevelSelected(const tessaro::Uuid& id)
{
    if (id == m_levelSelected)
        return;
    m_levelSelected = id;
    emit levelSelectedChanged();
}

void ProjectTab::setSelectedObject(SelectedObjectModel model)
{
    m_selectedObject = std::move(model);
    emit selectedObjectChanged();
}

void ProjectTab::setSelectedDeviceObject(SelectedDeviceModel model)
{
    m_selectedDeviceObject = std::move(model);
    emit selectedDeviceObjectChanged();
}

void ProjectTab::setSelectedAnimationObject(SelectedAnimationModel model)
{
    m_selectedAnimationObject = std::move(model);
    emit selectedAnimationObjectChanged();
}

void ProjectTab::setSelectedLevelExtendedProperties(SelectedLevelExtendedPropertiesModel model)
{
    m_selectedLevelExtendedProperties = std::move(model);
    emit selectedLevelExtendedPropertiesChanged();
}

void ProjectTab::setSelectedSceneSize(tessaro::SizeValue size)
{
    if (size == m_selectedSceneSize)
        return;
    m_selectedSceneSize = size;
    emit selectedSceneSizeChanged();
}

void ProjectTab::setSelectedScaleMode(sceneScaleMode mode)
{
    if (mode == m_selectedScaleMode)
        return;
    m_selectedScaleMode = mode;
    emit selectedScaleModeChanged();
}

void ProjectTab::setSelectedSceneOrientation(tessaro::sceneOrientationType orientation)
{
    if (orientation == m_selectedSceneOrientation)
        return;
    m_selectedSceneOrientation = orientation;
    emit selectedSceneOrientationChanged();
}

void ProjectTab::setSelectedAnchorPoint(tessaro::PointValue anchor)
{
    if (anchor == m_selectedAnchorPoint)
        return;
    m_selectedAnchorPoint = anchor;
    emit selectedAnchorPointChanged();
}

void ProjectTab::setCurrentScene(std::shared_ptr<LevelScene> scene)
{
    if (scene == m_currentScene)
        return;
    m_currentScene = std::move(scene);
    emit currentSceneChanged();
}

void ProjectTab::setScenePosition(tessaro::PointValue position)
{
    if (position == m_scenePosition)
        return;
    m_scenePosition = position;
    emit scenePositionChanged();
}

void ProjectTab::setProjectDirty(bool dirty)
{
    m_changedOutsideHistory = dirty;
    if (!dirty)
        m_undoStack.setClean();
    refreshDirty();
}

void ProjectTab::refreshDirty()
{
    if (isProjectDirty() == m_isProjectDirty)
        return;
    m_isProjectDirty = isProjectDirty();
    emit isProjectDirtyChanged();
}

void ProjectTab::setBackgroundElementsHidden(bool hidden)
{
    if (hidden == m_backgroundElementsHidden)
        return;
    m_backgroundElementsHidden = hidden;
    emit backgroundElementsHiddenChanged();
}

void ProjectTab::setElementPhase(SelectionPhase phase)
{
    if (phase == m_elementPhase)
        return;
    m_elementPhase = phase;
    emit elementPhaseChanged();
}

void ProjectTab::setScaledValue(const QString& value)
{
    if (value == m_scaledValue)
        return;
    m_scaledValue = value;
    emit scaledValueChanged();
}

void ProjectTab::resetSelectionModels()
{
    setSelectedObject({});
    setSelectedDeviceObject({});
    setSelectedAnimationObject({});
    setSelectedLevelExtendedProperties({});
}

void ProjectTab::switchLevel(const tessaro::Uuid& id)
{
    resetSelectionModels();
    setElementPhase(SelectionPhase::NotSelected);

    const std::shared_ptr<LevelScene> old = m_currentScene;
    SceneHost* host = old ? old->host() : nullptr;
    if (old) {
        old->writeBack(m_levelSelected);
        old->releaseContent();
    }
    presentLevel(id, host);
}

bool ProjectTab::showLevel(const tessaro::Uuid& id)
{
    if (m_levelSelected == id)
        return true;
    if (!findLevel(id))
        return false;
    switchLevel(id);
    return true;
}

void ProjectTab::replaceLevels(std::vector<tessaro::Level> levels)
{
    resetSelectionModels();
    setElementPhase(SelectionPhase::NotSelected);

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

void ProjectTab::presentLevel(const tessaro::Uuid& id, SceneHost* host)
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

void ProjectTab::deleteLevel(const tessaro::Uuid& id)
{
    pushStep(m_undoStack, new DeleteLevelCommand(*this, id));
}

void ProjectTab::addLevel()
{
    pushStep(m_undoStack, new AddLevelCommand(*this));
}

bool ProjectTab::moveLevel(const tessaro::Uuid& id, int direction)
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

void ProjectTab::refreshLevelList()
{
    m_levelListDropdownValues.clear();
    m_levelListDropdownValues.reserve(levelConfig().size());
    for (const tessaro::Level& level : levelConfig()) {
        const tessaro::Uuid tag = level.id.value_or(tessaro::Uuid::create());
        m_levelListDropdownValues.push_back({QStringLiteral("Scene: ") + QString::fromStdString(tag.text()), tag});
    }
    emit levelListDropdownValuesChanged();
}

void ProjectTab::dropScene()
{
    if (!m_currentScene)
        return;
    const std::shared_ptr<LevelScene> scene = m_currentScene;
    setCurrentScene(nullptr);
    if (SceneHost* host = scene->host())
        host->presentScene(nullptr);
    scene->releaseContent();
}

void ProjectTab::reset()
{
    takeSceneValuesFromConfig();
    dropScene();
    m_levelListDropdownValues.clear();
    emit levelListDropdownValuesChanged();
    m_document.replaceLevels({});
    resetSelectionModels();
    setElementPhase(SelectionPhase::None);
}

} // namespace stagewright
