// Obstacles of a level become object sprites; the placement rule that both
// factories share. Characters are made in CharacterCreation.cpp.
#include "ObstacleCreationHelper.h"

#include "AppSharedSceneBase.h"
#include "PhysicsRecords.h"

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <cmath>

namespace tessaro {

using kit::Action;
using kit::PhysicsBodyPtr;

namespace {

QPointF toQPoint(PointValue p)
{
    return {p.x, p.y};
}

std::string pointText(const QPointF& p)
{
    return textFromPair(p.x(), p.y());
}

/// The value of the first extra property named `name`.
std::optional<std::string> extraValue(const Obstacle& record, std::string_view name)
{
    for (const ExtraProperties& extra : record.extraProperties.value_or(std::vector<ExtraProperties>{}))
        if (extra.name == name)
            return extra.value;
    return std::nullopt;
}

std::optional<std::uint32_t> maskOrAbsent(const std::optional<std::string>& text)
{
    const std::uint32_t mask = text ? maskFromText(*text) : 0;
    return mask ? std::optional<std::uint32_t>(mask) : std::nullopt;
}

/// The category of an obstacle whose record names none: a travelling object
/// is movable; otherwise only its last class decides.
std::uint32_t defaultCategory(const std::vector<objectClassType>& classes, PointValue maximumDistance)
{
    if (maximumDistance.x != 0 || maximumDistance.y != 0)
        return collisionBit(collisionTypes::staticObjectMovable);
    switch (classes.empty() ? objectClassType::none : classes.back()) {
    case objectClassType::barrier:
    case objectClassType::tutorialGroundSlam:
    case objectClassType::tutorialRopeJump: return collisionBit(collisionTypes::staticObjectSpecialHandling);
    case objectClassType::floorAboveGround: return collisionBit(collisionTypes::floorAboveGround);
    case objectClassType::floorSubstitute: return collisionBit(collisionTypes::floor);
    case objectClassType::hideOnTouch: return collisionBit(collisionTypes::staticObjectTouched);
    default: return collisionBit(collisionTypes::staticObjectBody);
    }
}

RangeValue travel(double start, double reach)
{
    return reach < 0 ? RangeValue{start + reach, start} : RangeValue{start, start + reach};
}

void addChildSiblings(SKSpriteNode2dBase& node, const Obstacle& record, const QPointF& anchor)
{
    for (const SiblingProperties& sibling : record.siblings.value_or(std::vector<SiblingProperties>{})) {
        if (!sibling.siblingType || caseFromText<siblingType>(*sibling.siblingType) != siblingType::child)
            continue;
        const SizeValue size = deviceValue<fieldList::size>(sibling.devices, node.deviceChoice());
        auto child = std::make_shared<kit::SpriteNode>(
            kit::Texture::textureWithImageNamed(QString::fromStdString(sibling.image.value_or(""))),
            QSizeF(size.width, size.height));
        child->setName(QStringLiteral("child_") + node.name());
        child->setPosition(toQPoint(deviceValue<fieldList::position>(sibling.devices, node.deviceChoice())));
        child->setAnchorPoint(anchor);
        child->setZPosition(sibling.zPosition.value_or(0));
        node.addChild(child);
    }
}

void addFalseImage(SKSpriteNode2dBase& node, const Obstacle& record, const QPointF& anchor)
{
    const std::string image = extraValue(record, "falseImage").value_or("");
    if (image.empty())
        return;
    const SizeValue size = sizeFromText(extraValue(record, "falseImageSize").value_or(""));
    auto cover = std::make_shared<kit::SpriteNode>(kit::Texture::textureWithImageNamed(QString::fromStdString(image)),
                                                   QSizeF(size.width, size.height));
    cover->setName(QStringLiteral("falseImage_") + node.name());
    cover->setPosition(toQPoint(roundedPointFromText(1, extraValue(record, "falseImagePosition").value_or(""))));
    cover->setAnchorPoint(anchor);
    cover->setZPosition(node.zPosition() + 1);
    node.addChild(cover);
}

/// Bodies of the stored shapes: edges, circles, rectangles.
std::vector<PhysicsBodyPtr> recordBodies(const boxed<PhysicsProperty>& physics, const QSizeF& nodeSize)
{
    std::vector<PhysicsBodyPtr> bodies;
    if (!physics)
        return bodies;
    for (const EdgePhysics& edge : physics->edges.value_or(std::vector<EdgePhysics>{}))
        bodies.push_back(edgeBody(edge, nodeSize));
    for (const RadiusPhysics& circle : physics->radiuses.value_or(std::vector<RadiusPhysics>{}))
        bodies.push_back(circleBody(circle));
    for (const RectanglePhysics& rectangle : physics->rectangles.value_or(std::vector<RectanglePhysics>{}))
        bodies.push_back(rectangleBody(rectangle));
    return bodies;
}

/// A rotation pinned to a parent sibling: the obstacle swings on a pivot
/// inside the sibling's sprite, which is returned in its place.
SKSpriteNode2dBasePtr pinnedCarrier(const SKSpriteNode2dBasePtr& node, const Obstacle& record,
                                    const RotationProperties& rotation, kit::Node& parent, AppSharedSceneBase& scene)
{
    const SiblingProperties* holder = nullptr;
    if (!record.siblings)
        return nullptr;
    for (const SiblingProperties& sibling : *record.siblings)
        if (sibling.siblingType && caseFromText<siblingType>(*sibling.siblingType) == siblingType::parent) {
            holder = &sibling;
            break;
        }
    if (!holder)
        return nullptr;
    node->setZPosition(-1);
    const SizeValue size = deviceValue<fieldList::size>(holder->devices, scene.deviceChoice());
    const PointValue at = deviceValue<fieldList::position>(holder->devices, scene.deviceChoice());
    const PointValue anchor = pointFromText(record.anchorPoint.value_or("{0.5,0.5}"));
    const QPointF place =
        ObstacleCreationHelper::scenePosition(at, size, anchor, {}, record.useGravity.value_or(true), parent, scene);
    SpriteSetup setup;
    setup.position = place;
    setup.zPosition = record.zPosition.value_or(0);
    setup.anchorPoint = toQPoint(anchor);
    setup.name = QStringLiteral("OBJECT_rotate_") + QString::fromStdString(record.name.value_or("")) +
        QLatin1Char('_') + QString::fromStdString(numberText(at.x));
    setup.scene = &scene;
    auto carrier = SKSpriteNode2dBase::create(QString::fromStdString(holder->image.value_or("")), setup);
    carrier->setSize(QSizeF(size.width, size.height));

    auto pivot = kit::Node::create();
    pivot->setZPosition(-1);
    // The obstacle keeps the place it was given in the level, now measured
    // from the carrier it swings about.
    node->setPosition(node->position() - place);
    pivot->addChild(node);
    const double angle = rotation.rotation.value_or(0) * M_PI / 180.0;
    const double duration = rotation.rotateDuration.value_or(0);
    const double pause = rotation.rotateDelay.value_or(0);
    const bool pendulum = rotation.rotateType == "pendulum";
    pivot->runAction(Action::repeatActionForever(
        pendulum ? Action::sequence({Action::rotateByAngle(angle, duration), Action::waitForDuration(pause),
                                     Action::rotateByAngle(-angle, duration), Action::waitForDuration(pause)})
                 : Action::sequence({Action::rotateByAngle(angle, duration), Action::waitForDuration(pause)})));
    carrier->addChild(pivot);
    return carrier;
}

} // namespace

QPointF ObstacleCreationHelper::scenePosition(PointValue position, SizeValue size, PointValue anchor, PointValue offset,
                                              bool useGravity, kit::Node& parent, AppSharedSceneBase& scene)
{
    if (scene.logDebugMessages())
        diagnostic("originalPosition: " + textFromPoint(position) + " \nsize: " + textFromSize(size) +
                   " \nanchorPoint: " + textFromPoint(anchor) + " \nuseGravity: " + (useGravity ? "true" : "false") +
                   " \noffset: " + textFromPoint(offset) + "\n");
    double lift = 0;
    if (useGravity) {
        if ((anchor.x == 0.5 && anchor.y == 0.5) || (anchor.x == 0 && anchor.y == 0.5))
            lift = size.height * 0.5;
        else if (anchor.x == 0 && anchor.y == 1)
            lift = size.height;
    }
    position = scene.deviceChoice().repeated(position);
    const double x = position.x + offset.x;
    const double y = (useGravity ? scene.groundHeight(position.x) : position.y) + lift + offset.y;
    return scene.convertPointToNode(QPointF(x, y), parent);
}

SKSpriteNode2dBasePtr ObstacleCreationHelper::createObstacle(const Obstacle& record, kit::Node& parent,
                                                             AppSharedSceneBase& scene)
{
    const bool usePhysics = record.usePhysics.value_or(true);
    const bool useGravity = record.useGravity.value_or(true);
    const PointValue anchor = pointFromText(record.anchorPoint.value_or("{0.5,0.5}"));
    const PointValue maximumDistance = pointFromText(record.maximumDistance.value_or("{0,0}"));
    const std::string imageText = record.image.value_or("");
    const QString image = QString::fromStdString(imageText.substr(0, imageText.find(',')));
    const std::vector<objectClassType> classes = listFromText<objectClassType>(record.objectClassType.value_or(""));
    const CollisionDetection masks = record.collisionMasks.value_or_default();
    const std::vector<DeviceProperties> devices = record.devices.value_or(std::vector<DeviceProperties>{});
    const SizeValue deviceSize = deviceValue<fieldList::size>(devices, scene.deviceChoice());

    SpriteSetup setup;
    setup.size = QSizeF(deviceSize.width, deviceSize.height);
    setup.zPosition = record.zPosition.value_or(0);
    setup.anchorPoint = toQPoint(anchor);
    setup.scene = &scene;
    setup.allowedTimesToHit = int(record.allowedTimesToHit.value_or(1));
    setup.offsetHealthBar = toQPoint(deviceValue<fieldList::offsetHealthBar>(devices, scene.deviceChoice()));
    auto node = SKSpriteNode2dBase::create(image, setup);

    const PointValue stored = deviceValue<fieldList::position>(devices, scene.deviceChoice());
    const PointValue range = deviceValue<fieldList::randomPositionRange>(devices, scene.deviceChoice());
    const PointValue wanted{stored.x + range.x, stored.y + range.y};
    if (scene.logDebugMessages()) {
        diagnostic("name: " + record.name.value_or("no name"));
        diagnostic("position: " + textFromPoint(wanted) + " - rangePosition: " + textFromPoint(range));
    }
    const SizeValue size =
        deviceSize == SizeValue{} ? SizeValue{node->size().width(), node->size().height()} : deviceSize;
    const QPointF position = scenePosition(
        wanted, size, anchor, deviceValue<fieldList::offset>(devices, scene.deviceChoice()), useGravity, parent, scene);
    const bool mirage = std::find(classes.begin(), classes.end(), objectClassType::mirage) != classes.end();
    node->setName((mirage ? QStringLiteral("MIRAGE_") : QStringLiteral("OBJECT_")) +
                  QString::fromStdString(record.name.value_or("") + "_" + numberText(position.x())));
    node->setPosition(position);
    node->setStartingPosition(position);

    node->setObjectActsOn(QString::fromStdString(record.objectActsOn.value_or("")));
    node->setCallbackFunction(QString::fromStdString(record.callbackFunction.value_or("")));
    node->setAlpha(record.alpha.value_or(1.0));
    node->setDamageDirection(
        caseFromText<pathDirection>(record.damageDirection.value_or("all")).value_or(pathDirection::all));
    node->setHidesBehindObject(QString::fromStdString(record.hidesBehindObject.value_or("")));
    node->setExtraProperties(record.extraProperties);
    node->setCycleEndProperties(record.animation && record.animation->cycleEndProperties
                                    ? *record.animation->cycleEndProperties
                                    : std::vector<CycleEndProperties>{});
    if (record.darken.value_or(false)) {
        node->setColor(Qt::black);
        node->setColorBlendFactor(record.colorBlendFactor.value_or(0.5));
    }
    node->setSoundEffects(record.soundEffects.value_or(std::vector<GameSound>{}));
    node->setObstacleProperties(record);
    if (scene.logDebugMessages())
        diagnostic("OBJECT: " + node->name().toStdString() + "  position: " + pointText(position));

    addChildSiblings(*node, record, setup.anchorPoint);
    addFalseImage(*node, record, setup.anchorPoint);
    node->setDistanceXRange(travel(position.x(), maximumDistance.x));
    node->setDistanceYRange(travel(position.y(), maximumDistance.y));

    node->setObjectClassTypes(classes);
    const QString step = QString::fromStdString(extraValue(record, "AltStepNumber").value_or("1"));
    if (node->hasObjectClass(objectClassType::alternateScene))
        node->setExtra(step);
    if (node->hasObjectClass(objectClassType::alternateSceneLock)) {
        node->setExtra(step);
        scene.setAlternateSceneLocked(true);
        scene.setAlternateSceneLockedEndX(position.x());
    }

    if (usePhysics) {
        PhysicsSettings settings;
        const auto category = maskOrAbsent(masks.category);
        settings.category = category ? *category : defaultCategory(classes, maximumDistance);
        settings.collision = maskOrAbsent(masks.collision);
        settings.contact = maskOrAbsent(masks.contact);
        settings.isDynamic = record.isDynamic.value_or(true);
        settings.useGravity = useGravity;
        settings.usePrecision = record.usePrecision.value_or(false);
        settings.isPinned = record.isPinned.value_or(false);
        const std::vector<PhysicsBodyPtr> bodies = recordBodies(record.physics, node->size());
        if (bodies.empty())
            node->usePhysicsImage(image, settings);
        else
            node->usePhysicsBodies(bodies, settings);
        if (node->hasObjectClass(objectClassType::springboardMushroom) && node->physicsBody())
            node->physicsBody()->setMass(10000);
    }

    node->startAnimation();
    std::vector<GameSound> constant;
    for (const GameSound& sound : node->soundEffects())
        if (sound.type == caseText(soundBiteType::constant))
            constant.push_back(sound);
    node->playConstantSounds(constant);

    const RotationProperties rotation = record.rotationProperties.value_or_default();
    const double angle = rotation.rotation.value_or(0) * M_PI / 180.0;
    if (!rotation.rotateForever.value_or(false)) {
        node->setRotation(rotation.rotation.value_or(0));
        node->setZRotation(angle);
        return node;
    }
    if (rotation.rotationPin.value_or(false))
        if (auto carrier = pinnedCarrier(node, record, rotation, parent, scene))
            return carrier;
    const double duration = rotation.rotateDuration.value_or(0);
    node->runAction(Action::repeatActionForever(
        rotation.rotateType == "pendulum"
            ? Action::sequence({Action::rotateByAngle(angle, duration), Action::rotateByAngle(-angle, duration)})
            : Action::rotateByAngle(angle, duration)));
    return node;
}

} // namespace tessaro
