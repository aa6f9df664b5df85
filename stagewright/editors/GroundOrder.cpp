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

std::vector<elementNodePtr> groundElements(const sceneEditor& scene)
{
    std::vector<elementNodePtr> out;
    for (const tessaro::kit::NodePtr& child : scene.groundNodes()->children())
        if (auto element = std::dynamic_pointer_cast<elementNode>(child))
            out.push_back(std::move(element));
    return out;
}

} // namespace

groundOrderItem groundOrderItemOf(const elementNode& node)
{
    groundOrderItem item;
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

std::vector<groundOrderItem> groundOrderItemsOf(const sceneEditor& scene)
{
    std::vector<groundOrderItem> items;
    for (const elementNodePtr& node : groundElements(scene))
        items.push_back(groundOrderItemOf(*node));
    return items;
}

void collectGroundOrderItems(SceneSettings& settings)
{
    const auto tab = settings.selectedProjectTab();
    const sceneEditorPtr scene = tab ? sceneEditorOf(tab->currentScene()) : nullptr;
    settings.setGroundOrderItems(scene ? groundOrderItemsOf(*scene) : std::vector<groundOrderItem>{});
}

std::vector<groundOrderItem> movedItems(std::vector<groundOrderItem> items, std::vector<int> from, int to)
{
    // The standard move of a list: the moved rows keep their order and land
    // before the row that stood at `to`.
    std::vector<groundOrderItem> moved;
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

void applyGroundOrder(projectTab& tab, const std::vector<groundOrderItem>& items)
{
    const sceneEditorPtr scene = sceneEditorOf(tab.currentScene());
    if (!scene)
        return;
    std::vector<elementHandle> before;
    for (const elementNodePtr& node : groundElements(*scene)) {
        if (!node->handle)
            node->handle = tab.elementHandles().issue();
        before.push_back(node->handle);
    }
    std::vector<elementHandle> after;
    for (const groundOrderItem& item : items)
        for (const elementNodePtr& node : groundElements(*scene))
            if (node->name() == item.name) {
                after.push_back(node->handle);
                break;
            }
    // A section the rows do not name keeps its place after the named ones.
    for (elementHandle handle : before)
        if (std::find(after.begin(), after.end(), handle) == after.end())
            after.push_back(handle);
    pushStep(tab.undoStack(), new GroundOrderCommand(tab, std::move(before), std::move(after)));
}

GroundOrderCommand::GroundOrderCommand(projectTab& tab, std::vector<elementHandle> before,
                                       std::vector<elementHandle> after)
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

void GroundOrderCommand::lay(const std::vector<elementHandle>& order)
{
    sceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    std::int64_t counter = 0;
    for (elementHandle handle : order) {
        if (const elementNodePtr node = scene->elementWithHandle(handle))
            node->sequenceId = counter;
        ++counter;
    }
    scene->rebuildGround(m_levelId);
}

} // namespace stagewright
