// Moving an element by hand: a press on it that goes past a few pixels drags
// it (Shift keeps the move horizontal or vertical), and the arrow keys nudge
// the selected element by a point, or ten with Shift. The canvas shows the
// move at once; the new place is stored through the edit route, as if it had
// been typed into the position field.
#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>

#include <QLineF>

#include <cmath>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

bool movable(const elementNode& node)
{
    return node.kind() != sceneObjectType::background && node.kind() != sceneObjectType::ground && !node.repeatedNode &&
        !node.keptOnly;
}

} // namespace

CanvasEditRoute::~CanvasEditRoute() = default;

tessaro::PointValue sceneEditor::storedPosition(const elementNode& node)
{
    if (!node.devices)
        return {};
    const tessaro::DeviceProperties* entry = tessaro::deviceEntryFor(*node.devices, tessaro::deviceName::defaultDevice);
    return entry && entry->position ? tessaro::pointFromText(*entry->position) : tessaro::PointValue{};
}

void sceneEditor::mouseDragged(const tessaro::kit::MouseEvent& event)
{
    if (!m_drag)
        return;
    const elementNodePtr node = m_drag->node.lock();
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
}

void sceneEditor::mouseUp(const tessaro::kit::MouseEvent&)
{
    if (std::optional<ElementDrag> drag = std::exchange(m_drag, std::nullopt); drag && drag->moving) {
        const elementNodePtr node = drag->node.lock();
        CanvasEditRoute* route = editRoute();
        if (node && node->parent() && route) {
            const QPointF delta = node->position() - drag->startPosition;
            // The history keeps the element where the press found it; the
            // route stores the new place.
            node->setPosition(drag->startPosition);
            route->moveElement(*this, *node,
                               {tessaro::roundedValue(drag->storedPosition.x + delta.x(), 1),
                                tessaro::roundedValue(drag->storedPosition.y + delta.y(), 1)},
                               false);
        }
    }
    const elementNodePtr selected = selectedNode();
    if (!selected || selected->repeatedNode || selected->kind() == sceneObjectType::background)
        return;
    selected->activelySelected = false;
}

void sceneEditor::keyDown(const tessaro::kit::KeyEvent& event)
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

void sceneEditor::nudgeSelection(double dx, double dy)
{
    const elementNodePtr node = selectedNode();
    CanvasEditRoute* route = editRoute();
    if (!node || !route || !movable(*node) || !m_tab || m_tab->elementPhase() != selectionPhase::Selected)
        return;
    const tessaro::PointValue from = storedPosition(*node);
    route->moveElement(*this, *node, {from.x + dx, from.y + dy}, true);
}

} // namespace stagewright
