// Writing the scene back into its level. The nodes carry the records they were
// made from, so each item is that record with what the scene owns (depth,
// device list, name, flags) taken from the node. What a file left out stays
// out when the scene holds the value that absence means, so an unchanged level
// saves as it was read.
#include "SceneWriteBack.h"

#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

/// Stores `value`, unless the record left the field out and `value` is what
/// leaving it out means.
template <class T>
void storeSparse(std::optional<T>& field, bool wasAbsent, const T& value, const T& absentMeaning)
{
    if (wasAbsent && value == absentMeaning)
        field.reset();
    else
        field = value;
}

template <class T>
const T* loadedAs(const ElementNode& node)
{
    return node.loadedItem ? std::get_if<T>(node.loadedItem.get()) : nullptr;
}

// What an obstacle or character item stores as its properties: the node's
// override record with the node's animation, devices and sounds.
template <class Properties>
Properties propertiesToStore(const std::optional<Properties>& overrides, const ElementNode& node)
{
    Properties properties;
    if (overrides)
        properties = *overrides;
    else
        properties.id = tessaro::Uuid::create();
    if (node.animationOverrides)
        properties.animation = *node.animationOverrides;
    else
        properties.animation.reset();
    properties.devices = node.devices;
    properties.soundEffects = node.soundEffects;
    return properties;
}

/// A coin on the floor keeps no height of its own: every entry with a
/// position stores y 0, which is where loading finds the floor again.
void dropCoinHeights(std::vector<tessaro::DeviceProperties>& devices)
{
    for (tessaro::DeviceProperties& entry : devices) {
        if (!entry.position)
            continue;
        const tessaro::PointValue point = tessaro::roundedPointFromText(1, *entry.position);
        if (point.y != 0)
            entry.position = tessaro::textFromPair(point.x, 0);
    }
}

} // namespace

tessaro::LevelSettings SceneWriteBack::collectSettings(const tessaro::Level* level) const
{
    tessaro::LevelSettings settings = level ? level->settings : tessaro::LevelSettings{};
    // A value the canvas could not draw as written keeps its text until the
    // designer gives it another.
    const bool sizeAsTyped =
        level && m_scene.m_shownInsteadOfText.size && *m_scene.m_shownInsteadOfText.size == m_scene.m_sceneSize;
    const bool anchorAsTyped = level && m_scene.m_shownInsteadOfText.anchorPoint &&
        *m_scene.m_shownInsteadOfText.anchorPoint == m_scene.m_sceneAnchorPoint;
    if (!anchorAsTyped)
        settings.anchorPoint = tessaro::textFromPoint(m_scene.m_sceneAnchorPoint);
    settings.scaleMode = tessaro::scaleModeText(int(m_scene.m_sceneScaleMode));
    if (!sizeAsTyped)
        settings.size = tessaro::textFromSize(m_scene.m_sceneSize);
    settings.sceneOrientation = std::string(tessaro::caseText(m_scene.m_sceneOrientation));
    return settings;
}

std::vector<tessaro::GroundSection> SceneWriteBack::collectGround() const
{
    std::vector<ElementNodePtr> nodes = SceneEditor::elementsOf(m_scene.groundNodes());
    std::stable_sort(nodes.begin(), nodes.end(), [](const ElementNodePtr& a, const ElementNodePtr& b) {
        return a->sequenceId.value_or(0) < b->sequenceId.value_or(0);
    });
    std::vector<tessaro::GroundSection> sections;
    sections.reserve(nodes.size());
    for (const ElementNodePtr& node : nodes) {
        tessaro::GroundSection section = node->groundSection.value_or(tessaro::GroundSection{});
        // A section keeps its id from save to save, so an unchanged level
        // saves as it was; only a section without one gets one.
        if (!section.id)
            section.id = tessaro::Uuid::create();
        section.devices = node->devices;
        sections.push_back(std::move(section));
    }
    return sections;
}

std::optional<tessaro::ObstacleLevelItem> SceneWriteBack::obstacleItem(const ElementNode& node) const
{
    if (node.repeatedNode || node.kind() != sceneObjectType::obstacles)
        return std::nullopt;
    if (node.keptOnly) {
        if (const auto* item = loadedAs<tessaro::ObstacleLevelItem>(node))
            return *item;
        return std::nullopt;
    }
    tessaro::ObstacleLevelItem item;
    item.elementName = node.catalogueElementName();
    item.name = node.property_objectName.value_or(std::string());
    item.zPosition = node.zPosition();
    item.properties = propertiesToStore(node.obstacleOverrides, node);
    return item;
}

std::vector<tessaro::ObstacleLevelItem> SceneWriteBack::collectObstacles() const
{
    std::vector<tessaro::ObstacleLevelItem> items;
    if (!m_scene.obstacleNodes())
        return items;
    items.reserve(m_scene.obstacleNodes()->children().size());
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.obstacleNodes()))
        if (std::optional<tessaro::ObstacleLevelItem> item = obstacleItem(*node))
            items.push_back(std::move(*item));
    return items;
}

std::optional<tessaro::CharacterLevelItem> SceneWriteBack::characterItem(const ElementNode& node) const
{
    if (node.kind() != sceneObjectType::character)
        return std::nullopt;
    const auto* loaded = loadedAs<tessaro::CharacterLevelItem>(node);
    if (node.keptOnly)
        return loaded ? std::optional<tessaro::CharacterLevelItem>(*loaded) : std::nullopt;

    tessaro::CharacterLevelItem item;
    item.elementName = node.catalogueElementName();
    item.name = node.property_objectName.value_or(std::string());
    if (loaded)
        item.sceneObjectType = loaded->sceneObjectType;
    if (node.charClassType) {
        storeSparse(item.charClassType, loaded && !loaded->charClassType,
                    std::string(tessaro::caseText(*node.charClassType)), std::string("friendly"));
    } else if (loaded) {
        item.charClassType = loaded->charClassType; // a text that names no class stays as written
    }
    item.zPosition = node.zPosition();
    storeSparse(item.hidesBehindObject, loaded && !loaded->hidesBehindObject, node.property_hidesBehindObject,
                std::string());
    item.properties = propertiesToStore(node.characterOverrides, node);
    return item;
}

