#include "PlayRules.h"

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/SceneView.h>
#include <tessaro/runtime/HealthBar.h>

#include <algorithm>
#include <cmath>

namespace play {

using namespace tessaro;
using kit::Action;

namespace {

/// What hurts the player when it touches it.
constexpr std::uint32_t kHarmful = collisionBit(collisionTypes::objectCausesDeath) |
    collisionBit(collisionTypes::objectCausesDamageAllSides) |
    collisionBit(collisionTypes::objectCausesDamageAllSidesIgnoreCollision) |
    collisionBit(collisionTypes::projectileThrown);

/// How far below the view the player may fall before it is lost.
constexpr double kFallLimit = 200;

/// How soon an object pushed against counts another hit, in seconds.
constexpr double kHitInterval = 0.5;
/// The userData key of the time an object was last hit.
const QString kLastHitKey = QStringLiteral("lastHit");

bool alive(const kit::NodePtr& node)
{
    return node && node->parent();
}

/// The sounds of a level part, none when it is absent.
template <class Part>
std::vector<GameSound> soundsOf(const boxed<Part>& part)
{
    return part ? part->soundEffects.value_or(std::vector<GameSound>{}) : std::vector<GameSound>{};
}

/// What the report calls an element: an object's name in the level, a
/// character's node name.
std::string elementLabel(const SKSpriteNodeSharedBase& sprite)
{
    if (sprite.obstacleProperties() && !sprite.obstacleProperties()->name.value_or("").empty())
        return *sprite.obstacleProperties()->name;
    return sprite.name().toStdString();
}

} // namespace

PlayRules::PlayRules(const Level& level, AppSharedSceneBase& scene) : m_level(level), m_scene(scene), m_sounds(scene)
{
    m_world = kit::Node::create();
    m_world->setName(QStringLiteral("world"));
    m_scene.addChild(m_world);
    m_camera = kit::Node::create();
    m_camera->setName(QStringLiteral("camera"));
    m_scene.addChild(m_camera);
    m_scene.setCamera(m_camera);

    m_scenery = layScenery(m_level, m_scene, *m_world, *m_camera);
    m_cast = castLevel(m_level, m_scenery.ground, m_scene, *m_world);
    m_stats.made = m_cast.made;
    m_stats.made["ground"] = m_scenery.groundSprites;
    m_stats.made["backgrounds"] = m_scenery.backgroundSprites;
    if (m_cast.player) {
        m_player = std::make_unique<Player>(m_cast.player, m_scene);
        m_respawnAt = m_player->position();
    }

    if (m_level.background)
        m_sounds.loop(m_level.background->soundEffects.value_or(std::vector<GameSound>{}), *m_camera);

    m_hud = kit::LabelNode::labelNodeWithText({});
    m_hud->setFontSize(20);
    m_hud->setHorizontalAlignmentMode(kit::LabelHorizontalAlignment::Left);
    m_hud->setVerticalAlignmentMode(kit::LabelVerticalAlignment::Top);
    m_hud->setZPosition(900);
    m_camera->addChild(m_hud);

    m_scene.setCustomDelegate(this);
    m_scene.setContactDelegate(this);
    followWithCamera();
    refreshHud();
}

PlayRules::~PlayRules()
{
    m_scene.setCustomDelegate(nullptr);
    m_scene.setContactDelegate(nullptr);
}

std::optional<QPointF> PlayRules::playerPosition() const
{
    if (!m_player)
        return std::nullopt;
    return m_player->position();
}

void PlayRules::placePlayer(const QPointF& place)
{
    if (!m_player)
        return;
    const QSizeF size = m_player->sprite()->size();
    QPointF at = place;
    // Up onto whatever the player is inside of, and onto what stands on that.
    for (int lift = 0; lift < 8; ++lift) {
        const QRectF me(at.x() - size.width() / 2, at.y() - size.height() / 2, size.width(), size.height());
        std::optional<double> top;
        for (const kit::PhysicsBodyPtr& body : m_scene.physicsWorld().bodies()) {
            const kit::Node* node = body->node();
            if (!node || node == m_player->sprite().get() || !(body->categoryBitMask() & kSolidCategories) ||
                node->userData().contains(kCollectibleKey))
                continue;
            const QRectF frame = node->frame(); // the world lies on the scene
            if (frame.intersects(me))
                top = std::max(top.value_or(frame.bottom()), frame.bottom());
        }
        if (!top)
            break;
        at.setY(*top + size.height() / 2 + 1);
    }
    m_player->moveTo(at);
    followWithCamera();
}

void PlayRules::update(double currentTime)
{
    m_now = currentTime;
    if (m_startTime < 0)
        m_startTime = currentTime;
    if (m_finished)
        return;
    if (m_player) {
        if (m_autopilot)
            flyAutopilot();
        m_player->steer(m_controls);
    }
    const double referenceX = m_player ? m_player->position().x() : 0;
    for (const auto& enemy : m_cast.enemies)
        if (alive(enemy))
            enemy->update();
    for (const auto& other : m_cast.friends)
        if (alive(other))
            other->update();
    for (const auto& obstacle : m_cast.obstacles)
        obstacle->update(referenceX);
    std::erase_if(m_cast.enemies, [](const auto& enemy) { return !alive(enemy); });
    if (!m_player)
        return;
    meetEnemies(currentTime);
    if (m_player->position().y() < m_scene.sceneFrame().top() - kFallLimit)
        loseLife();
    if (m_scenery.levelEndX > m_scene.sceneFrame().left() && m_player->position().x() >= m_scenery.levelEndX)
        finish();
}

void PlayRules::flyAutopilot()
{
    // Run right; jump at the edge of a gap, when held up for a moment, and
    // now and then anyway, which clears small enemies.
    const double x = m_player->position().x();
    m_stuckFrames = std::abs(x - m_lastX) < 1.0 ? m_stuckFrames + 1 : 0;
    m_lastX = x;
    ++m_framesSinceJump;
    const double front = x + m_player->sprite()->size().width() * 0.5;
    const auto gapWithin = [&](double distance) {
        for (double ahead = front; ahead <= front + distance && ahead < m_scenery.levelEndX; ahead += 8)
            if (!hasFloorAt(ahead))
                return true;
        return false;
    };
    // A jump spans about 180 points: one now and then must not end in a gap.
    const bool jump = gapWithin(8) || m_stuckFrames > 8 || (m_framesSinceJump > 70 && !gapWithin(240));
    if (jump && m_player->onGround())
        m_framesSinceJump = 0;
    m_controls = Controls{false, true, jump};
}

bool PlayRules::hasFloorAt(double x) const
{
    for (const QRectF& piece : m_scene.groundBaseVariants())
        if (piece.left() <= x && x < piece.left() + piece.width())
            return true;
    return false;
}

void PlayRules::meetEnemies(double now)
{
    // The enemies whose bodies touch the player's now.
    const kit::PhysicsBody* mine = m_player->sprite()->physicsBody();
    if (!mine)
        return;
    std::vector<kit::Node*> touching;
    for (const kit::PhysicsBodyPtr& other : mine->allContactedBodies())
        touching.push_back(other->node());
    for (const auto& enemy : m_cast.enemies) {
        // Bouncing off an enemy just landed on does not hurt.
        if (enemy->executeState() == enemyStateType::Die || justHit(*enemy) ||
            std::find(touching.begin(), touching.end(), enemy.get()) == touching.end())
            continue;
        // Landing on an enemy defeats it; any other touch hurts.
        const bool stomp = m_player->velocity().y() < 0 && m_player->position().y() > enemy->position().y();
        if (stomp) {
            hitEnemy(*enemy);
            m_player->bounce();
            continue;
        }
        if (m_player->isSafe(now))
            continue;
        m_sounds.play(enemy->soundEffects(), soundBiteType::attack);
        const pathDirection side =
            enemy->position().x() < m_player->position().x() ? pathDirection::left : pathDirection::right;
        if (m_player->hurt(now, side))
            loseLife();
    }
}

void PlayRules::didBegin(const kit::PhysicsContact& contact)
{
    ++m_stats.contactsBegun;
    if (!m_player || m_finished)
        return;
    kit::Node* a = contact.bodyA() ? contact.bodyA()->node() : nullptr;
    kit::Node* b = contact.bodyB() ? contact.bodyB()->node() : nullptr;
    kit::Node* me = m_player->sprite().get();
    if (a != me && b != me)
        return;
    kit::Node* other = a == me ? b : a;
    if (!other)
        return;
    if (other->userData().contains(kCollectibleKey)) {
        collect(*other);
        return;
    }
    auto* object = dynamic_cast<SKSpriteNode2dBase*>(other);
    const kit::PhysicsBody* body = other->physicsBody();
    if (body && (body->categoryBitMask() & kHarmful)) {
        const pathDirection side =
            other->position().x() < m_player->position().x() ? pathDirection::left : pathDirection::right;
        if (object && !m_player->isSafe(m_now))
            m_sounds.play(object->soundEffects(), soundBiteType::attack);
        if (body->categoryBitMask() & collisionBit(collisionTypes::projectileThrown))
            other->removeFromParent();
        if (m_player->hurt(m_now, side))
            loseLife();
    } else if (object && object->obstacleProperties()) {
        touchObject(*object);
    }
}

void PlayRules::touchObject(SKSpriteNode2dBase& object)
{
    if (!takesHitNow(object))
        return;
    m_sounds.play(object.soundEffects(), soundBiteType::touch);
    // An object that takes several hits is worn down by each touch.
    if (object.allowedTimesToHit() < 2)
        return;
    const std::string label = elementLabel(object);
    countHit(label);
    if (!object.hit())
        return;
    // Used up: it leaves the level.
    m_stats.destroyed.insert(label);
    m_sounds.play(object.soundEffects(), soundBiteType::die);
    object.setPhysicsBody(nullptr);
    object.runAction(Action::sequence({Action::fadeOutWithDuration(0.2), Action::removeFromParent()}));
}

void PlayRules::hitEnemy(SKSpriteNodeEnemy2dBase& enemy)
{
    // A character's hits are the game's to count.
    if (!takesHitNow(enemy))
        return;
    const std::string label = elementLabel(enemy);
    countHit(label);
    enemy.setHitsRemaining(enemy.hitsRemaining() - 1);
    showHitsRemaining(enemy, enemy.allowedTimesToHit(), std::max(0, enemy.hitsRemaining()));
    if (enemy.hitsRemaining() > 0)
        return;
    m_stats.destroyed.insert(label);
    m_sounds.play(enemy.soundEffects(), soundBiteType::die);
    enemy.setExecuteState(enemyStateType::Die);
    ++m_stats.enemiesDefeated;
}

bool PlayRules::justHit(const kit::Node& element) const
{
    // Pushing against an element, or landing on it, is one hit, not one a frame.
    const QVariant last = element.userData().value(kLastHitKey);
    return last.isValid() && m_now - last.toDouble() < kHitInterval;
}

bool PlayRules::takesHitNow(kit::Node& element) const
{
    if (justHit(element))
        return false;
    element.userData().insert(kLastHitKey, m_now);
    return true;
}

void PlayRules::countHit(const std::string& element)
{
    const auto found = std::find_if(m_stats.hits.begin(), m_stats.hits.end(),
                                    [&](const auto& entry) { return entry.first == element; });
    if (found == m_stats.hits.end())
        m_stats.hits.emplace_back(element, 1);
    else
        ++found->second;
}

void PlayRules::collect(kit::Node& item)
{
    const QString kind = item.userData().take(kCollectibleKey).toString();
    if (kind == QLatin1String("coin")) {
        ++m_stats.coinsCollected;
        m_sounds.play(soundsOf(m_level.coins), soundBiteType::touch);
    } else if (kind == QLatin1String("artifact")) {
        ++m_stats.artifactsCollected;
        m_sounds.play(soundsOf(m_level.artifacts), soundBiteType::touch);
    } else if (kind == QLatin1String("shield")) {
        m_sounds.play(soundsOf(m_level.shields), soundBiteType::touch);
    } else if (kind == QLatin1String("checkpoint")) {
        m_respawnAt = item.position() + QPointF(0, m_player->sprite()->size().height());
        m_sounds.play(soundsOf(m_level.checkpoints), soundBiteType::touch);
    }
    if (kind == QLatin1String("checkpoint")) {
        item.runAction(Action::sequence({Action::scaleTo(1.2, 0.1), Action::scaleTo(1.0, 0.1)}));
    } else {
        item.setPhysicsBody(nullptr);
        item.runAction(Action::sequence({Action::group({Action::fadeOutWithDuration(0.2), Action::moveBy(0, 24, 0.2)}),
                                         Action::removeFromParent()}));
    }
    refreshHud();
}

void PlayRules::loseLife()
{
    ++m_stats.livesLost;
    m_player->respawn(m_respawnAt);
    refreshHud();
}

void PlayRules::finish()
{
    m_finished = true;
    m_sounds.play(soundsOf(m_level.levelEnd), soundBiteType::touch);
    m_scene.physicsWorld().setSpeed(0);
    m_world->setPaused(true);
    Tally tally;
    tally.coins = m_stats.coinsCollected;
    tally.coinsInLevel = m_stats.made["coins"];
    tally.artifacts = m_stats.artifactsCollected;
    tally.seconds = m_now - m_startTime;
    m_camera->addChild(makeLevelEndWindow(m_level, tally, m_scene));
}

void PlayRules::didFinishUpdate()
{
    followWithCamera();
    if (m_player)
        refreshHud();
}

QSizeF PlayRules::visibleSize() const
{
    // A window of another shape than the level shows less (or more) of it.
    if (const kit::SceneView* view = m_scene.view())
        return m_scene.visibleRect(view->size()).size();
    return m_scene.size();
}

void PlayRules::followWithCamera()
{
    // The view follows the player across the level, never showing what lies
    // left of its start or right of its end.
    const QRectF frame = m_scene.sceneFrame();
    const QSizeF visible = visibleSize();
    const double lowest = frame.left() + visible.width() / 2;
    const double highest = std::max(lowest, m_scenery.levelEndX - visible.width() / 2);
    const double x = m_player ? std::clamp(m_player->position().x(), lowest, highest) : lowest;
    m_camera->setPosition(x, frame.center().y());
    scrollLayers(m_scenery, x - frame.center().x(), frame.width());
    m_hud->setPosition(-visible.width() / 2 + 16, visible.height() / 2 - 12);
}

void PlayRules::refreshHud()
{
    QString text = QStringLiteral("Coins %1/%2").arg(m_stats.coinsCollected).arg(m_stats.made["coins"]);
    if (m_player)
        text += QStringLiteral("   Hits %1").arg(std::max(0, m_player->sprite()->hitsRemaining()));
    if (text != m_hud->text())
        m_hud->setText(text);
}

} // namespace play
