// Opening, saving and closing projects, with and without a scene.
#include "StateFixture.h"

#include <stagewright/state/Workspace.h>

#include <tessaro/model/LevelFiles.h>

#include <QDir>

using namespace stagewright;
using namespace stagewright::test;

TEST(Untitled, NumbersFollowTheLargestUntitledTab)
{
    EXPECT_EQ(nextUntitledNumber({}), 1);
    EXPECT_EQ(nextUntitledNumber({"Untitled 1", "Untitled 5"}), 6);
    EXPECT_EQ(nextUntitledNumber({"Untitled x"}), 1);
    EXPECT_EQ(nextUntitledNumber({"Untitled -4", "Level7", "Untitled"}), 1);
    EXPECT_EQ(nextUntitledNumber({"Untitled 07", "My Untitled 40"}), 8);
    EXPECT_EQ(nextUntitledNumber({"Untitled 99999999999999999999"}), 1);
}

TEST_F(StateFixture, OpenReplacesTheStartTabAndLoadsTheFirstLevel)
{
    start();
    const QString path = writeProject(QStringLiteral("it's a \"boss\" level.plist"), 3);
    const std::vector<tessaro::Level> onDisk = tessaro::loadLevels(path.toStdString());
    const QString startScene = frontScene()->logName();
    sceneLog->clear();
    DiagnosticCapture capture;
    settings->openProject(path);

    EXPECT_EQ(tabNames(), QStringList{"it's a \"boss\" level"});
    ProjectTab& tab = front();
    ASSERT_EQ(tab.levelConfig().size(), 3u);
    EXPECT_NE(tab.levelConfig()[0].id, onDisk[0].id); // ids are renewed on every open
    EXPECT_EQ(tab.levelConfig()[0].settings, onDisk[0].settings);
    EXPECT_EQ(tab.levelSelected(), *tab.levelConfig()[0].id);
    EXPECT_EQ(tab.filePath(), path);
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_EQ(tab.levelListDropdownValues().size(), 3u);
    EXPECT_EQ(settings->tabSelected(), tab.id());
    EXPECT_TRUE(capture.contains("Success: " + path.toStdString()));
    ASSERT_FALSE(settings->recentDocumentItemsList().empty());
    EXPECT_EQ(settings->recentDocumentItemsList().front().path(), path);

    // The new tab's scene loads the file's first level; then the start tab
    // and its scene go.
    ASSERT_NE(frontScene(), nullptr);
    EXPECT_EQ(frontScene()->loaded, tab.levelSelected());
    const int load =
        findIn(*sceneLog, frontScene()->logName() + QStringLiteral(" loadLevel ") + shortId(tab.levelSelected()));
    EXPECT_GE(load, 0) << logText().toStdString();
    EXPECT_EQ(sceneLog->last(), startScene + QStringLiteral(" release"));
    EXPECT_GT(sceneLog->size() - 1, load);

    // A second open keeps the first project: two tabs.
    settings->openProject(writeProject(QStringLiteral("second.plist"), 1));
    EXPECT_EQ(tabNames(), (QStringList{"it's a \"boss\" level", "second"}));
    EXPECT_EQ(settings->recentDocumentItemsList().size(), 2u);
}

TEST_F(StateFixture, OpenKeepsAStartTabWithChanges)
{
    start(false);
    front().setProjectDirty(true);
    settings->openProject(writeProject(QStringLiteral("a.plist"), 1));
    EXPECT_EQ(tabNames(), (QStringList{"Untitled 1", "a"}));
    EXPECT_EQ(settings->selectedProjectTab()->name(), "a");
    EXPECT_EQ(settings->selectedProjectTab()->currentScene(), nullptr);
}

TEST_F(StateFixture, SaveWritesTheSceneBackBeforeTheFile)
{
    start();
    const QString path = writeProject(QStringLiteral("project.plist"), 2);
    settings->openProject(path);
    ProjectTab& tab = front();
    tab.setProjectDirty(true);
    sceneLog->clear();
    DiagnosticCapture capture;

    EXPECT_TRUE(settings->saveProject());
    EXPECT_FALSE(tab.isProjectDirty());
    EXPECT_TRUE(capture.contains("Save project result: true"));
    EXPECT_EQ(*sceneLog,
              QStringList{frontScene()->logName() + QStringLiteral(" writeBack ") + shortId(tab.levelSelected())});
    const auto saved = tessaro::loadLevels(path.toStdString());
    ASSERT_EQ(saved.size(), 2u);
    EXPECT_EQ(saved[0].settings.fontColor.value_or("").rfind("written back by scene", 0), 0u);
    EXPECT_FALSE(saved[1].settings.fontColor);

    capture.clear();
    EXPECT_EQ(settings->saveCommand(), true);
    EXPECT_TRUE(capture.contains("Success save"));
    EXPECT_EQ(settings->duplicateProposedName(), "project_copy");

    // Saving under another name moves the tab to that file.
    const QString copy = home->folder(QStringLiteral("copies")) + QStringLiteral("/project_copy.plist");
    EXPECT_TRUE(settings->saveProject(copy));
    EXPECT_EQ(tab.filePath(), copy);
    EXPECT_EQ(tessaro::loadLevels(copy.toStdString()).size(), 2u);
}

