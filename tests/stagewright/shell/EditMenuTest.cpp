// The Edit menu: its commands and keys, the rules that enable them, and Undo
// and Redo following the history of the tab in front, or the catalogues'
// while the window that edits them is active.
#include "ShellTestSupport.h"

#include <stagewright/editors/ImagePhysicsView.h>
#include <stagewright/editors/PhysicsSession.h>
#include <stagewright/inspector/EditRouting.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace stagewright::test {

namespace {

struct EditMenuTest : ShellFixture {
    void SetUp() override
    {
        ShellFixture::SetUp();
        // The tabs made from here on edit their levels on the real canvas.
        settings->setSceneFactory(makeSceneEditorFactory(editingHooks(settings.get())));
    }
    SceneEditor& canvas() const { return *sceneEditorOf(front().currentScene()); }
    /// Undo and Redo name the step they take, so they are found by name.
    QAction* undo() const { return window->findChild<QAction*>(QStringLiteral("undoAction")); }
    QAction* redo() const { return window->findChild<QAction*>(QStringLiteral("redoAction")); }
    std::size_t obstacles() const { return SceneEditor::elementsOf(canvas().obstacleNodes()).size(); }
};

QStringList titlesOf(const QMenu* menu)
{
    QStringList titles;
    for (const QAction* action : menu->actions())
        titles << (action->isSeparator() ? QStringLiteral("--") : action->text());
    return titles;
}

} // namespace

TEST_F(EditMenuTest, CommandsAndKeys)
{
    const QMenu* edit = nullptr;
    for (QAction* entry : window->menuBar()->actions())
        if (entry->menu() && entry->text().remove(QLatin1Char('&')) == QStringLiteral("Edit"))
            edit = entry->menu();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(titlesOf(edit),
              QStringList({"Undo", "Redo", "--", "Cut", "Copy", "Paste", "Delete", "--", "Settings..."}));
    EXPECT_EQ(undo()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    EXPECT_EQ(
        redo()->shortcuts(),
        (QList<QKeySequence>{QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)}));
    EXPECT_EQ(action("Cut")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_X));
    EXPECT_EQ(action("Copy")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_C));
    EXPECT_EQ(action("Paste")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_V));
    EXPECT_EQ(action("Delete")->shortcut(), QKeySequence(QKeySequence::Delete));
}

TEST_F(EditMenuTest, ClipboardAndHistoryFollowTheFrontTab)
{
    commands->newLevel();
    ProjectTab& first = front();
    ASSERT_FALSE(tessaro::obstacleCatalogue().empty());
    const ElementNodePtr added = canvas().placement().addElement(tessaro::sceneObjectType::obstacles,
                                                                 *tessaro::obstacleCatalogue().front().elementName);
    ASSERT_TRUE(added);
    EXPECT_FALSE(undo()->isEnabled());
    EXPECT_EQ(undo()->text(), "Undo");
    EXPECT_FALSE(redo()->isEnabled());
    for (const char* title : {"Cut", "Copy", "Paste", "Delete"})
        EXPECT_FALSE(action(title)->isEnabled()) << title;

    canvas().selectNode(added);
    for (const char* title : {"Cut", "Copy", "Delete"})
        EXPECT_TRUE(action(title)->isEnabled()) << title;
    EXPECT_FALSE(action("Paste")->isEnabled());

    action("Copy")->trigger();
    EXPECT_TRUE(action("Paste")->isEnabled());
    action("Paste")->trigger();
    EXPECT_EQ(obstacles(), 2u);
    EXPECT_TRUE(undo()->isEnabled());
    EXPECT_EQ(undo()->text(), "Undo Paste");
    EXPECT_TRUE(first.isProjectDirty());
    undo()->trigger();
    EXPECT_EQ(obstacles(), 1u);
    EXPECT_EQ(redo()->text(), "Redo Paste");
    EXPECT_FALSE(first.isProjectDirty());

    // Delete takes the selection away, and with it Cut, Copy and Delete.
    action("Delete")->trigger();
    EXPECT_EQ(obstacles(), 0u);
    EXPECT_EQ(undo()->text(), "Undo Delete");
    EXPECT_FALSE(action("Cut")->isEnabled());

    // Another tab has its own history; the clipboard is shared.
    commands->newLevel();
    EXPECT_FALSE(undo()->isEnabled());
    EXPECT_TRUE(action("Paste")->isEnabled());
    action("Paste")->trigger();
    EXPECT_EQ(obstacles(), 1u);
    commands->selectTab(first.id());
    EXPECT_EQ(undo()->text(), "Undo Delete");
    undo()->trigger();
    EXPECT_EQ(obstacles(), 1u);
}

TEST_F(EditMenuTest, CatalogueStepsAreUndoneWhereTheCataloguesAreEdited)
{
    commands->newLevel();
    ProjectTab& tab = front();
    const ElementNodePtr added = canvas().placement().addElement(tessaro::sceneObjectType::obstacles,
                                                                 *tessaro::obstacleCatalogue().front().elementName);
    ASSERT_TRUE(added);
    canvas().selectNode(added);
    action("Copy")->trigger();
    action("Paste")->trigger();
    const QString catalogue = assetsFolder(settings->catalogues().workspace()) + "ObstacleList.plist";
    const QByteArray catalogueBefore = fileBytes(catalogue);
    const auto activate = [](QWidget* shown) {
        shown->show();
        shown->activateWindow();
        return QTest::qWaitFor([shown] { return QApplication::activeWindow() == shown; });
    };

    // The template's new shapes are a step of the catalogues, not of the tab.
    auto* sheet = new ImagePhysicsView(PhysicsEditMode::base, tab, settings.get(), window.get());
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    ASSERT_TRUE(activate(sheet));
    ImagePhysicsSession& session = sheet->session();
    session.setActiveType(InsertType::radius);
    session.setImageViewHovered(true);
    session.pointerDown({0, 0});
    session.pointerDragged({9, 0});
    session.pointerUp({9, 0});
    sheet->applyAndClose();
    EXPECT_NE(fileBytes(catalogue), catalogueBefore);
    ASSERT_TRUE(activate(window.get()));
    EXPECT_EQ(undo()->text(), "Undo Paste") << "a level's Undo never takes a catalogue's step";

    // With the sheet active the Edit menu names the catalogues' step, and
    // Ctrl+Z in the sheet takes it.
    sheet = new ImagePhysicsView(PhysicsEditMode::base, tab, settings.get(), window.get());
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    ASSERT_TRUE(activate(sheet));
    EXPECT_EQ(undo()->text(), "Undo Change Base Physics");
    EXPECT_EQ(sheet->undoAction()->text(), "Undo Change Base Physics");
    QTest::keyClick(sheet, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(fileBytes(catalogue), catalogueBefore);
    EXPECT_EQ(sheet->redoAction()->text(), "Redo Change Base Physics");
    EXPECT_EQ(tab.undoStack().undoText(), "Paste");
    sheet->close();
    ASSERT_TRUE(activate(window.get()));
    EXPECT_EQ(undo()->text(), "Undo Paste");
}

} // namespace stagewright::test
