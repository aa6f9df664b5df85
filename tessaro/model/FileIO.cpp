#include "FileIO.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessaro {

namespace {

std::string systemError(const std::string& what, const std::string& path, int error)
{
    return what + " \"" + path + "\": " + std::strerror(error);
}

// Closes a descriptor when it goes out of scope.
struct Descriptor {
    int fd = -1;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

} // namespace

FileReadResult readWholeFile(const std::string& path)
{
    FileReadResult result;
    Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0) {
        result.error = systemError("Could not open", path, errno);
        return result;
    }
    struct stat info {};
    if (::fstat(file.fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        result.error = "Not a regular file \"" + path + "\"";
        return result;
    }
    std::string bytes;
    bytes.resize(static_cast<std::size_t>(info.st_size));
    std::size_t done = 0;
    while (true) {
        if (done == bytes.size())
            bytes.resize(bytes.size() + 65536); // the file grew, or reports no size
        const ssize_t n = ::read(file.fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            result.error = systemError("Could not read", path, errno);
            return result;
        }
        if (n == 0)
            break;
        done += static_cast<std::size_t>(n);
    }
    bytes.resize(done);
    result.bytes = std::move(bytes);
    return result;
}

std::optional<std::string> writeFileAtomically(const std::string& requestedPath, std::string_view bytes)
{
    // Write through a symbolic link to the file it names.
    std::string path = requestedPath;
    if (char* resolved = ::realpath(requestedPath.c_str(), nullptr)) {
        path = resolved;
        std::free(resolved);
    }

    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const std::string base = slash == std::string::npos ? path : path.substr(slash + 1);
    std::string temporary = folder + "." + base + ".XXXXXX";

    Descriptor file{::mkstemp(temporary.data())};
    if (file.fd < 0)
        return systemError("Could not create a temporary file in", folder, errno);

    mode_t mode = 0644;
    struct stat existing {};
    if (::stat(path.c_str(), &existing) == 0) {
        mode = existing.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }

    const auto fail = [&](const std::string& what) {
        const int error = errno;
        ::unlink(temporary.c_str());
        return systemError(what, path, error);
    };

    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(file.fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return fail("Could not write");
        }
        done += static_cast<std::size_t>(n);
    }
    if (::fchmod(file.fd, mode) != 0 || ::fsync(file.fd) != 0)
        return fail("Could not write");
    if (::close(file.fd) != 0) {
        file.fd = -1;
        return fail("Could not write");
    }
    file.fd = -1;
    if (::rename(temporary.c_str(), path.c_str()) != 0)
        return fail("Could not replace");
    return std::nullopt;
}

} // namespace tessaro
