#include "engine/file/file_header.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "engine/format.h"
#include "platform/held_files.h"

namespace engine {

namespace {

using Header = std::array<unsigned char, 100>;

// Where SQLite keeps its marks in the header.
constexpr std::string_view magic("SQLite format 3\0", 16);
constexpr std::size_t userVersionAt = 60;
constexpr std::size_t applicationIdAt = 68;

int bigEndian(const Header& header, std::size_t at) {
    return header[at] << 24 | header[at + 1] << 16 | header[at + 2] << 8 | header[at + 3];
}

Error unrecognized(const std::string& path, const char* why) {
    return {error::unrecognizedFormat, path + " is no catalogue: " + why};
}

Result<> checkHeader(const std::string& path, const Header& header) {
    if (std::memcmp(header.data(), magic.data(), magic.size()) != 0) {
        return std::unexpected(unrecognized(path, "it is no database"));
    }
    if (bigEndian(header, applicationIdAt) != applicationId) {
        return std::unexpected(unrecognized(path, "it is another program's database"));
    }
    if (bigEndian(header, userVersionAt) > formatVersion) {
        return std::unexpected(unrecognized(path, "a later version wrote it"));
    }
    return {};
}

}  // namespace

Result<> checkCatalogueFile(const std::string& path) {
    struct stat status {};
    if (path.empty() || ::stat(path.c_str(), &status) != 0) {
        const bool absent = path.empty() || errno == ENOENT || errno == ENOTDIR;
        return std::unexpected(
            Error{absent ? error::fileNotFound : error::cannotOpenFile, path + ": " + std::strerror(errno)});
    }
    if (!S_ISREG(status.st_mode))
        return std::unexpected(Error{error::cannotOpenFile, path + " is not a file"});
    if (platform::HeldFile::isHeld(platform::FileIdentity{status.st_dev, status.st_ino}))
        return {};  // was checked, and must be left alone

    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return std::unexpected(Error{error::cannotOpenFile, path + ": " + std::strerror(errno)});
    Header header{};
    const ssize_t size = ::pread(file, header.data(), header.size(), 0);
    ::close(file);
    if (size < static_cast<ssize_t>(header.size()))
        return std::unexpected(unrecognized(path, "it is too short"));
    return checkHeader(path, header);
}

}  // namespace engine
