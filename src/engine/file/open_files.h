#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace engine {

// Which file a path leads to, whatever its spelling.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const FileIdentity&) const = default;
};

// Nothing when the path leads nowhere.
[[nodiscard]] std::optional<FileIdentity> identityOf(const std::string& path);

// The database files that this process holds open. Opening and closing a file by any other way drops the
// locks that SQLite holds on it (POSIX locks belong to the process), so ask here first.
class OpenFile {
  public:
    OpenFile() = default;
    explicit OpenFile(FileIdentity file);
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    ~OpenFile();

    [[nodiscard]] static bool isOpen(FileIdentity file);

  private:
    std::optional<FileIdentity> m_file;
};

}  // namespace engine
