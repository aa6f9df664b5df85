// A picture of a whole level as the canvas shows it while one scrolls
// through it: view after view from the left edge of the unscrolled view to one
// view width past the end of the ground.
#pragma once

#include <QImage>
#include <QRectF>

namespace stagewright {

class SceneEditor;

/// The part of the level such a picture shows, in scene points.
QRectF wholeLevelRect(const SceneEditor& scene);

/// Draws the whole level `pixelWidth` pixels wide (0: one pixel per point,
/// narrowed to at most 16384 pixels), without the scroll buttons and the
/// read-out. Every view is drawn at its own scroll offset, so backgrounds that
/// stay put in the view repeat in each. The scene is left as it was.
QImage renderWholeLevel(SceneEditor& scene, int pixelWidth = 0);

} // namespace stagewright
