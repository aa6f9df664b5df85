#include "RecordFiller.h"

#include <tessaro/model/PlistCodec.h>

#include <bench/common/SyntheticProject.h>

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <sstream>

using namespace tessaro;

namespace {

std::string plist(const std::string& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" + body + "\n</plist>\n";
}

const std::string minimalSettings = "<key>settings</key><dict>"
                                    "<key>scrollOrientation</key><string>horizontal</string>"
                                    "<key>sceneOrientation</key><string>landscape</string>"
                                    "<key>scaleMode</key><string>aspectFill</string></dict>";

std::string levelWith(const std::string& extraKeys)
{
    return plist("<array><dict>" + minimalSettings + extraKeys + "</dict></array>");
}

// The error text of a document that must not decode.
template <Record T = Level>
std::string decodeError(const std::string& bytes)
{
    try {
        decodeRecordList<T>(bytes);
    } catch (const CodingError& error) {
        return error.description();
    }
    return "";
}

template <Record R>
std::set<std::string> keysOf()
{
    std::set<std::string> keys;
    forEachField<R>([&](const auto& field) { keys.insert(std::string(field.key)); });
    return keys;
}

std::set<std::string> words(const std::string& text)
{
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

} // namespace

TEST(PlistCodec, RecordKeysAreTheFileFormatKeys)
{
    EXPECT_EQ(keysOf<Level>(),
              words("id settings background ground obstacles checkpoints levelEnd phaseEnd "
                    "characters coins shields artifacts"));
    EXPECT_EQ(keysOf<LevelSettings>(),
              words("id scrollOrientation fontColor sceneOrientation scaleMode size anchorPoint"));
    EXPECT_EQ(keysOf<BackgroundImage>(),
              words("id isVisible image speed scrollOrientation pinned pinnedRanges zPosition"));
    EXPECT_EQ(keysOf<GroundSection>(),
              words("id isVisible distance image groundType imageBottomLayer repeatCount "
                    "groundPhysicsAngleType stack anchorPoint zPosition devices "
                    "extraProperties"));
    EXPECT_EQ(keysOf<CharacterLevelItem>(),
              words("elementName name sceneObjectType charClassType zPosition "
                    "isVisible hidesBehindObject properties"));
    EXPECT_EQ(keysOf<DeviceProperties>(),
              words("altPosition deviceName digitSize distance offsetEdge fontSize "
                    "offsetHealthBar offset position randomPositionRange "
                    "selectorSize size"));
    EXPECT_EQ(keysOf<Obstacle>(),
              words("id elementName sceneObjectType name zPosition anchorPoint image imageType stack repeatCount "
                    "usePhysics useGravity isDynamic usePrecision isVisible alpha darken colorBlendFactor "
                    "allowedTimesToHit damageDirection isPinned objectClassType hidesBehindObject "
                    "maximumDistance objectActsOn callbackFunction allowHeroAttach physics collisionMasks "
                    "animation devices extraProperties projectiles rotationProperties siblings soundEffects"));
    EXPECT_EQ(keysOf<Character>(),
              words("id elementName anchorPoint image imageType imageDirection isVisible characterType "
                    "objectClassType collisionMasks sceneObjectType callbackFunction allowedTimesToHit "
                    "useGravity isDynamic usePrecision targetDistances actions animation physics devices "
                    "extraProperties projectiles soundEffects"));
    EXPECT_EQ(keysOf<AnimationProperty>(),
              words("id frequency moveDirection flipImage velocity animationFrameStart changePhysics "
                    "noPhysicsFirstFrame noPhysicsLastFrame horizontalFlip verticalFlip waitPerAnimationFrame "
                    "delays cycleEndProperties physics"));
    EXPECT_EQ(keysOf<CycleEndProperties>(),
              words("id obstacleAffected fadeObstacle atlasName objectClassType collisionMasks "
                    "removeFromParentAtEnd animationDuration callbackFunction zPosition devices physics"));
    EXPECT_EQ(keysOf<Delays>(),
              words("id fade initial idle movement cycleEnd fadeRange initialRange idleRange "
                    "movementRange cycleEndRange"));
    EXPECT_EQ(keysOf<Coins>(), words("coins image startCoinNumber repeatDistance soundEffects"));
    EXPECT_EQ(keysOf<GameSound>(), words("id type filename fileExtension volume waitForCompletion"));
}

// Documents that must not decode are files under tests/data/bad; see BadInputTest.
TEST(PlistCodec, OptionalKeysStayAbsentAndUnknownOnesAreIgnored)
{
    const auto levels = decodeRecordList<Level>(levelWith(""));
    ASSERT_EQ(levels.size(), 1u);
    EXPECT_FALSE(levels[0].background.has_value());
    EXPECT_FALSE(levels[0].ground.has_value());
    EXPECT_FALSE(levels[0].id.has_value());
    EXPECT_EQ(levels[0].settings.scaleMode, "aspectFill");

    const auto obstacles = decodeRecordList<Obstacle>(
        plist("<array><dict><key>elementName</key><string>Crate</string><key>physics</key><dict/>"
              "<key>futureKey</key><dict><key>deep</key><array/></dict></dict></array>"));
    ASSERT_EQ(obstacles.size(), 1u);
    EXPECT_EQ(obstacles[0].elementName, "Crate");
    ASSERT_TRUE(obstacles[0].physics.has_value());
    EXPECT_EQ(*obstacles[0].physics, PhysicsProperty{});
    EXPECT_FALSE(obstacles[0].name.has_value());

    EXPECT_TRUE(decodeRecordList<Level>(plist("<array/>")).empty());
}

TEST(PlistCodec, NumbersAndIdsReadInEveryFormTheyMayTake)
{
    auto item = [](const std::string& z) {
        return levelWith("<key>obstacles</key><array><dict><key>elementName</key><string>A</string>"
                         "<key>name</key><string>A 1</string><key>zPosition</key>" +
                         z + "</dict></array>");
    };
    EXPECT_EQ(decodeRecordList<Level>(item("<integer>7</integer>"))[0].obstacles->at(0).zPosition, 7);
    EXPECT_EQ(decodeRecordList<Level>(item("<real> -2.5 </real>"))[0].obstacles->at(0).zPosition, -2.5);

    auto repeat = [](const std::string& v) {
        return plist("<array><dict><key>repeatCount</key>" + v + "</dict></array>");
    };
    EXPECT_EQ(decodeRecordList<Obstacle>(repeat("<real>3</real>"))[0].repeatCount, 3);
    EXPECT_EQ(decodeRecordList<Obstacle>(repeat("<integer>-9223372036854775808</integer>"))[0].repeatCount, INT64_MIN);

    // Ids read in either case and are written upper-case.
    const auto lower = decodeRecordList<Obstacle>(
        plist("<array><dict><key>id</key><string>0f8fad5b-d9cb-469f-a165-70867728950e</string></dict></array>"));
    EXPECT_EQ(lower[0].id->text(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
}

TEST(PlistCodec, WritesApplesXmlFormat)
{
    Level level;
    level.settings.scrollOrientation = "horizontal";
    level.settings.sceneOrientation = "landscape";
    level.settings.scaleMode = "aspectFill";
    level.settings.fontColor = "a < b & c > d\r\nnext";
    level.ground.emplace(); // present and empty
    level.coins.emplace().repeatDistance = "{10, 10}";
    ObstacleLevelItem item;
    item.elementName = "Crate";
    item.name = "";
    item.zPosition = 50;
    level.obstacles = std::vector<ObstacleLevelItem>{item};

    const std::string xml = encodeRecordList(std::vector<Level>{level});
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                        "<plist version=\"1.0\">\n<array>\n\t<dict>\n\t\t<key>coins</key>\n\t\t<dict>\n",
                        0),
              0u)
        << xml;
    EXPECT_NE(xml.find("\t\t<key>ground</key>\n\t\t<array/>\n"), std::string::npos);
    EXPECT_NE(xml.find("<string>{10, 10}</string>"), std::string::npos);
    EXPECT_NE(xml.find("<string>a &lt; b &amp; c &gt; d&#13;\nnext</string>"), std::string::npos);
    EXPECT_NE(xml.find("<key>name</key>\n\t\t\t\t<string></string>"), std::string::npos);
    EXPECT_NE(xml.find("<real>50</real>"), std::string::npos);
    EXPECT_EQ(xml.find("<key>background</key>"), std::string::npos);
    EXPECT_EQ(xml.find("<key>id</key>"), std::string::npos);
    EXPECT_EQ(xml.substr(xml.size() - 18), "</array>\n</plist>\n");
    // Keys in sorted order.
    EXPECT_LT(xml.find("<key>coins</key>"), xml.find("<key>ground</key>"));
    EXPECT_LT(xml.find("<key>ground</key>"), xml.find("<key>obstacles</key>"));
    EXPECT_LT(xml.find("<key>obstacles</key>"), xml.find("<key>settings</key>"));

    const auto back = decodeRecordList<Level>(xml);
    ASSERT_EQ(back.size(), 1u);
    EXPECT_EQ(back[0], level);
}

TEST(PlistCodec, EveryFieldRoundTripsThroughXmlAndBinary)
{
    testing_support::RecordFiller filler;
    const std::vector<Level> levels{filler.filled<Level>(), filler.filled<Level>()};
    ASSERT_TRUE(levels[0].obstacles->at(0).properties->animation->cycleEndProperties->at(0).physics.has_value());

    const std::string xml = encodeRecordList(levels);
    EXPECT_EQ(decodeRecordList<Level>(xml), levels);

    const std::string binary = encodeRecordList(levels, PlistFormat::binary);
    EXPECT_TRUE(isBinaryPlist(binary));
    EXPECT_EQ(decodeRecordList<Level>(binary), levels);
    EXPECT_EQ(encodeRecordList(decodeRecordList<Level>(binary)), xml);

    const std::vector<Obstacle> obstacles{filler.filled<Obstacle>()};
    EXPECT_EQ(decodeRecordList<Obstacle>(encodeRecordList(obstacles, PlistFormat::binary)), obstacles);
    const std::vector<Character> characters{filler.filled<Character>()};
    EXPECT_EQ(decodeRecordList<Character>(encodeRecordList(characters)), characters);
    const std::vector<GenericObject> objects{filler.filled<GenericObject>()};
    EXPECT_EQ(decodeRecordList<GenericObject>(encodeRecordList(objects)), objects);

    // Negative integers survive the binary format, which stores them unsigned.
    Obstacle negative;
    negative.repeatCount = -3;
    EXPECT_EQ(decodeRecordList<Obstacle>(encodeRecordList(std::vector{negative}, PlistFormat::binary))[0].repeatCount,
              -3);
}

TEST(PlistCodec, SyntheticProjectRoundTripsUnchanged)
{
    bench::SyntheticShape shape;
    shape.levels = 3;
    shape.obstaclesPerLevel = 80;
    const auto project = bench::makeSyntheticProject(shape);
    const std::string xml = encodeRecordList(project);
    const auto back = decodeRecordList<Level>(xml);
    EXPECT_EQ(back, project);
    EXPECT_EQ(encodeRecordList(back), xml);
}

TEST(PlistCodec, ExtremeDocumentsStayWithinBounds)
{
    // A NUL character cannot be written to XML: a record holding one is
    // refused in either format.
    Obstacle withNul;
    withNul.name = std::string("a\0b", 3);
    EXPECT_THROW(encodeRecordList(std::vector{withNul}), CodingError);
    EXPECT_THROW(encodeRecordList(std::vector{withNul}, PlistFormat::binary), CodingError);

    // Deep nesting under a key nobody reads is skipped without recursion.
    std::string deep;
    for (int i = 0; i < 200000; ++i)
        deep += "<array>";
    for (int i = 0; i < 200000; ++i)
        deep += "</array>";
    EXPECT_EQ(decodeRecordList<Level>(levelWith("<key>unknown</key>" + deep)).size(), 1u);

    // Deep nesting where a record is expected fails at the first wrong type.
    EXPECT_NE(decodeError(levelWith("<key>background</key>" + deep)).find("Expected dictionary but found array"),
              std::string::npos);

    // A huge string is read as it is.
    const std::string longName(5'000'000, 'a');
    const auto big = decodeRecordList<Obstacle>(
        plist("<array><dict><key>name</key><string>" + longName + "</string></dict></array>"));
    EXPECT_EQ(big[0].name->size(), longName.size());
}

TEST(PlistCodec, StringsKeepTheirExactText)
{
    const std::string text = "  leading and trailing blanks  \t";
    const auto obstacles = decodeRecordList<Obstacle>(
        plist("<array><dict><key>name</key><string>" + text +
              "</string>"
              "<key>image</key><string> </string><key>objectActsOn</key><string>&#233;t&#xE9; &quot;x&quot;</string>"
              "<key>callbackFunction</key><string><![CDATA[a<b]]></string></dict></array>"));
    EXPECT_EQ(obstacles[0].name, text);
    EXPECT_EQ(obstacles[0].image, " ");
    EXPECT_EQ(obstacles[0].objectActsOn, "\xc3\xa9t\xc3\xa9 \"x\"");
    EXPECT_EQ(obstacles[0].callbackFunction, "a<b");
    EXPECT_EQ(decodeRecordList<Obstacle>(encodeRecordList(obstacles)), obstacles);
}
