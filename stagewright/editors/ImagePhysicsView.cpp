#include "ImagePhysicsView.h"

#include "PhysicsCanvas.h"
#include "PhysicsNavBar.h"
#include "PhysicsSession.h"
#include "PhysicsSidePanel.h"

#include <stagewright/state/SceneSettings.h>

#include <QAction>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QVBoxLayout>

namespace stagewright {

imagePhysicsView::imagePhysicsView(physicsEditMode mode, projectTab& tab, SceneSettings* settings, QWidget* parent)
    : QDialog(parent),
      m_session(new imagePhysicsSession(mode, &tab, settings ? &settings->catalogues() : nullptr, this))
{
    setObjectName(QStringLiteral("imagePhysicsView"));
    setWindowTitle(tr("Physics"));
    setWindowModality(Qt::WindowModal);
    resize(1100, 600);
    m_session->loadPhysicsSession();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_navBar = new navBarViewType(*m_session, this);
    column->addWidget(m_navBar);
    auto* body = new QHBoxLayout;
    m_canvas = new physicsCanvasView(*m_session, this);
    body->addWidget(m_canvas, 1);
    m_side = new sidePhysicsView(*m_session, this);
    body->addWidget(m_side);
    column->addLayout(body, 1);

    connect(m_session, &imagePhysicsSession::changed, this, &imagePhysicsView::refresh);
    connect(m_session, &imagePhysicsSession::readOutChanged, m_navBar, &navBarViewType::refreshReadOut);
    connect(m_navBar, &navBarViewType::applyRequested, this, &imagePhysicsView::applyAndClose);
    connect(m_navBar, &navBarViewType::cancelRequested, this, &QDialog::reject);

    // The sheet's own history, and the selected shape's deletion.
    QAction* undo = m_session->history().createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_session->history().createRedoAction(this, tr("Redo"));
    redo->setShortcut(QKeySequence::Redo);
    auto* remove = new QAction(tr("Delete Shape"), this);
    remove->setShortcuts({QKeySequence::Delete, QKeySequence(Qt::Key_Backspace)});
    connect(remove, &QAction::triggered, this, [this] { m_session->removeElement(m_session->selectedRow()); });
    addActions({undo, redo, remove});
    refresh();
}

imagePhysicsView::~imagePhysicsView() = default;

void imagePhysicsView::refresh()
{
    m_navBar->refresh();
    m_canvas->refresh();
    m_side->setVisible(m_session->isInspectorPresented());
    m_side->refresh();
}

void imagePhysicsView::applyAndClose()
{
    m_session->applyPhysics();
    accept();
}

void showPhysicsEditor(QWidget* parent, projectTab& tab, SceneSettings* settings, physicsEditMode mode)
{
    auto* sheet = new imagePhysicsView(mode, tab, settings, parent);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void installPhysicsEditor()
{
    setPhysicsEditorOpener(&showPhysicsEditor);
}

} // namespace stagewright
