#include "ValueTextCheck.h"

#include <tessaro/model/ValueText.h>

namespace stagewright::cli {

namespace {

ValueProblem numberProblem(std::string_view piece)
{
    // Commas inside a number are thousands separators to the readers.
    if (tessaro::parseNumber(tessaro::withoutChars(piece, ",")))
        return std::nullopt;
    return detail::quoted(piece) + " is not a number";
}

std::string partsText(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " part" : " parts");
}

} // namespace

namespace detail {

std::vector<std::string_view> trimmedListPieces(std::string_view text)
{
    std::vector<std::string_view> pieces = tessaro::splitNonEmpty(text, ",");
    for (std::string_view& piece : pieces) {
        while (!piece.empty() && (piece.front() == ' ' || piece.front() == '\t'))
            piece.remove_prefix(1);
        while (!piece.empty() && (piece.back() == ' ' || piece.back() == '\t'))
            piece.remove_suffix(1);
    }
    return pieces;
}

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

} // namespace detail

ValueProblem pairTextProblem(std::string_view text)
{
    const std::string cleaned = tessaro::withoutChars(text, "{} ");
    const auto pieces = tessaro::splitNonEmpty(cleaned, ",");
    if (pieces.size() != 2)
        return "needs two numbers \"{x,y}\", has " + partsText(pieces.size());
    for (std::string_view piece : pieces)
        if (ValueProblem problem = numberProblem(piece))
            return problem;
    return std::nullopt;
}

ValueProblem rangeTextProblem(std::string_view text)
{
    const std::string cleaned = tessaro::withoutChars(text, "<>");
    const auto pieces = tessaro::splitNonEmpty(cleaned, "...");
    if (pieces.size() != 2)
        return "needs a range \"lower...upper\", has " + partsText(pieces.size());
    for (std::string_view piece : pieces)
        if (ValueProblem problem = numberProblem(piece))
            return problem;
    const auto lower = tessaro::parseNumber(tessaro::withoutChars(pieces[0], ","));
    const auto upper = tessaro::parseNumber(tessaro::withoutChars(pieces[1], ","));
    if (*upper < *lower)
        return "the upper bound is below the lower bound";
    return std::nullopt;
}

ValueProblem randomPositionTextProblem(std::string_view text)
{
    const std::string cleaned = tessaro::withoutChars(text, "{} ");
    const auto pieces = tessaro::splitNonEmpty(cleaned, ",");
    if (pieces.size() != 2)
        return "needs two ranges \"{<a...b>,<c...d>}\", has " + partsText(pieces.size());
    for (std::string_view piece : pieces)
        if (ValueProblem problem = rangeTextProblem(piece))
            return problem;
    return std::nullopt;
}

ValueProblem scaleModeTextProblem(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    if (lower == "fill" || lower == "aspectfill" || lower == "aspectfit" || lower == "resizefill")
        return std::nullopt;
    return "not a scale mode (fill, aspectFill, aspectFit, resizeFill)";
}

ValueProblem frameListTextProblem(std::string_view text)
{
    // A shape serves a frame when a piece equals the frame's number as
    // written, so a piece with anything but digits serves none.
    for (const std::string& piece : tessaro::namesFromText(text))
        if (piece.empty() || piece.find_first_not_of("0123456789") != std::string::npos)
            return detail::quoted(piece) + " is not a frame number";
    return std::nullopt;
}

} // namespace stagewright::cli
