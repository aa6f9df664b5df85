#include "CanvasView.h"

#include "Commands.h"

#include <stagewright/inspector/ObjectLibrary.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/Scene.h>
#include <tessaro/model/ConfigFiles.h>

#include <QDropEvent>
#include <QResizeEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace stagewright {

void CanvasSceneView::resizeEvent(QResizeEvent* event)
{
    // The kit's view would resize a scene of the resize-fill mode to the
    // widget; here the widget follows the scene.
    QWidget::resizeEvent(event);
}

void CanvasSceneView::wheelEvent(QWheelEvent* event)
{
    tessaro::kit::SceneView::wheelEvent(event);
    event->ignore();
}

CanvasView::CanvasView(const std::shared_ptr<ProjectTab>& tab, QWidget* parent) : QScrollArea(parent), m_tab(tab.get())
{
    setObjectName(QStringLiteral("canvasView"));
    setWidgetResizable(false);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Dark);

    m_view = new CanvasSceneView;
    m_view->setObjectName(QStringLiteral("sceneView"));
    setWidget(m_view);
    m_view->setAcceptDrops(true);
    m_view->installEventFilter(this);
    showDebugOptions(tessaro::globalAppConfig().debugOptions);

    if (m_tab) {
        connect(m_tab, &ProjectTab::currentSceneChanged, this, &CanvasView::presentCurrentScene);
        connect(m_tab, &ProjectTab::scaledValueChanged, this, &CanvasView::relayout);
        connect(m_tab, &ProjectTab::selectedSceneSizeChanged, this, &CanvasView::relayout);
        // The scene hides its own background layers; the view only repaints.
        connect(m_tab, &ProjectTab::backgroundElementsHiddenChanged, m_view, qOverload<>(&QWidget::update));
        // Opening a project loads another level into the scene in place.
        connect(m_tab, &ProjectTab::levelConfigChanged, this, &CanvasView::scheduleRelayout);
        connect(m_tab, &ProjectTab::levelSelectedChanged, this, &CanvasView::scheduleRelayout);
    }
    // A scene may change its size from its own sheets; the frame follows at
    // the next frame.
    connect(m_view, &tessaro::kit::SceneView::frameProcessed, this, [this] {
        if (m_kitScene && m_kitScene->size() != m_lastSceneSize)
            relayout();
    });
    presentCurrentScene();
    relayout();
}

CanvasView::~CanvasView()
{
    if (m_shown && m_shown->host() == this)
        m_shown->setHost(nullptr);
    m_view->presentScene(nullptr);
}

void CanvasView::presentCurrentScene()
{
    presentScene(m_tab ? m_tab->currentScene() : nullptr);
}

void CanvasView::presentScene(const std::shared_ptr<LevelScene>& scene)
{
    if (scene == m_shown)
        return;
    if (m_shown && m_shown->host() == this)
        m_shown->setHost(nullptr);
    m_shown = scene;
    m_kitScene = std::dynamic_pointer_cast<tessaro::kit::Scene>(scene);
    if (m_shown)
        m_shown->setHost(this);
    if (m_kitScene) {
        // Presenting never changes the level's size, whatever the scale mode.
        const QSizeF size = m_kitScene->size();
        m_view->presentScene(m_kitScene);
        m_kitScene->setSize(size);
    } else {
        m_view->presentScene(nullptr);
    }
    relayout();
    // The tab fills a scene after presenting it: the size it takes and the
    // layers it makes are read once that is done.
    scheduleRelayout();
}

QSize CanvasView::frameSize() const
{
    const double zoom = m_tab ? zoomFactor(m_tab->scaledValue()) : 1.0;
    tessaro::SizeValue base = m_shown ? m_shown->size() : sizeWithoutScene;
    // A scene that has not taken a size yet is framed as no scene is.
    if (!(base.width > 0 && base.height > 0))
        base = sizeWithoutScene;
    return QSize(int(std::lround(base.width * zoom)), int(std::lround(base.height * zoom)));
}

void CanvasView::scheduleRelayout()
{
    if (m_relayoutScheduled)
        return;
    m_relayoutScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_relayoutScheduled = false;
            relayout();
            m_view->update();
        },
        Qt::QueuedConnection);
}

void CanvasView::relayout()
{
    const double zoom = m_tab ? zoomFactor(m_tab->scaledValue()) : 1.0;
    // The aspect modes fit the scene into a frame of its own proportions by
    // the zoom; the resize-fill mode draws at one point per pixel and needs
    // the zoom from the view.
    const bool resizeFill = m_kitScene && m_kitScene->scaleMode() == tessaro::kit::SceneScaleMode::ResizeFill;
    m_view->setZoom(resizeFill ? zoom : 1.0);
    m_lastSceneSize = m_kitScene ? m_kitScene->size() : QSizeF();
    m_view->setFixedSize(frameSize());
}

void CanvasView::showDebugOptions(const std::vector<tessaro::DebugOption>& options)
{
    const auto chosen = [&options](tessaro::DebugOption option) {
        return std::find(options.begin(), options.end(), option) != options.end();
    };
    m_view->setShowsFPS(chosen(tessaro::DebugOption::showsFPS));
    m_view->setShowsNodeCount(chosen(tessaro::DebugOption::showsNodeCount));
    m_view->setShowsPhysics(chosen(tessaro::DebugOption::showsPhysics));
    m_view->setShowsDrawCount(chosen(tessaro::DebugOption::showsDrawCount));
    m_view->setShowsQuadCount(chosen(tessaro::DebugOption::showsQuadCount));
    m_view->setShowsFields(chosen(tessaro::DebugOption::showsFields));
}

bool CanvasView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_view)
        return QScrollArea::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDropEvent*>(event);
        if (m_kitScene && drag->mimeData() && libraryElementFrom(*drag->mimeData())) {
            drag->setDropAction(Qt::CopyAction);
            drag->accept();
        } else {
            drag->ignore();
        }
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        const auto element = drop->mimeData() ? libraryElementFrom(*drop->mimeData()) : std::nullopt;
        if (!element || !m_kitScene) {
            drop->ignore();
            return true;
        }
        // The point of the scene under the pointer, as a click there finds it.
        const QPointF at = m_view->convertPointToScene(drop->position());
        addLibraryElement(m_tab, element->first, element->second, at);
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        return true;
    }
    default: return QScrollArea::eventFilter(watched, event);
    }
}

void CanvasView::showEvent(QShowEvent* event)
{
    m_view->setPaused(false);
    QScrollArea::showEvent(event);
}

void CanvasView::hideEvent(QHideEvent* event)
{
    // A tab out of sight keeps its scene but does not run its frames.
    m_view->setPaused(true);
    QScrollArea::hideEvent(event);
}

} // namespace stagewright
