// Every enumeration of the library, with its cases in order and their texts.
//
// A case's text in files and lists is its case name. Each enumeration is
// declared once through a case list, so the type and its texts cannot drift.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaro {

template <class E>
struct EnumCases; // specialised by TESSARO_ENUM for every enumeration

template <class E>
concept Enumeration = requires
{
    EnumCases<E>::names;
};

#define TESSARO_ENUM_CASE(name) name,
#define TESSARO_ENUM_TEXT(name) std::string_view(#name),
// The case lists keep their hand-made line breaks.
// clang-format off
#define TESSARO_ENUM(Type, LIST)                                                 \
    enum class Type { LIST(TESSARO_ENUM_CASE) };                                 \
    template <>                                                                  \
    struct EnumCases<Type> {                                                     \
        static constexpr std::string_view names[] = {LIST(TESSARO_ENUM_TEXT)};   \
    };

#define TESSARO_DEVICE_NAME(X)                                                   \
    X(none) X(defaultDevice) X(iPhone15) X(iPhone15Pro) X(iPhone15ProMax)        \
    X(iPhone15Plus) X(iPhone16) X(iPhone16e) X(iPhone16Pro) X(iPhone16ProMax)    \
    X(iPhone16Plus) X(iPhone17) X(iPhone17Pro) X(iPhone17ProMax) X(iPhoneAir)    \
    X(iPhoneSE3rdGen) X(iPad)
TESSARO_ENUM(deviceName, TESSARO_DEVICE_NAME)

#define TESSARO_COLLISION_TYPES(X)                                               \
    X(humanPlayer) X(staticObjectBody) X(staticObjectTouched)                    \
    X(staticObjectMovable) X(staticObjectBouncible) X(floor) X(none)             \
    X(objectCausesDamageAllSides) X(objectCausesDeath) X(collectibleTouched)     \
    X(enemyTouch) X(projectileThrown) X(surroundingsContact) X(objectRope)       \
    X(staticObjectSpecialHandling) X(floatingFloor) X(objectToObject)            \
    X(floorAboveGround) X(objectCausesDamageAllSidesIgnoreCollision)
TESSARO_ENUM(collisionTypes, TESSARO_COLLISION_TYPES)

#define TESSARO_SCENE_OBJECT_TYPE(X)                                             \
    X(obstacles) X(character) X(checkpoint) X(coin) X(shield) X(artifact)        \
    X(ground) X(background) X(levelEnd) X(phaseEnd) X(none)
TESSARO_ENUM(sceneObjectType, TESSARO_SCENE_OBJECT_TYPE)

#define TESSARO_OBJECT_CLASS_TYPE(X)                                             \
    X(alternateScene) X(alternateSceneLock) X(artifact1) X(artifact2)            \
    X(artifact3) X(barrel) X(barrelDamaged) X(barrier)                           \
    X(blackBouncibleFlyingBomb) X(bladePost) X(bombExplosion) X(boulderDrop)     \
    X(boulderDropStop) X(bouncingCactus) X(bouncingMushroom)                     \
    X(bouncingMushroomBrown) X(bridge) X(bucketDrop) X(cartWithWheels)           \
    X(caveCart) X(checkpoint) X(coin) X(conveyor) X(conveyorPlatform)            \
    X(crateDamaged) X(darknessEnd) X(darknessLighted) X(darknessStart)           \
    X(dropBlock) X(dropRotatingObject) X(enemyArrow) X(enemyFireball)            \
    X(enemyOneSlash) X(fallingBomb) X(fallingChandelier) X(fallingDrip)          \
    X(fallingStoneTrap) X(floatingAttackWeapon) X(floatingBomb)                  \
    X(floatIslandDisappear) X(floorAboveGround) X(floorSubstitute)               \
    X(healthBanana) X(heroArrow) X(heroFireball) X(hideOnTouch) X(hollowTree)    \
    X(keepAwayKing) X(killingBladePost) X(killingContraption) X(lever)           \
    X(mirage) X(mirageLightBeam) X(movingPlatform) X(none) X(parachuteBomb)      \
    X(pendulumSwing) X(puzzlePiece1) X(puzzlePiece2) X(puzzlePiece3)             \
    X(redBouncibleFlyingBomb) X(rope) X(rotatingBlade) X(ropePlatform)           \
    X(shield) X(shieldTimed) X(shopEncountered) X(shopEntered)                   \
    X(springboardMushroom) X(springboardMushroomRed) X(stoneSpike)               \
    X(swingingBlade) X(tntBarrel) X(tornado) X(trapDoor) X(tutorialGroundSlam)   \
    X(tutorialJump) X(tutorialRopeJump) X(tutorialSlash) X(tutorialTouched)      \
    X(winchOscillate)
TESSARO_ENUM(objectClassType, TESSARO_OBJECT_CLASS_TYPE)

