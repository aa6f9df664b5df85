// The canvas of one project tab: the kit's view showing the tab's scene at
// the scene's size times the tab's zoom, inside a scroll area. It is the
// `SceneHost` of the tab's scenes, and it lives as long as the tab, hidden
// while another tab is in front.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <stagewright/state/LevelScene.h>

#include <tessaro/kit/SceneView.h>

#include <QPointer>
#include <QScrollArea>

#include <memory>

namespace tessaro::kit {
class Scene;
}

namespace stagewright {

/// The scene size used while a tab has no scene.
inline constexpr tessaro::SizeValue sizeWithoutScene{500, 400};

/// The kit's view as the canvas uses it: the widget's size is the scene's
/// size times the zoom, and never the other way round.
class CanvasSceneView : public tessaro::kit::SceneView {
    Q_OBJECT
public:
    using tessaro::kit::SceneView::SceneView;

protected:
    void resizeEvent(QResizeEvent* event) override;
    /// The scene sees the wheel first; then it scrolls the canvas.
    void wheelEvent(QWheelEvent* event) override;
};

class CanvasView : public QScrollArea, public SceneHost {
    Q_OBJECT
public:
    explicit CanvasView(const std::shared_ptr<ProjectTab>& tab, QWidget* parent = nullptr);
    ~CanvasView() override;

    void presentScene(const std::shared_ptr<LevelScene>& scene) override;
    /// The kit's view shows the frame rate, the node count and the physics
    /// bodies; the other options have no overlay here.
    void showDebugOptions(const std::vector<tessaro::DebugOption>& options) override;

    ProjectTab* tab() const { return m_tab; }
    const std::shared_ptr<LevelScene>& shownScene() const { return m_shown; }
    CanvasSceneView* sceneView() const { return m_view; }
    /// The outer frame: the scene's size (or 500 by 400) times the zoom.
    QSize frameSize() const;
    /// Re-reads the scene's size and the tab's zoom.
    void relayout();
    /// Re-reads them once the present change of the tab is complete.
    void scheduleRelayout();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// Takes cells of the object library dropped on the scene's view.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void presentCurrentScene();

    QPointer<ProjectTab> m_tab;
    std::shared_ptr<LevelScene> m_shown;
    std::shared_ptr<tessaro::kit::Scene> m_kitScene;
    CanvasSceneView* m_view = nullptr;
    QSizeF m_lastSceneSize;
    bool m_relayoutScheduled = false;
};

} // namespace stagewright
