// Whether a value text reads as the form its field holds.
//
// The readers of the model never fail: a point that does not parse reads as
// (0,0), an unknown case name is skipped. These checks take the readers' own
// steps and say what is wrong instead, so a tool can find such texts before a
// game quietly reads them as defaults.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stagewright::cli {

/// Why a text does not read as its form; nothing when it does.
using ValueProblem = std::optional<std::string>;

/// A point, size or vector: "{x,y}", blanks allowed.
ValueProblem pairTextProblem(std::string_view text);
/// "lower...upper", with or without angle brackets; upper not below lower.
ValueProblem rangeTextProblem(std::string_view text);
/// "{<a...b>,<c...d>}": two ranges.
ValueProblem randomPositionTextProblem(std::string_view text);
/// "fill", "aspectFill", "aspectFit" or "resizeFill", in any letter case.
ValueProblem scaleModeTextProblem(std::string_view text);
/// A comma list of frame indexes ("0,2,3"); empty means no frame.
ValueProblem frameListTextProblem(std::string_view text);

/// The name an enumeration goes by in messages.
template <class E>
inline constexpr std::string_view enumerationName = "enumeration";
// clang-format off
template <> inline constexpr std::string_view enumerationName<tessaro::deviceName> = "deviceName";
template <> inline constexpr std::string_view enumerationName<tessaro::collisionTypes> = "collisionTypes";
template <> inline constexpr std::string_view enumerationName<tessaro::sceneObjectType> = "sceneObjectType";
template <> inline constexpr std::string_view enumerationName<tessaro::objectClassType> = "objectClassType";
template <> inline constexpr std::string_view enumerationName<tessaro::actionType> = "actionType";
template <> inline constexpr std::string_view enumerationName<tessaro::animationFrequency> = "animationFrequency";
template <> inline constexpr std::string_view enumerationName<tessaro::animationMoveDirection> = "animationMoveDirection";
template <> inline constexpr std::string_view enumerationName<tessaro::characterClassType> = "characterClassType";
template <> inline constexpr std::string_view enumerationName<tessaro::characterType> = "characterType";
template <> inline constexpr std::string_view enumerationName<tessaro::groundBaseType> = "groundBaseType";
template <> inline constexpr std::string_view enumerationName<tessaro::groundPhysicsAngleType> = "groundPhysicsAngleType";
template <> inline constexpr std::string_view enumerationName<tessaro::imageType> = "imageType";
template <> inline constexpr std::string_view enumerationName<tessaro::pathDirection> = "pathDirection";
template <> inline constexpr std::string_view enumerationName<tessaro::projectileType> = "projectileType";
template <> inline constexpr std::string_view enumerationName<tessaro::rotationType> = "rotationType";
template <> inline constexpr std::string_view enumerationName<tessaro::sceneOrientationType> = "sceneOrientationType";
template <> inline constexpr std::string_view enumerationName<tessaro::scrollOrientationType> = "scrollOrientationType";
template <> inline constexpr std::string_view enumerationName<tessaro::siblingType> = "siblingType";
template <> inline constexpr std::string_view enumerationName<tessaro::soundBiteType> = "soundBiteType";
template <> inline constexpr std::string_view enumerationName<tessaro::soundType> = "soundType";
template <> inline constexpr std::string_view enumerationName<tessaro::windowItemType> = "windowItemType";
// clang-format on

namespace detail {
/// The pieces of a comma list without the empty ones, blanks trimmed, as the
/// list readers take them.
std::vector<std::string_view> trimmedListPieces(std::string_view text);
std::string quoted(std::string_view text);
} // namespace detail

/// One case name, compared exactly.
template <tessaro::Enumeration E>
ValueProblem caseTextProblem(std::string_view text)
{
    if (tessaro::caseFromText<E>(text))
        return std::nullopt;
    return "not a case of " + std::string(enumerationName<E>);
}

/// Case names joined by ","; blanks round a name are allowed, and a list
/// with no name is empty, not wrong.
template <tessaro::Enumeration E>
ValueProblem caseListTextProblem(std::string_view text)
{
    std::vector<std::string_view> unknown;
    for (std::string_view piece : detail::trimmedListPieces(text))
        if (!tessaro::caseFromText<E>(piece))
            unknown.push_back(piece);
    if (unknown.empty())
        return std::nullopt;
    std::string names;
    for (std::string_view name : unknown)
        names += (names.empty() ? "" : ", ") + detail::quoted(name);
    return names + (unknown.size() == 1 ? " is not a case of " : " are not cases of ") +
        std::string(enumerationName<E>);
}

} // namespace stagewright::cli
