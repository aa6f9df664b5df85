// Creating a workspace, scanning it and finding and loading its images.
#include "StateTestSupport.h"

#include <stagewright/state/BookmarksManager.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/SeedResources.h>
#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceImages.h>

#include <tessaro/model/ConfigFiles.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <set>

using namespace stagewright;
using stagewright::test::DiagnosticCapture;
using tessaro::sceneObjectType;

namespace {

struct WorkspaceFixture : ::testing::Test {
    QTemporaryDir scratch;
    QString workspace;
    tessaro::appConfig savedConfig = tessaro::globalAppConfig();
    QString savedWorkspace = workingSpacePath();

    void SetUp() override
    {
        workspace = scratch.path() + QStringLiteral("/space/");
        tessaro::globalAppConfig() = {};
    }
    void TearDown() override
    {
        tessaro::globalAppConfig() = savedConfig;
        setWorkingSpacePathValue(savedWorkspace);
    }
    bool create() { return createWorkspace(workspace, PermissionManager::shared()); }
    QStringList names(const std::vector<FileItem>& items) const
    {
        QStringList out;
        for (const FileItem& item : items)
            out << item.name + QLatin1Char('.') + item.type;
        return out;
    }
};

} // namespace

TEST_F(WorkspaceFixture, CreationBuildsTheLayoutWithLoadableSeedCatalogues)
{
    ASSERT_TRUE(create());
    for (const char* folder :
         {"Levels", "Assets/Sounds", "Assets/Images/Extras", "Assets/Images/Obstacles", "Assets/Images/Characters",
          "Assets/Images/Checkpoints", "Assets/Images/Coins", "Assets/Images/Shields", "Assets/Images/Artifacts",
          "Assets/Images/Ground", "Assets/Images/Backgrounds", "Assets/Images/LevelEnd", "Assets/Images/PhaseEnd"})
        EXPECT_TRUE(QFileInfo(workspace + QLatin1String(folder)).isDir()) << folder;
    EXPECT_TRUE(QFileInfo::exists(workspace + QStringLiteral("editor.xspace")));
    EXPECT_TRUE(QFileInfo(workspace + QStringLiteral("Assets/Images/Extras/placeholder.png")).isWritable());

    // Every template of the seed has its image in its kind's folder.
    const std::string assets = (workspace + QStringLiteral("Assets/")).toStdString();
    const auto objects = tessaro::loadConfig<tessaro::configType::objects>(assets, "ObjectList", std::nullopt);
    const auto characters = tessaro::loadConfig<tessaro::configType::characters>(assets, "CharacterList", std::nullopt);
    const auto obstacles = tessaro::loadConfig<tessaro::configType::obstacles>(assets, "ObstacleList", std::nullopt);
    ASSERT_FALSE(objects.empty());
    ASSERT_FALSE(characters.empty());
    ASSERT_FALSE(obstacles.empty());
    setWorkingSpacePathValue(workspace);
    std::set<std::string> kinds;
    for (const auto& record : objects) {
        const auto kind = tessaro::caseFromText<sceneObjectType>(record.sceneObjectType.value_or(""));
        ASSERT_TRUE(kind) << *record.elementName;
        kinds.insert(*record.sceneObjectType);
        EXPECT_TRUE(findFileItem(QString::fromStdString(*record.image), *kind)) << *record.elementName;
    }
    for (const char* kind : {"coin", "shield", "artifact", "checkpoint", "ground", "background"})
        EXPECT_TRUE(kinds.count(kind)) << kind;
    for (const auto& record : obstacles)
        EXPECT_TRUE(findFileItem(QString::fromStdString(*record.image), sceneObjectType::obstacles));
    for (const auto& record : characters) {
        EXPECT_TRUE(findFileItem(QString::fromStdString(*record.image), sceneObjectType::character));
        const QString atlas = kindImageFolder(workspace, sceneObjectType::character) +
            QString::fromStdString(*record.image + "_" + *record.actions->move) + QStringLiteral(".atlas");
        EXPECT_GE(QDir(atlas).entryList(QDir::Files).size(), 2) << atlas.toStdString();
    }
    // The hazard ground types have their default images.
    for (auto type : tessaro::allCases<tessaro::groundBaseType>()) {
        if (type != tessaro::groundBaseType::Ground && type != tessaro::groundBaseType::None) {
            EXPECT_TRUE(findFileItem(defaultGroundImage(type, {}), sceneObjectType::ground));
        }
    }
}

