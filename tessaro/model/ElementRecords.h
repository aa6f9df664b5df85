// The catalogue templates: obstacles, characters and generic objects. As the
// `properties` of a level item they hold only the values that differ from the
// template.
#pragma once

#include "SubRecords.h"

namespace tessaro {

struct Obstacle {
    std::optional<Uuid> id;
    std::optional<std::string> elementName;
    std::optional<std::string> sceneObjectType;
    std::optional<std::string> name;
    std::optional<double> zPosition;
    std::optional<std::string> anchorPoint;
    std::optional<std::string> image;
    std::optional<std::string> imageType;
    std::optional<bool> stack;
    std::optional<std::int64_t> repeatCount;
    std::optional<bool> usePhysics;
    std::optional<bool> useGravity;
    std::optional<bool> isDynamic;
    std::optional<bool> usePrecision;
    std::optional<bool> isVisible;
    std::optional<double> alpha;
    std::optional<bool> darken;
    std::optional<double> colorBlendFactor;
    std::optional<std::int64_t> allowedTimesToHit;
    std::optional<std::string> damageDirection;
    std::optional<bool> isPinned;
    std::optional<std::string> objectClassType;
    std::optional<std::string> hidesBehindObject;
    std::optional<std::string> maximumDistance;
    std::optional<std::string> objectActsOn;
    std::optional<std::string> callbackFunction;
    std::optional<bool> allowHeroAttach;
    boxed<PhysicsProperty> physics;
    boxed<CollisionDetection> collisionMasks;
    boxed<AnimationProperty> animation;
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<std::vector<ExtraProperties>> extraProperties;
    std::optional<std::vector<ProjectileProperties>> projectiles;
    boxed<RotationProperties> rotationProperties;
    std::optional<std::vector<SiblingProperties>> siblings;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(Obstacle);
    static constexpr auto fields()
    {
        using S = Obstacle;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(elementName),
                                    TESSARO_FIELD(sceneObjectType),
                                    TESSARO_FIELD(name),
                                    TESSARO_FIELD(zPosition),
                                    TESSARO_FIELD(anchorPoint),
                                    TESSARO_FIELD(image),
                                    TESSARO_FIELD(imageType),
                                    TESSARO_FIELD(stack),
                                    TESSARO_FIELD(repeatCount),
                                    TESSARO_FIELD(usePhysics),
                                    TESSARO_FIELD(useGravity),
                                    TESSARO_FIELD(isDynamic),
                                    TESSARO_FIELD(usePrecision),
                                    TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(alpha),
                                    TESSARO_FIELD(darken),
                                    TESSARO_FIELD(colorBlendFactor),
                                    TESSARO_FIELD(allowedTimesToHit),
                                    TESSARO_FIELD(damageDirection),
                                    TESSARO_FIELD(isPinned),
                                    TESSARO_FIELD(objectClassType),
                                    TESSARO_FIELD(hidesBehindObject),
                                    TESSARO_FIELD(maximumDistance),
                                    TESSARO_FIELD(objectActsOn),
                                    TESSARO_FIELD(callbackFunction),
                                    TESSARO_FIELD(allowHeroAttach),
                                    TESSARO_FIELD(physics),
                                    TESSARO_FIELD(collisionMasks),
                                    TESSARO_FIELD(animation),
                                    TESSARO_FIELD(devices),
                                    TESSARO_FIELD(extraProperties),
                                    TESSARO_FIELD(projectiles),
                                    TESSARO_FIELD(rotationProperties),
                                    TESSARO_FIELD(siblings),
                                    TESSARO_FIELD(soundEffects)};
    }
};

struct Character {
    std::optional<Uuid> id;
    std::optional<std::string> elementName;
    std::optional<std::string> anchorPoint;
    std::optional<std::string> image;
    std::optional<std::string> imageType;
    std::optional<std::string> imageDirection; // case of pathDirection
    std::optional<bool> isVisible;
    std::optional<std::string> characterType; // case of characterType
    std::optional<std::string> objectClassType;
    boxed<CollisionDetection> collisionMasks;
    std::optional<std::string> sceneObjectType;
    std::optional<std::string> callbackFunction;
    std::optional<std::int64_t> allowedTimesToHit;
    std::optional<bool> useGravity;
    std::optional<bool> isDynamic;
    std::optional<bool> usePrecision;
    boxed<TargetDistances> targetDistances;
    boxed<Actions> actions;
    boxed<AnimationProperty> animation;
    boxed<PhysicsProperty> physics;
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<std::vector<ExtraProperties>> extraProperties;
    std::optional<std::vector<ProjectileProperties>> projectiles;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(Character);
    static constexpr auto fields()
    {
        using S = Character;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(elementName),
                                    TESSARO_FIELD(anchorPoint),
                                    TESSARO_FIELD(image),
                                    TESSARO_FIELD(imageType),
                                    TESSARO_FIELD(imageDirection),
                                    TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(characterType),
                                    TESSARO_FIELD(objectClassType),
                                    TESSARO_FIELD(collisionMasks),
                                    TESSARO_FIELD(sceneObjectType),
                                    TESSARO_FIELD(callbackFunction),
                                    TESSARO_FIELD(allowedTimesToHit),
                                    TESSARO_FIELD(useGravity),
                                    TESSARO_FIELD(isDynamic),
                                    TESSARO_FIELD(usePrecision),
                                    TESSARO_FIELD(targetDistances),
                                    TESSARO_FIELD(actions),
                                    TESSARO_FIELD(animation),
                                    TESSARO_FIELD(physics),
                                    TESSARO_FIELD(devices),
                                    TESSARO_FIELD(extraProperties),
                                    TESSARO_FIELD(projectiles),
                                    TESSARO_FIELD(soundEffects)};
    }
};

/// A template of any other element: coins, shields, artifacts, checkpoints,
/// ground and backgrounds.
struct GenericObject {
    std::optional<Uuid> id;
    std::optional<std::string> elementName;
    std::optional<std::string> image;
    std::optional<std::string> imageType;
    std::optional<std::string> sceneObjectType;
    std::optional<std::string> objectClassType;
    boxed<CollisionDetection> collisionMasks;
    std::optional<bool> useGravity;
    std::optional<bool> isDynamic;
    std::optional<std::string> groundType; // case of groundBaseType
    std::optional<std::vector<DeviceProperties>> devices;
    boxed<PhysicsProperty> physics;
    boxed<AnimationProperty> animation;

    TESSARO_RECORD_MEMBERS(GenericObject);
    static constexpr auto fields()
    {
        using S = GenericObject;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(elementName),
                                    TESSARO_FIELD(image),
                                    TESSARO_FIELD(imageType),
                                    TESSARO_FIELD(sceneObjectType),
                                    TESSARO_FIELD(objectClassType),
                                    TESSARO_FIELD(collisionMasks),
                                    TESSARO_FIELD(useGravity),
                                    TESSARO_FIELD(isDynamic),
                                    TESSARO_FIELD(groundType),
                                    TESSARO_FIELD(devices),
                                    TESSARO_FIELD(physics),
                                    TESSARO_FIELD(animation)};
    }
};

} // namespace tessaro
