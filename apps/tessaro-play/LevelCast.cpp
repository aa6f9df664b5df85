#include "LevelCast.h"

#include "LevelScenery.h"

#include <tessaro/layout/ItemPlacement.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/LevelItems.h>
#include <tessaro/runtime/ObstacleCreationHelper.h>

namespace play {

using namespace tessaro;

namespace {

QPointF pointOf(PointValue p)
{
    return {p.x, p.y};
}

QSizeF sizeOf(SizeValue s)
{
    return {s.width, s.height};
}

/// `devices` with the size the factories read set to `size`, so that a
/// sprite's body is made at the size the layout gives.
void setLaidSize(std::optional<std::vector<DeviceProperties>>& devices, SizeValue size)
{
    std::vector<DeviceProperties>& entries = devices ? *devices : devices.emplace();
    auto* entry = const_cast<DeviceProperties*>(deviceEntryWithField<fieldList::size>(entries));
    if (!entry)
        entry = deviceEntryFor(entries, deviceName::defaultDevice);
    if (!entry) {
        entry = &entries.emplace_back();
        entry->deviceName = std::string(caseText(deviceName::defaultDevice));
    }
    entry->size = textFromPair(size.width, size.height);
}

RangeValue travel(double start, double reach)
{
    return reach < 0 ? RangeValue{start + reach, start} : RangeValue{start, start + reach};
}

class Caster {
public:
    Caster(const layout::GroundPlan& ground, AppSharedSceneBase& scene, kit::Node& world, Cast& cast)
        : m_ground(ground),
          m_context(gameLayoutContext(scene)),
          m_scene(scene),
          m_world(world),
          m_cast(cast)
    {
    }

    void obstacle(const ObstacleLevelItem& item)
    {
        const Obstacle* catalogue = findObstacle(obstacleCatalogue(), item.elementName);
        if (!catalogue || !item.isVisible.value_or(true))
            return;
        const layout::ItemLook look = layout::obstacleLook(item, *catalogue, m_ground, m_context);
        Obstacle record = mergedObstacle(item, *catalogue);
        setLaidSize(record.devices, look.size);
        if (!addObstacle(record, look.centre))
            return;
        const std::int64_t copies = item.properties ? item.properties->repeatCount.value_or(0) : 0;
        // The row of copies, each a width further on.
        for (const PointValue& place :
             layout::repeatedCopies(m_context.deviceValue<fieldList::position>(*look.devices), look.size,
                                    look.useGravity, copies, *look.devices, m_ground, m_context))
            addObstacle(record, place);
    }

    void character(const CharacterLevelItem& item)
    {
        const Character* catalogue = findCharacter(characterCatalogue(), item.elementName);
        if (!catalogue || !item.isVisible.value_or(true))
            return;
        const layout::ItemLook look = layout::characterLook(item, *catalogue, m_ground, m_context);
        CharacterLevelItem laid = item;
        setLaidSize((laid.properties ? *laid.properties : laid.properties.emplace()).devices, look.size);
        const auto kind = caseFromText<characterClassType>(item.charClassType.value_or("friendly"));
        const bool friendly = kind == characterClassType::friendly;
        auto sprite = ObstacleCreationHelper::createCharacter(laid, *catalogue, friendly ? nullptr : m_cast.player,
                                                              m_world, m_scene);
        if (!sprite)
            return;
        sprite->setPosition(pointOf(look.centre));
        sprite->setStartingPosition(pointOf(look.centre));
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
            const layout::ItemLook look = layout::coinLook(coin, *catalogue, m_ground, m_context);
            collectible("coin", look, look.centre);
            // A row or stack of coins, each collected on its own.
            for (const PointValue& step :
                 layout::coinSteps(coin.stack.value_or(false), coin.repeatCount.value_or(0), look.size, spacing))
                collectible("coin", look, {look.centre.x + step.x, look.centre.y + step.y});
        }
    }

    void shields(const Shields& shields)
    {
        for (const Shield& shield : shields.shields.value_or(std::vector<Shield>{}))
            if (shield.isVisible.value_or(true)) {
                const layout::ItemLook look =
                    layout::shieldLook(shield, shields.image.value_or(""), m_ground, m_context);
                collectible("shield", look, look.centre);
            }
    }

    void artifacts(const Artifacts& artifacts)
    {
        for (const Artifact& artifact : artifacts.artifacts.value_or(std::vector<Artifact>{}))
            if (artifact.isVisible.value_or(true)) {
                const layout::ItemLook look = layout::artifactLook(artifact, m_ground, m_context);
                collectible("artifact", look, look.centre)->setAlpha(artifact.alpha.value_or(1));
            }
    }

    void checkpoints(const CheckPointData& checkpoints)
    {
        const GenericObject* catalogue = findObject(objectCatalogue(), checkpoints.image, sceneObjectType::checkpoint);
        if (!catalogue)
            return;
        for (const CheckPointLocation& location : checkpoints.locations.value_or(std::vector<CheckPointLocation>{}))
            if (location.isVisible.value_or(true)) {
                const layout::ItemLook look = layout::checkpointLook(location, *catalogue, m_ground, m_context);
                collectible("checkpoint", look, look.centre);
            }
    }

private:
    SKSpriteNode2dBasePtr addObstacle(const Obstacle& record, PointValue centre)
    {
        auto node = ObstacleCreationHelper::createObstacle(record, m_world, m_scene);
        if (!node)
            return nullptr;
        // A rotation pinned to a carrier keeps the carrier's own place.
        if (!node->name().startsWith(QStringLiteral("OBJECT_rotate_"))) {
            const PointValue reach = pointFromText(record.maximumDistance.value_or("{0,0}"));
            node->setPosition(pointOf(centre));
            node->setStartingPosition(pointOf(centre));
            node->setDistanceXRange(travel(centre.x, reach.x));
            node->setDistanceYRange(travel(centre.y, reach.y));
        }
        m_world.addChild(node);
        m_cast.obstacles.push_back(node);
        ++m_cast.made["obstacles"];
        return node;
    }

    /// A sprite the player picks up by touching it.
    SKSpriteNode2dBasePtr collectible(const char* kind, const layout::ItemLook& look, PointValue centre)
    {
        SpriteSetup setup;
        setup.size = sizeOf(look.size);
        setup.zPosition = look.z;
        setup.scene = &m_scene;
        setup.name =
            QStringLiteral("%1_%2").arg(QString::fromLatin1(kind).toUpper()).arg(m_cast.made[std::string(kind) + "s"]);
        const std::string image = look.image.substr(0, look.image.find(','));
        auto node = SKSpriteNode2dBase::create(QString::fromStdString(image), setup);
        node->setPosition(pointOf(centre));
        node->userData().insert(kCollectibleKey, QString::fromLatin1(kind));
        PhysicsSettings settings;
        settings.category = collisionBit(collisionTypes::collectibleTouched);
        settings.contact = collisionBit(collisionTypes::humanPlayer);
        node->usePhysicsRectangle(node->size(), settings);
        m_world.addChild(node);
        ++m_cast.made[std::string(kind) + "s"];
        return node;
    }

    const layout::GroundPlan& m_ground;
    const layout::LayoutContext m_context;
    AppSharedSceneBase& m_scene;
    kit::Node& m_world;
    Cast& m_cast;
};

} // namespace

Cast castLevel(const Level& level, const layout::GroundPlan& ground, AppSharedSceneBase& scene, kit::Node& world)
{
    Cast cast;
    for (const char* kind : {"obstacles", "characters", "coins", "shields", "artifacts", "checkpoints"})
        cast.made[kind] = 0;
    Caster caster(ground, scene, world, cast);
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
