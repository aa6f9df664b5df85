#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/LevelRecords.h>
#include <tessaro/model/Reflection.h>

#include <gtest/gtest.h>

using namespace tessaro;
using Kind = ReflectionValue::Kind;

TEST(Reflection, AbsentValuesFollowTheirType)
{
    Obstacle obstacle;
    obstacle.elementName = "Crate";
    obstacle.zPosition = 4.5;
    obstacle.repeatCount = 3;
    const ReflectionTable table = reflectionTable(obstacle);

    EXPECT_EQ(table.size(), fieldCount<Obstacle>);
    EXPECT_EQ(table.at("elementName").text, "Crate");
    EXPECT_EQ(table.at("image").kind, Kind::text);
    EXPECT_EQ(table.at("image").text, "Not defined");
    EXPECT_EQ(table.at("stack").kind, Kind::boolean);
    EXPECT_FALSE(table.at("stack").boolean);
    EXPECT_EQ(table.at("alpha").kind, Kind::absent);
    EXPECT_EQ(table.at("id").kind, Kind::absent);
    EXPECT_EQ(table.at("zPosition").real, 4.5);
    EXPECT_EQ(table.at("repeatCount").integer, 3);
    EXPECT_EQ(table.at("animation").kind, Kind::absent);
    EXPECT_EQ(table.at("devices").kind, Kind::absent);
    EXPECT_EQ(reflectionText(table.at("zPosition")), "4.5");
}

TEST(Reflection, RecordsOpenIntoTablesAndListsStayWhole)
{
    Level level;
    level.settings.scaleMode = "aspectFill";
    level.ground = std::vector<GroundSection>(3);
    const ReflectionTable deep = reflectionTable(level);
    ASSERT_EQ(deep.at("settings").kind, Kind::table);
    EXPECT_EQ(deep.at("settings").table->at("scaleMode").text, "aspectFill");
    EXPECT_EQ(deep.at("settings").table->at("fontColor").text, "Not defined");
    EXPECT_EQ(deep.at("ground").kind, Kind::list);
    EXPECT_EQ(deep.at("ground").count, 3u);
    EXPECT_EQ(reflectionText(deep.at("ground")), "3 entries");

    const ReflectionTable shallow = reflectionTable(level, 0);
    EXPECT_EQ(shallow.at("settings").kind, Kind::record);

    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.fontSize = 12;
    const ReflectionTable d = reflectionTable(device);
    EXPECT_EQ(reflectionText(d.at("fontSize")), "12.0");
    EXPECT_EQ(d.at("position").text, "Not defined");
}
