// Files changed by other programs while the editor has them open: a clean
// project is reloaded, a project with unsaved changes asks, the editor's own
// saves are no news, a half-written file keeps the open project, and changed
// catalogues and images reach the editor without a restart.
#include "ShellTestSupport.h"

#include <stagewright/shell/ExternalChanges.h>
#include <stagewright/shell/FooterView.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceWatcher.h>

#include <tessaro/model/ConfigFiles.h>

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace stagewright::test {

namespace {

struct ExternalChangesTest : ShellFixture {
    std::unique_ptr<WorkspaceWatcher> watcher;
    std::unique_ptr<ExternalChanges> changes;
    QString path;

    void SetUp() override
    {
        ShellFixture::SetUp();
        path = project(QStringLiteral("Cave.plist"), 2);
        settings->openProject(path);
        watcher = std::make_unique<WorkspaceWatcher>(*settings, 50);
        changes = std::make_unique<ExternalChanges>(*settings, *watcher, dialogs, window->footer());
    }
    void TearDown() override
    {
        changes.reset();
        watcher.reset();
        ShellFixture::TearDown();
    }

    QString notice() const { return changes->notice()->text(); }
    /// Reports what changed and lets the queued handling run.
    void check()
    {
        watcher->checkNow();
        settle();
    }
};

} // namespace

TEST_F(ExternalChangesTest, ACleanProjectIsReloadedWhenItsFileChanges)
{
    EXPECT_TRUE(watcher->watchedPaths().contains(path));
    const tessaro::Uuid shown = front().levelSelected();
    // Another program replaces the file; the watcher notices by itself.
    writeProject(path, 3);
    QTRY_COMPARE_WITH_TIMEOUT(front().levelConfig().size(), std::size_t(3), 5000);
    EXPECT_FALSE(front().isProjectDirty());
    EXPECT_EQ(front().undoStack().count(), 0);
    EXPECT_TRUE(notice().contains(QStringLiteral("reloaded"))) << notice().toStdString();
    EXPECT_TRUE(dialogs.reloadQuestions.isEmpty());
    // The level shown before is not in the new file: the first one shows.
    EXPECT_NE(front().levelSelected(), shown);
    EXPECT_EQ(front().levelSelected(), front().levelConfig().front().id);
    ASSERT_NE(front().currentScene(), nullptr);

    // The file replaced by a rename is still watched.
    writeProject(path, 1);
    QTRY_COMPARE_WITH_TIMEOUT(front().levelConfig().size(), std::size_t(1), 5000);
}

TEST_F(ExternalChangesTest, UnsavedChangesAskAndTheOwnSaveIsNoNews)
{
    QSignalSpy reported(watcher.get(), &WorkspaceWatcher::projectChangedOnDisk);
    front().addLevel();
    ASSERT_TRUE(settings->saveProject());
    check();
    EXPECT_EQ(reported.count(), 0);
    EXPECT_TRUE(notice().isEmpty());

    front().addLevel();
    ASSERT_TRUE(front().isProjectDirty());
    const std::size_t edited = front().levelConfig().size();
    writeProject(path, 5);
    dialogs.reloadAnswers = {false};
    check();
    EXPECT_EQ(dialogs.reloadQuestions, QStringList{QStringLiteral("Cave")});
    EXPECT_EQ(front().levelConfig().size(), edited);
    EXPECT_TRUE(front().isProjectDirty());
    EXPECT_TRUE(notice().contains(QStringLiteral("kept"))) << notice().toStdString();
    // The same change is not asked about again.
    check();
    EXPECT_EQ(dialogs.reloadQuestions.size(), 1);

    writeProject(path, 4);
    dialogs.reloadAnswers = {true};
    check();
    EXPECT_EQ(dialogs.reloadQuestions.size(), 2);
    EXPECT_EQ(front().levelConfig().size(), std::size_t(4));
    EXPECT_FALSE(front().isProjectDirty());
    EXPECT_FALSE(front().undoStack().canUndo());
}

TEST_F(ExternalChangesTest, AFileCaughtHalfWrittenKeepsTheOpenProject)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("<?xml version=\"1.0\"?><plist><array><dict><key>id</key>");
    file.close();
    check();
    EXPECT_EQ(front().levelConfig().size(), std::size_t(2));
    EXPECT_TRUE(notice().contains(QStringLiteral("cannot be read"))) << notice().toStdString();
    // Once the other program has finished, the project is read.
    writeProject(path, 3);
    check();
    EXPECT_EQ(front().levelConfig().size(), std::size_t(3));
}

TEST_F(ExternalChangesTest, CataloguesAndImagesChangedOnDiskReachTheEditor)
{
    const QString assets = assetsFolder(workingSpacePath());
    const std::string folder = assets.toStdString();
    // Another program adds an obstacle to the catalogue file.
    const std::vector<tessaro::Obstacle> before = tessaro::obstacleCatalogue();
    tessaro::Obstacle added;
    added.name = "Boulder";
    tessaro::obstacleCatalogue().push_back(added);
    ASSERT_TRUE(tessaro::saveConfig("ObstacleList", "plist", folder, tessaro::configType::obstacles));
    tessaro::obstacleCatalogue() = before;

    const qsizetype loadsBefore = sceneLog->size();
    check();
    ASSERT_EQ(tessaro::obstacleCatalogue().size(), before.size() + 1);
    EXPECT_EQ(tessaro::obstacleCatalogue().back().name, "Boulder");
    EXPECT_GT(sceneLog->size(), loadsBefore); // the open level was laid again
    EXPECT_TRUE(notice().contains(QStringLiteral("reloaded"))) << notice().toStdString();

    // The editor's own catalogue save is no news.
    tessaro::obstacleCatalogue().back().name = "Rock";
    ASSERT_TRUE(settings->catalogues().saveChanged());
    changes->notice()->clear();
    check();
    EXPECT_TRUE(notice().isEmpty()) << notice().toStdString();

    // Unsaved catalogue edits of the user's are kept.
    tessaro::obstacleCatalogue().back().name = "Stone";
    const std::vector<tessaro::Obstacle> mine = tessaro::obstacleCatalogue();
    tessaro::obstacleCatalogue().back().name = "Pebble";
    ASSERT_TRUE(tessaro::saveConfig("ObstacleList", "plist", folder, tessaro::configType::obstacles));
    tessaro::obstacleCatalogue() = mine;
    check();
    EXPECT_EQ(tessaro::obstacleCatalogue().back().name, "Stone");
    EXPECT_TRUE(notice().contains(QStringLiteral("kept"))) << notice().toStdString();

    // A new image shows in the lists.
    const auto hasImage = [this](const QString& name) {
        for (const FileItem& item : settings->imageList())
            if (item.name.contains(name))
                return true;
        return false;
    };
    EXPECT_FALSE(hasImage(QStringLiteral("newcrate")));
    QImage picture(8, 8, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(kindImageFolder(workingSpacePath(), tessaro::sceneObjectType::obstacles) +
                             QStringLiteral("newcrate.png")));
    check();
    EXPECT_TRUE(hasImage(QStringLiteral("newcrate")));
}

} // namespace stagewright::test
