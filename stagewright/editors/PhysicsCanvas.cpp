#include "PhysicsCanvas.h"

#include "PhysicsSession.h"
#include "ShapeTools.h"

#include <QResizeEvent>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::kit::Node;
using tessaro::kit::ShapeNode;

namespace {

const QColor shapeColor(255, 0, 0);
constexpr double handlePixels = 10;
constexpr double lineWidthPixels = 2;
/// Room around the image for the handles of shapes at its edges.
constexpr double canvasMargin = 40;

} // namespace

PhysicsCanvasScene::PhysicsCanvasScene(ImagePhysicsSession& session)
    : Scene(QSizeF(600, 500)),
      m_session(session),
      m_layer(Node::create()),
      m_image(std::make_shared<tessaro::kit::SpriteNode>(Qt::transparent, QSizeF())),
      m_shapes(Node::create()),
      m_handles(Node::create())
{
    setScaleMode(tessaro::kit::SceneScaleMode::ResizeFill);
    setBackgroundColor(QColor(60, 60, 60));
    // The world does not move anything: the sheet only draws.
    physicsWorld().setSpeed(0);
    addChild(m_layer);
    m_shapes->setZPosition(1);
    m_handles->setZPosition(2);
    m_layer->addChild(m_image);
    m_layer->addChild(m_shapes);
    m_layer->addChild(m_handles);
    refresh();
}

void PhysicsCanvasScene::refresh()
{
    const double s = m_session.scale();
    m_layer->setXScale(m_session.flipImageHorizontal() ? -s : s);
    m_layer->setYScale(m_session.flipImageVertical() ? -s : s);
    refreshImage();
    refreshShapes();
    refreshHandles();
}

void PhysicsCanvasScene::refreshImage()
{
    const WorkspaceImage& shown = m_session.currentImage();
    const qint64 key = shown.image.isNull() ? -1 : shown.image.cacheKey();
    if (key != m_imageKey) {
        m_imageKey = key;
        if (shown.image.isNull()) {
            m_image->setTexture(nullptr);
        } else {
            const double density = shown.size.width() > 0 ? shown.image.width() / shown.size.width() : 1.0;
            m_image->setTexture(tessaro::kit::Texture::fromImage(shown.image, density));
        }
    }
    m_image->setHidden(shown.image.isNull());
    m_image->setSize(m_session.shownImageSize());
    m_image->setAlpha(m_session.alpha());
}

void PhysicsCanvasScene::refreshShapes()
{
    const QSizeF size = m_session.shownImageSize();
    const double pixel = 1.0 / std::max(0.01, std::abs(m_session.scale()));
    std::map<tessaro::Uuid, tessaro::kit::ShapeNodePtr> kept;
    for (const PhysicsElement& element : m_session.physicsElements()) {
        const ShapeTool* tool = shapeToolFor(element.type);
        if (!tool)
            continue;
        auto found = m_shapeNodes.find(element.id);
        tessaro::kit::ShapeNodePtr node;
        if (found != m_shapeNodes.end()) {
            node = found->second;
        } else {
            node = std::make_shared<ShapeNode>();
            node->setStrokeColor(shapeColor);
            node->setLineJoin(Qt::MiterJoin);
            m_shapes->addChild(node);
        }
        node->setPath(tool->outline(element, size));
        node->setLineWidth(lineWidthPixels * pixel);
        node->setAlpha(element.id == m_session.selectedRow() ? 1.0 : 0.4);
        node->setHidden(!m_session.isDrawn(element));
        kept.emplace(element.id, node);
    }
    for (const auto& [id, node] : m_shapeNodes)
        if (!kept.count(id))
            node->removeFromParent();
    m_shapeNodes = std::move(kept);
}

void PhysicsCanvasScene::refreshHandles()
{
    m_handles->removeAllChildren();
    const QSizeF size = m_session.shownImageSize();
    const double side = handlePixels / std::max(0.01, std::abs(m_session.scale()));
    const auto add = [&](tessaro::PointValue at, const QColor& fill, double alpha) {
        auto handle = ShapeNode::shapeNodeWithRectOfSize(QSizeF(side, side));
        handle->setFillColor(fill);
        handle->setStrokeColor(shapeColor);
        handle->setLineWidth(side / 10);
        handle->setPosition(at.x, at.y);
        handle->setAlpha(alpha);
        m_handles->addChild(handle);
    };
    for (const PhysicsElement& element : m_session.physicsElements()) {
        if (!m_session.isDrawn(element))
            continue;
        const bool selected = element.id == m_session.selectedRow();
        // A polygon's first vertex is where a tap closes it.
        if (element.type == PhysicsType::polygon && !element.points.empty())
            add(resolvedPolygon(element, size).front(), shapeColor, selected ? 1.0 : 0.4);
        if (!selected)
            continue;
        const std::vector<tessaro::PointValue> points = shapeToolFor(element.type)->handles(element, size);
        for (std::size_t i = element.type == PhysicsType::polygon ? 1 : 0; i < points.size(); ++i)
            add(points[i], Qt::white, 1.0);
    }
}

