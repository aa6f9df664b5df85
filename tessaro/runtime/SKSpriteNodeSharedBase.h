// The common base of every sprite the library creates: objects
// (SKSpriteNode2dBase) and characters (SKSpriteNodeEnemy2dBase). It holds the
// element's records and run-time values, and gives a node its physics body
// and collision settings in one step.
#pragma once

#include <tessaro/kit/Action.h>
#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/DeviceChoice.h>
#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/Enumerations.h>

#include <QPointF>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tessaro {

class AppSharedSceneBase;

/// How a new body behaves and what it touches. An absent collision or
/// contact mask means 0, never the engine's default of every bit.
struct PhysicsSettings {
    std::uint32_t category = 0;
    std::optional<std::uint32_t> collision;
    std::optional<std::uint32_t> contact;
    bool isDynamic = false;
    bool useGravity = false;
    bool allowsRotation = false;
    bool usePrecision = false;
    bool isPinned = false;
};

/// Where and how a new sprite stands; what its creating constructors take.
struct SpriteSetup {
    QPointF position;
    QSizeF size; ///< (0,0): the texture's size
    qreal zPosition = 0;
    QPointF anchorPoint{0.5, 0.5};
    QString name;
    AppSharedSceneBase* scene = nullptr;
    int allowedTimesToHit = 1; ///< more than 1 adds a health bar
    QPointF offsetHealthBar;
};

/// The category of a node that should take part in no contact.
inline constexpr std::uint32_t kNoContactCategory = collisionBit(collisionTypes::none);

class SKSpriteNodeSharedBase : public kit::SpriteNode {
public:
    SKSpriteNodeSharedBase(const kit::TexturePtr& texture, const QColor& color, const QSizeF& size);
    ~SKSpriteNodeSharedBase() override;

    // --- records and run-time values -----------------------------------------
    std::vector<objectClassType> objectClassTypes() const { return m_objectClassType; }
    void setObjectClassTypes(std::vector<objectClassType> classes) { m_objectClassType = std::move(classes); }
    bool hasObjectClass(objectClassType c) const;
    const std::vector<GameSound>& soundEffects() const { return m_soundEffects; }
    void setSoundEffects(std::vector<GameSound> sounds) { m_soundEffects = std::move(sounds); }
    pathDirection direction() const { return m_direction; }
    void setDirection(pathDirection d) { m_direction = d; }
    pathDirection damageDirection() const { return m_damageDirection; }
    void setDamageDirection(pathDirection d) { m_damageDirection = d; }
    /// The owning scene; it outlives its sprites.
    AppSharedSceneBase* gameScene() const { return m_gameScene; }
    void setGameScene(AppSharedSceneBase* scene) { m_gameScene = scene; }
    /// The devices of the game the sprite is in; the default-made choice outside one.
    DeviceChoice deviceChoice() const;
    const std::optional<Character>& characterProperties() const { return m_characterProperties; }
    void setCharacterProperties(std::optional<Character> record) { m_characterProperties = std::move(record); }
    const std::optional<Obstacle>& obstacleProperties() const { return m_obstacleProperties; }
    void setObstacleProperties(std::optional<Obstacle> record) { m_obstacleProperties = std::move(record); }
    const std::optional<ProjectileProperties>& projectile() const { return m_projectile; }
    void setProjectile(std::optional<ProjectileProperties> p) { m_projectile = std::move(p); }
    std::optional<QPointF> randomizePosition() const { return m_randomizePosition; }
    void setRandomizePosition(std::optional<QPointF> range) { m_randomizePosition = range; }
    const std::optional<CollisionDetection>& collisionMasks() const { return m_collisionMasks; }
    void setCollisionMasks(std::optional<CollisionDetection> masks) { m_collisionMasks = std::move(masks); }
    const std::optional<std::vector<ExtraProperties>>& extraProperties() const { return m_extraProperties; }
    void setExtraProperties(std::optional<std::vector<ExtraProperties>> p) { m_extraProperties = std::move(p); }
    const std::optional<std::vector<CycleEndProperties>>& cycleEndProperties() const { return m_cycleEndProperties; }
    void setCycleEndProperties(std::optional<std::vector<CycleEndProperties>> p)
    {
        m_cycleEndProperties = std::move(p);
    }
    bool animationCompleted() const { return m_animationCompleted; }
    void setAnimationCompleted(bool done) { m_animationCompleted = done; }
    /// Hits the element takes; 1 means no health bar.
    int allowedTimesToHit() const { return m_allowedTimesToHit; }
    void setAllowedTimesToHit(int hits) { m_allowedTimesToHit = hits; }
    const QString& hidesBehindObject() const { return m_hidesBehindObject; }
    void setHidesBehindObject(const QString& name) { m_hidesBehindObject = name; }
    int hitsRemaining() const { return m_hitsRemaining; }
    void setHitsRemaining(int hits) { m_hitsRemaining = hits; }
    const QString& objectActsOn() const { return m_objectActsOn; }
    void setObjectActsOn(const QString& name) { m_objectActsOn = name; }
    /// The name passed to the scene's customDelegate.
    const QString& callbackFunction() const { return m_callbackFunction; }
    void setCallbackFunction(const QString& name) { m_callbackFunction = name; }
    QPointF offsetHealthBar() const { return m_offsetHealthBar; }
    void setOffsetHealthBar(const QPointF& offset) { m_offsetHealthBar = offset; }
    double rotation() const { return m_rotation; }
    void setRotation(double degrees) { m_rotation = degrees; }
    QPointF startingPosition() const { return m_startingPosition; }
    void setStartingPosition(const QPointF& p) { m_startingPosition = p; }
    animationFrequency animType() const { return m_animType; }
    void setAnimType(animationFrequency type) { m_animType = type; }
    /// A spare action slot for games.
    const kit::ActionPtr& sequence() const { return m_sequence; }
    void setSequence(kit::ActionPtr action) { m_sequence = std::move(action); }
    bool useGravity() const { return m_useGravity; }
    void setUseGravity(bool on) { m_useGravity = on; }
    /// The volume last computed for the element's constant sounds.
    float volume() const { return m_volume; }
    void setVolume(float v) { m_volume = v; }

