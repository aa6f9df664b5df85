#pragma once

#include <string>
#include <vector>

namespace stagewright::cli {

/// check FILE [--kind K]: decodes a file and prints a summary. 0 when it decodes.
int checkCommand(const std::vector<std::string>& args);

/// convert FILE OUT [--binary|--xml] [--kind K]: re-encodes a file.
int convertCommand(const std::vector<std::string>& args);

} // namespace stagewright::cli
