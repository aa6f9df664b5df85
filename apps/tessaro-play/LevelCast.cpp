#include "LevelCast.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/LevelItems.h>
#include <tessaro/runtime/ObstacleCreationHelper.h>

namespace play {

using namespace tessaro;

namespace {

/// Where a collectible stands: the editor's rule, so that the game shows
/// the level as it was designed.
enum class Footing { coin, artifact, upright };

QPointF collectiblePlace(const std::vector<DeviceProperties>& devices, bool gravity, double height, Footing footing,
                         const AppSharedSceneBase& scene)
{
    const PointValue p = deviceValue<fieldList::position>(devices);
    const PointValue o = deviceValue<fieldList::offset>(devices);
    const double x0 = o.x + p.x;
    const double y0 = o.y + (gravity ? scene.groundHeight(p.x) : p.y);
    switch (footing) {
    case Footing::coin: return {x0, p.y == 0 ? o.y + scene.groundHeight(x0) + height / 2 : y0};
    case Footing::artifact: return {x0, o.y + (p.y == 0 ? scene.groundHeight(x0) + height / 2 : y0)};
    case Footing::upright: break;
    }
    return {x0, y0 + height / 2};
}

QSizeF sizeFrom(const std::vector<DeviceProperties>& devices, const std::vector<DeviceProperties>& fallback)
{
    SizeValue size = deviceValue<fieldList::size>(devices);
    if (size == SizeValue{})
        size = deviceValue<fieldList::size>(fallback);
    return {size.width, size.height};
}

class Caster {
public:
    Caster(AppSharedSceneBase& scene, kit::Node& world, Cast& cast) : m_scene(scene), m_world(world), m_cast(cast) {}

    void obstacle(const ObstacleLevelItem& item)
    {
        const Obstacle* catalogue = findObstacle(obstacleCatalogue(), item.elementName);
        if (!catalogue || !item.isVisible.value_or(true))
            return;
        const Obstacle record = mergedObstacle(item, *catalogue);
        const SKSpriteNode2dBasePtr first = addObstacle(record);
        const std::int64_t copies = item.properties ? item.properties->repeatCount.value_or(0) : 0;
        if (!first || copies < 2 || !record.devices)
            return;
        // The row of copies: each one a width further on, its own random
        // offset drawn anew.
        const PointValue start = deviceValue<fieldList::position>(*record.devices);
        const bool gravity = record.useGravity.value_or(true);
        double x = start.x;
        for (std::int64_t n = 1; n < std::min<std::int64_t>(copies, 1000); ++n) {
            const double baseY = gravity ? 0 : start.y;
            const PointValue jitter = deviceValue<fieldList::randomPositionRange>(*record.devices);
            x += first->size().width() + jitter.x;
            Obstacle copy = record;
            DeviceProperties* entry = deviceEntryFor(*copy.devices, deviceName::defaultDevice);
            if (!entry) {
                entry = &copy.devices->emplace_back();
                entry->deviceName = "defaultDevice";
            }
            entry->position = textFromPair(x, baseY + jitter.y);
            entry->randomPositionRange.reset();
            addObstacle(copy);
        }
    }

    void character(const CharacterLevelItem& item)
    {
        const Character* catalogue = findCharacter(characterCatalogue(), item.elementName);
        if (!catalogue || !item.isVisible.value_or(true))
            return;
        const auto kind = caseFromText<characterClassType>(item.charClassType.value_or("friendly"));
        const bool friendly = kind == characterClassType::friendly;
        auto sprite = ObstacleCreationHelper::createCharacter(item, *catalogue, friendly ? nullptr : m_cast.player,
                                                              m_world, m_scene);
        if (!sprite)
            return;
        m_world.addChild(sprite);
        ++m_cast.made["characters"];
        // The bar floats above the head rather than across it.
        if (const kit::NodePtr bar = sprite->childNodeWithName(QStringLiteral("healthBox")))
            bar->setPosition(bar->position() + QPointF(0, 16));
        if (friendly && !m_cast.player)
            m_cast.player = sprite;
        else if (friendly)
            m_cast.friends.push_back(sprite);
        else
            m_cast.enemies.push_back(sprite);
    }

    void coins(const Coins& coins)
    {
        const GenericObject* catalogue = findObject(objectCatalogue(), "coin", sceneObjectType::coin);
        if (!catalogue)
            return;
        const PointValue spacing = roundedPointFromText(1, coins.repeatDistance.value_or(""));
        for (const Coin& coin : coins.coins.value_or(std::vector<Coin>{})) {
            if (!coin.isVisible.value_or(true))
                continue;
            const auto devices = coin.devices.value_or(std::vector<DeviceProperties>{});
            const bool gravity = coin.useGravity.value_or(deviceValue<fieldList::position>(devices).y == 0);
            auto first = collectible("coin", catalogue->image.value_or(""),
                                     sizeFrom(devices, catalogue->devices.value_or(std::vector<DeviceProperties>{})),
                                     coin.zPosition.value_or(1));
            first->setPosition(collectiblePlace(devices, gravity, first->size().height(), Footing::coin, m_scene));
            // A row or stack of coins, each collected on its own.
            const bool stacked = coin.stack.value_or(false);
            const QPointF step = stacked ? QPointF(0, first->size().height() / 2 + spacing.y)
                                         : QPointF(first->size().width() / 2 + spacing.x, 0);
            for (std::int64_t n = 1; n < std::min<std::int64_t>(coin.repeatCount.value_or(0), 1000); ++n) {
                auto next = collectible("coin", catalogue->image.value_or(""), first->size(), first->zPosition());
                next->setPosition(first->position() + step * double(n));
            }
        }
    }

