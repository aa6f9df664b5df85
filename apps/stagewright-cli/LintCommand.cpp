#include "LintCommand.h"

#include "LintOutput.h"
#include "ProjectLint.h"

#include <algorithm>
#include <cstdio>

namespace stagewright::cli {

int lintCommand(const std::vector<std::string>& args)
{
    std::vector<std::string> positional;
    bool json = false;
    bool known = true;
    for (const std::string& arg : args) {
        if (arg == "--json")
            json = true;
        else if (arg.rfind("--", 0) == 0)
            known = false;
        else
            positional.push_back(arg);
    }
    if (!known || positional.size() != 2) {
        std::fputs("usage: stagewright-cli lint WORKSPACE PROJECT [--json]\n", stderr);
        return 2;
    }

    const LintRun run = lintProject(positional[0], positional[1]);
    if (!run.ok) {
        // One line, whatever the reader's message holds.
        std::string line = run.error;
        std::replace(line.begin(), line.end(), '\n', ' ');
        std::fprintf(stderr, "stagewright-cli lint: %s\n", line.c_str());
        return 2;
    }
    const std::string report = json ? lintReportJson(run) : lintReportText(run);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return run.findings.empty() ? 0 : 1;
}

} // namespace stagewright::cli
