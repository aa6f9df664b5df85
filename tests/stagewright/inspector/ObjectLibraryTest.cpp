// The object library: the cells of each tab and their filter, and the
// elements a click or a drop adds, each one step of the history that undo
// takes back and redo puts back as it was.
#include "EditingFixture.h"

#include <stagewright/inspector/ObjectLibrary.h>

#include <tessaro/model/ConfigFiles.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;
using ObjectLibraryTest = EditingFixture;

QStringList titles(const std::vector<LibraryCell>& cells, const std::vector<std::size_t>& kept)
{
    QStringList list;
    for (std::size_t index : kept)
        list << cells[index].buttonTitle;
    return list;
}

QStringList filtered(sceneObjectType kind, const QString& text)
{
    const std::vector<LibraryCell> cells = libraryCells(kind);
    return titles(cells, filterLibraryCells(cells, text));
}

std::size_t countOf(const SceneEditor& scene, sceneObjectType kind)
{
    return SceneEditor::elementsOf(scene.layerFor(kind)).size();
}

TEST_F(ObjectLibraryTest, TabsListTheirKindSortedAndFilterTellsCaseApart)
{
    tessaro::GenericObject unnamed = objectTemplate("x", "grass", sceneObjectType::ground, "{10,10}");
    unnamed.elementName.reset();
    tessaro::GenericObject boulder = objectTemplate("Boulder", "grass", sceneObjectType::ground, "{10,10}");
    boulder.image.reset();
    tessaro::GenericObject untyped = objectTemplate("Rocky", "grass", sceneObjectType::ground, "{10,10}");
    untyped.sceneObjectType.reset();
    tessaro::GenericObject oddType = untyped;
    oddType.sceneObjectType = "Ground";
    tessaro::GenericObject rock = objectTemplate("Rock", "grass", sceneObjectType::ground, "{10,10}");
    rock.imageType = "jpg";
    rock.objectClassType = "boulderDrop";
    rock.useGravity = true;
    tessaro::objectCatalogue() = {
        objectTemplate("pebble", "grass", sceneObjectType::ground, "{10,10}"), rock, unnamed, boulder, untyped, oddType,
        objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}")};
    // A ground record in the obstacle catalogue belongs to no tab.
    tessaro::Obstacle misplaced = obstacleTemplate("Rock ledge", "crate", "{10,10}");
    misplaced.sceneObjectType = "ground";
    tessaro::Obstacle crate = obstacleTemplate("Crate", "crate", "{40,40}");
    crate.isDynamic = true;
    tessaro::obstacleCatalogue() = {crate, misplaced};
    tessaro::Character walker = characterTemplate("Walker", "walker", "{30,40}");
    walker.useGravity = false;
    walker.isDynamic = false;
    tessaro::characterCatalogue() = {walker};

    // Sorted by element name in the plain order of text; a record without a
    // name sorts first and shows "None".
    EXPECT_EQ(filtered(sceneObjectType::ground, {}), QStringList({"None", "Boulder", "Rock", "pebble"}));
    EXPECT_EQ(filtered(sceneObjectType::coin, {}), QStringList({"coin"}));
    EXPECT_EQ(filtered(sceneObjectType::obstacles, {}), QStringList({"Crate"}));
    // The filter tells upper from lower case and never keeps a record without a name.
    EXPECT_EQ(filtered(sceneObjectType::ground, "rock"), QStringList());
    EXPECT_EQ(filtered(sceneObjectType::ground, "Rock"), QStringList({"Rock"}));
    EXPECT_EQ(filtered(sceneObjectType::ground, "o"), QStringList({"Boulder", "Rock"}));

    const std::vector<LibraryCell> ground = libraryCells(sceneObjectType::ground);
    const LibraryCell& noImage = ground[1];
    EXPECT_EQ(noImage.buttonImage, "placeholder");
    EXPECT_EQ(noImage.buttonClass, "none");
    EXPECT_FALSE(noImage.buttonImageType);
    EXPECT_FALSE(noImage.buttonUseGravity);
    const LibraryCell& full = ground[2];
    EXPECT_EQ(full.buttonImage, "grass");
    EXPECT_EQ(full.buttonImageType, "jpg");
    EXPECT_EQ(full.buttonClass, "boulderDrop");
    EXPECT_TRUE(full.buttonUseGravity);
    EXPECT_EQ(full.valType, sceneObjectType::ground);
    EXPECT_TRUE(libraryCellImagePath(full).endsWith("/grass.jpg")) << libraryCellImagePath(full).toStdString();

    // Obstacles and characters are "png"; characters always fall and move.
    const LibraryCell obstacle = libraryCells(sceneObjectType::obstacles).front();
    EXPECT_EQ(obstacle.buttonImageType, "png");
    EXPECT_FALSE(obstacle.buttonUseGravity);
    EXPECT_TRUE(obstacle.buttonIsDynamic);
    const LibraryCell character = libraryCells(sceneObjectType::character).front();
    EXPECT_EQ(character.buttonImageType, "png");
    EXPECT_TRUE(character.buttonUseGravity);
    EXPECT_TRUE(character.buttonIsDynamic);

    // An empty catalogue is an empty tab.
    tessaro::objectCatalogue().clear();
    EXPECT_TRUE(libraryCells(sceneObjectType::background).empty());
    EXPECT_TRUE(filterLibraryCells({}, "a").empty());
}

