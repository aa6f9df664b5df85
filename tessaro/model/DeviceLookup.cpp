#include "DeviceLookup.h"

#include "NameLists.h"

#include <utility>

namespace tessaro {

const DeviceProperties* deviceEntryFor(const std::vector<DeviceProperties>& devices, deviceName device)
{
    for (const DeviceProperties& entry : devices)
        if (entry.deviceName && deviceListHolds(*entry.deviceName, device))
            return &entry;
    return nullptr;
}

DeviceProperties* deviceEntryFor(std::vector<DeviceProperties>& devices, deviceName device)
{
    return const_cast<DeviceProperties*>(deviceEntryFor(std::as_const(devices), device));
}

DeviceProperties* ownDeviceEntry(std::vector<DeviceProperties>& devices, deviceName device)
{
    DeviceProperties* shared = deviceEntryFor(devices, device);
    if (!shared)
        return nullptr;
    const std::vector<std::string_view> names = splitNonEmpty(*shared->deviceName, ",");
    std::vector<std::string> others;
    for (std::string_view name : names)
        if (!deviceListHolds(name, device))
            others.emplace_back(name);
    if (names.size() < 2 || others.empty())
        return shared;
    DeviceProperties own = *shared;
    own.deviceName = std::string(caseText(device));
    shared->deviceName = joinedNames(others, ',');
    const auto at = devices.begin() + (shared - devices.data()) + 1;
    return &*devices.insert(at, std::move(own));
}

} // namespace tessaro
