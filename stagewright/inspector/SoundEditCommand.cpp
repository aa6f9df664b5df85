#include "SoundEditCommand.h"

#include "ApplyCommon.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SetFieldCommand.h>

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

// ---- The front door ------------------------------------------------------------------------

SoundEditRouting::SoundEditRouting(ProjectTab& tab, SoundPropertyType type) : m_tab(tab), m_type(type) {}

std::vector<GameSound> SoundEditRouting::sounds() const
{
    if (m_type == SoundPropertyType::object)
        return m_tab.selectedObject().soundEffects;
    const tessaro::Level* level = m_tab.findLevel(m_tab.levelSelected());
    return level ? levelSoundList(*level, m_type).value_or(std::vector<GameSound>{}) : std::vector<GameSound>{};
}

bool SoundEditRouting::canWrite() const
{
    if (m_type != SoundPropertyType::object) {
        const tessaro::Level* level = m_tab.findLevel(m_tab.levelSelected());
        return level && levelSoundList(*level, m_type);
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
        // The shared sounds of a level record: one field of the level.
        SetFieldCommand* step =
            shownLevelStep(m_tab, *levelSoundsPath(m_type), std::move(list), stepText(edit), joins(edit));
        step->joinOnlyWithin(std::to_string(edit.index));
        step->followWith([tab = QPointer<ProjectTab>(&m_tab), type = m_type] {
            const tessaro::Level* level = tab ? tab->findLevel(tab->levelSelected()) : nullptr;
            if (const auto sounds = level ? levelSoundList(*level, type) : std::nullopt)
                showInSelection(*tab, type, *sounds);
        });
        pushStep(m_tab.undoStack(), step);
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
