// Actions against an exact clock: the test drives Scene::processFrame.
#include <tessaro/kit/Action.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/SpriteNode.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro::kit;

namespace {

struct Fixture {
    std::shared_ptr<Scene> scene = Scene::sceneWithSize({400, 300});
    std::shared_ptr<SpriteNode> node = SpriteNode::create(Qt::white, {10, 10});
    Fixture()
    {
        scene->addChild(node);
        scene->processFrame(0);
    }
    void at(double t) { scene->processFrame(t); }
};

TexturePtr solid(QColor c, int w, int h)
{
    QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
    img.fill(c);
    return Texture::fromImage(img);
}

} // namespace

TEST(Actions, SequencesCarryLeftoverTimeIntoTheNextAction)
{
    Fixture f;
    f.node->runAction(Action::sequence({Action::moveBy(100, 0, 1.0), Action::moveBy(0, 50, 0.5)}));
    f.at(0.5);
    EXPECT_DOUBLE_EQ(f.node->position().x(), 50);
    EXPECT_DOUBLE_EQ(f.node->position().y(), 0);
    // The frame at 1.25 ends the first move and spends 0.25 on the second.
    f.at(1.25);
    EXPECT_DOUBLE_EQ(f.node->position().x(), 100);
    EXPECT_DOUBLE_EQ(f.node->position().y(), 25);
    f.at(3.0);
    EXPECT_EQ(f.node->position(), QPointF(100, 50));
    EXPECT_FALSE(f.node->hasActions());

    // An action run between frames starts at the time of the last frame.
    f.node->runAction(Action::moveToX(0, 1.0));
    f.at(3.5);
    EXPECT_DOUBLE_EQ(f.node->position().x(), 50);
    // One run before its node is in a scene starts with the first frame it sees.
    auto late = SpriteNode::create(Qt::white, {1, 1});
    late->runAction(Action::moveBy(10, 0, 1.0));
    f.at(4.0);
    f.scene->addChild(late);
    f.at(4.5);
    EXPECT_DOUBLE_EQ(late->position().x(), 0);
    f.at(5.0);
    EXPECT_DOUBLE_EQ(late->position().x(), 5);
}

TEST(Actions, GroupsEndWithTheirLongestMemberAndRepeatsCountExactly)
{
    Fixture f;
    bool done = false;
    f.node->runAction(Action::sequence({Action::group({Action::moveBy(100, 0, 1.0), Action::fadeOutWithDuration(0.5)}),
                                        Action::runBlock([&] { done = true; }), Action::moveBy(0, 10, 1.0)}));
    f.at(0.5);
    EXPECT_DOUBLE_EQ(f.node->alpha(), 0);
    EXPECT_DOUBLE_EQ(f.node->position().x(), 50);
    EXPECT_FALSE(done);
    f.at(1.5);
    EXPECT_TRUE(done);
    EXPECT_DOUBLE_EQ(f.node->position().x(), 100);
    EXPECT_DOUBLE_EQ(f.node->position().y(), 5);

    Fixture g;
    g.node->runAction(Action::repeatAction(Action::moveBy(10, 0, 0.1), 3));
    g.at(0.25);
    EXPECT_NEAR(g.node->position().x(), 25, 1e-9);
    g.at(1.0);
    EXPECT_NEAR(g.node->position().x(), 30, 1e-9);

    int blocks = 0;
    g.node->runAction(Action::repeatAction(Action::runBlock([&] { ++blocks; }), 5));
    g.at(1.1);
    EXPECT_EQ(blocks, 5);
    // A block repeated for ever runs once per frame instead of looping for ever.
    int perFrame = 0;
    g.node->runAction(Action::repeatActionForever(Action::runBlock([&] { ++perFrame; })), "tick");
    g.at(1.2);
    g.at(1.3);
    g.at(1.4);
    EXPECT_EQ(perFrame, 3);
    EXPECT_NE(g.node->actionForKey("tick"), nullptr);

    Fixture h;
    h.node->runAction(
        Action::repeatActionForever(Action::sequence({Action::moveBy(10, 0, 0.1), Action::waitForDuration(0.1)})));
    h.at(1.05); // five full rounds and half a move
    EXPECT_NEAR(h.node->position().x(), 55, 1e-9);
    EXPECT_TRUE(h.node->hasActions());
}

