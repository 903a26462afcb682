#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "platform/held_files.h"
#include "platform/temporary_file.h"

namespace platform {
namespace {

// A file descriptor that closes itself, without taking the locks of a file that SQLite holds in this process.
class Descriptor {
  public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0) closeKeepingLocks(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }

  private:
    int m_fd;
};

// Can only be read by setting it, which is for a time with a single thread.
const mode_t withheld = [] {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}();

int numberOf(int systemError, const std::string& path) {
    switch (systemError) {
        case ENOENT:
            return FolderExists(folderOf(path)) ? FileError::fileNotFound : FileError::pathNotFound;
        case ENOTDIR:
        case ENODEV:
        case ENXIO:
        case ENOMEDIUM:
            return FileError::pathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return FileError::diskFull;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
            return FileError::permissionDenied;
        default:
            return FileError::other;
    }
}

std::unexpected<FileError> failure(int number, const std::string& path, const std::string& reason) {
    return std::unexpected(FileError{number, path + ": " + reason});
}

bool writeWhole(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        data += written;
        size -= std::size_t(written);
    }
    return true;
}

// From the current positions to the end of `from`, by the kernel where it can: file systems that share blocks
// then copy nothing at all. What it declines, or stops at, goes through memory.
bool copyBytes(int from, int to) {
    constexpr std::size_t atOnce = std::size_t{1} << 30;
    while (::copy_file_range(from, nullptr, to, nullptr, atOnce, 0) > 0) {
    }
    std::vector<char> buffer(std::size_t{1} << 20);
    for (;;) {
        const ssize_t got = ::read(from, buffer.data(), buffer.size());
        if (got == 0) return true;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 || !writeWhole(to, buffer.data(), std::size_t(got))) return false;
    }
}

// Not every file system can keep them; a copy without them is still a whole copy.
void keepTimesAndMode(const struct stat& source, int fd) {
    if (::fchmod(fd, permissionsOfCopy(source.st_mode)) != 0) errno = 0;
    const timespec times[2] = {source.st_atim, source.st_mtim};
    if (::futimens(fd, times) != 0) errno = 0;
}

}  // namespace

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

void flushFolder(const std::string& folder) {
    const int place = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (place < 0) return;
    ::fsync(place);
    ::close(place);
}

std::unexpected<FileError> systemFailure(const std::string& path) {
    const int reason = errno;
    return failure(numberOf(reason, path), path, std::strerror(reason));
}

FileResult<> checkReplaceable(const std::string& source, const std::string& destination) {
    if (const auto there = identityOf(destination); there && there == identityOf(source))
        return failure(FileError::permissionDenied, destination, "source and destination are the same file");
    struct stat there {};
    if (::lstat(destination.c_str(), &there) != 0) return {};
    if (S_ISLNK(there.st_mode)) return {};  // the link itself is replaced, never what it points to
    if (!S_ISREG(there.st_mode))
        return failure(FileError::permissionDenied, destination, "not a regular file");
    // The mode is asked too, since nothing is read-only to the superuser's access().
    if ((there.st_mode & 0222) == 0 || ::access(destination.c_str(), W_OK) != 0)
        return failure(FileError::permissionDenied, destination, "the file is read-only");
    return {};
}

FileResult<> CopyFile(const std::string& source, const std::string& destination) {
    // Not to wait for the other end, should the name be a pipe's.
    Descriptor in(::open(source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!in.isOpen()) return systemFailure(source);
    struct stat status {};
    if (::fstat(in.get(), &status) != 0) return systemFailure(source);
    if (!S_ISREG(status.st_mode)) return failure(FileError::fileNotFound, source, "not a regular file");
    if (auto allowed = checkReplaceable(source, destination); !allowed) return allowed;

    auto copy = TemporaryFile::beside(destination);
    if (!copy) return std::unexpected(copy.error());
    if (!copyBytes(in.get(), copy->descriptor())) return systemFailure(destination);
    keepTimesAndMode(status, copy->descriptor());
    return copy->putInPlace();
}

unsigned permissionsOfCopy(unsigned mode) {
    return mode & 0777 & ~withheld;
}

FileResult<> DeleteFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0) return systemFailure(path);
    return {};
}

bool FileExists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FolderExists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string programFolder() {
    std::vector<char> path(4096);
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    return length > 0 ? folderOf(std::string(path.data(), std::size_t(length))) : ".";
}

}  // namespace platform
