#include "PlaySession.h"

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/runtime/GameResources.h>

#include <QFileInfo>

#include <unistd.h>

namespace play {

std::optional<tessaro::Level> levelToPlay(const PlayOptions& options)
{
    tessaro::LevelsReadResult read = tessaro::readLevels(options.project.toStdString());
    if (!read.ok)
        return std::nullopt;
    if (size_t(options.level) > read.levels.size()) {
        tessaro::diagnostic("The project has " + std::to_string(read.levels.size()) + " levels; there is no level " +
                            std::to_string(options.level));
        return std::nullopt;
    }
    return read.levels[size_t(options.level - 1)];
}

PlaySession::PlaySession(const PlayOptions& options, QObject* parent) : QObject(parent), m_options(options)
{
    m_view.setWindowTitle(
        QStringLiteral("%1 - level %2").arg(QFileInfo(options.project).completeBaseName()).arg(options.level));
    m_view.resize(1280, 720);
}

PlaySession::~PlaySession()
{
    m_view.presentScene(nullptr);
}

std::shared_ptr<PlayScene> PlaySession::buildScene()
{
    if (!tessaro::loadWorkspace(m_options.workspace))
        return nullptr;
    const std::optional<tessaro::Level> level = levelToPlay(m_options);
    if (!level)
        return nullptr;
    auto scene = std::make_shared<PlayScene>(*level);
    scene->rules().setAutopilot(m_options.autopilot);
    return scene;
}

void PlaySession::show(std::shared_ptr<PlayScene> scene)
{
    m_view.presentScene(scene);
    // The scene the view let go of goes after the new one is shown.
    m_scene = std::move(scene);
}

bool PlaySession::start()
{
    std::shared_ptr<PlayScene> scene = buildScene();
    if (!scene)
        return false;
    show(std::move(scene));
    m_view.show();
    m_view.setFocus();
    if (m_options.watch) {
        m_watcher = std::make_unique<LevelWatcher>(m_options.workspace, m_options.project);
        connect(m_watcher.get(), &LevelWatcher::changed, this, &PlaySession::reload);
        m_commands = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        connect(m_commands.get(), &QSocketNotifier::activated, this, &PlaySession::readCommands);
    }
    return true;
}

bool PlaySession::reload()
{
    const std::optional<QPointF> player = m_scene ? m_scene->rules().playerPosition() : std::nullopt;
    std::shared_ptr<PlayScene> scene = buildScene();
    if (!scene)
        return false;
    if (player)
        scene->rules().placePlayer(*player);
    show(std::move(scene));
    emit reloaded();
    return true;
}

bool PlaySession::restart()
{
    m_view.showNormal();
    m_view.raise();
    m_view.activateWindow();
    std::shared_ptr<PlayScene> scene = buildScene();
    if (!scene)
        return false;
    show(std::move(scene));
    emit reloaded();
    return true;
}

void PlaySession::readCommands()
{
    char buffer[256];
    const ssize_t got = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (got <= 0) {
        // The editor went away: nobody will send more.
        m_commands->setEnabled(false);
        return;
    }
    m_pending.append(buffer, int(got));
    for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
        const QByteArray line = m_pending.left(end).trimmed();
        m_pending.remove(0, end + 1);
        if (line == "restart")
            restart();
        else if (!line.isEmpty())
            tessaro::diagnostic("tessaro-play: unknown command " + line.toStdString());
    }
}

} // namespace play
