#include "TabOfFile.h"

#include "ProjectTab.h"

#include <QFileInfo>

namespace stagewright {

namespace {

/// The path with links resolved when the file is there, else made absolute.
QString sameFileKey(const QString& path)
{
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

} // namespace

std::shared_ptr<ProjectTab> tabOfFile(const std::vector<std::shared_ptr<ProjectTab>>& tabs, const QString& path)
{
    if (path.isEmpty())
        return nullptr;
    const QString key = sameFileKey(path);
    for (const std::shared_ptr<ProjectTab>& tab : tabs)
        if (tab->filePath() && sameFileKey(*tab->filePath()) == key)
            return tab;
    return nullptr;
}

} // namespace stagewright
