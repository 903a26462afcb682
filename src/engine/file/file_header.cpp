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

// Where SQLite keeps its marks.
constexpr std::string_view magic("SQLite format 3\0", 16);
constexpr std::size_t encodingAt = 56;
constexpr std::size_t userVersionAt = 60;
constexpr std::size_t applicationIdAt = 68;
constexpr std::size_t headerLength = 100;

int bigEndian(std::span<const unsigned char> bytes, std::size_t at) {
    return bytes[at] << 24 | bytes[at + 1] << 16 | bytes[at + 2] << 8 | bytes[at + 3];
}

}  // namespace

FileMarks marksOf(std::span<const unsigned char> firstBytes) {
    if (firstBytes.size() < headerLength) return {};
    const int encoding = bigEndian(firstBytes, encodingAt);  // 2 and 3 for either byte order
    return {.isDatabase = std::memcmp(firstBytes.data(), magic.data(), magic.size()) == 0,
            .isOurs = bigEndian(firstBytes, applicationIdAt) == applicationId,
            .isLater = bigEndian(firstBytes, userVersionAt) > formatVersion,
            .isUtf16 = encoding == 2 || encoding == 3};
}

Result<> checkMarks(const std::string& path, const FileMarks& marks) {
    const char* why = !marks.isDatabase ? "it is no database"
                      : !marks.isOurs   ? "it is another program's database"
                      : marks.isLater   ? "a later version wrote it"
                      : marks.isUtf16   ? "its texts are not in UTF-8"
                                        : nullptr;
    if (why) return std::unexpected(Error{error::unrecognizedFormat, path + " is no catalogue: " + why});
    return {};
}

Result<> checkCatalogueFile(const std::string& path) {
    const auto failed = [&path] {
        const bool absent = errno == ENOENT || errno == ENOTDIR;
        return std::unexpected(
            Error{absent ? error::fileNotFound : error::cannotOpenFile, path + ": " + std::strerror(errno)});
    };
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return failed();
    if (!S_ISREG(status.st_mode))
        return std::unexpected(Error{error::cannotOpenFile, path + " is not a file"});
    if (platform::HeldFile::isHeld(platform::FileIdentity{status.st_dev, status.st_ino}))
        return {};  // was checked, and must be left alone

    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return failed();
    std::array<unsigned char, headerLength> header{};
    const ssize_t size = ::pread(file, header.data(), header.size(), 0);
    Result<> read =
        size < 0 ? failed() : checkMarks(path, marksOf(std::span(header).first(std::size_t(size))));
    ::close(file);
    return read;
}

}  // namespace engine
