// The kit's view: a plain QWidget that shows a scene, runs its frame loop and
// feeds it mouse, wheel and key events. All logic is in Scene and Renderer;
// this class only binds them to the widget.
#pragma once

#include "Renderer.h"
#include "Scene.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace tessaro::kit {

class SceneView : public QWidget {
    Q_OBJECT
public:
    explicit SceneView(QWidget* parent = nullptr);
    ~SceneView() override;

    /// Shows `scene` (null shows nothing). The old scene gets willMoveFromView,
    /// the new one didMoveToView. A resizeFill scene takes the view's size.
    void presentScene(const std::shared_ptr<Scene>& scene);
    std::shared_ptr<Scene> scene() const { return m_scene; }

    /// Stops the frame loop (drawing still happens on demand).
    bool isPaused() const { return m_paused; }
    void setPaused(bool paused);
    /// Default: the screen's refresh rate, else 60.
    int preferredFramesPerSecond() const { return m_fps; }
    void setPreferredFramesPerSecond(int fps);

    /// Extra magnification about the view's centre. Default 1.
    qreal zoom() const { return m_zoom; }
    void setZoom(qreal zoom);

    bool showsPhysics() const { return m_renderer.options().showsPhysics; }
    void setShowsPhysics(bool on);
    bool showsFPS() const { return m_renderer.options().showsFPS; }
    void setShowsFPS(bool on);
    bool showsNodeCount() const { return m_renderer.options().showsNodeCount; }
    void setShowsNodeCount(bool on);
    bool showsDrawCount() const { return m_renderer.options().showsDrawCount; }
    void setShowsDrawCount(bool on);
    bool showsQuadCount() const { return m_renderer.options().showsQuadCount; }
    void setShowsQuadCount(bool on);
    bool showsFields() const { return m_renderer.options().showsFields; }
    void setShowsFields(bool on);

    /// Widget pixels to scene coordinates and back.
    QPointF convertPointToScene(const QPointF& viewPoint) const;
    QPointF convertPointFromScene(const QPointF& scenePoint) const;
    /// The part of the scene that the view shows.
    QRectF visibleSceneRect() const;

    Renderer& renderer() { return m_renderer; }
    /// The time of the frame loop's clock, seconds.
    double currentTime() const;

signals:
    /// After each frame of the loop has been processed.
    void frameProcessed(double currentTime);
    void zoomChanged(qreal zoom);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void tick();
    MouseEvent makeEvent(const QPointF& pos, const QPoint& global, Qt::MouseButton button, Qt::MouseButtons buttons,
                         Qt::KeyboardModifiers mods, int clicks) const;
    void updateTimer();

    std::shared_ptr<Scene> m_scene;
    Renderer m_renderer;
    QTimer m_timer;
    QElapsedTimer m_clock;
    QElapsedTimer m_fpsClock;
    int m_framesSinceFps = 0;
    int m_fps = 60;
    qreal m_zoom = 1;
    bool m_paused = false;
    bool m_dragging = false;
};

} // namespace tessaro::kit
