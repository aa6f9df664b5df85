#include "DataFiles.h"
#include "support/DiagnosticCapture.h"
#include "support/TempDir.h"

#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/PlistCodec.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

using namespace tessaro;
using testing_support::DiagnosticCapture;
using testing_support::TempDir;

namespace {

Level levelWithGroundAndSounds()
{
    Level level = newLevel(Uuid::create(), BaseConfig::editorDefaults());
    GroundSection section;
    section.image = "ground_grass";
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.position = "{100.0,-150.0}";
    device.size = "{256.0,96.0}";
    section.devices = std::vector<DeviceProperties>{device};
    level.ground->push_back(section);

    ObstacleLevelItem item;
    item.elementName = "Crate";
    item.name = "Crate 1";
    item.zPosition = 10;
    item.properties.emplace().devices = std::vector<DeviceProperties>{device};
    item.properties->animation.emplace().cycleEndProperties = std::vector<CycleEndProperties>(2);
    level.obstacles->push_back(item);

    GameSound sound;
    sound.id = Uuid::create();
    sound.type = "background";
    sound.filename = "theme";
    sound.fileExtension = "wav";
    level.background->soundEffects->push_back(sound);
    return level;
}

} // namespace

TEST(LevelFiles, SavingLeavesGroundPositionsOutOfTheFileOnly)
{
    TempDir dir;
    const std::string path = dir.file("Project.plist");
    const std::vector<Level> levels{levelWithGroundAndSounds()};
    ASSERT_TRUE(saveLevels(levels, path));

    // The list in memory keeps its ground positions.
    EXPECT_EQ(levels[0].ground->at(0).devices->at(0).position, "{100.0,-150.0}");

    const auto loaded = loadLevels(path);
    ASSERT_EQ(loaded.size(), 1u);
    EXPECT_FALSE(loaded[0].ground->at(0).devices->at(0).position.has_value());
    EXPECT_EQ(loaded[0].ground->at(0).devices->at(0).size, "{256.0,96.0}");
    EXPECT_EQ(loaded[0].obstacles->at(0).properties->devices->at(0).position, "{100.0,-150.0}");
    EXPECT_EQ(loaded[0].coins->repeatDistance, "{10, 10}");

    // Apart from the ground positions, the file holds the list as it was.
    Level expected = levels[0];
    expected.ground->at(0).devices->at(0).position.reset();
    EXPECT_EQ(loaded[0], expected);

    // Nothing but the file is left in the folder.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
}

TEST(LevelFiles, ReplacingAFileKeepsItsPermissionsAndAFailedSaveKeepsTheOldFile)
{
    TempDir dir;
    const std::string path = dir.file("Project.plist");
    ASSERT_TRUE(saveLevels({levelWithGroundAndSounds()}, path));
    ::chmod(path.c_str(), 0600);
    ASSERT_TRUE(saveLevels({levelWithGroundAndSounds(), levelWithGroundAndSounds()}, path));
    struct stat info {};
    ::stat(path.c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    const std::string before = testing_support::readFile(path);

    // A folder that cannot be written: the save fails and the file stays whole.
    if (::geteuid() != 0) {
        ::chmod(dir.path().c_str(), 0500);
        DiagnosticCapture capture;
        EXPECT_FALSE(saveLevels({}, path));
        EXPECT_FALSE(capture.lines().empty());
        ::chmod(dir.path().c_str(), 0700);
        EXPECT_EQ(testing_support::readFile(path), before);
    }

    DiagnosticCapture capture;
    EXPECT_FALSE(saveLevels({}, dir.file("missing/folder/Project.plist")));
    EXPECT_EQ(capture.lines().size(), 1u);
}

TEST(LevelFiles, ReadFailuresGiveAnEmptyListAndTheConfigurationErrorLine)
{
    TempDir dir;
    {
        DiagnosticCapture capture;
        const std::string missing = dir.file("Missing.plist");
        const auto result = readLevels(missing);
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.levels.empty());
        ASSERT_EQ(capture.lines().size(), 1u);
        EXPECT_EQ(capture.lines()[0].rfind("Configuration error (" + missing + "): ", 0), 0u);
    }
    {
        DiagnosticCapture capture;
        const std::string broken =
            dir.write("Broken.plist", testing_support::readFile(testing_support::dataFile("bad/truncated.plist")));
        EXPECT_TRUE(loadLevels(broken).empty());
        EXPECT_TRUE(capture.anyStartsWith("Configuration error (" + broken + "): "));
        EXPECT_TRUE(loadLevels(dir.path().string()).empty()); // a folder
    }
    {
        DiagnosticCapture capture;
        const auto empty = readLevels(dir.write("Empty.plist", "<plist version=\"1.0\"><array/></plist>"));
        EXPECT_TRUE(empty.ok);
        EXPECT_TRUE(empty.levels.empty());
        EXPECT_TRUE(capture.lines().empty());
    }
}

