// The game's scene: a level of a project built on the library's scene base,
// played by the rules of PlayRules, steered by the arrow keys (or A and D)
// and Space.
#pragma once

#include "PlayRules.h"

#include <tessaro/model/LevelRecords.h>
#include <tessaro/runtime/AppSharedSceneBase.h>

#include <memory>

namespace play {

class PlayScene : public tessaro::AppSharedSceneBase {
public:
    /// A scene of the level's size and scale mode with the level built in.
    explicit PlayScene(const tessaro::Level& level);
    ~PlayScene() override;

    PlayRules& rules() { return *m_rules; }
    const PlayRules& rules() const { return *m_rules; }

    void keyDown(const tessaro::kit::KeyEvent& event) override;
    void keyUp(const tessaro::kit::KeyEvent& event) override;

private:
    void setKey(int key, bool down);

    std::unique_ptr<PlayRules> m_rules;
};

} // namespace play
