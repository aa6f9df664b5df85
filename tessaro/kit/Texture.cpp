#include "Texture.h"

#include "Geometry.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace tessaro::kit {

// --- resources --------------------------------------------------------------------

namespace resources {

namespace {
QStringList& paths()
{
    static QStringList list;
    return list;
}
} // namespace

void setSearchPaths(const QStringList& folders)
{
    paths() = folders;
}

QStringList searchPaths()
{
    return paths();
}

const QStringList& imageExtensions()
{
    static const QStringList exts{QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
                                  QStringLiteral("gif"), QStringLiteral("svg")};
    return exts;
}

QString locate(const QString& name, const QStringList& extensions)
{
    if (name.isEmpty())
        return {};
    auto tryBase = [&](const QString& base) -> QString {
        QFileInfo direct(base);
        if (direct.isFile())
            return direct.absoluteFilePath();
        for (const QString& ext : extensions) {
            QFileInfo withExt(base + QLatin1Char('.') + ext);
            if (withExt.isFile())
                return withExt.absoluteFilePath();
        }
        for (const QString& ext : extensions) {
            QFileInfo retina(base + QStringLiteral("@2x.") + ext);
            if (retina.isFile())
                return retina.absoluteFilePath();
        }
        return {};
    };
    if (QFileInfo(name).isAbsolute())
        return tryBase(name);
    for (const QString& folder : paths()) {
        const QString found = tryBase(QDir(folder).filePath(name));
        if (!found.isEmpty())
            return found;
    }
    return {};
}

} // namespace resources

// --- textures ---------------------------------------------------------------------

namespace {

qreal scaleFromFileName(const QString& path)
{
    const QString base = QFileInfo(path).completeBaseName();
    if (base.endsWith(QLatin1String("@3x")))
        return 3;
    if (base.endsWith(QLatin1String("@2x")))
        return 2;
    return 1;
}

QImage placeholderImage()
{
    static const QImage image = [] {
        const int n = 128;
        QImage img(n, n, QImage::Format_ARGB32_Premultiplied);
        img.fill(Qt::white);
        const QRgb red = qRgb(220, 0, 0);
        for (int y = 0; y < n; ++y) {
            auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
            for (int x = 0; x < n; ++x) {
                const bool border = x < 3 || y < 3 || x >= n - 3 || y >= n - 3;
                const bool cross = std::abs(x - y) <= 2 || std::abs(x + y - (n - 1)) <= 2;
                if (border || cross)
                    line[x] = red;
            }
        }
        return img;
    }();
    return image;
}

std::map<QString, std::weak_ptr<Texture>>& fileCache()
{
    static std::map<QString, std::weak_ptr<Texture>> cache;
    return cache;
}

} // namespace

Texture::Texture() = default;
Texture::~Texture() = default;

TexturePtr Texture::fromFile(const QString& path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    if (image.isNull()) {
        qWarning().noquote() << "kit: cannot read image" << path << ":" << reader.errorString();
        return nullptr;
    }
    auto texture = fromImage(image, scaleFromFileName(path));
    texture->m_name = QFileInfo(path).completeBaseName();
    return texture;
}

TexturePtr Texture::fromImage(const QImage& image, qreal scale)
{
    auto texture = std::make_shared<Texture>();
    texture->m_image = image.isNull() ? QImage() : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    texture->m_imageReady = true;
    texture->m_scale = scale > 0 ? scale : 1;
    texture->m_size = QSizeF(texture->m_image.width() / texture->m_scale, texture->m_image.height() / texture->m_scale);
    return texture;
}

TexturePtr Texture::fromRect(const QRectF& unitRect, const TexturePtr& source)
{
    if (!source)
        return nullptr;
    auto texture = std::make_shared<Texture>();
    const QRectF r = unitRect.normalized().intersected(QRectF(0, 0, 1, 1));
    texture->m_source = source;
    texture->m_unitRect = r;
    texture->m_scale = source->m_scale;
    texture->m_name = source->m_name;
    texture->m_filtering = source->m_filtering;
    texture->m_size = QSizeF(source->size().width() * r.width(), source->size().height() * r.height());
    return texture;
}

TexturePtr Texture::placeholder()
{
    auto texture = fromImage(placeholderImage());
    texture->m_placeholder = true;
    return texture;
}

TexturePtr Texture::textureWithImageNamed(const QString& name)
{
    const QString path = resources::locate(name, resources::imageExtensions());
    if (!path.isEmpty()) {
        auto& cache = fileCache();
        auto it = cache.find(path);
        if (it != cache.end())
            if (auto alive = it->second.lock())
                return alive;
        if (auto texture = fromFile(path)) {
            cache[path] = texture;
            return texture;
        }
    }
    auto texture = placeholder();
    texture->m_name = name;
    return texture;
}

