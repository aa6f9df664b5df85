#include "PropertyValue.h"

#include <tessaro/model/ValueText.h>

#include <cmath>

namespace stagewright {

std::optional<double> numberOf(const PropertyValue& value)
{
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return double(*whole);
    return std::nullopt;
}

std::optional<std::int64_t> integerOf(const PropertyValue& value)
{
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return *whole;
    if (const auto* number = std::get_if<double>(&value); number && std::isfinite(*number))
        return std::int64_t(std::trunc(*number));
    return std::nullopt;
}

std::optional<bool> flagOf(const PropertyValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    return std::nullopt;
}

std::optional<std::string> textOf(const PropertyValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    return std::nullopt;
}

std::optional<std::vector<std::string>> listOf(const PropertyValue& value)
{
    if (const auto* list = std::get_if<std::vector<std::string>>(&value))
        return *list;
    if (const auto* text = std::get_if<std::string>(&value))
        return std::vector<std::string>{*text};
    return std::nullopt;
}

std::optional<tessaro::PointValue> pointOf(const PropertyValue& value)
{
    if (const auto* point = std::get_if<tessaro::PointValue>(&value))
        return *point;
    return std::nullopt;
}

std::optional<tessaro::SizeValue> sizeOf(const PropertyValue& value)
{
    if (const auto* size = std::get_if<tessaro::SizeValue>(&value))
        return *size;
    return std::nullopt;
}

std::string describe(const PropertyValue& value)
{
    struct Describe {
        std::string operator()(std::monostate) const { return "none"; }
        std::string operator()(bool flag) const { return flag ? "true" : "false"; }
        std::string operator()(std::int64_t whole) const { return std::to_string(whole); }
        std::string operator()(double number) const { return tessaro::numberText(number); }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(const std::vector<std::string>& list) const { return tessaro::textFromList(list); }
        std::string operator()(tessaro::PointValue point) const { return tessaro::textFromPoint(point); }
        std::string operator()(tessaro::SizeValue size) const { return tessaro::textFromSize(size); }
        std::string operator()(const tessaro::Uuid& id) const { return id.text(); }
        std::string operator()(const tessaro::PhysicsProperty&) const { return "physics"; }
        std::string operator()(const RangeBoundValue& bound) const
        {
            return std::to_string(bound.index) + ": " + tessaro::textFromRange({bound.lower, bound.upper});
        }
    };
    return std::visit(Describe{}, value);
}

} // namespace stagewright
