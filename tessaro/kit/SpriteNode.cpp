#include "SpriteNode.h"

#include "Renderer.h"

#include <QPainter>

#include <cmath>

namespace tessaro::kit {

SpriteNode::SpriteNode(const QColor& color, const QSizeF& size) : m_size(size), m_color(color) {}

SpriteNode::SpriteNode(const TexturePtr& texture, const QSizeF& size)
    : m_texture(texture),
      m_size(size.isEmpty() && texture ? texture->size() : size)
{
}

SpriteNode::SpriteNode(const TexturePtr& texture, const QColor& color, const QSizeF& size)
    : m_texture(texture),
      m_size(size.isEmpty() && texture ? texture->size() : size),
      m_color(color)
{
}

std::shared_ptr<SpriteNode> SpriteNode::spriteNodeWithImageNamed(const QString& name)
{
    return std::make_shared<SpriteNode>(Texture::textureWithImageNamed(name));
}

void SpriteNode::setTexture(const TexturePtr& texture)
{
    if (texture == m_texture)
        return;
    m_texture = texture;
    touch();
}

void SpriteNode::setSize(const QSizeF& size)
{
    if (size == m_size)
        return;
    m_size = size;
    touch();
}

void SpriteNode::setAnchorPoint(const QPointF& anchor)
{
    m_anchorPoint = anchor;
    touch();
}

void SpriteNode::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    touch();
}

void SpriteNode::setColorBlendFactor(qreal factor)
{
    if (factor == m_colorBlendFactor)
        return;
    m_colorBlendFactor = factor;
    touch();
}

QRectF SpriteNode::contentRect() const
{
    return QRectF(-m_anchorPoint.x() * m_size.width(), -m_anchorPoint.y() * m_size.height(), m_size.width(),
                  m_size.height());
}

QImage SpriteNode::blendedImage() const
{
    if (!m_texture)
        return {};
    const QImage& source = m_texture->image();
    const qreal factor = std::clamp(m_colorBlendFactor, 0.0, 1.0);
    if (factor <= 0 || source.isNull())
        return source;
    const QRgb rgba = m_color.rgba();
    if (m_blendKey == source.cacheKey() && m_blendColor == rgba && m_blendFactor == factor)
        return m_blendCache;
    // Source-atop keeps the texture's alpha and mixes its colour towards ours:
    // rgb = tex.rgb * (1 - f) + color.rgb * f * tex.alpha (premultiplied).
    QImage out = source.copy();
    {
        QPainter p(&out);
        p.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        QColor c = m_color;
        c.setAlphaF(float(factor));
        p.fillRect(out.rect(), c);
    }
    m_blendCache = out;
    m_blendKey = source.cacheKey();
    m_blendColor = rgba;
    m_blendFactor = factor;
    return m_blendCache;
}

void SpriteNode::draw(DrawContext& ctx) const
{
    const QRectF local = contentRect();
    if (local.isEmpty())
        return;
    QPainter& p = ctx.painter;
    const QTransform& t = ctx.transform;
    // The usual case maps the sprite to an upright rectangle of the target
    // (the scene's y flip cancels the image's): draw without a transform.
    const bool upright = t.m12() == 0 && t.m21() == 0 && t.m11() > 0 && t.m22() < 0;
    // A sprite turned left to right (a negative x scale) is upright too,
    // drawn from a mirrored copy of its picture.
    const bool mirroredUpright = t.m12() == 0 && t.m21() == 0 && t.m11() < 0 && t.m22() < 0;
    if (!m_texture) {
        if (m_color.alpha() == 0)
            return;
        // Turned rectangles get smooth edges; upright ones stay crisp.
        if (p.testRenderHint(QPainter::Antialiasing) == upright)
            p.setRenderHint(QPainter::Antialiasing, !upright);
        if (upright) {
            if (!p.transform().isIdentity())
                p.resetTransform();
            p.fillRect(t.mapRect(local), m_color);
        } else {
            p.setTransform(t);
            p.fillRect(local, m_color);
        }
        return;
    }
    const bool blend = m_colorBlendFactor > 0;
    const QImage blended = blend ? blendedImage() : QImage();
    const QImage& image = blend ? blended : m_texture->image();
    if (image.isNull())
        return;
    // Images are drawn without the antialiasing hint: with it, transformed
    // images take a much slower path, and bilinear filtering already smooths them.
    if (p.testRenderHint(QPainter::Antialiasing))
        p.setRenderHint(QPainter::Antialiasing, false);
    const bool nearest = m_texture->filteringMode() == Texture::Filtering::Nearest;
    const bool smooth = p.testRenderHint(QPainter::SmoothPixmapTransform);
    if (nearest && smooth)
        p.setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (upright || mirroredUpright) {
        if (!p.transform().isIdentity())
            p.resetTransform();
        const QRectF target = t.mapRect(local);
        if (upright && std::abs(target.width() - image.width()) < 1e-9 &&
            std::abs(target.height() - image.height()) < 1e-9) {
            p.drawImage(target.topLeft(), image); // one pixel per pixel: a plain blend
        } else {
            // Scaling a picture costs far more than blending one: the scaled
            // picture is kept by the renderer. Edges are rounded to whole
            // pixels from the sprite's own edges, so neighbours still meet.
            const QPoint topLeft(qRound(target.left()), qRound(target.top()));
            const QSize size(qRound(target.right()) - topLeft.x(), qRound(target.bottom()) - topLeft.y());
            if (size.width() > 0 && size.height() > 0 && qint64(size.width()) * size.height() <= 16'000'000) {
                QPoint offset;
                const QImage& scaled =
                    ctx.renderer.scaledImage(image, size, !nearest && smooth, mirroredUpright, offset);
                p.drawImage(topLeft + offset, scaled);
            } else if (upright)
                p.drawImage(target, image);
            else
                p.drawImage(target, image.mirrored(true, false));
        }
    } else {
        // Image rows run downwards; the node's y runs upwards.
        const QTransform imageToLocal(1, 0, 0, -1, local.left(), local.bottom());
        p.setTransform(imageToLocal * t);
        p.drawImage(QRectF(0, 0, local.width(), local.height()), image);
    }
    if (nearest && smooth)
        p.setRenderHint(QPainter::SmoothPixmapTransform, true);
}

} // namespace tessaro::kit
