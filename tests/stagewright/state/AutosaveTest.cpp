// When projects with unsaved changes are copied, and when the copies go.
#include "StateFixture.h"

#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/RecoveryStore.h>

#include <tessaro/model/LevelFiles.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

using namespace stagewright;
using namespace stagewright::test;
using namespace std::chrono_literals;

namespace {

struct AutosaveTest : StateFixture {
    QTemporaryDir root;
    std::unique_ptr<RecoveryStore> store;
    std::unique_ptr<Autosave> autosave;

    void startAutosave()
    {
        start();
        store = std::make_unique<RecoveryStore>(root.path());
        autosave = std::make_unique<Autosave>(*settings, *store);
        autosave->setInterval(0ms);
    }
    void TearDown() override
    {
        autosave.reset();
        store.reset();
        StateFixture::TearDown();
    }
    /// Lets the deferred copies start, then waits for the files.
    void settle()
    {
        QCoreApplication::processEvents();
        autosave->waitForWrites();
        QCoreApplication::processEvents();
    }
    std::optional<RecoveryEntry> copyOf(const ProjectTab& tab) const { return store->entry(tab.id()); }
    /// `count` steps of the tab's history.
    static void edit(ProjectTab& tab, int count)
    {
        for (int i = 0; i < count; ++i)
            tab.addLevel();
    }
};

} // namespace

TEST_F(AutosaveTest, FiftyEditsCopyTheProjectWithTheShownLevelWrittenBack)
{
    startAutosave();
    const QString original = writeProject(QStringLiteral("Meadow.plist"), 1);
    settings->openProject(original);
    ProjectTab& tab = front();
    edit(tab, 49);
    settle();
    EXPECT_FALSE(copyOf(tab));

    edit(tab, 1);
    settle();
    const std::optional<RecoveryEntry> copy = copyOf(tab);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->name, QStringLiteral("Meadow"));
    EXPECT_EQ(copy->originalPath, original);
    EXPECT_EQ(copy->shownLevel, tab.levelSelected());
    const std::optional<std::vector<tessaro::Level>> levels = RecoveryStore::readLevels(*copy);
    ASSERT_TRUE(levels && levels->size() == 51u);
    // The scene's unsaved state of the shown level is in the copy.
    EXPECT_EQ(levels->front().settings.fontColor, "written back by scene " + std::to_string(frontScene()->serial()));

    // The count starts again after a copy, and an undo counts too.
    edit(tab, 49);
    settle();
    EXPECT_EQ(autosave->writesDone(), 1);
    tab.undoStack().undo();
    settle();
    EXPECT_EQ(autosave->writesDone(), 2);
    EXPECT_EQ(RecoveryStore::readLevels(*copyOf(tab))->size(), 99u);
}

TEST_F(AutosaveTest, TimerCopiesOnlyWhatChangedSinceTheLastCopy)
{
    startAutosave();
    autosave->setEditThreshold(0);
    ProjectTab& untitled = front();
    settings->newProject();
    ProjectTab& other = front();
    edit(untitled, 2);
    // Runs the timer for a while; the number of copies written by then.
    const auto copiesAfterTicks = [&] {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 150)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        settle();
        return autosave->writesDone();
    };

    autosave->setInterval(20ms);
    EXPECT_EQ(copiesAfterTicks(), 1); // many ticks, one change
    EXPECT_TRUE(copyOf(untitled));
    EXPECT_FALSE(copyOf(other)); // clean: nothing to recover
    edit(other, 1);
    EXPECT_EQ(copiesAfterTicks(), 2);
    EXPECT_TRUE(copyOf(other));

    // Zero turns the timer off.
    autosave->setInterval(0ms);
    EXPECT_EQ(autosave->interval(), 0ms);
    edit(other, 1);
    EXPECT_EQ(copiesAfterTicks(), 2);
}

TEST_F(AutosaveTest, CopiesGoWhenTheProjectIsSavedUndoneOrClosedAndAtACleanEnd)
{
    startAutosave();
    std::vector<std::shared_ptr<ProjectTab>> tabs;
    for (const char* name : {"Saved.plist", "Undone.plist", "Closed.plist", "Kept.plist"}) {
        settings->openProject(writeProject(QString::fromLatin1(name), 1));
        tabs.push_back(settings->selectedProjectTab());
        edit(*tabs.back(), 1);
        autosave->saveTab(*tabs.back());
    }
    settle();
    for (const auto& tab : tabs)
        ASSERT_TRUE(copyOf(*tab));

    settings->selectProject(tabs[0]->id());
    ASSERT_TRUE(settings->saveCommand().value_or(false));
    tabs[1]->undoStack().undo();
    settings->closeProject(tabs[2]->id());
    autosave->saveTab(*tabs[0]); // clean: not copied again
    settle();
    EXPECT_FALSE(copyOf(*tabs[0]) || copyOf(*tabs[1]) || copyOf(*tabs[2]));
    EXPECT_TRUE(copyOf(*tabs[3]));

    // A clean end removes the rest, and nothing is copied after it.
    autosave->finishCleanly();
    EXPECT_FALSE(QDir(store->sessionFolder()).exists());
    edit(*tabs[3], 1);
    autosave->saveTab(*tabs[3]);
    settle();
    EXPECT_FALSE(QDir(store->sessionFolder()).exists());
}

TEST_F(StateFixture, AutosaveIntervalIsAUserDefaultOfSeconds)
{
    start(false);
    AppPreferences preferences(*settings);
    EXPECT_EQ(AppPreferences::autosaveInterval(), 60);
    preferences.setAutosaveInterval(-5);
    EXPECT_EQ(AppPreferences::autosaveInterval(), 0);
    preferences.setAutosaveInterval(300);
    EXPECT_EQ(AppPreferences::autosaveInterval(), 300);
}
