#include "engine/file/replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace engine {
namespace {

// The first bytes of a rollback journal.
constexpr std::array<unsigned char, 8> journalMark{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};

Result<bool> isJournal(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    if (file < 0 && errno == ENOENT) return false;
    if (file < 0) return std::unexpected(errorOf(platform::systemFailure(path).error()));
    std::array<unsigned char, journalMark.size()> found{};
    const ssize_t got = ::read(file, found.data(), found.size());
    const auto unread = platform::systemFailure(path);
    ::close(file);
    if (got < 0) return std::unexpected(errorOf(unread.error()));
    return got == static_cast<ssize_t>(found.size()) && found == journalMark;
}

}  // namespace

Error errorOf(const platform::FileError& failure) {
    const bool full = failure.number == platform::FileError::diskFull;
    return {full ? error::diskFull : error::cannotOpenFile, failure.text};
}

Result<platform::TemporaryFile> replacementFor(const std::string& target) {
    auto made = platform::TemporaryFile::beside(target);
    if (!made) return std::unexpected(errorOf(made.error()));
    return std::move(*made);
}

Result<> putInPlace(platform::TemporaryFile& replacement, const std::string& model) {
    struct stat status {};
    // Not every file system keeps permissions; without them it is still the whole file.
    if (::stat(model.c_str(), &status) == 0) {
        const bool isOwn = model == replacement.target();
        (void)::fchmod(replacement.descriptor(),
                       isOwn ? status.st_mode & 0777 : platform::permissionsOfCopy(status.st_mode));
    }
    // A journal that was undone or moved away must not come back beside the new file.
    platform::flushFolder(platform::folderOf(replacement.path()));
    if (const auto put = replacement.putInPlace(); !put) return std::unexpected(errorOf(put.error()));
    return {};
}

Result<> forgetInterruptedChange(const std::string& path) {
    const std::string journal = path + "-journal";
    if (TRY(isJournal(journal)) && ::unlink(journal.c_str()) != 0)
        return std::unexpected(errorOf(platform::systemFailure(journal).error()));
    return {};
}

}  // namespace engine
