#include "PhysicsBody.h"

#include "Geometry.h"
#include "Node.h"
#include "PhysicsWorld.h"
#include "Types.h"

#include <box2d/box2d.h>

#include <algorithm>
#include <cmath>

namespace tessaro::kit {

namespace {

inline b2Vec2 toMeters(const QPointF& p)
{
    return b2Vec2(float(p.x() / kPointsPerMeter), float(p.y() / kPointsPerMeter));
}

// The convex hull (counter-clockwise) of points welded the way the engine
// welds them; empty when the engine would refuse the polygon.
std::vector<b2Vec2> engineHull(const std::vector<b2Vec2>& input)
{
    constexpr float weld = (0.5f * b2_linearSlop) * (0.5f * b2_linearSlop);
    std::vector<b2Vec2> pts;
    for (const b2Vec2& v : input) {
        bool unique = true;
        for (const b2Vec2& p : pts)
            if (b2DistanceSquared(v, p) < weld * 4) {
                unique = false;
                break;
            }
        if (unique)
            pts.push_back(v);
    }
    if (pts.size() < 3)
        return {};
    std::sort(pts.begin(), pts.end(),
              [](const b2Vec2& a, const b2Vec2& b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    auto cross = [](const b2Vec2& o, const b2Vec2& a, const b2Vec2& b) {
        return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
    };
    std::vector<b2Vec2> hull(pts.size() * 2);
    size_t k = 0;
    for (size_t i = 0; i < pts.size(); ++i) {
        while (k >= 2 && cross(hull[k - 2], hull[k - 1], pts[i]) <= 0)
            --k;
        hull[k++] = pts[i];
    }
    for (size_t i = pts.size() - 1, t = k + 1; i > 0; --i) {
        while (k >= t && cross(hull[k - 2], hull[k - 1], pts[i - 1]) <= 0)
            --k;
        hull[k++] = pts[i - 1];
    }
    hull.resize(k > 0 ? k - 1 : 0);
    if (hull.size() < 3 || hull.size() > size_t(b2_maxPolygonVertices))
        return {};
    float area = 0;
    for (size_t i = 0; i < hull.size(); ++i)
        area += b2Cross(hull[i], hull[(i + 1) % hull.size()]);
    if (area * 0.5f <= 1e-6f)
        return {};
    return hull;
}

// Chain vertices with neighbours closer than the engine allows removed.
std::vector<b2Vec2> chainVertices(const std::vector<QPointF>& points, bool loop)
{
    std::vector<b2Vec2> out;
    constexpr float minDist2 = (b2_linearSlop * 1.01f) * (b2_linearSlop * 1.01f);
    for (const QPointF& p : points) {
        const b2Vec2 v = toMeters(p);
        if (!out.empty() && b2DistanceSquared(out.back(), v) <= minDist2)
            continue;
        out.push_back(v);
    }
    if (loop)
        while (out.size() > 1 && b2DistanceSquared(out.front(), out.back()) <= minDist2)
            out.pop_back();
    return out;
}

std::shared_ptr<PhysicsBody> withShapes(std::vector<PhysicsShape> shapes)
{
    return PhysicsBody::bodyWithShapes(std::move(shapes));
}

std::vector<PhysicsShape> polygonShapes(const std::vector<QPointF>& points)
{
    std::vector<PhysicsShape> shapes;
    geometry::Polygon poly = geometry::removeCollinear(points, 1e-9);
    if (poly.size() < 3 || std::abs(geometry::signedArea(poly)) < 1e-9)
        return shapes;
    std::vector<geometry::Polygon> pieces;
    if (geometry::isConvex(poly) && poly.size() <= size_t(b2_maxPolygonVertices))
        pieces.push_back(poly);
    else if (geometry::isSimple(poly))
        pieces = geometry::convexDecomposition(poly, b2_maxPolygonVertices);
    if (pieces.empty()) {
        // A self-crossing outline: its convex hull, split if it is large.
        std::vector<QPointF> pts = poly;
        std::sort(pts.begin(), pts.end(), [](const QPointF& a, const QPointF& b) {
            return a.x() < b.x() || (a.x() == b.x() && a.y() < b.y());
        });
        geometry::Polygon hull;
        auto cross = [](const QPointF& o, const QPointF& a, const QPointF& b) {
            return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
        };
        for (int pass = 0; pass < 2; ++pass) {
            const size_t base = hull.size();
            for (const QPointF& p : pts) {
                while (hull.size() >= base + 2 && cross(hull[hull.size() - 2], hull.back(), p) <= 0)
                    hull.pop_back();
                hull.push_back(p);
            }
            hull.pop_back();
            std::reverse(pts.begin(), pts.end());
        }
        pieces = geometry::convexDecomposition(hull, b2_maxPolygonVertices);
    }
    for (auto& piece : pieces)
        shapes.push_back({PhysicsShape::Kind::Polygon, std::move(piece), {}, 0});
    return shapes;
}

std::vector<std::vector<QPointF>> subpaths(const QPainterPath& path)
{
    std::vector<std::vector<QPointF>> out;
    for (const QPolygonF& poly : path.toSubpathPolygons()) {
        std::vector<QPointF> pts(poly.begin(), poly.end());
        while (pts.size() > 1 && pts.front() == pts.back())
            pts.pop_back();
        if (!pts.empty())
            out.push_back(std::move(pts));
    }
    return out;
}

} // namespace

PhysicsBody::PhysicsBody() = default;

PhysicsBody::~PhysicsBody()
{
    if (m_world)
        m_world->detach(*this);
}

// --- constructors -------------------------------------------------------------------

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithShapes(std::vector<PhysicsShape> shapes)
{
    if (shapes.empty())
        return nullptr;
    auto body = std::make_shared<PhysicsBody>();
    body->m_shapes = std::move(shapes);
    return body;
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithRectangleOfSize(const QSizeF& size, const QPointF& center)
{
    if (!(size.width() > 0 && size.height() > 0))
        return nullptr;
    const qreal hw = size.width() / 2, hh = size.height() / 2;
    const qreal cx = center.x(), cy = center.y();
    return withShapes({{PhysicsShape::Kind::Polygon,
                        {{cx - hw, cy - hh}, {cx + hw, cy - hh}, {cx + hw, cy + hh}, {cx - hw, cy + hh}},
                        {},
                        0}});
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithCircleOfRadius(qreal radius, const QPointF& center)
{
    if (!(radius > 0))
        return nullptr;
    return withShapes({{PhysicsShape::Kind::Circle, {}, center, radius}});
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithPolygon(const std::vector<QPointF>& points)
{
    return withShapes(polygonShapes(points));
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithPolygonFromPath(const QPainterPath& path)
{
    const auto paths = subpaths(path);
    if (paths.empty())
        return nullptr;
    return bodyWithPolygon(paths.front());
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithEdgeFromPoint(const QPointF& from, const QPointF& to)
{
    if (from == to)
        return nullptr;
    return withShapes({{PhysicsShape::Kind::Edge, {from, to}, {}, 0}});
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithEdgeLoopFromRect(const QRectF& r)
{
    if (!(r.width() > 0 && r.height() > 0))
        return nullptr;
    return withShapes(
        {{PhysicsShape::Kind::Loop, {r.topLeft(), r.topRight(), r.bottomRight(), r.bottomLeft()}, {}, 0}});
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithEdgeLoopFromPath(const QPainterPath& path)
{
    std::vector<PhysicsShape> shapes;
    for (auto& pts : subpaths(path))
        if (pts.size() >= 3)
            shapes.push_back({PhysicsShape::Kind::Loop, std::move(pts), {}, 0});
    return withShapes(std::move(shapes));
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithEdgeChainFromPath(const QPainterPath& path)
{
    std::vector<PhysicsShape> shapes;
    for (const QPolygonF& poly : path.toSubpathPolygons()) {
        std::vector<QPointF> pts(poly.begin(), poly.end());
        if (pts.size() >= 2)
            shapes.push_back({PhysicsShape::Kind::Chain, std::move(pts), {}, 0});
    }
    return withShapes(std::move(shapes));
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithBodies(const std::vector<std::shared_ptr<PhysicsBody>>& bodies)
{
    std::vector<PhysicsShape> shapes;
    for (const auto& b : bodies)
        if (b)
            shapes.insert(shapes.end(), b->m_shapes.begin(), b->m_shapes.end());
    return withShapes(std::move(shapes));
}

std::shared_ptr<PhysicsBody> PhysicsBody::bodyWithTexture(const TexturePtr& texture, float alphaThreshold,
                                                          const QSizeF& requested)
{
    if (!texture || texture->isNull())
        return nullptr;
    const QSizeF size = requested.isEmpty() ? texture->size() : requested;
    if (!(size.width() > 0 && size.height() > 0))
        return nullptr;
    const auto outline = texture->alphaOutline(alphaThreshold);
    std::vector<PhysicsShape> shapes;
    for (const auto& piece : *outline) {
        PhysicsShape shape;
        for (const QPointF& u : piece)
            shape.points.emplace_back((u.x() - 0.5) * size.width(), (0.5 - u.y()) * size.height());
        std::reverse(shape.points.begin(), shape.points.end()); // y flipped: keep counter-clockwise
        shapes.push_back(std::move(shape));
    }
    return withShapes(std::move(shapes));
}

bool PhysicsBody::isEdgeBased() const
{
    return !m_shapes.empty() && std::all_of(m_shapes.begin(), m_shapes.end(), [](const PhysicsShape& s) {
        return s.kind == PhysicsShape::Kind::Edge || s.kind == PhysicsShape::Kind::Chain ||
            s.kind == PhysicsShape::Kind::Loop;
    });
}

// --- engine side --------------------------------------------------------------------

void PhysicsBody::followMirror()
{
    bool x = false, y = false;
    // The scene itself is the view's frame, not part of what is drawn mirrored.
    for (const Node* n = m_node; n && n->parent(); n = n->parent()) {
        x = x != (n->xScale() < 0);
        y = y != (n->yScale() < 0);
    }
    if (x == m_mirrorX && y == m_mirrorY)
        return;
    m_mirrorX = x;
    m_mirrorY = y;
    if (!m_body)
        return;
    while (b2Fixture* f = m_body->GetFixtureList())
        m_body->DestroyFixture(f);
    addShapesTo(m_body);
    m_body->SetAwake(true);
}

void PhysicsBody::addShapesTo(b2Body* body) const
{
    const auto mirror = [this](const QPointF& p) {
        return QPointF(m_mirrorX ? -p.x() : p.x(), m_mirrorY ? -p.y() : p.y());
    };
    const auto inMeters = [&](const QPointF& p) { return toMeters(mirror(p)); };
    const auto mirrored = [&](std::vector<QPointF> points) {
        for (QPointF& p : points)
            p = mirror(p);
        return points;
    };
    for (const PhysicsShape& s : m_shapes) {
        b2FixtureDef def;
        def.friction = float(m_friction);
        def.restitution = float(m_restitution);
        def.userData.pointer = engineMasks();
        def.density = float(m_density);
        switch (s.kind) {
        case PhysicsShape::Kind::Polygon: {
            std::vector<b2Vec2> pts;
            for (const QPointF& p : s.points)
                pts.push_back(inMeters(p));
            const auto hull = engineHull(pts);
            if (hull.empty())
                break;
            b2PolygonShape shape;
            shape.Set(hull.data(), int32(hull.size()));
            def.shape = &shape;
            body->CreateFixture(&def);
            break;
        }
        case PhysicsShape::Kind::Circle: {
            b2CircleShape shape;
            shape.m_p = inMeters(s.center);
            shape.m_radius = float(s.radius / kPointsPerMeter);
            def.shape = &shape;
            body->CreateFixture(&def);
            break;
        }
        case PhysicsShape::Kind::Edge: {
            if (s.points.size() < 2)
                break;
            const b2Vec2 a = inMeters(s.points[0]), b = inMeters(s.points[1]);
            if (b2DistanceSquared(a, b) <= b2_linearSlop * b2_linearSlop)
                break;
            b2EdgeShape shape;
            shape.SetTwoSided(a, b);
            def.shape = &shape;
            def.density = 0;
            body->CreateFixture(&def);
            break;
        }
        case PhysicsShape::Kind::Chain:
        case PhysicsShape::Kind::Loop: {
            // Separate two-sided edges: the engine's chains collide from one
            // side only, and a loop must hold things inside as well as outside.
            const bool loop = s.kind == PhysicsShape::Kind::Loop;
            const auto v = chainVertices(mirrored(s.points), loop);
            if (v.size() < 2)
                break;
            const size_t segments = loop && v.size() > 2 ? v.size() : v.size() - 1;
            for (size_t i = 0; i < segments; ++i) {
                b2EdgeShape edge;
                edge.SetTwoSided(v[i], v[(i + 1) % v.size()]);
                b2FixtureDef segment = def;
                segment.shape = &edge;
                segment.density = 0;
                body->CreateFixture(&segment);
            }
            break;
        }
        }
    }
}

void PhysicsBody::applyTypeToBody()
{
    if (!m_body)
        return;
    const b2BodyType type = (m_dynamic && !isEdgeBased()) ? b2_dynamicBody : b2_kinematicBody;
    if (m_body->GetType() != type) {
        m_body->SetType(type);
        m_world->typeChanged(*this);
    }
    m_body->SetGravityScale(m_affectedByGravity ? 1.0f : 0.0f);
    m_body->SetFixedRotation(!m_allowsRotation);
    m_body->SetBullet(m_precise);
    m_body->SetLinearDamping(float(m_linearDamping));
    m_body->SetAngularDamping(float(m_angularDamping));
    m_body->SetAwake(true);
}

void PhysicsBody::refilter()
{
    if (!m_body)
        return;
    for (b2Fixture* f = m_body->GetFixtureList(); f; f = f->GetNext()) {
        f->GetUserData().pointer = engineMasks();
        f->Refilter();
    }
    m_body->SetAwake(true); // a sleeping body would keep its old contacts
}

// --- behaviour ----------------------------------------------------------------------

void PhysicsBody::setDynamic(bool on)
{
    m_dynamic = on;
    if (m_world) {
        applyTypeToBody();
        m_world->updatePin(*this);
    }
}

void PhysicsBody::setPinned(bool on)
{
    m_pinned = on;
    if (m_world)
        m_world->updatePin(*this);
}

void PhysicsBody::setAffectedByGravity(bool on)
{
    m_affectedByGravity = on;
    if (m_body) {
        m_body->SetGravityScale(on ? 1.0f : 0.0f);
        m_body->SetAwake(true);
    }
}

void PhysicsBody::setAllowsRotation(bool on)
{
    m_allowsRotation = on;
    if (m_body)
        m_body->SetFixedRotation(!on);
}

void PhysicsBody::setUsesPreciseCollisionDetection(bool on)
{
    m_precise = on;
    if (m_body)
        m_body->SetBullet(on);
}

void PhysicsBody::setRestitution(qreal r)
{
    m_restitution = r;
    if (m_body)
        for (b2Fixture* f = m_body->GetFixtureList(); f; f = f->GetNext())
            f->SetRestitution(float(r));
}

void PhysicsBody::setFriction(qreal fr)
{
    m_friction = fr;
    if (m_body)
        for (b2Fixture* f = m_body->GetFixtureList(); f; f = f->GetNext())
            f->SetFriction(float(fr));
}

void PhysicsBody::setLinearDamping(qreal d)
{
    m_linearDamping = d;
    if (m_body)
        m_body->SetLinearDamping(float(d));
}

void PhysicsBody::setAngularDamping(qreal d)
{
    m_angularDamping = d;
    if (m_body)
        m_body->SetAngularDamping(float(d));
}

void PhysicsBody::setDensity(qreal d)
{
    m_density = d;
    if (m_body) {
        for (b2Fixture* f = m_body->GetFixtureList(); f; f = f->GetNext())
            if (f->GetType() == b2Shape::e_polygon || f->GetType() == b2Shape::e_circle)
                f->SetDensity(float(d));
        m_body->ResetMassData();
    }
}

qreal PhysicsBody::area() const
{
    qreal a = 0;
    const qreal ppm2 = kPointsPerMeter * kPointsPerMeter;
    for (const PhysicsShape& s : m_shapes) {
        if (s.kind == PhysicsShape::Kind::Polygon)
            a += std::abs(geometry::signedArea(s.points)) / ppm2;
        else if (s.kind == PhysicsShape::Kind::Circle)
            a += M_PI * s.radius * s.radius / ppm2;
    }
    return a;
}

qreal PhysicsBody::mass() const
{
    if (m_body && m_body->GetType() == b2_dynamicBody)
        return m_body->GetMass();
    return m_density * area();
}

void PhysicsBody::setMass(qreal mass)
{
    const qreal a = area();
    if (a > 0)
        setDensity(mass / a);
}

QPointF PhysicsBody::velocity() const
{
    if (m_body) {
        const b2Vec2 v = m_body->GetLinearVelocity();
        return QPointF(v.x * kPointsPerMeter, v.y * kPointsPerMeter);
    }
    return m_velocity;
}

void PhysicsBody::setVelocity(const QPointF& v)
{
    m_velocity = v;
    if (m_body && m_body->GetType() == b2_dynamicBody) {
        m_body->SetLinearVelocity(toMeters(v));
        m_body->SetAwake(true);
    }
}

qreal PhysicsBody::angularVelocity() const
{
    return m_body ? m_body->GetAngularVelocity() : m_angularVelocity;
}

void PhysicsBody::setAngularVelocity(qreal w)
{
    m_angularVelocity = w;
    if (m_body && m_body->GetType() == b2_dynamicBody) {
        m_body->SetAngularVelocity(float(w));
        m_body->SetAwake(true);
    }
}

void PhysicsBody::applyImpulse(const QPointF& impulse)
{
    if (m_body) {
        m_body->ApplyLinearImpulseToCenter(b2Vec2(float(impulse.x()), float(impulse.y())), true);
        return;
    }
    const qreal m = mass();
    if (m > 0 && m_dynamic)
        m_velocity += impulse / m * kPointsPerMeter;
}

void PhysicsBody::applyForce(const QPointF& force)
{
    if (m_body)
        m_body->ApplyForceToCenter(b2Vec2(float(force.x()), float(force.y())), true);
}

void PhysicsBody::applyTorque(qreal torque)
{
    if (m_body)
        m_body->ApplyTorque(float(torque), true);
}

void PhysicsBody::applyAngularImpulse(qreal impulse)
{
    if (m_body)
        m_body->ApplyAngularImpulse(float(impulse), true);
}

bool PhysicsBody::isResting() const
{
    return m_body ? !m_body->IsAwake() : true;
}

void PhysicsBody::setCategoryBitMask(uint32_t mask)
{
    m_category = mask;
    refilter();
}

void PhysicsBody::setCollisionBitMask(uint32_t mask)
{
    m_collision = mask;
    refilter();
}

void PhysicsBody::setContactTestBitMask(uint32_t mask)
{
    m_contactTest = mask;
    refilter();
}

std::vector<std::shared_ptr<PhysicsBody>> PhysicsBody::allContactedBodies() const
{
    return m_world ? m_world->contactedBodies(*this) : std::vector<std::shared_ptr<PhysicsBody>>{};
}

std::vector<std::shared_ptr<PhysicsJoint>> PhysicsBody::joints() const
{
    std::vector<std::shared_ptr<PhysicsJoint>> out;
    if (!m_world)
        return out;
    for (const auto& j : m_world->joints())
        if (j->bodyA().get() == this || j->bodyB().get() == this)
            out.push_back(j);
    return out;
}

} // namespace tessaro::kit
