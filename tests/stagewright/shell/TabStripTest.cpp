// The tab strip: buttons, help texts, the question before a dirty tab closes,
// and the canvases that stay alive behind the front one.
#include "ShellTestSupport.h"

#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/TabStrip.h>
#include <stagewright/state/ProjectTab.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <functional>

namespace stagewright::test {

namespace {
using TabStripTest = ShellFixture;

/// Answers the next message box with the button of that text, and notes its
/// texts and buttons.
struct MessageBoxAnswer {
    QString text, informative;
    QStringList buttons;
    bool seen = false;

    void answerWith(const QString& buttonText)
    {
        auto* poll = new QTimer;
        poll->setInterval(0);
        QObject::connect(poll, &QTimer::timeout, [this, poll, buttonText] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            poll->stop();
            poll->deleteLater();
            seen = true;
            text = box->text();
            informative = box->informativeText();
            for (QAbstractButton* button : box->buttons())
                buttons << button->text();
            for (QAbstractButton* button : box->buttons())
                if (button->text() == buttonText)
                    button->click();
        });
        poll->start();
    }
};
} // namespace

TEST_F(TabStripTest, ButtonsFollowTheTabsWithTheirHelpTexts)
{
    commands->newLevel();
    const QString path = project(QStringLiteral("Hills.plist"), 1);
    settings->openProject(path);
    const auto& buttons = window->tabStrip()->buttons();
    ASSERT_EQ(buttons.size(), 3u);
    EXPECT_EQ(buttons[0]->titleLabel()->text(), QStringLiteral("Untitled 1"));
    EXPECT_EQ(buttons[0]->toolTip(), QStringLiteral("Not saved"));
    EXPECT_EQ(buttons[2]->titleLabel()->text(), QStringLiteral("Hills"));
    EXPECT_EQ(buttons[2]->toolTip(), path);
    EXPECT_TRUE(buttons[2]->isSelected());
    EXPECT_FALSE(buttons[0]->isSelected());

    // The dirty mark comes and goes with the tab's flag.
    auto* mark = buttons[2]->findChild<QLabel*>(QStringLiteral("dirtyMark"));
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isHidden());
    front().setProjectDirty(true);
    EXPECT_FALSE(mark->isHidden());

    // The keyboard goes round the tabs.
    action("Next Tab")->trigger();
    EXPECT_EQ(front().name(), QStringLiteral("Untitled 1"));
    action("Previous Tab")->trigger();
    EXPECT_EQ(front().name(), QStringLiteral("Hills"));

    // "+" adds a tab; the sidebar button shows and hides the inspector.
    window->tabStrip()->addButton()->click();
    EXPECT_EQ(tabNames().last(), QStringLiteral("Untitled 3"));
    EXPECT_FALSE(window->inspectorPanel()->isVisible());
    window->tabStrip()->inspectorButton()->click();
    EXPECT_TRUE(settings->isInspectorPresented());
    EXPECT_TRUE(window->inspectorPanel()->isVisible());
    EXPECT_GE(window->inspectorPanel()->width(), 450);
    window->tabStrip()->inspectorButton()->click();
    EXPECT_FALSE(window->inspectorPanel()->isVisible());
}

TEST_F(TabStripTest, CloseBoxAsksOnlyForADirtyTab)
{
    commands->newLevel();
    commands->newLevel();
    ASSERT_EQ(tabNames(), QStringList({"Untitled 1", "Untitled 2", "Untitled 3"}));
    const auto tabs = settings->projectTabs();

    // A clean tab closes at once.
    window->tabStrip()->buttonFor(tabs[0]->id())->closeButton()->click();
    EXPECT_EQ(dialogs.discardQuestions, 0);
    EXPECT_EQ(tabNames(), QStringList({"Untitled 2", "Untitled 3"}));

    // A dirty one asks; "Cancel" keeps it with its changes.
    tabs[1]->setProjectDirty(true);
    dialogs.discardAnswers.push_back(false);
    window->tabStrip()->buttonFor(tabs[1]->id())->closeButton()->click();
    EXPECT_EQ(dialogs.discardQuestions, 1);
    EXPECT_EQ(tabNames(), QStringList({"Untitled 2", "Untitled 3"}));
    EXPECT_TRUE(tabs[1]->isProjectDirty());

    // "Discard" closes it.
    dialogs.discardAnswers.push_back(true);
    window->tabStrip()->buttonFor(tabs[1]->id())->closeButton()->click();
    EXPECT_EQ(dialogs.discardQuestions, 2);
    EXPECT_EQ(tabNames(), QStringList({"Untitled 3"}));

    // Closing the last tab leaves a new one: there is always a tab.
    settle();
    window->tabStrip()->buttonFor(tabs[2]->id())->closeButton()->click();
    EXPECT_EQ(tabNames(), QStringList({"Untitled 1"}));
    settle();
    EXPECT_EQ(window->tabStrip()->buttons().size(), 1u);
}

