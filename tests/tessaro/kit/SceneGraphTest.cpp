// Tree ownership, name searches, hit testing, frames and event routing.
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro::kit;

namespace {

std::shared_ptr<Node> named(const QString& name)
{
    auto n = Node::create();
    n->setName(name);
    return n;
}

std::shared_ptr<SpriteNode> box(const QString& name, QPointF pos, QSizeF size, qreal z = 0)
{
    auto s = SpriteNode::create(Qt::red, size);
    s->setName(name);
    s->setPosition(pos);
    s->setZPosition(z);
    return s;
}

QStringList names(const std::vector<NodePtr>& nodes)
{
    QStringList out;
    for (const auto& n : nodes)
        out << n->name();
    return out;
}

} // namespace

TEST(SceneGraph, RemovedNodesStayValidAndTheTreeRefusesCycles)
{
    auto scene = Scene::sceneWithSize({400, 300});
    auto layer = named("layer");
    auto child = named("child");
    auto grandChild = named("grandChild");
    ASSERT_TRUE(scene->addChild(layer));
    ASSERT_TRUE(layer->addChild(child));
    ASSERT_TRUE(child->addChild(grandChild));
    EXPECT_EQ(grandChild->scene(), scene.get());
    EXPECT_EQ(grandChild->parent(), child.get());

    // A node with a parent, the node itself and an ancestor are refused.
    EXPECT_FALSE(scene->addChild(child));
    EXPECT_FALSE(child->addChild(child));
    EXPECT_FALSE(grandChild->addChild(layer));
    EXPECT_EQ(layer->children().size(), 1u);

    // Only the caller holds the subtree after removal; it must stay whole.
    std::weak_ptr<Node> watch = grandChild;
    grandChild.reset();
    child->removeFromParent();
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_EQ(child->scene(), nullptr);
    ASSERT_FALSE(watch.expired());
    EXPECT_EQ(watch.lock()->scene(), nullptr);
    EXPECT_EQ(watch.lock()->parent(), child.get());

    // It can be added elsewhere, at a position among siblings.
    auto other = named("other");
    scene->addChild(other);
    ASSERT_TRUE(scene->insertChild(child, 0));
    EXPECT_EQ(scene->children().front(), child);
    EXPECT_EQ(watch.lock()->scene(), scene.get());

    // removeAllChildren leaves the children alive and parentless.
    auto kept = scene->children();
    scene->removeAllChildren();
    EXPECT_TRUE(scene->children().empty());
    for (const auto& n : kept) {
        EXPECT_EQ(n->parent(), nullptr);
        EXPECT_EQ(n->scene(), nullptr);
    }
    // Dropping the last holder frees the subtree.
    kept.clear();
    child.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(SceneGraph, NamePatternsSearchChildrenPathsAndTheWholeTree)
{
    auto scene = Scene::sceneWithSize({400, 300});
    auto obstacles = named("obstacleNodes");
    auto coins = named("coinsNodes");
    scene->addChild(obstacles);
    scene->addChild(coins);
    auto s1 = named("stack_1");
    auto s2 = named("stack_2");
    auto glow = named("glow");
    auto inner = named("inner");
    obstacles->addChild(s1);
    obstacles->addChild(s2);
    obstacles->addChild(glow);
    glow->addChild(inner);
    auto coin = named("coin");
    coins->addChild(coin);
    auto coinStack = named("stack_1");
    coin->addChild(coinStack);

    // A plain name looks at the direct children only.
    EXPECT_EQ(scene->childNodeWithName("obstacleNodes"), obstacles);
    EXPECT_EQ(scene->childNodeWithName("stack_1"), nullptr);
    // "//" searches the whole tree from the root, whatever node asks.
    EXPECT_EQ(inner->childNodeWithName("//stack_1"), s1);
    EXPECT_EQ(names(scene->nodesWithName("//stack_*")), (QStringList{"stack_1", "stack_2", "stack_1"}));
    EXPECT_EQ(scene->nodesWithName("//stack_*").back(), coinStack);
    EXPECT_EQ(scene->nodesWithName("//*").size(), 8u);
    // Paths, wildcards inside a path and recursion inside a path.
    EXPECT_EQ(scene->childNodeWithName("obstacleNodes/glow/inner"), inner);
    EXPECT_EQ(scene->nodesWithName("*/stack_1").size(), 1u);
    EXPECT_EQ(scene->nodesWithName("*//stack_1").size(), 2u);
    EXPECT_EQ(scene->nodesWithName("coinsNodes//stack_1").front(), coinStack);
    // Parent, root and character classes.
    EXPECT_EQ(inner->childNodeWithName(".."), glow);
    EXPECT_EQ(inner->childNodeWithName("/coinsNodes"), coins);
    EXPECT_EQ(names(scene->nodesWithName("[co]*")), (QStringList{"obstacleNodes", "coinsNodes"}));
    EXPECT_EQ(names(obstacles->nodesWithName("stack_[!1]")), (QStringList{"stack_2"}));
    EXPECT_TRUE(scene->nodesWithName("//nothing*").empty());
    EXPECT_TRUE(scene->nodesWithName("").empty());

    // Enumeration visits in tree order, may stop, and may change the tree.
    QStringList seen;
    scene->enumerateChildNodesWithName("//*", [&](const NodePtr& n, bool& stop) {
        seen << n->name();
        stop = n->name() == "glow";
    });
    EXPECT_EQ(seen, (QStringList{"obstacleNodes", "stack_1", "stack_2", "glow"}));
    int removed = 0;
    scene->enumerateChildNodesWithName("//stack_*", [&](const NodePtr& n, bool&) {
        n->removeFromParent();
        ++removed;
    });
    EXPECT_EQ(removed, 3);
    EXPECT_TRUE(scene->nodesWithName("//stack_*").empty());
    EXPECT_EQ(obstacles->children().size(), 1u);
}

TEST(SceneGraph, HitTestingFindsChildrenSkipsHiddenSubtreesAndSortsByGlobalDepth)
{
    auto scene = Scene::sceneWithSize({400, 300});
    auto layer = named("layer");
    layer->setPosition(50, 0);
    layer->setZPosition(1);
    scene->addChild(layer);
    // a covers scene x 0..100, y -50..50, at global depth 1 + 5.
    auto a = box("a", {0, 0}, {100, 100}, 5);
    layer->addChild(a);
    // c is a child of a at a's (30,30): scene (80,30); global depth 1 + 5 - 10.
    auto c = box("c", {30, 30}, {20, 20}, -10);
    a->addChild(c);
    // b lies directly in the scene at depth 2 over x 0..40.
    auto b = box("b", {20, 0}, {40, 40}, 2);
    scene->addChild(b);

    EXPECT_EQ(names(scene->nodesAtPoint({30, 0})), (QStringList{"a", "b"}));
    EXPECT_EQ(names(scene->nodesAtPoint({80, 30})), (QStringList{"a", "c"}));
    EXPECT_EQ(scene->nodeAtPoint({30, 0}), a);
    EXPECT_EQ(scene->nodeAtPoint({300, 140}), scene);
    // Plain nodes have no content and are never hit; points are inclusive on edges.
    EXPECT_EQ(names(scene->nodesAtPoint({100, 50})), (QStringList{"a"}));

    // The point is in the asking node's own space.
    EXPECT_EQ(names(layer->nodesAtPoint({-20, 0})), (QStringList{"a"}));

    // A hidden node hides its subtree from hit tests.
    layer->setHidden(true);
    EXPECT_EQ(names(scene->nodesAtPoint({30, 0})), (QStringList{"b"}));
    EXPECT_TRUE(scene->nodesAtPoint({80, 30}).empty());
    layer->setHidden(false);
    c->setHidden(true);
    EXPECT_EQ(names(scene->nodesAtPoint({80, 30})), (QStringList{"a"}));
    c->setHidden(false);

    // Raising b above a's global depth puts it first.
    b->setZPosition(7);
    EXPECT_EQ(names(scene->nodesAtPoint({30, 0})), (QStringList{"b", "a"}));
    // At equal depth the node later in the tree is in front.
    b->setZPosition(6);
    EXPECT_EQ(names(scene->nodesAtPoint({30, 0})), (QStringList{"b", "a"}));
    scene->insertChild((b->removeFromParent(), b), 0);
    EXPECT_EQ(names(scene->nodesAtPoint({30, 0})), (QStringList{"a", "b"}));

    // Rotation and scale are exact, not bounding boxes.
    auto bar = box("bar", {-150, 0}, {100, 10});
    bar->setZRotation(M_PI / 4);
    scene->addChild(bar);
    EXPECT_EQ(names(scene->nodesAtPoint({-150 + 30, 30})), (QStringList{"bar"}));
    EXPECT_TRUE(scene->nodesAtPoint({-150 + 30, -30}).empty());
    EXPECT_TRUE(bar->frame().contains(QPointF(-150 + 30, -30))); // the frame is the axis-aligned box
    bar->setXScale(0.5);
    EXPECT_TRUE(scene->nodesAtPoint({-150 + 30, 30}).empty());
    EXPECT_EQ(names(scene->nodesAtPoint({-150 + 15, 15})), (QStringList{"bar"}));
    bar->setXScale(0);
    EXPECT_TRUE(scene->nodesAtPoint({-150, 0}).empty());

    // A shape is hit inside its path, as it is now; an empty one never.
    auto outline = ShapeNode::shapeNodeWithRect({0, -120, 20, 20});
    outline->setName(QStringLiteral("outline"));
    outline->setLineWidth(0);
    scene->addChild(outline);
    EXPECT_EQ(names(scene->nodesAtPoint({10, -110})), (QStringList{"outline"}));
    QPainterPath moved;
    moved.addRect(100, -120, 20, 20);
    outline->setPath(moved);
    EXPECT_TRUE(scene->nodesAtPoint({10, -110}).empty());
    EXPECT_EQ(names(scene->nodesAtPoint({110, -110})), (QStringList{"outline"}));
    outline->setPath(QPainterPath());
    EXPECT_TRUE(scene->nodesAtPoint({110, -110}).empty());
}

TEST(SceneGraph, FramesConversionsAndIntersection)
{
    auto scene = Scene::sceneWithSize({400, 300});
    EXPECT_EQ(scene->sceneFrame(), QRectF(-200, -150, 400, 300));
    scene->setAnchorPoint({0, 0});
    EXPECT_EQ(scene->sceneFrame(), QRectF(0, 0, 400, 300));
    scene->setAnchorPoint({0.5, 0.5});

    auto layer = named("layer");
    layer->setPosition(100, 50);
    layer->setScale(2);
    scene->addChild(layer);
    auto sprite = box("s", {10, 0}, {20, 10});
    sprite->setAnchorPoint({0, 0});
    layer->addChild(sprite);
    EXPECT_EQ(sprite->frame(), QRectF(10, 0, 20, 10));
    // The layer's accumulated frame is in its parent's space, scaled.
    EXPECT_EQ(layer->calculateAccumulatedFrame(), QRectF(120, 50, 40, 20));
    EXPECT_EQ(sprite->convertPointToNode({0, 0}, *scene), QPointF(120, 50));
    EXPECT_EQ(scene->convertPointToNode({140, 70}, *sprite), QPointF(10, 10));
    EXPECT_EQ(sprite->convertPointFromNode({140, 70}, *scene), QPointF(10, 10));

    // A rotated parent: a point a quarter turn round.
    auto turned = named("turned");
    turned->setZRotation(M_PI / 2);
    scene->addChild(turned);
    const QPointF p = turned->convertPointToNode({10, 0}, *scene);
    EXPECT_NEAR(p.x(), 0, 1e-9);
    EXPECT_NEAR(p.y(), 10, 1e-9);
    const QPointF q = turned->convertPointToNode({10, 0}, *layer);
    EXPECT_NEAR(q.x(), -50, 1e-9);
    EXPECT_NEAR(q.y(), -20, 1e-9);

    // The scene's intersectsNode tells whether a node is in its rectangle.
    EXPECT_TRUE(scene->intersectsNode(*sprite));
    layer->setPosition(1000, 0);
    EXPECT_FALSE(scene->intersectsNode(*sprite));
    auto other = box("o", {1050, 5}, {10, 10});
    scene->addChild(other);
    EXPECT_TRUE(sprite->intersectsNode(*other));
    EXPECT_TRUE(other->intersectsNode(*layer));
}

namespace {

struct Recorder : SpriteNode {
    using SpriteNode::SpriteNode;
    QStringList* log = nullptr;
    void mouseDown(const MouseEvent& e) override
    {
        *log << name() + ":down@" + QString::number(e.locationInNode(*this).x());
    }
    void mouseDragged(const MouseEvent&) override { *log << name() + ":drag"; }
    void mouseUp(const MouseEvent&) override { *log << name() + ":up"; }
    void rightMouseDown(const MouseEvent&) override { *log << name() + ":right"; }
};

struct RecordingScene : Scene {
    using Scene::Scene;
    QStringList log;
    void mouseDown(const MouseEvent&) override { log << "scene:down"; }
    void mouseDragged(const MouseEvent&) override { log << "scene:drag"; }
    void mouseUp(const MouseEvent&) override { log << "scene:up"; }
    void mouseMoved(const MouseEvent&) override { log << "scene:moved"; }
    void scrollWheel(const MouseEvent& e) override { log << "scene:wheel" + QString::number(e.scrollDelta.y()); }
};

MouseEvent at(QPointF p, Qt::MouseButton button = Qt::LeftButton)
{
    MouseEvent e;
    e.sceneLocation = p;
    e.button = button;
    return e;
}

} // namespace

TEST(SceneGraph, MouseEventsGoToTheFrontInteractiveNodeAndFollowItsPress)
{
    auto scene = std::make_shared<RecordingScene>(QSizeF(400, 300));
    auto back = std::make_shared<Recorder>(Qt::blue, QSizeF(100, 100));
    back->setName("back");
    back->log = &scene->log;
    back->setUserInteractionEnabled(true);
    auto front = std::make_shared<Recorder>(Qt::red, QSizeF(40, 40));
    front->setName("front");
    front->log = &scene->log;
    front->setPosition(20, 0);
    front->setZPosition(1);
    front->setUserInteractionEnabled(true);
    // A non-interactive node above both does not take the click.
    auto glass = box("glass", {0, 0}, {400, 300}, 10);
    scene->addChild(back);
    scene->addChild(front);
    scene->addChild(glass);

    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({30, 0}));
    scene->dispatchMouseEvent(Scene::MouseKind::Dragged, at({150, 100}));
    scene->dispatchMouseEvent(Scene::MouseKind::Up, at({150, 100}));
    EXPECT_EQ(scene->log, (QStringList{"front:down@10", "front:drag", "front:up"}));

    scene->log.clear();
    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({-30, 0}));
    scene->dispatchMouseEvent(Scene::MouseKind::Up, at({-30, 0}));
    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({150, 100}));
    scene->dispatchMouseEvent(Scene::MouseKind::Up, at({150, 100}));
    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({30, 0}, Qt::RightButton));
    scene->dispatchMouseEvent(Scene::MouseKind::Moved, at({0, 0}));
    MouseEvent wheel = at({0, 0});
    wheel.scrollDelta = {0, 15};
    scene->dispatchScrollWheel(wheel);
    EXPECT_EQ(scene->log,
              (QStringList{"back:down@-30", "back:up", "scene:down", "scene:up", "front:right", "scene:moved",
                           "scene:wheel15"}));

    // Hidden or non-interactive nodes are passed over; a node that does not
    // handle an event passes it to its parent.
    scene->log.clear();
    front->setHidden(true);
    auto plain = box("plain", {-30, 0}, {10, 10}, 5);
    plain->setUserInteractionEnabled(true);
    back->addChild(plain);
    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({30, 0}));
    scene->dispatchMouseEvent(Scene::MouseKind::Down, at({-30, 0}));
    EXPECT_EQ(scene->log, (QStringList{"back:down@30", "back:down@-30"}));
}

