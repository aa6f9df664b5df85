// The offer at start of what a crashed run left: the list, and "Recover",
// "Discard" and "Later" given on the real dialog's buttons.
#include "ShellTestSupport.h"

#include <stagewright/shell/RecoveryPrompt.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/RecoveryStore.h>

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
    std::optional<RecoveryAnswer> offerAnswering(RecoveryAnswer answer)
    {
        whenShown<RecoveryPrompt>([this, answer](RecoveryPrompt& prompt) {
            for (int i = 0; i < prompt.list()->topLevelItemCount(); ++i) {
                const QTreeWidgetItem* item = prompt.list()->topLevelItem(i);
                shownRows << QStringList{item->text(0), item->text(1), item->text(2)};
            }
            prompt.button(answer)->click();
        });
        return offerRecovery(*settings, *store, *autosave, [this](const std::vector<RecoveryEntry>& entries) {
            return RecoveryPrompt::ask(entries, window.get());
        });
    }
};

} // namespace

TEST_F(RecoveryPromptTest, RecoverOpensTheProjectsWithTheirChangesAndLeavesTheFilesAlone)
{
    EXPECT_EQ(offerAnswering(RecoveryAnswer::Recover), RecoveryAnswer::Recover);

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
    EXPECT_EQ(offerAnswering(RecoveryAnswer::Later), RecoveryAnswer::Later);
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    autosave.reset();
    store.reset(); // this run ends; the next start offers them again

    store = std::make_unique<RecoveryStore>(root.path());
    autosave = std::make_unique<Autosave>(*settings, *store);
    EXPECT_EQ(store->orphans().size(), 2u);
    EXPECT_EQ(offerAnswering(RecoveryAnswer::Discard), RecoveryAnswer::Discard);
    EXPECT_EQ(tabNames(), QStringList{"Untitled 1"});
    EXPECT_TRUE(store->orphans().empty());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);

    // Nothing left: no question at all.
    int asked = 0;
    EXPECT_FALSE(offerRecovery(*settings, *store, *autosave, [&](const std::vector<RecoveryEntry>&) {
        ++asked;
        return RecoveryAnswer::Recover;
    }));
    EXPECT_EQ(asked, 0);
}

} // namespace stagewright::test
