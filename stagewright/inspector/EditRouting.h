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
class ElementNode;
class ProjectTab;
class SceneEditor;

class EditRouting {
public:
    /// Edits of `tab`; cut, copy and paste use `clipboard`.
    explicit EditRouting(ProjectTab& tab, ElementClipboard* clipboard = nullptr);

    // ---- Inspector rows -------------------------------------------------------------
    /// A row's change: its model shows `value` at once, then the edit of the
    /// model runs as one step of the history.
    void editRow(ModelType model, PublishedElementList element, const PropertyValue& value);
    /// A row's change, to the operation of its model.
    void apply(ModelType model, PublishedElementList element, const PropertyValue& value,
               const PropertyValue& oldValue = {});
    void applyPrimaryProperty(PublishedElementList element, const PropertyValue& value,
                              const PropertyValue& oldValue = {});
    void applyDeviceProperty(PublishedElementList element, const PropertyValue& value,
                             const PropertyValue& oldValue = {});
    void applyAnimationProperty(PublishedElementList element, const PropertyValue& value);
    void applyCycleEndProperty(PublishedElementList element, const PropertyValue& value);
    void applyBackgroundProperty(PublishedElementList element, const PropertyValue& value);
    void toggleDeviceOverride(PublishedElementList element, bool add);

    // ---- The canvas's gestures -----------------------------------------------------
    /// Stores `position` as the default device's position of `node`.
    void moveElement(ElementNode& node, tessaro::PointValue position, bool nudge);
    /// Stores `size` as the default device's size of `node`.
    void resizeElement(ElementNode& node, tessaro::SizeValue size);

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
    SceneEditor* scene() const;

    ProjectTab& m_tab;
    ElementClipboard* m_clipboard;
};

/// The hooks that make a canvas publish its selections into the inspector's
/// models (presenting the inspector of `settings`) and store its moves and
/// sizes as steps of its tab's history.
CanvasHooks editingHooks(SceneSettings* settings);

} // namespace stagewright
