// Records shared by levels, elements and catalogues: the per-device layout of
// an element, free name/value pairs and sounds.
#pragma once

#include "BoxedRecords.h"
#include "Fields.h"
#include "Uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessaro {

/// One entry of the per-device layout of an element. `deviceName` says which
/// devices it serves; "defaultDevice" marks the entry for all devices.
struct DeviceProperties {
    std::optional<std::string> altPosition;
    std::optional<std::string> deviceName;
    std::optional<std::string> digitSize;
    std::optional<std::string> distance;
    std::optional<std::string> offsetEdge;
    std::optional<double> fontSize;
    std::optional<std::string> offsetHealthBar;
    std::optional<std::string> offset;
    std::optional<std::string> position;
    std::optional<std::string> randomPositionRange;
    std::optional<std::string> selectorSize;
    std::optional<std::string> size;

    bool operator==(const DeviceProperties&) const = default;
    static constexpr auto fields()
    {
        using S = DeviceProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(altPosition),     TESSARO_FIELD(deviceName),
                                    TESSARO_FIELD(digitSize),       TESSARO_FIELD(distance),
                                    TESSARO_FIELD(offsetEdge),      TESSARO_FIELD(fontSize),
                                    TESSARO_FIELD(offsetHealthBar), TESSARO_FIELD(offset),
                                    TESSARO_FIELD(position),        TESSARO_FIELD(randomPositionRange),
                                    TESSARO_FIELD(selectorSize),    TESSARO_FIELD(size)};
    }
};

/// A free name and value pair kept for the game.
struct ExtraProperties {
    std::string name;
    std::string value;

    bool operator==(const ExtraProperties&) const = default;
    static constexpr auto fields()
    {
        using S = ExtraProperties;
        return ::tessaro::FieldList{TESSARO_FIELD(name), TESSARO_FIELD(value)};
    }
};

struct GameSound {
    std::optional<Uuid> id;
    std::string type; // case of soundBiteType
    std::string filename; // without extension
    std::string fileExtension; // case of soundType
    std::optional<double> volume;
    std::optional<bool> waitForCompletion;

    bool operator==(const GameSound&) const = default;
    static constexpr auto fields()
    {
        using S = GameSound;
        return ::tessaro::FieldList{TESSARO_FIELD(id),       TESSARO_FIELD(type),
                                    TESSARO_FIELD(filename), TESSARO_FIELD(fileExtension),
                                    TESSARO_FIELD(volume),   TESSARO_FIELD(waitForCompletion)};
    }
};

} // namespace tessaro
