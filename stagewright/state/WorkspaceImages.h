// Images of the workspace, decoded for the canvas, the pickers and the
// physics editor. The only part of the state library that uses QtGui.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <QImage>
#include <QSizeF>
#include <QString>

#include <optional>

namespace stagewright {

struct ImageLoadOptions {
    bool usePlaceholder = false; // empty name means "placeholder"; a failure gives the application's placeholder
    bool scaled = false; // divide the size by the workspace's image scale
    bool fullPath = false; // the name is a full path
};

struct WorkspaceImage {
    QImage image; // drawn at `size`, rounded to whole pixels
    QSizeF size; // the size in scene points
    QString path; // the file read, or the placeholder's resource path
    bool isPlaceholder = false;
};

/// An image of the workspace by the name a level stores. A comma list names
/// one of several images, taken at random. A folder of per-name images gives
/// its first file. The size is the given one, or the image's own pixel size;
/// with `scaled`, x2 halves it and x3 divides it by 3.
std::optional<WorkspaceImage> loadImage(const QString& name, const std::optional<QString>& extension,
                                        tessaro::sceneObjectType kind, QSizeF size = {}, ImageLoadOptions options = {});

/// An image from a full path, read under access to the workspace; none and the
/// line "loadNSImagePreview: ..." when access is refused.
std::optional<WorkspaceImage> loadImagePreview(const QString& fullPath, bool scaled, QSizeF size = {});

/// A picker thumbnail at the image's own size; none on any failure.
std::optional<QImage> loadThumbnail(const QString& name, const std::optional<QString>& extension,
                                    tessaro::sceneObjectType kind);
std::optional<QImage> loadThumbnail(const QString& fullPath);

/// The application's placeholder picture.
QImage placeholderImage();

/// For the application's own images: the name if there is such an image,
/// else name + "_000", else name + "_01", else the name.
QString resolveImageName(const QString& name);
/// The resource path of an application image, or empty when there is none.
QString applicationImagePath(const QString& name);

} // namespace stagewright