TEST(SceneGraph, SceneMapsToViewsByScaleModeAnchorAndZoom)
{
    auto scene = Scene::sceneWithSize({800, 600});
    const QSizeF view(400, 400);
    scene->setScaleMode(SceneScaleMode::AspectFit); // 0.5: the scene is 400 x 300, letterboxed
    QTransform t = scene->sceneToViewTransform(view);
    EXPECT_EQ(t.map(QPointF(0, 0)), QPointF(200, 200));
    EXPECT_EQ(t.map(QPointF(400, 300)), QPointF(400, 50));
    EXPECT_EQ(scene->visibleRect(view), QRectF(-400, -400, 800, 800));

    scene->setScaleMode(SceneScaleMode::AspectFill); // 2/3: the scene is cropped at the sides
    t = scene->sceneToViewTransform(view);
    EXPECT_NEAR(t.map(QPointF(0, 300)).y(), 0, 1e-9);
    EXPECT_NEAR(t.map(QPointF(300, 0)).x(), 400, 1e-9);

    scene->setScaleMode(SceneScaleMode::Fill);
    t = scene->sceneToViewTransform(view);
    EXPECT_NEAR(t.map(QPointF(-400, -300)).x(), 0, 1e-9);
    EXPECT_NEAR(t.map(QPointF(-400, -300)).y(), 400, 1e-9);

    // Anchor (0,0): the scene's rectangle still fills the view, the origin
    // moves to its bottom left corner.
    scene->setAnchorPoint({0, 0});
    EXPECT_EQ(scene->sceneToViewTransform(view).map(QPointF(0, 0)), QPointF(0, 400));

    // Zoom magnifies about the view's centre.
    scene->setAnchorPoint({0.5, 0.5});
    scene->setScaleMode(SceneScaleMode::AspectFit);
    t = scene->sceneToViewTransform(view, 2.0);
    EXPECT_EQ(t.map(QPointF(0, 0)), QPointF(200, 200));
    EXPECT_EQ(t.map(QPointF(100, 0)), QPointF(300, 200));

    scene->setScaleMode(SceneScaleMode::ResizeFill);
    EXPECT_EQ(scene->sceneToViewTransform(view).map(QPointF(100, 100)), QPointF(300, 100));
}
