// A run of the game without a window: a fixed number of frames at a fixed
// step of 1/60 s, each drawn off screen, with the report of what happened.
#pragma once

#include "PlayScene.h"

#include <QString>

#include <vector>

namespace play {

struct HeadlessResult {
    std::vector<double> frameMilliseconds;
};

/// Runs `frames` frames of `scene`, each drawn into a picture of the
/// scene's size; saves the last one to `screenshot` when it is not empty.
HeadlessResult runHeadless(PlayScene& scene, int frames, const QString& screenshot);

/// The report lines: sprites created per kind, bodies, contacts begun, coins
/// collected, the player's final position, the sounds started, the hits by
/// element and the frame times (median, 99th percentile, worst).
QStringList reportLines(const PlayScene& scene, const HeadlessResult& result);

} // namespace play