    // --- physics ----------------------------------------------------------------
    // Each builds a body, gives it to the node and applies the settings; a
    // shape that makes no body leaves the node without one.
    virtual void usePhysicsTexture(const kit::TexturePtr& texture, const QSizeF& size, const PhysicsSettings& s);
    /// A body traced from the image `name` at the node's size.
    virtual void usePhysicsImage(const QString& name, const PhysicsSettings& s);
    virtual void usePhysicsRectangle(const QSizeF& size, const PhysicsSettings& s);
    virtual void usePhysicsEdge(const QPointF& from, const QPointF& to, const PhysicsSettings& s);
    /// One body made of the shapes of all `bodies`.
    virtual void usePhysicsBodies(const std::vector<kit::PhysicsBodyPtr>& bodies, const PhysicsSettings& s);
    /// One body of the polygons, each outlined against the current texture's size.
    virtual void usePhysicsPolygons(const std::vector<PolyPhysics>& polygons, const PhysicsSettings& s);
    virtual void usePhysicsCircle(qreal radius, const QPointF& center, const PhysicsSettings& s);
    virtual void usePhysicsRectangle(const QSizeF& size, const QPointF& center, const PhysicsSettings& s);
    /// Applies the settings to the node's body, with restitution 0. Without a
    /// body nothing happens.
    virtual void applyPhysicsSettings(const PhysicsSettings& s);

protected:
    /// The scene's texture list for `name`, or the plain image when the node
    /// has no scene yet.
    std::vector<kit::TexturePtr> texturesNamed(const QString& name) const;

private:
    void installBody(const kit::PhysicsBodyPtr& body, const PhysicsSettings& s);

    std::vector<objectClassType> m_objectClassType;
    std::vector<GameSound> m_soundEffects;
    pathDirection m_direction = pathDirection::left;
    pathDirection m_damageDirection = pathDirection::right;
    AppSharedSceneBase* m_gameScene = nullptr;
    std::optional<Character> m_characterProperties;
    std::optional<Obstacle> m_obstacleProperties;
    std::optional<ProjectileProperties> m_projectile;
    std::optional<QPointF> m_randomizePosition;
    std::optional<CollisionDetection> m_collisionMasks;
    std::optional<std::vector<ExtraProperties>> m_extraProperties;
    std::optional<std::vector<CycleEndProperties>> m_cycleEndProperties;
    bool m_animationCompleted = false;
    int m_allowedTimesToHit = 1;
    QString m_hidesBehindObject;
    int m_hitsRemaining = 0;
    QString m_objectActsOn;
    QString m_callbackFunction;
    QPointF m_offsetHealthBar;
    double m_rotation = 0;
    QPointF m_startingPosition;
    animationFrequency m_animType = animationFrequency::never;
    kit::ActionPtr m_sequence = kit::Action::sequence({});
    bool m_useGravity = false;
    float m_volume = 0;
};

} // namespace tessaro
