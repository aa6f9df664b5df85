#include "EditRouting.h"

#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "EditCommands.h"
#include "ModelFields.h"
#include "SelectionPublishing.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ElementClipboard.h>
#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SetFieldCommand.h>

#include <tessaro/model/LevelRecords.h>

#include <QCoreApplication>

namespace stagewright {

namespace {

/// The canvas's moves and sizes, as steps of the history of the scene's tab.
class HistoryRoute : public CanvasEditRoute {
public:
    void moveElement(SceneEditor& scene, ElementNode& node, tessaro::PointValue position, bool nudge) override
    {
        if (ProjectTab* tab = scene.tab())
            EditRouting(*tab).moveElement(node, position, nudge);
    }
    void resizeElement(SceneEditor& scene, ElementNode& node, tessaro::SizeValue size) override
    {
        if (ProjectTab* tab = scene.tab())
            EditRouting(*tab).resizeElement(node, size);
    }
};

/// Choosing which device entry or cycle-end entry a pane shows changes what
/// is shown, never the level: it is no step of the history.
bool choosesWhatIsShown(ModelType model, PublishedElementList element)
{
    return (model == ModelType::Devices && element == PublishedElementList::deviceName) ||
        (model == ModelType::AnimationCycleEnd && element == PublishedElementList::End_SelectedId);
}

} // namespace

EditRouting::EditRouting(ProjectTab& tab, ElementClipboard* clipboard) : m_tab(tab), m_clipboard(clipboard) {}

SceneEditor* EditRouting::scene() const
{
    return sceneEditorOf(m_tab.currentScene()).get();
}

void EditRouting::editRow(ModelType model, PublishedElementList element, const PropertyValue& value)
{
    const PropertyValue oldValue = modelValue(m_tab, model, element);
    setModelValue(m_tab, model, element, value);
    apply(model, element, value, oldValue);
}

void EditRouting::apply(ModelType model, PublishedElementList element, const PropertyValue& value,
                        const PropertyValue& oldValue)
{
    SceneEditor* editor = scene();
    const ElementNodePtr node = editor ? editedNode(*editor) : nullptr;
    if (node && choosesWhatIsShown(model, element)) {
        model == ModelType::Devices ? stagewright::applyDeviceProperty(*editor, element, value)
                                    : stagewright::applyCycleEndProperty(*editor, element, value);
        return;
    }
    if (!node) {
        // Nothing to edit; the operation still says so in its trace.
        if (editor && model == ModelType::Primary)
            stagewright::applyPrimaryProperty(*editor, element, value, oldValue);
        return;
    }
    // A node made by this session's picker before handles existed gets one now.
    if (!node->handle)
        node->handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new PropertyEditCommand(m_tab, *node, model, element, value, oldValue));
}

void EditRouting::applyPrimaryProperty(PublishedElementList element, const PropertyValue& value,
                                       const PropertyValue& oldValue)
{
    apply(ModelType::Primary, element, value, oldValue);
}

void EditRouting::applyDeviceProperty(PublishedElementList element, const PropertyValue& value,
                                      const PropertyValue& oldValue)
{
    apply(ModelType::Devices, element, value, oldValue);
}

void EditRouting::applyAnimationProperty(PublishedElementList element, const PropertyValue& value)
{
    apply(ModelType::Animation, element, value);
}

void EditRouting::applyCycleEndProperty(PublishedElementList element, const PropertyValue& value)
{
    apply(ModelType::AnimationCycleEnd, element, value);
}

void EditRouting::applyBackgroundProperty(PublishedElementList element, const PropertyValue& value)
{
    SceneEditor* editor = scene();
    if (!editor || !editedTab(*editor))
        return;
    // Choosing the background the pane shows is no step of the history.
    if (element == PublishedElementList::background) {
        showBackgroundOfPane(*editor, value);
        return;
    }
    const std::optional<ShownBackground> shown = shownBackground(m_tab);
    if (!shown)
        return;
    std::optional<BackgroundFieldChange> change = backgroundChange(m_tab, shown->record, element, value);
    if (!change)
        return;
    pushStep(
        m_tab.undoStack(),
        shownLevelStep(
            m_tab, shown->path / change->field, std::move(change->value),
            QCoreApplication::translate("EditCommands", "Change %1").arg(QString::fromUtf8(tessaro::caseText(element))),
            change->joins));
}

void EditRouting::toggleDeviceOverride(PublishedElementList element, bool add)
{
    SceneEditor* editor = scene();
    const ElementNodePtr node = editor ? editedNode(*editor) : nullptr;
    if (!node)
        return;
    if (!node->handle)
        node->handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new DeviceOverrideCommand(m_tab, *node, element, add));
}

void EditRouting::moveElement(ElementNode& node, tessaro::PointValue position, bool nudge)
{
    if (!node.handle)
        node.handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new MoveElementCommand(m_tab, node, position, nudge));
}

void EditRouting::resizeElement(ElementNode& node, tessaro::SizeValue size)
{
    if (!node.handle)
        node.handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new ResizeElementCommand(m_tab, node, size));
}

bool EditRouting::hasSelection() const
{
    // A background belongs to the level's background list, which has its own
    // pane: it is neither cut, copied nor deleted like an element.
    return m_tab.elementPhase() == SelectionPhase::Selected &&
        m_tab.selectedObject().type != tessaro::sceneObjectType::background;
}

bool EditRouting::canPaste() const
{
    return m_clipboard && !m_clipboard->isEmpty();
}

void EditRouting::copy()
{
    SceneEditor* editor = scene();
    const ElementNodePtr node = editor && hasSelection() ? editor->selectedNode() : nullptr;
    if (!node || !m_clipboard)
        return;
    m_clipboard->setObjectToCopy(std::make_shared<const ElementRecords>(node->records()));
}

void EditRouting::cut()
{
    if (!scene() || !hasSelection())
        return;
    pushStep(m_tab.undoStack(),
             new RemoveElementCommand(m_tab, m_clipboard, QCoreApplication::translate("EditCommands", "Cut")));
}

void EditRouting::paste()
{
    if (!scene() || !canPaste())
        return;
    pushStep(m_tab.undoStack(),
             new PasteCommand(m_tab, *m_clipboard->objectToCopy(), m_clipboard->objectToPasteLocation()));
}

void EditRouting::deleteSelection()
{
    if (!scene() || !hasSelection())
        return;
    pushStep(m_tab.undoStack(),
             new RemoveElementCommand(m_tab, nullptr, QCoreApplication::translate("EditCommands", "Delete")));
}

CanvasHooks editingHooks(SceneSettings* settings)
{
    CanvasHooks hooks;
    hooks.publishSelection = [settings](SceneEditor& scene, ElementNode& node) {
        publishSelection(scene, node, settings);
    };
    hooks.editRoute = std::make_shared<HistoryRoute>();
    return hooks;
}

} // namespace stagewright
