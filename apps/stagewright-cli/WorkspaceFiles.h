// The images and sounds a workspace has, looked up by the names levels store.
// Read only: each folder is listed once, on first use, and nothing is written.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace stagewright::cli {

class WorkspaceFiles {
public:
    explicit WorkspaceFiles(std::filesystem::path workspace);

    /// The folder, relative to the workspace, where an image `name` of `kind`
    /// lies: "Assets/Images/" + the kind's folder ("Extras" for
    /// "placeholder") + "/".
    static std::string imageFolder(tessaro::sceneObjectType kind, const std::string& name);
    static constexpr const char* soundFolder = "Assets/Sounds/";

    /// Whether the image folder holds `name` with an image extension, or a
    /// folder of per-name images of the kind holds one for `name`. `name`
    /// must be a plain file name.
    bool hasImage(tessaro::sceneObjectType kind, const std::string& name);
    /// Whether the sound folder holds `filename` + "." + `extension`.
    bool hasSound(const std::string& filename, const std::string& extension);

private:
    struct Listing {
        std::set<std::string> files;
        std::set<std::string> folders;
    };
    /// The entries of a folder below the workspace; empty when it cannot be listed.
    const Listing& listing(const std::string& folder);
    bool hasPerNameImage(tessaro::sceneObjectType kind, const std::string& name);

    std::filesystem::path m_workspace;
    std::map<std::string, Listing> m_listings;
};

} // namespace stagewright::cli
