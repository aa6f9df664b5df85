#include "SKSpriteNodeEnemy2dBase.h"

#include "AppSharedSceneBase.h"
#include "HealthBar.h"
#include "Projectiles.h"
#include "RandomDraw.h"
#include "SKSpriteNode2dBase.h"

#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace tessaro {

using kit::Action;
using kit::ActionPtr;

namespace {

kit::TexturePtr firstTexture(const QString& imageName, AppSharedSceneBase* scene)
{
    return scene ? scene->cachedTexture(imageName) : kit::TextureAtlas::texturesOrImage(imageName).front();
}

/// Whether a texture list holds real pictures, not only the stand-in that a
/// missing image gives; a character shows no stand-in for a state it has
/// no pictures for.
bool hasFrames(const std::vector<kit::TexturePtr>& textures)
{
    return std::any_of(textures.begin(), textures.end(), [](const auto& t) { return t && !t->isPlaceholder(); });
}

double pointX(const std::optional<std::string>& text)
{
    return text ? pointFromText(*text).x : 0;
}

} // namespace

SKSpriteNodeEnemy2dBase::SKSpriteNodeEnemy2dBase(const QString& imageName, const SpriteSetup& setup, bool useGravity)
    : SKSpriteNodeSharedBase(firstTexture(imageName, setup.scene), Qt::transparent, setup.size)
{
    setUp(setup, useGravity);
    setHitsRemaining(setup.allowedTimesToHit);
}

SKSpriteNodeEnemy2dBase::SKSpriteNodeEnemy2dBase(const kit::TexturePtr& texture, const SpriteSetup& setup,
                                                 bool useGravity)
    : SKSpriteNodeSharedBase(texture, Qt::transparent, setup.size)
{
    setUp(setup, useGravity);
}

void SKSpriteNodeEnemy2dBase::setUp(const SpriteSetup& setup, bool useGravity)
{
    setUseGravity(useGravity);
    setPosition(setup.position);
    setZPosition(setup.zPosition);
    setAnchorPoint(setup.anchorPoint);
    setName(setup.name);
    setUserInteractionEnabled(true);
    setGameScene(setup.scene);
    setAllowedTimesToHit(setup.allowedTimesToHit);
    setOffsetHealthBar(setup.offsetHealthBar);
    if (setup.allowedTimesToHit > 1)
        SKSpriteNodeEnemy2dBase::addHealthBar();
}

double SKSpriteNodeEnemy2dBase::targetX() const
{
    const auto followed = target();
    if (!followed)
        return 0;
    if (!parent() || followed->parent() == parent() || !followed->parent())
        return followed->position().x();
    return followed->parent()->convertPointToNode(followed->position(), *parent()).x();
}

void SKSpriteNodeEnemy2dBase::update()
{
    if (!actionForKey(actionKey(".animate")))
        runStateAnimation(StateAnimation::idle);

    const bool hasTarget = target() != nullptr;
    const double tx = targetX();
    const double sx = position().x();
    const pathDirection facing = sx <= tx ? pathDirection::right : pathDirection::left;
    setXScale(direction() == facing ? 1 : -1);

    const TargetDistances distances =
        characterProperties() ? characterProperties()->targetDistances.value_or_default() : TargetDistances{};
    const double attackDistance = pointX(distances.attack);
    const double speed = distances.moveSpeed.value_or(2.0);
    const double d = hasTarget ? std::abs(sx - tx) : 0;

    switch (m_executeState) {
    case enemyStateType::Attack:
        attack();
        if (d > attackDistance) {
            m_executeState = enemyStateType::Move;
            runStateAnimation(StateAnimation::move);
        }
        break;
    case enemyStateType::Die: die(); break;
    case enemyStateType::Idle:
        if (canMove()) {
            m_executeState = enemyStateType::Move;
            runStateAnimation(StateAnimation::move);
        }
        break;
    case enemyStateType::Initial:
        playInitial();
        m_executeState = enemyStateType::Idle;
        break;
    case enemyStateType::Move:
        moveToward(speed);
        if (d < attackDistance) {
            m_executeState = enemyStateType::Attack;
            runStateAnimation(StateAnimation::attack);
        } else if (!canMove()) {
            m_executeState = enemyStateType::Idle;
            runStateAnimation(StateAnimation::idle);
        }
        break;
    case enemyStateType::Jump:
    case enemyStateType::None: break;
    }

    AppSharedSceneBase* scene = gameScene();
    if (!callbackFunction().isEmpty() && scene && scene->customDelegate())
        scene->customDelegate()->callback(callbackType::update, callbackFunction(), shared_from_this());
}

