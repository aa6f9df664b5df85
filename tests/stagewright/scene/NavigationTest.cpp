// The scroll buttons and the coordinate read-out.
#include "SceneTestSupport.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

std::shared_ptr<NavigationNode> button(const SceneEditor& scene, const char* name)
{
    return std::dynamic_pointer_cast<NavigationNode>(scene.childNodeWithName(name));
}

TEST(Navigation, ClicksStepAndRecordTheScrollPosition)
{
    SceneWorkspace workspace;
    LoadedLevel loaded(emptyLevel());
    SceneEditor& scene = *loaded.scene;
    const auto left = button(scene, "navLeft");
    ASSERT_TRUE(left);
    EXPECT_EQ(left->size(), QSizeF(50, 50));
    EXPECT_TRUE(left->isUserInteractionEnabled());

    // A click lands on the button, not on the scene.
    const QPointF onLeft = left->position();
    EXPECT_EQ(scene.interactiveNodeAtPoint(onLeft).get(), left.get());
    tessaro::kit::MouseEvent event;
    event.sceneLocation = onLeft;
    scene.dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Down, event);
    scene.dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Up, event);
    for (const auto& layer : {scene.obstacleNodes(), scene.groundNodes(), scene.navigationNodes(),
                              scene.pinnedBackgroundNodes(), scene.shieldsNodes()})
        EXPECT_EQ(layer->position(), QPointF(50, 0));
    EXPECT_EQ(scene.backgroundNodes()->position(), QPointF(0, 0));
    EXPECT_EQ(loaded.tab.scenePosition(), (tessaro::PointValue{-50, 0}));
    scene.update(0);
    EXPECT_EQ(scene.positionXCount()->text(), "X: -50.0  Y: 0.0");

    const auto up = button(scene, "navTop");
    up->mouseDown(event);
    up->mouseUp(event);
    EXPECT_EQ(scene.obstacleNodes()->position(), QPointF(50, -50));
    scene.update(0);
    EXPECT_EQ(scene.positionXCount()->text(), "X: -50.0  Y: 50.0");

    // moveScene acts only on the scroll position selector.
    scene.moveScene(PublishedElementList::zPosition, tessaro::PointValue{900, 900});
    EXPECT_EQ(scene.obstacleNodes()->position(), QPointF(50, -50));
    scene.moveScene(PublishedElementList::scenePosition, std::nullopt);
    EXPECT_EQ(scene.obstacleNodes()->position(), QPointF(0, 0));
    scene.update(0);
    EXPECT_EQ(scene.positionXCount()->text(), "X: 0.0  Y: 0.0");
}

TEST(Navigation, HeldButtonsSpeedUp)
{
    EXPECT_EQ(NavigationNode::stepFor(0, 50), 50);
    EXPECT_EQ(NavigationNode::stepFor(10, 50), 50);
    EXPECT_EQ(NavigationNode::stepFor(12, 50), 100);
    EXPECT_EQ(NavigationNode::stepFor(22, 50), 500);
    EXPECT_EQ(NavigationNode::stepFor(32, 50), 2500);

    SceneWorkspace workspace;
    LoadedLevel loaded(emptyLevel());
    const auto right = button(*loaded.scene, "navRight");
    tessaro::kit::MouseEvent event;
    right->mouseDown(event);
    right->startRepeating();
    for (int tick = 0; tick < 10; ++tick)
        right->nodesMoved();
    // One step at the press, then ten ticks of 50.
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), QPointF(-550, 0));
    for (int tick = 10; tick < 25; ++tick)
        right->nodesMoved();
    // Ticks 10 to 24: one of 50, ten of 100, four of 500.
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), QPointF(-550 - 50 - 1000 - 2000, 0));
    right->mouseUp(event);
    EXPECT_FALSE(right->moveTimer());
    EXPECT_EQ(right->moveCount, 0);
    EXPECT_EQ(loaded.tab.scenePosition(), (tessaro::PointValue{3600, 0}));
}

TEST(Navigation, TheRepeatStartsAfterTheWaitAndEndsWithTheRelease)
{
    SceneWorkspace workspace;
    LoadedLevel loaded(emptyLevel());
    const auto down = button(*loaded.scene, "navBottom");
    tessaro::kit::MouseEvent event;
    const auto waitFor = [](int milliseconds) {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < milliseconds)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    };

    down->mouseDown(event);
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), QPointF(0, 50));
    waitFor(400);
    EXPECT_FALSE(down->moveTimer());
    waitFor(500);
    ASSERT_TRUE(down->moveTimer());
    EXPECT_GT(loaded.scene->obstacleNodes()->position().y(), 50);
    down->mouseUp(event);
    const QPointF released = loaded.scene->obstacleNodes()->position();
    waitFor(300);
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), released);

    // A release before the wait still starts the timer, whose first tick ends it.
    down->mouseDown(event);
    down->mouseUp(event);
    const QPointF afterClick = loaded.scene->obstacleNodes()->position();
    waitFor(800);
    EXPECT_FALSE(down->moveTimer());
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), afterClick);
}

} // namespace
} // namespace stagewright::test
