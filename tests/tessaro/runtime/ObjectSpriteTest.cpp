// The object sprite on an exact clock: frame animation with and without a
// body per frame, moves, cycle ends and their callbacks, hits and volume.
#include "RuntimeTestSupport.h"

#include <tessaro/runtime/HealthBar.h>
#include <tessaro/runtime/SKSpriteNode2dBase.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro;
using namespace runtime_test;

namespace {

struct Callbacks : SceneBaseCustomDelegate {
    std::vector<std::pair<callbackType, std::string>> calls;
    void callback(callbackType type, const QString& name, const kit::NodePtr&) override
    {
        calls.emplace_back(type, name.toStdString());
    }
};

struct Stage {
    Pictures pictures;
    std::shared_ptr<AppSharedSceneBase> scene = std::make_shared<AppSharedSceneBase>(QSizeF(800, 600));
    Callbacks callbacks;
    Stage()
    {
        scene->setCustomDelegate(&callbacks);
        scene->physicsWorld().setGravity({0, 0});
    }
    ~Stage() { scene->setCustomDelegate(nullptr); }

    /// An object of image `image` whose record holds `animation` and one
    /// default device entry.
    SKSpriteNode2dBasePtr object(const QString& image, const AnimationProperty& animation,
                                 const std::string& distance = "{0,0}")
    {
        SpriteSetup setup;
        setup.scene = scene.get();
        setup.name = "OBJECT_" + image;
        setup.size = QSizeF(10, 10);
        auto node = SKSpriteNode2dBase::create(image, setup);
        Obstacle record;
        record.image = image.toStdString();
        record.animation = animation;
        DeviceProperties device;
        device.deviceName = "defaultDevice";
        device.distance = distance;
        record.devices = std::vector<DeviceProperties>{device};
        node->setObstacleProperties(record);
        if (animation.cycleEndProperties)
            node->setCycleEndProperties(*animation.cycleEndProperties);
        scene->addChild(node);
        return node;
    }
};

AnimationProperty animationOf(const char* frequency, const char* direction = "none")
{
    AnimationProperty animation;
    animation.frequency = frequency;
    animation.moveDirection = direction;
    return animation;
}

} // namespace

TEST(ObjectSprite, FramesLoopAtTheirWaitAndMovesRunBesideThem)
{
    Stage stage;
    stage.pictures.atlas("spin", 3);
    AnimationProperty animation = animationOf("foreverAutomatically", "upDown");
    animation.waitPerAnimationFrame.emplace().idle = 0.1;
    animation.waitPerAnimationFrame->move = 0.2;
    animation.delays.emplace().movement = 0.5;
    auto node = stage.object("spin", animation, "{0,30}");
    node->setPosition(0, 100);
    Clock clock(*stage.scene);
    node->startAnimation();
    EXPECT_EQ(node->animType(), animationFrequency::foreverAutomatically);
    EXPECT_TRUE(node->actionForKey(node->actionKey(".animateForever")));
    EXPECT_TRUE(node->actionForKey(node->actionKey(".moveForever")));
    // With a distance the frames take the move wait: 0.2 s each.
    clock.to(0.05);
    EXPECT_EQ(frameNumber(node->texture()), 0);
    clock.to(0.25);
    EXPECT_EQ(frameNumber(node->texture()), 1);
    clock.to(0.65);
    EXPECT_EQ(frameNumber(node->texture()), 0) << "the frames loop";
    // Up 30 in 0.5 s, wait 0.5 + 0.1, back down in 0.5 s.
    EXPECT_NEAR(node->position().y(), 130, 1e-6);
    clock.to(1.1);
    EXPECT_NEAR(node->position().y(), 130, 1e-6);
    clock.to(1.35);
    EXPECT_NEAR(node->position().y(), 115, 1e-6);
    clock.to(1.6);
    EXPECT_NEAR(node->position().y(), 100, 1e-6);

    // One frame without a body per frame: no frame animation, the move runs.
    stage.pictures.image("still", 12, 12);
    AnimationProperty once = animationOf("once", "right");
    once.delays.emplace().movement = 1.0;
    auto still = stage.object("still", once, "{50,0}");
    still->startAnimation();
    EXPECT_EQ(still->animType(), animationFrequency::once);
    EXPECT_EQ(still->buildAnimationAction()->duration(), 0);
    clock.to(2.1);
    EXPECT_NEAR(still->position().x(), 25, 1e-6);
    clock.to(2.6);
    EXPECT_NEAR(still->position().x(), 50, 1e-6);
    clock.to(3.5);
    EXPECT_NEAR(still->position().x(), 50, 1e-6) << "once: one pass";

    // Without its records an object builds nothing.
    SpriteSetup bare;
    bare.scene = stage.scene.get();
    auto plain = SKSpriteNode2dBase::create("still", bare);
    EXPECT_EQ(plain->buildAnimationAction(), nullptr);
    EXPECT_EQ(plain->buildMoveAction(), nullptr);
}

