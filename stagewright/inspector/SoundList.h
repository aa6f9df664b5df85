// The sound lists of elements and level parts, below the sound editors: a new
// sound, deleting one, changing one field of one, which record of a level
// receives a list, and what the row pickers offer.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <tessaro/model/CommonRecords.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/FieldPath.h>
#include <tessaro/model/LevelRecords.h>

#include <QStringList>

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// clang-format off
#define STAGEWRIGHT_SOUND_PROPERTY_TYPE(X)                                                   \
    X(object) X(background) X(coin) X(artifact) X(shield) X(checkpoint) X(levelEnd) X(phaseEnd)
// clang-format on

namespace stagewright {

/// Which list a sound editor works on: an element's own (`object`) or the
/// shared list of a part of the level.
enum class SoundPropertyType { STAGEWRIGHT_SOUND_PROPERTY_TYPE(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::SoundPropertyType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_SOUND_PROPERTY_TYPE(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

/// The fields a sound row edits.
enum class SoundField { filename, fileExtension, type, volume, waitForCompletion };
/// Text for the three pickers, a number for the volume, a flag for waiting.
using SoundFieldValue = std::variant<std::string, double, bool>;

/// id a new UUID, type "none", filename "[NEW]", extension "wav", volume 0.5,
/// waiting for completion.
tessaro::GameSound newGameSound();

/// Appends a new sound.
void appendNewSound(std::vector<tessaro::GameSound>& sounds);
/// Removes the sound at `index`; false when there is none.
bool removeSound(std::vector<tessaro::GameSound>& sounds, std::size_t index);
/// Sets one field of the sound at `index`; false when there is no such sound
/// or the value is of the wrong kind for the field.
bool setSoundField(std::vector<tessaro::GameSound>& sounds, std::size_t index, SoundField field,
                   const SoundFieldValue& value);

/// What a row shows for fields a file may leave out: full volume, and
/// waiting, as the game plays them.
double shownVolume(const tessaro::GameSound& sound);
bool shownWaitForCompletion(const tessaro::GameSound& sound);

/// The shared sounds of the level record of `type`: none when the level has
/// no such record (or `type` is an element's own), else its list, empty when
/// the record has none.
std::optional<std::vector<tessaro::GameSound>> levelSoundList(const tessaro::Level& level, SoundPropertyType type);

/// The list the sounds tab edits for a selected element of `kind`: its own
/// for obstacles and characters (and kinds without a level record), else
/// the shared list of its level record.
SoundPropertyType soundPropertyTypeOf(tessaro::sceneObjectType kind);
/// The path of the shared sounds of the level record of `type`; none for an
/// element's own sounds.
std::optional<tessaro::FieldPath> levelSoundsPath(SoundPropertyType type);
/// Elements that keep sounds of their own.
bool keepsOwnSounds(tessaro::sceneObjectType kind);

/// The "Filename" picker: the names of the workspace's sounds, once each, in
/// order, and `current` first when it is not among them.
QStringList soundFilenameChoices(const std::vector<FileItem>& audioList, const QString& current);
/// The "Audio Extension" and "Audio Type" pickers: every case, in order.
QStringList soundExtensionChoices();
QStringList soundTypeChoices();

} // namespace stagewright
