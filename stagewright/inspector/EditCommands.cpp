#include "EditCommands.h"

#include "ApplyOperations.h"

#include <stagewright/state/ElementClipboard.h>
#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <QCoreApplication>

namespace stagewright {

using P = PublishedElementList;

namespace {

QString commandText(const char* text)
{
    return QCoreApplication::translate("EditCommands", text);
}

/// Shows `node` as the selection, published anew. Publishing shows the
/// default device's entry and the first cycle-end entry; a step of the history
/// changes values only, so the entries the user chose stay shown.
void reselect(SceneEditor& scene, const ElementNodePtr& node)
{
    ProjectTab* tab = scene.tab();
    const std::optional<tessaro::deviceName> device =
        tab ? std::optional(tab->selectedDeviceObject().nameSelected) : std::nullopt;
    const std::string cycleEnd = tab ? tab->selectedAnimationObject().End_SelectedId : std::string();
    scene.reselect(node);
    if (!tab || tab->elementPhase() != SelectionPhase::Selected)
        return;
    if (device && *device != tab->selectedDeviceObject().nameSelected)
        applyDeviceProperty(scene, P::deviceName, std::string(tessaro::caseText(*device)));
    if (!cycleEnd.empty() && cycleEnd != tab->selectedAnimationObject().End_SelectedId)
        applyCycleEndProperty(scene, P::End_SelectedId, cycleEnd);
}

/// The buttons of the panes make one step each; typed and stepped values of
/// one field join.
bool joinsTyping(PublishedElementList element)
{
    switch (element) {
    case P::addRange:
    case P::deleteRange:
    case P::End_list_add:
    case P::End_list_delete:
    case P::End_SelectedId:
    case P::background:
    case P::deviceName:
    case P::image:
    case P::sound:
    case P::physics: return false;
    default: return true;
    }
}

/// The device or cycle-end entry a value of `model` goes into: edits of the
/// same field in two entries are two steps.
std::string shownEntry(const ProjectTab& tab, ModelType model)
{
    switch (model) {
    case ModelType::Devices: return std::string(tessaro::caseText(tab.selectedDeviceObject().nameSelected));
    case ModelType::AnimationCycleEnd: return tab.selectedAnimationObject().End_SelectedId;
    default: return {};
    }
}

} // namespace

SceneEditor* sceneShowing(ProjectTab* tab, const tessaro::Uuid& levelId)
{
    if (!tab || !tab->showLevel(levelId))
        return nullptr;
    return sceneEditorOf(tab->currentScene()).get();
}

SetFieldCommand* shownLevelStep(ProjectTab& tab, tessaro::FieldPath path, tessaro::FieldValue value,
                                const QString& text, bool joins)
{
    auto* step =
        new SetFieldCommand(tab.document(), tab.levelSelected(), std::move(path), std::move(value), text, joins);
    step->showLevelFirst([tab = QPointer<ProjectTab>(&tab)](const tessaro::Uuid& levelId) {
        if (tab)
            tab->showLevel(levelId);
    });
    return step;
}

// ---- Element edits -------------------------------------------------------------------------

ElementEditCommand::ElementEditCommand(ProjectTab& tab, const ElementNode& node, const QString& text)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_handle(node.handle),
      m_before(node.records())
{
    setText(text);
}

void ElementEditCommand::redoStep()
{
    if (m_after) {
        show(*m_after);
        return;
    }
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    const ElementNodePtr node = scene ? scene->elementWithHandle(m_handle) : nullptr;
    if (!node) {
        setObsolete(true);
        return;
    }
    apply(*scene, *node);
    // A ground edit lays the ground again: the element has a new node.
    const ElementNodePtr edited = scene->elementWithHandle(m_handle);
    m_after = edited ? edited->records() : m_before;
    // An edit that changed nothing is no step.
    if (*m_after == m_before)
        setObsolete(true);
}

void ElementEditCommand::undo()
{
    show(m_before);
}

void ElementEditCommand::show(const ElementRecords& element)
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    ElementNodePtr node = scene ? scene->elementWithHandle(m_handle) : nullptr;
    if (!node)
        return;
    node->restoreRecords(element);
    if (element.kind == tessaro::sceneObjectType::obstacles)
        scene->placement().addRepeatedCopies(node);
    if (element.kind == tessaro::sceneObjectType::ground) {
        scene->rebuildGround(m_levelId);
        node = scene->elementWithHandle(m_handle);
    }
    reselect(*scene, node);
}

bool ElementEditCommand::sameElement(const ElementEditCommand& other) const
{
    return other.m_tab == m_tab && other.m_levelId == m_levelId && other.m_handle == m_handle;
}

bool ElementEditCommand::adoptResult(const ElementEditCommand& other)
{
    // A later edit that found no element has no result; it is dropped alone.
    if (!other.m_after)
        return false;
    m_after = other.m_after;
    setObsolete(*m_after == m_before);
    return true;
}

