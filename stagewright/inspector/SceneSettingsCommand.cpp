#include "SceneSettingsCommand.h"

#include <stagewright/state/ProjectTab.h>

namespace stagewright {

namespace {

/// The scene of the tab showing `levelId`, which it switches to when another
/// level is shown; null when the tab, the level or the scene is gone.
LevelScene* showing(ProjectTab* tab, const tessaro::Uuid& levelId)
{
    if (!tab || !tab->showLevel(levelId))
        return nullptr;
    return tab->currentScene().get();
}

} // namespace

SceneSettingsCommand::SceneSettingsCommand(ProjectTab& tab, SceneSettingsValues after, const QString& text, int mergeId)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_after(after),
      m_mergeId(mergeId)
{
    setText(text);
}

void SceneSettingsCommand::redoStep()
{
    if (!m_done) {
        const LevelScene* scene = showing(m_tab, m_levelId);
        if (!scene) {
            setObsolete(true);
            return;
        }
        m_before = {scene->size(), scene->anchorPoint(), scene->scaleMode(), scene->orientation()};
        m_done = true;
        if (m_before == m_after) {
            setObsolete(true);
            return;
        }
    }
    show(m_after);
}

void SceneSettingsCommand::undo()
{
    show(m_before);
}

bool SceneSettingsCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const SceneSettingsCommand*>(other);
    if (!later || later->m_tab != m_tab || later->m_levelId != m_levelId)
        return false;
    m_after = later->m_after;
    setObsolete(m_after == m_before);
    return true;
}

void SceneSettingsCommand::show(const SceneSettingsValues& values)
{
    LevelScene* scene = showing(m_tab, m_levelId);
    if (!scene)
        return;
    scene->setOrientation(values.orientation);
    scene->setSize(values.size);
    scene->setAnchorPoint(values.anchorPoint);
    scene->setScaleMode(values.scaleMode);
    scene->updateOverlays();
    m_tab->setSelectedSceneOrientation(values.orientation);
    m_tab->setSelectedScaleMode(values.scaleMode);
    m_tab->setSelectedAnchorPoint(values.anchorPoint);
    m_tab->setSelectedSceneSize(values.size);
}

} // namespace stagewright
