#include "SelectionPublishing.h"

#include "PropertyRules.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/FrameShapes.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <QString>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

std::string pairText(double a, double b)
{
    return QString::asprintf("{%.0f, %.0f }", a, b).toStdString();
}

std::vector<tessaro::collisionTypes> masks(const std::optional<std::string>& text)
{
    return text ? tessaro::listFromText<tessaro::collisionTypes>(*text) : std::vector<tessaro::collisionTypes>{};
}

void showMasks(SelectedObjectModel& model, const tessaro::boxed<tessaro::CollisionDetection>& detection)
{
    model.category = detection ? masks(detection->category) : std::vector<tessaro::collisionTypes>{};
    model.contact = detection ? masks(detection->contact) : std::vector<tessaro::collisionTypes>{};
    model.collision = detection ? masks(detection->collision) : std::vector<tessaro::collisionTypes>{};
}

std::vector<tessaro::objectClassType> classes(const std::optional<std::string>& text)
{
    return tessaro::listFromText<tessaro::objectClassType>(text.value_or(std::string()));
}

/// The catalogue record of the kind with the element name of `node`'s record.
template <class Record>
const Record* catalogueRecordOf(const ElementNode& node, const std::vector<Record>& catalogue)
{
    const std::string name = node.catalogueElementName();
    for (const Record& record : catalogue)
        if (record.elementName == name)
            return &record;
    return nullptr;
}

template <class Record>
std::optional<tessaro::DeviceProperties> defaultEntryOf(const Record* record)
{
    if (!record || !record->devices)
        return std::nullopt;
    if (const tessaro::DeviceProperties* entry =
            tessaro::deviceEntryFor(*record->devices, tessaro::deviceName::defaultDevice))
        return *entry;
    return std::nullopt;
}

void showAnimation(SelectedAnimationModel& model, const tessaro::AnimationProperty& animation)
{
    model.animationFrequency = animation.frequency.value_or("none");
    model.moveDirection = animation.moveDirection.value_or(std::string());
    model.changePhysics = animation.changePhysics.value_or(false);
    model.noPhysicsFirstFrame = animation.noPhysicsFirstFrame.value_or(false);
    model.noPhysicsLastFrame = animation.noPhysicsLastFrame.value_or(false);
    model.horizontalFlip = animation.horizontalFlip.value_or(false);
    model.verticalFlip = animation.verticalFlip.value_or(false);
    model.animationFrameStart = animation.animationFrameStart.value_or(0);
    model.velocity = tessaro::pointFromText(animation.velocity.value_or(std::string()));
    if (const auto& wait = animation.waitPerAnimationFrame) {
        model.waitPerFrame_initial = wait->initial.value_or(0);
        model.waitPerFrame_idle = wait->idle.value_or(0);
        model.waitPerFrame_move = wait->move.value_or(0);
        model.waitPerFrame_attack = wait->attack.value_or(0);
        model.waitPerFrame_toss = wait->toss.value_or(0);
        model.waitPerFrame_cycleEnd = wait->cycleEnd.value_or(0);
    }
    if (const auto& delays = animation.delays) {
        model.delay_fade = delays->fade.value_or(0);
        model.delay_initial = delays->initial.value_or(0);
        model.delay_idle = delays->idle.value_or(0);
        model.delay_cycleEnd = delays->cycleEnd.value_or(0);
        model.delay_movement = delays->movement.value_or(0);
        const auto bounds = [](const std::optional<std::string>& text, double& lower, double& upper) {
            const tessaro::RangeValue range = tessaro::rangeFromText(text.value_or(std::string()));
            lower = range.lower;
            upper = range.upper;
        };
        bounds(delays->initialRange, model.delay_initialRange_lower, model.delay_initialRange_upper);
        bounds(delays->idleRange, model.delay_idleRange_lower, model.delay_idleRange_upper);
        bounds(delays->cycleEndRange, model.delay_cycleEndRange_lower, model.delay_cycleEndRange_upper);
        bounds(delays->movementRange, model.delay_movementRange_lower, model.delay_movementRange_upper);
        bounds(delays->fadeRange, model.delay_fadeRange_lower, model.delay_fadeRange_upper);
    }
    if (animation.cycleEndProperties && !animation.cycleEndProperties->empty()) {
        for (const tessaro::CycleEndProperties& entry : *animation.cycleEndProperties)
            model.End_List.push_back(entry.id ? entry.id->text() : std::string());
        showCycleEnd(model, animation.cycleEndProperties->front());
    }
}

