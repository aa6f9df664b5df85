// Publishing a selection: the values of a selected element are copied once
// into the three selection models of its tab, which every inspector control
// binds to. The models hold the displayed values; the node and its override
// records hold the stored ones.
#pragma once

#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/LevelRecords.h>

#include <optional>
#include <vector>

namespace stagewright {

class SceneSettings;
class elementNode;
class sceneEditor;

/// Fills the selection models of the scene's tab from `node` and sets the
/// phase to `Selected`; with `settings`, the inspector is presented.
void publishSelection(sceneEditor& scene, elementNode& node, SceneSettings* settings);

/// Width over height, a side of 0 read as 1.
double aspectRatioOf(tessaro::SizeValue size);
/// `model` showing the entry of `device` in `devices`: its fields, and which
/// of them the entry defines. A missing entry shows every field empty.
selectedDeviceModel showDeviceEntry(selectedDeviceModel model,
                                    const std::optional<std::vector<tessaro::DeviceProperties>>& devices,
                                    tessaro::deviceName device);
/// Shows one cycle-end entry in the animation model.
void showCycleEnd(selectedAnimationModel& model, const tessaro::CycleEndProperties& entry);
/// Shows one background record in the object model.
void showBackground(selectedObjectModel& model, const tessaro::BackgroundImage& record);
/// The editable form of a background's pinned ranges.
std::vector<pinnedRangeValue> pinnedRangeValues(const std::optional<std::vector<tessaro::PinnedRange>>& ranges);

} // namespace stagewright