TEST_F(WorkspaceFixture, CreatingAgainKeepsWhatIsThereAndAddsWhatIsMissing)
{
    ASSERT_TRUE(create());
    const QString catalogue = workspace + QStringLiteral("Assets/ObstacleList.plist");
    test::writeFile(catalogue, "user's own catalogue");
    test::writeFile(workspace + QStringLiteral("Assets/Images/Obstacles/crate.png"), "user's crate");
    QFile::remove(workspace + QStringLiteral("Assets/Images/Obstacles/spikes.png")); // deleted on purpose
    QDir(workspace + QStringLiteral("Assets/Images/Coins")).removeRecursively();
    QDir(workspace + QStringLiteral("Levels")).removeRecursively();

    ASSERT_TRUE(create());
    EXPECT_EQ(test::readFile(catalogue), "user's own catalogue");
    EXPECT_EQ(test::readFile(workspace + QStringLiteral("Assets/Images/Obstacles/crate.png")), "user's crate");
    EXPECT_FALSE(QFileInfo::exists(workspace + QStringLiteral("Assets/Images/Obstacles/spikes.png")));
    EXPECT_TRUE(QFileInfo::exists(workspace + QStringLiteral("Assets/Images/Coins/coin.png")));
    EXPECT_TRUE(QFileInfo(workspace + QStringLiteral("Levels")).isDir());
}

TEST_F(WorkspaceFixture, CreationStopsAtAFileInTheWay)
{
    QDir().mkpath(workspace + QStringLiteral("Assets"));
    test::writeFile(workspace + QStringLiteral("Assets/Images"), "a file where a folder belongs");
    DiagnosticCapture capture;
    EXPECT_FALSE(create());
    EXPECT_TRUE(capture.containsPrefix("error: cannot create folder " + workspace.toStdString() + "Assets/Images"));
    EXPECT_EQ(test::readFile(workspace + QStringLiteral("Assets/Images")), "a file where a folder belongs");
    EXPECT_TRUE(QFileInfo(workspace + QStringLiteral("Levels")).isDir()); // steps done stay done
    EXPECT_FALSE(createWorkspace(QString(), PermissionManager::shared()));
}

TEST_F(WorkspaceFixture, ScansKeepExactExtensionsInNameOrder)
{
    const QString obstacles = workspace + QStringLiteral("Assets/Images/Obstacles/");
    test::writePng(obstacles + QStringLiteral("rock.png"), 2, 2);
    test::writePng(obstacles + QStringLiteral("Rock.PNG"), 2, 2);
    test::writePng(obstacles + QStringLiteral("arch.svg"), 2, 2);
    test::writeFile(obstacles + QStringLiteral("boom.wav"), "RIFF");
    test::writeFile(obstacles + QStringLiteral("noextension"), "x");
    test::writePng(obstacles + QStringLiteral("tree.png.atlas/tree_00.png"), 2, 2);
    test::writePng(obstacles + QStringLiteral("b.c.png"), 2, 2);
    test::writeFile(workspace + QStringLiteral("Assets/Sounds/jump.wav"), "RIFF");
    test::writeFile(workspace + QStringLiteral("Assets/Sounds/Land.Wav"), "RIFF");
    test::writeFile(workspace + QStringLiteral("Assets/Sounds/a.mp3"), "ID3");
    test::writePng(workspace + QStringLiteral("Assets/Images/Coins/gold.png"), 2, 2);

    const WorkspaceFileLists lists = scanWorkspaceFiles(workspace);
    EXPECT_EQ(names(lists.images), (QStringList{"arch.svg", "b.c.png", "rock.png", "gold.png"}));
    EXPECT_EQ(lists.images[2].folder, obstacles);
    EXPECT_EQ(lists.images[2].name, "rock");
    EXPECT_EQ(lists.images[2].type, "png");
    EXPECT_EQ(lists.images[2].sceneObjectType, sceneObjectType::obstacles);
    EXPECT_EQ(lists.images[3].sceneObjectType, sceneObjectType::coin);
    EXPECT_EQ(names(lists.audio), (QStringList{"a.mp3", "jump.wav"}));
    EXPECT_EQ(lists.audio[0].sceneObjectType, sceneObjectType::none);
    EXPECT_NE(lists.images[0].tag, lists.images[1].tag);

    EXPECT_TRUE(
        scanFolder(scratch.path() + QStringLiteral("/nowhere/"), sceneObjectType::ground, ScanKind::images).empty());
}

