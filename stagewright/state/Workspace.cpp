#include "Workspace.h"

#include "BookmarksManager.h"
#include "DBHelper.h"
#include "PermissionManager.h"
#include "SeedResources.h"
#include "StateDiagnostics.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/FileNames.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace stagewright {

namespace {

QString& workspaceGlobal()
{
    static QString path;
    return path;
}

constexpr QFileDevice::Permissions copiedFilePermissions =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;

/// Splits "name.ext" at the last dot; false when there is no extension.
bool splitExtension(const QString& fileName, QString* base, QString* extension)
{
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    if (dot <= 0 || dot == fileName.size() - 1)
        return false;
    *base = fileName.left(dot);
    *extension = fileName.mid(dot + 1);
    return true;
}

bool isKeptExtension(const QString& extension, ScanKind what)
{
    const std::string text = extension.toStdString();
    if (what == ScanKind::images) {
        auto type = tessaro::caseFromText<tessaro::imageType>(text);
        return type && *type != tessaro::imageType::none;
    }
    auto type = tessaro::caseFromText<tessaro::soundType>(text);
    return type && *type != tessaro::soundType::none;
}

/// Files directly in a folder in name order; none when it cannot be listed.
std::optional<QStringList> listFiles(const QString& folder)
{
    const QFileInfo info(folder);
    if (!info.isDir() || !info.isReadable())
        return std::nullopt;
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

/// One failed step of creating a workspace.
struct CreationError {
    QString what;
    QString description;
};

void makeFolder(const QString& path, bool* created = nullptr)
{
    if (created)
        *created = false;
    if (QFileInfo(path).isDir())
        return;
    if (QFileInfo::exists(path))
        throw CreationError{QStringLiteral("cannot create folder ") + path, QStringLiteral("A file has that name.")};
    if (!QDir().mkpath(path))
        throw CreationError{QStringLiteral("cannot create folder ") + path,
                            QStringLiteral("The folder could not be created.")};
    if (created)
        *created = true;
}

/// Copies a resource file unless the target exists; never replaces a file.
void copySeedFile(const QString& source, const QString& target)
{
    if (QFileInfo::exists(target))
        return;
    QFile file(source);
    if (!file.copy(target))
        throw CreationError{QStringLiteral("cannot copy ") + QFileInfo(source).fileName() + QStringLiteral(" to ") +
                                target,
                            file.errorString()};
    QFile::setPermissions(target, copiedFilePermissions);
}

/// Copies a seed folder of the resources, sub-folders included.
void copySeedFolder(const QString& source, const QString& target)
{
    QDirIterator it(source, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString to = target + from.mid(source.size());
        if (it.fileInfo().isDir())
            makeFolder(to);
        else
            copySeedFile(from, to);
    }
}

QString nearestExistingFolder(QString path)
{
    QFileInfo info(path);
    while (!info.exists()) {
        const QString parent = info.absolutePath();
        if (parent == info.absoluteFilePath())
            break;
        info.setFile(parent);
    }
    return info.absoluteFilePath();
}

} // namespace

const QString& workingSpacePath()
{
    return workspaceGlobal();
}

void setWorkingSpacePathValue(const QString& path)
{
    workspaceGlobal() = path;
}

bool& firstTimeViewDisplayed()
{
    static bool shown = false;
    return shown;
}

QString withTrailingSlash(QString path)
{
    if (!path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path;
}

QString defaultWorkspacePath()
{
    return withTrailingSlash(QDir::homePath() + QStringLiteral("/StageWrightSpace"));
}

QString levelsFolder(const QString& workspace)
{
    return workspace + QStringLiteral("Levels/");
}
QString assetsFolder(const QString& workspace)
{
    return workspace + QStringLiteral("Assets/");
}
QString soundsFolder(const QString& workspace)
{
    return workspace + QStringLiteral("Assets/Sounds/");
}
QString imagesFolder(const QString& workspace)
{
    return workspace + QStringLiteral("Assets/Images/");
}
QString extrasFolder(const QString& workspace)
{
    return workspace + QStringLiteral("Assets/Images/Extras/");
}

QString kindImageFolder(const QString& workspace, tessaro::sceneObjectType kind)
{
    return imagesFolder(workspace) + QString::fromLatin1(tessaro::imageFolderName(kind)) + QLatin1Char('/');
}

bool createWorkspace(const QString& rawPath, PermissionManager& gate)
{
    if (rawPath.isEmpty())
        return false;
    const QString path = withTrailingSlash(rawPath);
    const QString seed = seedRoot();
    for (const QString& required : requiredSeedFiles()) {
        if (!QFileInfo::exists(seed + required)) {
            diagnosticLine(QStringLiteral("Error: Source File not found."));
            return false;
        }
    }

    bool complete = false;
    // The folder may not exist yet: access is sought on the nearest folder
    // that does, which covers everything made below it.
    gate.withAccess(nearestExistingFolder(path), [&] {
        try {
            makeFolder(path);
            createWorkspaceStore(path);
            makeFolder(levelsFolder(path));
            bool assetsCreated = false;
            makeFolder(assetsFolder(path), &assetsCreated);
            if (assetsCreated)
                for (const char* catalogue : {"ObjectList.plist", "CharacterList.plist", "ObstacleList.plist"})
                    copySeedFile(seed + QStringLiteral("Assets/") + QLatin1String(catalogue),
                                 assetsFolder(path) + QLatin1String(catalogue));
            bool soundsCreated = false;
            makeFolder(soundsFolder(path), &soundsCreated);
            if (soundsCreated)
                copySeedFolder(seed + QStringLiteral("Assets/Sounds"), soundsFolder(path).chopped(1));
            makeFolder(imagesFolder(path));
            bool extrasCreated = false;
            makeFolder(extrasFolder(path), &extrasCreated);
            if (extrasCreated)
                copySeedFolder(seed + QStringLiteral("Assets/Images/Extras"), extrasFolder(path).chopped(1));
            for (tessaro::sceneObjectType kind : tessaro::allCases<tessaro::sceneObjectType>()) {
                if (kind == tessaro::sceneObjectType::none)
                    continue;
                bool created = false;
                const QString folder = kindImageFolder(path, kind);
                makeFolder(folder, &created);
                const QString source =
                    seed + QStringLiteral("Assets/Images/") + QString::fromLatin1(tessaro::imageFolderName(kind));
                if (created && QFileInfo(source).isDir())
                    copySeedFolder(source, folder.chopped(1));
            }
            complete = true;
        } catch (const CreationError& error) {
            diagnosticLine(QStringLiteral("error: ") + error.what + QLatin1Char(' ') + error.description);
        }
    });

    if (complete && gate.needsPermission(path)) {
        ChooseResult chosen = gate.choose(path);
        if (const QString* folder = std::get_if<QString>(&chosen))
            gate.bookmarks().add(*folder);
    }
    return complete;
}

std::vector<FileItem> scanFolder(const QString& folder, tessaro::sceneObjectType kind, ScanKind what)
{
    std::vector<FileItem> items;
    const std::optional<QStringList> files = listFiles(folder);
    if (!files)
        return items;
    for (const QString& file : *files) {
        FileItem item;
        if (!splitExtension(file, &item.name, &item.type) || !isKeptExtension(item.type, what))
            continue;
        item.folder = folder;
        item.sceneObjectType = kind;
        items.push_back(std::move(item));
    }
    std::stable_sort(items.begin(), items.end(), [](const FileItem& a, const FileItem& b) { return a.name < b.name; });
    return items;
}

WorkspaceFileLists scanWorkspaceFiles(const QString& workspace)
{
    WorkspaceFileLists lists;
    lists.audio = scanFolder(soundsFolder(workspace), tessaro::sceneObjectType::none, ScanKind::sounds);
    for (tessaro::sceneObjectType kind : tessaro::allCases<tessaro::sceneObjectType>()) {
        if (kind == tessaro::sceneObjectType::none)
            continue;
        std::vector<FileItem> found = scanFolder(kindImageFolder(workspace, kind), kind, ScanKind::images);
        lists.images.insert(lists.images.end(), std::make_move_iterator(found.begin()),
                            std::make_move_iterator(found.end()));
    }
    return lists;
}

std::optional<FileItem> findFileItem(const QString& name, tessaro::sceneObjectType kind)
{
    const QString workspace = workingSpacePath();
    const bool placeholder = name == QLatin1String("placeholder");
    const QString folder = placeholder ? extrasFolder(workspace) : kindImageFolder(workspace, kind);

    std::optional<QStringList> files;
    PermissionManager::shared().withAccess(workspace, [&] { files = listFiles(folder); });
    if (!files) {
        FileItem item;
        item.folder = extrasFolder(workspace);
        item.name = QStringLiteral("placeholder");
        item.type = QStringLiteral("png");
        item.sceneObjectType = kind;
        return item;
    }
    for (const QString& file : *files) {
        FileItem item;
        if (!splitExtension(file, &item.name, &item.type) || item.name != name)
            continue;
        item.folder = folder;
        item.sceneObjectType = kind;
        return item;
    }
    return std::nullopt;
}

QString workspaceImagePath(const QString& name, const std::optional<QString>& extension, tessaro::sceneObjectType kind)
{
    const QString type =
        extension.value_or(QString::fromLatin1(tessaro::caseText(tessaro::globalAppConfig().base.defaultImageType)));
    const QString folder = name == QLatin1String("placeholder") ? QStringLiteral("Extras")
                                                                : QString::fromLatin1(tessaro::imageFolderName(kind));
    return imagesFolder(workingSpacePath()) + folder + QLatin1Char('/') + name + QLatin1Char('.') + type;
}

std::optional<QString> perNameImageFolder(const QString& name, tessaro::sceneObjectType kind)
{
    if (!isPlainFileName(name))
        return std::nullopt;
    const QString images = imagesFolder(workingSpacePath());
    const QString caseName = QString::fromLatin1(tessaro::caseText(kind));
    const QStringList folders = QDir(images).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& folder : folders) {
        if (folder.compare(caseName, Qt::CaseInsensitive) != 0)
            continue;
        const QString candidate = images + folder + QLatin1Char('/') + name;
        if (QFileInfo(candidate).isDir())
            return candidate;
    }
    return std::nullopt;
}

std::optional<QString> firstFileInDirectory(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isDir() || !info.isReadable()) {
        diagnosticLine(QStringLiteral("Error getFirstFileInDirectory: The folder \"") + path +
                       QStringLiteral("\" cannot be listed."));
        return std::nullopt;
    }
    const QStringList files = QDir(path).entryList(QDir::Files, QDir::Name);
    if (files.isEmpty())
        return std::nullopt;
    return withTrailingSlash(path) + files.front();
}

bool isDirectory(const QString& path)
{
    return QFileInfo(path).isDir();
}

QString defaultGroundImage(tessaro::groundBaseType type, const QString& image)
{
    using tessaro::groundBaseType;
    switch (type) {
    case groundBaseType::BrightWater: return QStringLiteral("brightWater_ground");
    case groundBaseType::Lava: return QStringLiteral("lava_top");
    case groundBaseType::MuddyWater: return QStringLiteral("muddyWater_ground");
    case groundBaseType::Spike: return QStringLiteral("spikes_1");
    case groundBaseType::ToxicGreen: return QStringLiteral("toxicGreen_ground");
    case groundBaseType::Water: return QStringLiteral("trough_top_one");
    case groundBaseType::Ground:
    case groundBaseType::None: break;
    }
    const QString first = image.section(QLatin1Char(','), 0, 0);
    return first.isEmpty() ? image : first;
}

} // namespace stagewright

namespace stagewright {
bool isPlainFileName(const QString& name)
{
    return tessaro::isPlainFileName(name.toStdString());
}
} // namespace stagewright
