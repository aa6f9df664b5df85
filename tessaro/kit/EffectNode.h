// A node that draws its subtree into an image, filters it and draws the
// result as one picture at the effect node's depth.
//
// The subtree is drawn with depths relative to the effect node; the filtered
// picture then takes part in the scene's depth order as a whole. With
// shouldRasterize the filtered picture is kept until something in the
// subtree changes.
#pragma once

#include "Node.h"

#include <QImage>

namespace tessaro::kit {

/// An image filter of an effect node.
struct EffectFilter {
    enum class Kind { None, GaussianBlur };
    Kind kind = Kind::None;
    /// Gaussian blur: the standard deviation, in points.
    qreal radius = 0;

    static EffectFilter gaussianBlur(qreal radius) { return {Kind::GaussianBlur, radius}; }
    bool operator==(const EffectFilter&) const = default;
};

/// Blurs a premultiplied ARGB32 image in place with an approximate Gaussian
/// of standard deviation `sigma` pixels (three box passes per axis).
void gaussianBlur(QImage& image, qreal sigma);

class EffectNode : public Node {
public:
    EffectNode() = default;
    static std::shared_ptr<EffectNode> create() { return std::make_shared<EffectNode>(); }

    const EffectFilter& filter() const { return m_filter; }
    void setFilter(const EffectFilter& filter);
    /// When false the children are drawn as for a plain node. Default true.
    bool shouldEnableEffects() const { return m_enableEffects; }
    void setShouldEnableEffects(bool on);
    bool shouldRasterize() const { return m_rasterize; }
    void setShouldRasterize(bool on);

    /// How far the filter spreads beyond the children, in points.
    qreal filterMargin() const;

    bool drawsSubtreeAsOne() const override { return m_enableEffects && m_filter.kind != EffectFilter::Kind::None; }
    void draw(DrawContext& context) const override;

    /// Renders the subtree and applies the filter at `pixelsPerPoint`. The
    /// result covers `bounds` (effect-node space, y up) and is returned through
    /// the arguments. Used by the renderer; exposed for tests.
    QImage renderEffect(qreal pixelsPerPoint, QRectF* bounds) const;

private:
    quint64 subtreeSignature() const;

    EffectFilter m_filter;
    bool m_enableEffects = true;
    bool m_rasterize = false;

    mutable QImage m_cache;
    mutable QRectF m_cacheBounds;
    mutable quint64 m_cacheSignature = 0;
    mutable qreal m_cacheScale = 0;
};

using EffectNodePtr = std::shared_ptr<EffectNode>;

} // namespace tessaro::kit
