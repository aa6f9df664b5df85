#include "ModelFields.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/ValueText.h>

namespace stagewright {

using P = PublishedElementList;

namespace {

template <tessaro::Enumeration E>
std::vector<std::string> names(const std::vector<E>& cases)
{
    std::vector<std::string> out;
    out.reserve(cases.size());
    for (E c : cases)
        out.emplace_back(tessaro::caseText(c));
    return out;
}

/// The cases named in `value`; names of no case are skipped.
template <tessaro::Enumeration E>
std::optional<std::vector<E>> casesOf(const PropertyValue& value)
{
    const auto list = listOf(value);
    if (!list)
        return std::nullopt;
    std::vector<E> out;
    for (const std::string& name : *list)
        if (const auto c = tessaro::caseFromText<E>(name))
            out.push_back(*c);
    return out;
}

template <tessaro::Enumeration E>
std::optional<E> caseOf(const PropertyValue& value)
{
    const auto text = textOf(value);
    return text ? tessaro::caseFromText<E>(*text) : std::nullopt;
}

// Each binding names a field once, for reading and for writing.
template <class Model, class Visit>
bool visitPrimary(Model& m, PublishedElementList element, Visit&& visit)
{
    switch (element) {
    case P::observedname: return visit(m.property_objectName);
    case P::image: return visit(m.image);
    case P::zPosition: return visit(m.zPosition);
    case P::alpha: return visit(m.alpha);
    case P::usePhysics: return visit(m.usePhysics);
    case P::useGravity: return visit(m.useGravity);
    case P::isDynamic: return visit(m.isDynamic);
    case P::darken: return visit(m.darken);
    case P::usePrecision: return visit(m.usePrecision);
    case P::isVisible: return visit(m.isVisible);
    case P::stack: return visit(m.stacked);
    case P::rotateForever: return visit(m.rotateForever);
    case P::rotationPin: return visit(m.rotationPin);
    case P::pinned: return visit(m.pinned);
    case P::objectActsOn: return visit(m.objectActsOn);
    case P::callbackFunction: return visit(m.callbackFunction);
    case P::repeatCount: return visit(m.repeatCount);
    case P::allowedTimesToHit: return visit(m.allowedTimesToHit);
    case P::timed: return visit(m.timed);
    case P::rotation: return visit(m.rotation);
    case P::rotateDuration: return visit(m.rotateDuration);
    case P::rotateDelay: return visit(m.rotateDelay);
    case P::rotateCount: return visit(m.rotateCount);
    case P::speed: return visit(m.speed);
    case P::distance: return visit(m.distance);
    case P::objectClassType: return visit(m.objectClassType);
    case P::category: return visit(m.category);
    case P::contact: return visit(m.contact);
    case P::collision: return visit(m.collision);
    case P::groundPhysicsAngleType: return visit(m.groundPhysicsAngleType);
    case P::groundType: return visit(m.groundType);
    case P::rotateType: return visit(m.rotateType);
    case P::charClassType: return visit(m.charClassType);
    case P::backgroundScrollOrientation: return visit(m.backgroundScrollOrientation);
    case P::type: return visit(m.type);
    case P::background: return visit(m.backgroundSelectedId);
    case P::physics: return visit(m.physics);
    default: return false;
    }
}

template <class Model, class Visit>
bool visitDevice(Model& m, PublishedElementList element, Visit&& visit)
{
    switch (element) {
    case P::deviceName: return visit(m.nameSelected);
    case P::position: return visit(m.position);
    case P::offset: return visit(m.offset);
    case P::offsetEdge: return visit(m.offsetEdge);
    case P::offsetHealthBar: return visit(m.offsetHealthBar);
    case P::altPosition: return visit(m.altPosition);
    case P::distance: return visit(m.distance);
    case P::size: return visit(m.size);
    case P::digitSize: return visit(m.digitSize);
    case P::selectorSize: return visit(m.selectorSize);
    case P::fontSize: return visit(m.fontSize);
    case P::numberOfParts: return visit(m.numberOfParts);
    case P::randomPositionRange: return visit(m.randomPositionRange);
    default: return false;
    }
}

template <class Model, class Visit>
bool visitAnimation(Model& m, PublishedElementList element, Visit&& visit)
{
    switch (element) {
    case P::animationFrequency: return visit(m.animationFrequency);
    case P::moveDirection: return visit(m.moveDirection);
    case P::changePhysics: return visit(m.changePhysics);
    case P::noPhysicsFirstFrame: return visit(m.noPhysicsFirstFrame);
    case P::noPhysicsLastFrame: return visit(m.noPhysicsLastFrame);
    case P::animationFrameStart: return visit(m.animationFrameStart);
    case P::horizontalFlip: return visit(m.horizontalFlip);
    case P::verticalFlip: return visit(m.verticalFlip);
    case P::velocity: return visit(m.velocity);
    case P::animationCallbackFunction: return visit(m.callbackFunction);
    case P::target_maximumRange: return visit(m.target_maximumRange);
    case P::target_near: return visit(m.target_near);
    case P::target_attack: return visit(m.target_attack);
    case P::target_move: return visit(m.target_move);
    case P::target_toss: return visit(m.target_toss);
    case P::target_moveSpeed: return visit(m.target_moveSpeed);
    case P::waitPerFrame_initial: return visit(m.waitPerFrame_initial);
    case P::waitPerFrame_idle: return visit(m.waitPerFrame_idle);
    case P::waitPerFrame_move: return visit(m.waitPerFrame_move);
    case P::waitPerFrame_attack: return visit(m.waitPerFrame_attack);
    case P::waitPerFrame_toss: return visit(m.waitPerFrame_toss);
    case P::waitPerFrame_cycleEnd: return visit(m.waitPerFrame_cycleEnd);
    case P::delay_fade: return visit(m.delay_fade);
    case P::delay_initial: return visit(m.delay_initial);
    case P::delay_idle: return visit(m.delay_idle);
    case P::delay_cycleEnd: return visit(m.delay_cycleEnd);
    case P::delay_movement: return visit(m.delay_movement);
    case P::delay_initialRange_lower: return visit(m.delay_initialRange_lower);
    case P::delay_initialRange_upper: return visit(m.delay_initialRange_upper);
    case P::delay_idleRange_lower: return visit(m.delay_idleRange_lower);
    case P::delay_idleRange_upper: return visit(m.delay_idleRange_upper);
    case P::delay_cycleEndRange_lower: return visit(m.delay_cycleEndRange_lower);
    case P::delay_cycleEndRange_upper: return visit(m.delay_cycleEndRange_upper);
    case P::delay_movementRange_lower: return visit(m.delay_movementRange_lower);
    case P::delay_movementRange_upper: return visit(m.delay_movementRange_upper);
    case P::delay_fadeRange_lower: return visit(m.delay_fadeRange_lower);
    case P::delay_fadeRange_upper: return visit(m.delay_fadeRange_upper);
    default: return false;
    }
}

template <class Model, class Visit>
bool visitCycleEnd(Model& m, PublishedElementList element, Visit&& visit)
{
    switch (element) {
    case P::End_SelectedId: return visit(m.End_SelectedId);
    case P::End_obstacleEffected: return visit(m.End_obstacleAffected);
    case P::End_fadeObstacle: return visit(m.End_fadeObstacle);
    case P::End_atlasName: return visit(m.End_atlasName);
    case P::End_objectClassType: return visit(m.End_objectClassType);
    case P::End_category: return visit(m.End_category);
    case P::End_contact: return visit(m.End_contact);
    case P::End_collision: return visit(m.End_collision);
    case P::End_removeFromParentAtEnd: return visit(m.End_removeFromParentAtEnd);
    case P::End_animationDuration: return visit(m.End_animationDuration);
    case P::End_zPosition: return visit(m.End_zPosition);
    case P::End_size: return visit(m.End_size);
    case P::End_physics: return visit(m.End_physics);
    default: return false;
    }
}

template <class Tab, class Visit>
bool visitField(Tab& tab, ModelType model, PublishedElementList element, Visit&& visit)
{
    switch (model) {
    case ModelType::Primary: return visitPrimary(tab.selectedObject(), element, visit);
    case ModelType::Devices: return visitDevice(tab.selectedDeviceObject(), element, visit);
    case ModelType::Animation: return visitAnimation(tab.selectedAnimationObject(), element, visit);
    case ModelType::AnimationCycleEnd: return visitCycleEnd(tab.selectedAnimationObject(), element, visit);
    }
    return false;
}

// ---- Reading: a field as the value a control shows -------------------------------

template <class T>
PropertyValue shown(const T& field)
{
    if constexpr (std::is_same_v<T, int> || std::is_same_v<T, std::int64_t>)
        return std::int64_t(field);
    else if constexpr (tessaro::Enumeration<T>)
        return std::string(tessaro::caseText(field));
    else if constexpr (requires { names(field); })
        return names(field);
    else
        return field;
}

// ---- Writing: a control's value into a field --------------------------------------

template <class T>
bool assign(T& field, std::optional<T> value)
{
    if (value)
        field = std::move(*value);
    return value.has_value();
}

bool store(bool& field, const PropertyValue& v)
{
    return assign(field, flagOf(v));
}
bool store(double& field, const PropertyValue& v)
{
    return assign(field, numberOf(v));
}
bool store(std::int64_t& field, const PropertyValue& v)
{
    return assign(field, integerOf(v));
}
bool store(std::string& field, const PropertyValue& v)
{
    return assign(field, textOf(v));
}
bool store(std::vector<std::string>& field, const PropertyValue& v)
{
    return assign(field, listOf(v));
}
bool store(tessaro::PointValue& field, const PropertyValue& v)
{
    return assign(field, pointOf(v));
}
bool store(tessaro::SizeValue& field, const PropertyValue& v)
{
    return assign(field, sizeOf(v));
}
template <class T>
bool store(T& field, const PropertyValue& v)
{
    if constexpr (tessaro::Enumeration<T>) {
        return assign(field, caseOf<T>(v));
    } else if constexpr (requires { names(field); }) {
        return assign(field, casesOf<typename T::value_type>(v));
    } else {
        const T* same = std::get_if<T>(&v);
        return assign(field, same ? std::optional<T>(*same) : std::nullopt);
    }
}

} // namespace

PropertyValue modelValue(const ProjectTab& tab, ModelType model, PublishedElementList element)
{
    PropertyValue out;
    visitField(tab, model, element, [&](const auto& field) {
        out = shown(field);
        return true;
    });
    return out;
}

void setModelValue(ProjectTab& tab, ModelType model, PublishedElementList element, const PropertyValue& value)
{
    visitField(tab, model, element, [&](auto& field) { return store(field, value); });
}

} // namespace stagewright
