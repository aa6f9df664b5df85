#include "Projectiles.h"

#include "AppSharedSceneBase.h"
#include "PhysicsRecords.h"
#include "SKSpriteNode2dBase.h"
#include "SKSpriteNodeEnemy2dBase.h"

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>

#include <cmath>

namespace tessaro {

using kit::PhysicsBody;
using kit::PhysicsBodyPtr;

namespace {

PhysicsBodyPtr projectileBody(const boxed<PhysicsProperty>& physics, const QSizeF& shooterSize)
{
    std::vector<PhysicsBodyPtr> bodies;
    if (!physics)
        return nullptr;
    for (const RadiusPhysics& circle : physics->radiuses.value_or(std::vector<RadiusPhysics>{}))
        bodies.push_back(circleBody(circle));
    for (const RectanglePhysics& rectangle : physics->rectangles.value_or(std::vector<RectanglePhysics>{}))
        bodies.push_back(rectangleBody(rectangle));
    for (const EdgePhysics& edge : physics->edges.value_or(std::vector<EdgePhysics>{}))
        bodies.push_back(edgeBody(edge, shooterSize));
    return bodies.empty() ? nullptr : PhysicsBody::bodyWithBodies(bodies);
}

/// The velocity of the last range that holds the distance to the target.
QPointF impulseFor(const std::vector<VelocityRangeProperties>& ranges, std::optional<double> distance)
{
    QPointF impulse;
    for (const VelocityRangeProperties& entry : ranges) {
        const RangeValue range = entry.range ? rangeFromText(*entry.range) : RangeValue{0, 10000};
        const PointValue velocity = entry.velocity ? pointFromText(*entry.velocity) : PointValue{};
        const double d = distance.value_or(0);
        if (range.lower <= d && d <= range.upper)
            impulse = QPointF(velocity.x, velocity.y);
    }
    return impulse;
}

} // namespace

bool fireProjectile(const ProjectileProperties& record, SKSpriteNodeEnemy2dBase& shooter, int index)
{
    kit::Node* parent = shooter.parent();
    if (!parent)
        return false;
    const QString name = QStringLiteral("PROJECTILE_%1_%2").arg(shooter.name()).arg(index);
    for (const kit::NodePtr& child : parent->children())
        if (child->name() == name)
            return false;

    const QString image = QString::fromStdString(record.image.value_or(""));
    const SizeValue size = deviceValue<fieldList::size>(record.devices, shooter.deviceChoice());
    const auto frames =
        shooter.gameScene() ? shooter.gameScene()->cachedTextures(image) : kit::TextureAtlas::texturesOrImage(image);
    SpriteSetup setup;
    setup.size = QSizeF(size.width, size.height);
    setup.zPosition = record.zPosition.value_or(0);
    setup.name = name;
    setup.scene = shooter.gameScene();
    setup.position = shooter.position() - QPointF(0, 10);
    auto projectile = SKSpriteNode2dBase::create(frames.front(), setup);
    projectile->setObjectClassTypes(record.objectClassType ? listFromText<objectClassType>(*record.objectClassType)
                                                           : std::vector<objectClassType>{objectClassType::none});

    PhysicsSettings settings;
    settings.category = collisionBit(collisionTypes::projectileThrown);
    settings.collision = collisionBit(collisionTypes::floor);
    settings.contact = collisionBit(collisionTypes::floor) | collisionBit(collisionTypes::enemyTouch);
    settings.isDynamic = true;
    settings.useGravity = true;
    settings.allowsRotation = true;
    if (PhysicsBodyPtr body = projectileBody(record.physics, shooter.size()))
        projectile->usePhysicsBodies({body}, settings);
    else
        projectile->usePhysicsImage(image, settings);
    if (kit::PhysicsBody* body = projectile->physicsBody())
        body->setContactTestBitMask(collisionBit(collisionTypes::floor) |
                                    collisionBit(collisionTypes::floorAboveGround));
    if (kit::PhysicsBody* body = shooter.physicsBody())
        body->setContactTestBitMask(body->contactTestBitMask() & collisionBit(collisionTypes::projectileThrown));

    const auto target = shooter.target();
    const double shooterX = shooter.position().x();
    const double targetX = target ? target->position().x() : 0;
    QPointF impulse = impulseFor(record.velocityRanges.value_or(std::vector<VelocityRangeProperties>{}),
                                 target ? std::optional<double>(std::abs(targetX - shooterX)) : std::nullopt);
    const pathDirection facing = shooterX <= targetX ? pathDirection::right : pathDirection::left;
    if (shooter.direction() != facing)
        impulse.setX(-impulse.x());

    if (!frames.empty())
        projectile->runAction(kit::Action::sequence({kit::Action::animateWithTextures(frames, 0.1, false, false)}),
                              name);
    parent->addChild(projectile);
    if (kit::PhysicsBody* body = projectile->physicsBody())
        body->applyImpulse(impulse);
    return true;
}

} // namespace tessaro
