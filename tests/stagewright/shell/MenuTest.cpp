// The menu commands: titles, keys, enabled rules and the recent list.
#include "ShellTestSupport.h"

#include <stagewright/state/ProjectTab.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace stagewright::test {

namespace {
using MenuTest = ShellFixture;

QStringList titlesOf(const QMenu* menu)
{
    QStringList titles;
    for (const QAction* action : menu->actions())
        titles << (action->isSeparator() ? QStringLiteral("--") : action->text());
    return titles;
}

const QMenu* menuNamed(QMenuBar* bar, const QString& title)
{
    for (QAction* action : bar->actions())
        if (action->menu() && action->text().remove(QLatin1Char('&')) == title)
            return action->menu();
    return nullptr;
}
} // namespace

TEST_F(MenuTest, FileMenuHasTheCommandsInOrderWithTheirKeys)
{
    const QMenu* file = menuNamed(window->menuBar(), QStringLiteral("File"));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(titlesOf(file),
              QStringList({"New Workspace...", "Open Workspace...", "--", "New Level", "--", "Open Level...",
                           "Open Recent...", "--", "Save", "Duplicate...", "Move To...", "Show in Finder", "--",
                           "Close Level", "--", "Quit"}));

    const auto key = [&](const char* title) { return action(QString::fromUtf8(title))->shortcut(); };
    EXPECT_EQ(key("New Workspace..."), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_W));
    EXPECT_EQ(key("Open Workspace..."), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_K));
    EXPECT_EQ(key("New Level"), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_N));
    EXPECT_EQ(key("Open Level..."), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_O));
    EXPECT_EQ(key("Save"), QKeySequence(Qt::CTRL | Qt::Key_S));
    EXPECT_EQ(key("Duplicate..."), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_D));
    // The later of two commands that share a key has none, so every key
    // names one command.
    EXPECT_TRUE(key("Move To...").isEmpty());
    EXPECT_TRUE(key("Close Level").isEmpty());
    QList<QKeySequence> keys;
    for (const QAction* action : window->findChildren<QAction*>())
        if (!action->shortcut().isEmpty()) {
            EXPECT_FALSE(keys.contains(action->shortcut())) << action->text().toStdString();
            keys << action->shortcut();
        }
}

TEST_F(MenuTest, EnabledRulesFollowTheFrontTab)
{
    // A new tab has no file: nothing to move or show.
    EXPECT_TRUE(action("Save")->isEnabled());
    EXPECT_TRUE(action("Duplicate...")->isEnabled());
    EXPECT_TRUE(action("Close Level")->isEnabled());
    EXPECT_FALSE(action("Move To...")->isEnabled());
    EXPECT_FALSE(action("Show in Finder")->isEnabled());

    settings->openProject(project(QStringLiteral("Forest.plist"), 1));
    EXPECT_TRUE(action("Move To...")->isEnabled());
    EXPECT_TRUE(action("Show in Finder")->isEnabled());
    action("Show in Finder")->trigger();
    ASSERT_EQ(openedUrls.size(), 1u);
    EXPECT_TRUE(openedUrls.back().toLocalFile().endsWith(QStringLiteral("/Forest.plist")));

    // Back to a tab without a file, the rule follows the front tab.
    commands->newLevel();
    EXPECT_FALSE(action("Move To...")->isEnabled());

    // The pasteboard commands wait for the canvas's selection; the updater
    // does not exist here.
    for (const char* title : {"Cut", "Copy", "Paste", "Delete", "Check for Updates…"})
        EXPECT_FALSE(action(QString::fromUtf8(title))->isEnabled()) << title;
    EXPECT_TRUE(action("About Tessaro - StageWright")->isEnabled());
}

TEST_F(MenuTest, RecentMenuListsOpenedProjectsAndClears)
{
    const QString first = project(QStringLiteral("First.plist"), 1);
    const QString second = project(QStringLiteral("Second.plist"), 2);
    settings->openProject(first);
    settings->openProject(second);
    QMenu* recent = window->recentMenu();
    EXPECT_EQ(titlesOf(recent), QStringList({"Second.plist", "First.plist", "--", "Clear Menu"}));

    // An entry opens its project in a new tab.
    recent->actions().at(1)->trigger();
    EXPECT_EQ(front().name(), QStringLiteral("First"));
    EXPECT_EQ(front().filePath(), first);
    EXPECT_EQ(front().levelConfig().size(), 1u);

    recent->actions().last()->trigger();
    EXPECT_EQ(titlesOf(recent), QStringList({"--", "Clear Menu"}));
    EXPECT_TRUE(settings->recentDocumentItemsList().empty());
}

TEST_F(MenuTest, TitleNamesTheFrontLevel)
{
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Level: Untitled 1[*]"));
    const QString path = project(QStringLiteral("Cave.plist"), 1);
    settings->openProject(path);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Level: ") + path + QStringLiteral("[*]"));
    EXPECT_FALSE(window->isWindowModified());
    front().setProjectDirty(true);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_GE(window->minimumWidth(), 1300);
    EXPECT_GE(window->minimumHeight(), 700);
}

TEST_F(MenuTest, AboutAndSettingsOpenTheirWindows)
{
    action("About Tessaro - StageWright")->trigger();
    EXPECT_TRUE(windows->isWindowOpen(WindowId::about));
    EXPECT_EQ(windows->window(WindowId::about)->windowTitle(), QStringLiteral("About StageWright"));

    action("Settings...")->trigger();
    EXPECT_TRUE(windows->isWindowOpen(WindowId::settings));
    EXPECT_EQ(windows->window(WindowId::settings)->windowTitle(), QStringLiteral("Settings"));
}

} // namespace stagewright::test
