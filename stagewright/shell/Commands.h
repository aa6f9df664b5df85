// What the menus, the toolbar, the tab strip, the level popover and the footer
// do. Every command is a plain method here; the widgets only bind controls to
// them, and tests call them without a window. Panels and questions go through
// `ShellDialogs`, windows through `WindowDirectory`.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include "Dialogs.h"
#include "Windows.h"

#include <stagewright/state/StateTypes.h>

#include <tessaro/model/Uuid.h>

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUndoGroup>
#include <QUrl>

#include <functional>
#include <memory>
#include <vector>

namespace stagewright {

class PlayLevel;
class SceneSettings;

/// One step of the "Scaling" picker: its title and the tag it stores.
struct ZoomStep {
    QString title; // "50%"
    QString tag; // "0.50"
};
/// The seven steps from 50% to 200%.
const std::vector<ZoomStep>& zoomSteps();
/// The zoom of a tag as a number; 1 when it is not one.
double zoomFactor(const QString& tag);

/// Opens a location in the desktop's default application; false on failure.
using UrlOpener = std::function<bool(const QUrl& url)>;

class Commands : public QObject {
    Q_OBJECT
public:
    Commands(SceneSettings& settings, ShellDialogs& dialogs, WindowDirectory* windows = nullptr,
             QObject* parent = nullptr);

    SceneSettings& settings() { return m_settings; }
    std::shared_ptr<ProjectTab> frontTab() const;

    /// Replaces how folders are opened in the file manager.
    void setUrlOpener(UrlOpener opener);
    /// Project files to open once the main window has appeared.
    void setFilesToOpen(const QStringList& paths) { m_filesToOpen = paths; }
    /// The main window is on screen: file lists, "Untitled 1", then the
    /// files given at start.
    void mainWindowAppeared();

    // ---- File menu --------------------------------------------------------
    /// Folder panel "New Workspace", then creates and uses a workspace there.
    void newWorkspace();
    /// Folder panel "Open Workspace", then uses that workspace.
    void openWorkspace();
    /// A new project tab "Untitled N".
    void newLevel();
    /// Open panel for one project file.
    void openLevel();
    void openRecent(const RecentDocumentItem& item);
    void clearRecentDocuments();
    /// Saves the front tab to its file, or asks where when it has none or
    /// its file could not be read when it was opened.
    void save();
    /// Saves a copy of the front tab where the user says; the tab follows it.
    void duplicate();
    /// Moves the front tab's file where the user says.
    void moveTo();
    void showInFinder();
    /// Closes the front tab, first asking whether to discard its changes
    /// when it has any, and dismisses the object library.
    void closeLevel();
    /// Opens each file in a tab of its own.
    void openFiles(const QStringList& paths);

    // ---- Tab strip --------------------------------------------------------
    void selectTab(const tessaro::Uuid& tabId);
    /// Closes a tab, first asking whether to discard its changes when it has
    /// any. True when the tab was closed.
    bool closeTab(const tessaro::Uuid& tabId);
    void toggleInspector();
    /// Puts the next (+1) or previous (-1) tab in front, round the ends.
    void showAdjacentTab(int direction);

    // ---- Level popover ------------------------------------------------------
    void addScene();
    void showScene(const tessaro::Uuid& levelId);
    void moveSceneUp(const tessaro::Uuid& levelId);
    void moveSceneDown(const tessaro::Uuid& levelId);
    /// Deletes a level of the front tab after the user confirms. True when
    /// it was deleted.
    bool deleteScene(const tessaro::Uuid& levelId);

    // ---- Toolbar ------------------------------------------------------------
    /// Sets the front tab's zoom to a tag of `zoomSteps()`.
    void setZoom(const QString& tag);
    /// One step of the zoom picker up (+1) or down (-1), within its range.
    void stepZoom(int direction);
    void setBackgroundHidden(bool hidden);
    /// Opens the object library when it is not open.
    void showLibrary();
    /// Selects the element of a "Select a Node" entry on the front tab's
    /// canvas, scrolled into view when it is out of it.
    void selectListedNode(const QString& tag);
    /// Scrolls the front tab's canvas so that `position` is at its centre.
    void scrollScene(tessaro::PointValue position);
    /// Runs the front tab's level, unsaved edits included, in the game.
    void playLevel();

    // ---- Footer -------------------------------------------------------------
    /// The folder the level link opens: the front tab's file's folder, or the
    /// workspace when it has no file.
    QString levelFolder() const;
    bool openLevelFolder();
    bool openWorkspaceFolder();

    // ---- Edit menu ----------------------------------------------------------
    /// The histories of all tabs and the catalogues'. "Undo" and "Redo"
    /// follow the active one: the catalogues' while a window that edits them
    /// is the active window, else the front tab's.
    QUndoGroup& undoGroup() { return m_undoGroup; }
    void cut();
    void copy();
    void paste();
    /// Deletes the selected element of the front tab.
    void deleteSelection();

    // ---- Windows ------------------------------------------------------------
    void openWindow(const QString& id);

    // ---- Rules --------------------------------------------------------------
    /// "Move To..." and "Show in Finder" need a front tab with a file.
    bool frontTabHasFile() const;
    /// "Cut", "Copy", "Delete": an element of the front tab is selected, not
    /// a background.
    bool elementSelected() const;
    /// "Paste": an element is on the clipboard.
    bool canPaste() const;
    /// "Level: " and the front tab's file, or its name; "Untitled" without one.
    QString windowTitle() const;

signals:
    /// The front tab, one of its watched fields, or a rule may have changed.
    void stateChanged();

private:
    void watchFrontTab();
    void followTabs();
    void followActiveWindow();
    bool saveTo(const QString& location);
    bool openFolder(const QString& folder);

    SceneSettings& m_settings;
    ShellDialogs& m_dialogs;
    WindowDirectory* m_windows;
    UrlOpener m_urlOpener;
    QStringList m_filesToOpen;
    QPointer<ProjectTab> m_watched;
    PlayLevel* m_playLevel = nullptr;
    QUndoGroup m_undoGroup;
};

} // namespace stagewright
