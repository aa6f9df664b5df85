// The files under tests/data: a small hand-checked workspace, what saving its
// project must give, and broken inputs.
#pragma once

#include <string>

namespace testing_support {

/// The path of `relative` under tests/data.
inline std::string dataFile(const std::string& relative)
{
    return std::string(TESSARO_TEST_DATA_DIR) + "/" + relative;
}

} // namespace testing_support