bool SKSpriteNodeEnemy2dBase::canMove() const
{
    if (!target())
        return false;
    const TargetDistances distances =
        characterProperties() ? characterProperties()->targetDistances.value_or_default() : TargetDistances{};
    const PointValue range = distances.maximumRange ? pointFromText(*distances.maximumRange) : PointValue{};
    const double tx = targetX();
    const double d = std::abs(tx - position().x());
    if (range.x == 0 && range.y == 0)
        return distances.near && d < pointX(distances.near);
    const double lo = startingPosition().x() - range.x * 0.5;
    const double hi = startingPosition().x() + range.x * 0.5;
    return lo <= tx && tx <= hi && d < pointX(distances.near);
}

void SKSpriteNodeEnemy2dBase::moveToward(double speed)
{
    const auto followed = target();
    if (!followed)
        return;
    const TargetDistances distances =
        characterProperties() ? characterProperties()->targetDistances.value_or_default() : TargetDistances{};
    const double half = pointX(distances.maximumRange) * 0.5;
    QPointF to = followed->position();
    if (parent() && followed->parent() && followed->parent() != parent())
        to = followed->parent()->convertPointToNode(to, *parent());
    const double angle = std::atan2(to.y() - position().y(), to.x() - position().x());
    const double vx = std::cos(angle) * speed;
    const double next = position().x() + vx;
    const double dx = (next > startingPosition().x() + half || next < startingPosition().x() - half) ? 0 : vx;
    runAction(Action::moveBy(dx, 0, 0.01));
}

void SKSpriteNodeEnemy2dBase::runStateAnimation(StateAnimation kind)
{
    removeActionForKey(actionKey(".animate"));
    applyStatePhysics(kind);

    const Actions actions = characterProperties() ? characterProperties()->actions.value_or_default() : Actions{};
    const std::string idle = actions.idle.value_or("IdleBlinking");
    std::string text;
    switch (kind) {
    case StateAnimation::idle: text = idle; break;
    case StateAnimation::move: text = actions.move.value_or(idle); break;
    case StateAnimation::attack: text = actions.attack.value_or(idle); break;
    }
    const std::vector<std::string> choices = trimmedNamesFromText(text);
    if (choices.size() > 1)
        text = choices[size_t(randomIndex(int(choices.size())))];

    const AnimationProperty animation =
        characterProperties() ? characterProperties()->animation.value_or_default() : AnimationProperty{};
    const WaitPerAnimationFrame waits = animation.waitPerAnimationFrame.value_or_default();
    std::optional<double> wait;
    switch (kind) {
    case StateAnimation::idle: wait = waits.idle; break;
    case StateAnimation::move: wait = waits.move; break;
    case StateAnimation::attack: wait = waits.attack; break;
    }
    const double delay = animation.delays ? animation.delays->cycleEnd.value_or(0) : 0;

    const QString atlas = m_imageBase + QLatin1Char('_') + QString::fromStdString(text);
    std::vector<kit::TexturePtr> frames = texturesNamed(atlas);
    if (!hasFrames(frames)) {
        // A state without pictures of its own keeps showing the current one,
        // as an animation, so that the state is not started again next frame.
        if (!texture())
            return;
        frames = {texture()};
    }
    std::vector<ActionPtr> parts{Action::animateWithTextures(frames, wait.value_or(0.05), false, false)};
    if (delay > 0)
        parts.push_back(Action::waitForDuration(delay));
    runAction(Action::repeatActionForever(Action::sequence(parts)), actionKey(".animate"));
}

