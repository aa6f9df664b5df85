#include "MainWindow.h"

#include "CanvasView.h"
#include "Commands.h"
#include "DownloadBar.h"
#include "FooterView.h"
#include "HelpCommands.h"
#include "NavigationToolbar.h"
#include "PlayLevel.h"
#include "ShellIcons.h"
#include "TabStrip.h"
#include "Windows.h"

#include <stagewright/inspector/InspectorView.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFrame>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace stagewright {

namespace {

QString tabKey(const tessaro::Uuid& id)
{
    return QString::fromStdString(id.text());
}

} // namespace

MainWindow::MainWindow(SceneSettings& settings, Commands& commands, WindowManager* windows, QWidget* parent)
    : QMainWindow(parent),
      m_settings(settings),
      m_commands(commands),
      m_windows(windows)
{
    setObjectName(WindowId::main);
    setMinimumSize(1300, 700);
    resize(1300, 700);
    setUnifiedTitleAndToolBarOnMac(true);

    m_toolbar = new NavigationToolbar(settings, commands, this);
    addToolBar(Qt::TopToolBarArea, m_toolbar);

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_tabStrip = new TabStrip(settings, commands, central);
    auto* divider = new QFrame(central);
    divider->setFrameShape(QFrame::HLine);
    divider->setFrameShadow(QFrame::Plain);
    divider->setForegroundRole(QPalette::Mid);
    m_canvases = new QStackedWidget(central);
    m_canvases->setObjectName(QStringLiteral("projectWorkspaceView"));
    m_footer = new FooterView(settings, commands, central);
    layout->addWidget(m_tabStrip);
    layout->addWidget(divider);
    layout->addWidget(m_canvases, 1);
    layout->addWidget(m_footer);
    setCentralWidget(central);

    m_inspector = new InspectorView(settings);
    m_inspectorDock = new QDockWidget(tr("Object Properties"), this);
    m_inspectorDock->setObjectName(QStringLiteral("inspectorPanel"));
    m_inspectorDock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    m_inspectorDock->setWidget(m_inspector);
    m_inspectorDock->setMinimumWidth(450);
    addDockWidget(Qt::RightDockWidgetArea, m_inspectorDock);
    m_inspectorDock->setVisible(settings.isInspectorPresented());
    connect(&settings, &SceneSettings::isInspectorPresentedChanged, this, [this] {
        m_inspectorDock->setVisible(m_settings.isInspectorPresented());
        if (m_settings.isInspectorPresented())
            resizeDocks({m_inspectorDock}, {450}, Qt::Horizontal);
    });

    buildMenus();

    if (m_windows) {
        m_windows->setMainWindow(this);
        connect(m_windows, &WindowManager::windowOpenChanged, this, [this](const QString& id, bool open) {
            if (id == WindowId::objectLibrary)
                m_toolbar->setLibraryOpen(open);
        });
    }
    connect(&settings, &SceneSettings::projectTabsChanged, this, &MainWindow::syncCanvases);
    connect(&settings, &SceneSettings::selectedProjectTabChanged, this, &MainWindow::showFrontCanvas);
    connect(&settings, &SceneSettings::recentDocumentItemsListChanged, this, &MainWindow::rebuildRecentMenu);
    connect(&commands, &Commands::stateChanged, this, &MainWindow::refreshCommands);
    syncCanvases();
    rebuildRecentMenu();
    refreshCommands();
}

MainWindow::~MainWindow() = default;

