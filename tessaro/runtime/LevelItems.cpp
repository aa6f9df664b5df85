#include "LevelItems.h"

#include <tessaro/model/Fields.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace tessaro {

namespace {

template <class R>
const R* findByName(const std::vector<R>& catalogue, const std::string& name)
{
    for (const R& record : catalogue)
        if (record.elementName == name)
            return &record;
    return nullptr;
}

/// Every optional field `override` has replaces the one of `base`.
template <Record R>
void overlay(R& base, const R& override)
{
    forEachField<R>([&](const auto& field) {
        using Member = std::remove_cvref_t<decltype(base.*field.member)>;
        if constexpr (isOptionalMember<Member>) {
            if ((override.*field.member).has_value())
                base.*field.member = override.*field.member;
        }
    });
}

} // namespace

const Obstacle* findObstacle(const std::vector<Obstacle>& catalogue, const std::string& name)
{
    return findByName(catalogue, name);
}

const Character* findCharacter(const std::vector<Character>& catalogue, const std::string& name)
{
    return findByName(catalogue, name);
}

const GenericObject* findObject(const std::vector<GenericObject>& catalogue, const std::string& name,
                                sceneObjectType kind)
{
    for (const GenericObject& record : catalogue)
        if (record.elementName == name && record.sceneObjectType == caseText(kind))
            return &record;
    return nullptr;
}

std::vector<DeviceProperties> mergedDevices(const std::vector<DeviceProperties>& item,
                                            const std::vector<DeviceProperties>& catalogue)
{
    std::vector<DeviceProperties> merged = catalogue;
    for (const DeviceProperties& entry : item) {
        auto same = std::find_if(merged.begin(), merged.end(),
                                 [&](const DeviceProperties& m) { return m.deviceName == entry.deviceName; });
        if (same == merged.end())
            merged.push_back(entry);
        else {
            const auto templateSize = same->size;
            overlay(*same, entry);
            // A size of (0,0) means "not set" to the designer.
            if (entry.size && sizeFromText(*entry.size) == SizeValue{})
                same->size = templateSize;
        }
    }
    return merged;
}

Obstacle mergedObstacle(const ObstacleLevelItem& item, const Obstacle& catalogue)
{
    Obstacle merged = catalogue;
    if (item.properties) {
        overlay(merged, *item.properties);
        // The item's animation says what differs from the template's: the
        // shapes of its frames alone, say, keep the template's timing.
        if (catalogue.animation && item.properties->animation) {
            AnimationProperty animation = *catalogue.animation;
            overlay(animation, *item.properties->animation);
            merged.animation = std::move(animation);
        }
        if (item.properties->devices)
            merged.devices =
                mergedDevices(*item.properties->devices, catalogue.devices.value_or(std::vector<DeviceProperties>{}));
    }
    if (!item.name.empty())
        merged.name = item.name;
    merged.zPosition = item.zPosition;
    if (item.isVisible)
        merged.isVisible = item.isVisible;
    return merged;
}

} // namespace tessaro
