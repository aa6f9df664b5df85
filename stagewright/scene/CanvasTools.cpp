// A click: an element always beats a background, and overlapping elements
// are never told apart by depth: the user chooses from the "Object Menu".
#include "CanvasTools.h"

#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <QLineF>

#include <cmath>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

void trace(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

/// The element a hit node belongs to: itself, or the element that draws it
/// as a picture of its own (the further coins of a coin row, a stack).
ElementNodePtr owningElement(const tessaro::kit::NodePtr& hit)
{
    for (tessaro::kit::Node* node = hit.get(); node; node = node->parent()) {
        // A distance guide shows how far its element acts; it is no part of
        // the element to click, and often crosses other elements.
        if (dynamic_cast<DistanceGuideNode*>(node))
            return nullptr;
        if (auto* element = dynamic_cast<ElementNode*>(node))
            return element->keptOnly ? nullptr : std::static_pointer_cast<ElementNode>(element->shared_from_this());
    }
    return nullptr;
}

bool movable(const ElementNode& node)
{
    return node.kind() != sceneObjectType::background && node.kind() != sceneObjectType::ground && !node.repeatedNode &&
        !node.keptOnly;
}

} // namespace

CanvasEditRoute::~CanvasEditRoute() = default;

NodeMenu CanvasTools::objectMenu(const std::vector<ElementNodePtr>& elements)
{
    NodeMenu menu{QStringLiteral("Object Menu"), QStringLiteral("Element"), {}};
    for (const ElementNodePtr& node : elements) {
        const QString kind = QString::fromUtf8(tessaro::caseText(node->kind()));
        menu.items.push_back({QStringLiteral("Name: ") +
                                  QString::fromStdString(node->property_objectName.value_or("")) +
                                  QStringLiteral(" (") + kind + QLatin1Char(')'),
                              node->name(), node->kind()});
    }
    return menu;
}

ElementNodePtr CanvasTools::clickTarget(const ElementNodePtr& node) const
{
    if (!node || !node->repeatedNode)
        return node;
    ElementNodePtr owner = node;
    m_scene.enumerateChildNodesWithName(QStringLiteral("//") + node->repeatParentNode,
                                        [&](const tessaro::kit::NodePtr& match, bool&) {
                                            if (auto element = std::dynamic_pointer_cast<ElementNode>(match))
                                                owner = element;
                                        });
    return owner;
}

void CanvasTools::mouseDown(const tessaro::kit::MouseEvent& event)
{
    m_drag.reset();
    m_scene.deselect();
    m_scene.clearGlow();

    std::vector<ElementNodePtr> elements;
    ElementNodePtr background;
    for (const tessaro::kit::NodePtr& hit : m_scene.nodesAtPoint(event.sceneLocation)) {
        ElementNodePtr element = owningElement(hit);
        if (!element || std::find(elements.begin(), elements.end(), element) != elements.end())
            continue;
        if (element->kind() != sceneObjectType::background)
            elements.push_back(std::move(element));
        else if (!background)
            background = std::move(element);
    }

    if (elements.size() >= 2) {
        const NodeMenu menu = objectMenu(elements);
        if (const MenuPresenter& present = m_scene.hooks().presentMenu)
            if (const std::optional<std::size_t> picked = present(menu, event); picked && *picked < menu.items.size())
                handleMenuItem(menu.items[*picked]);
        return;
    }
    ElementNodePtr target = elements.empty() ? background : elements.front();
    if (!target) {
        m_scene.setNodeSelectedName(std::nullopt);
        return;
    }
    m_scene.setNodeSelectedName(target->name());
    target = clickTarget(target);
    m_scene.selectNode(target);

    // A press on an element may become a drag of it.
    if (target->kind() != sceneObjectType::background && target->kind() != sceneObjectType::ground &&
        !target->repeatedNode && target->parent()) {
        ElementDrag drag;
        drag.node = target;
        drag.pressInView = event.viewLocation;
        drag.pressInScene = event.sceneLocation;
        drag.startPosition = target->position();
        drag.storedPosition = target->storedPosition();
        for (const ElementNodePtr& copy : SceneEditor::elementsOf(target->parent()->shared_from_this()))
            if (copy->repeatedNode && copy->repeatParentNode == target->name())
                drag.copies.emplace_back(copy, copy->position());
        m_drag = drag;
    }
}

