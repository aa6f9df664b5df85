#include "LevelWatcher.h"

#include <QDateTime>
#include <QFileInfo>

namespace play {

namespace {

/// How long the files must be quiet before a change is told, in ms.
constexpr int kSettleMilliseconds = 40;

/// What tells one version of a file from another without reading it.
QByteArray stampOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    return QByteArray::number(info.lastModified().toMSecsSinceEpoch()) + ':' + QByteArray::number(info.size()) + ':' +
        QByteArray::number(info.metadataChangeTime().toMSecsSinceEpoch());
}

} // namespace

LevelWatcher::LevelWatcher(const QString& workspace, const QString& project, QObject* parent) : QObject(parent)
{
    m_files << QFileInfo(project).absoluteFilePath();
    for (const char* catalogue : {"ObjectList.plist", "CharacterList.plist", "ObstacleList.plist"})
        m_files << QFileInfo(workspace + QStringLiteral("Assets/") + QLatin1String(catalogue)).absoluteFilePath();
    for (const QString& file : m_files)
        m_stamps.insert(file, stampOf(file));
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleMilliseconds);
    connect(&m_settle, &QTimer::timeout, this, [this] {
        watchAgain();
        bool different = false;
        for (const QString& file : m_files) {
            const QByteArray now = stampOf(file);
            different = different || now != m_stamps.value(file);
            m_stamps.insert(file, now);
        }
        if (different)
            emit changed();
    });
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &LevelWatcher::noticed);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &LevelWatcher::noticed);
    watchAgain();
}

void LevelWatcher::noticed(const QString&)
{
    m_settle.start();
}

void LevelWatcher::watchAgain()
{
    for (const QString& file : m_files) {
        const QString folder = QFileInfo(file).absolutePath();
        if (!m_watcher.directories().contains(folder) && QFileInfo(folder).isDir())
            m_watcher.addPath(folder);
        if (!m_watcher.files().contains(file) && QFileInfo(file).isFile())
            m_watcher.addPath(file);
    }
}

} // namespace play