void SKSpriteNodeEnemy2dBase::applyStatePhysics(StateAnimation kind)
{
    const actionType wanted = kind == StateAnimation::idle ? actionType::idle
        : kind == StateAnimation::move                     ? actionType::move
                                                           : actionType::attack;
    const pathDirection facing = xScale() == 1 ? pathDirection::right : pathDirection::left;
    std::vector<PolyPhysics> polygons;
    if (characterProperties() && characterProperties()->physics && characterProperties()->physics->polygons) {
        for (const PolyPhysics& polygon : *characterProperties()->physics->polygons) {
            const auto actions = listFromText<actionType>(polygon.action.value_or(""));
            // A shape drawn for all actions serves every state.
            const bool forState = std::any_of(actions.begin(), actions.end(),
                                              [wanted](actionType a) { return a == wanted || a == actionType::all; });
            const auto side = caseFromText<pathDirection>(polygon.direction);
            if (forState && side && (*side == facing || *side == pathDirection::both))
                polygons.push_back(polygon);
        }
    }
    const CollisionDetection masks = collisionMasks().value_or(CollisionDetection{});
    PhysicsSettings settings;
    settings.category = masks.category ? maskFromText(*masks.category) : 0;
    settings.collision = masks.collision ? maskFromText(*masks.collision) : 0;
    settings.contact = masks.contact ? maskFromText(*masks.contact) : 0;
    if (!useGravity())
        settings.collision = *settings.collision & ~kNoContactCategory;
    settings.isDynamic = true;
    settings.useGravity = useGravity();
    usePhysicsPolygons(polygons, settings);
    applyHideMasks();
}

void SKSpriteNodeEnemy2dBase::applyRecordMasks()
{
    kit::PhysicsBody* body = physicsBody();
    if (!body)
        return;
    const CollisionDetection masks = collisionMasks().value_or(CollisionDetection{});
    std::uint32_t collision = masks.collision ? maskFromText(*masks.collision) : 0;
    if (!useGravity())
        collision &= ~kNoContactCategory;
    body->setCategoryBitMask(masks.category ? maskFromText(*masks.category) : 0);
    body->setCollisionBitMask(collision);
    body->setContactTestBitMask(masks.contact ? maskFromText(*masks.contact) : 0);
}

void SKSpriteNodeEnemy2dBase::applyHideMasks()
{
    if (hidesBehindObject().isEmpty())
        return;
    kit::PhysicsBody* body = physicsBody();
    AppSharedSceneBase* scene = gameScene();
    auto cover = scene ? std::dynamic_pointer_cast<SKSpriteNode2dBase>(
                             scene->childNodeWithName(QStringLiteral("//OBJECT_") + hidesBehindObject()))
                       : nullptr;
    if (cover && body) {
        const double half = cover->size().width() * 0.5;
        const double x = position().x();
        if (cover->position().x() - half <= x && x <= cover->position().x() + half) {
            body->setCategoryBitMask(kNoContactCategory);
            body->setCollisionBitMask(collisionBit(collisionTypes::floor) |
                                      collisionBit(collisionTypes::floorAboveGround));
            body->setContactTestBitMask(kNoContactCategory);
            return;
        }
    }
    applyRecordMasks();
}

