// The physics sheet: a window-modal dialog of 1100 by 600 with the bar of
// tools and pickers, the canvas and the side column, all bound to one
// session. Nothing is stored until the apply button.
#pragma once

#include <stagewright/inspector/PhysicsEditorHook.h>

#include <QDialog>

class QAction;

namespace stagewright {

class imagePhysicsSession;
class navBarViewType;
class physicsCanvasView;
class sidePhysicsView;

class imagePhysicsView : public QDialog {
    Q_OBJECT
public:
    imagePhysicsView(physicsEditMode mode, projectTab& tab, SceneSettings* settings, QWidget* parent = nullptr);
    ~imagePhysicsView() override;

    imagePhysicsSession& session() const { return *m_session; }
    navBarViewType* navBar() const { return m_navBar; }
    physicsCanvasView* canvas() const { return m_canvas; }
    sidePhysicsView* sidePanel() const { return m_side; }

    /// Stores the shapes and closes the sheet.
    void applyAndClose();
    /// The sheet's Undo and Redo, named by the step they take.
    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }

private:
    void refresh();
    void refreshHistory();

    imagePhysicsSession* m_session;
    navBarViewType* m_navBar;
    physicsCanvasView* m_canvas;
    sidePhysicsView* m_side;
    QAction* m_undo;
    QAction* m_redo;
};

/// Opens the sheet over `parent` for the selection of `tab`.
void showPhysicsEditor(QWidget* parent, projectTab& tab, SceneSettings* settings, physicsEditMode mode);
/// Makes the inspector's "Physics" buttons open the sheet.
void installPhysicsEditor();

} // namespace stagewright
