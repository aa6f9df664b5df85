// What a canvas hands on to the layers above it: a selection to publish, an
// "Object Menu" to show, and the moves and sizes it makes to store. The
// editor gives each canvas its hooks when it makes it; a canvas without hooks
// still selects, shows no menu and keeps its gestures until the next load.
#pragma once

#include "CanvasEditRoute.h"
#include "ObjectMenu.h"

#include <stagewright/state/LevelScene.h>

#include <functional>
#include <memory>

namespace stagewright {

class ElementNode;
class SceneEditor;

struct CanvasHooks {
    /// What publishing a selection does; without it the tab's selected
    /// object takes the node's name and kind and the phase becomes Selected.
    std::function<void(SceneEditor&, ElementNode&)> publishSelection;
    /// Shows the "Object Menu"; without it nothing is picked.
    MenuPresenter presentMenu;
    /// Where moves and sizes go.
    std::shared_ptr<CanvasEditRoute> editRoute;
};

/// How the application makes its canvas factory once it knows its hooks.
using CanvasFactory = std::function<SceneFactory(const CanvasHooks& hooks)>;

} // namespace stagewright