void SKSpriteNodeEnemy2dBase::playInitial()
{
    const Actions actions = characterProperties() ? characterProperties()->actions.value_or_default() : Actions{};
    if (!actions.initial)
        return;
    const QString atlas = m_imageBase + QLatin1Char('_') + QString::fromStdString(*actions.initial);
    const AnimationProperty animation =
        characterProperties() ? characterProperties()->animation.value_or_default() : AnimationProperty{};
    const double perFrame =
        animation.waitPerAnimationFrame ? animation.waitPerAnimationFrame->initial.value_or(0.05) : 0.05;
    const int frameCount = int(kit::TextureAtlas::atlasNamed(atlas)->textureNames().size());
    const pathDirection drawn = direction();
    std::weak_ptr<kit::Node> self = weak_from_this();
    runAction(Action::sequence({Action::runBlock([self, drawn] {
                                    if (auto node = self.lock())
                                        node->setXScale(drawn == pathDirection::right ? 1 : -1);
                                }),
                                Action::repeatActionForever(
                                    Action::animateWithTextures(texturesNamed(atlas), perFrame, false, false)),
                                Action::waitForDuration(perFrame * (frameCount - 1))}),
              actionKey(".initial"));
}

void SKSpriteNodeEnemy2dBase::attack()
{
    if (!characterProperties() || !characterProperties()->projectiles)
        return;
    int fired = 0;
    for (const ProjectileProperties& record : *characterProperties()->projectiles)
        if (fireProjectile(record, *this, fired))
            ++fired;
}

void SKSpriteNodeEnemy2dBase::die()
{
    if (actionForKey(actionKey(".dying")))
        return;
    const Actions actions = characterProperties() ? characterProperties()->actions.value_or_default() : Actions{};
    const QString atlas = m_imageBase + QLatin1Char('_') + QString::fromStdString(actions.death.value_or("Die"));
    removeAllActions();
    if (kit::PhysicsBody* body = physicsBody()) {
        body->setVelocity({0, 0});
        body->setCategoryBitMask(kNoContactCategory);
        body->setCollisionBitMask(collisionBit(collisionTypes::floor));
        body->setContactTestBitMask(kNoContactCategory);
        body->setDynamic(false);
        body->setAffectedByGravity(false);
    }
    const AnimationProperty animation =
        characterProperties() ? characterProperties()->animation.value_or_default() : AnimationProperty{};
    const double perFrame = animation.waitPerAnimationFrame ? animation.waitPerAnimationFrame->move.value_or(0) : 0;
    const std::vector<kit::TexturePtr> frames = texturesNamed(atlas);
    const ActionPtr blink =
        Action::repeatAction(Action::sequence({Action::fadeAlphaTo(0.1, 0.025), Action::fadeAlphaTo(1.0, 0.025)}), 10);
    const ActionPtr deathFrames = m_animateDeath && hasFrames(frames)
        ? Action::animateWithTextures(frames, perFrame, false, false)
        : Action::runBlock([] {});
    std::weak_ptr<kit::Node> self = weak_from_this();
    const ActionPtr finish = Action::runBlock([self] {
        auto node = std::static_pointer_cast<SKSpriteNodeEnemy2dBase>(self.lock());
        if (!node)
            return;
        AppSharedSceneBase* scene = node->gameScene();
        node->removeFromParent();
        if (node->completeVariable() && scene) {
            scene->setCollisionDirection(pathDirection::none);
            scene->setDamageOccurred(false);
        }
    });
    runAction(Action::sequence({Action::moveBy(damageDirection() == pathDirection::right ? -30 : 30, 0, 0.5),
                                Action::waitForDuration(0.1), blink, deathFrames,
                                Action::moveToY(position().y() + 80, 0.2), Action::moveToY(-1000, 1.0), finish}),
              actionKey(".dying"));
}

ActionPtr SKSpriteNodeEnemy2dBase::soundAction(const GameSound* sound) const
{
    if (!sound || !gameScene() || !gameScene()->soundFxEnabled())
        return Action::empty();
    return Action::playSoundFileNamed(QString::fromStdString(sound->filename + "." + sound->fileExtension),
                                      sound->waitForCompletion.value_or(true));
}

void SKSpriteNodeEnemy2dBase::addHealthBar()
{
    tessaro::addHealthBar(*this, allowedTimesToHit(), offsetHealthBar());
}

} // namespace tessaro
