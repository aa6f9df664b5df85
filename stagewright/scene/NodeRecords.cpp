// An element node's records and look taken off the node, and put back on a
// node. Every step of the edit history and every paste goes through these
// two, so a node made again from its records is the node it was.
#include "ElementNode.h"
#include "SceneEditor.h"

#include <tessaro/kit/PhysicsBody.h>

namespace stagewright {

using tessaro::sceneObjectType;

ElementRecords ElementNode::records() const
{
    ElementRecords element;
    element.kind = kind();
    static_cast<ElementData&>(element) = *this;

    element.texture = texture();
    element.size = size();
    element.position = position();
    element.zPosition = zPosition();
    element.zRotation = zRotation();
    element.alpha = alpha();
    element.hidden = isHidden();
    element.userInteractionEnabled = isUserInteractionEnabled();
    if (const tessaro::kit::PhysicsBody* body = physicsBody())
        element.body = ElementBodyMasks{body->categoryBitMask(), body->contactTestBitMask(), body->collisionBitMask(),
                                        body->affectedByGravity(), body->isDynamic()};
    element.hasSizeHandle = childNodeWithName(QStringLiteral("nodeSizer")) != nullptr;
    return element;
}

void ElementNode::restoreRecords(const ElementRecords& element)
{
    property_sceneObjectType =
        element.kind == sceneObjectType::none ? std::nullopt : std::optional<sceneObjectType>(element.kind);
    static_cast<ElementData&>(*this) = element;

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
        addChild(SizerNode::create(element.size.height()));
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
