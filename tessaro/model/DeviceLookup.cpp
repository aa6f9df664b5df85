#include "DeviceLookup.h"

#include <atomic>
#include <utility>

namespace tessaro {

namespace {
std::atomic<deviceName> primary{deviceName::none};
std::atomic<deviceName> secondary{deviceName::none};

PointValue& storedRandomPosition()
{
    static PointValue position;
    return position;
}
} // namespace

deviceName primaryDevice()
{
    return primary.load();
}
void setPrimaryDevice(deviceName device)
{
    primary.store(device);
}
deviceName secondaryDevice()
{
    return secondary.load();
}
void setSecondaryDevice(deviceName device)
{
    secondary.store(device);
}

PointValue lastRandomPosition()
{
    return storedRandomPosition();
}
void setLastRandomPosition(PointValue position)
{
    storedRandomPosition() = position;
}

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
