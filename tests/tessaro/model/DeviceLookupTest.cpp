#include <tessaro/model/DeviceLookup.h>

#include <gtest/gtest.h>

using namespace tessaro;

namespace {

DeviceProperties entry(const char* devices)
{
    DeviceProperties d;
    d.deviceName = devices;
    return d;
}

} // namespace

TEST(DeviceLookup, DefaultEntryServesEveryFieldItHolds)
{
    std::vector<DeviceProperties> devices{entry("iPad"), entry("defaultDevice")};
    devices[0].size = "{10.0,10.0}";
    devices[1].position = "{12.34,-5.66}";
    devices[1].size = "{64,32}";
    devices[1].fontSize = 18;

    // The canvas never sets a device: the default entry answers.
    EXPECT_EQ(deviceValue<fieldList::position>(devices), (PointValue{12.3, -5.7}));
    EXPECT_EQ(deviceValue<fieldList::size>(devices), (SizeValue{64, 32}));
    EXPECT_EQ(deviceValue<fieldList::fontSize>(devices), 18);
    EXPECT_EQ(deviceValue<fieldList::offset>(devices), (PointValue{0, 0}));

    EXPECT_EQ(deviceValue<fieldList::position>(std::vector<DeviceProperties>{}), (PointValue{0, 0}));
    EXPECT_EQ(deviceValue<fieldList::fontSize>(std::vector<DeviceProperties>{}), std::nullopt);
    EXPECT_EQ(deviceValue<fieldList::size>(std::optional<std::vector<DeviceProperties>>{}), (SizeValue{0, 0}));
}

TEST(DeviceLookup, DeviceEntriesOverrideFieldByField)
{
    const DeviceChoice game{deviceName::iPhone17, deviceName::iPad, {}};
    std::vector<DeviceProperties> devices{entry("defaultDevice"), entry("iPhone16, iPhone17"), entry("iPad"),
                                          entry("iPhone17")};
    devices[0].position = "{1,1}";
    devices[0].size = "{5,5}";
    devices[0].offset = "{7,7}";
    devices[1].size = "{9,9}";
    devices[2].offset = "{8,8}";
    devices[2].size = "{6,6}";
    devices[3].offset = "{3,3}"; // not the first entry of iPhone17: never read

    EXPECT_EQ(deviceValue<fieldList::size>(devices, game), (SizeValue{9, 9})); // primary
    EXPECT_EQ(deviceValue<fieldList::offset>(devices, game), (PointValue{8, 8})); // secondary
    EXPECT_EQ(deviceValue<fieldList::position>(devices, game), (PointValue{1, 1})); // default
    EXPECT_EQ(deviceValue<fieldList::size>(devices), (SizeValue{5, 5})) << "the editor's choice takes the default";

    // A coordinate past the limit takes the last random position's.
    const DeviceChoice placed{deviceName::none, deviceName::none, {500, 77}};
    EXPECT_EQ(placed.repeated({999999999, 3}), (PointValue{500, 3}));
    EXPECT_EQ(placed.repeated({4, 999999999}), (PointValue{4, 77}));
    EXPECT_EQ(placed.repeated({999999998, 3}), (PointValue{999999998, 3}));
    EXPECT_EQ(deviceEntryFor(devices, deviceName::iPhone17), &devices[1]);
    EXPECT_EQ(deviceEntryFor(devices, deviceName::iPhoneAir), nullptr);
}

TEST(DeviceLookup, RandomRangesDrawAnewOnEveryLookUp)
{
    std::vector<DeviceProperties> devices{entry("defaultDevice")};
    devices[0].randomPositionRange = "{<0...1000>,<0...1000>}";
    bool differed = false;
    PointValue first = deviceValue<fieldList::randomPositionRange>(devices);
    for (int i = 0; i < 10 && !differed; ++i)
        differed = deviceValue<fieldList::randomPositionRange>(devices) != first;
    EXPECT_TRUE(differed);
    devices[0].randomPositionRange = "{<0...0>,<0...0>}";
    EXPECT_EQ(deviceValue<fieldList::randomPositionRange>(devices), (PointValue{0, 0}));
}
