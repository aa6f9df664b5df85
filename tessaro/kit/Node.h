// The scene graph's base node.
//
// Nodes are reference objects: a parent holds its children through
// std::shared_ptr and a child points back to its parent without owning it.
// Create nodes with std::make_shared (or the static create()), never on the
// stack: shared_from_this is used when a node is searched, hit-tested or
// removed. A node that has been removed from its parent stays valid for as
// long as anybody holds it.
//
// A node's transform is translate(position) * rotate(zRotation) *
// scale(xScale, yScale), in the kit's y-up space. zPosition is a depth
// relative to the parent: the renderer draws by the sum of the z of a node
// and of all its ancestors (global depth), and keeps tree order for ties.
#pragma once

#include "Types.h"

#include <QRectF>
#include <QString>
#include <QTransform>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <vector>

namespace tessaro::kit {

class Action;
class ActionRunner;
class PhysicsBody;
class Scene;
struct DrawContext;

using NodePtr = std::shared_ptr<Node>;
using ActionPtr = std::shared_ptr<Action>;

class Node : public std::enable_shared_from_this<Node> {
public:
    Node();
    virtual ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    static std::shared_ptr<Node> create() { return std::make_shared<Node>(); }

    // --- identity and plain properties -----------------------------------
    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    QPointF position() const { return m_position; }
    void setPosition(const QPointF& p);
    void setPosition(qreal x, qreal y) { setPosition(QPointF(x, y)); }

    qreal zPosition() const { return m_zPosition; }
    void setZPosition(qreal z);

    /// Counter-clockwise rotation in radians.
    qreal zRotation() const { return m_zRotation; }
    void setZRotation(qreal radians);

    qreal xScale() const { return m_xScale; }
    qreal yScale() const { return m_yScale; }
    void setXScale(qreal s);
    void setYScale(qreal s);
    /// Sets both scales.
    void setScale(qreal s);

    qreal alpha() const { return m_alpha; }
    void setAlpha(qreal a);

    bool isHidden() const { return m_hidden; }
    void setHidden(bool hidden);

    bool isUserInteractionEnabled() const { return m_userInteractionEnabled; }
    void setUserInteractionEnabled(bool enabled) { m_userInteractionEnabled = enabled; }

    /// Free storage for the game or editor.
    QVariantMap& userData() { return m_userData; }
    const QVariantMap& userData() const { return m_userData; }

    /// Pauses the actions of this node and of its descendants.
    bool isPaused() const { return m_paused; }
    void setPaused(bool paused) { m_paused = paused; }
    /// Multiplies the speed of the actions of this node and its descendants.
    qreal speed() const { return m_speed; }
    void setSpeed(qreal speed) { m_speed = speed; }

    // --- tree -------------------------------------------------------------
    Node* parent() const { return m_parent; }
    /// The scene this node is in, or null when it is not in a scene.
    Scene* scene() const { return m_scene; }
    const std::vector<NodePtr>& children() const { return m_children; }

    /// Adds `child` as the last child. A node that already has a parent, this
    /// node itself, or one of its ancestors is refused with a warning.
    bool addChild(const NodePtr& child);
    /// Inserts `child` at `index` among the children (clamped to the end).
    bool insertChild(const NodePtr& child, int index);
    void removeFromParent();
    void removeAllChildren();
    void removeChildrenInArray(const std::vector<NodePtr>& nodes);
    /// True when `other` is this node or one of its ancestors.
    bool inParentHierarchy(const Node& other) const;

    // --- searching by name ---------------------------------------------------
    // A search text is a path of names separated by "/". A name may hold "*"
    // (any run of characters) and "[...]" (one character of a set). A leading
    // "/" starts at the root of the tree, a leading "//" searches the whole tree
    // below the root, "//" inside a path searches all descendants, and ".."
    // stands for the parent. Examples: "glow", "//stack_*", "//*",
    // "layer/element", "audio_constant_*".

    /// The first node that matches, in tree order (depth first), or null.
    NodePtr childNodeWithName(const QString& search) const;
    /// Calls `block` for every match in tree order; setting `stop` ends the
    /// walk. The matches are collected first, so the block may change the tree.
    void enumerateChildNodesWithName(const QString& search,
                                     const std::function<void(const NodePtr&, bool& stop)>& block) const;
    /// All matches in tree order.
    std::vector<NodePtr> nodesWithName(const QString& search) const;

    // --- geometry ------------------------------------------------------------
    /// Maps this node's space into its parent's.
    QTransform localTransform() const;
    /// Maps this node's space into the space of the root of its tree (the
    /// scene's space when the node is in a scene).
    QTransform rootTransform() const;

    /// The node's own content rectangle in its own space (empty for nodes
    /// without content, like plain nodes and effect nodes).
    virtual QRectF contentRect() const { return {}; }
    /// True when the node draws something of its own and can be hit.
    virtual bool hasContent() const { return false; }
    /// True when the renderer draws the node's subtree as one picture through
    /// draw() instead of sorting its descendants into the scene (effect nodes).
    virtual bool drawsSubtreeAsOne() const { return false; }

    /// The bounding box of the node's content in the parent's space. For a
    /// node without content: a zero-size rectangle at its position.
    QRectF frame() const;
    /// The bounding box of the node and all its visible and hidden
    /// descendants, in the parent's space.
    QRectF calculateAccumulatedFrame() const;

