// The canvas's tools: what a press, a drag, a release and a key do. A click
// selects an element (or asks the "Object Menu" which of several), a press
// that moves past a few pixels drags the element, and the arrow keys nudge
// it. The canvas shows a move at once; the new place goes to the edit route
// of the scene's hooks, as if it had been typed into the position field.
#pragma once

#include "ElementDrag.h"
#include "ObjectMenu.h"

#include <memory>
#include <optional>
#include <vector>

namespace tessaro::kit {
struct KeyEvent;
struct MouseEvent;
} // namespace tessaro::kit

namespace stagewright {

class ElementNode;
class SceneEditor;

class CanvasTools {
public:
    explicit CanvasTools(SceneEditor& scene) : m_scene(scene) {}

    void mouseDown(const tessaro::kit::MouseEvent& event);
    void mouseDragged(const tessaro::kit::MouseEvent& event);
    void mouseUp(const tessaro::kit::MouseEvent& event);
    void keyDown(const tessaro::kit::KeyEvent& event);

    /// Moves the selected element by (dx, dy) points through the edit route.
    void nudgeSelection(double dx, double dy);
    /// Selects the node of an "Object Menu" entry.
    void handleMenuItem(const NodeMenuItem& item);
    /// The "Object Menu" offering `elements`, in their order.
    static NodeMenu objectMenu(const std::vector<std::shared_ptr<ElementNode>>& elements);
    /// What a click on `node` selects: the owner of a repeated copy, else the node.
    std::shared_ptr<ElementNode> clickTarget(const std::shared_ptr<ElementNode>& node) const;

    /// The press in progress on an element, if any.
    const std::optional<ElementDrag>& drag() const { return m_drag; }

private:
    SceneEditor& m_scene;
    std::optional<ElementDrag> m_drag;
};

} // namespace stagewright
