// How the inspector opens the physics sheet without depending on the side
// editors: the editors install the opener at start, and the inspector's
// "Physics" buttons call it.
#pragma once

#include <QWidget>

#include <functional>

namespace stagewright {

class SceneSettings;
class ProjectTab;

/// What the physics sheet edits: the selected element of the level, the
/// selected cycle-end animation, or the catalogue template behind the
/// selected element.
enum class PhysicsEditMode { element, animation, base };

using PhysicsEditorOpener =
    std::function<void(QWidget* parent, ProjectTab& tab, SceneSettings* settings, PhysicsEditMode mode)>;

/// Installs the opener; an empty one removes it.
void setPhysicsEditorOpener(PhysicsEditorOpener opener);
/// Opens the physics sheet over `parent`; false when no opener is installed.
bool openPhysicsEditor(QWidget* parent, ProjectTab& tab, SceneSettings* settings, PhysicsEditMode mode);

} // namespace stagewright
