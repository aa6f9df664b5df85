// The rules of the game: what happens each frame and at each contact. The
// library gives the scene's frame loop and contacts to these two delegates;
// everything a level "means" as a game is decided here.
#pragma once

#include "LevelCast.h"
#include "LevelEndWindow.h"
#include "LevelScenery.h"
#include "Player.h"
#include "SoundBoard.h"

#include <tessaro/kit/LabelNode.h>
#include <tessaro/runtime/SceneDelegates.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace play {

/// What a run has counted so far.
struct PlayStats {
    std::map<std::string, int> made; // sprites by kind, the scenery's too
    int contactsBegun = 0;
    int coinsCollected = 0;
    int artifactsCollected = 0;
    int enemiesDefeated = 0;
    int livesLost = 0;
    /// Hits taken by objects and enemies, by element, in the order of the
    /// first hit; and the elements the hits destroyed.
    std::vector<std::pair<std::string, int>> hits;
    std::set<std::string> destroyed;
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
    const SoundBoard& sounds() const { return m_sounds; }
    /// The player's place in the level, or nothing without a player.
    std::optional<QPointF> playerPosition() const;
    /// The player has reached the end and the level end window shows.
    bool isFinished() const { return m_finished; }
    /// Puts the player at `place`, at rest; one that would stand inside
    /// something solid stands on top of it instead.
    void placePlayer(const QPointF& place);

    void update(double currentTime) override;
    void didFinishUpdate() override;
    void didBegin(const tessaro::kit::PhysicsContact& contact) override;

private:
    void flyAutopilot();
    /// Whether the ground has a floor under scene x `x`.
    bool hasFloorAt(double x) const;
    void meetEnemies(double now);
    void collect(tessaro::kit::Node& item);
    /// The player ran or jumped into an object: it sounds, and one that
    /// takes several hits takes one.
    void touchObject(tessaro::SKSpriteNode2dBase& object);
    /// The player landed on an enemy.
    void hitEnemy(tessaro::SKSpriteNodeEnemy2dBase& enemy);
    bool justHit(const tessaro::kit::Node& element) const;
    /// Whether a hit on `element` counts now; it then does.
    bool takesHitNow(tessaro::kit::Node& element) const;
    void countHit(const std::string& element);
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
    SoundBoard m_sounds;
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
