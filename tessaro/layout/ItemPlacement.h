// Where the items of a level stand and how big they are: obstacles,
// characters, checkpoints, coins, artifacts and shields. Each kind reads its
// picture, size, depth and gravity from its record and its catalogue entry;
// its place comes from its device values, on the floor where its kind
// stands there.
#pragma once

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessaro {
struct Artifact;
struct Character;
struct CharacterLevelItem;
struct CheckPointLocation;
struct Coin;
struct DeviceProperties;
struct GenericObject;
struct Obstacle;
struct ObstacleLevelItem;
struct Shield;
} // namespace tessaro

namespace tessaro::layout {

struct GroundPlan;
struct LayoutContext;

/// An item as it is drawn.
struct ItemLook {
    sceneObjectType kind = sceneObjectType::none;
    /// The image text the picture comes from (its first name is drawn).
    std::string image;
    SizeValue size;
    double z = 0;
    bool useGravity = false;
    /// The device entries its place is read from.
    const std::optional<std::vector<DeviceProperties>>* devices = nullptr;
    PointValue centre;
};

/// The size an item of `kind` is drawn at: `stored` when it has area, else
/// the size of the first image of `imageText`.
SizeValue itemSize(sceneObjectType kind, SizeValue stored, const std::string& imageText, const LayoutContext& context);

/// The centre of an item of `kind` and `height` for its stored position and
/// offset. With gravity it stands on the floor at its x; a coin or an
/// artifact at height 0 does too. An obstacle or a character takes its
/// offset twice, and a coordinate above the repeat limit takes the last
/// random position's: stored levels are laid out with this rule.
PointValue itemPosition(sceneObjectType kind, PointValue position, PointValue offset, double height, bool useGravity,
                        const GroundPlan& ground, const LayoutContext& context);

/// The same for the device entries `devices`.
PointValue itemPosition(sceneObjectType kind, const std::optional<std::vector<DeviceProperties>>& devices,
                        double height, bool useGravity, const GroundPlan& ground, const LayoutContext& context);

/// An obstacle item over its catalogue entry: the item's image, size and
/// gravity where it sets them, else the entry's.
ItemLook obstacleLook(const ObstacleLevelItem& item, const Obstacle& catalogue, const GroundPlan& ground,
                      const LayoutContext& context);
ItemLook characterLook(const CharacterLevelItem& item, const Character& catalogue, const GroundPlan& ground,
                       const LayoutContext& context);
/// A checkpoint shows its catalogue object's picture and stands on the floor.
ItemLook checkpointLook(const CheckPointLocation& location, const GenericObject& catalogue, const GroundPlan& ground,
                        const LayoutContext& context);
/// A coin without a gravity of its own falls when it stands at height 0.
ItemLook coinLook(const Coin& coin, const GenericObject& catalogue, const GroundPlan& ground,
                  const LayoutContext& context);
ItemLook artifactLook(const Artifact& artifact, const GroundPlan& ground, const LayoutContext& context);
ItemLook shieldLook(const Shield& shield, const std::string& image, const GroundPlan& ground,
                    const LayoutContext& context);

/// The centres of the copies of a repeated obstacle after the one at `start`
/// of `size`: `repeatCount` pictures in all (at most 1000), each a full
/// width plus a random step after the one before.
std::vector<PointValue> repeatedCopies(PointValue start, SizeValue size, bool useGravity, std::int64_t repeatCount,
                                       const std::optional<std::vector<DeviceProperties>>& devices,
                                       const GroundPlan& ground, const LayoutContext& context);

/// Where the further coins of a row or stack of `count` coins of `size`
/// stand, measured from the first: half a coin plus `spacing` apart, up
/// (stacked) or to the right. At most 1000 coins in all.
std::vector<PointValue> coinSteps(bool stacked, std::int64_t count, SizeValue size, PointValue spacing);

} // namespace tessaro::layout
