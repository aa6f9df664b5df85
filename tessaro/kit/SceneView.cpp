#include "SceneView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

namespace tessaro::kit {

SceneView::SceneView(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    if (QScreen* s = screen(); s && s->refreshRate() > 1)
        m_fps = int(std::lround(s->refreshRate()));
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SceneView::tick);
    m_clock.start();
    m_fpsClock.start();
}

SceneView::~SceneView()
{
    if (m_scene) {
        m_scene->willMoveFromView(this);
        m_scene->setView(nullptr);
    }
}

void SceneView::presentScene(const std::shared_ptr<Scene>& scene)
{
    if (scene == m_scene)
        return;
    if (m_scene) {
        m_scene->willMoveFromView(this);
        m_scene->setView(nullptr);
    }
    m_scene = scene;
    if (m_scene) {
        if (m_scene->scaleMode() == SceneScaleMode::ResizeFill)
            m_scene->setSize(QSizeF(size()));
        m_scene->setView(this);
        m_scene->didMoveToView(this);
    }
    updateTimer();
    update();
}

double SceneView::currentTime() const
{
    return double(m_clock.nsecsElapsed()) / 1e9;
}

void SceneView::setPaused(bool paused)
{
    m_paused = paused;
    updateTimer();
}

void SceneView::setPreferredFramesPerSecond(int fps)
{
    m_fps = std::max(1, fps);
    updateTimer();
}

void SceneView::updateTimer()
{
    if (m_scene && !m_paused) {
        m_timer.start(std::max(1, int(1000 / m_fps)));
    } else {
        m_timer.stop();
    }
}

void SceneView::setZoom(qreal zoom)
{
    if (!(zoom > 0) || zoom == m_zoom)
        return;
    m_zoom = zoom;
    update();
    emit zoomChanged(zoom);
}

void SceneView::setShowsPhysics(bool on)
{
    m_renderer.options().showsPhysics = on;
    update();
}

void SceneView::setShowsFPS(bool on)
{
    m_renderer.options().showsFPS = on;
    update();
}

void SceneView::setShowsNodeCount(bool on)
{
    m_renderer.options().showsNodeCount = on;
    update();
}

void SceneView::setShowsDrawCount(bool on)
{
    m_renderer.options().showsDrawCount = on;
    update();
}

void SceneView::setShowsQuadCount(bool on)
{
    m_renderer.options().showsQuadCount = on;
    update();
}

void SceneView::setShowsFields(bool on)
{
    m_renderer.options().showsFields = on;
    update();
}

QPointF SceneView::convertPointToScene(const QPointF& viewPoint) const
{
    if (!m_scene)
        return viewPoint;
    return m_scene->sceneToViewTransform(QSizeF(size()), m_zoom).inverted().map(viewPoint);
}

QPointF SceneView::convertPointFromScene(const QPointF& scenePoint) const
{
    if (!m_scene)
        return scenePoint;
    return m_scene->sceneToViewTransform(QSizeF(size()), m_zoom).map(scenePoint);
}

QRectF SceneView::visibleSceneRect() const
{
    return m_scene ? m_scene->visibleRect(QSizeF(size()), m_zoom) : QRectF();
}

void SceneView::tick()
{
    if (!m_scene)
        return;
    const double t = currentTime();
    m_scene->processFrame(t);
    ++m_framesSinceFps;
    if (m_fpsClock.elapsed() >= 500) {
        m_renderer.setFramesPerSecond(m_framesSinceFps * 1000.0 / double(m_fpsClock.restart()));
        m_framesSinceFps = 0;
    }
    emit frameProcessed(t);
    update();
}

void SceneView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_scene) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    m_renderer.render(*m_scene, painter, QRectF(rect()), m_zoom);
}

void SceneView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_scene && m_scene->scaleMode() == SceneScaleMode::ResizeFill)
        m_scene->setSize(QSizeF(size()));
}

MouseEvent SceneView::makeEvent(const QPointF& pos, const QPoint& global, Qt::MouseButton button,
                                Qt::MouseButtons buttons, Qt::KeyboardModifiers mods, int clicks) const
{
    MouseEvent e;
    e.viewLocation = pos;
    e.sceneLocation = convertPointToScene(pos);
    e.globalLocation = global;
    e.button = button;
    e.buttons = buttons;
    e.modifiers = mods;
    e.clickCount = clicks;
    return e;
}

void SceneView::mousePressEvent(QMouseEvent* event)
{
    if (!m_scene)
        return;
    m_dragging = true;
    m_scene->dispatchMouseEvent(Scene::MouseKind::Down,
                                makeEvent(event->position(), event->globalPosition().toPoint(), event->button(),
                                          event->buttons(), event->modifiers(), 1));
    update();
}

void SceneView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!m_scene)
        return;
    m_dragging = true;
    m_scene->dispatchMouseEvent(Scene::MouseKind::Down,
                                makeEvent(event->position(), event->globalPosition().toPoint(), event->button(),
                                          event->buttons(), event->modifiers(), 2));
    update();
}

void SceneView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_scene)
        return;
    const auto kind =
        (m_dragging && event->buttons() != Qt::NoButton) ? Scene::MouseKind::Dragged : Scene::MouseKind::Moved;
    m_scene->dispatchMouseEvent(kind,
                                makeEvent(event->position(), event->globalPosition().toPoint(), Qt::NoButton,
                                          event->buttons(), event->modifiers(), 0));
    if (kind == Scene::MouseKind::Dragged)
        update();
}

void SceneView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_scene)
        return;
    m_dragging = false;
    m_scene->dispatchMouseEvent(Scene::MouseKind::Up,
                                makeEvent(event->position(), event->globalPosition().toPoint(), event->button(),
                                          event->buttons(), event->modifiers(), 1));
    update();
}

void SceneView::wheelEvent(QWheelEvent* event)
{
    if (!m_scene)
        return;
    MouseEvent e = makeEvent(event->position(), event->globalPosition().toPoint(), Qt::NoButton, event->buttons(),
                             event->modifiers(), 0);
    const QPoint angle = event->angleDelta();
    e.scrollDelta = angle.isNull() ? QPointF(event->pixelDelta()) : QPointF(angle) / 8.0;
    m_scene->dispatchScrollWheel(e);
    update();
}

void SceneView::keyPressEvent(QKeyEvent* event)
{
    if (!m_scene)
        return QWidget::keyPressEvent(event);
    m_scene->dispatchKeyEvent(true, {event->key(), event->text(), event->modifiers(), event->isAutoRepeat()});
}

void SceneView::keyReleaseEvent(QKeyEvent* event)
{
    if (!m_scene)
        return QWidget::keyReleaseEvent(event);
    m_scene->dispatchKeyEvent(false, {event->key(), event->text(), event->modifiers(), event->isAutoRepeat()});
}

} // namespace tessaro::kit
