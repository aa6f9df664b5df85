#include "NameLists.h"

#include <algorithm>

namespace tessaro {

namespace {

std::string_view trimmed(std::string_view name)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!name.empty() && blank(name.front()))
        name.remove_prefix(1);
    while (!name.empty() && blank(name.back()))
        name.remove_suffix(1);
    return name;
}

void addOnce(std::vector<std::string>& names, std::string_view name)
{
    name = trimmed(name);
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
        names.emplace_back(name);
}

} // namespace

std::vector<std::string> trimmedNamesFromText(std::string_view text)
{
    std::vector<std::string> names;
    while (true) {
        const std::size_t comma = text.find(',');
        addOnce(names, text.substr(0, comma));
        if (comma == std::string_view::npos)
            return names;
        text.remove_prefix(comma + 1);
    }
}

std::string textFromNames(const std::vector<std::string>& names)
{
    std::vector<std::string> once;
    for (const std::string& name : names)
        addOnce(once, name);
    return joinedNames(once, ',');
}

std::string joinedNames(const std::vector<std::string>& names, char separator)
{
    std::string text;
    for (const std::string& name : names) {
        if (!text.empty())
            text += separator;
        text += name;
    }
    return text;
}

} // namespace tessaro
