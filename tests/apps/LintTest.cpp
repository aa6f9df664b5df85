#include "support/TempDir.h"

#include <LevelWalk.h>
#include <ProjectLint.h>
#include <ValueTextCheck.h>

#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/PlistCodec.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

using namespace stagewright::cli;
using namespace tessaro;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAreArray;
using testing_support::TempDir;

namespace {

TEST(LintValueTexts, AcceptWhatTheReadersReadAndSayWhyTheRestWouldReadAsDefaults)
{
    for (const char* good : {"{874.0,402.0}", "{ 3 , 4 }", "{10, 10}", "{-7.5,1e3}", "12,34"})
        EXPECT_EQ(pairTextProblem(good), std::nullopt) << good;
    EXPECT_THAT(pairTextProblem("{a,2}").value_or(""), HasSubstr("\"a\" is not a number"));
    EXPECT_THAT(pairTextProblem("{1,2,3}").value_or(""), HasSubstr("has 3 parts"));
    EXPECT_THAT(pairTextProblem("{,5}").value_or(""), HasSubstr("has 1 part"));
    EXPECT_NE(pairTextProblem(""), std::nullopt);
    EXPECT_NE(pairTextProblem("{\t3,4}"), std::nullopt); // the readers delete spaces only

    for (const char* good : {"1...5", "<1...5>", "1,000...2,000", "0...0"})
        EXPECT_EQ(rangeTextProblem(good), std::nullopt) << good;
    EXPECT_THAT(rangeTextProblem("5...1").value_or(""), HasSubstr("below"));
    EXPECT_NE(rangeTextProblem("7"), std::nullopt);
    EXPECT_NE(rangeTextProblem("1..5"), std::nullopt);
    EXPECT_EQ(randomPositionTextProblem("{<0...0>,<0...0>}"), std::nullopt);
    EXPECT_EQ(randomPositionTextProblem("{<0.0...40.0>, <-5.0...5.0>}"), std::nullopt);
    EXPECT_NE(randomPositionTextProblem("{<0...40>}"), std::nullopt);
    EXPECT_THAT(randomPositionTextProblem("{<0...1>,<9...2>}").value_or(""), HasSubstr("below"));

    // Case names are exact; lists trim blanks and may be empty.
    EXPECT_EQ(caseTextProblem<pathDirection>("upLeft"), std::nullopt);
    EXPECT_EQ(caseTextProblem<pathDirection>("UpLeft"), "not a case of pathDirection");
    EXPECT_EQ(caseListTextProblem<collisionTypes>("floor, enemyTouch"), std::nullopt);
    EXPECT_EQ(caseListTextProblem<collisionTypes>(""), std::nullopt);
    EXPECT_EQ(caseListTextProblem<collisionTypes>("nonsense,floor"), "\"nonsense\" is not a case of collisionTypes");
    EXPECT_EQ(caseListTextProblem<collisionTypes>("flor,enemy"), "\"flor\", \"enemy\" are not cases of collisionTypes");
    // Files hold the case name of a device, never its raw text.
    EXPECT_EQ(caseListTextProblem<deviceName>("defaultDevice,iPhoneSE3rdGen"), std::nullopt);
    EXPECT_NE(caseListTextProblem<deviceName>("DefaultDevice"), std::nullopt);
    EXPECT_NE(caseListTextProblem<deviceName>("iPhoneSE3rdgen"), std::nullopt);

    EXPECT_EQ(scaleModeTextProblem("ASPECTFIT"), std::nullopt);
    EXPECT_NE(scaleModeTextProblem("stretch"), std::nullopt);
    EXPECT_EQ(frameListTextProblem("0,2,13"), std::nullopt);
    EXPECT_EQ(frameListTextProblem(""), std::nullopt);
    EXPECT_EQ(frameListTextProblem("1, 2"), "\" 2\" is not a frame number");
    EXPECT_NE(frameListTextProblem("1,,2"), std::nullopt);
}

DeviceProperties at(const std::string& position)
{
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.position = position;
    device.size = "{64.0,64.0}";
    return device;
}

ObstacleLevelItem obstacle(const std::string& elementName, const std::string& name,
                           std::optional<std::string> image = std::nullopt)
{
    ObstacleLevelItem item;
    item.elementName = elementName;
    item.name = name;
    item.zPosition = 10;
    Obstacle& properties = item.properties.emplace();
    properties.image = std::move(image);
    properties.devices = std::vector<DeviceProperties>{at("{100.0,0.0}")};
    return item;
}

CharacterLevelItem character(const std::string& elementName, const std::string& name,
                             std::optional<std::string> image = std::nullopt)
{
    CharacterLevelItem item;
    item.elementName = elementName;
    item.name = name;
    item.zPosition = 20;
    item.charClassType = "enemy";
    item.properties.emplace().image = std::move(image);
    return item;
}

GameSound sound(const std::string& filename)
{
    GameSound s;
    s.type = "background";
    s.filename = filename;
    s.fileExtension = "wav";
    return s;
}

/// A workspace with one image or sound for each thing the clean level uses,
/// and a file beside the kind folders that no name may reach.
class LintWorkspace : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* file :
             {"Assets/Images/Obstacles/crate.png", "Assets/Images/Obstacles/boulder/frame_0.png",
              "Assets/Images/Characters/hero.png", "Assets/Images/Ground/grass.png",
              "Assets/Images/Backgrounds/sky.jpg", "Assets/Images/Coins/coin.png", "Assets/Images/Checkpoints/flag.png",
              "Assets/Images/LevelEnd/panel.png", "Assets/Images/Extras/placeholder.png", "Assets/Images/secret.png",
              "Assets/Sounds/theme.wav"})
            dir.write(file, "x");
        GenericObject coin;
        coin.elementName = "coin";
        coin.sceneObjectType = "coin";
        coin.image = "coin";
        GenericObject flag;
        flag.elementName = "Flag";
        flag.sceneObjectType = "checkpoint";
        flag.image = "flag";
        catalogues.objects = {coin, flag};
        Obstacle crate;
        crate.elementName = "Crate";
        crate.image = "crate";
        Obstacle rock;
        rock.elementName = "Rock";
        rock.image = "rock";
        catalogues.obstacles = {crate, rock};
        Character hero;
        hero.elementName = "Hero";
        hero.image = "hero";
        catalogues.characters = {hero};
    }

    /// A level that uses one of everything, each found.
    static Level cleanLevel()
    {
        Level level = newLevel(Uuid::create(), BaseConfig::editorDefaults());
        GroundSection section;
        section.image = "grass";
        section.groundPhysicsAngleType = "angle, mirage";
        level.ground->push_back(section);
        BackgroundImage layer;
        layer.image = "sky";
        PinnedRange pinned;
        pinned.range = "0.0...800.0";
        layer.pinnedRanges = std::vector<PinnedRange>{pinned};
        level.background->backgrounds->push_back(layer);
        level.background->soundEffects->push_back(sound("theme"));
        level.obstacles->push_back(obstacle("Crate", "Crate 1"));
        level.obstacles->push_back(obstacle("Crate", "Boulder 1", "boulder")); // a folder of frames
        level.obstacles->push_back(obstacle("Crate", "Odd 1", "placeholder"));
        level.characters->push_back(character("Hero", "Hero 1"));
        CheckPointLocation location;
        location.devices = std::vector<DeviceProperties>{at("{300.0,0.0}")};
        level.checkpoints->image = "Flag";
        level.checkpoints->locations->push_back(location);
        Coin coin;
        coin.devices = std::vector<DeviceProperties>{at("{200.0,0.0}")};
        level.coins->coins = std::vector<Coin>{coin};
        WindowItem panel;
        panel.type = "window";
        panel.image = "panel";
        level.levelEnd.emplace().windowItems = std::vector<WindowItem>{panel};
        return level;
    }

    std::vector<LintFinding> lint(const std::vector<Level>& levels)
    {
        WorkspaceFiles files(dir.path());
        return lintLevels(levels, catalogues, files);
    }

    TempDir dir;
    LintCatalogues catalogues;
};

