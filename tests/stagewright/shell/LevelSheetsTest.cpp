// The sheets of the toolbar that show the level's own settings: statistics,
// level properties and the scene settings.
#include "ShellTestSupport.h"

#include <stagewright/shell/NavigationToolbar.h>
#include <stagewright/shell/StatisticsView.h>
#include <stagewright/state/ProjectTab.h>

#include <QPushButton>
#include <QToolButton>

namespace stagewright::test {
namespace {

using LevelSheetsTest = ShellFixture;

TEST_F(LevelSheetsTest, StatisticsCountTheShownSceneAndAllScenes)
{
    settings->openProject(project(QStringLiteral("Three.plist"), 3));
    QToolButton* button = window->toolbar()->statisticsButton();
    ASSERT_TRUE(button->isEnabled());
    button->click();
    auto* sheet = window->findChild<statisticsView*>();
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->scenesText(), QStringLiteral("3"));
    // Level i of the project holds i + 1 crates.
    EXPECT_EQ(sheet->countText(false, QStringLiteral("Obstacles")), QStringLiteral("1"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Obstacles")), QStringLiteral("6"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Coins")), QStringLiteral("0"));
    EXPECT_EQ(sheet->countText(true, QStringLiteral("Friendlies")), QStringLiteral("0"));

    sheet->findChild<QPushButton*>(QStringLiteral("closeButton"))->click();
    settle();
    EXPECT_FALSE(window->findChild<statisticsView*>());
}

} // namespace
} // namespace stagewright::test
