#include "PhysicsWorld.h"

#include "Node.h"
#include "Scene.h"
#include "Types.h"

#include <box2d/box2d.h>

#include <algorithm>
#include <cmath>

namespace tessaro::kit {

namespace {

constexpr double kStep = 1.0 / 60.0;
constexpr int kMaxSteps = 8;

inline b2Vec2 toMeters(const QPointF& p)
{
    return b2Vec2(float(p.x() / kPointsPerMeter), float(p.y() / kPointsPerMeter));
}

inline QPointF toPoints(const b2Vec2& v)
{
    return QPointF(double(v.x) * kPointsPerMeter, double(v.y) * kPointsPerMeter);
}

inline PhysicsBody* bodyOf(b2Fixture* f)
{
    return reinterpret_cast<PhysicsBody*>(f->GetBody()->GetUserData().pointer);
}

// The sum of the rotations of `node` and its ancestors, up to (not including) the root.
double sceneRotation(const Node* node)
{
    double a = 0;
    for (const Node* n = node; n && n->parent(); n = n->parent())
        a += n->zRotation();
    return a;
}

QPointF scenePosition(const Node* node)
{
    if (!node->parent() || !node->parent()->parent())
        return node->position(); // a child of the root: no conversion
    return node->parent()->rootTransform().map(node->position());
}

bool wantsCollision(const PhysicsBody* a, const b2Body* ab, const PhysicsBody* b)
{
    return ab->GetType() == b2_dynamicBody && (a->collisionBitMask() & b->categoryBitMask()) != 0;
}

bool reportsContact(const PhysicsBody* a, const PhysicsBody* b)
{
    return (a->categoryBitMask() & b->contactTestBitMask()) != 0 ||
        (b->categoryBitMask() & a->contactTestBitMask()) != 0;
}

} // namespace

// --- engine callbacks ---------------------------------------------------------------

class PhysicsWorld::Listener : public b2ContactListener, public b2ContactFilter, public b2DestructionListener {
public:
    explicit Listener(PhysicsWorld& world) : m_world(world) {}

    bool ShouldCollide(b2Fixture* fa, b2Fixture* fb) override
    {
        PhysicsBody* a = bodyOf(fa);
        PhysicsBody* b = bodyOf(fb);
        if (!a || !b || a == b)
            return false;
        return wantsCollision(a, fa->GetBody(), b) || wantsCollision(b, fb->GetBody(), a) || reportsContact(a, b);
    }

    void BeginContact(b2Contact* contact) override
    {
        PhysicsBody* a = bodyOf(contact->GetFixtureA());
        PhysicsBody* b = bodyOf(contact->GetFixtureB());
        if (!reportsContact(a, b))
            return; // touching is read from the engine; only reports are tracked
        const auto [entry, added] = m_world.m_pairs.try_emplace(key(a, b));
        if (added) {
            ++a->m_reportedPairs;
            ++b->m_reportedPairs;
        }
        PairState& pair = entry->second;
        if (++pair.touching != 1)
            return;
        auto pa = a->weak_from_this().lock();
        auto pb = b->weak_from_this().lock();
        if (!pa || !pb)
            return;
        PhysicsContact c;
        c.m_bodyA = pa;
        c.m_bodyB = pb;
        b2WorldManifold wm;
        contact->GetWorldManifold(&wm);
        const int count = contact->GetManifold()->pointCount;
        if (count > 0) {
            b2Vec2 p = wm.points[0];
            if (count > 1)
                p = 0.5f * (wm.points[0] + wm.points[1]);
            c.m_point = toPoints(p);
        } else {
            c.m_point = toPoints(
                0.5f *
                (contact->GetFixtureA()->GetAABB(0).GetCenter() + contact->GetFixtureB()->GetAABB(0).GetCenter()));
        }
        c.m_normal = QPointF(wm.normal.x, wm.normal.y);
        pair.contact = c;
        pair.eventIndex = int(m_world.m_events.size());
        ++m_world.m_pendingBegins;
        m_world.m_events.emplace_back(true, c);
    }