QAction* MainWindow::addCommand(QMenu* menu, const QString& title, const QKeySequence& key, void (Commands::*slot)())
{
    QAction* action = menu->addAction(title);
    action->setShortcut(key);
    if (slot)
        connect(action, &QAction::triggered, &m_commands, slot);
    m_commandsList.append(action);
    return action;
}

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    addCommand(file, tr("New Workspace..."), QKeySequence(QStringLiteral("Shift+Ctrl+W")), &Commands::newWorkspace);
    addCommand(file, tr("Open Workspace..."), QKeySequence(QStringLiteral("Shift+Ctrl+K")), &Commands::openWorkspace);
    file->addSeparator();
    addCommand(file, tr("New Level"), QKeySequence(QStringLiteral("Shift+Ctrl+N")), &Commands::newLevel);
    file->addSeparator();
    addCommand(file, tr("Open Level..."), QKeySequence(QStringLiteral("Shift+Ctrl+O")), &Commands::openLevel);
    m_recentMenu = file->addMenu(tr("Open Recent..."));
    m_recentMenu->setObjectName(QStringLiteral("recentMenu"));
    m_commandsList.append(m_recentMenu->menuAction());
    file->addSeparator();
    m_save = addCommand(file, tr("Save"), QKeySequence(QStringLiteral("Ctrl+S")), &Commands::save);
    m_duplicate =
        addCommand(file, tr("Duplicate..."), QKeySequence(QStringLiteral("Shift+Ctrl+D")), &Commands::duplicate);
    // "Move To..." shares its key with "Duplicate...", which comes first.
    m_moveTo = addCommand(file, tr("Move To..."), QKeySequence(), &Commands::moveTo);
    m_showInFinder = addCommand(file, tr("Show in Finder"), QKeySequence(), &Commands::showInFinder);
    file->addSeparator();
    // "Close Level" shares its key with "Open Level...", which comes first.
    m_closeLevel = addCommand(file, tr("Close Level"), QKeySequence(), &Commands::closeLevel);
    file->addSeparator();
    QAction* quit = file->addAction(tr("Quit"));
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &QMainWindow::close);
    m_commandsList.append(quit);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    // Undo and Redo follow the active history (the front tab's, or the
    // catalogues' while a window that edits them is active) and name its next step.
    m_undo = m_commands.undoGroup().createUndoAction(this, tr("Undo"));
    m_undo->setObjectName(QStringLiteral("undoAction"));
    m_undo->setShortcut(QKeySequence::Undo);
    m_redo = m_commands.undoGroup().createRedoAction(this, tr("Redo"));
    m_redo->setObjectName(QStringLiteral("redoAction"));
    m_redo->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    for (QAction* history : {m_undo, m_redo}) {
        edit->addAction(history);
        m_commandsList.append(history);
    }
    edit->addSeparator();
    m_cut = addCommand(edit, tr("Cut"), QKeySequence(QStringLiteral("Ctrl+X")), &Commands::cut);
    m_cut->setIcon(shellIcon(Symbol::cut));
    m_copy = addCommand(edit, tr("Copy"), QKeySequence(QStringLiteral("Ctrl+C")), &Commands::copy);
    m_copy->setIcon(shellIcon(Symbol::copy));
    m_paste = addCommand(edit, tr("Paste"), QKeySequence(QStringLiteral("Ctrl+V")), &Commands::paste);
    m_paste->setIcon(shellIcon(Symbol::paste));
    m_delete = addCommand(edit, tr("Delete"), QKeySequence::Delete, &Commands::deleteSelection);
    m_delete->setIcon(shellIcon(Symbol::trash));
    edit->addSeparator();
    QAction* preferences = addCommand(edit, tr("Settings..."), QKeySequence(QStringLiteral("Ctrl+,")), nullptr);
    preferences->setMenuRole(QAction::PreferencesRole);
    connect(preferences, &QAction::triggered, this, [this] { m_commands.openWindow(WindowId::settings); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    QAction* zoomIn = addCommand(view, tr("Zoom In"), QKeySequence::ZoomIn, nullptr);
    connect(zoomIn, &QAction::triggered, this, [this] { m_commands.stepZoom(+1); });
    QAction* zoomOut = addCommand(view, tr("Zoom Out"), QKeySequence::ZoomOut, nullptr);
    connect(zoomOut, &QAction::triggered, this, [this] { m_commands.stepZoom(-1); });
    QAction* actualSize = addCommand(view, tr("Actual Size"), QKeySequence(QStringLiteral("Ctrl+0")), nullptr);
    connect(actualSize, &QAction::triggered, this, [this] { m_commands.setZoom(QStringLiteral("1.00")); });
    view->addSeparator();
    addCommand(view, tr("Toggle Object Properties"), QKeySequence(QStringLiteral("Ctrl+Alt+I")),
               &Commands::toggleInspector);
    addCommand(view, tr("Object Library"), QKeySequence(QStringLiteral("Ctrl+L")), &Commands::showLibrary);
    view->addSeparator();
    QAction* nextTab = addCommand(view, tr("Next Tab"), QKeySequence(QStringLiteral("Ctrl+PgDown")), nullptr);
    connect(nextTab, &QAction::triggered, this, [this] { m_commands.showAdjacentTab(+1); });
    QAction* previousTab = addCommand(view, tr("Previous Tab"), QKeySequence(QStringLiteral("Ctrl+PgUp")), nullptr);
    connect(previousTab, &QAction::triggered, this, [this] { m_commands.showAdjacentTab(-1); });
    view->addSeparator();
    QAction* play = addCommand(view, tr("Play Level"), QKeySequence(QStringLiteral("Ctrl+R")), &Commands::playLevel);
    play->setIcon(playLevelIcon());
    m_toolbar->addAction(play);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    // The help commands wait for `setHelpCommands`.
    m_helpWindow = addCommand(help, tr("Tessaro - StageWright Help"), QKeySequence::HelpContents, nullptr);
    m_helpWindow->setEnabled(false);
    help->addSeparator();
    m_sourcePage = addCommand(help, tr("Github Pages"), QKeySequence(), nullptr);
    m_sourcePage->setEnabled(false);
    m_downloadMenu = help->addMenu(tr("Download"));
    m_downloadMenu->setObjectName(QStringLiteral("downloadMenu"));
    for (const ArchiveItem& item : archiveItems())
        addCommand(m_downloadMenu, item.title, QKeySequence(), nullptr);
    m_downloadMenu->menuAction()->setEnabled(false);
    m_commandsList.append(m_downloadMenu->menuAction());
    help->addSeparator();
    QAction* about = addCommand(help, tr("About Tessaro - StageWright"), QKeySequence(), nullptr);
    about->setIcon(shellIcon(Symbol::info));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, [this] { m_commands.openWindow(WindowId::about); });
    // There is no updater on this platform: the command stays, disabled.
    QAction* updates = addCommand(help, tr("Check for Updates…"), QKeySequence(), nullptr);
    updates->setEnabled(false);
}

