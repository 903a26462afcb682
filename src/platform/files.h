#pragma once

#include <cstdint>
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

enum class Flush { ToDisk, No };  // No: for scratch copies that may be lost in a crash

// All paths are native.

// Replaces `destination` by a byte copy of `source`, times and permissions included, in one step: a temporary
// file beside it, flushed and renamed. Refuses when both are the same file, when `source` is not a regular
// file, and when `destination` exists and is read-only. Whatever fails, `destination` is either the old or
// the whole new file.
[[nodiscard]] FileResult<> CopyFile(const std::string& source, const std::string& destination,
                                    Flush flush = Flush::ToDisk);
[[nodiscard]] FileResult<> DeleteFile(const std::string& path);
[[nodiscard]] bool FileExists(const std::string& path);    // a regular file, or a link to one
[[nodiscard]] bool FolderExists(const std::string& path);  // a folder, or a link to one
[[nodiscard]] std::string programFolder();  // of the running executable, without trailing slash

}  // namespace platform
