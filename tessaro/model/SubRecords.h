// Sub-records that obstacles, characters and generic objects share: physics
// shapes, animation and its timing, collision masks, rotation, projectiles and
// siblings.
#pragma once

#include "CommonRecords.h"

namespace tessaro {

/// The physics masks of an element, each a comma list of collision types.
struct CollisionDetection {
    std::optional<Uuid> id;
    std::optional<std::string> category;
    std::optional<std::string> contact;
    std::optional<std::string> collision;

    bool operator==(const CollisionDetection&) const = default;
    static constexpr auto fields()
    {
        using S = CollisionDetection;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(category), TESSARO_FIELD(contact),
                                    TESSARO_FIELD(collision)};
    }
};

/// The animation name of each action of a character.
struct Actions {
    std::optional<std::string> initial;
    std::optional<std::string> idle;
    std::optional<std::string> move;
    std::optional<std::string> attack;
    std::optional<std::string> toss;
    std::optional<std::string> death;

    bool operator==(const Actions&) const = default;
    static constexpr auto fields()
    {
        using S = Actions;
        return ::tessaro::FieldList{TESSARO_FIELD(initial), TESSARO_FIELD(idle), TESSARO_FIELD(move),
                                    TESSARO_FIELD(attack),  TESSARO_FIELD(toss), TESSARO_FIELD(death)};
    }
};

/// Seconds per frame for each action.
struct WaitPerAnimationFrame {
    std::optional<Uuid> id;
    std::optional<double> initial;
    std::optional<double> idle;
    std::optional<double> move;
    std::optional<double> attack;
    std::optional<double> toss;
    std::optional<double> cycleEnd;

    bool operator==(const WaitPerAnimationFrame&) const = default;
    static constexpr auto fields()
    {
        using S = WaitPerAnimationFrame;
        return ::tessaro::FieldList{TESSARO_FIELD(id),      TESSARO_FIELD(initial), TESSARO_FIELD(idle),
                                    TESSARO_FIELD(move),    TESSARO_FIELD(attack),  TESSARO_FIELD(toss),
                                    TESSARO_FIELD(cycleEnd)};
    }
};

struct Delays {
    std::optional<Uuid> id;
    std::optional<double> fade;
    std::optional<double> initial;
    std::optional<double> idle;
    std::optional<double> movement;
    std::optional<double> cycleEnd;
    std::optional<std::string> fadeRange;
    std::optional<std::string> initialRange;
    std::optional<std::string> idleRange;
    std::optional<std::string> movementRange;
    std::optional<std::string> cycleEndRange;

    bool operator==(const Delays&) const = default;
    static constexpr auto fields()
    {
        using S = Delays;
        return ::tessaro::FieldList{TESSARO_FIELD(id),           TESSARO_FIELD(fade),
                                    TESSARO_FIELD(initial),      TESSARO_FIELD(idle),
                                    TESSARO_FIELD(movement),     TESSARO_FIELD(cycleEnd),
                                    TESSARO_FIELD(fadeRange),    TESSARO_FIELD(initialRange),
                                    TESSARO_FIELD(idleRange),    TESSARO_FIELD(movementRange),
                                    TESSARO_FIELD(cycleEndRange)};
    }
};

/// The distances at which a character reacts.
struct TargetDistances {
    std::optional<Uuid> id;
    std::optional<std::string> maximumRange;
    std::optional<std::string> near;
    std::optional<std::string> move;
    std::optional<std::string> attack;
    std::optional<std::string> toss;
    std::optional<double> moveSpeed;

    bool operator==(const TargetDistances&) const = default;
    static constexpr auto fields()
    {
        using S = TargetDistances;
        return ::tessaro::FieldList{TESSARO_FIELD(id),       TESSARO_FIELD(maximumRange), TESSARO_FIELD(near),
                                    TESSARO_FIELD(move),     TESSARO_FIELD(attack),       TESSARO_FIELD(toss),
                                    TESSARO_FIELD(moveSpeed)};
    }
};

/// A shape's actions are a comma list of actionType; its frames a comma list
/// of frame indexes. Coordinates -9999 and 9999 stand for the sprite's edges.
struct EdgePhysics {
    std::optional<Uuid> id;
    std::optional<std::string> action;
    std::string startPoint;
    std::string endPoint;
    std::optional<std::string> framesAffected;

