// The steps of a project's history that change the elements of its levels.
// An element step keeps the element as it was before and after the edit, and
// puts either back through the same routines that load elements, so undo is
// exact. A step finds its element by handle, and shows the level it belongs
// to first, so a step made on another level is undone there.
#pragma once

#include "PropertyValue.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ElementClipboard.h>
#include <stagewright/state/ElementRecords.h>
#include <stagewright/state/HistoryStep.h>
#include <stagewright/state/SetFieldCommand.h>

#include <QPointer>

#include <functional>
#include <optional>
#include <string>

namespace stagewright {

class ProjectTab;

/// Merge ids: steps of one kind on one element join while they follow each
/// other, so typing a number or holding an arrow key is one step.
namespace editMergeId {
inline constexpr int nudge = 1;
inline constexpr int property = 1000; // + 200 * ModelType + the case
} // namespace editMergeId

/// The scene of the tab showing `levelId`, which it switches to when another
/// level is shown; null when the tab or the level is gone.
SceneEditor* sceneShowing(ProjectTab* tab, const tessaro::Uuid& levelId);
/// A step setting the field at `path` of the level `tab` shows, which shows
/// that level again before each undo and later redo.
SetFieldCommand* shownLevelStep(ProjectTab& tab, tessaro::FieldPath path, tessaro::FieldValue value,
                                const QString& text, bool joins);

class ElementEditCommand : public HistoryStep {
public:
    void redoStep() override;
    void undo() override;

protected:
    ElementEditCommand(ProjectTab& tab, const ElementNode& node, const QString& text);
    /// The edit itself, run on the first redo on the node as it stood.
    virtual void apply(SceneEditor& scene, ElementNode& node) = 0;
    /// Whether `other` is a later edit of the same element.
    bool sameElement(const ElementEditCommand& other) const;
    /// Takes the result of `other` as this step's result; false when `other`
    /// has none to take.
    bool adoptResult(const ElementEditCommand& other);

private:
    void show(const ElementRecords& element);

    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    ElementHandle m_handle;
    ElementRecords m_before;
    std::optional<ElementRecords> m_after;
};

/// A value of an inspector row.
class PropertyEditCommand : public ElementEditCommand {
public:
    PropertyEditCommand(ProjectTab& tab, const ElementNode& node, ModelType model, PublishedElementList element,
                        PropertyValue value, PropertyValue oldValue);
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

protected:
    void apply(SceneEditor& scene, ElementNode& node) override;

private:
    ModelType m_model;
    PublishedElementList m_element;
    PropertyValue m_value;
    PropertyValue m_oldValue;
    /// The device or cycle-end entry the value went into, if any.
    std::string m_entry;
};

/// A device field added to or removed from the entry the device pane shows.
class DeviceOverrideCommand : public ElementEditCommand {
public:
    DeviceOverrideCommand(ProjectTab& tab, const ElementNode& node, PublishedElementList element, bool add);

protected:
    void apply(SceneEditor& scene, ElementNode& node) override;

private:
    PublishedElementList m_element;
    bool m_add;
};

/// An element dragged or nudged to a new place.
class MoveElementCommand : public ElementEditCommand {
public:
    MoveElementCommand(ProjectTab& tab, const ElementNode& node, tessaro::PointValue position, bool nudge);
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

protected:
    void apply(SceneEditor& scene, ElementNode& node) override;

private:
    tessaro::PointValue m_position;
    bool m_nudge;
};

/// An element resized by its handle.
class ResizeElementCommand : public ElementEditCommand {
public:
    ResizeElementCommand(ProjectTab& tab, const ElementNode& node, tessaro::SizeValue size);

protected:
    void apply(SceneEditor& scene, ElementNode& node) override;

private:
    tessaro::SizeValue m_size;
};

/// A copy of the element on the clipboard added to the level shown.
class PasteCommand : public HistoryStep {
public:
    PasteCommand(ProjectTab& tab, ElementRecords copy, std::optional<tessaro::PointValue> location);
    void redoStep() override;
    void undo() override;

private:
    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    ElementHandle m_handle;
    ElementRecords m_copy;
    std::optional<tessaro::PointValue> m_location;
    /// The element as the first paste made it, and its place in its layer.
    std::optional<SceneEditor::ElementInPlace> m_pasted;
};

/// The selected element taken out of its level: "Cut" puts it on the
/// clipboard first, "Delete" does not.
class RemoveElementCommand : public HistoryStep {
public:
    RemoveElementCommand(ProjectTab& tab, ElementClipboard* clipboard, const QString& text);
    void redoStep() override;
    void undo() override;

private:
    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    QPointer<ElementClipboard> m_clipboard;
    std::optional<SceneEditor::ElementInPlace> m_removed;
};

} // namespace stagewright
