#include "StageWrightApp.h"

#include "Appearance.h"
#include "CloseGuard.h"
#include "Commands.h"
#include "Dialogs.h"
#include "Downloader.h"
#include "ExternalChanges.h"
#include "FooterView.h"
#include "HelpCommands.h"
#include "MainWindow.h"
#include "ObjectMenuPopup.h"
#include "RecoveryPrompt.h"
#include "SampleWorkspace.h"
#include "WelcomeSheet.h"
#include "Windows.h"

#include <stagewright/editors/GroundReorderView.h>
#include <stagewright/editors/ImagePhysicsView.h>
#include <stagewright/inspector/EditRouting.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceWatcher.h>

#include <QApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTimer>

namespace stagewright {

void setApplicationIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("StageWright"));
    QCoreApplication::setApplicationName(QStringLiteral("StageWright"));
    // The name of its desktop entry and icon, which also identifies its windows.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.stagewright.StageWright"));
}

namespace {

QString& buildVersion()
{
    static QString build;
    return build;
}

} // namespace

void setApplicationBuildVersion(const QString& build)
{
    buildVersion() = build;
}

QString applicationBuildVersion()
{
    return buildVersion();
}

SceneSettings& StageWrightApp::startState(QStringList& installedSamples)
{
    PermissionManager::shared().setChooser(desktopFolderChooser());
    const QString defaultWorkspace = defaultWorkspacePath();
    const bool firstStart = !QFileInfo::exists(defaultWorkspace);
    SceneSettings& settings = SceneSettings::shared();
    if (firstStart && QFileInfo(defaultWorkspace).isDir())
        installedSamples = installSampleProjects(defaultWorkspace, settings.gate());
    return settings;
}

StageWrightApp::StageWrightApp(const QStringList& files, const CanvasFactory& canvas)
    : m_settings(startState(m_installedSamples))
{
    // Canvas selections fill the inspector's models, the canvas's moves and
    // sizes become steps of the history, and overlapping elements are
    // offered in a pop-up menu.
    if (canvas) {
        CanvasHooks hooks = editingHooks(&m_settings);
        hooks.presentMenu = popUpObjectMenu;
        m_settings.setSceneFactory(canvas(hooks));
    }
    installPhysicsEditor();
    m_appearance = std::make_unique<Appearance>(m_settings);
    m_preferences = std::make_unique<AppPreferences>(m_settings);
    m_dialogs = std::make_unique<DesktopDialogs>();
    m_windows = std::make_unique<WindowManager>(m_settings, *m_preferences);
    m_commands = std::make_unique<Commands>(m_settings, *m_dialogs, m_windows.get());
    m_commands->setFilesToOpen(files);
    m_mainWindow = std::make_unique<MainWindow>(m_settings, *m_commands, m_windows.get());
    m_dialogs->setParent(m_mainWindow.get());
    installGroundReorder(m_settings, m_mainWindow.get());
    m_downloader = std::make_unique<Downloader>();
    m_help = std::make_unique<HelpCommands>(*m_downloader, m_windows.get());
    m_mainWindow->setHelpCommands(*m_help);
    m_watcher = std::make_unique<WorkspaceWatcher>(m_settings);
    m_externalChanges = std::make_unique<ExternalChanges>(m_settings, *m_watcher, *m_dialogs, m_mainWindow->footer());
    installRecovery();
    connect(m_mainWindow.get(), &MainWindow::closing, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

StageWrightApp::~StageWrightApp()
{
    // A run that ends with the user's answer about unsaved work leaves no
    // copies; one that ends any other way keeps them for the next start.
    if (m_closeGuard->closeAgreed())
        m_autosave->finishCleanly();
    m_autosave.reset();
    // The windows go before the objects they use.
    m_externalChanges.reset();
    m_watcher.reset();
    m_mainWindow.reset();
    m_help.reset();
    m_downloader.reset();
    m_windows.reset();
    m_commands.reset();
}

void StageWrightApp::show()
{
    m_mainWindow->show();
    showWelcomeOnFirstStart(m_mainWindow.get(), m_settings);
    QTimer::singleShot(0, this, [this] {
        offerRecovery(
            m_settings, *m_recoveryStore, *m_autosave,
            [this](const std::vector<RecoveryEntry>& entries) {
                return RecoveryPrompt::ask(entries, m_mainWindow.get());
            },
            [this](const RecoveryEntry& entry) { return RecoveryPrompt::askReplace(entry, m_mainWindow.get()); });
    });
}

void StageWrightApp::installRecovery()
{
    m_recoveryStore = std::make_unique<RecoveryStore>();
    m_autosave = std::make_unique<Autosave>(m_settings, *m_recoveryStore);
    const auto followInterval = [this] {
        m_autosave->setInterval(std::chrono::seconds(AppPreferences::autosaveInterval()));
    };
    followInterval();
    connect(m_preferences.get(), &AppPreferences::autosaveIntervalChanged, this, followInterval);

    m_closeGuard = std::make_unique<CloseGuard>(*m_commands, *m_dialogs, [this](const QStringList& names) {
        return ClosePrompt::ask(names, m_mainWindow.get());
    });
    m_mainWindow->setCloseGuard([this] { return m_closeGuard->mayClose(); });
}

} // namespace stagewright
