// Entities in XML documents: what is refused lives in tests/data/bad; these
// are the documents that look alike and must still be read, and the limits
// of the refusal.
#include "DataFiles.h"

#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/PlistCodec.h>

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>

using namespace tessaro;

namespace {

const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string appleDoctype = "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                 "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";

std::string obstacleNamed(const std::string& nameElement)
{
    return "<plist version=\"1.0\"><array><dict><key>name</key>" + nameElement + "</dict></array></plist>\n";
}

std::string decodedName(const std::string& document)
{
    return decodeRecordList<Obstacle>(document).at(0).name.value_or("(absent)");
}

std::string decodeError(const std::string& document)
{
    try {
        decodeRecordList<Obstacle>(document);
    } catch (const CodingError& error) {
        return error.description();
    }
    return "";
}

std::string utf16le(const std::string& ascii)
{
    std::string out = "\xFF\xFE";
    for (char c : ascii) {
        out += c;
        out += '\0';
    }
    return out;
}

} // namespace

TEST(XmlEntities, LookalikesOfEntitiesAreRead)
{
    // The five predefined entities and character references are text.
    EXPECT_EQ(
        decodedName(head + appleDoctype + obstacleNamed("<string>&lt;&amp;&gt;&apos;&quot; &#233;&#x41;</string>")),
        "<&>'\" \xC3\xA9"
        "A");
    // Entity-like text in a CDATA section or a comment is not a reference.
    EXPECT_EQ(decodedName(head + obstacleNamed("<string><![CDATA[&lol;]]></string>")), "&lol;");
    EXPECT_EQ(decodedName(head + "<!-- &lol; <!ENTITY lol \"x\"> -->\n" +
                          obstacleNamed("<!-- &again; --><string>plain</string>")),
              "plain");
    // An escaped ampersand before a name stays text, and so does a lone one.
    EXPECT_EQ(decodedName(head + obstacleNamed("<string>&amp;lol; &amp;#65;</string>")), "&lol; &#65;");
    EXPECT_EQ(decodedName(head + obstacleNamed("<string>Tom & Jerry &lol</string>")), "Tom & Jerry &lol");
    // A document type with an internal subset that declares no entity.
    EXPECT_EQ(decodedName(head + "<!DOCTYPE plist [<!ELEMENT plist ANY>]>\n" + obstacleNamed("<string>x</string>")),
              "x");
    // The same in a UTF-16 document.
    EXPECT_EQ(decodedName(utf16le("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" +
                                  obstacleNamed("<string><![CDATA[&lol;]]></string>"
                                                "<key>image</key><string>&amp;lol;</string>"))),
              "&lol;");
}

TEST(XmlEntities, ReferencesAreRefusedWhereverTheyStand)
{
    EXPECT_NE(decodeError(head + obstacleNamed("<string>&lol;</string>")).find("'&lol;'"), std::string::npos);
    // In a key, in a value of a key no field reads, after a CDATA section
    // holding a lookalike, and in a UTF-16 document.
    EXPECT_NE(decodeError(head + obstacleNamed("<string>x</string><key>&k;</key><string/>")).find("'&k;'"),
              std::string::npos);
    EXPECT_NE(decodeError(head + obstacleNamed("<string>x</string><key>later</key><string>&z;</string>")).find("'&z;'"),
              std::string::npos);
    EXPECT_NE(decodeError(head + obstacleNamed("<string><![CDATA[&ok;]]></string><key>b</key><string>&no;</string>"))
                  .find("'&no;'"),
              std::string::npos);
    EXPECT_NE(decodeError(utf16le(obstacleNamed("<string>&lol;</string>"))).find("'&lol;'"), std::string::npos);
    // The reason comes with the line and column of the reference.
    EXPECT_NE(decodeError(head + "\n" + obstacleNamed("<string>&lol;</string>")).find("at line 3, column 58"),
              std::string::npos);
}

TEST(XmlEntities, ABillionLaughsAreRefusedWithoutExpansion)
{
    std::ifstream in(testing_support::dataFile("bad/billion-laughs.plist"), std::ios::binary);
    const std::string bomb{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    ASSERT_NE(bomb.find("<!ENTITY lol9"), std::string::npos);

    // Expanded, the last entity would be three gigabytes of text; refused,
    // the file costs a read of its kilobyte.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(decodeError(bomb).find("declares entities"), std::string::npos);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));

    // A large document whose every line refers to the bomb is refused as
    // fast: the check is linear and allocates nothing in proportion to it.
    std::string large = bomb.substr(0, bomb.find("<plist"));
    large += "<plist version=\"1.0\"><array>";
    for (int i = 0; i < 100000; ++i)
        large += "<dict><key>name</key><string>&lol9;&lol9;</string></dict>";
    large += "</array></plist>";
    const auto largeStart = std::chrono::steady_clock::now();
    EXPECT_NE(decodeError(large).find("declares entities"), std::string::npos);
    EXPECT_LT(std::chrono::steady_clock::now() - largeStart, std::chrono::seconds(5));
}
