#include "platform/utf8.h"

#include <unicode/utf8.h>

namespace platform {

bool isAscii(std::string_view text) {
    unsigned char seen = 0;  // of all bytes: without a way out, the compiler takes many at a time
    for (const char byte : text) seen |= static_cast<unsigned char>(byte);
    return seen < 0x80;
}

char32_t nextCharacter(std::string_view text, std::size_t& position) {
    const std::size_t begin = position;
    UChar32 character = 0;
    U8_NEXT(text.data(), position, text.size(), character);  // NOLINT(bugprone-inc-dec-in-conditions)
    if (character >= 0) return static_cast<char32_t>(character);
    position = begin + 1;
    return strayByteBase + static_cast<unsigned char>(text[begin]);
}

void appendCharacter(std::string& text, char32_t character) {
    if (isStrayByte(character)) {
        text += static_cast<char>(character - strayByteBase);
        return;
    }
    char bytes[U8_MAX_LENGTH];
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes, size, character);
    text.append(bytes, size);
}

}  // namespace platform
