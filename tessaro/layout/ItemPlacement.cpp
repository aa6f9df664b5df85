#include "ItemPlacement.h"

#include "DrawableNumbers.h"
#include "GroundPlan.h"
#include "ImageNames.h"
#include "LayoutContext.h"

#include <tessaro/model/LevelRecords.h>

#include <algorithm>

namespace tessaro::layout {

namespace {

template <class T>
const T* present(const boxed<T>& value)
{
    return value ? &*value : nullptr;
}

template <class T, class Member>
auto overOr(const T* over, const T& catalogue, Member member) -> std::remove_cvref_t<decltype(catalogue.*member)>
{
    if (over && (over->*member))
        return over->*member;
    return catalogue.*member;
}

const std::optional<std::vector<DeviceProperties>>& noDevices()
{
    static const std::optional<std::vector<DeviceProperties>> none;
    return none;
}

/// The look of an item from its resolved values; its place follows its size.
ItemLook look(sceneObjectType kind, std::string image, SizeValue stored, double z, bool useGravity,
              const std::optional<std::vector<DeviceProperties>>& devices, const GroundPlan& ground,
              const LayoutContext& context)
{
    ItemLook item;
    item.kind = kind;
    item.image = std::move(image);
    item.size = itemSize(kind, stored, item.image, context);
    item.z = z;
    item.useGravity = useGravity;
    item.devices = &devices;
    item.centre = itemPosition(kind, devices, item.size.height, useGravity, ground, context);
    return item;
}

/// An item's own size for the chosen devices; the catalogue's when it sets none.
template <class R>
SizeValue sizeOver(const R* over, const R& catalogue, const LayoutContext& context)
{
    SizeValue size = over ? context.deviceValue<fieldList::size>(over->devices) : SizeValue{};
    if (size == SizeValue{})
        size = context.deviceValue<fieldList::size>(catalogue.devices);
    return size;
}

} // namespace

SizeValue itemSize(sceneObjectType kind, SizeValue stored, const std::string& imageText, const LayoutContext& context)
{
    const SizeValue size = drawableSize(stored, std::string(caseText(kind)) + " size");
    if (size.width > 0 && size.height > 0)
        return size;
    return context.naturalSize(kind, firstImageName(imageText));
}

PointValue itemPosition(sceneObjectType kind, PointValue position, PointValue offset, double height, bool useGravity,
                        const GroundPlan& ground, const LayoutContext& context)
{
    const double ox = offset.x, oy = offset.y, px = position.x, py = position.y;
    double y0 = oy + (useGravity ? ground.groundHeight(px) : py);
    double x0 = ox + px;
    switch (kind) {
    case sceneObjectType::coin: return {x0, py == 0 ? oy + ground.groundHeight(x0) + height / 2 : y0};
    case sceneObjectType::artifact: return {x0, oy + (py == 0 ? ground.groundHeight(x0) + height / 2 : y0)};
    case sceneObjectType::obstacles:
    case sceneObjectType::character: {
        const PointValue repeated = context.devices.repeated({x0, y0});
        x0 = repeated.x;
        y0 = repeated.y;
        if (useGravity)
            y0 = ground.groundHeight(x0);
        return {ox + x0, oy + y0 + (useGravity ? height / 2 : 0)};
    }
    default: return {x0, y0 + height / 2};
    }
}

PointValue itemPosition(sceneObjectType kind, const std::optional<std::vector<DeviceProperties>>& devices,
                        double height, bool useGravity, const GroundPlan& ground, const LayoutContext& context)
{
    return itemPosition(kind, context.deviceValue<fieldList::position>(devices),
                        context.deviceValue<fieldList::offset>(devices), height, useGravity, ground, context);
}

/// An obstacle or a character: its item's override record over its catalogue record.
template <class Item, class Record>
ItemLook overriddenLook(sceneObjectType kind, const Item& item, const Record& catalogue, const GroundPlan& ground,
                        const LayoutContext& context)
{
    const Record* over = present(item.properties);
    return look(kind, overOr(over, catalogue, &Record::image).value_or("placeholder"),
                sizeOver(over, catalogue, context), item.zPosition,
                overOr(over, catalogue, &Record::useGravity).value_or(false), over ? over->devices : noDevices(),
                ground, context);
}

ItemLook obstacleLook(const ObstacleLevelItem& item, const Obstacle& catalogue, const GroundPlan& ground,
                      const LayoutContext& context)
{
    return overriddenLook(sceneObjectType::obstacles, item, catalogue, ground, context);
}

ItemLook characterLook(const CharacterLevelItem& item, const Character& catalogue, const GroundPlan& ground,
                       const LayoutContext& context)
{
    return overriddenLook(sceneObjectType::character, item, catalogue, ground, context);
}

ItemLook checkpointLook(const CheckPointLocation& location, const GenericObject& catalogue, const GroundPlan& ground,
                        const LayoutContext& context)
{
    return look(sceneObjectType::checkpoint, catalogue.image.value_or(std::string()),
                context.deviceValue<fieldList::size>(location.devices), location.zPosition, true, location.devices,
                ground, context);
}

ItemLook coinLook(const Coin& coin, const GenericObject& catalogue, const GroundPlan& ground,
                  const LayoutContext& context)
{
    const bool atZero = context.deviceValue<fieldList::position>(coin.devices).y == 0;
    return look(sceneObjectType::coin, catalogue.image.value_or(std::string()),
                context.deviceValue<fieldList::size>(coin.devices), coin.zPosition.value_or(1),
                coin.useGravity.value_or(atZero), coin.devices, ground, context);
}

ItemLook artifactLook(const Artifact& artifact, const GroundPlan& ground, const LayoutContext& context)
{
    return look(sceneObjectType::artifact, artifact.image.value_or(std::string()),
                context.deviceValue<fieldList::size>(artifact.devices), artifact.zPosition.value_or(1), false,
                artifact.devices, ground, context);
}

ItemLook shieldLook(const Shield& shield, const std::string& image, const GroundPlan& ground,
                    const LayoutContext& context)
{
    return look(sceneObjectType::shield, image, context.deviceValue<fieldList::size>(shield.devices),
                shield.zPosition.value_or(1), false, shield.devices, ground, context);
}

std::vector<PointValue> repeatedCopies(PointValue start, SizeValue size, bool useGravity, std::int64_t repeatCount,
                                       const std::optional<std::vector<DeviceProperties>>& devices,
                                       const GroundPlan& ground, const LayoutContext& context)
{
    std::vector<PointValue> copies;
    if (repeatCount < 2)
        return copies;
    double x = start.x;
    double baseY = start.y;
    for (std::int64_t i = 1; i < std::min<std::int64_t>(repeatCount, 1000); ++i) {
        if (useGravity)
            baseY = ground.groundHeight(x);
        const PointValue random = context.deviceValue<fieldList::randomPositionRange>(devices);
        x += size.width + random.x;
        copies.push_back({quietPosition(x), quietPosition(baseY + random.y + size.height / 2)});
    }
    return copies;
}

std::vector<PointValue> coinSteps(bool stacked, std::int64_t count, SizeValue size, PointValue spacing)
{
    std::vector<PointValue> steps;
    if (count <= 1)
        return steps;
    const double dx = drawablePosition(spacing.x, "repeat distance x");
    const double dy = drawablePosition(spacing.y, "repeat distance y");
    const PointValue step = stacked ? PointValue{0, size.height / 2 + dy} : PointValue{size.width / 2 + dx, 0};
    // A row longer than anyone can place by hand is a typing slip; it is laid
    // in part and kept whole in the record.
    for (std::int64_t n = 1; n < std::min<std::int64_t>(count, 1000); ++n)
        steps.push_back({step.x * double(n), step.y * double(n)});
    return steps;
}

} // namespace tessaro::layout
