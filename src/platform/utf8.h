#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// Bytes that are no valid UTF-8 decode one by one to this block, so that any text can be walked to its end.
inline constexpr char32_t strayByteBase = 0xDC00;

[[nodiscard]] constexpr bool isStrayByte(char32_t character) {
    return (character & ~char32_t{0xFF}) == strayByteBase;
}

[[nodiscard]] constexpr bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}
[[nodiscard]] constexpr bool isAscii(char32_t character) {
    return character < 0x80;
}
[[nodiscard]] bool isAscii(std::string_view text);

// The character at `position`, which moves behind it. `position` must be inside the text.
[[nodiscard]] char32_t nextCharacter(std::string_view text, std::size_t& position);

// The inverse; a stray byte becomes that byte again.
void appendCharacter(std::string& text, char32_t character);

}  // namespace platform
