// Physics bodies over Box2D.
//
// A body is a description of shapes (in points, in the node's space, not
// scaled with the node) and of physical properties. It mirrors with its
// node: under a negative xScale (or yScale) of the node or an ancestor the
// shapes lie mirrored on that axis, as the picture does. It comes to life in the
// scene's physics world while its node is in a scene. Properties can be read
// and set at any time.
//
// Masks. A contact between two bodies is reported to the contact delegate
// when (A.category & B.contactTest) || (B.category & A.contactTest). A body
// is pushed by another when its collision mask shares a bit with the other's
// category. Two dynamic bodies of which only one wants the collision are both
// pushed (the engine resolves contacts symmetrically); a dynamic body that
// does not want to collide with a static or kinematic one passes through it,
// whatever the other's mask says. Contacts exist only when at least one body
// is dynamic.
//
// Driving. A non-dynamic body follows its node: each step it is moved to the
// node's place in the scene (with a velocity, so that it carries what stands
// on it). A dynamic body drives its node: after each step the node's position
// and rotation are set from the body. Setting a dynamic node's position or
// rotation moves the body there.
#pragma once

#include "Texture.h"

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <memory>
#include <vector>

class b2Body;
class b2Joint;

namespace tessaro::kit {

class Node;
class PhysicsWorld;
class PhysicsJoint;

/// One shape of a body, in points, in the node's space.
struct PhysicsShape {
    enum class Kind { Polygon, Circle, Edge, Chain, Loop };
    Kind kind = Kind::Polygon;
    std::vector<QPointF> points; ///< polygon (convex, <= 8), edge (2), chain/loop vertices
    QPointF center; ///< circle
    qreal radius = 0; ///< circle
};

class PhysicsBody : public std::enable_shared_from_this<PhysicsBody> {
public:
    PhysicsBody();
    ~PhysicsBody();
    PhysicsBody(const PhysicsBody&) = delete;
    PhysicsBody& operator=(const PhysicsBody&) = delete;

    // --- constructors (null when the shape is degenerate) ---------------------
    static std::shared_ptr<PhysicsBody> bodyWithRectangleOfSize(const QSizeF& size, const QPointF& center = {});
    static std::shared_ptr<PhysicsBody> bodyWithCircleOfRadius(qreal radius, const QPointF& center = {});
    /// A polygon body. A concave path or one of more than eight vertices is
    /// split into convex pieces. Curves are flattened.
    static std::shared_ptr<PhysicsBody> bodyWithPolygonFromPath(const QPainterPath& path);
    static std::shared_ptr<PhysicsBody> bodyWithPolygon(const std::vector<QPointF>& points);
    /// Edge bodies have no volume and never move.
    static std::shared_ptr<PhysicsBody> bodyWithEdgeFromPoint(const QPointF& from, const QPointF& to);
    static std::shared_ptr<PhysicsBody> bodyWithEdgeLoopFromRect(const QRectF& rect);
    static std::shared_ptr<PhysicsBody> bodyWithEdgeLoopFromPath(const QPainterPath& path);
    static std::shared_ptr<PhysicsBody> bodyWithEdgeChainFromPath(const QPainterPath& path);
    /// A body made of the shapes of all `bodies` (their own properties are
    /// not used).
    static std::shared_ptr<PhysicsBody> bodyWithBodies(const std::vector<std::shared_ptr<PhysicsBody>>& bodies);
    /// A body from the outline of the texture's pixels whose alpha is above
    /// `alphaThreshold` (0..1), stretched to `size` (the texture's size when
    /// empty) and centred on the node's origin. The outline is traced,
    /// simplified to within about a pixel and split into convex pieces of at
    /// most eight vertices; holes are filled. Null when no pixel is opaque.
    static std::shared_ptr<PhysicsBody> bodyWithTexture(const TexturePtr& texture, float alphaThreshold,
                                                        const QSizeF& size = {});
    static std::shared_ptr<PhysicsBody> bodyWithTexture(const TexturePtr& texture, const QSizeF& size = {})
    {
        return bodyWithTexture(texture, 0.0f, size);
    }

    /// A body of the given shapes (null when there are none). Polygons must be
    /// convex with at most eight vertices.
    static std::shared_ptr<PhysicsBody> bodyWithShapes(std::vector<PhysicsShape> shapes);

    const std::vector<PhysicsShape>& shapes() const { return m_shapes; }
    /// True when the body has only edges, chains or loops.
    bool isEdgeBased() const;