using Found = std::tuple<std::size_t, LintKind, std::string>;

std::vector<Found> kindsAndItems(const std::vector<LintFinding>& findings)
{
    std::vector<Found> found;
    for (const LintFinding& finding : findings)
        found.emplace_back(finding.level, finding.kind, finding.item);
    return found;
}

const LintFinding* findingOf(const std::vector<LintFinding>& findings, LintKind kind, const std::string& item)
{
    for (const LintFinding& finding : findings)
        if (finding.kind == kind && finding.item == item)
            return &finding;
    return nullptr;
}

TEST_F(LintWorkspace, ACleanLevelHasNoFindingsAndEachFaultIsNamedByLevelKindAndItem)
{
    EXPECT_THAT(lint({cleanLevel()}), ::testing::IsEmpty());

    Level faulty = cleanLevel();
    faulty.ground.reset();
    faulty.levelEnd.reset();
    faulty.settings.scaleMode = "stretch";
    faulty.obstacles->push_back(obstacle("Ghost", "Ghost 1"));
    faulty.obstacles->push_back(obstacle("Crate", "Crate 2", "crate,crate_old"));
    faulty.obstacles->push_back(obstacle("Rock", "Rock 1")); // the catalogue's image is missing
    faulty.obstacles->back().properties->devices->front().position = "{12,abc}";
    faulty.characters->push_back(character("Hero", "Hero 2", "../secret"));
    faulty.background->soundEffects->push_back(sound("../../theme"));
    faulty.coins->soundEffects->push_back(sound("jingle"));
    faulty.coins->soundEffects->push_back(sound("theme"));
    faulty.coins->soundEffects->back().fileExtension = "WAV";

    const std::vector<LintFinding> findings = lint({cleanLevel(), faulty});
    EXPECT_THAT(kindsAndItems(findings),
                UnorderedElementsAreArray(std::vector<Found>{
                    {2, LintKind::noGround, "level"},
                    {2, LintKind::noLevelEnd, "level"},
                    {2, LintKind::badValue, "settings"},
                    {2, LintKind::missingEntry, "obstacle \"Ghost 1\""},
                    {2, LintKind::missingImage, "obstacle \"Crate 2\""},
                    {2, LintKind::missingImage, "obstacle \"Rock 1\""},
                    {2, LintKind::badValue, "obstacle \"Rock 1\""},
                    {2, LintKind::escapingName, "character \"Hero 2\""},
                    {2, LintKind::escapingName, "background"},
                    {2, LintKind::missingSound, "coins"},
                    {2, LintKind::badValue, "coins"},
                }));

    EXPECT_EQ(findingOf(findings, LintKind::missingImage, "obstacle \"Crate 2\"")->problem,
              "image \"crate_old\" is not in Assets/Images/Obstacles/");
    EXPECT_EQ(findingOf(findings, LintKind::missingImage, "obstacle \"Rock 1\"")->problem,
              "image \"rock\" of catalogue entry \"Rock\" is not in Assets/Images/Obstacles/");
    EXPECT_EQ(findingOf(findings, LintKind::badValue, "obstacle \"Rock 1\"")->problem,
              "properties.devices[1].position \"{12,abc}\": \"abc\" is not a number");
    EXPECT_EQ(findingOf(findings, LintKind::escapingName, "character \"Hero 2\"")->problem,
              "image \"../secret\" leads out of Assets/Images/Characters/");
    EXPECT_EQ(findingOf(findings, LintKind::missingSound, "coins")->problem,
              "soundEffects[1]: sound \"jingle.wav\" is not in Assets/Sounds/");
    EXPECT_EQ(findingOf(findings, LintKind::badValue, "coins")->problem,
              "soundEffects[2].fileExtension \"WAV\": not a case of soundType");
    EXPECT_EQ(findingOf(findings, LintKind::escapingName, "background")->problem,
              "soundEffects[2]: sound file \"../../theme.wav\" leads out of Assets/Sounds/");
}

