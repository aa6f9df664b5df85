// The device look-up: how every position, size and offset of an element is
// found in its list of per-device entries, for the canvas and the game alike.
#pragma once

#include "CommonRecords.h"
#include "DeviceChoice.h"
#include "Enumerations.h"
#include "Geometry.h"
#include "ValueText.h"

#include <optional>
#include <vector>

namespace tessaro {

/// The first entry whose device list holds `device`, or null.
const DeviceProperties* deviceEntryFor(const std::vector<DeviceProperties>& devices, deviceName device);
DeviceProperties* deviceEntryFor(std::vector<DeviceProperties>& devices, deviceName device);
/// The entry that serves `device` alone, for writing a value of that device.
/// An entry named for several devices ("iPad,iPhone17") keeps the others, and
/// a copy of it right after it takes `device`, so that a value written for one
/// device changes no other. Null when no entry serves `device`.
DeviceProperties* ownDeviceEntry(std::vector<DeviceProperties>& devices, deviceName device);

template <fieldList F>
struct DeviceFieldType {
    using type = PointValue;
};
template <>
struct DeviceFieldType<fieldList::digitSize> {
    using type = SizeValue;
};
template <>
struct DeviceFieldType<fieldList::selectorSize> {
    using type = SizeValue;
};
template <>
struct DeviceFieldType<fieldList::size> {
    using type = SizeValue;
};
template <>
struct DeviceFieldType<fieldList::fontSize> {
    using type = std::optional<double>;
};

namespace detail {

template <fieldList F>
constexpr auto deviceMember()
{
    using D = DeviceProperties;
    if constexpr (F == fieldList::altPosition)
        return &D::altPosition;
    else if constexpr (F == fieldList::digitSize)
        return &D::digitSize;
    else if constexpr (F == fieldList::distance)
        return &D::distance;
    else if constexpr (F == fieldList::offsetEdge)
        return &D::offsetEdge;
    else if constexpr (F == fieldList::fontSize)
        return &D::fontSize;
    else if constexpr (F == fieldList::offsetHealthBar)
        return &D::offsetHealthBar;
    else if constexpr (F == fieldList::offset)
        return &D::offset;
    else if constexpr (F == fieldList::position)
        return &D::position;
    else if constexpr (F == fieldList::randomPositionRange)
        return &D::randomPositionRange;
    else if constexpr (F == fieldList::selectorSize)
        return &D::selectorSize;
    else
        return &D::size;
}

template <fieldList F>
typename DeviceFieldType<F>::type convertDeviceField(const DeviceProperties& entry)
{
    if constexpr (F == fieldList::fontSize)
        return entry.fontSize;
    else {
        const std::string& text = *(entry.*deviceMember<F>());
        if constexpr (F == fieldList::altPosition || F == fieldList::position)
            return roundedPointFromText(1, text);
        else if constexpr (F == fieldList::randomPositionRange)
            return randomPointFromText(1, text);
        else if constexpr (F == fieldList::digitSize || F == fieldList::selectorSize || F == fieldList::size)
            return sizeFromText(text);
        else
            return pointFromText(text);
    }
}

} // namespace detail

/// The entry that supplies field `F`: the primary device's entry when it has
/// the field, else the secondary device's, else the default entry's.
template <fieldList F>
const DeviceProperties* deviceEntryWithField(const std::vector<DeviceProperties>& devices,
                                             const DeviceChoice& choice = {})
{
    constexpr auto member = detail::deviceMember<F>();
    for (deviceName device : {choice.primary, choice.secondary, deviceName::defaultDevice}) {
        const DeviceProperties* entry = deviceEntryFor(devices, device);
        if (entry && (entry->*member).has_value())
            return entry;
    }
    return nullptr;
}

/// The value of field `F` for the chosen devices; (0,0), or an absent font
/// size, when no entry has it.
template <fieldList F>
typename DeviceFieldType<F>::type deviceValue(const std::vector<DeviceProperties>& devices,
                                              const DeviceChoice& choice = {})
{
    if (const DeviceProperties* entry = deviceEntryWithField<F>(devices, choice))
        return detail::convertDeviceField<F>(*entry);
    return {};
}

template <fieldList F>
typename DeviceFieldType<F>::type deviceValue(const std::optional<std::vector<DeviceProperties>>& devices,
                                              const DeviceChoice& choice = {})
{
    if (!devices)
        return {};
    return deviceValue<F>(*devices, choice);
}

} // namespace tessaro
