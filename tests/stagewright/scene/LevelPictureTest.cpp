// The picture of a whole level: view after view, as the canvas shows it.
#include "SceneTestSupport.h"

#include <stagewright/scene/LevelPicture.h>

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::sceneObjectType;

TEST(LevelPicture, DrawsEveryViewFromTheLeftEndToOneViewPastTheGround)
{
    SceneWorkspace workspace;
    const QColor grass(40, 160, 40), sky(100, 150, 250), crate(200, 40, 40);
    workspace.image(sceneObjectType::ground, "grass", 874, 100, grass);
    workspace.image(sceneObjectType::background, "sky", 100, 100, sky);
    workspace.image(sceneObjectType::obstacles, "crate", 40, 40, crate);
    tessaro::obstacleCatalogue() = {obstacleTemplate("Crate", "crate", "{40,40}")};
    tessaro::Level level = emptyLevel();
    level.ground = std::vector<tessaro::GroundSection>{tileSection("grass", "{874,100}")};
    tessaro::BackgroundImage background;
    background.image = "sky";
    level.background.emplace().backgrounds = std::vector<tessaro::BackgroundImage>{background};
    tessaro::ObstacleLevelItem item;
    item.elementName = "Crate";
    item.properties.emplace().devices = at("{1000,100}");
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{item};
    LoadedLevel loaded(level);
    loaded.scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{250, 0});

    EXPECT_EQ(wholeLevelRect(*loaded.scene), QRectF(-437, -201, 874 * 2, 402));
    const QImage picture = renderWholeLevel(*loaded.scene);
    ASSERT_EQ(picture.size(), QSize(1748, 402));
    const auto at = [&](double x, double y) { return QColor(picture.pixel(int(x + 437), int(201 - y))); };
    // The ground fills the first view's bottom; the second view has none.
    EXPECT_EQ(at(-400, -190), grass);
    EXPECT_EQ(at(400, -190), grass);
    EXPECT_EQ(at(600, -190), sky);
    // The unpinned background fills each view; the crate stands in the second.
    EXPECT_EQ(at(0, 150), sky);
    EXPECT_EQ(at(1200, 150), sky);
    EXPECT_EQ(at(1000, 100), crate);
    // The scroll buttons are not part of the picture, and the scene is left as it was.
    EXPECT_EQ(at(-377, -121 + 10), grass);
    EXPECT_EQ(loaded.scene->obstacleNodes()->position(), QPointF(-250, 0));
    EXPECT_FALSE(loaded.scene->childNodeWithName("navLeft")->isHidden());

    const QImage narrow = renderWholeLevel(*loaded.scene, 874);
    EXPECT_EQ(narrow.size(), QSize(874, 201));
}

} // namespace
} // namespace stagewright::test
