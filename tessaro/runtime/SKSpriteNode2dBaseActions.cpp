// The actions an object sprite runs from its animation record: the frame
// animation (with a new body per frame when the record asks for it), the
// move of its moveDirection, and the effects at the end of a cycle.
#include "SKSpriteNode2dBase.h"

#include "AppSharedSceneBase.h"
#include "PhysicsRecords.h"
#include "RandomDraw.h"

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/FrameShapes.h>

#include <algorithm>

namespace tessaro {

using kit::Action;
using kit::ActionPtr;
using kit::PhysicsBody;
using kit::PhysicsBodyPtr;

namespace {

/// The image of an obstacle: the first name of a comma list.
QString firstImageName(const std::optional<std::string>& image)
{
    const std::string text = image.value_or("");
    return QString::fromStdString(text.substr(0, text.find(',')));
}

/// What a frame's new body keeps of the body the node had when the
/// animation was built.
struct KeptBody {
    bool isDynamic = false;
    bool affectedByGravity = false;
    bool allowsRotation = false;
    std::uint32_t category = 0;
    std::uint32_t collision = 0;
    std::uint32_t contact = 0;

    static KeptBody of(const PhysicsBody* body)
    {
        if (!body)
            return {};
        return {body->isDynamic(),       body->affectedByGravity(), body->allowsRotation(),
                body->categoryBitMask(), body->collisionBitMask(),  body->contactTestBitMask()};
    }

