// The steps of a project's history that change its list of levels: adding,
// moving, deleting a level, and taking the levels of a recovered copy. Each
// keeps what it needs to go back exactly.
#pragma once

#include <tessaro/model/LevelRecords.h>
#include <tessaro/model/Uuid.h>

#include "HistoryStep.h"
#include <QPointer>

#include <optional>
#include <utility>
#include <vector>

namespace stagewright {

class ProjectTab;

class AddLevelCommand : public HistoryStep {
public:
    explicit AddLevelCommand(ProjectTab& tab);
    void redoStep() override;
    void undo() override;

private:
    QPointer<ProjectTab> m_tab;
    tessaro::Level m_level;
};

class MoveLevelCommand : public HistoryStep {
public:
    /// Moves the level one place back (-1) or on (+1).
    MoveLevelCommand(ProjectTab& tab, const tessaro::Uuid& levelId, int direction);
    void redoStep() override;
    void undo() override;

private:
    void step(int direction);

    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    int m_direction;
};

class DeleteLevelCommand : public HistoryStep {
public:
    DeleteLevelCommand(ProjectTab& tab, const tessaro::Uuid& levelId);
    void redoStep() override;
    void undo() override;

private:
    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_levelId;
    tessaro::Uuid m_selectedBefore;
    /// The levels taken out, with their places, first place first.
    std::vector<std::pair<std::size_t, tessaro::Level>> m_removed;
    /// The level that stands in when the last one goes.
    std::optional<tessaro::Level> m_replacement;
    bool m_done = false;
};

/// All levels of the tab replaced by others (a recovered copy of the same
/// file), the level that was shown shown again where it is still there.
class ReplaceLevelsCommand : public HistoryStep {
public:
    ReplaceLevelsCommand(ProjectTab& tab, std::vector<tessaro::Level> levels, std::optional<tessaro::Uuid> shown);
    void redoStep() override;
    void undo() override;

private:
    void show(const std::vector<tessaro::Level>& levels, const tessaro::Uuid& shown);

    QPointer<ProjectTab> m_tab;
    std::vector<tessaro::Level> m_before;
    tessaro::Uuid m_shownBefore;
    std::vector<tessaro::Level> m_after;
    std::optional<tessaro::Uuid> m_shownAfter;
    bool m_done = false;
};

} // namespace stagewright
