// Physics over Box2D: contacts and masks, bodies following and driving their
// nodes, joints, and bodies traced from a texture's alpha.
#include <tessaro/kit/Action.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/SpriteNode.h>

#include <box2d/box2d.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro::kit;

namespace {

struct Log : PhysicsContactDelegate {
    Scene* scene = nullptr;
    int begins = 0, ends = 0;
    double firstBeginTime = -1;
    bool lockedDuringCallback = false;
    std::vector<PhysicsContact> contacts;
    void didBeginContact(const PhysicsContact& c) override
    {
        ++begins;
        contacts.push_back(c);
        if (firstBeginTime < 0)
            firstBeginTime = scene->lastFrameTime();
        lockedDuringCallback |= scene->physicsWorld().engine().IsLocked();
    }
    void didEndContact(const PhysicsContact&) override { ++ends; }
};

struct World {
    std::shared_ptr<Scene> scene = Scene::sceneWithSize({800, 600});
    Log log;
    double t = 0;
    World()
    {
        log.scene = scene.get();
        scene->physicsWorld().setContactDelegate(&log);
        scene->processFrame(0);
    }
    void run(double seconds)
    {
        const int frames = int(std::lround(seconds * 60));
        for (int i = 0; i < frames; ++i) {
            t += 1.0 / 60.0;
            scene->processFrame(t);
        }
    }
    std::shared_ptr<SpriteNode> floor(uint32_t category, uint32_t contact, uint32_t collision)
    {
        auto node = SpriteNode::create(Qt::gray, {600, 20});
        node->setPosition(0, -200);
        auto body = PhysicsBody::bodyWithRectangleOfSize({600, 20});
        body->setDynamic(false);
        body->setRestitution(0); // the engine takes the larger of two restitutions
        body->setCategoryBitMask(category);
        body->setContactTestBitMask(contact);
        body->setCollisionBitMask(collision);
        node->setPhysicsBody(body);
        scene->addChild(node);
        return node;
    }
    std::shared_ptr<SpriteNode> ball(uint32_t category, uint32_t contact, uint32_t collision, QPointF at = {0, 100})
    {
        auto node = SpriteNode::create(Qt::red, {20, 20});
        node->setPosition(at);
        auto body = PhysicsBody::bodyWithCircleOfRadius(10);
        body->setRestitution(0);
        body->setCategoryBitMask(category);
        body->setContactTestBitMask(contact);
        body->setCollisionBitMask(collision);
        node->setPhysicsBody(body);
        scene->addChild(node);
        return node;
    }
};

bool insideConvex(const std::vector<QPointF>& poly, QPointF p)
{
    int sign = 0;
    for (size_t i = 0; i < poly.size(); ++i) {
        const QPointF a = poly[i], b = poly[(i + 1) % poly.size()];
        const double c = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
        if (c == 0)
            continue;
        const int s = c > 0 ? 1 : -1;
        if (sign && s != sign)
            return false;
        sign = s;
    }
    return true;
}

bool insideBody(const PhysicsBody& body, QPointF p)
{
    for (const PhysicsShape& s : body.shapes())
        if (s.kind == PhysicsShape::Kind::Polygon && insideConvex(s.points, p))
            return true;
    return false;
}

double polygonArea(const std::vector<QPointF>& p)
{
    double a = 0;
    for (size_t i = 0; i < p.size(); ++i)
        a += p[i].x() * p[(i + 1) % p.size()].y() - p[(i + 1) % p.size()].x() * p[i].y();
    return std::abs(a) / 2;
}

} // namespace

