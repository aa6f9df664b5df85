// The numbers of the statistics sheet, counted in the level records.
#include <stagewright/state/LevelStatistics.h>
#include <stagewright/state/ProjectTab.h>

#include <gtest/gtest.h>

using namespace stagewright;

namespace {

tessaro::CharacterLevelItem character(std::optional<std::string> classText)
{
    tessaro::CharacterLevelItem item;
    item.elementName = "Walker";
    item.charClassType = std::move(classText);
    return item;
}

tessaro::Coin coin(std::optional<std::int64_t> repeatCount)
{
    tessaro::Coin value;
    value.repeatCount = repeatCount;
    return value;
}

/// A level with some of every kind.
tessaro::Level busyLevel()
{
    tessaro::Level level;
    level.id = tessaro::Uuid::create();
    level.background.emplace().backgrounds = std::vector<tessaro::BackgroundImage>(2);
    level.ground = std::vector<tessaro::GroundSection>(3);
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>(4);
    level.characters =
        std::vector<tessaro::CharacterLevelItem>{character("enemy"),      character("friendly"), character("friendly"),
                                                 character(std::nullopt), character("ghost"),    character("Enemy")};
    level.coins.emplace().coins = std::vector<tessaro::Coin>{coin(0), coin(std::nullopt), coin(3)};
    level.shields.emplace().shields = std::vector<tessaro::Shield>(1);
    level.artifacts.emplace().artifacts = std::vector<tessaro::Artifact>(2);
    level.checkpoints.emplace().locations = std::vector<tessaro::CheckPointLocation>(5);
    return level;
}

TEST(StatisticsTest, EachSelectorCountsItsListAndCoinsCountTheirRepeats)
{
    const tessaro::Level level = busyLevel();
    EXPECT_EQ(countElements(level, elementCount::backgrounds), 2);
    EXPECT_EQ(countElements(level, elementCount::ground), 3);
    EXPECT_EQ(countElements(level, elementCount::obstacles), 4);
    // Only the exact case texts count; a character without a class is neither.
    EXPECT_EQ(countElements(level, elementCount::enemies), 1);
    EXPECT_EQ(countElements(level, elementCount::friendlies), 2);
    // A repeat count of 0 adds nothing, a coin without one adds 1.
    EXPECT_EQ(countElements(level, elementCount::coins), 4);
    EXPECT_EQ(countElements(level, elementCount::shields), 1);
    EXPECT_EQ(countElements(level, elementCount::artifacts), 2);
    EXPECT_EQ(countElements(level, elementCount::checkpoints), 5);
    EXPECT_EQ(countElements(level, 9), 0);

    // Absent sub-records and lists count 0.
    const tessaro::Level empty;
    for (int selector = elementCount::backgrounds; selector <= elementCount::checkpoints; ++selector)
        EXPECT_EQ(countElements(empty, selector), 0) << selector;
}

TEST(StatisticsTest, TheTabCountsItsSelectedLevelOrAllLevels)
{
    ProjectTab tab(tessaro::Uuid::create(), QStringLiteral("Counted"));
    tessaro::Level other;
    other.id = tessaro::Uuid::create();
    other.obstacles = std::vector<tessaro::ObstacleLevelItem>(1);
    other.coins.emplace().coins = std::vector<tessaro::Coin>{coin(std::nullopt), coin(2)};
    const tessaro::Level busy = busyLevel();
    tab.setLevelConfig({busy, other});

    tab.setLevelSelected(*other.id);
    EXPECT_EQ(countElements(tab, elementCount::obstacles, false), 1);
    EXPECT_EQ(countElements(tab, elementCount::coins, false), 3);
    EXPECT_EQ(countElements(tab, elementCount::checkpoints, false), 0);
    EXPECT_EQ(countElements(tab, elementCount::obstacles, true), 5);
    EXPECT_EQ(countElements(tab, elementCount::coins, true), 7);
    EXPECT_EQ(countElements(tab, elementCount::checkpoints, true), 5);

    // A selected id that names no level counts nothing of its own.
    tab.setLevelSelected(tessaro::Uuid::create());
    EXPECT_EQ(countElements(tab, elementCount::obstacles, false), 0);
    EXPECT_EQ(countElements(tab, elementCount::obstacles, true), 5);
}

} // namespace