TEST_F(LintWorkspace, ItemsOfTheEndWindowsAndDeepRecordsAreNamedWhereTheyStand)
{
    Level level = cleanLevel();
    level.levelEnd->obstacles = std::vector<ObstacleLevelItem>{obstacle("Crate", "Trophy", "trophy")};
    level.levelEnd->windowItems->front().type = "banner";
    PolyPhysics polygon;
    polygon.direction = "left";
    polygon.framesAffected = "0,x";
    polygon.points = std::vector<tessaro::Point>(2);
    polygon.points[0].point = "{0.0,0.0}";
    polygon.points[1].point = "{1.0}";
    level.obstacles->front().properties->animation.emplace().physics.emplace().polygons =
        std::vector<PolyPhysics>{polygon};
    level.obstacles->front().properties->collisionMasks.emplace().contact = "floor,humanplayer";
    SiblingProperties sibling;
    sibling.image = "shadow,../../up";
    level.obstacles->front().properties->siblings = std::vector<SiblingProperties>{sibling};

    const std::vector<LintFinding> findings = lint({level});
    EXPECT_THAT(kindsAndItems(findings),
                UnorderedElementsAreArray(std::vector<Found>{
                    {1, LintKind::missingImage, "level end obstacle \"Trophy\""},
                    {1, LintKind::badValue, "level end window item 1"},
                    {1, LintKind::badValue, "obstacle \"Crate 1\""},
                    {1, LintKind::badValue, "obstacle \"Crate 1\""},
                    {1, LintKind::badValue, "obstacle \"Crate 1\""},
                    {1, LintKind::escapingName, "obstacle \"Crate 1\""},
                }));
    std::vector<std::string> problems;
    for (const LintFinding& finding : findings)
        problems.push_back(finding.problem);
    EXPECT_THAT(problems, ::testing::Contains(HasSubstr("properties.animation.physics.polygons[1].points[2].point")));
    EXPECT_THAT(problems, ::testing::Contains(HasSubstr("properties.animation.physics.polygons[1].framesAffected")));
    EXPECT_THAT(problems, ::testing::Contains(HasSubstr("properties.collisionMasks.contact")));
    EXPECT_THAT(problems, ::testing::Contains("image \"trophy\" is not in Assets/Images/Obstacles/"));
    EXPECT_THAT(problems, ::testing::Contains("properties.siblings[1].image \"../../up\" leads out of its folder"));
}