TEST(Physics, BallFallsOnFloorAndTheContactIsReportedAfterTheStep)
{
    World w;
    auto floor = w.floor(0x1, 0, 0);
    auto ball = w.ball(0x2, 0x1, 0x1);
    w.run(3.0);

    EXPECT_EQ(w.log.begins, 1);
    EXPECT_EQ(w.log.ends, 0);
    EXPECT_FALSE(w.log.lockedDuringCallback);
    // A free fall of 280 points (1.87 m) takes about 0.62 s.
    EXPECT_GT(w.log.firstBeginTime, 0.55);
    EXPECT_LT(w.log.firstBeginTime, 0.75);
    // The ball rests on the floor's top (y -190) with its radius of 10; the
    // engine keeps polygons a skin of about 1.5 points apart.
    EXPECT_NEAR(ball->position().y(), -180, 2.5);
    EXPECT_NEAR(ball->position().x(), 0, 0.5);
    ASSERT_EQ(w.log.contacts.size(), 1u);
    const PhysicsContact& c = w.log.contacts.front();
    EXPECT_TRUE((c.bodyA() == ball->physicsBodyPtr() && c.bodyB() == floor->physicsBodyPtr()) ||
                (c.bodyB() == ball->physicsBodyPtr() && c.bodyA() == floor->physicsBodyPtr()));
    EXPECT_NEAR(c.contactPoint().y(), -190, 2.5);
    EXPECT_NEAR(std::abs(c.contactNormal().y()), 1.0, 1e-3);
    EXPECT_GT(c.collisionImpulse(), 0);
    const auto touching = ball->physicsBody()->allContactedBodies();
    ASSERT_EQ(touching.size(), 1u);
    EXPECT_EQ(touching.front(), floor->physicsBodyPtr());
    EXPECT_NEAR(ball->physicsBody()->velocity().y(), 0, 1.0);

    // Taking the floor away ends the contact and the ball falls on.
    floor->removeFromParent();
    EXPECT_EQ(floor->physicsBody()->world(), nullptr);
    w.run(0.5);
    EXPECT_EQ(w.log.ends, 1);
    EXPECT_TRUE(ball->physicsBody()->allContactedBodies().empty());
    EXPECT_LT(ball->position().y(), -200);
}

TEST(Physics, MasksDecideWhatIsReportedAndWhatCollides)
{
    struct Result {
        int begins, ends;
        double y;
    };
    auto drop = [](uint32_t bCat, uint32_t bContact, uint32_t bCollision, uint32_t fCat, uint32_t fContact,
                   uint32_t fCollision) {
        World w;
        w.floor(fCat, fContact, fCollision);
        auto ball = w.ball(bCat, bContact, bCollision);
        w.run(2.0);
        return Result{w.log.begins, w.log.ends, ball->position().y()};
    };
    constexpr uint32_t FLOOR = 0x20, BALL = 0x1;

    // Collides, nobody asks for a report.
    Result r = drop(BALL, 0, FLOOR, FLOOR, 0, 0);
    EXPECT_EQ(r.begins, 0);
    EXPECT_NEAR(r.y, -180, 2.5);
    // Either side's contact-test mask is enough for a report.
    r = drop(BALL, FLOOR, FLOOR, FLOOR, 0, 0);
    EXPECT_EQ(r.begins, 1);
    r = drop(BALL, 0, FLOOR, FLOOR, BALL, 0);
    EXPECT_EQ(r.begins, 1);
    EXPECT_EQ(r.ends, 0);
    // A contact-test mask that names another category reports nothing.
    r = drop(BALL, 0x4, FLOOR, FLOOR, 0x8, 0);
    EXPECT_EQ(r.begins, 0);
    // Without collision the ball passes through; a watched pass is reported
    // as a begin and an end.
    r = drop(BALL, FLOOR, 0, FLOOR, 0, 0);
    EXPECT_EQ(r.begins, 1);
    EXPECT_EQ(r.ends, 1);
    EXPECT_LT(r.y, -300);
    r = drop(BALL, 0, 0, FLOOR, 0, 0);
    EXPECT_EQ(r.begins, 0);
    EXPECT_LT(r.y, -300);
    // The wish of the body that does not move does not stop the one that does.
    r = drop(BALL, 0, 0, FLOOR, 0, BALL);
    EXPECT_LT(r.y, -300);
    r = drop(BALL, 0, FLOOR, FLOOR, 0, 0xFFFFFFFF);
    EXPECT_NEAR(r.y, -180, 2.5);

    // Changing masks while bodies touch takes effect at once.
    World w;
    w.floor(FLOOR, 0, 0);
    auto ball = w.ball(BALL, FLOOR, FLOOR);
    w.run(2.0);
    ASSERT_EQ(w.log.begins, 1);
    ball->physicsBody()->setCollisionBitMask(0);
    w.run(1.0);
    EXPECT_EQ(w.log.ends, 1);
    EXPECT_LT(ball->position().y(), -250);
}

