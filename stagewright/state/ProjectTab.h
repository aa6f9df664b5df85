// One open project: its levels, the file it came from, the scene that edits
// its selected level and the selection models of the inspectors.
#pragma once

#include "LevelDocument.h"
#include "LevelScene.h"
#include "SelectionModels.h"
#include "StateTypes.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUndoStack>

#include <memory>
#include <optional>
#include <vector>

// The levels are only named here, so that the many files that include this
// header do not compile the level records.
namespace tessaro {
struct Level;
}

namespace stagewright {

class ElementHandles;
class SceneSettings;

class ProjectTab : public QObject {
    Q_OBJECT
public:
    /// A tab of `owner`, whose scene factory builds the tab's scenes. Without
    /// an owner, or while no factory is installed, the tab has no scene.
    ProjectTab(const tessaro::Uuid& id, const QString& name, SceneSettings* owner = nullptr);
    ~ProjectTab() override;

    const tessaro::Uuid& id() const { return m_id; }

    const QString& name() const { return m_name; }
    void setName(const QString& name);

    /// None until the project has been saved or opened.
    const std::optional<QString>& filePath() const { return m_filePath; }
    void setFilePath(const std::optional<QString>& path);
    /// The file this tab failed to read when it was opened. A save without an
    /// explicit location does not write over it.
    const std::optional<QString>& unreadableFile() const { return m_unreadableFile; }
    void setUnreadableFile(const std::optional<QString>& path) { m_unreadableFile = path; }

    /// The project's levels, the only copy of their records.
    LevelDocument& document() { return m_document; }
    const LevelDocument& document() const { return m_document; }
    const std::vector<tessaro::Level>& levelConfig() const { return m_document.levels(); }
    void setLevelConfig(std::vector<tessaro::Level> levels);
    /// The first level with that id, for in-place edits; call
    /// `notifyLevelConfigChanged` after changing it.
    tessaro::Level* findLevel(const tessaro::Uuid& id) { return m_document.findLevel(id); }
    void notifyLevelConfigChanged() { emit levelConfigChanged(); }

    const tessaro::Uuid& levelSelected() const { return m_levelSelected; }
    void setLevelSelected(const tessaro::Uuid& id);

    // The selection models. The mutable accessors are for the controls that
    // edit one field; they call the matching notify function afterwards.
    const SelectedObjectModel& selectedObject() const { return m_selectedObject; }
    SelectedObjectModel& selectedObject() { return m_selectedObject; }
    void setSelectedObject(SelectedObjectModel model);
    void notifySelectedObjectChanged() { emit selectedObjectChanged(); }

    const SelectedDeviceModel& selectedDeviceObject() const { return m_selectedDeviceObject; }
    SelectedDeviceModel& selectedDeviceObject() { return m_selectedDeviceObject; }
    void setSelectedDeviceObject(SelectedDeviceModel model);
    void notifySelectedDeviceObjectChanged() { emit selectedDeviceObjectChanged(); }

    const SelectedAnimationModel& selectedAnimationObject() const { return m_selectedAnimationObject; }
    SelectedAnimationModel& selectedAnimationObject() { return m_selectedAnimationObject; }
    void setSelectedAnimationObject(SelectedAnimationModel model);
    void notifySelectedAnimationObjectChanged() { emit selectedAnimationObjectChanged(); }

    const SelectedLevelExtendedPropertiesModel& selectedLevelExtendedProperties() const
    {
        return m_selectedLevelExtendedProperties;
    }
    SelectedLevelExtendedPropertiesModel& selectedLevelExtendedProperties()
    {
        return m_selectedLevelExtendedProperties;
    }
    void setSelectedLevelExtendedProperties(SelectedLevelExtendedPropertiesModel model);

    tessaro::SizeValue selectedSceneSize() const { return m_selectedSceneSize; }
    void setSelectedSceneSize(tessaro::SizeValue size);
    sceneScaleMode selectedScaleMode() const { return m_selectedScaleMode; }
    void setSelectedScaleMode(sceneScaleMode mode);
    tessaro::sceneOrientationType selectedSceneOrientation() const { return m_selectedSceneOrientation; }
    void setSelectedSceneOrientation(tessaro::sceneOrientationType orientation);
    tessaro::PointValue selectedAnchorPoint() const { return m_selectedAnchorPoint; }
    void setSelectedAnchorPoint(tessaro::PointValue anchor);

    /// The scene that edits the selected level, or none.
    const std::shared_ptr<LevelScene>& currentScene() const { return m_currentScene; }
    void setCurrentScene(std::shared_ptr<LevelScene> scene);

    const std::vector<LevelPickerModel>& levelListDropdownValues() const { return m_levelListDropdownValues; }

    tessaro::PointValue scenePosition() const { return m_scenePosition; }
    void setScenePosition(tessaro::PointValue position);

