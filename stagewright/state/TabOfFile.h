// One tab per project file: the open tab of a file, so that opening or
// recovering a file that is open shows that tab instead of a second one whose
// saves would overwrite the first's.
#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace stagewright {

class ProjectTab;

/// The tab whose file is `path` (the same file however the path is written),
/// or null.
std::shared_ptr<ProjectTab> tabOfFile(const std::vector<std::shared_ptr<ProjectTab>>& tabs, const QString& path);

} // namespace stagewright
