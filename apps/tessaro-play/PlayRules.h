// The rules of the game: what happens each frame and at each contact. The
// library gives the scene's frame loop and contacts to these two delegates;
// everything a level "means" as a game is decided here.
#pragma once

#include "LevelCast.h"
#include "LevelEndWindow.h"
#include "LevelScenery.h"
#include "Player.h"

#include <tessaro/kit/LabelNode.h>
#include <tessaro/runtime/SceneDelegates.h>

#include <memory>
#include <optional>

namespace play {

/// What a run has counted so far.
struct PlayStats {
    std::map<std::string, int> made; // sprites by kind, the scenery's too
    int contactsBegun = 0;
    int coinsCollected = 0;
    int artifactsCollected = 0;
    int enemiesDefeated = 0;
    int livesLost = 0;
};

class PlayRules : public tessaro::SceneBaseCustomDelegate, public tessaro::SceneBaseContactDelegate {
public:
    /// Builds `level` into `scene` and takes over its delegates.
    PlayRules(const tessaro::Level& level, tessaro::AppSharedSceneBase& scene);
    ~PlayRules() override;

    /// The keys of this frame; ignored while the autopilot flies.
    Controls& controls() { return m_controls; }
    /// Runs right and jumps over what stops it, for runs without a player
    /// at the keyboard.
    void setAutopilot(bool on) { m_autopilot = on; }

    const PlayStats& stats() const { return m_stats; }
    /// The player's place in the level, or nothing without a player.
    std::optional<QPointF> playerPosition() const;
    /// The player has reached the end and the level end window shows.
    bool isFinished() const { return m_finished; }

    void update(double currentTime) override;
    void didFinishUpdate() override;
    void didBegin(const tessaro::kit::PhysicsContact& contact) override;

private:
    void flyAutopilot();
    void meetEnemies(double now);
    void collect(tessaro::kit::Node& item);
    void loseLife();
    void finish();
    void followWithCamera();
    QSizeF visibleSize() const;
    void refreshHud();

    const tessaro::Level m_level;
    tessaro::AppSharedSceneBase& m_scene;
    tessaro::kit::NodePtr m_world;
    tessaro::kit::NodePtr m_camera;
    std::shared_ptr<tessaro::kit::LabelNode> m_hud;
    Scenery m_scenery;
    Cast m_cast;
    std::unique_ptr<Player> m_player;
    Controls m_controls;
    bool m_autopilot = false;
    PlayStats m_stats;
    QPointF m_respawnAt;
    double m_now = 0;
    double m_startTime = -1;
    bool m_finished = false;
    // The autopilot's memory: where it was and when it last jumped.
    double m_lastX = 0;
    int m_stuckFrames = 0;
    int m_framesSinceJump = 0;
};

} // namespace play
