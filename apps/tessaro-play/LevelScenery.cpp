#include "LevelScenery.h"

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

QString hazardTile(groundBaseType type)
{
    switch (type) {
    case groundBaseType::BrightWater: return QStringLiteral("brightWater_ground");
    case groundBaseType::Lava: return QStringLiteral("lava_top");
    case groundBaseType::MuddyWater: return QStringLiteral("muddyWater_ground");
    case groundBaseType::None: return QStringLiteral("transparent_ground");
    case groundBaseType::Spike: return QStringLiteral("spikes_1");
    case groundBaseType::ToxicGreen: return QStringLiteral("toxicGreen_ground");
    case groundBaseType::Water: return QStringLiteral("crest_top_one");
    case groundBaseType::Ground: break;
    }
    return {};
}

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

class GroundLayout {
public:
    GroundLayout(AppSharedSceneBase& scene, kit::Node& world, Scenery& scenery)
        : m_scene(scene),
          m_world(world),
          m_scenery(scenery),
          m_runningX(scene.sceneFrame().left())
    {
    }

    void lay(const GroundSection& section)
    {
        if (!section.isVisible.value_or(true))
            return;
        const auto type = caseFromText<groundBaseType>(section.groundType.value_or("Ground"));
        if (type == groundBaseType::Ground)
            layTiles(section);
        else
            layHazard(section, type.value_or(groundBaseType::None));
    }

    double end() const { return m_levelEnd; }

private:
    void layHazard(const GroundSection& section, groundBaseType type)
    {
        const PointValue offset = deviceValue<fieldList::offset>(section.devices);
        const SizeValue size = deviceValue<fieldList::size>(section.devices);
        const double distance = section.distance ? sizeFromText(*section.distance).width : 0;
        const TexturePtr tile = m_scene.cachedTexture(hazardTile(type));
        const QSizeF tileSize = sizeOr(QSizeF(size.width, size.height), tile);
        int copies = 0;
        while (distance > 0 && tileSize.width() > 0 && 2 * offset.x + copies * tileSize.width() < distance &&
               copies < kMostCopies)
            ++copies;
        if (copies > 0) {
            const TexturePtr picture = composed(std::vector<std::vector<TexturePtr>>(size_t(copies), {tile}), tileSize);
            auto node = kit::SpriteNode::create(picture);
            node->setZPosition(section.zPosition.value_or(50) + 47);
            node->setPosition(m_runningX + offset.x + node->size().width() / 2, m_scene.sceneFrame().top());
            m_world.addChild(node);
            ++m_scenery.groundSprites;
        }
        m_runningX += distance;
        m_levelEnd = m_runningX;
    }

    void layTiles(const GroundSection& section)
    {
        const PointValue offset = deviceValue<fieldList::offset>(section.devices);
        const SizeValue size = deviceValue<fieldList::size>(section.devices);
        const int repeat = int(std::clamp<std::int64_t>(section.repeatCount.value_or(0), 0, kMostCopies));
        const bool stacked = section.stack.value_or(false);
        std::vector<std::vector<TexturePtr>> grid;
        if (stacked) {
            std::vector<TexturePtr> column;
            for (const std::string& name : trimmedNamesFromText(section.image.value_or("")))
                if (!name.empty())
                    column.push_back(m_scene.cachedTexture(QString::fromStdString(name)));
            grid.assign(size_t(repeat + 1), column);
        } else {
            const std::string text = section.image.value_or("");
            const TexturePtr tile = m_scene.cachedTexture(QString::fromStdString(text.substr(0, text.find(','))));
            grid.assign(size_t(std::max(1, repeat)), {tile});
        }
        m_runningX += offset.x;
        const TexturePtr picture = composed(grid, QSizeF(size.width, size.height));
        if (!picture)
            return;
        auto node = std::make_shared<SKSpriteNodeSharedBase>(picture, Qt::transparent, picture->size());
        const QSizeF ps = node->size();
        node->setZPosition(section.zPosition.value_or(50) + 50);
        node->setPosition(m_runningX + ps.width() / 2, offset.y + ps.height() / 2 + m_scene.sceneFrame().top());
        PhysicsSettings floor;
        floor.category = collisionBit(collisionTypes::floor);
        floor.collision = collisionBit(collisionTypes::staticObjectBody);
        node->usePhysicsRectangle(ps, floor);
        m_world.addChild(node);
        ++m_scenery.groundSprites;

        const double top = node->position().y() + ps.height() / 2;
        const auto angles = listFromText<groundPhysicsAngleType>(section.groundPhysicsAngleType.value_or(""));
        const bool sloped = std::find(angles.begin(), angles.end(), groundPhysicsAngleType::angle) != angles.end();
        // Stretches of equal height (or a slope) that meet make one floor
        // piece; a gap between them parts them.
        auto& pieces = m_scene.groundBaseVariants();
        const bool meets = !pieces.empty() && std::abs(pieces.back().left() + pieces.back().width() - m_runningX) < 0.5;
        if (meets && (pieces.back().y() == top || sloped))
            pieces.back().setWidth(pieces.back().width() + ps.width());
        else
            pieces.emplace_back(m_runningX, top, ps.width(), 0);
        m_runningX += ps.width();
        m_levelEnd = m_runningX;
    }

