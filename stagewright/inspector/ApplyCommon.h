// What the apply operations share: finding the node an edit works on, and the
// steps several of them end with.
#pragma once

#include <stagewright/scene/SceneEditor.h>

#include <string>

namespace stagewright {

/// The tab of the scene while its phase is `Selected`, or null.
ProjectTab* editedTab(SceneEditor& scene);
/// The selected element of the scene's tab while the phase is `Selected`, or null.
ElementNodePtr editedNode(SceneEditor& scene);
/// A new glow for a node whose picture or size changed.
void replaceGlow(ElementNode& node);
void traceLine(const std::string& line);

} // namespace stagewright