    /// Unsaved changes exist: the history is away from the point of the last
    /// save or open, or something changed outside the history.
    bool isProjectDirty() const { return m_changedOutsideHistory || !m_undoStack.isClean(); }
    /// True marks a change made outside the history; false marks the present
    /// state as saved (the history's clean point).
    void setProjectDirty(bool dirty);

    /// The history of the project's edits. Every change to the project is a
    /// command pushed here.
    QUndoStack& undoStack() { return m_undoStack; }
    /// The session identities of the elements of the project's levels.
    ElementHandles& elementHandles() { return m_document.elementHandles(); }

    bool backgroundElementsHidden() const { return m_backgroundElementsHidden; }
    void setBackgroundElementsHidden(bool hidden);

    SelectionPhase elementPhase() const { return m_elementPhase; }
    void setElementPhase(SelectionPhase phase);

    /// The zoom shown in the toolbar, as text ("1.00").
    const QString& scaledValue() const { return m_scaledValue; }
    void setScaledValue(const QString& value);

    // ---- Operations ------------------------------------------------------

    /// Writes the scene back into the selected level, then loads the level
    /// `id` into a fresh scene. The selection models go back to their empty
    /// values.
    void switchLevel(const tessaro::Uuid& id);
    /// Makes level `id` the shown one, switching to it when another level is
    /// shown, as a step of the history does before it acts. False when the
    /// tab has no such level.
    bool showLevel(const tessaro::Uuid& id);
    /// Shows `levels` read anew from the project's file in place of the
    /// tab's: the canvas's unsaved state and the history go, the shown level
    /// stays shown while it is still there, and the tab is clean.
    void replaceLevels(std::vector<tessaro::Level> levels);
    /// Removes every level with that id, keeps at least one, shows the first.
    /// One step of the history.
    void deleteLevel(const tessaro::Uuid& id);
    /// Appends a new level with the application's defaults; one step of the
    /// history.
    void addLevel();
    /// Swaps a level with the one before (-1) or after (+1) it; the selected
    /// level stays selected. False when there is no such neighbour. One step
    /// of the history.
    bool moveLevel(const tessaro::Uuid& id, int direction);
    /// Rebuilds the level picker entries from `levelConfig`.
    void refreshLevelList();
    /// Empties the tab for closing.
    void reset();
    /// Puts the four selection models back to their empty values.
    void resetSelectionModels();

signals:
    void nameChanged();
    void filePathChanged();
    void levelConfigChanged();
    void levelSelectedChanged();
    void selectedObjectChanged();
    void selectedDeviceObjectChanged();
    void selectedAnimationObjectChanged();
    void selectedLevelExtendedPropertiesChanged();
    void selectedSceneSizeChanged();
    void selectedScaleModeChanged();
    void selectedSceneOrientationChanged();
    void selectedAnchorPointChanged();
    void currentSceneChanged();
    void levelListDropdownValuesChanged();
    void scenePositionChanged();
    void isProjectDirtyChanged();
    void backgroundElementsHiddenChanged();
    void elementPhaseChanged();
    void scaledValueChanged();

private:
    friend class AddLevelCommand;
    friend class MoveLevelCommand;
    friend class DeleteLevelCommand;

    std::shared_ptr<LevelScene> makeScene();
    void refreshDirty();
    /// The index of the first level with that id, or none.
    std::optional<std::size_t> levelIndex(const tessaro::Uuid& id) const { return m_document.levelIndex(id); }
    void takeSceneValuesFromConfig();
    void dropScene();
    /// Makes the scene of level `id` and shows it in `host`.
    void presentLevel(const tessaro::Uuid& id, SceneHost* host);

    QPointer<SceneSettings> m_owner;
    tessaro::Uuid m_id;
    QString m_name;
    std::optional<QString> m_filePath;
    std::optional<QString> m_unreadableFile;
    LevelDocument m_document;
    tessaro::Uuid m_levelSelected = tessaro::Uuid::create();
    SelectedObjectModel m_selectedObject;
    SelectedDeviceModel m_selectedDeviceObject;
    SelectedAnimationModel m_selectedAnimationObject;
    SelectedLevelExtendedPropertiesModel m_selectedLevelExtendedProperties;
    tessaro::SizeValue m_selectedSceneSize;
    sceneScaleMode m_selectedScaleMode = sceneScaleMode::aspectFill;
    tessaro::sceneOrientationType m_selectedSceneOrientation = tessaro::sceneOrientationType::landscape;
    tessaro::PointValue m_selectedAnchorPoint;
    std::shared_ptr<LevelScene> m_currentScene;
    std::vector<LevelPickerModel> m_levelListDropdownValues;
    tessaro::PointValue m_scenePosition;
    QUndoStack m_undoStack;
    bool m_changedOutsideHistory = false;
    bool m_isProjectDirty = false; // as last announced
    bool m_backgroundElementsHidden = false;
    SelectionPhase m_elementPhase = SelectionPhase::NotSelected;
    QString m_scaledValue = QStringLiteral("1.00");
};

/// The set-up of a new scene from the application's configuration.
SceneSetup sceneSetupFromConfig();

} // namespace stagewright
