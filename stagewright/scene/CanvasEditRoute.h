// The road of the edits the canvas makes by itself: an element dragged or
// nudged to a new place, an element resized by its handle. The canvas shows
// the change while the gesture lasts and hands the result to the route, which
// stores it the way the inspector's fields store theirs, as one step of the
// project's history.
#pragma once

#include <stagewright/state/ElementRecords.h>

#include <tessaro/model/Geometry.h>

namespace stagewright {

class SceneEditor;
class ElementNode;

class CanvasEditRoute {
public:
    virtual ~CanvasEditRoute();
    /// `node` was dragged, or nudged by a key, so that its stored position
    /// for the default device is `position`. Consecutive nudges of one
    /// element are one step.
    virtual void moveElement(SceneEditor& scene, ElementNode& node, tessaro::PointValue position, bool nudge) = 0;
    /// `node`'s size handle was dragged to `size`.
    virtual void resizeElement(SceneEditor& scene, ElementNode& node, tessaro::SizeValue size) = 0;
};

} // namespace stagewright
