#pragma once

#include <span>
#include <string>

#include "engine/error.h"

namespace engine {

// What the first bytes of a file say of it. Too few bytes say nothing.
struct FileMarks {
    bool isDatabase = false;
    bool isOurs = false;   // bears a catalogue's mark
    bool isLater = false;  // of a format that is not known yet
    bool isUtf16 = false;  // which sorts otherwise than UTF-8, and which we never write
};
[[nodiscard]] FileMarks marksOf(std::span<const unsigned char> firstBytes);

// Whether they are those of a catalogue that can be opened; unrecognizedFormat and why if not.
[[nodiscard]] Result<> checkMarks(const std::string& path, const FileMarks& marks);

// Looks at a file before SQLite does, without waiting and without changing it: a regular file that begins
// like a catalogue passes. Otherwise fileNotFound, cannotOpenFile or unrecognizedFormat.
[[nodiscard]] Result<> checkCatalogueFile(const std::string& path);

}  // namespace engine
