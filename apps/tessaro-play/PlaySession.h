// The game in a window. With watching on it follows its files: a change of
// the project or of the workspace's catalogues builds the level again with
// the player where it was, and a line "restart" on standard input starts the
// level from the beginning and brings the window to the front. That is how
// the editor's "Play Level" keeps one game running while the designer edits.
#pragma once

#include "LevelWatcher.h"
#include "PlayOptions.h"
#include "PlayScene.h"
#include "PlayView.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

namespace play {

class PlaySession : public QObject {
    Q_OBJECT
public:
    explicit PlaySession(const PlayOptions& options, QObject* parent = nullptr);
    ~PlaySession() override;

    /// Builds the level and shows the window; false (with the reason
    /// written) when the level cannot be read.
    bool start();
    /// Builds the level again from its files with the player where it is
    /// now. A project or catalogue that cannot be read leaves the running
    /// level as it is; false then.
    bool reload();
    /// Builds the level again from its files from the start, and brings the
    /// window to the front.
    bool restart();

    PlayScene* scene() const { return m_scene.get(); }
    PlayView& view() { return m_view; }

signals:
    /// The level was built again from its files.
    void reloaded();

private:
    /// A new scene of the level as its files now are, or null.
    std::shared_ptr<PlayScene> buildScene();
    void show(std::shared_ptr<PlayScene> scene);
    void readCommands();

    PlayOptions m_options;
    PlayView m_view;
    std::shared_ptr<PlayScene> m_scene;
    std::unique_ptr<LevelWatcher> m_watcher;
    std::unique_ptr<QSocketNotifier> m_commands;
    QByteArray m_pending; // standard input not yet a whole line
};

/// The level `options` name, read from its project; nothing (with the reason
/// written) when the project cannot be read or has no such level.
std::optional<tessaro::Level> levelToPlay(const PlayOptions& options);

} // namespace play