void CanvasTools::handleMenuItem(const NodeMenuItem& item)
{
    trace(QStringLiteral("menu name clicked: ") + item.nodeId.value_or(QString()));
    trace(QStringLiteral("menu type clicked: ") + QString::fromUtf8(tessaro::caseText(item.nodeType)));
    m_scene.setNodeSelectedName(item.nodeId);
    m_scene.selectNode(clickTarget(m_scene.elementNamed(item.nodeId.value_or(QString()))));
}

void CanvasTools::mouseDragged(const tessaro::kit::MouseEvent& event)
{
    if (!m_drag)
        return;
    const ElementNodePtr node = m_drag->node.lock();
    if (!node || !node->parent()) {
        m_drag.reset();
        return;
    }
    if (!m_drag->moving && QLineF(m_drag->pressInView, event.viewLocation).length() <= ElementDrag::threshold)
        return;
    m_drag->moving = true;
    QPointF delta = event.sceneLocation - m_drag->pressInScene;
    if (event.modifiers & Qt::ShiftModifier) {
        if (std::abs(delta.x()) >= std::abs(delta.y()))
            delta.setY(0);
        else
            delta.setX(0);
    }
    node->setPosition(m_drag->startPosition + delta);
    for (const auto& [copy, start] : m_drag->copies)
        if (const tessaro::kit::NodePtr moving = copy.lock())
            moving->setPosition(start + delta);
}

void CanvasTools::mouseUp(const tessaro::kit::MouseEvent&)
{
    if (std::optional<ElementDrag> drag = std::exchange(m_drag, std::nullopt); drag && drag->moving) {
        const ElementNodePtr node = drag->node.lock();
        CanvasEditRoute* route = m_scene.editRoute();
        if (node && node->parent() && route) {
            const QPointF delta = node->position() - drag->startPosition;
            // The history keeps the element where the press found it; the
            // route stores the new place.
            node->setPosition(drag->startPosition);
            route->moveElement(m_scene, *node,
                               {tessaro::roundedValue(drag->storedPosition.x + delta.x(), 1),
                                tessaro::roundedValue(drag->storedPosition.y + delta.y(), 1)},
                               false);
        }
    }
    const ElementNodePtr selected = m_scene.selectedNode();
    if (!selected || selected->repeatedNode || selected->kind() == sceneObjectType::background)
        return;
    selected->activelySelected = false;
}

void CanvasTools::keyDown(const tessaro::kit::KeyEvent& event)
{
    const double step = event.modifiers & Qt::ShiftModifier ? 10 : 1;
    switch (event.key) {
    case Qt::Key_Left: nudgeSelection(-step, 0); break;
    case Qt::Key_Right: nudgeSelection(step, 0); break;
    case Qt::Key_Up: nudgeSelection(0, step); break;
    case Qt::Key_Down: nudgeSelection(0, -step); break;
    default: break;
    }
}

void CanvasTools::nudgeSelection(double dx, double dy)
{
    const ElementNodePtr node = m_scene.selectedNode();
    CanvasEditRoute* route = m_scene.editRoute();
    if (!node || !route || !movable(*node) || !m_scene.tab() ||
        m_scene.tab()->elementPhase() != SelectionPhase::Selected)
        return;
    const tessaro::PointValue from = node->storedPosition();
    route->moveElement(m_scene, *node, {from.x + dx, from.y + dy}, true);
}

} // namespace stagewright
