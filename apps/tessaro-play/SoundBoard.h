// The game's sounds: the one-shot effects of the level's parts and of its
// elements, and the level's looped background, played through the kit's
// audio (Qt Multimedia). What was started is counted for the run's report.
#pragma once

#include <tessaro/model/CommonRecords.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/runtime/AppSharedSceneBase.h>

#include <QString>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace play {

class SoundBoard {
public:
    explicit SoundBoard(tessaro::AppSharedSceneBase& scene) : m_scene(scene) {}

    /// Plays once each sound of `sounds` of the type `type`.
    void play(const std::vector<tessaro::GameSound>& sounds, tessaro::soundBiteType type);
    /// Loops each sound of `sounds` of the type `background` for as long as
    /// `holder` is in the scene.
    void loop(const std::vector<tessaro::GameSound>& sounds, tessaro::kit::Node& holder);

    /// The sounds started, by file name, in the order of their first start,
    /// with how often.
    const std::vector<std::pair<std::string, int>>& started() const { return m_started; }

private:
    /// The file of `sound`; a missing one is named once, in a diagnostic
    /// line, and stays silent.
    QString fileOf(const tessaro::GameSound& sound);
    void count(const std::string& name);

    tessaro::AppSharedSceneBase& m_scene;
    std::set<std::string> m_missing;
    std::vector<std::pair<std::string, int>> m_started;
};

} // namespace play
