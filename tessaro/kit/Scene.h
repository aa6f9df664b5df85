// The root of a node tree: size, anchor, scale mode, the frame loop hooks and
// the physics world.
//
// The scene's space is the kit's: y up, the origin at the anchor point. With
// anchor (0.5, 0.5) the origin is the middle of the scene and frame() is
// (-w/2, -h/2, w, h). The scene ignores its own position, rotation and scale.
//
// One frame, Scene::processFrame(currentTime):
//   1. update(currentTime)
//   2. actions of all nodes advance by the time since the last frame
//   3. didEvaluateActions()
//   4. physics: bodies follow their nodes, the world steps, dynamic bodies
//      move their nodes, contacts are reported to the contact delegate
//   5. didSimulatePhysics()
//   6. didFinishUpdate()
// The view calls it at display rate with a monotonic clock; tests call it
// with the times they choose. The first frame advances nothing.
#pragma once

#include "Node.h"
#include "PhysicsWorld.h"

#include <QColor>
#include <QSizeF>
#include <QTransform>

#include <memory>

namespace tessaro::kit {

class SceneView;

class Scene : public Node, public PhysicsContactDelegate {
public:
    explicit Scene(const QSizeF& size = QSizeF(1024, 768));
    ~Scene() override;

    static std::shared_ptr<Scene> sceneWithSize(const QSizeF& size) { return std::make_shared<Scene>(size); }

    QSizeF size() const { return m_size; }
    void setSize(const QSizeF& size);
    /// Default (0.5, 0.5).
    QPointF anchorPoint() const { return m_anchorPoint; }
    void setAnchorPoint(const QPointF& anchor);
    /// Default aspectFill.
    SceneScaleMode scaleMode() const { return m_scaleMode; }
    void setScaleMode(SceneScaleMode mode);
    /// Default dark grey (0.15, 0.15, 0.15).
    QColor backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const QColor& c);

    /// The scene's rectangle in its own space: (-ax*w, -ay*h, w, h).
    QRectF sceneFrame() const;

    PhysicsWorld& physicsWorld() { return *m_physicsWorld; }
    const PhysicsWorld& physicsWorld() const { return *m_physicsWorld; }

    /// The view that shows the scene, or null.
    SceneView* view() const { return m_view; }

    /// A node of this scene on whose position views centre, so that a game
    /// scrolls without moving its world (and the bodies in it). Children of
    /// the camera stay in place on the screen. Only the camera's position
    /// counts. Null (the default) centres the scene's frame.
    NodePtr camera() const { return m_camera.lock(); }
    void setCamera(const NodePtr& node) { m_camera = node; }

    // --- the frame loop -------------------------------------------------------
    /// Runs one frame at `currentTime` seconds (see the file comment).
    void processFrame(double currentTime);
    /// The time given to the last processFrame, or a negative number before the first.
    double lastFrameTime() const { return m_lastTime; }

    virtual void update(double currentTime);
    virtual void didEvaluateActions();
    virtual void didSimulatePhysics();
    virtual void didFinishUpdate();
    virtual void didMoveToView(SceneView* view);
    virtual void willMoveFromView(SceneView* view);
    virtual void didChangeSize(const QSizeF& oldSize);

    // --- mapping to a view ------------------------------------------------------
    /// Maps scene coordinates to the pixels of a view of `viewSize` (y down),
    /// with the scale mode and an extra `zoom` about the view's centre.
    QTransform sceneToViewTransform(const QSizeF& viewSize, qreal zoom = 1.0) const;
    /// The scene rectangle that a view of `viewSize` shows.
    QRectF visibleRect(const QSizeF& viewSize, qreal zoom = 1.0) const;

    // --- event delivery (the view calls these; tests may too) ------------------
    /// The front-most node at the scene point whose user interaction is
    /// enabled (not the scene itself), or null.
    NodePtr interactiveNodeAtPoint(const QPointF& scenePoint) const;
    enum class MouseKind { Down, Dragged, Up, Moved };
    /// Routes a mouse event: a press goes to interactiveNodeAtPoint or the
    /// scene, the drags and release of that press go to the same node,
    /// moves go to the scene.
    void dispatchMouseEvent(MouseKind kind, const MouseEvent& event);
    void dispatchScrollWheel(const MouseEvent& event);
    void dispatchKeyEvent(bool down, const KeyEvent& event);

    // The scene is the end of the responder chain: by default these do nothing.
    void mouseDown(const MouseEvent&) override {}
    void mouseDragged(const MouseEvent&) override {}
    void mouseUp(const MouseEvent&) override {}
    void rightMouseDown(const MouseEvent&) override {}
    void rightMouseDragged(const MouseEvent&) override {}
    void rightMouseUp(const MouseEvent&) override {}
    void otherMouseDown(const MouseEvent&) override {}
    void otherMouseDragged(const MouseEvent&) override {}
    void otherMouseUp(const MouseEvent&) override {}
    void mouseMoved(const MouseEvent&) override {}
    void scrollWheel(const MouseEvent&) override {}
    void keyDown(const KeyEvent&) override {}
    void keyUp(const KeyEvent&) override {}

    QRectF contentRect() const override;

private:
    friend class SceneView;
    void setView(SceneView* view);
    void evaluateActions(double dt);

    QSizeF m_size;
    QPointF m_anchorPoint{0.5, 0.5};
    SceneScaleMode m_scaleMode = SceneScaleMode::AspectFill;
    QColor m_backgroundColor{38, 38, 38};
    std::unique_ptr<PhysicsWorld> m_physicsWorld;
    SceneView* m_view = nullptr;
    double m_lastTime = -1;
    std::weak_ptr<Node> m_mouseTarget;
    std::weak_ptr<Node> m_camera;
    Qt::MouseButton m_mouseButton = Qt::NoButton;
};

using ScenePtr = std::shared_ptr<Scene>;

} // namespace tessaro::kit
