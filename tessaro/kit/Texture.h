// Textures, texture atlases, and the resource search paths through which
// images and sounds are found by name.
//
// A texture's size is in points: pixels divided by its scale. A file whose
// base name ends in "@2x" or "@3x" has the scale 2 or 3; every other image
// has the scale 1. Images are kept as premultiplied ARGB32 for drawing.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace tessaro::kit {

class Texture;
using TexturePtr = std::shared_ptr<Texture>;

/// Where images, atlases and sounds are looked up by name, in order; the
/// kit's stand-in for a game's bundle. Names may also be absolute paths.
namespace resources {
void setSearchPaths(const QStringList& folders);
QStringList searchPaths();
/// The first existing file `name` or `name` + "." + one of `extensions`
/// (tried in order) under the search paths; empty when none.
QString locate(const QString& name, const QStringList& extensions);
/// The image extensions tried for a bare name: png, jpg, jpeg, gif, svg.
const QStringList& imageExtensions();
} // namespace resources

class Texture : public std::enable_shared_from_this<Texture> {
public:
    enum class Filtering { Nearest, Linear };

    /// Use the static constructors.
    Texture();
    ~Texture();

    /// A texture from an image file (PNG, JPEG, GIF, SVG); null when the file
    /// cannot be read.
    static TexturePtr fromFile(const QString& path);
    /// A texture from an image in memory, at `scale` pixels per point.
    static TexturePtr fromImage(const QImage& image, qreal scale = 1.0);
    /// A texture showing `rect` of `source`, in unit coordinates of the source
    /// (0..1, origin at the bottom left, y up).
    static TexturePtr fromRect(const QRectF& unitRect, const TexturePtr& source);
    /// The texture of the image named `name` under the resource search paths
    /// (with or without extension). A missing image gives the placeholder
    /// texture: 128 by 128 points, white with a red cross, isPlaceholder true.
    static TexturePtr textureWithImageNamed(const QString& name);
    /// The placeholder texture shown for missing images.
    static TexturePtr placeholder();

    /// Size in points.
    QSizeF size() const { return m_size; }
    /// The pixels, cropped for a sub-texture; premultiplied ARGB32. May be null.
    const QImage& image() const;
    /// Pixels per point.
    qreal scale() const { return m_scale; }
    /// The file or image name the texture came from, if any.
    const QString& name() const { return m_name; }
    bool isNull() const { return image().isNull(); }
    bool isPlaceholder() const { return m_placeholder; }
    /// The unit rectangle of the source for a sub-texture; (0,0,1,1) otherwise.
    QRectF textureRect() const { return m_unitRect; }

    Filtering filteringMode() const { return m_filtering; }
    void setFilteringMode(Filtering f) { m_filtering = f; }

    /// The alpha outline of the texture as convex polygons of at most eight
    /// vertices, in unit coordinates of the texture (0..1, y down, as pixels).
    /// Computed once per threshold and kept.
    std::shared_ptr<const std::vector<std::vector<QPointF>>> alphaOutline(float alphaThreshold) const;

private:
    QString m_name;
    QSizeF m_size;
    qreal m_scale = 1;
    QRectF m_unitRect{0, 0, 1, 1};
    bool m_placeholder = false;
    Filtering m_filtering = Filtering::Linear;
    TexturePtr m_source; // for sub-textures
    mutable QImage m_image; // cropped lazily for sub-textures
    mutable bool m_imageReady = false;
    mutable std::map<float, std::shared_ptr<const std::vector<std::vector<QPointF>>>> m_outlines;
};

/// A folder "NAME.atlas" of frame images, found under the resource search
/// paths (or given as a path).
class TextureAtlas {
public:
    /// The atlas named `name`; an atlas with no frames when no folder exists.
    static std::shared_ptr<TextureAtlas> atlasNamed(const QString& name);
    /// The atlas in `folder`.
    static std::shared_ptr<TextureAtlas> atlasWithFolder(const QString& folder);

    /// The frame file names (with extension), in the order of the folder
    /// listing; callers sort them when they want frame order.
    QStringList textureNames() const { return m_names; }
    /// The frame `name`, with or without extension; the placeholder when the
    /// atlas has no such frame.
    TexturePtr textureNamed(const QString& name) const;
    QString folder() const { return m_folder; }

    /// The textures of atlas `name` in ascending name order, or when there is
    /// no atlas (or its first sorted name is empty) the single texture of the
    /// image `name`. Never empty.
    static std::vector<TexturePtr> texturesOrImage(const QString& name);

private:
    QString m_folder;
    QStringList m_names;
    mutable std::map<QString, TexturePtr> m_loaded;
};

/// Looks textures up by atlas or image name; the game scene's cache provides
/// one of these to the action builders.
using TextureLookup = std::function<std::vector<TexturePtr>(const QString& name)>;

/// A simple name-to-textures cache over TextureAtlas::texturesOrImage.
class TextureCache {
public:
    /// The cached list, loading it on a miss. Never empty.
    std::vector<TexturePtr> textures(const QString& name);
    /// Loads an atlas into the cache when it has frames; no image fall-back.
    void preload(const QString& name);
    bool contains(const QString& name) const { return m_entries.count(name) != 0; }
    void clear() { m_entries.clear(); }
    /// A lookup function bound to this cache (which must outlive it).
    TextureLookup lookup();

private:
    std::map<QString, std::vector<TexturePtr>> m_entries;
};

} // namespace tessaro::kit
