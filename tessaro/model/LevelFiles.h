// Reading and writing project files: ordered lists of levels.
#pragma once

#include "AppConfig.h"
#include "LevelRecords.h"

#include <string>
#include <vector>

namespace tessaro {

struct LevelsReadResult {
    std::vector<Level> levels;
    bool ok = false; // false when the file could not be read or decoded
    std::string error; // the reason, when not ok
};

/// Reads a project file, telling a failed read from a project with no levels.
/// Prints the configuration error line on failure.
LevelsReadResult readLevels(const std::string& path);

/// The levels of a project file; an empty list on any failure.
std::vector<Level> loadLevels(const std::string& path);

/// Writes the levels as an XML property list, replacing the file in one step.
/// Ground positions are computed from the order of the sections and are never
/// stored; they are left out of the file but kept in `levels`.
bool saveLevels(const std::vector<Level>& levels, const std::string& path);

/// What an opened project passes before the editor uses it: new ids for
/// levels and their sounds, ground depth 50 where absent, ids for element
/// properties and their animations where absent.
void normaliseOpenedLevels(std::vector<Level>& levels);

/// A new level with the application's defaults.
Level newLevel(const Uuid& id, const BaseConfig& config);

/// The depth a ground section takes when the file gives none.
inline constexpr double defaultGroundZPosition = 50;

} // namespace tessaro