TEST(ObjectSprite, ABodyPerFrameFollowsTheFrameOrderAndSilencesTheFirstFrame)
{
    Stage stage;
    stage.pictures.atlas("door", 4);
    AnimationProperty animation = animationOf("foreverAutomatically");
    animation.changePhysics = true;
    animation.noPhysicsFirstFrame = true;
    animation.animationFrameStart = 2;
    animation.waitPerAnimationFrame.emplace().idle = 0.1;
    animation.delays.emplace().cycleEnd = 0.3;
    PhysicsProperty& shapes = animation.physics.emplace();
    RectanglePhysics wide;
    wide.size = "{10,4}";
    wide.framesAffected = "3";
    shapes.rectangles = std::vector<RectanglePhysics>{wide};
    auto node = stage.object("door", animation);
    PhysicsSettings settings;
    settings.category = 0x2;
    settings.contact = 0x1;
    settings.collision = 0x1;
    settings.isDynamic = false;
    node->usePhysicsRectangle(QSizeF(10, 10), settings);

    Clock clock(*stage.scene);
    node->runAction(node->buildAnimationAction());
    // Frames 2 and 3 first, then the cycle delay, then 0 and 1.
    clock.to(0.05);
    EXPECT_EQ(frameNumber(node->texture()), 2);
    EXPECT_EQ(node->physicsBody()->categoryBitMask(), 0x2u);
    clock.to(0.15);
    EXPECT_EQ(frameNumber(node->texture()), 3);
    ASSERT_EQ(node->physicsBody()->shapes().size(), 1u);
    EXPECT_NEAR(node->physicsBody()->shapes()[0].points[1].y() - node->physicsBody()->shapes()[0].points[2].y(), 0,
                4.01)
        << "frame 3 has its own rectangle";
    clock.to(0.45);
    EXPECT_EQ(frameNumber(node->texture()), 3) << "waiting the cycle delay before frame 0";
    clock.to(0.55);
    EXPECT_EQ(frameNumber(node->texture()), 0);
    EXPECT_EQ(node->physicsBody()->categoryBitMask(), kNoContactCategory);
    EXPECT_EQ(node->physicsBody()->contactTestBitMask(), 0x1u);
    EXPECT_FALSE(node->physicsBody()->isDynamic());
    clock.to(0.65);
    EXPECT_EQ(frameNumber(node->texture()), 1);
    EXPECT_EQ(node->physicsBody()->categoryBitMask(), 0x2u);
}

