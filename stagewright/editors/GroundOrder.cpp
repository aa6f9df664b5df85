#include "GroundOrder.h"

#include <stagewright/inspector/EditCommands.h>
#include <stagewright/scene/ElementNode.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ValueText.h>

#include <QCoreApplication>

#include <algorithm>

namespace stagewright {

namespace {

std::vector<ElementNodePtr> groundElements(const SceneEditor& scene)
{
    std::vector<ElementNodePtr> out;
    for (const tessaro::kit::NodePtr& child : scene.groundNodes()->children())
        if (auto element = std::dynamic_pointer_cast<ElementNode>(child))
            out.push_back(std::move(element));
    return out;
}

} // namespace

GroundOrderItem groundOrderItemOf(const ElementNode& node)
{
    GroundOrderItem item;
    const auto& section = node.groundSection;
    if (section && section->id)
        item.id = *section->id;
    item.name = node.name();
    if (!section)
        return item;
    item.image = QString::fromStdString(section->image.value_or(std::string()));
    item.stacked = section->stack.value_or(false);
    item.repeatCount = section->repeatCount.value_or(0);
    item.groundType = tessaro::caseFromText<tessaro::groundBaseType>(section->groundType.value_or(std::string()))
                          .value_or(tessaro::groundBaseType::Ground);
    item.distance = tessaro::sizeFromText(section->distance.value_or(std::string()));
    item.filename = defaultGroundImage(item.groundType, item.image);
    return item;
}

std::vector<GroundOrderItem> groundOrderItemsOf(const SceneEditor& scene)
{
    std::vector<GroundOrderItem> items;
    for (const ElementNodePtr& node : groundElements(scene))
        items.push_back(groundOrderItemOf(*node));
    return items;
}

void collectGroundOrderItems(SceneSettings& settings)
{
    const auto tab = settings.selectedProjectTab();
    const SceneEditorPtr scene = tab ? sceneEditorOf(tab->currentScene()) : nullptr;
    settings.setGroundOrderItems(scene ? groundOrderItemsOf(*scene) : std::vector<GroundOrderItem>{});
}

std::vector<GroundOrderItem> movedItems(std::vector<GroundOrderItem> items, std::vector<int> from, int to)
{
    // The standard move of a list: the moved rows keep their order and land
    // before the row that stood at `to`.
    std::vector<GroundOrderItem> moved;
    std::sort(from.begin(), from.end(), std::greater<>());
    for (int index : from) {
        if (index < 0 || index >= int(items.size()))
            continue;
        moved.insert(moved.begin(), items[std::size_t(index)]);
        items.erase(items.begin() + index);
        if (index < to)
            --to;
    }
    to = std::clamp(to, 0, int(items.size()));
    items.insert(items.begin() + to, moved.begin(), moved.end());
    return items;
}

void applyGroundOrder(ProjectTab& tab, const std::vector<GroundOrderItem>& items)
{
    const SceneEditorPtr scene = sceneEditorOf(tab.currentScene());
    if (!scene)
        return;
    std::vector<ElementHandle> before;
    for (const ElementNodePtr& node : groundElements(*scene)) {
        if (!node->handle)
            node->handle = tab.elementHandles().issue();
        before.push_back(node->handle);
    }
    std::vector<ElementHandle> after;
    for (const GroundOrderItem& item : items)
        for (const ElementNodePtr& node : groundElements(*scene))
            if (node->name() == item.name) {
                after.push_back(node->handle);
                break;
            }
    // A section the rows do not name keeps its place after the named ones.
    for (ElementHandle handle : before)
        if (std::find(after.begin(), after.end(), handle) == after.end())
            after.push_back(handle);
    pushStep(tab.undoStack(), new GroundOrderCommand(tab, std::move(before), std::move(after)));
}

GroundOrderCommand::GroundOrderCommand(ProjectTab& tab, std::vector<ElementHandle> before,
                                       std::vector<ElementHandle> after)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_before(std::move(before)),
      m_after(std::move(after))
{
    setText(QCoreApplication::translate("GroundOrderCommand", "Sort Ground"));
    // The same order again is no step.
    if (m_before == m_after)
        setObsolete(true);
}

void GroundOrderCommand::redoStep()
{
    lay(m_after);
}

void GroundOrderCommand::undo()
{
    lay(m_before);
}

void GroundOrderCommand::lay(const std::vector<ElementHandle>& order)
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    std::int64_t counter = 0;
    for (ElementHandle handle : order) {
        if (const ElementNodePtr node = scene->elementWithHandle(handle))
            node->sequenceId = counter;
        ++counter;
    }
    scene->rebuildGround(m_levelId);
}

} // namespace stagewright
