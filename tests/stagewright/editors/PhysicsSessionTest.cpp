// The physics sheet without its window: opening in each mode, the drawing
// tools' rules, selecting, moving and reshaping, the sheet's history, and
// applying the shapes as one step of the project's history, or of the
// catalogues' history for a template.
#include "PhysicsSheetFixture.h"

#include <stagewright/editors/ShapeTools.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

namespace stagewright::test {
namespace {

using tessaro::PointValue;
using tessaro::sceneObjectType;
using PhysicsSessionTest = PhysicsSheetFixture;

tessaro::PhysicsProperty oneRectangle(const char* size, const char* center)
{
    tessaro::PhysicsProperty physics;
    tessaro::RectanglePhysics rect;
    rect.size = size;
    rect.center = center;
    physics.rectangles = std::vector<tessaro::RectanglePhysics>{rect};
    return physics;
}

TEST_F(PhysicsSessionTest, OpensOnTheImageSizeAndShapesOfEachMode)
{
    tessaro::Level level = everyKind();
    // The level gives the crate a size and shapes of its own; the catalogue has others.
    level.obstacles->front().properties->devices = at("{100,0}", "{80,60}");
    level.obstacles->front().properties->physics = oneRectangle("{10.0,6.0}", "{1.0,2.0}");
    tessaro::obstacleCatalogue().front().physics = oneRectangle("{30.0,30.0}", "{0.0,0.0}");
    show({level});
    select(sceneObjectType::obstacles);

    auto element = open(PhysicsEditMode::element);
    EXPECT_FALSE(element->allowDropImages());
    EXPECT_EQ(element->imageList(), QStringList{workspace->path() + "Assets/Images/Obstacles/crate.png"});
    EXPECT_EQ(element->imageSize(), QSizeF(80, 60));
    EXPECT_EQ(element->shownImageSize(), QSizeF(80, 60));
    ASSERT_EQ(element->physicsElements().size(), 1u);
    EXPECT_EQ(element->physicsElements()[0].size, (tessaro::SizeValue{10, 6}));
    EXPECT_FALSE(element->dropImageFiles({"/elsewhere/extra.png"})) << "the level's element takes no dropped images";

    auto base = open(PhysicsEditMode::base);
    EXPECT_TRUE(base->allowDropImages());
    EXPECT_EQ(base->imageSize(), QSizeF(40, 40)) << "the template's own size";
    ASSERT_EQ(base->physicsElements().size(), 1u);
    EXPECT_EQ(base->physicsElements()[0].size, (tessaro::SizeValue{30, 30}));
    EXPECT_TRUE(base->dropImageFiles({"/elsewhere/extra.png", "/elsewhere/second.png"}));
    EXPECT_EQ(base->imageList().size(), 2) << "only the first file of a drop is taken";
    EXPECT_FALSE(base->dropImageFiles({}));

    // Without a size of its own anywhere, the image shows at its own size.
    tessaro::obstacleCatalogue().front().devices = at("{0,0}");
    level.obstacles->front().properties->devices = at("{100,0}");
    level.id = tessaro::Uuid::create(); // shown anew
    show({level});
    select(sceneObjectType::obstacles);
    EXPECT_EQ(open(PhysicsEditMode::element)->shownImageSize(), QSizeF(40, 40));
}

TEST_F(PhysicsSessionTest, AnimationModeShowsTheFramesOfTheEndAtlas)
{
    const QString atlas = kindImageFolder(workspace->path(), sceneObjectType::obstacles) + "burst.atlas/";
    QDir().mkpath(atlas);
    for (const char* frame : {"burst_2.png", "burst_0.png", "burst_1.png"}) {
        QImage picture(20, 10, QImage::Format_ARGB32);
        picture.fill(Qt::blue);
        picture.save(atlas + frame);
    }
    show({everyKind()});
    select(sceneObjectType::obstacles);
    edits().applyCycleEndProperty(PublishedElementList::End_list_add, {});
    edits().applyCycleEndProperty(PublishedElementList::End_atlasName, std::string("burst"));
    front().selectedAnimationObject().End_atlasName = "burst";

    auto session = open(PhysicsEditMode::animation);
    EXPECT_EQ(session->imageList(), (QStringList{atlas + "burst_0.png", atlas + "burst_1.png", atlas + "burst_2.png"}));
    EXPECT_EQ(session->shownImageSize(), QSizeF(20, 10));

    // A shape drawn on a frame belongs to it, and only shows there.
    session->selectImage(2);
    session->setActiveType(InsertType::rectangle);
    drag(*session, {0, 0}, {6, 4});
    const PhysicsElement drawn = session->physicsElements().front();
    EXPECT_EQ(drawn.framesAffected, "2");
    EXPECT_TRUE(session->isDrawn(drawn));
    session->selectImage(1);
    EXPECT_FALSE(session->isDrawn(drawn));
    session->setFramesAffected(drawn.id, "1,2");
    EXPECT_TRUE(session->isDrawn(*session->element(drawn.id)));

    // Removing a frame before the one shown keeps the same picture in view.
    session->removeImage(0);
    EXPECT_EQ(session->imageIdSelected(), 0);
    EXPECT_EQ(session->imageList().front(), atlas + "burst_1.png");
}

TEST_F(PhysicsSessionTest, DrawingToolsFollowTheirRules)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);

