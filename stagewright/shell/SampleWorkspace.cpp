#include "SampleWorkspace.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/Diagnostics.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <mutex>

static void registerSampleResources()
{
    Q_INIT_RESOURCE(sample);
}

namespace stagewright {

QString sampleProjectsRoot()
{
    static std::once_flag once;
    std::call_once(once, registerSampleResources);
    return QStringLiteral(":/stagewright/sample/Levels/");
}

QString sampleProjectFileName()
{
    return QStringLiteral("Sample.plist");
}

QStringList installSampleProjects(const QString& workspace, PermissionManager& gate)
{
    QStringList installed;
    const QString root = sampleProjectsRoot();
    const QString target = levelsFolder(withTrailingSlash(workspace));
    gate.withAccess(withTrailingSlash(workspace), [&] {
        if (!QDir().mkpath(target))
            return;
        for (const QString& name : QDir(root).entryList(QDir::Files, QDir::Name)) {
            const QString destination = target + name;
            if (QFileInfo::exists(destination))
                continue;
            if (!QFile::copy(root + name, destination)) {
                tessaro::diagnostic(("error: the sample " + destination + " could not be written").toStdString());
                continue;
            }
            // Files copied from the resources are read-only.
            QFile::setPermissions(destination,
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
            installed << destination;
        }
    });
    return installed;
}

} // namespace stagewright
