// The player: the level's first friendly character, run by the keys instead
// of the character state machine. It runs, jumps, takes hits and starts over
// at the last checkpoint.
#pragma once

#include <tessaro/runtime/AppSharedSceneBase.h>
#include <tessaro/runtime/SKSpriteNodeEnemy2dBase.h>

namespace play {

/// What the player bumps into and stands on, beyond what its record says.
inline constexpr std::uint32_t kSolidCategories = tessaro::collisionBit(tessaro::collisionTypes::floor) |
    tessaro::collisionBit(tessaro::collisionTypes::staticObjectBody) |
    tessaro::collisionBit(tessaro::collisionTypes::staticObjectMovable) |
    tessaro::collisionBit(tessaro::collisionTypes::staticObjectBouncible) |
    tessaro::collisionBit(tessaro::collisionTypes::floorAboveGround) |
    tessaro::collisionBit(tessaro::collisionTypes::floatingFloor) |
    tessaro::collisionBit(tessaro::collisionTypes::staticObjectSpecialHandling);

/// What the keys (or the autopilot) ask for in one frame.
struct Controls {
    bool left = false;
    bool right = false;
    bool jump = false;
};

class Player {
public:
    static constexpr double kRunSpeed = 260; // points per second
    static constexpr double kJumpSpeed = 720; // points per second upwards
    static constexpr double kSafeAfterHit = 1.5; // seconds without further damage

    Player(tessaro::SKSpriteNodeEnemy2dBasePtr sprite, tessaro::AppSharedSceneBase& scene);

    const tessaro::SKSpriteNodeEnemy2dBasePtr& sprite() const { return m_sprite; }
    QPointF position() const { return m_sprite->position(); }
    QPointF velocity() const;

    /// Sets the run and jump of this frame, before physics.
    void steer(const Controls& controls);
    /// True while the feet rest on something solid.
    bool onGround() const;
    /// Takes one hit unless just hit; true when that was the last one.
    bool hurt(double now, tessaro::pathDirection from);
    bool isSafe(double now) const { return now < m_safeUntil; }
    /// A hop after landing on an enemy.
    void bounce();
    /// Back at `place` with every hit restored.
    void respawn(const QPointF& place);
    /// At `place`, at rest.
    void moveTo(const QPointF& place);

private:
    void showAction(const std::optional<std::string>& action, std::optional<double> perFrame);
    void refreshHealth();

    tessaro::SKSpriteNodeEnemy2dBasePtr m_sprite;
    tessaro::AppSharedSceneBase& m_scene;
    bool m_running = false;
    bool m_animated = false;
    double m_safeUntil = -1;
};

} // namespace play
