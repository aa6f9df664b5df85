#include "ProjectRecovery.h"

#include "Autosave.h"
#include "LevelCommands.h"
#include "ProjectTab.h"
#include "SceneSettings.h"
#include "StateDiagnostics.h"
#include "TabOfFile.h"

#include <algorithm>

namespace stagewright {

std::shared_ptr<ProjectTab> restoreProject(SceneSettings& settings, const RecoveryEntry& entry,
                                           std::vector<tessaro::Level> levels, const ReplaceQuestion& mayReplace)
{
    if (const std::shared_ptr<ProjectTab> open =
            entry.originalPath ? tabOfFile(settings.projectTabs(), *entry.originalPath) : nullptr) {
        if (open->isProjectDirty() && !(mayReplace && mayReplace(entry)))
            return nullptr;
        // Undo brings back what the tab held.
        pushStep(open->undoStack(), new ReplaceLevelsCommand(*open, std::move(levels), entry.shownLevel));
        settings.selectProject(open->id());
        return open;
    }

    const auto& tabs = settings.projectTabs();
    const bool replacesStartTab = tabs.size() == 1 && tabs.front()->name().startsWith(QStringLiteral("Untitled ")) &&
        !tabs.front()->isProjectDirty();
    const std::shared_ptr<ProjectTab> startTab = replacesStartTab ? tabs.front() : nullptr;

    settings.newProject();
    const std::shared_ptr<ProjectTab> tab = settings.selectedProjectTab();
    tab->setName(entry.name);
    tab->setLevelConfig(std::move(levels));
    tab->refreshLevelList();
    const auto& restored = tab->levelConfig();
    if (!restored.empty()) {
        const bool shownIsThere = entry.shownLevel &&
            std::any_of(restored.begin(), restored.end(), [&](const auto& l) { return l.id == entry.shownLevel; });
        tab->switchLevel(shownIsThere ? *entry.shownLevel : restored.front().id.value_or(tessaro::Uuid::create()));
    }
    tab->setFilePath(entry.originalPath);
    tab->setUnreadableFile(entry.originalUnreadable ? entry.originalPath : std::nullopt);
    tab->setProjectDirty(true);

    if (startTab)
        settings.closeProject(startTab->id());
    settings.selectProject(tab->id());
    return tab;
}

std::vector<std::shared_ptr<ProjectTab>> recoverProjects(SceneSettings& settings, RecoveryStore& store,
                                                         Autosave& autosave, const std::vector<RecoveryEntry>& entries,
                                                         const ReplaceQuestion& mayReplace)
{
    std::vector<std::shared_ptr<ProjectTab>> opened;
    std::vector<const RecoveryEntry*> done;
    for (const RecoveryEntry& entry : entries) {
        std::optional<std::vector<tessaro::Level>> levels = RecoveryStore::readLevels(entry);
        if (!levels) {
            diagnosticLine(QStringLiteral("Failed to recover: ") + entry.levelsFile);
            continue;
        }
        const std::shared_ptr<ProjectTab> tab = restoreProject(settings, entry, std::move(*levels), mayReplace);
        if (!tab) {
            diagnosticLine(QStringLiteral("Kept for later: ") + entry.name);
            continue;
        }
        autosave.saveTab(*tab);
        opened.push_back(tab);
        done.push_back(&entry);
        diagnosticLine(QStringLiteral("Recovered: ") + entry.name);
    }
    autosave.waitForWrites();
    for (const RecoveryEntry* entry : done)
        store.discard(*entry);
    return opened;
}

void discardProjects(RecoveryStore& store, const std::vector<RecoveryEntry>& entries)
{
    for (const RecoveryEntry& entry : entries)
        store.discard(entry);
}

} // namespace stagewright
