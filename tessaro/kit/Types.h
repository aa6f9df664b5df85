// Small value types shared by the whole kit: units, scale modes, events.
//
// Coordinates: the kit's space has y growing upwards and angles growing
// counter-clockwise, in radians. A node's position is in its parent's space.
// Only the renderer and the view flip to screen space (y down).
#pragma once

#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <Qt>

namespace tessaro::kit {

class Node;

/// Physics runs in metres; the scene in points. 150 points make one metre,
/// so a body of 150 by 150 points has an area of one square metre and a
/// density of 1 gives it a mass of 1 kg. Gravity is in m/s^2, velocities are
/// in points per second, impulses in newton-seconds.
inline constexpr double kPointsPerMeter = 150.0;

/// How a scene is fitted into its view. The numbers are the stored mode
/// numbers of level files.
enum class SceneScaleMode {
    Fill = 0, ///< stretch each axis to the view
    AspectFill = 1, ///< uniform scale, the scene covers the view (may crop)
    AspectFit = 2, ///< uniform scale, the whole scene is visible (may letterbox)
    ResizeFill = 3, ///< the scene takes the view's size, one point per pixel
};

/// A mouse event as the scene sees it. Locations are kept in scene space;
/// locationInNode converts to any node of the same tree.
struct MouseEvent {
    QPointF sceneLocation; ///< the pointer in scene coordinates
    QPointF viewLocation; ///< the pointer in the view's widget pixels (y down)
    QPoint globalLocation; ///< the pointer on the screen, for popup menus
    Qt::MouseButton button = Qt::LeftButton;
    Qt::MouseButtons buttons = Qt::NoButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    int clickCount = 1;
    QPointF scrollDelta; ///< wheel events: degrees (angle delta / 8), y up

    /// The location in the coordinate space of `node`.
    QPointF locationInNode(const Node& node) const;
};

/// A key event, as the scene sees it.
struct KeyEvent {
    int key = 0;
    QString text;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isAutoRepeat = false;
};

} // namespace tessaro::kit