TEST_F(LintWorkspace, FilesThatCannotBeReadStopTheRunWithTheirNameAndTheReason)
{
    EXPECT_EQ(lintProject(dir.file("nowhere"), dir.file("p.plist")).error,
              "no workspace folder " + dir.file("nowhere"));

    const std::string project = dir.file("Levels/Project.plist");
    std::filesystem::create_directories(dir.path() / "Levels");
    ASSERT_TRUE(saveLevels({cleanLevel()}, project));
    LintRun run = lintProject(dir.folder(), project);
    EXPECT_FALSE(run.ok);
    EXPECT_THAT(run.error, HasSubstr("cannot read the catalogue " + dir.folder() + "Assets/ObjectList.plist: "));

    dir.write("Assets/ObjectList.plist", encodeRecordList(catalogues.objects));
    dir.write("Assets/CharacterList.plist", encodeRecordList(catalogues.characters));
    dir.write("Assets/ObstacleList.plist", encodeRecordList(catalogues.obstacles));
    run = lintProject(dir.folder(), project);
    EXPECT_TRUE(run.ok) << run.error;
    EXPECT_EQ(run.levelCount, 1u);
    EXPECT_THAT(run.findings, ::testing::IsEmpty());

    dir.write("Levels/Broken.plist", "<plist><array><dict>");
    run = lintProject(dir.folder(), dir.file("Levels/Broken.plist"));
    EXPECT_FALSE(run.ok);
    EXPECT_THAT(run.error, HasSubstr("cannot read the project " + dir.file("Levels/Broken.plist") + ": "));
}

} // namespace