const QImage& Texture::image() const
{
    if (!m_imageReady) {
        m_imageReady = true;
        if (m_source) {
            const QImage& src = m_source->image();
            const qreal w = src.width(), h = src.height();
            // Unit rectangles count y from the bottom; image rows from the top.
            const QRect px(int(std::lround(m_unitRect.x() * w)),
                           int(std::lround((1.0 - m_unitRect.y() - m_unitRect.height()) * h)),
                           int(std::lround(m_unitRect.width() * w)), int(std::lround(m_unitRect.height() * h)));
            m_image = src.copy(px);
        }
    }
    return m_image;
}

std::shared_ptr<const std::vector<std::vector<QPointF>>> Texture::alphaOutline(float alphaThreshold) const
{
    auto it = m_outlines.find(alphaThreshold);
    if (it != m_outlines.end())
        return it->second;

    auto result = std::make_shared<std::vector<std::vector<QPointF>>>();
    QImage img = image();
    if (!img.isNull()) {
        // Large pictures are traced at a reduced size: a body needs no more.
        constexpr int kMaxTraceSize = 256;
        if (std::max(img.width(), img.height()) > kMaxTraceSize)
            img = img.scaled(kMaxTraceSize, kMaxTraceSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        const qreal w = img.width(), h = img.height();
        for (auto& piece : geometry::alphaOutlinePieces(img, alphaThreshold)) {
            for (QPointF& p : piece)
                p = QPointF(p.x() / w, p.y() / h);
            result->push_back(std::move(piece));
        }
    }
    m_outlines[alphaThreshold] = result;
    return result;
}

// --- atlases ----------------------------------------------------------------------

std::shared_ptr<TextureAtlas> TextureAtlas::atlasWithFolder(const QString& folder)
{
    auto atlas = std::make_shared<TextureAtlas>();
    QDir dir(folder);
    if (!dir.exists())
        return atlas;
    atlas->m_folder = dir.absolutePath();
    QStringList filters;
    for (const QString& ext : resources::imageExtensions())
        filters << QStringLiteral("*.") + ext << QStringLiteral("*.") + ext.toUpper();
    const QStringList files = dir.entryList(filters, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        // A retina frame is listed only when there is no plain one.
        const QFileInfo info(file);
        const QString base = info.completeBaseName();
        if (base.endsWith(QLatin1String("@2x")) || base.endsWith(QLatin1String("@3x"))) {
            const QString plain = base.left(base.size() - 3) + QLatin1Char('.') + info.suffix();
            if (files.contains(plain))
                continue;
        }
        atlas->m_names << file;
    }
    return atlas;
}

std::shared_ptr<TextureAtlas> TextureAtlas::atlasNamed(const QString& name)
{
    if (name.isEmpty())
        return std::make_shared<TextureAtlas>();
    const QString folderName = name.endsWith(QLatin1String(".atlas")) ? name : name + QStringLiteral(".atlas");
    if (QFileInfo(folderName).isAbsolute())
        return atlasWithFolder(folderName);
    for (const QString& path : resources::searchPaths()) {
        const QString candidate = QDir(path).filePath(folderName);
        if (QFileInfo(candidate).isDir())
            return atlasWithFolder(candidate);
    }
    return std::make_shared<TextureAtlas>();
}

TexturePtr TextureAtlas::textureNamed(const QString& name) const
{
    QString file;
    for (const QString& entry : m_names) {
        if (entry == name || QFileInfo(entry).completeBaseName() == name) {
            file = entry;
            break;
        }
    }
    if (file.isEmpty())
        return Texture::placeholder();
    auto cached = m_loaded.find(file);
    if (cached != m_loaded.end())
        return cached->second;
    TexturePtr texture = Texture::fromFile(QDir(m_folder).filePath(file));
    if (!texture)
        texture = Texture::placeholder();
    m_loaded[file] = texture;
    return texture;
}

std::vector<TexturePtr> TextureAtlas::texturesOrImage(const QString& name)
{
    auto atlas = atlasNamed(name);
    QStringList names = atlas->textureNames();
    names.sort();
    if (names.isEmpty() || names.first().isEmpty())
        return {Texture::textureWithImageNamed(name)};
    std::vector<TexturePtr> list;
    list.reserve(size_t(names.size()));
    for (const QString& n : names)
        list.push_back(atlas->textureNamed(n));
    return list;
}

// --- cache ------------------------------------------------------------------------

std::vector<TexturePtr> TextureCache::textures(const QString& name)
{
    auto it = m_entries.find(name);
    if (it != m_entries.end())
        return it->second;
    auto list = TextureAtlas::texturesOrImage(name);
    m_entries[name] = list;
    return list;
}

void TextureCache::preload(const QString& name)
{
    if (contains(name))
        return;
    auto atlas = TextureAtlas::atlasNamed(name);
    QStringList names = atlas->textureNames();
    names.sort();
    if (names.isEmpty())
        return;
    std::vector<TexturePtr> list;
    for (const QString& n : names)
        list.push_back(atlas->textureNamed(n));
    m_entries[name] = std::move(list);
}

TextureLookup TextureCache::lookup()
{
    return [this](const QString& name) { return textures(name); };
}

} // namespace tessaro::kit
