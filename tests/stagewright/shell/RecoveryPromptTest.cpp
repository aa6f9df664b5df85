// The offer at start of what a crashed run left: the list, each project's
// choice and "Later" given on the real dialog, and a recovered project whose
// file is open already.
#include "ShellTestSupport.h"

#include <stagewright/shell/RecoveryPrompt.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/RecoveryStore.h>

#include <QComboBox>
#include <QPushButton>
#include <QTreeWidget>

namespace stagewright::test {

namespace {

struct RecoveryPromptTest : ShellFixture {
    QTemporaryDir root;
    QString forestPath;
    QByteArray forestBytes;
    std::vector<tessaro::Level> forestLevels = makeLevels(3);
    std::unique_ptr<RecoveryStore> store;
    std::unique_ptr<Autosave> autosave;
    QList<QStringList> shownRows;

    void SetUp() override
    {
        ShellFixture::SetUp();
        forestPath = project(QStringLiteral("Forest.plist"), 2);
        forestBytes = fileBytes(forestPath);
        // A run that crashed with two projects unsaved.
        RecoveryStore crashed(root.path());
        RecoverySnapshot forest;
        forest.name = QStringLiteral("Forest");
        forest.originalPath = forestPath;
        forest.savedAt = QDateTime(QDate(2024, 5, 6), QTime(14, 30));
        forest.levels = forestLevels;
        ASSERT_TRUE(crashed.write(tessaro::Uuid::create(), forest));
        RecoverySnapshot untitled;
        untitled.name = QStringLiteral("Untitled 4");
        untitled.savedAt = forest.savedAt.addSecs(60);
        untitled.levels = makeLevels(1);
        ASSERT_TRUE(crashed.write(tessaro::Uuid::create(), untitled));

        store = std::make_unique<RecoveryStore>(root.path());
        autosave = std::make_unique<Autosave>(*settings, *store);
    }
    void TearDown() override
    {
        autosave.reset();
        store.reset();
        ShellFixture::TearDown();
    }
    /// Answers the dialog row by row ("Later" for the whole dialog when
    /// `answers` is empty) and gives what was done.
    std::optional<std::vector<RecoveryAnswer>> offerAnswering(std::vector<RecoveryAnswer> answers,
                                                              bool mayReplace = false)
    {
        whenShown<RecoveryPrompt>([this, answers](RecoveryPrompt& prompt) {
            for (int i = 0; i < prompt.list()->topLevelItemCount(); ++i) {
                const QTreeWidgetItem* item = prompt.list()->topLevelItem(i);
                shownRows << QStringList{item->text(0), item->text(1), item->text(2)};
                if (i < int(answers.size()))
                    prompt.choice(i)->setCurrentIndex(prompt.choice(i)->findData(int(answers[std::size_t(i)])));
            }
            (answers.empty() ? prompt.laterButton() : prompt.continueButton())->click();
        });
        return offerRecovery(
            *settings, *store, *autosave,
            [this](const std::vector<RecoveryEntry>& entries) { return RecoveryPrompt::ask(entries, window.get()); },
            [this, mayReplace](const RecoveryEntry& entry) {
                replaceAsked << entry.name;
                return mayReplace;
            });
    }
    QStringList replaceAsked;
};

} // namespace

TEST_F(RecoveryPromptTest, RecoverOpensTheProjectsWithTheirChangesAndLeavesTheFilesAlone)
{
    const std::vector both{RecoveryAnswer::Recover, RecoveryAnswer::Recover};
    EXPECT_EQ(offerAnswering(both), both);

    // Oldest first: name, time, file or "Not saved".
    ASSERT_EQ(shownRows.size(), 2);
    EXPECT_EQ(shownRows[0][0], QStringLiteral("Forest"));
    EXPECT_EQ(shownRows[0][1], QLocale().toString(QDateTime(QDate(2024, 5, 6), QTime(14, 30)), QLocale::ShortFormat));
    EXPECT_EQ(shownRows[0][2], forestPath);
    EXPECT_EQ(shownRows[1][0], QStringLiteral("Untitled 4"));
    EXPECT_EQ(shownRows[1][2], QStringLiteral("Not saved"));

    // The start tab gave way to the recovered projects, each with unsaved
    // changes, its own canvas and a copy held by this run alone.
    EXPECT_EQ(tabNames(), (QStringList{"Forest", "Untitled 4"}));
    const auto& tabs = settings->projectTabs();
    EXPECT_EQ(tabs[0]->levelConfig(), forestLevels);
    EXPECT_EQ(tabs[0]->filePath(), forestPath);
    EXPECT_FALSE(tabs[1]->filePath());
    for (const auto& tab : tabs) {
        EXPECT_TRUE(tab->isProjectDirty());
        EXPECT_NE(window->canvasFor(tab->id()), nullptr);
        EXPECT_TRUE(store->entry(tab->id()));
    }
    EXPECT_TRUE(store->orphans().empty());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);
}