    // A rectangle is measured from the image's centre, wherever the drag starts.
    session->setActiveType(InsertType::rectangle);
    drag(*session, {15, 15}, {-12, 8});
    ASSERT_EQ(session->physicsElements().size(), 1u);
    EXPECT_EQ(session->physicsElements()[0].size, (tessaro::SizeValue{12, 8}));
    EXPECT_EQ(session->physicsElements()[0].center, (PointValue{0, 0}));
    // A press and release leaves a rectangle of no size; the next press starts another.
    click(*session, {3, 3});
    ASSERT_EQ(session->physicsElements().size(), 2u);
    EXPECT_EQ(session->physicsElements()[1].size, (tessaro::SizeValue{0, 0}));

    // The radius is the distance along x, whole; the circle stays on the centre.
    session->setActiveType(InsertType::radius);
    drag(*session, {0, 0}, {-7.4, 19});
    // The edge runs from the press to the release.
    session->setActiveType(InsertType::edge);
    drag(*session, {-10, 2}, {11, -3});
    const auto& elements = session->physicsElements();
    ASSERT_EQ(elements.size(), 4u);
    EXPECT_EQ(elements[0].type, PhysicsType::edge) << "kinds stay in their order";
    EXPECT_EQ(elements[0].startPoint, (PointValue{-10, 2}));
    EXPECT_EQ(elements[0].endPoint, (PointValue{11, -3}));
    EXPECT_EQ(elements[1].type, PhysicsType::radius);
    EXPECT_EQ(elements[1].radius, 7);

    // Pointer events away from the image do nothing, even with a tool.
    session->setImageViewHovered(false);
    session->pointerDown({1, 1});
    session->pointerDragged({5, 5});
    session->pointerUp({5, 5});
    EXPECT_EQ(session->physicsElements().size(), 4u);

    // Tools are for 100% only: another scale puts the selection back and keeps it.
    session->setScaleValue("1.50");
    EXPECT_EQ(session->activeType(), InsertType::none);
    EXPECT_FALSE(session->canChooseTool());
    session->setActiveType(InsertType::edge);
    EXPECT_EQ(session->activeType(), InsertType::none);
    session->setScaleValue("1.00");
    session->setActiveType(InsertType::edge);
    EXPECT_EQ(session->activeType(), InsertType::edge);
    EXPECT_EQ(session->history().count(), 4) << "each shape drawn is one step";
}

