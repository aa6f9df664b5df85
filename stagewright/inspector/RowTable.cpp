#include "RowTable.h"

#include "PropertyRules.h"

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;
using K = tessaro::sceneObjectType;
using C = RowControl;

namespace {

RowEntry floatRow(P property, const char* label, double lower, double upper, double step, int places, const char* help)
{
    return {property, label, C::Float, help, lower, upper, step, places};
}

RowEntry intRow(P property, const char* label, double lower, double upper, const char* help)
{
    return {property, label, C::Int, help, lower, upper, 1, 0};
}

RowEntry pickRow(P property, const char* label, PickerType picker, const char* help)
{
    RowEntry row{property, label, C::Picker, help};
    row.picker = picker;
    return row;
}

RowEntry multiRow(P property, const char* label, PickerType picker, const char* help)
{
    RowEntry row{property, label, C::MultiPicker, help};
    row.picker = picker;
    return row;
}

RowEntry textRow(P property, const char* label, const char* placeholder, const char* help)
{
    RowEntry row{property, label, C::Text, help};
    row.placeholder = placeholder;
    return row;
}

RowEntry rangeRow(P lower, P upper, const char* label, const char* help)
{
    RowEntry row{lower, label, C::Range, help, 0, 10000, 0.5};
    row.propertyUpper = upper;
    return row;
}

// The delay, wait and target rows share their limits.
RowEntry timeRow(P property, const char* label, const char* help)
{
    return floatRow(property, label, 0, 10000, 0.5, 1, help);
}

} // namespace

const std::vector<SectionEntry>& primarySections()
{
    static const std::vector<SectionEntry> sections{
        {"Common properties",
         {},
         {textRow(P::observedname, "Name", "objectName", "The name under which the game's code finds the element."),
          {P::isVisible, "Is visible?", C::Toggle, "A hidden element is kept in the level but not drawn."},
          {P::image, "Image", C::Image, "The picture of the element, from the folder of its kind."},
          pickRow(P::charClassType, "Character Class Type", PickerType::CharClassType,
                  "Friendly characters help the player; enemies attack."),
          multiRow(P::objectClassType, "Class Type (object)", PickerType::objectClassTypeList,
                   "The classes the game's code uses to tell elements apart."),
          floatRow(P::zPosition, "zPosition", -500, 100000, 1, 1, "Higher values are drawn in front."),
          intRow(P::allowedTimesToHit, "Allowed times to hit", 0, 1000, "Hits the element takes before it breaks."),
          floatRow(P::alpha, "Alpha", 0, 1, 0.05, 2, "0 is transparent, 1 opaque.")}},
        {"Physics based properties",
         {},
         {{P::usePhysics, "Use physics", C::Toggle, "The element gets a physics body in the game."},
          {P::useGravity, "Affected by gravity", C::Toggle, "Gravity pulls the element down."},
          multiRow(P::category, "Category", PickerType::Category, "The collision groups the element belongs to."),
          multiRow(P::collision, "Collision", PickerType::CollisionTypes, "The groups the element bounces off."),
          multiRow(P::contact, "Contact", PickerType::Contact, "The groups whose touch the game is told of."),
          {P::isDynamic, "Is dynamic", C::Toggle, "Forces and collisions move the element."},
          {P::usePrecision, "Use precision", C::Toggle, "Fast bodies are tested for collisions between frames."}}},
        {"Obstacle properties",
         {K::obstacles},
         {textRow(P::callbackFunction, "Callback function", "callbackFunction",
                  "The function of the game that runs on a contact."),
          textRow(P::objectActsOn, "Object acts on", "objectActsOn", "The element this one acts upon."),
          {P::darken, "Darken?", C::Toggle, "Draws the obstacle darker."}}},
        {"Repeatable properties",
         {K::obstacles},
         {intRow(P::repeatCount, "Repeat count", 0, 100, "Copies of the obstacle laid side by side."),
          {P::stack, "Stack", C::Toggle, "Lays the copies on top of each other instead."}}},
        {"Rotation properties",
         {K::obstacles},
         {floatRow(P::rotation, "Rotation", -360, 360, 1, 1, "The angle in degrees."),
          {P::rotateForever, "Rotate Forever?", C::Toggle, "The obstacle keeps turning."},
          floatRow(P::rotateDuration, "Duration of rotation", 0, 10000, 1, 1, "Seconds for one turn."),
          {P::rotationPin, "Pin Rotation?", C::Toggle, "The obstacle turns round a pin at its centre."},
          pickRow(P::rotateType, "Rotation Type", PickerType::RotationTypes, "How the obstacle turns.")}},
        {"Character Properties", {K::character}, {}},
        {"Coin properties",
         {K::coin},
         {intRow(P::repeatCount, "Repeat count", 0, 1000, "Coins laid in a row."),
          {P::stack, "Stack", C::Toggle, "Stacks the coins instead."}}},
        {"Shield properties",
         {K::shield},
         {floatRow(P::timed, "Timed", 0, 100, 1, 1, "Seconds the shield protects the player.")}},
        {"Artifact properties",
         {K::artifact},
         {{P::elementName, "elementName", C::Label, "The catalogue entry of the artifact."}}},
        {"Ground properties",
         {K::ground},
         {pickRow(P::groundType, "Ground type", PickerType::GroundType, "The kind of ground section."),
          {P::stack, "Stack", C::Toggle, "Stacks the section's copies."},
          {P::distance, "Distance", C::Size, "The gap before the section."},
          intRow(P::repeatCount, "Repeat count", 0, 100, "Copies of the section laid in a row."),
          multiRow(P::groundPhysicsAngleType, "groundPhysicsAngleType", PickerType::GroundAngleList,
                   "The slopes of the section's physics edge.")}},
    };
    return sections;
}

