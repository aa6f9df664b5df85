// Background layers: unpinned images that fill the view, pinned copies along
// the level, record refreshes, new images from the catalogue, and what a save
// keeps of them.
#include "SceneTestSupport.h"

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

struct BackgroundTest : ::testing::Test {
    SceneWorkspace workspace;
    void SetUp() override
    {
        workspace.image(sceneObjectType::background, "sky", 500, 250, QColor(100, 150, 250));
        workspace.image(sceneObjectType::background, "hills", 500, 250, QColor(60, 120, 60));
        workspace.image(sceneObjectType::ground, "grass", 100, 50);
    }
    static tessaro::BackgroundImage image(const std::string& name, bool pinned = false)
    {
        tessaro::BackgroundImage record;
        record.image = name;
        record.pinned = pinned;
        return record;
    }
    /// A 1000 by 500 level whose ground is 4000 long.
    static tessaro::Level longLevel(std::vector<tessaro::BackgroundImage> images)
    {
        tessaro::Level level = emptyLevel();
        level.settings.size = "{1000,500}";
        level.ground = std::vector<tessaro::GroundSection>{tileSection("grass", "{4000,50}")};
        level.background.emplace().backgrounds = std::move(images);
        return level;
    }
    static std::vector<double> copiesOf(const SceneEditor& scene, const tessaro::Uuid& id)
    {
        std::vector<double> xs;
        for (const auto& node : elements(scene.pinnedBackgroundNodes()))
            if (node->backgroundAssociatedId == id)
                xs.push_back(xOf(node));
        return xs;
    }
};

TEST_F(BackgroundTest, UnpinnedImagesFillTheViewAndStayPut)
{
    tessaro::BackgroundImage sky = image("sky"), hidden = image("hills"), twin = image("sky");
    hidden.isVisible = false;
    twin.zPosition = -5;
    tessaro::Level level = emptyLevel();
    level.background.emplace().backgrounds = std::vector<tessaro::BackgroundImage>{sky, hidden, twin};
    tessaro::GameSound theme;
    theme.id = tessaro::Uuid::create();
    theme.type = "background";
    theme.filename = "theme";
    theme.fileExtension = "wav";
    level.background->soundEffects = std::vector<tessaro::GameSound>{theme};
    LoadedLevel loaded(level);

    const auto nodes = elements(loaded.scene->backgroundNodes());
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0]->size(), QSizeF(874, 402));
    EXPECT_EQ(nodes[0]->position(), QPointF(0, 0));
    EXPECT_EQ(nodes[0]->zPosition(), 0);
    EXPECT_EQ(nodes[1]->zPosition(), -5);
    EXPECT_EQ(nodes[0]->backgroundImagename, "sky");
    EXPECT_FALSE(nodes[0]->physicsBody());
    EXPECT_FALSE(nodes[0]->childNodeWithName("nodeSizer"));
    // Each record got its own id, and the nodes carry it.
    const auto& list = *loaded.scene->backgroundList()->backgrounds;
    ASSERT_EQ(list.size(), 3u);
    EXPECT_TRUE(list[0].id && list[1].id && list[2].id);
    EXPECT_NE(list[0].id, list[2].id);
    EXPECT_EQ(nodes[0]->backgroundAssociatedId, list[0].id);
    EXPECT_EQ(nodes[1]->backgroundAssociatedId, list[2].id);

    // Scrolling leaves the unpinned layer where it is.
    loaded.scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{500, 20});
    EXPECT_EQ(loaded.scene->backgroundNodes()->position(), QPointF(0, 0));
    EXPECT_EQ(loaded.scene->pinnedBackgroundNodes()->position(), QPointF(-500, -20));

    // The hidden image has no node but is saved, with the ids made at load.
    const tessaro::Level& saved = loaded.saved();
    ASSERT_EQ(saved.background->backgrounds->size(), 3u);
    EXPECT_EQ((*saved.background->backgrounds)[1].isVisible, false);
    EXPECT_EQ((*saved.background->backgrounds)[0].id, list[0].id);
    EXPECT_EQ(saved.background->soundEffects, level.background->soundEffects);

    // The tab's switch hides both layers, and a level loaded later keeps them hidden.
    loaded.tab.setBackgroundElementsHidden(true);
    EXPECT_TRUE(loaded.scene->backgroundNodes()->isHidden());
    EXPECT_TRUE(loaded.scene->pinnedBackgroundNodes()->isHidden());
    EXPECT_TRUE(loaded.scene->nodesAtPoint(QPointF(0, 0)).empty());
    loaded.scene->loadLevel(loaded.id);
    EXPECT_TRUE(loaded.scene->backgroundNodes()->isHidden());
    loaded.tab.setBackgroundElementsHidden(false);
    EXPECT_FALSE(loaded.scene->pinnedBackgroundNodes()->isHidden());
}