#define TESSARO_ACTION_TYPE(X)                                                   \
    X(all) X(attack) X(death) X(idle) X(initial) X(move) X(none) X(toss)
TESSARO_ENUM(actionType, TESSARO_ACTION_TYPE)

#define TESSARO_ANIMATION_FREQUENCY(X)                                           \
    X(custom) X(foreverAutomatically) X(foreverResetManual) X(never) X(none)     \
    X(once)
TESSARO_ENUM(animationFrequency, TESSARO_ANIMATION_FREQUENCY)

#define TESSARO_ANIMATION_MOVE_DIRECTION(X)                                      \
    X(all) X(bothWithHorizontalFlip) X(custom) X(down) X(downLeft)               \
    X(downRight) X(gravityDrop) X(gravityDropWithCollision) X(left)              \
    X(leftRight) X(none) X(right) X(up) X(upDown) X(upLeft) X(upRight)
TESSARO_ENUM(animationMoveDirection, TESSARO_ANIMATION_MOVE_DIRECTION)

#define TESSARO_CALLBACK_TYPE(X) X(contact) X(cycleEnd) X(update)
TESSARO_ENUM(callbackType, TESSARO_CALLBACK_TYPE)

#define TESSARO_CHARACTER_CLASS_TYPE(X)                                          \
    X(alien) X(enemy) X(friendly) X(ghost) X(none)
TESSARO_ENUM(characterClassType, TESSARO_CHARACTER_CLASS_TYPE)

#define TESSARO_CHARACTER_TYPE(X)                                                \
    X(animal) X(backgroundAnimal) X(human) X(humanProjectile) X(mystic)          \
    X(mysticProjectile)
TESSARO_ENUM(characterType, TESSARO_CHARACTER_TYPE)

#define TESSARO_CLUB_ATTACHMENT(X)                                               \
    X(spikeBlock) X(spikeWithRocks) X(spikeCircle) X(spikelessRocks)             \
    X(rockWeight)
TESSARO_ENUM(clubAttachment, TESSARO_CLUB_ATTACHMENT)

#define TESSARO_CONFIG_TYPE(X)                                                   \
    X(app) X(characters) X(level) X(objects) X(obstacles)
TESSARO_ENUM(configType, TESSARO_CONFIG_TYPE)

#define TESSARO_ENEMY_STATE_TYPE(X)                                              \
    X(Attack) X(Die) X(Idle) X(Initial) X(Jump) X(Move) X(None)
TESSARO_ENUM(enemyStateType, TESSARO_ENEMY_STATE_TYPE)

#define TESSARO_EXECUTE_STATE_TYPE(X)                                            \
    X(Climb) X(Die) X(GroundSlam) X(Idle) X(IdleBlinking) X(IdleClimb)           \
    X(IdleSlashing) X(IdleThrow) X(Initial) X(Jump) X(Move) X(RunSlashing)       \
    X(RunThrow)
TESSARO_ENUM(executeStateType, TESSARO_EXECUTE_STATE_TYPE)

#define TESSARO_FIELD_LIST(X)                                                    \
    X(altPosition) X(digitSize) X(distance) X(offsetEdge) X(fontSize)            \
    X(offsetHealthBar) X(offset) X(position) X(randomPositionRange)              \
    X(selectorSize) X(size)
TESSARO_ENUM(fieldList, TESSARO_FIELD_LIST)

#define TESSARO_GROUND_BASE_TYPE(X)                                              \
    X(BrightWater) X(Ground) X(Lava) X(MuddyWater) X(None) X(Spike)              \
    X(ToxicGreen) X(Water)
TESSARO_ENUM(groundBaseType, TESSARO_GROUND_BASE_TYPE)

#define TESSARO_GROUND_PHYSICS_ANGLE_TYPE(X)                                     \
    X(additionalFloorTile) X(angle) X(angleEndRight) X(angleStartLeft)           \
    X(edgeStraightDownLeft) X(edgeStraightDownRight) X(mirage) X(none)
TESSARO_ENUM(groundPhysicsAngleType, TESSARO_GROUND_PHYSICS_ANGLE_TYPE)

#define TESSARO_IMAGE_SCALING(X) X(none) X(x1) X(x2) X(x3)
TESSARO_ENUM(imageScaling, TESSARO_IMAGE_SCALING)

#define TESSARO_IMAGE_TYPE(X) X(gif) X(jpg) X(jpeg) X(png) X(svg) X(none)
TESSARO_ENUM(imageType, TESSARO_IMAGE_TYPE)

#define TESSARO_PATH_DIRECTION(X)                                                \
    X(all) X(both) X(bothStartLeft) X(bothStartRight) X(bottom) X(down)          \
    X(downLeft) X(downRight) X(downSwipe) X(jump) X(left) X(none) X(reset)       \
    X(right) X(top) X(up) X(upDown) X(upLeft) X(upRight) X(upSwipe)
