// The sprite of every placed object: obstacles, collectibles, triggers,
// moving platforms. It turns the animation record of its obstacle into
// running actions (frames, moves, per-frame physics, cycle ends), shows a
// health bar and plays the element's sounds. A game makes these through the
// obstacle factory, calls update() every frame and hit() on damage.
//
// Action keys are the node's name followed by ".animateOnce", ".moveOnce",
// ".animateForever", ".moveForever" and "_OnceReset"; running an action of a
// key replaces the one running under it.
#pragma once

#include "SKSpriteNodeSharedBase.h"

#include <tessaro/kit/PhysicsWorld.h>
#include <tessaro/model/Geometry.h>

#include <memory>
#include <optional>

namespace tessaro {

class SKSpriteNode2dBase : public SKSpriteNodeSharedBase {
public:
    /// A sprite of the first texture the scene has for `imageName` (an atlas
    /// or an image).
    SKSpriteNode2dBase(const QString& imageName, const SpriteSetup& setup);
    /// A sprite of `texture`.
    SKSpriteNode2dBase(const kit::TexturePtr& texture, const SpriteSetup& setup);

    static std::shared_ptr<SKSpriteNode2dBase> create(const QString& imageName, const SpriteSetup& setup)
    {
        return std::make_shared<SKSpriteNode2dBase>(imageName, setup);
    }
    static std::shared_ptr<SKSpriteNode2dBase> create(const kit::TexturePtr& texture, const SpriteSetup& setup)
    {
        return std::make_shared<SKSpriteNode2dBase>(texture, setup);
    }

    // --- values the factory fills from the record ---------------------------------
    float checkpointValue() const { return m_checkpointValue; }
    void setCheckpointValue(float v) { m_checkpointValue = v; }
    /// Distance from the reference x of the last update().
    double distance() const { return m_distance; }
    void setDistance(double d) { m_distance = d; }
    const QString& extra() const { return m_extra; }
    void setExtra(const QString& text) { m_extra = text; }
    int extraNumber() const { return m_extraNumber; }
    void setExtraNumber(int n) { m_extraNumber = n; }
    bool triggerLetterbox() const { return m_triggerLetterbox; }
    void setTriggerLetterbox(bool on) { m_triggerLetterbox = on; }
    std::optional<QPointF> velocity() const { return m_velocity; }
    void setVelocity(std::optional<QPointF> v) { m_velocity = v; }
    const std::shared_ptr<kit::PhysicsJointPin>& jointPin() const { return m_jointPin; }
    void setJointPin(std::shared_ptr<kit::PhysicsJointPin> pin) { m_jointPin = std::move(pin); }
    RangeValue distanceXRange() const { return m_distanceXRange; }
    void setDistanceXRange(RangeValue r) { m_distanceXRange = r; }
    RangeValue distanceYRange() const { return m_distanceYRange; }
    void setDistanceYRange(RangeValue r) { m_distanceYRange = r; }

    // --- behaviour --------------------------------------------------------------------
    /// Once a frame, from the game, while sound effects are on: measures the
    /// distance to `referenceX` (the player's or camera's x), sets the volume
    /// of the constant sounds from it, and reports the callbackFunction.
    virtual void update(double referenceX);
    /// Starts the animation record by its frequency.
    virtual void startAnimation();
    /// Frames looping and one pass of the move.
    virtual void runOnce();
    /// Frames and move, both for ever.
    virtual void runForever();
    /// The move of the record's moveDirection; null without an obstacle
    /// record, its animation or its devices.
    virtual kit::ActionPtr buildMoveAction();
    /// Plays the cycle-end entries: end animations, callbacks, removal.
    virtual void runCycleEnds();
    /// Puts a dropped object back where it started.
    virtual void runOnceReset();
    /// The frame animation, rebuilding the body at each frame when the record
    /// changes physics; null without an obstacle record, its animation or
    /// its devices.
    virtual kit::ActionPtr buildAnimationAction();
    virtual void stopAllActions();
    /// Loops each sound, named "audio_constant_" + its file name so that
    /// update() can fade it with distance.
    virtual void playConstantSounds(const std::vector<GameSound>& sounds);
    virtual void playSoundEffects(const std::vector<GameSound>& sounds);
    /// 1.0 within one scene width of the reference, 0.67 within two, 0.33
    /// within three, else 0.
    virtual float volumeForDistance() const;
    /// Takes one hit; true when the object is used up (its count then starts
    /// over).
    virtual bool hit();
    virtual void addHealthBar();

    QString actionKey(const char* suffix) const { return name() + QLatin1String(suffix); }

private:
    void setUp(const SpriteSetup& setup);
    /// The end sprite of a cycle-end entry, beside `target`.
    void runCycleEndAnimation(const CycleEndProperties& entry, SKSpriteNode2dBase& target, qreal z,
                              const QPointF& position);
    /// The end sprite after an up or down move.
    void runMoveEndAnimation();
    kit::ActionPtr block(std::function<void(SKSpriteNode2dBase&)> work);

    float m_checkpointValue = 0;
    double m_distance = 0;
    QString m_extra;
    int m_extraNumber = 0;
    bool m_triggerLetterbox = false;
    std::optional<QPointF> m_velocity;
    std::shared_ptr<kit::PhysicsJointPin> m_jointPin;
    RangeValue m_distanceXRange;
    RangeValue m_distanceYRange;
};

using SKSpriteNode2dBasePtr = std::shared_ptr<SKSpriteNode2dBase>;

} // namespace tessaro