TEST(Physics, BodiesFollowAndDriveTheirNodes)
{
    World w;
    w.scene->physicsWorld().setGravity({0, -9.8});
    // A platform moved by an action carries a box that stands on it.
    auto platform = SpriteNode::create(Qt::gray, {200, 20});
    platform->setPosition(-200, 0);
    auto pbody = PhysicsBody::bodyWithRectangleOfSize({200, 20});
    pbody->setDynamic(false);
    pbody->setFriction(1.0);
    platform->setPhysicsBody(pbody);
    w.scene->addChild(platform);
    auto box = SpriteNode::create(Qt::red, {20, 20});
    box->setPosition(-200, 21);
    auto bbody = PhysicsBody::bodyWithRectangleOfSize({20, 20});
    bbody->setFriction(1.0);
    bbody->setAllowsRotation(false);
    box->setPhysicsBody(bbody);
    w.scene->addChild(box);
    w.run(0.5);
    const double startX = box->position().x();
    platform->runAction(Action::moveBy(300, 0, 1.0));
    w.run(1.5);
    EXPECT_NEAR(platform->position().x(), 100, 1e-9);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({100, 0}), pbody);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({-200, -5}), nullptr);
    EXPECT_GT(box->position().x() - startX, 250);
    EXPECT_NEAR(box->position().y(), 20, 4); // two polygon skins of 1.5 points

    EXPECT_DOUBLE_EQ(box->zRotation(), 0);

    // Setting a dynamic node's position moves its body there.
    box->setPosition(300, 200);
    w.run(1.0 / 60);
    EXPECT_NEAR(box->position().x(), 300, 0.5);
    EXPECT_LT(box->position().y(), 200);
    EXPECT_GT(box->position().y(), 195);

    // Moving a layer takes the bodies of the nodes in it along; they stay
    // with their nodes once the layer rests, and so does the platform whose
    // action has ended.
    auto shelf = Node::create();
    w.scene->addChild(shelf);
    auto plank = SpriteNode::create(Qt::gray, {40, 10});
    plank->setPosition(0, -100);
    auto plankBody = PhysicsBody::bodyWithRectangleOfSize({40, 10});
    plankBody->setDynamic(false);
    plank->setPhysicsBody(plankBody);
    shelf->addChild(plank);
    w.run(0.1);
    shelf->setPosition(-10, 0);
    w.run(1.0 / 60);
    shelf->setPosition(-300, 0);
    w.run(1.0 / 60);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({-300, -100}), plankBody);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({0, -100}), nullptr);
    w.run(0.5);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({-300, -100}), plankBody);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({100, 0}), pbody);
    EXPECT_EQ(pbody->velocity(), QPointF());

    // In a moved layer, the node's position stays in the layer's space.
    auto layer = Node::create();
    layer->setPosition(100, 50);
    w.scene->addChild(layer);
    auto child = SpriteNode::create(Qt::red, {10, 10});
    child->setPhysicsBody(PhysicsBody::bodyWithCircleOfRadius(5));
    child->physicsBody()->setAffectedByGravity(false);
    child->physicsBody()->setVelocity({30, 0}); // points per second
    layer->addChild(child);
    w.run(1.0);
    // Linear damping 0.1: the distance is 30 * (1 - e^-0.1) / 0.1.
    EXPECT_NEAR(child->position().x(), 30 * (1 - std::exp(-0.1)) / 0.1, 0.5);
    EXPECT_NEAR(child->position().y(), 0, 1e-3);
    EXPECT_NEAR(child->convertPointToNode({0, 0}, *w.scene).x(), 100 + child->position().x(), 1e-9);

    // A body out of the scene keeps its velocity and takes it back in.
    const QPointF v = child->physicsBody()->velocity();
    child->removeFromParent();
    EXPECT_EQ(child->physicsBody()->world(), nullptr);
    EXPECT_EQ(child->physicsBody()->velocity(), v);
    layer->addChild(child);
    EXPECT_NEAR(child->physicsBody()->velocity().x(), v.x(), 1e-3);

    // A body given to another node leaves the first.
    auto other = SpriteNode::create(Qt::red, {10, 10});
    w.scene->addChild(other);
    other->setPhysicsBody(child->physicsBodyPtr());
    EXPECT_EQ(child->physicsBody(), nullptr);
    EXPECT_EQ(other->physicsBody()->node(), other.get());
    EXPECT_EQ(other->physicsBody()->world(), &w.scene->physicsWorld());

    // An edge loop on the scene itself keeps a falling body inside the frame.
    World boxed;
    boxed.scene->setPhysicsBody(PhysicsBody::bodyWithEdgeLoopFromRect(boxed.scene->sceneFrame()));
    EXPECT_FALSE(boxed.scene->physicsBody()->isDynamic() && !boxed.scene->physicsBody()->isEdgeBased());
    auto inside = boxed.ball(0x1, 0, 0xFFFFFFFF, {300, 0});
    inside->physicsBody()->setVelocity({900, 0});
    boxed.run(2.0);
    EXPECT_LE(inside->position().x(), 390.5);
    EXPECT_NEAR(inside->position().y(), -290, 1.5);

    // At world speed 0 nothing moves, yet contacts are still found.
    World still;
    still.scene->physicsWorld().setSpeed(0);
    still.floor(0x20, 0, 0);
    auto resting = still.ball(0x1, 0x20, 0x20, {0, -185});
    still.run(0.5);
    EXPECT_EQ(still.log.begins, 1);
    EXPECT_EQ(resting->position(), QPointF(0, -185));
}