TEST_F(ObjectLibraryTest, ClickAddsOneSelectedElementThatUndoRemovesAndRedoRestores)
{
    show({everyKind()});
    const tessaro::Level before = comparable(saved());
    QUndoStack& history = front().undoStack();
    ASSERT_EQ(countOf(scene(), sceneObjectType::obstacles), 1u);

    ASSERT_TRUE(addLibraryElement(&front(), sceneObjectType::obstacles, "Crate"));
    EXPECT_EQ(history.count(), 1);
    EXPECT_EQ(history.undoText(), "Add Crate");
    EXPECT_TRUE(front().isProjectDirty());
    ASSERT_EQ(countOf(scene(), sceneObjectType::obstacles), 2u);
    const ElementNodePtr added = scene().storedOrder(sceneObjectType::obstacles).back();
    const ElementRecords addedRecords = added->records();
    const ElementHandle handle = added->handle;
    EXPECT_NE(handle, 0u);
    // The new element is the selection, as if clicked.
    EXPECT_EQ(front().elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(front().selectedObject().name, added->name().toStdString());
    EXPECT_EQ(saved().obstacles->size(), 2u);

    history.undo();
    EXPECT_EQ(countOf(scene(), sceneObjectType::obstacles), 1u);
    EXPECT_NE(front().elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(comparable(saved()), before);
    EXPECT_FALSE(front().isProjectDirty());

    history.redo();
    const ElementNodePtr back = scene().elementWithHandle(handle);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->records(), addedRecords);
    EXPECT_EQ(front().selectedObject().name, back->name().toStdString());

    // No tab, no name, or a name the catalogue does not have: no step.
    const int steps = history.count();
    EXPECT_FALSE(addLibraryElement(nullptr, sceneObjectType::obstacles, "Crate"));
    EXPECT_FALSE(addLibraryElement(&front(), sceneObjectType::obstacles, ""));
    addLibraryElement(&front(), sceneObjectType::obstacles, "Nothing such");
    EXPECT_EQ(history.count(), steps);
    EXPECT_EQ(countOf(scene(), sceneObjectType::obstacles), 2u);

    // A ground section joins the row at its end; undo lays the row as it was.
    const std::size_t sections = countOf(scene(), sceneObjectType::ground);
    ASSERT_TRUE(addLibraryElement(&front(), sceneObjectType::ground, "Grass"));
    EXPECT_EQ(countOf(scene(), sceneObjectType::ground), sections + 1);
    history.undo();
    EXPECT_EQ(countOf(scene(), sceneObjectType::ground), sections);
    EXPECT_EQ(saved().ground->size(), sections);

    // The first checkpoint of a level names the picture of them all, so a
    // reload shows it.
    tessaro::Level bare = everyKind();
    bare.checkpoints.reset();
    show({bare});
    ASSERT_TRUE(addLibraryElement(&front(), sceneObjectType::checkpoint, "Flag"));
    const tessaro::Level stored = saved();
    ASSERT_TRUE(stored.checkpoints);
    EXPECT_EQ(stored.checkpoints->image, "Flag");
    EXPECT_EQ(stored.checkpoints->locations->size(), 1u);
}

TEST_F(ObjectLibraryTest, BackgroundTabAppendsABackground)
{
    tessaro::objectCatalogue().push_back(objectTemplate("Hills", "hills", sceneObjectType::background, "{874,402}"));
    show({everyKind()});
    QUndoStack& history = front().undoStack();
    const std::size_t before = scene().backgroundList()->backgrounds->size();

    ASSERT_TRUE(addLibraryElement(&front(), sceneObjectType::background, "Hills"));
    EXPECT_EQ(history.count(), 1);
    const std::vector<tessaro::BackgroundImage>& list = *scene().backgroundList()->backgrounds;
    ASSERT_EQ(list.size(), before + 1);
    EXPECT_EQ(list.back().image, "hills");
    const tessaro::Uuid id = *list.back().id;
    EXPECT_EQ(front().elementPhase(), SelectionPhase::Selected);
    EXPECT_EQ(front().selectedObject().backgroundSelectedId, id);

    history.undo();
    EXPECT_EQ(saved().background->backgrounds->size(), before);
    EXPECT_NE(front().elementPhase(), SelectionPhase::Selected);
    history.redo();
    ASSERT_EQ(scene().backgroundList()->backgrounds->size(), before + 1);
    EXPECT_EQ(scene().backgroundList()->backgrounds->back().id, id);
}

TEST_F(ObjectLibraryTest, DropAddsTheElementAtThePointInTheScrolledLevel)
{
    show({everyKind()});
    scene().moveScene(PublishedElementList::scenePosition, tessaro::PointValue{200, 0});

    ASSERT_TRUE(addLibraryElement(&front(), sceneObjectType::obstacles, "Crate", QPointF(50, 20)));
    EXPECT_EQ(front().undoStack().count(), 1);
    const ElementNodePtr added = scene().storedOrder(sceneObjectType::obstacles).back();
    EXPECT_EQ(added->storedPosition(), (tessaro::PointValue{250, 20}));
    EXPECT_DOUBLE_EQ(added->position().x(), 250);
    EXPECT_EQ(saved().obstacles->back().properties->devices->front().position, "{250.0,20.0}");

    front().undoStack().undo();
    front().undoStack().redo();
    EXPECT_EQ(scene().storedOrder(sceneObjectType::obstacles).back()->storedPosition(), (tessaro::PointValue{250, 20}));
}

TEST(ObjectLibraryDrag, CellTravelsAsItsKindAndName)
{
    LibraryCell cell;
    cell.valType = sceneObjectType::coin;
    cell.elementName = "Gold: big";
    const std::unique_ptr<QMimeData> data = libraryMimeData(cell);
    const auto carried = libraryElementFrom(*data);
    ASSERT_TRUE(carried);
    EXPECT_EQ(carried->first, sceneObjectType::coin);
    EXPECT_EQ(carried->second, "Gold: big");
    QMimeData text;
    text.setText("coin:Gold");
    EXPECT_FALSE(libraryElementFrom(text));
}

} // namespace
} // namespace stagewright::test
