// The hand-checked workspace under tests/data: a project written by hand in a
// layout of its own, its three catalogues, what saving the project must give
// byte for byte, and the same project in the binary format.
#include "DataFiles.h"
#include "support/DiagnosticCapture.h"
#include "support/TempDir.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/PlistCodec.h>

#include <gtest/gtest.h>

#include <set>

using namespace tessaro;
using testing_support::dataFile;
using testing_support::DiagnosticCapture;
using testing_support::readFile;
using testing_support::TempDir;

namespace {

const std::string handWritten = dataFile("workspace/Levels/Golden.plist");
const std::string expectedSave = dataFile("golden/Golden.saved.plist");
const std::string binaryForm = dataFile("golden/Golden.bplist");
const std::string assets = dataFile("workspace/Assets/");

std::vector<Level> readProject(const std::string& path)
{
    LevelsReadResult read = readLevels(path);
    EXPECT_TRUE(read.ok) << read.error;
    return read.levels;
}

} // namespace

TEST(GoldenFiles, SavingTheHandWrittenProjectGivesTheExpectedFileByteForByte)
{
    const std::vector<Level> levels = readProject(handWritten);
    ASSERT_EQ(levels.size(), 2u);
    TempDir dir;
    ASSERT_TRUE(saveLevels(levels, dir.file("Golden.plist")));
    EXPECT_EQ(readFile(dir.file("Golden.plist")), readFile(expectedSave));

    // The expected file is where saving settles: read and saved again, it
    // stays the same.
    ASSERT_TRUE(saveLevels(readProject(expectedSave), dir.file("Again.plist")));
    EXPECT_EQ(readFile(dir.file("Again.plist")), readFile(expectedSave));
}

TEST(GoldenFiles, TheBinaryFormHoldsTheRecordsOfTheXml)
{
    const std::vector<Level> fromXml = readProject(expectedSave);
    const std::vector<Level> fromBinary = readProject(binaryForm);
    ASSERT_EQ(fromXml.size(), 2u);
    EXPECT_EQ(fromBinary, fromXml);
    // Negative integers survive the binary format, which stores them unsigned.
    EXPECT_EQ(fromBinary[0].obstacles->at(2).properties->animation->animationFrameStart, -2);

    // The saved file holds the hand-written records but for what a save
    // leaves out: the positions of ground sections.
    std::vector<Level> written = readProject(handWritten);
    ASSERT_TRUE(written[0].ground->at(0).devices->at(0).position.has_value());
    written[0].ground->at(0).devices->at(0).position.reset();
    EXPECT_EQ(fromXml, written);
}

TEST(GoldenFiles, TheHandWrittenValuesAreReadAsWritten)
{
    const std::vector<Level> levels = readProject(handWritten);
    ASSERT_EQ(levels.size(), 2u);
    const Level& meadow = levels[0];
    EXPECT_EQ(meadow.id->text(), "0A1B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D");
    EXPECT_EQ(meadow.settings.id->text(), "1F0E2D3C-4B5A-4968-8776-A5B4C3D2E1F0"); // written in lower case
    EXPECT_EQ(meadow.background->backgrounds->at(0).zPosition, -100); // an integer where a real is stored
    EXPECT_EQ(meadow.background->backgrounds->at(1).pinnedRanges->size(), 2u);
    EXPECT_FALSE(meadow.background->backgrounds->at(1).pinnedRanges->at(1).id.has_value());
    ASSERT_EQ(meadow.ground->size(), 3u);
    EXPECT_EQ(meadow.ground->at(0).devices->at(0).position, "{-437.0,-153.0}");
    EXPECT_EQ(meadow.ground->at(2).repeatCount, 6); // written "+6"
    EXPECT_EQ(meadow.ground->at(2).groundPhysicsAngleType, "angleStartLeft, angle");
    EXPECT_EQ(meadow.obstacles->at(0).zPosition, 10);
    EXPECT_EQ(meadow.obstacles->at(0).properties->devices->at(1).randomPositionRange, "{<0.0...40.0>,<-5.0...5.0>}");
    EXPECT_EQ(meadow.obstacles->at(1).isVisible, false);
    EXPECT_EQ(meadow.obstacles->at(1).properties->callbackFunction, "spikes<hit>"); // from a CDATA section
    EXPECT_EQ(meadow.characters->at(0).properties->targetDistances->moveSpeed, 100); // written "1e2"
    EXPECT_FALSE(meadow.characters->at(1).properties.has_value());
    EXPECT_EQ(meadow.coins->repeatDistance, "{10, 10}");
    EXPECT_EQ(meadow.levelEnd->windowItems->at(0).text, "Meadow & Mill \xE2\x80\x94 done");
    EXPECT_FALSE(meadow.phaseEnd.has_value());

    const Level& cave = levels[1];
    EXPECT_FALSE(cave.id.has_value());
    EXPECT_EQ(cave.settings.fontColor, "#FFFFFF");
    EXPECT_FALSE(cave.ground->at(0).zPosition.has_value()); // filled in only when the editor opens it
    EXPECT_TRUE(cave.obstacles.has_value() && cave.obstacles->empty());
    EXPECT_TRUE(cave.coins->coins.has_value() && cave.coins->coins->empty());
    EXPECT_EQ(*cave.shields, Shields{});
    EXPECT_FALSE(cave.background.has_value());
    EXPECT_FALSE(cave.checkpoints.has_value());
}

TEST(GoldenFiles, TheCataloguesLoadAndAreWrittenBackUnchanged)
{
    DiagnosticCapture capture;
    loadCatalogues(assets);
    EXPECT_TRUE(capture.lines().empty());
    ASSERT_EQ(objectCatalogue().size(), 6u);
    ASSERT_EQ(characterCatalogue().size(), 2u);
    ASSERT_EQ(obstacleCatalogue().size(), 3u);

    TempDir dir;
    for (const char* name : {"ObjectList", "CharacterList", "ObstacleList"}) {
        const configType type = std::string(name) == "ObjectList" ? configType::objects
            : std::string(name) == "CharacterList"                ? configType::characters
                                                                  : configType::obstacles;
        ASSERT_TRUE(saveConfig(name, "plist", dir.folder(), type));
        EXPECT_EQ(readFile(dir.file(std::string(name) + ".plist")), readFile(assets + name + ".plist")) << name;
    }

    // Every element the project places names a template of its catalogue.
    std::set<std::string> obstacles, characters;
    for (const Obstacle& o : obstacleCatalogue())
        obstacles.insert(o.elementName.value_or(""));
    for (const Character& c : characterCatalogue())
        characters.insert(c.elementName.value_or(""));
    for (const Level& level : readProject(handWritten)) {
        for (const ObstacleLevelItem& item : *level.obstacles)
            EXPECT_EQ(obstacles.count(item.elementName), 1u) << item.elementName;
        for (const CharacterLevelItem& item : *level.characters)
            EXPECT_EQ(characters.count(item.elementName), 1u) << item.elementName;
    }
    objectCatalogue().clear();
    characterCatalogue().clear();
    obstacleCatalogue().clear();
}