TESSARO_ENUM(pathDirection, TESSARO_PATH_DIRECTION)

#define TESSARO_PROJECTILE_TYPE(X)                                               \
    X(arrow) X(bullet) X(fireBall) X(laser) X(light) X(none) X(ray) X(spell)     \
    X(water)
TESSARO_ENUM(projectileType, TESSARO_PROJECTILE_TYPE)

#define TESSARO_ROTATION_TYPE(X)                                                 \
    X(clockwise) X(counterClockwise) X(pendulum) X(none)
TESSARO_ENUM(rotationType, TESSARO_ROTATION_TYPE)

#define TESSARO_SCENE_ORIENTATION_TYPE(X) X(portrait) X(landscape)
TESSARO_ENUM(sceneOrientationType, TESSARO_SCENE_ORIENTATION_TYPE)

#define TESSARO_SCROLL_ORIENTATION_TYPE(X) X(both) X(horizontal) X(vertical)
TESSARO_ENUM(scrollOrientationType, TESSARO_SCROLL_ORIENTATION_TYPE)

#define TESSARO_SIBLING_TYPE(X) X(child) X(none) X(parent)
TESSARO_ENUM(siblingType, TESSARO_SIBLING_TYPE)

#define TESSARO_SOUND_BITE_TYPE(X)                                               \
    X(constant) X(attack) X(die) X(touch) X(background) X(onDemand) X(other)     \
    X(turnPage) X(menuButtonTouched) X(optionSliderValueChanged) X(none)
TESSARO_ENUM(soundBiteType, TESSARO_SOUND_BITE_TYPE)

#define TESSARO_SOUND_TYPE(X)                                                    \
    X(aac) X(ac3) X(adts) X(aiff) X(au) X(avi) X(caf) X(mp3) X(mp4) X(m4a)       \
    X(sd2) X(snd) X(wav) X(none)
TESSARO_ENUM(soundType, TESSARO_SOUND_TYPE)

#define TESSARO_TYPE_LIST(X)                                                     \
    X(deviceNameType) X(groundPhysicsAngleType) X(objectClassType)               \
    X(collisionType) X(actionType)
TESSARO_ENUM(typeList, TESSARO_TYPE_LIST)

#define TESSARO_WINDOW_ITEM_TYPE(X)                                              \
    X(artifact) X(artifactCount) X(coin) X(coinCount) X(description) X(map)      \
    X(other) X(replay) X(time) X(timeCount) X(title) X(window)
TESSARO_ENUM(windowItemType, TESSARO_WINDOW_ITEM_TYPE)

#define TESSARO_DEBUG_OPTION(X)                                                  \
    X(none) X(showsFPS) X(showsDrawCount) X(showsFields) X(showsNodeCount)       \
    X(showsQuadCount) X(showsPhysics)
// clang-format on
TESSARO_ENUM(DebugOption, TESSARO_DEBUG_OPTION)

// ---- Generic access -------------------------------------------------------

template <Enumeration E>
inline constexpr std::size_t caseCount = std::size(EnumCases<E>::names);

/// The case name of `value`, the text that files and lists hold.
template <Enumeration E>
constexpr std::string_view caseText(E value)
{
    return EnumCases<E>::names[static_cast<std::size_t>(value)];
}

/// The first case whose name equals `text` exactly (no trimming, case-sensitive).
template <Enumeration E>
constexpr std::optional<E> caseFromText(std::string_view text)
{
    for (std::size_t i = 0; i < caseCount<E>; ++i)
        if (EnumCases<E>::names[i] == text)
            return static_cast<E>(i);
    return std::nullopt;
}

/// Every case in declaration order.
template <Enumeration E>
constexpr std::array<E, caseCount<E>> allCases()
{
    std::array<E, caseCount<E>> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i)
        cases[i] = static_cast<E>(i);
    return cases;
}

// ---- Texts and values beside the case names -------------------------------

struct DeviceSize {
    double width;
    double height;
};

/// The raw text of a device, used only to test two devices for equality.
std::string_view deviceRawText(deviceName device);
/// "iPhone 15 Pro", "Default Device", ...
std::string_view deviceTitle(deviceName device);
/// The landscape scene size of a device.
DeviceSize deviceSize(deviceName device);

/// The bit of a physics category; a mask is the union of its members' bits.
constexpr std::uint32_t collisionBit(collisionTypes type)
{
    return std::uint32_t{1} << static_cast<unsigned>(type);
}

/// Folder of this kind under the workspace's image folder ("Obstacles", ...).
std::string_view imageFolderName(sceneObjectType type);
/// Title of the object picker's tab for this kind.
std::string_view pickerTabTitle(sceneObjectType type);
/// Symbol name of the picker tab; empty for `none`.
std::string_view pickerTabSymbol(sceneObjectType type);

/// "Portrait" or "Landscape".
std::string_view sceneOrientationTitle(sceneOrientationType orientation);

} // namespace tessaro
