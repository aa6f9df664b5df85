#include "StepperRules.h"

#include <tessaro/model/ValueText.h>

#include <cmath>
#include <vector>

namespace stagewright::stepper {

using tessaro::RangeValue;
using tessaro::SizeValue;

bool inRange(double value, RangeValue range)
{
    return value >= range.lower && value <= range.upper;
}

int placesOf(std::optional<int> roundedPlaces)
{
    return roundedPlaces.value_or(1);
}

ButtonsEnabled floatButtons(double value, RangeValue range, int places)
{
    const double rounded = tessaro::roundedValue(value, places);
    return {rounded > range.lower, range.upper > rounded};
}

double floatMinus(double value, RangeValue range, double step)
{
    return value > range.lower ? value - step : value;
}

double floatPlus(double value, RangeValue range, double step)
{
    return value < range.upper ? value + step : value;
}

double acceptedFloat(double typed, double old, RangeValue range)
{
    return inRange(typed, range) ? typed : old;
}

ButtonsEnabled intButtons(std::int64_t value, std::int64_t lower, std::int64_t upper)
{
    return {value > lower, upper > value};
}

std::int64_t intMinus(std::int64_t value, std::int64_t lower, std::int64_t step)
{
    return value > lower ? value - step : value;
}

std::int64_t intPlus(std::int64_t value, std::int64_t upper, std::int64_t step)
{
    return value < upper ? value + step : value;
}

RangeButtonsEnabled rangeButtons(RangeValue bounds, RangeValue range)
{
    RangeButtonsEnabled enabled;
    enabled.lowerMinus = !(bounds.lower <= range.lower);
    enabled.lowerPlus = !(bounds.upper >= range.upper || bounds.upper <= bounds.lower);
    enabled.upperMinus = !(bounds.upper <= bounds.lower);
    enabled.upperPlus = !(bounds.upper >= range.upper);
    return enabled;
}

RangeValue pressRange(RangeValue bounds, RangeValue range, RangeButton button)
{
    switch (button) {
    case RangeButton::lowerMinus:
        if (bounds.lower > range.lower)
            bounds.lower -= 1;
        break;
    case RangeButton::lowerPlus:
        if (bounds.lower < bounds.upper)
            bounds.lower += 1;
        break;
    case RangeButton::upperMinus:
        if (bounds.lower < bounds.upper)
            bounds.upper -= 1;
        break;
    case RangeButton::upperPlus:
        if (bounds.upper >= range.lower)
            bounds.upper += 1;
        break;
    }
    return bounds;
}

RangeValue escapeUpper(RangeValue bounds)
{
    bounds.upper = bounds.lower;
    return bounds;
}

ButtonsEnabled coordinateButtons(double value, RangeValue range)
{
    return {!(value <= range.lower), !(value >= range.upper)};
}

double aspectRatioOf(SizeValue size)
{
    const double height = size.height == 0 ? 1 : size.height;
    const double ratio = size.width / height;
    return ratio == 0 ? 1 : ratio;
}

SizeValue withWidth(SizeValue size, double width, bool keepRatio, double ratio)
{
    size.width = width;
    if (keepRatio)
        size.height = width / ratio;
    return size;
}

SizeValue withHeight(SizeValue size, double height, bool keepRatio, double ratio)
{
    size.height = height;
    if (keepRatio)
        size.width = height * ratio;
    return size;
}

PointRange pointRangeFromText(std::string_view text)
{
    std::string cleaned;
    for (char c : text)
        if (c != '{' && c != '}' && c != ' ' && c != '\t' && c != '\n')
            cleaned += c;
    std::vector<std::string> pieces;
    std::size_t start = 0;
    while (start <= cleaned.size()) {
        const std::size_t comma = std::min(cleaned.find(',', start), cleaned.size());
        if (comma > start)
            pieces.push_back(cleaned.substr(start, comma - start));
        start = comma + 1;
    }
    PointRange bounds;
    if (!pieces.empty())
        bounds.x = tessaro::rangeFromText(pieces[0]);
    if (pieces.size() > 1)
        bounds.y = tessaro::rangeFromText(pieces[1]);
    return bounds;
}

std::string pointRangeText(const PointRange& bounds)
{
    using tessaro::numberText;
    return "{<" + numberText(bounds.x.lower) + "..." + numberText(bounds.x.upper) + ">,<" + numberText(bounds.y.lower) +
        "..." + numberText(bounds.y.upper) + ">}";
}

namespace {

QLocale ungrouped(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale;
}

/// -0 shows as 0.
double shown(double value)
{
    return value == 0 ? 0 : value;
}

} // namespace

QString floatText(double value, int places, const QLocale& locale)
{
    return locale.toString(shown(value), 'f', std::max(0, places));
}

QString intText(std::int64_t value, const QLocale& locale)
{
    return locale.toString(qlonglong(value));
}

QString plainText(double value, int maxFraction, const QLocale& locale)
{
    const QLocale plain = ungrouped(locale);
    QString text = plain.toString(shown(value), 'f', std::max(0, maxFraction));
    const QString point = plain.decimalPoint();
    if (maxFraction > 0 && text.contains(point)) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(point))
            text.chop(point.size());
    }
    if (text == QLatin1String("-0"))
        text = QStringLiteral("0");
    return text;
}

QString fixedText(double value, int fraction, const QLocale& locale)
{
    return ungrouped(locale).toString(shown(value), 'f', std::max(0, fraction));
}

std::optional<double> parseTyped(const QString& text, const QLocale& locale)
{
    const QString trimmed = text.trimmed();
    bool ok = false;
    double value = locale.toDouble(trimmed, &ok);
    if (!ok)
        value = QLocale::c().toDouble(trimmed, &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::int64_t> parseTypedInt(const QString& text, const QLocale& locale)
{
    const std::optional<double> value = parseTyped(text, locale);
    if (!value || std::fabs(*value) > 9.0e18)
        return std::nullopt;
    return std::int64_t(std::llround(*value));
}

} // namespace stagewright::stepper
