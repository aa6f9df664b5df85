// Bringing back projects that a run left in the recovery store when it ended
// without closing cleanly.
#pragma once

#include "RecoveryStore.h"

#include <memory>
#include <vector>

namespace stagewright {

class Autosave;
class SceneSettings;
class projectTab;

/// Opens recovered levels in a new tab in front, showing the level that was
/// shown. The tab has unsaved changes and belongs to the original file, which
/// stays untouched until the user saves. An untouched "Untitled" start tab
/// gives way, as it does to an opened project.
std::shared_ptr<projectTab> restoreProject(SceneSettings& settings, const RecoveryEntry& entry,
                                           std::vector<tessaro::Level> levels);

/// Opens each found project in a tab, copies it into this run's store at
/// once, and only then removes what the other run left, so that no moment
/// is without a copy. A project whose levels cannot be read stays in the
/// store. Returns the tabs opened.
std::vector<std::shared_ptr<projectTab>> recoverProjects(SceneSettings& settings, RecoveryStore& store,
                                                         Autosave& autosave, const std::vector<RecoveryEntry>& entries);

/// Removes the found projects for good.
void discardProjects(RecoveryStore& store, const std::vector<RecoveryEntry>& entries);

} // namespace stagewright