    bool operator==(const EdgePhysics&) const = default;
    static constexpr auto fields()
    {
        using S = EdgePhysics;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(action), TESSARO_FIELD(startPoint),
                                    TESSARO_FIELD(endPoint), TESSARO_FIELD(framesAffected)};
    }
};

struct RadiusPhysics {
    std::optional<Uuid> id;
    std::optional<std::string> action;
    double radius = 0;
    std::optional<std::string> center;
    std::optional<std::string> framesAffected;

    bool operator==(const RadiusPhysics&) const = default;
    static constexpr auto fields()
    {
        using S = RadiusPhysics;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(action), TESSARO_FIELD(radius),
                                    TESSARO_FIELD(center), TESSARO_FIELD(framesAffected)};
    }
};

struct RectanglePhysics {
    std::optional<Uuid> id;
    std::optional<std::string> action;
    std::string size;
    std::optional<std::string> center;
    std::optional<std::string> framesAffected;

    bool operator==(const RectanglePhysics&) const = default;
    static constexpr auto fields()
    {
        using S = RectanglePhysics;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(action), TESSARO_FIELD(size),
                                    TESSARO_FIELD(center), TESSARO_FIELD(framesAffected)};
    }
};

/// One vertex of a polygon shape.
struct Point {
    std::optional<Uuid> id;
    std::optional<std::string> action;
    std::string point;

    bool operator==(const Point&) const = default;
    static constexpr auto fields()
    {
        using S = Point;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(action), TESSARO_FIELD(point)};
    }
};

struct PolyPhysics {
    std::optional<Uuid> id;
    std::optional<std::string> action;
    std::string direction; // case of pathDirection
    std::vector<Point> points;
    std::optional<std::string> framesAffected;

    TESSARO_RECORD_MEMBERS(PolyPhysics);
    static constexpr auto fields()
    {
        using S = PolyPhysics;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(action), TESSARO_FIELD(direction),
                                    TESSARO_FIELD(points), TESSARO_FIELD(framesAffected)};
    }
};

/// The physics shapes of an image, one list per kind of shape.
struct PhysicsProperty {
    std::optional<Uuid> id;
    std::optional<std::vector<EdgePhysics>> edges;
    std::optional<std::vector<RadiusPhysics>> radiuses;
    std::optional<std::vector<RectanglePhysics>> rectangles;
    std::optional<std::vector<PolyPhysics>> polygons;

    TESSARO_RECORD_MEMBERS(PhysicsProperty);
    static constexpr auto fields()
    {
        using S = PhysicsProperty;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(edges), TESSARO_FIELD(radiuses),
                                    TESSARO_FIELD(rectangles), TESSARO_FIELD(polygons)};
    }
};

/// What happens to an element at the end of an animation cycle.
struct CycleEndProperties {
    std::optional<Uuid> id;
    std::optional<std::string> obstacleAffected;
    std::optional<bool> fadeObstacle;
    std::optional<std::string> atlasName;
    std::optional<std::string> objectClassType; // comma list of objectClassType names
    boxed<CollisionDetection> collisionMasks;
    std::optional<bool> removeFromParentAtEnd;
    std::optional<double> animationDuration;
    std::optional<std::string> callbackFunction;
    std::optional<double> zPosition;
    std::optional<std::vector<DeviceProperties>> devices;
    boxed<PhysicsProperty> physics;

    TESSARO_RECORD_MEMBERS(CycleEndProperties);
    static constexpr auto fields()
    {
        using S = CycleEndProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(obstacleAffected),
                                    TESSARO_FIELD(fadeObstacle),
                                    TESSARO_FIELD(atlasName),
                                    TESSARO_FIELD(objectClassType),
                                    TESSARO_FIELD(collisionMasks),
                                    TESSARO_FIELD(removeFromParentAtEnd),
                                    TESSARO_FIELD(animationDuration),
                                    TESSARO_FIELD(callbackFunction),
                                    TESSARO_FIELD(zPosition),
                                    TESSARO_FIELD(devices),
                                    TESSARO_FIELD(physics)};
    }
};

