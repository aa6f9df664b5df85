#include "LevelCommands.h"

#include "ProjectTab.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>

#include <QCoreApplication>

#include <algorithm>

namespace stagewright {

namespace {

QString commandText(const char* text)
{
    return QCoreApplication::translate("LevelCommands", text);
}

tessaro::Level freshLevel()
{
    return tessaro::newLevel(tessaro::Uuid::create(), tessaro::globalAppConfig().base);
}

} // namespace

// ---- Add ------------------------------------------------------------------------------

AddLevelCommand::AddLevelCommand(ProjectTab& tab) : m_tab(&tab), m_level(freshLevel())
{
    setText(commandText("Add Level"));
}

void AddLevelCommand::redoStep()
{
    if (!m_tab)
        return;
    m_tab->document().insertLevel(m_tab->levelConfig().size(), m_level);
    m_tab->refreshLevelList();
}

void AddLevelCommand::undo()
{
    if (!m_tab)
        return;
    const std::optional<std::size_t> index = m_tab->levelIndex(*m_level.id);
    if (!index)
        return;
    m_tab->document().removeLevelAt(*index);
    if (m_tab->levelSelected() == *m_level.id && !m_tab->levelConfig().empty())
        m_tab->switchLevel(m_tab->levelConfig().front().id.value_or(tessaro::Uuid::create()));
    m_tab->refreshLevelList();
}

// ---- Move -----------------------------------------------------------------------------

MoveLevelCommand::MoveLevelCommand(ProjectTab& tab, const tessaro::Uuid& levelId, int direction)
    : m_tab(&tab),
      m_levelId(levelId),
      m_direction(direction)
{
    setText(commandText("Move Level"));
}

void MoveLevelCommand::step(int direction)
{
    if (!m_tab)
        return;
    const std::optional<std::size_t> index = m_tab->levelIndex(m_levelId);
    if (!index)
        return;
    const auto neighbour = std::ptrdiff_t(*index) + direction;
    if (neighbour < 0 || neighbour >= std::ssize(m_tab->levelConfig()))
        return;
    m_tab->document().swapLevels(*index, std::size_t(neighbour));
    m_tab->refreshLevelList();
}

void MoveLevelCommand::redoStep()
{
    step(m_direction);
}

void MoveLevelCommand::undo()
{
    step(-m_direction);
}

// ---- Delete ---------------------------------------------------------------------------

DeleteLevelCommand::DeleteLevelCommand(ProjectTab& tab, const tessaro::Uuid& levelId)
    : m_tab(&tab),
      m_levelId(levelId),
      m_selectedBefore(tab.levelSelected())
{
    setText(commandText("Delete Level"));
}

void DeleteLevelCommand::redoStep()
{
    if (!m_tab)
        return;
    if (!m_done) {
        // The level on the canvas holds its truth in the scene until written back.
        if (m_tab->levelSelected() == m_levelId && m_tab->currentScene())
            m_tab->currentScene()->writeBack(m_levelId);
        const std::vector<tessaro::Level>& stored = m_tab->levelConfig();
        for (std::size_t i = 0; i < stored.size(); ++i)
            if (stored[i].id == m_levelId)
                m_removed.emplace_back(i, stored[i]);
        m_done = true;
    }
    std::vector<tessaro::Level> levels = m_tab->levelConfig();
    std::erase_if(levels, [&](const tessaro::Level& level) { return level.id == m_levelId; });
    if (levels.empty()) {
        if (!m_replacement)
            m_replacement = freshLevel();
        levels.push_back(*m_replacement);
    }
    const tessaro::Uuid first = levels.front().id.value_or(tessaro::Uuid::create());
    m_tab->document().replaceLevels(std::move(levels));
    m_tab->switchLevel(first);
    m_tab->refreshLevelList();
    // Asked to delete a level that is not there: the canvas shows the first
    // level, and there is nothing to undo.
    if (m_removed.empty())
        setObsolete(true);
}

void DeleteLevelCommand::undo()
{
    if (!m_tab)
        return;
    std::vector<tessaro::Level> levels = m_tab->levelConfig();
    if (m_replacement)
        std::erase_if(levels, [&](const tessaro::Level& level) { return level.id == m_replacement->id; });
    for (const auto& [index, level] : m_removed)
        levels.insert(levels.begin() + std::ptrdiff_t(std::min(index, levels.size())), level);
    m_tab->document().replaceLevels(std::move(levels));
    m_tab->switchLevel(m_tab->levelIndex(m_selectedBefore)
                           ? m_selectedBefore
                           : m_tab->levelConfig().front().id.value_or(tessaro::Uuid::create()));
    m_tab->refreshLevelList();
}

// ---- Replace --------------------------------------------------------------------------

ReplaceLevelsCommand::ReplaceLevelsCommand(ProjectTab& tab, std::vector<tessaro::Level> levels,
                                           std::optional<tessaro::Uuid> shown)
    : m_tab(&tab),
      m_shownBefore(tab.levelSelected()),
      m_after(std::move(levels)),
      m_shownAfter(shown)
{
    setText(commandText("Recover Changes"));
}

void ReplaceLevelsCommand::redoStep()
{
    if (!m_tab)
        return;
    if (!m_done) {
        // The shown level holds its truth in the scene until written back.
        if (m_tab->currentScene())
            m_tab->currentScene()->writeBack(m_tab->levelSelected());
        m_before = m_tab->levelConfig();
        m_done = true;
        if (m_before == m_after) {
            setObsolete(true);
            return;
        }
    }
    const bool shownIsThere = m_shownAfter &&
        std::any_of(m_after.begin(), m_after.end(), [&](const auto& level) { return level.id == m_shownAfter; });
    const tessaro::Uuid shown = shownIsThere ? *m_shownAfter
        : m_after.empty()                    ? m_shownBefore
                                             : m_after.front().id.value_or(m_shownBefore);
    show(m_after, shown);
}

void ReplaceLevelsCommand::undo()
{
    if (m_tab && m_done)
        show(m_before, m_shownBefore);
}

void ReplaceLevelsCommand::show(const std::vector<tessaro::Level>& levels, const tessaro::Uuid& shown)
{
    // The scene holds the levels being replaced: it writes back into an id
    // that names no level, which changes nothing, and then shows the new ones.
    m_tab->setLevelSelected(tessaro::Uuid::create());
    m_tab->setLevelConfig(levels);
    m_tab->switchLevel(shown);
    m_tab->refreshLevelList();
}

} // namespace stagewright
