// Bringing back projects that a run left in the recovery store when it ended
// without closing cleanly.
#pragma once

#include "RecoveryStore.h"

#include <functional>
#include <memory>
#include <vector>

namespace stagewright {

class Autosave;
class SceneSettings;
class ProjectTab;

/// Whether the recovered copy of a project may replace the unsaved changes of
/// the tab that has its file open.
using ReplaceQuestion = std::function<bool(const RecoveryEntry& entry)>;

/// Opens recovered levels in a new tab in front, showing the level that was
/// shown. The tab has unsaved changes and belongs to the original file, which
/// stays untouched until the user saves. An untouched "Untitled" start tab
/// gives way, as it does to an opened project.
///
/// A file has one tab: when the original file is open already, its tab takes
/// the recovered levels as one step of its history and is shown. A tab with
/// unsaved changes of its own does so only when `mayReplace` agrees; null
/// when it does not.
std::shared_ptr<ProjectTab> restoreProject(SceneSettings& settings, const RecoveryEntry& entry,
                                           std::vector<tessaro::Level> levels, const ReplaceQuestion& mayReplace);

/// Opens each found project in a tab, copies it into this run's store at
/// once, and only then removes what the other run left, so that no moment
/// is without a copy. A project whose levels cannot be read, or whose open
/// tab keeps its own changes, stays in the store. Returns the tabs opened.
std::vector<std::shared_ptr<ProjectTab>> recoverProjects(SceneSettings& settings, RecoveryStore& store,
                                                         Autosave& autosave, const std::vector<RecoveryEntry>& entries,
                                                         const ReplaceQuestion& mayReplace);

/// Removes the found projects for good.
void discardProjects(RecoveryStore& store, const std::vector<RecoveryEntry>& entries);

} // namespace stagewright
