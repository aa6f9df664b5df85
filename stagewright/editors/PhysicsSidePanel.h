// The side column of the physics sheet: the frames of the image as
// thumbnails (with the "Drop Image Here" target where images may be dropped)
// and the list of shapes.
#pragma once

#include "PhysicsElements.h"

#include <QLabel>
#include <QWidget>

#include <set>
#include <tuple>
#include <vector>

class QHBoxLayout;
class QScrollArea;
class QVBoxLayout;

namespace stagewright {

class imagePhysicsSession;
class physicsListView;

/// "Drop Image Here": takes the files dropped on it.
class imageDropTarget : public QLabel {
    Q_OBJECT
public:
    explicit imageDropTarget(QWidget* parent = nullptr);
signals:
    void filesDropped(const QStringList& paths);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

class sidePhysicsView : public QWidget {
    Q_OBJECT
public:
    explicit sidePhysicsView(imagePhysicsSession& session, QWidget* parent = nullptr);
    /// Shows the session's frames and shapes.
    void refresh();
    /// The rows whose fields are shown.
    const std::set<tessaro::Uuid>& showSelectedRow() const { return m_showSelectedRow; }
    void toggleShown(const tessaro::Uuid& id);

private:
    void rebuildFrames();
    void rebuildRows();

    imagePhysicsSession& m_session;
    QScrollArea* m_strip = nullptr;
    QWidget* m_frames = nullptr;
    QHBoxLayout* m_frameRow = nullptr;
    QScrollArea* m_list = nullptr;
    QVBoxLayout* m_rows = nullptr;
    std::vector<physicsListView*> m_rowViews;
    std::set<tessaro::Uuid> m_showSelectedRow;
    // What the widgets were made for: they are made again only when it changes.
    std::tuple<QStringList, int> m_framesShown{QStringList(), -1};
    std::vector<std::tuple<tessaro::Uuid, physicsType, std::size_t, bool>> m_rowsShown;
    bool m_rowsMade = false;
};

} // namespace stagewright