TEST_F(WorkspaceFixture, FindFileItemMatchesNamesAndFallsBackToThePlaceholder)
{
    setWorkingSpacePathValue(workspace);
    test::writePng(workspace + QStringLiteral("Assets/Images/Obstacles/crate.jpg"), 2, 2);

    const auto crate = findFileItem(QStringLiteral("crate"), sceneObjectType::obstacles);
    ASSERT_TRUE(crate);
    EXPECT_EQ(crate->type, "jpg");
    EXPECT_EQ(crate->path(), workspace + QStringLiteral("Assets/Images/Obstacles/crate.jpg"));
    EXPECT_FALSE(findFileItem(QStringLiteral("barrel"), sceneObjectType::obstacles));
    EXPECT_FALSE(findFileItem(QStringLiteral("cra"), sceneObjectType::obstacles));

    // The kind's folder is missing: the placeholder's item, with that kind.
    const auto missing = findFileItem(QStringLiteral("hero"), sceneObjectType::character);
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->name, "placeholder");
    EXPECT_EQ(missing->type, "png");
    EXPECT_EQ(missing->folder, workspace + QStringLiteral("Assets/Images/Extras/"));
    EXPECT_EQ(missing->sceneObjectType, sceneObjectType::character);
}

TEST_F(WorkspaceFixture, LoadImageScalesListsAndFallsBack)
{
    setWorkingSpacePathValue(workspace);
    const QString obstacles = workspace + QStringLiteral("Assets/Images/Obstacles/");
    test::writePng(obstacles + QStringLiteral("a.png"), 200, 100);
    test::writePng(obstacles + QStringLiteral("b.png"), 40, 20);

    auto image = loadImage(QStringLiteral("a"), std::nullopt, sceneObjectType::obstacles, {}, {.scaled = true});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size, QSizeF(100, 50)); // x2 is the default image scale
    EXPECT_EQ(image->image.size(), QSize(100, 50));
    EXPECT_FALSE(image->isPlaceholder);

    tessaro::globalAppConfig().base.defaultImageScale = tessaro::imageScaling::x3;
    image = loadImage(QStringLiteral("a"), QStringLiteral("png"), sceneObjectType::obstacles, {}, {.scaled = true});
    ASSERT_TRUE(image);
    EXPECT_NEAR(image->size.width(), 66.667, 0.01);
    EXPECT_NEAR(image->size.height(), 33.333, 0.01);
    image = loadImage(QStringLiteral("a"), std::nullopt, sceneObjectType::obstacles, QSizeF(90, 30), {.scaled = true});
    EXPECT_EQ(image->size, QSizeF(30, 10)); // a given size is scaled as well
    image = loadImage(QStringLiteral("a"), std::nullopt, sceneObjectType::obstacles, QSizeF(90, 30));
    EXPECT_EQ(image->size, QSizeF(90, 30));

    std::set<int> seen; // widths
    for (int i = 0; i < 60; ++i) {
        auto picked = loadImage(QStringLiteral("a,b"), std::nullopt, sceneObjectType::obstacles);
        ASSERT_TRUE(picked);
        seen.insert(picked->image.width());
    }
    EXPECT_EQ(seen, (std::set<int>{200, 40}));
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(loadImage(QStringLiteral("a,"), std::nullopt, sceneObjectType::obstacles)->image.size(),
                  QSize(200, 100));

    // A missing image is none, or the placeholder when one is asked for.
    EXPECT_FALSE(loadImage(QStringLiteral("zzz"), std::nullopt, sceneObjectType::obstacles));
    image = loadImage(QStringLiteral("zzz"), std::nullopt, sceneObjectType::obstacles, QSizeF(30, 40),
                      {.usePlaceholder = true});
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->isPlaceholder);
    EXPECT_EQ(image->image.size(), QSize(30, 40));
    image = loadImage(QString(), std::nullopt, sceneObjectType::obstacles, {}, {.usePlaceholder = true});
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->isPlaceholder); // no workspace placeholder file: the application's own
}

