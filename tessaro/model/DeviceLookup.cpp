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

} // namespace tessaro
