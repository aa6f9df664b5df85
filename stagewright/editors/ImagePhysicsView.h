// The physics sheet: a window-modal dialog of 1100 by 600 with the bar of
// tools and pickers, the canvas and the side column, all bound to one
// session. Nothing is stored until the apply button.
#pragma once

#include <stagewright/inspector/PhysicsEditorHook.h>

#include <QDialog>

class QAction;

namespace stagewright {

class ImagePhysicsSession;
class NavBarViewType;
class PhysicsCanvasView;
class SidePhysicsView;

class ImagePhysicsView : public QDialog {
    Q_OBJECT
public:
    ImagePhysicsView(PhysicsEditMode mode, ProjectTab& tab, SceneSettings* settings, QWidget* parent = nullptr);
    ~ImagePhysicsView() override;

    ImagePhysicsSession& session() const { return *m_session; }
    NavBarViewType* navBar() const { return m_navBar; }
    PhysicsCanvasView* canvas() const { return m_canvas; }
    SidePhysicsView* sidePanel() const { return m_side; }

    /// Stores the shapes and closes the sheet.
    void applyAndClose();
    /// The sheet's Undo and Redo, named by the step they take.
    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }

private:
    void refresh();
    void refreshHistory();

    ImagePhysicsSession* m_session;
    NavBarViewType* m_navBar;
    PhysicsCanvasView* m_canvas;
    SidePhysicsView* m_side;
    QAction* m_undo;
    QAction* m_redo;
};

/// Opens the sheet over `parent` for the selection of `tab`.
void showPhysicsEditor(QWidget* parent, ProjectTab& tab, SceneSettings* settings, PhysicsEditMode mode);
/// Makes the inspector's "Physics" buttons open the sheet.
void installPhysicsEditor();

} // namespace stagewright
