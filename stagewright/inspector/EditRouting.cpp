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

#include <QCoreApplication>

namespace stagewright {

namespace {

/// The canvas's moves and sizes, as steps of the history of the scene's tab.
class HistoryRoute : public CanvasEditRoute {
public:
    void moveElement(sceneEditor& scene, elementNode& node, tessaro::PointValue position, bool nudge) override
    {
        if (projectTab* tab = scene.tab())
            EditRouting(*tab).moveElement(node, position, nudge);
    }
    void resizeElement(sceneEditor& scene, elementNode& node, tessaro::SizeValue size) override
    {
        if (projectTab* tab = scene.tab())
            EditRouting(*tab).resizeElement(node, size);
    }
};

/// Choosing which device entry or cycle-end entry a pane shows changes what
/// is shown, never the level: it is no step of the history.
bool choosesWhatIsShown(modelType model, publishedElementList element)
{
    return (model == modelType::Devices && element == publishedElementList::deviceName) ||
        (model == modelType::AnimationCycleEnd && element == publishedElementList::End_SelectedId);
}

} // namespace

EditRouting::EditRouting(projectTab& tab, ElementClipboard* clipboard) : m_tab(tab), m_clipboard(clipboard) {}

sceneEditor* EditRouting::scene() const
{
    return sceneEditorOf(m_tab.currentScene()).get();
}

void EditRouting::editRow(modelType model, publishedElementList element, const propertyValue& value)
{
    const propertyValue oldValue = modelValue(m_tab, model, element);
    setModelValue(m_tab, model, element, value);
    apply(model, element, value, oldValue);
}

void EditRouting::apply(modelType model, publishedElementList element, const propertyValue& value,
                        const propertyValue& oldValue)
{
    sceneEditor* editor = scene();
    const elementNodePtr node = editor ? editedNode(*editor) : nullptr;
    if (node && choosesWhatIsShown(model, element)) {
        model == modelType::Devices ? stagewright::applyDeviceProperty(*editor, element, value)
                                    : stagewright::applyCycleEndProperty(*editor, element, value);
        return;
    }
    if (!node) {
        // Nothing to edit; the operation still says so in its trace.
        if (editor && model == modelType::Primary)
            stagewright::applyPrimaryProperty(*editor, element, value, oldValue);
        return;
    }
    // A node made by this session's picker before handles existed gets one now.
    if (!node->handle)
        node->handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new PropertyEditCommand(m_tab, *node, model, element, value, oldValue));
}

void EditRouting::applyPrimaryProperty(publishedElementList element, const propertyValue& value,
                                       const propertyValue& oldValue)
{
    apply(modelType::Primary, element, value, oldValue);
}

void EditRouting::applyDeviceProperty(publishedElementList element, const propertyValue& value,
                                      const propertyValue& oldValue)
{
    apply(modelType::Devices, element, value, oldValue);
}

void EditRouting::applyAnimationProperty(publishedElementList element, const propertyValue& value)
{
    apply(modelType::Animation, element, value);
}

void EditRouting::applyCycleEndProperty(publishedElementList element, const propertyValue& value)
{
    apply(modelType::AnimationCycleEnd, element, value);
}

void EditRouting::applyBackgroundProperty(publishedElementList element, const propertyValue& value)
{
    sceneEditor* editor = scene();
    if (!editor || !editedTab(*editor))
        return;
    // Choosing the background the pane shows is no step of the history.
    if (element == publishedElementList::background) {
        stagewright::applyBackgroundProperty(*editor, element, value);
        return;
    }
    pushStep(m_tab.undoStack(), new BackgroundEditCommand(m_tab, *editor, element, value));
}

void EditRouting::toggleDeviceOverride(publishedElementList element, bool add)
{
    sceneEditor* editor = scene();
    const elementNodePtr node = editor ? editedNode(*editor) : nullptr;
    if (!node)
        return;
    if (!node->handle)
        node->handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new DeviceOverrideCommand(m_tab, *node, element, add));
}

void EditRouting::moveElement(elementNode& node, tessaro::PointValue position, bool nudge)
{
    if (!node.handle)
        node.handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new MoveElementCommand(m_tab, node, position, nudge));
}

void EditRouting::resizeElement(elementNode& node, tessaro::SizeValue size)
{
    if (!node.handle)
        node.handle = m_tab.elementHandles().issue();
    pushStep(m_tab.undoStack(), new ResizeElementCommand(m_tab, node, size));
}

bool EditRouting::hasSelection() const
{
    // A background belongs to the level's background list, which has its own
    // pane: it is neither cut, copied nor deleted like an element.
    return m_tab.elementPhase() == selectionPhase::Selected &&
        m_tab.selectedObject().type != tessaro::sceneObjectType::background;
}

bool EditRouting::canPaste() const
{
    return m_clipboard && !m_clipboard->isEmpty();
}

void EditRouting::copy()
{
    sceneEditor* editor = scene();
    const elementNodePtr node = editor && hasSelection() ? editor->selectedNode() : nullptr;
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
    hooks.publishSelection = [settings](sceneEditor& scene, elementNode& node) {
        publishSelection(scene, node, settings);
    };
    hooks.editRoute = std::make_shared<HistoryRoute>();
    return hooks;
}

} // namespace stagewright
