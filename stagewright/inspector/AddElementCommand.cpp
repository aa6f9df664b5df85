#include "AddElementCommand.h"

#include "ApplyOperations.h"
#include "EditCommands.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <QCoreApplication>

#include <algorithm>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

QString addText(const std::string& elementName)
{
    return QCoreApplication::translate("AddElementCommand", "Add %1").arg(QString::fromStdString(elementName));
}

/// Shows `node` as the selection, so the inspector shows the new element.
void selectAdded(SceneEditor& scene, const ElementNodePtr& node)
{
    if (!node)
        return;
    scene.deselect();
    scene.clearGlow();
    scene.selectNode(node);
}

std::size_t placeInLayer(const ElementNode& node)
{
    const auto& siblings = node.parent()->children();
    const auto at =
        std::find_if(siblings.begin(), siblings.end(), [&](const auto& child) { return child.get() == &node; });
    return std::size_t(at - siblings.begin());
}

} // namespace

// ---- Elements --------------------------------------------------------------------------------

AddElementCommand::AddElementCommand(ProjectTab& tab, sceneObjectType kind, std::string elementName,
                                     std::optional<tessaro::PointValue> position)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_kind(kind),
      m_elementName(std::move(elementName)),
      m_position(position)
{
    setText(addText(m_elementName));
}

void AddElementCommand::redoStep()
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    if (m_added) {
        ElementNodePtr node = scene->placeElement(m_added->records, m_added->layerIndex, m_added->handle);
        // Ground sections are laid in a row: the row is laid again with it.
        if (node && m_kind == sceneObjectType::ground) {
            scene->rebuildGround(m_levelId);
            node = scene->elementWithHandle(m_added->handle);
        }
        selectAdded(*scene, node);
        return;
    }
    const ElementNodePtr node = scene->placement().addElement(m_kind, m_elementName);
    if (!node || !node->parent()) {
        setObsolete(true);
        return;
    }
    if (m_position)
        storeDeviceValue(*scene, *node, tessaro::deviceName::defaultDevice, PublishedElementList::position,
                         *m_position);
    if (!node->handle)
        node->handle = m_tab->elementHandles().issue();
    m_added = SceneEditor::ElementInPlace{node->records(), node->handle, placeInLayer(*node)};
    selectAdded(*scene, node);
}

void AddElementCommand::undo()
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene || !m_added)
        return;
    scene->removeElement(m_added->handle);
    if (m_kind == sceneObjectType::ground)
        scene->rebuildGround(m_levelId);
}

// ---- Backgrounds -----------------------------------------------------------------------------

AddBackgroundCommand::AddBackgroundCommand(ProjectTab& tab, const SceneEditor& scene, std::string elementName)
    : m_tab(&tab),
      m_levelId(tab.levelSelected()),
      m_elementName(std::move(elementName)),
      m_before(scene.backgroundList())
{
    setText(addText(m_elementName));
}

void AddBackgroundCommand::redoStep()
{
    if (m_after) {
        show(*m_after);
        return;
    }
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene) {
        setObsolete(true);
        return;
    }
    scene->addBackgroundImage(m_elementName, sceneObjectType::background);
    m_after = scene->backgroundList();
    const auto& list = scene->backgroundList();
    if (list && list->backgrounds && !list->backgrounds->empty())
        m_addedId = list->backgrounds->back().id;
    show(*m_after);
}

void AddBackgroundCommand::undo()
{
    show(m_before);
}

void AddBackgroundCommand::show(const std::optional<tessaro::Background>& list)
{
    SceneEditor* scene = sceneShowing(m_tab, m_levelId);
    if (!scene)
        return;
    if (scene->backgroundList() != list) {
        scene->backgroundList() = list;
        scene->rebuildBackgrounds();
        emit scene->backgroundListChanged();
    }
    for (const tessaro::kit::NodePtr& layer : {scene->backgroundNodes(), scene->pinnedBackgroundNodes()})
        for (const ElementNodePtr& node : SceneEditor::elementsOf(layer))
            if (m_addedId && node->backgroundAssociatedId == m_addedId) {
                selectAdded(*scene, node);
                return;
            }
    // The added background is gone: so is its selection.
    if (!scene->selectedNode())
        scene->deselect();
}

} // namespace stagewright
