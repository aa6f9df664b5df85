#include <stagewright/inspector/controls/ImagePicker.h>
#include <stagewright/inspector/controls/MultiSelectCombo.h>
#include <stagewright/inspector/controls/StepperRules.h>

#include <tessaro/model/ValueText.h>

#include <gtest/gtest.h>

namespace stagewright::stepper {
namespace {

using tessaro::RangeValue;
using tessaro::SizeValue;

TEST(StepperRules, FloatButtonsJudgeTheRoundedValueAndNeverClamp)
{
    const RangeValue unit{0, 1};
    EXPECT_EQ(floatButtons(0, unit, 1), (ButtonsEnabled{false, true}));
    // 0.99 shows as 1.0 at one place: the upper end is reached.
    EXPECT_EQ(floatButtons(0.99, unit, 1), (ButtonsEnabled{true, false}));
    EXPECT_EQ(floatButtons(0.99, unit, 2), (ButtonsEnabled{true, true}));
    EXPECT_EQ(placesOf(std::nullopt), 1);

    // Plus acts below the end and may step past it; past it, it no longer acts.
    const double past = floatPlus(0.98, unit, 0.05);
    EXPECT_DOUBLE_EQ(past, 1.03);
    EXPECT_EQ(floatPlus(past, unit, 0.05), past);
    EXPECT_FALSE(floatButtons(past, unit, 2).plus);
    EXPECT_DOUBLE_EQ(floatMinus(0.02, unit, 0.05), -0.03);
    EXPECT_EQ(floatMinus(0, unit, 0.05), 0);

    // A typed number outside the range puts the old value back.
    EXPECT_EQ(acceptedFloat(1.5, 0.4, unit), 0.4);
    EXPECT_EQ(acceptedFloat(1, 0.4, unit), 1);

    EXPECT_EQ(intButtons(0, 0, 10), (ButtonsEnabled{false, true}));
    EXPECT_EQ(intButtons(10, 0, 10), (ButtonsEnabled{true, false}));
    EXPECT_EQ(intPlus(9, 10, 5), 14);
    EXPECT_EQ(intPlus(14, 10, 5), 14);
}

TEST(StepperRules, RangeButtonsFollowTheirTable)
{
    const RangeValue limits{0, 10};
    // Equal bounds: neither may pass the other.
    EXPECT_EQ(rangeButtons({3, 3}, limits), (RangeButtonsEnabled{true, false, false, true}));
    EXPECT_EQ(pressRange({3, 3}, limits, RangeButton::lowerPlus), (RangeValue{3, 3}));
    EXPECT_EQ(pressRange({3, 3}, limits, RangeButton::upperMinus), (RangeValue{3, 3}));
    // The upper bound at the end of the range stops the lower plus as well.
    EXPECT_EQ(rangeButtons({2, 10}, limits), (RangeButtonsEnabled{true, false, true, false}));
    EXPECT_EQ(rangeButtons({0, 5}, limits), (RangeButtonsEnabled{false, true, true, true}));
    EXPECT_EQ(pressRange({0, 5}, limits, RangeButton::lowerMinus), (RangeValue{0, 5}));
    EXPECT_EQ(pressRange({2, 5}, limits, RangeButton::lowerPlus), (RangeValue{3, 5}));
    EXPECT_EQ(pressRange({2, 5}, limits, RangeButton::upperPlus), (RangeValue{2, 6}));
    EXPECT_EQ(escapeUpper({2, 9}), (RangeValue{2, 2}));

    EXPECT_EQ(coordinateButtons(-100, {-100, 100}), (ButtonsEnabled{false, true}));
    EXPECT_EQ(coordinateButtons(100, {-100, 100}), (ButtonsEnabled{true, false}));
}

TEST(StepperRules, AspectRatioNeverZeroAndFollowsTheEditedSide)
{
    EXPECT_EQ(aspectRatioOf({100, 0}), 100);
    EXPECT_EQ(aspectRatioOf({0, 50}), 1);
    EXPECT_EQ(aspectRatioOf({50, 100}), 0.5);
    EXPECT_EQ(withWidth({50, 100}, 80, true, 0.5), (SizeValue{80, 160}));
    EXPECT_EQ(withHeight({50, 100}, 40, true, 0.5), (SizeValue{20, 40}));
    EXPECT_EQ(withWidth({50, 100}, 80, false, 0.5), (SizeValue{80, 100}));
}

TEST(StepperRules, PointRangeTextReadsBackToTheSameBounds)
{
    const PointRange read = pointRangeFromText("{<0.0...40.0>,<-5.0...5.0>}");
    EXPECT_EQ(read, (PointRange{{0, 40}, {-5, 5}}));
    EXPECT_EQ(pointRangeText(read), "{<0.0...40.0>,<-5.0...5.0>}");
    // Blanks and brackets go; without a second piece y stays 0...0.
    EXPECT_EQ(pointRangeFromText(" { <1 ... 2> } "), (PointRange{{1, 2}, {0, 0}}));
    EXPECT_EQ(pointRangeFromText(""), PointRange{});
    EXPECT_EQ(pointRangeFromText(",,"), PointRange{});
    EXPECT_EQ(pointRangeText({}), "{<0.0...0.0>,<0.0...0.0>}");

    for (const PointRange& bounds : {PointRange{{0.1, 0.3}, {-7.25, 1e-7}}, PointRange{{-1e6, 123456789.5}, {2, 2}}}) {
        const std::string text = pointRangeText(bounds);
        EXPECT_EQ(pointRangeFromText(text), bounds) << text;
        // The game reads the same text: the x piece is a plain range text.
        const std::string xPiece = text.substr(1, text.find(',') - 1);
        EXPECT_EQ(tessaro::rangeFromText(xPiece), bounds.x) << xPiece;
    }
}

TEST(StepperRules, NumberTextsAndTypedNumbers)
{
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(floatText(1, 1, english), QStringLiteral("1.0"));
    EXPECT_EQ(floatText(0.049, 2, english), QStringLiteral("0.05"));
    EXPECT_EQ(floatText(100000, 1, english), QStringLiteral("100,000.0"));
    EXPECT_EQ(intText(12345, english), QStringLiteral("12,345"));
    EXPECT_EQ(plainText(12345.5, 3, english), QStringLiteral("12345.5"));
    EXPECT_EQ(plainText(40, 3, english), QStringLiteral("40"));
    EXPECT_EQ(plainText(-0.0001, 3, english), QStringLiteral("0"));
    EXPECT_EQ(fixedText(3, 0, english), QStringLiteral("3"));
    EXPECT_EQ(fixedText(1000, 1, english), QStringLiteral("1000.0"));

    EXPECT_EQ(parseTyped(QStringLiteral(" 1,000.5 "), english), 1000.5);
    EXPECT_EQ(parseTyped(QStringLiteral("-2"), english), -2);
    EXPECT_FALSE(parseTyped(QStringLiteral("abc"), english));
    EXPECT_FALSE(parseTyped(QString(), english));
    EXPECT_FALSE(parseTyped(QStringLiteral("inf"), english));
    EXPECT_EQ(parseTypedInt(QStringLiteral("2.6"), english), 3);
}

TEST(MultipleChoice, ClicksAppendOrRemoveEveryOccurrence)
{
    QStringList values;
    for (const char* click : {"b", "a", "b"})
        values = toggledSelection(values, QString::fromLatin1(click));
    EXPECT_EQ(values, QStringList{QStringLiteral("a")});
    EXPECT_EQ(toggledSelection({"a", "b", "a"}, QStringLiteral("a")), QStringList{QStringLiteral("b")});
    EXPECT_EQ(toggledSelection({"c"}, QStringLiteral("a")), (QStringList{"c", "a"}));
}

TEST(ImagePickerGrid, KeepsOneKindAndFitsColumnsOfSixty)
{
    FileItem coin;
    coin.name = QStringLiteral("coin");
    coin.sceneObjectType = tessaro::sceneObjectType::coin;
    FileItem crate = coin;
    crate.name = QStringLiteral("crate");
    crate.sceneObjectType = tessaro::sceneObjectType::obstacles;
    const std::vector<FileItem> kept = imagesOfKind({coin, crate, coin}, tessaro::sceneObjectType::coin);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].name, QStringLiteral("coin"));
    EXPECT_EQ(gridColumns(316), 5);
    EXPECT_EQ(gridColumns(315), 4);
    EXPECT_EQ(gridColumns(10), 1);
}

} // namespace
} // namespace stagewright::stepper
