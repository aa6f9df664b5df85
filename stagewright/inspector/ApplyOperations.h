// The edits of the selected element: one operation per pane of the
// inspector. An operation finds the selected node by name, writes the value
// into the node's override records and node properties, and lets the node or
// a layer redraw; the level record follows at the next write-back. A value of
// the wrong type takes the fallback of its property. Every operation ends
// quietly without a tab, without a scene, while the phase is not `Selected`,
// and when the node or the record it writes is missing.
//
// These are the raw edits. The editor calls them through `EditRouting`,
// which makes each one a step of the project's history.
#pragma once

#include "PropertyValue.h"

#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/FieldPath.h>

#include <optional>

namespace tessaro {
struct BackgroundImage;
}

namespace stagewright {

class ProjectTab;
struct RowEntry;

class ElementNode;
class SceneEditor;

/// A field of the primary list, the physics editor or the sound editor.
void applyPrimaryProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value,
                          const PropertyValue& oldValue = {});
/// A field of the device pane, in the entry of the device the pane shows.
void applyDeviceProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value,
                         const PropertyValue& oldValue = {});
/// A field of the animation pane.
void applyAnimationProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value);
/// A field or button of the cycle-end pane.
void applyCycleEndProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value);
/// Shows the background record with the id `value` in the background pane.
void showBackgroundOfPane(SceneEditor& scene, const PropertyValue& value);

/// A change of the background pane to the record it shows: the field below
/// the record, its new value, and whether consecutive changes of it join.
struct BackgroundFieldChange {
    tessaro::FieldPath field;
    tessaro::FieldValue value;
    bool joins = true;
};
/// What a field or button of the background pane of `tab` changes in
/// `record`, the record it shows; none when the value cannot be used or the
/// field is not the pane's.
std::optional<BackgroundFieldChange> backgroundChange(const ProjectTab& tab, const tessaro::BackgroundImage& record,
                                                      PublishedElementList element, const PropertyValue& value);
/// The background record the pane of `tab` shows, and its path in the level.
struct ShownBackground {
    const tessaro::BackgroundImage& record;
    tessaro::FieldPath path;
};
std::optional<ShownBackground> shownBackground(const ProjectTab& tab);
/// What a row of the background pane shows: its field of the record shown.
PropertyValue backgroundRowValue(const ProjectTab& tab, const RowEntry& row);
/// Adds a device field to the entry of the device the pane shows (made when
/// missing), or removes it; an entry of another device that is left empty
/// goes with it.
void toggleDeviceOverride(SceneEditor& scene, PublishedElementList element, bool add);

/// Stores a device value of `node` in the entry of `device`, made when
/// missing, the way the device pane stores it: the canvas's moves and size
/// handle use this with the default device.
void storeDeviceValue(SceneEditor& scene, ElementNode& node, tessaro::deviceName device, PublishedElementList element,
                      const PropertyValue& value);

} // namespace stagewright
