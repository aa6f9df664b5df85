#include "Commands.h"

#include "PlayLevel.h"

#include <stagewright/inspector/EditRouting.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/CatalogueDocument.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWindow>

namespace stagewright {

namespace {

void diagnosticLine(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

} // namespace

const std::vector<ZoomStep>& zoomSteps()
{
    static const std::vector<ZoomStep> steps{
        {QStringLiteral("50%"), QStringLiteral("0.50")},  {QStringLiteral("75%"), QStringLiteral("0.75")},
        {QStringLiteral("100%"), QStringLiteral("1.00")}, {QStringLiteral("125%"), QStringLiteral("1.25")},
        {QStringLiteral("150%"), QStringLiteral("1.50")}, {QStringLiteral("175%"), QStringLiteral("1.75")},
        {QStringLiteral("200%"), QStringLiteral("2.00")},
    };
    return steps;
}

double zoomFactor(const QString& tag)
{
    const double factor = tessaro::parseNumber(tag.toStdString()).value_or(1.0);
    return factor > 0 ? factor : 1.0;
}

Commands::Commands(SceneSettings& settings, ShellDialogs& dialogs, WindowDirectory* windows, QObject* parent)
    : QObject(parent),
      m_settings(settings),
      m_dialogs(dialogs),
      m_windows(windows),
      m_urlOpener([](const QUrl& url) { return QDesktopServices::openUrl(url); })
{
    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &Commands::watchFrontTab);
    connect(&m_settings, &SceneSettings::projectTabsChanged, this, &Commands::followTabs);
    connect(&m_settings, &SceneSettings::projectTabsChanged, this, &Commands::stateChanged);
    connect(&m_settings.clipboard(), &ElementClipboard::objectToCopyChanged, this, &Commands::stateChanged);
    connect(&m_settings, &SceneSettings::recentDocumentItemsListChanged, this, &Commands::stateChanged);
    connect(&m_settings, &SceneSettings::workingSpacePathChanged, this, &Commands::stateChanged);
    m_undoGroup.addStack(&m_settings.catalogues().history());
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &Commands::followActiveWindow);
    followTabs();
    watchFrontTab();
}

void Commands::followTabs()
{
    // A closed tab's history leaves the group with it.
    for (const auto& tab : m_settings.projectTabs())
        if (!m_undoGroup.stacks().contains(&tab->undoStack()))
            m_undoGroup.addStack(&tab->undoStack());
}

void Commands::watchFrontTab()
{
    if (m_watched)
        disconnect(m_watched, nullptr, this, nullptr);
    m_watched = m_settings.selectedProjectTab().get();
    followTabs();
    followActiveWindow();
    if (m_watched) {
        for (auto signal : {&ProjectTab::nameChanged, &ProjectTab::filePathChanged, &ProjectTab::elementPhaseChanged,
                            &ProjectTab::selectedObjectChanged, &ProjectTab::isProjectDirtyChanged,
                            &ProjectTab::scaledValueChanged, &ProjectTab::backgroundElementsHiddenChanged,
                            &ProjectTab::levelSelectedChanged, &ProjectTab::selectedSceneSizeChanged})
            connect(m_watched, signal, this, &Commands::stateChanged);
    }
    emit stateChanged();
}

void Commands::followActiveWindow()
{
    // A level tab's Undo never takes a catalogue's step, nor the other way round.
    if (editsCatalogues(QApplication::activeWindow()))
        m_undoGroup.setActiveStack(&m_settings.catalogues().history());
    else
        m_undoGroup.setActiveStack(m_watched ? &m_watched->undoStack() : nullptr);
}

std::shared_ptr<ProjectTab> Commands::frontTab() const
{
    return m_settings.selectedProjectTab();
}

void Commands::setUrlOpener(UrlOpener opener)
{
    m_urlOpener = std::move(opener);
}

void Commands::mainWindowAppeared()
{
    m_settings.mainWindowAppeared();
    const QStringList files = std::exchange(m_filesToOpen, {});
    openFiles(files);
}

// ---- File menu ------------------------------------------------------------------

void Commands::newWorkspace()
{
    FolderPanel panel{tr("New Workspace"), tr("Choose a folder"), QDir::homePath(), true};
    const std::optional<QString> folder = m_dialogs.chooseFolder(panel);
    if (!folder)
        return;
    createWorkspace(*folder, m_settings.gate());
    m_settings.setWorkingSpace(*folder);
}

void Commands::openWorkspace()
{
    FolderPanel panel{tr("Open Workspace"), tr("Choose a folder"), QDir::homePath(), false};
    const std::optional<QString> folder = m_dialogs.chooseFolder(panel);
    if (!folder)
        return;
    m_settings.setWorkingSpace(*folder);
}

void Commands::newLevel()
{
    m_settings.newProject();
}

