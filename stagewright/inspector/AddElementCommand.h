// The steps of a project's history that add an element of a catalogue from
// the object library. The first redo adds the element as the scene adds a
// new one and keeps what it made; later redos put back exactly that element,
// under the same handle, so steps after it find it again.
#pragma once

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/HistoryStep.h>

#include <tessaro/model/Geometry.h>

#include <QPointer>

#include <optional>
#include <string>

namespace stagewright {

class ProjectTab;

/// An element of the catalogue of `kind` added to the level shown, where the
/// scene places a new element or, with `position`, stored at that position
/// for the default device. The element is selected.
class AddElementCommand : public HistoryStep {
public:
    AddElementCommand(ProjectTab& tab, tessaro::sceneObjectType kind, std::string elementName,
                      std::optional<tessaro::PointValue> position = std::nullopt);
    void redoStep() override;
    void undo() override;

private:
    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    tessaro::sceneObjectType m_kind;
    std::string m_elementName;
    std::optional<tessaro::PointValue> m_position;
    /// The element as the first redo made it, and its place in its layer.
    std::optional<SceneEditor::ElementInPlace> m_added;
};

} // namespace stagewright
