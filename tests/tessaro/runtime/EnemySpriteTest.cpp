// The character state machine on an exact clock: idle, moving to its
// target, attacking with projectiles, dying; its bodies by state and facing.
#include "RuntimeTestSupport.h"

#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/Projectiles.h>
#include <tessaro/runtime/SKSpriteNodeEnemy2dBase.h>

#include <gtest/gtest.h>

using namespace tessaro;
using namespace runtime_test;

namespace {

PolyPhysics square(const char* action, const char* direction, double size)
{
    PolyPhysics polygon;
    polygon.action = action;
    polygon.direction = direction;
    for (const char* corner : {"{-1,-1}", "{1,-1}", "{1,1}", "{-1,1}"}) {
        const PointValue p = pointFromText(corner);
        polygon.points.push_back(Point{{}, {}, textFromPair(p.x * size, p.y * size)});
    }
    return polygon;
}

struct Stage {
    Pictures pictures;
    std::shared_ptr<AppSharedSceneBase> scene = std::make_shared<AppSharedSceneBase>(QSizeF(800, 600));
    std::shared_ptr<kit::SpriteNode> player = kit::SpriteNode::create(Qt::green, {20, 20});

    Stage()
    {
        scene->physicsWorld().setGravity({0, 0});
        pictures.atlas("slime_Idle", 2);
        pictures.atlas("slime_Walk", 3);
        pictures.atlas("slime_Bite", 4);
        pictures.atlas("slime_Die", 2);
        pictures.image("spit", 6, 6);
        scene->addChild(player);
    }

    SKSpriteNodeEnemy2dBasePtr slime(const Character& record)
    {
        SpriteSetup setup;
        setup.scene = scene.get();
        setup.name = "ENEMY_ANIMAL_slime";
        setup.size = QSizeF(20, 20);
        auto enemy = SKSpriteNodeEnemy2dBase::create("slime_Idle", setup, false);
        enemy->setImageBase("slime");
        enemy->setCharacterProperties(record);
        enemy->setCollisionMasks(record.collisionMasks.value_or_default());
        enemy->setDirection(pathDirection::right);
        enemy->setTarget(player);
        scene->addChild(enemy);
        return enemy;
    }
};

Character slimeRecord()
{
    Character record;
    record.image = "slime";
    Actions& actions = record.actions.emplace();
    actions.idle = "Idle";
    actions.move = "Walk";
    actions.attack = "Bite";
    TargetDistances& distances = record.targetDistances.emplace();
    distances.near = "{300,0}";
    distances.attack = "{50,0}";
    distances.moveSpeed = 3;
    distances.maximumRange = "{1000,0}";
    WaitPerAnimationFrame& waits = record.animation.emplace().waitPerAnimationFrame.emplace();
    waits.idle = 0.2;
    waits.move = 0.1;
    CollisionDetection& masks = record.collisionMasks.emplace();
    masks.category = "enemyTouch";
    masks.collision = "floor,none";
    masks.contact = "humanPlayer";
    ProjectileProperties spit;
    spit.image = "spit";
    spit.velocityRanges =
        std::vector<VelocityRangeProperties>{{"0...100", "{1,1}"}, {"0...60", "{5,2}"}, {"200...300", "{9,9}"}};
    record.projectiles = std::vector<ProjectileProperties>{spit, spit};
    PhysicsProperty& physics = record.physics.emplace();
    physics.polygons = std::vector<PolyPhysics>{square("idle", "right", 5), square("move,attack", "left", 7),
                                                square("all", "both", 9), square("idle", "sideways", 11)};
    return record;
}

} // namespace

