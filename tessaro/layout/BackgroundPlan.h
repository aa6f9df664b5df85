// Background layers laid out. An unpinned image fills the view and stays put
// while the level scrolls; a pinned image is laid in copies along the level,
// a view's width apart from the scene origin, where its ranges allow.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessaro {
struct BackgroundImage;
}

namespace tessaro::layout {

struct LayoutContext;

struct BackgroundLayer {
    std::string image;
    double z = 0;
    bool pinned = false;
    /// The centres' x of a pinned image's copies; each copy is a view in size
    /// and centred on the view's height.
    std::vector<double> copies;
};

/// The layer of `record`, or none when it is hidden. Pinned copies reach
/// 1000 points past `groundLength`, the length of the level's ground.
std::optional<BackgroundLayer> layBackground(const BackgroundImage& record, double groundLength,
                                             const LayoutContext& context);

} // namespace tessaro::layout
