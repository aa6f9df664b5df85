// The ready-made actions: frame animation, blinking and swinging.
#include <tessaro/runtime/ActionExtensions.h>

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro;
using namespace tessaro::kit;

namespace {

struct Clock {
    std::shared_ptr<Scene> scene = Scene::sceneWithSize({100, 100});
    double t = 0;
    Clock() { scene->processFrame(0); }
    void to(double time)
    {
        // 60 frames a second up to `time`, which is hit exactly.
        while (t + 1.0 / 60 < time - 1e-9) {
            t += 1.0 / 60;
            scene->processFrame(t);
        }
        t = time;
        scene->processFrame(t);
    }
};

std::vector<TexturePtr> frames(int n)
{
    std::vector<TexturePtr> list;
    for (int i = 0; i < n; ++i) {
        QImage img(4 + i, 4, QImage::Format_ARGB32);
        img.fill(QColor(i * 40, 0, 0));
        list.push_back(Texture::fromImage(img));
    }
    return list;
}

int shown(const SpriteNode& node, const std::vector<TexturePtr>& list)
{
    for (size_t i = 0; i < list.size(); ++i)
        if (list[i] == node.texture())
            return int(i);
    return -1;
}

} // namespace

TEST(ActionExtensions, AnimateFramesPlaysTheRangeFlipsWaitsAndRepeats)
{
    const auto list = frames(5);
    Clock c;
    auto sprite = SpriteNode::create(list[0]);
    c.scene->addChild(sprite);

    // Frames 2 and 3 only, once.
    ActionPtr range = ActionExtensions::animateFrames(list, 0.1, 0, 2, 4, false, animationFrequency::once, false);
    EXPECT_NEAR(range->duration(), 0.2, 1e-9);
    sprite->runAction(range);
    c.to(0.05);
    EXPECT_EQ(shown(*sprite, list), 2);
    c.to(0.15);
    EXPECT_EQ(shown(*sprite, list), 3);
    c.to(0.5);
    EXPECT_EQ(shown(*sprite, list), 3);
    EXPECT_FALSE(sprite->hasActions());
    EXPECT_DOUBLE_EQ(sprite->xScale(), 1);

    // All frames, flipped, with a delay, for ever.
    ActionPtr loop =
        ActionExtensions::animateFrames(list, 0.1, 0.3, 2, 4, true, animationFrequency::foreverAutomatically, true);
    sprite->runAction(loop);
    c.to(0.55);
    EXPECT_DOUBLE_EQ(sprite->xScale(), -1);
    EXPECT_EQ(shown(*sprite, list), 0);
    c.to(0.95);
    EXPECT_EQ(shown(*sprite, list), 4);
    c.to(1.25); // still in the delay after the fifth frame
    EXPECT_EQ(shown(*sprite, list), 4);
    c.to(1.35); // a round is 0.5 + 0.3 s: the second round has begun
    EXPECT_EQ(shown(*sprite, list), 0);
    EXPECT_TRUE(sprite->hasActions());
    sprite->removeAllActions();

    // The name form asks the texture cache, which reads an atlas.
    QTemporaryDir dir;
    QDir(dir.path()).mkdir("run.atlas");
    for (int i = 3; i >= 1; --i) {
        QImage img(10 * i, 10, QImage::Format_ARGB32);
        img.fill(Qt::blue);
        img.save(QDir(dir.path()).filePath(QString("run.atlas/run_%1.png").arg(i)));
    }
    resources::setSearchPaths({dir.path()});
    TextureCache cache;
    ActionPtr named =
        ActionExtensions::animateFrames(cache.lookup(), "run", 0.1, 0, 0, 0, true, animationFrequency::once, false);
    resources::setSearchPaths({});
    EXPECT_NEAR(named->duration(), 0.3, 1e-9);
    EXPECT_TRUE(cache.contains("run"));
    sprite->runAction(named);
    c.to(1.4);
    EXPECT_EQ(sprite->texture()->size().width(), 10);
    c.to(1.65);
    EXPECT_EQ(sprite->texture()->size().width(), 30);
}

