// Handles: the identities of elements for the editing session. A level's
// items are stored per kind in a fixed order (ground by its sequence, the
// other kinds in layer order, repeated copies left out) and loaded in that
// same order, so a handle remembered at a write-back finds its element again
// at the next load of the level.
#include "SceneEditor.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <algorithm>

namespace stagewright {

using tessaro::sceneObjectType;

std::vector<ElementNodePtr> SceneEditor::storedOrder(sceneObjectType kind) const
{
    if (kind == sceneObjectType::background)
        return {};
    std::vector<ElementNodePtr> nodes = elementsOf(layerFor(kind));
    std::erase_if(nodes, [](const ElementNodePtr& node) { return node->repeatedNode; });
    if (kind == sceneObjectType::ground)
        std::stable_sort(nodes.begin(), nodes.end(), [](const ElementNodePtr& a, const ElementNodePtr& b) {
            return a->sequenceId.value_or(0) < b->sequenceId.value_or(0);
        });
    return nodes;
}

void SceneEditor::assignHandles(sceneObjectType kind)
{
    if (!m_tab)
        return;
    const std::vector<ElementNodePtr> nodes = storedOrder(kind);
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (!nodes[i]->handle)
            nodes[i]->handle = m_tab->elementHandles().handleAt(m_tab->levelSelected(), kind, i);
}

void SceneEditor::rememberHandles(const tessaro::Uuid& levelId)
{
    if (!m_tab)
        return;
    ElementHandles& handles = m_tab->elementHandles();
    for (sceneObjectType kind :
         {sceneObjectType::obstacles, sceneObjectType::character, sceneObjectType::ground, sceneObjectType::checkpoint,
          sceneObjectType::coin, sceneObjectType::artifact, sceneObjectType::shield}) {
        std::vector<ElementHandle> order;
        for (const ElementNodePtr& node : storedOrder(kind)) {
            if (!node->handle)
                node->handle = handles.issue();
            order.push_back(node->handle);
        }
        handles.remember(levelId, kind, std::move(order));
    }
}

ElementNodePtr SceneEditor::elementWithHandle(ElementHandle handle) const
{
    if (!handle)
        return nullptr;
    for (const tessaro::kit::NodePtr& layer : {m_obstacleNodes, m_characterNodes, m_groundNodes, m_coinNodes,
                                               m_artifactNodes, m_checkpointNodes, m_shieldsNodes})
        if (layer)
            for (const tessaro::kit::NodePtr& child : layer->children())
                if (auto* element = dynamic_cast<ElementNode*>(child.get()); element && element->handle == handle)
                    return std::static_pointer_cast<ElementNode>(child);
    return nullptr;
}

} // namespace stagewright
