#include "BackgroundPlan.h"

#include "LayoutContext.h"

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelRecords.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace tessaro::layout {

namespace {

/// More copies than this of one pinned image are not laid.
constexpr int kMostPinnedCopies = 10000;

} // namespace

std::optional<BackgroundLayer> layBackground(const BackgroundImage& record, double groundLength,
                                             const LayoutContext& context)
{
    if (!record.isVisible.value_or(true))
        return {};
    BackgroundLayer layer;
    layer.image = record.image.value_or(std::string());
    layer.z = record.zPosition.value_or(0);
    layer.pinned = record.pinned.value_or(false);
    if (!layer.pinned)
        return layer;

    std::vector<RangeValue> ranges;
    if (record.pinnedRanges)
        for (const PinnedRange& entry : *record.pinnedRanges)
            ranges.push_back(rangeFromText(entry.range.value_or(std::string())));
    if (ranges.empty())
        ranges.push_back({0, 1000000});

    const double step = context.view.width;
    if (step <= 0)
        return layer;
    const double end = groundLength + 1000;
    // Copies stand at whole steps from the origin; a step outside every range
    // is skipped. The next step that can lie in a range is found directly, so
    // a long level with a short range costs no more than its copies.
    for (double x = 0; x < end;) {
        const bool inside = std::any_of(ranges.begin(), ranges.end(),
                                        [x](const RangeValue& r) { return r.lower <= x && x <= r.upper; });
        if (inside) {
            if (int(layer.copies.size()) == kMostPinnedCopies) {
                diagnostic("Background \"" + layer.image + "\" is shown with " + std::to_string(kMostPinnedCopies) +
                           " copies.");
                break;
            }
            layer.copies.push_back(x);
            x += step;
            continue;
        }
        double next = end;
        for (const RangeValue& r : ranges) {
            const double candidate = std::max(x + step, std::ceil(r.lower / step) * step);
            if (candidate <= r.upper)
                next = std::min(next, candidate);
        }
        x = next;
    }
    return layer;
}

} // namespace tessaro::layout