TEST(Physics, MassesAndJoints)
{
    auto square = PhysicsBody::bodyWithRectangleOfSize({150, 150});
    EXPECT_NEAR(square->area(), 1.0, 1e-9);
    EXPECT_NEAR(square->mass(), 1.0, 1e-9);
    square->setMass(3);
    EXPECT_NEAR(square->density(), 3, 1e-9);
    auto circle = PhysicsBody::bodyWithCircleOfRadius(75, {10, 0});
    EXPECT_NEAR(circle->area(), M_PI / 4, 1e-9);
    auto both = PhysicsBody::bodyWithBodies({square, circle});
    EXPECT_EQ(both->shapes().size(), 2u);
    EXPECT_EQ(PhysicsBody::bodyWithRectangleOfSize({0, 10}), nullptr);
    EXPECT_TRUE(PhysicsBody::bodyWithEdgeFromPoint({0, 0}, {10, 0})->isEdgeBased());

    World w;
    // A pinned body stays where it is but may turn; a body pinned to it swings.
    auto hub = SpriteNode::create(Qt::gray, {20, 20});
    hub->setPosition(0, 100);
    hub->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({20, 20}));
    hub->physicsBody()->setPinned(true);
    w.scene->addChild(hub);
    auto bob = SpriteNode::create(Qt::red, {20, 20});
    bob->setPosition(100, 100);
    bob->setPhysicsBody(PhysicsBody::bodyWithCircleOfRadius(10));
    bob->physicsBody()->setCollisionBitMask(0);
    w.scene->addChild(bob);
    auto pin = PhysicsJointPin::jointWithBodyA(hub->physicsBodyPtr(), bob->physicsBodyPtr(), {100, 100});
    w.scene->physicsWorld().addJoint(pin);
    EXPECT_TRUE(pin->isActive());
    EXPECT_EQ(hub->physicsBody()->joints().size(), 1u);
    w.run(0.4);
    EXPECT_NEAR(hub->position().x(), 0, 0.5);
    EXPECT_NEAR(hub->position().y(), 100, 0.5);
    EXPECT_GT(std::abs(hub->zRotation()), 0.05);
    // The bob keeps its distance from the hub's centre while it swings down.
    const double d = std::hypot(bob->position().x() - hub->position().x(), bob->position().y() - hub->position().y());
    EXPECT_NEAR(d, 100, 2);
    EXPECT_LT(bob->position().y(), 90);

    // Removing a node takes its joints out of the world.
    bob->removeFromParent();
    EXPECT_FALSE(pin->isActive());
    EXPECT_TRUE(w.scene->physicsWorld().joints().empty());
}

