#include "HealthBar.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <map>

namespace tessaro {

namespace {

struct BarLayout {
    qreal width;
    std::vector<qreal> slotX;
};

BarLayout layoutFor(int hits)
{
    switch (hits) {
    case 4: return {50, {-15, -5, 5, 15}};
    case 3: return {38, {-10, 0, 10}};
    default: return {25, {-5, 5}};
    }
}

QColor standInColour(const QString& image)
{
    if (image == QLatin1String("object_HealthGreen"))
        return QColor(70, 200, 80);
    if (image == QLatin1String("object_HealthRed"))
        return QColor(220, 60, 50);
    if (image == QLatin1String("object_HealthEmpty"))
        return QColor(70, 70, 70);
    return QColor(30, 30, 30, 200);
}

kit::TexturePtr standIn(const QString& image)
{
    static std::map<QString, kit::TexturePtr> made;
    auto& texture = made[image];
    if (!texture) {
        QImage picture(8, 8, QImage::Format_ARGB32_Premultiplied);
        picture.fill(standInColour(image));
        texture = kit::Texture::fromImage(picture);
    }
    return texture;
}

} // namespace

kit::TexturePtr healthBarTexture(const QString& image)
{
    // Every sprite with a bar asks for the same four pictures; remember them
    // for as long as the resource folders stay the same.
    static std::map<QString, kit::TexturePtr> found;
    const QString key = image + QLatin1Char('\n') + kit::resources::searchPaths().join(QLatin1Char('\n'));
    auto& texture = found[key];
    if (!texture) {
        texture = kit::Texture::textureWithImageNamed(image);
        if (texture->isPlaceholder())
            texture = standIn(image);
    }
    return texture;
}

void addHealthBar(kit::SpriteNode& node, int allowedTimesToHit, const QPointF& offset)
{
    const int hits = std::clamp(allowedTimesToHit, 2, kHealthBarSlots);
    const BarLayout layout = layoutFor(hits);
    auto box = std::make_shared<kit::SpriteNode>(healthBarTexture(QStringLiteral("object_HealthBar")),
                                                 QSizeF(layout.width, 25));
    box->setName(QStringLiteral("healthBox"));
    box->setAnchorPoint({0.5, 0.5});
    box->setPosition(offset.x(), offset.y() + node.size().height() * 0.5);
    box->setZPosition(node.zPosition() + 1);
    node.addChild(box);
    for (int slot = 1; slot <= hits; ++slot) {
        auto health =
            std::make_shared<kit::SpriteNode>(healthBarTexture(QStringLiteral("object_HealthGreen")), QSizeF(8, 18));
        health->setName(QStringLiteral("health%1").arg(slot));
        health->setAnchorPoint({0.5, 0.5});
        health->setPosition(layout.slotX[size_t(slot - 1)], 0);
        health->setZPosition(node.zPosition() + 2);
        box->addChild(health);
    }
}

void setHealthSlot(kit::Node& node, int slot, const QString& image)
{
    const kit::NodePtr box = node.childNodeWithName(QStringLiteral("healthBox"));
    if (!box)
        return;
    auto health =
        std::dynamic_pointer_cast<kit::SpriteNode>(box->childNodeWithName(QStringLiteral("health%1").arg(slot)));
    if (health)
        health->setTexture(healthBarTexture(image));
}

void showHitsRemaining(kit::Node& node, int allowedTimesToHit, int hitsRemaining)
{
    const int shown = std::min(allowedTimesToHit, kHealthBarSlots);
    for (int slot = 1; slot <= shown; ++slot)
        setHealthSlot(node, slot,
                      slot > hitsRemaining     ? QStringLiteral("object_HealthEmpty")
                          : hitsRemaining == 1 ? QStringLiteral("object_HealthRed")
                                               : QStringLiteral("object_HealthGreen"));
}

} // namespace tessaro
