// Reaching an element: a click on the canvas, the "Object Menu" for a click
// on overlapping elements, and the element lists. An element always beats a
// background, and overlapping elements are never told apart by depth: the
// user chooses.
#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <QDateTime>

#include <cmath>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

void trace(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

QString now()
{
    return QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
}

/// The element a hit node belongs to: itself, or the element that draws it
/// as a picture of its own (the further coins of a coin row, a stack).
elementNodePtr owningElement(const tessaro::kit::NodePtr& hit)
{
    for (tessaro::kit::Node* node = hit.get(); node; node = node->parent()) {
        // A distance guide shows how far its element acts; it is no part of
        // the element to click, and often crosses other elements.
        if (dynamic_cast<distanceNode*>(node))
            return nullptr;
        if (auto* element = dynamic_cast<elementNode*>(node))
            return element->keptOnly ? nullptr : std::static_pointer_cast<elementNode>(element->shared_from_this());
    }
    return nullptr;
}

} // namespace

NodeMenu sceneEditor::objectMenu(const std::vector<elementNodePtr>& elements)
{
    NodeMenu menu{QStringLiteral("Object Menu"), QStringLiteral("Element"), {}};
    for (const elementNodePtr& node : elements) {
        const QString kind = QString::fromUtf8(tessaro::caseText(node->kind()));
        menu.items.push_back({QStringLiteral("Name: ") +
                                  QString::fromStdString(node->property_objectName.value_or("")) +
                                  QStringLiteral(" (") + kind + QLatin1Char(')'),
                              node->name(), node->kind()});
    }
    return menu;
}

elementNodePtr sceneEditor::clickTarget(const elementNodePtr& node) const
{
    if (!node || !node->repeatedNode)
        return node;
    elementNodePtr owner = node;
    enumerateChildNodesWithName(QStringLiteral("//") + node->repeatParentNode,
                                [&](const tessaro::kit::NodePtr& match, bool&) {
                                    if (auto element = std::dynamic_pointer_cast<elementNode>(match))
                                        owner = element;
                                });
    return owner;
}

void sceneEditor::mouseDown(const tessaro::kit::MouseEvent& event)
{
    m_drag.reset();
    deselect();
    clearGlow();

    std::vector<elementNodePtr> elements;
    elementNodePtr background;
    for (const tessaro::kit::NodePtr& hit : nodesAtPoint(event.sceneLocation)) {
        elementNodePtr element = owningElement(hit);
        if (!element || std::find(elements.begin(), elements.end(), element) != elements.end())
            continue;
        if (element->kind() != sceneObjectType::background)
            elements.push_back(std::move(element));
        else if (!background)
            background = std::move(element);
    }

    if (elements.size() >= 2) {
        const NodeMenu menu = objectMenu(elements);
        if (const MenuPresenter& present = m_hooks.presentMenu)
            if (const std::optional<std::size_t> picked = present(menu, event); picked && *picked < menu.items.size())
                handleMenuItem(menu.items[*picked]);
        return;
    }
    elementNodePtr target = elements.empty() ? background : elements.front();
    if (!target) {
        m_nodeSelectedName.reset();
        return;
    }
    m_nodeSelectedName = target->name();
    target = clickTarget(target);
    selectNode(target);

    // A press on an element may become a drag of it.
    if (target->kind() != sceneObjectType::background && target->kind() != sceneObjectType::ground &&
        !target->repeatedNode && target->parent()) {
        ElementDrag drag;
        drag.node = target;
        drag.pressInView = event.viewLocation;
        drag.pressInScene = event.sceneLocation;
        drag.startPosition = target->position();
        drag.storedPosition = storedPosition(*target);
        m_drag = drag;
    }
}

void sceneEditor::handleMenuItem(const NodeMenuItem& item)
{
    trace(QStringLiteral("menu name clicked: ") + item.nodeId.value_or(QString()));
    trace(QStringLiteral("menu type clicked: ") + QString::fromUtf8(tessaro::caseText(item.nodeType)));
    m_nodeSelectedName = item.nodeId;
    selectNode(clickTarget(elementNamed(item.nodeId.value_or(QString()))));
}

void sceneEditor::selectNode(const elementNodePtr& node)
{
    // An element kept only because its catalogue entry is missing is saved
    // as read and never edited.
    if (!node || node->keptOnly)
        return;
    trace(now() + QStringLiteral(": Start"));
    publishSelection(*node);
    trace(now() + QStringLiteral(": END"));
}

void sceneEditor::selectNodeNamed(const QString& text)
{
    if (m_tab && m_tab->elementPhase() == selectionPhase::BeingSelected)
        return;
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() != 2)
        return;
    const std::optional<sceneObjectType> kind = tessaro::caseFromText<sceneObjectType>(parts[0].toStdString());

    elementNodePtr node;
    if (kind != sceneObjectType::background) {
        node = elementNamed(parts[1]);
    } else {
        const std::optional<tessaro::Uuid> id = tessaro::Uuid::fromText(parts[1].toStdString());
        if (!id)
            return;
        for (const tessaro::kit::NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes}) {
            for (const elementNodePtr& candidate : elementsOf(layer))
                if (candidate->backgroundAssociatedId == id) {
                    node = candidate;
                    break;
                }
            if (node)
                break;
        }
    }
    if (!node || node->keptOnly)
        return;

    if (m_tab)
        m_tab->setSelectedObject({});
    if (node->parent() && node->parent()->parent() == this) {
        deselect();
        clearGlow();
    }
    if (!intersectsNode(*node))
        moveScene(publishedElementList::scenePosition,
                  tessaro::PointValue{tessaro::roundedValue(node->position().x(), 1),
                                      tessaro::roundedValue(node->position().y(), 1)});
    node->selectFromList();
}

} // namespace stagewright