TEST(Physics, TextureBodiesCoverTheOpaquePixelsOfARealPng)
{
    // A disc and a bar joined into one concave shape, with a faint fringe.
    const int W = 120, H = 80;
    QImage image(W, H, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    auto opaque = [](int x, int y) {
        const double dx = x + 0.5 - 40, dy = y + 0.5 - 40;
        return dx * dx + dy * dy <= 30 * 30 || (x >= 60 && x < 110 && y >= 30 && y < 70);
    };
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x) {
            if (opaque(x, y)) {
                image.setPixel(x, y, qRgba(200, 40, 40, 255));
                continue;
            }
            for (int dy = -2; dy <= 2; ++dy)
                for (int dx = -2; dx <= 2; ++dx)
                    if (opaque(x + dx, y + dy))
                        image.setPixel(x, y, qRgba(200, 40, 40, 60));
        }
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath("shape.png");
    ASSERT_TRUE(image.save(path));
    auto texture = Texture::fromFile(path);
    ASSERT_TRUE(texture);
    EXPECT_EQ(texture->size(), QSizeF(W, H));

    auto body = PhysicsBody::bodyWithTexture(texture, 0.5f);
    ASSERT_TRUE(body);
    for (const PhysicsShape& s : body->shapes()) {
        EXPECT_EQ(s.kind, PhysicsShape::Kind::Polygon);
        EXPECT_GE(s.points.size(), 3u);
        EXPECT_LE(s.points.size(), 8u);
    }
    // Compare pixel by pixel: a miss is allowed only next to the outline.
    const QImage loaded(path);
    auto solidAt = [&](int x, int y) { return x >= 0 && y >= 0 && x < W && y < H && qAlpha(loaded.pixel(x, y)) > 127; };
    int wrong = 0, farWrong = 0, total = 0;
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x) {
            ++total;
            const QPointF local(x + 0.5 - W / 2.0, H / 2.0 - (y + 0.5));
            const bool in = insideBody(*body, local);
            if (in == solidAt(x, y))
                continue;
            ++wrong;
            bool nearEdge = false;
            for (int dy = -2; dy <= 2 && !nearEdge; ++dy)
                for (int dx = -2; dx <= 2 && !nearEdge; ++dx)
                    nearEdge = solidAt(x + dx, y + dy) != solidAt(x, y);
            if (!nearEdge)
                ++farWrong;
        }
    EXPECT_EQ(farWrong, 0);
    EXPECT_LT(double(wrong) / total, 0.02);
    // The area matches the opaque pixels.
    int opaqueCount = 0;
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x)
            opaqueCount += solidAt(x, y);
    double area = 0;
    for (const PhysicsShape& s : body->shapes())
        area += polygonArea(s.points);
    EXPECT_NEAR(area, opaqueCount, opaqueCount * 0.03);

    // With threshold 0 the fringe counts too; a given size stretches the body.
    auto wide = PhysicsBody::bodyWithTexture(texture, 0.0f);
    EXPECT_GT(wide->area(), body->area() * 1.05);
    auto big = PhysicsBody::bodyWithTexture(texture, 0.5f, {240, 160});
    EXPECT_NEAR(big->area(), body->area() * 4, body->area() * 0.01);
    // A fully transparent texture has no body.
    QImage clear(16, 16, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    EXPECT_EQ(PhysicsBody::bodyWithTexture(Texture::fromImage(clear), 0.5f), nullptr);

    // The traced body is solid in the world: a ball rests on the bar's top.
    World w;
    auto shape = SpriteNode::create(texture);
    shape->setPosition(0, -100);
    shape->setPhysicsBody(body);
    body->setDynamic(false);
    w.scene->addChild(shape);
    auto ball = w.ball(0x1, 0, 0xFFFFFFFF, {45, 50}); // above the bar: image x 105
    w.run(2.0);
    EXPECT_NEAR(ball->position().y(), -100 + (H / 2.0 - 30) + 10, 2.5);
}

