#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <gtest/gtest.h>

#include <set>

using namespace tessaro;

TEST(ValueText, PairTextsRoundTripAndKeepAFractionPart)
{
    EXPECT_EQ(textFromPair(874, 402), "{874.0,402.0}");
    EXPECT_EQ(textFromPair(12, -7.5), "{12.0,-7.5}");
    EXPECT_EQ(textFromPair(0, -0.0).substr(0, 5), "{0.0,");
    for (double v : {0.1, 1.0 / 3.0, -123456.789, 1e-7, 2.5e17, 874.0}) {
        const PointValue p = pointFromText(textFromPair(v, -v));
        EXPECT_EQ(p.x, v) << textFromPair(v, -v);
        EXPECT_EQ(p.y, -v);
    }
    EXPECT_EQ(textFromRange({0.5, 2}), "0.5...2.0");
}

TEST(ValueText, PointsReadWhateverTheParsersAcceptAndDefaultToZero)
{
    EXPECT_EQ(pointFromText("{1.5,2}"), (PointValue{1.5, 2}));
    EXPECT_EQ(pointFromText("{ 3 , 4 }"), (PointValue{3, 4}));
    EXPECT_EQ(pointFromText("{10, 10}"), (PointValue{10, 10}));
    EXPECT_EQ(pointFromText("{a,2}"), (PointValue{0, 2}));
    EXPECT_EQ(pointFromText("{1,2,3}"), (PointValue{0, 0}));
    EXPECT_EQ(pointFromText(""), (PointValue{0, 0}));
    EXPECT_EQ(pointFromText("{,5}"), (PointValue{0, 0}));
    EXPECT_EQ(pointFromText("{+2,-1e2}"), (PointValue{2, -100}));
    EXPECT_EQ(pointFromText("{1.5.5,2}"), (PointValue{0, 2}));
    EXPECT_EQ(sizeFromText("{874.0,402.0}"), (SizeValue{874, 402}));
    EXPECT_EQ(roundedPointFromText(1, "{1.25,-1.25}"), (PointValue{1.3, -1.3}));
    EXPECT_EQ(roundedPointFromText(1, "{1,2,3}"), (PointValue{0, 0}));
    EXPECT_DOUBLE_EQ(numberFromText(2, "3.14159"), 3.14);
    EXPECT_EQ(numberFromText(2, "three"), 0);
    EXPECT_EQ(roundedValue(-2.5, 0), -3);
    EXPECT_EQ(roundedValue(2.5, 0), 3);
}

TEST(ValueText, RangesNeedTwoOrderedNumbers)
{
    EXPECT_EQ(rangeFromText("5...1"), (RangeValue{0, 0}));
    EXPECT_EQ(rangeFromText("1...5"), (RangeValue{1, 5}));
    EXPECT_EQ(rangeFromText("<1...5>"), (RangeValue{1, 5}));
    EXPECT_EQ(rangeFromText("7"), (RangeValue{0, 0}));
    EXPECT_EQ(rangeFromText("1,000...2,000"), (RangeValue{1000, 2000}));
    EXPECT_EQ(rangeFromText("a...5"), (RangeValue{0, 0}));
    EXPECT_EQ(rangeFromText("-3...-1"), (RangeValue{-3, -1}));
    EXPECT_EQ(rangeFromText("1...2...3"), (RangeValue{0, 0}));
}

TEST(ValueText, RandomPointsStayInsideTheirRanges)
{
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(randomPointFromText(1, "{<0...0>,<0...0>}"), (PointValue{0, 0}));
    EXPECT_EQ(randomPointFromText(1, "{<3...3>,<-2...-2>}"), (PointValue{3, -2}));
    EXPECT_EQ(randomPointFromText(1, "nonsense"), (PointValue{0, 0}));

    std::set<double> xs;
    for (int i = 0; i < 200; ++i) {
        const PointValue p = randomPointFromText(1, "{<0.0...40.0>,<-5.0...5.0>}");
        EXPECT_GE(p.x, 0);
        EXPECT_LE(p.x, 40);
        EXPECT_GE(p.y, -5);
        EXPECT_LE(p.y, 5);
        EXPECT_EQ(p.x, roundedValue(p.x, 1));
        xs.insert(p.x);
    }
    EXPECT_GT(xs.size(), 20u);
}

