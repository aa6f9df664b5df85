// The physics world of a scene, its contacts and joints.
//
// Every scene owns one world. The scene steps it once per frame after the
// actions (Scene::processFrame); contact callbacks reach the delegate after
// the step has finished, never from inside the engine, so a callback may add
// or remove nodes and bodies freely.
#pragma once

#include "PhysicsBody.h"

#include <QPointF>

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

class b2World;
class b2Joint;

namespace tessaro::kit {

class Scene;

/// One contact between two bodies, as reported to the delegate.
class PhysicsContact {
public:
    PhysicsBodyPtr bodyA() const { return m_bodyA; }
    PhysicsBodyPtr bodyB() const { return m_bodyB; }
    /// A point of the contact in scene coordinates (at its start).
    QPointF contactPoint() const { return m_point; }
    /// The unit normal from A to B.
    QPointF contactNormal() const { return m_normal; }
    /// The largest normal impulse of the first step of the contact, N*s.
    qreal collisionImpulse() const { return m_impulse; }

private:
    friend class PhysicsWorld;
    PhysicsBodyPtr m_bodyA, m_bodyB;
    QPointF m_point, m_normal;
    qreal m_impulse = 0;
};

class PhysicsContactDelegate {
public:
    virtual ~PhysicsContactDelegate() = default;
    virtual void didBeginContact(const PhysicsContact&) {}
    virtual void didEndContact(const PhysicsContact&) {}
};

/// Base of the joints.
class PhysicsJoint : public std::enable_shared_from_this<PhysicsJoint> {
public:
    virtual ~PhysicsJoint();
    PhysicsBodyPtr bodyA() const { return m_bodyA; }
    PhysicsBodyPtr bodyB() const { return m_bodyB; }
    /// True while the joint acts in a world.
    bool isActive() const { return m_joint != nullptr; }

protected:
    PhysicsJoint(PhysicsBodyPtr a, PhysicsBodyPtr b) : m_bodyA(std::move(a)), m_bodyB(std::move(b)) {}
    virtual b2Joint* create(b2World& world) = 0;
    virtual void configure() {}

    friend class PhysicsWorld;
    PhysicsBodyPtr m_bodyA, m_bodyB;
    b2Joint* m_joint = nullptr;
    PhysicsWorld* m_world = nullptr;
};

/// Pins two bodies together at an anchor; they may turn about it.
class PhysicsJointPin : public PhysicsJoint {
public:
    /// `anchor` is in scene coordinates.
    static std::shared_ptr<PhysicsJointPin> jointWithBodyA(const PhysicsBodyPtr& a, const PhysicsBodyPtr& b,
                                                           const QPointF& anchor);
    QPointF anchor() const { return m_anchor; }
    bool shouldEnableLimits() const { return m_limits; }
    void setShouldEnableLimits(bool on);
    /// Radians, relative to the angle at which the joint was made.
    qreal lowerAngleLimit() const { return m_lower; }
    void setLowerAngleLimit(qreal a);
    qreal upperAngleLimit() const { return m_upper; }
    void setUpperAngleLimit(qreal a);
    /// Resistance to turning, N*m.
    qreal frictionTorque() const { return m_friction; }
    void setFrictionTorque(qreal t);
    /// Turns the bodies at this speed (radians per second) when not 0.
    qreal rotationSpeed() const { return m_speed; }
    void setRotationSpeed(qreal s);

    PhysicsJointPin(PhysicsBodyPtr a, PhysicsBodyPtr b, QPointF anchor)
        : PhysicsJoint(std::move(a), std::move(b)),
          m_anchor(anchor)
    {
    }

protected:
    b2Joint* create(b2World& world) override;
    void configure() override;

private:
    QPointF m_anchor;
    bool m_limits = false;
    qreal m_lower = 0, m_upper = 0, m_friction = 0, m_speed = 0;
};

class PhysicsWorld {
public:
    explicit PhysicsWorld(Scene& scene);
    ~PhysicsWorld();
    PhysicsWorld(const PhysicsWorld&) = delete;
    PhysicsWorld& operator=(const PhysicsWorld&) = delete;

