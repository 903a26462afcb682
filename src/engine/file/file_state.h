#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "engine/file/connection.h"

namespace engine {

// Tells one state of a catalogue file from every other, also from those of another file at the same path.
// Whatever changes rows counts up in SQLite's header; a file put in place of another, or written to without
// SQLite, shows in what the system keeps of it.
struct FileState {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::array<std::int64_t, 4> changed{};  // of contents and of the entry, seconds and nanoseconds
    std::array<char, 100> header{};

    bool operator==(const FileState&) const = default;
};

// Of a file that the connection has locked for reading, and neither changed nor lost to another one by now.
// Nothing in any other case, when the header cannot be read, and when changes are kept beside the file.
[[nodiscard]] std::optional<FileState> lockedState(const Connection& connection);

}  // namespace engine