TEST(Physics, PolygonBodiesSplitConcaveOutlines)
{
    QPainterPath l;
    l.moveTo(0, 0);
    l.lineTo(60, 0);
    l.lineTo(60, 20);
    l.lineTo(20, 20);
    l.lineTo(20, 60);
    l.lineTo(0, 60);
    l.closeSubpath();
    auto body = PhysicsBody::bodyWithPolygonFromPath(l);
    ASSERT_TRUE(body);
    EXPECT_GE(body->shapes().size(), 2u);
    double area = 0;
    for (const PhysicsShape& s : body->shapes()) {
        area += polygonArea(s.points);
        EXPECT_LE(s.points.size(), 8u);
    }
    EXPECT_NEAR(area, 2000, 1e-6);
    EXPECT_TRUE(insideBody(*body, {10, 50}));
    EXPECT_TRUE(insideBody(*body, {50, 10}));
    EXPECT_FALSE(insideBody(*body, {40, 40}));

    // Twelve vertices of a convex outline exceed the engine's limit of eight.
    std::vector<QPointF> round;
    for (int i = 0; i < 12; ++i)
        round.emplace_back(50 * std::cos(i * M_PI / 6), 50 * std::sin(i * M_PI / 6));
    auto disc = PhysicsBody::bodyWithPolygon(round);
    ASSERT_TRUE(disc);
    EXPECT_GE(disc->shapes().size(), 2u);
    area = 0;
    for (const PhysicsShape& s : disc->shapes())
        area += polygonArea(s.points);
    EXPECT_NEAR(area, polygonArea(round), 1e-6);
}

