// Pictures of the canvas: workspace images as textures, the application's own
// small images, and the composition of ground pictures from tiles.
#pragma once

#include <tessaro/kit/Texture.h>
#include <tessaro/model/Enumerations.h>

#include <QImage>
#include <QSizeF>
#include <QString>

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace stagewright {

/// How many pixels of an image file make one scene point in the current
/// workspace: 2 for x2, 3 for x3, else 1.
double workspaceImageScale();

/// The name a node shows of an image text: the first piece of a comma list
/// (empty pieces dropped), or the whole text.
QString firstImageName(const std::string& imageText);

/// One workspace image as the canvas draws it.
struct ScenePicture {
    tessaro::kit::TexturePtr texture; // never null; its size is the natural size in points
    bool found = false; // the named image itself was read
};

/// Textures of workspace images by kind and name. An image is read once and
/// kept while its file stays the same, so a level of many elements of a few
/// kinds reads each file once. A name without a file shows the workspace's
/// "placeholder" (else the application's), and says so once in a diagnostic
/// line; a file that cannot be decoded gives the line "Loading image error: "
/// and the placeholder too.
class SceneImageCache {
public:
    static SceneImageCache& shared();

    /// The picture of `name` (one name, not a list) in the image folder of `kind`.
    ScenePicture picture(tessaro::sceneObjectType kind, const QString& name);
    /// Forgets every picture (a new workspace, or tests).
    void clear();
    /// Number of pictures held.
    std::size_t size() const { return m_entries.size(); }

private:
    struct Entry {
        ScenePicture picture;
        QString checkedPath; // the file whose change makes the entry stale
        qint64 stamp = -1; // its modification time in ms, -1 when missing
        qint64 checkedAt = 0; // when the file was last looked at, ms of the cache's clock
    };
    using Key = std::tuple<QString, int, QString, double>; // workspace, kind, name, image scale
    ScenePicture load(tessaro::sceneObjectType kind, const QString& name, Entry& entry);
    tessaro::kit::TexturePtr placeholderTexture(tessaro::sceneObjectType kind);

    std::map<Key, Entry> m_entries;
};

/// Composed pictures by what they were composed of, so a level that is
/// loaded again, or that repeats a section, composes it once. The key names
/// the source textures, which change when their files do.
struct ComposedTexture {
    tessaro::kit::TexturePtr texture;
    QSizeF size{0, 0}; // points
};
class ComposedPictureCache {
public:
    static ComposedPictureCache& shared();
    /// The picture cached under `recipe` and `sources`, made by `compose` on a miss.
    ComposedTexture picture(const QString& recipe, const std::vector<tessaro::kit::TexturePtr>& sources,
                            const std::function<ComposedTexture()>& compose);
    void clear() { m_entries.clear(); }

private:
    struct Entry {
        std::vector<tessaro::kit::TexturePtr> sources; // held, so their addresses stay unique
        ComposedTexture picture;
        quint64 lastUse = 0;
    };
    std::map<QString, Entry> m_entries;
    quint64 m_clock = 0;
};

/// An application image ("NavLeft", "snapto", ...): the resource image when the
/// application carries one, else a drawn stand-in of the same meaning.
tessaro::kit::TexturePtr applicationTexture(const QString& name);

/// A picture under composition: pixels and the size in points they stand for.
struct ComposedPicture {
    QImage image; // premultiplied ARGB32; null for the empty picture
    QSizeF size{0, 0}; // points
    bool isEmpty() const { return image.isNull() || size.isEmpty(); }
    double density() const { return size.width() > 0 ? image.width() / size.width() : 1.0; }
};

/// The picture of a texture drawn at `size` points, or at the texture's own
/// size when `size` is empty.
ComposedPicture pictureOf(const tessaro::kit::TexturePtr& texture, QSizeF size);
/// A picture of a's width and height a.h + b.h: a above b, each drawn at b's
/// width from the left edge.
ComposedPicture joinStacked(const ComposedPicture& a, const ComposedPicture& b);
/// `count` copies of `unit` side by side; the same picture as joining them
/// one by one, made in one pass. Very long rows keep fewer pixels per point.
ComposedPicture repeatSideBySide(const ComposedPicture& unit, int count);
/// A texture of the picture whose size is the picture's size in points.
tessaro::kit::TexturePtr textureOf(const ComposedPicture& picture);

} // namespace stagewright