    void EndContact(b2Contact* contact) override
    {
        if (m_world.m_pairs.empty())
            return;
        PhysicsBody* a = bodyOf(contact->GetFixtureA());
        PhysicsBody* b = bodyOf(contact->GetFixtureB());
        auto it = m_world.m_pairs.find(key(a, b));
        if (it == m_world.m_pairs.end())
            return;
        if (--it->second.touching > 0)
            return;
        m_world.m_events.emplace_back(false, it->second.contact);
        m_world.forgetPair(it);
    }

    void PreSolve(b2Contact* contact, const b2Manifold*) override
    {
        // Every step, for every touching pair: the masks come from the
        // fixtures, which the engine has at hand.
        b2Fixture* fa = contact->GetFixtureA();
        b2Fixture* fb = contact->GetFixtureB();
        const uintptr_t a = fa->GetUserData().pointer, b = fb->GetUserData().pointer;
        const auto pushes = [](const b2Fixture* f, uintptr_t own, uintptr_t other) {
            return f->GetBody()->GetType() == b2_dynamicBody && ((own >> 32) & (other & 0xFFFFFFFFu)) != 0;
        };
        contact->SetEnabled(pushes(fa, a, b) || pushes(fb, b, a));
    }

    void PostSolve(b2Contact* contact, const b2ContactImpulse* impulse) override
    {
        if (m_world.m_pendingBegins == 0)
            return;
        auto it = m_world.m_pairs.find(key(bodyOf(contact->GetFixtureA()), bodyOf(contact->GetFixtureB())));
        if (it == m_world.m_pairs.end() || it->second.eventIndex < 0)
            return;
        float most = 0;
        for (int i = 0; i < impulse->count; ++i)
            most = std::max(most, impulse->normalImpulses[i]);
        auto& c = m_world.m_events[size_t(it->second.eventIndex)].second;
        c.m_impulse = std::max(c.m_impulse, qreal(most));
    }