TEST_F(WorkspaceFixture, BadImagesAndNamesGiveNoneWithoutTouchingFiles)
{
    setWorkingSpacePathValue(workspace);
    const QString obstacles = workspace + QStringLiteral("Assets/Images/Obstacles/");
    test::writeFile(obstacles + QStringLiteral("fake.png"), "not an image at all");
    test::writePng(scratch.path() + QStringLiteral("/secret.png"), 8, 8);

    DiagnosticCapture capture;
    EXPECT_FALSE(loadImage(QStringLiteral("fake"), std::nullopt, sceneObjectType::obstacles));
    EXPECT_TRUE(capture.containsPrefix("Image not loaded: " + obstacles.toStdString() + "fake.png"));
    EXPECT_FALSE(loadThumbnail(QStringLiteral("fake"), std::nullopt, sceneObjectType::obstacles));
    EXPECT_EQ(test::readFile(obstacles + QStringLiteral("fake.png")), "not an image at all");

    // A name that climbs out of the image folders is refused.
    EXPECT_FALSE(loadImage(QStringLiteral("../../../secret"), std::nullopt, sceneObjectType::obstacles));
    EXPECT_TRUE(capture.contains("Image name is not a plain file name: ../../../secret"));
    EXPECT_FALSE(loadThumbnail(QStringLiteral("../../../secret"), std::nullopt, sceneObjectType::obstacles));
    auto image = loadImage(QStringLiteral("../../../secret"), std::nullopt, sceneObjectType::obstacles, {},
                           {.usePlaceholder = true});
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->isPlaceholder);
}

TEST_F(WorkspaceFixture, PerNameFoldersPreviewsAndThumbnails)
{
    setWorkingSpacePathValue(workspace);
    // A per-name folder is found under the kind's case name as a
    // case-insensitive file system finds it: "obstacles" meets "Obstacles".
    const QString perName = workspace + QStringLiteral("Assets/Images/Obstacles/door/");
    test::writePng(perName + QStringLiteral("door_b.png"), 12, 12);
    test::writePng(perName + QStringLiteral("door_a.png"), 10, 10);
    test::writePng(workspace + QStringLiteral("Assets/Images/Obstacles/door.png"), 50, 50);
    auto image = loadImage(QStringLiteral("door"), std::nullopt, sceneObjectType::obstacles);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->image.size(), QSize(10, 10));
    EXPECT_EQ(firstFileInDirectory(perName), perName + QStringLiteral("door_a.png"));
    // "character" names no folder of the kinds: the plain file is used.
    test::writePng(workspace + QStringLiteral("Assets/Images/Characters/hero.png"), 30, 30);
    test::writePng(workspace + QStringLiteral("Assets/Images/Characters/hero/hero_0.png"), 5, 5);
    EXPECT_EQ(loadImage(QStringLiteral("hero"), std::nullopt, sceneObjectType::character)->image.size(), QSize(30, 30));

    DiagnosticCapture capture;
    EXPECT_FALSE(firstFileInDirectory(workspace + QStringLiteral("nowhere")));
    EXPECT_TRUE(capture.containsPrefix("Error getFirstFileInDirectory: "));

    const auto thumbnail = loadThumbnail(QStringLiteral("hero"), QStringLiteral("png"), sceneObjectType::character);
    ASSERT_TRUE(thumbnail);
    EXPECT_EQ(thumbnail->size(), QSize(30, 30));
    const auto preview =
        loadImagePreview(workspace + QStringLiteral("Assets/Images/Characters/hero.png"), true, QSizeF());
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->size, QSizeF(15, 15));
    EXPECT_FALSE(loadImagePreview(workspace + QStringLiteral("missing.png"), false));
}

TEST(WorkspaceNames, ApplicationImagesAndGroundDefaults)
{
    EXPECT_FALSE(applicationImagePath(QStringLiteral("placeholder")).isEmpty());
    EXPECT_EQ(resolveImageName(QStringLiteral("placeholder")), "placeholder");
    EXPECT_EQ(resolveImageName(QStringLiteral("no_such_image")), "no_such_image");
    EXPECT_FALSE(placeholderImage().isNull());
    for (const QString& file : requiredSeedFiles())
        EXPECT_TRUE(QFileInfo::exists(seedRoot() + file)) << file.toStdString();

    using tessaro::groundBaseType;
    EXPECT_EQ(defaultGroundImage(groundBaseType::Water, QStringLiteral("mine")), "trough_top_one");
    EXPECT_EQ(defaultGroundImage(groundBaseType::Lava, {}), "lava_top");
    EXPECT_EQ(defaultGroundImage(groundBaseType::Ground, QStringLiteral("grass,dirt")), "grass");
    EXPECT_EQ(defaultGroundImage(groundBaseType::None, QStringLiteral(",dirt")), ",dirt");
    EXPECT_EQ(withTrailingSlash(QStringLiteral("/a")), "/a/");
    EXPECT_EQ(withTrailingSlash(QStringLiteral("/a/")), "/a/");
}
