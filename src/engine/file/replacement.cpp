#include "engine/file/replacement.h"

#include <sys/stat.h>

namespace engine {

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
    if (::stat(model.c_str(), &status) == 0) (void)::fchmod(replacement.descriptor(), status.st_mode & 0777);
    // A journal that was undone or moved away must not come back beside the new file.
    platform::flushFolder(platform::folderOf(replacement.path()));
    if (const auto put = replacement.putInPlace(); !put) return std::unexpected(errorOf(put.error()));
    return {};
}

}  // namespace engine