struct AnimationProperty {
    std::optional<Uuid> id;
    std::optional<std::string> frequency; // case of animationFrequency
    std::optional<std::string> moveDirection; // case of animationMoveDirection
    std::optional<bool> flipImage;
    std::optional<std::string> velocity;
    std::optional<std::int64_t> animationFrameStart;
    std::optional<bool> changePhysics;
    std::optional<bool> noPhysicsFirstFrame;
    std::optional<bool> noPhysicsLastFrame;
    std::optional<bool> horizontalFlip;
    std::optional<bool> verticalFlip;
    boxed<WaitPerAnimationFrame> waitPerAnimationFrame;
    boxed<Delays> delays;
    std::optional<std::vector<CycleEndProperties>> cycleEndProperties;
    boxed<PhysicsProperty> physics;

    TESSARO_RECORD_MEMBERS(AnimationProperty);
    static constexpr auto fields()
    {
        using S = AnimationProperty;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(frequency),
                                    TESSARO_FIELD(moveDirection),
                                    TESSARO_FIELD(flipImage),
                                    TESSARO_FIELD(velocity),
                                    TESSARO_FIELD(animationFrameStart),
                                    TESSARO_FIELD(changePhysics),
                                    TESSARO_FIELD(noPhysicsFirstFrame),
                                    TESSARO_FIELD(noPhysicsLastFrame),
                                    TESSARO_FIELD(horizontalFlip),
                                    TESSARO_FIELD(verticalFlip),
                                    TESSARO_FIELD(waitPerAnimationFrame),
                                    TESSARO_FIELD(delays),
                                    TESSARO_FIELD(cycleEndProperties),
                                    TESSARO_FIELD(physics)};
    }
};

struct RotationProperties {
    std::optional<double> rotation;
    std::optional<bool> rotateForever;
    std::optional<double> rotateDuration;
    std::optional<bool> rotationPin;
    std::optional<std::string> rotateType; // case of rotationType
    std::optional<double> rotateDelay;
    std::optional<double> rotateCount;

    bool operator==(const RotationProperties&) const = default;
    static constexpr auto fields()
    {
        using S = RotationProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(rotation),       TESSARO_FIELD(rotateForever),
                                    TESSARO_FIELD(rotateDuration), TESSARO_FIELD(rotationPin),
                                    TESSARO_FIELD(rotateType),     TESSARO_FIELD(rotateDelay),
                                    TESSARO_FIELD(rotateCount)};
    }
};

/// Two texts the game interprets; the editor only keeps them.
struct VelocityRangeProperties {
    std::optional<std::string> range;
    std::optional<std::string> velocity;

    bool operator==(const VelocityRangeProperties&) const = default;
    static constexpr auto fields()
    {
        using S = VelocityRangeProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(range), TESSARO_FIELD(velocity)};
    }
};

struct ProjectileProperties {
    std::optional<std::string> image;
    std::optional<std::string> imageDirection; // case of pathDirection
    std::optional<std::string> objectClassType;
    std::optional<std::string> type; // case of projectileType
    std::optional<double> zPosition;
    std::optional<std::vector<DeviceProperties>> devices;
    boxed<PhysicsProperty> physics;
    std::optional<std::vector<VelocityRangeProperties>> velocityRanges;

    TESSARO_RECORD_MEMBERS(ProjectileProperties);
    static constexpr auto fields()
    {
        using S = ProjectileProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(image),           TESSARO_FIELD(imageDirection),
                                    TESSARO_FIELD(objectClassType), TESSARO_FIELD(type),
                                    TESSARO_FIELD(zPosition),       TESSARO_FIELD(devices),
                                    TESSARO_FIELD(physics),         TESSARO_FIELD(velocityRanges)};
    }
};

/// An image attached to an element.
struct SiblingProperties {
    std::optional<std::string> image;
    std::optional<double> zPosition;
    std::optional<std::string> siblingType; // case of siblingType
    std::optional<std::vector<DeviceProperties>> devices;

    TESSARO_RECORD_MEMBERS(SiblingProperties);
    static constexpr auto fields()
    {
        using S = SiblingProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(image), TESSARO_FIELD(zPosition), TESSARO_FIELD(siblingType),
                                    TESSARO_FIELD(devices)};
    }
};

} // namespace tessaro
