// The names of the canvas scene's layer nodes. Files of earlier versions and
// games look layers up by these names, so they are kept as they always were,
// spelling included.
#pragma once

namespace stagewright::layerNames {

inline constexpr const char* backgrounds = "backgroundNodes";
inline constexpr const char* pinnedBackgrounds = "pinnedBackgroundNodes";
inline constexpr const char* obstacles = "obstacleNodes";
inline constexpr const char* characters = "characterNodes";
inline constexpr const char* ground = "groundNodes";
inline constexpr const char* coins = "coinsNodes";
inline constexpr const char* artifacts = "artifactsNodes";
inline constexpr const char* checkpoints = "checkpointsNodes";
inline constexpr const char* navigation = "navigatindNodes";
inline constexpr const char* shields = "shieldsNodes";

} // namespace stagewright::layerNames