const std::vector<SectionEntry>& animationSections()
{
    static const std::vector<SectionEntry> sections{
        {"Frequency properties",
         {},
         {pickRow(P::animationFrequency, "Frequency", PickerType::AnimationFrequency, "How often the animation runs."),
          intRow(P::animationFrameStart, "Animation frame start", 0, 1000, "The frame the animation starts at.")}},
        {"Speed properties",
         {},
         {{P::velocity, "Velocity", C::Vector, "Points per second the element moves."},
          pickRow(P::moveDirection, "Move direction", PickerType::AnimationMoveDirection, "Where the element moves.")}},
        {"Duration properties",
         {},
         {{P::horizontalFlip, "Horizontal flip", C::Toggle, "Mirrors the frames left to right."},
          {P::verticalFlip, "Vertical flip", C::Toggle, "Mirrors the frames top to bottom."}}},
        {"Physics properties",
         {},
         {{P::changePhysics, "Change physics", C::Toggle, "Each frame brings its own physics shape."},
          {P::noPhysicsFirstFrame, "No physics first frame", C::Toggle, "The first frame has no body."},
          {P::noPhysicsLastFrame, "No physics last frame", C::Toggle, "The last frame has no body."}}},
        {"Delay properties",
         {},
         {timeRow(P::delay_fade, "Fade", "Seconds before fading."),
          timeRow(P::delay_initial, "Initial", "Seconds before the first animation."),
          timeRow(P::delay_idle, "Idle", "Seconds between idle animations."),
          timeRow(P::delay_cycleEnd, "Cycle end", "Seconds before the cycle end."),
          timeRow(P::delay_movement, "Movement", "Seconds between moves."),
          rangeRow(P::delay_initialRange_lower, P::delay_initialRange_upper, "Initial range",
                   "A random initial delay between the two bounds."),
          rangeRow(P::delay_idleRange_lower, P::delay_idleRange_upper, "Idle range",
                   "A random idle delay between the two bounds."),
          rangeRow(P::delay_cycleEndRange_lower, P::delay_cycleEndRange_upper, "Cycle end range",
                   "A random cycle-end delay between the two bounds."),
          rangeRow(P::delay_movementRange_lower, P::delay_movementRange_upper, "Movement range",
                   "A random movement delay between the two bounds."),
          rangeRow(P::delay_fadeRange_lower, P::delay_fadeRange_upper, "Fade range",
                   "A random fade delay between the two bounds.")}},
        {"Wait per frame properties",
         {},
         {timeRow(P::waitPerFrame_initial, "Initial", "Seconds each frame of the first animation shows."),
          timeRow(P::waitPerFrame_idle, "Idle", "Seconds each idle frame shows."),
          timeRow(P::waitPerFrame_move, "Movement", "Seconds each moving frame shows."),
          timeRow(P::waitPerFrame_attack, "Attack", "Seconds each attack frame shows."),
          timeRow(P::waitPerFrame_toss, "Toss", "Seconds each toss frame shows."),
          timeRow(P::waitPerFrame_cycleEnd, "Cycle end", "Seconds each cycle-end frame shows.")}},
        {"Target distance properties",
         {},
         {{P::target_maximumRange, "Maximum range", C::Point, "Farther targets are ignored.", 0, 10000, 0.5},
          {P::target_near, "Near", C::Point, "A target this close is near.", 0, 10000, 0.5},
          {P::target_attack, "Attack", C::Point, "Attacks start at this distance.", 0, 10000, 0.5},
          {P::target_move, "Move", C::Point, "Moves start at this distance.", 0, 10000, 0.5},
          {P::target_toss, "Toss", C::Point, "Tosses start at this distance.", 0, 10000, 0.5},
          timeRow(P::target_moveSpeed, "Move speed", "Points per second toward a target.")}},
        {"Other properties",
         {},
         {textRow(P::animationCallbackFunction, "Callback function", "callbackFunction",
                  "The function of the game that runs when the animation ends.")}},
    };
    return sections;
}

