#include "ElementHandles.h"

namespace stagewright {

void ElementHandles::remember(const tessaro::Uuid& levelId, tessaro::sceneObjectType kind,
                              std::vector<ElementHandle> order)
{
    m_orders[{levelId, kind}] = std::move(order);
}

ElementHandle ElementHandles::handleAt(const tessaro::Uuid& levelId, tessaro::sceneObjectType kind, std::size_t index)
{
    std::vector<ElementHandle>& order = m_orders[{levelId, kind}];
    while (order.size() <= index)
        order.push_back(issue());
    return order[index];
}

} // namespace stagewright