    /// Converts `p` from this node's space to `node`'s space. Both must be in
    /// the same tree.
    QPointF convertPointToNode(const QPointF& p, const Node& node) const;
    /// Converts `p` from `node`'s space to this node's space.
    QPointF convertPointFromNode(const QPointF& p, const Node& node) const;

    /// True when `p` (in the parent's space) lies on this node's content. The
    /// test is exact for rotated and scaled nodes.
    bool containsPoint(const QPointF& p) const;
    /// All descendants that are not hidden (and have no hidden ancestor below
    /// this node) whose content contains `p` (in this node's space). The list
    /// is front to back: descending global depth, and later in tree order
    /// first among equal depths.
    std::vector<NodePtr> nodesAtPoint(const QPointF& p) const;
    /// The front-most node of nodesAtPoint, or this node when there is none.
    NodePtr nodeAtPoint(const QPointF& p);
    /// True when the accumulated frames of both nodes, in the root's space,
    /// intersect. A scene uses its own frame.
    bool intersectsNode(const Node& other) const;

    // --- actions -------------------------------------------------------------
    /// Runs `action` on this node. A non-empty key replaces a running action of
    /// the same key. Actions run while the node is in a scene, driven by the
    /// scene's frame clock.
    void runAction(const ActionPtr& action, const QString& key = {});
    /// Runs `action`, then calls `completion`.
    void runAction(const ActionPtr& action, std::function<void()> completion);
    ActionPtr actionForKey(const QString& key) const;
    void removeActionForKey(const QString& key);
    void removeAllActions();
    bool hasActions() const;

    // --- physics ---------------------------------------------------------------
    PhysicsBody* physicsBody() const { return m_physicsBody.get(); }
    std::shared_ptr<PhysicsBody> physicsBodyPtr() const { return m_physicsBody; }
    /// Gives the node a body (null removes it). A body belongs to one node at
    /// a time; giving it to another node takes it from the first.
    void setPhysicsBody(const std::shared_ptr<PhysicsBody>& body);

    // --- events -----------------------------------------------------------------
    // The view sends a mouse-down to the front-most node under the pointer that
    // has user interaction enabled, else to the scene; the drags and the up of
    // that press go to the same node. The default handlers pass the event on to
    // the parent.
    virtual void mouseDown(const MouseEvent& event);
    virtual void mouseDragged(const MouseEvent& event);
    virtual void mouseUp(const MouseEvent& event);
    virtual void rightMouseDown(const MouseEvent& event);
    virtual void rightMouseDragged(const MouseEvent& event);
    virtual void rightMouseUp(const MouseEvent& event);
    virtual void otherMouseDown(const MouseEvent& event);
    virtual void otherMouseDragged(const MouseEvent& event);
    virtual void otherMouseUp(const MouseEvent& event);
    virtual void mouseMoved(const MouseEvent& event);
    virtual void scrollWheel(const MouseEvent& event);
    virtual void keyDown(const KeyEvent& event);
    virtual void keyUp(const KeyEvent& event);

    // --- drawing -----------------------------------------------------------------
    /// Draws the node's own content (not its children). The context's
    /// transform maps this node's y-up space to device pixels.
    virtual void draw(DrawContext& context) const;

    /// A counter that grows with every change that alters what the node draws;
    /// caches (effect rasterisation) compare it.
    quint64 revision() const { return m_revision; }

protected:
    /// Marks the node's look as changed.
    void touch() { ++m_revision; }
    /// Tells the physics world that the bodies of this node and of the nodes
    /// below it must follow their nodes at the next step.
    void markMoved();
    /// Called after the node entered a scene (directly or with an ancestor).
    virtual void didEnterScene(Scene& scene);
    /// Called before the node leaves its scene.
    virtual void willLeaveScene(Scene& scene);

private:
    friend class Scene;
    friend class PhysicsWorld;
    friend class Renderer;
    friend class ActionRunner;

    struct RunningAction {
        QString key;
        ActionPtr action;
        std::shared_ptr<ActionRunner> runner;
        double startTime = -1; // frame time at which it was run; -1 when unknown
        bool begun = false;
        bool removed = false;
    };

    void setSceneRecursive(Scene* scene);
    bool acceptChild(const NodePtr& child) const;
    /// Advances the node's actions to the frame at `now`, by `dt` seconds of
    /// action time (the frame's time scaled by `speedFactor`).
    void advanceActions(double now, double dt, double speedFactor);

    QString m_name;
    QPointF m_position;
    qreal m_zPosition = 0;
    qreal m_zRotation = 0;
    qreal m_xScale = 1;
    qreal m_yScale = 1;
    qreal m_alpha = 1;
    qreal m_speed = 1;
    bool m_hidden = false;
    bool m_paused = false;
    bool m_userInteractionEnabled = false;
    quint64 m_revision = 0;
    QVariantMap m_userData;

    Node* m_parent = nullptr;
    Scene* m_scene = nullptr;
    std::vector<NodePtr> m_children;
    std::vector<RunningAction> m_actions;
    int m_actionDepth = 0; // >0 while actions are being advanced
    size_t m_currentAction = 0; // index of the action being advanced
    std::shared_ptr<PhysicsBody> m_physicsBody;
};

/// Glob match of one name against one pattern component ("*" and "[...]").
bool nodeNameMatches(const QString& pattern, const QString& name);

} // namespace tessaro::kit
