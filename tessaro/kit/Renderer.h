// Draws a scene with QPainter into a QImage or onto a widget.
//
// Mapping: Scene::sceneToViewTransform fits the scene into the target by its
// scale mode, centres it, flips y (the scene's y grows upwards, the target's
// downwards) and applies the zoom about the target's centre. Nodes are drawn
// by global depth (the sum of the zPosition of a node and its ancestors);
// nodes of equal depth keep tree order, parents before children. A hidden
// node hides its subtree; alpha multiplies down the tree. An effect node
// draws its subtree as one filtered picture at its own depth.
#pragma once

#include "Scene.h"

#include <QImage>
#include <QPainter>
#include <QTransform>

#include <map>
#include <tuple>

namespace tessaro::kit {

class Renderer;
class Texture;

/// What a node's draw() gets.
struct DrawContext {
    QPainter& painter;
    QTransform transform; ///< node space (y up) to device pixels (y down)
    qreal opacity = 1; ///< accumulated alpha
    Renderer& renderer;
    /// Approximate device pixels per node unit (for rasterising effects).
    qreal pixelsPerUnit() const;
};

class Renderer {
public:
    struct Options {
        bool showsPhysics = false; ///< outlines of physics bodies
        bool showsNodeCount = false; ///< "nodes: N" in the bottom right corner
        bool showsFPS = false; ///< "fps: F" in the bottom right corner
        bool showsDrawCount = false; ///< "draws: N", runs of one texture drawn together
        bool showsQuadCount = false; ///< "quads: N", the textured rectangles drawn
        bool showsFields = false; ///< the physics world's gravity, an arrow in the top left corner
        bool smoothImages = true; ///< bilinear filtering of scaled images
        bool drawBackground = true; ///< fill with the scene's background colour
    };

    Options& options() { return m_options; }
    const Options& options() const { return m_options; }
    /// The frame rate shown by showsFPS (set by the view).
    void setFramesPerSecond(qreal fps) { m_fps = fps; }

    /// Draws `scene` into the painter's device area `target` (device pixels).
    void render(const Scene& scene, QPainter& painter, const QRectF& target, qreal zoom = 1.0);
    /// Draws `scene` into a new image of `size` pixels.
    QImage renderToImage(const Scene& scene, const QSize& size, qreal zoom = 1.0);

    /// Draws the subtree below `root` (not `root`'s own content), with
    /// `rootToDevice` mapping root space to device pixels. Depths are
    /// relative to `root`. Used for effect nodes.
    void renderSubtree(const Node& root, QPainter& painter, const QTransform& rootToDevice, qreal opacity);

    /// Nodes drawn by the last render.
    int lastNodeCount() const { return m_lastNodeCount; }
    /// Draw passes and textured rectangles of the last render, counted while
    /// either is shown: a run of sprites of one texture is one pass.
    int lastDrawCount() const { return m_lastDrawCount; }
    int lastQuadCount() const { return m_lastQuadCount; }
    /// Scaled pictures made so far. A render makes those of the sprites it
    /// draws, and at most one more for a large sprite within a view's width
    /// of the view, which is about to come into it.
    quint64 picturesMade() const { return m_picturesMade; }

    /// `image` scaled to `size` pixels, and turned left to right when
    /// `mirrored`, made once and kept while it is drawn (up to a budget of
    /// memory): upright sprites are drawn from it without scaling them again
    /// every frame. Wide transparent margins are cut off the kept picture:
    /// it is to be drawn `offset` pixels from the scaled picture's corner.
    /// A kept picture one pixel off `size` either way serves for it.
    const QImage& scaledImage(const QImage& image, const QSize& size, bool smooth, bool mirrored, QPoint& offset);

private:
    struct Item {
        const Node* node;
        QTransform transform;
        qreal opacity;
        qreal z;
    };
    /// The items of the subtree that show in the clip; into `coming`, when
    /// given, the large ones that lie within a view's width of it.
    void collect(const Node& node, const QTransform& parentToDevice, qreal opacity, qreal z, std::vector<Item>& items,
                 std::vector<Item>* coming = nullptr) const;
    /// Gets the picture of one coming item ready, if one needs it.
    void prepareComing();
    void drawItems(QPainter& painter, const std::vector<Item>& items);
    /// Adds a drawn node to the draw and quad counts.
    void count(const Node& node);
    void drawPhysics(const Scene& scene, QPainter& painter, const QTransform& sceneToDevice);
    void drawStatistics(QPainter& painter, const QRectF& target);
    void drawFields(const Scene& scene, QPainter& painter, const QRectF& target);

    Options m_options;
    qreal m_fps = 0;
    int m_lastNodeCount = 0;
    int m_lastDrawCount = 0;
    int m_lastQuadCount = 0;
    int m_drawn = 0;
    int m_draws = 0;
    int m_quads = 0;
    const Texture* m_lastTexture = nullptr;
    QRectF m_clip;
    std::vector<Item> m_items; // reused between frames
    std::vector<Item> m_coming;
    std::vector<std::pair<qreal, quint32>> m_order;

    struct Scaled {
        QImage image;
        QPoint offset;
        quint64 lastUse = 0;
    };
    std::map<std::tuple<qint64, int, int, bool, bool>, Scaled> m_scaled;
    qint64 m_scaledBytes = 0;
    quint64 m_picturesMade = 0;
    quint64 m_renders = 0;
};

} // namespace tessaro::kit
