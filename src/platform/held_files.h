#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// Which file a path leads to, whatever its spelling.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const FileIdentity&) const = default;
};

// Nothing when the path leads nowhere.
[[nodiscard]] std::optional<FileIdentity> identityOf(const std::string& path);

// A file on which a library holds POSIX locks (SQLite). They belong to the process and are gone as soon as
// any descriptor of that file is closed, so ask here before opening one, or close it with closeKeepingLocks.
class HeldFile {
  public:
    HeldFile() = default;
    explicit HeldFile(FileIdentity file);
    HeldFile(HeldFile&& other) noexcept;
    HeldFile& operator=(HeldFile&& other) noexcept;
    ~HeldFile();

    [[nodiscard]] static bool isHeld(FileIdentity file);
    [[nodiscard]] static bool isHeld(const std::string& path);

  private:
    std::optional<FileIdentity> m_file;
};

// Closes a descriptor: at once, or with the last hold on its file. False when closing fails.
bool closeKeepingLocks(int descriptor) noexcept;

}  // namespace platform
