// The "Object Menu": what a click on two or more overlapping elements offers.
// The scene builds the menu and asks a presenter to show it; the editor's
// window installs one that pops up a real menu at the pointer, and a test one
// that picks an entry.
#pragma once

#include <tessaro/kit/Types.h>
#include <tessaro/model/Enumerations.h>

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace stagewright {

/// One entry of the menu: the node it selects.
struct NodeMenuItem {
    QString title; // "Name: crate (obstacles)"
    std::optional<QString> nodeId; // the node's name
    tessaro::sceneObjectType nodeType = tessaro::sceneObjectType::none;
};

struct NodeMenu {
    QString title; // "Object Menu"
    QString header; // "Element", a plain entry without action
    std::vector<NodeMenuItem> items;
};

/// Shows the menu for a click and answers with the index of the entry
/// picked, or none when the menu was dismissed.
using MenuPresenter =
    std::function<std::optional<std::size_t>(const NodeMenu& menu, const tessaro::kit::MouseEvent& event)>;

} // namespace stagewright
