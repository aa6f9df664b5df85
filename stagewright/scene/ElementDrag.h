// A press on an element that may become a drag: the element moves with the
// pointer once it has gone past a few pixels, and its new place is stored
// when the button is released.
#pragma once

#include <tessaro/model/Geometry.h>

#include <QPointF>

#include <memory>
#include <utility>
#include <vector>

namespace tessaro::kit {
class Node;
}

namespace stagewright {

class ElementNode;

struct ElementDrag {
    /// Pixels the pointer goes before a press becomes a drag.
    static constexpr double threshold = 4;

    std::weak_ptr<ElementNode> node;
    QPointF pressInView; // widget pixels
    QPointF pressInScene;
    QPointF startPosition; // the node's position at the press
    tessaro::PointValue storedPosition; // the default device's position at the press
    /// The repeated copies of a dragged obstacle, which move with it, and
    /// where each stood at the press.
    std::vector<std::pair<std::weak_ptr<tessaro::kit::Node>, QPointF>> copies;
    bool moving = false;
};

} // namespace stagewright
