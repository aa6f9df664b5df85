#include "Enumerations.h"

namespace tessaro {

namespace {

struct DeviceRow {
    std::string_view raw;
    std::string_view title;
    DeviceSize size;
};

// In the order of the cases of `deviceName`.
constexpr DeviceRow deviceRows[] = {
    {"None", "None", {874, 402}},
    {"DefaultDevice", "Default Device", {874, 402}},
    {"iPhone15", "iPhone 15", {852, 393}},
    {"iPhone15Pro", "iPhone 15 Pro", {852, 393}},
    {"iPhone15ProMax", "iPhone 15 Pro Max", {932, 430}},
    {"iPhone15Plus", "iPhone 15 Plus", {932, 430}},
    {"iPhone16", "iPhone 16", {852, 393}},
    {"iPhone16e", "iPhone 16e", {844, 390}},
    {"iPhone16Pro", "iPhone 16 Pro", {874, 402}},
    {"iPhone16ProMax", "iPhone 16 Pro Max", {956, 440}},
    {"iPhone16Plus", "iPhone 16 Plus", {932, 430}},
    {"iPhone17", "iPhone 17", {874, 402}},
    {"iPhone17Pro", "iPhone 17 Pro", {874, 402}},
    {"iPhone17ProMax", "iPhone 17 Pro Max", {956, 440}},
    {"iPhoneAir", "iPhone Air", {912, 420}},
    {"iPhoneSE3rdgen", "iPhone SE (3rd generation)", {667, 375}},
    {"iPad", "iPad", {1956, 940}},
};
static_assert(std::size(deviceRows) == caseCount<deviceName>);

struct SceneObjectRow {
    std::string_view folder;
    std::string_view tabTitle;
    std::string_view tabSymbol;
};

// In the order of the cases of `sceneObjectType`.
constexpr SceneObjectRow sceneObjectRows[] = {
    {"Obstacles", "Obstacles", "square.and.arrow.up.on.square.fill"},
    {"Characters", "Characters", "person.circle"},
    {"Checkpoints", "Checkpoints", "flag.circle"},
    {"Coins", "Coins", "bitcoinsign.arrow.trianglehead.counterclockwise.rotate.90"},
    {"Shields", "shield", "checkmark.shield"},
    {"Artifacts", "Artifacts", "key.viewfinder"},
    {"Ground", "Ground", "globe.americas"},
    {"Backgrounds", "Background", "person.and.background.dotted"},
    {"LevelEnd", "None", "arrow.triangle.2.circlepath"},
    {"PhaseEnd", "None", "arrow.triangle.2.circlepath"},
    {"none", "None", ""},
};
static_assert(std::size(sceneObjectRows) == caseCount<sceneObjectType>);

} // namespace

std::string_view deviceRawText(deviceName device)
{
    return deviceRows[static_cast<int>(device)].raw;
}
std::string_view deviceTitle(deviceName device)
{
    return deviceRows[static_cast<int>(device)].title;
}
DeviceSize deviceSize(deviceName device)
{
    return deviceRows[static_cast<int>(device)].size;
}

std::string_view imageFolderName(sceneObjectType type)
{
    return sceneObjectRows[static_cast<int>(type)].folder;
}
std::string_view pickerTabTitle(sceneObjectType type)
{
    return sceneObjectRows[static_cast<int>(type)].tabTitle;
}
std::string_view pickerTabSymbol(sceneObjectType type)
{
    return sceneObjectRows[static_cast<int>(type)].tabSymbol;
}

std::string_view sceneOrientationTitle(sceneOrientationType orientation)
{
    return orientation == sceneOrientationType::portrait ? "Portrait" : "Landscape";
}

} // namespace tessaro
