// Checking a project against its workspace, for build pipelines: elements
// whose catalogue entry is missing, images and sounds the workspace lacks,
// names that would lead out of their folder, value texts that do not read as
// their form, and levels without ground or without an end window. Nothing is
// written; the findings are plain values a caller prints or tests.
#pragma once

#include "WorkspaceFiles.h"

#include <tessaro/model/LevelRecords.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace stagewright::cli {

enum class LintKind { missingEntry, missingImage, missingSound, escapingName, badValue, noGround, noLevelEnd };

/// "missing-entry", "missing-image", "missing-sound", "escaping-name",
/// "bad-value", "no-ground", "no-level-end".
std::string_view lintKindText(LintKind kind);

struct LintFinding {
    std::size_t level = 0; // from 1
    LintKind kind = LintKind::badValue;
    std::string item; // "obstacle \"Crate 3\"", "ground section 2", "level", ...
    std::string problem;

    bool operator==(const LintFinding&) const = default;
};

/// The three catalogues of a workspace, as read from its files.
struct LintCatalogues {
    std::vector<tessaro::GenericObject> objects;
    std::vector<tessaro::Character> characters;
    std::vector<tessaro::Obstacle> obstacles;
};

/// The findings of every level, level by level.
std::vector<LintFinding> lintLevels(const std::vector<tessaro::Level>& levels, const LintCatalogues& catalogues,
                                    WorkspaceFiles& files);

struct LintRun {
    bool ok = false; // false when the workspace or a file could not be read
    std::string error; // one line saying which and why, when not ok
    std::size_t levelCount = 0;
    std::vector<LintFinding> findings;
};

/// Reads the project and the workspace's catalogues and checks every level.
LintRun lintProject(const std::string& workspace, const std::string& project);

} // namespace stagewright::cli