void showTargetDistances(SelectedAnimationModel& model, const tessaro::TargetDistances& distances)
{
    const auto point = [](const std::optional<std::string>& text) {
        return text ? tessaro::pointFromText(*text) : tessaro::PointValue{};
    };
    model.target_maximumRange = point(distances.maximumRange);
    model.target_near = point(distances.near);
    model.target_attack = point(distances.attack);
    model.target_move = point(distances.move);
    model.target_toss = point(distances.toss);
    model.target_moveSpeed = distances.moveSpeed.value_or(0);
}

/// The shapes of single frames of an obstacle: those of its animation in the
/// level, else its template's.
const tessaro::PhysicsProperty* frameShapesOf(const ElementNode& node)
{
    if (node.animationOverrides && node.animationOverrides->physics)
        return &*node.animationOverrides->physics;
    const auto* base =
        node.defaultViewProperties ? std::get_if<tessaro::Obstacle>(&*node.defaultViewProperties) : nullptr;
    if (base && base->animation && base->animation->physics)
        return &*base->animation->physics;
    return nullptr;
}

void showKindFields(SelectedObjectModel& model, const ElementNode& node, const SceneEditor& scene)
{
    switch (node.kind()) {
    case sceneObjectType::obstacles: {
        model.objectClassType = {tessaro::objectClassType::none};
        model.isVisible = true;
        if (node.physics)
            model.physics = *node.physics;
        // The sheet shows the shapes of single frames beside those of the whole image.
        if (const tessaro::PhysicsProperty* frames = frameShapesOf(node))
            model.physics = tessaro::joinedShapes(model.physics, *frames);
        // The rotation shown is the catalogue's until the level overrides it.
        if (node.rotationOverrides) {
            const tessaro::RotationProperties& rotation = *node.rotationOverrides;
            model.rotation = rotation.rotation.value_or(0);
            model.rotateForever = rotation.rotateForever.value_or(false);
            model.rotateDuration = rotation.rotateDuration.value_or(0);
            model.rotationPin = rotation.rotationPin.value_or(false);
            model.rotateType = tessaro::caseFromText<tessaro::rotationType>(rotation.rotateType.value_or("none"))
                                   .value_or(tessaro::rotationType::none);
            model.rotateDelay = rotation.rotateDelay.value_or(0);
            model.rotateCount = rotation.rotateCount.value_or(0);
        }
        if (!node.obstacleOverrides)
            break;
        const tessaro::Obstacle& over = *node.obstacleOverrides;
        model.objectClassType = classes(over.objectClassType);
        showMasks(model, over.collisionMasks);
        model.isVisible = over.isVisible.value_or(true);
        model.usePrecision = over.usePrecision.value_or(false);
        model.darken = over.darken.value_or(false);
        model.objectActsOn = over.objectActsOn.value_or(std::string());
        model.callbackFunction = over.callbackFunction.value_or(std::string());
        model.repeatCount = over.repeatCount.value_or(0);
        break;
    }
    case sceneObjectType::character:
        model.charClassType = node.charClassType.value_or(tessaro::characterClassType::friendly);
        model.isVisible = true;
        if (node.physics)
            model.physics = *node.physics;
        if (node.characterOverrides) {
            model.objectClassType = classes(node.characterOverrides->objectClassType);
            showMasks(model, node.characterOverrides->collisionMasks);
            model.isVisible = node.characterOverrides->isVisible.value_or(true);
        }
        break;
    case sceneObjectType::checkpoint:
        model.isVisible = node.checkPointOverrides ? node.checkPointOverrides->isVisible.value_or(true) : true;
        break;
    case sceneObjectType::coin:
        model.isVisible = true;
        if (node.coinOverrides) {
            model.stacked = node.coinOverrides->stack.value_or(false);
            model.repeatCount = node.coinOverrides->repeatCount.value_or(0);
            model.isVisible = node.coinOverrides->isVisible.value_or(true);
        }
        break;
    case sceneObjectType::shield:
        model.isVisible = true;
        if (node.shieldOverrides) {
            model.timed = node.shieldOverrides->timed.value_or(0);
            model.isVisible = node.shieldOverrides->isVisible.value_or(true);
        }
        break;
    case sceneObjectType::artifact:
        model.isVisible = true;
        if (node.artifactOverrides) {
            model.objectClassType = classes(node.artifactOverrides->objectClassType);
            model.isVisible = node.artifactOverrides->isVisible.value_or(true);
        }
        break;
    case sceneObjectType::ground:
        model.isVisible = true;
        model.zPosition = 0;
        if (node.groundSection) {
            const tessaro::GroundSection& section = *node.groundSection;
            model.isVisible = section.isVisible.value_or(true);
            model.zPosition = section.zPosition.value_or(0);
            model.groundType = tessaro::caseFromText<tessaro::groundBaseType>(section.groundType.value_or("Ground"))
                                   .value_or(tessaro::groundBaseType::Ground);
            model.distance = tessaro::sizeFromText(section.distance.value_or(std::string()));
            model.image = section.image.value_or(std::string());
            model.imageBottomLayer = section.imageBottomLayer.value_or(std::string());
            model.repeatCount = section.repeatCount.value_or(0);
            model.groundPhysicsAngleType = tessaro::listFromText<tessaro::groundPhysicsAngleType>(
                section.groundPhysicsAngleType.value_or(std::string()));
            model.stacked = section.stack.value_or(false);
        }
        break;
    case sceneObjectType::background: {
        model.backgroundSelectedId = node.backgroundAssociatedId.value_or(tessaro::Uuid::create());
        const auto& list = scene.backgroundList();
        if (list && list->backgrounds)
            for (const tessaro::BackgroundImage& record : *list->backgrounds)
                if (node.backgroundAssociatedId && record.id == node.backgroundAssociatedId) {
                    showBackground(model, record);
                    break;
                }
        break;
    }
    default: break;
    }
}

