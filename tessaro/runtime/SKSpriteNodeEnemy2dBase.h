// The sprite of every character: a small state machine that follows a
// target, attacks it, throws projectiles and dies. Its frames come from the
// atlases imageBase + "_" + action name, its bodies from the polygons of its
// physics record, chosen by state and facing. The game calls update() once a
// frame for every enemy and sets executeState to Die when it has lost its
// last hit; hit counting is the game's.
//
// Action keys are the node's name followed by ".animate", ".initial" or
// ".dying".
#pragma once

#include "SKSpriteNodeSharedBase.h"

#include <memory>

namespace tessaro {

/// The animation and body a state shows.
enum class StateAnimation { idle = 0, move = 1, attack = 2 };

class SKSpriteNodeEnemy2dBase : public SKSpriteNodeSharedBase {
public:
    /// A character of the first texture the scene has for `imageName`; its
    /// hits remaining start at the setup's count.
    SKSpriteNodeEnemy2dBase(const QString& imageName, const SpriteSetup& setup, bool useGravity);
    /// A character of `texture`.
    SKSpriteNodeEnemy2dBase(const kit::TexturePtr& texture, const SpriteSetup& setup, bool useGravity);

    static std::shared_ptr<SKSpriteNodeEnemy2dBase> create(const QString& imageName, const SpriteSetup& setup,
                                                           bool useGravity)
    {
        return std::make_shared<SKSpriteNodeEnemy2dBase>(imageName, setup, useGravity);
    }

    /// die() plays the death frames.
    bool animateDeath() const { return m_animateDeath; }
    void setAnimateDeath(bool on) { m_animateDeath = on; }
    /// The end of the death clears the scene's damage flags.
    bool completeVariable() const { return m_completeVariable; }
    void setCompleteVariable(bool on) { m_completeVariable = on; }
    enemyStateType executeState() const { return m_executeState; }
    void setExecuteState(enemyStateType state) { m_executeState = state; }
    /// The prefix of every atlas of the character.
    const QString& imageBase() const { return m_imageBase; }
    void setImageBase(const QString& base) { m_imageBase = base; }
    /// For the game; the library does not read it.
    int timeHit() const { return m_timeHit; }
    void setTimeHit(int t) { m_timeHit = t; }
    /// The node the character follows, or null.
    std::shared_ptr<kit::SpriteNode> target() const { return m_target.lock(); }
    void setTarget(const std::shared_ptr<kit::SpriteNode>& node) { m_target = node; }

    /// One frame of the state machine.
    virtual void update();
    /// Whether the target is near enough (and inside the character's range)
    /// to go after it.
    virtual bool canMove() const;
    virtual void playInitial();
    /// A step towards the target, in x only, never past the range about the
    /// starting position.
    virtual void moveToward(double speed);
    /// Fires each projectile of the record whose slot is free.
    virtual void attack();
    /// Starts the death once; later calls do nothing.
    virtual void die();
    virtual void runStateAnimation(StateAnimation kind);
    /// Installs the polygons of the state and facing as the body.
    virtual void applyStatePhysics(StateAnimation kind);
    /// Playing `sound`, or an empty action when sound effects are off or
    /// there is no sound; for the game's own sequences.
    virtual kit::ActionPtr soundAction(const GameSound* sound) const;
    /// Takes the character out of all contacts while it stands behind the
    /// object it hides behind.
    virtual void applyHideMasks();
    virtual void addHealthBar();

    QString actionKey(const char* suffix) const { return name() + QLatin1String(suffix); }

private:
    void setUp(const SpriteSetup& setup, bool useGravity);
    /// The target's x in this node's parent's space (0 without a target).
    double targetX() const;
    void applyRecordMasks();

    bool m_animateDeath = true;
    bool m_completeVariable = true;
    enemyStateType m_executeState = enemyStateType::Idle;
    QString m_imageBase;
    int m_timeHit = 0;
    std::weak_ptr<kit::SpriteNode> m_target;
};

using SKSpriteNodeEnemy2dBasePtr = std::shared_ptr<SKSpriteNodeEnemy2dBase>;

} // namespace tessaro
