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

class projectTab;

/// The four values of a scene the sheet sets, as the scene and the tab hold them.
struct sceneSettingsValues {
    tessaro::SizeValue size;
    tessaro::PointValue anchorPoint;
    sceneScaleMode scaleMode = sceneScaleMode::aspectFill;
    tessaro::sceneOrientationType orientation = tessaro::sceneOrientationType::landscape;
    bool operator==(const sceneSettingsValues&) const = default;
};

/// A device's scene size: its landscape size, width and height swapped for portrait.
tessaro::SizeValue predefinedSceneSize(tessaro::deviceName device, tessaro::sceneOrientationType orientation);

/// An item of "Predefined sizes": the device and its text.
struct predefinedSizeItem {
    tessaro::deviceName device;
    QString title;
};
/// "Select..." for `none`, then every device as "<title> {w: 874, h: 402 }",
/// its size in `orientation`.
std::vector<predefinedSizeItem> predefinedSizeItems(tessaro::sceneOrientationType orientation);

// The sheet's changes. Each sets the tab's bound value and the scene's value,
// then sets size, anchor point and scale mode on the scene again. Without a
// scene nothing changes.

/// The size stays as it is: only a later predefined size is swapped.
void setSceneOrientation(projectTab& tab, tessaro::sceneOrientationType orientation);
void setSceneScaleMode(projectTab& tab, sceneScaleMode mode);
/// The device's size in the tab's orientation; `none` ("Select...") does nothing.
void choosePredefinedSize(projectTab& tab, tessaro::deviceName device);
/// Typing or stepping one value joins with the step before.
void setSceneSize(projectTab& tab, tessaro::SizeValue size);
void setSceneAnchorPoint(projectTab& tab, tessaro::PointValue anchor);

} // namespace stagewright
