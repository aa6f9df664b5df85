// The level's own properties: the images, numbers and sounds of its coin,
// shield, artifact, checkpoint, background and end records, as the seven tabs
// of the level properties sheet show and change them. Each change is one step
// of the tab's history that writes one field of one sub-record of the level.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/FieldPath.h>
#include <tessaro/model/Geometry.h>
#include <tessaro/model/LevelRecords.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagewright {

class ProjectTab;

/// The field selectors of `updateLevelProperty`.
namespace levelField {
inline constexpr int startArtifactNumber = 0;
inline constexpr int startCoinNumber = 1;
inline constexpr int soundEffects = 3;
inline constexpr int image = 4;
inline constexpr int repeatDistance = 5; // a point, stored as point text
inline constexpr int animateFromImage = 6;
} // namespace levelField

/// A value of a level field: a number, an image name, a point or a sound list.
using LevelPropertyValue =
    std::variant<std::int64_t, std::string, tessaro::PointValue, std::vector<tessaro::GameSound>>;

/// The path of the field `selector` names in the sub-record of `kind`; none
/// where the sheet has no such row.
std::optional<tessaro::FieldPath> levelFieldPath(tessaro::sceneObjectType kind, int selector);
/// The field `selector` names in the sub-record of `kind`, as `level` holds
/// it: none when the sub-record is absent or has no such field; inside, none
/// when the field itself is absent.
std::optional<std::optional<LevelPropertyValue>> levelProperty(const tessaro::Level& level,
                                                               tessaro::sceneObjectType kind, int selector);
/// Writes that field; an empty value takes an optional field out again. False,
/// with the level unchanged, when the sub-record is absent, it has no such
/// field, or the value is of another type than the field.
bool writeLevelProperty(tessaro::Level& level, tessaro::sceneObjectType kind, int selector,
                        const std::optional<LevelPropertyValue>& value);

/// Writes one field of the selected level (the first level when no level has
/// the selected id) as one step of the tab's history. A write that cannot be
/// made leaves no step.
void updateLevelProperty(ProjectTab& tab, tessaro::sceneObjectType kind, int selector, LevelPropertyValue value);

/// What one tab of the sheet shows of a level, with the values it shows
/// where the level has none.
struct LevelTabValues {
    std::vector<tessaro::GameSound> sounds;
    std::string imageName = "placeholder";
    std::int64_t animateFromImage = 0;
    std::int64_t startCoinNumber = 0;
    tessaro::PointValue repeatDistance;
    std::int64_t startArtifactNumber = 0;
};
LevelTabValues levelTabValuesOf(const tessaro::Level& level, tessaro::sceneObjectType kind);

/// A name the image row of a tab offers, with the file of its picture ("" when
/// the workspace has none).
struct LevelImageChoice {
    QString name;
    QString picturePath;
    bool operator==(const LevelImageChoice&) const = default;
};
/// What the image row of `kind`'s tab offers, `images` being the workspace's
/// image list. The checkpoints' record names a checkpoint of the object
/// catalogue, which the canvas and the game draw: its tab offers those by
/// name, in the order of the names, each with the picture of its image. The
/// other tabs offer the image files of their kind's folder.
std::vector<LevelImageChoice> levelImageChoices(tessaro::sceneObjectType kind, const std::vector<FileItem>& images);

/// One tab of the sheet, in the order the sheet shows them.
struct LevelPropertiesTab {
    const char* title;
    const char* icon; // symbol name
    tessaro::sceneObjectType kind;
};
const std::vector<LevelPropertiesTab>& levelPropertiesTabs();

/// The control of a row of a tab's "Properties" section.
enum class LevelPropertyControl { image, integer, point };

/// One row of a tab's "Properties" section: its label, its control with the
/// ends of its buttons (for a point, both coordinates from `lower` up), and
/// the field it writes.
struct LevelPropertyRow {
    const char* title;
    LevelPropertyControl control;
    std::int64_t lower = 0;
    std::int64_t upper = 0;
    int selector = 0;
};
/// The rows of a tab, top to bottom; none for the tabs that hold sounds only.
std::vector<LevelPropertyRow> levelPropertyRows(tessaro::sceneObjectType kind);

} // namespace stagewright
