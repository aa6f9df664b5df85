#include "ScenePictures.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceImages.h>

#include <tessaro/layout/ImageNames.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/NameLists.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace stagewright {

namespace {

void diagnosticLine(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

qint64 modificationStamp(const QString& path)
{
    if (path.isEmpty())
        return -1;
    const QFileInfo info(path);
    return info.exists() ? info.lastModified().toMSecsSinceEpoch() : -1;
}

/// The largest picture side we compose, in pixels; longer pictures keep fewer
/// pixels per point.
constexpr double kMaxPictureSide = 16384;

QImage transparentImage(QSize pixels)
{
    QImage image(pixels.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QSize pixelsFor(QSizeF points, double density)
{
    return QSize(std::max(1, int(std::lround(points.width() * density))),
                 std::max(1, int(std::lround(points.height() * density))));
}

/// Keeps a picture of `points` at `density` within the side limit.
double limitedDensity(QSizeF points, double density)
{
    const double side = std::max(points.width(), points.height());
    if (side * density > kMaxPictureSide)
        density = kMaxPictureSide / side;
    return std::max(density, 1e-3);
}

QImage standInImage(const QString& name)
{
    const int side = name == QLatin1String("snapto") ? 80 : 100;
    QImage image = transparentImage(QSize(side, side));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (name == QLatin1String("snapto")) {
        painter.setPen(QPen(QColor(255, 255, 255), 6));
        painter.setBrush(QColor(30, 160, 80, 220));
        painter.drawEllipse(QRectF(6, 6, side - 12, side - 12));
        painter.setBrush(QColor(255, 255, 255));
        painter.drawEllipse(QRectF(side / 2.0 - 10, side / 2.0 - 10, 20, 20));
        return image;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 40, 40, 170));
    painter.drawRoundedRect(QRectF(4, 4, side - 8, side - 8), 18, 18);
    // An arrow pointing right, turned to the button's direction.
    QPainterPath arrow;
    arrow.moveTo(-18, -26);
    arrow.lineTo(24, 0);
    arrow.lineTo(-18, 26);
    arrow.closeSubpath();
    qreal turn = 0;
    if (name == QLatin1String("NavLeft"))
        turn = 180;
    else if (name == QLatin1String("NavTop"))
        turn = -90;
    else if (name == QLatin1String("NavBottom"))
        turn = 90;
    painter.translate(side / 2.0, side / 2.0);
    painter.rotate(turn);
    painter.setBrush(QColor(255, 255, 255));
    painter.drawPath(arrow);
    return image;
}

} // namespace

double workspaceImageScale()
{
    return tessaro::layout::pixelsPerPoint(tessaro::globalAppConfig().base.defaultImageScale);
}

QString firstImageName(const std::string& imageText)
{
    if (imageText.find(',') == std::string::npos)
        return QString::fromStdString(imageText);
    const std::vector<std::string> names = tessaro::trimmedNamesFromText(imageText);
    return names.empty() ? QString() : QString::fromStdString(names.front());
}

// ---- Workspace images ------------------------------------------------------------

SceneImageCache& SceneImageCache::shared()
{
    static SceneImageCache cache;
    return cache;
}

void SceneImageCache::clear()
{
    m_entries.clear();
}

ScenePicture SceneImageCache::picture(tessaro::sceneObjectType kind, const QString& name)
{
    const Key key{workingSpacePath(), int(kind), name, workspaceImageScale()};
    // A file is looked at again at most once a second: loading a level asks
    // for the same few pictures thousands of times.
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    const qint64 now = clock.elapsed() + 1;
    const auto found = m_entries.find(key);
    if (found != m_entries.end()) {
        Entry& entry = found->second;
        if (now - entry.checkedAt < 1000)
            return entry.picture;
        if (modificationStamp(entry.checkedPath) == entry.stamp) {
            entry.checkedAt = now;
            return entry.picture;
        }
    }
    Entry entry;
    entry.picture = load(kind, name, entry);
    entry.checkedAt = now;
    return (m_entries[key] = std::move(entry)).picture;
}

tessaro::kit::TexturePtr SceneImageCache::placeholderTexture(tessaro::sceneObjectType kind)
{
    const QString name = QStringLiteral("placeholder");
    return picture(kind, name).texture;
}

ScenePicture SceneImageCache::load(tessaro::sceneObjectType kind, const QString& name, Entry& entry)
{
    const bool isPlaceholder = name == QLatin1String("placeholder");
    const QString folder =
        isPlaceholder ? QStringLiteral("Extras") : QString::fromLatin1(tessaro::imageFolderName(kind));
    const auto fallback = [&](const QString& why) {
        diagnosticLine(why +
                       (isPlaceholder ? QStringLiteral(", showing the application's placeholder")
                                      : QStringLiteral(", showing the placeholder")));
        ScenePicture result;
        result.texture = isPlaceholder ? tessaro::kit::Texture::fromImage(placeholderImage(), workspaceImageScale())
                                       : placeholderTexture(kind);
        return result;
    };

    if (name.isEmpty())
        return fallback(QStringLiteral("An element of the image folder ") + folder + QStringLiteral(" names no image"));
    if (!isPlainFileName(name))
        return fallback(QStringLiteral("Image name is not a plain file name: \"") + name + QLatin1Char('"'));

    QString path = workspaceImagePath(name, std::nullopt, kind);
    if (const std::optional<QString> perName = perNameImageFolder(name, kind))
        if (const std::optional<QString> first = firstFileInDirectory(*perName))
            path = *first;
    entry.checkedPath = path;
    entry.stamp = modificationStamp(path);
    if (entry.stamp < 0)
        return fallback(QStringLiteral("Image not found: \"") + name + QStringLiteral("\" in ") + path);

    QImage image;
    QString error;
    const QString& workspace = workingSpacePath();
    const AccessResult access =
        PermissionManager::shared().withAccess(workspace.isEmpty() ? QFileInfo(path).absolutePath() : workspace, [&] {
            QImageReader reader(path);
            reader.setAutoTransform(true);
            image = reader.read();
            if (image.isNull())
                error = reader.errorString();
        });
    if (!access)
        error = QStringLiteral("no access to ") + path;
    if (image.isNull()) {
        diagnosticLine(QStringLiteral("Loading image error: ") + error + QStringLiteral(" (") + path +
                       QLatin1Char(')'));
        ScenePicture result;
        result.texture = isPlaceholder ? tessaro::kit::Texture::fromImage(placeholderImage(), workspaceImageScale())
                                       : placeholderTexture(kind);
        return result;
    }
    ScenePicture result;
    result.texture = tessaro::kit::Texture::fromImage(image, workspaceImageScale());
    result.found = true;
    return result;
}

// ---- Composed pictures ------------------------------------------------------------------

ComposedPictureCache& ComposedPictureCache::shared()
{
    static ComposedPictureCache cache;
    return cache;
}

ComposedTexture ComposedPictureCache::picture(const QString& recipe,
                                              const std::vector<tessaro::kit::TexturePtr>& sources,
                                              const std::function<ComposedTexture()>& compose)
{
    QString key = recipe;
    for (const tessaro::kit::TexturePtr& source : sources)
        key += QLatin1Char('|') + QString::number(quintptr(source.get()), 16);
    ++m_clock;
    if (const auto found = m_entries.find(key); found != m_entries.end()) {
        found->second.lastUse = m_clock;
        return found->second.picture;
    }
    // Keep the pictures of a few large levels; forget the least recently used.
    constexpr std::size_t kMostEntries = 256;
    if (m_entries.size() >= kMostEntries) {
        auto oldest = m_entries.begin();
        for (auto it = m_entries.begin(); it != m_entries.end(); ++it)
            if (it->second.lastUse < oldest->second.lastUse)
                oldest = it;
        m_entries.erase(oldest);
    }
    Entry entry{sources, compose(), m_clock};
    return (m_entries[key] = std::move(entry)).picture;
}

// ---- Application images ------------------------------------------------------------

tessaro::kit::TexturePtr applicationTexture(const QString& name)
{
    static std::map<QString, tessaro::kit::TexturePtr> textures;
    auto& texture = textures[name];
    if (!texture) {
        const QString path = applicationImagePath(resolveImageName(name));
        if (!path.isEmpty())
            texture = tessaro::kit::Texture::fromFile(path);
        if (!texture)
            texture = tessaro::kit::Texture::fromImage(standInImage(name), 2);
    }
    return texture;
}

// ---- Composition -----------------------------------------------------------------------

ComposedPicture pictureOf(const tessaro::kit::TexturePtr& texture, QSizeF size)
{
    ComposedPicture picture;
    if (!texture)
        return picture;
    if (size.isEmpty())
        size = texture->size();
    if (size.isEmpty())
        return picture;
    const QImage& source = texture->image();
    const double sourceDensity = texture->size().width() > 0 ? source.width() / texture->size().width() : 1.0;
    const double density = limitedDensity(size, std::max(1.0, sourceDensity));
    const QSize pixels = pixelsFor(size, density);
    picture.size = size;
    if (source.size() == pixels) {
        picture.image = source;
    } else if (source.isNull()) {
        picture.image = transparentImage(pixels);
    } else {
        picture.image = source.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return picture;
}

ComposedPicture joinStacked(const ComposedPicture& a, const ComposedPicture& b)
{
    ComposedPicture result;
    result.size = QSizeF(a.size.width(), a.size.height() + b.size.height());
    if (result.size.isEmpty())
        return result;
    const double density = limitedDensity(result.size, std::min(a.density(), b.density()));
    result.image = transparentImage(pixelsFor(result.size, density));
    QPainter painter(&result.image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!a.image.isNull())
        painter.drawImage(QRectF(0, 0, b.size.width() * density, a.size.height() * density), a.image);
    if (!b.image.isNull())
        painter.drawImage(QRectF(0, a.size.height() * density, b.size.width() * density, b.size.height() * density),
                          b.image);
    return result;
}

ComposedPicture repeatSideBySide(const ComposedPicture& unit, int count)
{
    if (count <= 1 || unit.isEmpty())
        return unit;
    ComposedPicture result;
    result.size = QSizeF(unit.size.width() * count, unit.size.height());
    const double density = limitedDensity(result.size, unit.density());
    result.image = transparentImage(pixelsFor(result.size, density));
    const QImage tile = density == unit.density()
        ? unit.image
        : unit.image.scaled(pixelsFor(unit.size, density), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&result.image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double step = unit.size.width() * density;
    for (int i = 0; i < count; ++i) {
        const double left = std::round(i * step);
        const double right = std::round((i + 1) * step);
        painter.drawImage(QRectF(left, 0, right - left, result.image.height()), tile);
    }
    return result;
}

tessaro::kit::TexturePtr textureOf(const ComposedPicture& picture)
{
    if (picture.image.isNull())
        return tessaro::kit::Texture::fromImage(QImage());
    return tessaro::kit::Texture::fromImage(picture.image, picture.density());
}

} // namespace stagewright
