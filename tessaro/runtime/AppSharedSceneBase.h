// The scene every game scene derives from. It owns what all sprites of a
// scene share: the texture cache, the ground outline, the run-time flags and
// the two delegates through which the game receives the frame loop, sprite
// callbacks and contacts. It holds no game rules: those are the game's.
#pragma once

#include "SceneDelegates.h"

#include <tessaro/kit/Scene.h>
#include <tessaro/kit/Texture.h>
#include <tessaro/model/DeviceChoice.h>
#include <tessaro/model/Enumerations.h>

#include <QRectF>
#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace tessaro {

class AppSharedSceneBase : public kit::Scene {
public:
    using TextureCache = std::map<QString, std::vector<kit::TexturePtr>>;

    explicit AppSharedSceneBase(const QSizeF& size = QSizeF(1024, 768));
    ~AppSharedSceneBase() override;

    // --- shared state -------------------------------------------------------
    /// Texture lists by atlas or image name; absent after clearCachedTextures.
    const std::optional<TextureCache>& cachedNodes() const { return m_cachedNodes; }
    void setCachedNodes(std::optional<TextureCache> cache) { m_cachedNodes = std::move(cache); }
    /// Floor pieces: x is the left end, y the floor height, width the length,
    /// in the coordinates of the level's content. The game fills it while it
    /// lays its ground out.
    const std::vector<QRectF>& groundBaseVariants() const { return m_groundBaseVariants; }
    std::vector<QRectF>& groundBaseVariants() { return m_groundBaseVariants; }
    void setGroundBaseVariants(std::vector<QRectF> variants) { m_groundBaseVariants = std::move(variants); }

    /// The devices whose entries the game's elements take, and the position
    /// it placed last at random; the game sets them, creation reads them.
    const DeviceChoice& deviceChoice() const { return m_deviceChoice; }
    void setDeviceChoice(const DeviceChoice& choice) { m_deviceChoice = choice; }
    /// Side of the last damaging collision; a dying enemy clears it.
    pathDirection collisionDirection() const { return m_collisionDirection; }
    void setCollisionDirection(pathDirection direction) { m_collisionDirection = direction; }
    bool alternateSceneLocked() const { return m_alternateSceneLocked; }
    void setAlternateSceneLocked(bool locked) { m_alternateSceneLocked = locked; }
    double alternateSceneLockedEndX() const { return m_alternateSceneLockedEndX; }
    void setAlternateSceneLockedEndX(double x) { m_alternateSceneLockedEndX = x; }
    bool soundFxEnabled() const { return m_soundFxEnabled; }
    void setSoundFxEnabled(bool enabled) { m_soundFxEnabled = enabled; }
    bool damageOccurred() const { return m_damageOccurred; }
    void setDamageOccurred(bool occurred) { m_damageOccurred = occurred; }
    /// For the game's own use; the library only initialises it.
    bool deathOccurred() const { return m_deathOccurred; }
    void setDeathOccurred(bool occurred) { m_deathOccurred = occurred; }
    /// Turns on the library's creation log.
    bool logDebugMessages() const { return m_logDebugMessages; }
    void setLogDebugMessages(bool on) { m_logDebugMessages = on; }

    /// Not owned; the game keeps its delegates alive while the scene runs.
    SceneBaseCustomDelegate* customDelegate() const { return m_customDelegate; }
    void setCustomDelegate(SceneBaseCustomDelegate* delegate) { m_customDelegate = delegate; }
    SceneBaseContactDelegate* contactDelegate() const { return m_contactDelegate; }
    void setContactDelegate(SceneBaseContactDelegate* delegate) { m_contactDelegate = delegate; }

    // --- textures -----------------------------------------------------------
    /// The first texture of cachedTextures(name).
    virtual kit::TexturePtr cachedTexture(const QString& name);
    /// The frames of atlas `name` in name order, or the single image `name`
    /// when there is no such atlas. Never empty. Kept in the cache while it
    /// is present.
    virtual std::vector<kit::TexturePtr> cachedTextures(const QString& name);
    /// Loads atlas `name` into the cache when it has frames (no image fall-back).
    virtual void preloadTextures(const QString& name);
    /// Empties the cache and turns caching off until setCachedNodes.
    virtual void clearCachedTextures();
    /// The floor height under x: the last floor piece that holds x (its right
    /// end excluded) decides; outside all of them, the last piece's height;
    /// 0 without floor pieces.
    virtual double groundHeight(double x) const;

    /// cachedTextures as a function, for the action builders.
    kit::TextureLookup textureLookup();

    // --- scene callbacks, forwarded to the delegates ---------------------------
    void didMoveToView(kit::SceneView* view) override;
    void update(double currentTime) override;
    void didFinishUpdate() override;
    void didBeginContact(const kit::PhysicsContact& contact) override;
    void didEndContact(const kit::PhysicsContact& contact) override;

private:
    std::optional<TextureCache> m_cachedNodes = TextureCache{};
    std::vector<QRectF> m_groundBaseVariants;
    DeviceChoice m_deviceChoice;
    pathDirection m_collisionDirection = pathDirection::none;
    bool m_alternateSceneLocked = false;
    double m_alternateSceneLockedEndX = 0;
    bool m_soundFxEnabled = true;
    bool m_damageOccurred = false;
    bool m_deathOccurred = false;
    bool m_logDebugMessages = false;
    SceneBaseCustomDelegate* m_customDelegate = nullptr;
    SceneBaseContactDelegate* m_contactDelegate = nullptr;
};

} // namespace tessaro
