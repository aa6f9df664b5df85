// The scene settings sheet's logic: the orientation, scale mode, size and
// anchor point of the shown level. The scene holds them while the level is
// open and its write-back stores them into the level's settings; each change
// here is one step of the tab's history.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>

#include <QString>

#include <vector>

namespace stagewright {

class ProjectTab;

/// The four values of a scene the sheet sets, as the scene and the tab hold them.
struct SceneSettingsValues {
    tessaro::SizeValue size;
    tessaro::PointValue anchorPoint;
    sceneScaleMode scaleMode = sceneScaleMode::aspectFill;
    tessaro::sceneOrientationType orientation = tessaro::sceneOrientationType::landscape;
    bool operator==(const SceneSettingsValues&) const = default;
};

/// A device's scene size: its landscape size, width and height swapped for portrait.
tessaro::SizeValue predefinedSceneSize(tessaro::deviceName device, tessaro::sceneOrientationType orientation);

/// An item of "Predefined sizes": the device and its text.
struct PredefinedSizeItem {
    tessaro::deviceName device;
    QString title;
};
/// "Select..." for `none`, then every device as "<title> {w: 874, h: 402 }",
/// its size in `orientation`.
std::vector<PredefinedSizeItem> predefinedSizeItems(tessaro::sceneOrientationType orientation);

// The sheet's changes. Each sets the tab's bound value and the scene's value,
// then sets size, anchor point and scale mode on the scene again. Without a
// scene nothing changes.

/// The size stays as it is: only a later predefined size is swapped.
void setSceneOrientation(ProjectTab& tab, tessaro::sceneOrientationType orientation);
void setSceneScaleMode(ProjectTab& tab, sceneScaleMode mode);
/// The device's size in the tab's orientation; `none` ("Select...") does nothing.
void choosePredefinedSize(ProjectTab& tab, tessaro::deviceName device);
/// Typing or stepping one value joins with the step before.
void setSceneSize(ProjectTab& tab, tessaro::SizeValue size);
void setSceneAnchorPoint(ProjectTab& tab, tessaro::PointValue anchor);

} // namespace stagewright
