// Characters of a level become character sprites: the level item's sparse
// record is merged over the catalogue record, then the sprite is made from
// the merged record.
#include "AppSharedSceneBase.h"
#include "ObstacleCreationHelper.h"

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

namespace tessaro {

namespace {

bool holdsDefaultDevice(const DeviceProperties& entry)
{
    return entry.deviceName && deviceListHolds(*entry.deviceName, deviceName::defaultDevice);
}

/// The item's device entries over the catalogue's: other devices' entries
/// are added; of the item's first default entry, the layout fields it has
/// replace the catalogue's.
void mergeDevices(Character& merged, const std::vector<DeviceProperties>& overrides)
{
    if (!merged.devices) {
        // A catalogue record without entries takes the item's as they stand.
        merged.devices = overrides;
        return;
    }
    const DeviceProperties* firstDefault = nullptr;
    for (const DeviceProperties& entry : overrides) {
        if (!holdsDefaultDevice(entry))
            merged.devices->push_back(entry);
        else if (!firstDefault)
            firstDefault = &entry;
    }
    if (!firstDefault)
        return;
    DeviceProperties* target = deviceEntryFor(*merged.devices, deviceName::defaultDevice);
    if (!target) {
        merged.devices->push_back(*firstDefault);
        return;
    }
    auto take = [](auto& into, const auto& from) {
        if (from)
            into = from;
    };
    take(target->distance, firstDefault->distance);
    take(target->offsetEdge, firstDefault->offsetEdge);
    take(target->fontSize, firstDefault->fontSize);
    take(target->offset, firstDefault->offset);
    take(target->offsetHealthBar, firstDefault->offsetHealthBar);
    take(target->position, firstDefault->position);
    take(target->size, firstDefault->size);
}

/// The values of the item's record that replace the catalogue's.
void mergeOverrides(Character& merged, const Character& overrides)
{
    if (overrides.collisionMasks) {
        CollisionDetection& masks = merged.collisionMasks ? *merged.collisionMasks : merged.collisionMasks.emplace();
        if (overrides.collisionMasks->category)
            masks.category = overrides.collisionMasks->category;
        if (overrides.collisionMasks->collision)
            masks.collision = overrides.collisionMasks->collision;
        if (overrides.collisionMasks->contact)
            masks.contact = overrides.collisionMasks->contact;
    }
    if (overrides.imageDirection)
        merged.imageDirection = overrides.imageDirection;
    if (overrides.targetDistances) {
        TargetDistances& distances =
            merged.targetDistances ? *merged.targetDistances : merged.targetDistances.emplace();
        const TargetDistances& from = *overrides.targetDistances;
        for (auto field : {&TargetDistances::maximumRange, &TargetDistances::near, &TargetDistances::move,
                           &TargetDistances::attack, &TargetDistances::toss})
            if (from.*field)
                distances.*field = from.*field;
        if (from.moveSpeed)
            distances.moveSpeed = from.moveSpeed;
    }
}

/// The first class of a class list; `fallback` when it names none.
objectClassType firstClass(const std::string& text, objectClassType fallback)
{
    const std::vector<objectClassType> classes = listFromText<objectClassType>(text);
    return classes.empty() ? fallback : classes.front();
}

std::string classWord(characterType type)
{
    switch (type) {
    case characterType::animal: return "ANIMAL";
    case characterType::backgroundAnimal: return "BACKGROUND";
    case characterType::mystic:
    case characterType::mysticProjectile: return "MYSTIC";
    case characterType::human:
    case characterType::humanProjectile: break;
    }
    return "HUMAN";
}

} // namespace

SKSpriteNodeEnemy2dBasePtr ObstacleCreationHelper::createCharacter(const CharacterLevelItem& item,
                                                                   const Character& character,
                                                                   const std::shared_ptr<kit::SpriteNode>& target,
                                                                   kit::Node& parent, AppSharedSceneBase& scene)
{
    const Character* overrides = item.properties ? &*item.properties : nullptr;
    Character merged = character;
    if (overrides) {
        if (merged.animation && overrides->animation && overrides->animation->moveDirection)
            merged.animation->moveDirection = overrides->animation->moveDirection;
        mergeDevices(merged, overrides->devices.value_or(std::vector<DeviceProperties>{}));
    }
    const int hits = int(overrides && overrides->allowedTimesToHit ? *overrides->allowedTimesToHit
                                                                   : merged.allowedTimesToHit.value_or(1));
    const Actions actions = merged.actions.value_or_default();
    std::string startAction = "IdleBlinking";
    if (actions.initial)
        startAction = *actions.initial;
    else if (actions.idle && !trimmedNamesFromText(*actions.idle).empty())
        startAction = trimmedNamesFromText(*actions.idle).front();

    const std::vector<DeviceProperties> devices = merged.devices.value_or(std::vector<DeviceProperties>{});
    const PointValue anchor = pointFromText(merged.anchorPoint.value_or("{0.5,0.5}"));
    SizeValue size = deviceValue<fieldList::size>(devices, scene.deviceChoice());
    if (size == SizeValue{})
        size = {96, 96};
    const characterType type =
        caseFromText<characterType>(merged.characterType.value_or("human")).value_or(characterType::human);
    objectClassType classType = merged.objectClassType
        ? firstClass(*merged.objectClassType, objectClassType::enemyOneSlash)
        : objectClassType::enemyOneSlash;
    const PointValue offset = deviceValue<fieldList::offset>(devices, scene.deviceChoice());
    const PointValue stored = deviceValue<fieldList::position>(devices, scene.deviceChoice());

    bool useGravity = merged.useGravity.value_or(false);
    if (overrides) {
        if (overrides->objectClassType)
            classType = firstClass(*overrides->objectClassType, classType);
        useGravity = overrides->useGravity ? *overrides->useGravity
            : character.useGravity         ? *character.useGravity
                                           : stored.y == 0;
        mergeOverrides(merged, *overrides);
    }

    const std::string name =
        (classType == objectClassType::mirage ? "MIRAGE_" : "ENEMY_") + classWord(type) + "_" + item.name;
    if (!merged.image || merged.image->empty()) {
        if (scene.logDebugMessages())
            diagnostic("character without image: " + name);
        return nullptr;
    }
    if (scene.logDebugMessages())
        diagnostic("name: " + name);
    const QPointF position = scenePosition(stored, size, anchor, offset, useGravity, parent, scene);

    const QString image = QString::fromStdString(*merged.image);
    const QString atlas = image + QLatin1Char('_') + QString::fromStdString(startAction);
    // The first frame of the start action's atlas; the plain image when the
    // atlas has none.
    const bool hasAtlas = !kit::TextureAtlas::atlasNamed(atlas)->textureNames().isEmpty();
    SpriteSetup setup;
    setup.size = QSizeF(size.width, size.height);
    setup.anchorPoint = QPointF(anchor.x, anchor.y);
    setup.zPosition = item.zPosition;
    setup.name = QString::fromStdString(name);
    setup.scene = &scene;
    setup.allowedTimesToHit = hits;
    auto node = SKSpriteNodeEnemy2dBase::create(hasAtlas ? atlas : image, setup, useGravity);
    node->setPosition(position);

    node->setStartingPosition(position);
    node->setObjectClassTypes({classType});
    node->setHidesBehindObject(QString::fromStdString(item.hidesBehindObject.value_or("")));
    node->setSoundEffects(merged.soundEffects.value_or(std::vector<GameSound>{}));
    node->setImageBase(image);
    node->setCollisionMasks(merged.collisionMasks ? std::optional<CollisionDetection>(*merged.collisionMasks)
                                                  : std::nullopt);
    node->setTarget(target);
    node->setDirection(
        caseFromText<pathDirection>(merged.imageDirection.value_or("right")).value_or(pathDirection::right));
    node->setExecuteState(actions.initial ? enemyStateType::Initial : enemyStateType::Idle);
    node->setCharacterProperties(std::move(merged));
    return node;
}

} // namespace tessaro
