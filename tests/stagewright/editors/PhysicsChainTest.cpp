// The road of a drawn shape: a point of the sheet's canvas becomes shape
// coordinates, the stored text of the level, and in the game the body of the
// element, which a point inside the shape touches in a physics step and a
// point outside does not. Shapes drawn frame by frame on an atlas make the
// body of their own frame.
#include "PhysicsSheetFixture.h"

#include <stagewright/editors/PhysicsCanvas.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/kit/PhysicsWorld.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/runtime/AppSharedSceneBase.h>
#include <tessaro/runtime/GameResources.h>
#include <tessaro/runtime/LevelItems.h>
#include <tessaro/runtime/ObstacleCreationHelper.h>

#include <QDir>
#include <QImage>

namespace stagewright::test {
namespace {

using tessaro::PointValue;
using tessaro::sceneObjectType;
using Kind = tessaro::kit::Scene::MouseKind;

/// The sheet's canvas at a fixed size, driven by pixels as the view would.
struct Canvas {
    static constexpr QSizeF viewSize{400, 300};
    std::shared_ptr<PhysicsCanvasScene> scene;

    explicit Canvas(ImagePhysicsSession& session) : scene(std::make_shared<PhysicsCanvasScene>(session))
    {
        scene->setSize(viewSize);
        QObject::connect(&session, &ImagePhysicsSession::changed, [scene = scene.get()] { scene->refresh(); });
    }
    /// A press at the first pixel, drags through the others and a release at the last (y down).
    void gesture(std::initializer_list<QPointF> pixels) const
    {
        const QTransform toScene = scene->sceneToViewTransform(viewSize).inverted();
        std::size_t i = 0;
        for (const QPointF& pixel : pixels) {
            tessaro::kit::MouseEvent event;
            event.viewLocation = pixel;
            event.sceneLocation = toScene.map(pixel);
            event.buttons = Qt::LeftButton;
            scene->dispatchMouseEvent(i == 0 ? Kind::Down : (i + 1 == pixels.size() ? Kind::Up : Kind::Dragged), event);
            ++i;
        }
    }
    /// The view's pixel `dx`, `dy` from its centre.
    static QPointF pixel(double dx, double dy) { return {viewSize.width() / 2 + dx, viewSize.height() / 2 + dy}; }
};

/// A game scene without gravity that tells whether a small probe touches a body.
struct Game : tessaro::kit::PhysicsContactDelegate {
    std::shared_ptr<tessaro::AppSharedSceneBase> scene =
        std::make_shared<tessaro::AppSharedSceneBase>(QSizeF(874, 402));
    double time = 0;
    tessaro::kit::PhysicsBody* probeBody = nullptr;
    bool touched = false;

    Game()
    {
        scene->physicsWorld().setGravity({0, 0});
        scene->processFrame(0);
    }
    void didBeginContact(const tessaro::kit::PhysicsContact& contact) override
    {
        if (contact.bodyA().get() == probeBody || contact.bodyB().get() == probeBody)
            touched = true;
    }
    /// Runs the clock to `until`, one frame at a time.
    void runTo(double until)
    {
        while (time + 1.0 / 60 <= until) {
            time += 1.0 / 60;
            scene->processFrame(time);
        }
    }
    /// Whether a probe at `offset` from `node` touches something in one step.
    bool touches(const tessaro::kit::Node& node, QPointF offset)
    {
        scene->physicsWorld().setContactDelegate(this);
        auto probe = tessaro::kit::Node::create();
        probe->setPosition(node.position() + offset);
        auto body = tessaro::kit::PhysicsBody::bodyWithCircleOfRadius(0.5);
        body->setAffectedByGravity(false);
        body->setCategoryBitMask(0x1);
        body->setContactTestBitMask(0xffffffff);
        body->setCollisionBitMask(0);
        probe->setPhysicsBody(body);
        probeBody = body.get();
        touched = false;
        scene->addChild(probe);
        runTo(time + 1.0 / 60);
        probe->removeFromParent();
        probeBody = nullptr;
        return touched;
    }
};

using PhysicsChainTest = PhysicsSheetFixture;

TEST_F(PhysicsChainTest, APointOfTheCanvasEndsInsideTheBodyTheGameBuilds)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);
    Canvas canvas(*session);

    // A rectangle dragged to 12 right and 8 up of the image's centre.
    session->setActiveType(InsertType::rectangle);
    canvas.gesture({Canvas::pixel(3, 3), Canvas::pixel(7, -2), Canvas::pixel(12, -8), Canvas::pixel(12, -8)});
    // With the picture mirrored, an edge drawn left to right runs right to left on the image.
    session->setFlipImageHorizontal(true);
    session->setActiveType(InsertType::edge);
    canvas.gesture({Canvas::pixel(-10, 15), Canvas::pixel(10, 15), Canvas::pixel(10, 15)});
    // A press beside the image starts nothing.
    canvas.gesture({Canvas::pixel(-30, 0), Canvas::pixel(-25, 0), Canvas::pixel(-25, 0)});
    ASSERT_EQ(session->physicsElements().size(), 2u);

    ASSERT_TRUE(session->applyPhysics());
    const tessaro::Level level = saved();
    const tessaro::ObstacleLevelItem& item = level.obstacles->front();
    const auto& physics = *item.properties->physics;
    EXPECT_EQ(physics.rectangles->front().size, "{12.0,8.0}");
    EXPECT_EQ(physics.rectangles->front().center, "{0.0,0.0}");
    EXPECT_EQ(physics.edges->front().startPoint, "{10.0,-15.0}");
    EXPECT_EQ(physics.edges->front().endPoint, "{-10.0,-15.0}");

