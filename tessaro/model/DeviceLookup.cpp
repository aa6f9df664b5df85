#include "DeviceLookup.h"

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
    std::string others;
    std::size_t names = 0;
    for (std::string_view piece : splitNonEmpty(*shared->deviceName, ",")) {
        ++names;
        if (deviceListHolds(piece, device))
            continue;
        if (!others.empty())
            others += ',';
        others += piece;
    }
    if (names < 2 || others.empty())
        return shared;
    DeviceProperties own = *shared;
    own.deviceName = std::string(caseText(device));
    shared->deviceName = std::move(others);
    const auto at = devices.begin() + (shared - devices.data()) + 1;
    return &*devices.insert(at, std::move(own));
}

} // namespace tessaro
