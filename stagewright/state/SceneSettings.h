// The one application-wide state: the open projects, the workspace's file
// lists, the recent documents and the element clipboard. Every command of the
// shell ends in one of its operations.
#pragma once

#include "CatalogueDocument.h"
#include "DBHelper.h"
#include "ElementClipboard.h"
#include "FileRevealer.h"
#include "LevelScene.h"
#include "ProjectTab.h"
#include "StateTypes.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace stagewright {

class PermissionManager;

class SceneSettings : public QObject {
    Q_OBJECT
public:
    /// Runs the start: restores the folder grants, creates the default
    /// workspace on first start, makes the stored (or default) workspace
    /// current, loads the catalogues and leaves one tab "Initialization".
    explicit SceneSettings(PermissionManager& gate, QObject* parent = nullptr);
    ~SceneSettings() override;

    /// The one instance of the run, made on first use with the shared gate.
    static SceneSettings& shared();

    /// Builds the scenes of the tabs; none is installed at first, and then
    /// tabs have no scene.
    void setSceneFactory(SceneFactory factory);
    const SceneFactory& sceneFactory() const { return m_sceneFactory; }
    /// Replaces how `showInFinder` reveals a file.
    void setFileRevealer(FileRevealer revealer);
    PermissionManager& gate() { return m_gate; }
    /// The catalogues of the current workspace, with their own history.
    CatalogueDocument& catalogues() { return m_catalogues; }

    // ---- Fields -----------------------------------------------------------

    const std::vector<std::shared_ptr<ProjectTab>>& projectTabs() const { return m_projectTabs; }
    const std::shared_ptr<ProjectTab>& selectedProjectTab() const { return m_selectedProjectTab; }
    std::shared_ptr<ProjectTab> findTab(const tessaro::Uuid& id) const;

    tessaro::SizeValue scrollerViewSize() const { return m_scrollerViewSize; }
    void setScrollerViewSize(tessaro::SizeValue size);

    /// Appearance; stored in the user default "isDark".
    bool isDark() const { return m_isDark; }
    void setIsDark(bool dark);
    /// The first-use window has been shown; stored in "firstTimeViewDisplayed".
    void setFirstTimeViewDisplayed(bool shown);

    const std::vector<RecentDocumentItem>& recentDocumentItemsList() const { return m_recentDocumentItemsList; }
    const std::vector<FileItem>& imageList() const { return m_imageList; }
    const std::vector<FileItem>& audioList() const { return m_audioList; }

    const std::vector<SceneSizes>& sceneSizesList() const { return m_sceneSizesList; }
    void setSceneSizesList(std::vector<SceneSizes> sizes);

    bool isInspectorPresented() const { return m_isInspectorPresented; }
    void setInspectorPresented(bool presented);
    bool isGroundInspectorPresented() const { return m_isGroundInspectorPresented; }
    void setGroundInspectorPresented(bool presented);

    const QString& nodeListItemSelected() const { return m_nodeListItemSelected; }
    void setNodeListItemSelected(const QString& name);

    bool refreshWidth() const { return m_refreshWidth; }
    /// Flips `refreshWidth` so the canvas width is computed again.
    void toggleRefreshWidth();

    const tessaro::Uuid& tabSelected() const { return m_tabSelected; }
    void setTabSelected(const tessaro::Uuid& id);

    /// The element clipboard, shared by all tabs.
    ElementClipboard& clipboard() { return m_clipboard; }
    const ElementClipboard& clipboard() const { return m_clipboard; }

    const std::vector<GroundOrderItem>& groundOrderItems() const { return m_groundOrderItems; }
    void setGroundOrderItems(std::vector<GroundOrderItem> items);

    // ---- Operations ---------------------------------------------------------

