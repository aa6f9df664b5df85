#include "ValueText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>

namespace tessaro {

namespace {

std::string_view trimBlanks(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t'))
        s.remove_suffix(1);
    return s;
}

std::optional<double> numberWithoutCommas(std::string_view piece)
{
    if (piece.find(',') == std::string_view::npos)
        return parseNumber(piece);
    return parseNumber(withoutChars(piece, ","));
}

std::mt19937_64& randomEngine()
{
    thread_local std::mt19937_64 engine{std::random_device{}()};
    return engine;
}

// Uniform in [lower, upper], both ends reachable.
double drawFrom(RangeValue range)
{
    if (range.upper <= range.lower)
        return range.lower;
    const std::uint64_t bits = randomEngine()() >> 11; // 53 random bits
    const double fraction = static_cast<double>(bits) / static_cast<double>((std::uint64_t{1} << 53) - 1);
    return range.lower + (range.upper - range.lower) * fraction;
}

} // namespace

std::string withoutChars(std::string_view text, std::string_view remove)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (remove.find(c) == std::string_view::npos)
            out += c;
    return out;
}

std::vector<std::string_view> splitNonEmpty(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos)
            end = text.size();
        if (end > start)
            pieces.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    return pieces;
}

std::string numberText(double value)
{
    char buffer[64];
    const double magnitude = std::fabs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16);
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific);
    std::string text(buffer, ec == std::errc{} ? end : buffer);
    if (std::isfinite(value) && text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

std::string textFromPair(double first, double second)
{
    std::string text = "{";
    text += numberText(first);
    text += ',';
    text += numberText(second);
    text += '}';
    return text;
}

std::string textFromRange(RangeValue r)
{
    return numberText(r.lower) + "..." + numberText(r.upper);
}

std::optional<double> parseNumber(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    bool negative = false;
    std::string_view digits = text;
    if (digits.front() == '+' || digits.front() == '-') {
        negative = digits.front() == '-';
        digits.remove_prefix(1);
        if (digits.empty() || digits.front() == '+' || digits.front() == '-')
            return std::nullopt;
    }
    double value = 0;
    auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (end != digits.data() + digits.size())
        return std::nullopt;
    if (ec == std::errc::result_out_of_range) {
        // Too large becomes infinity, too small becomes zero.
        const auto e = digits.find_first_of("eE");
        const bool tiny = e != std::string_view::npos && e + 1 < digits.size() && digits[e + 1] == '-';
        value = tiny ? 0.0 : HUGE_VAL;
    } else if (ec != std::errc{}) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

PointValue pointFromText(std::string_view text)
{
    const std::string cleaned = withoutChars(text, "{} ");
    const auto pieces = splitNonEmpty(cleaned, ",");
    if (pieces.size() != 2)
        return {};
    return {numberWithoutCommas(pieces[0]).value_or(0), numberWithoutCommas(pieces[1]).value_or(0)};
}

SizeValue sizeFromText(std::string_view text)
{
    const PointValue p = pointFromText(text);
    return {p.x, p.y};
}

double roundedValue(double value, int places)
{
    const double scale = std::pow(10.0, places);
    return std::round(value * scale) / scale;
}

PointValue roundedPointFromText(int places, std::string_view text)
{
    const PointValue p = pointFromText(text);
    return {roundedValue(p.x, places), roundedValue(p.y, places)};
}

RangeValue rangeFromText(std::string_view text)
{
    const std::string cleaned = withoutChars(text, "<>");
    const auto pieces = splitNonEmpty(cleaned, "...");
    if (pieces.size() != 2)
        return {};
    const auto lower = numberWithoutCommas(pieces[0]);
    const auto upper = numberWithoutCommas(pieces[1]);
    if (!lower || !upper || *upper < *lower)
        return {};
    return {*lower, *upper};
}

PointValue randomPointFromText(int places, std::string_view text)
{
    const std::string cleaned = withoutChars(text, "{} ");
    const auto pieces = splitNonEmpty(cleaned, ",");
    if (pieces.size() != 2)
        return {};
    const double x = drawFrom(rangeFromText(pieces[0]));
    const double y = drawFrom(rangeFromText(pieces[1]));
    return {roundedValue(x, places), roundedValue(y, places)};
}

double numberFromText(int places, std::string_view text)
{
    return roundedValue(parseNumber(text).value_or(0), places);
}

template <Enumeration E>
std::vector<E> listFromText(std::string_view text)
{
    std::vector<E> cases;
    for (std::string_view piece : splitNonEmpty(text, ",")) {
        // A case named twice counts once, so a list read and written back
        // never repeats a name.
        if (auto c = caseFromText<E>(trimBlanks(piece)); c && std::find(cases.begin(), cases.end(), *c) == cases.end())
            cases.push_back(*c);
    }
    if constexpr (std::is_same_v<E, groundPhysicsAngleType> || std::is_same_v<E, objectClassType>) {
        if (cases.empty())
            cases.push_back(E::none);
    }
    return cases;
}

template std::vector<deviceName> listFromText<deviceName>(std::string_view);
template std::vector<groundPhysicsAngleType> listFromText<groundPhysicsAngleType>(std::string_view);
template std::vector<objectClassType> listFromText<objectClassType>(std::string_view);
template std::vector<collisionTypes> listFromText<collisionTypes>(std::string_view);
template std::vector<actionType> listFromText<actionType>(std::string_view);
template std::vector<DebugOption> listFromText<DebugOption>(std::string_view);

std::string textFromList(const std::vector<std::string>& texts)
{
    std::string out;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i)
            out += ',';
        out += texts[i];
    }
    return out;
}

std::uint32_t maskFromText(std::string_view text)
{
    std::uint32_t mask = 0;
    for (std::string_view piece : splitNonEmpty(text, ",")) {
        if (auto c = caseFromText<collisionTypes>(trimBlanks(piece)))
            mask |= collisionBit(*c);
    }
    return mask;
}

std::vector<std::string> namesFromText(std::string_view text)
{
    std::vector<std::string> names;
    if (text.empty())
        return names;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(',', start);
        names.emplace_back(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
    return names;
}

int scaleModeFromText(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    if (lower == "fill")
        return 0;
    if (lower == "aspectfit")
        return 2;
    if (lower == "resizefill")
        return 3;
    return 1;
}

std::string scaleModeText(int mode)
{
    switch (mode) {
    case 0: return "fill";
    case 1: return "aspectFill";
    case 2: return "aspectFit";
    case 3: return "resizeFill";
    default: return "unknown";
    }
}

std::string timeText(int seconds)
{
    char buffer[48];
    if (seconds < 3600)
        std::snprintf(buffer, sizeof buffer, "%02i:%02i", seconds / 60 % 60, seconds % 60);
    else
        std::snprintf(buffer, sizeof buffer, "%02i:%02i:%02i", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return buffer;
}

bool deviceListHolds(std::string_view deviceNames, deviceName device)
{
    const std::string_view raw = deviceRawText(device);
    for (std::string_view piece : splitNonEmpty(deviceNames, ",")) {
        if (auto c = caseFromText<deviceName>(trimBlanks(piece)); c && deviceRawText(*c) == raw)
            return true;
    }
    return false;
}

} // namespace tessaro