TEST(ValueText, CaseListsAndMasks)
{
    EXPECT_EQ(maskFromText("none"), 64u);
    EXPECT_EQ(maskFromText("floor, enemyTouch"), 1056u);
    EXPECT_EQ(maskFromText("nonsense,floor"), 32u);
    EXPECT_EQ(maskFromText(""), 0u);
    EXPECT_EQ(maskFromText("floor,none"), 96u);
    EXPECT_EQ(maskFromText("objectCausesDamageAllSidesIgnoreCollision"), 262144u);

    EXPECT_EQ(listFromText<objectClassType>(""), std::vector<objectClassType>{objectClassType::none});
    EXPECT_EQ(listFromText<groundPhysicsAngleType>("bogus"),
              std::vector<groundPhysicsAngleType>{groundPhysicsAngleType::none});
    EXPECT_TRUE(listFromText<actionType>("").empty());
    EXPECT_EQ(listFromText<collisionTypes>(" floor , ,enemyTouch"),
              (std::vector<collisionTypes>{collisionTypes::floor, collisionTypes::enemyTouch}));
    EXPECT_EQ(listFromText<collisionTypes>("Floor"), std::vector<collisionTypes>{}); // case-sensitive
    EXPECT_EQ(textFromList(std::vector<actionType>{actionType::idle, actionType::move}), "idle,move");
    EXPECT_EQ(textFromList(std::vector<std::string>{}), "");

    EXPECT_EQ(namesFromText(""), std::vector<std::string>{});
    EXPECT_EQ(namesFromText("a, b,,c"), (std::vector<std::string>{"a", " b", "", "c"}));

    // Lists that are read to be edited and written back: trimmed, each name once.
    EXPECT_EQ(listFromText<collisionTypes>("floor, enemyTouch,floor"),
              (std::vector<collisionTypes>{collisionTypes::floor, collisionTypes::enemyTouch}));
    EXPECT_EQ(listFromText<actionType>("idle, move"), (std::vector<actionType>{actionType::idle, actionType::move}));
    EXPECT_EQ(trimmedNamesFromText(" floor, enemyTouch,,floor "), (std::vector<std::string>{"floor", "enemyTouch"}));
    EXPECT_TRUE(trimmedNamesFromText(" , ").empty());
    EXPECT_EQ(textFromNames({"floor", " enemyTouch", "floor", ""}), "floor,enemyTouch");
    EXPECT_EQ(textFromNames({}), "");

    EXPECT_TRUE(deviceListHolds("iPad, defaultDevice", deviceName::defaultDevice));
    EXPECT_TRUE(deviceListHolds("iPhoneSE3rdGen", deviceName::iPhoneSE3rdGen));
    EXPECT_FALSE(deviceListHolds("DefaultDevice", deviceName::defaultDevice)); // raw text is not a case name
}

TEST(ValueText, ScaleModesAndTimes)
{
    EXPECT_EQ(scaleModeFromText("ASPECTFIT"), 2);
    EXPECT_EQ(scaleModeFromText("fill"), 0);
    EXPECT_EQ(scaleModeFromText("resizeFill"), 3);
    EXPECT_EQ(scaleModeFromText(""), 1);
    EXPECT_EQ(scaleModeText(9), "unknown");
    EXPECT_EQ(scaleModeText(scaleModeFromText("aspectFit")), "aspectFit");

    EXPECT_EQ(timeText(59), "00:59");
    EXPECT_EQ(timeText(3599), "59:59");
    EXPECT_EQ(timeText(3600), "01:00:00");
    EXPECT_EQ(timeText(3725), "01:02:05");
}

TEST(Enumerations, CasesTextsAndTablesAgree)
{
    EXPECT_EQ(caseCount<objectClassType>, 81u);
    EXPECT_EQ(static_cast<int>(objectClassType::none), 54);
    EXPECT_EQ(caseText(objectClassType::winchOscillate), "winchOscillate");
    EXPECT_EQ(caseFromText<deviceName>("iPhoneSE3rdGen"), deviceName::iPhoneSE3rdGen);
    EXPECT_EQ(caseFromText<deviceName>("iPhoneSE3rdgen"), std::nullopt);
    EXPECT_EQ(caseFromText<deviceName>(" iPad"), std::nullopt);
    EXPECT_EQ(deviceRawText(deviceName::iPhoneSE3rdGen), "iPhoneSE3rdgen");
    EXPECT_EQ(deviceRawText(deviceName::defaultDevice), "DefaultDevice");
    EXPECT_EQ(deviceSize(deviceName::iPhoneSE3rdGen).width, 667);
    EXPECT_EQ(deviceSize(deviceName::iPhoneSE3rdGen).height, 375);
    EXPECT_EQ(deviceSize(deviceName::none).width, deviceSize(deviceName::defaultDevice).width);
    EXPECT_EQ(deviceTitle(deviceName::iPhone16ProMax), "iPhone 16 Pro Max");
    EXPECT_EQ(collisionBit(collisionTypes::none), 64u);
    EXPECT_EQ(collisionBit(collisionTypes::floorAboveGround), 131072u);
    EXPECT_EQ(imageFolderName(sceneObjectType::shield), "Shields");
    EXPECT_EQ(pickerTabTitle(sceneObjectType::shield), "shield");
    EXPECT_EQ(pickerTabTitle(sceneObjectType::background), "Background");
    EXPECT_EQ(pickerTabSymbol(sceneObjectType::none), "");
    EXPECT_EQ(allCases<soundBiteType>().front(), soundBiteType::constant);
    EXPECT_EQ(allCases<soundBiteType>().back(), soundBiteType::none);
    EXPECT_EQ(caseText(groundBaseType::BrightWater), "BrightWater");
}