    void applyTo(PhysicsBody& body) const
    {
        body.setDynamic(isDynamic);
        body.setAffectedByGravity(affectedByGravity);
        body.setAllowsRotation(allowsRotation);
        body.setCategoryBitMask(category);
        body.setCollisionBitMask(collision);
        body.setContactTestBitMask(contact);
    }
};

PhysicsBodyPtr frameBody(const boxed<PhysicsProperty>& physics, int frame, const kit::TexturePtr& texture,
                         const QSizeF& nodeSize)
{
    std::vector<PhysicsBodyPtr> bodies;
    if (physics) {
        for (const RectanglePhysics& r : physics->rectangles.value_or(std::vector<RectanglePhysics>{}))
            if (shapeAppliesToFrame(r.framesAffected, frame))
                bodies.push_back(rectangleBody(r));
        for (const EdgePhysics& e : physics->edges.value_or(std::vector<EdgePhysics>{}))
            if (shapeAppliesToFrame(e.framesAffected, frame))
                bodies.push_back(edgeBody(e, texture ? texture->size() : nodeSize));
        for (const RadiusPhysics& c : physics->radiuses.value_or(std::vector<RadiusPhysics>{}))
            if (shapeAppliesToFrame(c.framesAffected, frame))
                bodies.push_back(circleBody(c));
    }
    if (bodies.empty())
        bodies.push_back(PhysicsBody::bodyWithTexture(texture, nodeSize));
    return PhysicsBody::bodyWithBodies(bodies);
}

/// The shapes drawn on a cycle-end animation for frame `frame`: those of
/// every frame and those of that frame. Null when none is drawn.
PhysicsBodyPtr drawnEndBody(const boxed<PhysicsProperty>& physics, int frame, const QSizeF& size)
{
    if (!physics)
        return nullptr;
    const auto wanted = [frame](const std::optional<std::string>& frames) {
        return !isFrameShape(frames) || shapeAppliesToFrame(frames, frame);
    };
    std::vector<PhysicsBodyPtr> bodies;
    for (const RectanglePhysics& r : physics->rectangles.value_or(std::vector<RectanglePhysics>{}))
        if (wanted(r.framesAffected))
            bodies.push_back(rectangleBody(r));
    for (const EdgePhysics& e : physics->edges.value_or(std::vector<EdgePhysics>{}))
        if (wanted(e.framesAffected))
            bodies.push_back(edgeBody(e, size));
    for (const RadiusPhysics& c : physics->radiuses.value_or(std::vector<RadiusPhysics>{}))
        if (wanted(c.framesAffected))
            bodies.push_back(circleBody(c));
    std::erase(bodies, nullptr);
    return bodies.empty() ? nullptr : PhysicsBody::bodyWithBodies(bodies);
}

/// Whether a cycle-end animation's body changes from frame to frame.
bool hasFrameShapes(const boxed<PhysicsProperty>& physics)
{
    return physics && hasShapes(splitFrameShapes(*physics).frames);
}

} // namespace

ActionPtr SKSpriteNode2dBase::buildAnimationAction()
{
    if (!obstacleProperties() || !obstacleProperties()->animation || !obstacleProperties()->devices)
        return nullptr;
    const Obstacle& record = *obstacleProperties();
    const AnimationProperty& animation = *record.animation;
    const Delays delays = animation.delays.value_or_default();
    const WaitPerAnimationFrame waits = animation.waitPerAnimationFrame.value_or_default();
    const bool flip = animation.flipImage.value_or(false);

    const PointValue reach = deviceValue<fieldList::distance>(*record.devices, deviceChoice());
    const bool hasDistance = std::max(reach.x, reach.y) > 0;
    const double idleWait = waits.idle.value_or(0);
    const double moveWait = waits.move.value_or(0);
    double cycleDelay = drawFromRange(delays.cycleEndRange) + delays.cycleEnd.value_or(0.01);
    if (cycleDelay == 0)
        cycleDelay = 0.01;
    const std::vector<kit::TexturePtr> frames = texturesNamed(firstImageName(record.image));

    if (!animation.changePhysics.value_or(false)) {
        if (frames.size() < 2)
            return Action::sequence({});
        setXScale(flip ? -1 : 1);
        return Action::sequence({Action::animateWithTextures(frames, hasDistance ? moveWait : idleWait, false, false),
                                 Action::waitForDuration(delays.cycleEnd.value_or(0))});
    }

    const int count = int(frames.size());
    std::vector<int> order;
    const int start = std::clamp(int(animation.animationFrameStart.value_or(0)), 0, count);
    for (int f = start; f < count; ++f)
        order.push_back(f);
    for (int f = 0; f < start; ++f)
        order.push_back(f);
    setXScale(flip ? -1 : 1);

    const KeptBody kept = KeptBody::of(physicsBody());
    const bool quietFirst = animation.noPhysicsFirstFrame.value_or(false);
    const bool quietLast = animation.noPhysicsLastFrame.value_or(false);
    const boxed<PhysicsProperty> shapes = animation.physics;
    std::vector<ActionPtr> perFrame;
    for (int f : order) {
        const bool quiet = (quietFirst && f == 0) || (quietLast && f == count - 1);
        ActionPtr show = block([f, frames, kept, quiet, shapes](SKSpriteNode2dBase& node) {
            node.setPhysicsBody(frameBody(shapes, f, frames[size_t(f)], node.size()));
            if (PhysicsBody* body = node.physicsBody()) {
                body->setDynamic(kept.isDynamic);
                body->setAffectedByGravity(kept.affectedByGravity);
                body->setAllowsRotation(kept.allowsRotation);
                body->setCategoryBitMask(quiet ? kNoContactCategory : kept.category);
                body->setCollisionBitMask(kept.collision);
                body->setContactTestBitMask(kept.contact);
            }
            node.setTexture(frames[size_t(f)]);
        });
        perFrame.push_back(Action::sequence(
            {Action::waitForDuration(f == 0 ? cycleDelay : 0), show, Action::waitForDuration(idleWait)}));
    }
    return Action::sequence({Action::waitForDuration(delays.initial.value_or(0)), Action::sequence(perFrame)});
}

ActionPtr SKSpriteNode2dBase::buildMoveAction()
{
    if (!obstacleProperties() || !obstacleProperties()->animation || !obstacleProperties()->devices)
        return nullptr;
    const Obstacle& record = *obstacleProperties();
    const AnimationProperty& animation = *record.animation;
    const Delays delays = animation.delays.value_or_default();
    const auto direction = caseFromText<animationMoveDirection>(animation.moveDirection.value_or("none"));

    const double movement = delays.movement.value_or(0);
    const double fadeTime = drawFromRange(delays.fadeRange) + delays.fade.value_or(0);
    const double cycleWait = drawFromRange(delays.cycleEndRange) + delays.cycleEnd.value_or(0);
    const double idleWait = animation.waitPerAnimationFrame ? animation.waitPerAnimationFrame->idle.value_or(0.1) : 0.1;
    const qreal x0 = position().x(), y0 = position().y();
    const PointValue reach = deviceValue<fieldList::distance>(*record.devices, deviceChoice());
    const qreal dx = reach.x, dy = reach.y;
    const qreal yScaleAtEnd = animation.flipImage.value_or(false) ? -1 : 1;
    const ActionPtr wait = Action::waitForDuration(cycleWait);

    switch (direction.value_or(animationMoveDirection::custom)) {
    case animationMoveDirection::bothWithHorizontalFlip:
        return Action::sequence({Action::scaleXTo(1, 0), Action::moveToX(x0 + dx, movement), wait,
                                 Action::scaleXTo(-1, 0), Action::moveToX(x0 - dx, movement), wait});
    case animationMoveDirection::left:
    case animationMoveDirection::right: {
        const qreal x = direction == animationMoveDirection::left ? x0 - dx : x0 + dx;
        return Action::sequence({Action::moveToX(x, movement), wait, Action::scaleYTo(yScaleAtEnd, 0)});
    }
    case animationMoveDirection::leftRight: {
        const ActionPtr fadeOut = fadeTime > 0 ? Action::fadeOutWithDuration(fadeTime) : Action::sequence({});
        const ActionPtr fadeIn = fadeTime > 0 ? Action::fadeInWithDuration(fadeTime) : Action::sequence({});
        return Action::sequence({fadeOut, Action::moveToX(x0 + dx, movement), fadeIn, wait, fadeOut,
                                 Action::moveToX(x0 - dx, movement), fadeIn, wait});
    }
    case animationMoveDirection::up:
    case animationMoveDirection::down: {
        const qreal y = direction == animationMoveDirection::up ? y0 + dy : y0 - dy;
        const qreal alphaAtStart = alpha();
        const bool restoresAlpha = cycleEndProperties() && !cycleEndProperties()->empty();
        double endTime = 0;
        if (animation.cycleEndProperties && !animation.cycleEndProperties->empty()) {
            const CycleEndProperties& entry = animation.cycleEndProperties->front();
            const size_t frameCount =
                entry.atlasName ? texturesNamed(QString::fromStdString(*entry.atlasName)).size() : 0;
            endTime = entry.animationDuration.value_or(0) * double(frameCount);
        }
        return Action::sequence({block([alphaAtStart, restoresAlpha](SKSpriteNode2dBase& node) {
                                     if (restoresAlpha)
                                         node.setAlpha(alphaAtStart);
                                 }),
                                 Action::moveToY(y, movement),
                                 block([](SKSpriteNode2dBase& node) { node.runMoveEndAnimation(); }),
                                 Action::waitForDuration(cycleWait + endTime),
                                 block([y0](SKSpriteNode2dBase& node) { node.setPosition(node.position().x(), y0); }),
                                 Action::scaleYTo(yScaleAtEnd, 0)});
    }
    case animationMoveDirection::upDown:
        return Action::sequence({Action::moveToY(y0 + dy, movement), Action::waitForDuration(movement),
                                 Action::waitForDuration(idleWait), Action::moveToY(y0, movement), wait});
    case animationMoveDirection::gravityDrop:
        return Action::sequence({wait, block([](SKSpriteNode2dBase& node) {
                                     if (PhysicsBody* body = node.physicsBody()) {
                                         body->setAffectedByGravity(true);
                                         body->setDynamic(true);
                                     }
                                 }),
                                 wait, block([x0, y0](SKSpriteNode2dBase& node) {
                                     if (PhysicsBody* body = node.physicsBody()) {
                                         body->setAffectedByGravity(false);
                                         body->setDynamic(false);
                                     }
                                     node.setPosition(x0, y0);
                                 })});
    case animationMoveDirection::gravityDropWithCollision:
        return Action::sequence({wait, block([](SKSpriteNode2dBase& node) {
                                     if (PhysicsBody* body = node.physicsBody()) {
                                         body->setAffectedByGravity(true);
                                         body->setDynamic(true);
                                     }
                                 })});
    default: return Action::sequence({wait, block([](SKSpriteNode2dBase& node) { node.runCycleEnds(); })});
    }
}

void SKSpriteNode2dBase::runCycleEnds()
{
    if (!cycleEndProperties())
        return;
    const std::vector<CycleEndProperties> entries = *cycleEndProperties();
    for (size_t n = 0; n < entries.size(); ++n) {
        const CycleEndProperties& entry = entries[n];
        kit::NodePtr found = entry.obstacleAffected
            ? childNodeWithName(QStringLiteral("//") + QString::fromStdString(*entry.obstacleAffected))
            : shared_from_this();
        auto target = std::dynamic_pointer_cast<SKSpriteNode2dBase>(found);
        if (!target)
            continue;
        const QString key = target->name() + QStringLiteral("_cycleEnd") + QString::number(n);
        if (target->actionForKey(key))
            continue;
        std::vector<ActionPtr> steps;
        if (entry.atlasName) {
            const qreal z = entry.zPosition ? qreal(*entry.zPosition) : target->zPosition() + 1;
            const QPointF at = target->position();
            steps.push_back(target->block(
                [entry, z, at](SKSpriteNode2dBase& node) { node.runCycleEndAnimation(entry, node, z, at); }));
        }
        if (entry.callbackFunction) {
            const QString callbackName = QString::fromStdString(*entry.callbackFunction);
            steps.push_back(target->block([callbackName](SKSpriteNode2dBase& node) {
                if (node.gameScene() && node.gameScene()->customDelegate())
                    node.gameScene()->customDelegate()->callback(callbackType::cycleEnd, callbackName,
                                                                 node.shared_from_this());
            }));
        }
        if (entry.removeFromParentAtEnd.value_or(false))
            steps.push_back(Action::removeFromParent());
        target->runAction(Action::sequence(steps), key);
    }
}

void SKSpriteNode2dBase::runCycleEndAnimation(const CycleEndProperties& entry, SKSpriteNode2dBase& target, qreal z,
                                              const QPointF& position)
{
    const CollisionMaskBits masks = collisionMaskBits(entry.collisionMasks);
    const std::vector<kit::TexturePtr> frames = texturesNamed(QString::fromStdString(entry.atlasName.value_or("")));
    if (frames.empty() || !target.parent())
        return;
    const SizeValue size = deviceValue<fieldList::size>(entry.devices, deviceChoice());
    SpriteSetup setup;
    setup.position = position;
    setup.zPosition = z;
    setup.name = target.name() + QStringLiteral("_end");
    setup.scene = target.gameScene();
    auto end = SKSpriteNode2dBase::create(frames.front(), setup);
    end->setSize(QSizeF(size.width, size.height));
    PhysicsSettings settings;
    settings.category = masks.category;
    settings.collision = masks.collision;
    settings.contact = masks.contact;
    settings.useGravity = true;
    // The shapes drawn on the animation in the physics sheet, else its whole size.
    const QSizeF endSize(size.width, size.height);
    if (const PhysicsBodyPtr drawn = drawnEndBody(entry.physics, 0, endSize))
        end->usePhysicsBodies(std::vector<PhysicsBodyPtr>{drawn}, settings);
    else
        end->usePhysicsRectangle(endSize, QPointF(), settings);
    target.parent()->addChild(end);

    const double duration = entry.animationDuration.value_or(0);
    const bool fades = entry.fadeObstacle.value_or(false);
    std::vector<ActionPtr> onTarget;
    if (fades)
        onTarget.push_back(Action::fadeOutWithDuration(0.01));
    if (!entry.removeFromParentAtEnd.value_or(false)) {
        onTarget.push_back(Action::waitForDuration(duration));
        if (fades)
            onTarget.push_back(Action::fadeInWithDuration(0.01));
    }
    target.runAction(Action::sequence(onTarget));
    const double perFrame = duration / double(frames.size());
    if (!hasFrameShapes(entry.physics)) {
        end->runAction(Action::sequence({Action::animateWithTextures(frames, perFrame), Action::removeFromParent()}));
        return;
    }
    // Shapes drawn for single frames: each frame brings its own body.
    std::vector<ActionPtr> steps;
    const boxed<PhysicsProperty> shapes = entry.physics;
    for (int f = 0; f < int(frames.size()); ++f) {
        steps.push_back(end->block([f, frames, shapes, endSize](SKSpriteNode2dBase& node) {
            const KeptBody kept = KeptBody::of(node.physicsBody());
            if (PhysicsBodyPtr body = drawnEndBody(shapes, f, endSize)) {
                node.setPhysicsBody(body);
                kept.applyTo(*body);
            }
            node.setTexture(frames[size_t(f)]);
        }));
        steps.push_back(Action::waitForDuration(perFrame));
    }
    steps.push_back(Action::removeFromParent());
    end->runAction(Action::sequence(steps));
}

void SKSpriteNode2dBase::runMoveEndAnimation()
{
    const auto& entries = obstacleProperties() && obstacleProperties()->animation
        ? obstacleProperties()->animation->cycleEndProperties
        : std::optional<std::vector<CycleEndProperties>>{};
    if (!entries || entries->empty() || !parent())
        return;
    const CycleEndProperties& entry = entries->front();
    setAlpha(0);
    const std::vector<kit::TexturePtr> frames = texturesNamed(QString::fromStdString(entry.atlasName.value_or("")));
    const SizeValue size = deviceValue<fieldList::size>(entry.devices, deviceChoice());
    SpriteSetup setup;
    setup.position = position();
    setup.zPosition = entry.zPosition ? qreal(*entry.zPosition) : 1.0;
    setup.name = name() + QStringLiteral("_end");
    setup.scene = gameScene();
    auto end = SKSpriteNode2dBase::create(frames.front(), setup);
    end->setSize(QSizeF(size.width, size.height));
    const PhysicsBody* body = physicsBody();
    PhysicsSettings settings;
    settings.category = body ? body->categoryBitMask() : 0;
    settings.collision = body ? body->collisionBitMask() : 0;
    settings.contact = body ? body->contactTestBitMask() : 0;
    settings.useGravity = true;
    end->usePhysicsRectangle(QSizeF(size.width, size.height), QPointF(), settings);
    parent()->addChild(end);
    end->runAction(Action::sequence(
        {Action::animateWithTextures(frames, entry.animationDuration.value_or(0)), Action::removeFromParent()}));
}

} // namespace tessaro
