#pragma once

#include <string>
#include <string_view>

namespace platform {

// The first of the characters that stand for bytes.
inline constexpr char32_t escapeBase = 0xF000;

// File names cross between the disk (any bytes but '/' and NUL) and drive form (UTF-8, '\' as separator), in
// which they are stored and shown. Each byte that is not valid UTF-8, each backslash, and each byte of a
// character that already lies in U+F000..U+F0FF becomes the character U+F000 + byte, so that every name comes
// back to the disk as it was.
[[nodiscard]] std::string toStoredName(std::string_view diskName);
[[nodiscard]] std::string toDiskName(std::string_view storedName);

}  // namespace platform
