// The session identities of the elements of one project. A level's nodes are
// made anew at every load, so a node's name cannot name an element for long;
// a handle can. When a level is written back, the handles of its elements are
// remembered per kind in the order the level stores the items, and the next
// load of the level gives them back to the items in that same order.
#pragma once

#include "ElementRecords.h"

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Uuid.h>

#include <map>
#include <utility>
#include <vector>

namespace stagewright {

class ElementHandles {
public:
    /// A handle no element has had.
    ElementHandle issue() { return ++m_last; }
    /// The handles of a level's items of one kind, in the order the level
    /// stores them.
    void remember(const tessaro::Uuid& levelId, tessaro::sceneObjectType kind, std::vector<ElementHandle> order);
    /// The handle of the item at `index` of that kind in the level: the one
    /// remembered for it, or a new one.
    ElementHandle handleAt(const tessaro::Uuid& levelId, tessaro::sceneObjectType kind, std::size_t index);

private:
    ElementHandle m_last = 0;
    std::map<std::pair<tessaro::Uuid, tessaro::sceneObjectType>, std::vector<ElementHandle>> m_orders;
};

} // namespace stagewright
