#include "WorkspaceFiles.h"

#include <algorithm>

namespace stagewright::cli {

namespace fs = std::filesystem;
using tessaro::sceneObjectType;

namespace {

bool sameIgnoringCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return a.size() == b.size() &&
        std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

WorkspaceFiles::WorkspaceFiles(fs::path workspace) : m_workspace(std::move(workspace)) {}

std::string WorkspaceFiles::imageFolder(sceneObjectType kind, const std::string& name)
{
    const std::string_view folder = name == "placeholder" ? "Extras" : tessaro::imageFolderName(kind);
    return "Assets/Images/" + std::string(folder) + "/";
}

const WorkspaceFiles::Listing& WorkspaceFiles::listing(const std::string& folder)
{
    const auto known = m_listings.find(folder);
    if (known != m_listings.end())
        return known->second;
    Listing& listed = m_listings[folder];
    std::error_code error;
    for (fs::directory_iterator it(m_workspace / folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError))
            listed.files.insert(it->path().filename().string());
        else if (it->is_directory(typeError))
            listed.folders.insert(it->path().filename().string());
    }
    return listed;
}

bool WorkspaceFiles::hasImage(sceneObjectType kind, const std::string& name)
{
    const Listing& folder = listing(imageFolder(kind, name));
    for (tessaro::imageType type : tessaro::allCases<tessaro::imageType>())
        if (type != tessaro::imageType::none && folder.files.count(name + "." + std::string(tessaro::caseText(type))))
            return true;
    return hasPerNameImage(kind, name);
}

bool WorkspaceFiles::hasPerNameImage(sceneObjectType kind, const std::string& name)
{
    // The editor looks for a folder named after the image in the folder of
    // the kind's case name, matched as a case-insensitive file system would;
    // the first file in it stands for the image.
    for (const std::string& kindFolder : listing("Assets/Images/").folders) {
        if (!sameIgnoringCase(kindFolder, tessaro::caseText(kind)))
            continue;
        const std::string perName = "Assets/Images/" + kindFolder + "/";
        if (listing(perName).folders.count(name) && !listing(perName + name + "/").files.empty())
            return true;
    }
    return false;
}

bool WorkspaceFiles::hasSound(const std::string& filename, const std::string& extension)
{
    return listing(soundFolder).files.count(filename + "." + extension) > 0;
}

} // namespace stagewright::cli