    void SayGoodbye(b2Joint* joint) override
    {
        for (auto& j : m_world.m_joints)
            if (j->m_joint == joint)
                j->m_joint = nullptr;
        for (PhysicsBody* body : m_world.m_bodies)
            if (body->m_pin == joint)
                body->m_pin = nullptr;
    }
    void SayGoodbye(b2Fixture*) override {}

private:
    PhysicsWorld& m_world;
};

// --- world --------------------------------------------------------------------------

PhysicsWorld::PhysicsWorld(Scene& scene)
    : m_scene(scene),
      m_world(std::make_unique<b2World>(b2Vec2(0.0f, -9.8f))),
      m_listener(std::make_unique<Listener>(*this))
{
    m_world->SetContactListener(m_listener.get());
    m_world->SetContactFilter(m_listener.get());
    m_world->SetDestructionListener(m_listener.get());
    b2BodyDef ground;
    m_ground = m_world->CreateBody(&ground);
}

PhysicsWorld::~PhysicsWorld()
{
    removeAllJoints();
    const auto bodies = m_bodies;
    for (PhysicsBody* body : bodies)
        detach(*body);
    m_events.clear();
}

QPointF PhysicsWorld::gravity() const
{
    const b2Vec2 g = m_world->GetGravity();
    return QPointF(g.x, g.y);
}

void PhysicsWorld::setGravity(const QPointF& g)
{
    m_world->SetGravity(b2Vec2(float(g.x()), float(g.y())));
    for (b2Body* b = m_world->GetBodyList(); b; b = b->GetNext())
        b->SetAwake(true);
}

void PhysicsWorld::attach(PhysicsBody& body)
{
    if (body.m_world == this || !body.m_node)
        return;
    if (body.m_world)
        body.m_world->detach(body);
    Node* node = body.m_node;
    b2BodyDef def;
    def.type = (body.m_dynamic && !body.isEdgeBased()) ? b2_dynamicBody : b2_kinematicBody;
    def.position = toMeters(scenePosition(node));
    def.angle = float(sceneRotation(node));
    def.userData.pointer = reinterpret_cast<uintptr_t>(&body);
    if (def.type == b2_dynamicBody) {
        def.linearVelocity = toMeters(body.m_velocity);
        def.angularVelocity = float(body.m_angularVelocity);
    }
    def.gravityScale = body.m_affectedByGravity ? 1.0f : 0.0f;
    def.fixedRotation = !body.m_allowsRotation;
    def.bullet = body.m_precise;
    def.linearDamping = float(body.m_linearDamping);
    def.angularDamping = float(body.m_angularDamping);
    // The engine body joins the broad-phase at the next step, where its node
    // is by then. A node is often placed after it enters the scene (the
    // editor's elements all are): bodies that joined at once would wait at
    // their layer's origin, every pair of them overlapping there, and each
    // removal before the step would search the engine's list of new proxies.
    def.enabled = false;
    body.m_entering = true;
    m_entering = true;
    b2Body* b = m_world->CreateBody(&def);
    body.followMirror();
    body.addShapesTo(b);
    body.m_body = b;
    body.m_world = this;
    body.m_writtenPosition = node->position();
    body.m_writtenRotation = node->zRotation();
    body.m_written = true;
    m_bodies.push_back(&body);
    m_dynamicStale = true;
    updatePin(body);
}

void PhysicsWorld::detach(PhysicsBody& body)
{
    if (body.m_world != this)
        return;
    if (body.m_body) {
        const b2Vec2 v = body.m_body->GetLinearVelocity();
        body.m_velocity = toPoints(v);
        body.m_angularVelocity = body.m_body->GetAngularVelocity();
    }
    // A body that leaves the world takes its joints with it.
    for (size_t i = 0; i < m_joints.size();) {
        auto& j = m_joints[i];
        if (j->m_bodyA.get() == &body || j->m_bodyB.get() == &body) {
            if (j->m_joint)
                m_world->DestroyJoint(j->m_joint);
            j->m_joint = nullptr;
            j->m_world = nullptr;
            m_joints.erase(m_joints.begin() + long(i));
        } else {
            ++i;
        }
    }
    if (body.m_pin) {
        m_world->DestroyJoint(body.m_pin);
        body.m_pin = nullptr;
    }
    if (body.m_body)
        m_world->DestroyBody(body.m_body); // reports the end of its contacts
    body.m_body = nullptr;
    body.m_entering = false;
    body.m_world = nullptr;
    // Destroying the engine body ended its contacts, and with them its pairs;
    // any left are dropped without a look at the pairs of other bodies.
    for (auto it = m_pairs.begin(); body.m_reportedPairs > 0 && it != m_pairs.end();)
        it = it->first.first == &body || it->first.second == &body ? forgetPair(it) : std::next(it);
    m_bodies.erase(std::remove(m_bodies.begin(), m_bodies.end(), &body), m_bodies.end());
    m_dynamicStale = true;
    if (body.m_following) {
        m_following.erase(std::remove(m_following.begin(), m_following.end(), &body), m_following.end());
        body.m_following = false;
    }
    body.m_nodeMoved = false;
}

PhysicsWorld::PairMap::iterator PhysicsWorld::forgetPair(PairMap::iterator pair)
{
    --pair->first.first->m_reportedPairs;
    --pair->first.second->m_reportedPairs;
    return m_pairs.erase(pair);
}

void PhysicsWorld::enterNewBodies()
{
    if (!m_entering)
        return;
    for (PhysicsBody* body : m_bodies)
        if (body->m_entering) {
            body->m_entering = false;
            body->m_body->SetEnabled(true);
        }
    m_entering = false;
}

void PhysicsWorld::updatePin(PhysicsBody& body)
{
    if (body.m_world != this || !body.m_body)
        return;
    if (body.m_pin) {
        m_world->DestroyJoint(body.m_pin);
        body.m_pin = nullptr;
    }
    if (!body.m_pinned || body.m_body->GetType() != b2_dynamicBody)
        return;
    b2RevoluteJointDef def;
    def.Initialize(m_ground, body.m_body, body.m_body->GetPosition());
    body.m_pin = m_world->CreateJoint(&def);
}

std::vector<PhysicsBodyPtr> PhysicsWorld::contactedBodies(const PhysicsBody& body) const
{
    std::vector<PhysicsBodyPtr> out;
    if (!body.m_body)
        return out;
    for (b2ContactEdge* edge = body.m_body->GetContactList(); edge; edge = edge->next) {
        if (!edge->contact->IsTouching())
            continue;
        auto* other = reinterpret_cast<PhysicsBody*>(edge->other->GetUserData().pointer);
        if (!other)
            continue;
        auto p = other->weak_from_this().lock();
        if (p && std::find(out.begin(), out.end(), p) == out.end())
            out.push_back(p);
    }
    return out;
}

void PhysicsWorld::addJoint(const std::shared_ptr<PhysicsJoint>& joint)
{
    if (!joint || std::find(m_joints.begin(), m_joints.end(), joint) != m_joints.end())
        return;
    if (joint->m_world && joint->m_world != this)
        joint->m_world->removeJoint(joint);
    joint->m_world = this;
    m_joints.push_back(joint);
    createPendingJoints();
}

void PhysicsWorld::removeJoint(const std::shared_ptr<PhysicsJoint>& joint)
{
    auto it = std::find(m_joints.begin(), m_joints.end(), joint);
    if (it == m_joints.end())
        return;
    if (joint->m_joint)
        m_world->DestroyJoint(joint->m_joint);
    joint->m_joint = nullptr;
    joint->m_world = nullptr;
    m_joints.erase(it);
}

void PhysicsWorld::removeAllJoints()
{
    const auto joints = m_joints;
    for (const auto& j : joints)
        removeJoint(j);
}

void PhysicsWorld::createPendingJoints()
{
    for (auto& j : m_joints) {
        if (j->m_joint || !j->m_bodyA || !j->m_bodyB)
            continue;
        if (j->m_bodyA->m_world != this || j->m_bodyB->m_world != this)
            continue;
        j->m_joint = j->create(*m_world);
        if (j->m_joint)
            j->configure();
    }
}

PhysicsBodyPtr PhysicsWorld::bodyAtPoint(const QPointF& scenePoint) const
{
    const b2Vec2 p = toMeters(scenePoint);
    for (PhysicsBody* body : m_bodies) {
        if (!body->m_body)
            continue;
        for (b2Fixture* f = body->m_body->GetFixtureList(); f; f = f->GetNext())
            if (f->TestPoint(p))
                return body->shared_from_this();
    }
    return nullptr;
}

std::vector<PhysicsBodyPtr> PhysicsWorld::bodies() const
{
    std::vector<PhysicsBodyPtr> out;
    for (PhysicsBody* body : m_bodies)
        if (auto p = body->weak_from_this().lock())
            out.push_back(p);
    return out;
}

void PhysicsWorld::nodeMoved(Node& node)
{
    // While the step's results are written, a node moved by its own body
    // need not send that body back.
    if (node.m_physicsBody && !m_writing)
        follow(*node.m_physicsBody, true);
    for (const NodePtr& child : node.m_children)
        followSubtree(*child);
}

void PhysicsWorld::followSubtree(Node& node)
{
    if (node.m_physicsBody)
        follow(*node.m_physicsBody, true);
    for (const NodePtr& child : node.m_children)
        followSubtree(*child);
}

void PhysicsWorld::follow(PhysicsBody& body, bool nodeMoved)
{
    if (body.m_world != this)
        return;
    body.m_nodeMoved = body.m_nodeMoved || nodeMoved;
    if (!body.m_following) {
        body.m_following = true;
        m_following.push_back(&body);
    }
}

void PhysicsWorld::typeChanged(PhysicsBody& body)
{
    m_dynamicStale = true;
    follow(body, true);
}

void PhysicsWorld::syncBodiesFromNodes(double dt)
{
    // Only bodies whose nodes moved, and moving bodies coming to rest, have
    // anything to do: a level of thousands of resting bodies costs nothing.
    std::vector<PhysicsBody*> waiting;
    waiting.swap(m_following);
    for (PhysicsBody* body : waiting)
        body->m_following = false;
    for (PhysicsBody* body : waiting) {
        Node* node = body->m_node;
        b2Body* b = body->m_body;
        const bool moved = body->m_nodeMoved;
        body->m_nodeMoved = false;
        if (!node || !b || body->m_world != this)
            continue;
        if (moved)
            body->followMirror();
        if (b->GetType() == b2_dynamicBody) {
            // A dynamic body moves its node; a node moved from outside moves it back.
            if (body->m_written && node->position() == body->m_writtenPosition &&
                node->zRotation() == body->m_writtenRotation)
                continue;
            b->SetTransform(toMeters(scenePosition(node)), float(sceneRotation(node)));
            b->SetAwake(true);
            body->m_writtenPosition = node->position();
            body->m_writtenRotation = node->zRotation();
            body->m_written = true;
            if (body->m_pin)
                updatePin(*body);
            continue;
        }
        // Non-dynamic bodies follow their node, with the velocity that gets
        // them there in this frame, so that they push what they touch. One
        // that moved in the last frame and whose node stays put comes to rest.
        if (!moved) {
            b->SetLinearVelocity(b2Vec2_zero);
            b->SetAngularVelocity(0);
            continue;
        }
        const b2Vec2 target = toMeters(scenePosition(node));
        const float angle = float(sceneRotation(node));
        const b2Vec2 delta = target - b->GetPosition();
        const float turn = angle - b->GetAngle();
        if (delta.LengthSquared() == 0 && turn == 0) {
            if (b->GetLinearVelocity().LengthSquared() != 0 || b->GetAngularVelocity() != 0) {
                b->SetLinearVelocity(b2Vec2_zero);
                b->SetAngularVelocity(0);
            }
            continue;
        }
        const double perStep = dt / std::max(1.0, std::ceil(dt / kStep - 1e-9));
        if (dt <= 0 || delta.Length() > 0.9f * b2_maxTranslation * float(dt / perStep) ||
            std::abs(turn) > 0.9f * b2_maxRotation) {
            b->SetTransform(target, angle); // a jump, not a motion
            b->SetLinearVelocity(b2Vec2_zero);
            b->SetAngularVelocity(0);
        } else {
            b->SetLinearVelocity((1.0f / float(dt)) * delta);
            b->SetAngularVelocity(turn / float(dt));
            b->SetAwake(true);
            follow(*body, false); // to stop it at the next step
        }
    }
}

void PhysicsWorld::writeBodiesToNodes()
{
    if (m_dynamicStale) {
        m_dynamic.clear();
        for (PhysicsBody* body : m_bodies)
            if (body->m_body && body->m_body->GetType() == b2_dynamicBody)
                m_dynamic.push_back(body->m_body);
        std::sort(m_dynamic.begin(), m_dynamic.end()); // in memory order, which the processor reads ahead
        m_dynamicStale = false;
    }
    m_writing = true;
    // Sleeping bodies have not moved; only the engine's body is looked at
    // for them.
    for (b2Body* b : m_dynamic) {
        if (!b->IsAwake())
            continue;
        PhysicsBody* body = reinterpret_cast<PhysicsBody*>(b->GetUserData().pointer);
        Node* node = body->m_node;
        if (!node)
            continue;
        const QPointF scenePos = toPoints(b->GetPosition());
        Node* parent = node->parent();
        QPointF local = scenePos;
        double parentAngle = 0;
        if (parent && parent->parent()) {
            if (!parent->parent()->parent() && parent->zRotation() == 0 && parent->xScale() == 1 &&
                parent->yScale() == 1) {
                local = scenePos - parent->position(); // a plain layer of the scene
            } else {
                local = parent->rootTransform().inverted().map(scenePos);
                parentAngle = sceneRotation(parent);
            }
        }
        node->setPosition(local);
        if (body->m_allowsRotation)
            node->setZRotation(double(b->GetAngle()) - parentAngle);
        body->m_writtenPosition = node->position();
        body->m_writtenRotation = node->zRotation();
        body->m_written = true;
    }
    m_writing = false;
}

void PhysicsWorld::deliverContacts()
{
    if (m_pendingBegins > 0)
        for (auto& [k, pair] : m_pairs)
            pair.eventIndex = -1;
    m_pendingBegins = 0;
    // A callback may end or start contacts (by removing bodies); deliver those too.
    for (int round = 0; round < 16 && !m_events.empty(); ++round) {
        auto events = std::move(m_events);
        m_events.clear();
        for (const auto& [begin, contact] : events) {
            if (!m_delegate)
                continue;
            if (begin)
                m_delegate->didBeginContact(contact);
            else
                m_delegate->didEndContact(contact);
        }
    }
    m_events.clear();
}

void PhysicsWorld::simulate(double dt)
{
    createPendingJoints();
    const double time = std::min(std::max(0.0, dt * m_speed), kStep * kMaxSteps);
    syncBodiesFromNodes(time);
    enterNewBodies();
    if (time <= 0) {
        m_world->Step(0.0f, m_velocityIterations, m_positionIterations); // finds contacts, moves nothing
    } else {
        const int steps = std::clamp(int(std::ceil(time / kStep - 1e-9)), 1, kMaxSteps);
        const float h = float(time / steps);
        for (int i = 0; i < steps; ++i)
            m_world->Step(h, m_velocityIterations, m_positionIterations);
        writeBodiesToNodes();
    }
    deliverContacts();
}

// --- joints -------------------------------------------------------------------------

PhysicsJoint::~PhysicsJoint() = default;

std::shared_ptr<PhysicsJointPin> PhysicsJointPin::jointWithBodyA(const PhysicsBodyPtr& a, const PhysicsBodyPtr& b,
                                                                 const QPointF& anchor)
{
    if (!a || !b || a == b)
        return nullptr;
    return std::make_shared<PhysicsJointPin>(a, b, anchor);
}

b2Joint* PhysicsJointPin::create(b2World& world)
{
    b2RevoluteJointDef def;
    def.Initialize(m_bodyA->m_body, m_bodyB->m_body, toMeters(m_anchor));
    def.collideConnected = false;
    return world.CreateJoint(&def);
}

void PhysicsJointPin::configure()
{
    auto* joint = static_cast<b2RevoluteJoint*>(m_joint);
    if (!joint)
        return;
    joint->EnableLimit(m_limits);
    joint->SetLimits(float(std::min(m_lower, m_upper)), float(std::max(m_lower, m_upper)));
    const bool motor = m_speed != 0 || m_friction > 0;
    joint->EnableMotor(motor);
    joint->SetMotorSpeed(float(m_speed));
    joint->SetMaxMotorTorque(float(m_speed != 0 ? std::max(m_friction, 1.0e6) : m_friction));
}

void PhysicsJointPin::setShouldEnableLimits(bool on)
{
    m_limits = on;
    configure();
}

void PhysicsJointPin::setLowerAngleLimit(qreal a)
{
    m_lower = a;
    configure();
}

void PhysicsJointPin::setUpperAngleLimit(qreal a)
{
    m_upper = a;
    configure();
}

void PhysicsJointPin::setFrictionTorque(qreal t)
{
    m_friction = t;
    configure();
}

void PhysicsJointPin::setRotationSpeed(qreal s)
{
    m_speed = s;
    configure();
}

} // namespace tessaro::kit
