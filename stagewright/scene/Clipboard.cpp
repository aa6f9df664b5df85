// Deleting, pasting and putting back elements. The scene takes an element out
// as its records and makes an element from records; what goes on the
// clipboard and into the edit history is decided above it.
#include "SceneEditor.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

std::optional<std::size_t> childIndex(const tessaro::kit::Node& layer, const tessaro::kit::Node& child)
{
    const auto& children = layer.children();
    for (std::size_t i = 0; i < children.size(); ++i)
        if (children[i].get() == &child)
            return i;
    return std::nullopt;
}

} // namespace

void SceneEditor::removeNode(ElementNode& node)
{
    // A repeated obstacle leaves with its copies.
    if (!node.repeatedNode && m_obstacleNodes && node.parent() == m_obstacleNodes.get()) {
        std::vector<tessaro::kit::NodePtr> copies;
        for (const ElementNodePtr& other : elementsOf(m_obstacleNodes))
            if (other->repeatedNode && other->repeatParentNode == node.name())
                copies.push_back(other);
        m_obstacleNodes->removeChildrenInArray(copies);
    }
    node.setPhysicsBody(nullptr);
    node.obstacleOverrides.reset();
    node.groundSection.reset();
    node.characterOverrides.reset();
    node.animationOverrides.reset();
    node.artifactOverrides.reset();
    node.coinOverrides.reset();
    node.shieldOverrides.reset();
    node.checkPointOverrides.reset();
    node.devices.reset();
    node.soundEffects.reset();
    node.removeAllActions();
    node.removeAllChildren();
    node.removeFromParent();
}

std::optional<SceneEditor::ElementInPlace> SceneEditor::removeElement(ElementHandle handle)
{
    const ElementNodePtr node = elementWithHandle(handle);
    if (!node || !node->parent())
        return std::nullopt;
    if (m_tab && m_tab->selectedObject().name == node->name().toStdString())
        deselect();
    ElementInPlace removed{node->records(), node->handle, childIndex(*node->parent(), *node).value_or(0)};
    removeNode(*node);
    return removed;
}

std::optional<SceneEditor::ElementInPlace> SceneEditor::deleteSelectedNode()
{
    const ElementNodePtr node = selectedNode();
    if (!node || !node->parent())
        return std::nullopt;
    // The node gets a handle if it has none, so that the element can come back.
    if (!node->handle && m_tab)
        node->handle = m_tab->elementHandles().issue();
    return removeElement(node->handle);
}

ElementNodePtr SceneEditor::placeElement(const ElementRecords& element, std::size_t layerIndex, ElementHandle handle)
{
    const tessaro::kit::NodePtr layer = element.kind == sceneObjectType::background ? nullptr : layerFor(element.kind);
    if (!layer)
        return nullptr;
    auto node = ElementNode::create(element.texture, element.size);
    node->handle = handle;
    layer->insertChild(node, int(std::min(layerIndex, layer->children().size())));
    node->restoreRecords(element);
    if (element.kind == sceneObjectType::obstacles)
        m_placement->addRepeatedCopies(node);
    return node;
}

ElementNodePtr SceneEditor::pasteNode(const ElementRecords& copy, std::optional<tessaro::PointValue> location,
                                      ElementHandle handle)
{
    // A background is a record of the level's background list, not an element.
    if (copy.kind == sceneObjectType::background)
        return nullptr;
    const tessaro::kit::NodePtr layer = layerFor(copy.kind);
    if (!layer)
        return nullptr;
    ElementRecords pasted = copy;
    tessaro::PointValue at = location.value_or(tessaro::PointValue{});
    at.x += m_navigationNodes ? std::abs(m_navigationNodes->position().x()) : 0.0;
    if (tessaro::roundedValue(at.x, 1) == tessaro::roundedValue(copy.position.x(), 1))
        at.x += 100;
    pasted.position = QPointF(at.x, at.y);
    if (pasted.devices)
        for (tessaro::DeviceProperties& entry : *pasted.devices)
            entry.position = tessaro::textFromPair(at.x, at.y);
    // The copy is an item of its own: its override records get ids of their own.
    if (pasted.obstacleOverrides)
        pasted.obstacleOverrides->id = tessaro::Uuid::create();
    if (pasted.characterOverrides)
        pasted.characterOverrides->id = tessaro::Uuid::create();
    if (pasted.groundSection)
        pasted.groundSection->id = tessaro::Uuid::create();
    if (copy.kind == sceneObjectType::ground && m_groundNodes)
        pasted.sequenceId = std::int64_t(m_groundNodes->children().size()) + 1;
    return placeElement(pasted, layer->children().size(), handle);
}

} // namespace stagewright
