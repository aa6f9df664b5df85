#include "LibraryCellView.h"

#include "LibraryIcons.h"

#include <stagewright/inspector/controls/ImagePicker.h>

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace stagewright {

namespace {

constexpr int cellWidth = LibraryCellModel::pictureSize.width();
constexpr int margin = 8;
constexpr int lineGap = 2;

QFont headlineFont(const QFont& base)
{
    QFont font = base;
    font.setBold(true);
    font.setPointSizeF(base.pointSizeF() + 1);
    return font;
}

QString flagLine(const char* name, bool value)
{
    return QLatin1String(name) + (value ? QStringLiteral("true") : QStringLiteral("false"));
}

} // namespace

// ---- Model -------------------------------------------------------------------------------------

LibraryCellModel::LibraryCellModel(QObject* parent) : QAbstractListModel(parent) {}

void LibraryCellModel::setCells(std::vector<LibraryCell> cells)
{
    beginResetModel();
    m_cells = std::move(cells);
    m_shown = filterLibraryCells(m_cells, m_filter);
    m_pictures.assign(m_cells.size(), QImage());
    m_requested.assign(m_cells.size(), false);
    ++m_generation;
    endResetModel();
}

void LibraryCellModel::setFilter(const QString& searchText)
{
    if (searchText == m_filter)
        return;
    beginResetModel();
    m_filter = searchText;
    m_shown = filterLibraryCells(m_cells, m_filter);
    endResetModel();
}

const LibraryCell& LibraryCellModel::cell(const QModelIndex& index) const
{
    return m_cells[m_shown[std::size_t(index.row())]];
}

int LibraryCellModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

QVariant LibraryCellModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: return cell(index).buttonTitle;
    case Qt::DecorationRole: return picture(m_shown[std::size_t(index.row())]);
    default: return {};
    }
}

Qt::ItemFlags LibraryCellModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    // A record without a name cannot be added, nor dragged.
    return Qt::ItemIsEnabled | (cell(index).elementName ? Qt::ItemIsDragEnabled : Qt::NoItemFlags);
}

QStringList LibraryCellModel::mimeTypes() const
{
    return {libraryElementMimeType};
}

QMimeData* LibraryCellModel::mimeData(const QModelIndexList& indexes) const
{
    if (indexes.isEmpty() || !indexes.front().isValid())
        return nullptr;
    return libraryMimeData(cell(indexes.front())).release();
}

QImage LibraryCellModel::picture(std::size_t cellIndex) const
{
    if (m_requested[cellIndex])
        return m_pictures[cellIndex];
    m_requested[cellIndex] = true;
    const QString path = libraryCellImagePath(m_cells[cellIndex]);
    if (path.isEmpty())
        return {};
    auto* self = const_cast<LibraryCellModel*>(this);
    const quint64 generation = m_generation;
    const QImage cached =
        ThumbnailCache::instance().request(path, pictureSize, self, [self, generation, cellIndex](const QImage& image) {
            if (generation != self->m_generation)
                return;
            self->m_pictures[cellIndex] = image;
            const auto row = std::find(self->m_shown.begin(), self->m_shown.end(), cellIndex);
            if (row != self->m_shown.end()) {
                const QModelIndex at = self->index(int(row - self->m_shown.begin()));
                emit self->dataChanged(at, at, {Qt::DecorationRole});
            }
        });
    if (!cached.isNull())
        m_pictures[cellIndex] = cached;
    return m_pictures[cellIndex];
}

// ---- Delegate ------------------------------------------------------------------------------------

void LibraryCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* model = qobject_cast<const LibraryCellModel*>(index.model());
    if (!model)
        return;
    const LibraryCell& cell = model->cell(index);
    const QPalette& palette = option.palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state & (QStyle::State_MouseOver | QStyle::State_Selected)) {
        QColor hover = palette.color(QPalette::Highlight);
        hover.setAlphaF(option.state & QStyle::State_Selected ? 0.35f : 0.18f);
        painter->setPen(Qt::NoPen);
        painter->setBrush(hover);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(2, 2, -2, -2), 6, 6);
    }
    const int left = option.rect.x() + (option.rect.width() - cellWidth) / 2;
    int top = option.rect.y() + margin;

    // No picture at all when it cannot be read; the lines keep their places.
    const QImage picture = index.data(Qt::DecorationRole).value<QImage>();
    const QRect pictureRect(QPoint(left, top), LibraryCellModel::pictureSize);
    if (!picture.isNull())
        painter->drawImage(pictureRect, picture);
    top += pictureRect.height() + lineGap * 2;

    painter->setPen(palette.color(QPalette::Text));
    const QFont headline = headlineFont(option.font);
    const QFontMetrics headlineMetrics(headline);
    painter->setFont(headline);
    painter->drawText(QRect(left, top, cellWidth, headlineMetrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                      headlineMetrics.elidedText(cell.buttonTitle, Qt::ElideRight, cellWidth));
    top += headlineMetrics.height() + lineGap;

    const QFontMetrics metrics(option.font);
    painter->setFont(option.font);
    const int line = metrics.height();
    const int symbolSide = line - 2;
    librarySymbol(QStringLiteral("shield.pattern.checkered"))
        .paint(painter, QRect(left, top + 1, symbolSide, symbolSide));
    const int textLeft = left + symbolSide + 4;
    painter->drawText(QRect(textLeft, top, cellWidth - (textLeft - left), line), Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(cell.buttonClass, Qt::ElideRight, cellWidth - (textLeft - left)));
    top += line + lineGap;
    painter->drawText(QRect(left, top, cellWidth, line), Qt::AlignLeft | Qt::AlignVCenter,
                      flagLine("useGravity: ", cell.buttonUseGravity));
    top += line + lineGap;
    painter->drawText(QRect(left, top, cellWidth, line), Qt::AlignLeft | Qt::AlignVCenter,
                      flagLine("isDynamic: ", cell.buttonIsDynamic));
    painter->restore();
}

QSize LibraryCellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const int headline = QFontMetrics(headlineFont(option.font)).height();
    const int line = QFontMetrics(option.font).height();
    const int height = margin + LibraryCellModel::pictureSize.height() + lineGap * 2 + headline + lineGap +
        3 * (line + lineGap) + margin;
    return {cellWidth + 2 * margin, height};
}

} // namespace stagewright