TEST(ActionExtensions, BlinkFadesAndAlternatesColoursWithOneSharedFlag)
{
    Clock c;
    auto sprite = SpriteNode::create(Qt::white, {10, 10});
    c.scene->addChild(sprite);
    sprite->runAction(ActionExtensions::blink(1.0, 0.8, 2, false, Qt::red, Qt::blue));
    c.to(0.25);
    EXPECT_NEAR(sprite->alpha(), 0.1, 1e-9);
    c.to(0.5);
    EXPECT_NEAR(sprite->alpha(), 0.8, 1e-9);
    c.to(0.75);
    EXPECT_NEAR(sprite->alpha(), 0.1, 1e-9);
    c.to(1.0);
    EXPECT_NEAR(sprite->alpha(), 0.8, 1e-9);
    c.to(1.1);
    EXPECT_FALSE(sprite->hasActions());

    // With colours: colorB on the first pass, colorA on the second. A pass
    // is fade, paint (0.01 s), fade.
    ActionPtr colours = ActionExtensions::blink(1.0, 1.0, 2, true, Qt::red, Qt::blue);
    sprite->runAction(colours);
    c.to(1.1 + 0.4);
    EXPECT_EQ(sprite->color(), QColor(Qt::blue));
    EXPECT_DOUBLE_EQ(sprite->colorBlendFactor(), 1.0);
    c.to(1.1 + 0.9);
    EXPECT_EQ(sprite->color(), QColor(Qt::red));
    c.to(2.5);

    // Shapes change their fill, labels their font colour.
    auto shape = ShapeNode::shapeNodeWithCircleOfRadius(5);
    auto label = std::make_shared<LabelNode>("x");
    c.scene->addChild(shape);
    c.scene->addChild(label);
    shape->runAction(ActionExtensions::blink(0.5, 1.0, 1, true, Qt::green, Qt::yellow));
    label->runAction(ActionExtensions::blink(0.5, 1.0, 1, true, Qt::green, Qt::yellow));
    c.to(3.0);
    EXPECT_EQ(shape->fillColor(), QColor(Qt::yellow));
    EXPECT_EQ(label->fontColor(), QColor(Qt::yellow));

    // One action, one flag: a second run continues where the first left it.
    ActionPtr once = ActionExtensions::blink(0.2, 1.0, 1, true, Qt::green, Qt::magenta);
    auto first = SpriteNode::create(Qt::white, {1, 1});
    auto second = SpriteNode::create(Qt::white, {1, 1});
    c.scene->addChild(first);
    c.scene->addChild(second);
    first->runAction(once);
    c.to(3.5);
    second->runAction(once);
    c.to(4.0);
    EXPECT_EQ(first->color(), QColor(Qt::magenta));
    EXPECT_EQ(second->color(), QColor(Qt::green));
}

TEST(ActionExtensions, SwingsTurnAboutTheStart)
{
    const double q = M_PI / 4; // half of 90 degrees
    Clock c;
    auto node = Node::create();
    c.scene->addChild(node);
    node->runAction(ActionExtensions::swing(90, 1.0));
    c.to(0.25);
    EXPECT_NEAR(node->zRotation(), q / 2, 1e-9);
    c.to(0.5);
    EXPECT_NEAR(node->zRotation(), q, 1e-9);
    c.to(1.0);
    EXPECT_NEAR(node->zRotation(), 0, 1e-9);
    c.to(1.5);
    EXPECT_NEAR(node->zRotation(), -q, 1e-9);
    c.to(2.5);
    EXPECT_NEAR(node->zRotation(), q, 1e-9);
    double lo = 0, hi = 0;
    for (double t = 2.5; t < 6.5; t += 0.05) {
        c.to(t);
        lo = std::min(lo, node->zRotation());
        hi = std::max(hi, node->zRotation());
    }
    EXPECT_NEAR(lo, -q, 1e-6);
    EXPECT_NEAR(hi, q, 1e-6);

    // The eased swing turns to half the angle (absolutely), then back and
    // forth by half the angle, slow at the ends.
    Clock e;
    auto eased = Node::create();
    eased->setZRotation(0.3);
    e.scene->addChild(eased);
    eased->runAction(ActionExtensions::swingEased(90, 1.0));
    e.to(0.5);
    EXPECT_NEAR(eased->zRotation(), q, 1e-9);
    e.to(0.625);
    EXPECT_NEAR(eased->zRotation(), q - q * applyTimingMode(ActionTimingMode::EaseInEaseOut, 0.25), 1e-9);
    e.to(0.75);
    EXPECT_NEAR(eased->zRotation(), q / 2, 1e-9);
    e.to(1.0);
    EXPECT_NEAR(eased->zRotation(), 0, 1e-9);
    e.to(1.5);
    EXPECT_NEAR(eased->zRotation(), q, 1e-9);
}
