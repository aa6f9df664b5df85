// The object library window and the node list popover on the real canvas:
// tabs, filter, pin and button sizes; a click on a cell and a cell dropped
// on the canvas; choosing a node and scrolling to a position.
#include "ShellTestSupport.h"

#include <stagewright/inspector/EditRouting.h>
#include <stagewright/inspector/ObjectLibrary.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/LibraryCellView.h>
#include <stagewright/shell/NavigationToolbar.h>
#include <stagewright/shell/NodeListPopover.h>
#include <stagewright/shell/ObjectLibraryWindow.h>

#include <tessaro/model/ConfigFiles.h>

#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {

namespace {

using tessaro::sceneObjectType;

struct LibraryTest : ShellFixture {
    void SetUp() override
    {
        ShellFixture::SetUp();
        settings->setSceneFactory(makeSceneEditorFactory(editingHooks(settings.get())));
        commands->newLevel();
    }
    SceneEditor& canvas() const { return *sceneEditorOf(front().currentScene()); }
    std::size_t countOf(sceneObjectType kind) const { return SceneEditor::elementsOf(canvas().layerFor(kind)).size(); }
    ObjectLibraryWindow* library() const
    {
        window->toolbar()->libraryButton()->click();
        auto* opened = qobject_cast<ObjectLibraryWindow*>(windows->window(WindowId::objectLibrary));
        EXPECT_TRUE(opened && QTest::qWaitForWindowExposed(opened));
        return opened;
    }
    static QStringList shownTitles(const ObjectLibraryWindow& library)
    {
        QStringList titles;
        const QAbstractItemModel* model = library.cellView()->model();
        for (int row = 0; row < model->rowCount(); ++row)
            titles << model->index(row, 0).data().toString();
        return titles;
    }
    /// Clicks the cell of the front tab named `title`.
    static void clickCell(ObjectLibraryWindow& library, const QString& title)
    {
        QListView* view = library.cellView();
        const int row = shownTitles(library).indexOf(title);
        ASSERT_GE(row, 0) << title.toStdString();
        const QModelIndex index = view->model()->index(row, 0);
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }
};

QStringList sorted(QStringList names)
{
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

TEST_F(LibraryTest, TabsShareOneFilterAndTheWindowOpensAgainAsNew)
{
    ObjectLibraryWindow* libraryWindow = library();
    ASSERT_TRUE(libraryWindow);
    QStringList titles;
    for (const QToolButton* button : libraryWindow->tabButtons())
        titles << button->text();
    EXPECT_EQ(titles,
              QStringList(
                  {"Background", "Ground", "Obstacles", "Characters", "Coins", "shield", "Artifacts", "Checkpoints"}));
    EXPECT_EQ(libraryWindow->filterField()->placeholderText(), "Filter");

    // The tab lists its kind of the catalogue, sorted.
    QStringList backgrounds;
    for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
        if (record.sceneObjectType == "background")
            backgrounds << QString::fromStdString(*record.elementName);
    ASSERT_FALSE(backgrounds.isEmpty());
    EXPECT_EQ(shownTitles(*libraryWindow), sorted(backgrounds));

    // One filter for every tab: it stays when the tab changes.
    libraryWindow->tabButtons()[2]->click();
    EXPECT_EQ(libraryWindow->selection(), 2);
    const QStringList obstacles = shownTitles(*libraryWindow);
    ASSERT_GE(obstacles.size(), 2);
    const QString typed = obstacles.front().left(3);
    QTest::keyClicks(libraryWindow->filterField(), typed);
    for (const QString& title : shownTitles(*libraryWindow))
        EXPECT_TRUE(title.contains(typed)) << title.toStdString();
    EXPECT_LT(shownTitles(*libraryWindow).size(), obstacles.size());
    libraryWindow->tabButtons()[4]->click();
    libraryWindow->tabButtons()[2]->click();
    EXPECT_EQ(libraryWindow->searchText(), typed);
    EXPECT_EQ(shownTitles(*libraryWindow).size(),
              qsizetype(filterLibraryCells(libraryCells(sceneObjectType::obstacles), typed).size()));

    // The pin keeps the window above the others, and says so.
    EXPECT_EQ(libraryWindow->pinButton()->toolTip(), "Toggle between window remaining on top of all other windows.");
    libraryWindow->pinButton()->click();
    EXPECT_TRUE(libraryWindow->isPinned());
    EXPECT_TRUE(libraryWindow->isVisible());

    // Closed and opened again: first tab, no filter, normal level.
    windows->dismissWindow(WindowId::objectLibrary);
    libraryWindow = library();
    EXPECT_EQ(libraryWindow->selection(), 0);
    EXPECT_TRUE(libraryWindow->searchText().isEmpty());
    EXPECT_FALSE(libraryWindow->isPinned());
    EXPECT_TRUE(libraryWindow->tabButtons()[0]->isChecked());
}

TEST_F(LibraryTest, TabButtonsAreLargeAndTitledFromElevenHundredWide)
{
    ObjectLibraryWindow* libraryWindow = library();
    ASSERT_TRUE(libraryWindow);
    libraryWindow->resize(ObjectLibraryWindow::wideWidth, 600);
    QToolButton* button = libraryWindow->tabButtons()[1];
    EXPECT_EQ(button->size(), QSize(80, 80));
    EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    libraryWindow->resize(ObjectLibraryWindow::wideWidth - 1, 600);
    EXPECT_EQ(button->size(), QSize(40, 40));
    EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    // The window grows as wide as the screen allows, the buttons stay large.
    libraryWindow->resize(1600, 600);
    EXPECT_EQ(libraryWindow->width(), 1600);
    EXPECT_EQ(button->size(), QSize(80, 80));
}

TEST_F(LibraryTest, ClickingACellAddsItsElementAsOneStep)
{
    ObjectLibraryWindow* libraryWindow = library();
    ASSERT_TRUE(libraryWindow);
    libraryWindow->tabButtons()[2]->click();
    const QString name = shownTitles(*libraryWindow).front();
    const std::size_t before = countOf(sceneObjectType::obstacles);
    clickCell(*libraryWindow, name);
    EXPECT_EQ(countOf(sceneObjectType::obstacles), before + 1);
    EXPECT_EQ(front().undoStack().count(), 1);
    EXPECT_EQ(front().undoStack().undoText(), "Add " + name);
    const ElementNodePtr added = canvas().storedOrder(sceneObjectType::obstacles).back();
    EXPECT_EQ(added->catalogueElementName(), name.toStdString());
    EXPECT_EQ(front().elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(front().selectedObject().name, added->name().toStdString());

    // The background tab adds a background.
    libraryWindow->tabButtons()[0]->click();
    const std::size_t backgrounds = canvas().backgroundList() && canvas().backgroundList()->backgrounds
        ? canvas().backgroundList()->backgrounds->size()
        : 0;
    clickCell(*libraryWindow, shownTitles(*libraryWindow).front());
    ASSERT_TRUE(canvas().backgroundList() && canvas().backgroundList()->backgrounds);
    EXPECT_EQ(canvas().backgroundList()->backgrounds->size(), backgrounds + 1);
    EXPECT_EQ(front().undoStack().count(), 2);

    // A tab whose canvas is not an editing scene takes nothing.
    dialogs.discardAnswers.push_back(true);
    commands->closeLevel();
    ASSERT_EQ(sceneEditorOf(front().currentScene()), nullptr);
    libraryWindow = library();
    clickCell(*libraryWindow, shownTitles(*libraryWindow).front());
    EXPECT_EQ(front().undoStack().count(), 0);
}

TEST_F(LibraryTest, CellDroppedOnTheCanvasStandsWhereItWasDropped)
{
    CanvasView* canvasView = window->frontCanvas();
    ASSERT_TRUE(canvasView);
    canvas().moveScene(PublishedElementList::scenePosition, tessaro::PointValue{120, 0});
    LibraryCell cell = libraryCells(sceneObjectType::obstacles).front();
    const std::unique_ptr<QMimeData> data = libraryMimeData(cell);
    CanvasSceneView* view = canvasView->sceneView();
    const QPointF at = view->convertPointFromScene(QPointF(60, 30));

    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &drop);
    EXPECT_TRUE(drop.isAccepted());

    ASSERT_EQ(front().undoStack().count(), 1);
    const ElementNodePtr added = canvas().storedOrder(sceneObjectType::obstacles).back();
    const tessaro::PointValue stored = added->storedPosition();
    EXPECT_NEAR(stored.x, 180, 1);
    EXPECT_NEAR(stored.y, 30, 1);

    // Anything else is refused.
    QMimeData text;
    text.setText(QStringLiteral("obstacles:Crate"));
    QDropEvent other(at, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &other);
    EXPECT_FALSE(other.isAccepted());
    EXPECT_EQ(front().undoStack().count(), 1);
}

TEST_F(LibraryTest, NodeListSelectsTheChosenNodeAndScrolls)
{
    ASSERT_FALSE(tessaro::obstacleCatalogue().empty());
    const ElementNodePtr crate =
        canvas().placement().addElement(sceneObjectType::obstacles, *tessaro::obstacleCatalogue().front().elementName);
    ASSERT_TRUE(crate);
    QToolButton* button = window->toolbar()->nodeListButton();
    ASSERT_TRUE(button->isEnabled());
    button->click();
    NodeListPopover* popover = window->toolbar()->nodeListPopover();
    EXPECT_TRUE(popover->isVisible());
    EXPECT_EQ(popover->width(), 420);

    QComboBox* picker = popover->picker();
    const int entry = picker->findData(QStringLiteral("obstacles:") + crate->name());
    ASSERT_GE(entry, 0);
    // The entries stand under the title of their layer, which cannot be chosen.
    const int header = picker->findText(QStringLiteral("Obstacles"));
    ASSERT_GE(header, 0);
    EXPECT_LT(header, entry);
    EXPECT_FALSE(qobject_cast<QStandardItemModel*>(picker->model())->item(header)->isEnabled());
    emit picker->activated(entry);
    EXPECT_EQ(front().elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(front().selectedObject().name, crate->name().toStdString());
    EXPECT_EQ(settings->nodeListItemSelected(), QStringLiteral("obstacles:") + crate->name());

    // The position row follows the canvas and scrolls it.
    EXPECT_EQ(popover->positionStepper()->toolTip(), "Set the position of the x axis in the scene view.");
    canvas().moveScene(PublishedElementList::scenePosition, tessaro::PointValue{75, 0});
    EXPECT_EQ(popover->positionStepper()->value(), (tessaro::PointValue{75, 0}));
    emit popover->positionStepper()->valueChanged(tessaro::PointValue{400, 10});
    EXPECT_EQ(front().scenePosition(), (tessaro::PointValue{400, 10}));
    EXPECT_EQ(canvas().scrollPosition(), (tessaro::PointValue{400, 10}));
}

} // namespace stagewright::test