void Commands::openLevel()
{
    const std::optional<QString> file = m_dialogs.chooseProjectToOpen(levelsFolder(workingSpacePath()));
    if (file)
        m_settings.openProject(*file);
}

void Commands::openRecent(const RecentDocumentItem& item)
{
    m_settings.openProject(item.path());
}

void Commands::clearRecentDocuments()
{
    m_settings.clearRecentDocuments();
}

bool Commands::saveTo(const QString& location)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    const bool saved = m_settings.saveProject(location);
    diagnosticLine((saved ? QStringLiteral("Success: ") : QStringLiteral("Failed to save: ")) + location);
    // A project saved under a new name is known by that name from now on.
    if (saved && tab)
        tab->setName(QFileInfo(location).completeBaseName());
    return saved;
}

void Commands::save()
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return;
    if (const std::optional<bool> saved = m_settings.saveCommand()) {
        // A file that could not be read when it was opened is not written
        // over by a plain save: the user names the place, as for a new tab.
        if (!*saved && tab->unreadableFile() && tab->unreadableFile() == tab->filePath()) {
            const QFileInfo file(*tab->filePath());
            if (const std::optional<QString> location =
                    m_dialogs.chooseSaveLocation(file.absolutePath(), file.completeBaseName()))
                saveTo(*location);
        }
        return;
    }
    const std::optional<QString> location = m_dialogs.chooseSaveLocation(levelsFolder(workingSpacePath()), QString());
    if (location)
        saveTo(*location);
}

void Commands::duplicate()
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return;
    const QString filename = m_settings.duplicateProposedName();
    diagnosticLine(QStringLiteral("filename: ") + filename);
    const QString folder =
        tab->filePath() ? QFileInfo(*tab->filePath()).absolutePath() : levelsFolder(workingSpacePath());
    const std::optional<QString> location = m_dialogs.chooseSaveLocation(folder, filename);
    if (location)
        saveTo(*location);
}

void Commands::moveTo()
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab || !tab->filePath())
        return;
    const QString source = *tab->filePath();
    const std::optional<QString> chosen = m_dialogs.chooseMoveDestination(source);
    if (!chosen)
        return;
    const QString destination = QFileInfo(*chosen).absoluteFilePath();
    if (destination == QFileInfo(source).absoluteFilePath())
        return;

    QString error;
    bool moved = false;
    const AccessResult access = m_settings.gate().withAccess(QFileInfo(source).absolutePath(), [&] {
        QFile file(source);
        // The panel has asked before replacing a file that is there.
        if (QFileInfo::exists(destination) && !QFile::remove(destination)) {
            error = tr("The file at the destination could not be replaced.");
            return;
        }
        moved = file.rename(destination);
        if (!moved)
            error = file.errorString();
    });
    if (!access && error.isEmpty())
        error = tr("No access to %1.").arg(QFileInfo(source).absolutePath());
    if (moved) {
        // The tab follows its file, so the next save writes it where it now is.
        tab->setFilePath(destination);
        tab->setName(QFileInfo(destination).completeBaseName());
        diagnosticLine(QStringLiteral("Success: ") + destination);
        return;
    }
    diagnosticLine(QStringLiteral("Failed to move: ") + destination + QStringLiteral(" ") + error);
    m_dialogs.reportFailure(tr("The level could not be moved."), error);
}

void Commands::showInFinder()
{
    m_settings.showInFinder();
}

void Commands::closeLevel()
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab()) {
        // Unsaved changes go only with the user's word, as at the tab's close box.
        if (tab->isProjectDirty() && !m_dialogs.confirmDiscardChanges())
            return;
        m_settings.closeProject(tab->id());
    }
    if (m_windows)
        m_windows->dismissWindow(WindowId::objectLibrary);
}

void Commands::openFiles(const QStringList& paths)
{
    for (const QString& path : paths)
        m_settings.openProject(QFileInfo(path).absoluteFilePath());
}

// ---- Tab strip ------------------------------------------------------------------

void Commands::selectTab(const tessaro::Uuid& tabId)
{
    m_settings.selectProject(tabId);
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        m_settings.setZoom(tab->scaledValue());
}

bool Commands::closeTab(const tessaro::Uuid& tabId)
{
    const std::shared_ptr<ProjectTab> tab = m_settings.findTab(tabId);
    if (!tab)
        return false;
    if (tab->isProjectDirty() && !m_dialogs.confirmDiscardChanges())
        return false;
    m_settings.closeProject(tabId);
    return true;
}

void Commands::toggleInspector()
{
    m_settings.setInspectorPresented(!m_settings.isInspectorPresented());
}

void Commands::showAdjacentTab(int direction)
{
    const auto& tabs = m_settings.projectTabs();
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (tabs.empty() || !tab)
        return;
    const auto it = std::find(tabs.begin(), tabs.end(), tab);
    const auto count = std::ssize(tabs);
    const auto index = it == tabs.end() ? 0 : std::distance(tabs.begin(), it);
    const auto next = ((index + (direction < 0 ? -1 : 1)) % count + count) % count;
    selectTab(tabs[std::size_t(next)]->id());
}