TEST_F(StateFixture, SaveWithoutAFileWritesNothing)
{
    start();
    front().setProjectDirty(true);
    sceneLog->clear();
    DiagnosticCapture capture;
    EXPECT_FALSE(settings->saveProject());
    EXPECT_TRUE(front().isProjectDirty());
    EXPECT_TRUE(capture.contains("Save project result: false"));
    EXPECT_TRUE(sceneLog->isEmpty()); // not even a write-back
    EXPECT_EQ(settings->saveCommand(), std::nullopt); // the shell shows the save panel
    EXPECT_EQ(settings->duplicateProposedName(), "Untitled 1_copy");

    // A location that cannot be written keeps the tab dirty.
    const QString blocker = home->folder(QStringLiteral("blocked")) + QStringLiteral("/file");
    test::writeFile(blocker, "x");
    EXPECT_FALSE(settings->saveProject(blocker + QStringLiteral("/inside.plist")));
    EXPECT_TRUE(front().isProjectDirty());
}

TEST_F(StateFixture, AFileThatFailsToOpenIsNeverOverwrittenByAPlainSave)
{
    start();
    const QString path = home->folder(QStringLiteral("projects")) + QStringLiteral("/broken.plist");
    const QByteArray broken("<?xml version=\"1.0\"?><plist><array><dict><key>id</key>");
    test::writeFile(path, broken);
    DiagnosticCapture capture;
    settings->openProject(path);

    EXPECT_TRUE(capture.containsPrefix("Configuration error (" + path.toStdString() + "): "));
    EXPECT_TRUE(capture.contains("Failed to open: " + path.toStdString()));
    ProjectTab& tab = front();
    EXPECT_EQ(tab.name(), "broken");
    EXPECT_TRUE(tab.levelConfig().empty());
    EXPECT_EQ(tab.filePath(), path);
    EXPECT_EQ(tab.unreadableFile(), path);

    tab.addLevel();
    EXPECT_FALSE(settings->saveProject());
    EXPECT_EQ(test::readFile(path), broken);
    EXPECT_TRUE(tab.isProjectDirty());

    // Naming the file again in the save panel is the user's own choice.
    EXPECT_TRUE(settings->saveProject(path));
    EXPECT_EQ(tessaro::loadLevels(path.toStdString()).size(), 1u);
    EXPECT_FALSE(tab.unreadableFile());

    // A missing file: same safe empty tab.
    settings->openProject(home->path() + QStringLiteral("/nothing-here.plist"));
    EXPECT_TRUE(front().levelConfig().empty());
    EXPECT_FALSE(settings->saveProject());
    EXPECT_FALSE(QFileInfo::exists(home->path() + QStringLiteral("/nothing-here.plist")));
}

TEST_F(StateFixture, AnEmptyProjectOpensWithNoLevels)
{
    start(false);
    const QString path = writeProject(QStringLiteral("empty.plist"), 0);
    DiagnosticCapture capture;
    settings->openProject(path);
    EXPECT_TRUE(front().levelConfig().empty());
    EXPECT_TRUE(capture.contains("Failed to open: " + path.toStdString()));
    EXPECT_FALSE(front().unreadableFile()); // it was read: saving over it is fine
    EXPECT_TRUE(settings->saveProject());
}

TEST_F(StateFixture, ClosingTabsAlwaysLeavesOne)
{
    start();
    settings->newProject();
    settings->newProject();
    EXPECT_EQ(tabNames(), (QStringList{"Untitled 1", "Untitled 2", "Untitled 3"}));
    const auto second = settings->projectTabs()[1];
    const QString scene = static_cast<FakeScene*>(second->currentScene().get())->logName();
    sceneLog->clear();
    settings->closeProject(second->id());
    EXPECT_EQ(tabNames(), (QStringList{"Untitled 1", "Untitled 3"}));
    EXPECT_EQ(settings->selectedProjectTab(), settings->projectTabs().front());
    EXPECT_EQ(settings->tabSelected(), settings->projectTabs().front()->id());
    EXPECT_TRUE(second->levelConfig().empty());
    EXPECT_EQ(second->currentScene(), nullptr);
    EXPECT_EQ(*sceneLog, QStringList{scene + QStringLiteral(" release")});

    settings->closeProject(tessaro::Uuid::create()); // no such tab
    EXPECT_EQ(settings->projectTabs().size(), 2u);

    for (const auto& tab : std::vector(settings->projectTabs()))
        settings->closeProject(tab->id());
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    EXPECT_EQ(front().levelConfig().size(), 1u);
}

TEST_F(StateFixture, SelectRevealAndRecentList)
{
    start(false);
    settings->newProject();
    const auto first = settings->projectTabs().front();
    settings->setNodeListItemSelected(QStringLiteral("crate"));
    settings->selectProject(first->id());
    EXPECT_EQ(settings->selectedProjectTab(), first);
    EXPECT_EQ(settings->nodeListItemSelected(), "");

    QStringList revealed;
    settings->setFileRevealer([&](const QString& path) { revealed << path; });
    settings->showInFinder();
    const QString path = writeProject(QStringLiteral("shown.plist"), 1);
    settings->openProject(path);
    settings->showInFinder();
    EXPECT_EQ(revealed, (QStringList{QDir::currentPath(), path}));

    ASSERT_EQ(settings->recentDocumentItemsList().size(), 1u);
    settings->clearRecentDocuments();
    EXPECT_TRUE(settings->recentDocumentItemsList().empty());
    EXPECT_TRUE(readWorkspaceStore(workingSpacePath()).recentDocuments.empty());
}