    AppSharedSceneBase& m_scene;
    kit::Node& m_world;
    Scenery& m_scenery;
    double m_runningX;
    double m_levelEnd = 0;
};

void layBackground(const BackgroundImage& record, AppSharedSceneBase& scene, kit::Node& world, kit::Node& camera,
                   Scenery& scenery)
{
    if (!record.isVisible.value_or(true))
        return;
    const QRectF frame = scene.sceneFrame();
    const TexturePtr picture = scene.cachedTexture(QString::fromStdString(record.image.value_or("placeholder")));
    const qreal z = record.zPosition.value_or(0);
    if (!record.pinned.value_or(false)) {
        Scenery::Layer layer;
        layer.speed = record.speed.value_or(0);
        // A picture whose two sides do not match still scrolls without a
        // seam: every other copy is its mirror image.
        for (int copy = 0; copy < (layer.speed > 0 ? 3 : 1); ++copy) {
            auto node = kit::SpriteNode::create(picture, frame.size());
            node->setZPosition(z);
            node->setXScale(copy % 2 ? -1 : 1);
            camera.addChild(node);
            layer.copies.push_back(node);
            ++scenery.backgroundSprites;
        }
        scenery.layers.push_back(std::move(layer));
        return;
    }
    std::vector<RangeValue> ranges;
    for (const PinnedRange& range : record.pinnedRanges.value_or(std::vector<PinnedRange>{}))
        ranges.push_back(rangeFromText(range.range.value_or("")));
    if (ranges.empty())
        ranges.push_back({0, 1000000});
    double step = frame.width() * (1 - kBackgroundOverlap);
    const double groundLength = scenery.levelEndX - frame.left();
    int copy = 0;
    for (double x = 0; x < groundLength + 1000 && step > 0; x += step, ++copy) {
        const bool inside =
            std::any_of(ranges.begin(), ranges.end(), [x](RangeValue r) { return r.lower <= x && x <= r.upper; });
        if (!inside)
            continue;
        auto node = kit::SpriteNode::create(picture, frame.size());
        node->setZPosition(z);
        node->setPosition(x, frame.center().y());
        node->setXScale(copy % 2 ? -1 : 1); // neighbours meet at matching sides
        world.addChild(node);
        ++scenery.backgroundSprites;
    }
}

} // namespace

Scenery layScenery(const Level& level, AppSharedSceneBase& scene, kit::Node& world, kit::Node& camera)
{
    Scenery scenery;
    GroundLayout ground(scene, world, scenery);
    for (const GroundSection& section : level.ground.value_or(std::vector<GroundSection>{}))
        ground.lay(section);
    scenery.levelEndX = ground.end();
    if (level.background && level.background->backgrounds)
        for (const BackgroundImage& record : *level.background->backgrounds)
            layBackground(record, scene, world, camera, scenery);
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