tessaro::kit::ShapeNodePtr PhysicsCanvasScene::SizerNode(const tessaro::Uuid& id) const
{
    const auto found = m_shapeNodes.find(id);
    return found == m_shapeNodes.end() ? nullptr : found->second;
}

tessaro::PointValue PhysicsCanvasScene::shapePoint(const QPointF& scenePoint) const
{
    const QPointF local = m_layer->convertPointFromNode(scenePoint, *this);
    return {std::round(local.x()), std::round(local.y())};
}

QPointF PhysicsCanvasScene::scenePoint(tessaro::PointValue p) const
{
    return m_layer->convertPointToNode(QPointF(p.x, p.y), *this);
}

bool PhysicsCanvasScene::isOverImage(const QPointF& scenePoint) const
{
    const QSizeF size = m_session.shownImageSize();
    const QPointF local = m_layer->convertPointFromNode(scenePoint, *this);
    return std::abs(local.x()) <= size.width() / 2 && std::abs(local.y()) <= size.height() / 2;
}

QSizeF PhysicsCanvasScene::contentSize() const
{
    const double s = std::abs(m_session.scale());
    const QSizeF image = m_session.shownImageSize();
    return {image.width() * s + 2 * canvasMargin, image.height() * s + 2 * canvasMargin};
}

QPointF PhysicsCanvasScene::track(const tessaro::kit::MouseEvent& event)
{
    const bool over = isOverImage(event.sceneLocation);
    if (over != m_session.imageViewHovered()) {
        m_session.setImageViewHovered(over);
        if (tessaro::kit::SceneView* shown = view())
            over ? shown->setCursor(Qt::PointingHandCursor) : shown->unsetCursor();
    }
    return event.sceneLocation;
}

void PhysicsCanvasScene::mouseDown(const tessaro::kit::MouseEvent& event)
{
    m_session.pointerDown(shapePoint(track(event)));
}

void PhysicsCanvasScene::mouseDragged(const tessaro::kit::MouseEvent& event)
{
    const tessaro::PointValue p = shapePoint(track(event));
    m_session.pointerMoved(p);
    m_session.pointerDragged(p);
}

void PhysicsCanvasScene::mouseUp(const tessaro::kit::MouseEvent& event)
{
    m_session.pointerUp(shapePoint(track(event)));
}

void PhysicsCanvasScene::mouseMoved(const tessaro::kit::MouseEvent& event)
{
    m_session.pointerMoved(shapePoint(track(event)));
}

// ---- The widget -----------------------------------------------------------------------------

PhysicsCanvasView::PhysicsCanvasView(ImagePhysicsSession& session, QWidget* parent)
    : QScrollArea(parent),
      m_session(session),
      m_scene(std::make_shared<PhysicsCanvasScene>(session)),
      m_view(new tessaro::kit::SceneView)
{
    setObjectName(QStringLiteral("physicsCanvas"));
    setWidgetResizable(false);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::NoFrame);
    m_view->setObjectName(QStringLiteral("physicsSceneView"));
    // A still picture: it is drawn when the session changes, not at display rate.
    m_view->setPaused(true);
    m_view->presentScene(m_scene);
    setWidget(m_view);
    relayout();
}

PhysicsCanvasView::~PhysicsCanvasView()
{
    m_view->presentScene(nullptr);
}

void PhysicsCanvasView::refresh()
{
    m_scene->refresh();
    relayout();
    m_view->update();
}

void PhysicsCanvasView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    relayout();
}

void PhysicsCanvasView::relayout()
{
    const QSizeF content = m_scene->contentSize();
    const QSize room = viewport()->size();
    const QSize size(std::max(room.width(), int(std::ceil(content.width()))),
                     std::max(room.height(), int(std::ceil(content.height()))));
    if (m_view->size() != size)
        m_view->setFixedSize(size);
}

} // namespace stagewright