TEST(ObjectSprite, CycleEndsShowTheirEndSpriteCallBackAndRemove)
{
    Stage stage;
    stage.pictures.image("lamp", 10, 10);
    stage.pictures.atlas("burst", 2);
    CycleEndProperties end;
    end.atlasName = "burst";
    end.animationDuration = 0.4;
    end.callbackFunction = "lampDone";
    end.fadeObstacle = true;
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.size = "{30,30}";
    end.devices = std::vector<DeviceProperties>{device};
    AnimationProperty animation = animationOf("once");
    animation.cycleEndProperties = std::vector<CycleEndProperties>{end};
    animation.delays.emplace().cycleEnd = 0.5;
    auto lamp = stage.object("lamp", animation);
    lamp->setPosition(40, 50);

    Clock clock(*stage.scene);
    lamp->startAnimation();
    clock.to(0.4);
    EXPECT_FALSE(stage.scene->childNodeWithName("OBJECT_lamp_end"));
    clock.to(0.55);
    auto burst = std::dynamic_pointer_cast<SKSpriteNode2dBase>(stage.scene->childNodeWithName("OBJECT_lamp_end"));
    ASSERT_TRUE(burst);
    EXPECT_EQ(burst->position(), QPointF(40, 50));
    EXPECT_EQ(burst->size(), QSizeF(30, 30));
    EXPECT_EQ(burst->zPosition(), lamp->zPosition() + 1);
    ASSERT_NE(burst->physicsBody(), nullptr);
    EXPECT_LT(lamp->alpha(), 0.1) << "the faded obstacle";
    ASSERT_EQ(stage.callbacks.calls.size(), 1u);
    EXPECT_EQ(stage.callbacks.calls[0], std::make_pair(callbackType::cycleEnd, std::string("lampDone")));
    clock.to(1.0);
    EXPECT_FALSE(stage.scene->childNodeWithName("OBJECT_lamp_end")) << "the end sprite leaves after its frames";
    EXPECT_NEAR(lamp->alpha(), 1.0, 1e-9);

    // An entry whose run has not finished is not started again.
    CycleEndProperties again;
    again.callbackFunction = "again";
    lamp->setCycleEndProperties(std::vector<CycleEndProperties>{again});
    lamp->runCycleEnds();
    lamp->runCycleEnds();
    clock.to(1.05);
    EXPECT_EQ(stage.callbacks.calls.size(), 2u);

    // An entry that removes the object it names.
    CycleEndProperties gone;
    gone.removeFromParentAtEnd = true;
    gone.obstacleAffected = "OBJECT_lamp";
    lamp->setCycleEndProperties(std::vector<CycleEndProperties>{gone});
    lamp->runCycleEnds();
    clock.to(1.1);
    EXPECT_EQ(lamp->parent(), nullptr);
}

TEST(ObjectSprite, CycleEndSpritesTakeTheShapesDrawnOnThem)
{
    Stage stage;
    stage.pictures.image("lamp", 10, 10);
    stage.pictures.atlas("burst", 2);
    const auto rectangle = [](const char* center, std::optional<std::string> frames) {
        RectanglePhysics r;
        r.size = "{6,6}";
        r.center = center;
        r.framesAffected = std::move(frames);
        return r;
    };
    CycleEndProperties end;
    end.atlasName = "burst";
    end.animationDuration = 0.4;
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.size = "{60,60}";
    end.devices = std::vector<DeviceProperties>{device};
    end.collisionMasks.emplace().category = "staticObjectBody";
    // A block on every frame, and one that moves from the left on frame 0 to the right on frame 1.
    end.physics.emplace().rectangles = std::vector<RectanglePhysics>{
        rectangle("{0,20}", std::nullopt), rectangle("{-20,0}", "0"), rectangle("{20,0}", "1")};
    AnimationProperty animation = animationOf("once");
    animation.cycleEndProperties = std::vector<CycleEndProperties>{end};
    auto lamp = stage.object("lamp", animation);
    lamp->setPosition(100, 100);
    Clock clock(*stage.scene);
    const auto touched = [&](double dx, double dy) {
        const kit::PhysicsBodyPtr body = stage.scene->physicsWorld().bodyAtPoint(QPointF(100 + dx, 100 + dy));
        return body && body->node() && body->node()->name() == QLatin1String("OBJECT_lamp_end");
    };

    lamp->runCycleEnds();
    clock.to(0.1);
    ASSERT_TRUE(stage.scene->childNodeWithName("OBJECT_lamp_end"));
    EXPECT_TRUE(touched(0, 20)) << "the block of every frame";
    EXPECT_TRUE(touched(-20, 0)) << "frame 0's block";
    EXPECT_FALSE(touched(20, 0));
    EXPECT_FALSE(touched(0, -20)) << "not the whole picture";
    clock.to(0.3);
    EXPECT_TRUE(touched(0, 20));
    EXPECT_FALSE(touched(-20, 0));
    EXPECT_TRUE(touched(20, 0)) << "frame 1's block";
}

