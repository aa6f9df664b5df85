#include "ExternalChanges.h"

#include "Dialogs.h"
#include "FooterView.h"

#include <stagewright/scene/ScenePictures.h>
#include <stagewright/state/CatalogueDocument.h>
#include <stagewright/state/ProjectReload.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/StateDiagnostics.h>
#include <stagewright/state/WorkspaceWatcher.h>

#include <QLabel>

namespace stagewright {

namespace {

constexpr int noticeMilliseconds = 12000;

} // namespace

ExternalChanges::ExternalChanges(SceneSettings& settings, WorkspaceWatcher& watcher, ShellDialogs& dialogs,
                                 FooterView* footer, QObject* parent)
    : QObject(parent),
      m_settings(settings),
      m_dialogs(dialogs)
{
    m_notice = new QLabel;
    m_notice->setObjectName(QStringLiteral("externalChangeNotice"));
    if (footer)
        footer->addStatusWidget(m_notice);
    m_noticeTimer.setSingleShot(true);
    m_noticeTimer.setInterval(noticeMilliseconds);
    connect(&m_noticeTimer, &QTimer::timeout, m_notice, &QLabel::clear);

    // Queued: a question asked from inside the watcher's report would let
    // the next report in while it waits.
    connect(&watcher, &WorkspaceWatcher::projectChangedOnDisk, this, &ExternalChanges::projectChanged,
            Qt::QueuedConnection);
    connect(&watcher, &WorkspaceWatcher::cataloguesChangedOnDisk, this, &ExternalChanges::cataloguesChanged,
            Qt::QueuedConnection);
    connect(&watcher, &WorkspaceWatcher::assetsChangedOnDisk, this, &ExternalChanges::assetsChanged,
            Qt::QueuedConnection);
}

void ExternalChanges::projectChanged(const tessaro::Uuid& tabId)
{
    const std::shared_ptr<ProjectTab> tab = m_settings.findTab(tabId);
    if (!tab || !tab->filePath())
        return;
    if (tab->isProjectDirty() && !m_dialogs.confirmReloadChangedProject(tab->name())) {
        note(tr("\"%1\" changed on disk; your changes are kept.").arg(tab->name()),
             tr("Saving the project replaces the file on disk."));
        return;
    }
    if (reloadProjectFromDisk(m_settings.gate(), *tab))
        note(tr("\"%1\" changed on disk and was reloaded.").arg(tab->name()), *tab->filePath());
    else
        note(tr("\"%1\" changed on disk but cannot be read.").arg(tab->name()),
             tr("The open project is kept as it was; it is read again when the file changes next."));
}

void ExternalChanges::cataloguesChanged()
{
    CatalogueDocument& catalogues = m_settings.catalogues();
    // The editor's own save of a catalogue is no news.
    if (!catalogues.differsOnDisk())
        return;
    if (catalogues.hasUnsavedChanges()) {
        diagnosticLine(QStringLiteral("Catalogues changed on disk; the unsaved catalogue edits are kept."));
        note(tr("The catalogues changed on disk; your edits are kept."),
             tr("Your unsaved catalogue edits are kept; saving them replaces the catalogue files."));
        return;
    }
    m_settings.reloadCatalogues();
    note(tr("The catalogues changed on disk and were reloaded."), QString());
}

void ExternalChanges::assetsChanged()
{
    // Pictures are read again from their files, so a changed image shows.
    SceneImageCache::shared().clear();
    m_settings.loadFileLists();
    m_settings.layOpenLevelsAgain();
}

void ExternalChanges::note(const QString& text, const QString& detail)
{
    m_notice->setText(text);
    m_notice->setToolTip(detail);
    m_noticeTimer.start();
}

} // namespace stagewright
