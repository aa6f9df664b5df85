// What the apply operations share: finding the node an edit works on, and the
// steps several of them end with.
#pragma once

#include <stagewright/scene/SceneEditor.h>

#include <string>

namespace stagewright {

/// The tab of the scene while its phase is `Selected`, or null.
projectTab* editedTab(sceneEditor& scene);
/// The selected element of the scene's tab while the phase is `Selected`, or null.
elementNodePtr editedNode(sceneEditor& scene);
/// A new glow for a node whose picture or size changed.
void replaceGlow(elementNode& node);
void traceLine(const std::string& line);

} // namespace stagewright