// ---- Level popover ------------------------------------------------------------------

void Commands::addScene()
{
    m_settings.addLevel();
}

void Commands::showScene(const tessaro::Uuid& levelId)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return;
    tab->switchLevel(levelId);
    m_settings.setZoom(tab->scaledValue());
}

void Commands::moveSceneUp(const tessaro::Uuid& levelId)
{
    m_settings.moveLevelUp(levelId);
}

void Commands::moveSceneDown(const tessaro::Uuid& levelId)
{
    m_settings.moveLevelDown(levelId);
}

bool Commands::deleteScene(const tessaro::Uuid& levelId)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab || !m_dialogs.confirmDeleteScene())
        return false;
    tab->deleteLevel(levelId);
    return true;
}

// ---- Toolbar --------------------------------------------------------------------------

void Commands::setZoom(const QString& tag)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return;
    tab->setScaledValue(tag);
    m_settings.setZoom(tag);
}

void Commands::stepZoom(int direction)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return;
    const std::vector<ZoomStep>& steps = zoomSteps();
    const double now = zoomFactor(tab->scaledValue());
    // The nearest step above or below the present zoom, which may be none of
    // the steps.
    if (direction > 0) {
        for (const ZoomStep& step : steps)
            if (zoomFactor(step.tag) > now + 1e-9)
                return setZoom(step.tag);
    } else {
        for (auto step = steps.rbegin(); step != steps.rend(); ++step)
            if (zoomFactor(step->tag) < now - 1e-9)
                return setZoom(step->tag);
    }
}

void Commands::setBackgroundHidden(bool hidden)
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        tab->setBackgroundElementsHidden(hidden);
}

void Commands::showLibrary()
{
    if (m_windows && !m_windows->isWindowOpen(WindowId::objectLibrary))
        m_windows->openWindow(WindowId::objectLibrary);
}

void Commands::selectListedNode(const QString& tag)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    const SceneEditorPtr scene = tab ? sceneEditorOf(tab->currentScene()) : nullptr;
    if (!scene)
        return;
    m_settings.setNodeListItemSelected(tag);
    scene->selectNodeNamed(tag);
}

void Commands::scrollScene(tessaro::PointValue position)
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (const SceneEditorPtr scene = tab ? sceneEditorOf(tab->currentScene()) : nullptr)
        scene->moveScene(PublishedElementList::scenePosition, position);
}

void Commands::playLevel()
{
    if (!m_playLevel)
        m_playLevel = new PlayLevel(m_dialogs, this);
    m_playLevel->play(frontTab().get(), workingSpacePath());
}

// ---- Footer ---------------------------------------------------------------------------

QString Commands::levelFolder() const
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (tab && tab->filePath())
        return QFileInfo(*tab->filePath()).absolutePath();
    return workingSpacePath();
}

bool Commands::openFolder(const QString& folder)
{
    bool opened = false;
    m_settings.gate().withAccess(folder, [&] { opened = m_urlOpener(QUrl::fromLocalFile(folder)); });
    if (!opened)
        diagnosticLine(QStringLiteral("Error: ") + tr("The folder %1 could not be opened.").arg(folder));
    return opened;
}

bool Commands::openLevelFolder()
{
    return openFolder(levelFolder());
}

bool Commands::openWorkspaceFolder()
{
    return openFolder(workingSpacePath());
}

// ---- Edit menu --------------------------------------------------------------------------

void Commands::cut()
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        EditRouting(*tab, &m_settings.clipboard()).cut();
}

void Commands::copy()
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        EditRouting(*tab, &m_settings.clipboard()).copy();
}

void Commands::paste()
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        EditRouting(*tab, &m_settings.clipboard()).paste();
}

void Commands::deleteSelection()
{
    if (const std::shared_ptr<ProjectTab> tab = frontTab())
        EditRouting(*tab, &m_settings.clipboard()).deleteSelection();
}

// ---- Windows ----------------------------------------------------------------------------

void Commands::openWindow(const QString& id)
{
    if (m_windows)
        m_windows->openWindow(id);
}

// ---- Rules ------------------------------------------------------------------------------

bool Commands::frontTabHasFile() const
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    return tab && tab->filePath().has_value();
}

bool Commands::elementSelected() const
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    return tab && EditRouting(*tab).hasSelection();
}

bool Commands::canPaste() const
{
    return !m_settings.clipboard().isEmpty();
}

QString Commands::windowTitle() const
{
    const std::shared_ptr<ProjectTab> tab = frontTab();
    if (!tab)
        return tr("Level: %1").arg(tr("Untitled"));
    return tr("Level: %1").arg(tab->filePath() ? *tab->filePath() : tab->name());
}

} // namespace stagewright
