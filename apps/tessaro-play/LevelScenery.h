// The scenery of a level as the layout lays it out: the ground sections
// (they fix the floor and the length of the level) and the background
// pictures behind everything.
#pragma once

#include <tessaro/kit/SpriteNode.h>
#include <tessaro/layout/GroundPlan.h>
#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/LevelRecords.h>
#include <tessaro/runtime/AppSharedSceneBase.h>

#include <vector>

namespace play {

struct Scenery {
    int groundSprites = 0;
    int backgroundSprites = 0;
    /// Where the last ground section ends, in level coordinates.
    double levelEndX = 0;
    /// Pictures that fill the view and scroll by their speed.
    struct Layer {
        std::vector<tessaro::kit::SpriteNodePtr> copies; // side by side, every other one mirrored, to wrap round
        double speed = 0;
    };
    std::vector<Layer> layers;
    /// The ground as laid out; the cast stands on it.
    tessaro::layout::GroundPlan ground;
};

/// What the game lays a level out with: the scene's frame and images, the
/// chosen devices and the workspace's catalogues.
tessaro::layout::LayoutContext gameLayoutContext(tessaro::AppSharedSceneBase& scene);

/// Lays the ground of `level` into `world` and fills the scene's floor
/// pieces. Pinned backgrounds go into `world`, the others into `camera`,
/// which carries what stays on the screen. `world` must be at the scene's
/// origin.
Scenery layScenery(const tessaro::Level& level, tessaro::AppSharedSceneBase& scene, tessaro::kit::Node& world,
                   tessaro::kit::Node& camera);

/// Moves the view-filling backgrounds for a view centred on `cameraX`.
void scrollLayers(Scenery& scenery, double cameraX, double viewWidth);

} // namespace play
