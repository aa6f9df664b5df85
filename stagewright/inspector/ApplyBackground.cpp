// The background pane's edits. A background is a record of the level's
// background list, not a node: the pane edits the record it shows, and the
// background's pictures are laid again from it.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "SelectionPublishing.h"

#include <stagewright/state/ProjectTab.h>

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

void applyBackgroundProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value)
{
    ProjectTab* tab = editedTab(scene);
    if (!tab)
        return;
    SelectedObjectModel& model = tab->selectedObject();

    if (element == P::background) {
        if (const auto* id = std::get_if<tessaro::Uuid>(&value)) {
            model.backgroundSelectedId = *id;
            if (const tessaro::BackgroundImage* record = recordWithId(scene, *id))
                showBackground(model, *record);
            tab->notifySelectedObjectChanged();
        }
        scene.rebuildBackgrounds();
        dimAllBut(scene, model.backgroundSelectedId);
        return;
    }

    tessaro::BackgroundImage* record = recordWithId(scene, model.backgroundSelectedId);
    if (!record)
        return;
    const tessaro::Uuid id = model.backgroundSelectedId;
    const auto number = [&](double fallback) { return tessaro::roundedValue(numberOf(value).value_or(fallback), 2); };
    switch (element) {
    case P::image:
        record->image = textOf(value).value_or(std::string());
        scene.replaceBackgroundRecord(id);
        break;
    case P::zPosition:
        record->zPosition = number(1);
        scene.replaceBackgroundRecord(id);
        break;
    case P::isVisible:
        record->isVisible = flagOf(value).value_or(false);
        scene.replaceBackgroundRecord(id);
        break;
    case P::speed: record->speed = number(1); break;
    case P::pinned: record->pinned = flagOf(value).value_or(false); break;
    case P::backgroundScrollOrientation:
        if (const auto orientation =
                tessaro::caseFromText<tessaro::scrollOrientationType>(textOf(value).value_or(std::string()))) {
            record->scrollOrientation = std::string(tessaro::caseText(*orientation));
            scene.rebuildBackgrounds();
            dimAllBut(scene, id);
        }
        break;
    case P::lowerBound:
    case P::upperBound: {
        const auto* bound = std::get_if<RangeBoundValue>(&value);
        if (!bound || !record->pinnedRanges || bound->index >= record->pinnedRanges->size())
            break;
        tessaro::PinnedRange& entry = (*record->pinnedRanges)[bound->index];
        tessaro::RangeValue range = tessaro::rangeFromText(entry.range.value_or("0...0"));
        if (element == P::lowerBound)
            range.lower = bound->lower;
        else
            range.upper = bound->upper;
        entry.range = tessaro::textFromRange(range);
        break;
    }
    case P::addRange: {
        if (!record->pinnedRanges)
            record->pinnedRanges.emplace();
        record->pinnedRanges->push_back({tessaro::Uuid::create(), std::string("0...0")});
        model.pinnedRanges = pinnedRangeValues(record->pinnedRanges);
        tab->notifySelectedObjectChanged();
        break;
    }
    case P::deleteRange: {
        const std::optional<std::int64_t> index = integerOf(value);
        if (!record->pinnedRanges || !index || *index < 0 || std::size_t(*index) >= record->pinnedRanges->size())
            break;
        record->pinnedRanges->erase(record->pinnedRanges->begin() + *index);
        model.pinnedRanges = pinnedRangeValues(record->pinnedRanges);
        tab->notifySelectedObjectChanged();
        break;
    }
    default: break;
    }
    emit scene.backgroundListChanged();
}

} // namespace stagewright
