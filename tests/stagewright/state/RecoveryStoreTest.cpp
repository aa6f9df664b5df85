// The recovery store: what a run writes, what the next run finds after a
// crash, and what a clean end leaves (nothing).
#include "StateFixture.h"

#include <stagewright/state/ProjectRecovery.h>
#include <stagewright/state/RecoveryStore.h>

#include <tessaro/model/LevelFiles.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace stagewright;
using namespace stagewright::test;

namespace {

/// The bytes a save writes for these levels.
QByteArray savedBytes(const std::vector<tessaro::Level>& levels, const QString& scratch)
{
    const QString path = scratch + QStringLiteral("/bytes.plist");
    EXPECT_TRUE(tessaro::saveLevels(levels, path.toStdString()));
    return readFile(path);
}

RecoverySnapshot snapshotOf(const QString& name, std::vector<tessaro::Level> levels)
{
    RecoverySnapshot snapshot;
    snapshot.name = name;
    snapshot.originalPath = QStringLiteral("/levels/") + name + QStringLiteral(".plist");
    snapshot.shownLevel = levels.back().id;
    snapshot.savedAt = QDateTime::currentDateTime();
    snapshot.levels = std::move(levels);
    return snapshot;
}

std::vector<tessaro::Level> levelsNamed(int count, const std::string& fontColor)
{
    std::vector<tessaro::Level> levels;
    for (int i = 0; i < count; ++i) {
        levels.push_back(tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults()));
        levels.back().settings.fontColor = fontColor;
    }
    return levels;
}

QStringList runFolders(const QString& root)
{
    return QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

} // namespace

TEST(RecoveryStore, ACrashedRunsCopiesAreFoundAsWrittenAndALivingRunsAreNot)
{
    QTemporaryDir root;
    const tessaro::Uuid meadowTab = tessaro::Uuid::create();
    const RecoverySnapshot meadow = snapshotOf(QStringLiteral("Meadow"), levelsNamed(3, "meadow"));
    RecoverySnapshot untitled = snapshotOf(QStringLiteral("Untitled 2"), levelsNamed(1, "untitled"));
    untitled.originalPath.reset();
    untitled.savedAt = meadow.savedAt.addSecs(5);
    {
        RecoveryStore crashed(root.path());
        ASSERT_TRUE(crashed.write(meadowTab, snapshotOf(QStringLiteral("Meadow"), levelsNamed(1, "older"))));
        ASSERT_TRUE(crashed.write(meadowTab, meadow)); // the later copy replaces the earlier
        ASSERT_TRUE(crashed.write(tessaro::Uuid::create(), untitled));

        // While that run lives, another run finds nothing of it.
        RecoveryStore other(root.path());
        EXPECT_TRUE(other.orphans().empty());
        // Ends without closing cleanly, as a crash does.
    }

    RecoveryStore next(root.path());
    const std::vector<RecoveryEntry> found = next.orphans();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].name, QStringLiteral("Meadow")); // oldest first
    EXPECT_EQ(found[0].originalPath, meadow.originalPath);
    EXPECT_EQ(found[0].shownLevel, meadow.shownLevel);
    EXPECT_EQ(found[0].savedAt, meadow.savedAt);
    EXPECT_EQ(found[1].name, QStringLiteral("Untitled 2"));
    EXPECT_FALSE(found[1].originalPath);

    // The levels come back byte for byte as a save writes them.
    const std::optional<std::vector<tessaro::Level>> levels = RecoveryStore::readLevels(found[0]);
    ASSERT_TRUE(levels);
    EXPECT_EQ(savedBytes(*levels, root.path()), savedBytes(meadow.levels, root.path()));

    // Claimed by this run: a third run does not offer them meanwhile.
    RecoveryStore third(root.path());
    EXPECT_TRUE(third.orphans().empty());
    EXPECT_EQ(next.orphans().size(), 2u);

    // Discarding the last copy of a run removes that run's folder.
    const int foldersBefore = int(runFolders(root.path()).size());
    next.discard(found[0]);
    EXPECT_EQ(int(runFolders(root.path()).size()), foldersBefore);
    next.discard(found[1]);
    EXPECT_EQ(int(runFolders(root.path()).size()), foldersBefore - 1);
    EXPECT_TRUE(next.orphans().empty());
}

TEST(RecoveryStore, CleanEndLeavesNothingAndLaterKeepsCopiesForTheNextRun)
{
    QTemporaryDir root;
    {
        RecoveryStore clean(root.path());
        ASSERT_TRUE(clean.write(tessaro::Uuid::create(), snapshotOf(QStringLiteral("A"), levelsNamed(1, "a"))));
        clean.closeCleanly();
        EXPECT_FALSE(QDir(clean.sessionFolder()).exists());
    }
    {
        RecoveryStore crashed(root.path());
        ASSERT_TRUE(crashed.write(tessaro::Uuid::create(), snapshotOf(QStringLiteral("B"), levelsNamed(1, "b"))));
    }
    {
        // "Later": found, left as it is; this run then ends cleanly.
        RecoveryStore later(root.path());
        ASSERT_EQ(later.orphans().size(), 1u);
        later.closeCleanly();
    }
    RecoveryStore next(root.path());
    const std::vector<RecoveryEntry> found = next.orphans();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].name, QStringLiteral("B"));
    // Only the crashed run's folder and this run's own are left.
    EXPECT_EQ(runFolders(root.path()).size(), 2u);
}

