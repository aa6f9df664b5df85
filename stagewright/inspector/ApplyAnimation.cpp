// The animation pane's edits and the cycle-end pane's, for obstacles and
// characters. Both work on the element's animation override record, which is
// made when the element has none; a character's target distances go into its
// own record.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "PropertyRules.h"
#include "SelectionPublishing.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;
using tessaro::sceneObjectType;

namespace {

/// The selected obstacle or character, whose animation the panes edit; null
/// for other kinds and without a selection.
ElementNodePtr animatedNode(SceneEditor& scene)
{
    ProjectTab* tab = editedTab(scene);
    if (!tab)
        return nullptr;
    const sceneObjectType kind = tab->selectedObject().type;
    if (kind != sceneObjectType::obstacles && kind != sceneObjectType::character)
        return nullptr;
    return editedNode(scene);
}

/// The node's animation record, made when it has none.
tessaro::AnimationProperty& animationOf(ElementNode& node)
{
    if (!node.animationOverrides)
        node.animationOverrides.emplace();
    return *node.animationOverrides;
}

bool isTargetDistance(PublishedElementList element)
{
    switch (element) {
    case P::target_maximumRange:
    case P::target_near:
    case P::target_attack:
    case P::target_move:
    case P::target_toss:
    case P::target_moveSpeed: return true;
    default: return false;
    }
}

/// A target distance goes into the character's own record, which is made
/// when it has none.
void storeTargetDistance(ElementNode& node, PublishedElementList element, const PropertyValue& value)
{
    if (!node.characterOverrides)
        return;
    auto& distances = node.characterOverrides->targetDistances;
    if (!distances)
        distances = tessaro::TargetDistances{};
    const tessaro::PointValue point = pointOf(value).value_or(tessaro::PointValue{});
    const std::string text = tessaro::textFromPair(point.x, point.y);
    switch (element) {
    case P::target_maximumRange: distances->maximumRange = text; break;
    case P::target_near: distances->near = text; break;
    case P::target_attack: distances->attack = text; break;
    case P::target_move: distances->move = text; break;
    case P::target_toss: distances->toss = text; break;
    case P::target_moveSpeed: distances->moveSpeed = numberOf(value).value_or(0); break;
    default: break;
    }
}

/// A sub-record of the animation, made when missing so the value is kept.
template <class T>
T& part(tessaro::boxed<T>& record)
{
    if (!record)
        record = T{};
    return *record;
}

/// Stores one bound of a range text, the other bound as it was.
void setBound(std::optional<std::string>& text, bool lower, double value)
{
    tessaro::RangeValue range = tessaro::rangeFromText(text.value_or(std::string()));
    (lower ? range.lower : range.upper) = value;
    text = tessaro::textFromRange(range);
}

std::string idText(const tessaro::CycleEndProperties& entry)
{
    return entry.id ? entry.id->text() : std::string();
}

void listCycleEnds(SelectedAnimationModel& model, const std::vector<tessaro::CycleEndProperties>& entries)
{
    model.End_List.clear();
    for (const tessaro::CycleEndProperties& entry : entries)
        model.End_List.push_back(idText(entry));
}

} // namespace

void applyAnimationProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value)
{
    // A row without a field leaves the record as it is: no empty animation
    // record is added to the file for it.
    const ElementNodePtr node = animatedNode(scene);
    if (!node || !animationRowStores(element, node->kind()))
        return;
    if (isTargetDistance(element)) {
        storeTargetDistance(*node, element, value);
        return;
    }
    tessaro::AnimationProperty* animation = &animationOf(*node);
    const double number = numberOf(value).value_or(0);
    const bool flag = flagOf(value).value_or(false);
    auto& wait = animation->waitPerAnimationFrame;
    auto& delays = animation->delays;

    switch (element) {
    case P::animationFrequency: animation->frequency = textOf(value).value_or("none"); break;
    case P::moveDirection: animation->moveDirection = textOf(value).value_or("none"); break;
    case P::changePhysics: animation->changePhysics = flag; break;
    case P::noPhysicsFirstFrame: animation->noPhysicsFirstFrame = flag; break;
    case P::noPhysicsLastFrame: animation->noPhysicsLastFrame = flag; break;
    case P::horizontalFlip: animation->horizontalFlip = flag; break;
    case P::verticalFlip: animation->verticalFlip = flag; break;
    case P::animationFrameStart: animation->animationFrameStart = integerOf(value).value_or(0); break;
    case P::velocity: {
        const tessaro::PointValue velocity = pointOf(value).value_or(tessaro::PointValue{});
        animation->velocity = tessaro::textFromPair(velocity.x, velocity.y);
        break;
    }
    case P::waitPerFrame_initial: part(wait).initial = number; break;
    case P::waitPerFrame_idle: part(wait).idle = number; break;
    case P::waitPerFrame_move: part(wait).move = number; break;
    case P::waitPerFrame_attack: part(wait).attack = number; break;
    case P::waitPerFrame_toss: part(wait).toss = number; break;
    case P::waitPerFrame_cycleEnd: part(wait).cycleEnd = number; break;
    case P::delay_fade: part(delays).fade = number; break;
    case P::delay_initial: part(delays).initial = number; break;
    case P::delay_idle: part(delays).idle = number; break;
    case P::delay_cycleEnd: part(delays).cycleEnd = number; break;
    case P::delay_movement: part(delays).movement = number; break;
    case P::delay_initialRange_lower: setBound(part(delays).initialRange, true, number); break;
    case P::delay_initialRange_upper: setBound(part(delays).initialRange, false, number); break;
    case P::delay_idleRange_lower: setBound(part(delays).idleRange, true, number); break;
    case P::delay_idleRange_upper: setBound(part(delays).idleRange, false, number); break;
    case P::delay_cycleEndRange_lower: setBound(part(delays).cycleEndRange, true, number); break;
    case P::delay_cycleEndRange_upper: setBound(part(delays).cycleEndRange, false, number); break;
    case P::delay_movementRange_lower: setBound(part(delays).movementRange, true, number); break;
    case P::delay_movementRange_upper: setBound(part(delays).movementRange, false, number); break;
    case P::delay_fadeRange_lower: setBound(part(delays).fadeRange, true, number); break;
    case P::delay_fadeRange_upper: setBound(part(delays).fadeRange, false, number); break;
    default: break;
    }
}

void applyCycleEndProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value)
{
    const ElementNodePtr node = animatedNode(scene);
    if (!node)
        return;
    ProjectTab& tab = *scene.tab();
    SelectedAnimationModel& model = tab.selectedAnimationObject();

    if (element == P::End_list_add) {
        auto& entries = animationOf(*node).cycleEndProperties;
        if (!entries)
            entries.emplace();
        tessaro::CycleEndProperties entry;
        entry.id = tessaro::Uuid::create();
        entry.atlasName = "";
        tessaro::DeviceProperties sized;
        sized.deviceName = std::string(tessaro::caseText(tessaro::deviceName::defaultDevice));
        sized.size = "{0,0}";
        entry.devices = std::vector<tessaro::DeviceProperties>{sized};
        entries->push_back(entry);
        listCycleEnds(model, *entries);
        model.End_SelectedId = entry.id->text();
        tab.notifySelectedAnimationObjectChanged();
        return;
    }
    if (!node->animationOverrides || !node->animationOverrides->cycleEndProperties)
        return;
    auto& entries = node->animationOverrides->cycleEndProperties;
    if (element == P::End_list_delete) {
        std::erase_if(*entries, [&](const auto& entry) { return idText(entry) == model.End_SelectedId; });
        listCycleEnds(model, *entries);
        model.End_SelectedId = entries->empty() ? std::string() : idText(entries->front());
        tab.notifySelectedAnimationObjectChanged();
        return;
    }
    if (element == P::End_SelectedId) {
        const std::string id = textOf(value).value_or(std::string());
        for (const tessaro::CycleEndProperties& entry : *entries)
            if (idText(entry) == id) {
                showCycleEnd(model, entry);
                tab.notifySelectedAnimationObjectChanged();
                break;
            }
        return;
    }

    const auto selected = std::find_if(entries->begin(), entries->end(),
                                       [&](const auto& entry) { return idText(entry) == model.End_SelectedId; });
    if (selected == entries->end())
        return;
    tessaro::CycleEndProperties& entry = *selected;
    const std::string joined = tessaro::textFromNames(listOf(value).value_or(std::vector<std::string>{}));
    switch (element) {
    case P::End_obstacleEffected: entry.obstacleAffected = textOf(value).value_or(std::string()); break;
    case P::End_fadeObstacle: entry.fadeObstacle = flagOf(value).value_or(false); break;
    case P::End_atlasName: entry.atlasName = textOf(value).value_or(std::string()); break;
    case P::End_objectClassType: entry.objectClassType = joined; break;
    case P::End_category: part(entry.collisionMasks).category = joined; break;
    case P::End_contact: part(entry.collisionMasks).contact = joined; break;
    case P::End_collision: part(entry.collisionMasks).collision = joined; break;
    case P::End_removeFromParentAtEnd: entry.removeFromParentAtEnd = flagOf(value).value_or(false); break;
    case P::End_animationDuration: entry.animationDuration = numberOf(value).value_or(0); break;
    case P::End_zPosition: entry.zPosition = numberOf(value).value_or(0); break;
    case P::End_physics:
        // The physics editor's shapes for the entry's animation.
        if (const auto* physics = std::get_if<tessaro::PhysicsProperty>(&value)) {
            entry.physics = *physics;
            model.End_physics = *physics;
        }
        break;
    case P::End_size: {
        const tessaro::SizeValue size = sizeOf(value).value_or(tessaro::SizeValue{});
        if (!entry.devices)
            entry.devices.emplace();
        tessaro::DeviceProperties* sized = tessaro::deviceEntryFor(*entry.devices, tessaro::deviceName::defaultDevice);
        if (!sized) {
            sized = &entry.devices->emplace_back();
            sized->deviceName = std::string(tessaro::caseText(tessaro::deviceName::defaultDevice));
        }
        sized->size = tessaro::textFromPair(size.width, size.height);
        break;
    }
    default: break;
    }
}

} // namespace stagewright