TEST_F(PhysicsSessionTest, APolygonClosesOnItsFirstVertex)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);
    session->setActiveType(InsertType::polygon);

    click(*session, {-10, -10});
    ASSERT_TRUE(session->pathCurrentlyOpen());
    const tessaro::Uuid polygon = session->activePhysicsId();
    click(*session, {-8, -9}); // on the first vertex: too early to close, and no vertex
    EXPECT_EQ(session->element(polygon)->points.size(), 1u);
    click(*session, {10, -10});
    click(*session, {0, 12});
    click(*session, {-12, -8}); // within the first vertex's handle
    EXPECT_FALSE(session->pathCurrentlyOpen());
    const PhysicsElement& closed = *session->element(polygon);
    ASSERT_EQ(closed.points.size(), 4u);
    EXPECT_EQ(closed.points.back().point, closed.points.front().point);
    EXPECT_NE(closed.points.back().id, closed.points.front().id);
    EXPECT_EQ(closed.direction, tessaro::pathDirection::both);

    // A tool change ends a polygon being drawn: the polygon tool starts anew, not stuck.
    click(*session, {1, 1});
    const tessaro::Uuid second = session->activePhysicsId();
    session->setActiveType(InsertType::edge);
    session->setActiveType(InsertType::polygon);
    click(*session, {5, 5});
    EXPECT_EQ(session->element(second)->points.size(), 1u);
    EXPECT_EQ(session->physicsElements().size(), 3u);
    // So does deleting it.
    session->removeElement(session->activePhysicsId());
    click(*session, {6, 6});
    click(*session, {7, 7});
    EXPECT_EQ(session->physicsElements().size(), 3u);
    EXPECT_EQ(session->element(session->activePhysicsId())->points.size(), 1u);
}

TEST_F(PhysicsSessionTest, ShapesAreSelectedMovedAndReshapedByTheirHandles)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);
    session->setActiveType(InsertType::rectangle);
    drag(*session, {0, 0}, {10, 6}); // 10 by 6 about the centre
    session->setActiveType(InsertType::edge);
    drag(*session, {-15, 15}, {15, 15});
    session->setActiveType(InsertType::none);
    const tessaro::Uuid rect = session->physicsElements()[1].id;
    const tessaro::Uuid edge = session->physicsElements()[0].id;
    session->history().clear();

    // A click inside the rectangle selects it; a drag moves it as one step.
    drag(*session, {1, 1}, {4, -1});
    EXPECT_EQ(session->selectedRow(), rect);
    EXPECT_EQ(session->element(rect)->center, (PointValue{3, -2}));
    EXPECT_EQ(session->history().count(), 1);
    // Its top right corner moves; the bottom left one stays.
    drag(*session, {8, 1}, {12, 5});
    EXPECT_EQ(session->element(rect)->center, (PointValue{5, 0}));
    EXPECT_EQ(session->element(rect)->size, (tessaro::SizeValue{14, 10}));
    // Dragged past the opposite corner, the rectangle turns over around it.
    drag(*session, {12, 5}, {-4, -9});
    EXPECT_EQ(session->element(rect)->size, (tessaro::SizeValue{2, 4}));
    EXPECT_EQ(session->element(rect)->center, (PointValue{-3, -7}));

    // An edge with the sprite's edge markers keeps them while it moves along
    // the sprite's sides, and takes plain coordinates when it leaves them.
    session->setStartPoint(edge, {-9999, 15});
    session->setEndPoint(edge, {9999, 15});
    drag(*session, {0, 15}, {0, 10});
    EXPECT_EQ(session->selectedRow(), edge);
    EXPECT_EQ(session->element(edge)->startPoint, (PointValue{-9999, 10}));
    EXPECT_EQ(session->element(edge)->endPoint, (PointValue{9999, 10}));
    drag(*session, {0, 10}, {3, 10});
    EXPECT_EQ(session->element(edge)->startPoint, (PointValue{-17, 10})) << "the crate is 40 wide";
    EXPECT_EQ(session->element(edge)->endPoint, (PointValue{23, 10}));

    // A click on nothing selects nothing; with "Display only selected" nothing is drawn.
    click(*session, {0, 19});
    session->setDisplayOnlySelectedPhysics(true);
    for (const PhysicsElement& element : session->physicsElements())
        EXPECT_FALSE(session->isDrawn(element));

    // The sheet's history takes every step back, one at a time.
    const int steps = session->history().count();
    EXPECT_EQ(steps, 7);
    while (session->history().canUndo())
        session->history().undo();
    EXPECT_EQ(session->element(rect)->center, (PointValue{0, 0}));
    EXPECT_EQ(session->element(edge)->startPoint, (PointValue{-15, 15}));
}

