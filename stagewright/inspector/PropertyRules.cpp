#include "PropertyRules.h"

#include <tessaro/model/ElementRecords.h>

#include <algorithm>
#include <initializer_list>

namespace stagewright {

using P = PublishedElementList;
using tessaro::sceneObjectType;

namespace {

bool among(sceneObjectType kind, std::initializer_list<sceneObjectType> kinds)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

} // namespace

bool animationRowStores(PublishedElementList property, sceneObjectType kind)
{
    switch (property) {
    case P::target_maximumRange:
    case P::target_near:
    case P::target_attack:
    case P::target_move:
    case P::target_toss:
    case P::target_moveSpeed: return kind == sceneObjectType::character;
    case P::animationCallbackFunction:
    case P::fadeTimeLengthRangeLower:
    case P::fadeTimeLengthRangeUpper:
    case P::resetPositionOnContact: return false;
    default: return true;
    }
}

bool propertyApplies(PublishedElementList property, sceneObjectType kind)
{
    using K = sceneObjectType;
    switch (property) {
    case P::position:
    case P::size:
    case P::offset:
    case P::elementName:
    case P::zPosition:
    case P::observedname:
    case P::image:
    case P::sound:
    case P::randomPositionRange:
    case P::isVisible: return true;
    case P::type:
    case P::usePhysics:
    case P::alpha:
    case P::darken:
    case P::objectActsOn:
    case P::callbackFunction:
    case P::numberOfParts:
    case P::rotation:
    case P::rotateForever:
    case P::rotateDuration:
    case P::rotationPin:
    case P::rotateType:
    case P::rotateDelay:
    case P::rotateCount: return kind == K::obstacles;
    case P::isDynamic:
    case P::category:
    case P::contact:
    case P::collision:
    case P::usePrecision:
    case P::allowedTimesToHit:
    case P::offsetHealthBar: return among(kind, {K::obstacles, K::character});
    case P::useGravity: return among(kind, {K::obstacles, K::character, K::coin});
    case P::repeatCount:
    case P::stack: return among(kind, {K::obstacles, K::coin, K::ground});
    case P::distance: return among(kind, {K::obstacles, K::character, K::ground});
    case P::objectClassType: return among(kind, {K::obstacles, K::character, K::artifact, K::ground});
    case P::pinned: return among(kind, {K::obstacles, K::background});
    case P::offsetEdge:
    case P::groundType:
    case P::groundPhysicsAngleType: return kind == K::ground;
    case P::background:
    case P::speed: return kind == K::background;
    case P::timed: return kind == K::shield;
    case P::charClassType: return kind == K::character;
    case P::deviceName: return kind != K::background;
    default: return false; // the cases without a row, and the animation panes' own
    }
}

std::string baseFieldText(BaseField field, const std::optional<DefaultViewRecord>& record)
{
    if (!record)
        return {};
    return std::visit(
        [field](const auto& base) -> std::string {
            const auto mask = [&](std::optional<std::string> tessaro::CollisionDetection::*member) {
                return base.collisionMasks ? ((*base.collisionMasks).*member).value_or(std::string()) : std::string();
            };
            switch (field) {
            case BaseField::elementName: return base.elementName.value_or(std::string());
            case BaseField::objectClassType: return base.objectClassType.value_or(std::string());
            case BaseField::contact: return mask(&tessaro::CollisionDetection::contact);
            case BaseField::category: return mask(&tessaro::CollisionDetection::category);
            case BaseField::collision: return mask(&tessaro::CollisionDetection::collision);
            }
            return {};
        },
        *record);
}

const std::vector<DeviceFieldRow>& deviceFieldRows()
{
    static const std::vector<DeviceFieldRow> rows{
        {P::altPosition, "Carousel position", "{0,0}"},
        {P::digitSize, "Digit size", "{0,0}"},
        {P::distance, "Distance", "{0,0}"},
        {P::fontSize, "Font size", "0"},
        {P::numberOfParts, "Number of parts", std::nullopt},
        {P::offset, "Offset", "{0,0}"},
        {P::offsetEdge, "Offset edge", "{0,0}"},
        {P::offsetHealthBar, "Offset health bar", "{0,0}"},
        {P::position, "Position", "{0,0}"},
        {P::randomPositionRange, "Random Position Range", "{<0...0>,<0...0>}"},
        {P::selectorSize, "Selector size", "{0,0}"},
        {P::size, "Size", "{0,0}"},
    };
    return rows;
}

std::vector<PublishedElementList> definedDeviceFields(const tessaro::DeviceProperties* entry)
{
    std::vector<PublishedElementList> fields;
    if (!entry)
        return fields;
    const auto note = [&](bool has, PublishedElementList field) {
        if (has)
            fields.push_back(field);
    };
    note(entry->altPosition.has_value(), P::altPosition);
    note(entry->distance.has_value(), P::distance);
    note(entry->offset.has_value(), P::offset);
    note(entry->position.has_value(), P::position);
    note(entry->randomPositionRange.has_value(), P::randomPositionRange);
    note(entry->offsetEdge.has_value(), P::offsetEdge);
    note(entry->fontSize.has_value(), P::fontSize);
    note(entry->offsetHealthBar.has_value(), P::offsetHealthBar);
    note(entry->size.has_value(), P::size);
    note(entry->selectorSize.has_value(), P::selectorSize);
    note(entry->digitSize.has_value(), P::digitSize);
    return fields;
}

const char* addOverrideLabel(tessaro::deviceName shown)
{
    return shown == tessaro::deviceName::defaultDevice ? "Add" : "Add as override";
}

const char* removeOverrideLabel(tessaro::deviceName shown)
{
    return shown == tessaro::deviceName::defaultDevice ? "Delete" : "Delete override";
}

} // namespace stagewright
