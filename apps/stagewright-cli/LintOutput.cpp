#include "LintOutput.h"

#include <cstdio>
#include <iterator>
#include <set>

namespace stagewright::cli {

namespace {

constexpr LintKind allKinds[] = {LintKind::missingEntry, LintKind::missingImage, LintKind::missingSound,
                                 LintKind::escapingName, LintKind::badValue,     LintKind::noGround,
                                 LintKind::noLevelEnd};

std::size_t levelsWithFindings(const LintRun& run)
{
    std::set<std::size_t> levels;
    for (const LintFinding& finding : run.findings)
        levels.insert(finding.level);
    return levels.size();
}

std::string jsonString(std::string_view text)
{
    std::string out = "\"";
    for (char c : text) {
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                out += escaped;
            } else {
                out += c;
            }
        }
    }
    return out + "\"";
}

std::string plural(std::size_t count, const char* word)
{
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

} // namespace

std::string lintReportText(const LintRun& run)
{
    std::string out;
    for (const LintFinding& finding : run.findings) {
        out += "level " + std::to_string(finding.level) + ": " + std::string(lintKindText(finding.kind)) + ": " +
            finding.item + ": " + finding.problem + "\n";
    }
    if (run.findings.empty())
        out += "lint: no findings in " + plural(run.levelCount, "level") + "\n";
    else
        out += "lint: " + plural(run.findings.size(), "finding") + " in " + std::to_string(levelsWithFindings(run)) +
            " of " + plural(run.levelCount, "level") + "\n";
    return out;
}

std::string lintReportJson(const LintRun& run)
{
    std::string out = "{\n  \"findings\": [";
    for (std::size_t i = 0; i < run.findings.size(); ++i) {
        const LintFinding& finding = run.findings[i];
        out += i ? ",\n    " : "\n    ";
        out += "{\"level\": " + std::to_string(finding.level) +
            ", \"kind\": " + jsonString(lintKindText(finding.kind)) + ", \"item\": " + jsonString(finding.item) +
            ", \"problem\": " + jsonString(finding.problem) + "}";
    }
    out += run.findings.empty() ? "],\n" : "\n  ],\n";
    out += "  \"summary\": {\"levels\": " + std::to_string(run.levelCount) +
        ", \"levelsWithFindings\": " + std::to_string(levelsWithFindings(run)) +
        ", \"findings\": " + std::to_string(run.findings.size()) + ", \"byKind\": {";
    for (std::size_t k = 0; k < std::size(allKinds); ++k) {
        std::size_t count = 0;
        for (const LintFinding& finding : run.findings)
            count += finding.kind == allKinds[k];
        out += (k ? ", " : "") + jsonString(lintKindText(allKinds[k])) + ": " + std::to_string(count);
    }
    return out + "}}\n}\n";
}

} // namespace stagewright::cli
