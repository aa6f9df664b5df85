#include "ProjectReload.h"

#include "PermissionManager.h"
#include "ProjectTab.h"
#include "StateDiagnostics.h"

#include <tessaro/model/LevelFiles.h>

namespace stagewright {

bool reloadProjectFromDisk(PermissionManager& gate, ProjectTab& tab)
{
    if (!tab.filePath())
        return false;
    const QString path = *tab.filePath();
    tessaro::LevelsReadResult read;
    gate.withAccess(path, [&] { read = tessaro::readLevels(path.toStdString()); });
    if (!read.ok || read.levels.empty()) {
        diagnosticLine(QStringLiteral("Not reloaded: ") + path +
                       QStringLiteral(" cannot be read as a project now; the open project is kept."));
        return false;
    }
    tessaro::normaliseOpenedLevels(read.levels);
    tab.replaceLevels(std::move(read.levels));
    tab.setUnreadableFile(std::nullopt);
    diagnosticLine(QStringLiteral("Reloaded: ") + path);
    return true;
}

} // namespace stagewright
