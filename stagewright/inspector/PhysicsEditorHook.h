// How the inspector opens the physics sheet without depending on the side
// editors: the editors install the opener at start, and the inspector's
// "Physics" buttons call it.
#pragma once

#include <QWidget>

#include <functional>

namespace stagewright {

class SceneSettings;
class projectTab;

/// What the physics sheet edits: the selected element of the level, the
/// selected cycle-end animation, or the catalogue template behind the
/// selected element.
enum class physicsEditMode { element, animation, base };

using physicsEditorOpener =
    std::function<void(QWidget* parent, projectTab& tab, SceneSettings* settings, physicsEditMode mode)>;

/// Installs the opener; an empty one removes it.
void setPhysicsEditorOpener(physicsEditorOpener opener);
/// Opens the physics sheet over `parent`; false when no opener is installed.
bool openPhysicsEditor(QWidget* parent, projectTab& tab, SceneSettings* settings, physicsEditMode mode);

} // namespace stagewright
