// The catalogues belong to the workspace that is open: switching workspaces
// reads the new one's, a save never writes into another workspace, and the
// catalogues' edits are steps of their own history, which a switch empties.
#include "StateFixture.h"

#include <stagewright/state/CatalogueDocument.h>
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
    for (const FileItem& item : settings->imageList())
        EXPECT_TRUE(item.path().startsWith(b)) << item.path().toStdString();

    tessaro::obstacleCatalogue().front().elementName = "Log, edited";
    ASSERT_TRUE(settings->catalogues().saveChanged());
    EXPECT_EQ(fileBytes(assetsFolder(a) + QStringLiteral("ObstacleList.plist")), aBefore);
    const auto savedB =
        tessaro::loadConfig<tessaro::configType::obstacles>(assetsFolder(b).toStdString(), "ObstacleList", "plist");
    ASSERT_EQ(savedB.size(), 1u);
    EXPECT_EQ(savedB.front().elementName, "Log, edited");

    // Kinds that are not catalogues are refused without writing anything.
    WorkspaceCatalogues files(PermissionManager::shared());
    files.load(b);
    EXPECT_FALSE(files.save(tessaro::configType::level));
}

TEST_F(StateFixture, CatalogueEditsAreStepsOfTheirOwnHistory)
{
    const QString a = workspaceWithObstacle(*home, QStringLiteral("A"), "Rock");
    const QString b = workspaceWithObstacle(*home, QStringLiteral("B"), "Log");
    start();
    settings->setWorkingSpace(a);
    CatalogueDocument& catalogues = settings->catalogues();
    const QString aFile = assetsFolder(a) + QStringLiteral("ObstacleList.plist");
    const QByteArray aBefore = fileBytes(aFile);

    tessaro::Obstacle rock = tessaro::obstacleCatalogue().front();
    EXPECT_TRUE(catalogues.replaceRecord(rock, QStringLiteral("Change Rock")));
    EXPECT_EQ(catalogues.history().count(), 0) << "a replacement that changes nothing is no step";
    rock.image = "rock";
    tessaro::Obstacle stranger = rock;
    stranger.elementName = "Stranger";
    EXPECT_FALSE(catalogues.replaceRecord(stranger, QStringLiteral("Change Stranger")));
    ASSERT_TRUE(catalogues.replaceRecord(rock, QStringLiteral("Change Rock")));
    EXPECT_EQ(catalogues.history().undoText(), "Change Rock");
    EXPECT_EQ(settings->selectedProjectTab()->undoStack().count(), 0);
    EXPECT_NE(fileBytes(aFile), aBefore) << "the step writes the catalogue at once";
    catalogues.history().undo();
    EXPECT_EQ(fileBytes(aFile), aBefore);
    catalogues.history().redo();
    const QByteArray aEdited = fileBytes(aFile);

    // Another workspace starts with an empty history; what was done in the
    // first stays in its files, and nothing reaches the second's.
    const QByteArray bBefore = fileBytes(assetsFolder(b) + QStringLiteral("ObstacleList.plist"));
    settings->setWorkingSpace(b);
    EXPECT_EQ(catalogues.history().count(), 0);
    EXPECT_EQ(fileBytes(assetsFolder(b) + QStringLiteral("ObstacleList.plist")), bBefore);
    EXPECT_EQ(fileBytes(aFile), aEdited);
}

} // namespace
} // namespace stagewright::test
