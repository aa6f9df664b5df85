#include "ImagePhysicsView.h"

#include "PhysicsCanvas.h"
#include "PhysicsNavBar.h"
#include "PhysicsSession.h"
#include "PhysicsSidePanel.h"

#include <stagewright/state/CatalogueDocument.h>
#include <stagewright/state/SceneSettings.h>

#include <QAction>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QVBoxLayout>

namespace stagewright {

ImagePhysicsView::ImagePhysicsView(PhysicsEditMode mode, ProjectTab& tab, SceneSettings* settings, QWidget* parent)
    : QDialog(parent),
      m_session(new ImagePhysicsSession(mode, &tab, settings ? &settings->catalogues() : nullptr, this))
{
    setObjectName(QStringLiteral("imagePhysicsView"));
    setWindowTitle(tr("Physics"));
    setWindowModality(Qt::WindowModal);
    resize(1100, 600);
    m_session->loadPhysicsSession();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_navBar = new NavBarViewType(*m_session, this);
    column->addWidget(m_navBar);
    auto* body = new QHBoxLayout;
    m_canvas = new PhysicsCanvasView(*m_session, this);
    body->addWidget(m_canvas, 1);
    m_side = new SidePhysicsView(*m_session, this);
    body->addWidget(m_side);
    column->addLayout(body, 1);

    connect(m_session, &ImagePhysicsSession::changed, this, &ImagePhysicsView::refresh);
    connect(m_session, &ImagePhysicsSession::readOutChanged, m_navBar, &NavBarViewType::refreshReadOut);
    connect(m_navBar, &NavBarViewType::applyRequested, this, &ImagePhysicsView::applyAndClose);
    connect(m_navBar, &NavBarViewType::cancelRequested, this, &QDialog::reject);

    // The sheet's history (on a template, then the catalogues'), and the
    // selected shape's deletion.
    if (mode == PhysicsEditMode::base)
        markCatalogueEditor(*this);
    m_undo = new QAction(this);
    m_undo->setShortcut(QKeySequence::Undo);
    connect(m_undo, &QAction::triggered, m_session, &ImagePhysicsSession::undo);
    m_redo = new QAction(this);
    m_redo->setShortcut(QKeySequence::Redo);
    connect(m_redo, &QAction::triggered, m_session, &ImagePhysicsSession::redo);
    connect(m_session, &ImagePhysicsSession::historyChanged, this, &ImagePhysicsView::refreshHistory);
    refreshHistory();
    auto* remove = new QAction(tr("Delete Shape"), this);
    remove->setShortcuts({QKeySequence::Delete, QKeySequence(Qt::Key_Backspace)});
    connect(remove, &QAction::triggered, this, [this] { m_session->removeElement(m_session->selectedRow()); });
    addActions({m_undo, m_redo, remove});
    refresh();
}

ImagePhysicsView::~ImagePhysicsView() = default;

void ImagePhysicsView::refresh()
{
    m_navBar->refresh();
    m_canvas->refresh();
    m_side->setVisible(m_session->isInspectorPresented());
    m_side->refresh();
}

void ImagePhysicsView::refreshHistory()
{
    // Named as the Edit menu names its steps: "Undo Change Base Physics".
    m_undo->setEnabled(m_session->canUndo());
    m_undo->setText(m_session->canUndo() ? tr("Undo %1").arg(m_session->undoText()) : tr("Undo"));
    m_redo->setEnabled(m_session->canRedo());
    m_redo->setText(m_session->canRedo() ? tr("Redo %1").arg(m_session->redoText()) : tr("Redo"));
}

void ImagePhysicsView::applyAndClose()
{
    m_session->applyPhysics();
    accept();
}

void showPhysicsEditor(QWidget* parent, ProjectTab& tab, SceneSettings* settings, PhysicsEditMode mode)
{
    auto* sheet = new ImagePhysicsView(mode, tab, settings, parent);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void installPhysicsEditor()
{
    setPhysicsEditorOpener(&showPhysicsEditor);
}

} // namespace stagewright
