#include "LevelPicture.h"

#include "SceneEditor.h"

#include <tessaro/kit/Renderer.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace stagewright {

QRectF wholeLevelRect(const SceneEditor& scene)
{
    const QRectF view = scene.sceneFrame();
    return QRectF(view.left(), view.top(), std::max(0.0, scene.levelEndX()) + view.width(), view.height());
}

QImage renderWholeLevel(SceneEditor& scene, int pixelWidth)
{
    const QRectF view = scene.sceneFrame();
    const QRectF whole = wholeLevelRect(scene);
    if (view.isEmpty())
        return {};
    constexpr double kWidestPicture = 16384;
    const double scale = pixelWidth > 0 ? pixelWidth / whole.width() : std::min(1.0, kWidestPicture / whole.width());
    const QSize size(std::max(1, int(std::lround(whole.width() * scale))),
                     std::max(1, int(std::lround(whole.height() * scale))));
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(scene.backgroundColor());

    // The overlays belong to the view, not to the level.
    std::vector<std::pair<tessaro::kit::NodePtr, bool>> overlays;
    for (const tessaro::kit::NodePtr& child : scene.children())
        if (dynamic_cast<NavigationNode*>(child.get()) || dynamic_cast<SKLabel*>(child.get())) {
            overlays.emplace_back(child, child->isHidden());
            child->setHidden(true);
        }
    const tessaro::kit::NodePtr scrolling[] = {
        scene.pinnedBackgroundNodes(), scene.obstacleNodes(), scene.characterNodes(),
        scene.groundNodes(),           scene.coinNodes(),     scene.artifactNodes(),
        scene.checkpointNodes(),       scene.shieldsNodes(),  scene.navigationNodes()};
    std::vector<QPointF> before;
    for (const tessaro::kit::NodePtr& layer : scrolling)
        before.push_back(layer ? layer->position() : QPointF());

    tessaro::kit::Renderer renderer;
    QPainter painter(&picture);
    const int views = int(std::ceil(whole.width() / view.width() - 1e-9));
    for (int k = 0; k < views; ++k) {
        for (const tessaro::kit::NodePtr& layer : scrolling)
            if (layer)
                layer->setPosition(-k * view.width(), 0);
        const QRectF target(k * view.width() * scale, 0, view.width() * scale, view.height() * scale);
        painter.save();
        painter.setClipRect(target);
        renderer.render(scene, painter, target);
        painter.restore();
    }
    painter.end();

    for (std::size_t i = 0; i < std::size(scrolling); ++i)
        if (scrolling[i])
            scrolling[i]->setPosition(before[i]);
    for (const auto& [node, hidden] : overlays)
        node->setHidden(hidden);
    return picture;
}

} // namespace stagewright
