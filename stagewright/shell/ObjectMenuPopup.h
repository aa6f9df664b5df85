// The "Object Menu" as a pop-up menu at the pointer: the canvas asks for it
// when a click finds two or more overlapping elements.
#pragma once

#include <stagewright/scene/ObjectMenu.h>

namespace stagewright {

/// Shows `menu` at the click's place on the screen and answers with the
/// entry picked.
std::optional<std::size_t> popUpObjectMenu(const NodeMenu& menu, const tessaro::kit::MouseEvent& event);

} // namespace stagewright