    // --- behaviour -----------------------------------------------------------
    /// Moved by the simulation. Default true (always false in effect for edge bodies).
    bool isDynamic() const { return m_dynamic; }
    void setDynamic(bool on);
    /// Held at its node's position by a pin; may still turn. Default false.
    bool isPinned() const { return m_pinned; }
    void setPinned(bool on);
    bool affectedByGravity() const { return m_affectedByGravity; }
    void setAffectedByGravity(bool on);
    bool allowsRotation() const { return m_allowsRotation; }
    void setAllowsRotation(bool on);
    /// Continuous collision detection against other dynamic bodies (bullet).
    bool usesPreciseCollisionDetection() const { return m_precise; }
    void setUsesPreciseCollisionDetection(bool on);

    /// Default 0.2.
    qreal restitution() const { return m_restitution; }
    void setRestitution(qreal r);
    /// Default 0.2.
    qreal friction() const { return m_friction; }
    void setFriction(qreal f);
    /// Default 0.1.
    qreal linearDamping() const { return m_linearDamping; }
    void setLinearDamping(qreal d);
    qreal angularDamping() const { return m_angularDamping; }
    void setAngularDamping(qreal d);
    /// kg per square metre. Default 1.
    qreal density() const { return m_density; }
    void setDensity(qreal d);
    /// kg; setting it sets the density to mass / area.
    qreal mass() const;
    void setMass(qreal mass);
    /// Square metres.
    qreal area() const;

    /// Points per second.
    QPointF velocity() const;
    void setVelocity(const QPointF& v);
    /// Radians per second.
    qreal angularVelocity() const;
    void setAngularVelocity(qreal w);
    /// Newton-seconds, at the centre of mass.
    void applyImpulse(const QPointF& impulse);
    /// Newtons, at the centre of mass, for the next step.
    void applyForce(const QPointF& force);
    void applyTorque(qreal torque);
    void applyAngularImpulse(qreal impulse);
    /// True when the body sleeps in the simulation.
    bool isResting() const;

    // --- masks ---------------------------------------------------------------
    uint32_t categoryBitMask() const { return m_category; }
    void setCategoryBitMask(uint32_t mask);
    uint32_t collisionBitMask() const { return m_collision; }
    void setCollisionBitMask(uint32_t mask);
    uint32_t contactTestBitMask() const { return m_contactTest; }
    void setContactTestBitMask(uint32_t mask);

    /// The bodies touching this one now (contacts that the masks let exist,
    /// whether or not they are reported).
    std::vector<std::shared_ptr<PhysicsBody>> allContactedBodies() const;

    /// The node that carries the body, or null.
    Node* node() const { return m_node; }
    /// The world the body lives in while its node is in a scene, or null.
    PhysicsWorld* world() const { return m_world; }
    /// The joints that hold this body.
    std::vector<std::shared_ptr<PhysicsJoint>> joints() const;

private:
    friend class Node;
    friend class PhysicsWorld;
    friend class PhysicsJoint;
    friend class PhysicsJointPin;

    void refilter();
    /// Category and collision mask in one word, kept on each engine fixture so
    /// that the step's contact checks need not look up this object.
    uintptr_t engineMasks() const { return (uintptr_t(m_collision) << 32) | m_category; }
    void addShapesTo(b2Body* body) const;
    /// Gives the engine body the shapes mirrored as the node now is, when
    /// that changed.
    void followMirror();
    void applyTypeToBody();

    std::vector<PhysicsShape> m_shapes;
    bool m_dynamic = true;
    bool m_pinned = false;
    bool m_affectedByGravity = true;
    bool m_allowsRotation = true;
    bool m_precise = false;
    qreal m_restitution = 0.2;
    qreal m_friction = 0.2;
    qreal m_linearDamping = 0.1;
    qreal m_angularDamping = 0.1;
    qreal m_density = 1.0;
    QPointF m_velocity; // kept while detached
    qreal m_angularVelocity = 0; // kept while detached
    uint32_t m_category = 0xFFFFFFFFu;
    uint32_t m_collision = 0xFFFFFFFFu;
    uint32_t m_contactTest = 0;

    Node* m_node = nullptr;
    PhysicsWorld* m_world = nullptr;
    b2Body* m_body = nullptr;
    b2Joint* m_pin = nullptr; // holds a pinned body in place
    // What the world last wrote to the node (parent space); a different node
    // value means the node was moved from outside.
    QPointF m_writtenPosition;
    qreal m_writtenRotation = 0;
    bool m_written = false;
    int m_reportedPairs = 0; // entries of the world's reported pairs that hold this body
    bool m_entering = false; // attached since the last step; the engine body waits, disabled
    bool m_following = false; // waits in the world's list of bodies to follow their nodes
    bool m_nodeMoved = false; // its node (or an ancestor) moved since it last followed
    bool m_mirrorX = false; // the engine's shapes are mirrored on x
    bool m_mirrorY = false;
};

using PhysicsBodyPtr = std::shared_ptr<PhysicsBody>;

} // namespace tessaro::kit
