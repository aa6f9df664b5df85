// The order of a level's ground: the rows of the order pane, made from the
// ground nodes of the canvas, and the step of the history that lays the
// sections in a new order. The order reaches the file through the write-back.
#pragma once

#include <stagewright/state/ElementRecords.h>
#include <stagewright/state/HistoryStep.h>
#include <stagewright/state/StateTypes.h>

#include <tessaro/model/Uuid.h>

#include <vector>

namespace stagewright {

class SceneSettings;
class ElementNode;
class ProjectTab;
class SceneEditor;

/// The row of one ground node.
GroundOrderItem groundOrderItemOf(const ElementNode& node);
/// The rows of the ground of `scene`, in the order of its nodes.
std::vector<GroundOrderItem> groundOrderItemsOf(const SceneEditor& scene);
/// Fills the settings' rows from the front tab's canvas.
void collectGroundOrderItems(SceneSettings& settings);

/// `items` after a drag of the rows at `from` (ascending) to before row `to`.
std::vector<GroundOrderItem> movedItems(std::vector<GroundOrderItem> items, std::vector<int> from, int to);

/// "Update": the sections of the shown level in the order of `items`, as
/// one step of the tab's history; the ground is laid again.
void applyGroundOrder(ProjectTab& tab, const std::vector<GroundOrderItem>& items);

/// The order of the ground sections as a step of the history. The sections
/// are known by their handles, which survive the laying of the ground.
class GroundOrderCommand : public HistoryStep {
public:
    GroundOrderCommand(ProjectTab& tab, std::vector<ElementHandle> before, std::vector<ElementHandle> after);
    void redoStep() override;
    void undo() override;

private:
    void lay(const std::vector<ElementHandle>& order);

    ProjectTab* m_tab;
    tessaro::Uuid m_levelId;
    std::vector<ElementHandle> m_before;
    std::vector<ElementHandle> m_after;
};

} // namespace stagewright
