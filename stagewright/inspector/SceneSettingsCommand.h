// The step of a project's history that changes the orientation, scale mode,
// size or anchor point of a level's scene. It keeps the four values before
// and after and sets them on the level's scene and the tab's bound values.
#pragma once

#include "SceneSizeSelection.h"

#include <stagewright/state/HistoryStep.h>

#include <tessaro/model/Uuid.h>

#include <QPointer>

namespace stagewright {

class ProjectTab;

/// Merge ids of the scene settings that a stepper changes.
namespace sceneSettingsMergeId {
inline constexpr int size = 3500;
inline constexpr int anchorPoint = 3501;
} // namespace sceneSettingsMergeId

class SceneSettingsCommand : public HistoryStep {
public:
    /// Sets the values of the tab's shown level to `after`; steps with the
    /// same `mergeId` (-1 for none) on the same level join.
    SceneSettingsCommand(ProjectTab& tab, SceneSettingsValues after, const QString& text, int mergeId = -1);
    void redoStep() override;
    void undo() override;
    int id() const override { return m_mergeId; }
    bool mergeWith(const QUndoCommand* other) override;

private:
    void show(const SceneSettingsValues& values);

    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    SceneSettingsValues m_before;
    SceneSettingsValues m_after;
    int m_mergeId;
    bool m_done = false;
};

} // namespace stagewright
