// Which property rows a kind of element has, and how the three layers of an
// element's values show: the catalogue record (never edited here), the level
// item's override records, and the element's device entries, where the entry
// of the default device holds the values for every device and another
// device's entry overrides single fields of it.
#pragma once

#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/CommonRecords.h>
#include <tessaro/model/Enumerations.h>

#include <optional>
#include <string>
#include <vector>

namespace stagewright {

/// Whether the row of `property` is drawn for an element of `kind`.
bool propertyApplies(PublishedElementList property, tessaro::sceneObjectType kind);

/// Whether the animation pane's row of `property` has a field to store its
/// value in for an element of `kind`: the target distances are a
/// character's, and the animation record has no callback. A row without one
/// is shown read-only.
bool animationRowStores(PublishedElementList property, tessaro::sceneObjectType kind);

/// The fields of the view-only section: `baseFieldText` selectors.
enum class BaseField { elementName = 0, objectClassType = 1, contact = 2, category = 3, collision = 4 };
/// View-only text of a field of the catalogue record behind a selection;
/// "" when the record has no such field.
std::string baseFieldText(BaseField field, const std::optional<DefaultViewRecord>& record);

/// One row of the device pane.
struct DeviceFieldRow {
    PublishedElementList field;
    const char* label;
    /// The text a new override of the field stores; none for a field that
    /// has no place in the record ("Number of parts").
    std::optional<std::string> newOverrideText;
};
/// The rows of the device pane, in drawing order.
const std::vector<DeviceFieldRow>& deviceFieldRows();

/// The device fields that `entry` defines itself, in the order the device
/// pane tests them; empty without an entry.
std::vector<PublishedElementList> definedDeviceFields(const tessaro::DeviceProperties* entry);

/// The labels of the add and remove buttons of a device row.
const char* addOverrideLabel(tessaro::deviceName shown);
const char* removeOverrideLabel(tessaro::deviceName shown);

} // namespace stagewright