const std::vector<RowEntry>& cycleEndRows()
{
    static const std::vector<RowEntry> rows{
        {P::End_atlasName, "Image", C::Image, "The pictures of the cycle end."},
        floatRow(P::End_animationDuration, "Animation duration", 0, 10000, 0.5, 1, "Seconds the cycle end lasts."),
        {P::End_size, "Size", C::Size, "The size of the cycle end's pictures."},
        multiRow(P::End_category, "Category", PickerType::Category, "The collision groups at the cycle end."),
        multiRow(P::End_collision, "Collision", PickerType::CollisionTypes, "The groups bounced off at the end."),
        multiRow(P::End_contact, "Contact", PickerType::Contact, "The groups whose touch is reported."),
        {P::End_fadeObstacle, "Fade obstacle", C::Toggle, "The obstacle fades out at the end."},
        multiRow(P::End_objectClassType, "Class Type (object)", PickerType::objectClassTypeList,
                 "The classes at the cycle end."),
        textRow(P::End_obstacleEffected, "Obstacle effected", "obstacleEffected", "The obstacle the end acts on."),
        {P::End_removeFromParentAtEnd, "Remove from parent at end", C::Toggle, "The element leaves the level."},
        floatRow(P::End_zPosition, "zPosition", -1000000, 10000000, 1, 1, "Drawing order at the end."),
    };
    return rows;
}

RowEntry boundTo(RowEntry row, const char* field, PropertyValue absent, PropertyValue fallback)
{
    row.field = field;
    row.absent = std::move(absent);
    row.fallback = std::move(fallback);
    return row;
}

const std::vector<RowEntry>& backgroundRows()
{
    static const std::vector<RowEntry> rows{
        boundTo({P::image, "Image", C::Image, "The picture of the background."}, "image", std::string(), std::string()),
        boundTo({P::isVisible, "isVisible", C::Toggle, "A hidden background is kept but not drawn."}, "isVisible", true,
                false),
        boundTo(pickRow(P::backgroundScrollOrientation, "Scroll Orientation", PickerType::ScrollOrientation,
                        "The direction the background scrolls in."),
                "scrollOrientation", std::string("horizontal"), {}),
        boundTo({P::pinned, "Pinned", C::Toggle, "A pinned background stays put within its ranges."}, "pinned", false,
                false),
        boundTo(floatRow(P::speed, "Speed", 0, greatest, 1, 1, "How fast the background scrolls."), "speed", 0.0, 1.0),
        boundTo(floatRow(P::zPosition, "zPosition", 0, greatest, 1, 1, "Higher values are drawn in front."),
                "zPosition", 1.0, 1.0),
    };
    return rows;
}

RowEntry deviceRow(PublishedElementList field, const char* label)
{
    switch (field) {
    case P::size: {
        RowEntry row{field, label, C::Size, "The size on the device."};
        row.aspectToggle = true;
        return row;
    }
    case P::digitSize:
    case P::selectorSize: return {field, label, C::Size, "A size on the device."};
    case P::fontSize: return floatRow(field, label, 0, greatest, 1, 1, "The size of the text on the device.");
    case P::numberOfParts: return intRow(field, label, 0, 1000, "The parts the element is cut into.");
    case P::randomPositionRange:
        return {field,    label, C::PointRange, "The element starts at a random point within these bounds.", -greatest,
                greatest, 1};
    default: return {field, label, C::Point, "A point on the device.", 0, greatest, 1};
    }
}

bool sectionApplies(const SectionEntry& section, tessaro::sceneObjectType kind)
{
    if (section.kinds.empty())
        return kind != K::background;
    return std::find(section.kinds.begin(), section.kinds.end(), kind) != section.kinds.end();
}

std::vector<RowEntry> rowsFor(const SectionEntry& section, tessaro::sceneObjectType kind)
{
    std::vector<RowEntry> rows;
    // Only the element's own rows depend on its kind; the animation rows do not.
    for (const RowEntry& row : section.rows)
        if (row.property > P::charClassType || propertyApplies(row.property, kind))
            rows.push_back(row);
    return rows;
}

} // namespace stagewright