TEST_F(TabStripTest, TheDesktopQuestionHasItsTextsAndButtons)
{
    DesktopDialogs desktop(window.get());
    Commands desktopCommands(*settings, desktop, windows.get());
    commands->newLevel();
    const std::shared_ptr<ProjectTab> dirty = settings->selectedProjectTab();
    dirty->setProjectDirty(true);

    MessageBoxAnswer cancel;
    cancel.answerWith(QStringLiteral("Cancel"));
    EXPECT_FALSE(desktopCommands.closeTab(dirty->id()));
    ASSERT_TRUE(cancel.seen);
    EXPECT_EQ(cancel.text, QStringLiteral("Changes have been made."));
    EXPECT_EQ(cancel.informative, QStringLiteral("Do you want to discard them?"));
    EXPECT_TRUE(cancel.buttons.contains(QStringLiteral("Discard")));
    EXPECT_TRUE(cancel.buttons.contains(QStringLiteral("Cancel")));
    EXPECT_EQ(cancel.buttons.size(), 2);
    EXPECT_NE(settings->findTab(dirty->id()), nullptr);

    MessageBoxAnswer discard;
    discard.answerWith(QStringLiteral("Discard"));
    EXPECT_TRUE(desktopCommands.closeTab(dirty->id()));
    EXPECT_TRUE(discard.seen);
    EXPECT_EQ(settings->findTab(dirty->id()), nullptr);

    // The question before a level is deleted.
    MessageBoxAnswer keep;
    keep.answerWith(QStringLiteral("Cancel"));
    front().addLevel();
    EXPECT_FALSE(desktopCommands.deleteScene(*front().levelConfig()[1].id));
    EXPECT_EQ(keep.text, QStringLiteral("Are you sure you want to delete this scene?"));
    EXPECT_TRUE(keep.buttons.contains(QStringLiteral("Close")));
    EXPECT_EQ(front().levelConfig().size(), 2u);
    MessageBoxAnswer confirm;
    confirm.answerWith(QStringLiteral("Close"));
    EXPECT_TRUE(desktopCommands.deleteScene(*front().levelConfig()[1].id));
    EXPECT_EQ(front().levelConfig().size(), 1u);
}

TEST_F(TabStripTest, EachTabKeepsItsCanvasZoomAndScene)
{
    settings->openProject(project(QStringLiteral("One.plist"), 1));
    const std::shared_ptr<ProjectTab> one = settings->selectedProjectTab();
    commands->setZoom(QStringLiteral("1.50"));
    settings->openProject(project(QStringLiteral("Two.plist"), 2));
    settle();
    const std::shared_ptr<ProjectTab> two = settings->selectedProjectTab();
    const std::shared_ptr<LevelScene> sceneOfOne = one->currentScene();

    EXPECT_EQ(window->canvasFor(one->id())->frameSize(), QSize(1500, 750));
    EXPECT_EQ(window->canvasFor(two->id())->frameSize(), QSize(1000, 500));
    EXPECT_EQ(two->scaledValue(), QStringLiteral("1.00"));

    // A hidden canvas runs no frames but keeps its scene.
    EXPECT_TRUE(window->canvasFor(one->id())->sceneView()->isPaused());
    EXPECT_FALSE(window->canvasFor(two->id())->sceneView()->isPaused());
    commands->selectTab(one->id());
    EXPECT_EQ(window->canvasFor(one->id())->shownScene(), sceneOfOne);
    EXPECT_FALSE(window->canvasFor(one->id())->sceneView()->isPaused());
    EXPECT_EQ(settings->scrollerViewSize(), (tessaro::SizeValue{1500, 750}));
}

} // namespace stagewright::test
