// The window shown when the player reaches the end of the level: the
// level's own window items when it has them, else a plain panel with the
// tally of the run.
#pragma once

#include <tessaro/kit/Node.h>
#include <tessaro/model/LevelRecords.h>
#include <tessaro/runtime/AppSharedSceneBase.h>

namespace play {

struct Tally {
    int coins = 0;
    int coinsInLevel = 0;
    int artifacts = 0;
    double seconds = 0;
};

/// The window's node, at the level's window offset from the middle of the
/// view; the caller adds it to the scene's camera.
tessaro::kit::NodePtr makeLevelEndWindow(const tessaro::Level& level, const Tally& tally,
                                         tessaro::AppSharedSceneBase& scene);

} // namespace play
