// Notices when other programs change the files the editor shows: the open
// projects, the workspace's catalogues, and its image and sound folders. A
// burst of changes (a program writing a file in steps, a copy of many
// images) is reported once, after a short quiet time. Each report compares
// sizes and modification times with those taken at the last report, or when
// the editor itself saved the project, so the editor's own saves are no news.
#pragma once

#include <tessaro/model/Uuid.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <map>

namespace stagewright {

class SceneSettings;

class WorkspaceWatcher : public QObject {
    Q_OBJECT
public:
    explicit WorkspaceWatcher(SceneSettings& settings, int quietMilliseconds = 400, QObject* parent = nullptr);

    /// Compares the files with their stamps now and reports what changed,
    /// instead of waiting for the quiet time.
    void checkNow();
    /// The paths being watched, for tests.
    QStringList watchedPaths() const;

signals:
    /// The file of the tab with that id changed on disk.
    void projectChangedOnDisk(const tessaro::Uuid& tabId);
    /// A catalogue file changed on disk.
    void cataloguesChangedOnDisk();
    /// An image or sound was added, removed or changed.
    void assetsChangedOnDisk();

private:
    /// Size and modification time; for a folder tree, a digest of those of
    /// every file in it.
    using Stamp = std::uint64_t;

    /// Watches the files and folders the open tabs and the workspace have now.
    void watchAgain();
    void changed();
    Stamp projectStamp(const QString& path) const;
    Stamp catalogueStamp() const;
    Stamp assetStamp() const;

    SceneSettings& m_settings;
    QFileSystemWatcher m_watcher;
    QTimer m_quiet;
    std::map<QString, Stamp> m_projects;
    Stamp m_catalogues = 0;
    Stamp m_assets = 0;
};

} // namespace stagewright