TEST(Actions, TimingModesWarpTimeAndReversalUndoes)
{
    auto xAtHalf = [](ActionTimingMode mode, double t) {
        Fixture f;
        ActionPtr move = Action::moveBy(100, 0, 1.0);
        move->setTimingMode(mode);
        f.node->runAction(move);
        f.at(t);
        return f.node->position().x();
    };
    EXPECT_DOUBLE_EQ(xAtHalf(ActionTimingMode::Linear, 0.5), 50);
    EXPECT_DOUBLE_EQ(xAtHalf(ActionTimingMode::EaseIn, 0.5), 100 * applyTimingMode(ActionTimingMode::EaseIn, 0.5));
    EXPECT_LT(xAtHalf(ActionTimingMode::EaseIn, 0.5), 50);
    EXPECT_GT(xAtHalf(ActionTimingMode::EaseOut, 0.5), 50);
    EXPECT_NEAR(xAtHalf(ActionTimingMode::EaseInEaseOut, 0.5), 50, 1e-9);
    EXPECT_LT(xAtHalf(ActionTimingMode::EaseInEaseOut, 0.25), 25);
    EXPECT_GT(xAtHalf(ActionTimingMode::EaseInEaseOut, 0.75), 75);
    for (auto mode : {ActionTimingMode::EaseIn, ActionTimingMode::EaseOut, ActionTimingMode::EaseInEaseOut}) {
        EXPECT_DOUBLE_EQ(xAtHalf(mode, 1.0), 100);
        double last = 0;
        for (double t = 0.05; t < 1.0; t += 0.05) {
            const double x = xAtHalf(mode, t);
            EXPECT_GE(x, last);
            last = x;
        }
    }
    // A custom curve replaces the mode.
    {
        Fixture f;
        ActionPtr step = Action::moveBy(100, 0, 1.0);
        step->setTimingFunction([](double t) { return t < 0.5 ? 0.0 : 1.0; });
        f.node->runAction(step);
        f.at(0.4);
        EXPECT_DOUBLE_EQ(f.node->position().x(), 0);
        f.at(0.6);
        EXPECT_DOUBLE_EQ(f.node->position().x(), 100);
    }
    // A timing mode on a sequence warps the time of its members.
    {
        Fixture f;
        ActionPtr seq = Action::sequence({Action::moveBy(10, 0, 0.5), Action::moveBy(0, 10, 0.5)});
        seq->setTimingMode(ActionTimingMode::EaseIn);
        f.node->runAction(seq);
        f.at(0.6); // warped time 0.36: the first move is not done yet
        EXPECT_NEAR(f.node->position().x(), 7.2, 1e-9);
        EXPECT_DOUBLE_EQ(f.node->position().y(), 0);
        f.at(1.0);
        EXPECT_EQ(f.node->position(), QPointF(10, 10));
    }

    // Reversal: a sequence of moves runs backwards with negated moves.
    Fixture f;
    f.node->setPosition(5, 5);
    ActionPtr there = Action::sequence({Action::moveBy(10, 0, 1.0), Action::moveBy(0, 10, 1.0)});
    ActionPtr back = there->reversedAction();
    EXPECT_DOUBLE_EQ(back->duration(), 2.0);
    f.node->runAction(Action::sequence({there, back}));
    f.at(2.0);
    EXPECT_EQ(f.node->position(), QPointF(15, 15));
    f.at(3.0); // first the y move is undone
    EXPECT_NEAR(f.node->position().x(), 15, 1e-9);
    EXPECT_NEAR(f.node->position().y(), 5, 1e-9);
    f.at(4.0);
    EXPECT_NEAR(f.node->position().x(), 5, 1e-9);

    ActionPtr rotate = Action::rotateByAngle(1.0, 1.0);
    rotate->setTimingMode(ActionTimingMode::EaseIn);
    ActionPtr unrotate = rotate->reversedAction();
    EXPECT_EQ(unrotate->timingMode(), ActionTimingMode::EaseOut);
    f.node->runAction(Action::sequence({rotate, unrotate}));
    f.at(5.0);
    EXPECT_NEAR(f.node->zRotation(), 1.0, 1e-9);
    f.at(5.5);
    EXPECT_NEAR(f.node->zRotation(), 1.0 - applyTimingMode(ActionTimingMode::EaseOut, 0.5), 1e-9);
    f.at(6.0);
    EXPECT_NEAR(f.node->zRotation(), 0.0, 1e-9);

    // scaleBy reverses by dividing; absolute actions are their own reverse.
    f.node->runAction(Action::sequence({Action::scaleBy(4, 1.0), Action::scaleBy(4, 1.0)->reversedAction()}));
    f.at(7.0);
    EXPECT_NEAR(f.node->xScale(), 4, 1e-9);
    f.at(8.0);
    EXPECT_NEAR(f.node->xScale(), 1, 1e-9);
    f.node->runAction(Action::fadeAlphaTo(0.25, 1.0)->reversedAction());
    f.at(9.0);
    EXPECT_DOUBLE_EQ(f.node->alpha(), 0.25);
}

