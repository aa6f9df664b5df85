// The front door of every edit of a project's elements. Inspector rows,
// the Edit menu and the canvas's own gestures call these; each change becomes
// one step of the tab's history, which runs the edit and can take it back.
#pragma once

#include "PropertyValue.h"

#include <stagewright/scene/CanvasHooks.h>
#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/Geometry.h>

namespace stagewright {

class ElementClipboard;
class SceneSettings;
class elementNode;
class projectTab;
class sceneEditor;

class EditRouting {
public:
    /// Edits of `tab`; cut, copy and paste use `clipboard`.
    explicit EditRouting(projectTab& tab, ElementClipboard* clipboard = nullptr);

    // ---- Inspector rows -------------------------------------------------------------
    /// A row's change: its model shows `value` at once, then the edit of the
    /// model runs as one step of the history.
    void editRow(modelType model, publishedElementList element, const propertyValue& value);
    /// A row's change, to the operation of its model.
    void apply(modelType model, publishedElementList element, const propertyValue& value,
               const propertyValue& oldValue = {});
    void applyPrimaryProperty(publishedElementList element, const propertyValue& value,
                              const propertyValue& oldValue = {});
    void applyDeviceProperty(publishedElementList element, const propertyValue& value,
                             const propertyValue& oldValue = {});
    void applyAnimationProperty(publishedElementList element, const propertyValue& value);
    void applyCycleEndProperty(publishedElementList element, const propertyValue& value);
    void applyBackgroundProperty(publishedElementList element, const propertyValue& value);
    void toggleDeviceOverride(publishedElementList element, bool add);

    // ---- The canvas's gestures -----------------------------------------------------
    /// Stores `position` as the default device's position of `node`.
    void moveElement(elementNode& node, tessaro::PointValue position, bool nudge);
    /// Stores `size` as the default device's size of `node`.
    void resizeElement(elementNode& node, tessaro::SizeValue size);

    // ---- Edit menu -------------------------------------------------------------------
    /// "Cut", "Copy" and "Delete": an element of the tab is selected, not a
    /// background.
    bool hasSelection() const;
    /// "Paste": an element is on the clipboard.
    bool canPaste() const;
    /// Puts a copy of the selected element's records on the clipboard.
    void copy();
    /// Takes the selected element out and puts it on the clipboard.
    void cut();
    /// Adds a copy of the clipboard's element to the level shown.
    void paste();
    /// Takes the selected element out.
    void deleteSelection();

private:
    sceneEditor* scene() const;

    projectTab& m_tab;
    ElementClipboard* m_clipboard;
};

/// The hooks that make a canvas publish its selections into the inspector's
/// models (presenting the inspector of `settings`) and store its moves and
/// sizes as steps of its tab's history.
CanvasHooks editingHooks(SceneSettings* settings);

} // namespace stagewright
