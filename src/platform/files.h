#pragma once

#include <expected>
#include <string>

namespace platform {

// Why a file operation failed, by the numbers that the copy-back procedure tells apart.
struct [[nodiscard]] FileError {
    static constexpr int fileNotFound = 53;
    static constexpr int diskFull = 61;
    static constexpr int permissionDenied = 70;
    static constexpr int pathNotFound = 76;
    static constexpr int other = 75;
    int number = other;
    std::string text;  // English, for logs and the command line
};

template <class T = void>
using FileResult = std::expected<T, FileError>;

// All paths are native.

// Replaces `destination` by a byte copy of `source`, in one step: a temporary file beside it, flushed and
// renamed. It keeps the times, and the permissions but for those that the process gives to no file (its
// "umask"): a disc of others may hold files that everybody may write to. Refuses when both are the same file,
// when `source` is not a regular file, and when `destination` exists and is read-only. Whatever fails,
// `destination` is either the old or the whole new file.
[[nodiscard]] FileResult<> CopyFile(const std::string& source, const std::string& destination);
// The refusals that CopyFile tells about a destination, without copying.
[[nodiscard]] FileResult<> checkReplaceable(const std::string& source, const std::string& destination);
// The permissions of a copy of a file that has these.
[[nodiscard]] unsigned permissionsOfCopy(unsigned mode);
[[nodiscard]] FileResult<> DeleteFile(const std::string& path);
[[nodiscard]] bool FileExists(const std::string& path);    // a regular file, or a link to one
[[nodiscard]] bool FolderExists(const std::string& path);  // a folder, or a link to one
[[nodiscard]] std::string programFolder();  // of the running executable, without trailing slash
[[nodiscard]] std::string folderOf(const std::string& path);  // "." of a name alone

// What was made, renamed or deleted in a folder stays so after a power cut, where the file system can do
// that.
void flushFolder(const std::string& folder);

// The failure of the system call on `path` that has just failed.
[[nodiscard]] std::unexpected<FileError> systemFailure(const std::string& path);

}  // namespace platform
