#include "ImagePicker.h"

#include "Popover.h"

#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceImages.h>

#include <tessaro/model/Diagnostics.h>

#include <QAbstractButton>
#include <QDateTime>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QtConcurrent/QtConcurrentRun>

namespace stagewright {

namespace {

constexpr int cellImage = 60;
// The picture sits inside the cell's rounded border.
constexpr int cellSide = cellImage + 8;
constexpr int cellSpacing = 4;
constexpr int scrollBarRoom = 16;
constexpr int gridWidth = 5 * cellSide + 4 * cellSpacing + scrollBarRoom;
/// The widest name the button shows before it is cut short.
constexpr int maximumButtonText = 200;

/// The picture of `path` scaled to fit `box`; a null image and the picker's
/// diagnostic line when it cannot be read.
QImage decodeThumbnail(const QString& path, QSize box)
{
    const std::optional<WorkspaceImage> loaded = loadImagePreview(path, false);
    if (!loaded || loaded->image.isNull()) {
        const QString reason = QFileInfo::exists(path) ? QStringLiteral("the file is not an image it can read")
                                                       : QStringLiteral("the file does not exist");
        tessaro::diagnostic(
            (QStringLiteral("loadNSImagePreview: ") + reason + QStringLiteral(" (") + path + QLatin1Char(')'))
                .toStdString());
        return {};
    }
    return loaded->image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// Whether reading `path` might make the access gate ask for a folder, which
/// only the main thread may do. The gate tests the workspace, or the file's
/// own folder before there is one.
bool mayNeedGrant(const QString& path)
{
    const QString& workspace = workingSpacePath();
    const QFileInfo location(workspace.isEmpty() ? QFileInfo(path).absolutePath() : workspace);
    return !(location.exists() && location.isReadable() && location.isWritable());
}

QString cacheKey(const QString& path, QSize box)
{
    const QFileInfo file(path);
    const qint64 modified = file.exists() ? file.lastModified().toMSecsSinceEpoch() : -1;
    return path + QLatin1Char('|') + QString::number(box.width()) + QLatin1Char('x') + QString::number(box.height()) +
        QLatin1Char('|') + QString::number(modified);
}

qsizetype imageCost(const QImage& image)
{
    return std::max<qsizetype>(1, image.sizeInBytes());
}

/// A cell of the grid: the picture on a gray rounded background with a
/// gray border.
class ImageCell : public QAbstractButton {
public:
    ImageCell(const ImagePickerChoice& item, QWidget* parent) : QAbstractButton(parent)
    {
        setObjectName(QStringLiteral("imageCell"));
        setToolTip(item.name);
        setFixedSize(cellSide, cellSide);
        setCursor(Qt::PointingHandCursor);
        m_preview = new ImagePreview(QSize(cellImage, cellImage), this);
        m_preview->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_preview->move((cellSide - cellImage) / 2, (cellSide - cellImage) / 2);
        m_preview->setPath(item.picturePath);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor fill(Qt::gray);
        fill.setAlphaF(underMouse() ? 0.35 : 0.2);
        QColor border(Qt::gray);
        border.setAlphaF(0.5);
        painter.setBrush(fill);
        painter.setPen(QPen(border, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 10, 10);
    }
    void enterEvent(QEnterEvent* event) override
    {
        update();
        QAbstractButton::enterEvent(event);
    }
    void leaveEvent(QEvent* event) override
    {
        update();
        QAbstractButton::leaveEvent(event);
    }

private:
    ImagePreview* m_preview = nullptr;
};

} // namespace

std::vector<FileItem> imagesOfKind(const std::vector<FileItem>& items, tessaro::sceneObjectType kind)
{
    std::vector<FileItem> kept;
    for (const FileItem& item : items)
        if (item.sceneObjectType == kind)
            kept.push_back(item);
    return kept;
}

int gridColumns(int width, int minimum, int spacing)
{
    return std::max(1, (width + spacing) / (minimum + spacing));
}

// ---- Thumbnails ---------------------------------------------------------------------------------

ThumbnailCache& ThumbnailCache::instance()
{
    static ThumbnailCache* cache = new ThumbnailCache;
    return *cache;
}

QImage ThumbnailCache::request(const QString& path, QSize box, QObject* receiver,
                               std::function<void(const QImage&)> ready)
{
    const QString key = cacheKey(path, box);
    if (const QImage* cached = m_cache.object(key))
        return *cached;
    if (mayNeedGrant(path)) {
        // The gate may ask for a folder: read here, on the main thread.
        const QImage image = decodeThumbnail(path, box);
        m_cache.insert(key, new QImage(image), imageCost(image));
        return image;
    }
    auto waiting = m_waiting.find(key);
    const bool started = waiting != m_waiting.end();
    if (!started)
        waiting = m_waiting.insert(key, {});
    waiting->push_back({QPointer<QObject>(receiver), receiver != nullptr, std::move(ready)});
    if (started)
        return {};

    auto* watcher = new QFutureWatcher<QImage>(this);
    connect(watcher, &QFutureWatcher<QImage>::finished, this, [this, watcher, key] {
        deliver(key, watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run(decodeThumbnail, path, box));
    return {};
}

void ThumbnailCache::deliver(const QString& key, const QImage& image)
{
    m_cache.insert(key, new QImage(image), imageCost(image));
    const std::vector<waiter> waiters = m_waiting.take(key);
    for (const waiter& entry : waiters)
        if (entry.ready && (!entry.hasReceiver || entry.receiver))
            entry.ready(image);
}

void ThumbnailCache::clear()
{
    m_cache.clear();
}

ImagePreview::ImagePreview(QSize box, QWidget* parent) : QLabel(parent), m_box(box)
{
    setFixedSize(box);
    setAlignment(Qt::AlignCenter);
}

void ImagePreview::setPath(const QString& path)
{
    m_path = path;
    show(ThumbnailCache::instance().request(path, m_box, this, [this, path](const QImage& image) {
        if (m_path == path)
            show(image);
    }));
}

void ImagePreview::show(const QImage& image)
{
    m_image = image;
    setPixmap(image.isNull() ? QPixmap() : QPixmap::fromImage(image));
}

// ---- The picker -------------------------------------------------------------------------------

CustomImagePickerView::CustomImagePickerView(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    m_button = new QPushButton(this);
    m_button->setObjectName(QStringLiteral("imagePickerButton"));
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, &CustomImagePickerView::showPopover);
    setValue(QString());
}

void CustomImagePickerView::setItems(const std::vector<FileItem>& items)
{
    std::vector<ImagePickerChoice> choices;
    choices.reserve(items.size());
    for (const FileItem& item : items)
        choices.push_back({item.name, item.path()});
    setChoices(std::move(choices));
}

void CustomImagePickerView::setChoices(std::vector<ImagePickerChoice> choices)
{
    m_items = std::move(choices);
    if (m_popover)
        rebuildGrid();
}

QString CustomImagePickerView::value() const
{
    return m_value;
}

void CustomImagePickerView::setValue(const QString& name)
{
    m_value = name;
    // A long name is cut short on the button, whole in its tooltip, so that
    // it never widens the pane.
    const QString shown = name.isEmpty() ? tr("Choose an image") : name;
    m_button->setText(m_button->fontMetrics().elidedText(shown, Qt::ElideMiddle, maximumButtonText));
    m_button->setToolTip(m_button->text() != shown ? shown : QString());
}

bool CustomImagePickerView::isPopover() const
{
    return m_popover && m_popover->isVisible();
}

void CustomImagePickerView::showPopover()
{
    if (!m_popover) {
        m_popover = detail::makePopover(this);
        m_popover->setObjectName(QStringLiteral("imagePickerPopover"));
        auto* column = new QVBoxLayout(m_popover);
        column->setContentsMargins(4, 4, 4, 4);
        auto* scroll = new QScrollArea(m_popover);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setFixedWidth(gridWidth);
        m_grid = new QWidget;
        m_grid->setObjectName(QStringLiteral("imageGrid"));
        scroll->setWidget(m_grid);
        column->addWidget(scroll);
        rebuildGrid();
    }
    detail::showPopoverBelow(m_popover, m_button);
}

void CustomImagePickerView::rebuildGrid()
{
    delete m_grid->layout();
    for (QWidget* cell : m_grid->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        delete cell;
    auto* grid = new QGridLayout(m_grid);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(cellSpacing);
    const int columns = gridColumns(gridWidth - scrollBarRoom, cellSide, cellSpacing);
    int index = 0;
    for (const ImagePickerChoice& item : m_items) {
        auto* cell = new ImageCell(item, m_grid);
        const QString name = item.name;
        connect(cell, &QAbstractButton::clicked, this, [this, name] { choose(name); });
        grid->addWidget(cell, index / columns, index % columns);
        ++index;
    }
    grid->setRowStretch(grid->rowCount(), 1);
    grid->setColumnStretch(columns, 1);
    const int rows = (index + columns - 1) / columns;
    const int height = rows * cellSide + std::max(0, rows - 1) * cellSpacing;
    if (auto* scroll = qobject_cast<QScrollArea*>(m_grid->parentWidget()->parentWidget()))
        scroll->setFixedHeight(std::clamp(height + 2, cellSide + 2, 360));
}

void CustomImagePickerView::choose(const QString& name)
{
    m_popover->hide();
    setValue(name);
    emit imageChosen(name);
}

} // namespace stagewright