    /// m/s^2; default (0, -9.8).
    QPointF gravity() const;
    void setGravity(const QPointF& g);
    /// Multiplies simulated time. At 0 nothing moves, but bodies still follow
    /// their nodes and contacts are still found and reported.
    qreal speed() const { return m_speed; }
    void setSpeed(qreal s) { m_speed = s; }

    PhysicsContactDelegate* contactDelegate() const { return m_delegate; }
    void setContactDelegate(PhysicsContactDelegate* d) { m_delegate = d; }

    void addJoint(const std::shared_ptr<PhysicsJoint>& joint);
    void removeJoint(const std::shared_ptr<PhysicsJoint>& joint);
    void removeAllJoints();
    const std::vector<std::shared_ptr<PhysicsJoint>>& joints() const { return m_joints; }

    /// The first body whose shapes contain the scene point, or null.
    PhysicsBodyPtr bodyAtPoint(const QPointF& scenePoint) const;
    /// The bodies that live in the world now.
    std::vector<PhysicsBodyPtr> bodies() const;

    /// Advances the world by `dt` seconds: moves non-dynamic bodies to their
    /// nodes, simulates (in steps of at most 1/60 s, at most eight of them),
    /// writes dynamic bodies back to their nodes and reports contacts.
    /// Called by the scene once per frame.
    void simulate(double dt);

    /// Velocity and position iterations of the solver (8 and 3).
    void setSolverIterations(int velocity, int position)
    {
        m_velocityIterations = velocity;
        m_positionIterations = position;
    }

    b2World& engine() { return *m_world; }

    /// A node moved (or turned or scaled): its body and the bodies below it
    /// follow at the next step. Nodes call this; bodies of nodes that stay
    /// put cost nothing per step.
    void nodeMoved(Node& node);

private:
    friend class PhysicsBody;
    friend class Node;
    friend class PhysicsJoint;
    class Listener;

    void attach(PhysicsBody& body);
    void detach(PhysicsBody& body);
    void updatePin(PhysicsBody& body);
    void enterNewBodies();
    std::vector<PhysicsBodyPtr> contactedBodies(const PhysicsBody& body) const;
    void follow(PhysicsBody& body, bool nodeMoved);
    void followSubtree(Node& node);
    void typeChanged(PhysicsBody& body);
    void syncBodiesFromNodes(double dt);
    void writeBodiesToNodes();
    void createPendingJoints();
    void deliverContacts();

    // A pair of bodies whose contact was reported: the number of touching
    // fixture pairs between them (compound bodies touch more than once).
    struct PairState {
        int touching = 0;
        int eventIndex = -1; // index of its begin event in m_events during a step
        PhysicsContact contact;
    };
    using PairKey = std::pair<PhysicsBody*, PhysicsBody*>;
    struct PairHash {
        size_t operator()(const PairKey& k) const
        {
            return std::hash<const void*>()(k.first) * 31 + std::hash<const void*>()(k.second);
        }
    };
    static PairKey key(PhysicsBody* a, PhysicsBody* b) { return a < b ? PairKey{a, b} : PairKey{b, a}; }
    using PairMap = std::unordered_map<PairKey, PairState, PairHash>;
    PairMap::iterator forgetPair(PairMap::iterator pair);

    Scene& m_scene;
    std::unique_ptr<b2World> m_world;
    std::unique_ptr<Listener> m_listener;
    b2Body* m_ground = nullptr;
    std::vector<PhysicsBody*> m_bodies;
    std::vector<PhysicsBody*> m_following; // bodies to move to their nodes at the next step
    std::vector<b2Body*> m_dynamic; // the engine bodies of the dynamic ones of m_bodies, rebuilt when stale
    bool m_dynamicStale = true;
    bool m_entering = false; // bodies were attached since the last step
    bool m_writing = false; // the step's results are being written to the nodes
    std::vector<std::shared_ptr<PhysicsJoint>> m_joints;
    PairMap m_pairs;
    int m_pendingBegins = 0; // begin events waiting for their impulse in this step
    std::vector<std::pair<bool, PhysicsContact>> m_events; // (begin?, contact)
    PhysicsContactDelegate* m_delegate = nullptr;
    qreal m_speed = 1;
    int m_velocityIterations = 8;
    int m_positionIterations = 3;
};

} // namespace tessaro::kit
