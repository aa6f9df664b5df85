// The cells of one tab of the object library as a list the view draws: the
// filtered cells, their pictures (decoded off the main thread and filled in
// as they arrive, only for the cells that are drawn), and the drawing of a
// cell. A cell dragged out carries its kind and element name.
#pragma once

#include <stagewright/inspector/ObjectLibrary.h>

#include <QAbstractListModel>
#include <QImage>
#include <QStyledItemDelegate>

#include <vector>

namespace stagewright {

class LibraryCellModel : public QAbstractListModel {
    Q_OBJECT
public:
    /// The side of a cell's picture, whatever the image's proportions.
    static constexpr QSize pictureSize{150, 100};

    explicit LibraryCellModel(QObject* parent = nullptr);

    /// Shows these cells, through the filter in force.
    void setCells(std::vector<LibraryCell> cells);
    /// Shows the cells whose element name contains `searchText`.
    void setFilter(const QString& searchText);
    /// The cell of a row.
    const LibraryCell& cell(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The title as text and help text, and the picture as decoration: a
    /// null image while it is decoded or when it cannot be read.
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

private:
    QImage picture(std::size_t cellIndex) const;

    std::vector<LibraryCell> m_cells;
    std::vector<std::size_t> m_shown;
    QString m_filter;
    // Pictures are asked for when a cell is first drawn.
    mutable std::vector<QImage> m_pictures;
    mutable std::vector<bool> m_requested;
    /// Grows with every new set of cells, so a late picture of an old set is dropped.
    quint64 m_generation = 0;
};

/// Draws a cell from top to bottom: the picture, stretched to 150 by 100;
/// the title in headline type; the class line with its symbol;
/// "useGravity: " and "isDynamic: " with "true" or "false".
class LibraryCellDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace stagewright