    void shields(const Shields& shields)
    {
        for (const Shield& shield : shields.shields.value_or(std::vector<Shield>{})) {
            if (!shield.isVisible.value_or(true))
                continue;
            const auto devices = shield.devices.value_or(std::vector<DeviceProperties>{});
            auto node =
                collectible("shield", shields.image.value_or(""), sizeFrom(devices, {}), shield.zPosition.value_or(1));
            node->setPosition(collectiblePlace(devices, false, node->size().height(), Footing::upright, m_scene));
        }
    }

    void artifacts(const Artifacts& artifacts)
    {
        for (const Artifact& artifact : artifacts.artifacts.value_or(std::vector<Artifact>{})) {
            if (!artifact.isVisible.value_or(true))
                continue;
            const auto devices = artifact.devices.value_or(std::vector<DeviceProperties>{});
            auto node = collectible("artifact", artifact.image.value_or(""), sizeFrom(devices, {}),
                                    artifact.zPosition.value_or(1));
            node->setAlpha(artifact.alpha.value_or(1));
            node->setPosition(collectiblePlace(devices, false, node->size().height(), Footing::artifact, m_scene));
        }
    }

    void checkpoints(const CheckPointData& checkpoints)
    {
        const GenericObject* catalogue = findObject(objectCatalogue(), checkpoints.image, sceneObjectType::checkpoint);
        if (!catalogue)
            return;
        for (const CheckPointLocation& location : checkpoints.locations.value_or(std::vector<CheckPointLocation>{})) {
            if (!location.isVisible.value_or(true))
                continue;
            const auto devices = location.devices.value_or(std::vector<DeviceProperties>{});
            auto node = collectible("checkpoint", catalogue->image.value_or(""),
                                    sizeFrom(devices, catalogue->devices.value_or(std::vector<DeviceProperties>{})),
                                    location.zPosition);
            node->setPosition(collectiblePlace(devices, true, node->size().height(), Footing::upright, m_scene));
        }
    }

private:
    SKSpriteNode2dBasePtr addObstacle(const Obstacle& record)
    {
        auto node = ObstacleCreationHelper::createObstacle(record, m_world, m_scene);
        if (!node)
            return nullptr;
        m_world.addChild(node);
        m_cast.obstacles.push_back(node);
        ++m_cast.made["obstacles"];
        return node;
    }

    /// A sprite the player picks up by touching it.
    SKSpriteNode2dBasePtr collectible(const char* kind, const std::string& image, const QSizeF& size, double z)
    {
        SpriteSetup setup;
        setup.size = size;
        setup.zPosition = z;
        setup.scene = &m_scene;
        setup.name =
            QStringLiteral("%1_%2").arg(QString::fromLatin1(kind).toUpper()).arg(m_cast.made[std::string(kind) + "s"]);
        auto node = SKSpriteNode2dBase::create(QString::fromStdString(image.substr(0, image.find(','))), setup);
        node->userData().insert(kCollectibleKey, QString::fromLatin1(kind));
        PhysicsSettings settings;
        settings.category = collisionBit(collisionTypes::collectibleTouched);
        settings.contact = collisionBit(collisionTypes::humanPlayer);
        node->usePhysicsRectangle(node->size(), settings);
        m_world.addChild(node);
        ++m_cast.made[std::string(kind) + "s"];
        return node;
    }

    AppSharedSceneBase& m_scene;
    kit::Node& m_world;
    Cast& m_cast;
};

} // namespace

Cast castLevel(const Level& level, AppSharedSceneBase& scene, kit::Node& world)
{
    Cast cast;
    for (const char* kind : {"obstacles", "characters", "coins", "shields", "artifacts", "checkpoints"})
        cast.made[kind] = 0;
    Caster caster(scene, world, cast);
    for (const ObstacleLevelItem& item : level.obstacles.value_or(std::vector<ObstacleLevelItem>{}))
        caster.obstacle(item);
    // The player comes first, so that every enemy can be given it to follow.
    const auto characters = level.characters.value_or(std::vector<CharacterLevelItem>{});
    auto isFriendly = [](const CharacterLevelItem& item) {
        return item.charClassType.value_or("friendly") == "friendly";
    };
    for (const CharacterLevelItem& item : characters)
        if (isFriendly(item))
            caster.character(item);
    for (const CharacterLevelItem& item : characters)
        if (!isFriendly(item))
            caster.character(item);
    if (level.coins)
        caster.coins(*level.coins);
    if (level.shields)
        caster.shields(*level.shields);
    if (level.artifacts)
        caster.artifacts(*level.artifacts);
    if (level.checkpoints)
        caster.checkpoints(*level.checkpoints);
    return cast;
}

} // namespace play
