// Field paths: reading, writing and comparing any field of a level by the
// keys of its field tables, through optional records and lists.
#include "RecordFiller.h"

#include <tessaro/model/FieldPath.h>
#include <tessaro/model/LevelRecords.h>

#include <gtest/gtest.h>

namespace {

using tessaro::FieldPath;
using tessaro::FieldValue;

TEST(FieldPathTest, EveryFieldOfALevelIsReachedByItsKeys)
{
    testing_support::RecordFiller filler;
    const tessaro::Level from = filler.filled<tessaro::Level>();
    tessaro::Level to = filler.filled<tessaro::Level>();
    ASSERT_NE(to, from);

    // Copying each top-level field by its key makes the levels equal, and each
    // copied field then holds the other level's value.
    for (const char* key : {"id", "settings", "background", "ground", "obstacles", "checkpoints", "levelEnd",
                            "phaseEnd", "characters", "coins", "shields", "artifacts"}) {
        FieldValue value;
        ASSERT_TRUE(tessaro::readField(from, FieldPath(key), value)) << key;
        EXPECT_FALSE(tessaro::fieldHolds(to, FieldPath(key), value)) << key;
        ASSERT_TRUE(tessaro::writeField(to, FieldPath(key), value)) << key;
        EXPECT_TRUE(tessaro::fieldHolds(to, FieldPath(key), value)) << key;
    }
    EXPECT_EQ(to, from);
}

TEST(FieldPathTest, NestedFieldsListsAndAbsence)
{
    tessaro::Level level;
    tessaro::ObstacleLevelItem crate;
    crate.properties.emplace().devices = std::vector<tessaro::DeviceProperties>(2);
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{crate};
    const FieldPath position = FieldPath("obstacles.0.properties.devices") / std::size_t(1) / "position";
    EXPECT_EQ(position.text(), "obstacles.0.properties.devices.1.position");
    EXPECT_TRUE(position.startsWith(FieldPath("obstacles.0")));
    EXPECT_FALSE(FieldPath("obstacles.0").startsWith(position));

    // An optional text reads as its text, and absent as an empty value.
    FieldValue value;
    ASSERT_TRUE(tessaro::readField(level, position, value));
    EXPECT_FALSE(value.has_value());
    EXPECT_TRUE(tessaro::fieldHolds(level, position, FieldValue()));
    ASSERT_TRUE(tessaro::writeField(level, position, std::string("{1,2}")));
    EXPECT_EQ((*level.obstacles)[0].properties->devices->at(1).position, "{1,2}");
    EXPECT_TRUE(tessaro::fieldHolds(level, position, std::string("{1,2}")));
    EXPECT_FALSE(tessaro::fieldHolds(level, position, FieldValue()));

    // A value of another type writes nothing; an empty value takes the field out.
    EXPECT_FALSE(tessaro::writeField(level, position, 3.0));
    EXPECT_EQ((*level.obstacles)[0].properties->devices->at(1).position, "{1,2}");
    EXPECT_TRUE(tessaro::writeField(level, position, FieldValue()));
    EXPECT_FALSE((*level.obstacles)[0].properties->devices->at(1).position);

    // Paths that name no field: unknown keys, a list's end, an absent record
    // on the way, a step into a plain value, and the empty path.
    for (const char* dotted :
         {"obstacles.0.nothing", "obstacles.1.name", "obstacles.x.name", "coins.image", "obstacles.0.name.more", ""}) {
        EXPECT_FALSE(tessaro::readField(level, FieldPath(dotted), value)) << dotted;
        EXPECT_FALSE(tessaro::writeField(level, FieldPath(dotted), std::string("x"))) << dotted;
    }
    // A required field cannot be taken out.
    EXPECT_FALSE(tessaro::writeField(level, FieldPath("settings"), FieldValue()));
}

} // namespace
