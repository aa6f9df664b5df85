// Every broken file under tests/data/bad is refused as a whole: no record of
// it is kept, the reason names what is wrong, and reading the file prints the
// one configuration error line. A file whose name ends in ".obstacles.plist"
// or ".objects.plist" is read as that catalogue, any other as a project.
#include "DataFiles.h"
#include "support/DiagnosticCapture.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/PlistCodec.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

using namespace tessaro;
using testing_support::DiagnosticCapture;

namespace {

struct BadInput {
    const char* file; // under tests/data/bad
    const char* reason; // a part of the error text
};

std::ostream& operator<<(std::ostream& out, const BadInput& input)
{
    return out << input.file;
}

const BadInput badInputs[] = {
    // Not a property list, or not a whole one.
    {"empty.plist", "The data is empty."},
    {"not-xml.plist", "not a valid property list: No document element found"},
    {"json.plist", "not a valid property list: No document element found"},
    {"truncated.plist", "not a valid property list: Start-end tags mismatch at line 3"},
    {"empty-plist-element.plist", "The property list is empty."},
    {"key-without-value.plist", "Key 'settings' has no value. (at [0])"},
    {"value-without-key.plist", "Expected key in dictionary but found <string>."},
    {"invalid-utf8.plist", "String is not valid UTF-8. (at [0].obstacles[0].name)"},
    {"overlong-utf8.plist", "String is not valid UTF-8. (at [0].obstacles[0].elementName)"},
    // Entities are refused, declared or merely referred to.
    {"billion-laughs.plist", "not a valid property list: the document type declares entities at line 2"},
    {"entity-declared-not-used.plist", "the document type declares entities"},
    {"external-entity.plist", "the document type declares entities"},
    {"parameter-entity.plist", "the document type declares entities"},
    {"utf16-declared-entity.plist", "the document type declares entities"},
    {"undefined-entity.plist", "entity reference '&nbsp;'"},
    {"entity-under-unknown-key.plist", "entity reference '&unread;'"},
    {"entity-in-attribute.plist", "entity reference '&version;' in an attribute"},
    // Broken binary documents, refused before the binary parser sees them.
    {"binary-garbage.bplist", "broken trailer"},
    {"binary-truncated.bplist", "is truncated"},
    {"binary-nested-too-deeply.bplist", "nested too deeply"},
    {"binary-self-reference.bplist", "refers to itself"},
    {"binary-number-key.bplist", "broken object"},
    {"binary-nul-key.bplist", "broken object"},
    {"binary-array-of-arrays.bplist", "Expected dictionary but found array. (at [0])"},
    // Well-formed documents whose records do not fit.
    {"root-not-an-array.plist", "Expected array but found dictionary."},
    {"missing-settings.plist", "No value associated with required key 'settings'. (at [0])"},
    {"sound-without-filename.plist", "required key 'filename'. (at [0].background.soundEffects[0])"},
    {"obstacles-not-an-array.plist", "Expected array but found dictionary. (at [0].obstacles)"},
    {"invalid-uuid.plist", "Invalid UUID string 'not-a-uuid'. (at [0].id)"},
    {"z-position-string.plist", "Expected real but found string. (at [0].obstacles[0].zPosition)"},
    {"z-position-boolean.plist", "Expected real but found boolean."},
    {"z-position-malformed-real.plist", "Malformed real 'seven'."},
    {"repeat-count-fraction.obstacles.plist", "Real number does not fit in an integer. (at [0].repeatCount)"},
    {"repeat-count-overflow.obstacles.plist", "'99999999999999999999' does not fit in 64 bits."},
    {"repeat-count-malformed.obstacles.plist", "Malformed integer '12abc'."},
    {"polygon-without-direction.obstacles.plist", "required key 'direction'. (at [0].physics.polygons[0])"},
    {"polygon-without-points.obstacles.plist", "required key 'points'. (at [0].physics.polygons[0])"},
    {"edge-without-end-point.objects.plist", "required key 'endPoint'. (at [1].animation.physics.edges[0])"},
};

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string readBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Decodes the bytes as records of `T` and gives the error text; "" when they decode.
template <Record T>
std::string decodeError(const std::string& bytes)
{
    try {
        decodeRecordList<T>(bytes);
    } catch (const CodingError& error) {
        return error.description();
    }
    return "";
}

// Reads the catalogue file through the configuration loader and checks that
// it yields nothing and prints one line; gives the error text.
template <configType Type>
std::string catalogueError(const std::string& file)
{
    const std::filesystem::path path(file);
    const std::string name = path.stem().string();
    DiagnosticCapture capture;
    EXPECT_TRUE(loadConfig<Type>(path.parent_path().string() + "/", name, "plist").empty());
    EXPECT_EQ(capture.lines().size(), 1u);
    if (capture.lines().size() != 1)
        return "";
    const std::string prefix = "Configuration error (" + name + "): ";
    EXPECT_EQ(capture.lines()[0].rfind(prefix, 0), 0u) << capture.lines()[0];
    EXPECT_EQ(decodeError<typename ConfigRecord<Type>::type>(readBytes(file)), capture.lines()[0].substr(prefix.size()))
        << "the file and its bytes in memory fail alike";
    return capture.lines()[0];
}

std::string projectError(const std::string& file)
{
    DiagnosticCapture capture;
    const LevelsReadResult read = readLevels(file);
    EXPECT_FALSE(read.ok);
    EXPECT_TRUE(read.levels.empty());
    EXPECT_EQ(capture.lines(), std::vector<std::string>{"Configuration error (" + file + "): " + read.error});
    EXPECT_EQ(decodeError<Level>(readBytes(file)), read.error) << "the file and its bytes in memory fail alike";
    return read.error;
}

class BadInputFile : public testing::TestWithParam<BadInput> {};

} // namespace

TEST_P(BadInputFile, IsRefusedAsAWholeWithItsReason)
{
    const std::string name = GetParam().file;
    const std::string file = testing_support::dataFile("bad/" + name);
    ASSERT_TRUE(std::filesystem::is_regular_file(file)) << file;
    std::string error;
    if (endsWith(name, ".obstacles.plist"))
        error = catalogueError<configType::obstacles>(file);
    else if (endsWith(name, ".objects.plist"))
        error = catalogueError<configType::objects>(file);
    else
        error = projectError(file);
    EXPECT_NE(error.find(GetParam().reason), std::string::npos) << error;
}

INSTANTIATE_TEST_SUITE_P(Files, BadInputFile, testing::ValuesIn(badInputs),
                         [](const testing::TestParamInfo<BadInput>& input) {
                             // "repeat-count-fraction.obstacles.plist" gives "repeat_count_fraction".
                             std::string name = input.param.file;
                             name = name.substr(0, name.find('.'));
                             for (char& c : name)
                                 if (c == '-')
                                     c = '_';
                             return name;
                         });

TEST(BadInputFiles, EveryFileInTheFolderIsACase)
{
    std::set<std::string> listed;
    for (const BadInput& input : badInputs)
        EXPECT_TRUE(listed.insert(input.file).second) << input.file << " is listed twice";
    std::set<std::string> onDisk;
    for (const auto& entry : std::filesystem::directory_iterator(testing_support::dataFile("bad")))
        onDisk.insert(entry.path().filename().string());
    EXPECT_EQ(onDisk, listed);
}
