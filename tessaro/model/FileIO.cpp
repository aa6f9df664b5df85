#include "FileIO.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tessaro {

namespace {

std::string systemError(const std::string& what, const std::string& path, int error)
{
    return what + " \"" + path + "\": " + std::strerror(error);
}

// Closes a descriptor when it goes out of scope.
struct Descriptor {
    int fd = -1;
    explicit Descriptor(int descriptor) : fd(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : fd(std::exchange(other.fd, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

// Opens a regular file for reading; the descriptor stays -1 with the reason
// in `error` when it cannot be read.
Descriptor openRegularFile(const std::string& path, std::size_t& size, std::string& error)
{
    Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0) {
        error = systemError("Could not open", path, errno);
        return file;
    }
    struct stat info {};
    if (::fstat(file.fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        error = "Not a regular file \"" + path + "\"";
        ::close(file.fd);
        file.fd = -1;
        return file;
    }
    size = static_cast<std::size_t>(info.st_size);
    return file;
}

// Reads until the end of the file into `buffer`, from `done` on, growing it
// with `grow(newSize)` when the file turns out longer than the buffer. The
// buffer is one byte longer than the size the file reported, so a file that
// keeps its size is read without growing. Returns false with the reason in
// `error` on a read error.
template <class Grow>
bool readToEnd(int fd, const std::string& path, char*& buffer, std::size_t& capacity, std::size_t& done, Grow grow,
               std::string& error)
{
    while (true) {
        if (done == capacity) {
            if (!grow(capacity * 2 + 65536)) {
                error = "Not enough memory to read \"" + path + "\"";
                return false;
            }
        }
        const ssize_t n = ::read(fd, buffer + done, capacity - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            error = systemError("Could not read", path, errno);
            return false;
        }
        if (n == 0)
            return true;
        done += static_cast<std::size_t>(n);
    }
}

} // namespace

FileReadResult readWholeFile(const std::string& path)
{
    FileReadResult result;
    std::size_t size = 0;
    Descriptor file = openRegularFile(path, size, result.error);
    if (file.fd < 0)
        return result;
    std::string bytes(size + 1, '\0');
    char* buffer = bytes.data();
    std::size_t capacity = bytes.size();
    std::size_t done = 0;
    const auto grow = [&](std::size_t newSize) {
        bytes.resize(newSize);
        buffer = bytes.data();
        capacity = bytes.size();
        return true;
    };
    if (!readToEnd(file.fd, path, buffer, capacity, done, grow, result.error))
        return result;
    bytes.resize(done);
    result.bytes = std::move(bytes);
    return result;
}

// ---- FileBuffer -------------------------------------------------------------

namespace {

constexpr std::size_t largePageSize = std::size_t{2} << 20;

// A fresh anonymous block of at least `capacity` bytes. A large one is mapped
// one large page longer so that its data can start on a large-page boundary,
// and asks for large pages.
struct Block {
    void* mapping = nullptr;
    std::size_t mappingSize = 0;
    char* data = nullptr;
    std::size_t capacity = 0;
};

std::optional<Block> mapBlock(std::size_t capacity)
{
    const bool large = capacity >= largePageSize;
    const std::size_t page = large ? largePageSize : static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    Block block;
    block.capacity = (capacity + page - 1) / page * page;
    block.mappingSize = large ? block.capacity + largePageSize : block.capacity;
    block.mapping = ::mmap(nullptr, block.mappingSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block.mapping == MAP_FAILED)
        return std::nullopt;
    block.data = static_cast<char*>(block.mapping);
    if (large) {
        const auto address = reinterpret_cast<std::uintptr_t>(block.mapping);
        block.data += (largePageSize - address % largePageSize) % largePageSize;
#ifdef MADV_HUGEPAGE
        ::madvise(block.data, block.capacity, MADV_HUGEPAGE); // advice: the block works without it
#endif
    }
    return block;
}

} // namespace

FileBuffer::FileBuffer(FileBuffer&& other) noexcept
    : mapping_(std::exchange(other.mapping_, nullptr)),
      mappingSize_(std::exchange(other.mappingSize_, 0)),
      data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0))
{
}

FileBuffer& FileBuffer::operator=(FileBuffer&& other) noexcept
{
    if (this != &other) {
        FileBuffer old(std::move(*this));
        mapping_ = std::exchange(other.mapping_, nullptr);
        mappingSize_ = std::exchange(other.mappingSize_, 0);
        data_ = std::exchange(other.data_, nullptr);
        size_ = std::exchange(other.size_, 0);
    }
    return *this;
}

FileBuffer::~FileBuffer()
{
    if (mapping_)
        ::munmap(mapping_, mappingSize_);
}

FileBufferResult readFileBuffer(const std::string& path)
{
    FileBufferResult result;
    std::size_t size = 0;
    Descriptor file = openRegularFile(path, size, result.error);
    if (file.fd < 0)
        return result;
    std::optional<Block> block = mapBlock(size + 1);
    if (!block) {
        result.error = "Not enough memory to read \"" + path + "\"";
        return result;
    }
    FileBuffer buffer;
    buffer.mapping_ = block->mapping;
    buffer.mappingSize_ = block->mappingSize;
    buffer.data_ = block->data;
    char* data = block->data;
    std::size_t capacity = block->capacity;
    std::size_t done = 0;
    const auto grow = [&](std::size_t newSize) {
        std::optional<Block> larger = mapBlock(newSize);
        if (!larger)
            return false;
        std::memcpy(larger->data, data, done);
        ::munmap(buffer.mapping_, buffer.mappingSize_);
        buffer.mapping_ = larger->mapping;
        buffer.mappingSize_ = larger->mappingSize;
        buffer.data_ = data = larger->data;
        capacity = larger->capacity;
        return true;
    };
    if (!readToEnd(file.fd, path, data, capacity, done, grow, result.error))
        return result;
    buffer.size_ = done;
    result.buffer = std::move(buffer);
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
