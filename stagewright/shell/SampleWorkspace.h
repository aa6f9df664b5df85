// The sample project the application carries: a few levels made from the
// seed catalogues and images, put into the levels folder of a new default
// workspace so that a first start shows a real level.
#pragma once

#include <QString>
#include <QStringList>

namespace stagewright {

class PermissionManager;

/// The folder of the sample projects in the resources, ending in "/".
QString sampleProjectsRoot();
/// The file name of the main sample project.
QString sampleProjectFileName(); // "Sample.plist"

/// Copies every sample project into "Levels/" of `workspace` where no file of
/// that name is; a user's file is never replaced. The paths of the files
/// copied.
QStringList installSampleProjects(const QString& workspace, PermissionManager& gate);

} // namespace stagewright
