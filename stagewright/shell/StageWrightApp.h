// The application: the start in its order, the windows, and the end of the
// run with the main window.
//
// Start: the application's names and folder chooser; the one application
// state (which finds or creates the workspace, loads the catalogues and
// leaves the tab "Initialization"); the sample projects into a default
// workspace made by this start; the appearance; the windows. When the main
// window appears, "Untitled 1" replaces "Initialization" and the project
// files given on the command line open.
#pragma once

#include <stagewright/scene/CanvasHooks.h>
#include <stagewright/state/LevelScene.h>

#include <QObject>
#include <QStringList>

#include <memory>

class QApplication;

namespace stagewright {

class AppPreferences;
class Appearance;
class Autosave;
class CloseGuard;
class Commands;
class DesktopDialogs;
class Downloader;
class ExternalChanges;
class HelpCommands;
class MainWindow;
class RecoveryStore;
class SceneSettings;
class WindowManager;
class WorkspaceWatcher;

/// Names the application for its settings and desktop integration.
void setApplicationIdentity();
/// The build of the program, shown beside its version; "" while not known.
void setApplicationBuildVersion(const QString& build);
QString applicationBuildVersion();

class StageWrightApp : public QObject {
    Q_OBJECT
public:
    /// Starts on the shared application state. `files` open once the main
    /// window appears. With `canvas`, the tabs draw their levels on the
    /// canvases it makes, given the editor's hooks.
    explicit StageWrightApp(const QStringList& files = {}, const CanvasFactory& canvas = {});
    ~StageWrightApp() override;

    SceneSettings& settings() { return m_settings; }
    Commands& commands() { return *m_commands; }
    MainWindow& mainWindow() { return *m_mainWindow; }
    WindowManager& windows() { return *m_windows; }
    AppPreferences& preferences() { return *m_preferences; }
    /// Copies unsaved projects into the recovery folder as the user works.
    Autosave& autosave() { return *m_autosave; }
    /// The sample projects this start put into a new default workspace.
    const QStringList& installedSamples() const { return m_installedSamples; }

    /// Shows the main window, then offers what a run that did not end
    /// cleanly left unsaved.
    void show();

private:
    static SceneSettings& startState(QStringList& installedSamples);
    /// Autosave into the recovery folder, and the question before closing.
    void installRecovery();

    QStringList m_installedSamples;
    SceneSettings& m_settings;
    std::unique_ptr<Appearance> m_appearance;
    std::unique_ptr<AppPreferences> m_preferences;
    std::unique_ptr<Downloader> m_downloader;
    std::unique_ptr<HelpCommands> m_help;
    std::unique_ptr<DesktopDialogs> m_dialogs;
    std::unique_ptr<WindowManager> m_windows;
    std::unique_ptr<Commands> m_commands;
    std::unique_ptr<MainWindow> m_mainWindow;
    std::unique_ptr<RecoveryStore> m_recoveryStore;
    std::unique_ptr<Autosave> m_autosave;
    std::unique_ptr<CloseGuard> m_closeGuard;
    std::unique_ptr<WorkspaceWatcher> m_watcher;
    std::unique_ptr<ExternalChanges> m_externalChanges;
};

} // namespace stagewright