TEST(EnemySprite, WalksItsStatesFromIdleToAttackAndBack)
{
    Stage stage;
    auto enemy = stage.slime(slimeRecord());
    enemy->setPosition(0, 0);
    enemy->setStartingPosition({0, 0});
    stage.player->setPosition(500, 0);
    Clock clock(*stage.scene);

    // Too far: idle, with the idle frames and the idle bodies.
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Idle);
    EXPECT_TRUE(enemy->actionForKey(enemy->actionKey(".animate")));
    EXPECT_EQ(enemy->xScale(), 1) << "faces right, as drawn";
    ASSERT_NE(enemy->physicsBody(), nullptr);
    EXPECT_EQ(enemy->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::enemyTouch));
    EXPECT_EQ(enemy->physicsBody()->collisionBitMask(), collisionBit(collisionTypes::floor))
        << "without gravity the 'none' bit leaves the collision mask";
    const size_t idleShapes = enemy->physicsBody()->shapes().size(); // "idle/right" and "all/both"
    clock.to(0.25);
    EXPECT_EQ(frameNumber(enemy->texture()), 1);

    // Near enough: it moves, 3 points a step, and shows its walk.
    stage.player->setPosition(200, 0);
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Move);
    clock.to(0.3);
    EXPECT_EQ(frameNumber(enemy->texture()), 0);
    for (int i = 0; i < 10; ++i) {
        enemy->update();
        clock.to(clock.t + 1.0 / 60);
    }
    EXPECT_NEAR(enemy->position().x(), 30, 1e-3); // bodies keep single precision
    EXPECT_EQ(enemy->executeState(), enemyStateType::Move);

    // Within the attack distance: it attacks and throws what it carries,
    // one projectile per slot.
    stage.player->setPosition(70, 0);
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Attack);
    clock.to(clock.t + 1.0 / 60);
    enemy->update();
    const auto projectiles = stage.scene->nodesWithName("PROJECTILE_*");
    ASSERT_EQ(projectiles.size(), 2u) << "one per record, in slots 0 and 1";
    EXPECT_EQ(projectiles[0]->name(), "PROJECTILE_ENEMY_ANIMAL_slime_0");
    EXPECT_EQ(projectiles[1]->name(), "PROJECTILE_ENEMY_ANIMAL_slime_1");
    EXPECT_NEAR(projectiles[0]->position().y(), enemy->position().y() - 10, 1e-6);
    ASSERT_NE(projectiles[0]->physicsBody(), nullptr);
    EXPECT_EQ(projectiles[0]->physicsBody()->categoryBitMask(), collisionBit(collisionTypes::projectileThrown));
    // While slot 0 is taken neither record throws: both ask for slot 0.
    projectiles[1]->removeFromParent();
    enemy->update();
    EXPECT_EQ(stage.scene->nodesWithName("PROJECTILE_*").size(), 1u);

    // The target steps away: back to moving; out of reach: idle.
    stage.player->setPosition(200, 0);
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Move);
    stage.player->setPosition(900, 0);
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Idle);
    EXPECT_EQ(enemy->physicsBody()->shapes().size(), idleShapes);

    // Facing left keeps the shapes drawn for the left and for both sides.
    stage.player->setPosition(-200, 0);
    enemy->update();
    EXPECT_EQ(enemy->xScale(), -1);
    EXPECT_EQ(enemy->executeState(), enemyStateType::Move);
    const size_t leftShapes = enemy->physicsBody()->shapes().size();
    enemy->applyStatePhysics(StateAnimation::idle);
    EXPECT_LT(enemy->physicsBody()->shapes().size(), leftShapes) << "no idle shape faces left but 'all'";
}

TEST(EnemySprite, ABodyDrawnOnTheRightFacingPictureTurnsWithIt)
{
    Stage stage;
    Character record = slimeRecord();
    record.targetDistances->near.reset(); // it stays where it is
    // A snout right of the centre, on the picture as drawn (facing right).
    PolyPhysics snout;
    snout.action = "idle";
    snout.direction = "both";
    for (const char* corner : {"{4,-3}", "{14,-3}", "{14,3}", "{4,3}", "{4,-3}"})
        snout.points.push_back(Point{{}, {}, corner});
    record.physics.emplace().polygons = std::vector<PolyPhysics>{snout};
    auto enemy = stage.slime(record);
    enemy->setPosition(100, 0);
    Clock clock(*stage.scene);
    const auto touches = [&](double dx) {
        return stage.scene->physicsWorld().bodyAtPoint(enemy->position() + QPointF(dx, 0)).get() ==
            enemy->physicsBody();
    };

    stage.player->setPosition(0, 0); // on its left: the picture is mirrored
    enemy->update();
    clock.to(1.0 / 60);
    ASSERT_EQ(enemy->xScale(), -1);
    ASSERT_NE(enemy->physicsBody(), nullptr);
    EXPECT_TRUE(touches(-9)) << "the snout shows on the left";
    EXPECT_FALSE(touches(9)) << "nothing where the unmirrored snout would be";

    stage.player->setPosition(300, 0);
    enemy->update();
    clock.to(2.0 / 60);
    ASSERT_EQ(enemy->xScale(), 1);
    EXPECT_TRUE(touches(9));
    EXPECT_FALSE(touches(-9));
}

