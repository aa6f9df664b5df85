// The findings of a lint run as people read them and as tools read them.
#pragma once

#include "ProjectLint.h"

#include <string>

namespace stagewright::cli {

/// One line per finding, "level N: kind: item: problem", then a summary line.
std::string lintReportText(const LintRun& run);

/// {"findings": [{"level", "kind", "item", "problem"}, ...], "summary": {"levels",
/// "levelsWithFindings", "findings", "byKind": {kind: count, ...}}}, every kind
/// counted, none left out.
std::string lintReportJson(const LintRun& run);

} // namespace stagewright::cli