/// "Is dynamic" as the level stores it: the override's value, else the
/// catalogue's. The canvas's body is no guide: an element without physics has
/// none, and the body is not remade when the value changes.
bool storedIsDynamic(const ElementNode& node)
{
    if (node.kind() == sceneObjectType::obstacles) {
        if (node.obstacleOverrides && node.obstacleOverrides->isDynamic)
            return *node.obstacleOverrides->isDynamic;
        const tessaro::Obstacle* base = node.catalogueObstacle();
        return base && base->isDynamic.value_or(false);
    }
    if (node.kind() == sceneObjectType::character) {
        if (node.characterOverrides && node.characterOverrides->isDynamic)
            return *node.characterOverrides->isDynamic;
        const tessaro::Character* base = node.catalogueCharacter();
        return base && base->isDynamic.value_or(false);
    }
    return false;
}

} // namespace

double aspectRatioOf(tessaro::SizeValue size)
{
    const double width = size.width == 0 ? 1 : size.width;
    const double height = size.height == 0 ? 1 : size.height;
    return width / height;
}

SelectedDeviceModel showDeviceEntry(SelectedDeviceModel model,
                                    const std::optional<std::vector<tessaro::DeviceProperties>>& devices,
                                    tessaro::deviceName device)
{
    const tessaro::DeviceProperties* entry = devices ? tessaro::deviceEntryFor(*devices, device) : nullptr;
    const auto point = [&](const std::optional<std::string> tessaro::DeviceProperties::*field) {
        return entry && entry->*field ? tessaro::pointFromText(*(entry->*field)) : tessaro::PointValue{};
    };
    const auto size = [&](const std::optional<std::string> tessaro::DeviceProperties::*field) {
        return entry && entry->*field ? tessaro::sizeFromText(*(entry->*field)) : tessaro::SizeValue{};
    };
    model.position =
        entry && entry->position ? tessaro::roundedPointFromText(1, *entry->position) : tessaro::PointValue{};
    model.size = size(&tessaro::DeviceProperties::size);
    model.offset = point(&tessaro::DeviceProperties::offset);
    model.offsetHealthBar = point(&tessaro::DeviceProperties::offsetHealthBar);
    model.altPosition = point(&tessaro::DeviceProperties::altPosition);
    model.digitSize = size(&tessaro::DeviceProperties::digitSize);
    model.distance = point(&tessaro::DeviceProperties::distance);
    model.offsetEdge = point(&tessaro::DeviceProperties::offsetEdge);
    model.fontSize = entry ? entry->fontSize.value_or(0) : 0;
    model.selectorSize = size(&tessaro::DeviceProperties::selectorSize);
    model.randomPositionRange =
        entry && entry->randomPositionRange ? *entry->randomPositionRange : std::string("{<0...0>,<0...0>}");
    model.inherited = definedDeviceFields(entry);
    model.aspectRatio = aspectRatioOf(model.size);
    return model;
}

void showCycleEnd(SelectedAnimationModel& model, const tessaro::CycleEndProperties& entry)
{
    const auto names = [](const std::optional<std::string>& text) {
        return tessaro::trimmedNamesFromText(text.value_or(std::string()));
    };
    model.End_SelectedId = entry.id ? entry.id->text() : std::string();
    model.End_atlasName = entry.atlasName.value_or(std::string());
    model.End_obstacleAffected = entry.obstacleAffected.value_or(std::string());
    model.End_fadeObstacle = entry.fadeObstacle.value_or(false);
    model.End_removeFromParentAtEnd = entry.removeFromParentAtEnd.value_or(false);
    model.End_animationDuration = entry.animationDuration.value_or(0);
    model.End_zPosition = entry.zPosition.value_or(0);
    model.End_objectClassType = names(entry.objectClassType);
    const tessaro::CollisionDetection none;
    const tessaro::CollisionDetection& masks = entry.collisionMasks ? *entry.collisionMasks : none;
    model.End_category = names(masks.category);
    model.End_contact = names(masks.contact);
    model.End_collision = names(masks.collision);
    model.End_physics = entry.physics ? *entry.physics : tessaro::PhysicsProperty{};
    const tessaro::DeviceProperties* sized =
        entry.devices ? tessaro::deviceEntryFor(*entry.devices, tessaro::deviceName::defaultDevice) : nullptr;
    model.End_size = sized && sized->size ? tessaro::sizeFromText(*sized->size) : tessaro::SizeValue{};
    model.End_aspectRatio = aspectRatioOf(model.End_size);
}

