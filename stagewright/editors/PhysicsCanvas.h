// The physics sheet's canvas on the kit: a scene holding the image and the
// shapes in one layer whose space is the shapes' own (image-centred, y up),
// scaled and mirrored as the sheet's pickers say. The scene turns the mouse
// into shape coordinates for the session and draws what the session holds;
// it has no state of its own beyond its nodes.
#pragma once

#include "PhysicsElements.h"

#include <tessaro/kit/Scene.h>
#include <tessaro/kit/SceneView.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>

#include <QScrollArea>

#include <map>
#include <memory>

namespace stagewright {

class ImagePhysicsSession;

class PhysicsCanvasScene : public tessaro::kit::Scene {
public:
    explicit PhysicsCanvasScene(ImagePhysicsSession& session);

    /// Shows the session as it is now.
    void refresh();

    /// The shape coordinates of a point of the scene, rounded to whole image
    /// points (halves away from zero).
    tessaro::PointValue shapePoint(const QPointF& scenePoint) const;
    /// Where shape coordinates lie in the scene.
    QPointF scenePoint(tessaro::PointValue p) const;
    /// Whether a point of the scene lies on the image.
    bool isOverImage(const QPointF& scenePoint) const;
    /// The size, in scene points, that shows the whole image at the sheet's scale.
    QSizeF contentSize() const;

    const tessaro::kit::NodePtr& layer() const { return m_layer; }
    /// The node drawing a shape; null when there is none.
    tessaro::kit::ShapeNodePtr SizerNode(const tessaro::Uuid& id) const;
    /// The handles drawn, in layer space.
    const tessaro::kit::NodePtr& handleLayer() const { return m_handles; }

    void mouseDown(const tessaro::kit::MouseEvent& event) override;
    void mouseDragged(const tessaro::kit::MouseEvent& event) override;
    void mouseUp(const tessaro::kit::MouseEvent& event) override;
    void mouseMoved(const tessaro::kit::MouseEvent& event) override;

private:
    /// The pointer in layer space; tells the session whether it is over the image.
    QPointF track(const tessaro::kit::MouseEvent& event);
    void refreshImage();
    void refreshShapes();
    void refreshHandles();

    ImagePhysicsSession& m_session;
    tessaro::kit::NodePtr m_layer;
    std::shared_ptr<tessaro::kit::SpriteNode> m_image;
    qint64 m_imageKey = -1;
    tessaro::kit::NodePtr m_shapes;
    tessaro::kit::NodePtr m_handles;
    std::map<tessaro::Uuid, tessaro::kit::ShapeNodePtr> m_shapeNodes;
};

/// The canvas widget: the kit's view of the scene, as large as the image at
/// its scale (and no smaller than the space it is given), in a scroll area.
class PhysicsCanvasView : public QScrollArea {
    Q_OBJECT
public:
    explicit PhysicsCanvasView(ImagePhysicsSession& session, QWidget* parent = nullptr);
    ~PhysicsCanvasView() override;

    PhysicsCanvasScene& scene() const { return *m_scene; }
    tessaro::kit::SceneView* sceneView() const { return m_view; }
    /// Shows the session as it is now.
    void refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void relayout();

    ImagePhysicsSession& m_session;
    std::shared_ptr<PhysicsCanvasScene> m_scene;
    tessaro::kit::SceneView* m_view;
};

} // namespace stagewright
