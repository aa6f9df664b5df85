// Choosing an image of the workspace: a button with the current name opens a
// grid of thumbnails of the images of one folder. Thumbnails are decoded off
// the main thread and kept, so the window never waits for a picture.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <QImage>
#include <QLabel>
#include <QWidget>

#include <functional>
#include <vector>

namespace stagewright {

/// Pictures of files scaled into a box, decoded on worker threads and cached
/// by path, size and modification time. A failure prints the line
/// "loadNSImagePreview: " with the reason and gives a null image.
class ThumbnailCache : public QObject {
    Q_OBJECT
public:
    static ThumbnailCache& instance();
    /// The cached picture, or a null image while it is being decoded; `ready`
    /// is called on the main thread with the picture once it is there.
    QImage request(const QString& path, QSize box, QObject* receiver, std::function<void(const QImage&)> ready);
};

/// A picture of one file, kept within `box`, filled in when decoded.
class ImagePreview : public QLabel {
    Q_OBJECT
public:
    explicit ImagePreview(QSize box, QWidget* parent = nullptr);
    void setPath(const QString& path);
};

/// The image row's control: the name as a button and the popup grid.
class CustomImagePickerView : public QWidget {
    Q_OBJECT
public:
    explicit CustomImagePickerView(QWidget* parent = nullptr);
    /// The images offered, already limited to one folder.
    void setItems(std::vector<fileItem> items);
    QString value() const;
    void setValue(const QString& name);
    /// Opens the popup grid (for the keyboard and for tests).
    void showPopover();
signals:
    void imageChosen(const QString& name);
};

} // namespace stagewright
