#pragma once

#include <string>
#include <vector>

namespace stagewright::cli {

/// lint WORKSPACE PROJECT [--json]: checks a project against its workspace
/// and prints the findings. 0 when there are none, 1 when there are, 2 when
/// the workspace or a file cannot be read (one line on stderr says why).
int lintCommand(const std::vector<std::string>& args);

} // namespace stagewright::cli
