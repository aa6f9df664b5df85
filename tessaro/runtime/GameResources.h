// Where a game finds its files: configuration records carried among the
// game's resources, and the images, atlases and sounds of a workspace.
//
// The kit looks images, atlases and sounds up by name under its resource
// search paths (the game's "bundle"); a game points those paths at its own
// resource folders, at Qt resources (":/...") or at a workspace.
#pragma once

#include <tessaro/model/ConfigFiles.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

namespace tessaro {

/// Reads the configuration resource `resource` + "." + extension ("plist"
/// when none), found under the kit's resource search paths, as a list of
/// `Type` records. Records without an id get one; for `app` the first entry
/// becomes one BaseConfig. A resource that is not found gives an empty list;
/// one that cannot be decoded gives an empty list and the line
/// "Configuration error (<resource>): <reason>".
template <configType Type>
ConfigList<Type> loadBundledConfig(const std::string& resource, const std::optional<std::string>& extension = {});

/// The folders of a workspace in which its images, atlases and sounds lie:
/// the image folder of each kind of element, "Extras", the sound folder and
/// "Assets" itself. `workspace` ends in "/".
QStringList workspaceSearchPaths(const QString& workspace);

/// Makes the workspace the game's resources: the kit's search paths become
/// workspaceSearchPaths and the three catalogues are loaded from its
/// "Assets/" folder. False when a catalogue cannot be read; the reason has
/// been written as a configuration error line.
bool loadWorkspace(const QString& workspace);

} // namespace tessaro
