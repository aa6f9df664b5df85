#include "SKSpriteNodeSharedBase.h"

#include "AppSharedSceneBase.h"
#include "PhysicsRecords.h"

#include <algorithm>

namespace tessaro {

using kit::PhysicsBody;
using kit::PhysicsBodyPtr;

SKSpriteNodeSharedBase::SKSpriteNodeSharedBase(const kit::TexturePtr& texture, const QColor& color, const QSizeF& size)
    : kit::SpriteNode(texture, color, size)
{
}

SKSpriteNodeSharedBase::~SKSpriteNodeSharedBase() = default;

DeviceChoice SKSpriteNodeSharedBase::deviceChoice() const
{
    return m_gameScene ? m_gameScene->deviceChoice() : DeviceChoice{};
}

bool SKSpriteNodeSharedBase::hasObjectClass(objectClassType c) const
{
    return std::find(m_objectClassType.begin(), m_objectClassType.end(), c) != m_objectClassType.end();
}

std::vector<kit::TexturePtr> SKSpriteNodeSharedBase::texturesNamed(const QString& name) const
{
    if (m_gameScene)
        return m_gameScene->cachedTextures(name);
    return kit::TextureAtlas::texturesOrImage(name);
}

void SKSpriteNodeSharedBase::installBody(const PhysicsBodyPtr& body, const PhysicsSettings& s)
{
    setPhysicsBody(body);
    applyPhysicsSettings(s);
}

void SKSpriteNodeSharedBase::usePhysicsTexture(const kit::TexturePtr& texture, const QSizeF& size,
                                               const PhysicsSettings& s)
{
    installBody(PhysicsBody::bodyWithTexture(texture, size), s);
}

void SKSpriteNodeSharedBase::usePhysicsImage(const QString& name, const PhysicsSettings& s)
{
    // The scene's cache holds the same picture; asking it spares a file
    // look-up for every sprite of a level.
    const kit::TexturePtr texture =
        m_gameScene ? m_gameScene->cachedTexture(name) : kit::Texture::textureWithImageNamed(name);
    installBody(PhysicsBody::bodyWithTexture(texture, size()), s);
}

void SKSpriteNodeSharedBase::usePhysicsRectangle(const QSizeF& size, const PhysicsSettings& s)
{
    installBody(PhysicsBody::bodyWithRectangleOfSize(size), s);
}

void SKSpriteNodeSharedBase::usePhysicsEdge(const QPointF& from, const QPointF& to, const PhysicsSettings& s)
{
    installBody(PhysicsBody::bodyWithEdgeFromPoint(from, to), s);
}

void SKSpriteNodeSharedBase::usePhysicsBodies(const std::vector<PhysicsBodyPtr>& bodies, const PhysicsSettings& s)
{
    installBody(PhysicsBody::bodyWithBodies(bodies), s);
}

void SKSpriteNodeSharedBase::usePhysicsPolygons(const std::vector<PolyPhysics>& polygons, const PhysicsSettings& s)
{
    const QSizeF textureSize = texture() ? texture()->size() : size();
    std::vector<PhysicsBodyPtr> bodies;
    bodies.reserve(polygons.size());
    for (const PolyPhysics& polygon : polygons)
        bodies.push_back(PhysicsBody::bodyWithPolygonFromPath(polygonPath(polygon, textureSize)));
    installBody(PhysicsBody::bodyWithBodies(bodies), s);
}

void SKSpriteNodeSharedBase::usePhysicsCircle(qreal radius, const QPointF& center, const PhysicsSettings& s)
{
    installBody(center.isNull() ? PhysicsBody::bodyWithCircleOfRadius(radius)
                                : PhysicsBody::bodyWithCircleOfRadius(radius, center),
                s);
}

void SKSpriteNodeSharedBase::usePhysicsRectangle(const QSizeF& size, const QPointF& center, const PhysicsSettings& s)
{
    installBody(center.isNull() ? PhysicsBody::bodyWithRectangleOfSize(size)
                                : PhysicsBody::bodyWithRectangleOfSize(size, center),
                s);
}

void SKSpriteNodeSharedBase::applyPhysicsSettings(const PhysicsSettings& s)
{
    PhysicsBody* body = physicsBody();
    if (!body)
        return;
    body->setDynamic(s.isDynamic);
    body->setPinned(s.isPinned);
    body->setAffectedByGravity(s.useGravity);
    body->setCategoryBitMask(s.category);
    body->setContactTestBitMask(s.contact.value_or(0));
    body->setCollisionBitMask(s.collision.value_or(0));
    body->setAllowsRotation(s.allowsRotation);
    body->setUsesPreciseCollisionDetection(s.usePrecision);
    body->setRestitution(0);
}

} // namespace tessaro