TEST(Actions, KeysSpeedPauseAndRemoval)
{
    Fixture f;
    f.node->runAction(Action::moveBy(100, 0, 1.0), "walk");
    ActionPtr run = Action::moveBy(0, 100, 1.0);
    f.node->runAction(run, "walk"); // replaces the first
    EXPECT_EQ(f.node->actionForKey("walk"), run);
    f.at(0.5);
    EXPECT_EQ(f.node->position(), QPointF(0, 50));
    f.node->removeActionForKey("walk");
    EXPECT_EQ(f.node->actionForKey("walk"), nullptr);
    EXPECT_FALSE(f.node->hasActions());
    f.at(1.0);
    EXPECT_EQ(f.node->position(), QPointF(0, 50));

    // Node speed multiplies; a paused ancestor stops its subtree.
    auto parent = Node::create();
    f.scene->addChild(parent);
    auto child = SpriteNode::create(Qt::white, {1, 1});
    parent->addChild(child);
    parent->setSpeed(2);
    child->runAction(Action::moveBy(100, 0, 1.0));
    f.at(1.25);
    EXPECT_DOUBLE_EQ(child->position().x(), 50);
    parent->setPaused(true);
    f.at(1.4);
    EXPECT_DOUBLE_EQ(child->position().x(), 50);
    parent->setPaused(false);
    f.at(1.5);
    EXPECT_DOUBLE_EQ(child->position().x(), 70);

    // Removing from the parent inside a sequence: what follows runs in the
    // same frame, and the node stays valid for its holders.
    bool after = false;
    child->runAction(Action::sequence(
        {Action::waitForDuration(0.1), Action::removeFromParent(), Action::runBlock([&] { after = true; })}));
    f.at(1.6);
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_TRUE(after);
    EXPECT_DOUBLE_EQ(child->position().x(), 90);
    f.at(2.0); // out of the scene: actions no longer advance
    EXPECT_DOUBLE_EQ(child->position().x(), 90);

    // removeAllActions from inside a block stops the rest of that action.
    bool reached = false;
    f.node->runAction(Action::sequence(
        {Action::runBlock([&] { f.node->removeAllActions(); }), Action::runBlock([&] { reached = true; })}));
    f.at(2.1);
    f.at(2.2);
    EXPECT_FALSE(reached);
    EXPECT_FALSE(f.node->hasActions());

    // A completion runs once the action is done.
    bool completed = false;
    f.node->runAction(Action::waitForDuration(0.3), [&] { completed = true; });
    f.at(2.4);
    EXPECT_FALSE(completed);
    f.at(2.5);
    EXPECT_TRUE(completed);
}

