// Choosing an image of the workspace: a button with the current name opens a
// grid of thumbnails of the images of one folder. Thumbnails are decoded off
// the main thread and kept, so the window never waits for a picture.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <QCache>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QFrame;
class QGridLayout;
class QPushButton;

namespace stagewright {

/// The images of `kind` among `items` (the workspace's image list), in order.
std::vector<FileItem> imagesOfKind(const std::vector<FileItem>& items, tessaro::sceneObjectType kind);
/// How many columns of cells at least `minimum` wide, `spacing` apart, fit
/// into `width`; at least one.
int gridColumns(int width, int minimum = 60, int spacing = 4);

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
    /// Decodes under way.
    int pending() const { return int(m_waiting.size()); }
    /// Forgets every picture.
    void clear();

private:
    struct waiter {
        QPointer<QObject> receiver;
        bool hasReceiver = false;
        std::function<void(const QImage&)> ready;
    };
    void deliver(const QString& key, const QImage& image);

    QCache<QString, QImage> m_cache{64 * 1024 * 1024};
    QHash<QString, std::vector<waiter>> m_waiting;
};

/// A picture of one file, kept within `box`, filled in when decoded.
class ImagePreview : public QLabel {
    Q_OBJECT
public:
    explicit ImagePreview(QSize box, QWidget* parent = nullptr);
    void setPath(const QString& path);
    const QString& path() const { return m_path; }
    /// The picture shown; null while it is decoded or when it failed.
    QImage image() const { return m_image; }

private:
    void show(const QImage& image);

    QSize m_box;
    QString m_path;
    QImage m_image;
};

/// A cell of the picker's grid: the name it chooses and the file of its picture.
struct ImagePickerChoice {
    QString name;
    QString picturePath;
};

/// The image row's control: the name as a button and the popup grid.
class CustomImagePickerView : public QWidget {
    Q_OBJECT
public:
    explicit CustomImagePickerView(QWidget* parent = nullptr);
    /// The images offered, already limited to one folder.
    void setItems(const std::vector<FileItem>& items);
    /// Names offered with a picture each, which need not be files of their own.
    void setChoices(std::vector<ImagePickerChoice> choices);
    const std::vector<ImagePickerChoice>& choices() const { return m_items; }
    QString value() const;
    void setValue(const QString& name);
    /// Opens the popup grid (for the keyboard and for tests).
    void showPopover();
    bool isPopover() const;
signals:
    /// The user clicked the image `name` in the grid.
    void imageChosen(const QString& name);

private:
    void rebuildGrid();
    void choose(const QString& name);

    std::vector<ImagePickerChoice> m_items;
    QString m_value;
    QPushButton* m_button = nullptr;
    QFrame* m_popover = nullptr;
    QWidget* m_grid = nullptr;
};

} // namespace stagewright
