// The editable mirrors of a selection that a project tab holds: the primary
// object model, the device model, the animation model and the level's extended
// properties, with the enumerations that address their fields. The logic that
// fills them from a selected element lives with the inspector; here they are
// plain data with their empty values, so a tab can put them back.
#pragma once

#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagewright {

// clang-format off
#define STAGEWRIGHT_PUBLISHED_ELEMENT_LIST(X)                                              \
    X(type) X(position) X(size) X(offset) X(offsetEdge) X(elementName) X(zPosition)        \
    X(observedname) X(uuid) X(usePhysics) X(useGravity) X(isDynamic) X(alpha) X(darken)    \
    X(objectClassType) X(objectActsOn) X(callbackFunction) X(category) X(contact)          \
    X(collision) X(image) X(imageDirection) X(scenePosition) X(repeatCount) X(stack)       \
    X(timed) X(background) X(speed) X(deviceName) X(sound) X(pinned)                       \
    X(backgroundScrollOrientation) X(groundType) X(distance) X(numberOfParts) X(fontSize)  \
    X(digitSize) X(selectorSize) X(altPosition) X(randomPositionRange)                     \
    X(groundPhysicsAngleType) X(rotation) X(rotateForever) X(rotateDuration)               \
    X(rotationPin) X(rotateType) X(rotateDelay) X(rotateCount) X(usePrecision)             \
    X(isVisible) X(physics) X(lowerBound) X(upperBound) X(addRange) X(deleteRange)         \
    X(allowedTimesToHit) X(offsetHealthBar) X(charClassType) X(widthChanged)               \
    X(animationFrequency) X(moveDirection) X(fadeTimeLengthRangeLower)                     \
    X(fadeTimeLengthRangeUpper) X(changePhysics) X(noPhysicsFirstFrame)                    \
    X(noPhysicsLastFrame) X(animationFrameStart) X(horizontalFlip) X(verticalFlip)         \
    X(velocity) X(resetPositionOnContact) X(animationCallbackFunction)                     \
    X(waitPerFrame_initial) X(waitPerFrame_idle) X(waitPerFrame_move)                      \
    X(waitPerFrame_attack) X(waitPerFrame_toss) X(waitPerFrame_cycleEnd) X(delay_fade)     \
    X(delay_initial) X(delay_idle) X(delay_cycleEnd) X(delay_movement)                     \
    X(delay_initialRange_lower) X(delay_initialRange_upper) X(delay_idleRange_lower)       \
    X(delay_idleRange_upper) X(delay_cycleEndRange_lower) X(delay_cycleEndRange_upper)     \
    X(delay_movementRange_lower) X(delay_movementRange_upper) X(delay_fadeRange_lower)     \
    X(delay_fadeRange_upper) X(target_maximumRange) X(target_near) X(target_attack)        \
    X(target_move) X(target_toss) X(target_moveSpeed) X(End_list_add) X(End_list_delete)   \
    X(End_SelectedId) X(End_obstacleEffected) X(End_fadeObstacle) X(End_atlasName)        \
    X(End_objectClassType) X(End_category) X(End_contact) X(End_collision)                 \
    X(End_removeFromParentAtEnd) X(End_animationDuration) X(End_zPosition) X(End_physics)  \
    X(End_size)
// clang-format on

/// Names one editable property: the key of every edit routine.
enum class PublishedElementList { STAGEWRIGHT_PUBLISHED_ELEMENT_LIST(TESSARO_ENUM_CASE) };

