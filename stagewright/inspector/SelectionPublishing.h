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
class ElementNode;
class SceneEditor;

/// Fills the selection models of the scene's tab from `node` and sets the
/// phase to `Selected`; with `settings`, the inspector is presented.
void publishSelection(SceneEditor& scene, ElementNode& node, SceneSettings* settings);

/// Width over height, a side of 0 read as 1.
double aspectRatioOf(tessaro::SizeValue size);
/// `model` showing the entry of `device` in `devices`: its fields, and which
/// of them the entry defines. A missing entry shows every field empty.
SelectedDeviceModel showDeviceEntry(SelectedDeviceModel model,
                                    const std::optional<std::vector<tessaro::DeviceProperties>>& devices,
                                    tessaro::deviceName device);
/// Shows one cycle-end entry in the animation model.
void showCycleEnd(SelectedAnimationModel& model, const tessaro::CycleEndProperties& entry);
/// Shows one background record in the object model.
void showBackground(SelectedObjectModel& model, const tessaro::BackgroundImage& record);
/// The editable form of a background's pinned ranges.
std::vector<PinnedRangeValue> pinnedRangeValues(const std::optional<std::vector<tessaro::PinnedRange>>& ranges);

} // namespace stagewright