TEST(RecoveryStore, BrokenOrHalfWrittenCopiesAreNotOffered)
{
    QTemporaryDir root;
    QString folder;
    {
        RecoveryStore crashed(root.path());
        folder = crashed.sessionFolder();
        const tessaro::Uuid tab = tessaro::Uuid::create();
        ASSERT_TRUE(crashed.write(tab, snapshotOf(QStringLiteral("Half"), levelsNamed(1, "half"))));
        QFile::remove(crashed.entry(tab)->infoFile); // the levels were written, the description not yet
        writeFile(folder + QStringLiteral("/0000.json"), "not a description");
    }
    RecoveryStore next(root.path());
    EXPECT_TRUE(next.orphans().empty());
    // A folder with nothing to offer is cleared away.
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(StateFixture, RecoveredProjectOpensDirtyOnItsUntouchedFileAndSavesThere)
{
    start();
    const QString original = writeProject(QStringLiteral("Meadow.plist"), 2);
    const QByteArray originalBytes = readFile(original);
    std::vector<tessaro::Level> edited = tessaro::loadLevels(original.toStdString());
    edited.push_back(tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults()));
    RecoveryEntry entry;
    entry.name = QStringLiteral("Meadow");
    entry.originalPath = original;
    entry.shownLevel = edited[1].id;
    const std::shared_ptr<ProjectTab> tab = restoreProject(*settings, entry, edited, {});

    // The untouched start tab gave way to a tab that shows the level that
    // was shown, has unsaved changes and belongs to the untouched file.
    EXPECT_EQ(tabNames(), QStringList{"Meadow"});
    EXPECT_EQ(tab->levelConfig(), edited);
    EXPECT_EQ(frontScene()->loaded, edited[1].id);
    EXPECT_EQ(tab->levelListDropdownValues().size(), 3u);
    EXPECT_TRUE(tab->isProjectDirty());
    EXPECT_EQ(readFile(original), originalBytes);
    ASSERT_TRUE(settings->saveCommand().value_or(false));
    EXPECT_EQ(tessaro::loadLevels(original.toStdString()).size(), 3u);

    // A file that could not be read when it was opened stays safe from a
    // plain save; a tab with changes is not replaced.
    entry.name = QStringLiteral("Broken");
    entry.originalPath = writeProject(QStringLiteral("Broken.plist"), 1);
    entry.originalUnreadable = true;
    tab->setProjectDirty(true);
    restoreProject(*settings, entry, edited, {});
    EXPECT_EQ(tabNames(), (QStringList{"Meadow", "Broken"}));
    EXPECT_FALSE(settings->saveCommand().value_or(true));
}

TEST_F(StateFixture, AFileHasOneTabWhetherOpenedOrRecovered)
{
    start();
    const QString original = writeProject(QStringLiteral("Meadow.plist"), 2);
    settings->openProject(original);
    const std::shared_ptr<ProjectTab> tab = settings->selectedProjectTab();
    const std::vector<tessaro::Level> onDisk = tab->levelConfig();

    // Opening it again, under another spelling of its path, shows its tab.
    settings->newProject();
    settings->openProject(QFileInfo(original).absolutePath() + QStringLiteral("/./Meadow.plist"));
    EXPECT_EQ(settings->selectedProjectTab(), tab);
    ASSERT_EQ(settings->projectTabs().size(), 2u);

    // A recovered copy of it replaces the clean tab's levels as one step.
    std::vector<tessaro::Level> recovered = onDisk;
    recovered.push_back(tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults()));
    RecoveryEntry entry;
    entry.name = QStringLiteral("Meadow");
    entry.originalPath = original;
    entry.shownLevel = recovered[2].id;
    int asked = 0;
    const ReplaceQuestion refuse = [&](const RecoveryEntry&) {
        ++asked;
        return false;
    };
    EXPECT_EQ(restoreProject(*settings, entry, recovered, refuse), tab);
    EXPECT_EQ(asked, 0); // a clean tab is not asked about
    EXPECT_EQ(settings->selectedProjectTab(), tab);
    EXPECT_EQ(settings->projectTabs().size(), 2u);
    EXPECT_EQ(tab->levelConfig(), recovered);
    EXPECT_EQ(tab->levelSelected(), recovered[2].id);
    EXPECT_TRUE(tab->isProjectDirty());
    EXPECT_EQ(tab->undoStack().count(), 1);
    tab->undoStack().undo();
    const auto ids = [](const std::vector<tessaro::Level>& levels) {
        std::vector<std::optional<tessaro::Uuid>> found;
        for (const tessaro::Level& level : levels)
            found.push_back(level.id);
        return found;
    };
    EXPECT_EQ(ids(tab->levelConfig()), ids(onDisk)); // as the scene wrote them back
    EXPECT_FALSE(tab->isProjectDirty());
    tab->undoStack().redo();

    // A tab with changes of its own keeps them unless the user agrees.
    std::vector<tessaro::Level> other = onDisk;
    other.pop_back();
    EXPECT_EQ(restoreProject(*settings, entry, other, refuse), nullptr);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(tab->levelConfig(), recovered);
    EXPECT_EQ(restoreProject(*settings, entry, other, [](const RecoveryEntry&) { return true; }), tab);
    EXPECT_EQ(tab->levelConfig(), other);
    EXPECT_EQ(tab->undoStack().count(), 2);
    EXPECT_EQ(settings->projectTabs().size(), 2u);
}
