#include "WorkspaceImages.h"

#include "PermissionManager.h"
#include "SeedResources.h"
#include "StateDiagnostics.h"
#include "Workspace.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/NameLists.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRandomGenerator>
#include <QSet>

#include <cmath>

namespace stagewright {

namespace {

QImage readImageFile(const QString& path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    if (image.isNull())
        diagnosticLine(QStringLiteral("Image not loaded: ") + path + QStringLiteral(" (") + reader.errorString() +
                       QLatin1Char(')'));
    return image;
}

QSizeF applyScale(QSizeF size, bool scaled)
{
    if (!scaled)
        return size;
    switch (tessaro::globalAppConfig().base.defaultImageScale) {
    case tessaro::imageScaling::x2: return size / 2.0;
    case tessaro::imageScaling::x3: return size / 3.0;
    case tessaro::imageScaling::none:
    case tessaro::imageScaling::x1: break;
    }
    return size;
}

WorkspaceImage drawAt(const QImage& source, QSizeF requested, bool scaled, const QString& path, bool placeholder)
{
    QSizeF size = requested.isEmpty() ? QSizeF(source.size()) : requested;
    size = applyScale(size, scaled);
    const QSize pixels(std::max(1, int(std::lround(size.width()))), std::max(1, int(std::lround(size.height()))));
    WorkspaceImage result;
    result.image =
        pixels == source.size() ? source : source.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    result.size = size;
    result.path = path;
    result.isPlaceholder = placeholder;
    return result;
}

std::optional<WorkspaceImage> placeholderResult(QSizeF size, bool scaled)
{
    const QImage placeholder = placeholderImage();
    return drawAt(placeholder, size, scaled, applicationImagePath(QStringLiteral("placeholder")), true);
}

/// Images are read under access to the workspace; before a workspace is set,
/// under access to the image's own folder.
QString accessLocation(const QString& path)
{
    const QString& workspace = workingSpacePath();
    return workspace.isEmpty() ? QFileInfo(path).absolutePath() : workspace;
}

/// The files of the application's images, listed once: they are compiled in,
/// and the lists of the library ask for thousands of names.
const QSet<QString>& applicationImageFiles()
{
    static const QSet<QString> files = [] {
        const QStringList names = QDir(applicationImagesRoot()).entryList(QDir::Files);
        return QSet<QString>(names.begin(), names.end());
    }();
    return files;
}

QString pickFromList(const QString& name)
{
    if (!name.contains(QLatin1Char(',')))
        return name;
    const std::vector<std::string> names = tessaro::trimmedNamesFromText(name.toStdString());
    if (names.empty())
        return QString();
    return QString::fromStdString(names.at(QRandomGenerator::global()->bounded(int(names.size()))));
}

} // namespace

QImage placeholderImage()
{
    static const QImage image = [] {
        QImage loaded(applicationImagePath(QStringLiteral("placeholder")));
        if (loaded.isNull()) {
            // The resources are compiled in; this only guards a broken build.
            loaded = QImage(64, 64, QImage::Format_ARGB32_Premultiplied);
            loaded.fill(QColor(255, 0, 255));
        }
        return loaded;
    }();
    return image;
}

QString applicationImagePath(const QString& name)
{
    if (!isPlainFileName(name))
        return QString();
    for (const char* extension : {"png", "jpg", "jpeg", "gif", "svg"}) {
        const QString file = name + QLatin1Char('.') + QLatin1String(extension);
        if (applicationImageFiles().contains(file))
            return applicationImagesRoot() + file;
    }
    return QString();
}

QString resolveImageName(const QString& name)
{
    if (!applicationImagePath(name).isEmpty())
        return name;
    for (const char* suffix : {"_000", "_01"}) {
        const QString candidate = name + QLatin1String(suffix);
        if (!applicationImagePath(candidate).isEmpty())
            return candidate;
    }
    return name;
}

std::optional<WorkspaceImage> loadImage(const QString& rawName, const std::optional<QString>& extension,
                                        tessaro::sceneObjectType kind, QSizeF size, ImageLoadOptions options)
{
    QString path;
    if (options.fullPath) {
        path = rawName;
    } else {
        QString name = rawName;
        if (name.isEmpty() && options.usePlaceholder)
            name = QStringLiteral("placeholder");
        name = pickFromList(name);
        if (isPlainFileName(name) && (!extension || isPlainFileName(*extension))) {
            path = workspaceImagePath(name, extension, kind);
            if (const std::optional<QString> folder = perNameImageFolder(name, kind))
                path = firstFileInDirectory(*folder).value_or(QString());
        } else if (!name.isEmpty()) {
            diagnosticLine(QStringLiteral("Image name is not a plain file name: ") + name);
        }
    }

    QImage image;
    if (!path.isEmpty())
        PermissionManager::shared().withAccess(accessLocation(path), [&] { image = readImageFile(path); });
    if (image.isNull()) {
        if (options.usePlaceholder)
            return placeholderResult(size, options.scaled);
        return std::nullopt;
    }
    return drawAt(image, size, options.scaled, path, false);
}

std::optional<WorkspaceImage> loadImagePreview(const QString& fullPath, bool scaled, QSizeF size)
{
    QImage image;
    const AccessResult access =
        PermissionManager::shared().withAccess(accessLocation(fullPath), [&] { image = readImageFile(fullPath); });
    if (!access) {
        diagnosticLine(QStringLiteral("loadNSImagePreview: ") +
                       (access.error ? QStringLiteral("the folder panel was closed without a choice")
                                     : QStringLiteral("no access to ") + workingSpacePath()));
        return std::nullopt;
    }
    if (image.isNull())
        return std::nullopt;
    return drawAt(image, size, scaled, fullPath, false);
}

std::optional<QImage> loadThumbnail(const QString& fullPath)
{
    QByteArray bytes;
    PermissionManager::shared().withAccess(accessLocation(fullPath), [&] {
        QFile file(fullPath);
        if (file.open(QIODevice::ReadOnly))
            bytes = file.readAll();
    });
    if (bytes.isEmpty())
        return std::nullopt;
    QImage image;
    if (!image.loadFromData(bytes))
        return std::nullopt;
    return image;
}

std::optional<QImage> loadThumbnail(const QString& name, const std::optional<QString>& extension,
                                    tessaro::sceneObjectType kind)
{
    if (!isPlainFileName(name) || (extension && !isPlainFileName(*extension)))
        return std::nullopt;
    return loadThumbnail(workspaceImagePath(name, extension, kind));
}

} // namespace stagewright
