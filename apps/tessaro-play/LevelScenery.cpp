#include "LevelScenery.h"

#include <tessaro/layout/BackgroundPlan.h>
#include <tessaro/layout/ImageNames.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/SKSpriteNodeSharedBase.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace play {

using namespace tessaro;
using kit::Texture;
using kit::TexturePtr;

namespace {

/// More copies than this in one section are a typing slip; the game lays
/// this many.
constexpr int kMostCopies = 1000;

/// How far neighbouring copies of a background overlap, as a part of their
/// width: pictures often end in a sliver of transparent pixels, which would
/// show as a thin line where copies meet.
constexpr double kBackgroundOverlap = 0.01;

QSizeF sizeOr(const QSizeF& wanted, const TexturePtr& texture)
{
    return wanted.isEmpty() ? texture->size() : wanted;
}

/// One picture made of `grid` columns of tiles (each column top to bottom),
/// every tile drawn at `tileSize` (its own size when empty).
TexturePtr composed(const std::vector<std::vector<TexturePtr>>& grid, const QSizeF& tileSize)
{
    if (grid.empty() || grid.front().empty())
        return nullptr;
    const QSizeF tile = sizeOr(tileSize, grid.front().front());
    const QSize pixels(int(std::ceil(tile.width() * double(grid.size()))),
                       int(std::ceil(tile.height() * double(grid.front().size()))));
    if (pixels.isEmpty())
        return nullptr;
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (size_t column = 0; column < grid.size(); ++column)
        for (size_t row = 0; row < grid[column].size(); ++row)
            painter.drawImage(
                QRectF(tile.width() * double(column), tile.height() * double(row), tile.width(), tile.height()),
                grid[column][row]->image());
    painter.end();
    return Texture::fromImage(image);
}

/// The sprite of a laid-out section; null when it shows nothing.
kit::SpriteNodePtr groundSprite(const layout::GroundPiece& piece, AppSharedSceneBase& scene)
{
    if (piece.hidden || piece.columns <= 0 || piece.size.width <= 0 || piece.size.height <= 0)
        return nullptr;
    std::vector<TexturePtr> column;
    for (const std::string& name : piece.images)
        column.push_back(scene.cachedTexture(QString::fromStdString(name)));
    // More copies than this are drawn as a stretched picture of this many.
    const int columns = std::min(piece.columns, kMostCopies);
    const TexturePtr picture = composed(std::vector<std::vector<TexturePtr>>(size_t(columns), column),
                                        QSizeF(piece.tileSize.width, piece.tileSize.height));
    if (!picture)
        return nullptr;
    const QSizeF size(piece.size.width, piece.size.height);
    kit::SpriteNodePtr node;
    if (piece.hazard) {
        node = kit::SpriteNode::create(picture, size);
    } else {
        auto floor = std::make_shared<SKSpriteNodeSharedBase>(picture, Qt::transparent, size);
        PhysicsSettings settings;
        settings.category = collisionBit(collisionTypes::floor);
        settings.collision = collisionBit(collisionTypes::staticObjectBody);
        floor->usePhysicsRectangle(size, settings);
        node = floor;
    }
    node->setZPosition(piece.z);
    node->setPosition(piece.centre.x, piece.centre.y);
    return node;
}

void layBackground(const BackgroundImage& record, const layout::LayoutContext& context, AppSharedSceneBase& scene,
                   kit::Node& world, kit::Node& camera, Scenery& scenery)
{
    const std::optional<layout::BackgroundLayer> laid = layout::layBackground(record, scenery.ground.length, context);
    if (!laid)
        return;
    const QRectF frame = scene.sceneFrame();
    const TexturePtr picture = scene.cachedTexture(QString::fromStdString(record.image.value_or("placeholder")));
    if (!laid->pinned) {
        Scenery::Layer layer;
        layer.speed = record.speed.value_or(0);
        // A picture whose two sides do not match still scrolls without a
        // seam: every other copy is its mirror image.
        for (int copy = 0; copy < (layer.speed > 0 ? 3 : 1); ++copy) {
            auto node = kit::SpriteNode::create(picture, frame.size());
            node->setZPosition(laid->z);
            node->setXScale(copy % 2 ? -1 : 1);
            camera.addChild(node);
            layer.copies.push_back(node);
            ++scenery.backgroundSprites;
        }
        scenery.layers.push_back(std::move(layer));
        return;
    }
    // Each copy reaches a little over its neighbour, and every other one is
    // mirrored so that neighbours meet at matching sides.
    const QSizeF size(frame.width() * (1 + kBackgroundOverlap), frame.height());
    for (const double x : laid->copies) {
        auto node = kit::SpriteNode::create(picture, size);
        node->setZPosition(laid->z);
        node->setPosition(x, frame.center().y());
        node->setXScale(std::lround(x / frame.width()) % 2 ? -1 : 1);
        world.addChild(node);
        ++scenery.backgroundSprites;
    }
}

} // namespace

layout::LayoutContext gameLayoutContext(AppSharedSceneBase& scene)
{
    layout::LayoutContext context;
    const QRectF frame = scene.sceneFrame();
    context.view = {frame.left(), frame.top(), frame.width(), frame.height()};
    context.devices = scene.deviceChoice();
    context.obstacles = &obstacleCatalogue();
    context.characters = &characterCatalogue();
    context.objects = &objectCatalogue();
    // The game's textures are as many points as pixels; the editor draws
    // an image at its own size by the workspace's image scale.
    const double scale = layout::pixelsPerPoint(globalAppConfig().base.defaultImageScale);
    context.imageSize = [&scene, scale](sceneObjectType, const std::string& name) {
        const QSizeF size = scene.cachedTexture(QString::fromStdString(name))->size();
        return SizeValue{size.width() / scale, size.height() / scale};
    };
    return context;
}

Scenery layScenery(const Level& level, AppSharedSceneBase& scene, kit::Node& world, kit::Node& camera)
{
    const layout::LayoutContext context = gameLayoutContext(scene);
    Scenery scenery;
    scenery.ground = layout::layGround(level.ground.value_or(std::vector<GroundSection>{}), context);
    for (const layout::GroundPiece& piece : scenery.ground.pieces)
        if (const kit::SpriteNodePtr node = groundSprite(piece, scene)) {
            world.addChild(node);
            ++scenery.groundSprites;
        }
    std::vector<QRectF> floors;
    for (const layout::FloorStretch& floor : scenery.ground.floors)
        floors.emplace_back(floor.x, floor.top, floor.width, 0);
    scene.setGroundBaseVariants(std::move(floors));
    scenery.levelEndX = scenery.ground.endX;
    if (level.background && level.background->backgrounds)
        for (const BackgroundImage& record : *level.background->backgrounds)
            layBackground(record, context, scene, world, camera, scenery);
    return scenery;
}

void scrollLayers(Scenery& scenery, double cameraX, double viewWidth)
{
    for (Scenery::Layer& layer : scenery.layers) {
        if (layer.speed <= 0 || viewWidth <= 0)
            continue;
        // The picture drifts left by speed times the camera's travel and
        // wraps round after a picture and its mirror, the copies at its
        // right filling the gap.
        const double step = viewWidth * (1 - kBackgroundOverlap);
        double shift = std::fmod(cameraX * layer.speed, 2 * step);
        if (shift < 0)
            shift += 2 * step;
        for (size_t i = 0; i < layer.copies.size(); ++i)
            layer.copies[i]->setPosition(-shift + double(i) * step, layer.copies[i]->position().y());
    }
}

} // namespace play