    Game game;
    auto node = tessaro::ObstacleCreationHelper::createObstacle(
        tessaro::mergedObstacle(item, *tessaro::findObstacle(tessaro::obstacleCatalogue(), "Crate")), *game.scene,
        *game.scene);
    game.scene->addChild(node);
    EXPECT_TRUE(game.touches(*node, {4, 3})) << "inside the rectangle";
    EXPECT_TRUE(game.touches(*node, {-5.5, -3.5})) << "inside its corner";
    EXPECT_FALSE(game.touches(*node, {8, 0})) << "beside the rectangle";
    EXPECT_FALSE(game.touches(*node, {0, 6})) << "above it";
    EXPECT_TRUE(game.touches(*node, {0, -15})) << "on the edge";
    EXPECT_FALSE(game.touches(*node, {0, -18})) << "below the edge";
}

TEST_F(PhysicsChainTest, ShapesDrawnFrameByFrameOnAnAtlasMakeTheBodyOfTheirFrame)
{
    const QString atlas = kindImageFolder(workspace->path(), sceneObjectType::obstacles) + "door.atlas/";
    QDir().mkpath(atlas);
    for (int frame = 0; frame < 2; ++frame) {
        // Clear but for a corner, where the traced body of the picture lies.
        QImage picture(40, 40, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        for (int x = 0; x < 2; ++x)
            for (int y = 0; y < 2; ++y)
                picture.setPixelColor(x, y, Qt::black);
        picture.save(atlas + QStringLiteral("door_%1.png").arg(frame));
    }
    // The template animates the door; nothing says yet that its body changes.
    tessaro::Obstacle door = obstacleTemplate("Door", "door", "{40,40}");
    door.useGravity = false;
    door.collisionMasks.emplace().category = "staticObjectBody";
    tessaro::AnimationProperty& animation = door.animation.emplace();
    animation.frequency = "foreverAutomatically";
    animation.waitPerAnimationFrame.emplace().idle = 0.2;
    tessaro::obstacleCatalogue().push_back(door);
    tessaro::Level level = everyKind();
    level.obstacles->front().elementName = "Door";
    show({level});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);
    ASSERT_EQ(session->imageList().size(), 2);
    Canvas canvas(*session);

    // On each frame a 16 by 16 square, moved to the left on frame 0 and to
    // the right on frame 1; and a bar across the bottom on every frame.
    for (const int frame : {0, 1}) {
        session->selectImage(frame);
        session->setActiveType(InsertType::rectangle);
        canvas.gesture({Canvas::pixel(0, 0), Canvas::pixel(16, -16), Canvas::pixel(16, -16)});
        session->setActiveType(InsertType::none);
        const double to = frame == 0 ? -12 : 12;
        canvas.gesture({Canvas::pixel(1, 1), Canvas::pixel(1 + to, 1), Canvas::pixel(1 + to, 1)});
    }
    session->setActiveType(InsertType::edge);
    canvas.gesture({Canvas::pixel(-20, 18), Canvas::pixel(20, 18), Canvas::pixel(20, 18)});
    session->setFramesAffected(session->physicsElements().front().id, "");
    const tessaro::PhysicsProperty drawn = session->record();
    ASSERT_EQ(drawn.rectangles->size(), 2u);
    EXPECT_EQ(drawn.rectangles->at(0).framesAffected, "0");
    EXPECT_EQ(drawn.rectangles->at(0).center, "{-12.0,0.0}");
    EXPECT_EQ(drawn.rectangles->at(1).framesAffected, "1");

    // Applied and saved, the frames' shapes are the animation's and the bar the door's own.
    ASSERT_TRUE(session->applyPhysics());
    const tessaro::Level written = saved();
    const tessaro::ObstacleLevelItem& item = written.obstacles->front();
    ASSERT_TRUE(item.properties->animation && item.properties->animation->physics);
    const auto& frames = item.properties->animation->physics->rectangles;
    ASSERT_TRUE(frames && frames->size() == 2u);
    EXPECT_EQ(frames->at(0).framesAffected, "0");
    EXPECT_EQ(frames->at(0).center, "{-12.0,0.0}");
    EXPECT_EQ(frames->at(1).framesAffected, "1");
    EXPECT_EQ(frames->at(1).center, "{12.0,0.0}");
    EXPECT_EQ(item.properties->animation->changePhysics, true) << "the body changes with the frames now";
    ASSERT_TRUE(item.properties->physics);
    EXPECT_FALSE(item.properties->physics->rectangles);
    ASSERT_TRUE(item.properties->physics->edges && item.properties->physics->edges->size() == 1u);
    EXPECT_FALSE(item.properties->physics->edges->front().framesAffected) << "the bar is on every frame";
    // The sheet opens again on all of them.
    EXPECT_EQ(open(PhysicsEditMode::element)->physicsElements().size(), 3u);

    // The game animates the atlas with a body per frame from the saved level.
    tessaro::kit::resources::setSearchPaths(tessaro::workspaceSearchPaths(workspace->path()));
    Game game;
    auto node = tessaro::ObstacleCreationHelper::createObstacle(
        tessaro::mergedObstacle(item, *tessaro::findObstacle(tessaro::obstacleCatalogue(), "Door")), *game.scene,
        *game.scene);
    game.scene->addChild(node);
    game.runTo(0.1); // frame 0
    EXPECT_TRUE(game.touches(*node, {-12, 0}));
    EXPECT_FALSE(game.touches(*node, {12, 0}));
    game.runTo(0.3); // frame 1
    EXPECT_FALSE(game.touches(*node, {-12, 0}));
    EXPECT_TRUE(game.touches(*node, {12, 0}));
    tessaro::kit::resources::setSearchPaths({});
}

} // namespace
} // namespace stagewright::test
