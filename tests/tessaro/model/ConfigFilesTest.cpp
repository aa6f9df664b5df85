#include "DataFiles.h"
#include "support/DiagnosticCapture.h"
#include "support/TempDir.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/PlistCodec.h>

#include <gtest/gtest.h>

using namespace tessaro;
using testing_support::DiagnosticCapture;
using testing_support::TempDir;

namespace {
std::string plist(const std::string& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\">" + body + "</plist>";
}
} // namespace

TEST(ConfigFiles, CataloguesLoadGiveIdsAndReplaceTheGlobals)
{
    TempDir dir;
    dir.write("Assets/ObstacleList.plist",
              plist("<array><dict><key>elementName</key><string>Crate</string></dict>"
                    "<dict><key>elementName</key><string>Spikes</string>"
                    "<key>id</key><string>0F8FAD5B-D9CB-469F-A165-70867728950E</string></dict></array>"));
    dir.write("Assets/CharacterList.plist",
              plist("<array><dict><key>elementName</key><string>Walker</string>"
                    "<key>characterType</key><string>human</string></dict></array>"));
    // A nested edge without its end point fails the whole object catalogue.
    dir.write("Assets/ObjectList.plist",
              testing_support::readFile(testing_support::dataFile("bad/edge-without-end-point.objects.plist")));

    objectCatalogue() = {GenericObject{}};
    DiagnosticCapture capture;
    loadCatalogues(dir.folder() + "Assets/");

    ASSERT_EQ(obstacleCatalogue().size(), 2u);
    EXPECT_EQ(obstacleCatalogue()[0].elementName, "Crate");
    EXPECT_TRUE(obstacleCatalogue()[0].id.has_value());
    EXPECT_EQ(obstacleCatalogue()[1].id->text(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
    EXPECT_FALSE(obstacleCatalogue()[0].image.has_value());
    ASSERT_EQ(characterCatalogue().size(), 1u);
    EXPECT_TRUE(objectCatalogue().empty());
    ASSERT_EQ(capture.lines().size(), 1u);
    EXPECT_EQ(capture.lines()[0].rfind("Configuration error (ObjectList): ", 0), 0u);
    EXPECT_NE(capture.lines()[0].find("endPoint"), std::string::npos);

    // The given id is written back; the next load reads the same ids.
    const Uuid crateId = *obstacleCatalogue()[0].id;
    ASSERT_TRUE(saveConfig("ObstacleList", "plist", dir.folder() + "Assets/", configType::obstacles));
    EXPECT_EQ(loadConfig<configType::obstacles>(dir.folder() + "Assets/", "ObstacleList", std::nullopt)[0].id, crateId);

    characterCatalogue()[0].image = "walker";
    ASSERT_TRUE(saveConfig("CharacterList", "plist", dir.folder() + "Assets/", configType::characters));
    EXPECT_EQ(loadConfig<configType::characters>(dir.folder() + "Assets/", "CharacterList", "plist"),
              characterCatalogue());

    EXPECT_FALSE(saveConfig("Levels", "plist", dir.folder(), configType::level));
    EXPECT_FALSE(saveConfig("ObstacleList", "plist", dir.folder() + "missing/", configType::obstacles));
    obstacleCatalogue().clear();
    characterCatalogue().clear();
}

TEST(ConfigFiles, ApplicationConfigurationFallsBackFieldByField)
{
    TempDir dir;
    dir.write("App.plist",
              plist("<array><dict><key>defaultImageScale</key><string>x9</string>"
                    "<key>defaultImageType</key><string>jpg</string>"
                    "<key>darkMode</key><true/></dict><dict/></array>"));
    dir.write("Empty.plist", plist("<array/>"));
    dir.write("Other.config", plist("<array><dict/></array>"));

    const auto app = loadConfig<configType::app>(dir.folder(), "App", std::nullopt);
    ASSERT_EQ(app.size(), 1u);
    EXPECT_TRUE(app[0].darkMode);
    EXPECT_EQ(app[0].defaultImageType, imageType::jpg);
    EXPECT_EQ(app[0].defaultImageScale, imageScaling::x2);
    EXPECT_EQ(app[0].defaultSoundType, soundType::mp4);
    EXPECT_EQ(app[0].defaultScaleMode, "aspectFit");
    EXPECT_EQ(app[0].defaultSceneSize, (SizeValue{1024, 768}));
    EXPECT_EQ(app[0].defaultAnchorPoint, (PointValue{0.5, 0.5}));

    EXPECT_TRUE(loadConfig<configType::app>(dir.folder(), "Empty", std::nullopt).empty());
    const auto other = loadConfig<configType::app>(dir.folder(), "Other", "config");
    ASSERT_EQ(other.size(), 1u);
    EXPECT_FALSE(other[0].darkMode);
    EXPECT_EQ(other[0].defaultImageType, imageType::png);

    DiagnosticCapture capture;
    EXPECT_TRUE(loadConfig<configType::objects>(dir.folder(), "Nothing", std::nullopt).empty());
    EXPECT_TRUE(capture.anyStartsWith("Configuration error (Nothing): "));

    EXPECT_EQ(BaseConfig{}.defaultScaleMode, "aspectFit");
    EXPECT_EQ(BaseConfig::editorDefaults().defaultSceneSize, (SizeValue{874, 402}));
    EXPECT_EQ(appConfig{}.base, BaseConfig::editorDefaults());
}
