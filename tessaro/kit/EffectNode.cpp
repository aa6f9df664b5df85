#include "EffectNode.h"

#include "Renderer.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tessaro::kit {

namespace {

// One box pass of radius r along rows (horizontal) or columns, on four 8-bit
// channels; outside the image counts as transparent.
void boxPass(const uint32_t* src, uint32_t* dst, int w, int h, int r, bool horizontal)
{
    const int lines = horizontal ? h : w;
    const int length = horizontal ? w : h;
    const int stride = horizontal ? 1 : w;
    const int lineStep = horizontal ? w : 1;
    const int window = 2 * r + 1;
    for (int line = 0; line < lines; ++line) {
        const uint32_t* in = src + size_t(line) * size_t(lineStep);
        uint32_t* out = dst + size_t(line) * size_t(lineStep);
        uint32_t sum[4] = {0, 0, 0, 0};
        auto add = [&](int i, int sign) {
            if (i < 0 || i >= length)
                return;
            const uint32_t px = in[size_t(i) * size_t(stride)];
            for (int c = 0; c < 4; ++c)
                sum[c] += uint32_t(sign) * ((px >> (8 * c)) & 0xFF);
        };
        for (int i = -r; i <= r; ++i)
            add(i, 1);
        for (int i = 0; i < length; ++i) {
            uint32_t px = 0;
            for (int c = 0; c < 4; ++c)
                px |= ((sum[c] + uint32_t(window / 2)) / uint32_t(window)) << (8 * c);
            out[size_t(i) * size_t(stride)] = px;
            add(i + r + 1, 1);
            add(i - r, -1);
        }
    }
}

} // namespace

void gaussianBlur(QImage& image, qreal sigma)
{
    if (sigma < 0.5 || image.isNull())
        return;
    if (image.format() != QImage::Format_ARGB32_Premultiplied)
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    // Three box passes whose combined variance is sigma^2.
    const int n = 3;
    const double ideal = std::sqrt(12.0 * sigma * sigma / n + 1);
    int wl = int(std::floor(ideal));
    if (wl % 2 == 0)
        --wl;
    const int wu = wl + 2;
    const double mIdeal = (12.0 * sigma * sigma - n * wl * wl - 4.0 * n * wl - 3.0 * n) / (-4.0 * wl - 4);
    const int m = int(std::lround(mIdeal));
    const int w = image.width(), h = image.height();
    std::vector<uint32_t> a(size_t(w) * size_t(h)), b(a.size());
    for (int y = 0; y < h; ++y)
        std::copy_n(reinterpret_cast<const uint32_t*>(image.constScanLine(y)), w, a.begin() + long(y) * w);
    for (int i = 0; i < n; ++i) {
        const int r = ((i < m ? wl : wu) - 1) / 2;
        boxPass(a.data(), b.data(), w, h, r, true);
        boxPass(b.data(), a.data(), w, h, r, false);
    }
    for (int y = 0; y < h; ++y)
        std::copy_n(a.begin() + long(y) * w, w, reinterpret_cast<uint32_t*>(image.scanLine(y)));
}

void EffectNode::setFilter(const EffectFilter& filter)
{
    m_filter = filter;
    touch();
}

void EffectNode::setShouldEnableEffects(bool on)
{
    m_enableEffects = on;
    touch();
}

void EffectNode::setShouldRasterize(bool on)
{
    m_rasterize = on;
    if (!on)
        m_cache = QImage();
}

qreal EffectNode::filterMargin() const
{
    return m_filter.kind == EffectFilter::Kind::GaussianBlur ? std::ceil(3 * m_filter.radius) : 0;
}

namespace {
void signature(const Node& node, quint64& h)
{
    for (const auto& child : node.children()) {
        h = (h ^ reinterpret_cast<quintptr>(child.get())) * 1099511628211ull;
        h = (h ^ child->revision()) * 1099511628211ull;
        signature(*child, h);
    }
}
} // namespace

quint64 EffectNode::subtreeSignature() const
{
    quint64 h = 1469598103934665603ull ^ quint64(std::llround(m_filter.radius * 1024));
    signature(*this, h);
    return h;
}

QImage EffectNode::renderEffect(qreal pixelsPerPoint, QRectF* boundsOut) const
{
    QRectF content;
    for (const auto& child : children()) {
        if (child->isHidden())
            continue;
        const QRectF f = child->calculateAccumulatedFrame();
        if (!f.isNull())
            content = content.isNull() ? f : content.united(f);
    }
    if (content.isEmpty())
        return {};
    const qreal margin = filterMargin();
    const QRectF bounds = content.adjusted(-margin, -margin, margin, margin);
    qreal scale = std::max(pixelsPerPoint, 0.01);
    constexpr qreal kMaxSide = 4096;
    scale = std::min(scale, kMaxSide / std::max(bounds.width(), bounds.height()));
    const QSize pixels(std::max(1, int(std::ceil(bounds.width() * scale))),
                       std::max(1, int(std::ceil(bounds.height() * scale))));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        p.setRenderHint(QPainter::SmoothPixmapTransform, true);
        const QTransform toImage(scale, 0, 0, -scale, -bounds.left() * scale, bounds.bottom() * scale);
        Renderer renderer;
        renderer.renderSubtree(*this, p, toImage, 1.0);
    }
    if (m_filter.kind == EffectFilter::Kind::GaussianBlur)
        gaussianBlur(image, m_filter.radius * scale);
    // The picture covers exactly pixels / scale.
    if (boundsOut)
        *boundsOut = QRectF(bounds.left(), bounds.bottom() - pixels.height() / scale, pixels.width() / scale,
                            pixels.height() / scale);
    return image;
}

void EffectNode::draw(DrawContext& ctx) const
{
    const qreal scale = std::clamp(ctx.pixelsPerUnit(), 0.05, 4.0);
    QImage image;
    QRectF bounds;
    const quint64 sig = m_rasterize ? subtreeSignature() : 0;
    if (m_rasterize && !m_cache.isNull() && sig == m_cacheSignature && std::abs(scale - m_cacheScale) < 1e-6) {
        image = m_cache;
        bounds = m_cacheBounds;
    } else {
        image = renderEffect(scale, &bounds);
        if (m_rasterize) {
            m_cache = image;
            m_cacheBounds = bounds;
            m_cacheSignature = sig;
            m_cacheScale = scale;
        }
    }
    if (image.isNull())
        return;
    QPainter& p = ctx.painter;
    const qreal unit = bounds.width() / image.width();
    const QTransform imageToLocal(unit, 0, 0, -unit, bounds.left(), bounds.bottom());
    p.setTransform(imageToLocal * ctx.transform);
    p.drawImage(QPointF(0, 0), image);
}

} // namespace tessaro::kit