TEST(Actions, TexturesColoursAndCustomBlocks)
{
    Fixture f;
    auto original = solid(Qt::white, 10, 10);
    f.node->setTexture(original);
    f.node->setSize({10, 10});
    std::vector<TexturePtr> frames{solid(Qt::red, 20, 20), solid(Qt::green, 30, 30), solid(Qt::blue, 40, 40)};
    f.node->runAction(Action::animateWithTextures(frames, 0.1, true, true));
    f.at(0.0 + 1e-12);
    EXPECT_EQ(f.node->texture(), frames[0]);
    EXPECT_EQ(f.node->size(), QSizeF(20, 20));
    f.at(0.15);
    EXPECT_EQ(f.node->texture(), frames[1]);
    f.at(0.2); // a frame boundary shows the next frame
    EXPECT_EQ(f.node->texture(), frames[2]);
    EXPECT_EQ(f.node->size(), QSizeF(40, 40));
    f.at(0.3); // restore: the first texture and size come back
    EXPECT_EQ(f.node->texture(), original);
    EXPECT_EQ(f.node->size(), QSizeF(10, 10));

    // Without restore the last frame stays; reversed plays backwards.
    f.node->runAction(Action::animateWithTextures(frames, 0.1)->reversedAction());
    f.at(0.35);
    EXPECT_EQ(f.node->texture(), frames[2]);
    f.at(0.7);
    EXPECT_EQ(f.node->texture(), frames[0]);
    EXPECT_EQ(f.node->size(), QSizeF(10, 10));

    f.node->setColor(QColor(0, 0, 0));
    f.node->runAction(Action::colorizeWithColor(QColor(200, 100, 0), 1.0, 1.0));
    f.at(1.2);
    EXPECT_NEAR(f.node->colorBlendFactor(), 0.5, 1e-9);
    EXPECT_NEAR(f.node->color().red(), 100, 1);
    EXPECT_NEAR(f.node->color().green(), 50, 1);
    f.at(1.7);
    EXPECT_EQ(f.node->color(), QColor(200, 100, 0));
    EXPECT_DOUBLE_EQ(f.node->colorBlendFactor(), 1.0);

    std::vector<double> elapsed;
    f.node->runAction(Action::customActionWithDuration(0.5, [&](Node& n, double t) {
        EXPECT_EQ(&n, f.node.get());
        elapsed.push_back(t);
    }));
    f.at(1.9);
    f.at(2.1);
    f.at(2.6);
    ASSERT_EQ(elapsed.size(), 3u);
    EXPECT_NEAR(elapsed[0], 0.2, 1e-9);
    EXPECT_NEAR(elapsed[1], 0.4, 1e-9);
    EXPECT_DOUBLE_EQ(elapsed[2], 0.5);

    // Random waits stay inside their range and are drawn per run.
    ActionPtr wait = Action::waitForDuration(1.0, 0.5);
    std::vector<double> ends(40, -1);
    Fixture g;
    for (size_t i = 0; i < ends.size(); ++i) {
        auto n = Node::create();
        g.scene->addChild(n);
        n->runAction(wait, [&ends, i, &g] { ends[i] = g.scene->lastFrameTime(); });
    }
    for (double t = 0.01; t <= 1.5; t += 0.01)
        g.at(t);
    const auto [lo, hi] = std::minmax_element(ends.begin(), ends.end());
    EXPECT_GE(*lo, 0.75 - 1e-9);
    EXPECT_LE(*hi, 1.25 + 0.011);
    EXPECT_GT(*hi - *lo, 0.05);
}