TEST_F(PhysicsSessionTest, TheClosingVertexFollowsTheFirstAndTypingIsOneStep)
{
    show({everyKind()});
    select(sceneObjectType::obstacles);
    auto session = open(PhysicsEditMode::element);
    session->setActiveType(InsertType::polygon);
    for (PointValue p : {PointValue{-10, -10}, PointValue{10, -10}, PointValue{0, 10}, PointValue{-10, -10}})
        click(*session, p);
    session->setActiveType(InsertType::none);
    const tessaro::Uuid polygon = session->physicsElements().front().id;
    session->selectRow(polygon);
    session->history().clear();

    drag(*session, {-10, -10}, {-14, -12});
    const auto& points = session->element(polygon)->points;
    EXPECT_EQ(points.front().point, (PointValue{-14, -12}));
    EXPECT_EQ(points.back().point, (PointValue{-14, -12})) << "the polygon stays closed";
    session->setPoint(polygon, 0, {-15, -12});
    EXPECT_EQ(session->element(polygon)->points.back().point, (PointValue{-15, -12}));

    session->setRadius(polygon, 1); // no radius on a polygon, but a field like any other
    session->history().clear();
    session->setPoint(polygon, 1, {11, -10});
    session->setPoint(polygon, 1, {12, -10});
    session->setPoint(polygon, 2, {0, 11});
    EXPECT_EQ(session->history().count(), 2) << "one vertex typed twice is one step";
    session->history().undo();
    session->history().undo();
    EXPECT_EQ(session->element(polygon)->points[1].point, (PointValue{10, -10}));
}

