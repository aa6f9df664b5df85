#include "HazardTiles.h"

namespace tessaro::layout {

std::string hazardTileName(std::optional<groundBaseType> type)
{
    if (!type)
        return {};
    switch (*type) {
    case groundBaseType::BrightWater: return "brightWater_ground";
    case groundBaseType::Lava: return "lava_top";
    case groundBaseType::MuddyWater: return "muddyWater_ground";
    case groundBaseType::None: return "transparent_ground";
    case groundBaseType::Spike: return "spikes_1";
    case groundBaseType::ToxicGreen: return "toxicGreen_ground";
    case groundBaseType::Water: return "crest_top_one";
    case groundBaseType::Ground: break;
    }
    return {};
}

} // namespace tessaro::layout