TEST(ObjectSprite, AnObjectWhosePictureIsFlippedCarriesItsBodyFlipped)
{
    Stage stage;
    stage.pictures.atlas("flag", 2);
    AnimationProperty flipped = animationOf("foreverAutomatically");
    flipped.flipImage = true;
    auto flag = stage.object("flag", flipped);
    flag->setPosition(-100, -100);
    PhysicsSettings settings;
    settings.isDynamic = false;
    flag->usePhysicsRectangle(QSizeF(4, 4), QPointF(3, 0), settings);
    Clock clock(*stage.scene);
    flag->startAnimation();
    clock.to(0.1);
    ASSERT_EQ(flag->xScale(), -1);
    EXPECT_TRUE(stage.scene->physicsWorld().bodyAtPoint({-103, -100}));
    EXPECT_FALSE(stage.scene->physicsWorld().bodyAtPoint({-97, -100}));
}

TEST(ObjectSprite, HitsEmptyTheHealthBarAndVolumeFallsWithDistance)
{
    Stage stage;
    stage.pictures.image("box", 10, 10);
    SpriteSetup setup;
    setup.scene = stage.scene.get();
    auto single = SKSpriteNode2dBase::create("box", setup);
    EXPECT_FALSE(single->childNodeWithName("healthBox"));
    EXPECT_TRUE(single->hit());
    EXPECT_EQ(single->hitsRemaining(), 1);

    setup.allowedTimesToHit = 2;
    auto twice = SKSpriteNode2dBase::create("box", setup);
    auto slot = [&](int n) {
        return std::dynamic_pointer_cast<kit::SpriteNode>(
                   twice->childNodeWithName(QStringLiteral("healthBox/health%1").arg(n)))
            ->texture();
    };
    EXPECT_EQ(twice->childNodeWithName("healthBox")->children().size(), 2u);
    EXPECT_FALSE(twice->hit());
    EXPECT_EQ(slot(1), healthBarTexture("object_HealthRed"));
    EXPECT_EQ(slot(2), healthBarTexture("object_HealthEmpty"));
    EXPECT_TRUE(twice->hit());
    EXPECT_EQ(twice->hitsRemaining(), 2);
    EXPECT_EQ(slot(1), healthBarTexture("object_HealthGreen"));

    setup.allowedTimesToHit = 4;
    auto four = SKSpriteNode2dBase::create("box", setup);
    EXPECT_EQ(std::dynamic_pointer_cast<kit::SpriteNode>(four->childNodeWithName("healthBox"))->size().width(), 50);
    EXPECT_EQ(four->childNodeWithName("healthBox/health4")->position().x(), 15);

    struct Case {
        double distance;
        float volume;
    };
    for (Case c :
         {Case{0, 1.0f}, Case{800, 1.0f}, Case{800.5, 0.67f}, Case{1600, 0.67f}, Case{2400, 0.33f}, Case{2401, 0.0f}}) {
        single->setDistance(c.distance);
        EXPECT_FLOAT_EQ(single->volumeForDistance(), c.volume) << c.distance;
    }

    // The frame update measures the distance and reports the callback name,
    // only while sound effects are on.
    single->setPosition(100, 0);
    single->setCallbackFunction("tick");
    single->update(-1500);
    EXPECT_EQ(single->distance(), 1600);
    EXPECT_FLOAT_EQ(single->volume(), 0.67f);
    ASSERT_EQ(stage.callbacks.calls.size(), 1u);
    EXPECT_EQ(stage.callbacks.calls[0].first, callbackType::update);
    stage.scene->setSoundFxEnabled(false);
    single->update(0);
    EXPECT_EQ(stage.callbacks.calls.size(), 1u);
}
