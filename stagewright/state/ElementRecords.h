// One element of a level without its node: the catalogue record it shows,
// its override records, device entries and sounds, and the few values the
// canvas keeps on the node itself. The clipboard and the edit history hold
// elements in this form, so a paste or an undo brings back the whole element
// in any level of any project.
#pragma once

#include "SelectionModels.h"

#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/LevelRecords.h>

#include <QPointF>
#include <QSizeF>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tessaro::kit {
class Texture;
}

namespace stagewright {

/// An item of a level as it was read, for what the scene keeps but does not own.
using LevelItemRecord = std::variant<tessaro::ObstacleLevelItem, tessaro::CharacterLevelItem,
                                     tessaro::CheckPointLocation, tessaro::Coin, tessaro::Shield, tessaro::Artifact>;

/// The collision masks and flags of an element's body.
struct ElementBodyMasks {
    std::uint32_t category = 0;
    std::uint32_t contact = 0;
    std::uint32_t collision = 0;
    bool affectedByGravity = false;
    bool isDynamic = false;
    bool operator==(const ElementBodyMasks&) const = default;
};

/// The identity of an element for the editing session. Node names are new at
/// every load; a handle stays with its element from level to level and back.
using ElementHandle = std::uint64_t;

/// What an element of a level holds besides its picture: the catalogue
/// record it shows, its override records, device entries and sounds. The
/// canvas node carries these fields, and a save stores them.
struct ElementData {
    /// The catalogue record: an Obstacle, a Character or a GenericObject.
    std::shared_ptr<const DefaultViewRecord> defaultViewProperties;
    std::optional<tessaro::Obstacle> obstacleOverrides;
    std::optional<tessaro::GroundSection> groundSection;
    /// The element's own device entries; they go back into its record on save.
    std::optional<std::vector<tessaro::DeviceProperties>> devices;
    std::optional<tessaro::Character> characterOverrides;
    std::optional<tessaro::AnimationProperty> animationOverrides;
    /// The rotation shown: each field from the override record, else from the
    /// catalogue. Edits go here and into `obstacleOverrides->rotationProperties`,
    /// which is what a save stores, so the file stays sparse.
    std::optional<tessaro::RotationProperties> rotationOverrides;
    std::optional<tessaro::Artifact> artifactOverrides;
    std::optional<tessaro::Coin> coinOverrides;
    std::optional<tessaro::Shield> shieldOverrides;
    std::optional<tessaro::CheckPointLocation> checkPointOverrides;
    std::optional<tessaro::Uuid> backgroundAssociatedId;
    std::optional<std::vector<tessaro::GameSound>> soundEffects;
    std::optional<std::string> imageOverride;
    std::optional<std::int64_t> sequenceId;
    std::optional<tessaro::PhysicsProperty> physics;
    std::optional<tessaro::characterClassType> charClassType;
    bool property_useGravity = false;
    std::optional<std::string> property_objectName;
    std::string property_hidesBehindObject;
    std::string backgroundImagename;
    /// The level item as read, for the fields a save keeps that no other field
    /// holds (a coin's image, a character item's type text, ...). Absent for
    /// elements made by the picker.
    std::shared_ptr<const LevelItemRecord> loadedItem;
    /// The element cannot be shown (its catalogue entry is missing): its node
    /// is hidden, has no picture, and a save writes `loadedItem` back as read.
    bool keptOnly = false;

    // Made, copied and compared out of line, so that the records inside are
    // compiled once.
    TESSARO_RECORD_MEMBERS(ElementData);
};

struct ElementRecords : ElementData {
    tessaro::sceneObjectType kind = tessaro::sceneObjectType::none;

    // What the node shows.
    std::shared_ptr<tessaro::kit::Texture> texture;
    QSizeF size;
    QPointF position;
    double zPosition = 0;
    double zRotation = 0;
    double alpha = 1;
    bool hidden = false;
    bool userInteractionEnabled = false;
    /// The body's masks, absent for an element without a body.
    std::optional<ElementBodyMasks> body;
    /// The element has a size handle.
    bool hasSizeHandle = false;

    // Made, copied and compared out of line, so that the records inside are
    // compiled once.
    TESSARO_RECORD_MEMBERS(ElementRecords);
};

} // namespace stagewright
