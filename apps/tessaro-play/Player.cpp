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
    // The body is the character's own, the polygons of its record; one
    // drawn with none stands in a box of its picture.
    m_sprite->setUseGravity(true);
    m_sprite->applyStatePhysics(StateAnimation::idle);
    if (!m_sprite->physicsBody()) {
        PhysicsSettings settings;
        settings.isDynamic = true;
        settings.useGravity = true;
        m_sprite->usePhysicsRectangle(m_sprite->size(), settings);
    }
    if (auto* body = m_sprite->physicsBody()) {
        // It is the player, stands on what is solid and tells the game of
        // what it touches, whatever its record says.
        body->setCategoryBitMask(collisionBit(collisionTypes::humanPlayer));
        body->setCollisionBitMask(body->collisionBitMask() | kSolidCategories);
        body->setContactTestBitMask(body->contactTestBitMask() | kNoticed);
        body->setFriction(0);
    }
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
        if (node && !node->userData().contains(QStringLiteral("collectible")) &&
            (other->categoryBitMask() & kSolidCategories) && node->position().y() < feet)
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

void Player::moveTo(const QPointF& place)
{
    m_sprite->setPosition(place);
    if (auto* body = m_sprite->physicsBody())
        body->setVelocity(QPointF());
}

void Player::respawn(const QPointF& place)
{
    moveTo(place);
    m_sprite->setHitsRemaining(m_sprite->allowedTimesToHit());
    refreshHealth();
    m_scene.setDamageOccurred(false);
    m_scene.setCollisionDirection(pathDirection::none);
}

void Player::refreshHealth()
{
    showHitsRemaining(*m_sprite, m_sprite->allowedTimesToHit(), m_sprite->hitsRemaining());
}

} // namespace play