TEST_F(BackgroundTest, PinnedCopiesAlongTheLevel)
{
    tessaro::BackgroundImage everywhere = image("hills", true);
    tessaro::BackgroundImage ranged = image("sky", true);
    tessaro::PinnedRange middle, narrow;
    middle.range = "1000...2000";
    narrow.range = "2500...2600";
    ranged.pinnedRanges = std::vector<tessaro::PinnedRange>{middle, narrow};
    tessaro::BackgroundImage late = image("sky", true);
    tessaro::PinnedRange beyond;
    beyond.range = "1500...4500";
    late.pinnedRanges = std::vector<tessaro::PinnedRange>{beyond};
    LoadedLevel loaded(longLevel({everywhere, ranged, late}), {1000, 500});

    EXPECT_EQ(loaded.scene->levelEndX(), 4000);
    const auto& list = *loaded.scene->backgroundList()->backgrounds;
    EXPECT_EQ(copiesOf(*loaded.scene, *list[0].id), (std::vector<double>{0, 1000, 2000, 3000, 4000}));
    EXPECT_EQ(copiesOf(*loaded.scene, *list[1].id), (std::vector<double>{1000, 2000}));
    // The run ends 1000 past the ground's end.
    EXPECT_EQ(copiesOf(*loaded.scene, *list[2].id), (std::vector<double>{2000, 3000, 4000}));
    const auto first = elements(loaded.scene->pinnedBackgroundNodes()).front();
    EXPECT_EQ(first->size(), QSizeF(1000, 500));
    EXPECT_EQ(yOf(first), 0);
}

TEST_F(BackgroundTest, TheCanvasFollowsTheRecordsInTheDocument)
{
    tessaro::objectCatalogue() = {objectTemplate("Hills", "hills", sceneObjectType::background)};
    LoadedLevel loaded(longLevel({image("sky", true), image("sky")}), {1000, 500});
    LevelDocument& document = loaded.tab.document();
    // Loading gives every image an id, in the document too.
    const auto& stored = *loaded.level().background->backgrounds;
    ASSERT_TRUE(stored[0].id && stored[1].id);
    EXPECT_EQ(*loaded.scene->backgroundList()->backgrounds, stored);

    const auto write = [&](const char* field, tessaro::FieldValue value) {
        ASSERT_TRUE(document.writeField(loaded.id, tessaro::FieldPath("background.backgrounds.0") / field, value));
    };
    write("image", std::string("hills"));
    write("zPosition", tessaro::FieldValue());
    write("isVisible", false);
    ASSERT_FALSE(elements(loaded.scene->pinnedBackgroundNodes()).empty());
    for (const auto& node : elements(loaded.scene->pinnedBackgroundNodes())) {
        // Refreshed in place: hidden, and an absent depth reads 1.
        EXPECT_TRUE(node->isHidden());
        EXPECT_EQ(node->zPosition(), 1);
        EXPECT_EQ(node->backgroundImagename, "hills");
        EXPECT_EQ(QColor(node->texture()->image().pixel(0, 0)), QColor(60, 120, 60));
        EXPECT_EQ(node->size(), QSizeF(1000, 500));
    }
    EXPECT_EQ(elements(loaded.scene->backgroundNodes()).front()->backgroundImagename, "sky");

    // A new image of the catalogue's background stands above the others.
    const tessaro::BackgroundImage hills = newBackgroundImage("Hills", sceneObjectType::background, 2);
    EXPECT_EQ(hills.image, "hills");
    EXPECT_EQ(hills.zPosition, 3);
    EXPECT_EQ(hills.pinned, false);
    EXPECT_EQ(hills.speed, 0);
    EXPECT_EQ(hills.isVisible, true);
    EXPECT_FALSE(hills.scrollOrientation);
    std::vector<tessaro::BackgroundImage> images = stored;
    images.push_back(hills);
    ASSERT_TRUE(document.writeField(loaded.id, tessaro::FieldPath("background.backgrounds"), images));
    EXPECT_EQ(elements(loaded.scene->backgroundNodes()).size(), 2u);
    EXPECT_EQ(loaded.scene->backgroundNode(*hills.id)->backgroundImagename, "hills");

    testing_support::DiagnosticCapture capture;
    EXPECT_EQ(newBackgroundImage("Nowhere", sceneObjectType::background, 3).image, "placeholder");
    EXPECT_TRUE(capture.contains("\"Nowhere\""));
    EXPECT_EQ(loaded.saved().background->backgrounds->size(), 3u);
}

} // namespace
} // namespace stagewright::test
