#include "PhysicsSidePanel.h"

#include "PhysicsSession.h"
#include "PhysicsShapeRow.h"

#include <stagewright/state/WorkspaceImages.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

constexpr int thumbnailSide = 90;

/// Empties a layout. Its widgets go once the event that changed them is
/// over: the button being clicked may be one of them.
void clear(QLayout* layout)
{
    while (QLayoutItem* item = layout->takeAt(0)) {
        if (QWidget* widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete item;
    }
}

QWidget* thumbnail(ImagePhysicsSession& session, int index, QWidget* parent)
{
    auto* cell = new QWidget(parent);
    cell->setFixedSize(thumbnailSide, thumbnailSide);
    auto* picture = new QToolButton(cell);
    picture->setObjectName(QStringLiteral("frame%1").arg(index));
    picture->setGeometry(0, 0, thumbnailSide, thumbnailSide);
    picture->setCheckable(true);
    picture->setChecked(index == session.imageIdSelected());
    picture->setIconSize(QSize(thumbnailSide - 10, thumbnailSide - 10));
    picture->setToolTip(session.imageList().at(index));
    if (const std::optional<QImage> image = loadThumbnail(session.imageList().at(index)))
        picture->setIcon(QIcon(
            QPixmap::fromImage(image->scaled(picture->iconSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation))));
    else
        picture->setText(QString::number(index));
    QObject::connect(picture, &QToolButton::clicked, cell, [&session, index] { session.selectImage(index); });
    auto* remove = new QToolButton(cell);
    remove->setObjectName(QStringLiteral("removeFrame"));
    remove->setIcon(cell->style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    remove->setAutoRaise(true);
    remove->setToolTip(QObject::tr("Remove the image from the list."));
    remove->setGeometry(thumbnailSide - 22, 2, 20, 20);
    QObject::connect(remove, &QToolButton::clicked, cell, [&session, index] { session.removeImage(index); });
    return cell;
}

} // namespace

ImageDropTarget::ImageDropTarget(QWidget* parent) : QLabel(tr("Drop Image Here"), parent)
{
    setObjectName(QStringLiteral("dropTarget"));
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setFixedSize(thumbnailSide, thumbnailSide);
    setAcceptDrops(true);
    setStyleSheet(QStringLiteral("border: 2px dashed palette(mid); border-radius: 6px;"));
}

void ImageDropTarget::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void ImageDropTarget::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        paths << (url.isLocalFile() ? url.toLocalFile() : url.toString());
    emit filesDropped(paths);
    if (!paths.isEmpty())
        event->acceptProposedAction();
}

SidePhysicsView::SidePhysicsView(ImagePhysicsSession& session, QWidget* parent) : QWidget(parent), m_session(session)
{
    setObjectName(QStringLiteral("physicsSidePanel"));
    setFixedWidth(session.allowDropImages() ? 560 : 440);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);

    m_strip = new QScrollArea(this);
    m_strip->setObjectName(QStringLiteral("frameStrip"));
    m_strip->setWidgetResizable(true);
    m_strip->setFixedHeight(thumbnailSide + 24);
    m_strip->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_frames = new QWidget;
    m_frameRow = new QHBoxLayout(m_frames);
    m_frameRow->setContentsMargins(6, 6, 6, 6);
    m_strip->setWidget(m_frames);
    column->addWidget(m_strip);

    m_list = new QScrollArea(this);
    m_list->setObjectName(QStringLiteral("shapeList"));
    m_list->setWidgetResizable(true);
    auto* rows = new QWidget;
    m_rows = new QVBoxLayout(rows);
    m_rows->setContentsMargins(6, 6, 6, 6);
    m_list->setWidget(rows);
    column->addWidget(m_list, 1);
    refresh();
}

void SidePhysicsView::toggleShown(const tessaro::Uuid& id)
{
    if (!m_showSelectedRow.erase(id))
        m_showSelectedRow.insert(id);
    refresh();
}

void SidePhysicsView::refresh()
{
    rebuildFrames();
    rebuildRows();
}

void SidePhysicsView::rebuildFrames()
{
    // The strip is there for images of several frames, and wherever images may be dropped.
    m_strip->setVisible(m_session.allowDropImages() || m_session.imageList().size() > 1);
    const std::tuple<QStringList, int> wanted{m_session.imageList(), m_session.imageIdSelected()};
    if (wanted == m_framesShown)
        return;
    m_framesShown = wanted;
    clear(m_frameRow);
    for (int i = 0; i < m_session.imageList().size(); ++i)
        m_frameRow->addWidget(thumbnail(m_session, i, m_frames));
    if (m_session.allowDropImages()) {
        auto* target = new ImageDropTarget(m_frames);
        connect(target, &ImageDropTarget::filesDropped, this,
                [this](const QStringList& paths) { m_session.dropImageFiles(paths); });
        m_frameRow->addWidget(target);
    }
    m_frameRow->addStretch();
}

void SidePhysicsView::rebuildRows()
{
    const std::vector<PhysicsElement>& elements = m_session.physicsElements();
    std::vector<std::tuple<tessaro::Uuid, PhysicsType, std::size_t, bool>> wanted;
    for (const PhysicsElement& element : elements)
        wanted.emplace_back(element.id, element.type, element.points.size(), m_showSelectedRow.count(element.id) > 0);
    if (m_rowsMade && wanted == m_rowsShown) {
        // The same rows: only their values change, so a field being typed in keeps its focus.
        for (std::size_t i = 0; i < elements.size(); ++i)
            m_rowViews[i]->showValues(elements[i]);
        return;
    }
    m_rowsMade = true;
    m_rowsShown = std::move(wanted);
    const int scrolled = m_list->verticalScrollBar()->value();
    m_rowViews.clear();
    clear(m_rows);
    if (elements.empty()) {
        auto* empty = new QLabel(tr("No physics have been defined yet."));
        empty->setObjectName(QStringLiteral("noPhysics"));
        empty->setAlignment(Qt::AlignCenter);
        m_rows->addWidget(empty);
    }
    for (const PhysicsElement& element : elements) {
        auto* row = new PhysicsListView(m_session, element, m_showSelectedRow.count(element.id) > 0);
        connect(row, &PhysicsListView::expandToggled, this, &SidePhysicsView::toggleShown);
        m_rows->addWidget(row);
        m_rowViews.push_back(row);
    }
    m_rows->addStretch();
    m_list->verticalScrollBar()->setValue(scrolled);
}

} // namespace stagewright
