// What the steppers do, without the widgets: when a button may be pressed,
// what a press does, what a typed number becomes, the texts of the numbers,
// the size stepper's aspect ratio and the four bounds of a random-position
// text. Steppers never clamp: a button acts while the value is inside its end
// and may step past it, and then the button is disabled.
#pragma once

#include <tessaro/model/Geometry.h>

#include <QLocale>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace stagewright::stepper {

/// Whether the minus and the plus button of a number may be pressed.
struct ButtonsEnabled {
    bool minus = true;
    bool plus = true;
    bool operator==(const ButtonsEnabled&) const = default;
};

bool inRange(double value, tessaro::RangeValue range);

// ---- The float stepper -------------------------------------------------------------------------
/// The places shown and rounded to: `roundedPlaces`, or 1 when absent.
int placesOf(std::optional<int> roundedPlaces);
/// Judged on the value rounded to `places`.
ButtonsEnabled floatButtons(double value, tessaro::RangeValue range, int places);
/// value − step while the value is above the lower end; no clamp.
double floatMinus(double value, tessaro::RangeValue range, double step);
/// value + step while the value is below the upper end; no clamp.
double floatPlus(double value, tessaro::RangeValue range, double step);
/// A typed value outside the range puts the old one back.
double acceptedFloat(double typed, double old, tessaro::RangeValue range);

// ---- The integer stepper ---------------------------------------------------------------------
ButtonsEnabled intButtons(std::int64_t value, std::int64_t lower, std::int64_t upper);
std::int64_t intMinus(std::int64_t value, std::int64_t lower, std::int64_t step);
std::int64_t intPlus(std::int64_t value, std::int64_t upper, std::int64_t step);

// ---- The range stepper -----------------------------------------------------------------------
enum class RangeButton { lowerMinus, lowerPlus, upperMinus, upperPlus };
struct RangeButtonsEnabled {
    bool lowerMinus = true;
    bool lowerPlus = true;
    bool upperMinus = true;
    bool upperPlus = true;
    bool operator==(const RangeButtonsEnabled&) const = default;
};
/// `bounds` holds the stepper's lower and upper values, `range` their limits.
RangeButtonsEnabled rangeButtons(tessaro::RangeValue bounds, tessaro::RangeValue range);
/// One press, step 1; a button that does not act leaves the bounds alone.
tessaro::RangeValue pressRange(tessaro::RangeValue bounds, tessaro::RangeValue range, RangeButton button);
/// Escape in the upper field: the upper bound becomes the lower one.
tessaro::RangeValue escapeUpper(tessaro::RangeValue bounds);

// ---- The point steppers ----------------------------------------------------------------------
/// One coordinate: minus stops at the lower end, plus at the upper end.
ButtonsEnabled coordinateButtons(double value, tessaro::RangeValue range);

// ---- The size stepper ------------------------------------------------------------------------
/// width ÷ height, a height of 0 counting as 1; a ratio of 0 is 1.
double aspectRatioOf(tessaro::SizeValue size);
/// The size after its width became `width`: the height follows when the
/// ratio is kept.
tessaro::SizeValue withWidth(tessaro::SizeValue size, double width, bool keepRatio, double ratio);
tessaro::SizeValue withHeight(tessaro::SizeValue size, double height, bool keepRatio, double ratio);

// ---- The point range stepper -----------------------------------------------------------------
struct PointRange {
    tessaro::RangeValue x;
    tessaro::RangeValue y;
    bool operator==(const PointRange&) const = default;
};
/// The bounds of "{<xl...xu>,<yl...yu>}": brackets and blanks go, the pieces
/// between commas are read as ranges; without a second piece y is 0...0.
PointRange pointRangeFromText(std::string_view text);
/// "{<xl...xu>,<yl...yu>}" with each number in its file form ("0.0").
std::string pointRangeText(const PointRange& bounds);

// ---- Number texts ----------------------------------------------------------------------------
/// The float stepper's text: exactly `places` fraction digits, grouped.
QString floatText(double value, int places, const QLocale& locale = QLocale());
/// The integer stepper's text: grouped, no fraction.
QString intText(std::int64_t value, const QLocale& locale = QLocale());
/// The other steppers' text: no grouping, at most `maxFraction` fraction
/// digits and no trailing zeros.
QString plainText(double value, int maxFraction = 3, const QLocale& locale = QLocale());
/// The range stepper's text: no grouping, exactly `fraction` digits.
QString fixedText(double value, int fraction, const QLocale& locale = QLocale());
/// A typed number, with or without grouping; none when it is not one.
std::optional<double> parseTyped(const QString& text, const QLocale& locale = QLocale());
/// A typed whole number; a typed fraction is rounded.
std::optional<std::int64_t> parseTypedInt(const QString& text, const QLocale& locale = QLocale());

} // namespace stagewright::stepper
