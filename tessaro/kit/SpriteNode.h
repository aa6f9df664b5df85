// A textured or plain coloured rectangle.
#pragma once

#include "Node.h"
#include "Texture.h"

#include <QColor>
#include <QImage>

namespace tessaro::kit {

class SpriteNode : public Node {
public:
    /// An untextured sprite of `color` and `size`.
    SpriteNode(const QColor& color = Qt::white, const QSizeF& size = {});
    /// A sprite of `texture`, at `size` (the texture's size when size is empty).
    explicit SpriteNode(const TexturePtr& texture, const QSizeF& size = {});
    SpriteNode(const TexturePtr& texture, const QColor& color, const QSizeF& size);

    static std::shared_ptr<SpriteNode> create(const TexturePtr& texture, const QSizeF& size = {})
    {
        return std::make_shared<SpriteNode>(texture, size);
    }
    static std::shared_ptr<SpriteNode> create(const QColor& color, const QSizeF& size)
    {
        return std::make_shared<SpriteNode>(color, size);
    }
    /// A sprite of the image named `name` (see Texture::textureWithImageNamed).
    static std::shared_ptr<SpriteNode> spriteNodeWithImageNamed(const QString& name);

    const TexturePtr& texture() const { return m_texture; }
    /// Sets the texture; the size stays.
    void setTexture(const TexturePtr& texture);

    QSizeF size() const { return m_size; }
    void setSize(const QSizeF& size);
    /// The point of the sprite at the node's position, in unit coordinates
    /// (0,0 bottom left; 1,1 top right). Default (0.5, 0.5).
    QPointF anchorPoint() const { return m_anchorPoint; }
    void setAnchorPoint(const QPointF& anchor);

    /// Without a texture the sprite is filled with this colour; with one, the
    /// colour is blended into the texture by colorBlendFactor.
    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    /// 0 shows the texture as it is, 1 shows it entirely in `color` (keeping
    /// the texture's alpha); in between mixes linearly.
    qreal colorBlendFactor() const { return m_colorBlendFactor; }
    void setColorBlendFactor(qreal factor);

    QRectF contentRect() const override;
    bool hasContent() const override { return true; }
    void draw(DrawContext& context) const override;

    /// The texture's image with the colour blended in, as drawn (cached).
    QImage blendedImage() const;

private:
    TexturePtr m_texture;
    QSizeF m_size;
    QPointF m_anchorPoint{0.5, 0.5};
    QColor m_color{Qt::white};
    qreal m_colorBlendFactor = 0;

    mutable QImage m_blendCache;
    mutable qint64 m_blendKey = 0;
    mutable QRgb m_blendColor = 0;
    mutable qreal m_blendFactor = -1;
};

using SpriteNodePtr = std::shared_ptr<SpriteNode>;

} // namespace tessaro::kit