TEST(Physics, BodiesMirrorWithTheirNodes)
{
    World w;
    w.scene->physicsWorld().setGravity({0, 0});
    // An L: a post left of the centre and a foot to the right.
    QPainterPath outline;
    outline.moveTo(-20, -20);
    outline.lineTo(30, -20);
    outline.lineTo(30, -10);
    outline.lineTo(-10, -10);
    outline.lineTo(-10, 20);
    outline.lineTo(-20, 20);
    outline.closeSubpath();
    auto carrier = Node::create();
    carrier->setPosition(100, 0);
    auto node = Node::create();
    node->setPhysicsBody(PhysicsBody::bodyWithPolygonFromPath(outline));
    node->physicsBody()->setDynamic(false);
    carrier->addChild(node);
    w.scene->addChild(carrier);
    const auto at = [&](double x, double y) {
        return w.scene->physicsWorld().bodyAtPoint(QPointF(100 + x, y)) != nullptr;
    };

    w.run(1.0 / 60);
    EXPECT_TRUE(at(25, -15)) << "the foot, as drawn";
    EXPECT_FALSE(at(-25, -15));
    EXPECT_TRUE(at(-15, 10)) << "the post";

    node->setXScale(-1);
    w.run(1.0 / 60);
    EXPECT_TRUE(at(-25, -15)) << "the foot points left with the picture";
    EXPECT_FALSE(at(25, -15));
    EXPECT_TRUE(at(15, 10));
    EXPECT_FALSE(at(-15, 10));

    // A mirrored carrier mirrors its children; two mirrors cancel out.
    carrier->setXScale(-1);
    w.run(1.0 / 60);
    EXPECT_TRUE(at(25, -15));
    EXPECT_FALSE(at(-25, -15));
    node->setXScale(1);
    node->setYScale(-1);
    w.run(1.0 / 60);
    EXPECT_TRUE(at(-25, 15)) << "mirrored on both axes";
    EXPECT_FALSE(at(25, -15));

    // A body given to an already mirrored node starts mirrored.
    auto late = Node::create();
    late->setXScale(-1);
    late->setPosition(-200, 0);
    late->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({10, 10}, {20, 0}));
    w.scene->addChild(late);
    w.run(1.0 / 60);
    EXPECT_TRUE(w.scene->physicsWorld().bodyAtPoint({-220, 0}));
    EXPECT_FALSE(w.scene->physicsWorld().bodyAtPoint({-180, 0}));
}

TEST(Physics, BodiesPlacedAfterTheyEnterMeetOnlyWhereTheirNodesAre)
{
    // The editor adds each element to its layer, then places it, and may
    // remove elements before the next step: no pair of bodies may be looked
    // at where they all entered.
    World w;
    w.scene->physicsWorld().setGravity({0, 0});
    auto layer = Node::create();
    w.scene->addChild(layer);
    std::vector<NodePtr> nodes;
    for (int i = 0; i < 200; ++i) {
        auto node = Node::create();
        node->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({20, 20}));
        layer->addChild(node);
        node->setPosition(100.0 * i, 0);
        nodes.push_back(node);
    }
    b2World& engine = w.scene->physicsWorld().engine();
    nodes[5]->removeFromParent();
    EXPECT_EQ(engine.GetContactCount(), 0);
    w.run(1.0 / 60);
    EXPECT_EQ(engine.GetContactCount(), 0);
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({100.0 * 7, 0}), nodes[7]->physicsBodyPtr());
    EXPECT_EQ(w.scene->physicsWorld().bodyAtPoint({100.0 * 5, 0}), nullptr);

    // Two of them placed on each other meet there, once.
    auto late = Node::create();
    late->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({20, 20}));
    layer->addChild(late);
    late->setPosition(100.0 * 7 + 10, 0);
    nodes[9]->removeFromParent();
    w.run(1.0 / 60);
    EXPECT_EQ(engine.GetContactCount(), 1);
    layer->removeAllChildren();
    EXPECT_EQ(engine.GetContactCount(), 0);
    EXPECT_EQ(engine.GetBodyCount(), 1); // the world's own anchor for pins

    // A floor that several balls rest on leaves and comes back: every
    // contact ends with it, and every one begins again.
    w.scene->physicsWorld().setGravity({0, -9.8});
    auto floor = w.floor(0x1, 0x2, 0x2);
    std::vector<NodePtr> balls;
    for (int i = 0; i < 4; ++i)
        balls.push_back(w.ball(0x2, 0x1, 0x1, {-150.0 + 100 * i, -180}));
    w.run(0.5);
    EXPECT_EQ(w.log.begins, 4);
    floor->removeFromParent();
    balls[0]->removeFromParent();
    w.run(1.0 / 60);
    EXPECT_EQ(w.log.ends, 4);
    for (const NodePtr& ball : balls)
        ball->setPosition(ball->position().x(), -180);
    w.scene->addChild(floor);
    w.run(1.0 / 60);
    EXPECT_EQ(w.log.begins, 7);
}