TEST_F(PhysicsSessionTest, ApplyIsOneStepOfTheProjectWhereverTheSheetWasOpened)
{
    tessaro::Level level = everyKind();
    level.obstacles->front().properties->physics = oneRectangle("{10.0,6.0}", "{0.0,0.0}");
    show({level});
    select(sceneObjectType::obstacles);
    front().undoStack().clear();

    // The element of the level: its override, and the node shows it at once.
    auto session = open(PhysicsEditMode::element);
    session->setActiveType(InsertType::edge);
    drag(*session, {-5, 0}, {5, 0});
    ASSERT_TRUE(session->applyPhysics());
    EXPECT_EQ(front().undoStack().count(), 1);
    const auto physics = saved().obstacles->front().properties->physics;
    ASSERT_TRUE(physics && physics->edges && physics->rectangles);
    EXPECT_EQ(physics->edges->front().startPoint, "{-5.0,0.0}");
    EXPECT_FALSE(physics->radiuses);
    EXPECT_EQ(open(PhysicsEditMode::element)->physicsElements().size(), 2u) << "reopened on the new shapes";
    front().undoStack().undo();
    EXPECT_FALSE(saved().obstacles->front().properties->physics->edges);
    EXPECT_EQ(open(PhysicsEditMode::element)->physicsElements().size(), 1u);

    // A character keeps its shapes too.
    select(sceneObjectType::character);
    session = open(PhysicsEditMode::element);
    session->setActiveType(InsertType::radius);
    drag(*session, {0, 0}, {9, 0});
    session->applyPhysics();
    ASSERT_TRUE(saved().characters->front().properties->physics);
    EXPECT_EQ(saved().characters->front().properties->physics->radiuses->front().radius, 9);

    // The selected cycle-end animation.
    select(sceneObjectType::obstacles);
    edits().applyCycleEndProperty(PublishedElementList::End_list_add, {});
    session = open(PhysicsEditMode::animation);
    EXPECT_TRUE(session->physicsElements().empty());
    session->setActiveType(InsertType::rectangle);
    drag(*session, {0, 0}, {4, 4});
    const int before = front().undoStack().count();
    session->applyPhysics();
    EXPECT_EQ(front().undoStack().count(), before + 1);
    const auto ends = saved().obstacles->front().properties->animation->cycleEndProperties;
    ASSERT_TRUE(ends && ends->front().physics && ends->front().physics->rectangles);
    EXPECT_EQ(ends->front().physics->rectangles->front().size, "{4.0,4.0}");
    EXPECT_EQ(open(PhysicsEditMode::animation)->physicsElements().size(), 1u);
    front().undoStack().undo();
    EXPECT_FALSE(saved().obstacles->front().properties->animation->cycleEndProperties->front().physics);
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(PhysicsSessionTest, BaseShapesAreAStepOfTheCataloguesHistoryNotOfAnyTab)
{
    // The catalogues are read from the test's workspace, so they belong to it.
    const QString assets = assetsFolder(workspace->path());
    QDir().mkpath(assets);
    ASSERT_TRUE(tessaro::saveConfig("ObstacleList", "plist", assets.toStdString(), tessaro::configType::obstacles));
    ASSERT_TRUE(tessaro::saveConfig("CharacterList", "plist", assets.toStdString(), tessaro::configType::characters));
    settings->catalogues().load(workspace->path());
    QUndoStack& catalogueHistory = settings->catalogues().history();
    show({everyKind()});
    ProjectTab& level = front();
    settings->newProject();
    ProjectTab& other = front();
    settings->selectProject(level.id());
    select(sceneObjectType::obstacles);
    const int levelSteps = level.undoStack().count();
    const QString obstacles = assets + "ObstacleList.plist";
    const QByteArray obstaclesBefore = fileBytes(obstacles);
    const QDateTime charactersWritten = QFileInfo(assets + "CharacterList.plist").lastModified();

    auto session = open(PhysicsEditMode::base);
    session->setActiveType(InsertType::radius);
    drag(*session, {0, 0}, {12, 0});
    ASSERT_TRUE(session->applyPhysics());
    EXPECT_EQ(catalogueHistory.count(), 1);
    EXPECT_EQ(catalogueHistory.undoText(), "Change Base Physics");
    EXPECT_EQ(level.undoStack().count(), levelSteps) << "no tab's Undo takes a catalogue's step";
    EXPECT_EQ(other.undoStack().count(), 0);
    EXPECT_FALSE(level.isProjectDirty());
    const auto stored =
        tessaro::loadConfig<tessaro::configType::obstacles>(assets.toStdString(), "ObstacleList", "plist");
    ASSERT_EQ(stored.size(), 1u);
    ASSERT_TRUE(stored.front().physics && stored.front().physics->radiuses);
    EXPECT_EQ(stored.front().physics->radiuses->front().radius, 12);
    EXPECT_EQ(QFileInfo(assets + "CharacterList.plist").lastModified(), charactersWritten)
        << "an unchanged catalogue is not written";
    EXPECT_FALSE(QFileInfo::exists(assets + "ObjectList.plist"));
    // Applying the same shapes again changes nothing and is no step.
    ASSERT_TRUE(open(PhysicsEditMode::base)->applyPhysics());
    EXPECT_EQ(catalogueHistory.count(), 1);

    // The sheet's Undo takes its own steps first, then the catalogues'; the
    // sheet then shows the template as it is again.
    session = open(PhysicsEditMode::base);
    session->setActiveType(InsertType::rectangle);
    drag(*session, {0, 0}, {4, 4});
    session->undo();
    EXPECT_EQ(catalogueHistory.index(), 1) << "the sheet's own step goes first";
    ASSERT_TRUE(session->canUndo());
    EXPECT_EQ(session->undoText(), "Change Base Physics");
    session->undo();
    EXPECT_EQ(fileBytes(obstacles), obstaclesBefore) << "undo writes the file back byte for byte";
    EXPECT_TRUE(session->physicsElements().empty());
    EXPECT_EQ(level.undoStack().count(), levelSteps);
    // Shapes not applied keep the catalogues' steps out of reach.
    drag(*session, {0, 0}, {4, 4});
    EXPECT_FALSE(session->canRedo());
    session = open(PhysicsEditMode::base);
    ASSERT_TRUE(session->canRedo());
    EXPECT_EQ(session->redoText(), "Change Base Physics");
    session->redo();
    EXPECT_EQ(session->physicsElements().size(), 1u);
    EXPECT_EQ(catalogueHistory.index(), 1);

    // Reading another workspace's catalogues empties the history; the new
    // workspace's files are not written.
    SceneWorkspace elsewhere;
    QDir().mkpath(assetsFolder(elsewhere.path()));
    tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
    ASSERT_TRUE(tessaro::saveConfig("ObstacleList", "plist", assetsFolder(elsewhere.path()).toStdString(),
                                    tessaro::configType::obstacles));
    const QByteArray elsewhereBefore = fileBytes(assetsFolder(elsewhere.path()) + "ObstacleList.plist");
    settings->catalogues().load(elsewhere.path());
    EXPECT_EQ(catalogueHistory.count(), 0);
    EXPECT_FALSE(session->canUndo());
    EXPECT_EQ(fileBytes(assetsFolder(elsewhere.path()) + "ObstacleList.plist"), elsewhereBefore);
}

} // namespace
} // namespace stagewright::test
