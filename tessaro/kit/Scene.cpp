#include "Scene.h"

#include "AudioNode.h"

#include <algorithm>

namespace tessaro::kit {

Scene::Scene(const QSizeF& size) : m_size(size), m_physicsWorld(std::make_unique<PhysicsWorld>(*this))
{
    m_scene = this;
    setUserInteractionEnabled(true);
}

Scene::~Scene()
{
    // Nodes leave while the world still exists, so their bodies can detach.
    removeAllChildren();
    m_scene = nullptr;
}

void Scene::setSize(const QSizeF& size)
{
    if (size == m_size)
        return;
    const QSizeF old = m_size;
    m_size = size;
    touch();
    didChangeSize(old);
}

void Scene::setAnchorPoint(const QPointF& anchor)
{
    m_anchorPoint = anchor;
    touch();
}

void Scene::setScaleMode(SceneScaleMode mode)
{
    m_scaleMode = mode;
    touch();
}

void Scene::setBackgroundColor(const QColor& c)
{
    m_backgroundColor = c;
    touch();
}

QRectF Scene::sceneFrame() const
{
    return QRectF(-m_anchorPoint.x() * m_size.width(), -m_anchorPoint.y() * m_size.height(), m_size.width(),
                  m_size.height());
}

QRectF Scene::contentRect() const
{
    return sceneFrame();
}

// --- frame loop --------------------------------------------------------------------

void Scene::processFrame(double currentTime)
{
    const double dt = m_lastTime < 0 ? 0.0 : std::max(0.0, currentTime - m_lastTime);
    m_lastTime = currentTime;
    update(currentTime);
    if (!isPaused())
        evaluateActions(dt);
    didEvaluateActions();
    if (!isPaused())
        m_physicsWorld->simulate(dt);
    didSimulatePhysics();
    didFinishUpdate();
}

namespace {
void collectActive(Node& node, double factor, std::vector<std::pair<NodePtr, double>>& out)
{
    for (const auto& child : node.children()) {
        if (child->isPaused())
            continue;
        const double f = factor * child->speed();
        if (child->hasActions())
            out.emplace_back(child, f);
        if (!child->children().empty())
            collectActive(*child, f, out);
    }
}
} // namespace

void Scene::evaluateActions(double dt)
{
    std::vector<std::pair<NodePtr, double>> active;
    const double f = speed();
    if (!m_actions.empty())
        advanceActions(m_lastTime, dt * f, f);
    collectActive(*this, f, active);
    for (auto& [node, factor] : active)
        if (node->scene() == this)
            node->advanceActions(m_lastTime, dt * factor, factor);
}

void Scene::update(double) {}
void Scene::didEvaluateActions() {}
void Scene::didSimulatePhysics() {}
void Scene::didFinishUpdate() {}
void Scene::didMoveToView(SceneView*) {}
void Scene::willMoveFromView(SceneView*) {}
void Scene::didChangeSize(const QSizeF&) {}

void Scene::setView(SceneView* view)
{
    m_view = view;
    // Looping sounds start when the scene is shown and stop when it is not.
    for (const auto& node : nodesWithName(QStringLiteral("//*"))) {
        if (auto audio = std::dynamic_pointer_cast<AudioNode>(node)) {
            if (view)
                audio->startAutoplayIfShown();
            else
                audio->stop();
        }
    }
}

// --- view mapping -------------------------------------------------------------------

QTransform Scene::sceneToViewTransform(const QSizeF& viewSize, qreal zoom) const
{
    const qreal w = m_size.width(), h = m_size.height();
    qreal sx = 1, sy = 1;
    if (w > 0 && h > 0 && viewSize.width() > 0 && viewSize.height() > 0) {
        const qreal fx = viewSize.width() / w, fy = viewSize.height() / h;
        switch (m_scaleMode) {
        case SceneScaleMode::Fill:
            sx = fx;
            sy = fy;
            break;
        case SceneScaleMode::AspectFill: sx = sy = std::max(fx, fy); break;
        case SceneScaleMode::AspectFit: sx = sy = std::min(fx, fy); break;
        case SceneScaleMode::ResizeFill: break;
        }
    }
    if (zoom > 0) {
        sx *= zoom;
        sy *= zoom;
    }
    const NodePtr eye = camera();
    const QPointF c = eye && eye->scene() == this ? eye->rootTransform().map(QPointF(0, 0)) : sceneFrame().center();
    return QTransform(sx, 0, 0, -sy, viewSize.width() / 2 - c.x() * sx, viewSize.height() / 2 + c.y() * sy);
}

QRectF Scene::visibleRect(const QSizeF& viewSize, qreal zoom) const
{
    return sceneToViewTransform(viewSize, zoom).inverted().mapRect(QRectF(QPointF(0, 0), viewSize));
}

// --- events -------------------------------------------------------------------------

NodePtr Scene::interactiveNodeAtPoint(const QPointF& scenePoint) const
{
    for (const auto& node : nodesAtPoint(scenePoint))
        if (node->isUserInteractionEnabled())
            return node;
    return nullptr;
}

void Scene::dispatchMouseEvent(MouseKind kind, const MouseEvent& event)
{
    if (kind == MouseKind::Moved) {
        mouseMoved(event);
        return;
    }
    NodePtr held;
    Node* target = this;
    if (kind == MouseKind::Down) {
        held = interactiveNodeAtPoint(event.sceneLocation);
        m_mouseTarget = held;
        m_mouseButton = event.button;
    } else {
        held = m_mouseTarget.lock();
        if (held && held->scene() != this)
            held.reset();
    }
    if (held)
        target = held.get();
    const Qt::MouseButton button = kind == MouseKind::Down ? event.button : m_mouseButton;
    const bool left = button == Qt::LeftButton || button == Qt::NoButton;
    const bool right = button == Qt::RightButton;
    switch (kind) {
    case MouseKind::Down:
        left ? target->mouseDown(event) : right ? target->rightMouseDown(event) : target->otherMouseDown(event);
        break;
    case MouseKind::Dragged:
        left        ? target->mouseDragged(event)
            : right ? target->rightMouseDragged(event)
                    : target->otherMouseDragged(event);
        break;
    case MouseKind::Up:
        left ? target->mouseUp(event) : right ? target->rightMouseUp(event) : target->otherMouseUp(event);
        m_mouseTarget.reset();
        m_mouseButton = Qt::NoButton;
        break;
    case MouseKind::Moved: break;
    }
}

void Scene::dispatchScrollWheel(const MouseEvent& event)
{
    scrollWheel(event);
}

void Scene::dispatchKeyEvent(bool down, const KeyEvent& event)
{
    if (down)
        keyDown(event);
    else
        keyUp(event);
}

} // namespace tessaro::kit
