// The physics sheet as a user meets it: opened through the inspector's hook,
// its bar, canvas and side column driven with the mouse and keyboard.
#include "PhysicsSheetFixture.h"

#include <stagewright/editors/ImagePhysicsView.h>
#include <stagewright/editors/PhysicsCanvas.h>
#include <stagewright/editors/PhysicsNavBar.h>
#include <stagewright/editors/PhysicsSidePanel.h>
#include <stagewright/inspector/controls/Steppers.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct PhysicsSheetTest : PhysicsSheetFixture {
    QWidget parent;

    /// The sheet the inspector's hook opens.
    ImagePhysicsView* openSheet(PhysicsEditMode mode)
    {
        installPhysicsEditor();
        EXPECT_TRUE(openPhysicsEditor(&parent, front(), settings.get(), mode));
        setPhysicsEditorOpener({});
        auto* sheet = parent.findChild<ImagePhysicsView*>();
        if (sheet)
            sheet->setParent(nullptr, Qt::Dialog); // shown on its own, so a test can size and grab it
        return sheet;
    }
    template <class W>
    static W* child(QWidget* in, const char* name)
    {
        return in->findChild<W*>(QString::fromLatin1(name));
    }
};

TEST_F(PhysicsSheetTest, TheSheetOfEachModeHasItsSizeButtonsAndDropTarget)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    EXPECT_FALSE(openPhysicsEditor(&parent, front(), settings.get(), PhysicsEditMode::element))
        << "nothing opens before the editors install their opener";

    std::unique_ptr<ImagePhysicsView> element(openSheet(PhysicsEditMode::element));
    ASSERT_TRUE(element);
    EXPECT_EQ(element->size(), QSize(1100, 600));
    EXPECT_EQ(element->windowModality(), Qt::WindowModal);
    EXPECT_EQ(child<QToolButton>(element.get(), "applyButton")->text(), "Apply");
    EXPECT_EQ(element->sidePanel()->width(), 440);
    EXPECT_FALSE(child<QLabel>(element.get(), "dropTarget"));
    EXPECT_EQ(child<QLabel>(element.get(), "noPhysics")->text(), "No physics have been defined yet.");

    std::unique_ptr<ImagePhysicsView> base(openSheet(PhysicsEditMode::base));
    EXPECT_EQ(child<QToolButton>(base.get(), "applyButton")->text(), "Save");
    EXPECT_EQ(base->sidePanel()->width(), 560);
    ASSERT_TRUE(child<QLabel>(base.get(), "dropTarget"));
    EXPECT_EQ(child<QLabel>(base.get(), "dropTarget")->text(), "Drop Image Here");
}

TEST_F(PhysicsSheetTest, ToolsAreChosenAtFullScaleAndShapesDrawnWithTheMouse)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    std::unique_ptr<ImagePhysicsView> sheet(openSheet(PhysicsEditMode::element));
    sheet->show();
    QApplication::processEvents();
    ImagePhysicsSession& session = sheet->session();

    // At 150% the tool button opens nothing.
    auto* scale = child<QComboBox>(sheet.get(), "Scale");
    scale->setCurrentIndex(scale->findData("1.50"));
    emit scale->activated(scale->currentIndex());
    QTest::mouseClick(sheet->navBar()->toolButton(), Qt::LeftButton);
    EXPECT_FALSE(sheet->navBar()->toolPopover() && sheet->navBar()->toolPopover()->isVisible());
    scale->setCurrentIndex(scale->findData("1.00"));
    emit scale->activated(scale->currentIndex());
    QTest::mouseClick(sheet->navBar()->toolButton(), Qt::LeftButton);
    ASSERT_TRUE(sheet->navBar()->toolPopover()->isVisible());
    QTest::mouseClick(child<QPushButton>(sheet->navBar()->toolPopover(), "Rectangle"), Qt::LeftButton);
    EXPECT_EQ(session.activeType(), InsertType::rectangle);
    EXPECT_EQ(sheet->navBar()->toolButton()->text(), "Rectangle");

    // A drag on the picture draws a rectangle about its centre.
    tessaro::kit::SceneView* view = sheet->canvas()->sceneView();
    const QPoint centre = view->convertPointFromScene(sheet->canvas()->scene().scenePoint({0, 0})).toPoint();
    QTest::mousePress(view, Qt::LeftButton, {}, centre + QPoint(2, 2));
    QTest::mouseMove(view, centre + QPoint(9, -6));
    QMouseEvent drag(QEvent::MouseMove, centre + QPoint(16, -12), view->mapToGlobal(centre + QPoint(16, -12)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &drag);
    QTest::mouseRelease(view, Qt::LeftButton, {}, centre + QPoint(16, -12));
    ASSERT_EQ(session.physicsElements().size(), 1u);
    EXPECT_EQ(session.physicsElements()[0].size, (tessaro::SizeValue{16, 12}));
    EXPECT_TRUE(child<QLabel>(sheet.get(), "pointerReadOut")->text().contains("16"));

    // The row shows the fields; typing a frame list stores it.
    auto* row = sheet->sidePanel()->findChild<QPushButton*>("showHide");
    ASSERT_TRUE(row);
    QTest::mouseClick(row, Qt::LeftButton);
    QApplication::processEvents();
    auto* frames = sheet->sidePanel()->findChild<QLineEdit*>();
    ASSERT_TRUE(frames);
    QTest::keyClicks(frames, "0,2");
    EXPECT_EQ(session.physicsElements()[0].framesAffected, "0,2");
    EXPECT_EQ(sheet->sidePanel()->findChild<QLineEdit*>(), frames) << "typing keeps the field";
    sheet->grab().save(QDir::tempPath() + "/physics-sheet.png");

    // Undo in the sheet, then the row's delete control.
    session.history().undo();
    EXPECT_EQ(session.physicsElements()[0].framesAffected, "");
    QTest::mouseClick(sheet->sidePanel()->findChild<QToolButton*>("deleteShape"), Qt::LeftButton);
    EXPECT_TRUE(session.physicsElements().empty());
    session.history().undo();

    // Apply is one step of the tab and closes the sheet.
    const int steps = front().undoStack().count();
    QTest::mouseClick(child<QToolButton>(sheet.get(), "applyButton"), Qt::LeftButton);
    EXPECT_EQ(front().undoStack().count(), steps + 1);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(saved().obstacles->front().properties->physics->rectangles->front().size, "{16.0,12.0}");
}

} // namespace
} // namespace stagewright::test
