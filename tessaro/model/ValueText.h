// Conversions between the value texts of the files and their values.
//
// No conversion reports an error: bad text yields a default value, and the
// stored text stays as it was.
#pragma once

#include "Enumerations.h"
#include "Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

/// Shortest round-trip text of a number; a whole number keeps ".0".
std::string numberText(double value);

/// "{x,y}": the text of a point, size or vector.
std::string textFromPair(double first, double second);
inline std::string textFromPoint(PointValue p)
{
    return textFromPair(p.x, p.y);
}
inline std::string textFromSize(SizeValue s)
{
    return textFromPair(s.width, s.height);
}
/// "lower...upper".
std::string textFromRange(RangeValue r);

/// `text` without any of the characters in `remove`.
std::string withoutChars(std::string_view text, std::string_view remove);
/// The pieces of `text` between occurrences of `separator`, empty ones dropped.
std::vector<std::string_view> splitNonEmpty(std::string_view text, std::string_view separator);

/// A whole text read as a number, or nothing ("12", "-3.5", "1e3", "inf").
std::optional<double> parseNumber(std::string_view text);

PointValue pointFromText(std::string_view text);
SizeValue sizeFromText(std::string_view text);
PointValue roundedPointFromText(int places, std::string_view text);
/// A point drawn uniformly from "{<a...b>,<c...d>}"; (0,0) on bad text.
PointValue randomPointFromText(int places, std::string_view text);
RangeValue rangeFromText(std::string_view text);
double numberFromText(int places, std::string_view text);
/// Rounds to `places` decimals; halves go away from zero.
double roundedValue(double value, int places);

/// Cases of `E` named in a comma list. Blanks round a name are ignored and a
/// name that matches no case is skipped. An empty result becomes [none] for
/// ground physics angles and object classes.
template <Enumeration E>
std::vector<E> listFromText(std::string_view text);

/// Case names (or texts) joined by "," with no blank.
template <Enumeration E>
std::string textFromList(const std::vector<E>& cases)
{
    std::string out;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        if (i)
            out += ',';
        out += caseText(cases[i]);
    }
    return out;
}
std::string textFromList(const std::vector<std::string>& texts);

/// The union of the bits of the `collisionTypes` named in a comma list.
std::uint32_t maskFromText(std::string_view text);

/// The pieces of a comma list, untrimmed; empty text gives no pieces.
std::vector<std::string> namesFromText(std::string_view text);

/// 0 fill, 1 aspectFill, 2 aspectFit, 3 resizeFill; anything else 1.
int scaleModeFromText(std::string_view text);
/// "fill", "aspectFill", "aspectFit", "resizeFill" or "unknown".
std::string scaleModeText(int mode);

/// "mm:ss" below an hour, "hh:mm:ss" from an hour on.
std::string timeText(int seconds);

/// Whether a comma list of device names holds `device`, compared by raw text.
bool deviceListHolds(std::string_view deviceNames, deviceName device);

} // namespace tessaro
