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
        if (node)
            scene->reselect(node); // the inspector shows the new element
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
    scene->reselect(node); // the inspector shows the new element
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

} // namespace stagewright
