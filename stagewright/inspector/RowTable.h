// The rows of the inspector's panes as a table: each row names the field it
// edits, its label, its help text, its control and the control's limits. The
// panes draw the table; adding a row is one line here.
#pragma once

#include "PickerContent.h"
#include "PropertyValue.h"

#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/Enumerations.h>

#include <vector>

namespace stagewright {

/// The control of a row, one per kind of value.
enum class RowControl {
    Float,
    Int,
    Range,
    Point,
    Size,
    Vector,
    Toggle,
    Text,
    Picker,
    MultiPicker,
    Image,
    PointRange,
    Label // a view-only text
};

/// The greatest finite number, the open upper end of several steppers.
inline constexpr double greatest = 1.7976931348623157e+308;

struct RowEntry {
    PublishedElementList property;
    const char* label;
    RowControl control;
    const char* help = "";
    double lower = 0;
    double upper = 0;
    double step = 1;
    int places = 1;
    PickerType picker = PickerType::None;
    /// A range row's second field; a text row's placeholder is its label.
    PublishedElementList propertyUpper = property;
    const char* placeholder = "";
    /// A size row offers "Maintain aspect ratio".
    bool aspectToggle = false;
    /// For rows bound to field paths: the field below the record the pane
    /// shows, which the row reads and writes; what it shows where the record
    /// leaves the field out; and what it stores for a value of another type.
    const char* field = nullptr;
    PropertyValue absent{};
    PropertyValue fallback{};
};

/// `row` bound to `field` of the record its pane shows, reading `absent`
/// where the record leaves it out and storing `fallback` for a value of
/// another type.
RowEntry boundTo(RowEntry row, const char* field, PropertyValue absent, PropertyValue fallback);

struct SectionEntry {
    const char* title;
    /// The kinds whose pane has the section; empty for every kind.
    std::vector<tessaro::sceneObjectType> kinds;
    std::vector<RowEntry> rows;
};

/// The editable sections of the primary pane, in drawing order.
const std::vector<SectionEntry>& primarySections();
/// The sections of the animation pane.
const std::vector<SectionEntry>& animationSections();
/// The rows of the cycle-end sheet.
const std::vector<RowEntry>& cycleEndRows();
/// The rows of the background pane above its pinned ranges.
const std::vector<RowEntry>& backgroundRows();

/// The value row of a field of the device pane.
RowEntry deviceRow(PublishedElementList field, const char* label);

/// Whether `section` is drawn for an element of `kind`.
bool sectionApplies(const SectionEntry& section, tessaro::sceneObjectType kind);
/// The rows of `section` that are drawn for `kind`.
std::vector<RowEntry> rowsFor(const SectionEntry& section, tessaro::sceneObjectType kind);

} // namespace stagewright
