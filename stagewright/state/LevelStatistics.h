// The numbers of the statistics sheet: how many elements of a kind the levels
// of a project hold. They are counted in the level records; the sheet first
// writes the shown level back from its scene, so that it counts what the
// project holds now, placements not yet saved included.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <cstdint>
#include <vector>

namespace stagewright {

class ProjectTab;

/// What `countElements` counts; the numbers are the selectors the sheet uses.
namespace elementCount {
inline constexpr int backgrounds = 0; // images of the background
inline constexpr int ground = 1; // ground sections
inline constexpr int obstacles = 2;
inline constexpr int enemies = 3; // characters of class enemy
inline constexpr int friendlies = 4; // characters of class friendly
inline constexpr int coins = 5; // each coin counts its repeat count, 1 without one
inline constexpr int shields = 6;
inline constexpr int artifacts = 7;
inline constexpr int checkpoints = 8;
} // namespace elementCount

/// The number of elements `selector` names in one level; 0 for an unknown selector.
std::int64_t countElements(const tessaro::Level& level, int selector);
/// Stores the shown level's scene into its record, as a save does first.
void writeBackShownLevel(ProjectTab& tab);
/// The sum over the tab's levels, or over its selected level alone when
/// `allLevels` is false (0 when no level has the selected id).
std::int64_t countElements(const ProjectTab& tab, int selector, bool allLevels);

/// One row of a group of the statistics sheet.
struct StatisticsRow {
    const char* title;
    int selector;
};
/// "Obstacles", "Coins", "Artifacts", "Checkpoints", "Enemies", "Friendlies".
const std::vector<StatisticsRow>& statisticsRows();

} // namespace stagewright
