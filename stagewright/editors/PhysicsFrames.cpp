#include "PhysicsFrames.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QDir>
#include <QFileInfo>

#include <string_view>

namespace stagewright {

namespace {

const QStringList& imageExtensions()
{
    static const QStringList extensions{QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
                                        QStringLiteral("gif"), QStringLiteral("svg")};
    return extensions;
}

QStringList imageFilesIn(const QString& folder)
{
    QStringList filters;
    for (const QString& extension : imageExtensions())
        filters << QStringLiteral("*.") + extension;
    QStringList paths;
    for (const QString& file : QDir(folder).entryList(filters, QDir::Files, QDir::Name))
        paths << withTrailingSlash(folder) + file;
    return paths;
}

/// "name.ext" in `folder`, trying the workspace's image type first.
QString imageFile(const QString& folder, const QString& name)
{
    QStringList extensions{QString::fromLatin1(tessaro::caseText(tessaro::globalAppConfig().base.defaultImageType))};
    extensions << imageExtensions();
    for (const QString& extension : extensions) {
        const QString path = folder + name + QLatin1Char('.') + extension;
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

/// "name_000", "name_001", ... while they follow each other without a gap.
QStringList numberedSequence(const QString& folder, const QString& name)
{
    for (const int digits : {3, 2}) {
        QStringList paths;
        const int first = digits == 3 ? 0 : 1;
        for (int index = first;; ++index) {
            const QString path =
                imageFile(folder, name + QLatin1Char('_') + QString::number(index).rightJustified(digits, u'0'));
            if (path.isEmpty())
                break;
            paths << path;
        }
        if (!paths.isEmpty())
            return paths;
    }
    return {};
}

QStringList framesIn(const QString& folder, const QString& name, tessaro::sceneObjectType kind)
{
    const QString atlas = folder + name + QStringLiteral(".atlas");
    if (QFileInfo(atlas).isDir())
        if (QStringList files = imageFilesIn(atlas); !files.isEmpty())
            return files;
    if (const std::optional<QString> perName = perNameImageFolder(name, kind))
        if (QStringList files = imageFilesIn(*perName); !files.isEmpty())
            return files;
    if (const QString single = imageFile(folder, name); !single.isEmpty())
        return {single};
    if (QStringList sequence = numberedSequence(folder, name); !sequence.isEmpty())
        return sequence;
    // The path the image would have; showing it fails like any missing image.
    return {workspaceImagePath(name, std::nullopt, kind)};
}

} // namespace

QStringList physicsImageFrames(const QString& name, tessaro::sceneObjectType kind)
{
    if (!isPlainFileName(name))
        return {};
    const QString workspace = workingSpacePath();
    const QString folder =
        name == QLatin1String("placeholder") ? extrasFolder(workspace) : kindImageFolder(workspace, kind);
    QStringList frames;
    PermissionManager::shared().withAccess(workspace, [&] { frames = framesIn(folder, name, kind); });
    if (frames.isEmpty())
        frames << workspaceImagePath(name, std::nullopt, kind);
    return frames;
}

bool framesInclude(const std::string& frames, int frame)
{
    const std::string wanted = std::to_string(frame);
    std::string_view rest = frames;
    while (true) {
        const std::size_t comma = rest.find(',');
        if (rest.substr(0, comma) == wanted)
            return true;
        if (comma == std::string_view::npos)
            return false;
        rest.remove_prefix(comma + 1);
    }
}

} // namespace stagewright
