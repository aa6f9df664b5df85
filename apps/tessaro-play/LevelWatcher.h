// Tells when the files a running level was made from change: the project
// and the workspace's three catalogues. Editors replace files by renaming a
// new one over them, which ends a watch on the file; the folders are watched
// too and every file is watched again after each change. A burst of changes
// is told once, shortly after the last.
#pragma once

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace play {

class LevelWatcher : public QObject {
    Q_OBJECT
public:
    /// Watches `project` and the catalogues of `workspace` (ending in "/").
    LevelWatcher(const QString& workspace, const QString& project, QObject* parent = nullptr);

    const QStringList& files() const { return m_files; }

signals:
    /// One or more of the files changed, appeared or went.
    void changed();

private:
    void noticed(const QString& path);
    void watchAgain();

    QStringList m_files;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    QHash<QString, QByteArray> m_stamps; // what a file looked like when last told
};

} // namespace play
