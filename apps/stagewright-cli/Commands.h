#pragma once

#include <string>
#include <vector>

namespace stagewright::cli {

/// Runs one verb with its arguments; returns the exit code.
int run(const std::vector<std::string>& args);

} // namespace stagewright::cli