TEST(LevelFiles, OpeningNormalisesIdsAndGroundDepth)
{
    TempDir dir;
    const std::string path = dir.file("Project.plist");
    Level level = levelWithGroundAndSounds();
    level.ground->at(0).zPosition.reset();
    const Uuid keptId = Uuid::create();
    ObstacleLevelItem withId = level.obstacles->at(0);
    withId.properties->id = keptId;
    level.obstacles->push_back(withId);
    ASSERT_TRUE(saveLevels({level}, path));

    auto first = loadLevels(path);
    auto second = loadLevels(path);
    normaliseOpenedLevels(first);
    normaliseOpenedLevels(second);

    EXPECT_NE(first[0].id, second[0].id);
    EXPECT_NE(first[0].id, level.id);
    EXPECT_NE(first[0].background->soundEffects->at(0).id, second[0].background->soundEffects->at(0).id);
    EXPECT_EQ(first[0].ground->at(0).zPosition, 50);

    const auto& filled = *first[0].obstacles->at(0).properties;
    ASSERT_TRUE(filled.id && filled.animation->id);
    EXPECT_TRUE(filled.animation->cycleEndProperties->at(0).id.has_value());
    EXPECT_TRUE(filled.animation->cycleEndProperties->at(1).id.has_value());
    EXPECT_EQ(first[0].obstacles->at(1).properties->id, keptId);
    EXPECT_EQ(second[0].obstacles->at(1).properties->id, keptId);

    // The filled-in depth is written on the next save.
    ASSERT_TRUE(saveLevels(first, path));
    EXPECT_EQ(loadLevels(path)[0].ground->at(0).zPosition, 50);
}

TEST(LevelFiles, NewLevelCarriesTheApplicationDefaults)
{
    BaseConfig config = BaseConfig::editorDefaults();
    config.defaultSceneOrientation = sceneOrientationType::portrait;
    const Uuid id = Uuid::create();
    const Level level = newLevel(id, config);
    EXPECT_EQ(level.id, id);
    EXPECT_EQ(level.settings.scrollOrientation, "horizontal");
    EXPECT_EQ(level.settings.sceneOrientation, "portrait");
    EXPECT_EQ(level.settings.scaleMode, "aspectFill");
    EXPECT_EQ(level.settings.size, "{874.0,402.0}");
    EXPECT_EQ(level.settings.anchorPoint, "{0.5,0.5}");
    EXPECT_FALSE(level.settings.fontColor.has_value());
    EXPECT_TRUE(level.background->backgrounds->empty());
    EXPECT_EQ(level.checkpoints->image, "");
    EXPECT_TRUE(level.checkpoints->locations->empty());
    EXPECT_FALSE(level.checkpoints->soundEffects.has_value());
    EXPECT_FALSE(level.levelEnd.has_value());
    EXPECT_EQ(level.coins->startCoinNumber, 0);
    EXPECT_FALSE(level.coins->coins.has_value());
    EXPECT_EQ(*level.shields, Shields{});
    EXPECT_EQ(*level.artifacts, Artifacts{});

    TempDir dir;
    ASSERT_TRUE(saveLevels({level}, dir.file("New.plist")));
    EXPECT_NE(testing_support::readFile(dir.file("New.plist")).find("<string>{10, 10}</string>"), std::string::npos);
}
