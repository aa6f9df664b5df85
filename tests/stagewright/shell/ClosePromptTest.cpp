// Closing the main window with unsaved work: the question and its three
// answers, given on the real dialog's buttons.
#include "ShellTestSupport.h"

#include <stagewright/shell/CloseGuard.h>
#include <stagewright/shell/ClosePrompt.h>

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

namespace stagewright::test {

namespace {

/// "Untitled 1" and "Forest", each with an unsaved new level, in a window
/// that asks before it closes.
struct ClosePromptTest : ShellFixture {
    std::unique_ptr<CloseGuard> guard;
    QStringList questions;
    QString forestPath;
    QByteArray forestBytes;
    std::shared_ptr<ProjectTab> untitled, forest;

    void SetUp() override
    {
        ShellFixture::SetUp();
        guard = std::make_unique<CloseGuard>(
            *commands, dialogs, [this](const QStringList& names) { return ClosePrompt::ask(names, window.get()); });
        window->setCloseGuard([this] { return guard->mayClose(); });
        untitled = settings->selectedProjectTab();
        commands->addScene();
        forestPath = project(QStringLiteral("Forest.plist"), 2);
        forestBytes = fileBytes(forestPath);
        settings->openProject(forestPath);
        forest = settings->selectedProjectTab();
        commands->addScene();
        ASSERT_EQ(tabNames(), (QStringList{"Untitled 1", "Forest"}));
    }
    /// Closes the window, answering the question with `answer`.
    bool closeAnswering(CloseAnswer answer)
    {
        whenShown<ClosePrompt>([this, answer](ClosePrompt& prompt) {
            questions << prompt.text() + QLatin1Char('|') + prompt.informativeText();
            prompt.button(answer)->click();
        });
        return window->close();
    }
};

} // namespace

TEST_F(ClosePromptTest, CancelKeepsTheWindowAndSaveAllSavesEachProjectBeforeItCloses)
{
    QSignalSpy closing(window.get(), &MainWindow::closing);
    EXPECT_FALSE(closeAnswering(CloseAnswer::Cancel));
    ASSERT_EQ(questions.size(), 1);
    EXPECT_TRUE(questions[0].startsWith(QStringLiteral("Do you want to save the changes to 2 levels")));
    EXPECT_TRUE(questions[0].contains(QStringLiteral("Untitled 1\nForest")));
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(guard->closeAgreed());

    // "Save All" with the save panel of the new project cancelled: nothing
    // is saved, and that project is in front.
    EXPECT_FALSE(closeAnswering(CloseAnswer::SaveAll));
    EXPECT_EQ(dialogs.saveRequests.size(), 1u);
    EXPECT_EQ(settings->selectedProjectTab(), untitled);
    EXPECT_TRUE(untitled->isProjectDirty() && forest->isProjectDirty());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);
    EXPECT_TRUE(dialogs.failures.isEmpty());

    // With a place for it, both are saved and the window closes.
    const QString meadow = home->folder(QStringLiteral("out")) + QStringLiteral("/Meadow.plist");
    dialogs.saveLocations.push_back(meadow);
    EXPECT_TRUE(closeAnswering(CloseAnswer::SaveAll));
    EXPECT_EQ(readProject(meadow).size(), 2u);
    EXPECT_EQ(readProject(forestPath).size(), 3u);
    EXPECT_EQ(closing.count(), 1);
    EXPECT_TRUE(guard->closeAgreed());
}

TEST_F(ClosePromptTest, DiscardClosesWithoutWritingAndCleanWorkIsNotAskedAbout)
{
    EXPECT_TRUE(closeAnswering(CloseAnswer::Discard));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(guard->closeAgreed());
    EXPECT_EQ(fileBytes(forestPath), forestBytes);
    EXPECT_TRUE(dialogs.saveRequests.empty());

    window->show();
    untitled->setProjectDirty(false);
    forest->setProjectDirty(false);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(questions.size(), 1);
}

TEST_F(ClosePromptTest, SaveThatFailsIsReportedAndKeepsTheWindowOpen)
{
    // The file's folder is gone, so it cannot be written.
    ASSERT_TRUE(QDir(QFileInfo(forestPath).absolutePath()).removeRecursively());
    untitled->setProjectDirty(false);
    EXPECT_FALSE(closeAnswering(CloseAnswer::SaveAll));
    EXPECT_EQ(questions[0].section(QLatin1Char('|'), 0, 0),
              QStringLiteral("Do you want to save the changes to “Forest” before quitting?"));
    ASSERT_EQ(dialogs.failures.size(), 1);
    EXPECT_TRUE(dialogs.failures[0].startsWith(QStringLiteral("“Forest” could not be saved.")));
    EXPECT_TRUE(window->isVisible());
}

} // namespace stagewright::test