TEST_F(RecoveryPromptTest, LaterKeepsTheCopiesForTheNextStartAndDiscardRemovesThem)
{
    const std::vector later{RecoveryAnswer::Later, RecoveryAnswer::Later};
    EXPECT_EQ(offerAnswering({}), later);
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    autosave.reset();
    store.reset(); // this run ends; the next start offers them again

    store = std::make_unique<RecoveryStore>(root.path());
    autosave = std::make_unique<Autosave>(*settings, *store);
    EXPECT_EQ(store->orphans().size(), 2u);
    const std::vector discard{RecoveryAnswer::Discard, RecoveryAnswer::Discard};
    EXPECT_EQ(offerAnswering(discard), discard);
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    EXPECT_TRUE(store->orphans().empty());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);

    // Nothing left: no question at all.
    int asked = 0;
    EXPECT_FALSE(offerRecovery(*settings, *store, *autosave,
                               [&](const std::vector<RecoveryEntry>&) {
                                   ++asked;
                                   return std::vector{RecoveryAnswer::Recover};
                               },
                               {}));
    EXPECT_EQ(asked, 0);
}

TEST_F(RecoveryPromptTest, EachProjectIsRecoveredDiscardedOrKeptOnItsOwn)
{
    // Oldest first: "Forest" is kept for later, "Untitled 4" recovered.
    EXPECT_EQ(offerAnswering({RecoveryAnswer::Later, RecoveryAnswer::Recover}),
              (std::vector{RecoveryAnswer::Later, RecoveryAnswer::Recover}));
    EXPECT_EQ(tabNames(), QStringList{"Untitled 4"});
    ASSERT_EQ(store->orphans().size(), 1u);
    EXPECT_EQ(store->orphans().front().name, QStringLiteral("Forest"));
}

TEST_F(RecoveryPromptTest, ARecoveredProjectWhoseFileIsOpenTakesThatTab)
{
    // Started with the file, as `make run` does: its clean tab takes the
    // recovered levels as one step, and no second tab of it opens.
    settings->openProject(forestPath);
    ASSERT_EQ(tabNames(), QStringList{"Forest"});
    const auto forest = settings->selectedProjectTab();
    EXPECT_EQ(offerAnswering({RecoveryAnswer::Recover, RecoveryAnswer::Discard}),
              (std::vector{RecoveryAnswer::Recover, RecoveryAnswer::Discard}));
    EXPECT_EQ(tabNames(), QStringList{"Forest"});
    EXPECT_EQ(settings->selectedProjectTab(), forest);
    EXPECT_EQ(forest->levelConfig().size(), forestLevels.size());
    EXPECT_TRUE(forest->isProjectDirty());
    EXPECT_EQ(forest->undoStack().count(), 1);
    EXPECT_TRUE(replaceAsked.isEmpty());
    EXPECT_TRUE(store->orphans().empty());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);
}

TEST_F(RecoveryPromptTest, AnOpenTabWithChangesOfItsOwnIsAskedAboutFirst)
{
    settings->openProject(forestPath);
    const auto forest = settings->selectedProjectTab();
    forest->setProjectDirty(true);
    const std::vector<tessaro::Level> own = forest->levelConfig();
    // Kept: the recovered copy stays for the next start.
    offerAnswering({RecoveryAnswer::Recover, RecoveryAnswer::Later});
    EXPECT_EQ(replaceAsked, QStringList{"Forest"});
    EXPECT_EQ(forest->levelConfig().size(), own.size());
    EXPECT_EQ(tabNames(), QStringList{"Forest"});
    EXPECT_EQ(store->orphans().size(), 2u);
}

} // namespace stagewright::test