void MainWindow::setHelpCommands(HelpCommands& help)
{
    connect(m_helpWindow, &QAction::triggered, &help, &HelpCommands::openHelp);
    connect(m_sourcePage, &QAction::triggered, &help, &HelpCommands::openSourcePage);
    const QList<QAction*> downloads = m_downloadMenu->actions();
    for (std::size_t i = 0; i < archiveItems().size() && i < std::size_t(downloads.size()); ++i) {
        const ArchiveItem item = archiveItems()[i];
        connect(downloads[qsizetype(i)], &QAction::triggered, &help, [&help, item] { help.download(item); });
    }
    for (QAction* action : {m_helpWindow, m_sourcePage, m_downloadMenu->menuAction()})
        action->setEnabled(true);
    m_footer->addStatusWidget(
        new DownloadBar(help.downloader(), [&help](const QString& file) { help.showInFolder(file); }));
}

QAction* MainWindow::action(const QString& title) const
{
    for (QAction* command : m_commandsList)
        if (command->text() == title)
            return command;
    return nullptr;
}

void MainWindow::rebuildRecentMenu()
{
    m_recentMenu->clear();
    for (const RecentDocumentItem& item : m_settings.recentDocumentItemsList()) {
        QAction* entry = m_recentMenu->addAction(item.name);
        entry->setToolTip(item.path());
        entry->setStatusTip(item.path());
        connect(entry, &QAction::triggered, this, [this, item] { m_commands.openRecent(item); });
    }
    m_recentMenu->addSeparator();
    QAction* clear = m_recentMenu->addAction(tr("Clear Menu"));
    clear->setObjectName(QStringLiteral("clearRecentAction"));
    connect(clear, &QAction::triggered, &m_commands, &Commands::clearRecentDocuments);
}

void MainWindow::refreshCommands()
{
    const bool hasTab = m_commands.frontTab() != nullptr;
    const bool hasFile = m_commands.frontTabHasFile();
    m_save->setEnabled(hasTab);
    m_duplicate->setEnabled(hasTab);
    m_closeLevel->setEnabled(hasTab);
    m_moveTo->setEnabled(hasFile);
    m_showInFinder->setEnabled(hasFile);
    const bool selected = m_commands.elementSelected();
    m_cut->setEnabled(selected);
    m_copy->setEnabled(selected);
    m_delete->setEnabled(selected);
    m_paste->setEnabled(hasTab && m_commands.canPaste());
    setWindowTitle(m_commands.windowTitle() + QStringLiteral("[*]"));
    const auto tab = m_commands.frontTab();
    setWindowModified(tab && tab->isProjectDirty());
}

void MainWindow::syncCanvases()
{
    QHash<QString, CanvasView*> next;
    for (const auto& tab : m_settings.projectTabs()) {
        const QString key = tabKey(tab->id());
        CanvasView* canvas = m_canvasByTab.take(key);
        if (!canvas) {
            canvas = new CanvasView(tab, m_canvases);
            m_canvases->addWidget(canvas);
        }
        next.insert(key, canvas);
    }
    // What is left belongs to closed tabs.
    for (CanvasView* gone : std::as_const(m_canvasByTab)) {
        m_canvases->removeWidget(gone);
        delete gone;
    }
    m_canvasByTab = std::move(next);
    showFrontCanvas();
}

void MainWindow::showFrontCanvas()
{
    const auto tab = m_settings.selectedProjectTab();
    if (CanvasView* canvas = tab ? canvasFor(tab->id()) : nullptr)
        m_canvases->setCurrentWidget(canvas);
}

CanvasView* MainWindow::canvasFor(const tessaro::Uuid& tabId) const
{
    return m_canvasByTab.value(tabKey(tabId));
}

CanvasView* MainWindow::frontCanvas() const
{
    return qobject_cast<CanvasView*>(m_canvases->currentWidget());
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!m_appeared) {
        m_appeared = true;
        m_commands.mainWindowAppeared();
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // The program ends with its main window, once unsaved work is dealt with.
    if (m_closeGuard && !m_closeGuard()) {
        event->ignore();
        return;
    }
    if (m_windows)
        m_windows->closeAuxiliaryWindows();
    emit closing();
    event->accept();
}

} // namespace stagewright