    /// Adds a tab "Untitled N" with one new level and puts it in front.
    void newProject();
    /// Opens a project file in a new tab in front. An untouched "Untitled"
    /// start tab is replaced. A file that cannot be read leaves an empty tab
    /// whose file is kept safe from a plain save.
    void openProject(const QString& location);
    /// Writes the front tab to `location`, or to its own file. True when the
    /// file was written.
    bool saveProject(const std::optional<QString>& location = std::nullopt);
    /// The command "Save": a tab with a file is saved to it, with the line
    /// "Success save" or "Failed to save", and the result is whether it was
    /// written; a tab without a file gives none, and the shell shows the save
    /// panel, whose choice goes to `saveProject`.
    std::optional<bool> saveCommand();
    /// The name the "Duplicate..." panel proposes: the front tab's file name
    /// without extension and "_copy", or the tab's name and "_copy".
    QString duplicateProposedName() const;
    void closeProject(const tessaro::Uuid& tabId);
    void selectProject(const tessaro::Uuid& tabId);
    /// Appends a new level to the front tab.
    void addLevel();
    void moveLevelUp(const tessaro::Uuid& levelId);
    void moveLevelDown(const tessaro::Uuid& levelId);

    /// Makes a folder the workspace: reads its store into the recent list and
    /// the application settings, its catalogues and (once the window is up)
    /// its file lists, shows the open levels with its catalogues, and
    /// remembers it for the next start.
    void setWorkingSpace(const QString& path);
    /// Scans the workspace into `imageList` and `audioList`.
    void loadFileLists();
    /// Lays the shown level of every tab again, keeping its unsaved edits.
    void layOpenLevelsAgain();
    /// Reads the workspace's catalogues again (they changed on disk) and
    /// lays the open levels with them.
    void reloadCatalogues();
    /// Called when the main window appears: scans the file lists, removes the
    /// "Initialization" tab and starts with a new project.
    void mainWindowAppeared();

    /// Sets `scrollerViewSize` from a zoom text ("1.50").
    void setZoom(const QString& zoom);
    /// Sets the size of the first entry of `sceneSizesList` for that device.
    void setDeviceSize(tessaro::deviceName device, tessaro::SizeValue size);
    /// Shows the front tab's file in the file manager.
    void showInFinder();
    /// Empties the recent list and its store.
    void clearRecentDocuments();

    /// Stores one workspace setting (the settings pane).
    bool updateSetting(SettingsNames name, const QString& value);
    /// Puts the workspace settings back to their first-run values and makes
    /// them the application's settings.
    void resetSettings();

signals:
    void projectTabsChanged();
    void selectedProjectTabChanged();
    void scrollerViewSizeChanged();
    void isDarkChanged();
    void recentDocumentItemsListChanged();
    void imageListChanged();
    void audioListChanged();
    void sceneSizesListChanged();
    void isInspectorPresentedChanged();
    void isGroundInspectorPresentedChanged();
    void nodeListItemSelectedChanged();
    void refreshWidthChanged();
    void tabSelectedChanged();
    void groundOrderItemsChanged();
    void workingSpacePathChanged();
    /// The catalogues were read again.
    void cataloguesReloaded();
    /// A project was saved to `path`.
    void projectWritten(const QString& path);

private:
    void start();
    void setSelectedProjectTab(std::shared_ptr<ProjectTab> tab);
    void setRecentDocuments(std::vector<RecentDocumentItem> items);
    void makeWorkspaceCurrent(const QString& path, bool remember);
    void removeTabAt(std::size_t index);

    PermissionManager& m_gate;
    CatalogueDocument m_catalogues;
    bool m_windowAppeared = false;
    SceneFactory m_sceneFactory;
    FileRevealer m_revealer;

    std::vector<std::shared_ptr<ProjectTab>> m_projectTabs;
    std::shared_ptr<ProjectTab> m_selectedProjectTab;
    tessaro::SizeValue m_scrollerViewSize;
    bool m_isDark = false;
    std::vector<RecentDocumentItem> m_recentDocumentItemsList;
    std::vector<FileItem> m_imageList;
    std::vector<FileItem> m_audioList;
    std::vector<SceneSizes> m_sceneSizesList;
    bool m_isInspectorPresented = false;
    bool m_isGroundInspectorPresented = false;
    QString m_nodeListItemSelected;
    bool m_refreshWidth = false;
    tessaro::Uuid m_tabSelected = tessaro::Uuid::create();
    ElementClipboard m_clipboard;
    std::vector<GroundOrderItem> m_groundOrderItems;
};

/// The number a new "Untitled N" tab takes among tabs with these names.
int nextUntitledNumber(const std::vector<QString>& tabNames);

} // namespace stagewright
