// The main window: menu bar, toolbar, tab strip, the canvases of the open
// projects (only the front one visible), the inspector panel and the footer.
#pragma once

#include <tessaro/model/Uuid.h>

#include <QHash>
#include <QMainWindow>
#include <QPointer>

#include <functional>

class QAction;
class QDockWidget;
class QMenu;
class QStackedWidget;

namespace stagewright {

class CanvasView;
class Commands;
class FooterView;
class HelpCommands;
class InspectorView;
class NavigationToolbar;
class SceneSettings;
class TabStrip;
class WindowManager;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(SceneSettings& settings, Commands& commands, WindowManager* windows = nullptr,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    /// The menu command with that title ("Save", "Open Recent...").
    QAction* action(const QString& title) const;
    QMenu* recentMenu() const { return m_recentMenu; }
    /// Gives the help menu its commands and the footer its download bar.
    void setHelpCommands(HelpCommands& help);

    TabStrip* tabStrip() const { return m_tabStrip; }
    NavigationToolbar* toolbar() const { return m_toolbar; }
    FooterView* footer() const { return m_footer; }
    InspectorView* inspector() const { return m_inspector; }
    QDockWidget* inspectorPanel() const { return m_inspectorDock; }
    /// The canvas of a tab, alive while the tab is open.
    CanvasView* canvasFor(const tessaro::Uuid& tabId) const;
    /// The canvas in front.
    CanvasView* frontCanvas() const;

    /// Asked before the window closes; false keeps it open.
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }

signals:
    /// The window is closing; the application ends with it.
    void closing();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void rebuildRecentMenu();
    void refreshCommands();
    void syncCanvases();
    void showFrontCanvas();
    QAction* addCommand(QMenu* menu, const QString& title, const QKeySequence& key, void (Commands::*slot)());

    SceneSettings& m_settings;
    Commands& m_commands;
    QPointer<WindowManager> m_windows;
    bool m_appeared = false;
    std::function<bool()> m_closeGuard;

    TabStrip* m_tabStrip = nullptr;
    NavigationToolbar* m_toolbar = nullptr;
    QStackedWidget* m_canvases = nullptr;
    FooterView* m_footer = nullptr;
    InspectorView* m_inspector = nullptr;
    QDockWidget* m_inspectorDock = nullptr;
    QHash<QString, CanvasView*> m_canvasByTab;

    QMenu* m_recentMenu = nullptr;
    QList<QAction*> m_commandsList;
    QAction* m_save = nullptr;
    QAction* m_duplicate = nullptr;
    QAction* m_moveTo = nullptr;
    QAction* m_showInFinder = nullptr;
    QAction* m_closeLevel = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_cut = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_helpWindow = nullptr;
    QAction* m_sourcePage = nullptr;
    QMenu* m_downloadMenu = nullptr;
};

} // namespace stagewright
