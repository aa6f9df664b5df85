// The catalogues belong to the workspace that is open: switching workspaces
// reads the new one's, and a save never writes into another workspace.
#include "StateFixture.h"

#include <stagewright/state/Workspace.h>

#include <QFile>

namespace stagewright::test {
namespace {

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A workspace whose obstacle catalogue holds one obstacle named `name`.
QString workspaceWithObstacle(const ScratchHome& home, const QString& folder, const std::string& name)
{
    const QString path = home.folder(folder) + QLatin1Char('/');
    EXPECT_TRUE(createWorkspace(path, PermissionManager::shared()));
    tessaro::Obstacle obstacle;
    obstacle.id = tessaro::Uuid::create();
    obstacle.elementName = name;
    tessaro::obstacleCatalogue() = {obstacle};
    EXPECT_TRUE(
        tessaro::saveConfig("ObstacleList", "plist", assetsFolder(path).toStdString(), tessaro::configType::obstacles));
    return path;
}

std::vector<std::string> obstacleNames()
{
    std::vector<std::string> names;
    for (const tessaro::Obstacle& obstacle : tessaro::obstacleCatalogue())
        names.push_back(obstacle.elementName.value_or(""));
    return names;
}

TEST_F(StateFixture, CataloguesFollowTheWorkspaceAndAreSavedOnlyIntoTheirOwn)
{
    const QString a = workspaceWithObstacle(*home, QStringLiteral("A"), "Rock");
    const QString b = workspaceWithObstacle(*home, QStringLiteral("B"), "Log");
    start();

    settings->setWorkingSpace(a);
    EXPECT_EQ(obstacleNames(), std::vector<std::string>{"Rock"});
    EXPECT_EQ(settings->catalogues().workspace(), a);
    const QByteArray aBefore = fileBytes(assetsFolder(a) + QStringLiteral("ObstacleList.plist"));

    settings->setWorkingSpace(b);
    EXPECT_EQ(obstacleNames(), std::vector<std::string>{"Log"});
    // The image list is the new workspace's too.
    ASSERT_FALSE(settings->imageList().empty());
    for (const fileItem& item : settings->imageList())
        EXPECT_TRUE(item.path().startsWith(b)) << item.path().toStdString();

    tessaro::obstacleCatalogue().front().elementName = "Log, edited";
    ASSERT_TRUE(settings->catalogues().save(tessaro::configType::obstacles));
    EXPECT_EQ(fileBytes(assetsFolder(a) + QStringLiteral("ObstacleList.plist")), aBefore);
    const auto savedB =
        tessaro::loadConfig<tessaro::configType::obstacles>(assetsFolder(b).toStdString(), "ObstacleList", "plist");
    ASSERT_EQ(savedB.size(), 1u);
    EXPECT_EQ(savedB.front().elementName, "Log, edited");

    // Kinds that are not catalogues are refused without writing anything.
    EXPECT_FALSE(settings->catalogues().save(tessaro::configType::level));
}

} // namespace
} // namespace stagewright::test
