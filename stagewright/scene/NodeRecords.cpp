// An element node's records and look taken off the node, and put back on a
// node. Every step of the edit history and every paste goes through these
// two, so a node made again from its records is the node it was.
#include "ElementNode.h"
#include "SceneEditor.h"

#include <tessaro/kit/PhysicsBody.h>

namespace stagewright {

using tessaro::sceneObjectType;

ElementRecords elementNode::records() const
{
    ElementRecords element;
    element.kind = kind();
    element.defaultViewProperties = defaultViewProperties;
    element.obstacleOverrides = obstacleOverrides;
    element.groundSection = groundSection;
    element.devices = devices;
    element.characterOverrides = characterOverrides;
    element.animationOverrides = animationOverrides;
    element.rotationOverrides = rotationOverrides;
    element.artifactOverrides = artifactOverrides;
    element.coinOverrides = coinOverrides;
    element.shieldOverrides = shieldOverrides;
    element.checkPointOverrides = checkPointOverrides;
    element.backgroundAssociatedId = backgroundAssociatedId;
    element.soundEffects = soundEffects;
    element.imageOverride = imageOverride;
    element.sequenceId = sequenceId;
    element.physics = physics;
    element.charClassType = charClassType;
    element.property_useGravity = property_useGravity;
    element.property_objectName = property_objectName;
    element.property_hidesBehindObject = property_hidesBehindObject;
    element.backgroundImagename = backgroundImagename;
    element.loadedItem = loadedItem;
    element.keptOnly = keptOnly;

    element.texture = texture();
    element.size = size();
    element.position = position();
    element.zPosition = zPosition();
    element.zRotation = zRotation();
    element.alpha = alpha();
    element.hidden = isHidden();
    element.userInteractionEnabled = isUserInteractionEnabled();
    if (const tessaro::kit::PhysicsBody* body = physicsBody())
        element.body = elementBodyMasks{body->categoryBitMask(), body->contactTestBitMask(), body->collisionBitMask(),
                                        body->affectedByGravity(), body->isDynamic()};
    element.hasSizeHandle = childNodeWithName(QStringLiteral("nodeSizer")) != nullptr;
    return element;
}

void elementNode::restoreRecords(const ElementRecords& element)
{
    property_sceneObjectType =
        element.kind == sceneObjectType::none ? std::nullopt : std::optional<sceneObjectType>(element.kind);
    defaultViewProperties = element.defaultViewProperties;
    obstacleOverrides = element.obstacleOverrides;
    groundSection = element.groundSection;
    devices = element.devices;
    characterOverrides = element.characterOverrides;
    animationOverrides = element.animationOverrides;
    rotationOverrides = element.rotationOverrides;
    artifactOverrides = element.artifactOverrides;
    coinOverrides = element.coinOverrides;
    shieldOverrides = element.shieldOverrides;
    checkPointOverrides = element.checkPointOverrides;
    backgroundAssociatedId = element.backgroundAssociatedId;
    soundEffects = element.soundEffects;
    imageOverride = element.imageOverride;
    sequenceId = element.sequenceId;
    physics = element.physics;
    charClassType = element.charClassType;
    property_useGravity = element.property_useGravity;
    property_objectName = element.property_objectName;
    property_hidesBehindObject = element.property_hidesBehindObject;
    backgroundImagename = element.backgroundImagename;
    loadedItem = element.loadedItem;
    keptOnly = element.keptOnly;

    setTexture(element.texture);
    setSize(element.size);
    setZPosition(element.zPosition);
    setZRotation(element.zRotation);
    setAlpha(element.alpha);
    setHidden(element.hidden);
    setUserInteractionEnabled(element.userInteractionEnabled);

    setPhysicsBody(nullptr);
    if (element.body)
        applyPhysicsBody(element.body->category, element.body->contact, element.body->collision,
                         element.body->affectedByGravity, element.body->isDynamic);

    const tessaro::kit::NodePtr sizer = childNodeWithName(QStringLiteral("nodeSizer"));
    if (element.hasSizeHandle && sizer)
        sizer->setPosition(0, element.size.height() / 2);
    else if (element.hasSizeHandle)
        addChild(shapeNode::create(element.size.height()));
    else if (sizer)
        sizer->removeFromParent();

    if (hasGlow()) {
        removeGlow();
        addGlow();
    }
    if (element.kind == sceneObjectType::obstacles || element.kind == sceneObjectType::character) {
        if (distanceGuideNode)
            distanceGuideNode->removeFromParent();
        distanceGuideNode.reset();
        refreshDistanceGuide();
    }
    removeStackChildren();
    setPosition(element.position);
    placeFromDevices();
}

} // namespace stagewright