std::vector<PinnedRangeValue> pinnedRangeValues(const std::optional<std::vector<tessaro::PinnedRange>>& ranges)
{
    std::vector<PinnedRangeValue> values;
    if (!ranges)
        return values;
    for (const tessaro::PinnedRange& entry : *ranges) {
        const tessaro::RangeValue range = tessaro::rangeFromText(entry.range.value_or("0...0"));
        values.push_back({entry.id.value_or(tessaro::Uuid::create()), range, range.lower, range.upper});
    }
    return values;
}

void showBackground(SelectedObjectModel& model, const tessaro::BackgroundImage& record)
{
    if (record.id)
        model.backgroundSelectedId = *record.id;
    model.image = record.image.value_or(std::string());
    model.pinned = record.pinned.value_or(false);
    model.backgroundScrollOrientation =
        tessaro::caseFromText<tessaro::scrollOrientationType>(record.scrollOrientation.value_or(std::string()))
            .value_or(tessaro::scrollOrientationType::horizontal);
    model.speed = record.speed.value_or(0);
    model.zPosition = record.zPosition.value_or(1);
    model.isVisible = record.isVisible.value_or(true);
    model.pinnedRanges = pinnedRangeValues(record.pinnedRanges);
}

void publishSelection(SceneEditor& scene, ElementNode& node, SceneSettings* settings)
{
    if (settings)
        settings->setInspectorPresented(true);

    SelectedObjectModel object;
    SelectedDeviceModel device;
    SelectedAnimationModel animation;

    object.type = node.kind();
    object.property_objectName = node.property_objectName.value_or(std::string());
    object.name = node.name().toStdString();
    object.real_Position = pairText(node.position().x(), node.position().y());
    object.displayedSize = pairText(node.size().width(), node.size().height());
    object.zPosition = node.zPosition();
    object.alpha = node.alpha();
    object.isDynamic = storedIsDynamic(node);
    object.useGravity = node.property_useGravity;
    object.image = node.imageOverride.value_or(std::string());

    if (node.kind() == sceneObjectType::obstacles) {
        const tessaro::Obstacle* base = catalogueRecordOf(node, tessaro::obstacleCatalogue());
        device.devicesDefaultBase = defaultEntryOf(base);
        // The catalogue decides whether an obstacle has physics; the level's
        // value counts only where the catalogue says nothing.
        object.usePhysics = true;
        if (base && base->usePhysics)
            object.usePhysics = *base->usePhysics;
        else if (node.obstacleOverrides && node.obstacleOverrides->usePhysics)
            object.usePhysics = *node.obstacleOverrides->usePhysics;
    } else if (node.kind() == sceneObjectType::character) {
        device.devicesDefaultBase = defaultEntryOf(catalogueRecordOf(node, tessaro::characterCatalogue()));
    }
    if ((node.kind() == sceneObjectType::obstacles || node.kind() == sceneObjectType::character) &&
        node.defaultViewProperties)
        object.defaultViewProperties = *node.defaultViewProperties;

    device = showDeviceEntry(std::move(device), node.devices, tessaro::deviceName::defaultDevice);
    if (node.animationOverrides)
        showAnimation(animation, *node.animationOverrides);
    if (node.characterOverrides && node.characterOverrides->targetDistances)
        showTargetDistances(animation, *node.characterOverrides->targetDistances);
    object.soundEffects = node.soundEffects.value_or(std::vector<tessaro::GameSound>{});
    object.effectSelected = tessaro::Uuid::create().text();

    showKindFields(object, node, scene);
    if (node.kind() == sceneObjectType::background) {
        // The other backgrounds recede.
        if (const auto& layer = scene.backgroundNodes())
            for (const auto& child : layer->children())
                child->setAlpha(0.2);
        node.setAlpha(1);
    }

    if (ProjectTab* tab = scene.tab()) {
        tab->setSelectedObject(std::move(object));
        tab->setSelectedDeviceObject(std::move(device));
        tab->setSelectedAnimationObject(std::move(animation));
        tab->setElementPhase(SelectionPhase::Selected);
    }
}

} // namespace stagewright
