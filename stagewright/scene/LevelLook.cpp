// Showing a change of the level's own values. Most elements draw only their
// own records; coins, checkpoints and shields also draw something of the
// level's: the coins' repeat distance, the checkpoints' catalogue entry and
// the shields' picture.
#include "SceneEditor.h"
#include "SceneWriteBack.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/ValueText.h>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

/// Places every element of `layer` again from its written-back item, one
/// item per node in layer order, keeping handles and the selection.
template <class Item, class Place>
void placeAgain(SceneEditor& scene, const tessaro::kit::NodePtr& layer, const std::vector<Item>& items, Place place)
{
    const std::vector<ElementNodePtr> nodes = SceneEditor::elementsOf(layer);
    if (nodes.size() != items.size())
        return;
    const ElementNodePtr selected = scene.selectedNode();
    ElementNodePtr reselect;
    for (const ElementNodePtr& node : nodes)
        scene.removeNode(*node);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const ElementNodePtr node = place(items[i]);
        if (!node)
            continue;
        node->handle = nodes[i]->handle;
        if (nodes[i] == selected)
            reselect = node;
    }
    if (reselect) {
        scene.deselect();
        scene.clearGlow();
        scene.selectNode(reselect);
    }
}

} // namespace

tessaro::PointValue SceneEditor::coinRepeatDistance() const
{
    if (!m_tab)
        return {};
    const tessaro::Level* level = tabLevel(m_tab->levelSelected());
    if (!level || !level->coins)
        return {};
    return tessaro::roundedPointFromText(1, level->coins->repeatDistance.value_or(std::string()));
}

void SceneEditor::followLevelField(const tessaro::FieldPath& path)
{
    // The checkpoints' and shields' pictures and the coins' repeat distance
    // are drawn from the level's own records; its other values are not drawn.
    const std::pair<const char*, sceneObjectType> drawn[] = {{"coins.repeatDistance", sceneObjectType::coin},
                                                             {"checkpoints.image", sceneObjectType::checkpoint},
                                                             {"shields.image", sceneObjectType::shield}};
    for (const auto& [field, kind] : drawn)
        if (path == tessaro::FieldPath(field))
            showLevelLook(kind);
    // A background's picture, depth and visibility refresh its pictures;
    // any other change of the background images lays them all again.
    static const tessaro::FieldPath background("background");
    static const tessaro::FieldPath images("background.backgrounds");
    if (path != background && !path.startsWith(images))
        return;
    const tessaro::Level* level = m_tab ? tabLevel(m_tab->levelSelected()) : nullptr;
    if (!level)
        return;
    const std::vector<std::string>& steps = path.steps();
    std::optional<std::size_t> refreshed;
    if (steps.size() == 4 && (steps[3] == "image" || steps[3] == "zPosition" || steps[3] == "isVisible"))
        refreshed = std::size_t(std::stoul(steps[2]));
    showBackgroundsOf(*level, refreshed);
}

void SceneEditor::showLevelLook(sceneObjectType kind)
{
    const tessaro::Level* level = m_tab ? tabLevel(m_tab->levelSelected()) : nullptr;
    if (!level)
        return;
    switch (kind) {
    case sceneObjectType::coin:
        for (const ElementNodePtr& node : elementsOf(m_coinNodes))
            if (!node->keptOnly)
                node->placeFromDevices();
        break;
    case sceneObjectType::checkpoint: {
        if (!level->checkpoints)
            return;
        const std::string image = level->checkpoints->image;
        const tessaro::CheckPointData items = SceneWriteBack(*this).collectCheckpoints(level);
        placeAgain(*this, m_checkpointNodes, items.locations.value_or(std::vector<tessaro::CheckPointLocation>{}),
                   [&](const tessaro::CheckPointLocation& item) { return m_placement->placeCheckpoint(item, image); });
        break;
    }
    case sceneObjectType::shield: {
        if (!level->shields)
            return;
        const std::string image = level->shields->image.value_or(std::string());
        const tessaro::Shields items = SceneWriteBack(*this).collectShields(level);
        placeAgain(*this, m_shieldsNodes, items.shields.value_or(std::vector<tessaro::Shield>{}),
                   [&](const tessaro::Shield& item) { return m_placement->placeShield(item, image); });
        break;
    }
    default: break;
    }
}

} // namespace stagewright
