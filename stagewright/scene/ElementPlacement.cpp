// The second pass of loading: obstacles, characters, checkpoints, coins,
// artifacts and shields become element nodes on their layers, where the
// layout puts them on the floor that the ground has fixed. An item whose
// catalogue entry is missing cannot be drawn; it is kept on a hidden node and
// saved as it was read.
#include "ElementPlacement.h"

#include "SceneEditor.h"
#include "SceneNumbers.h"
#include "ScenePictures.h"

#include <stagewright/state/ElementHandles.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/layout/GroundPlan.h>
#include <tessaro/layout/ItemPlacement.h>
#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::collisionBit;
using tessaro::collisionTypes;
using tessaro::sceneObjectType;

namespace {

/// A node showing the first image of `imageText` at `size` (the layout's).
ElementNodePtr makeElement(sceneObjectType kind, const std::string& imageText, tessaro::SizeValue size, double z)
{
    const tessaro::kit::TexturePtr texture = SceneImageCache::shared().picture(kind, firstImageName(imageText)).texture;
    const QSizeF shown(size.width, size.height);
    auto node = ElementNode::create(texture, shown);
    node->setSize(shown);
    node->setZPosition(z);
    node->property_sceneObjectType = kind;
    return node;
}

ElementNodePtr makeElement(const tessaro::layout::ItemLook& look)
{
    return makeElement(look.kind, look.image, look.size, look.z);
}

template <class T>
const T* present(const tessaro::boxed<T>& value)
{
    return value ? &*value : nullptr;
}

/// Each field of `over` that is set, else the field of `base`.
template <tessaro::Record R>
R overlaid(const R& over, const R& base)
{
    R merged;
    tessaro::forEachField<R>([&](const auto& field) {
        merged.*field.member = over.*field.member ? over.*field.member : base.*field.member;
    });
    return merged;
}

std::optional<tessaro::RotationProperties> mergedRotation(const tessaro::RotationProperties* over,
                                                          const tessaro::RotationProperties* catalogue)
{
    if (!over && !catalogue)
        return std::nullopt;
    const tessaro::RotationProperties none;
    return overlaid(over ? *over : none, catalogue ? *catalogue : none);
}

/// The body of a checkpoint, coin, artifact or shield: it takes part in
/// contacts and collides with nothing.
ElementBodyMasks collectibleBody(bool affectedByGravity)
{
    return {collisionBit(collisionTypes::staticObjectBody), collisionBit(collisionTypes::none),
            collisionBit(collisionTypes::none), affectedByGravity, false};
}

std::uint32_t maskOr(const std::optional<std::string>& text)
{
    return text ? tessaro::maskFromText(*text) : collisionBit(collisionTypes::none);
}

/// A position set before the device values are read: a number that cannot
/// be shown is 0 here, and placeFromDevices says so.
QPointF quietly(tessaro::PointValue p)
{
    return QPointF(tessaro::layout::quietPosition(p.x), tessaro::layout::quietPosition(p.y));
}

QString pairText(tessaro::PointValue p)
{
    return QStringLiteral("(") + QString::fromStdString(tessaro::numberText(p.x)) + QStringLiteral(", ") +
        QString::fromStdString(tessaro::numberText(p.y)) + QLatin1Char(')');
}

void trace(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

const char* boolText(bool value)
{
    return value ? "true" : "false";
}

} // namespace

std::shared_ptr<const CatalogueRecord> ElementPlacement::catalogueEntry(sceneObjectType kind, const std::string& name,
                                                                        std::optional<sceneObjectType> objectType)
{
    const int kindKey = kind == sceneObjectType::obstacles || kind == sceneObjectType::character
        ? int(kind)
        : 100 + int(objectType.value_or(sceneObjectType::none));
    auto& cached = m_catalogueEntries[{kindKey, name}];
    if (cached)
        return cached;
    if (kind == sceneObjectType::obstacles) {
        for (const tessaro::Obstacle& record : tessaro::obstacleCatalogue())
            if (record.elementName == name)
                return cached = std::make_shared<const CatalogueRecord>(record);
    } else if (kind == sceneObjectType::character) {
        for (const tessaro::Character& record : tessaro::characterCatalogue())
            if (record.elementName == name)
                return cached = std::make_shared<const CatalogueRecord>(record);
    } else {
        const std::optional<std::string> typeText =
            objectType ? std::optional<std::string>(std::string(tessaro::caseText(*objectType))) : std::nullopt;
        for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
            if (record.elementName == name && (!typeText || record.sceneObjectType == typeText))
                return cached = std::make_shared<const CatalogueRecord>(record);
    }
    return nullptr;
}

void ElementPlacement::reportMissingOnce(sceneObjectType kind, const std::string& name, const std::string& line)
{
    if (m_reportedMissing.insert({int(kind), name}).second)
        tessaro::diagnostic(line);
}

void ElementPlacement::finishPlacing(const ElementNodePtr& node, const tessaro::kit::NodePtr& layer,
                                     const std::optional<ElementBodyMasks>& body)
{
    if (node->kind() != sceneObjectType::background && node->kind() != sceneObjectType::ground)
        node->addChild(SizerNode::create(node->size().height()));
    layer->addChild(node);
    if (body)
        node->applyPhysicsBody(body->category, body->contact, body->collision, body->affectedByGravity,
                               body->isDynamic);
    node->placeFromDevices();
}

ElementNodePtr ElementPlacement::keepUnshown(sceneObjectType kind, LevelItemRecord item)
{
    const tessaro::kit::NodePtr layer = m_scene.layerFor(kind);
    if (!layer)
        return nullptr;
    auto node = ElementNode::create(nullptr, QSizeF());
    node->setHidden(true);
    node->keptOnly = true;
    node->property_sceneObjectType = kind;
    node->loadedItem = std::make_shared<const LevelItemRecord>(std::move(item));
    layer->addChild(node);
    return node;
}

// ---- Obstacles ------------------------------------------------------------------------------

ElementNodePtr ElementPlacement::placeObstacle(const tessaro::ObstacleLevelItem& item)
{
    const auto entry = catalogueEntry(sceneObjectType::obstacles, item.elementName, std::nullopt);
    if (!entry) {
        reportMissingOnce(sceneObjectType::obstacles, item.elementName,
                          "Obstacle \"" + item.elementName +
                              "\" is not in the obstacle catalogue; its items stay in the level but are not shown.");
        return keepUnshown(sceneObjectType::obstacles, item);
    }
    const tessaro::Obstacle& catalogue = std::get<tessaro::Obstacle>(*entry);
    const tessaro::Obstacle* over = present(item.properties);
    const tessaro::layout::ItemLook look =
        tessaro::layout::obstacleLook(item, catalogue, m_scene.groundPlan(), m_scene.layoutContext());
    const std::string& image = look.image;
    const bool useGravity = look.useGravity;
    const bool isDynamic = over && over->isDynamic ? *over->isDynamic : catalogue.isDynamic.value_or(false);
    const bool usePhysics = catalogue.usePhysics.value_or(true);

    auto node = makeElement(look);
    node->property_objectName = item.name;
    node->imageOverride = image;
    if (over)
        node->obstacleOverrides = *over;
    if (item.isVisible) {
        if (!node->obstacleOverrides) {
            node->obstacleOverrides.emplace();
            node->obstacleOverrides->id = tessaro::Uuid::create();
        }
        node->obstacleOverrides->isVisible = item.isVisible;
    }
    if (over) {
        node->soundEffects = over->soundEffects;
        node->devices = over->devices;
        if (over->animation)
            node->animationOverrides = *over->animation;
    }
    if (const tessaro::PhysicsProperty* physics = over && over->physics ? &*over->physics : present(catalogue.physics))
        node->physics = *physics;
    node->rotationOverrides =
        mergedRotation(over ? present(over->rotationProperties) : nullptr, present(catalogue.rotationProperties));
    node->defaultViewProperties = entry;
    node->property_useGravity = useGravity;
    node->refreshDistanceGuide();
    std::optional<ElementBodyMasks> body;
    if (usePhysics)
        body = ElementBodyMasks{collisionBit(collisionTypes::staticObjectBody), collisionBit(collisionTypes::none),
                                collisionBit(collisionTypes::floor), useGravity, isDynamic};
    finishPlacing(node, m_scene.m_obstacleNodes, body);

    addRepeatedCopies(node);
    return node;
}

void ElementPlacement::addRepeatedCopies(const ElementNodePtr& owner)
{
    // The copies of a repeated obstacle exist only on the canvas: a row of
    // `repeatCount` pictures, each a full width (plus a random step) after the
    // one before.
    if (!m_scene.m_obstacleNodes)
        return;
    // The copies stand right after their obstacle; a new obstacle is the last child.
    const auto& siblings = m_scene.m_obstacleNodes->children();
    const auto at = !siblings.empty() && siblings.back() == owner ? siblings.end() - 1
                                                                  : std::find(siblings.begin(), siblings.end(), owner);
    if (at == siblings.end())
        return;
    int index = int(at - siblings.begin()) + 1;
    std::vector<tessaro::kit::NodePtr> old;
    for (auto next = at + 1; next != siblings.end(); ++next) {
        const auto* copy = dynamic_cast<const ElementNode*>(next->get());
        if (!copy || !copy->repeatedNode || copy->repeatParentNode != owner->name())
            break;
        old.push_back(*next);
    }
    m_scene.m_obstacleNodes->removeChildrenInArray(old);
    const std::optional<tessaro::Obstacle>& over = owner->obstacleOverrides;
    if (!over || !over->repeatCount || *over->repeatCount < 2)
        return;
    const tessaro::layout::LayoutContext context = m_scene.layoutContext();
    const std::vector<tessaro::PointValue> places =
        tessaro::layout::repeatedCopies(context.deviceValue<tessaro::fieldList::position>(owner->devices),
                                        {owner->size().width(), owner->size().height()}, owner->property_useGravity,
                                        *over->repeatCount, owner->devices, m_scene.groundPlan(), context);
    for (const tessaro::PointValue& place : places) {
        auto copy = ElementNode::create(owner->texture(), owner->size());
        copy->setSize(owner->size());
        copy->setZPosition(owner->zPosition());
        copy->property_sceneObjectType = sceneObjectType::obstacles;
        copy->repeatedNode = true;
        copy->repeatParentNode = owner->name();
        copy->defaultViewProperties = owner->defaultViewProperties;
        m_scene.m_obstacleNodes->insertChild(copy, index++);
        copy->setPosition(place.x, place.y);
    }
    owner->placeFromDevices();
}

// ---- Characters -------------------------------------------------------------------------------

ElementNodePtr ElementPlacement::placeCharacter(const tessaro::CharacterLevelItem& item)
{
    const auto entry = catalogueEntry(sceneObjectType::character, item.elementName, std::nullopt);
    if (!entry) {
        reportMissingOnce(sceneObjectType::character, item.elementName,
                          "Character \"" + item.elementName +
                              "\" is not in the character catalogue; its items stay in the level but are not shown.");
        return keepUnshown(sceneObjectType::character, item);
    }
    const tessaro::Character& catalogue = std::get<tessaro::Character>(*entry);
    const tessaro::Character* over = present(item.properties);
    const tessaro::layout::LayoutContext context = m_scene.layoutContext();
    const tessaro::layout::ItemLook look =
        tessaro::layout::characterLook(item, catalogue, m_scene.groundPlan(), context);
    const std::string& image = look.image;
    const bool useGravity = look.useGravity;
    const bool isDynamic = over && over->isDynamic ? *over->isDynamic : catalogue.isDynamic.value_or(false);
    const auto maskText = [&](std::optional<std::string> tessaro::CollisionDetection::*field) {
        if (over && over->collisionMasks && ((*over->collisionMasks).*field))
            return (*over->collisionMasks).*field;
        return catalogue.collisionMasks ? (*catalogue.collisionMasks).*field : std::nullopt;
    };
    const std::optional<std::vector<tessaro::DeviceProperties>>& devices = *look.devices;
    const tessaro::PointValue position = context.deviceValue<tessaro::fieldList::position>(devices);
    const tessaro::PointValue offset = context.deviceValue<tessaro::fieldList::offset>(devices);
    const double y = useGravity ? m_scene.groundHeight(position.x) : position.y;

    trace(QStringLiteral("character name: ") + QString::fromStdString(item.name));
    trace(QStringLiteral("  position: ") + pairText(position));
    trace(QStringLiteral("  offset: ") + pairText(offset));
    trace(QStringLiteral("  y: ") + QString::fromStdString(tessaro::numberText(y)));
    trace(QStringLiteral("  isDynamic: ") + QLatin1String(boolText(isDynamic)));
    trace(QStringLiteral("  useGravity: ") + QLatin1String(boolText(useGravity)));

    auto node = makeElement(look);
    node->property_objectName = item.name;
    node->imageOverride = image;
    if (over)
        node->characterOverrides = *over;
    if (item.isVisible) {
        if (!node->characterOverrides) {
            node->characterOverrides.emplace();
            node->characterOverrides->id = tessaro::Uuid::create();
        }
        node->characterOverrides->isVisible = item.isVisible;
    }
    if (over) {
        if (over->animation)
            node->animationOverrides = *over->animation;
        node->soundEffects = over->soundEffects;
    }
    node->devices = devices;
    node->property_hidesBehindObject = item.hidesBehindObject.value_or(std::string());
    node->charClassType = tessaro::caseFromText<tessaro::characterClassType>(item.charClassType.value_or("friendly"));
    if (const tessaro::PhysicsProperty* physics = over && over->physics ? &*over->physics : present(catalogue.physics))
        node->physics = *physics;
    node->defaultViewProperties = entry;
    node->property_useGravity = useGravity;
    node->loadedItem = std::make_shared<const LevelItemRecord>(item);
    node->setPosition(quietly(look.centre));
    node->refreshDistanceGuide();
    finishPlacing(node, m_scene.m_characterNodes,
                  ElementBodyMasks{maskOr(maskText(&tessaro::CollisionDetection::category)),
                                   maskOr(maskText(&tessaro::CollisionDetection::contact)),
                                   maskOr(maskText(&tessaro::CollisionDetection::collision)), useGravity, true});
    return node;
}

// ---- Collectibles ---------------------------------------------------------------------------------

ElementNodePtr ElementPlacement::placeCheckpoint(const tessaro::CheckPointLocation& location, const std::string& image)
{
    const auto entry = catalogueEntry(sceneObjectType::checkpoint, image, sceneObjectType::checkpoint);
    if (!entry) {
        reportMissingOnce(sceneObjectType::checkpoint, image,
                          "No checkpoint named \"" + image +
                              "\" in the object catalogue; the level's checkpoints stay in it but are not shown.");
        return keepUnshown(sceneObjectType::checkpoint, location);
    }
    const tessaro::layout::ItemLook look = tessaro::layout::checkpointLook(
        location, std::get<tessaro::GenericObject>(*entry), m_scene.groundPlan(), m_scene.layoutContext());
    auto node = makeElement(look);
    node->imageOverride = look.image;
    node->defaultViewProperties = entry;
    node->checkPointOverrides = location;
    node->devices = location.devices;
    node->property_useGravity = true;
    node->loadedItem = std::make_shared<const LevelItemRecord>(location);
    node->setPosition(quietly(look.centre));
    finishPlacing(node, m_scene.m_checkpointNodes, collectibleBody(true));
    return node;
}

ElementNodePtr ElementPlacement::placeCoin(const tessaro::Coin& coin, double dx, double dy)
{
    auto entry = catalogueEntry(sceneObjectType::coin, "coin", sceneObjectType::coin);
    if (!entry) {
        // A catalogue whose coin is named otherwise still shows coins: the
        // first object of kind coin stands in, and the line says which.
        for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
            if (record.sceneObjectType == std::string(tessaro::caseText(sceneObjectType::coin))) {
                entry = catalogueEntry(sceneObjectType::coin, record.elementName.value_or(std::string()),
                                       sceneObjectType::coin);
                reportMissingOnce(sceneObjectType::coin, "coin",
                                  "No object \"coin\" of kind coin in the object catalogue; coins show \"" +
                                      record.elementName.value_or(std::string()) + "\".");
                break;
            }
    }
    if (!entry) {
        reportMissingOnce(sceneObjectType::coin, "",
                          "No object of kind coin in the object catalogue; the level's coins stay in it but are not "
                          "shown.");
        return keepUnshown(sceneObjectType::coin, coin);
    }
    const tessaro::layout::ItemLook look = tessaro::layout::coinLook(coin, std::get<tessaro::GenericObject>(*entry),
                                                                     m_scene.groundPlan(), m_scene.layoutContext());
    const bool useGravity = look.useGravity;
    auto node = makeElement(look);
    node->setPosition(quietly(look.centre));
    node->imageOverride = look.image;
    node->defaultViewProperties = entry;
    node->coinOverrides = coin;
    node->devices = coin.devices;
    node->property_useGravity = useGravity;
    node->loadedItem = std::make_shared<const LevelItemRecord>(coin);
    if (coin.stack.value_or(false) || coin.repeatCount.value_or(0) >= 1)
        node->addStackChildren(coin.stack.value_or(false), coin.repeatCount.value_or(0), dx, dy);
    finishPlacing(node, m_scene.m_coinNodes, collectibleBody(useGravity));
    return node;
}

ElementNodePtr ElementPlacement::placeArtifact(const tessaro::Artifact& artifact)
{
    const tessaro::layout::ItemLook look =
        tessaro::layout::artifactLook(artifact, m_scene.groundPlan(), m_scene.layoutContext());
    auto node = makeElement(look);
    node->setPosition(quietly(look.centre));
    node->imageOverride = artifact.image;
    node->artifactOverrides = artifact;
    node->devices = artifact.devices;
    node->setAlpha(artifact.alpha.value_or(1));
    node->loadedItem = std::make_shared<const LevelItemRecord>(artifact);
    finishPlacing(node, m_scene.m_artifactNodes, collectibleBody(false));
    return node;
}

ElementNodePtr ElementPlacement::placeShield(const tessaro::Shield& shield, const std::string& image)
{
    const tessaro::layout::ItemLook look =
        tessaro::layout::shieldLook(shield, image, m_scene.groundPlan(), m_scene.layoutContext());
    auto node = makeElement(look);
    node->setPosition(quietly(look.centre));
    node->imageOverride = image;
    node->shieldOverrides.emplace();
    node->shieldOverrides->timed = shield.timed.value_or(60.0);
    node->devices = shield.devices;
    node->loadedItem = std::make_shared<const LevelItemRecord>(shield);
    finishPlacing(node, m_scene.m_shieldsNodes, collectibleBody(false));
    return node;
}

// ---- The picker ------------------------------------------------------------------------------------

ElementNodePtr ElementPlacement::addElement(sceneObjectType kind, const std::string& elementName)
{
    const auto entry = catalogueEntry(kind, elementName, std::nullopt);
    const tessaro::kit::NodePtr layer = m_scene.layerFor(kind);
    if (!entry || !layer) {
        tessaro::diagnostic("No " + std::string(tessaro::caseText(kind)) + " named \"" + elementName +
                            "\" in the catalogue; nothing is added.");
        return nullptr;
    }
    bool useGravity = false, isDynamic = false;
    std::string image;
    std::optional<std::vector<tessaro::DeviceProperties>> catalogueDevices;
    std::optional<std::string> groundType;
    std::visit(
        [&](const auto& record) {
            useGravity = record.useGravity.value_or(false);
            isDynamic = record.isDynamic.value_or(false);
            image = record.image.value_or("placeholder");
            catalogueDevices = record.devices;
            if constexpr (std::is_same_v<std::decay_t<decltype(record)>, tessaro::GenericObject>)
                groundType = record.groundType;
        },
        *entry);
    tessaro::SizeValue size = tessaro::deviceValue<tessaro::fieldList::size>(catalogueDevices);
    const double startX = m_scene.m_navigationNodes ? std::abs(m_scene.m_navigationNodes->position().x()) : 0;
    std::uint32_t category = collisionBit(collisionTypes::staticObjectBody);
    std::uint32_t contact = collisionBit(collisionTypes::none);
    std::uint32_t collision = collisionBit(collisionTypes::none);
    double x = startX, y = 0, z = 100;
    std::optional<std::int64_t> sequenceId;
    const QRectF frame = m_scene.frameRect();

    switch (kind) {
    case sceneObjectType::coin: z = 50; break;
    case sceneObjectType::ground: {
        const std::vector<ElementNodePtr> grounds = SceneEditor::elementsOf(m_scene.m_groundNodes);
        if (!grounds.empty()) {
            x = grounds.back()->position().x() + grounds.back()->frame().width();
            sequenceId = grounds.back()->sequenceId.value_or(0) + 1;
        } else {
            sequenceId = 0;
        }
        if (size == tessaro::SizeValue{})
            size = {128, 64};
        y = frame.top() + size.height / 2;
        category = collisionBit(collisionTypes::floor);
        contact = collisionBit(collisionTypes::floor);
        collision = collisionBit(collisionTypes::staticObjectBody);
        break;
    }
    case sceneObjectType::background:
        z = m_scene.m_backgroundList && m_scene.m_backgroundList->backgrounds
            ? double(m_scene.m_backgroundList->backgrounds->size() + 1)
            : 1;
        size = {frame.width(), frame.height()};
        break;
    default:
        if (size == tessaro::SizeValue{}) {
            const QSizeF natural = SceneImageCache::shared().picture(kind, firstImageName(image)).texture->size();
            if (!natural.isEmpty()) {
                const double fit = std::min(100 / natural.width(), 100 / natural.height());
                size = {natural.width() * fit, natural.height() * fit};
            }
        }
        break;
    }

    auto node = makeElement(kind, image, tessaro::layout::itemSize(kind, size, image, m_scene.layoutContext()), z);
    node->setPosition(quietly({x, y}));
    node->sequenceId = sequenceId;
    node->imageOverride = image;
    node->defaultViewProperties = entry;
    node->property_useGravity = useGravity;

    // The element starts with its own copy of the catalogue's device entries
    // and its placed size, position and offset for the default device: in
    // the catalogue's default entry when it has one (the entry the look-up
    // reads), else in a new entry after the catalogue's.
    std::vector<tessaro::DeviceProperties>& devices =
        node->devices.emplace(catalogueDevices.value_or(std::vector<tessaro::DeviceProperties>{}));
    tessaro::DeviceProperties* placed = tessaro::deviceEntryFor(devices, tessaro::deviceName::defaultDevice);
    if (!placed) {
        placed = &devices.emplace_back();
        placed->deviceName = std::string(tessaro::caseText(tessaro::deviceName::defaultDevice));
    }
    placed->size = tessaro::textFromPair(node->size().width(), node->size().height());
    placed->position = tessaro::textFromPair(x, y);
    placed->offset = "{0,0}";

    switch (kind) {
    case sceneObjectType::obstacles: node->obstacleOverrides.emplace().id = tessaro::Uuid::create(); break;
    case sceneObjectType::character:
        node->characterOverrides.emplace().id = tessaro::Uuid::create();
        node->charClassType = tessaro::characterClassType::friendly;
        break;
    case sceneObjectType::coin: node->coinOverrides.emplace(); break;
    case sceneObjectType::shield: node->shieldOverrides.emplace(); break;
    case sceneObjectType::artifact:
        node->artifactOverrides.emplace();
        node->artifactOverrides->image = image;
        break;
    case sceneObjectType::ground: {
        tessaro::GroundSection& section = node->groundSection.emplace();
        section.groundType = groundType;
        section.image = image;
        break;
    }
    default: break;
    }
    finishPlacing(node, layer, ElementBodyMasks{category, contact, collision, useGravity, isDynamic});
    if (m_scene.m_tab)
        node->handle = m_scene.m_tab->elementHandles().issue();

    if (kind == sceneObjectType::ground && m_scene.m_tab) {
        const std::size_t index = m_scene.m_groundNodes->children().size() - 1;
        m_scene.rebuildGround(m_scene.m_tab->levelSelected());
        if (m_scene.m_groundNodes && index < m_scene.m_groundNodes->children().size())
            return std::dynamic_pointer_cast<ElementNode>(m_scene.m_groundNodes->children()[index]);
    }
    return node;
}

} // namespace stagewright
