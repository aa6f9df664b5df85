// The background pane's edits. A background is a record of the level's
// background list, not a node: the pane changes a field of the record it
// shows in the level's document, and the canvas lays the pictures again.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "RowTable.h"
#include "SelectionPublishing.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/LevelRecords.h>

#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;

namespace {

const tessaro::BackgroundImage* recordWithId(const SceneEditor& scene, const tessaro::Uuid& id)
{
    const auto& list = scene.backgroundList();
    if (!list || !list->backgrounds)
        return nullptr;
    for (const tessaro::BackgroundImage& record : *list->backgrounds)
        if (record.id == id)
            return &record;
    return nullptr;
}

/// Every background recedes but the pictures of the one shown.
void dimAllBut(SceneEditor& scene, const tessaro::Uuid& id)
{
    for (const tessaro::kit::NodePtr& layer : {scene.backgroundNodes(), scene.pinnedBackgroundNodes()})
        for (const ElementNodePtr& node : SceneEditor::elementsOf(layer))
            node->setAlpha(node->backgroundAssociatedId == id ? 1.0 : 0.2);
}

} // namespace

void showBackgroundOfPane(SceneEditor& scene, const PropertyValue& value)
{
    ProjectTab* tab = editedTab(scene);
    if (!tab)
        return;
    SelectedObjectModel& model = tab->selectedObject();
    if (const auto* id = std::get_if<tessaro::Uuid>(&value)) {
        model.backgroundSelectedId = *id;
        if (const tessaro::BackgroundImage* record = recordWithId(scene, *id))
            showBackground(model, *record);
        tab->notifySelectedObjectChanged();
    }
    scene.rebuildBackgrounds();
    dimAllBut(scene, model.backgroundSelectedId);
}

std::optional<ShownBackground> shownBackground(const ProjectTab& tab)
{
    const tessaro::Level* level = tab.document().findLevel(tab.levelSelected());
    if (!level || !level->background || !level->background->backgrounds)
        return std::nullopt;
    const std::vector<tessaro::BackgroundImage>& images = *level->background->backgrounds;
    const tessaro::Uuid shown = tab.selectedObject().backgroundSelectedId;
    const auto record =
        std::find_if(images.begin(), images.end(), [&](const auto& image) { return image.id == shown; });
    if (record == images.end())
        return std::nullopt;
    return ShownBackground{*record,
                           tessaro::FieldPath("background.backgrounds") / std::size_t(record - images.begin())};
}

PropertyValue backgroundRowValue(const ProjectTab& tab, const RowEntry& row)
{
    const std::optional<ShownBackground> shown = shownBackground(tab);
    tessaro::FieldValue stored;
    if (!shown || !row.field || !tab.document().readField(tab.levelSelected(), shown->path / row.field, stored))
        return row.absent;
    if (const auto* text = std::any_cast<std::string>(&stored))
        return *text;
    if (const auto* flag = std::any_cast<bool>(&stored))
        return *flag;
    if (const auto* number = std::any_cast<double>(&stored))
        return *number;
    return row.absent;
}

namespace {

/// The row of the background pane bound to a field that edits `element`.
const RowEntry* boundRow(PublishedElementList element)
{
    for (const RowEntry& row : backgroundRows())
        if (row.property == element && row.field)
            return &row;
    return nullptr;
}

/// A value of a bound row as its field stores it: numbers rounded to two
/// places, a choice only when the row's list offers it; a value of another
/// type takes the row's fallback.
std::optional<tessaro::FieldValue> storedValue(const ProjectTab& tab, const RowEntry& row, const PropertyValue& value)
{
    switch (row.control) {
    case RowControl::Float: return tessaro::roundedValue(numberOf(value).value_or(std::get<double>(row.fallback)), 2);
    case RowControl::Toggle: return flagOf(value).value_or(std::get<bool>(row.fallback));
    case RowControl::Picker: {
        const std::string text = textOf(value).value_or(std::string());
        for (const PickerSection& section : getPickerContent(row.picker, tab, nullptr, nullptr).sections)
            for (const PickerItem& item : section.items)
                if (item.tag.toStdString() == text)
                    return text;
        return std::nullopt;
    }
    default: return textOf(value).value_or(std::get<std::string>(row.fallback));
    }
}

} // namespace

std::optional<BackgroundFieldChange> backgroundChange(const ProjectTab& tab, const tessaro::BackgroundImage& record,
                                                      PublishedElementList element, const PropertyValue& value)
{
    const auto field = [](const char* key, tessaro::FieldValue stored, bool joins = true) {
        return BackgroundFieldChange{tessaro::FieldPath(key), std::move(stored), joins};
    };
    if (const RowEntry* row = boundRow(element)) {
        std::optional<tessaro::FieldValue> stored = storedValue(tab, *row, value);
        if (!stored)
            return std::nullopt;
        return field(row->field, std::move(*stored));
    }
    std::vector<tessaro::PinnedRange> ranges = record.pinnedRanges.value_or(std::vector<tessaro::PinnedRange>{});
    switch (element) {
    case P::lowerBound:
    case P::upperBound: {
        const auto* bound = std::get_if<RangeBoundValue>(&value);
        if (!bound || bound->index >= ranges.size())
            return std::nullopt;
        tessaro::PinnedRange& entry = ranges[bound->index];
        tessaro::RangeValue range = tessaro::rangeFromText(entry.range.value_or("0...0"));
        if (element == P::lowerBound)
            range.lower = bound->lower;
        else
            range.upper = bound->upper;
        entry.range = tessaro::textFromRange(range);
        return field("pinnedRanges", std::move(ranges));
    }
    case P::addRange:
        ranges.push_back({tessaro::Uuid::create(), std::string("0...0")});
        return field("pinnedRanges", std::move(ranges), false);
    case P::deleteRange: {
        const std::optional<std::int64_t> index = integerOf(value);
        if (!index || *index < 0 || std::size_t(*index) >= ranges.size())
            return std::nullopt;
        ranges.erase(ranges.begin() + *index);
        return field("pinnedRanges", std::move(ranges), false);
    }
    default: return std::nullopt;
    }
}

} // namespace stagewright
