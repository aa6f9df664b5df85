#include "Player.h"

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/ActionExtensions.h>
#include <tessaro/runtime/HealthBar.h>

#include <algorithm>
#include <cmath>

namespace play {

using namespace tessaro;

namespace {

/// What the player bumps into and stands on, beyond what its record says.
constexpr std::uint32_t kSolid = collisionBit(collisionTypes::floor) | collisionBit(collisionTypes::staticObjectBody) |
    collisionBit(collisionTypes::staticObjectMovable) | collisionBit(collisionTypes::staticObjectBouncible) |
    collisionBit(collisionTypes::floorAboveGround) | collisionBit(collisionTypes::floatingFloor) |
    collisionBit(collisionTypes::staticObjectSpecialHandling);
/// What the game wants to hear of when the player touches it.
constexpr std::uint32_t kNoticed = collisionBit(collisionTypes::collectibleTouched) |
    collisionBit(collisionTypes::objectCausesDeath) | collisionBit(collisionTypes::objectCausesDamageAllSides) |
    collisionBit(collisionTypes::objectCausesDamageAllSidesIgnoreCollision) | collisionBit(collisionTypes::enemyTouch) |
    collisionBit(collisionTypes::projectileThrown);

} // namespace

Player::Player(SKSpriteNodeEnemy2dBasePtr sprite, AppSharedSceneBase& scene)
    : m_sprite(std::move(sprite)),
      m_scene(scene)
{
    const CollisionDetection masks = m_sprite->collisionMasks().value_or(CollisionDetection{});
    PhysicsSettings settings;
    settings.category = collisionBit(collisionTypes::humanPlayer);
    settings.collision = (masks.collision ? maskFromText(*masks.collision) : 0) | kSolid;
    settings.contact = (masks.contact ? maskFromText(*masks.contact) : 0) | kNoticed;
    settings.isDynamic = true;
    settings.useGravity = true;
    // A little narrower than the picture, so that the player fits through
    // gaps its picture only just fits.
    const QSizeF size = m_sprite->size();
    m_sprite->usePhysicsRectangle(QSizeF(size.width() * 0.8, size.height()), settings);
    if (auto* body = m_sprite->physicsBody())
        body->setFriction(0);
    m_sprite->setExecuteState(enemyStateType::None);
    showAction(std::nullopt, std::nullopt);
}

QPointF Player::velocity() const
{
    return m_sprite->physicsBody() ? m_sprite->physicsBody()->velocity() : QPointF();
}

bool Player::onGround() const
{
    const auto* body = m_sprite->physicsBody();
    if (!body || std::abs(body->velocity().y()) > 5)
        return false;
    const double feet = m_sprite->position().y() - m_sprite->size().height() * 0.25;
    for (const auto& other : body->allContactedBodies()) {
        const kit::Node* node = other->node();
        if (node && !node->userData().contains(QStringLiteral("collectible")) && (other->categoryBitMask() & kSolid) &&
            node->position().y() < feet)
            return true;
    }
    return false;
}

void Player::steer(const Controls& controls)
{
    auto* body = m_sprite->physicsBody();
    if (!body)
        return;
    const double run = (controls.right ? kRunSpeed : 0) - (controls.left ? kRunSpeed : 0);
    double up = body->velocity().y();
    if (controls.jump && onGround())
        up = kJumpSpeed;
    body->setVelocity(QPointF(run, up));
    if (run != 0) {
        const pathDirection facing = run > 0 ? pathDirection::right : pathDirection::left;
        m_sprite->setXScale(m_sprite->direction() == facing ? 1 : -1);
    }
    const bool running = run != 0;
    if (running != m_running || !m_animated) {
        m_running = running;
        const Character record = m_sprite->characterProperties().value_or(Character{});
        const Actions actions = record.actions.value_or_default();
        const WaitPerAnimationFrame waits =
            record.animation ? record.animation->waitPerAnimationFrame.value_or_default() : WaitPerAnimationFrame{};
        showAction(running ? actions.move : actions.idle, running ? waits.move : waits.idle);
    }
}

void Player::showAction(const std::optional<std::string>& action, std::optional<double> perFrame)
{
    const QString atlas = m_sprite->imageBase() + QLatin1Char('_') + QString::fromStdString(action.value_or("Idle"));
    const auto frames = m_scene.cachedTextures(atlas);
    const bool hasFrames =
        std::any_of(frames.begin(), frames.end(), [](const kit::TexturePtr& t) { return !t->isPlaceholder(); });
    if (!hasFrames)
        return;
    m_animated = true;
    m_sprite->runAction(ActionExtensions::animateFrames(frames, perFrame.value_or(0.1), 0, 0, 0, true,
                                                        animationFrequency::foreverAutomatically, false),
                        QStringLiteral("player.animate"));
}

bool Player::hurt(double now, pathDirection from)
{
    if (isSafe(now))
        return false;
    m_safeUntil = now + kSafeAfterHit;
    m_scene.setDamageOccurred(true);
    m_scene.setCollisionDirection(from);
    m_sprite->setHitsRemaining(m_sprite->hitsRemaining() - 1);
    refreshHealth();
    m_sprite->runAction(ActionExtensions::blink(kSafeAfterHit, 1.0, 6, false, Qt::white, Qt::white),
                        QStringLiteral("player.blink"));
    if (auto* body = m_sprite->physicsBody())
        body->setVelocity(QPointF(from == pathDirection::left ? 200 : -200, 300));
    return m_sprite->hitsRemaining() < 1;
}

void Player::bounce()
{
    if (auto* body = m_sprite->physicsBody())
        body->setVelocity(QPointF(body->velocity().x(), kJumpSpeed * 0.6));
}

void Player::respawn(const QPointF& place)
{
    m_sprite->setPosition(place);
    if (auto* body = m_sprite->physicsBody())
        body->setVelocity(QPointF());
    m_sprite->setHitsRemaining(m_sprite->allowedTimesToHit());
    refreshHealth();
    m_scene.setDamageOccurred(false);
    m_scene.setCollisionDirection(pathDirection::none);
}

void Player::refreshHealth()
{
    const int hits = std::min(m_sprite->allowedTimesToHit(), kHealthBarSlots);
    for (int slot = 1; slot <= hits; ++slot)
        setHealthSlot(*m_sprite, slot,
                      slot > m_sprite->hitsRemaining()     ? QStringLiteral("object_HealthEmpty")
                          : m_sprite->hitsRemaining() == 1 ? QStringLiteral("object_HealthRed")
                                                           : QStringLiteral("object_HealthGreen"));
}

} // namespace play