PropertyEditCommand::PropertyEditCommand(ProjectTab& tab, const ElementNode& node, ModelType model,
                                         PublishedElementList element, PropertyValue value, PropertyValue oldValue)
    : ElementEditCommand(tab, node, commandText("Change %1").arg(QString::fromUtf8(tessaro::caseText(element)))),
      m_model(model),
      m_element(element),
      m_value(std::move(value)),
      m_oldValue(std::move(oldValue)),
      m_entry(shownEntry(tab, model))
{
}

int PropertyEditCommand::id() const
{
    return joinsTyping(m_element) ? editMergeId::property + 200 * int(m_model) + int(m_element) : -1;
}

bool PropertyEditCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const PropertyEditCommand*>(other);
    return later && later->m_element == m_element && later->m_model == m_model && later->m_entry == m_entry &&
        sameElement(*later) && adoptResult(*later);
}

void PropertyEditCommand::apply(SceneEditor& scene, ElementNode&)
{
    switch (m_model) {
    case ModelType::Primary: applyPrimaryProperty(scene, m_element, m_value, m_oldValue); break;
    case ModelType::Devices: applyDeviceProperty(scene, m_element, m_value, m_oldValue); break;
    case ModelType::Animation: applyAnimationProperty(scene, m_element, m_value); break;
    case ModelType::AnimationCycleEnd: applyCycleEndProperty(scene, m_element, m_value); break;
    }
}

DeviceOverrideCommand::DeviceOverrideCommand(ProjectTab& tab, const ElementNode& node, PublishedElementList element,
                                             bool add)
    : ElementEditCommand(tab, node, add ? commandText("Add Override") : commandText("Delete Override")),
      m_element(element),
      m_add(add)
{
}

void DeviceOverrideCommand::apply(SceneEditor& scene, ElementNode&)
{
    toggleDeviceOverride(scene, m_element, m_add);
}

MoveElementCommand::MoveElementCommand(ProjectTab& tab, const ElementNode& node, tessaro::PointValue position,
                                       bool nudge)
    : ElementEditCommand(tab, node, commandText("Move")),
      m_position(position),
      m_nudge(nudge)
{
}

int MoveElementCommand::id() const
{
    return m_nudge ? editMergeId::nudge : -1;
}

bool MoveElementCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const MoveElementCommand*>(other);
    return later && later->m_nudge && sameElement(*later) && adoptResult(*later);
}

void MoveElementCommand::apply(SceneEditor& scene, ElementNode& node)
{
    storeDeviceValue(scene, node, tessaro::deviceName::defaultDevice, P::position, m_position);
}

ResizeElementCommand::ResizeElementCommand(ProjectTab& tab, const ElementNode& node, tessaro::SizeValue size)
    : ElementEditCommand(tab, node, commandText("Resize")),
      m_size(size)
{
}

void ResizeElementCommand::apply(SceneEditor& scene, ElementNode& node)
{
    storeDeviceValue(scene, node, tessaro::deviceName::defaultDevice, P::size, m_size);
}

// ---- Paste, cut and delete -------------------------------------------------------------------------

PasteCommand::PasteCommand(ProjectTab& tab, ElementRecords copy, std::optional<tessaro::PointValue> location)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_handle(tab.elementHandles().issue()),
      m_copy(std::move(copy)),
      m_location(location)
{
    setText(commandText("Paste"));
}

void PasteCommand::redoStep()
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    if (m_pasted) {
        scene->placeElement(m_pasted->records, m_pasted->layerIndex, m_handle);
        return;
    }
    const ElementNodePtr node = scene->pasteNode(m_copy, m_location, m_handle);
    if (!node || !node->parent()) {
        setObsolete(true);
        return;
    }
    const auto& siblings = node->parent()->children();
    const auto at = std::find(siblings.begin(), siblings.end(), node);
    m_pasted = SceneEditor::ElementInPlace{node->records(), m_handle, std::size_t(at - siblings.begin())};
}

void PasteCommand::undo()
{
    if (SceneEditor* scene = sceneShowing(m_tab, m_levelId))
        scene->removeElement(m_handle);
}

RemoveElementCommand::RemoveElementCommand(ProjectTab& tab, ElementClipboard* clipboard, const QString& text)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_clipboard(clipboard)
{
    setText(text);
}

void RemoveElementCommand::redoStep()
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    if (m_removed) {
        scene->removeElement(m_removed->handle);
        return;
    }
    m_removed = scene->deleteSelectedNode();
    if (!m_removed) {
        setObsolete(true);
        return;
    }
    if (m_clipboard)
        m_clipboard->setObjectToCopy(std::make_shared<const ElementRecords>(m_removed->records));
}

void RemoveElementCommand::undo()
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene || !m_removed)
        return;
    if (const ElementNodePtr node = scene->placeElement(m_removed->records, m_removed->layerIndex, m_removed->handle))
        reselect(*scene, node);
}

} // namespace stagewright