std::vector<tessaro::CharacterLevelItem> SceneWriteBack::collectCharacters() const
{
    std::vector<tessaro::CharacterLevelItem> items;
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.characterNodes()))
        if (std::optional<tessaro::CharacterLevelItem> item = characterItem(*node))
            items.push_back(std::move(*item));
    return items;
}

tessaro::Artifacts SceneWriteBack::collectArtifacts(const tessaro::Level* level) const
{
    tessaro::Artifacts artifacts = level && level->artifacts ? *level->artifacts : tessaro::Artifacts{};
    std::vector<tessaro::Artifact> list;
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.artifactNodes())) {
        const auto* loaded = loadedAs<tessaro::Artifact>(*node);
        if (node->keptOnly) {
            if (loaded)
                list.push_back(*loaded);
            continue;
        }
        tessaro::Artifact artifact = node->artifactOverrides.value_or(tessaro::Artifact{});
        artifact.image = node->imageOverride;
        storeSparse(artifact.alpha, loaded && !loaded->alpha, double(node->alpha()), 1.0);
        storeSparse(artifact.zPosition, loaded && !loaded->zPosition, double(node->zPosition()), 1.0);
        artifact.devices = node->devices;
        list.push_back(std::move(artifact));
    }
    artifacts.artifacts = std::move(list);
    return artifacts;
}

tessaro::Shields SceneWriteBack::collectShields(const tessaro::Level* level) const
{
    tessaro::Shields shields = level && level->shields ? *level->shields : tessaro::Shields{};
    std::vector<tessaro::Shield> list;
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.shieldsNodes())) {
        const auto* loaded = loadedAs<tessaro::Shield>(*node);
        if (node->keptOnly) {
            if (loaded)
                list.push_back(*loaded);
            continue;
        }
        tessaro::Shield shield = loaded ? *loaded : tessaro::Shield{};
        storeSparse(shield.zPosition, loaded && !loaded->zPosition, double(node->zPosition()), 1.0);
        shield.devices = node->devices;
        if (node->shieldOverrides) {
            if (node->shieldOverrides->timed)
                storeSparse(shield.timed, loaded && !loaded->timed, *node->shieldOverrides->timed, 60.0);
            if (node->shieldOverrides->isVisible)
                shield.isVisible = node->shieldOverrides->isVisible;
            if (node->shieldOverrides->image)
                shield.image = node->shieldOverrides->image;
        }
        list.push_back(std::move(shield));
    }
    shields.shields = std::move(list);
    return shields;
}

tessaro::Coins SceneWriteBack::collectCoins(const tessaro::Level* level) const
{
    tessaro::Coins coins = level && level->coins ? *level->coins : tessaro::Coins{};
    std::vector<tessaro::Coin> list;
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.coinNodes())) {
        const auto* loaded = loadedAs<tessaro::Coin>(*node);
        if (node->keptOnly) {
            if (loaded)
                list.push_back(*loaded);
            continue;
        }
        tessaro::Coin coin = node->coinOverrides.value_or(tessaro::Coin{});
        const bool zWasAbsent = node->coinOverrides && !node->coinOverrides->zPosition;
        storeSparse(coin.zPosition, zWasAbsent, double(node->zPosition()), 1.0);
        coin.devices = node->devices;
        if (node->property_useGravity && coin.devices)
            dropCoinHeights(*coin.devices);
        // Without the flag a coin has gravity exactly when it stands at y 0.
        const bool flagWasAbsent = node->coinOverrides && !node->coinOverrides->useGravity;
        const bool absentMeaning = tessaro::deviceValue<tessaro::fieldList::position>(coin.devices).y == 0;
        storeSparse(coin.useGravity, flagWasAbsent, node->property_useGravity, absentMeaning);
        list.push_back(std::move(coin));
    }
    coins.coins = std::move(list);
    return coins;
}

tessaro::CheckPointData SceneWriteBack::collectCheckpoints(const tessaro::Level* level) const
{
    tessaro::CheckPointData checkpoints = level && level->checkpoints ? *level->checkpoints : tessaro::CheckPointData{};
    std::vector<tessaro::CheckPointLocation> list;
    for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.checkpointNodes())) {
        if (node->keptOnly) {
            if (const auto* loaded = loadedAs<tessaro::CheckPointLocation>(*node))
                list.push_back(*loaded);
            continue;
        }
        tessaro::CheckPointLocation location = node->checkPointOverrides.value_or(tessaro::CheckPointLocation{});
        location.zPosition = node->zPosition();
        location.devices = node->devices;
        list.push_back(std::move(location));
    }
    checkpoints.locations = std::move(list);
    // One catalogue entry draws all checkpoints of a level. A level that had
    // none takes the entry of the first one added, or a reload could not
    // show them.
    if (checkpoints.image.empty())
        for (const ElementNodePtr& node : SceneEditor::elementsOf(m_scene.checkpointNodes())) {
            const auto* object = node->keptOnly || !node->defaultViewProperties
                ? nullptr
                : std::get_if<tessaro::GenericObject>(node->defaultViewProperties.get());
            if (object && object->elementName) {
                checkpoints.image = *object->elementName;
                break;
            }
        }
    return checkpoints;
}

} // namespace stagewright