TEST(EnemySprite, DiesOnceFallsAwayAndClearsTheDamage)
{
    Stage stage;
    auto enemy = stage.slime(slimeRecord());
    enemy->setPosition(100, 50);
    enemy->update();
    stage.scene->setDamageOccurred(true);
    stage.scene->setCollisionDirection(pathDirection::left);
    Clock clock(*stage.scene);
    enemy->setExecuteState(enemyStateType::Die);
    enemy->update();
    EXPECT_TRUE(enemy->actionForKey(enemy->actionKey(".dying")));
    EXPECT_FALSE(enemy->actionForKey(enemy->actionKey(".animate")));
    EXPECT_EQ(enemy->physicsBody()->categoryBitMask(), kNoContactCategory);
    EXPECT_FALSE(enemy->physicsBody()->isDynamic());
    const auto dying = enemy->actionForKey(enemy->actionKey(".dying"));
    enemy->update();
    EXPECT_EQ(enemy->actionForKey(enemy->actionKey(".dying")), dying) << "a second call starts nothing";
    // Knocked back 30 from the side it is hurt on, then up and away.
    clock.to(0.5);
    EXPECT_NEAR(enemy->position().x(), 70, 1e-3);
    // 0.5 + 0.1 + blink 0.5 + frames 2 * 0.1, then up 80 in 0.2 s.
    clock.to(1.5);
    EXPECT_NEAR(enemy->position().y(), 130, 1e-3);
    EXPECT_TRUE(stage.scene->damageOccurred());
    clock.to(2.6);
    EXPECT_EQ(enemy->parent(), nullptr);
    EXPECT_FALSE(stage.scene->damageOccurred());
    EXPECT_EQ(stage.scene->collisionDirection(), pathDirection::none);
}

TEST(EnemySprite, StartsWithItsInitialActionAndStaysWithoutATarget)
{
    Stage stage;
    Character record = slimeRecord();
    record.actions->initial = "Bite";
    auto enemy = stage.slime(record);
    enemy->setExecuteState(enemyStateType::Initial);
    enemy->setTarget(nullptr);
    enemy->setPosition(-40, 0);
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Idle);
    EXPECT_TRUE(enemy->actionForKey(enemy->actionKey(".initial")));
    EXPECT_FALSE(enemy->canMove());
    enemy->update();
    EXPECT_EQ(enemy->executeState(), enemyStateType::Idle);
    EXPECT_EQ(enemy->xScale(), 1) << "no target: it faces x 0";
    enemy->setPosition(40, 0);
    enemy->update();
    EXPECT_EQ(enemy->xScale(), -1);
}

TEST(EnemySprite, ProjectilesTakeTheLastMatchingVelocityTurnedToTheTarget)
{
    Stage stage;
    auto enemy = stage.slime(slimeRecord());
    const ProjectileProperties spit = enemy->characterProperties()->projectiles->front();
    struct Case {
        double targetX;
        pathDirection drawn;
        QPointF velocity; // points per second after the impulse
    };
    for (const Case& c : {Case{40, pathDirection::right, {5, 2}}, Case{80, pathDirection::right, {1, 1}},
                          Case{-40, pathDirection::right, {-5, 2}}, Case{-40, pathDirection::left, {5, 2}},
                          Case{150, pathDirection::right, {0, 0}}}) {
        enemy->setDirection(c.drawn);
        stage.player->setPosition(c.targetX, 0);
        ASSERT_TRUE(fireProjectile(spit, *enemy, 7));
        auto shot = stage.scene->childNodeWithName("PROJECTILE_ENEMY_ANIMAL_slime_7");
        ASSERT_TRUE(shot);
        const QPointF v = shot->physicsBody()->velocity();
        const double mass = shot->physicsBody()->mass();
        EXPECT_NEAR(v.x() * mass / kit::kPointsPerMeter, c.velocity.x(), 1e-3) << c.targetX;
        EXPECT_NEAR(v.y() * mass / kit::kPointsPerMeter, c.velocity.y(), 1e-3) << c.targetX;
        EXPECT_FALSE(fireProjectile(spit, *enemy, 7)) << "the slot is taken";
        shot->removeFromParent();
    }
}
