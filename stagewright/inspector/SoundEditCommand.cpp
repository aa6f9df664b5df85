#include "SoundEditCommand.h"

#include "ApplyCommon.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <QCoreApplication>

namespace stagewright {

using tessaro::GameSound;

namespace {

QString stepText(const SoundEdit& edit)
{
    switch (edit.what) {
    case SoundEdit::kind::add: return QCoreApplication::translate("SoundEditCommand", "Add Sound");
    case SoundEdit::kind::remove: return QCoreApplication::translate("SoundEditCommand", "Delete Sound");
    case SoundEdit::kind::field: break;
    }
    return QCoreApplication::translate("SoundEditCommand", "Change Sound");
}

/// Only a held volume stepper joins its changes: a choice in a picker, a
/// toggle, an added or deleted sound is a step of its own.
bool joins(const SoundEdit& edit)
{
    return edit.what == SoundEdit::kind::field && edit.field == SoundField::volume;
}

/// The selection of `tab` shows the sounds `sounds` of the receiver `type`.
void showInSelection(ProjectTab& tab, SoundPropertyType type, const std::vector<GameSound>& sounds)
{
    if (tab.elementPhase() != SelectionPhase::Selected)
        return;
    const tessaro::sceneObjectType kind = tab.selectedObject().type;
    const bool shows = type == SoundPropertyType::object ? keepsOwnSounds(kind) : soundPropertyTypeOf(kind) == type;
    if (!shows)
        return;
    tab.selectedObject().soundEffects = sounds;
    tab.notifySelectedObjectChanged();
}

} // namespace

// ---- An element's own sounds ---------------------------------------------------------------

ElementSoundsCommand::ElementSoundsCommand(ProjectTab& tab, const ElementNode& node, std::vector<GameSound> sounds,
                                           SoundEdit edit)
    : ElementEditCommand(tab, node, stepText(edit)),
      m_sounds(std::move(sounds)),
      m_edit(edit)
{
}

int ElementSoundsCommand::id() const
{
    return joins(m_edit) ? soundMergeId::volume : -1;
}

bool ElementSoundsCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const ElementSoundsCommand*>(other);
    if (!later || later->m_edit != m_edit || !sameElement(*later))
        return false;
    adoptResult(*later);
    return true;
}

void ElementSoundsCommand::apply(SceneEditor& scene, ElementNode& node)
{
    node.soundEffects = m_sounds;
    // Undo and redo show the element anew, which publishes its sounds; the
    // first run shows them here.
    if (ProjectTab* tab = scene.tab())
        showInSelection(*tab, SoundPropertyType::object, m_sounds);
}

// ---- A level record's shared sounds ----------------------------------------------------------

LevelSoundsCommand::LevelSoundsCommand(ProjectTab& tab, SoundPropertyType type, std::vector<GameSound> sounds,
                                       SoundEdit edit)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_type(type),
      m_edit(edit),
      m_after(std::move(sounds))
{
    setText(stepText(edit));
    if (const tessaro::Level* level = tab.findLevel(m_levelId))
        if (const auto* stored = levelSounds(*level, type))
            m_before = *stored;
}

void LevelSoundsCommand::redoStep()
{
    // Choosing the value a sound has already is no step.
    if (m_after == m_before)
        setObsolete(true);
    else
        show(m_after);
}

void LevelSoundsCommand::undo()
{
    show(m_before);
}

int LevelSoundsCommand::id() const
{
    return joins(m_edit) ? soundMergeId::volume : -1;
}

bool LevelSoundsCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const LevelSoundsCommand*>(other);
    if (!later || later->m_tab != m_tab || later->m_levelId != m_levelId || later->m_type != m_type ||
        later->m_edit != m_edit)
        return false;
    m_after = later->m_after;
    setObsolete(m_after == m_before);
    return true;
}

void LevelSoundsCommand::show(const std::optional<std::vector<GameSound>>& sounds)
{
    if (!m_tab)
        return;
    // A step made on another level is shown there.
    sceneShowing(m_tab, m_levelId);
    tessaro::Level* level = m_tab->findLevel(m_levelId);
    auto* receiver = level ? levelSounds(*level, m_type) : nullptr;
    if (!receiver) {
        // The record is gone: the step writes nothing.
        setObsolete(true);
        return;
    }
    *receiver = sounds;
    if (m_tab->levelSelected() == m_levelId)
        showInSelection(*m_tab, m_type, sounds.value_or(std::vector<GameSound>{}));
    m_tab->notifyLevelConfigChanged();
}

// ---- The front door ------------------------------------------------------------------------

SoundEditRouting::SoundEditRouting(ProjectTab& tab, SoundPropertyType type) : m_tab(tab), m_type(type) {}

std::vector<GameSound> SoundEditRouting::sounds() const
{
    if (m_type == SoundPropertyType::object)
        return m_tab.selectedObject().soundEffects;
    const tessaro::Level* level = m_tab.findLevel(m_tab.levelSelected());
    const auto* sounds = level ? levelSounds(*level, m_type) : nullptr;
    return sounds && *sounds ? **sounds : std::vector<GameSound>{};
}

bool SoundEditRouting::canWrite() const
{
    if (m_type != SoundPropertyType::object) {
        const tessaro::Level* level = m_tab.findLevel(m_tab.levelSelected());
        return level && levelSounds(*level, m_type);
    }
    if (!keepsOwnSounds(m_tab.selectedObject().type))
        return false;
    SceneEditor* scene = sceneEditorOf(m_tab.currentScene()).get();
    return scene && editedNode(*scene);
}

bool SoundEditRouting::add()
{
    std::vector<GameSound> list = sounds();
    appendNewSound(list);
    const SoundEdit edit{SoundEdit::kind::add, list.size() - 1, SoundField::filename};
    return push(std::move(list), edit);
}

bool SoundEditRouting::remove(std::size_t index)
{
    std::vector<GameSound> list = sounds();
    if (!removeSound(list, index))
        return false;
    return push(std::move(list), {SoundEdit::kind::remove, index, SoundField::filename});
}

bool SoundEditRouting::change(std::size_t index, SoundField field, const SoundFieldValue& value)
{
    std::vector<GameSound> list = sounds();
    if (!setSoundField(list, index, field, value))
        return false;
    return push(std::move(list), {SoundEdit::kind::field, index, field});
}

bool SoundEditRouting::push(std::vector<GameSound> list, const SoundEdit& edit)
{
    if (!canWrite())
        return false;
    if (m_type != SoundPropertyType::object) {
        pushStep(m_tab.undoStack(), new LevelSoundsCommand(m_tab, m_type, std::move(list), edit));
        return true;
    }
    SceneEditor* scene = sceneEditorOf(m_tab.currentScene()).get();
    const ElementNodePtr node = editedNode(*scene);
    if (!node->handle)
        node->handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new ElementSoundsCommand(m_tab, *node, std::move(list), edit));
    return true;
}

} // namespace stagewright
