// A walk over every record of a level that finds the value texts which do
// not read as their form and meets every sound, saying for each where in the
// level it stands.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <string>
#include <string_view>

namespace stagewright::cli {

/// Where a value stands: the item of the level that holds it and the path
/// of the field inside that item ("properties.devices[1].position"; list
/// entries count from 1).
struct ValuePlace {
    std::string item;
    std::string field;
};

class LevelVisitor {
public:
    virtual ~LevelVisitor() = default;
    /// A value text that does not read as the form of its field.
    virtual void badValue(const ValuePlace& place, std::string_view text, const std::string& problem) = 0;
    /// A sound of the level, wherever it is kept.
    virtual void sound(const ValuePlace& place, const tessaro::GameSound& sound) = 0;
    /// A text of file names (a comma list) kept inside an element: the images
    /// of its projectiles and siblings, the atlases of its animations.
    virtual void fileNames(const ValuePlace& place, std::string_view names) = 0;
};

/// Visits every value text and sound of `level`. A value outside the placed
/// items belongs to the part of the level that holds it ("settings",
/// "background", "coins", "level end", ...).
void walkLevel(const tessaro::Level& level, LevelVisitor& visitor);

/// The names of a level's items, as findings show them. A list entry that
/// has no name of its own goes by its place in the list, counted from 1.
std::string itemLabel(const tessaro::ObstacleLevelItem& item, std::size_t index);
std::string itemLabel(const tessaro::CharacterLevelItem& item, std::size_t index);
std::string itemLabel(const tessaro::GroundSection& section, std::size_t index);
std::string itemLabel(const tessaro::BackgroundImage& layer, std::size_t index);
std::string itemLabel(const tessaro::CheckPointLocation& location, std::size_t index);
std::string itemLabel(const tessaro::Coin& coin, std::size_t index);
std::string itemLabel(const tessaro::Shield& shield, std::size_t index);
std::string itemLabel(const tessaro::Artifact& artifact, std::size_t index);
std::string itemLabel(const tessaro::WindowItem& item, std::size_t index);

/// The name of the part of a level that a field of `Level` holds: the key
/// itself, but "level end" and "phase end" for the two end windows.
std::string levelPartName(std::string_view levelField);
/// What the names of the items of an end window begin with: "level end "
/// or "phase end "; nothing for the level's own items.
std::string itemPrefix(std::string_view levelField);

} // namespace stagewright::cli
