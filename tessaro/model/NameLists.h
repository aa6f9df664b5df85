// Comma lists of names (image names, case names of a cycle end's classes and
// masks), read and written the way the game reads them: blanks round a name
// do not count, an empty piece names nothing, and a name counts once.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

/// The names of a comma list, blanks trimmed, empty pieces and repeats left
/// out, in their order: " floor, enemyTouch,,floor" gives [floor, enemyTouch].
std::vector<std::string> trimmedNamesFromText(std::string_view text);

/// The names joined by "," with no blank, each once, empty ones left out.
std::string textFromNames(const std::vector<std::string>& names);
/// The names in their order, `separator` between two.
std::string joinedNames(const std::vector<std::string>& names, char separator);

} // namespace tessaro
