// The primary list's edits, and the physics and sound editors' ones.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "PropertyRules.h"
#include "SelectionPublishing.h"

#include <stagewright/scene/ScenePictures.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/FrameShapes.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <QString>

namespace stagewright {

using P = PublishedElementList;
using tessaro::sceneObjectType;

ProjectTab* editedTab(SceneEditor& scene)
{
    ProjectTab* tab = scene.tab();
    return tab && tab->elementPhase() == SelectionPhase::Selected ? tab : nullptr;
}

ElementNodePtr editedNode(SceneEditor& scene)
{
    ProjectTab* tab = editedTab(scene);
    return tab ? scene.elementNamed(QString::fromStdString(tab->selectedObject().name)) : nullptr;
}

void replaceGlow(ElementNode& node)
{
    node.removeGlow();
    node.addGlow();
}

void traceLine(const std::string& line)
{
    tessaro::diagnostic(line);
}

namespace {

std::string joined(const PropertyValue& value)
{
    return tessaro::textFromNames(listOf(value).value_or(std::vector<std::string>{}));
}

/// The override record of the element's kind that has `isVisible`, and so on:
/// the records of obstacles and characters share their fields.
template <class F>
void onOverride(ElementNode& node, F&& write)
{
    if (node.kind() == sceneObjectType::obstacles && node.obstacleOverrides)
        write(*node.obstacleOverrides);
    else if (node.kind() == sceneObjectType::character && node.characterOverrides)
        write(*node.characterOverrides);
}

void setVisible(ElementNode& node, bool visible)
{
    switch (node.kind()) {
    case sceneObjectType::obstacles:
        if (node.obstacleOverrides)
            node.obstacleOverrides->isVisible = visible;
        break;
    case sceneObjectType::character:
        if (node.characterOverrides)
            node.characterOverrides->isVisible = visible;
        break;
    case sceneObjectType::checkpoint:
        if (node.checkPointOverrides)
            node.checkPointOverrides->isVisible = visible;
        break;
    case sceneObjectType::coin:
        if (node.coinOverrides)
            node.coinOverrides->isVisible = visible;
        break;
    case sceneObjectType::shield:
        if (node.shieldOverrides)
            node.shieldOverrides->isVisible = visible;
        break;
    case sceneObjectType::artifact:
        if (node.artifactOverrides)
            node.artifactOverrides->isVisible = visible;
        break;
    case sceneObjectType::ground:
        if (node.groundSection)
            node.groundSection->isVisible = visible;
        break;
    default: break;
    }
}

/// Writes one field of the rotation shown and of the rotation the level stores.
template <class T>
void setRotation(ElementNode& node, std::optional<T> tessaro::RotationProperties::*field, T value)
{
    if (node.kind() != sceneObjectType::obstacles || !node.obstacleOverrides)
        return;
    // A rotation the element did not have yet is started here, so that the
    // value the user gave is kept.
    if (!node.rotationOverrides)
        node.rotationOverrides.emplace();
    if (!node.obstacleOverrides->rotationProperties)
        node.obstacleOverrides->rotationProperties = tessaro::RotationProperties{};
    (*node.rotationOverrides).*field = value;
    (*node.obstacleOverrides->rotationProperties).*field = value;
}

void rebuildCoinRow(SceneEditor& scene, ElementNode& node)
{
    if (!node.coinOverrides)
        return;
    const tessaro::PointValue distance = scene.coinRepeatDistance();
    node.removeStackChildren();
    node.addStackChildren(node.coinOverrides->stack.value_or(false), node.coinOverrides->repeatCount.value_or(0),
                          distance.x, distance.y);
}

void copyList(const tessaro::PhysicsProperty& from, tessaro::PhysicsProperty& to, auto member)
{
    if (!(from.*member)) {
        (to.*member).reset();
        return;
    }
    auto& list = (to.*member).emplace();
    list.assign((from.*member)->begin(), (from.*member)->end());
}

void applyImage(ProjectTab& tab, ElementNode& node, const std::string& image)
{
    tab.selectedObject().image = image;
    if (node.kind() == sceneObjectType::ground) {
        if (node.groundSection)
            node.groundSection->image = image;
        return;
    }
    const auto picture = [&](const std::string& name) {
        ScenePicture loaded = SceneImageCache::shared().picture(node.kind(), firstImageName(name));
        if (!loaded.found)
            traceLine("loadNSImagePreview: The file \"" + name + "\" could not be read.");
        return loaded;
    };
    if (node.kind() != sceneObjectType::obstacles) {
        node.imageOverride = image;
        if (const ScenePicture loaded = picture(image); loaded.found) {
            const QSizeF size = node.size();
            node.setTexture(loaded.texture);
            node.setSize(size);
        }
        return;
    }
    if (!node.obstacleOverrides)
        return;
    tessaro::Obstacle& over = *node.obstacleOverrides;
    std::string base;
    const std::string elementName = baseFieldText(BaseField::elementName, tab.selectedObject().defaultViewProperties);
    for (const tessaro::Obstacle& record : tessaro::obstacleCatalogue())
        if (record.elementName == elementName) {
            base = record.image.value_or(std::string());
            break;
        }
    if (!over.image && image == base)
        return;
    if (over.image && (base == image || over.image == base)) {
        // The catalogue's own image is no override: the element shows it again.
        over.image.reset();
        node.imageOverride = base;
        if (const ScenePicture loaded = picture(base); loaded.found) {
            const QSizeF size = node.size();
            node.setTexture(loaded.texture);
            node.setSize(size);
            replaceGlow(node);
        }
        return;
    }
    if (over.image == image)
        return;
    over.image = image;
    node.imageOverride = image;

    const ScenePicture loaded = picture(image);
    if (!loaded.found)
        return;
    const QSizeF size = loaded.texture->size();
    node.setTexture(loaded.texture);
    node.setSize(size);
    tab.selectedObject().displayedSize = tessaro::textFromPair(size.width(), size.height());

    // The element falls back to the picture's own size on every device.
    SelectedDeviceModel& device = tab.selectedDeviceObject();
    std::erase(device.inherited, P::size);
    if (node.devices)
        for (tessaro::DeviceProperties& entry : *node.devices)
            entry.size.reset();
    if (device.nameSelected == tessaro::deviceName::defaultDevice) {
        device.size = {size.width(), size.height()};
        device.inherited.push_back(P::size);
        device.aspectRatio = aspectRatioOf(device.size);
    }
    if (node.devices)
        if (tessaro::DeviceProperties* entry =
                tessaro::deviceEntryFor(*node.devices, tessaro::deviceName::defaultDevice))
            entry->size = tessaro::textFromPair(size.width(), size.height());
    tab.notifySelectedDeviceObjectChanged();
    replaceGlow(node);
}

/// The shapes an obstacle's sheet drew for single frames go to its animation,
/// which the game plays with a body per frame; drawing them asks for that.
/// The animation pane shows the change.
void applyFrameShapes(ProjectTab& tab, ElementNode& node, const tessaro::PhysicsProperty& frames)
{
    const bool drawn = tessaro::hasShapes(frames);
    if (!drawn && !(node.animationOverrides && node.animationOverrides->physics))
        return;
    tessaro::AnimationProperty& animation =
        node.animationOverrides ? *node.animationOverrides : node.animationOverrides.emplace();
    if (!drawn) {
        animation.physics.reset();
        return;
    }
    animation.physics = frames;
    animation.changePhysics = true;
    tab.selectedAnimationObject().changePhysics = true;
    tab.notifySelectedAnimationObjectChanged();
}

/// The shapes of the physics editor become the element's own: obstacles and
/// characters keep them in their override record, and the node shows them as
/// the shapes in force. An obstacle's shapes of single frames go to its
/// animation instead.
void applyPhysics(ProjectTab& tab, ElementNode& node, const tessaro::PhysicsProperty& physics)
{
    tessaro::boxed<tessaro::PhysicsProperty>* stored = nullptr;
    if (node.kind() == sceneObjectType::obstacles && node.obstacleOverrides)
        stored = &node.obstacleOverrides->physics;
    else if (node.kind() == sceneObjectType::character && node.characterOverrides)
        stored = &node.characterOverrides->physics;
    if (!stored)
        return;
    tessaro::PhysicsProperty whole = physics;
    if (node.kind() == sceneObjectType::obstacles) {
        tessaro::SplitShapes split = tessaro::splitFrameShapes(physics);
        applyFrameShapes(tab, node, split.frames);
        whole = std::move(split.whole);
    }
    if (!*stored)
        *stored = tessaro::PhysicsProperty{};
    copyList(whole, **stored, &tessaro::PhysicsProperty::edges);
    copyList(whole, **stored, &tessaro::PhysicsProperty::radiuses);
    copyList(whole, **stored, &tessaro::PhysicsProperty::rectangles);
    copyList(whole, **stored, &tessaro::PhysicsProperty::polygons);
    node.physics = **stored;
}

void applyGravity(ElementNode& node, bool gravity)
{
    tessaro::kit::PhysicsBody* body = node.physicsBody();
    switch (node.kind()) {
    case sceneObjectType::ground: return;
    case sceneObjectType::obstacles:
        if (node.obstacleOverrides)
            node.obstacleOverrides->useGravity = gravity;
        break;
    case sceneObjectType::character:
        if (node.characterOverrides)
            node.characterOverrides->useGravity = gravity;
        if (body)
            body->setDynamic(gravity);
        break;
    default: break;
    }
    node.property_useGravity = gravity;
    if (body)
        body->setAffectedByGravity(gravity);
}

void applyTo(SceneEditor& scene, ProjectTab& tab, ElementNode& node, PublishedElementList element,
             const PropertyValue& value)
{
    const sceneObjectType kind = tab.selectedObject().type;
    const auto number = [&](double fallback, int places) {
        return tessaro::roundedValue(numberOf(value).value_or(fallback), places);
    };
    const bool flag = flagOf(value).value_or(false);
    const std::string text = textOf(value).value_or(std::string());

    switch (element) {
    case P::type: traceLine("TYPE not implemented"); break;
    case P::zPosition: {
        const double z = number(1, 2);
        node.setZPosition(z);
        if (kind == sceneObjectType::obstacles && node.obstacleOverrides)
            node.obstacleOverrides->zPosition = z;
        if (kind == sceneObjectType::ground && node.groundSection)
            node.groundSection->zPosition = z;
        break;
    }
    case P::observedname: node.property_objectName = text; break;
    case P::usePhysics:
        if (kind == sceneObjectType::obstacles && node.obstacleOverrides)
            node.obstacleOverrides->usePhysics = flag;
        break;
    case P::useGravity: applyGravity(node, flag); break;
    case P::isDynamic: onOverride(node, [&](auto& over) { over.isDynamic = flag; }); break;
    case P::alpha: node.setAlpha(number(1, 2)); break;
    case P::darken:
        if (node.obstacleOverrides)
            node.obstacleOverrides->darken = flag;
        break;
    case P::objectClassType:
        if (kind == sceneObjectType::artifact && node.artifactOverrides)
            node.artifactOverrides->objectClassType = joined(value);
        onOverride(node, [&](auto& over) { over.objectClassType = joined(value); });
        break;
    case P::objectActsOn:
        if (node.obstacleOverrides)
            node.obstacleOverrides->objectActsOn = text;
        break;
    case P::callbackFunction:
        if (node.obstacleOverrides)
            node.obstacleOverrides->callbackFunction = text;
        break;
    case P::category:
    case P::contact:
    case P::collision:
        onOverride(node, [&](auto& over) {
            if (!over.collisionMasks)
                over.collisionMasks = tessaro::CollisionDetection{};
            tessaro::CollisionDetection& masks = *over.collisionMasks;
            (element == P::category      ? masks.category
                 : element == P::contact ? masks.contact
                                         : masks.collision) = joined(value);
        });
        break;
    case P::image: applyImage(tab, node, text); break;
    case P::repeatCount: {
        const std::int64_t count = integerOf(value).value_or(0);
        if (kind == sceneObjectType::coin && node.coinOverrides) {
            node.coinOverrides->repeatCount = count;
            rebuildCoinRow(scene, node);
        } else if (kind == sceneObjectType::ground && node.groundSection) {
            node.groundSection->repeatCount = count;
            scene.rebuildGround(tab.levelSelected());
        } else if (kind == sceneObjectType::obstacles && node.obstacleOverrides) {
            // The row's copies are the obstacle's own; the count is kept.
            node.obstacleOverrides->repeatCount = count;
            scene.placement().addRepeatedCopies(std::static_pointer_cast<ElementNode>(node.shared_from_this()));
        }
        break;
    }
    case P::stack:
        if (kind == sceneObjectType::coin && node.coinOverrides) {
            node.coinOverrides->stack = flag;
            rebuildCoinRow(scene, node);
        } else if (kind == sceneObjectType::ground && node.groundSection) {
            node.groundSection->stack = flag;
        } else if (kind == sceneObjectType::obstacles && node.obstacleOverrides) {
            node.obstacleOverrides->stack = flag;
        }
        break;
    case P::timed:
        if (node.shieldOverrides)
            node.shieldOverrides->timed = number(1, 1);
        break;
    case P::sound: {
        std::vector<tessaro::GameSound> sounds;
        for (const tessaro::GameSound& sound : tab.selectedObject().soundEffects)
            if (sound.filename != "Select a sound")
                sounds.push_back(sound);
        node.soundEffects = std::move(sounds);
        break;
    }
    case P::groundType:
        if (kind == sceneObjectType::ground && node.groundSection)
            if (const auto type = tessaro::caseFromText<tessaro::groundBaseType>(text))
                node.groundSection->groundType = std::string(tessaro::caseText(*type));
        scene.rebuildGround(tab.levelSelected());
        break;
    case P::distance:
        if (kind == sceneObjectType::ground && node.groundSection) {
            const tessaro::SizeValue distance = sizeOf(value).value_or(tessaro::SizeValue{});
            node.groundSection->distance = tessaro::textFromPair(distance.width, distance.height);
        }
        scene.rebuildGround(tab.levelSelected());
        break;
    case P::groundPhysicsAngleType:
        if (kind == sceneObjectType::ground && node.groundSection)
            node.groundSection->groundPhysicsAngleType = joined(value);
        break;
    case P::rotation: setRotation(node, &tessaro::RotationProperties::rotation, number(1, 1)); break;
    case P::rotateDuration: setRotation(node, &tessaro::RotationProperties::rotateDuration, number(1, 1)); break;
    case P::rotateDelay: setRotation(node, &tessaro::RotationProperties::rotateDelay, number(1, 1)); break;
    case P::rotateCount: setRotation(node, &tessaro::RotationProperties::rotateCount, number(1, 1)); break;
    case P::rotateForever: setRotation(node, &tessaro::RotationProperties::rotateForever, flag); break;
    case P::rotationPin: setRotation(node, &tessaro::RotationProperties::rotationPin, flag); break;
    case P::rotateType:
        if (const auto type = tessaro::caseFromText<tessaro::rotationType>(text))
            setRotation(node, &tessaro::RotationProperties::rotateType, std::string(tessaro::caseText(*type)));
        break;
    case P::usePrecision:
        if (node.obstacleOverrides)
            node.obstacleOverrides->usePrecision = flag;
        break;
    case P::isVisible: setVisible(node, flag); break;
    case P::physics:
        if (const auto* physics = std::get_if<tessaro::PhysicsProperty>(&value))
            applyPhysics(tab, node, *physics);
        break;
    case P::allowedTimesToHit:
        onOverride(node, [&](auto& over) { over.allowedTimesToHit = integerOf(value).value_or(1); });
        break;
    case P::charClassType: node.charClassType = tessaro::caseFromText<tessaro::characterClassType>(text); break;
    default: break; // the device and background fields: nothing is stored here
    }
}

} // namespace

void applyPrimaryProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value,
                          const PropertyValue& oldValue)
{
    ProjectTab* tab = editedTab(scene);
    if (!tab)
        return;
    traceLine("Type: " + std::string(tessaro::caseText(tab->selectedObject().type)) +
              "  NAME: " + std::string(tessaro::caseText(element)) + "  OLD VALUE: " + describe(oldValue) +
              "   NEW VALUE: " + describe(value));
    const ElementNodePtr node = editedNode(scene);
    if (!node)
        return;
    applyTo(scene, *tab, *node, element, value);
    // A ground rebuild makes the section anew; the node of the selection is then another.
    if (const ElementNodePtr placed = editedNode(scene))
        placed->placeFromDevices();
}

} // namespace stagewright
