#include "ObjectLibraryWindow.h"

#include "LibraryCellView.h"
#include "LibraryIcons.h"
#include "Windows.h"

#include <stagewright/inspector/ObjectLibrary.h>
#include <stagewright/state/SceneSettings.h>

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

const QString pinnedSymbol = QStringLiteral("square.2.layers.3d.top.filled");
const QString unpinnedSymbol = QStringLiteral("square.2.layers.3d.bottom.filled");

QString text(std::string_view value)
{
    return QString::fromUtf8(value.data(), qsizetype(value.size()));
}

/// The first window of the application with the library's identifier.
QWidget* libraryWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == WindowId::objectLibrary)
            return window;
    return nullptr;
}

} // namespace

ObjectLibraryWindow::ObjectLibraryWindow(SceneSettings& settings, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_settings(settings)
{
    setObjectName(WindowId::objectLibrary);
    setWindowTitle(tr("Object Library"));
    setMinimumSize(700, 300);
    resize(900, 620);

    auto* layout = new QVBoxLayout(this);
    auto* tabRow = new QHBoxLayout;
    tabRow->setSpacing(4);
    tabRow->addStretch(1);
    m_tabGroup = new QButtonGroup(this);
    for (std::size_t i = 0; i < libraryTabKinds.size(); ++i) {
        const tessaro::sceneObjectType kind = libraryTabKinds[i];
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("libraryTab_") + text(tessaro::caseText(kind)));
        button->setText(text(tessaro::pickerTabTitle(kind)));
        button->setToolTip(button->text());
        button->setIcon(librarySymbol(text(tessaro::pickerTabSymbol(kind))));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setCursor(Qt::PointingHandCursor);
        m_tabGroup->addButton(button, int(i));
        tabRow->addWidget(button);
        m_tabButtons.append(button);
    }
    tabRow->addStretch(1);
    m_pin = new QToolButton(this);
    m_pin->setObjectName(QStringLiteral("libraryPin"));
    m_pin->setToolTip(pinHelp());
    m_pin->setAutoRaise(true);
    m_pin->setIconSize(QSize(22, 22));
    m_pin->setCursor(Qt::PointingHandCursor);
    tabRow->addWidget(m_pin, 0, Qt::AlignTop);
    layout->addLayout(tabRow);

    m_filter = new QLineEdit(this);
    m_filter->setObjectName(QStringLiteral("libraryFilter"));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    layout->addWidget(m_filter);

    m_model = new LibraryCellModel(this);
    m_cells = new QListView(this);
    m_cells->setObjectName(QStringLiteral("libraryCells"));
    m_cells->setViewMode(QListView::IconMode);
    m_cells->setResizeMode(QListView::Adjust);
    m_cells->setMovement(QListView::Static);
    m_cells->setWrapping(true);
    m_cells->setSpacing(4);
    // Cells are all of one size, so the view lays out thousands at once; it
    // still lays them out in batches, so the window is never held up.
    m_cells->setUniformItemSizes(true);
    m_cells->setLayoutMode(QListView::Batched);
    m_cells->setBatchSize(200);
    // A drag takes the selected cell: a press selects it.
    m_cells->setSelectionMode(QAbstractItemView::SingleSelection);
    m_cells->setMouseTracking(true);
    m_cells->viewport()->setCursor(Qt::PointingHandCursor);
    m_cells->setDragEnabled(true);
    m_cells->setDragDropMode(QAbstractItemView::DragOnly);
    m_cells->setDefaultDropAction(Qt::CopyAction);
    m_cells->setItemDelegate(new LibraryCellDelegate(m_cells));
    m_cells->setModel(m_model);
    layout->addWidget(m_cells, 1);

    connect(m_tabGroup, &QButtonGroup::idClicked, this, &ObjectLibraryWindow::setSelection);
    connect(m_filter, &QLineEdit::textChanged, m_model, &LibraryCellModel::setFilter);
    connect(m_pin, &QToolButton::clicked, this, &ObjectLibraryWindow::togglePin);
    connect(m_cells, &QListView::clicked, this, [this](const QModelIndex& index) {
        const LibraryCell& cell = m_model->cell(index);
        if (cell.elementName)
            addLibraryElement(m_settings.selectedProjectTab().get(), cell.valType, *cell.elementName);
    });
    // Another workspace brings other catalogues, and other programs may
    // change the catalogues and images of this one.
    for (auto changed : {&SceneSettings::workingSpacePathChanged, &SceneSettings::cataloguesReloaded,
                         &SceneSettings::imageListChanged})
        connect(&m_settings, changed, this, [this] {
            if (isVisible())
                reload();
        });

    showPinned(false);
    m_tabButtons.front()->setChecked(true);
    layoutTabButtons();
}

QString ObjectLibraryWindow::pinHelp()
{
    return tr("Toggle between window remaining on top of all other windows.");
}

void ObjectLibraryWindow::setSelection(int index)
{
    if (index < 0 || index >= m_tabButtons.size())
        return;
    m_tabButtons[index]->setChecked(true);
    if (index == m_selection)
        return;
    m_selection = index;
    reload();
}

QString ObjectLibraryWindow::searchText() const
{
    return m_filter->text();
}

bool ObjectLibraryWindow::isPinned() const
{
    return windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

void ObjectLibraryWindow::reload()
{
    m_model->setCells(libraryCells(libraryTabKinds[std::size_t(m_selection)]));
}

void ObjectLibraryWindow::togglePin()
{
    QWidget* window = libraryWindow();
    if (!window)
        return;
    const bool pinned = !window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    // Changing the flags of a shown window hides it: it is shown again.
    const bool visible = window->isVisible();
    window->setWindowFlag(Qt::WindowStaysOnTopHint, pinned);
    if (visible)
        window->show();
    showPinned(pinned);
}

void ObjectLibraryWindow::showPinned(bool pinned)
{
    m_pin->setIcon(librarySymbol(pinned ? pinnedSymbol : unpinnedSymbol));
}

void ObjectLibraryWindow::layoutTabButtons()
{
    const bool wide = width() >= wideWidth;
    for (QToolButton* button : std::as_const(m_tabButtons)) {
        button->setToolButtonStyle(wide ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
        button->setIconSize(wide ? QSize(36, 36) : QSize(24, 24));
        button->setFixedSize(wide ? QSize(80, 80) : QSize(40, 40));
    }
}

void ObjectLibraryWindow::showEvent(QShowEvent* event)
{
    reload();
    QWidget::showEvent(event);
}

void ObjectLibraryWindow::closeEvent(QCloseEvent* event)
{
    // The window opens again on the first tab, unfiltered, at the normal level.
    m_selection = 0;
    m_tabButtons.front()->setChecked(true);
    m_filter->clear();
    if (isPinned()) {
        setWindowFlag(Qt::WindowStaysOnTopHint, false);
        showPinned(false);
    }
    QWidget::closeEvent(event);
}

void ObjectLibraryWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutTabButtons();
}

} // namespace stagewright
