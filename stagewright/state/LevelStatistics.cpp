#include "LevelStatistics.h"

#include "LevelScene.h"
#include "ProjectTab.h"

#include <tessaro/model/Enumerations.h>

namespace stagewright {

namespace {

template <class T>
std::int64_t sizeOf(const std::optional<std::vector<T>>& list)
{
    return list ? std::int64_t(list->size()) : 0;
}

std::int64_t charactersOfClass(const tessaro::Level& level, tessaro::characterClassType type)
{
    if (!level.characters)
        return 0;
    std::int64_t count = 0;
    // A character without a class text is neither enemy nor friend here.
    for (const tessaro::CharacterLevelItem& item : *level.characters)
        if (item.charClassType && *item.charClassType == tessaro::caseText(type))
            ++count;
    return count;
}

} // namespace

std::int64_t countElements(const tessaro::Level& level, int selector)
{
    switch (selector) {
    case elementCount::backgrounds: return level.background ? sizeOf(level.background->backgrounds) : 0;
    case elementCount::ground: return sizeOf(level.ground);
    case elementCount::obstacles: return sizeOf(level.obstacles);
    case elementCount::enemies: return charactersOfClass(level, tessaro::characterClassType::enemy);
    case elementCount::friendlies: return charactersOfClass(level, tessaro::characterClassType::friendly);
    case elementCount::coins: {
        if (!level.coins || !level.coins->coins)
            return 0;
        std::int64_t count = 0;
        for (const tessaro::Coin& coin : *level.coins->coins)
            count += coin.repeatCount.value_or(1);
        return count;
    }
    case elementCount::shields: return level.shields ? sizeOf(level.shields->shields) : 0;
    case elementCount::artifacts: return level.artifacts ? sizeOf(level.artifacts->artifacts) : 0;
    case elementCount::checkpoints: return level.checkpoints ? sizeOf(level.checkpoints->locations) : 0;
    default: return 0;
    }
}

void writeBackShownLevel(ProjectTab& tab)
{
    if (const auto& scene = tab.currentScene())
        scene->writeBack(tab.levelSelected());
}

std::int64_t countElements(const ProjectTab& tab, int selector, bool allLevels)
{
    std::int64_t count = 0;
    for (const tessaro::Level& level : tab.levelConfig())
        if (allLevels || level.id == tab.levelSelected())
            count += countElements(level, selector);
    return count;
}

const std::vector<StatisticsRow>& statisticsRows()
{
    static const std::vector<StatisticsRow> rows{
        {"Obstacles", elementCount::obstacles}, {"Coins", elementCount::coins},
        {"Artifacts", elementCount::artifacts}, {"Checkpoints", elementCount::checkpoints},
        {"Enemies", elementCount::enemies},     {"Friendlies", elementCount::friendlies},
    };
    return rows;
}

} // namespace stagewright
