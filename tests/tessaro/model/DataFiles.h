// The files under tests/data: a small hand-checked workspace, what saving its
// project must give, and broken inputs.
#pragma once

#include <string>

namespace testing_support {

/// The path of `relative` under tests/data.
inline std::string dataFile(const std::string& relative)
{
    // Appended in place: GCC 12 warns, wrongly, on a temporary joined to a literal.
    std::string path = TESSARO_TEST_DATA_DIR;
    path.reserve(path.size() + 1 + relative.size());
    path += '/';
    path += relative;
    return path;
}

} // namespace testing_support
