// What a picker row of the inspector offers: one of 24 lists, from the nodes
// of the canvas to the cases of an enumeration. The rows draw these lists;
// choosing an entry hands its tag to the row's edit.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <QString>

#include <vector>

// clang-format off
#define STAGEWRIGHT_PICKER_TYPE(X)                                                         \
    X(None) X(NodeList) X(SceneList) X(BackgroundList) X(objectClassTypeList)              \
    X(GroundAngleList) X(SoundsList) X(soundBiteTypeList) X(AudioExtensionList)            \
    X(ImageList) X(AudioList) X(DeviceList) X(Scaled) X(GroundType) X(CollisionTypes)      \
    X(Contact) X(Category) X(Collision) X(RotationTypes) X(ScrollOrientation)              \
    X(CharClassType) X(Direction) X(AnimationFrequency) X(AnimationMoveDirection)
// clang-format on

namespace stagewright {

/// The list a picker row shows.
enum class PickerType { STAGEWRIGHT_PICKER_TYPE(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::PickerType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_PICKER_TYPE(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

class SceneSettings;
class ProjectTab;
class SceneEditor;

struct PickerItem {
    QString text; // what the row shows
    QString tag; // what choosing it hands on
};

struct PickerSection {
    QString title; // empty for a list without sections
    std::vector<PickerItem> items;
};

struct PickerContent {
    QString title;
    std::vector<PickerSection> sections;
    /// More than one entry can be chosen.
    bool multiSelection = false;
    /// No list: the row keeps its place empty.
    bool spacer = false;
};

/// The list of `type` for the selection of `tab`, whose canvas is `scene`
/// (may be null) and whose workspace lists are in `settings` (may be null).
PickerContent getPickerContent(PickerType type, const ProjectTab& tab, const SceneEditor* scene,
                               const SceneSettings* settings);

} // namespace stagewright
