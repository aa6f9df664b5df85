#include "LevelPropertyCommand.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>

#include <QCoreApplication>

namespace stagewright {

namespace {

QString fieldTitle(int selector)
{
    switch (selector) {
    case levelField::startArtifactNumber:
        return QCoreApplication::translate("LevelPropertyCommand", "Start Artifact Number");
    case levelField::startCoinNumber: return QCoreApplication::translate("LevelPropertyCommand", "Start Coin Number");
    case levelField::soundEffects: return QCoreApplication::translate("LevelPropertyCommand", "Sounds");
    case levelField::image: return QCoreApplication::translate("LevelPropertyCommand", "Image");
    case levelField::repeatDistance: return QCoreApplication::translate("LevelPropertyCommand", "Repeat Distance");
    case levelField::animateFromImage: return QCoreApplication::translate("LevelPropertyCommand", "Animate at Image");
    default: return {};
    }
}

std::size_t soundCount(const std::optional<levelPropertyValue>& value)
{
    const auto* sounds = value ? std::get_if<std::vector<tessaro::GameSound>>(&*value) : nullptr;
    return sounds ? sounds->size() : 0;
}

} // namespace

LevelPropertyCommand::LevelPropertyCommand(projectTab& tab, const tessaro::Uuid& levelId, tessaro::sceneObjectType kind,
                                           int selector, levelPropertyValue value)
    : m_tab(&tab),
      m_levelId(levelId),
      m_kind(kind),
      m_selector(selector),
      m_value(std::move(value))
{
    setText(QCoreApplication::translate("LevelPropertyCommand", "Change %1 %2")
                .arg(QString::fromUtf8(tessaro::caseText(kind)), fieldTitle(selector)));
}

void LevelPropertyCommand::redoStep()
{
    if (m_done) {
        show(m_after);
        return;
    }
    tessaro::Level* level = m_tab ? m_tab->findLevel(m_levelId) : nullptr;
    const auto shown = level ? levelProperty(*level, m_kind, m_selector) : std::nullopt;
    // An absent sub-record, a value it already holds, or a value of another
    // type: nothing to write.
    if (!shown || *shown == m_value) {
        setObsolete(true);
        return;
    }
    m_before = *storedLevelProperty(*level, m_kind, m_selector);
    if (!writeLevelProperty(*level, m_kind, m_selector, m_value)) {
        setObsolete(true);
        return;
    }
    m_after = *storedLevelProperty(*level, m_kind, m_selector);
    m_done = true;
    show(m_after);
}

void LevelPropertyCommand::undo()
{
    if (m_done)
        show(m_before);
}

void LevelPropertyCommand::show(const std::optional<levelPropertyValue>& stored)
{
    tessaro::Level* level = m_tab ? m_tab->findLevel(m_levelId) : nullptr;
    if (!level)
        return;
    restoreLevelProperty(*level, m_kind, m_selector, stored);
    m_tab->notifyLevelConfigChanged();
    // The canvas draws the checkpoints' and shields' pictures and the coins'
    // repeat distance from the level record: the shown level lays those
    // elements again. The other fields are not drawn.
    const bool drawn = m_selector == levelField::image || m_selector == levelField::repeatDistance;
    if (drawn && m_tab->levelSelected() == m_levelId)
        if (const sceneEditorPtr scene = sceneEditorOf(m_tab->currentScene()))
            scene->showLevelLook(m_kind);
}

bool LevelPropertyCommand::joins() const
{
    return m_selector != levelField::image;
}

int LevelPropertyCommand::id() const
{
    return joins() ? levelPropertyMergeId + 16 * int(m_kind) + m_selector : -1;
}

bool LevelPropertyCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const LevelPropertyCommand*>(other);
    // A later change that wrote nothing (its value was already there) is
    // dropped by the history; taking its empty result would erase the field.
    if (!later || !later->m_done || later->m_tab != m_tab || later->m_levelId != m_levelId || later->m_kind != m_kind ||
        later->m_selector != m_selector)
        return false;
    if (m_selector == levelField::soundEffects &&
        (soundCount(m_value) != soundCount(later->m_value) || soundCount(m_value) != soundCount(m_before)))
        return false;
    m_value = later->m_value;
    m_after = later->m_after;
    setObsolete(m_before == m_after);
    return true;
}

} // namespace stagewright
