#include "WorkspaceWatcher.h"

#include "ProjectTab.h"
#include "SceneSettings.h"
#include "Workspace.h"

#include <QDirIterator>
#include <QFileInfo>

namespace stagewright {

namespace {

const char* catalogueFiles[] = {"ObjectList.plist", "CharacterList.plist", "ObstacleList.plist"};

/// FNV-1a over the bytes of `data`, continuing from `seed`.
std::uint64_t mix(std::uint64_t seed, const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i)
        seed = (seed ^ bytes[i]) * 1099511628211ull;
    return seed;
}

constexpr std::uint64_t emptyDigest = 14695981039346656037ull;

std::uint64_t mixFile(std::uint64_t seed, const QFileInfo& file)
{
    const QByteArray name = file.filePath().toUtf8();
    seed = mix(seed, name.constData(), std::size_t(name.size()));
    const qint64 facts[] = {file.exists() ? file.size() : -1,
                            file.exists() ? file.lastModified().toMSecsSinceEpoch() : -1};
    return mix(seed, facts, sizeof facts);
}

/// Every folder in `root`, `root` included, for a watcher that sees one
/// level of a folder only.
QStringList foldersIn(const QString& root)
{
    QStringList folders;
    if (!QFileInfo(root).isDir())
        return folders;
    folders << root;
    QDirIterator it(root, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext())
        folders << it.next();
    return folders;
}

std::uint64_t treeDigest(std::uint64_t seed, const QString& root)
{
    if (!QFileInfo(root).isDir())
        return seed;
    QStringList files;
    QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    files.sort();
    for (const QString& file : std::as_const(files))
        seed = mixFile(seed, QFileInfo(file));
    return seed;
}

} // namespace

WorkspaceWatcher::WorkspaceWatcher(SceneSettings& settings, int quietMilliseconds, QObject* parent)
    : QObject(parent),
      m_settings(settings)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietMilliseconds);
    connect(&m_quiet, &QTimer::timeout, this, &WorkspaceWatcher::checkNow);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &WorkspaceWatcher::changed);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &WorkspaceWatcher::changed);

    // What is watched follows the open tabs, their files and the workspace.
    const auto follow = [this] {
        for (const auto& tab : m_settings.projectTabs())
            connect(tab.get(), &ProjectTab::filePathChanged, this, &WorkspaceWatcher::watchAgain, Qt::UniqueConnection);
        watchAgain();
    };
    connect(&settings, &SceneSettings::projectTabsChanged, this, follow);
    connect(&settings, &SceneSettings::workingSpacePathChanged, this, [this] {
        m_catalogues = catalogueStamp();
        m_assets = assetStamp();
        watchAgain();
    });
    // The editor's own save is no change from outside.
    connect(&settings, &SceneSettings::projectWritten, this,
            [this](const QString& path) { m_projects[path] = projectStamp(path); });
    m_catalogues = catalogueStamp();
    m_assets = assetStamp();
    follow();
}

QStringList WorkspaceWatcher::watchedPaths() const
{
    return m_watcher.files() + m_watcher.directories();
}

void WorkspaceWatcher::watchAgain()
{
    QStringList wanted;
    std::map<QString, Stamp> projects;
    for (const auto& tab : m_settings.projectTabs()) {
        if (!tab->filePath())
            continue;
        const QString path = *tab->filePath();
        const auto known = m_projects.find(path);
        projects[path] = known != m_projects.end() ? known->second : projectStamp(path);
        // A save that replaces the file by renaming shows in its folder only.
        wanted << path << QFileInfo(path).absolutePath();
    }
    m_projects = std::move(projects);

    const QString workspace = workingSpacePath();
    if (!workspace.isEmpty()) {
        wanted << assetsFolder(workspace);
        for (const char* name : catalogueFiles)
            wanted << assetsFolder(workspace) + QLatin1String(name);
        wanted << foldersIn(imagesFolder(workspace)) << foldersIn(soundsFolder(workspace));
    }
    QStringList present;
    for (const QString& path : std::as_const(wanted))
        if (QFileInfo::exists(path) && !present.contains(path))
            present << path;

    const QStringList watched = watchedPaths();
    QStringList gone;
    for (const QString& path : watched)
        if (!present.contains(path))
            gone << path;
    if (!gone.isEmpty())
        m_watcher.removePaths(gone);
    QStringList added;
    for (const QString& path : std::as_const(present))
        if (!watched.contains(path))
            added << path;
    if (!added.isEmpty())
        m_watcher.addPaths(added);
}

void WorkspaceWatcher::changed()
{
    m_quiet.start();
}

void WorkspaceWatcher::checkNow()
{
    m_quiet.stop();
    // A file replaced by a rename is no longer watched, and new folders are
    // not yet; both are watched again before anything is reported.
    watchAgain();
    std::vector<tessaro::Uuid> changedTabs;
    for (auto& [path, stamp] : m_projects) {
        const Stamp now = projectStamp(path);
        if (now == stamp)
            continue;
        stamp = now;
        for (const auto& tab : m_settings.projectTabs())
            if (tab->filePath() == path)
                changedTabs.push_back(tab->id());
    }
    const Stamp catalogues = catalogueStamp();
    const bool cataloguesChanged = catalogues != m_catalogues;
    m_catalogues = catalogues;
    const Stamp assets = assetStamp();
    const bool assetsChanged = assets != m_assets;
    m_assets = assets;

    // The receivers may ask the user; the stamps are already taken, so a
    // change is reported once.
    for (const tessaro::Uuid& id : changedTabs)
        emit projectChangedOnDisk(id);
    if (cataloguesChanged)
        emit cataloguesChangedOnDisk();
    if (assetsChanged)
        emit assetsChangedOnDisk();
}

WorkspaceWatcher::Stamp WorkspaceWatcher::projectStamp(const QString& path) const
{
    return mixFile(emptyDigest, QFileInfo(path));
}

WorkspaceWatcher::Stamp WorkspaceWatcher::catalogueStamp() const
{
    const QString workspace = workingSpacePath();
    Stamp digest = emptyDigest;
    for (const char* name : catalogueFiles)
        digest = mixFile(digest, QFileInfo(assetsFolder(workspace) + QLatin1String(name)));
    return digest;
}

WorkspaceWatcher::Stamp WorkspaceWatcher::assetStamp() const
{
    const QString workspace = workingSpacePath();
    return treeDigest(treeDigest(emptyDigest, imagesFolder(workspace)), soundsFolder(workspace));
}

} // namespace stagewright
