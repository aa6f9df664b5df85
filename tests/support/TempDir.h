// A temporary folder that removes itself, for tests that touch files.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace testing_support {

class TempDir {
public:
    TempDir()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "stagewright-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TempDir()
    {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                                     ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// The path of `name` inside the folder, as text.
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// The folder as text ending in "/".
    std::string folder() const { return path_.string() + "/"; }

    std::string write(const std::string& name, const std::string& bytes) const
    {
        const std::string p = file(name);
        std::filesystem::create_directories(std::filesystem::path(p).parent_path());
        std::ofstream(p, std::ios::binary) << bytes;
        return p;
    }

private:
    std::filesystem::path path_;
};

inline std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace testing_support
