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

class ImagePhysicsSession;
class PhysicsListView;

/// "Drop Image Here": takes the files dropped on it.
class ImageDropTarget : public QLabel {
    Q_OBJECT
public:
    explicit ImageDropTarget(QWidget* parent = nullptr);
signals:
    void filesDropped(const QStringList& paths);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

class SidePhysicsView : public QWidget {
    Q_OBJECT
public:
    explicit SidePhysicsView(ImagePhysicsSession& session, QWidget* parent = nullptr);
    /// Shows the session's frames and shapes.
    void refresh();
    /// The rows whose fields are shown.
    const std::set<tessaro::Uuid>& showSelectedRow() const { return m_showSelectedRow; }
    void toggleShown(const tessaro::Uuid& id);

private:
    void rebuildFrames();
    void rebuildRows();

    ImagePhysicsSession& m_session;
    QScrollArea* m_strip = nullptr;
    QWidget* m_frames = nullptr;
    QHBoxLayout* m_frameRow = nullptr;
    QScrollArea* m_list = nullptr;
    QVBoxLayout* m_rows = nullptr;
    std::vector<PhysicsListView*> m_rowViews;
    std::set<tessaro::Uuid> m_showSelectedRow;
    // What the widgets were made for: they are made again only when it changes.
    std::tuple<QStringList, int> m_framesShown{QStringList(), -1};
    std::vector<std::tuple<tessaro::Uuid, PhysicsType, std::size_t, bool>> m_rowsShown;
    bool m_rowsMade = false;
};

} // namespace stagewright
