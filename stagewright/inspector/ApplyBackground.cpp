// The background pane's edits. A background is a record of the level's
// background list, not a node: the pane changes a field of the record it
// shows in the level's document, and the canvas lays the pictures again.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "SelectionPublishing.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/LevelRecords.h>

#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;

namespace {

tessaro::BackgroundImage* recordWithId(SceneEditor& scene, const tessaro::Uuid& id)
{
    auto& list = scene.backgroundList();
    if (!list || !list->backgrounds)
        return nullptr;
    for (tessaro::BackgroundImage& record : *list->backgrounds)
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

std::optional<BackgroundFieldChange> backgroundChange(const tessaro::BackgroundImage& record,
                                                      PublishedElementList element, const PropertyValue& value)
{
    const auto number = [&](double fallback) { return tessaro::roundedValue(numberOf(value).value_or(fallback), 2); };
    const auto field = [](const char* key, tessaro::FieldValue stored, bool joins = true) {
        return BackgroundFieldChange{tessaro::FieldPath(key), std::move(stored), joins};
    };
    std::vector<tessaro::PinnedRange> ranges = record.pinnedRanges.value_or(std::vector<tessaro::PinnedRange>{});
    switch (element) {
    case P::image: return field("image", textOf(value).value_or(std::string()));
    case P::zPosition: return field("zPosition", number(1));
    case P::isVisible: return field("isVisible", flagOf(value).value_or(false));
    case P::speed: return field("speed", number(1));
    case P::pinned: return field("pinned", flagOf(value).value_or(false));
    case P::backgroundScrollOrientation: {
        const auto orientation =
            tessaro::caseFromText<tessaro::scrollOrientationType>(textOf(value).value_or(std::string()));
        if (!orientation)
            return std::nullopt;
        return field("scrollOrientation", std::string(tessaro::caseText(*orientation)));
    }
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
