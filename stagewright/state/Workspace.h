// The workspace: one folder holding the store, the project files, the three
// catalogues and the images and sounds of a game. Creating one, scanning it
// into file lists and finding files by the names a level stores.
#pragma once

#include "StateTypes.h"

#include <tessaro/model/Enumerations.h>

#include <QString>

#include <optional>
#include <vector>

namespace stagewright {

class PermissionManager;

/// The current workspace, ending in "/"; empty before one is set.
const QString& workingSpacePath();
void setWorkingSpacePathValue(const QString& path);
/// Whether the first-use window has been shown.
bool& firstTimeViewDisplayed();

/// `path` with a final "/".
QString withTrailingSlash(QString path);
/// "StageWrightSpace" in the user's home folder, ending in "/".
QString defaultWorkspacePath();

/// Paths below a workspace.
QString levelsFolder(const QString& workspace); // "Levels/"
QString assetsFolder(const QString& workspace); // "Assets/"
QString soundsFolder(const QString& workspace); // "Assets/Sounds/"
QString imagesFolder(const QString& workspace); // "Assets/Images/"
QString kindImageFolder(const QString& workspace, tessaro::sceneObjectType kind); // "Assets/Images/<Kind>/"
QString extrasFolder(const QString& workspace); // "Assets/Images/Extras/"

/// Builds the workspace layout under `path`, keeping everything that is there
/// already: catalogues and other files are never overwritten, and the seed
/// images go only into kind folders made by this call. Asks for access to the
/// folder when it cannot be used as it is. False when the layout could not be
/// completed (a diagnostic line tells why).
bool createWorkspace(const QString& path, PermissionManager& gate);

enum class ScanKind { images, sounds };
/// The image or sound files directly in `folder`, sorted by name. The
/// extension test is exact: "PNG" is not "png". A folder that cannot be
/// listed gives an empty list. `folder` ends in "/".
std::vector<FileItem> scanFolder(const QString& folder, tessaro::sceneObjectType kind, ScanKind what);

struct WorkspaceFileLists {
    std::vector<FileItem> images; // kind by kind, in the order of the kinds
    std::vector<FileItem> audio;
};
/// Scans the sound folder and every kind's image folder; the caller holds
/// access to the workspace.
WorkspaceFileLists scanWorkspaceFiles(const QString& workspace);

/// The image file `name` of a kind in the current workspace: none when the
/// folder holds no such image, the placeholder's item when the folder cannot
/// be listed.
std::optional<FileItem> findFileItem(const QString& name, tessaro::sceneObjectType kind);

/// The path of an image in the current workspace: the folder of its kind
/// ("Extras" for "placeholder") + name + "." + the extension, or the
/// workspace's default image type when none is given.
QString workspaceImagePath(const QString& name, const std::optional<QString>& extension, tessaro::sceneObjectType kind);
/// A folder named `name` in the kind's folder of per-name images, matched as
/// a case-insensitive file system would match the kind's case name: the
/// first file in it stands for the image. None when there is no such folder.
std::optional<QString> perNameImageFolder(const QString& name, tessaro::sceneObjectType kind);

/// The first regular file directly in `path` (in name order); none and the
/// diagnostic line "Error getFirstFileInDirectory: ..." when it cannot be listed.
std::optional<QString> firstFileInDirectory(const QString& path);
bool isDirectory(const QString& path);

/// The image the ground order pane shows for a section: a fixed image for
/// the hazard types, else the section's own image (the first piece of a
/// comma list when that is not empty).
QString defaultGroundImage(tessaro::groundBaseType type, const QString& image);

} // namespace stagewright

namespace stagewright {
/// Whether `name` can stand as one file name: not empty, no "/" or "\",
/// not "." or "..". Names read from files are tested before they become paths.
bool isPlainFileName(const QString& name);
} // namespace stagewright