#define STAGEWRIGHT_MODEL_TYPE(X) X(Animation) X(AnimationCycleEnd) X(Devices) X(Primary)
/// Which model a control belongs to.
enum class ModelType { STAGEWRIGHT_MODEL_TYPE(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::PublishedElementList> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_PUBLISHED_ELEMENT_LIST(TESSARO_ENUM_TEXT)};
};
template <>
struct tessaro::EnumCases<stagewright::ModelType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_MODEL_TYPE(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

static_assert(tessaro::caseCount<PublishedElementList> == 114);

/// The editable form of one pinned range of a background.
struct PinnedRangeValue {
    std::optional<tessaro::Uuid> id;
    tessaro::RangeValue range;
    double lowerBound = 0;
    double upperBound = 0;
    bool operator==(const PinnedRangeValue&) const = default;
};

/// One entry of a multi-selection list.
struct MultiItem {
    tessaro::Uuid id = tessaro::Uuid::create();
    std::string value;
    bool operator==(const MultiItem&) const = default;
};

/// The catalogue record shown read-only beside a selection.
using DefaultViewRecord = std::variant<tessaro::Obstacle, tessaro::Character, tessaro::GenericObject>;

/// The primary properties of the selected element. Default-made, every field
/// holds its value for "nothing selected".
struct SelectedObjectModel {
    std::optional<DefaultViewRecord> defaultViewProperties;
    std::string property_objectName;
    std::string property_elementName;
    std::string displayedSize;
    tessaro::sceneObjectType type = tessaro::sceneObjectType::none;
    std::string real_Position;
    std::string image;
    tessaro::pathDirection imageDirection = tessaro::pathDirection::none;
    double zPosition = 0;
    std::string name; // the node's name: how every edit finds the node
    bool usePhysics = false;
    bool useGravity = false;
    bool isDynamic = false;
    double alpha = 0;
    std::string objectActsOn;
    std::string callbackFunction;
    std::vector<tessaro::objectClassType> objectClassType{tessaro::objectClassType::none};
    std::vector<tessaro::collisionTypes> contact;
    std::vector<tessaro::collisionTypes> category;
    std::vector<tessaro::collisionTypes> collision;
    std::vector<tessaro::groundPhysicsAngleType> groundPhysicsAngleType{tessaro::groundPhysicsAngleType::none};
    tessaro::groundBaseType groundType = tessaro::groundBaseType::Ground;
    std::string imageBottomLayer;
    tessaro::SizeValue distance;
    double timed = 0;
    std::int64_t repeatCount = 0;
    bool stacked = false;
    std::int64_t allowedTimesToHit = 1;
    std::vector<tessaro::GameSound> soundEffects;
    tessaro::GameSound effect = newSound();
    std::string effectSelected;
    tessaro::PhysicsProperty physics;
    double rotation = 0;
    bool rotateForever = false;
    double rotateDuration = 0;
    bool rotationPin = false;
    tessaro::rotationType rotateType = tessaro::rotationType::none;
    double rotateDelay = 0;
    double rotateCount = 0;
    double randomDistanceStart = 0;
    double randomDistanceEnd = 0;
    bool usePrecision = false;
    bool isVisible = false;
    bool darken = false;
    tessaro::characterClassType charClassType = tessaro::characterClassType::friendly;
    tessaro::Uuid backgroundSelectedId = tessaro::Uuid::create();
    bool pinned = false;
    tessaro::scrollOrientationType backgroundScrollOrientation = tessaro::scrollOrientationType::horizontal;
    double speed = 0;
    std::vector<PinnedRangeValue> pinnedRanges;

    // Made, copied and compared out of line, so that the records inside are
    // compiled once.
    TESSARO_RECORD_MEMBERS(SelectedObjectModel);

    /// A sound record with a new id, the one being edited before a choice.
    static tessaro::GameSound newSound();
};

/// The per-device properties of the selected element.
struct SelectedDeviceModel {
    tessaro::deviceName nameSelected = tessaro::deviceName::defaultDevice;
    std::optional<tessaro::DeviceProperties> devicesDefaultBase;
    tessaro::PointValue altPosition;
    tessaro::PointValue distance;
    tessaro::PointValue offset;
    tessaro::PointValue offsetHealthBar;
    tessaro::PointValue position;
    tessaro::SizeValue size;
    tessaro::SizeValue digitSize;
    tessaro::PointValue offsetEdge;
    double fontSize = 0;
    std::int64_t numberOfParts = 0;
    tessaro::SizeValue selectorSize;
    std::string randomPositionRange;
    std::vector<PublishedElementList> inherited;
    double aspectRatio = 0;

    bool operator==(const SelectedDeviceModel&) const = default;
};

/// The animation and cycle-end properties of the selected element.
struct SelectedAnimationModel {
    std::string animationFrequency = "none";
    std::string moveDirection = "none";
    tessaro::PointValue randomDistanceFromBase;
    bool changePhysics = false;
    bool noPhysicsFirstFrame = false;
    bool noPhysicsLastFrame = false;
    std::int64_t animationFrameStart = 0;
    bool horizontalFlip = false;
    bool verticalFlip = false;
    tessaro::PointValue velocity;
    std::string callbackFunction;
    tessaro::PointValue target_maximumRange;
    tessaro::PointValue target_near;
    tessaro::PointValue target_move;
    tessaro::PointValue target_attack;
    tessaro::PointValue target_toss;
    double target_moveSpeed = 0;
    double waitPerFrame_initial = 0;
    double waitPerFrame_idle = 0;
    double waitPerFrame_move = 0;
    double waitPerFrame_attack = 0;
    double waitPerFrame_toss = 0;
    double waitPerFrame_cycleEnd = 0;
    double delay_fade = 0;
    double delay_initial = 0;
    double delay_idle = 0;
    double delay_cycleEnd = 0;
    double delay_movement = 0;
    double delay_initialRange_lower = 0;
    double delay_initialRange_upper = 0;
    double delay_idleRange_lower = 0;
    double delay_idleRange_upper = 0;
    double delay_cycleEndRange_lower = 0;
    double delay_cycleEndRange_upper = 0;
    double delay_movementRange_lower = 0;
    double delay_movementRange_upper = 0;
    double delay_fadeRange_lower = 0;
    double delay_fadeRange_upper = 0;
    std::vector<std::string> End_List;
    std::string End_SelectedId;
    std::string End_obstacleAffected;
    bool End_fadeObstacle = false;
    std::string End_atlasName;
    std::vector<std::string> End_objectClassType;
    std::vector<std::string> End_contact;
    std::vector<std::string> End_category;
    std::vector<std::string> End_collision;
    bool End_removeFromParentAtEnd = false;
    double End_animationDuration = 0;
    double End_zPosition = 0;
    tessaro::PhysicsProperty End_physics;
    tessaro::SizeValue End_size;
    double End_aspectRatio = 0;
    std::vector<PublishedElementList> inherited;

    // Made, copied and compared out of line, so that the records inside are
    // compiled once.
    TESSARO_RECORD_MEMBERS(SelectedAnimationModel);
};

/// Level-wide values of the level properties panes.
struct SelectedLevelExtendedPropertiesModel {
    std::string id;
    tessaro::soundBiteType soundBiteType = tessaro::soundBiteType::none;
    std::string filename;
    tessaro::soundType fileExtension = tessaro::soundType::none;
    double volume = 0;
    bool waitForCompletion = false;
    std::int64_t startArtifactNumber = 0;
    std::int64_t startCoinNumber = 0;
    std::string size;
    std::string image;
    std::string repeatDistance;
    double startRepeatImage = 0;

    bool operator==(const SelectedLevelExtendedPropertiesModel&) const = default;
};

} // namespace stagewright
